#include <fstream>

#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

namespace fs = std::filesystem;

class PrimanotaAllegatiTest : public DittaDiProva {
 protected:
  fs::path Documento(const std::string& nome, const std::string& testo) const {
    fs::create_directories(cartella / "scansioni");
    const fs::path file = cartella / "scansioni" / nome;
    std::ofstream(file) << testo;
    return file;
  }
  static std::string Letto(const fs::path& file) {
    std::ifstream flusso(file);
    return {std::istreambuf_iterator<char>(flusso), {}};
  }
};

TEST_F(PrimanotaAllegatiTest, AspettanoLaConfermaEVannoConLEliminazione) {
  ledger::Primanota pn(ambiente);
  EXPECT_FALSE(pn.AggiungiAllegato(Documento("x.pdf", "x")));
  pn.Nuovo();
  EXPECT_FALSE(pn.AggiungiAllegato(cartella / "manca.pdf"));
  EXPECT_FALSE(pn.AggiungiAllegato(cartella.Percorso()));
  ASSERT_TRUE(pn.AggiungiAllegato(Documento("bolletta n° 3 'luce'.pdf", "luce")));
  ASSERT_TRUE(pn.AggiungiAllegato(Documento("tolto.pdf", "no")));
  ASSERT_TRUE(pn.AggiungiAllegato(Documento("bolletta n° 3 _luce_.pdf", "gas")));
  EXPECT_TRUE(pn.Modificata());
  ASSERT_TRUE(pn.TogliAllegato(1));
  EXPECT_FALSE(pn.TogliAllegato(5));
  EXPECT_EQ(pn.Allegati().size(), 2U);
  EXPECT_TRUE(!fs::exists(ambiente.CartellaDocumenti()) ||
              fs::is_empty(ambiente.CartellaDocumenti()));
  ASSERT_TRUE(pn.Conferma());

  ASSERT_TRUE(pn.Apri(1));
  auto allegati = pn.Allegati();
  ASSERT_EQ(allegati.size(), 2U);
  EXPECT_EQ(Letto(allegati[0].file), "luce");
  EXPECT_EQ(Letto(allegati[1].file), "gas");
  EXPECT_EQ(allegati[0].file.parent_path(), ambiente.CartellaDocumenti());
  EXPECT_EQ(allegati[0].descrizione, "Registrazione primanota - Articolo n.: 1");
  // On a stored registration a document is kept at once; a new number changes the texts.
  ASSERT_TRUE(pn.AggiungiAllegato(Documento("acqua.pdf", "acqua")));
  EXPECT_FALSE(pn.Modificata());
  ASSERT_TRUE(pn.TogliAllegato(0));
  EXPECT_FALSE(fs::exists(allegati[0].file));
  pn.Testa().Scrivi("NumDoc", 4);
  ASSERT_TRUE(pn.Conferma());
  ASSERT_TRUE(pn.Apri(4));
  allegati = pn.Allegati();
  ASSERT_EQ(allegati.size(), 2U);
  EXPECT_EQ(Letto(allegati[1].file), "acqua");
  EXPECT_EQ(allegati[1].descrizione, "Registrazione primanota - Articolo n.: 4");

  dialoghi.Rispondera("ARTICOLO", Risposta::Si);
  ASSERT_TRUE(pn.Elimina());
  EXPECT_TRUE(fs::is_empty(ambiente.CartellaDocumenti()));
  EXPECT_EQ(Tessarc().Singolo("select Count(*) from Allegati").Intero(), 0);
}

TEST_F(PrimanotaAllegatiTest, UnDocumentoSparitoFermaLaConferma) {
  ledger::Primanota pn(ambiente);
  pn.Nuovo();
  const fs::path primo = Documento("primo.pdf", "primo");
  const fs::path secondo = Documento("secondo.pdf", "secondo");
  ASSERT_TRUE(pn.AggiungiAllegato(primo));
  ASSERT_TRUE(pn.AggiungiAllegato(secondo));
  fs::remove(secondo);
  const std::string prima = Contenuto();
  EXPECT_FALSE(pn.Conferma());
  EXPECT_THAT(SoloMessaggio(), ::testing::HasSubstr("secondo.pdf"));
  EXPECT_EQ(Contenuto(), prima);
  EXPECT_TRUE(fs::is_empty(ambiente.CartellaDocumenti()));
  ASSERT_TRUE(pn.TogliAllegato(1));
  ASSERT_TRUE(pn.Conferma());
  ASSERT_TRUE(pn.Apri(1));
  EXPECT_EQ(pn.Allegati().size(), 1U);
}

TEST_F(PrimanotaAllegatiTest, UnNomeScrittoDaAltriNonEsceDallaCartella) {
  Registra({});
  const fs::path fuori = Documento("fuori.pdf", "mio");
  Metti(Tessarc(), "Allegati", "Tipo", "PrimaNota", "IdRecord", CampoTestata(1, "ID").Intero(),
        "NomeFile", fuori.string());
  ledger::Primanota pn(ambiente);
  ASSERT_TRUE(pn.Apri(1));
  ASSERT_EQ(pn.Allegati().size(), 1U);
  ASSERT_TRUE(pn.TogliAllegato(0));
  EXPECT_TRUE(fs::exists(fuori));
}

}  // namespace fenalto::prova
