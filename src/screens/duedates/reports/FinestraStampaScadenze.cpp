#include "screens/duedates/reports/FinestraStampaScadenze.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/reports/StampaScadenze.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/windows/InCorso.h"
#include "screens/duedates/reports/SceltaStampaParti.h"

namespace fenalto::screens {

struct FinestraStampaScadenze::Interno {
  Interno(FinestraStampaScadenze& finestraUsata, duedates::OrdineScadenze ordineUsato,
          Finestre& gestoreUsato);
  [[nodiscard]] bool PerConto() const { return ordine == duedates::OrdineScadenze::PerConto; }
  [[nodiscard]] duedates::SceltaStampaScadenze Scelta() const;
  void Stampa();
  void Esporta();

  Finestre& gestore;
  duedates::OrdineScadenze ordine;
  duedates::StampaScadenze stampa;
  Scheda scheda;
  Legatura* legatura;
  SceltaStampaParti* parti = nullptr;
  OpzioniGrafiche* opzioni = nullptr;
  bool leggendo = false;  ///< a report or a sheet is being made
};

FinestraStampaScadenze::Interno::Interno(FinestraStampaScadenze& finestraUsata,
                                         duedates::OrdineScadenze ordineUsato,
                                         Finestre& gestoreUsato)
    : gestore(gestoreUsato),
      ordine(ordineUsato),
      stampa(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      legatura(new Legatura([this]() -> Scheda& { return scheda; },
                            gestoreUsato.Sessione().Dialogo(), &finestraUsata)) {
  parti = new SceltaStampaParti(gestore, scheda, *legatura);
  opzioni = new OpzioniGrafiche(finestraUsata.Nome(), gestore.Sessione(), scheda, *legatura);
  auto* mesi = new QCheckBox(PerConto() ? tr("totali di ogni mese in ciascun cliente/fornitore")
                                        : tr("totali di ogni mese"));
  mesi->setObjectName(QStringLiteral("TotaliMese"));
  scheda.Aggiungi("TotaliMese", Tipo::Booleano);
  scheda.Scrivi("TotaliMese", !PerConto());
  legatura->Lega(mesi);
  auto* bottone = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  auto* foglio = Pulsante(QStringLiteral("XlsEsp"), tr("Esporta in foglio"));
  connect(bottone, &QPushButton::clicked, &finestraUsata, [this] { Stampa(); });
  connect(foglio, &QPushButton::clicked, &finestraUsata, [this] { Esporta(); });
  AssegnaMnemoniche({bottone, foglio});
  auto* sotto = opzioni->Riga();
  sotto->addWidget(foglio);
  sotto->addWidget(bottone);
  auto* colonna = new QVBoxLayout(&finestraUsata);
  colonna->addWidget(parti);
  colonna->addWidget(mesi);
  colonna->addLayout(sotto);
  colonna->addStretch(1);
  finestraUsata.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  legatura->Mostra();
}

duedates::SceltaStampaScadenze FinestraStampaScadenze::Interno::Scelta() const {
  duedates::SceltaStampaScadenze scelta;
  scelta.scadenze = parti->Scelta();
  scelta.ordine = ordine;
  scelta.totaliMese = scheda.Leggi("TotaliMese").Booleano();
  scelta.stGrafico = opzioni->StGrafico();
  scelta.xTar = opzioni->XTar();
  return scelta;
}

void FinestraStampaScadenze::Interno::Stampa() {
  if (leggendo || !legatura->Raccogli()) return;
  const InCorso lettura(leggendo);
  stampa.Stampa(Scelta());
}

void FinestraStampaScadenze::Interno::Esporta() {
  if (leggendo || !legatura->Raccogli()) return;
  const InCorso lettura(leggendo);
  const reports::Foglio composto = stampa.FoglioScadenze(Scelta());
  if (composto.colonne.empty()) return;  // nothing found, or stopped by the user
  auto& dialoghi = gestore.Sessione().Dialogo();
  const auto uscita = dialoghi.ScegliUscita(
      PerConto() ? "scadenze per cliente/fornitore" : "scadenze per data", true);
  if (!uscita) return;
  ScriviFoglio(composto, *uscita, dialoghi);
}

FinestraStampaScadenze::FinestraStampaScadenze(duedates::OrdineScadenze ordine, Finestre& finestre)
    : FinestraFunzione(
          ordine == duedates::OrdineScadenze::PerConto ? QStringLiteral("STScadenzePerConto")
                                                       : QStringLiteral("STScadenzePerData"),
          ordine == duedates::OrdineScadenze::PerConto ? tr("Stampa scadenze per cliente/fornitore")
                                                       : tr("Stampa scadenze per data"),
          finestre) {
  interno_ = std::make_unique<Interno>(*this, ordine, finestre);
}

FinestraStampaScadenze::~FinestraStampaScadenze() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
