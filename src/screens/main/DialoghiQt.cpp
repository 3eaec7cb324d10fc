#include "screens/main/DialoghiQt.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QUrl>

#include "print/DialogoUscita.h"
#include "screens/common/fields/Qs.h"
#include "screens/main/DialogoAccesso.h"
#include "screens/main/DialogoDitta.h"
#include "screens/main/FinestraPrincipale.h"

namespace fenalto::screens {
namespace {

constexpr int kAttesaProgresso = 500;  // ms before a progress box comes up

QMessageBox::Icon IconaQt(Icona icona) {
  switch (icona) {
    case Icona::Domanda:
      return QMessageBox::Question;
    case Icona::Avviso:
      return QMessageBox::Warning;
    case Icona::Errore:
      return QMessageBox::Critical;
    case Icona::Informazione:
      break;
  }
  return QMessageBox::Information;
}

QMessageBox::StandardButton BottoneQt(Risposta risposta) {
  switch (risposta) {
    case Risposta::Si:
      return QMessageBox::Yes;
    case Risposta::No:
      return QMessageBox::No;
    case Risposta::Ok:
      return QMessageBox::Ok;
    case Risposta::Annulla:
      break;
  }
  return QMessageBox::Cancel;
}

QMessageBox::StandardButtons BottoniQt(Bottoni bottoni) {
  switch (bottoni) {
    case Bottoni::SiNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Bottoni::OkAnnulla:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Bottoni::SiNoAnnulla:
      break;
  }
  return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
}

class ProgressoQt : public Avanzamento {
 public:
  ProgressoQt(const QString& testo, std::int64_t totale, QWidget* sopra)
      : riquadro_(testo, QCoreApplication::translate("Dialoghi", "&Annulla"), 0,
                  totale > 0 ? 1000 : 0, sopra),
        totale_(totale) {
    riquadro_.setWindowModality(Qt::ApplicationModal);
    riquadro_.setMinimumDuration(kAttesaProgresso);
    riquadro_.setAutoClose(false);
  }
  bool Avanza(std::int64_t fatto) override {
    // Thousandths, so that a count past 32 bits is shown too.
    riquadro_.setValue(totale_ > 0 ? static_cast<int>(fatto * 1000 / totale_) : 0);
    // Until the box stands before them, the windows could be closed under the work that uses them.
    QApplication::processEvents(riquadro_.isVisible() ? QEventLoop::AllEvents
                                                      : QEventLoop::ExcludeUserInputEvents);
    return !riquadro_.wasCanceled();
  }

 private:
  QProgressDialog riquadro_;
  std::int64_t totale_;
};

/// The file and the kind of spreadsheet that a grid is written to.
std::optional<SceltaUscita> ScegliFoglio(const QString& titolo, QWidget* sopra) {
  const auto chiave = QLatin1String("esporta/cartella");
  QFileDialog dialogo(sopra, QCoreApplication::translate("Dialoghi", "Esporta: %1").arg(titolo),
                      QSettings().value(chiave).toString());
  dialogo.setAcceptMode(QFileDialog::AcceptSave);
  dialogo.setNameFilters(
      {QStringLiteral("Foglio di calcolo (*.xlsx)"), QStringLiteral("Testo csv (*.csv)")});
  dialogo.setDefaultSuffix(QStringLiteral("xlsx"));
  QObject::connect(&dialogo, &QFileDialog::filterSelected, &dialogo, [&](const QString& filtro) {
    dialogo.setDefaultSuffix(filtro.contains(QLatin1String("csv")) ? QStringLiteral("csv")
                                                                   : QStringLiteral("xlsx"));
  });
  dialogo.selectFile(print::NomeFile(titolo));
  if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty()) return std::nullopt;
  const QString file = dialogo.selectedFiles().first();
  QSettings().setValue(chiave, QFileInfo(file).absolutePath());
  SceltaUscita uscita;
  uscita.file = file.toStdString();
  uscita.destinazione = file.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive)
                            ? Destinazione::Csv
                            : Destinazione::Xlsx;
  return uscita;
}

}  // namespace

void DialoghiQt::Messaggio(const std::string& testo, Icona icona) {
  QMessageBox riquadro(IconaQt(icona), QStringLiteral("Fenalto"), Qs(testo), QMessageBox::Ok,
                       sopra_);
  riquadro.setTextFormat(Qt::PlainText);
  riquadro.exec();
}

