// A deposit on a future invoice: its due date and registration, the order of the refusals, both or
// neither written.
#include "duedates/payments/AnticipoFattura.h"
#include "duedates/payments/ScadenzaDigitataDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

constexpr const char* kRiuscita =
    "- anticipo inserito in scadenzario\n"
    "(quando verrà registrata una fattura l'anticipo potrà essere dedotto)";

class AnticipoFatturaTest : public ScadenzaDigitataDiProva {
 protected:
  AnticipoFatturaTest() { Imposta("3"); }
};

TEST_F(AnticipoFatturaTest, ScadenzaERegistrazione) {
  struct Caso {
    const char *cfp, *scadenza, *testa, *riga1, *riga2;
  };
  const Caso casi[] = {
      {"C", "C:0001 15/03/2024 01 01 -100.5 2024/1 anticipo «Anticipo su fatt.da emettere»",
       "P:100.010 C:0001 22 15/03/2024",
       "1 002 C:0001 0/100.5 P:100.010 «Anticipo su fatt.da emettere»",
       "2 002 P:100.010 100.5/0 C:0001 «Anticipo su fatt.da emettere»"},
      {"F", "F:0001 15/03/2024 01 01 -100.5 2024/2 anticipo «Anticipo su fatt.da ricevere»",
       "F:0001 P:100.010 22 15/03/2024",
       "1 002 F:0001 100.5/0 P:100.010 «Anticipo su fatt.da ricevere»",
       "2 002 P:100.010 0/100.5 F:0001 «Anticipo su fatt.da ricevere»"},
  };
  duedates::AnticipoFattura anticipo(ambiente);
  std::int64_t numero = 0;
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.cfp);
    ++numero;
    anticipo.ScegliParte(caso.cfp, "0001");
    ASSERT_TRUE(anticipo.Nuovo());
    Digita(anticipo, "ImportoE", I("-100.5"));
    ASSERT_TRUE(anticipo.Conferma());
    EXPECT_EQ(SoloMessaggio(),
              std::string(kRiuscita) + "\n- Creato articolo contabile " + std::to_string(numero));
    EXPECT_EQ(anticipo.NumeroScritto(), numero);
    EXPECT_EQ(ScadenzaScritta(numero), caso.scadenza);
    EXPECT_EQ(TestaDi(numero), caso.testa);
    EXPECT_THAT(RigheDi(numero), ElementsAre(caso.riga1, caso.riga2));
    EXPECT_FALSE(anticipo.Modificata());
  }
}

TEST_F(AnticipoFatturaTest, SenzaRegistrazione) {
  Imposta("3", "0");
  duedates::AnticipoFattura anticipo(ambiente);
  anticipo.ScegliParte("C", "0003");
  ASSERT_TRUE(anticipo.Nuovo());
  Digita(anticipo, "ImportoE", I("-1"));
  Digita(anticipo, "Descrizione", "");
  ASSERT_TRUE(anticipo.Conferma());
  EXPECT_EQ(SoloMessaggio(), kRiuscita);
  EXPECT_EQ(ScadenzaScritta(1), "C:0003 15/03/2024 01 01 -1 0/0 anticipo «»");
  EXPECT_EQ(TestaDi(1), "manca");
}

