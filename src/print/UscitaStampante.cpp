#include "print/UscitaStampante.h"

#include <QFile>
#include <QPrintDialog>
#include <QSettings>
#include <algorithm>

namespace fenalto::print {
namespace {

constexpr int kPuntiStampante = 600;
const auto kUltima = QLatin1String("stampa/stampante");

}  // namespace

std::unique_ptr<QPrinter> ScegliStampante(QWidget* sopra, int pagine) {
  auto stampante = std::make_unique<QPrinter>(QPrinter::HighResolution);
  if (const QString ultima = QSettings().value(kUltima).toString(); !ultima.isEmpty()) {
    stampante->setPrinterName(ultima);
  }
  QPrintDialog dialogo(stampante.get(), sopra);
  dialogo.setWindowTitle(QObject::tr("Stampa"));
  dialogo.setOption(QAbstractPrintDialog::PrintPageRange);
  if (pagine > 0) dialogo.setMinMax(1, pagine);
  if (dialogo.exec() != QDialog::Accepted) return nullptr;
  QSettings().setValue(kUltima, stampante->printerName());
  return stampante;
}

UscitaStampante::UscitaStampante(Scelta scelta, AvanzaPagine avanza)
    : UscitaDipinta(std::move(avanza)), scelta_(std::move(scelta)) {}

UscitaStampante::~UscitaStampante() {
  UscitaStampante::Annulla();
}

Esito<bool> UscitaStampante::Apri() {
  stampante_ = scelta_();
  if (!stampante_) return false;
  stampante_->setFullPage(true);
  stampante_->setResolution(kPuntiStampante);
  stampante_->setDocName(QString::fromStdString(TitoloDato()));
  stampante_->setCreator(QStringLiteral("Fenalto"));
  return true;
}

std::string UscitaStampante::Guasto() {
  if (!stampante_ || stampante_->printerState() != QPrinter::Error) return {};
  return "La stampante \"" + stampante_->printerName().toStdString() +
         "\" non accetta la stampa: controllare che sia accesa e collegata, e riprovare.";
}

Esito<bool> UscitaStampante::Chiudi() {
  std::string guasto = Guasto();
  stampante_.reset();
  if (!guasto.empty()) return Errore{std::move(guasto)};
  return true;
}

void UscitaStampante::Abbandona() {
  if (!stampante_) return;
  stampante_->abort();
  const QString file = stampante_->outputFileName();
  stampante_.reset();
  if (!file.isEmpty()) QFile::remove(file);
}

bool UscitaStampante::Richiesta(int pagina) const {
  if (!stampante_ || stampante_->printRange() != QPrinter::PageRange) return true;
  const int ultima = stampante_->toPage() > 0 ? stampante_->toPage() : pagina;
  return pagina >= std::max(1, stampante_->fromPage()) && pagina <= ultima;
}

}  // namespace fenalto::print
