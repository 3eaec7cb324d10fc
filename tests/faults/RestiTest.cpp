// What a process killed in the middle of a transaction leaves beside the databases goes at the next
// opening that is alone, and nothing that is still needed goes with it.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "core/store/DiscoFinto.h"
#include "faults/Registrazioni.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

class RestiTest : public ::testing::Test {
 protected:
  void SetUp() override { percorsi = CreaDitta(cartella.Percorso()); }

  /// Files of transactions over both databases in the company's folder.
  [[nodiscard]] int Comuni() const {
    int quanti = 0;
    for (const auto& voce : fs::directory_iterator(cartella.Percorso())) {
      if (voce.path().filename().string().find(".mdb-mj") != std::string::npos) ++quanti;
    }
    return quanti;
  }
  /// A process that is killed at its `n`-th write while it registers; false when it came through.
  [[nodiscard]] bool Ucciso(int n, int versione) const {
    const pid_t figlio = fork();
    if (figlio == 0) {
      OpzioniApertura opzioni = OpzioniDiProva();
      opzioni.vfs = DiscoFinto::Nome();
      const auto aperte = BasiDati::Apri(percorsi, opzioni);
      if (!aperte) _exit(2);
      DiscoFinto::MuoriAllaScrittura(n);
      Registra(*aperte.Valore(), 1, versione);
      _exit(0);
    }
    int stato = 0;
    waitpid(figlio, &stato, 0);
    EXPECT_TRUE(WIFSIGNALED(stato) || WEXITSTATUS(stato) == 0);
    return WIFSIGNALED(stato);
  }
  void Riapri() const {
    const auto aperte = BasiDati::Apri(percorsi, OpzioniDiProva("CASSA"));
    ASSERT_TRUE(aperte) << aperte.Errore().messaggio;
  }
  /// A file of a transaction that no journal names.
  [[nodiscard]] fs::path Orfano() const {
    const fs::path file = percorsi.tessarc.string() + "-mj0123ABCD9";
    std::ofstream(file) << percorsi.tessarc.string() << "-journal";
    return file;
  }

  CartellaDiProva cartella;
  PercorsiArchivi percorsi;
};

TEST_F(RestiTest, DopoOgniUccisioneNonRestaNiente) {
  {
    const auto basi = BasiDati::Apri(percorsi, OpzioniDiProva());
    ASSERT_TRUE(basi);
    Registra(*basi.Valore(), 1, 1);
  }
  int orfani = 0;
  int versione = 1;
  for (int n = 1; Ucciso(n, versione + 1); ++n) {
    ASSERT_LT(n, 500);
    if (Comuni() > 0) ++orfani;
    const auto aperte = BasiDati::Apri(percorsi, OpzioniDiProva("CASSA"));
    ASSERT_TRUE(aperte) << aperte.Errore().messaggio;
    EXPECT_EQ(Comuni(), 0) << "write " << n;
    std::string guasti;
    const Registrate trovate = Leggi(*aperte.Valore(), guasti);
    ControllaFile(percorsi, "", guasti);
    ASSERT_EQ(guasti, "") << "write " << n;
    versione = trovate.at(1);
  }
  // Otherwise no kill would have fallen while the two journals are tied together.
  EXPECT_GT(orfani, 0);
}

TEST_F(RestiTest, FinoACheUnAltroScriveNonSiToccano) {
  const fs::path orfano = Orfano();
  for (const fs::path& archivio : {percorsi.tessarc, percorsi.scadenzario}) {
    sqlite3* altra = nullptr;
    ASSERT_EQ(sqlite3_open(archivio.c_str(), &altra), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(altra, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    // In a process of its own: this one's descriptors would drop each other's locks.
    const pid_t figlio = fork();
    if (figlio == 0) _exit(BasiDati::Apri(percorsi, OpzioniDiProva()) ? 0 : 1);
    int stato = 0;
    waitpid(figlio, &stato, 0);
    EXPECT_EQ(stato, 0);
    EXPECT_TRUE(fs::exists(orfano));
    sqlite3_close(altra);
  }
  Riapri();
  EXPECT_FALSE(fs::exists(orfano));
}

// A database put aside with the journal of a transaction that was never played back needs the file
// to be played back: without it the journal would count as confirmed.
TEST_F(RestiTest, QuelloCheUnGiornaleNominaResta) {
  const fs::path orfano = Orfano();
  const fs::path giornale = percorsi.scadenzario.string() + ".prima-journal";
  std::ofstream(giornale, std::ios::binary)
      << std::string(100'000, 'x') << orfano.string() << "coda";
  // Only what bears the engine's name is the engine's.
  const fs::path altrui = percorsi.tessarc.string() + "-mj-appunti.txt";
  std::ofstream(altrui) << "mio";
  Riapri();
  EXPECT_TRUE(fs::exists(orfano));
  fs::remove(giornale);
  Riapri();
  EXPECT_FALSE(fs::exists(orfano));
  EXPECT_TRUE(fs::exists(altrui));
}

}  // namespace
}  // namespace fenalto::prova
