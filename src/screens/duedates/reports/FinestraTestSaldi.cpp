#include "screens/duedates/reports/FinestraTestSaldi.h"

#include <QLabel>
#include <QVBoxLayout>

namespace fenalto::screens {

FinestraTestSaldi::FinestraTestSaldi(Finestre& finestre)
    : FinestraRapportoScadenze(QStringLiteral("TestSaldi"), {}, finestre),
      test_(finestre.Sessione(), finestre.Uscite()) {
  setWindowTitle(QString::fromStdString(test_.Titolo()));
  auto* cosa = new QLabel(
      tr("Elenca chi ha un saldo contabile dell'anno diverso da quanto gli resta aperto nello "
         "scadenzario."));
  cosa->setWordWrap(true);
  RifiutiDi(test_);
  Compila(FormaParti("Clienti o fornitori"), Piede::SoloStampa).insertWidget(0, cosa);
}

void FinestraTestSaldi::Stampa() {
  const duedates::SceltaScadenze scelta = Scadenze();
  test_.Stampa({scelta.cfp, scelta.daCliFor, scelta.aCliFor});
}

}  // namespace fenalto::screens
