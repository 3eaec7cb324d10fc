// Databases put in place of others: all or none, wherever the process is killed; compacting, which
// loses nothing.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <map>

#include "core/store/BasiDiProva.h"
#include "core/store/CambioArchivi.h"

namespace {

/// Steps on the disk that are left until this process is killed; none below one.
int passiRimasti = 0;

void Passo() {
  if (passiRimasti > 0 && --passiRimasti == 0) kill(getpid(), SIGKILL);
}

}  // namespace

// Every change of names and every wait for the disk passes here, those of the libraries too.
extern "C" int rename(const char* da, const char* a) noexcept {
  static const auto vera =
      reinterpret_cast<int (*)(const char*, const char*)>(dlsym(RTLD_NEXT, "rename"));
  Passo();
  return vera(da, a);
}
extern "C" int fsync(int descrittore) {
  static const auto vera = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
  Passo();
  return vera(descrittore);
}

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class CambioArchiviTest : public prova::BasiDiProva {
 protected:
  void SetUp() override {
    BasiDiProva::SetUp();
    Crea();
  }
  void Confermate(int da, int a) const {
    const auto basi = Apri();
    Transazione transazione(*basi);
    for (int numero = da; numero <= a; ++numero) {
      basi->Tessarc().Inserisci(
          "Articoli", {{"Anno", 2024}, {"NumDoc", numero}, {"Descrizione", std::string(700, 'd')}});
      basi->Scadenzario().Inserisci("Scadenze",
                                    {{"Numero", numero}, {"Conto", std::string(700, 'c')}});
    }
    transazione.Conferma();
  }
  /// Rows of each database: "3 3"; the error when they don't open.
  std::string Righe() const {
    const auto basi = BasiDati::Apri(percorsi, opzioni);
    if (!basi) return basi.Errore().messaggio;
    const auto conta = [](Archivio& archivio, const char* tabella) {
      return std::to_string(
          archivio.Singolo(std::string("select Count(*) from ") + tabella).Intero());
    };
    return conta(basi.Valore()->Tessarc(), "Articoli") + " " +
           conta(basi.Valore()->Scadenzario(), "Scadenze");
  }
  /// Does it in a process of its own, killed at that step; whether it got to its end.
  static bool Ucciso(int passo, const std::function<bool()>& lavoro) {
    const pid_t figlio = fork();
    if (figlio == 0) {
      passiRimasti = passo;
      _exit(lavoro() ? 0 : 1);
    }
    int stato = 0;
    waitpid(figlio, &stato, 0);
    EXPECT_TRUE(WIFSIGNALED(stato) || WEXITSTATUS(stato) == 0);
    return WIFEXITED(stato);
  }
  bool Aperte() const { return BasiDati::Apri(percorsi, opzioni).Riuscito(); }
  /// Files beside the databases that a change makes.
  std::vector<std::string> Resti() const {
    std::vector<std::string> resti;
    for (const auto& voce : fs::directory_iterator(cartella)) {
      const std::string nome = voce.path().filename().string();
      if (nome.ends_with(".cambio")) resti.push_back(nome);
    }
    return resti;
  }
  void Conserva(const fs::path& dove) const {
    fs::create_directories(dove);
    for (const fs::path& file : {percorsi.tessarc, percorsi.scadenzario}) {
      fs::copy_file(file, dove / file.filename(), fs::copy_options::overwrite_existing);
    }
  }
  void Rimetti(const fs::path& da) const {
    for (const fs::path& file : {percorsi.tessarc, percorsi.scadenzario}) {
      fs::remove(file.string() + "-journal");
      fs::copy_file(da / file.filename(), file, fs::copy_options::overwrite_existing);
    }
  }
  /// Kills `lavoro` at each of its steps, and at each of those in which the next opening puts it
  /// right; how often which rows were found.
  std::map<std::string, int> OgniPasso(const std::function<bool()>& lavoro) const {
    std::map<std::string, int> trovate;
    const fs::path com_era = cartella / "com_era";
    Conserva(com_era);
    for (int passo = 1;; ++passo) {
      bool finito = false;
      for (int seguente = 0; seguente <= 8; ++seguente) {
        Rimetti(com_era);
        finito = Ucciso(passo, lavoro);
        if (seguente > 0) Ucciso(seguente, [this] { return Aperte(); });
        ++trovate[Righe()];
        EXPECT_FALSE(fs::exists(cartella / "Cont32.mdb.cambio")) << passo << "/" << seguente;
        if (finito) break;
      }
      if (finito) break;
      if (passo > 200) {
        ADD_FAILURE() << "non finisce mai";
        break;
      }
    }
    Rimetti(com_era);
    return trovate;
  }
};

