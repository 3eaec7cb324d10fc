#include "screens/main/DialoghiQt.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QUrl>

#include "screens/main/DialogoAccesso.h"
#include "screens/main/DialogoDitta.h"

namespace fenalto {
namespace {

constexpr int kAttesaProgresso = 500;  // ms before a progress box comes up

QString Qs(const std::string& testo) {
  return QString::fromStdString(testo);
}

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
    QApplication::processEvents();
    return !riquadro_.wasCanceled();
  }

 private:
  QProgressDialog riquadro_;
  std::int64_t totale_;
};

}  // namespace

void DialoghiQt::Messaggio(const std::string& testo, Icona icona) {
  QMessageBox riquadro(IconaQt(icona), QStringLiteral("Fenalto"), Qs(testo), QMessageBox::Ok,
                       sopra_);
  riquadro.setTextFormat(Qt::PlainText);
  riquadro.exec();
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
  const QString filtro = esporta ? QStringLiteral("Foglio di calcolo (*.xlsx);;Testo csv (*.csv)")
                                 : QStringLiteral("PDF (*.pdf);;Testo (*.txt)");
  QString scelto;
  const QString file =
      QFileDialog::getSaveFileName(sopra_, Qs(rapporto), Qs(rapporto), filtro, &scelto);
  if (file.isEmpty()) return std::nullopt;
  SceltaUscita uscita;
  uscita.file = file.toStdString();
  const QString fine = file.section(QLatin1Char('.'), -1).toLower();
  uscita.destinazione = fine == QLatin1String("xlsx")  ? Destinazione::Xlsx
                        : fine == QLatin1String("csv") ? Destinazione::Csv
                        : fine == QLatin1String("pdf") ? Destinazione::Pdf
                                                       : Destinazione::Testo;
  return uscita;
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
  const QUrl indirizzo =
      testo.contains(QLatin1String("://")) ? QUrl(testo) : QUrl::fromLocalFile(testo);
  return QDesktopServices::openUrl(indirizzo);
}

}  // namespace fenalto
