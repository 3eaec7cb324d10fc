// Locks between processes, between two windows of one process, and what is left of them when a
// holder dies or the lock file is spoilt.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <vector>

#include "core/store/ErroreArchivio.h"
#include "core/store/engine/sqlite/BlocchiFile.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using engine::sqlite::BlocchiAffidabili;
using engine::sqlite::BlocchiFile;
using std::chrono::milliseconds;

/// A second process that runs `lavoro` and then waits to be killed; made when the work is done.
class AltroProcesso {
 public:
  explicit AltroProcesso(const std::function<bool()>& lavoro) {
    std::array<int, 2> tubo{};
    if (pipe(tubo.data()) != 0) std::abort();
    processo_ = fork();
    if (processo_ == 0) {
      const char esito = lavoro() ? 's' : 'n';
      (void)!write(tubo[1], &esito, 1);
      while (true) pause();
    }
    close(tubo[1]);
    char esito = 'n';
    riuscito_ = read(tubo[0], &esito, 1) == 1 && esito == 's';
    close(tubo[0]);
  }
  AltroProcesso(const AltroProcesso&) = delete;
  AltroProcesso& operator=(const AltroProcesso&) = delete;
  ~AltroProcesso() { Uccidi(); }
  void Uccidi() {
    if (processo_ <= 0) return;
    kill(processo_, SIGKILL);
    waitpid(processo_, nullptr, 0);
    processo_ = 0;
  }
  [[nodiscard]] bool Riuscito() const { return riuscito_; }
  [[nodiscard]] pid_t Processo() const { return processo_; }

 private:
  pid_t processo_ = 0;
  bool riuscito_ = false;
};

class BlocchiTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string modello = (fs::temp_directory_path() / "fenalto-blocchi-XXXXXX").string();
    ASSERT_NE(mkdtemp(modello.data()), nullptr);
    cartella = modello;
    file = cartella / "Cont32.blocchi";
  }
  void TearDown() override { fs::remove_all(cartella); }

  [[nodiscard]] BlocchiFile Stazione(const std::string& nome = "UFFICIO") const {
    return {file, nome, "MARIA"};
  }

  fs::path cartella;
  fs::path file;
};

TEST_F(BlocchiTest, TwoProcessesExcludeEachOtherAndADeadHolderFrees) {
  BlocchiFile qui = Stazione("CASSA");
  std::optional<AltroProcesso> altro(std::in_place, [&] {
    static BlocchiFile la = Stazione();
    static auto record = la.Record("Articoli", "2024/12");
    static auto tabella = la.Tabella("ARTICOLI", milliseconds(0));
    return record && tabella;
  });
  ASSERT_TRUE(altro->Riuscito());

  const auto record = qui.Record("Articoli", "2024/12");
  ASSERT_FALSE(record);
  EXPECT_EQ(record.Errore().stazione, "UFFICIO");
  EXPECT_EQ(record.Errore().utente, "MARIA");
  EXPECT_EQ(record.Errore().processo, altro->Processo());
  EXPECT_THAT(
      record.Errore().Descrizione(),
      ::testing::MatchesRegex("dalla stazione UFFICIO \\(utente MARIA, dalle ../../.... ..:..\\)"));
  const auto tabella = qui.Tabella("articoli", milliseconds(0));
  ASSERT_FALSE(tabella);
  EXPECT_EQ(tabella.Errore().stazione, "UFFICIO");
  EXPECT_TRUE(qui.ChiTiene("Articoli", "2024/12").has_value());
  EXPECT_FALSE(qui.ChiTiene("Articoli", "2024/13").has_value());
  EXPECT_TRUE(qui.Record("Articoli", "2024/13"));
  EXPECT_TRUE(qui.Record("Clienti", "2024/12"));

  altro->Uccidi();
  EXPECT_FALSE(qui.ChiTiene("Articoli", "2024/12").has_value());
  EXPECT_TRUE(qui.Record("Articoli", "2024/12"));
  EXPECT_TRUE(qui.Tabella("ARTICOLI", milliseconds(0)));
}

TEST_F(BlocchiTest, TwoWindowsOfOneProcessExcludeEachOther) {
  BlocchiFile blocchi = Stazione();
  BlocchiFile altri = Stazione("CASSA");
  auto primo = blocchi.Record("Clienti", "0001");
  ASSERT_TRUE(primo);
  EXPECT_FALSE(blocchi.Record("Clienti", "0001"));
  EXPECT_FALSE(altri.Record("Clienti", "0001"));

  Blocco spostato = std::move(primo).Valore();
  EXPECT_FALSE(altri.Record("Clienti", "0001"));
  auto secondo = altri.Record("Clienti", "0002");
  ASSERT_TRUE(secondo);
  Blocco altro = std::move(secondo).Valore();
  altro = std::move(spostato);
  EXPECT_TRUE(blocchi.Record("Clienti", "0002")) << "what it held before is free";
  EXPECT_FALSE(altri.Record("Clienti", "0001"));
  altro.Rilascia();
  EXPECT_FALSE(altro.Tenuto());
  EXPECT_TRUE(altri.Record("Clienti", "0001"));
}

