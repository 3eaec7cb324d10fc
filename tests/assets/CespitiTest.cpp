// The card: what is refused, in its order; the quota worked out; flags; what another station does.
#include "assets/CespitiDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

constexpr const char* kFinito =
    "Impossibile inserire perchè il cespite è già ammortizzato o è dismesso";

class CespitiTest : public CespitiDiProva {
 protected:
  /// A new card of category X1, in use from 2022, with its cost.
  void Nuovo(const char* costo = "1000") {
    card.Nuovo();
    card.Testa().Scrivi("Descrizione", "furgone");
    card.Testa().Scrivi("Cat", "X1");
    card.Testa().Scrivi("Dal", G(10, 5, 2022));
    ASSERT_TRUE(Riga(card, "100", 2022, costo));
  }
  bool Flag(const char* campo) { return card.Testa().Leggi(campo).Booleano(); }
  /// Leaves the rate of a new quota as a key does; the row stays open.
  void Quota(int anno, const char* p = "0") {
    ASSERT_TRUE(card.PNuovaRiga());
    card.Riga().Scrivi("Cau", "400");
    card.Riga().Scrivi("Anno", anno);
    card.Riga().Scrivi("P", I(p));
    card.RigaLasciata("P");
  }
  std::string Digitata() {
    const Scheda& r = card.Riga();
    return r.Leggi("P").Importo().Testo() + " " + r.Leggi("Importo").Importo().Testo() + " " +
           r.Testo("Estremi") + "|" + r.Testo("Note");
  }

  assets::Cespiti card{ambiente};
};

TEST_F(CespitiTest, ControlliDellaRigaNelLoroOrdine) {
  struct Caso {
    std::vector<assets::MovimentoCespite> prima;
    const char* cau;
    int anno;
    const char *importo, *storno, *messaggio, *campo;
  };
  const auto costo = Mov(2022, "100", "1000");
  const std::vector<assets::MovimentoCespite> venduto = {costo, Mov(2022, "400", "100"),
                                                         Mov(2023, "500", "700")};
  const Caso casi[] = {
      {{}, "", 0, "0", "0", "Inserire causale", "Cau"},
      {{}, "400", 0, "0", "0", "Inserire anno", "Anno"},
      {{}, "400", 1990, "0", "0", "Inserire importo", "Importo"},
      {{},
       "100",
       2023,
       "5",
       "0",
       "Il costo originario deve avere l'anno impostato nella 'data entrata in funzione'",
       "Anno"},
      {{},
       "300",
       1990,
       "5",
       "0",
       "Inserire l'importo da stornare da fondo'",
       "StornoFondoDismParz"},
      {{costo, Mov(2022, "400", "1000")}, "200", 1990, "5", "0", kFinito, "Cau"},
      {venduto, "200", 1990, "5", "0", kFinito, "Cau"},
      {venduto, "500", 1990, "5", "0", kFinito, "Cau"},
      {venduto, "400", 1990, "5", "0",
       "non si può inserire una quota ammortamento perchè il cespite è già dismesso", "Cau"},
      {venduto, "390", 1990, "5", "0",
       "non si può inserire una quota ammortamento perchè il cespite è già dismesso", "Cau"},
      {{costo, Mov(2024, "400", "10")},
       "500",
       2021,
       "5",
       "0",
       "non si può inserire la dismissione perchè ci sono quote ammortamento di anni successivi al "
       "2021",
       "Anno"},
      {{}, "400", 2021, "5", "0", "Anno minore di 'data entrata in funzione'", "Anno"},
      {{},
       "400",
       2099,
       "5",
       "0",
       "bisogna prima registrare il costo originale (causale 100)",
       "Cau"},
      {{costo, Mov(2099, "300", "10", "1")},
       "300",
       2099,
       "5",
       "1",
       "c'è già una dismissione parziale sull'anno 2099",
       "Anno"},
      {venduto, "300", 2023, "5", "1", "c'è già la dismissione totale sull'anno 2023", "Anno"},
      {{costo},
       "400",
       2025,
       "5",
       "0",
       "Anno superiore all'anno successivo a quello già chiuso",
       "Anno"},
      {{costo}, "777", 2023, "5", "0", "Causale: il codice 777 non esiste", "Cau"},
  };
  std::int64_t n = 0;
  for (const Caso& caso : casi) {
    Scrivi(++n, "X1", G(10, 5, 2022), caso.prima);
    ASSERT_TRUE(card.Apri(n));
    Messaggi();
    std::string campo;
    EXPECT_FALSE(Riga(card, caso.cau, caso.anno, caso.importo, caso.storno, &campo))
        << caso.messaggio;
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    EXPECT_EQ(campo, caso.campo);
    EXPECT_EQ(card.Righe().size(), caso.prima.size());
    card.Abbandona();
  }
}

