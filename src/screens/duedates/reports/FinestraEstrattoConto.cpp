#include "screens/duedates/reports/FinestraEstrattoConto.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/reports/EstrattoConto.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/windows/InCorso.h"
#include "screens/duedates/reports/SceltaStampaParti.h"

namespace fenalto::screens {

struct FinestraEstrattoConto::Interno {
  Interno(FinestraEstrattoConto& finestraUsata, Finestre& gestoreUsato);
  QGroupBox* CreaLettera();
  void AccendiPagate();
  void Stampa();

  Finestre& gestore;
  duedates::EstrattoConto estratto;
  Scheda scheda;
  Legatura* legatura;
  SceltaStampaParti* parti = nullptr;
  OpzioniGrafiche* opzioni = nullptr;
  CampoData* pagateDal = nullptr;
  bool leggendo = false;  ///< a report is being made
};

FinestraEstrattoConto::Interno::Interno(FinestraEstrattoConto& finestraUsata,
                                        Finestre& gestoreUsato)
    : gestore(gestoreUsato),
      estratto(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      legatura(new Legatura([this]() -> Scheda& { return scheda; },
                            gestoreUsato.Sessione().Dialogo(), &finestraUsata)) {
  parti = new SceltaStampaParti(gestore, scheda, *legatura);
  auto* lettera = CreaLettera();
  opzioni = new OpzioniGrafiche(finestraUsata.Nome(), gestore.Sessione(), scheda, *legatura);
  scheda.Scrivi("AllaData", estratto.Proposta().alla);
  auto* bottone = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  connect(bottone, &QPushButton::clicked, &finestraUsata, [this] { Stampa(); });
  connect(legatura, &Legatura::Lasciato, &finestraUsata, [this] { AccendiPagate(); });
  AssegnaMnemoniche({bottone});
  auto* sotto = opzioni->Riga();
  sotto->addWidget(bottone);
  auto* colonna = new QVBoxLayout(&finestraUsata);
  colonna->addWidget(parti);
  colonna->addWidget(lettera);
  colonna->addLayout(sotto);
  colonna->addStretch(1);
  finestraUsata.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  legatura->Mostra();
  AccendiPagate();
}

QGroupBox* FinestraEstrattoConto::Interno::CreaLettera() {
  auto* riquadro = new QGroupBox(tr("Estratto conto"));
  auto* riga = new QHBoxLayout(riquadro);
  auto* alla = SceltaStampaParti::Data("AllaData", gestore, scheda, *legatura);
  alla->setToolTip(tr("le scadenze anteriori a questa data sono date per scadute"));
  pagateDal = SceltaStampaParti::Data("PagateDal", gestore, scheda, *legatura);
  pagateDal->setToolTip(tr("vuota: tutte le scadenze pagate"));
  riga->addWidget(Didascalia(tr("alla data del"), alla));
  riga->addWidget(alla);
  riga->addSpacing(16);
  riga->addWidget(Didascalia(tr("le pagate, dal"), pagateDal));
  riga->addWidget(pagateDal);
  riga->addStretch(1);
  return riquadro;
}

void FinestraEstrattoConto::Interno::AccendiPagate() {
  pagateDal->setEnabled(scheda.Leggi("AnchePagate").Booleano());
}

void FinestraEstrattoConto::Interno::Stampa() {
  if (leggendo || !legatura->Raccogli()) return;
  const InCorso lettura(leggendo);
  duedates::SceltaEstrattoConto scelta;
  scelta.scadenze = parti->Scelta();
  scelta.scadenze.pagateDal = scheda.Leggi("PagateDal").Data();
  scelta.alla = scheda.Leggi("AllaData").Data();
  scelta.stGrafico = opzioni->StGrafico();
  scelta.xTar = opzioni->XTar();
  estratto.Stampa(scelta);
}

FinestraEstrattoConto::FinestraEstrattoConto(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("STEstrattoConto"), tr("Stampa Estratto Conto"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
}

FinestraEstrattoConto::~FinestraEstrattoConto() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
