#include <gtest/gtest.h>

#include "core/session/CartellaProva.h"
#include "core/session/Chiavi.h"
#include "core/session/DialoghiFinti.h"
#include "core/session/FileIni.h"
#include "core/session/VariazioneDitta.h"

namespace fenalto {
namespace {

class VariazioneDittaTest : public ::testing::Test {
 protected:
  VariazioneDittaTest() {
    CreaDittaProva(OpzioniProva(cartella_.Percorso()), "Rossi", {{2025, true, false}, {2026, true}},
                   true);
    EXPECT_TRUE(ambiente_.ApriDitta("Rossi"));
  }
  bool Trimestrale(int anno) {
    return ambiente_.ArchivioDi("tessarc")
        .Singolo("select IvaTrimestrale from Anni where Anno=" + std::to_string(anno))
        .Booleano();
  }

  CartellaProva cartella_;
  DialoghiFinti dialoghi_;
  OrologioFinto orologio_;
  CasoFinto caso_;
  Ambiente ambiente_{OpzioniProva(cartella_.Percorso()), dialoghi_, orologio_, caso_};
};

TEST_F(VariazioneDittaTest, OgniCampoEUnaChiaveDichiarata) {
  for (const auto& campo : VariazioneDitta::Campi())
    EXPECT_TRUE(ChiaveDitta(campo.chiave)) << campo.chiave;
}

TEST_F(VariazioneDittaTest, ValoriRifiutatiTornanoQuelliDiPrima) {
  const std::string lungo(250, 'x');
  struct Caso {
    const char* campo;
    std::string valore;
    const char *rifiuto, *dopo;
  };
  const Caso casi[] = {
      {"DecP", "1", "decimali prezzi: inserire valore da 2 a 4", "2"},
      {"DecP", "5", "decimali prezzi: inserire valore da 2 a 4", "2"},
      {"DecP", "", "decimali prezzi: inserire valore da 2 a 4", "2"},
      {"DecP", " 4 ", "", " 4 "},
      {"DecQ", "0", "", "0"},
      {"DecQ", "5", "decimali quantità: inserire valore da 0 a 4", "0"},
      {"DecQ", "-1", "decimali quantità: inserire valore da 0 a 4", "0"},
      {"DecQ", "02", "decimali quantità: inserire valore da 0 a 4", "0"},
      {"DecQ", "x", "decimali quantità: inserire valore da 0 a 4", "0"},
      {"DirectoryImm", lungo, "", lungo.c_str()},
      {"DirectoryImm", lungo + "y", "il percorso è più lungo di 250 caratteri", lungo.c_str()},
      {"indirizzo", lungo + "y", "", nullptr},
      {"CausaleIntraCosto_a_Forn", "QQQ",
       "causale del giro «costo a fornitore»: il codice QQQ non esiste, sceglierne uno "
       "dall'elenco (F2)",
       ""},
      {"CausaleIntraCosto_a_Forn", "X29", "", "X29"},
      {"CausaleIntraCosto_a_Forn", "", "", ""},
  };
  ambiente_.ArchivioDi("tessarc").Inserisci("Causali", {{"Cod", "X29"}});
  VariazioneDitta variazione(ambiente_);
  for (const auto& caso : casi) {
    dialoghi_.messaggi.clear();
    variazione.Dati().Scrivi(caso.campo, caso.valore);
    EXPECT_EQ(variazione.CampoLasciato(caso.campo), *caso.rifiuto == '\0') << caso.valore;
    EXPECT_EQ(dialoghi_.messaggi.empty() ? "" : dialoghi_.messaggi.back(), caso.rifiuto);
    const std::string dopo = caso.dopo != nullptr ? caso.dopo : caso.valore;
    EXPECT_EQ(variazione.Dati().Testo(caso.campo), dopo);
  }
}

TEST_F(VariazioneDittaTest, ConfermaScriveAnnoEChiavi) {
  VariazioneDitta variazione(ambiente_);
  Scheda& dati = variazione.Dati();
  EXPECT_FALSE(variazione.Modificata());
  EXPECT_TRUE(dati.Leggi("RegAutoIntraCee").Booleano());
  dati.Scrivi("ragsoc1", "ROSSI & C.");
  dati.Scrivi("DecQ", "0");
  dati.Scrivi("MagObbligatorio", true);
  dati.Scrivi("RegAutoIntraCee", false);
  dati.Scrivi("RITENUTAACCONTO", true);
  dati.Scrivi("IVATRIMESTRALE", true);
  EXPECT_TRUE(variazione.Modificata());

  dialoghi_.Rispondera("CONFERMA VARIAZIONE DATI DITTA Rossi", Risposta::No);
  EXPECT_FALSE(variazione.Conferma());
  EXPECT_EQ(ambiente_.Config("ragsoc1 "), "Rossi");
  EXPECT_FALSE(Trimestrale(2026));

  // Meanwhile another station changes a key that the user here left alone.
  ASSERT_TRUE(FileIni::Scrivi(ambiente_.FileImpostazioni(), "config", "indirizzo", "Via Nuova 1"));
  dialoghi_.Rispondera("CONFERMA VARIAZIONE DATI DITTA Rossi", Risposta::Si);
  EXPECT_TRUE(variazione.Conferma());
  EXPECT_EQ(dialoghi_.messaggi, std::vector<std::string>{"VARIAZIONE EFFETTUATA"});
  EXPECT_FALSE(variazione.Modificata());
  EXPECT_EQ(dati.Testo("indirizzo"), "Via Nuova 1");
  EXPECT_TRUE(Trimestrale(2026));
  EXPECT_FALSE(Trimestrale(2025));
  const std::pair<const char*, const char*> scritte[] = {{"ragsoc1 ", "ROSSI & C."},
                                                         {"indirizzo", "Via Nuova 1"},
                                                         {"DecP", "2"},
                                                         {"DecQ", "0"},
                                                         {"MagObbligatorio", "1"},
                                                         {"DbCostoMedio", "0"},
                                                         {"CodficaCliFor", "1"},
                                                         {"RegAutoIntraCee", "No"},
                                                         {"RegAutoBolleDoganali", "Si"},
                                                         {"RITENUTAACCONTO", "SI"},
                                                         {"DirectoryDoc", "Documenti"}};
  for (const auto& [chiave, valore] : scritte)
    EXPECT_EQ(ambiente_.Config(chiave), valore) << chiave;
  // The key of the name is still the one with the blank.
  EXPECT_NE(LeggiFile(ambiente_.FileImpostazioni()).find("\nragsoc1 =ROSSI & C.\n"),
            std::string::npos);
}

TEST_F(VariazioneDittaTest, CausaleCheLArchivioHaPerso) {
  ambiente_.ScriviImpostazione({}, "config", "CausaleIntraCosto_a_Forn", "X29");
  VariazioneDitta variazione(ambiente_);
  variazione.Dati().Scrivi("indirizzo", "Via Nuova 1");
  dialoghi_.Rispondera("CONFERMA VARIAZIONE DATI DITTA Rossi", Risposta::Si);
  EXPECT_TRUE(variazione.Conferma());
  EXPECT_EQ(ambiente_.Config("CausaleIntraCosto_a_Forn"), "X29");
  variazione.Dati().Scrivi("CausaleIntraCosto_a_Forn", "QQQ");
  EXPECT_FALSE(variazione.Conferma());
  EXPECT_EQ(variazione.CampoRifiutato(), "CausaleIntraCosto_a_Forn");
  EXPECT_EQ(ambiente_.Config("CausaleIntraCosto_a_Forn"), "X29");
}

TEST_F(VariazioneDittaTest, ConfermaNonScriveUnValoreRifiutato) {
  ambiente_.ScriviImpostazione({}, "config", "DecP", "7");
  VariazioneDitta variazione(ambiente_);
  EXPECT_FALSE(variazione.Conferma());
  EXPECT_TRUE(dialoghi_.domande.empty());
}

TEST_F(VariazioneDittaTest, AvvisaSenzaRifiutare) {
  VariazioneDitta variazione(ambiente_);
  variazione.Dati().Scrivi("piva", "01234567896");
  variazione.Dati().Scrivi("codfisc", "RSSMRA85T10A562T");
  EXPECT_TRUE(variazione.CampoLasciato("piva"));
  EXPECT_NE(variazione.Avviso("piva"), "");
  EXPECT_NE(variazione.Avviso("codfisc"), "");
  EXPECT_EQ(variazione.Avviso("ragsoc1"), "");
  variazione.Dati().Scrivi("NAZIONE", "DE");
  EXPECT_EQ(variazione.Avviso("piva"), "");
}

}  // namespace
}  // namespace fenalto
