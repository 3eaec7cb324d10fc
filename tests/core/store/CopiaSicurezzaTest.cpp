// Backups: of one instant while others write, kept for ten days, told when they fail, and good to
// go back to.
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

#include "core/store/BasiDiProva.h"
#include "core/store/CambioArchivi.h"
#include "core/store/CopiaSicurezza.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

Data Giorno(int giorno) {
  return Data::DaGma(giorno, 3, 2024).value();
}

class CopiaSicurezzaTest : public prova::BasiDiProva {
 protected:
  void SetUp() override {
    BasiDiProva::SetUp();
    Crea();
    copie = cartella / "Copie";
  }

  /// One number in both databases, as a confirmation writes it.
  static void Conferma(BasiDati& basi, int numero) {
    Transazione transazione(basi);
    basi.Tessarc().Inserisci(
        "Articoli", {{"Anno", 2024}, {"NumDoc", numero}, {"Descrizione", std::string(700, 'd')}});
    basi.Scadenzario().Inserisci("Scadenze",
                                 {{"Numero", numero}, {"Conto", std::string(700, 'c')}});
    transazione.Conferma();
  }
  void Confermate(int da, int a) const {
    const auto basi = Apri();
    for (int numero = da; numero <= a; ++numero) Conferma(*basi, numero);
  }
  /// "rows/highest number" of each database: "3/3 3/3".
  std::string Contenuto(const PercorsiArchivi& quali) const {
    auto basi = BasiDati::Apri(quali, opzioni);
    if (!basi) return basi.Errore().messaggio;
    const auto parte = [](Archivio& archivio, const std::string& tabella, const char* campo) {
      const auto numero = [&](const std::string& sql) {
        const Valore valore = archivio.Singolo(sql + " from " + tabella);
        return std::to_string(valore.Nullo() ? 0 : valore.Intero());
      };
      return numero("select Count(*)") + "/" + numero(std::string("select Max(") + campo + ")");
    };
    return parte(basi.Valore()->Tessarc(), "Articoli", "NumDoc") + " " +
           parte(basi.Valore()->Scadenzario(), "Scadenze", "Numero");
  }
  [[nodiscard]] static PercorsiArchivi Dentro(const fs::path& quale) {
    return {quale / "Cont32.mdb", quale / "Scad32.mdb"};
  }
  [[nodiscard]] std::vector<std::string> NomiIn(const fs::path& quale) const {
    std::vector<std::string> nomi;
    std::error_code errore;
    for (const auto& voce : fs::directory_iterator(quale, errore))
      nomi.push_back(voce.path().filename().string());
    std::sort(nomi.begin(), nomi.end());
    return nomi;
  }

  fs::path copie;
};

/// In a folder in memory where there is one: commits are quick there, so that many of them fall
/// between the copy of one database and that of the other.
class CopiaRapidaTest : public CopiaSicurezzaTest {
 protected:
  void SetUp() override {
    const char* prima = std::getenv("TMPDIR");
    const std::string tenuta = prima != nullptr ? prima : "";
    if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 1);
    CopiaSicurezzaTest::SetUp();
    prima != nullptr ? setenv("TMPDIR", tenuta.c_str(), 1) : unsetenv("TMPDIR");
  }
};

