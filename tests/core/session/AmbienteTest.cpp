// The session on real files: start, choice, what goes wrong with a company's files, look-ups,
// settings, backup.
#include <gtest/gtest.h>

#include <thread>

#include "core/session/Ambiente.h"
#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "core/session/FileIni.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

class AmbienteTest : public ::testing::Test {
 protected:
  /// Two companies, made once: tests work on a copy of their folder.
  static void SetUpTestSuite() {
    modello_ = std::make_unique<CartellaProva>();
    const OpzioniAmbiente opzioni = OpzioniProva(modello_->Percorso());
    CreaDittaProva(opzioni, "Rossi", {{2001, false, true}, {2026, true, false}}, true);
    CreaDittaProva(opzioni, "Bianchi", {{2025, true, false}}, false);
  }
  static void TearDownTestSuite() { modello_.reset(); }

  AmbienteTest() {
    fs::copy(modello_->Percorso(), cartella_.Percorso(), fs::copy_options::recursive);
  }

  OpzioniAmbiente Opzioni() const { return OpzioniProva(cartella_.Percorso()); }

  static std::unique_ptr<CartellaProva> modello_;
  CartellaProva cartella_;
  DialoghiFinti dialoghi_;
  OrologioFinto orologio_;
  CasoFinto caso_;
  Ambiente ambiente_{Opzioni(), dialoghi_, orologio_, caso_};
};

std::unique_ptr<CartellaProva> AmbienteTest::modello_;

TEST_F(AmbienteTest, AvviaOffreLeDitteEApreLaScelta) {
  dialoghi_.suScegliDitta = [](const auto& anniDi) {
    std::string errore;
    EXPECT_EQ(anniDi("Rossi", errore), (std::vector<int>{2001, 2026}));
    EXPECT_EQ(errore, "");
    EXPECT_TRUE(anniDi("Nessuna", errore).empty());
    EXPECT_NE(errore, "");
  };
  dialoghi_.ScegliaDitta(SceltaDitta{"Rossi", 2001});
  ASSERT_TRUE(ambiente_.Avvia());
  ASSERT_EQ(dialoghi_.ditteOfferte.size(), 2U);
  EXPECT_EQ(dialoghi_.ditteOfferte[0].nome, "Rossi");
  EXPECT_TRUE(dialoghi_.ditteOfferte[0].predefinita);
  EXPECT_EQ(ambiente_.Ditta(), "Rossi");
  EXPECT_EQ(ambiente_.Anno(), 2001);
  EXPECT_FALSE(ambiente_.Euro());
  EXPECT_TRUE(ambiente_.HaDiritto(99));
  EXPECT_EQ(ambiente_.PercorsoDb("TESSARC"), cartella_ / "Rossi/Cont32.mdb");
  EXPECT_EQ(ambiente_.CartellaDocumenti(), cartella_ / "Rossi/Documenti");

  ASSERT_TRUE(ambiente_.ScegliAnno(2026));
  EXPECT_TRUE(ambiente_.Euro());
  EXPECT_FALSE(ambiente_.ScegliAnno(2024));
  EXPECT_EQ(ambiente_.Anno(), 2026);
}

TEST_F(AmbienteTest, AvviaSenzaScelta) {
  dialoghi_.ScegliaDitta(std::nullopt);
  EXPECT_FALSE(ambiente_.Avvia());
  EXPECT_FALSE(ambiente_.DittaAperta());

  ASSERT_TRUE(ambiente_.Avvia("bianchi")) << dialoghi_.UltimoMessaggio();
  EXPECT_EQ(ambiente_.Ditta(), "Bianchi");
  EXPECT_EQ(ambiente_.Anno(), 2025);

  const CartellaProva vuota;
  Ambiente nuovo(OpzioniProva(vuota / "a/b"), dialoghi_, orologio_, caso_);
  EXPECT_FALSE(nuovo.Avvia());
  EXPECT_TRUE(dialoghi_.HaDetto("nessuna ditta"));
  EXPECT_TRUE(fs::is_directory(vuota / "a/b"));
}

