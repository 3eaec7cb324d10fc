// The table of settings keys: names, the page of the guide made from it, and the sources that read
// and write keys.

#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <set>

#include "core/session/CartellaProva.h"
#include "core/session/Chiavi.h"
#include "core/session/FileIni.h"
#include "core/session/IndiceIni.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

const fs::path kRadice = fs::path(FENALTO_DATA).parent_path();

const char* Valori(GenereChiave genere) {
  switch (genere) {
    case GenereChiave::SiNo:
      return "Si, No";
    case GenereChiave::Uno:
      return "1, 0";
    case GenereChiave::VeroFalso:
      return "True, False";
    case GenereChiave::Numero:
      return "numero";
    case GenereChiave::Importo:
      return "numero con la virgola";
    case GenereChiave::Testo:
      return "testo";
    case GenereChiave::Conto:
      return "conto";
    case GenereChiave::Causale:
      return "causale";
    case GenereChiave::Registro:
      return "registro IVA";
    case GenereChiave::Percorso:
      return "percorso";
  }
  return "";
}

void AggiungiTavola(std::string& pagina, std::span<const ChiaveImpostazione> chiavi) {
  std::string gruppo;
  for (const auto& una : chiavi) {
    if (gruppo != una.gruppo) {
      gruppo = una.gruppo;
      pagina += "\n### " + gruppo +
                "\n\n| Chiave | Valori | Se manca | A che serve |\n|---|---|---|---|\n";
    }
    const std::string nome = una.nome;
    pagina += "| `" + nome + "`" + (una.perClasse ? ", `" + nome + "C`, `" + nome + "F`" : "") +
              " | " + Valori(una.genere) + " | " + una.vuota + " | " + una.uso + " |\n";
  }
}

std::string Pagina() {
  std::string pagina =
      "# Impostazioni\n\n"
      "Questa pagina è composta dalla tavola delle chiavi del programma "
      "(`src/core/session/ChiaviTavola.h`): si corregge quella.\n\n"
      "Le impostazioni stanno in file di testo, fatti di sezioni e di righe `chiave=valore`. Una "
      "chiave che manca vale come una chiave vuota, e ha il significato scritto nella colonna «Se "
      "manca». Ogni finestra legge le sue chiavi quando si apre; quelle che compila le scrive "
      "quando si lascia il campo. Molte si cambiano da *Impostazioni/Chiusure/Aperture > Modifica "
      "impostazioni Ditta*. I nomi non distinguono maiuscole e minuscole.\n\n"
      "## Ditta: file `<Ditta>.ini`, sezione `config`\n\n"
      "Le chiavi dei pagamenti hanno anche una versione per i clienti, che finisce per C, e una "
      "per "
      "i fornitori, che finisce per F. Nella colonna «Valori», `1` vuol dire sì, `0` o niente "
      "vuol dire no.\n";
  AggiungiTavola(pagina, ChiaviDitta());
  pagina +=
      "\n### Finestre di stampa\n\n"
      "Ogni finestra di stampa ricorda due scelte: la stampa in formato grafico (`1` o `0`), sotto "
      "il suo nome, e l'allineamento in millimetri, sotto il suo nome seguito da `_XTar`.\n\n";
  for (const auto finestra : FinestreTabulati()) {
    const std::string nome(finestra);
    pagina += "- `" + nome + "`, `" + nome + "_XTar`\n";
  }
  pagina += "\n## Postazione: file `Ini/Ini.ini`, sezione `impostazioni`\n";
  AggiungiTavola(pagina, ChiaviStazione());
  return pagina;
}

TEST(Chiavi, NomiDiversi) {
  std::set<std::string> nomi;
  for (const auto& una : ChiaviDitta()) {
    const std::string nome = SenzaMaiuscole(una.nome);
    EXPECT_TRUE(nomi.insert(nome).second) << una.nome;
    if (!una.perClasse) continue;
    EXPECT_TRUE(nomi.insert(nome + "c").second) << una.nome;
    EXPECT_TRUE(nomi.insert(nome + "f").second) << una.nome;
  }
  for (const auto finestra : FinestreTabulati())
    EXPECT_TRUE(nomi.insert(SenzaMaiuscole(finestra)).second) << finestra;
}

TEST(Chiavi, Dichiarate) {
  for (const char* chiave : {"ragsoc1 ", "decp", "CausalePagScad1", "CausalePagScad1C",
                             "RegistrazioneContabilePagScad4f", "StGiornale", "StGiornale_XTar"}) {
    EXPECT_TRUE(ChiaveDitta(chiave)) << chiave;
  }
  for (const char* chiave : {"", "ragsoc1", "DecPC", "CausalePagScad1X", "CausalePagScad5", "_XTar",
                             "Qualunque_XTar", "VerifFatForn"}) {
    EXPECT_FALSE(ChiaveDitta(chiave)) << chiave;
  }
  EXPECT_TRUE(ChiaveStazione("veriffatforn"));
  EXPECT_FALSE(ChiaveStazione("DecP"));
}

/// FENALTO_SCRIVI=1 renews the page.
TEST(Chiavi, PaginaDellaGuida) {
  const fs::path file = kRadice / "docs" / "impostazioni.md";
  const std::string pagina = Pagina();
  if (std::getenv("FENALTO_SCRIVI") != nullptr) ScriviFile(file, pagina);
  EXPECT_TRUE(fs::exists(file) && LeggiFile(file) == pagina)
      << file << " non è aggiornata: FENALTO_SCRIVI=1 "
      << "build/debug/tests/core/session/fenalto_session_test --gtest_filter=Chiavi.Pagina*";
}

/// What a source passes as a constant. Keys that are composed are found as they are used: in a
/// debug build Ambiente refuses those that aren't declared.
TEST(Chiavi, ISorgentiUsanoChiaviDichiarate) {
  const std::regex usi(R"re((?:\bConfig\(|"config",\s*)"([^"]*)")re");
  int trovate = 0;
  for (const auto& voce : fs::recursive_directory_iterator(kRadice / "src")) {
    if (voce.path().extension() != ".cpp") continue;
    const std::string testo = LeggiFile(voce.path());
    for (std::sregex_iterator uso(testo.begin(), testo.end(), usi), fine; uso != fine; ++uso) {
      ++trovate;
      EXPECT_TRUE(ChiaveDitta((*uso)[1].str())) << voce.path() << ": " << (*uso)[1].str();
    }
  }
  EXPECT_GT(trovate, 5);
}

TEST(IndiceIni, RispondeComeIlFile) {
  const char* testi[] = {
      "[config]\nragsoc1 =Rossi\nragsoc1=Bianchi\n",
      "[Config]\r\n  DecP=2\r\nDECP=3\r\n[altra]\n[CONFIG]\nb=3\n",
      "a=1\n[]\na=2\n[config]\nsenza uguale\n=senza chiave\n[ rotta\na=1\n[config]\na=9\nb=3",
      "\xEF\xBB\xBF[config]\nLocalit\xE0=Forl\xEC\nformula=a=b\n",
      "",
  };
  for (const char* testo : testi) {
    const FileIni file = FileIni::DaTesto(testo);
    const IndiceIni indice(file);
    for (const char* sezione : {"", "config", "CONFIG", "altra", "manca"}) {
      for (const char* chiave :
           {"", "a", "A", "b", " decp", "ragsoc1", "ragsoc1 ", "LOCALITÀ", "formula"}) {
        EXPECT_EQ(indice.Valore(sezione, chiave), file.Valore(sezione, chiave))
            << testo << " [" << sezione << "] " << chiave;
      }
    }
  }
}

}  // namespace
}  // namespace fenalto
