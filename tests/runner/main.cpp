// fenalto-copione [--cartella DIR] [--uscita DIR] [--continua] FILE.cop ...
//
// FENALTO_FINESTRA=1366x768 gives the main window that size, FENALTO_TONO=scuro a dark palette.
//
// Exit status: 0 all held, 1 a check or an action failed, 2 a copione (or the call) can't be read.
#include <QApplication>
#include <QSettings>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "core/session/Utenti.h"
#include "runner/Cartelle.h"
#include "runner/Esecutore.h"
#include "screens/main/Applicazione.h"

namespace fenalto::copione {
namespace {

struct Chiamata {
  std::filesystem::path cartella;
  std::filesystem::path uscita = std::filesystem::current_path();
  bool continua = false;
  std::vector<std::string> file;
};

/// Value of an option written `--nome VALUE` or `--nome=VALUE`; moves `i` past it.
std::optional<std::string> Opzione(const std::string& nome, const std::vector<std::string>& parole,
                                   std::size_t& i) {
  const auto& parola = parole[i];
  if (parola.starts_with(nome + "=")) return parola.substr(nome.size() + 1);
  if (parola != nome || i + 1 >= parole.size()) return std::nullopt;
  return parole[++i];
}

std::optional<Chiamata> LeggiChiamata(const std::vector<std::string>& parole) {
  Chiamata chiamata;
  for (std::size_t i = 0; i < parole.size(); ++i) {
    if (auto cartella = Opzione("--cartella", parole, i)) {
      chiamata.cartella = std::filesystem::absolute(*cartella);
    } else if (auto uscita = Opzione("--uscita", parole, i)) {
      chiamata.uscita = std::filesystem::absolute(*uscita);
    } else if (parole[i] == "--continua") {
      chiamata.continua = true;
    } else if (parole[i].starts_with("--")) {
      return std::nullopt;
    } else {
      chiamata.file.push_back(parole[i]);
    }
  }
  if (chiamata.file.empty()) return std::nullopt;
  return chiamata;
}

std::filesystem::path CartellaDati() {
  const char* data = std::getenv("FENALTO_DATI");
  return data != nullptr && *data != '\0' ? std::filesystem::path(data)
                                          : std::filesystem::path(FENALTO_DATA);
}

/// Settings, scratch files and windows of the program stay in the private folder and off the
/// screen.
void Isola(const std::filesystem::path& privata) {
  for (const auto* nome : {"impostazioni", "temp", "esecuzione"}) {
    std::filesystem::create_directories(privata / nome);
  }
  std::filesystem::permissions(privata / "esecuzione", std::filesystem::perms::owner_all);
  setenv("XDG_CONFIG_HOME", (privata / "impostazioni").c_str(), 1);
  setenv("XDG_RUNTIME_DIR", (privata / "esecuzione").c_str(), 1);
  setenv("TMPDIR", (privata / "temp").c_str(), 1);
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
}

/// Keeps what a screen that doesn't exist can't do out of the output.
void AvvisoQt(QtMsgType, const QMessageLogContext&, const QString& testo) {
  if (testo.startsWith(QLatin1String("This plugin does not support"))) return;
  std::fprintf(stderr, "%s\n", testo.toLocal8Bit().constData());
}

/// The work of the process that one copione has for itself.
int Lavora(const Copione& copione, const OpzioniEsecuzione& opzioni,
           const std::filesystem::path& privata, Segnalibro& segno) {
  segno.Comincia(copione.file + ":1", "avvio", AdessoMs() + kLimite);
  Isola(privata);
  qInstallMessageHandler(AvvisoQt);
  int argc = 1;
  std::string nome = "fenalto-copione";
  char* argv[] = {nome.data(), nullptr};
  const QApplication applicazione(argc, argv);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString((privata / "impostazioni").string()));
  screens::Applicazione::Prepara(opzioni.ambiente.cartellaDati);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setCursorFlashTime(0);
  for (const auto effetto : {Qt::UI_AnimateMenu, Qt::UI_FadeMenu, Qt::UI_AnimateCombo,
                             Qt::UI_AnimateTooltip, Qt::UI_FadeTooltip, Qt::UI_AnimateToolBox}) {
    QApplication::setEffectEnabled(effetto, false);
  }
  Utenti::HashEconomico(true);
  return EseguiCopione(copione, opzioni, segno) ? 0 : 1;
}

void Riassumi(std::size_t riusciti, std::size_t falliti) {
  std::printf("%zu passed, %zu failed\n", riusciti, falliti);
  std::fflush(stdout);
}

/// Runs the copioni one after the other, each in its own process, and on its own copy of the model
/// company unless a folder was given.
int EseguiTutti(const Chiamata& chiamata, const std::vector<Copione>& copioni) {
  const CartellaProvvisoria provvisoria;
  OpzioniEsecuzione opzioni;
  opzioni.uscita = chiamata.uscita;
  opzioni.continua = chiamata.continua;
  opzioni.ambiente.cartellaDati = CartellaDati();
  opzioni.ambiente.stazione = "copione";
  opzioni.ambiente.copie = false;
  opzioni.ambiente.cartellaProgramma =
      chiamata.cartella.empty() ? provvisoria.Percorso() / "modello" : chiamata.cartella;
  std::filesystem::create_directories(opzioni.uscita);
  if (auto riempita = Riempi(opzioni.ambiente); !riempita) {
    std::printf("%s:1: avvio: %s\n", copioni.front().file.c_str(),
                riempita.Errore().messaggio.c_str());
    Riassumi(0, copioni.size());
    return 1;
  }
  const auto modello = opzioni.ambiente.cartellaProgramma;
  std::size_t riusciti = 0;
  for (std::size_t i = 0; i < copioni.size(); ++i) {
    const CartellaProvvisoria privata;
    if (chiamata.cartella.empty()) {
      // Nobody has the model company open: a plain copy of its files is whole.
      opzioni.ambiente.cartellaProgramma = privata.Percorso() / "programma";
      std::filesystem::copy(modello, opzioni.ambiente.cartellaProgramma,
                            std::filesystem::copy_options::recursive);
    }
    const int esito = LanciaSorvegliato(
        [&](Segnalibro& segno) { return Lavora(copioni[i], opzioni, privata.Percorso(), segno); });
    if (esito == 0) ++riusciti;
  }
  Riassumi(riusciti, copioni.size() - riusciti);
  return riusciti == copioni.size() ? 0 : 1;
}

int Corri(const std::vector<std::string>& parole) {
  const auto chiamata = LeggiChiamata(parole);
  if (!chiamata) {
    std::fputs("fenalto-copione [--cartella DIR] [--uscita DIR] [--continua] FILE.cop ...\n",
               stderr);
    return 2;
  }
  std::vector<Copione> copioni;
  std::size_t illeggibili = 0;
  for (const auto& file : chiamata->file) {
    auto letto = LeggiFile(file, chiamata->uscita);
    if (letto) {
      copioni.push_back({file, std::move(letto.Valore())});
      continue;
    }
    ++illeggibili;
    std::printf("%s\n", letto.Errore().testo.c_str());
  }
  if (illeggibili > 0) {
    Riassumi(0, illeggibili);
    return 2;
  }
  return EseguiTutti(*chiamata, copioni);
}

}  // namespace
}  // namespace fenalto::copione

int main(int argc, char** argv) {
  return fenalto::copione::Corri({argv + 1, argv + argc});
}
