// A process killed at each step of making, renaming and deleting a company: the next start finds
// the old state or the new one, never a piece of either.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "admin/companies/CreazioneDitta.h"
#include "admin/companies/DitteDiProva.h"
#include "admin/companies/NomeDitta.h"
#include "core/session/CambioDitta.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

/// Answers as a user who wants it.
class Consente : public DialoghiFinti {
 public:
  Risposta Domanda(const std::string&, Bottoni, Risposta, const std::string&, Icona) override {
    return Risposta::Si;
  }
  std::optional<std::string> Chiedi(const std::string&, const std::string&) override {
    return "Rossi";
  }
};

class CambioDittaTest : public DitteTest {
 protected:
  /// Does the work in a process that is killed before its step `fino`; true when it was over
  /// before.
  bool UccisoAlPasso(int fino, const std::function<void(Ambiente&)>& lavoro) {
    const pid_t figlio = fork();
    if (figlio == 0) {
      Consente consente;
      Ambiente suo(Opzioni(), consente, orologio_, caso_);
      if (!suo.ApriDitta("Rossi")) _exit(2);
      int passo = 0;
      SuPassoDitta([&passo, fino] {
        if (++passo == fino) kill(getpid(), SIGKILL);
      });
      lavoro(suo);
      _exit(0);
    }
    int stato = 0;
    waitpid(figlio, &stato, 0);
    EXPECT_TRUE(WIFSIGNALED(stato) || WEXITSTATUS(stato) == 0);
    return WIFEXITED(stato);
  }
  /// The folder as it was, then the work killed at each step; after the next start `guarda` looks.
  void AdOgniPasso(const std::function<void(Ambiente&)>& lavoro,
                   const std::function<void(const std::string&)>& guarda, int almeno) {
    bool finito = false;
    int passo = 0;
    while (!finito) {
      for (const auto& voce : fs::directory_iterator(cartella_.Percorso())) {
        fs::remove_all(voce.path());
      }
      fs::copy(modello_->Percorso(), cartella_.Percorso(), fs::copy_options::recursive);
      fs::create_directory(Cartella("Neri"));
      ScriviFile(Cartella("Neri/nota.txt"), "mia");
      finito = UccisoAlPasso(++passo, lavoro);
      ambiente_.RiprendiLavori();
      guarda("passo " + std::to_string(passo));
      for (const std::string& nome : NomiSotto(cartella_.Percorso())) {
        EXPECT_FALSE(nome.starts_with(".") || nome.find("/.") != std::string::npos)
            << "passo " << passo << ": " << nome;
      }
      ambiente_.ChiudiDitta();
    }
    EXPECT_GE(passo, almeno);
  }
  std::set<std::string> Nomi() const {
    std::set<std::string> nomi;
    for (const auto& trovata : ambiente_.DitteTrovate()) nomi.insert(trovata.nome);
    return nomi;
  }
  void Intera(const std::string& nome, const Contenuti& righe, const std::string& dove) {
    const auto aperta = ambiente_.ApriDitta(nome);
    ASSERT_TRUE(aperta) << dove << ": " << aperta.Errore().messaggio;
    ambiente_.ChiudiDitta();
    EXPECT_EQ(ContenutiDi(Cartella(nome)), righe) << dove;
    EXPECT_TRUE(fs::is_directory(Cartella(nome) / "Documenti")) << dove;
  }
};

TEST_F(CambioDittaTest, Creazione) {
  const auto crea = [](Ambiente& suo) {
    admin::CreazioneDitta creazione(suo);
    creazione.Dati().Scrivi("Ditta", "Neri");
    creazione.Dati().Scrivi("CopiaDitta", false);
    if (!creazione.Conferma()) _exit(3);
  };
  const Contenuti rossi = ContenutiDi(Cartella("Rossi"));
  CreaDittaProva(Opzioni(), "Attesa", {{2026, true, false}});
  const Contenuti attesa = ContenutiDi(Cartella("Attesa"));
  int nuove = 0;
  AdOgniPasso(
      crea,
      [&](const std::string& dove) {
        Intera("Rossi", rossi, dove);
        if (!Nomi().contains("Neri")) {
          EXPECT_EQ(ambiente_.DittaPredefinita(), "Rossi") << dove;
          EXPECT_EQ(LeggiFile(Cartella("Neri/nota.txt")), "mia") << dove;
          return;
        }
        ++nuove;
        Intera("Neri", attesa, dove);
        EXPECT_EQ(ambiente_.DittaPredefinita(), "Neri") << dove;
        EXPECT_EQ(LeggiFile(Cartella("Cestino") / "2026-11-24 10.00 Neri/nota.txt"), "mia") << dove;
      },
      9);
  EXPECT_GE(nuove, 4);
}

