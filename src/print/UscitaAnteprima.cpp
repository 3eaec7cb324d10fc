#include "print/UscitaAnteprima.h"

namespace fenalto::print {

UscitaAnteprima::UscitaAnteprima(std::string titolo, Dialoghi& dialoghi, QWidget* sopra,
                                 std::function<void(const Rinvio&)> suRinvio)
    : titolo_(std::move(titolo)),
      dialoghi_(dialoghi),
      sopra_(sopra),
      suRinvio_(std::move(suRinvio)) {}

UscitaAnteprima::~UscitaAnteprima() {
  UscitaAnteprima::Annulla();
}

bool UscitaAnteprima::Aggiungi(reports::Pagina pagina) {
  if (finita_) return false;
  if (!finestra_) {
    finestra_ = new FinestraAnteprima(QString::fromStdString(titolo_), dialoghi_, sopra_);
    QObject::connect(finestra_, &FinestraAnteprima::RinvioScelto, finestra_,
                     [suRinvio = suRinvio_](const Rinvio& rinvio) {
                       if (suRinvio) suRinvio(rinvio);
                     });
  }
  return finestra_->Aggiungi(pagina);
}

Esito<bool> UscitaAnteprima::Fine() {
  if (!finita_ && !finestra_) Aggiungi(reports::Pagina{});
  if (finita_ || !finestra_ || finestra_->Annullata() || finestra_->Guasto()) {
    const auto guasto = finestra_ ? finestra_->Guasto() : std::nullopt;
    Annulla();
    if (guasto) return *guasto;
    return false;
  }
  finita_ = true;
  finestra_->Completa();
  return true;
}

void UscitaAnteprima::Annulla() {
  if (finita_) return;
  finita_ = true;
  delete finestra_;
}

}  // namespace fenalto::print