TEST_F(BlocchiTest, KeysAreComparedWholeAndWithoutCase) {
  BlocchiFile blocchi = Stazione();
  const std::string lunga(500, 'k');
  struct Caso {
    std::string tabella, chiave, altraTabella, altraChiave;
    bool stessa;
  };
  const std::vector<Caso> casi = {
      {"Clienti", "ab1", "CLIENTI", "AB1", true},
      {"Clienti", "perché", "clienti", "PERCHÉ", true},
      {"Clienti", "ab1", "Clienti", "ab10", false},
      {"Clienti", "", "Clienti", "x", false},
      {"Clienti", "1", "Clienti1", "", false},
      {"Clienti", lunga, "Clienti", std::string(500, 'K'), true},
      {"Clienti", lunga + "a", "Clienti", lunga + "b", false},
      {"Clienti", "a" + lunga, "Clienti", "b" + lunga, false},
      {"Clienti", lunga, "Clienti", lunga + "k", false},
  };
  for (const Caso& caso : casi) {
    const auto primo = blocchi.Record(caso.tabella, caso.chiave);
    ASSERT_TRUE(primo) << caso.chiave;
    const auto secondo = blocchi.Record(caso.altraTabella, caso.altraChiave);
    EXPECT_EQ(!secondo, caso.stessa) << caso.chiave << " / " << caso.altraChiave;
    if (!secondo) {
      EXPECT_EQ(secondo.Errore().stazione, "UFFICIO") << caso.chiave;
    }
  }
  // The numbering lock of a table and a record of it are different things.
  const auto tabella = blocchi.Tabella("Clienti", milliseconds(0));
  EXPECT_TRUE(blocchi.Record("Clienti", ""));
}

TEST_F(BlocchiTest, ManyKeysAtOnceEachWithItsHolder) {
  BlocchiFile blocchi = Stazione();
  std::vector<Blocco> tenuti;
  for (int i = 0; i < 200; ++i) {
    auto preso = blocchi.Record("Articoli", "2024/" + std::to_string(i));
    ASSERT_TRUE(preso) << i;
    tenuti.push_back(std::move(preso).Valore());
  }
  const auto controlla = [&](bool presi) {
    for (int i = 0; i < 200; ++i) {
      const auto chi = blocchi.ChiTiene("ARTICOLI", "2024/" + std::to_string(i));
      ASSERT_EQ(chi.has_value(), presi) << i;
      if (chi) {
        ASSERT_EQ(chi->stazione, "UFFICIO") << i;
      }
    }
  };
  controlla(true);
  tenuti.clear();
  controlla(false);
}

