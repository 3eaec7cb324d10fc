#include "print/DialogoUscita.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace fenalto::print {
namespace {

constexpr int kLarghezza = 520;  // pixels

}  // namespace

QString NomeFile(const QString& titolo) {
  QString nome;
  for (const QChar lettera : titolo) {
    nome += lettera.isLetterOrNumber() || QStringLiteral(" -_.,()").contains(lettera)
                ? lettera
                : QLatin1Char('-');
  }
  nome = nome.simplified();
  // A name that begins with a point is hidden.
  while (nome.startsWith(QLatin1Char('.'))) nome.remove(0, 1);
  return nome.isEmpty() ? QStringLiteral("stampa") : nome;
}

DialogoUscita::DialogoUscita(const QString& rapporto, QWidget* sopra)
    : QDialog(sopra),
      rapporto_(rapporto),
      anteprima_(new QRadioButton(tr("&Anteprima sullo schermo"), this)),
      stampante_(new QRadioButton(tr("&Stampante"), this)),
      pdf_(new QRadioButton(tr("File &PDF"), this)),
      testo_(new QRadioButton(tr("File di &testo"), this)),
      file_(new QLineEdit(this)),
      rigaFile_(new QWidget(this)) {
  setObjectName(QStringLiteral("DialogoUscita"));
  setWindowTitle(tr("Stampa: %1").arg(rapporto));
  anteprima_->setObjectName(QStringLiteral("Anteprima"));
  stampante_->setObjectName(QStringLiteral("Stampante"));
  pdf_->setObjectName(QStringLiteral("Pdf"));
  testo_->setObjectName(QStringLiteral("Testo"));
  file_->setObjectName(QStringLiteral("File"));
  stampante_->setToolTip(tr("La stampante, le copie e le pagine si scelgono dopo"));
  testo_->setToolTip(tr("Righe di testo senza formato grafico"));
  auto* pila = new QVBoxLayout(this);
  for (auto* uno : {anteprima_, stampante_, pdf_, testo_}) pila->addWidget(uno);
  auto* sfoglia = new QPushButton(tr("S&foglia..."), rigaFile_);
  sfoglia->setObjectName(QStringLiteral("Sfoglia"));
  sfoglia->setAutoDefault(false);
  auto* etichetta = new QLabel(tr("F&ile"), rigaFile_);
  etichetta->setBuddy(file_);
  auto* riga = new QHBoxLayout(rigaFile_);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->addWidget(etichetta);
  riga->addWidget(file_, 1);
  riga->addWidget(sfoglia);
  pila->addWidget(rigaFile_);
  auto* pulsanti = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  pulsanti->button(QDialogButtonBox::Ok)->setText(tr("&OK"));
  pulsanti->button(QDialogButtonBox::Cancel)->setText(tr("A&nnulla"));
  pila->addWidget(pulsanti);
  setMinimumWidth(kLarghezza);
  connect(pulsanti, &QDialogButtonBox::accepted, this, &DialogoUscita::accept);
  connect(pulsanti, &QDialogButtonBox::rejected, this, &DialogoUscita::reject);
  connect(sfoglia, &QPushButton::clicked, this, &DialogoUscita::Sfoglia);
  for (auto* uno : {anteprima_, stampante_, pdf_, testo_}) {
    connect(uno, &QRadioButton::toggled, this, &DialogoUscita::CambiaDestinazione);
  }
  Rammenta();
}

QString DialogoUscita::Gruppo() const {
  return QStringLiteral("uscite/") + NomeFile(rapporto_);
}

void DialogoUscita::Rammenta() {
  QSettings memoria;
  memoria.beginGroup(Gruppo());
  QString cartella = memoria.value(QStringLiteral("cartella")).toString();
  if (cartella.isEmpty() || !QDir(cartella).exists()) {
    cartella = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  }
  file_->setText(QDir(cartella).filePath(NomeFile(rapporto_)));
  switch (static_cast<Destinazione>(memoria.value(QStringLiteral("destinazione"), 0).toInt())) {
    case Destinazione::Stampante:
      stampante_->setChecked(true);
      break;
    case Destinazione::Pdf:
      pdf_->setChecked(true);
      break;
    case Destinazione::Testo:
      testo_->setChecked(true);
      break;
    default:
      anteprima_->setChecked(true);
  }
  CambiaDestinazione();
}

void DialogoUscita::Ricorda() const {
  QSettings memoria;
  memoria.beginGroup(Gruppo());
  memoria.setValue(QStringLiteral("destinazione"), static_cast<int>(Indicata()));
  if (SuFile()) {
    memoria.setValue(QStringLiteral("cartella"), QFileInfo(Completato()).absolutePath());
  }
}

Destinazione DialogoUscita::Indicata() const {
  if (stampante_->isChecked()) return Destinazione::Stampante;
  if (pdf_->isChecked()) return Destinazione::Pdf;
  if (testo_->isChecked()) return Destinazione::Testo;
  return Destinazione::Anteprima;
}

bool DialogoUscita::SuFile() const {
  return pdf_->isChecked() || testo_->isChecked();
}

void DialogoUscita::CambiaDestinazione() {
  rigaFile_->setEnabled(SuFile());
  if (SuFile() && !file_->text().isEmpty()) file_->setText(Completato());
}

QString DialogoUscita::Completato() const {
  const QString fine = pdf_->isChecked() ? QStringLiteral(".pdf") : QStringLiteral(".txt");
  QString file = file_->text().trimmed();
  for (const auto* nota : {".pdf", ".txt"}) {
    if (file.endsWith(QLatin1String(nota), Qt::CaseInsensitive)) file.chop(4);
  }
  return file + fine;
}

void DialogoUscita::Sfoglia() {
  const QString filtro = pdf_->isChecked() ? tr("PDF (*.pdf)") : tr("Testo (*.txt)");
  const QString file = QFileDialog::getSaveFileName(this, windowTitle(), Completato(), filtro);
  if (file.isEmpty()) return;
  file_->setText(file);
  file_->setText(Completato());
  // The file dialog has asked about the name it was given, not about one completed here.
  confermato_ = file_->text() == file ? file : QString();
}

SceltaUscita DialogoUscita::Scelta() const {
  SceltaUscita scelta;
  scelta.destinazione = Indicata();
  if (SuFile()) scelta.file = Completato().toStdString();
  return scelta;
}

void DialogoUscita::accept() {
  if (SuFile()) {
    if (file_->text().trimmed().isEmpty()) {
      QMessageBox::warning(this, windowTitle(), tr("Indicare il file su cui scrivere."));
      file_->setFocus();
      return;
    }
    const QString file = Completato();
    file_->setText(file);
    if (file != confermato_ && QFileInfo::exists(file) &&
        QMessageBox::question(
            this, windowTitle(), tr("Il file %1 esiste già.\nSi vuole sostituirlo ?").arg(file),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes) {
      file_->setFocus();
      return;
    }
  }
  Ricorda();
  QDialog::accept();
}

}  // namespace fenalto::print
