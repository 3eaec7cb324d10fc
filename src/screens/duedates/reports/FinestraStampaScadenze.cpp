#include "screens/duedates/reports/FinestraStampaScadenze.h"

namespace fenalto::screens {
namespace {

using duedates::SceltaStampaScadenze;

constexpr records::CampoRiga<SceltaStampaScadenze> kStampa[] = {
    records::Campo<&SceltaStampaScadenze::totaliMese>("TotaliMese")};

bool PerConto(duedates::OrdineScadenze ordine) {
  return ordine == duedates::OrdineScadenze::PerConto;
}

}  // namespace

FinestraStampaScadenze::FinestraStampaScadenze(duedates::OrdineScadenze ordine, Finestre& finestre)
    : FinestraRapportoScadenze(PerConto(ordine) ? QStringLiteral("STScadenzePerConto")
                                                : QStringLiteral("STScadenzePerData"),
                               PerConto(ordine) ? tr("Stampa scadenze per cliente/fornitore")
                                                : tr("Stampa scadenze per data"),
                               finestre),
      ordine_(ordine),
      stampa_(finestre.Sessione(), finestre.Uscite()) {
  SceltaStampaScadenze proposta;
  proposta.totaliMese = !PerConto(ordine);
  Proponi(kStampa, proposta);
  auto forma = FormaScadenze();
  forma.campi.push_back(NelRiquadro(
      records::Digitato("TotaliMese", PerConto(ordine)
                                          ? "totali di ogni mese in ciascun cliente/fornitore"
                                          : "totali di ogni mese")
          .AlMargine()));
  RifiutiDi(stampa_);
  Compila(std::move(forma), Piede::OpzioniEFoglio);
}

SceltaStampaScadenze FinestraStampaScadenze::Digitata() const {
  SceltaStampaScadenze scelta = Scelta(kStampa);
  scelta.scadenze = Scadenze();
  scelta.ordine = ordine_;
  return scelta;
}

void FinestraStampaScadenze::Stampa() {
  stampa_.Stampa(Digitata());
}

reports::Foglio FinestraStampaScadenze::Foglio() {
  return stampa_.FoglioScadenze(Digitata());
}

std::string FinestraStampaScadenze::NomeFoglio() const {
  return PerConto(ordine_) ? "scadenze per cliente/fornitore" : "scadenze per data";
}

}  // namespace fenalto::screens
