#include "screens/ledger/FinestraMovimenti.h"

#include "screens/ledger/PaginaRegistrazione.h"
#include "screens/ledger/PaginaScelta.h"

namespace fenalto::screens {

FinestraMovimenti::FinestraMovimenti(Finestre& finestre)
    : FinestraDuePagine(QStringLiteral("Movimenti"),
                        tr("Inserimento Movimenti contabili non Iva - Primanota"), finestre),
      primanota_(finestre.Sessione()),
      scelta_(new PaginaScelta(finestre)),
      registrazione_(new PaginaRegistrazione(primanota_, finestre)) {
  Disponi(scelta_, tr("Scelta"), registrazione_);
  Collega();
  scelta_->FocoSelettore();
}

FinestraMovimenti::~FinestraMovimenti() {
  TogliPagine();
}

void FinestraMovimenti::Collega() {
  connect(scelta_, &PaginaScelta::ApriChiesto, this, &FinestraMovimenti::Apri);
  connect(scelta_, &PaginaScelta::NuovoChiesto, this, &FinestraMovimenti::Nuovo);
  connect(scelta_, &PaginaScelta::ModelliChiesti, this,
          [this] { scelta_->MostraModelli(primanota_.Modelli()); });
  connect(scelta_, &PaginaScelta::ModelloScelto, this, &FinestraMovimenti::PrendiModello);
  connect(scelta_, &PaginaScelta::ChiusureChieste, this, &FinestraMovimenti::ApriChiusure);
}

void FinestraMovimenti::DopoRegistrazione(std::int64_t numero) {
  scelta_->ChiudiModelli();
  scelta_->Seleziona(numero);
  scelta_->Aggiorna();
  scelta_->FocoNuovo();
}

void FinestraMovimenti::MostraRegistrazione() {
  TitoloRegistrazione(
      primanota_.Nuova()
          ? tr("Nuova registrazione")
          : tr("Registrazione n. %1").arg(primanota_.Testa().Leggi("NumDoc").Intero()));
  EntraInRegistrazione();
}

void FinestraMovimenti::Apri(std::int64_t numero) {
  if (!Lascia()) return;
  if (primanota_.Apri(numero)) {
    scelta_->Seleziona(numero);
    MostraRegistrazione();
  } else {
    scelta_->FocoSelettore();
  }
}

bool FinestraMovimenti::Riprendi() {
  if (!primanota_.Riprendi()) return false;
  if (!primanota_.Nuova()) scelta_->Seleziona(primanota_.Testa().Leggi("NumDoc").Intero());
  MostraRegistrazione();
  return true;
}

void FinestraMovimenti::Nuovo() {
  if (!Lascia()) return;
  primanota_.Nuovo();
  MostraRegistrazione();
}

void FinestraMovimenti::Proponi(const ledger::PropostaRegistrazione& proposta) {
  if (!Lascia()) return;
  primanota_.Proponi(proposta);
  MostraRegistrazione();
}

void FinestraMovimenti::PrendiModello(std::int64_t articolo, int anno) {
  if (!primanota_.Nuova()) Nuovo();
  if (!primanota_.Nuova()) return;
  scelta_->ChiudiModelli();
  primanota_.Duplica(articolo, anno);
  MostraRegistrazione();
}

void FinestraMovimenti::ApriChiusure() {
  auto& altre = Gestore();  // this window is gone after it has closed
  auto* cornice = parentWidget();
  if (cornice != nullptr && cornice->close()) {
    altre.Segui({.funzione = "ChiusureAperture"});
  }
}

void FinestraMovimenti::ChiudiRecord() {
  TitoloRegistrazione(QString());
  primanota_.Abbandona();
}

bool FinestraMovimenti::IndietroDaScelta() {
  return scelta_->ChiudiModelli();
}

void FinestraMovimenti::FocoScelta() {
  scelta_->FocoSelettore();
}

void FinestraMovimenti::AggiornaScelta() {
  scelta_->Aggiorna();
}

}  // namespace fenalto::screens
