#include "screens/duedates/FinestraConScadenza.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/duedates/RiquadroScadenza.h"

namespace fenalto::screens {
namespace {

enum Pagina { kScelta = 0, kScadenza = 1 };

}  // namespace

FinestraConScadenza::FinestraConScadenza(const QString& nome, const QString& titolo,
                                         duedates::ArchivioScadenze::Uso uso, Finestre& finestre)
    : FinestraFunzione(nome, titolo, finestre),
      titolo_(titolo),
      caso_(finestre.Sessione(), uso),
      schede_(new QTabWidget(this)),
      riquadro_(new RiquadroScadenza(caso_, finestre,
                                     uso == duedates::ArchivioScadenze::Uso::Documento)) {
  schede_->setObjectName(QStringLiteral("SSTab1"));
  schede_->setDocumentMode(true);
  auto* colonna = new QVBoxLayout(this);
  constexpr int kMargine = 4;
  colonna->setContentsMargins(kMargine, kMargine, kMargine, kMargine);
  colonna->addWidget(schede_);
}

void FinestraConScadenza::Disponi(QWidget* scelta, const QString& titoloScelta) {
  schede_->addTab(scelta, titoloScelta);
  schede_->addTab(riquadro_, QString());
  connect(schede_, &QTabWidget::currentChanged, this, &FinestraConScadenza::SchedaCambiata);
  connect(riquadro_, &RiquadroScadenza::Conclusa, this, [this] {
    Abbandona();
    RileggiScelta();
    FocoScelta();
  });
  connect(riquadro_, &RiquadroScadenza::Ripristinata, this, &FinestraConScadenza::RileggiScelta);
  connect(riquadro_, &RiquadroScadenza::AbbandonoChiesto, this, &FinestraConScadenza::Lascia);
  connect(riquadro_, &RiquadroScadenza::RegistrazioneChiesta, this,
          &FinestraConScadenza::VediRegistrazione);
  Abbandona();
}

void FinestraConScadenza::TogliPagine() {
  hide();
  girando_ = true;
  delete schede_;
  schede_ = nullptr;
  riquadro_ = nullptr;
}

bool FinestraConScadenza::InModifica() const {
  return caso_.Aperta() && !caso_.SolaLettura() &&
         (caso_.Modificata() || (riquadro_ != nullptr && riquadro_->Pendente()));
}

void FinestraConScadenza::Gira(int indice) {
  girando_ = true;
  schede_->setCurrentIndex(indice);
  girando_ = false;
}

void FinestraConScadenza::SchedaCambiata(int indice) {
  if (girando_ || indice != kScelta || !caso_.Aperta()) return;
  // The due date stays in sight while its question is answered.
  Gira(kScadenza);
  Lascia();
}

bool FinestraConScadenza::Lascia() {
  if (!caso_.Aperta()) return true;
  if (Gestore().ControlloUscita(*this)) return false;
  Abbandona();
  FocoScelta();
  return true;
}

void FinestraConScadenza::Abbandona() {
  // Out of sight first: nothing is to be read from its fields any more.
  Gira(kScelta);
  schede_->setTabEnabled(kScadenza, false);
  caso_.Abbandona();
  riquadro_->Mostra();
  MostraTitolo();
}

bool FinestraConScadenza::Indietro() {
  if (!caso_.Aperta()) return false;
  Lascia();
  return true;
}

void FinestraConScadenza::Aggiorna() {
  RileggiScelta();
}

void FinestraConScadenza::MostraTitolo() {
  const QString aperta = QString::fromStdString(caso_.Titolo());
  setWindowTitle(aperta.isEmpty() ? titolo_ : titolo_ + QStringLiteral(" - ") + aperta);
  schede_->setTabText(kScadenza, aperta.isEmpty() ? tr("Scadenza") : aperta);
}

void FinestraConScadenza::MostraAperta() {
  riquadro_->Mostra();
  MostraTitolo();
  schede_->setTabEnabled(kScadenza, true);
  Gira(kScadenza);
  riquadro_->DaiFoco();
}

bool FinestraConScadenza::ApriScadenza(std::int64_t numero) {
  if (!Lascia() || !caso_.Apri(numero)) return false;
  MostraAperta();
  return true;
}

void FinestraConScadenza::NuovaScadenza(const std::vector<Coppia>& valori) {
  if (!Lascia()) return;
  caso_.Inizia(valori);
  MostraAperta();
}

void FinestraConScadenza::VediRegistrazione() {
  const auto registrazione = caso_.VedereRegCont();
  if (!registrazione) return;
  Gestore().Segui(AlNumero(registrazione->iva ? "Fatture" : "Movimenti", registrazione->numero));
}

}  // namespace fenalto::screens
