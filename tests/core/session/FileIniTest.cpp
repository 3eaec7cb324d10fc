#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "core/session/CartellaProva.h"
#include "core/session/Ditte.h"
#include "core/session/FileIni.h"
#include "core/session/FileTesto.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

TEST(FileIni, Lettura) {
  struct Caso {
    const char *testo, *sezione, *chiave, *valore;
  };
  const Caso casi[] = {
      {"[config]\nragsoc1 =Rossi\nragsoc1=Bianchi\n", "config", "ragsoc1 ", "Rossi"},
      {"[config]\nragsoc1 =Rossi\nragsoc1=Bianchi\n", "config", "ragsoc1", "Bianchi"},
      {"[Config]\r\n  DecP=2\r\n", "CONFIG", "decp", "2"},
      {"[config]\na= con spazi \n", "config", "a", " con spazi "},
      {"[config]\na=1\na=2\n[config]\nb=3\n", "config", "a", "1"},
      {"[config]\na=1\n[altra]\n[CONFIG]\nb=3\n", "config", "b", ""},
      {"[uno]\na=1\n[due]\na=2", "due", "a", "2"},
      {";a=1\n#a=2\na=3\n[x]\n", "", "A", "3"},
      {"\xEF\xBB\xBF[config]\na=è", "config", "a", "è"},
      {"[config]\nlocalit\xE0=Forl\xEC\n", "config", "località", "Forlì"},
      {"[config]\nformula=a=b\n", "config", "formula", "a=b"},
      {"[config]\nsenza uguale\n=senza chiave\n[ rotta\na=1\n", "config", "a", "1"},
      {"", "config", "a", ""},
  };
  for (const Caso& caso : casi) {
    EXPECT_EQ(FileIni::DaTesto(caso.testo).Valore(caso.sezione, caso.chiave), caso.valore)
        << caso.testo;
  }
}

TEST(FileIni, ScritturaTieneTuttoIlResto) {
  struct Caso {
    const char *prima, *sezione, *chiave, *valore, *dopo;
  };
  const Caso casi[] = {
      {"; nota\r\n[Config]\r\n  DecP=2 \r\n\r\n# fine\r\n", "config", "DECP", "3",
       "; nota\r\n[Config]\r\n  DecP=3\r\n\r\n# fine\r\n"},
      {"[config]\r\na=1\r\n\r\n[Archivi]\r\nTessarc=x\r\n", "config", "b", "2",
       "[config]\r\na=1\r\nb=2\r\n\r\n[Archivi]\r\nTessarc=x\r\n"},
      {"[config]\na=1", "config", "b", "2", "[config]\na=1\nb=2\n"},
      {"[config]\nragsoc1=A\n", "config", "ragsoc1 ", "B", "[config]\nragsoc1=A\nragsoc1 =B\n"},
      {"", "config", "a", "1", "[config]\na=1\n"},
      {"\xEF\xBB\xBF", "config", "a", "1", "\xEF\xBB\xBF[config]\na=1\n"},
      {"[x]\na=1", "y", "b", "2", "[x]\na=1\n\n[y]\nb=2\n"},
      {"a=1\na=2\n", "", "a", "9", "a=9\na=2\n"},
      {"[config]\na=vecchio\n", "config", "a", "", "[config]\na=\n"},
      {"[config]\nLocalit\xE0=Forl\xEC\n", "config", "b", "1", "[config]\nLocalità=Forlì\nb=1\n"},
      {"[config]\na=1\n", "config", "a", "due\r\nrighe", "[config]\na=due  righe\n"},
      {"[config]\na=1\n[config]\nb=1\n", "config", "b", "2", "[config]\na=1\nb=2\n[config]\nb=1\n"},
  };
  for (const Caso& caso : casi) {
    FileIni file = FileIni::DaTesto(caso.prima);
    file.Imposta(caso.sezione, caso.chiave, caso.valore);
    EXPECT_EQ(file.Testo(), caso.dopo) << caso.prima;
  }
  FileIni file;
  for (const char* chiave : {"", "a=b", "[a", ";a", "a\nb"})
    EXPECT_THROW(file.Imposta("config", chiave, "1"), std::invalid_argument) << chiave;
  EXPECT_THROW(file.Imposta("a]b", "a", "1"), std::invalid_argument);
}

TEST(FileIni, FileGrandeESenzaUguali) {
  std::string testo = "[config]\n";
  while (testo.size() < 10'000'000) testo += "una riga che non dice niente\n";
  const CartellaProva cartella;
  const fs::path percorso = cartella / "grande.ini";
  ScriviFile(percorso, testo + "a=1\n");
  ASSERT_TRUE(FileIni::Scrivi(percorso, "config", "a", "2"));
  EXPECT_EQ(LeggiFile(percorso), testo + "a=2\n");
}

