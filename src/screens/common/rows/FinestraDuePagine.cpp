#include "screens/common/rows/FinestraDuePagine.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/common/rows/PaginaConRighe.h"

namespace fenalto::screens {
namespace {

enum Pagina { kScelta = 0, kRegistrazione = 1 };

}  // namespace

FinestraDuePagine::FinestraDuePagine(const QString& nome, const QString& titolo, Finestre& finestre)
    : FinestraFunzione(nome, titolo, finestre), schede_(new QTabWidget(this)) {
  schede_->setObjectName(QStringLiteral("SSTab1"));
  schede_->setDocumentMode(true);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(4, 4, 4, 4);
  colonna->addWidget(schede_);
}

void FinestraDuePagine::Disponi(QWidget* scelta, const QString& titoloScelta,
                                PaginaConRighe* registrazione) {
  pagina_ = registrazione;
  schede_->addTab(scelta, titoloScelta);
  schede_->addTab(registrazione, QString());
  TitoloRegistrazione(QString());
  schede_->setTabEnabled(kRegistrazione, false);
  connect(schede_, &QTabWidget::currentChanged, this, &FinestraDuePagine::SchedaCambiata);
  connect(registrazione, &PaginaConRighe::Confermata, this, &FinestraDuePagine::TornaAllaScelta);
  connect(registrazione, &PaginaConRighe::Eliminata, this, [this] { TornaAllaScelta(0); });
  connect(registrazione, &PaginaConRighe::AbbandonoChiesto, this, &FinestraDuePagine::Lascia);
}

void FinestraDuePagine::TogliPagine() {
  hide();
  girando_ = true;
  delete schede_;
  schede_ = nullptr;
  pagina_ = nullptr;
}

void FinestraDuePagine::TitoloRegistrazione(const QString& titolo) {
  // An ampersand in a record's name is no letter to press.
  schede_->setTabText(kRegistrazione,
                      titolo.isEmpty()
                          ? tr("Registrazione")
                          : QString(titolo).replace(QLatin1Char('&'), QStringLiteral("&&")));
}

bool FinestraDuePagine::Aperta() const {
  return pagina_ != nullptr && pagina_->Aperta();
}

bool FinestraDuePagine::InModifica() const {
  return Aperta() && pagina_->Cambiata();
}

void FinestraDuePagine::Gira(int indice) {
  girando_ = true;
  schede_->setCurrentIndex(indice);
  girando_ = false;
}

void FinestraDuePagine::SchedaCambiata(int indice) {
  if (girando_ || indice != kScelta || !Aperta()) return;
  // The record stays in sight while its question is answered.
  Gira(kRegistrazione);
  Lascia();
}

void FinestraDuePagine::EntraInRegistrazione() {
  schede_->setTabEnabled(kRegistrazione, true);
  Gira(kRegistrazione);
  pagina_->Entra();
}

void FinestraDuePagine::TornaAllaScelta(std::int64_t numero) {
  Abbandona();
  DopoRegistrazione(numero);
}

bool FinestraDuePagine::Lascia() {
  if (!Aperta()) return true;
  if (Gestore().ControlloUscita(*this)) return false;
  Abbandona();
  FocoScelta();
  return true;
}

void FinestraDuePagine::Abbandona() {
  Gira(kScelta);
  schede_->setTabEnabled(kRegistrazione, false);
  ChiudiRegistrazione();
}

void FinestraDuePagine::ApriRecord(const Rinvio& rinvio) {
  if (const auto numero = rinvio.Numero(); numero != 0) Apri(numero);
}

bool FinestraDuePagine::Invio(QWidget& campo) {
  return Aperta() && pagina_->Invio(campo);
}

bool FinestraDuePagine::Indietro() {
  if (pagina_->AnnullaRiga()) return true;
  if (!Aperta()) return IndietroDaScelta();
  Lascia();
  return true;
}

void FinestraDuePagine::Aggiorna() {
  AggiornaScelta();
  if (Aperta() && pagina_->isVisible() && !InModifica()) pagina_->Mostra();
}

}  // namespace fenalto::screens