TEST_F(BlocchiTest, SpoiltFileNeverLetsTwoInAndIsUsableAgain) {
  const std::string spazzatura = [] {
    std::string testo;
    for (unsigned i = 0; i < 300'000; ++i) testo += static_cast<char>(i * 7919 % 251);
    return testo;
  }();
  struct Caso {
    const char* nome;
    std::function<void()> guasta;
  };
  const std::vector<Caso> casi = {
      {"empty", [&] { std::ofstream(file, std::ios::trunc); }},
      {"short", [&] { fs::resize_file(file, 100); }},
      {"garbage", [&] { std::ofstream(file, std::ios::binary) << spazzatura; }},
      {"garbage after the head",
       [&] {
         std::fstream aperto(file, std::ios::binary | std::ios::in | std::ios::out);
         aperto.seekp(8);
         aperto << spazzatura << spazzatura << spazzatura << spazzatura;
       }},
  };
  for (const Caso& caso : casi) {
    BlocchiFile prima = Stazione();
    const auto record = prima.Record("Clienti", "0001");
    const auto tabella = prima.Tabella("ARTICOLI", milliseconds(0));
    ASSERT_TRUE(record && tabella) << caso.nome;
    caso.guasta();
    for (int volta = 0; volta < 2; ++volta) {
      // The second time the file was made anew by the station that came.
      BlocchiFile dopo = Stazione("CASSA");
      EXPECT_FALSE(dopo.Record("Clienti", "0001")) << caso.nome;
      EXPECT_FALSE(dopo.Tabella("ARTICOLI", milliseconds(20))) << caso.nome;
      EXPECT_TRUE(dopo.ChiTiene("Clienti", "0001").has_value()) << caso.nome;
      const auto altro = dopo.Record("Clienti", "0002");
      ASSERT_TRUE(altro) << caso.nome;
      const auto chi = prima.ChiTiene("Clienti", "0002");
      ASSERT_TRUE(chi.has_value()) << caso.nome;
      EXPECT_EQ(chi->stazione, "CASSA") << caso.nome;
    }
  }
  BlocchiFile infine = Stazione();
  EXPECT_TRUE(infine.Record("Clienti", "0001"));
  EXPECT_TRUE(infine.Tabella("ARTICOLI", milliseconds(0)));
}

TEST_F(BlocchiTest, WaitingIsBoundedAndTellsTheHolderOfNow) {
  BlocchiFile primo = Stazione("UFFICIO");
  BlocchiFile secondo = Stazione("CASSA");
  auto tenuto = primo.Tabella("ARTICOLI", milliseconds(0));
  ASSERT_TRUE(tenuto);
  for (const int attesa : {0, 50, 300}) {
    const auto preso = secondo.Tabella("ARTICOLI", milliseconds(attesa));
    ASSERT_FALSE(preso);
    EXPECT_EQ(preso.Errore().stazione, "UFFICIO");
  }
  // A waiter that was killed doesn't stand in the way of those behind it.
  AltroProcesso inAttesa([&] {
    if (fork() == 0) {
      (void)Stazione("MAGAZZINO").Tabella("ARTICOLI", milliseconds(60'000));
      _exit(0);
    }
    usleep(50'000);
    return true;
  });
  inAttesa.Uccidi();
  std::move(tenuto).Valore().Rilascia();
  EXPECT_TRUE(secondo.Tabella("ARTICOLI", milliseconds(2'000)));
}

TEST_F(BlocchiTest, WaitersComeInTheOrderTheyCame) {
  BlocchiFile blocchi = Stazione();
  auto tenuto = blocchi.Tabella("ARTICOLI", milliseconds(0));
  ASSERT_TRUE(tenuto);
  std::array<int, 2> tubo{};
  ASSERT_EQ(pipe(tubo.data()), 0);
  constexpr int kQuanti = 6;
  std::vector<pid_t> figli;
  for (int i = 0; i < kQuanti; ++i) {
    const pid_t figlio = fork();
    if (figlio == 0) {
      // The parent's lock came along as a copy of its descriptor; the parent unlocks it expressly.
      BlocchiFile propri = Stazione();
      const auto preso = propri.Tabella("ARTICOLI", milliseconds(20'000));
      const char chi = static_cast<char>(preso ? 'a' + i : '!');
      (void)!write(tubo[1], &chi, 1);
      usleep(3'000);
      _exit(0);
    }
    figli.push_back(figlio);
    usleep(60'000);
  }
  std::move(tenuto).Valore().Rilascia();
  std::string ordine;
  for (int i = 0; i < kQuanti; ++i) {
    char chi = '?';
    ASSERT_EQ(read(tubo[0], &chi, 1), 1);
    ordine += chi;
  }
  for (const pid_t figlio : figli) waitpid(figlio, nullptr, 0);
  close(tubo[0]);
  close(tubo[1]);
  EXPECT_EQ(ordine, "abcdef");
}

TEST_F(BlocchiTest, FourProcessesTakeTurnsAndNothingIsLost) {
  constexpr int kProcessi = 4;
  constexpr int kVolte = 200;
  const fs::path contatore = cartella / "contatore";
  std::ofstream(contatore) << 0;
  std::vector<pid_t> figli;
  for (int i = 0; i < kProcessi; ++i) {
    figli.push_back(fork());
    if (figli.back() != 0) continue;
    BlocchiFile blocchi = Stazione();
    for (int volta = 0; volta < kVolte; ++volta) {
      const auto preso = blocchi.Tabella("ARTICOLI", milliseconds(60'000));
      if (!preso) _exit(1);
      // Read and written without any other protection.
      int valore = 0;
      std::ifstream(contatore) >> valore;
      std::ofstream(contatore) << valore + 1;
    }
    _exit(0);
  }
  for (const pid_t figlio : figli) {
    int stato = -1;
    waitpid(figlio, &stato, 0);
    EXPECT_EQ(stato, 0) << "one didn't get the lock";
  }
  int valore = 0;
  std::ifstream(contatore) >> valore;
  EXPECT_EQ(valore, kProcessi * kVolte);
}

TEST_F(BlocchiTest, FolderThatCannotBeWrittenIsToldAtOnce) {
  std::string messaggio;
  try {
    const BlocchiFile blocchi(cartella / "manca" / "Cont32.blocchi", "UFFICIO", "MARIA");
  } catch (const ErroreArchivio& errore) {
    messaggio = errore.what();
  }
  EXPECT_THAT(messaggio, ::testing::HasSubstr("Cont32.blocchi"));
  EXPECT_TRUE(BlocchiAffidabili(cartella));
  EXPECT_FALSE(BlocchiAffidabili(cartella / "manca"));
  EXPECT_FALSE(CartellaDiRete(cartella));
}

}  // namespace
}  // namespace fenalto