TEST(FileIni, RifiutiSpiegati) {
  const CartellaProva cartella;
  EXPECT_EQ(FileIni::Leggi(cartella / "manca.ini").Valore().Testo(), "");

  const fs::path enorme = cartella / "enorme.ini";
  ScriviFile(enorme, "[config]\n");
  fs::resize_file(enorme, kMassimoFileTesto + 1);
  EXPECT_NE(FileIni::Leggi(enorme).Errore().messaggio.find("troppo grande"), std::string::npos);

  const fs::path sola = cartella / "sola.ini";
  ScriviFile(sola, "[config]\na=1\n");
  fs::permissions(sola, fs::perms::owner_read);
  const auto negata = FileIni::Scrivi(sola, "config", "a", "2");
  ASSERT_FALSE(negata);
  EXPECT_NE(negata.Errore().messaggio.find("sola lettura"), std::string::npos);
  EXPECT_EQ(LeggiFile(sola), "[config]\na=1\n");

  const auto persa = FileIni::Scrivi(cartella / "nessuna/x.ini", "config", "a", "2");
  ASSERT_FALSE(persa);
  EXPECT_NE(persa.Errore().messaggio.find("la cartella non esiste"), std::string::npos);
  EXPECT_FALSE(FileIni::Leggi(cartella.Percorso()));
}

TEST(FileIni, TienePermessiECollegamento) {
  const CartellaProva cartella;
  const fs::path vero = cartella / "vero.ini";
  ScriviFile(vero, "[config]\na=1\n");
  fs::permissions(vero, fs::perms(0640));
  fs::create_symlink(vero, cartella / "nome.ini");
  ASSERT_TRUE(FileIni::Scrivi(cartella / "nome.ini", "config", "a", "2"));
  EXPECT_TRUE(fs::is_symlink(cartella / "nome.ini"));
  EXPECT_EQ(LeggiFile(vero), "[config]\na=2\n");
  EXPECT_EQ(fs::status(vero).permissions(), fs::perms(0640));
}

/// Runs `azione` in another process; its exit code is 0 when it answered true.
template <typename Azione>
pid_t InAltroProcesso(const Azione& azione) {
  const pid_t figlio = ::fork();
  if (figlio == 0) ::_exit(azione() ? 0 : 1);
  return figlio;
}

bool FinitoBene(pid_t figlio) {
  int stato = 0;
  return ::waitpid(figlio, &stato, 0) == figlio && WIFEXITED(stato) && WEXITSTATUS(stato) == 0;
}

TEST(FileIni, DueStazioniNonPerdonoChiavi) {
  const CartellaProva cartella;
  const fs::path percorso = cartella / "Ditta.ini";
  const int volte = std::getenv("FENALTO_LUNGO") != nullptr ? 10'000 : 500;
  const auto scrittore = [&](const char* stazione) {
    return InAltroProcesso([&] {
      for (int i = 0; i < volte; ++i) {
        const std::string chiave = stazione + std::to_string(i % 100);
        if (!FileIni::Scrivi(percorso, "config", chiave, std::to_string(i))) return false;
      }
      return true;
    });
  };
  const pid_t uno = scrittore("uno");
  const pid_t due = scrittore("due");
  EXPECT_TRUE(FinitoBene(uno));
  EXPECT_TRUE(FinitoBene(due));
  const FileIni file = FileIni::Leggi(percorso).Valore();
  for (int i = volte - 100; i < volte; ++i) {
    EXPECT_EQ(file.Valore("config", "uno" + std::to_string(i % 100)), std::to_string(i));
    EXPECT_EQ(file.Valore("config", "due" + std::to_string(i % 100)), std::to_string(i));
  }
}