TEST_F(CambioDittaTest, Rinomina) {
  const Contenuti righe = ContenutiDi(Cartella("Rossi"));
  AdOgniPasso([](Ambiente& suo) { admin::ModificaNome(suo, "Verdi"); },
              [&](const std::string& dove) {
                const auto nomi = Nomi();
                ASSERT_EQ(nomi.size(), 1U) << dove;
                Intera(*nomi.begin(), righe, dove);
                EXPECT_EQ(ambiente_.DittaPredefinita(), *nomi.begin()) << dove;
                EXPECT_EQ(fs::exists(Cartella("Rossi")), nomi.contains("Rossi")) << dove;
              },
              4);
}

TEST_F(CambioDittaTest, Eliminazione) {
  const Contenuti righe = ContenutiDi(Cartella("Rossi"));
  AdOgniPasso([](Ambiente& suo) { admin::EliminaDitta(suo); },
              [&](const std::string& dove) {
                const fs::path voce = Cartella("Cestino") / "2026-11-24 10.00 Rossi";
                if (Nomi().contains("Rossi")) {
                  Intera("Rossi", righe, dove);
                  EXPECT_FALSE(fs::exists(voce)) << dove;
                  return;
                }
                EXPECT_FALSE(fs::exists(Cartella("Rossi"))) << dove;
                EXPECT_EQ(ContenutiDi(voce / "Rossi"), righe) << dove;
                EXPECT_TRUE(fs::exists(voce / "Rossi.ini")) << dove;
              },
              5);
}

TEST_F(CambioDittaTest, UnaCartellaCheNonESoloSuaNonVaNelCestino) {
  ScriviFile(Cartella("Verdi.ini"),
             "[Archivi]\nTessarc=Dati/Cont32.mdb\nScadenzario=Dati/Scad32.mdb\n");
  ScriviFile(Cartella("Neri.ini"),
             "[Archivi]\nTessarc=Rossi/Cont32.mdb\nScadenzario=Rossi/Scad32.mdb\n");
  const auto prima = NomiSotto(cartella_.Percorso());
  const Ditte ditte(cartella_.Percorso());
  for (const auto& [nome, motivo] : {std::pair{"Verdi", "non ha il nome della ditta"},
                                     std::pair{"Rossi", "è anche della ditta «Neri»"}}) {
    const auto cestinata = CestinaDitta(ditte, nome, "2026-11-24 10.00");
    ASSERT_FALSE(cestinata) << nome;
    EXPECT_NE(cestinata.Errore().messaggio.find(motivo), std::string::npos)
        << cestinata.Errore().messaggio;
  }
  // Nor does it get another name: its own settings do.
  ASSERT_TRUE(RinominaFileDitta(ditte, "Neri", "Gialli"));
  EXPECT_TRUE(fs::exists(Cartella("Rossi/Cont32.mdb")));
  fs::rename(Cartella("Gialli.ini"), Cartella("Neri.ini"));
  EXPECT_EQ(NomiSotto(cartella_.Percorso()), prima);
}

TEST_F(CambioDittaTest, UnLavoroDiUnAltraStazioneNonSiTocca) {
  const Ditte ditte(cartella_.Percorso());
  auto cantiere = CantiereDitta::Apri(ditte, "Gialli", true, "2026-11-24 10.00");
  ASSERT_TRUE(cantiere);
  const auto prima = NomiSotto(cartella_.Percorso());
  ambiente_.RiprendiLavori();
  EXPECT_EQ(NomiSotto(cartella_.Percorso()), prima);
  const auto seconda = CantiereDitta::Apri(ditte, "GIALLI", true, "2026-11-24 10.00");
  ASSERT_FALSE(seconda);
  EXPECT_NE(seconda.Errore().messaggio.find("errore su creaz.nuova directory :"),
            std::string::npos);
}

}  // namespace
}  // namespace fenalto::prova
