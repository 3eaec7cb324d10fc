// The runner as it is called: exit status, what it prints, folders.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

namespace fenalto::copione {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

struct Lancio {
  int stato = -1;
  std::string detto;
};

class EsecuzioneTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string modello = (fs::temp_directory_path() / "esecuzione-XXXXXX").string();
    ASSERT_NE(mkdtemp(modello.data()), nullptr);
    cartella = modello;
  }
  void TearDown() override { fs::remove_all(cartella); }

  void Scrivi(const std::string& nome, const std::string& testo) const {
    fs::create_directories((cartella / nome).parent_path());
    std::ofstream(cartella / nome, std::ios::binary) << testo;
  }
  [[nodiscard]] std::string Leggi(const std::string& nome) const {
    std::ifstream file(cartella / nome, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  /// Runs the runner in the folder with those words.
  [[nodiscard]] Lancio Corri(const std::string& parole) const {
    const std::string comando = "cd '" + cartella.string() + "' && TMPDIR='" + cartella.string() +
                                "' '" FENALTO_COPIONE "' " + parole + " 2>/dev/null";
    Lancio lancio;
    auto* flusso = popen(comando.c_str(), "r");
    std::array<char, 4096> pezzo{};
    while (const auto letti = std::fread(pezzo.data(), 1, pezzo.size(), flusso)) {
      lancio.detto.append(pezzo.data(), letti);
    }
    lancio.stato = WEXITSTATUS(pclose(flusso));
    return lancio;
  }
  /// Runs one copione of that text.
  [[nodiscard]] Lancio Copione(const std::string& testo, const std::string& opzioni = "") const {
    Scrivi("a.cop", testo);
    return Corri(opzioni + " a.cop");
  }

  fs::path cartella;
};

TEST_F(EsecuzioneTest, TuttoBeneNonDiceAltro) {
  Scrivi("a.cop", "finestra Principale\nvale Anno 2024\nvale Valuta EURO\n");
  Scrivi("b.cop", "\xEF\xBB\xBF# vuoto\r\n\r\n");
  const auto lancio = Corri("a.cop b.cop");
  EXPECT_EQ(lancio.stato, 0);
  EXPECT_EQ(lancio.detto, "2 passed, 0 failed\n");
  // Nothing stays of the folders worked in.
  for (const auto& voce : fs::directory_iterator(cartella)) {
    EXPECT_EQ(voce.path().extension(), ".cop") << voce.path();
  }
}

// A line that must fail, after one that holds, with what the reason must hold.
TEST_F(EsecuzioneTest, FallisceAllaRigaEConIlMotivo) {
  const struct {
    const char *riga, *motivo;
  } casi[] = {
      {"clic Pippo", "window Principale has: Aggiornamento, Anno, "},
      {"apri Pippo", "no menu entry"},
      {"apri TipiRiclassificazione", "disabled"},
      {"rifiuta Movimenti", "came up"},
      {"menu Pippo", "does not exist"},
      {"finestra Movimenti", "open are: Principale"},
      {"aperta Movimenti", "not open"},
      {"chiusa Principale", "is open"},
      {"titolo Pippo", "Prova"},
      {"vale Anno 2023", "shows \"2024\", not \"2023\""},
      {"attivo apreabutenti", "menu entry"},
      {"visibile ApreRitenuteAcconto", "hidden"},
      {"anno 1999", "2000, 2023, 2024, 2025"},
      {"ditta Pippo", "no company Pippo"},
      {"ditta Prova anno 2022", "no year 2022"},
      {"termina", "has not asked"},
      {"messaggio Pippo", "no dialog is left"},
      {"menu Informazioni\nnessunmessaggio", "dialogs not checked"},
      {"menu Informazioni\nmessaggio Pippo", "does not contain \"Pippo\""},
      {"clic ManualeContabilita", "no answer queued"},
      {"clic BarraArchivi", "`ditta`"},
      {"sql tessarc \"SELECT Anno FROM Anni WHERE Anno>2023 ORDER BY Anno\" = 2024",
       "expected \"2024\", found \"2024\" \"2025\""},
      {"sql tessarc \"SELECT 1 FROM Niente\" =", "Niente"},
      {"sql altrove \"SELECT 1\" =", "altrove"},
      {"esegui tessarc \"DELETE FROM Niente\"", "Niente"},
      {"impostazione DecQ 9", "not \"9\""},
      {"contiene niente.txt x", "no file"},
      {"noncontiene niente.txt x", "no file"},
      {"uguale c1.cop niente.txt", "no file"},
      {"contiene c1.cop \"non c\\\\'è\"", "does not contain"},
      {"foto c1.cop/b.png", "can't be written"},
  };
  std::string file;
  int numero = 0;
  for (const auto& caso : casi) {
    const std::string nome = "c" + std::to_string(++numero) + ".cop";
    Scrivi(nome, std::string("# prima\naperta Principale\n") + caso.riga + "\n");
    file += " " + nome;
  }
  const auto lancio = Corri(file);
  EXPECT_EQ(lancio.stato, 1);
  EXPECT_THAT(lancio.detto, EndsWith("\n0 passed, " + std::to_string(numero) + " failed\n"));
  numero = 0;
  for (const auto& caso : casi) {
    const std::string testo = caso.riga;
    const auto taglio = testo.rfind('\n');
    const std::string ultima = taglio == std::string::npos ? testo : testo.substr(taglio + 1);
    const std::string inizio = "c" + std::to_string(++numero) +
                               ".cop:" + (taglio == std::string::npos ? "3" : "4") + ": " +
                               ultima.substr(0, ultima.find(' ')) + ": ";
    const auto dove = lancio.detto.find(inizio);
    ASSERT_NE(dove, std::string::npos) << testo << "\n" << lancio.detto;
    const auto riga = lancio.detto.substr(dove, lancio.detto.find('\n', dove) - dove);
    EXPECT_THAT(riga, HasSubstr(caso.motivo));
  }
}

TEST_F(EsecuzioneTest, ContinuaDopoLeVerificheNonDopoLeAzioni) {
  const std::string testo = "vale Anno 1\nvale Anno 2\nclic Pippo\nvale Anno 3\n";
  const auto senza = Copione(testo);
  EXPECT_THAT(senza.detto, AllOf(HasSubstr("a.cop:1: vale"), Not(HasSubstr("a.cop:2:"))));
  const auto con = Copione(testo, "--continua");
  EXPECT_EQ(con.stato, 1);
  EXPECT_THAT(con.detto, AllOf(HasSubstr("a.cop:1: vale"), HasSubstr("a.cop:2: vale"),
                               HasSubstr("a.cop:3: clic"), Not(HasSubstr("a.cop:4:")),
                               EndsWith("0 passed, 1 failed\n")));
}

TEST_F(EsecuzioneTest, CiCheNonSiUsaFallisceAllaFine) {
  const auto lancio = Copione("rispondi si\nstampa pdf x.pdf\nfile y\nrispondi testo 1\n");
  EXPECT_EQ(lancio.stato, 1);
  EXPECT_EQ(lancio.detto,
            "a.cop:1: rispondi: the answer `si` was never used\n"
            "a.cop:4: rispondi: the answer `testo` was never used\n"
            "a.cop:2: stampa: the choice of output was never used\n"
            "a.cop:3: file: the choice of file was never used\n"
            "0 passed, 1 failed\n");
}

TEST_F(EsecuzioneTest, IlleggibileFermaTuttoPrimaDiCominciare) {
  Scrivi("a.cop", "foto prima.png\n");
  Scrivi("b.cop", "\npippo\n");
  const auto lancio = Corri("a.cop b.cop manca.cop");
  EXPECT_EQ(lancio.stato, 2);
  EXPECT_THAT(lancio.detto, AllOf(StartsWith("b.cop:2: pippo: unknown command\nmanca.cop:"),
                                  EndsWith("0 passed, 2 failed\n")));
  EXPECT_FALSE(fs::exists(cartella / "prima.png"));
  for (const auto* parole : {"", "--boh a.cop", "--cartella", "--continua"}) {
    EXPECT_EQ(Corri(parole).stato, 2) << parole;
  }
}

TEST_F(EsecuzioneTest, CartellaDataRestaEServeAncora) {
  Scrivi("scrive.cop", "imposta Prova1 \"un valore\"\nimpostazione PROVA1 \"un valore\"\n");
  Scrivi("legge.cop", "impostazione Prova1 \"un valore\"\n");
  Scrivi("pulita.cop", "impostazione Prova1 \"\"\n");
  EXPECT_EQ(Corri("--cartella dati scrive.cop legge.cop").detto, "2 passed, 0 failed\n");
  EXPECT_EQ(Corri("--cartella=dati legge.cop").detto, "1 passed, 0 failed\n");
  EXPECT_TRUE(fs::exists(cartella / "dati" / "Prova.ini"));
  // Without a folder each copione finds the model company as it was.
  EXPECT_EQ(Corri("scrive.cop pulita.cop").detto, "2 passed, 0 failed\n");
  fs::create_directories(cartella / "altro");
  Scrivi("altro/estraneo.txt", "x");
  const auto senza = Corri("--cartella altro pulita.cop");
  EXPECT_EQ(senza.stato, 1);
  EXPECT_THAT(senza.detto, HasSubstr("no company Prova"));
}

TEST_F(EsecuzioneTest, FileRelativiAllUscita) {
  Scrivi("via/mezzo.cop", "contiene testo.txt \"riga\\ndue\"\nnoncontiene testo.txt Riga\n");
  Scrivi("u/testo.txt", "una riga\r\ndue\n");
  Scrivi("u/latino.txt", "perch\xE9");
  Scrivi("u/copia.txt", "una riga\r\ndue\n");
  const auto lancio = Copione(
      "includi via/mezzo.cop\nuguale testo.txt copia.txt\ncontiene latino.txt perché\n"
      "foto foto/a.png\n",
      "--uscita u");
  EXPECT_EQ(lancio.detto, "1 passed, 0 failed\n");
  EXPECT_THAT(Leggi("u/foto/a.png"), StartsWith("\x89PNG"));
  Scrivi("u/copia.txt", "una riga\r\ndUe\n");
  EXPECT_THAT(Copione("uguale testo.txt copia.txt\n", "--uscita u").detto,
              HasSubstr("differ from byte 12"));
}

// Restart, users and log-in on one folder.
TEST_F(EsecuzioneTest, UtentiEAccesso) {
  const std::string crea =
      "apri Ut\nclic Nuovo\nscrivi Cod X1\nscrivi Descrizione \"Uno\"\nscrivi Livello 99\n"
      "scrivi Password segreta1\nscrivi Password2 segreta1\nclic Conferma\nignora\n";
  EXPECT_EQ(Copione(crea + "utente X1 segreta1\nfinestra Principale\nriavvia\nvale Anno 2024\n",
                    "--cartella dati")
                .detto,
            "1 passed, 0 failed\n");
  EXPECT_THAT(Copione("vale Anno 2024\n", "--cartella dati").detto,
              HasSubstr("a.cop:1: vale: the company Prova has users"));
  EXPECT_THAT(Copione("utente X1 sbagliata\n", "--cartella dati").detto,
              HasSubstr("a.cop:1: utente: "));
  EXPECT_EQ(Copione("utente X1 segreta1\napri Movimenti\nclic Nuovo\nclic PNuovaRiga\n"
                    "scrivi Causale 037\nditta Prova anno 2025\nchiusa Movimenti\nvale Anno 2025\n"
                    "riavvia\nvale Anno 2025\nnessunmessaggio\n",
                    "--cartella dati")
                .detto,
            "1 passed, 0 failed\n");
}

}  // namespace
}  // namespace fenalto::copione
