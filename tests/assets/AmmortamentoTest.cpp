// The automatic run, its reversal, the registration that it proposes: what is asked, written,
// printed, and that nothing is left half done.
#include "assets/CespitiDiProva.h"
#include "assets/RegistrazioneQuote.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

class AmmortamentoTest : public CespitiDiProva {
 protected:
  AmmortamentoTest() {
    Scrivi(1, "X1", G(1, 3, 2024), {Mov(2024, "100", "1000")});
    Scrivi(2, "X1", G(1, 3, 2023), {Mov(2023, "100", "1000"), Mov(2023, "390", "850")});
    Scrivi(3, "X2", G(1, 3, 2023), {Mov(2023, "100", "100"), Mov(2023, "400", "33.33")});
    Scrivi(4, "X1", G(1, 3, 2022), {Mov(2022, "100", "10")});
    Scrivi(5, "X1", G(1, 3, 2025), {Mov(2025, "100", "10")});
    Scrivi(6, "X1", G(1, 3, 2023), {Mov(2023, "100", "10"), Mov(2023, "500", "5")});
    Scrivi(7, "X3", G(1, 3, 2024), {Mov(2024, "100", "10")});
  }
  assets::SceltaAmmortamento Scelta(const char* da = "X1", const char* a = "X3", int anno = 2024) {
    return {anno, {da, a}};
  }
  bool Registra(const assets::SceltaAmmortamento& scelta) {
    dialoghi.Rispondera("Verrà creata la riga con la quota amm.to anno ", Risposta::Si);
    Verso(Destinazione::Testo);
    return automatico.Registra(scelta, {});
  }

  assets::AmmortamentoAutomatico automatico{ambiente, uscite};
};

TEST_F(AmmortamentoTest, ScriveEStampa) {
  EXPECT_FALSE(automatico.Registra(Scelta("X1", "X3", 0), {}));
  EXPECT_EQ(SoloMessaggio(), "impostare anno");
  const std::string prima = Contenuto();
  std::size_t mostrate = 0;
  dialoghi.Rispondera("percentuali impostate sulle categorie da X1 a X3\nProseguo", Risposta::No);
  EXPECT_FALSE(automatico.Registra(Scelta(), [&](const auto& voci) { mostrate = voci.size(); }));
  EXPECT_EQ(mostrate, 5U);  // shown before the question; 5 isn't in use yet, 6 is sold
  dialoghi.Rispondera("Verrà creata", Risposta::Si);
  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(automatico.Registra(Scelta(), {}));
  EXPECT_EQ(Contenuto(), prima);

  ASSERT_TRUE(Registra(Scelta()));
  EXPECT_THAT(RigheDi(1), ElementsAre("2024 100 1000 |", "2024 400 100 10%| primo anno"));
  EXPECT_THAT(RigheDi(2), Contains("2024 400 150 15%| ordinario"));
  EXPECT_THAT(RigheDi(3), Contains("2024 400 33.33 33,33%| ordinario"));
  EXPECT_EQ(RigheDi(4).size(), 1U);
  EXPECT_FALSE(Campo(1, "AmmCompl"));
  EXPECT_TRUE(Campo(2, "AmmCompl"));
  const std::string testo = uscite.Testo();
  for (const char* parte :
       {" AMMORTAMENTO AUTOMATICO CESPITI ANNO  2024", "DA CATEGORIA X1       A X3",
        " CATEGORIA X1       Attrezzi", "Quota ammortamento 10% (10 % del costo 1.000,00)",
        "Quota ammortamento 15% (15 % del costo 1.000,00)", "Ammortamento completato",
        "Manca ammortamento dell'anno della data entrata in funzione",
        "Manca la percentuale di ammortamento", "cespiti variati: 3 su 5"}) {
    EXPECT_THAT(testo, HasSubstr(parte));
  }
  // What is there isn't added again.
  ASSERT_TRUE(Registra(Scelta("X1", "X1")));
  EXPECT_EQ(RigheDi(1).size(), 2U);
  EXPECT_THAT(uscite.Testo(), HasSubstr("Ammortamento già registrato"));
}

TEST_F(AmmortamentoTest, LoStornoRendeLeRighe) {
  const std::string prima = Contenuto();
  ASSERT_TRUE(Registra(Scelta()));
  // An asset whose last quota is of another year stays.
  Transazione transazione(ambiente.Basi());
  Metti(Tessarc(), "MovCesp_r", "NCesp", 1, "Posi", 9, "Anno", 2025, "Cau", "400", "Importo",
        I("1"), "Cat", "X1");
  transazione.Conferma();
  dialoghi.Rispondera("Verrà eliminata la riga con la quota amm.to anno 2024", Risposta::Si);
  Verso(Destinazione::Testo);
  ASSERT_TRUE(automatico.Elimina(Scelta(), {}));
  EXPECT_THAT(uscite.Testo(), HasSubstr("L'ultimo anno ammortizzato 2025 e diverso da 2024"));
  EXPECT_THAT(uscite.Testo(), HasSubstr("Eliminata Quota ammortamento"));
  EXPECT_THAT(uscite.Testo(), HasSubstr(" Eliminazione automatica quote ammortamento ANNO  2024"));
  EXPECT_EQ(RigheDi(1).size(), 3U);
  EXPECT_FALSE(Campo(2, "AmmCompl"));
  Tessarc().Esegui("delete * from MovCesp_r where NCesp=1 and Posi>1");
  EXPECT_EQ(Contenuto(), prima);
}