TEST_F(CespitiTest, AnnoAmmessoDopoUnaChiusura) {
  Nuovo();
  EXPECT_FALSE(Riga(card, "400", 2026, "5"));
  card.AnnullaRiga();
  Metti(Tessarc(), "Articoli", "Anno", 2025, "NumDoc", 1, "CREATOINAUTOMATICO", 91);
  EXPECT_TRUE(Riga(card, "400", 2026, "5"));
  EXPECT_FALSE(Riga(card, "400", 2027, "5"));
  card.AnnullaRiga();
}

TEST_F(CespitiTest, RigaNuovaVuoleDataECategoria) {
  card.Nuovo();
  std::string campo;
  EXPECT_FALSE(card.PNuovaRiga(&campo));
  EXPECT_EQ(SoloMessaggio(), "Inserire data entrata in funzione");
  EXPECT_EQ(campo, "Dal");
  card.Testa().Scrivi("Dal", G(1, 1, 2024));
  EXPECT_FALSE(card.PNuovaRiga(&campo));
  EXPECT_EQ(SoloMessaggio(), "Inserire categoria");
  EXPECT_EQ(campo, "Cat");
}

TEST_F(CespitiTest, ConfermaNelSuoOrdine) {
  card.Nuovo();
  std::string campo;
  EXPECT_FALSE(card.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio(), "Manca la registrazione del costo originario");
  EXPECT_EQ(campo, "PNuovaRiga");
  card.Abbandona();
  Nuovo();
  card.Testa().Scrivi("Cat", "");
  card.Testa().Scrivi("Dal", Data());
  EXPECT_FALSE(card.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio(), "manca categoria");
  card.Testa().Scrivi("Cat", "X9");
  EXPECT_FALSE(card.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio(), "manca data entrata in funzione");
  card.Testa().Scrivi("Dal", G(10, 5, 2022));
  card.Testa().Scrivi("CespCorr", "1");
  EXPECT_FALSE(card.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio(), "Il 'cespite di riferimento' non può essere uguale al 'N.Cespite'");
  card.Testa().Scrivi("CespCorr", "77");
  EXPECT_FALSE(card.Conferma(&campo));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il codice X9 non esiste"));
  card.Testa().Scrivi("Cat", "X1");
  EXPECT_FALSE(card.Conferma(&campo));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il codice 77 non esiste"));
  EXPECT_EQ(campo, "CespCorr");
  card.Testa().Scrivi("CespCorr", "");
  EXPECT_TRUE(card.Conferma(&campo));
  EXPECT_EQ(card.NumeroConfermato(), 1);
  EXPECT_THAT(SoloMessaggio(), HasSubstr("CESPITE n. 1"));
}

TEST_F(CespitiTest, LaDataNonCambiaPiuDopoIlCosto) {
  Nuovo();
  card.Testa().Scrivi("Dal", G(1, 1, 2023));
  card.TestaLasciata("Dal");
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non si può variare la data entrata infunzione"));
  EXPECT_EQ(card.Testa().Leggi("Dal").Data(), G(10, 5, 2022));
}