// Each refusal comes before those that follow; what was typed stays.
TEST_F(AnticipoFatturaTest, RifiutiNelLoroOrdine) {
  for (const char* chiave : {"CausalePagScad3C", "ContropartitaPagScad3C"})
    ambiente.ScriviImpostazione({}, "config", chiave, "");
  duedates::AnticipoFattura anticipo(ambiente);
  for (const char* campo : {"Dt", "DtReg", "Descrizione"}) Digita(anticipo, campo, Valore());
  Digita(anticipo, "Tipo", "99");
  Digita(anticipo, "Stato", " ");
  struct Passo {
    std::string messaggio;
    const char* campo;
    std::function<void()> rimedio;
  };
  const auto digita = [&](const char* campo, const Valore& valore) {
    return [&anticipo, campo, valore] { Digita(anticipo, campo, valore); };
  };
  const auto imposta = [&](const char* chiave, const char* valore) {
    return [&anticipo, chiave, valore] { anticipo.Impostazioni().Scrivi(chiave, valore); };
  };
  const Passo passi[] = {
      {"impostare un codice cliente o fornitore", "CliFor",
       [&] { anticipo.ScegliParte("C", "0003"); }},
      {"manca importo, tipo, stato", "ImportoE", digita("ImportoE", I("100"))},
      {"manca importo, tipo, stato", "Stato", digita("Stato", "1")},
      {"L'importo deve essere impostato con il segno meno", "ImportoE",
       digita("ImportoE", I("-100.001"))},
      {"Manca la descrizione contabile", "DescrizioneContabile",
       digita("DescrizioneContabile", "acconto")},
      {"manca contropartita", "", imposta("ContropartitaPagScad3", "999.999")},
      {"manca contropartita: 999.999 non è nel piano dei conti", "",
       imposta("ContropartitaPagScad3", "100.010")},
      {"sull'anagrafica del cliente/fornitore 0003 non è inserito il conto riepilogativo", "",
       [&] { anticipo.ScegliParte("C", "0002"); }},
      {"manca la data della scadenza", "Dt", digita("Dt", G(30, 4, 2024))},
      {"il tipo 99 non è fra i tipi di pagamento", "Tipo", digita("Tipo", "02")},
      {duedates::kStatoDiDueCifre, "Stato", digita("Stato", "01")},
      {"Manca causale o conti", "", imposta("CausalePagScad3", "002")},
      {"manca la data di registrazione", "DtReg", digita("DtReg", G(15, 3, 2024))},
      {"l'importo -100,001 ha più di due decimali: gli importi sono in centesimi", "ImportoE",
       digita("ImportoE", I("-100"))},
  };
  const std::string prima = Tutto();
  for (const Passo& passo : passi) {
    std::string campo;
    EXPECT_FALSE(anticipo.Conferma(&campo));
    EXPECT_EQ(SoloMessaggio(), passo.messaggio);
    EXPECT_EQ(campo, passo.campo) << passo.messaggio;
    passo.rimedio();
  }
  EXPECT_EQ(Tutto(), prima);
  EXPECT_TRUE(anticipo.Conferma());
  EXPECT_EQ(ScadenzaScritta(1), "C:0002 30/04/2024 02 01 -100 2024/1 anticipo «»");
}

TEST_F(AnticipoFatturaTest, LaDescrizioneContabileSegueFinoAQuandoSiScrive) {
  duedates::AnticipoFattura anticipo(ambiente);
  const auto contabile = [&anticipo] { return anticipo.Dati().Testo("DescrizioneContabile"); };
  anticipo.ScegliParte("F", "0001");
  ASSERT_TRUE(anticipo.Nuovo());
  EXPECT_EQ(contabile(), "Anticipo su fatt.da ricevere");
  Digita(anticipo, "Descrizione", "acconto macchina");
  EXPECT_EQ(contabile(), "acconto macchina");
  Digita(anticipo, "DescrizioneContabile", "bonifico");
  Digita(anticipo, "Descrizione", "acconto");
  EXPECT_EQ(contabile(), "bonifico");
}

TEST_F(AnticipoFatturaTest, GuastoAMetaNonLasciaNulla) {
  duedates::AnticipoFattura anticipo(ambiente);
  anticipo.ScegliParte("C", "0001");
  ASSERT_TRUE(anticipo.Nuovo());
  Digita(anticipo, "ImportoE", I("-100"));
  Messaggi();
  for (const Guasto guasto : {Guasto::Errore, Guasto::Memoria}) {
    const int falliti = FallisceOgniIstruzione(
        ambiente.Basi(), guasto, [this] { return Tutto(); },
        [&] {
          // What was typed is still there to be confirmed again.
          Digita(anticipo, "ImportoE", I("-100"));
          return anticipo.Conferma();
        });
    EXPECT_GT(falliti, 6);
    const std::vector<std::string> messaggi = Messaggi();
    for (std::size_t i = 0; i + 1 < messaggi.size(); ++i) {
      EXPECT_THAT(messaggi[i], HasSubstr("registrazione dell'anticipo non riuscita"));
      EXPECT_THAT(messaggi[i], HasSubstr("Non è stato scritto nulla"));
    }
  }
  EXPECT_EQ(QuanteScadenze(), 2);
  EXPECT_THAT(RigheDi(2), ::testing::SizeIs(2));
}

}  // namespace
}  // namespace fenalto::prova
