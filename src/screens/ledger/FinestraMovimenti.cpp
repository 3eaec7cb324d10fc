#include "screens/ledger/FinestraMovimenti.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/ledger/PaginaRegistrazione.h"
#include "screens/ledger/PaginaScelta.h"

namespace fenalto {
namespace {

enum Pagina { kScelta = 0, kRegistrazione = 1 };

}  // namespace

struct FinestraMovimenti::Interno {
  Interno(FinestraMovimenti& finestraUsata, Finestre& gestoreUsato);
  void Collega();
  [[nodiscard]] bool Aperta() const {
    return primanota.StatoCorrente() != Primanota::Stato::Inattiva;
  }
  /// Leaves the open record after its question; false when the user stays in it.
  bool Lascia();
  void Apri(std::int64_t numero);
  void Nuovo();
  void PrendiModello(std::int64_t articolo, int anno);
  void MostraRegistrazione();
  void TornaAllaScelta(std::int64_t numero);
  void SchedaCambiata(int indice);
  void Gira(int indice);
  void ApriChiusure();

  FinestraMovimenti& finestra;
  Finestre& gestore;
  Primanota primanota;
  QTabWidget* schede;
  PaginaScelta* scelta;
  PaginaRegistrazione* registrazione;
  bool girando = false;
};

FinestraMovimenti::Interno::Interno(FinestraMovimenti& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      primanota(gestoreUsato.Sessione()),
      schede(new QTabWidget(&finestraUsata)),
      scelta(new PaginaScelta(gestoreUsato)),
      registrazione(new PaginaRegistrazione(primanota, gestoreUsato)) {
  schede->setObjectName(QStringLiteral("SSTab1"));
  schede->setDocumentMode(true);
  schede->addTab(scelta, tr("Scelta"));
  schede->addTab(registrazione, tr("Registrazione"));
  schede->setTabEnabled(kRegistrazione, false);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->setContentsMargins(4, 4, 4, 4);
  colonna->addWidget(schede);
  Collega();
}

void FinestraMovimenti::Interno::Collega() {
  auto* f = &finestra;
  connect(schede, &QTabWidget::currentChanged, f, [this](int indice) { SchedaCambiata(indice); });
  connect(scelta, &PaginaScelta::ApriChiesto, f, [this](qint64 numero) { Apri(numero); });
  connect(scelta, &PaginaScelta::NuovoChiesto, f, [this] { Nuovo(); });
  connect(scelta, &PaginaScelta::ModelliChiesti, f,
          [this] { scelta->MostraModelli(primanota.Modelli()); });
  connect(scelta, &PaginaScelta::ModelloScelto, f,
          [this](qint64 articolo, int anno) { PrendiModello(articolo, anno); });
  connect(scelta, &PaginaScelta::ChiusureChieste, f, [this] { ApriChiusure(); });
  connect(registrazione, &PaginaRegistrazione::Confermata, f, [this](qint64 numero) {
    TornaAllaScelta(numero);
    scelta->FocoNuovo();
  });
  connect(registrazione, &PaginaRegistrazione::Eliminata, f, [this] {
    TornaAllaScelta(0);
    scelta->FocoNuovo();
  });
  connect(registrazione, &PaginaRegistrazione::AbbandonoChiesto, f, [this] { Lascia(); });
}

void FinestraMovimenti::Interno::Gira(int indice) {
  girando = true;
  schede->setCurrentIndex(indice);
  girando = false;
}

void FinestraMovimenti::Interno::SchedaCambiata(int indice) {
  if (girando || indice != kScelta || !Aperta()) return;
  // The record stays in sight while its question is answered.
  Gira(kRegistrazione);
  Lascia();
}

bool FinestraMovimenti::Interno::Lascia() {
  if (!Aperta()) return true;
  if (gestore.ControlloUscita(finestra)) return false;
  finestra.Abbandona();
  scelta->FocoSelettore();
  return true;
}

void FinestraMovimenti::Interno::TornaAllaScelta(std::int64_t numero) {
  finestra.Abbandona();
  scelta->ChiudiModelli();
  scelta->Seleziona(numero);
  scelta->Aggiorna();
}

void FinestraMovimenti::Interno::MostraRegistrazione() {
  schede->setTabEnabled(kRegistrazione, true);
  schede->setTabText(
      kRegistrazione,
      primanota.Nuova()
          ? tr("Nuova registrazione")
          : tr("Registrazione n. %1").arg(primanota.Testa().Leggi("NumDoc").Intero()));
  Gira(kRegistrazione);
  registrazione->Entra();
}

void FinestraMovimenti::Interno::Apri(std::int64_t numero) {
  if (!Lascia()) return;
  if (primanota.Apri(numero)) {
    scelta->Seleziona(numero);
    MostraRegistrazione();
  } else {
    scelta->FocoSelettore();
  }
}

void FinestraMovimenti::Interno::Nuovo() {
  if (!Lascia()) return;
  primanota.Nuovo();
  MostraRegistrazione();
}

void FinestraMovimenti::Interno::PrendiModello(std::int64_t articolo, int anno) {
  if (!primanota.Nuova()) Nuovo();
  if (!primanota.Nuova()) return;
  scelta->ChiudiModelli();
  primanota.Duplica(articolo, anno);
  MostraRegistrazione();
}

void FinestraMovimenti::Interno::ApriChiusure() {
  auto& altre = gestore;  // this window is gone after it has closed
  auto* cornice = finestra.parentWidget();
  if (cornice != nullptr && cornice->close()) {
    altre.ApriFunzione(QStringLiteral("ChiusureAperture"));
  }
}

FinestraMovimenti::FinestraMovimenti(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("Movimenti"),
                       tr("Inserimento Movimenti contabili non Iva - Primanota"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->scelta->FocoSelettore();
}

FinestraMovimenti::~FinestraMovimenti() {
  // The pages look at the use case: they go first, out of sight, so that nothing is read from them.
  hide();
  interno_->girando = true;
  delete interno_->schede;
}

bool FinestraMovimenti::InModifica() const {
  return interno_->Aperta() && !interno_->primanota.SolaLettura() &&
         (interno_->primanota.Modificata() || interno_->registrazione->Pendente());
}

void FinestraMovimenti::Abbandona() {
  interno_->Gira(kScelta);
  interno_->schede->setTabEnabled(kRegistrazione, false);
  interno_->schede->setTabText(kRegistrazione, tr("Registrazione"));
  interno_->primanota.Abbandona();
}

void FinestraMovimenti::ApriCodice(const QString& codice) {
  bool numero = false;
  const auto articolo = codice.toLongLong(&numero);
  if (numero) interno_->Apri(articolo);
}

bool FinestraMovimenti::Indietro() {
  if (interno_->registrazione->AnnullaRiga()) return true;
  if (interno_->Aperta()) {
    interno_->Lascia();
    return true;
  }
  return interno_->scelta->ChiudiModelli();
}

void FinestraMovimenti::Aggiorna() {
  interno_->scelta->Aggiorna();
  if (interno_->Aperta() && interno_->registrazione->isVisible() && !InModifica()) {
    interno_->registrazione->Mostra();
  }
}

}  // namespace fenalto