TEST_F(AmbienteTest, GuastiLascianoLaSessioneComEra) {
  ASSERT_TRUE(ambiente_.ApriDitta("Rossi", 2001));
  const fs::path ini = cartella_ / "Bianchi.ini";
  const fs::path cont = cartella_ / "Bianchi/Cont32.mdb";
  const std::string iniBuono = LeggiFile(ini);
  const std::string contBuono = LeggiFile(cont);
  struct Caso {
    const char* nome;
    std::function<void()> rompi;
    const char* parte;
  };
  const Caso casi[] = {
      {"senza Archivi", [&] { ScriviFile(ini, "[config]\na=1\n"); }, "[Archivi]"},
      {"ini mancante", [&] { fs::remove(ini); }, "Bianchi.ini"},
      {"database mancante", [&] { fs::remove(cont); }, "Cont32.mdb"},
      {"database vuoto", [&] { ScriviFile(cont, ""); }, "Cont32.mdb"},
      {"database di immondizia", [&] { ScriviFile(cont, std::string(50'000, '?')); }, "Cont32.mdb"},
      {"database troncato", [&] { ScriviFile(cont, contBuono.substr(0, contBuono.size() / 2)); },
       "Cont32.mdb"},
  };
  for (const Caso& caso : casi) {
    ScriviFile(ini, iniBuono);
    ScriviFile(cont, contBuono);
    caso.rompi();
    const auto aperta = ambiente_.ApriDitta("Bianchi");
    ASSERT_FALSE(aperta) << caso.nome;
    EXPECT_NE(aperta.Errore().messaggio.find(caso.parte), std::string::npos)
        << caso.nome << ": " << aperta.Errore().messaggio;
    EXPECT_EQ(ambiente_.Ditta(), "Rossi") << caso.nome;
    EXPECT_EQ(ambiente_.Anno(), 2001) << caso.nome;
    EXPECT_EQ(ambiente_.Cerca("tessarc", "Anni", {{"Anno", 2026}}, "Euro"), Valore(true));
  }
  EXPECT_FALSE(ambiente_.ApriDitta("Rossi", 1999)) << "anno che la ditta non ha";
  EXPECT_EQ(ambiente_.Anno(), 2001);

  // The choice on a running session: told, offered again, given up.
  dialoghi_.ScegliaDitta(SceltaDitta{"Bianchi", 2025});
  dialoghi_.ScegliaDitta(std::nullopt);
  EXPECT_FALSE(ambiente_.SelezioneArchivi());
  EXPECT_TRUE(dialoghi_.HaDetto("Cont32.mdb"));
  EXPECT_EQ(ambiente_.Ditta(), "Rossi");
}

TEST_F(AmbienteTest, UnaDittaNuovaDallaScelta) {
  dialoghi_.ScegliaDitta(SceltaDitta{.ditta = "ROSSI", .anno = 2026, .nuova = true});
  dialoghi_.ScegliaDitta(
      SceltaDitta{.ditta = "Neri", .anno = 2000, .nuova = true, .ivaTrimestrale = true});
  ASSERT_TRUE(ambiente_.Avvia());
  EXPECT_TRUE(dialoghi_.HaDetto("la ditta ROSSI esiste già")) << "e la scelta si ripete";
  EXPECT_EQ(ambiente_.Ditta(), "Neri");
  EXPECT_EQ(ambiente_.Anno(), 2000);
  EXPECT_FALSE(ambiente_.Euro());
  EXPECT_EQ(ambiente_.Cerca("tessarc", "Anni", {{"Anno", 2000}}, "IvaTrimestrale"), Valore(true));
  EXPECT_EQ(ambiente_.DittaPredefinita(), "Neri");
}

TEST_F(AmbienteTest, StessaDittaDiNuovo) {
  ASSERT_TRUE(ambiente_.ApriDitta("Rossi", 2001));
  dialoghi_.suScegliDitta = [](const auto& anniDi) {
    std::string errore;
    EXPECT_EQ(anniDi("ROSSI", errore).size(), 2U);
  };
  dialoghi_.ScegliaDitta(SceltaDitta{"Rossi", 2026});
  EXPECT_TRUE(ambiente_.SelezioneArchivi());
  EXPECT_EQ(ambiente_.Anno(), 2026);
  ambiente_.ChiudiDitta();
  EXPECT_FALSE(ambiente_.DittaAperta());
  EXPECT_THROW((void)ambiente_.Basi(), std::logic_error);
}

TEST_F(AmbienteTest, DittaChiusaNonTieneFileAperti) {
  // A forgotten connection would keep the files of the old company.
  ASSERT_TRUE(ambiente_.ApriDitta("Rossi"));
  ASSERT_TRUE(ambiente_.AnniDi("Bianchi"));
  ASSERT_TRUE(ambiente_.ApriDitta("Bianchi"));
  for (const auto& voce : fs::directory_iterator("/proc/self/fd")) {
    std::error_code errore;
    const std::string file = fs::read_symlink(voce.path(), errore).string();
    EXPECT_EQ(file.find((cartella_ / "Rossi").string()), std::string::npos) << file;
  }
}

TEST_F(AmbienteTest, Ricerche) {
  ASSERT_TRUE(ambiente_.ApriDitta("Rossi"));
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  EXPECT_EQ(ambiente_.Max("NumDoc", "ARTICOLI", {{"Anno", 2026}}, archivio), Valore(0));
  EXPECT_TRUE(ambiente_.Min("Dt", "Articoli", {{"Anno", 2026}}, archivio).Data().Nulla());
  const auto giorno = [](int g) { return Data::DaGma(g, 3, 2026).value(); };
  for (int n = 1; n <= 3; ++n)
    archivio.Inserisci("Articoli", {{"Anno", 2026}, {"NumDoc", n}, {"Dt", giorno(n)}});
  EXPECT_EQ(ambiente_.Max("numdoc", "articoli", {{"anno", 2026}}, archivio), Valore(3));
  EXPECT_EQ(ambiente_.Min("NumDoc", "Articoli", {{"Anno", 2026}, {"Dt", giorno(2)}}, archivio),
            Valore(2));
  EXPECT_EQ(ambiente_.Max("Dt", "Articoli", {}, archivio).Data(), giorno(3));

  EXPECT_EQ(ambiente_.Cerca("Tessarc", "Conti", {{"Cod", "100.010"}}, "descrizione").Testo(),
            "Cassa contanti");
  EXPECT_TRUE(ambiente_.Cerca("tessarc", "Conti", {{"Cod", "x' or '1'='1"}}, "Cod").Nullo());
  EXPECT_EQ(ambiente_.Cerca("tessarc", "Articoli", {{"Anno", 2026}, {"NumDoc", 2}}, "Dt").Data(),
            giorno(2));

  EXPECT_FALSE(ambiente_.Esiste("tessarc", "Conti", {{"Cod", "nessuno"}}, "conto"));
  EXPECT_TRUE(ambiente_.Esiste("tessarc", "Conti", {{"Cod", "100.010"}}));
  EXPECT_TRUE(dialoghi_.messaggi.empty());
  EXPECT_TRUE(ambiente_.Esiste("tessarc", "Conti", {{"Cod", "100.010"}}, "conto"));
  EXPECT_EQ(dialoghi_.UltimoMessaggio(), "conto già esistente: 100.010");
  ambiente_.AvvisoNumero("ARTICOLO CONTABILE", 1234, "annotare il numero");
  EXPECT_EQ(dialoghi_.UltimoMessaggio(), "ARTICOLO CONTABILE n. 1234\nannotare il numero");
}

TEST_F(AmbienteTest, BloccoDellaNumerazione) {
  ASSERT_TRUE(ambiente_.ApriDitta("Rossi"));
  OpzioniAmbiente altre = Opzioni();
  altre.stazione = "UFFICIO";
  Ambiente altra(altre, dialoghi_, orologio_, caso_);
  ASSERT_TRUE(altra.ApriDitta("Rossi"));
  Blocco tenuto = altra.BloccaTabella("ARTICOLI", true);
  ASSERT_TRUE(tenuto.Tenuto());
  EXPECT_FALSE(ambiente_.BloccaTabella("Articoli", false).Tenuto());
  EXPECT_TRUE(dialoghi_.HaDetto("UFFICIO"));
  EXPECT_TRUE(ambiente_.BloccaTabella("FattureCli", false).Tenuto());
  tenuto.Rilascia();
  EXPECT_TRUE(ambiente_.BloccaTabella("Articoli", false).Tenuto());
}

TEST_F(AmbienteTest, Impostazioni) {
  ASSERT_TRUE(ambiente_.ApriDitta("Rossi"));
  EXPECT_EQ(ambiente_.Config("ragsoc1 "), "Rossi");
  EXPECT_EQ(ambiente_.Config("LogoOrdini"), "");
#ifndef NDEBUG
  EXPECT_THROW(ambiente_.Config("ragsoc1"), std::logic_error);
#endif
  EXPECT_TRUE(ambiente_.ScriviImpostazione({}, "config", "DecP", "3"));
  EXPECT_EQ(ambiente_.Config("decp"), "3");

  // Another station's change, of the same length too: at once where a window opens, in a moment
  // everywhere.
  for (int n = 0; n < 20; ++n) {
    const std::string valore = std::to_string(n % 10);
    ASSERT_TRUE(FileIni::Scrivi(ambiente_.FileImpostazioni(), "config", "DecQ", valore));
    ambiente_.RiguardaImpostazioni();
    ASSERT_EQ(ambiente_.Config("DecQ"), valore);
  }
  ASSERT_TRUE(FileIni::Scrivi(ambiente_.FileImpostazioni(), "config", "DecQ", "0"));
  for (int n = 0; n < 200 && ambiente_.Config("DecQ") != "0"; ++n)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_EQ(ambiente_.Config("DecQ"), "0");
  const fs::path stazione = "Ini/Ini.ini";
  EXPECT_EQ(ambiente_.LeggiImpostazione(stazione, "impostazioni", "VerifFatForn"), "");
  EXPECT_TRUE(ambiente_.ScriviImpostazione(stazione, "impostazioni", "VerifFatForn", "Si"));
  EXPECT_EQ(ambiente_.LeggiImpostazione(stazione, "impostazioni", "VerifFatForn"), "Si");
  EXPECT_TRUE(fs::exists(cartella_ / "Ini/Ini.ini"));

  EXPECT_TRUE(ambiente_.ScriviImpostazione({}, "config", "DirectoryDoc", "Vecchi\\Doc"));
  EXPECT_EQ(ambiente_.CartellaDocumenti(), cartella_ / "Rossi/Vecchi/Doc");
  EXPECT_TRUE(ambiente_.ScriviImpostazione({}, "config", "DirectoryDoc", "/srv/doc"));
  EXPECT_EQ(ambiente_.CartellaDocumenti(), "/srv/doc");

  fs::permissions(ambiente_.FileImpostazioni(), fs::perms::owner_read);
  EXPECT_FALSE(ambiente_.ScriviImpostazione({}, "config", "DecP", "4"));
  EXPECT_TRUE(dialoghi_.HaDetto("sola lettura"));
  EXPECT_EQ(ambiente_.Config("DecP"), "3");
}

TEST_F(AmbienteTest, CopiaUnaVoltaAlGiorno) {
  OpzioniAmbiente opzioni = Opzioni();
  opzioni.copie = true;
  Ambiente ambiente(opzioni, dialoghi_, orologio_, caso_);
  ASSERT_TRUE(ambiente.ApriDitta("Rossi"));
  const fs::path copie = cartella_ / "Rossi/Copie";
  ambiente.AvviaCopia();
  ambiente.AttendiCopia();
  EXPECT_EQ(ambiente.EsitoCopia(), "");
  const fs::path copia = copie / orologio_.oggi.Iso();
  ASSERT_TRUE(fs::exists(copia / "Cont32.mdb"));
  fs::remove_all(copia / "Scad32.mdb");
  ambiente.AvviaCopia();
  ambiente.AttendiCopia();
  EXPECT_FALSE(fs::exists(copia / "Scad32.mdb")) << "la copia di oggi c'era già";

  // The next day the folder can't be made: told once, and the work goes on.
  orologio_.oggi = orologio_.oggi.PiuGiorni(1);
  fs::remove_all(copie);
  ScriviFile(copie, "un file al posto della cartella");
  ambiente.AvviaCopia();
  ambiente.AttendiCopia();
  const std::string guasto = ambiente.EsitoCopia();
  EXPECT_NE(guasto.find("la copia di sicurezza della ditta «Rossi» non è riuscita"),
            std::string::npos)
      << guasto;
  EXPECT_EQ(ambiente.EsitoCopia(), "");
  EXPECT_FALSE(ambiente.Cerca("tessarc", "Anni", {{"Anno", 2026}}, "Anno").Nullo());

  // A failure isn't told again and again: the next try is the next day's.
  fs::remove_all(copie);
  ambiente.AvviaCopia();
  ambiente.AttendiCopia();
  EXPECT_FALSE(fs::exists(copie));

  // Closing the company, or the program, waits for a copy that still runs.
  orologio_.oggi = orologio_.oggi.PiuGiorni(1);
  ambiente.AvviaCopia();
  ambiente.ChiudiDitta();
  EXPECT_TRUE(fs::exists(copie / orologio_.oggi.Iso() / "Scad32.mdb"));
  fs::remove_all(copie);
  {
    Ambiente breve(opzioni, dialoghi_, orologio_, caso_);
    ASSERT_TRUE(breve.ApriDitta("Rossi"));
    breve.AvviaCopia();
  }
  EXPECT_TRUE(fs::exists(copie / orologio_.oggi.Iso() / "Scad32.mdb"));
}

}  // namespace
}  // namespace fenalto