TEST_F(CespitiTest, QuotaProposta) {
  struct Caso {
    const char* costo;
    int anno;
    const char* p;
    std::optional<Risposta> piccolo;
    const char* digitata;
  };
  const Caso casi[] = {
      {"1000", 2022, "0", std::nullopt, "10 100 10%| primo anno"},
      {"1000", 2023, "0", std::nullopt, "20 200 20%| ordinario"},
      {"1000", 2023, "33.33", std::nullopt, "33.33 333.3 33,33%|"},
      {"516.46", 2022, "0", Risposta::Si, "100 516.46 100%| bene < €516.46"},
      {"516.46", 2022, "0", Risposta::No, "10 51.65 10%| primo anno"},
      {"516.46", 2022, "100", std::nullopt, "100 516.46 100%|"},
      {"516.47", 2022, "0", std::nullopt, "10 51.65 10%| primo anno"},
      {"516.46", 2023, "0", std::nullopt, "20 103.29 20%| ordinario"},
  };
  for (const Caso& caso : casi) {
    Nuovo(caso.costo);
    if (caso.piccolo) {
      dialoghi.Rispondera("Il bene è di importo fino ad euro 516.46, applico la percentuale 100%",
                          *caso.piccolo);
    }
    Quota(caso.anno, caso.p);
    EXPECT_EQ(Digitata(), caso.digitata);
    // An amount that was forced stays when the rate is just passed by.
    card.Riga().Scrivi("Importo", I("1"));
    card.RigaLasciata("P");
    EXPECT_EQ(card.Riga().Leggi("Importo").Importo(), I("1"));
    card.Abbandona();
  }
}

TEST_F(CespitiTest, StatoDopoOgniVariazione) {
  Nuovo();
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_TRUE(Riga(card, "400", 2022, "999.99"));
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_FALSE(Flag("AmmCompl"));
  EXPECT_TRUE(Riga(card, "400", 2023, "0.01"));
  EXPECT_EQ(SoloMessaggio(), "l'ammortamento è stato completato");
  EXPECT_TRUE(Flag("AmmCompl"));
  EXPECT_TRUE(Riga(card, "400", 2023, "1"));
  EXPECT_THAT(Messaggi(), ElementsAre("Attenzione: il residuo da ammortizzare è minore di zero",
                                      "l'ammortamento è stato completato"));
  // It is reopened when a row goes, after its own question.
  ASSERT_TRUE(card.ApriRiga(4));
  dialoghi.Rispondera("di un cespite con ammortamento già completato", Risposta::No);
  EXPECT_FALSE(card.EliminaRiga());
  for (const std::int64_t posi : {4, 3}) {
    card.AnnullaRiga();
    ASSERT_TRUE(card.ApriRiga(posi));
    dialoghi.Rispondera("Proseguo ugualmente", Risposta::Si);
    dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::Si);
    EXPECT_TRUE(card.EliminaRiga());
  }
  EXPECT_FALSE(Flag("AmmCompl"));
  Messaggi();
  ASSERT_TRUE(card.ApriRiga(1));
  EXPECT_FALSE(card.EliminaRiga());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non si puo eliminare il costo originario"));
}

TEST_F(CespitiTest, SiVendeAncheCioCheEAmmortizzato) {
  Nuovo();
  ASSERT_TRUE(Riga(card, "400", 2022, "1000"));
  dialoghi.Rispondera(kFinito, Risposta::No);
  EXPECT_FALSE(Riga(card, "500", 2023, "50"));
  dialoghi.Rispondera("proseguo ugualmente", Risposta::Si);
  EXPECT_TRUE(card.ConfermaRiga());
  EXPECT_TRUE(Flag("Dismesso"));
  EXPECT_EQ(*card.Calcolata().anni.back().Plusvalenza(), I("50"));
  // The sale itself can still be corrected.
  ASSERT_TRUE(card.ApriRiga(3));
  card.Riga().Scrivi("Importo", I("60"));
  dialoghi.Rispondera("proseguo ugualmente", Risposta::Si);
  EXPECT_TRUE(card.ConfermaRiga());
  ASSERT_TRUE(card.Conferma());
  Messaggi();
  ASSERT_TRUE(card.Apri(1));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("COMPLETATO oppure DISMESSO"));
}

