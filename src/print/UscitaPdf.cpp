#include "print/UscitaPdf.h"

namespace fenalto::print {
namespace {

/// Dots an inch that make the device's unit the page's own, a hundredth of a millimetre.
constexpr int kPuntiPollice = 2540;

}  // namespace

UscitaPdf::UscitaPdf(std::filesystem::path file, AvanzaPagine avanza)
    : UscitaDipinta(std::move(avanza)),
      percorso_(std::move(file)),
      file_(QString::fromStdString(percorso_.string())) {}

UscitaPdf::~UscitaPdf() {
  // The painter looks at its device when it ends.
  UscitaPdf::Annulla();
}

std::string UscitaPdf::Rifiuto() const {
  return "Non si può scrivere il file " + percorso_.string() + ": " +
         file_.errorString().toStdString() +
         ".\nControllare la cartella, i permessi e lo spazio sul disco, o scegliere un altro file.";
}

Esito<bool> UscitaPdf::Apri() {
  // A device or a folder must not be replaced by a file of its name.
  std::error_code ignoto;
  if (std::filesystem::exists(percorso_, ignoto) &&
      !std::filesystem::is_regular_file(percorso_, ignoto)) {
    return Errore{"Non si può scrivere su " + percorso_.string() +
                  ": non è un file. Scegliere un altro nome."};
  }
  if (!file_.open(QIODevice::WriteOnly)) return Errore{Rifiuto()};
  scrittore_ = std::make_unique<QPdfWriter>(&file_);
  scrittore_->setResolution(kPuntiPollice);
  scrittore_->setTitle(QString::fromStdString(TitoloDato()));
  scrittore_->setCreator(QStringLiteral("Fenalto"));
  return true;
}

std::string UscitaPdf::Guasto() {
  return file_.error() == QFileDevice::NoError ? std::string() : Rifiuto();
}

Esito<bool> UscitaPdf::Chiudi() {
  scrittore_.reset();
  if (file_.error() == QFileDevice::NoError && file_.commit()) return true;
  const Errore errore{Rifiuto()};
  file_.cancelWriting();
  return errore;
}

void UscitaPdf::Abbandona() {
  scrittore_.reset();
  if (!file_.isOpen()) return;
  // Without a name the file goes with its object: a commit after this only cleans up.
  file_.cancelWriting();
  file_.commit();
}

}  // namespace fenalto::print