TEST(FileIni, UccisoMentreScriveEVecchioONuovo) {
  const CartellaProva cartella;
  const fs::path percorso = cartella / "Ditta.ini";
  const std::string lungo(200'000, 'x');
  const auto testo = [&](int n) {
    return "[config]\nn=" + std::to_string(n % 10) + "\nlungo=" + lungo + "\n";
  };
  std::mt19937 caso(7);
  for (int prova = 0; prova < 30; ++prova) {
    ScriviFile(percorso, testo(0));
    const pid_t figlio = InAltroProcesso([&]() -> bool {
      for (int n = 1;; ++n)
        if (!FileIni::Scrivi(percorso, "config", "n", std::to_string(n % 10))) return false;
    });
    std::this_thread::sleep_for(std::chrono::microseconds(caso() % 15'000));
    ::kill(figlio, SIGKILL);
    ::waitpid(figlio, nullptr, 0);
    const std::string dopo = LeggiFile(percorso);
    ASSERT_EQ(dopo.size(), testo(0).size());
    const std::string n = FileIni::DaTesto(dopo).Valore("config", "n");
    ASSERT_EQ(dopo, testo(std::stoi(n)));
    // The lock went with the process, and what it left behind is in nobody's way.
    ASSERT_TRUE(FileIni::Scrivi(percorso, "config", "n", "5"));
    ASSERT_EQ(LeggiFile(percorso), testo(5));
  }
}

TEST(FileIni, DiscoPienoLasciaIlVecchio) {
  const CartellaProva cartella;
  const fs::path percorso = cartella / "Ditta.ini";
  ScriviFile(percorso, "[config]\na=1\n");
  const pid_t figlio = InAltroProcesso([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{100, 100};
    ::setrlimit(RLIMIT_FSIZE, &limite);
    return !FileIni::Scrivi(percorso, "config", "a", std::string(1'000, 'x'));
  });
  EXPECT_TRUE(FinitoBene(figlio));
  EXPECT_EQ(LeggiFile(percorso), "[config]\na=1\n");
  EXPECT_FALSE(fs::exists(cartella / ".Ditta.ini.nuovo"));
}

TEST(Ditte, PredefinitaETrovate) {
  const CartellaProva cartella;
  ScriviFile(cartella / "Verdi.ini", "");
  ScriviFile(cartella / "bianchi.INI", "");
  ScriviFile(cartella / "Demo.ini", "");
  ScriviFile(cartella / ".Demo.ini.lck", "");
  ScriviFile(cartella / "Demo.ini.vecchio", "");
  fs::create_directory(cartella / "Ini");
  fs::create_directory(cartella / "cartella.ini");
  const Ditte ditte(cartella.Percorso());
  const std::pair<const char*, const char*> casi[] = {{"Demo.ini\n", "Demo"},
                                                      {"DEMO.INI\r\n", "Demo"},
                                                      {"\xEF\xBB\xBF  Bianchi  ", "bianchi"},
                                                      {"Verdi.ini\nDemo", "Verdi"},
                                                      {"", ""},
                                                      {"\n", ""},
                                                      {"Rossi.ini", ""},
                                                      {".ini", ""},
                                                      {"../Demo.ini", ""},
                                                      {"cartella.ini", ""}};
  EXPECT_EQ(ditte.Predefinita(), "");
  for (const auto& [testo, nome] : casi) {
    ScriviFile(cartella / "DittaDefault.txt", testo);
    EXPECT_EQ(ditte.Predefinita(), nome) << testo;
    ASSERT_EQ(ditte.Trovate().size(), 3U) << testo;
  }
  ASSERT_TRUE(ditte.ImpostaPredefinita("Verdi"));
  std::vector<std::string> nomi;
  for (const auto& ditta : ditte.Trovate()) nomi.push_back(ditta.nome);
  EXPECT_EQ(nomi, (std::vector<std::string>{"Verdi", "bianchi", "Demo"}));
  EXPECT_TRUE(ditte.Trovate()[0].predefinita);
  EXPECT_EQ(LeggiFile(cartella / "DittaDefault.txt"), "Verdi.ini\n");
}

TEST(Ditte, PercorsiDegliArchivi) {
  const CartellaProva radice;
  const fs::path r = radice.Percorso();
  fs::create_directories(r / "dati/Tessarc32/prog");
  fs::create_directories(r / "dati/Demo");
  fs::create_directories(r / "prog");
  ScriviFile(r / "dati/Demo/Cont32.Mdb", "");
  struct Caso {
    const char *programma, *tessarc, *atteso;
  };
  const Caso casi[] = {
      {"dati/Tessarc32/prog", "cont32.mdb", "dati/Demo/Cont32.Mdb"},
      {"dati/Tessarc32", "altro.mdb", "dati/Demo/altro.mdb"},
      {"prog", "Cont32.mdb", "prog/Demo/Cont32.mdb"},
      {"prog", "Vecchia\\Cont32.mdb", "prog/Vecchia/Cont32.mdb"},
      {"prog", "..\\fuori/Cont32.mdb", "fuori/Cont32.mdb"},
      {"prog", "/srv/dati/Cont32.mdb", "/srv/dati/Cont32.mdb"},
  };
  for (const Caso& caso : casi) {
    ScriviFile(r / caso.programma / "Demo.ini",
               std::string("[Archivi]\r\nTessarc=") + caso.tessarc + "\r\nSCADENZARIO=S.mdb\r\n");
    const auto percorsi = Ditte(r / caso.programma).Percorsi("demo");
    ASSERT_TRUE(percorsi) << percorsi.Errore().messaggio;
    EXPECT_EQ(percorsi.Valore().tessarc, r / caso.atteso);
  }
  const Ditte ditte(r / "prog");
  const std::pair<const char*, const char*> errate[] = {
      {"[config]\na=1\n", "[Archivi]"},
      {"[Archivi]\nTessarc=Cont32.mdb\n", "Scadenzario"},
      {"[Archivi]\nTessarc= \nScadenzario=Scad32.mdb\n", "Tessarc"}};
  for (const auto& [testo, manca] : errate) {
    ScriviFile(r / "prog/Demo.ini", testo);
    const auto percorsi = ditte.Percorsi("Demo");
    ASSERT_FALSE(percorsi);
    EXPECT_NE(percorsi.Errore().messaggio.find(manca), std::string::npos);
    EXPECT_NE(percorsi.Errore().messaggio.find("Demo.ini"), std::string::npos);
  }
  EXPECT_FALSE(ditte.Percorsi("Nessuna"));
}

}  // namespace
}  // namespace fenalto
