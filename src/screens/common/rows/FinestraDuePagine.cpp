#include "screens/common/rows/FinestraDuePagine.h"

#include <utility>

#include "screens/common/rows/PaginaConRighe.h"

namespace fenalto::screens {

void FinestraDuePagine::Disponi(QWidget* scelta, const QString& titoloScelta,
                                PaginaConRighe* registrazione) {
  pagina_ = registrazione;
  FinestraSceltaERecord::Disponi(scelta, titoloScelta, registrazione);
  TitoloRegistrazione(QString());
  connect(registrazione, &PaginaConRighe::Confermata, this, &FinestraDuePagine::TornaAllaScelta);
  connect(registrazione, &PaginaConRighe::Eliminata, this, [this] { TornaAllaScelta(0); });
  connect(registrazione, &PaginaConRighe::AbbandonoChiesto, this, [this] { Lascia(); });
}

void FinestraDuePagine::TogliPagine() {
  FinestraSceltaERecord::TogliPagine();
  pagina_ = nullptr;
}

void FinestraDuePagine::TitoloRegistrazione(const QString& titolo) {
  TitoloRecord(titolo.isEmpty() ? tr("Registrazione") : titolo);
}

bool FinestraDuePagine::Aperta() const {
  return pagina_ != nullptr && pagina_->Aperta();
}

bool FinestraDuePagine::InModifica() const {
  return Aperta() && pagina_->Cambiata();
}

void FinestraDuePagine::EntraInRegistrazione() {
  GiraAlRecord();
  pagina_->Entra();
}

void FinestraDuePagine::TornaAllaScelta(std::int64_t numero) {
  Abbandona();
  DopoRegistrazione(numero);
}

void FinestraDuePagine::ApriRecord(const Rinvio& rinvio) {
  if (const auto numero = rinvio.Numero(); numero != 0) Apri(numero);
}

bool FinestraDuePagine::Invio(QWidget& campo) {
  return Aperta() && pagina_->Invio(campo);
}

bool FinestraDuePagine::Indietro() {
  return pagina_->AnnullaRiga() || FinestraSceltaERecord::Indietro();
}

void FinestraDuePagine::showEvent(QShowEvent* evento) {
  FinestraSceltaERecord::showEvent(evento);
  if (std::exchange(chiesto_, true)) return;
  // Once it stands there, and whoever opened it for a record has opened that.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (isVisible() && !Aperta()) Riprendi();
      },
      Qt::QueuedConnection);
}

void FinestraDuePagine::Aggiorna() {
  AggiornaScelta();
  if (Aperta() && pagina_->isVisible() && !InModifica()) pagina_->Mostra();
}

}  // namespace fenalto::screens
