#include "screens/duedates/reports/FinestraTestSaldi.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/reports/TestSaldi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/windows/InCorso.h"
#include "screens/duedates/reports/SceltaStampaParti.h"

namespace fenalto::screens {

struct FinestraTestSaldi::Interno {
  Interno(FinestraTestSaldi& finestraUsata, Finestre& gestoreUsato);
  void Stampa();

  duedates::TestSaldi test;
  Scheda scheda;
  Legatura* legatura;
  SceltaStampaParti* parti;
  bool leggendo = false;  ///< a report is being made
};

FinestraTestSaldi::Interno::Interno(FinestraTestSaldi& finestraUsata, Finestre& gestoreUsato)
    : test(gestoreUsato.Sessione(), gestoreUsato.Uscite()),
      legatura(new Legatura([this]() -> Scheda& { return scheda; },
                            gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      parti(
          new SceltaStampaParti(gestoreUsato, scheda, *legatura, SceltaStampaParti::Cosa::Parti)) {
  auto* cosa = new QLabel(
      tr("Elenca chi ha un saldo contabile dell'anno diverso da quanto gli resta aperto nello "
         "scadenzario."));
  cosa->setWordWrap(true);
  auto* bottone = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  connect(bottone, &QPushButton::clicked, &finestraUsata, [this] { Stampa(); });
  AssegnaMnemoniche({bottone});
  auto* sotto = new QHBoxLayout;
  sotto->addStretch(1);
  sotto->addWidget(bottone);
  auto* colonna = new QVBoxLayout(&finestraUsata);
  colonna->addWidget(cosa);
  colonna->addWidget(parti);
  colonna->addLayout(sotto);
  colonna->addStretch(1);
  finestraUsata.setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
  finestraUsata.setWindowTitle(QString::fromStdString(test.Titolo()));
  legatura->Mostra();
}

void FinestraTestSaldi::Interno::Stampa() {
  if (leggendo || !legatura->Raccogli()) return;
  const InCorso lettura(leggendo);
  const duedates::SceltaScadenze scelta = parti->Scelta();
  test.Stampa({scelta.cfp, scelta.daCliFor, scelta.aCliFor});
}

FinestraTestSaldi::FinestraTestSaldi(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("TestSaldi"),
                       tr("Controllo saldi contabili con scadenze in vita"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
}

FinestraTestSaldi::~FinestraTestSaldi() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
