// Opening a registration, its head and dates, models, and the lock of the record.
#include "core/sql/Criterio.h"
#include "ledger/DittaDiProva.h"
#include "ledger/registrations/ControlliData.h"

namespace fenalto::prova {

namespace {

const std::string kAltroAnno =
    "Attenzione : la data registrazione contabile è relativa ad un anno diverso da ";
const std::string kGiornale =
    "data registrazione contabile antecedente all'ultima data già stampata su libro giornale";

}  // namespace

class PrimanotaTestaTest : public DittaDiProva {
 protected:
  void StampatoFino(Data data) {
    Tessarc().Inserisci("UltimaDataLibro", {{"Anno", data.Anno()}, {"dt", data}});
  }
};

TEST_F(PrimanotaTestaTest, ControlliDataFuoriDallaFinestra) {
  EXPECT_FALSE(ledger::ControlloDataGiornale(ambiente, Data()));
  StampatoFino(G(31, 1, 2024));
  StampatoFino(G(30, 6, 2023));
  EXPECT_FALSE(ledger::ControlloDataGiornale(ambiente, G(31, 1, 2024)));
  EXPECT_TRUE(Messaggi().empty());
  for (const Data data : {G(30, 1, 2024), Data()}) {
    EXPECT_TRUE(ledger::ControlloDataGiornale(ambiente, data));
    EXPECT_EQ(SoloMessaggio(), kGiornale);
  }

  EXPECT_FALSE(ledger::ControlloAnno(ambiente, G(1, 1, 2024), true));
  EXPECT_TRUE(Messaggi().empty());
  EXPECT_FALSE(ledger::ControlloAnno(ambiente, G(1, 1, 2025), false));
  EXPECT_EQ(SoloMessaggio(), kAltroAnno + "2024");
  EXPECT_FALSE(ledger::ControlloAnno(ambiente, G(1, 1, 2024), false, 2023));
  EXPECT_EQ(SoloMessaggio(), kAltroAnno + "2023");
  dialoghi.Rispondera("Proseguo", Risposta::No);
  EXPECT_TRUE(ledger::ControlloAnno(ambiente, G(1, 1, 2025), true));
  EXPECT_EQ(UltimaDomanda(), kAltroAnno + "2024\nProseguo ugualmente");
  dialoghi.Rispondera("Proseguo", Risposta::Si);
  EXPECT_FALSE(ledger::ControlloAnno(ambiente, G(1, 1, 2025), true));
}

TEST_F(PrimanotaTestaTest, NuovaRegistrazione) {
  Registra({{"100.010", I("5")}, {"110.001", I("-5")}});
  ledger::Primanota pn(ambiente);
  EXPECT_EQ(pn.StatoCorrente(), ledger::Primanota::Stato::Inattiva);
  pn.Nuovo();
  EXPECT_TRUE(pn.Nuova());
  EXPECT_EQ(pn.Testa().Leggi("Dt").Data(), G(15, 3, 2024));
  EXPECT_EQ(pn.Testa().Leggi("Anno").Intero(), 2024);
  EXPECT_EQ(pn.Testa().Leggi("NumDoc").Intero(), 0);
  EXPECT_EQ(pn.Testa().Testo("ProbabileNumDoc"), "2");
  EXPECT_FALSE(pn.Modificata());
  for (const std::int64_t numero : {-3, 0}) {
    pn.Testa().Scrivi("NumDoc", numero);
    pn.TestaLasciata("NumDoc");
    EXPECT_EQ(pn.Testa().Leggi("NumDoc").Intero(), 0);
  }
  StampatoFino(G(31, 1, 2024));
  pn.Testa().Scrivi("Dt", G(5, 1, 2023));
  pn.TestaLasciata("Dt");
  EXPECT_EQ(Messaggi(), (std::vector<std::string>{kAltroAnno + "2024", kGiornale}));
  // Both are only warnings: it is written, in the selected year, and its date is remembered.
  ASSERT_TRUE(pn.Conferma());
  EXPECT_EQ(CampoTestata(2, "Dt").Data(), G(5, 1, 2023));
  pn.Nuovo();
  EXPECT_EQ(pn.Testa().Leggi("Dt").Data(), G(5, 1, 2023));
}

TEST_F(PrimanotaTestaTest, AperturaConAvvisi) {
  Registra({{"100.010", I("5")}, {"110.001", I("-5")}});
  Tessarc().Esegui("update Articoli set CREATOINAUTOMATICO=21");
  Tessarc().Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", 2}, {"Riva", "1"}});
  StampatoFino(G(31, 12, 2024));
  ledger::Primanota pn(ambiente);
  EXPECT_FALSE(pn.Apri(2));  // a VAT registration
  EXPECT_FALSE(pn.Apri(3));
  EXPECT_TRUE(Messaggi().empty());
  ASSERT_TRUE(pn.Apri(1));
  EXPECT_EQ(Messaggi(),
            (std::vector<std::string>{
                "ATTENZIONE : si tratta di una registrazione creata automaticamente", kGiornale}));
  EXPECT_FALSE(pn.Nuova() || pn.Modificata() || pn.SolaLettura());
  EXPECT_EQ(pn.Testa().Testo("ProbabileNumDoc"), "");
  ASSERT_EQ(pn.Righe().size(), 2U);
  EXPECT_EQ(pn.Righe()[0].contoControp, "110.001");
  pn.Testa().Scrivi("NumDoc", -1);
  pn.TestaLasciata("NumDoc");
  EXPECT_EQ(pn.Testa().Leggi("NumDoc").Intero(), 1);
  // A number that isn't there leaves the open one open.
  EXPECT_FALSE(pn.Apri(77));
  EXPECT_EQ(pn.Righe().size(), 2U);
}

TEST_F(PrimanotaTestaTest, UnAltraStazioneLaTieneInModifica) {
  Registra({{"100.010", I("5")}, {"110.001", I("-5")}});
  const auto altra = NuovaStazione("MAGAZZINO");
  const std::string prima = Contenuto();
  ledger::Primanota qui(ambiente);
  auto la = std::make_unique<ledger::Primanota>(*altra->ambiente);
  ASSERT_TRUE(la->Apri(1));
  ASSERT_TRUE(qui.Apri(1));
  EXPECT_TRUE(qui.SolaLettura());
  EXPECT_THAT(SoloMessaggio(), ::testing::HasSubstr("MAGAZZINO"));
  ASSERT_EQ(qui.Righe().size(), 2U);
  EXPECT_FALSE(qui.PNuovaRiga());
  ASSERT_TRUE(qui.ApriRiga(qui.Righe()[0].num));
  EXPECT_FALSE(qui.ConfermaRiga());
  EXPECT_FALSE(qui.EliminaRiga());
  qui.AnnullaRiga();
  EXPECT_FALSE(qui.Conferma());
  EXPECT_FALSE(qui.Elimina());
  EXPECT_EQ(Contenuto(), prima);
  // It is free as soon as the other lets it go.
  la->Abbandona();
  ASSERT_TRUE(qui.Apri(1));
  EXPECT_FALSE(qui.SolaLettura());
  EXPECT_TRUE(qui.Conferma());
  ASSERT_TRUE(la->Apri(1));
  EXPECT_FALSE(la->SolaLettura());
}

TEST_F(PrimanotaTestaTest, Modelli) {
  ledger::Primanota pn(ambiente);
  pn.Nuovo();
  pn.Testa().Scrivi("Duplicabile", true);
  pn.Testa().Scrivi("DescrArtDupl", "affitto dell'*ufficio*");
  ASSERT_TRUE(Scrivi(pn, {"550.001", I("5"), "P", "008", "50% d'affitto [*]"}));
  ASSERT_TRUE(Scrivi(pn, {"110.001", I("-5"), "P", "008"}));
  pn.ContropAutomatiche(false);
  ASSERT_TRUE(pn.ApriRiga(pn.Righe()[1].num));
  pn.Riga().Scrivi("ContoControp", "300.001");
  ASSERT_TRUE(pn.ConfermaRiga());
  ASSERT_TRUE(pn.Conferma());

  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  ledger::Primanota nuova(ambiente);
  const auto modelli = nuova.Modelli();
  ASSERT_EQ(modelli.size(), 1U);
  EXPECT_EQ(modelli[0].descrArtDupl, "affitto dell'*ufficio*");
  nuova.Nuovo();
  nuova.Testa().Scrivi("Dt", G(2, 1, 2025));
  // Rows typed before stay, before the model's.
  ASSERT_TRUE(Scrivi(nuova, {"100.010", I("0")}));
  nuova.Duplica(modelli[0].articolo, modelli[0].anno);
  EXPECT_FALSE(nuova.ContropAutomatiche());
  EXPECT_TRUE(nuova.Modificata());
  ASSERT_EQ(nuova.Righe().size(), 3U);
  EXPECT_EQ(nuova.Righe()[0].posi, 100);
  EXPECT_EQ(nuova.Righe()[0].conto, "100.010");
  EXPECT_EQ(nuova.Righe()[1].posi, 200);
  EXPECT_EQ(nuova.Righe()[2].contoControp, "300.001");
  ASSERT_TRUE(nuova.Conferma());
  EXPECT_EQ(NumeroRighe(1), 3);
  EXPECT_FALSE(CampoTestata(1, "Duplicabile").Booleano());
  EXPECT_EQ(CampoTestata(1, "Dt").Data(), G(2, 1, 2025));
  // The model is still what it was.
  ASSERT_TRUE(ambiente.ScegliAnno(2024));
  EXPECT_EQ(NumeroRighe(1), 2);
  ASSERT_TRUE(nuova.Apri(1));
  EXPECT_EQ(nuova.Righe()[0].descrizione, "50% d'affitto [*]");
}

}  // namespace fenalto::prova