TEST_F(CespitiTest, RiferimentiFraCespiti) {
  Scrivi(1, "X1", G(1, 1, 2022), {Mov(2022, "100", "10")});
  Scrivi(2, "X1", G(1, 1, 2022), {Mov(2022, "100", "10")});
  ASSERT_TRUE(card.Apri(2));
  card.Testa().Scrivi("CespCorr", "2");
  card.TestaLasciata("CespCorr");
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non può essere uguale al 'N.Cespite'"));
  EXPECT_EQ(card.Testa().Testo("CespCorr"), "");
  card.Testa().Scrivi("CespCorr", "1");
  ASSERT_TRUE(card.Conferma());
  EXPECT_EQ(Tessarc().Singolo("select CespCorr from MovCesp_r where NCesp=2").Intero(), 1);
  ASSERT_TRUE(card.Apri(1));
  ASSERT_EQ(card.Correlati().size(), 1U);
  EXPECT_EQ(card.Correlati().front().nCesp, 2);
  EXPECT_EQ(card.Correlati().front().descrCat, "Attrezzi");
  card.Testa().Scrivi("CespCorr", "2");
  EXPECT_FALSE(card.Conferma());
  EXPECT_EQ(SoloMessaggio(), "il cespite 2 ha gia il riferimento a questo cespite");
  card.Testa().Scrivi("CespCorr", "");
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  EXPECT_FALSE(card.Elimina());
  EXPECT_THAT(SoloMessaggio(),
              HasSubstr("ci sono altri cespiti che hanno il 'cespite di riferimento'"));
  ASSERT_TRUE(card.Apri(2));
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  EXPECT_TRUE(card.Elimina());
  EXPECT_EQ(Tessarc().Singolo("select Count(*) from MovCesp_r where NCesp=2").Intero(), 0);
}

TEST_F(CespitiTest, LavoroDiAltriNonSiPerde) {
  Scrivi(1, "X1", G(1, 1, 2024), {Mov(2024, "100", "1000")});
  ASSERT_TRUE(card.Apri(1));
  // Another station may look, and its automatic run writes.
  const auto altra = NuovaStazione("CASSA");
  assets::Cespiti guardata(*altra->ambiente);
  ASSERT_TRUE(guardata.Apri(1));
  EXPECT_TRUE(guardata.SolaLettura());
  EXPECT_THAT(altra->dialoghi.UltimoMessaggio(), HasSubstr("è in modifica"));
  Metti(Tessarc(), "MovCesp_r", "NCesp", 1, "Posi", 2, "Anno", 2024, "Cau", "400", "Importo",
        I("100"));
  card.Testa().Scrivi("Ubicaz", "capannone");
  EXPECT_FALSE(card.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("è stato cambiato mentre era aperto"));
  EXPECT_EQ(RigheDi(1).size(), 2U);
}

TEST_F(CespitiTest, OgniIstruzioneChiFallisceNonLasciaNulla) {
  Scrivi(1, "X1", G(1, 1, 2022), {Mov(2022, "100", "1000"), Mov(2022, "400", "100")});
  ASSERT_TRUE(card.Apri(1));
  ASSERT_TRUE(Riga(card, "400", 2023, "200"));
  EXPECT_GE(FallisceOgniIstruzione(
                ambiente.Basi(), Guasto::Errore, [this] { return Contenuto(); },
                [&] { return card.Conferma(); }),
            4);
  EXPECT_EQ(RigheDi(1).size(), 3U);
}

TEST_F(CespitiTest, NuovoDallaFattura) {
  Metti(Tessarc(), "Articoli", "Anno", 2024, "NumDoc", 7, "Dt", G(20, 3, 2024), "CFP", "F", "Conto",
        "0001", "Riva", "3", "NFat", "45", "DtFat", G(15, 3, 2024));
  const auto riga = [&](int posi, const char* conto, const char* imponibile) {
    Metti(Tessarc(), "Movimenti", "Anno", 2024, "NumDoc", 7, "Posi", posi, "CFP", "P", "Conto",
          conto, "TIPORIGA", 3, "Imponibile", I(imponibile), "Descrizione", "tornio parallelo");
  };
  riga(1, "540.005", "30");
  riga(2, "210.005", "900");
  riga(3, "210.005", "100");
  EXPECT_FALSE(card.NuovoDaFattura(2024, 8));
  ASSERT_TRUE(card.NuovoDaFattura(2024, 7));
  EXPECT_EQ(card.Testa().Testo("Descrizione"), "tornio parallelo");
  ASSERT_EQ(card.Righe().size(), 1U);
  EXPECT_EQ(card.Righe().front().importo, I("1000"));
  EXPECT_EQ(card.Righe().front().estremi, "ft. 45 del 15/03/2024 Fornitori 0001 dell'Oro");
  // It came into use later than it was bought.
  card.Testa().Scrivi("Dal", G(10, 1, 2025));
  card.TestaLasciata("Dal");
  EXPECT_EQ(card.Righe().front().anno, 2025);
  card.Testa().Scrivi("Cat", "X1");
  EXPECT_TRUE(card.Conferma());
}

}  // namespace
}  // namespace fenalto::prova
