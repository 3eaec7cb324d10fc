// Fenalto's entry: options, data folders, session, main window.

#include <QCommandLineParser>
#include <QDir>
#include <QEventLoop>
#include <QStandardPaths>
#include <QSysInfo>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <exception>

#include "demo/CreaDemo.h"
#include "screens/main/Applicazione.h"
#include "screens/main/ApplicazioneQt.h"
#include "screens/main/DialoghiQt.h"

namespace {

/// Folder of what the program is shipped with: beside the installed binary, or the source tree's.
std::filesystem::path CartellaDati() {
  if (qEnvironmentVariableIsSet("FENALTO_DATI")) {
    return qEnvironmentVariable("FENALTO_DATI").toStdString();
  }
  const QDir installata(QApplication::applicationDirPath() + QStringLiteral("/../share/fenalto"));
  if (installata.exists(QStringLiteral("schema"))) return installata.canonicalPath().toStdString();
  return FENALTO_DATA;
}

std::filesystem::path CartellaProgramma(const QString& indicata) {
  if (!indicata.isEmpty()) return QDir(indicata).absolutePath().toStdString();
  const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return QDir(base + QStringLiteral("/fenalto")).absolutePath().toStdString();
}

}  // namespace

int main(int argc, char** argv) {
  fenalto::screens::ApplicazioneQt applicazione(argc, argv);
  QCommandLineParser opzioni;
  opzioni.setApplicationDescription(QStringLiteral("Fenalto: contabilità e gestione"));
  opzioni.addHelpOption();
  const QCommandLineOption cartella(QStringLiteral("folder"), QStringLiteral("cartella dei dati"),
                                    QStringLiteral("DIR"));
  const QCommandLineOption ditta(QStringLiteral("ditta"),
                                 QStringLiteral("apre questa ditta senza chiedere"),
                                 QStringLiteral("NOME"));
  const QCommandLineOption prepara(
      QStringLiteral("prepara-demo"),
      QStringLiteral("crea la ditta Demo se la cartella non ha ditte, e finisce"));
  const QCommandLineOption provaAvvio(
      QStringLiteral("prova-avvio"),
      QStringLiteral("finisce appena la finestra è pronta (per misurare l'avvio)"));
  opzioni.addOption(prepara);
  opzioni.addOption(provaAvvio);
  opzioni.addOption(cartella);
  opzioni.addOption(ditta);
  opzioni.process(applicazione);

  fenalto::OpzioniAmbiente ambiente;
  ambiente.cartellaProgramma = CartellaProgramma(opzioni.value(cartella));
  ambiente.cartellaDati = CartellaDati();
  ambiente.stazione = QSysInfo::machineHostName().toStdString();
  // A slowed log-in waits with its window alive.
  ambiente.attendi = [](std::chrono::milliseconds quanto) {
    QEventLoop attesa;
    QTimer::singleShot(quanto, &attesa, &QEventLoop::quit);
    attesa.exec(QEventLoop::ExcludeUserInputEvents);
  };
  fenalto::screens::Applicazione::Prepara(ambiente.cartellaDati);

  fenalto::screens::DialoghiQt dialoghi;
  applicazione.Dialogo(&dialoghi);
  fenalto::OrologioDiSistema orologio;
  fenalto::CasoDiSistema caso;
  try {
    if (auto demo = fenalto::demo::CreaDemoSeVuota(ambiente, orologio); !demo) {
      std::fprintf(stderr, "fenalto: %s\n", demo.Errore().messaggio.c_str());
      if (!opzioni.isSet(prepara)) {
        dialoghi.Messaggio(demo.Errore().messaggio, fenalto::Icona::Errore);
      }
      return 1;
    }
    if (opzioni.isSet(prepara)) return 0;
    fenalto::screens::Applicazione programma(ambiente, dialoghi, orologio, caso);
    dialoghi.Sopra(&programma.Principale());
    if (!programma.Avvia(opzioni.value(ditta).toStdString())) return 0;
    programma.Mostra();
    if (opzioni.isSet(provaAvvio)) {
      QTimer::singleShot(0, &applicazione, &QCoreApplication::quit);
    }
    return QApplication::exec();
  } catch (const std::exception& errore) {
    std::fprintf(stderr, "fenalto: %s\n", errore.what());
    dialoghi.Messaggio(std::string("Il programma deve chiudersi: ") + errore.what(),
                       fenalto::Icona::Errore);
    return 1;
  }
}