void DialoghiQt::Annuncia(const std::string& testo) {
  const auto* principale = qobject_cast<FinestraPrincipale*>(sopra_);
  const auto aperte =
      principale != nullptr ? principale->FinestreAperte() : QList<FinestraFunzione*>();
  if (aperte.isEmpty() || !aperte.last()->isVisible()) return Messaggio(testo, Icona::Informazione);
  aperte.last()->Annuncia(Qs(testo));
}

Risposta DialoghiQt::Domanda(const std::string& testo, Bottoni bottoni, Risposta predefinita,
                             const std::string& titolo, Icona icona) {
  QMessageBox riquadro(IconaQt(icona), titolo.empty() ? QStringLiteral("Fenalto") : Qs(titolo),
                       Qs(testo), BottoniQt(bottoni), sopra_);
  riquadro.setTextFormat(Qt::PlainText);
  riquadro.setDefaultButton(BottoneQt(predefinita));
  // Esc never means yes.
  riquadro.setEscapeButton(bottoni == Bottoni::SiNo ? QMessageBox::No : QMessageBox::Cancel);
  switch (riquadro.exec()) {
    case QMessageBox::Yes:
      return Risposta::Si;
    case QMessageBox::No:
      return Risposta::No;
    case QMessageBox::Ok:
      return Risposta::Ok;
    default:
      return Risposta::Annulla;
  }
}

std::optional<std::string> DialoghiQt::Chiedi(const std::string& testo,
                                              const std::string& iniziale) {
  bool accettato = false;
  const QString valore = QInputDialog::getText(sopra_, QStringLiteral("Fenalto"), Qs(testo),
                                               QLineEdit::Normal, Qs(iniziale), &accettato);
  if (!accettato) return std::nullopt;
  return valore.toStdString();
}

std::optional<SceltaUscita> DialoghiQt::ScegliUscita(const std::string& rapporto, bool esporta) {
  if (esporta) return ScegliFoglio(Qs(rapporto), sopra_);
  print::DialogoUscita dialogo(Qs(rapporto), sopra_);
  if (dialogo.exec() != QDialog::Accepted) return std::nullopt;
  return dialogo.Scelta();
}

std::optional<std::filesystem::path> DialoghiQt::ScegliFile(const std::string& titolo,
                                                            ModoFile modo,
                                                            const std::string& filtro) {
  QString scelto;
  switch (modo) {
    case ModoFile::Apri:
      scelto = QFileDialog::getOpenFileName(sopra_, Qs(titolo), QString(), Qs(filtro));
      break;
    case ModoFile::Salva:
      scelto = QFileDialog::getSaveFileName(sopra_, Qs(titolo), QString(), Qs(filtro));
      break;
    case ModoFile::Cartella:
      scelto = QFileDialog::getExistingDirectory(sopra_, Qs(titolo));
      break;
  }
  if (scelto.isEmpty()) return std::nullopt;
  return std::filesystem::path(scelto.toStdString());
}

std::optional<SceltaDitta> DialoghiQt::ScegliDitta(
    const std::vector<DittaTrovata>& ditte,
    const std::function<std::vector<int>(const std::string&, std::string&)>& anniDi) {
  DialogoDitta dialogo(ditte, anniDi, sopra_);
  if (dialogo.exec() != QDialog::Accepted) return std::nullopt;
  return dialogo.Scelta();
}

std::optional<Dialoghi::Credenziali> DialoghiQt::ChiediAccesso(const std::string& avviso) {
  DialogoAccesso dialogo(Qs(avviso), sopra_);
  if (dialogo.exec() != QDialog::Accepted) return std::nullopt;
  return dialogo.Dati();
}

std::unique_ptr<Avanzamento> DialoghiQt::Avvia(const std::string& testo, std::int64_t totale) {
  return std::make_unique<ProgressoQt>(Qs(testo), totale, sopra_);
}

bool DialoghiQt::ApriEsterno(const std::string& fileOIndirizzo) {
  const QString testo = Qs(fileOIndirizzo);
  const bool indirizzato =
      testo.contains(QLatin1String("://")) || testo.startsWith(QLatin1String("mailto:"));
  const QUrl indirizzo = indirizzato ? QUrl(testo) : QUrl::fromLocalFile(testo);
  return QDesktopServices::openUrl(indirizzo);
}

}  // namespace fenalto::screens