TEST_F(CambioArchiviTest, UnRipristinoUccisoLasciaIDatiDiPrimaOQuelliNuovi) {
  Confermate(1, 3);
  const fs::path copia = cartella / "copia";
  Conserva(copia);
  Confermate(4, 5);
  const auto trovate = OgniPasso([&] { return RipristinaCopia(copia, percorsi).Riuscito(); });
  EXPECT_EQ(trovate.size(), 2U) << ::testing::PrintToString(trovate);
  EXPECT_GT(trovate.count("3 3"), 0U);
  EXPECT_GT(trovate.at("3 3"), 8) << "ucciso anche dopo la nota";
  EXPECT_GT(trovate.at("5 5"), 8) << "ucciso anche prima";
  // Once more, to the end: nothing is left but what was put aside.
  ASSERT_TRUE(RipristinaCopia(copia, percorsi));
  EXPECT_EQ(Righe(), "3 3");
  EXPECT_EQ(Resti(), std::vector<std::string>{});
  ASSERT_TRUE(TornaAiSostituiti(percorsi));
  EXPECT_EQ(Righe(), "5 5");
  TogliSostituiti(percorsi);
  EXPECT_FALSE(fs::exists(percorsi.tessarc.string() + ".prima"));
}

TEST_F(CambioArchiviTest, CompattareNonPerdeNulla) {
  Confermate(1, 400);
  {
    const auto basi = Apri();
    basi->Tessarc().Esegui("delete * from Articoli where NumDoc>40");
    basi->Scadenzario().Esegui("delete * from Scadenze where Numero>40");
  }
  const auto prima = fs::file_size(percorsi.tessarc) + fs::file_size(percorsi.scadenzario);
  const auto trovate = OgniPasso([this] {
    return PreparaCompatti(percorsi).Riuscito() && CambiaArchivi(percorsi).Riuscito();
  });
  EXPECT_EQ(trovate.size(), 1U) << ::testing::PrintToString(trovate);
  ASSERT_TRUE(PreparaCompatti(percorsi));
  ASSERT_TRUE(CambiaArchivi(percorsi));
  EXPECT_EQ(Righe(), "40 40");
  EXPECT_LT(fs::file_size(percorsi.tessarc) + fs::file_size(percorsi.scadenzario), prima / 3);
  Confermate(41, 42);
  EXPECT_EQ(Righe(), "42 42");
}

TEST_F(CambioArchiviTest, NienteDiGuastoNeDiMezzo) {
  Confermate(1, 60);
  const fs::path copia = cartella / "copia";
  Conserva(copia);
  struct Caso {
    const char* nome;
    std::function<void()> guasta;
    std::function<Esito<PercorsiArchivi>()> fai;
    const char* messaggio;
  };
  const auto rovina = [](const fs::path& file) {
    std::fstream aperto(file, std::ios::in | std::ios::out | std::ios::binary);
    aperto.seekp(8'192);
    aperto << std::string(8'192, '\x5a');
  };
  rlimit com_era{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &com_era), 0);
  std::signal(SIGXFSZ, SIG_IGN);
  const auto stringi = [&] {
    const rlimit stretto{20'000, com_era.rlim_max};
    setrlimit(RLIMIT_FSIZE, &stretto);
  };
  const auto ripristina = [&] {
    return PreparaCopia(ArchiviDellaCopia(copia, percorsi), percorsi);
  };
  const auto compatta = [&] { return PreparaCompatti(percorsi); };
  const Caso casi[] = {
      {"disk full while restoring", stringi, ripristina, ""},
      {"disk full while compacting", stringi, compatta, ""},
      {"damaged copy", [&] { rovina(copia / "Scad32.mdb"); }, ripristina, "Scad32.mdb"},
      {"a file of the copy is missing", [&] { fs::remove(copia / "Scad32.mdb"); }, ripristina,
       "manca il file"},
      {"damaged database", [&] { rovina(percorsi.scadenzario); }, compatta, "Scad32.mdb"},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.nome);
    caso.guasta();
    const auto esito = caso.fai();
    setrlimit(RLIMIT_FSIZE, &com_era);
    ASSERT_FALSE(esito);
    EXPECT_THAT(esito.Errore().messaggio, HasSubstr(caso.messaggio));
    EXPECT_EQ(Resti(), std::vector<std::string>{});
    if (caso.fai().Riuscito()) ScartaPreparati(percorsi);
    EXPECT_FALSE(CambiaArchivi(percorsi)) << "niente di pronto, niente da cambiare";
  }
  std::signal(SIGXFSZ, SIG_DFL);
}

}  // namespace
}  // namespace fenalto