TEST_F(CopiaRapidaTest, BothFilesOfOneInstantWhileAnotherStationConfirms) {
  opzioni.attesa = std::chrono::seconds(30);
  const pid_t figlio = fork();
  if (figlio == 0) {
    try {
      const auto basi = Apri();
      // A station that never draws breath keeps every reader waiting for long.
      for (int numero = 1;; ++numero, usleep(300)) Conferma(*basi, numero);
    } catch (const std::exception&) {
      _exit(1);
    }
  }
  int diverse = 0;
  std::string ultima;
  for (int volta = 0; volta < 60; ++volta) {
    usleep(5'000);
    const auto fatta = EseguiCopia(percorsi, copie, Giorno(1));
    ASSERT_TRUE(fatta) << fatta.Errore().messaggio;
    const std::string contenuto = Contenuto(Dentro(fatta.Valore()));
    const std::string meta = contenuto.substr(0, contenuto.find(' '));
    ASSERT_EQ(contenuto, meta + " " + meta);
    ASSERT_EQ(meta.substr(0, meta.find('/')), meta.substr(meta.find('/') + 1));
    diverse += contenuto != ultima ? 1 : 0;
    ultima = contenuto;
    fs::remove_all(fatta.Valore());
  }
  EXPECT_EQ(waitpid(figlio, nullptr, WNOHANG), 0) << "the station must not be stopped by copies";
  kill(figlio, SIGKILL);
  waitpid(figlio, nullptr, 0);
  EXPECT_GT(diverse, 20) << "the other station hardly wrote";
}

TEST_F(CopiaSicurezzaTest, OneADayAndTenKept) {
  Confermate(1, 2);
  EXPECT_TRUE(CopiaDovuta(copie, Giorno(1)));
  ASSERT_TRUE(EseguiCopia(percorsi, copie, Giorno(1)));
  EXPECT_FALSE(CopiaDovuta(copie, Giorno(1)));
  Confermate(3, 3);
  const auto seconda = EseguiCopia(percorsi, copie, Giorno(1));
  ASSERT_TRUE(seconda);
  EXPECT_EQ(Contenuto(Dentro(seconda.Valore())), "2/2 2/2") << "the day's first copy stays";

  // What isn't a copy is left alone; what a killed copy left goes after a day.
  fs::create_directories(copie / "prima-del-passo-2");
  fs::create_directories(copie / ".2024-02-28-1.tmp");
  fs::create_directories(copie / ".2024-03-09-2.tmp");
  fs::last_write_time(copie / ".2024-02-28-1.tmp",
                      fs::file_time_type::clock::now() - std::chrono::hours(30));
  for (int giorno = 2; giorno <= 13; ++giorno)
    ASSERT_TRUE(EseguiCopia(percorsi, copie, Giorno(giorno)));
  std::vector<std::string> attese = {".2024-03-09-2.tmp"};
  for (int giorno = 4; giorno <= 13; ++giorno) attese.push_back(Giorno(giorno).Iso());
  attese.emplace_back("prima-del-passo-2");
  EXPECT_EQ(NomiIn(copie), attese);
  const auto esistenti = CopieEsistenti(copie);
  ASSERT_EQ(esistenti.size(), 10U);
  EXPECT_EQ(esistenti.front(), copie / "2024-03-13");
  EXPECT_EQ(NomiIn(esistenti.front()), (std::vector<std::string>{"Cont32.mdb", "Scad32.mdb"}));
}

TEST_F(CopiaSicurezzaTest, FailureIsToldAndLeavesNothing) {
  Confermate(1, 40);
  {
    SCOPED_TRACE("a file in place of the folder");
    std::ofstream(copie) << "x";
    const auto fatta = EseguiCopia(percorsi, copie, Giorno(1));
    ASSERT_FALSE(fatta);
    EXPECT_THAT(fatta.Errore().messaggio, HasSubstr((copie / "2024-03-01").string()));
    EXPECT_TRUE(fs::is_regular_file(copie));
    fs::remove(copie);
  }
  {
    SCOPED_TRACE("a file in place of the day's folder");
    fs::create_directories(copie);
    std::ofstream(copie / "2024-03-01") << "x";
    EXPECT_TRUE(CopiaDovuta(copie, Giorno(1)));
    ASSERT_FALSE(EseguiCopia(percorsi, copie, Giorno(1)));
    EXPECT_EQ(NomiIn(copie), std::vector<std::string>{"2024-03-01"});
    fs::remove_all(copie);
  }
  {
    SCOPED_TRACE("the disk takes no more in the middle");
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit prima{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &prima), 0);
    const rlimit stretto{32'768, prima.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &stretto), 0);
    const auto fatta = EseguiCopia(percorsi, copie, Giorno(1));
    const auto singola = CopiaArchivio(percorsi.tessarc, cartella / "copia" / "Cont32.mdb");
    setrlimit(RLIMIT_FSIZE, &prima);
    std::signal(SIGXFSZ, SIG_DFL);
    ASSERT_FALSE(fatta);
    EXPECT_THAT(fatta.Errore().messaggio, HasSubstr("I dati sono intatti"));
    EXPECT_TRUE(NomiIn(copie).empty());
    ASSERT_FALSE(singola);
    EXPECT_TRUE(NomiIn(cartella / "copia").empty());
  }
  {
    SCOPED_TRACE("a database that isn't there, and one that is damaged");
    const PercorsiArchivi manca{percorsi.tessarc, cartella / "Manca.mdb"};
    ASSERT_FALSE(EseguiCopia(manca, copie, Giorno(1)));
    EXPECT_FALSE(fs::exists(cartella / "Manca.mdb"));
    const fs::path guasto = cartella / "Guasto.mdb";
    fs::copy_file(percorsi.scadenzario, guasto);
    std::fstream aperto(guasto, std::ios::in | std::ios::out | std::ios::binary);
    aperto.seekp(4'096);
    aperto << std::string(8'192, '\x5a');
    aperto.close();
    const auto fatta = EseguiCopia({percorsi.tessarc, guasto}, copie, Giorno(1));
    ASSERT_FALSE(fatta);
    EXPECT_THAT(fatta.Errore().messaggio, HasSubstr("Guasto.mdb"));
    EXPECT_TRUE(NomiIn(copie).empty());
  }
  const auto fatta = EseguiCopia(percorsi, copie, Giorno(1));
  ASSERT_TRUE(fatta) << fatta.Errore().messaggio;
  EXPECT_EQ(Contenuto(Dentro(fatta.Valore())), "40/40 40/40");
}

TEST_F(CopiaSicurezzaTest, GoingBackToACopy) {
  Confermate(1, 3);
  const auto copia = EseguiCopia(percorsi, copie, Giorno(1));
  ASSERT_TRUE(copia);
  const auto vuota = copie / "2024-03-02";
  Confermate(4, 5);

  // A copy that isn't whole changes nothing.
  fs::create_directories(vuota);
  fs::copy_file(copia.Valore() / "Cont32.mdb", vuota / "Cont32.mdb");
  EXPECT_FALSE(RipristinaCopia(vuota, percorsi));
  std::ofstream(vuota / "Scad32.mdb") << "spazzatura che non è un archivio";
  EXPECT_FALSE(RipristinaCopia(vuota, percorsi));
  EXPECT_EQ(Contenuto(percorsi), "5/5 5/5");
  EXPECT_FALSE(fs::exists(cartella / ".cambio"));

  // What can't be put in place leaves both as they were.
  fs::create_directories(percorsi.scadenzario.string() + ".prima/piena");
  EXPECT_FALSE(RipristinaCopia(copia.Valore(), percorsi));
  EXPECT_EQ(Contenuto(percorsi), "5/5 5/5");
  fs::remove_all(percorsi.scadenzario.string() + ".prima");

  // The journal of the databases put aside isn't played back into those of the copy.
  std::ofstream(percorsi.tessarc.string() + "-journal") << "resti";
  const auto riuscito = RipristinaCopia(copia.Valore(), percorsi);
  ASSERT_TRUE(riuscito) << riuscito.Errore().messaggio;
  EXPECT_EQ(Contenuto(percorsi), "3/3 3/3");
  Confermate(4, 4);
  EXPECT_EQ(Contenuto(percorsi), "4/4 4/4");
  EXPECT_EQ(
      Contenuto({percorsi.tessarc.string() + ".prima", percorsi.scadenzario.string() + ".prima"}),
      "5/5 5/5");
  EXPECT_EQ(Contenuto(Dentro(copia.Valore())), "3/3 3/3");
}

TEST_F(CopiaSicurezzaTest, GoingBackByHandAsTheManualSays) {
  Confermate(1, 3);
  const auto copia = EseguiCopia(percorsi, copie, Giorno(1));
  ASSERT_TRUE(copia);
  Confermate(4, 4);
  for (const fs::path& file : {percorsi.tessarc, percorsi.scadenzario}) {
    fs::rename(file, file.string() + "-da-parte");
    fs::remove(file.string() + "-journal");
    fs::copy_file(copia.Valore() / file.filename(), file);
  }
  EXPECT_EQ(Contenuto(percorsi), "3/3 3/3");
}

TEST_F(CopiaSicurezzaTest, CopyOfOneDatabase) {
  Confermate(1, 3);
  const auto basi = Apri();
  const PercorsiArchivi nuovi = Dentro(cartella / "a" / "b");
  ASSERT_TRUE(CopiaArchivio(percorsi.tessarc, nuovi.tessarc));
  ASSERT_TRUE(CopiaArchivio(percorsi.scadenzario, nuovi.scadenzario));
  EXPECT_EQ(Contenuto(nuovi), "3/3 3/3");
  EXPECT_THAT(CopiaArchivio(percorsi.tessarc, nuovi.tessarc).Errore().messaggio,
              HasSubstr("esiste già"));
  EXPECT_FALSE(CopiaArchivio(cartella / "manca.mdb", cartella / "c.mdb"));
  EXPECT_FALSE(fs::exists(cartella / "c.mdb"));
  // This process still has the databases open: their locks must have survived the copies.
  Conferma(*basi, 4);
  EXPECT_EQ(Contenuto(percorsi), "4/4 4/4");
}

}  // namespace
}  // namespace fenalto