TEST_F(AmmortamentoTest, QualcunoScriveMentreSiChiede) {
  const std::string atteso = "i cespiti sono stati cambiati da un'altra stazione";
  dialoghi.Rispondera("Verrà creata", Risposta::Si);
  Verso(Destinazione::Testo);
  const bool scritte = automatico.Registra(Scelta(), [this](const auto&) {
    Metti(Tessarc(), "MovCesp_r", "NCesp", 1, "Posi", 5, "Anno", 2024, "Cau", "400", "Importo",
          I("7"), "Cat", "X1");
  });
  EXPECT_FALSE(scritte);
  EXPECT_THAT(SoloMessaggio(), HasSubstr(atteso));
  EXPECT_EQ(RigheDi(3).size(), 2U);
}

TEST_F(AmmortamentoTest, OgniIstruzioneChiFallisceNonLasciaNulla) {
  const auto prova = [&](const std::function<bool()>& azione) {
    EXPECT_GE(FallisceOgniIstruzione(
                  ambiente.Basi(), Guasto::Errore, [this] { return Contenuto(); }, azione),
              5);
  };
  // Questions are asked only where the plan could be read.
  const auto registra = [&] {
    bool mostrato = false;
    return automatico.Registra(Scelta(), [&](const auto&) {
      if (!std::exchange(mostrato, true)) {
        dialoghi.Rispondera("Verrà creata", Risposta::Si);
        Verso(Destinazione::Testo);
      }
    });
  };
  prova(registra);
  prova([&] {
    return automatico.Elimina(Scelta(), [&](const auto&) {
      dialoghi.Rispondera("Verrà eliminata", Risposta::Si);
      Verso(Destinazione::Testo);
    });
  });
}

// --- The registration ----------------------------------------------------------------------------

std::vector<std::string> Mostra(const std::vector<ledger::RigaRegistrazione>& righe) {
  std::vector<std::string> testi;
  for (const auto& r : righe) {
    testi.push_back(r.conto + " " + r.dare.Testo() + "/" + r.avere.Testo() + " " + r.contoControp);
  }
  return testi;
}

TEST_F(AmmortamentoTest, LaRegistrazionePortaCioCheManca) {
  ASSERT_TRUE(Registra(Scelta()));
  assets::PropostaQuote proposta = assets::ProponiQuote(ambiente, 2024);
  EXPECT_THAT(Mostra(proposta.registrazione.righe),
              ElementsAre("570.004 250/0 220.005", "220.005 0/250 570.004",
                          "570.004 33.33/0 220.005", "220.005 0/33.33 570.004"));
  EXPECT_EQ(proposta.registrazione.dt, G(31, 12, 2024));
  EXPECT_EQ(proposta.registrazione.righe[0].causale, "039");
  EXPECT_EQ(proposta.registrazione.righe[0].descrizione, "Quota ammortamento cat. X1 Attrezzi");

  const auto conferma = [&] {
    ledger::Primanota pn(ambiente);
    pn.Proponi(assets::ProponiQuote(ambiente, 2024).registrazione);
    EXPECT_TRUE(pn.Conferma());
    return pn.NumeroConfermato();
  };
  const std::int64_t numero = conferma();
  EXPECT_EQ(CampoTestata(numero, "CREATOINAUTOMATICO").Intero(), 61);
  EXPECT_THAT(assets::ProponiQuote(ambiente, 2024).registrazione.righe, IsEmpty());
  // A quota typed later: only it is proposed, and whoever looks at its category alone sees why.
  Metti(Tessarc(), "MovCesp_r", "NCesp", 4, "Posi", 8, "Anno", 2024, "Cau", "400", "Importo",
        I("2"), "Cat", "X1");
  Metti(Tessarc(), "MovCesp_r", "NCesp", 7, "Posi", 8, "Anno", 2024, "Cau", "400", "Importo",
        I("3"), "Cat", "X3");
  proposta = assets::ProponiQuote(ambiente, 2024);
  EXPECT_THAT(Mostra(proposta.registrazione.righe),
              ElementsAre("570.004 2/0 220.005", "220.005 0/2 570.004"));
  EXPECT_THAT(proposta.senzaConti, ElementsAre("X3"));
  conferma();
  // Less than was written: the rest is taken back.
  Tessarc().Esegui("delete * from MovCesp_r where NCesp=1 and Cau='400'");
  EXPECT_THAT(Mostra(assets::ProponiQuote(ambiente, 2024).registrazione.righe),
              ElementsAre("220.005 100/0 ", "570.004 0/100 "));
}

}  // namespace
}  // namespace fenalto::prova
