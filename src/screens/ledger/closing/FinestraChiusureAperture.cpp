#include "screens/ledger/closing/FinestraChiusureAperture.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/Misure.h"
#include "screens/ledger/closing/PaginaControlli.h"
#include "screens/ledger/closing/PaginaGiri.h"
#include "screens/ledger/closing/PaginaSituazioneAnno.h"
#include "screens/ledger/closing/PaginaTrasporto.h"

namespace fenalto::screens {

FinestraChiusureAperture::FinestraChiusureAperture(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("ChiusureAperture"),
                       tr("Operazioni automatiche di apertura e chiusura"), finestre),
      schede_(new QTabWidget),
      situazione_(new PaginaSituazioneAnno(finestre)),
      controlli_(new PaginaControlli(finestre)),
      trasporto_(new PaginaTrasporto(finestre)),
      giri_(new PaginaGiri(finestre)) {
  PreparaSchede(*schede_, QStringLiteral("SSTab1"));
  schede_->addTab(situazione_, tr("Situazione %1").arg(Sessione().Anno()));
  schede_->addTab(controlli_, tr("Controlli"));
  schede_->addTab(trasporto_, tr("Trasporto saldi"));
  schede_->addTab(giri_, tr("Giri e chiusura"));
  auto* colonna = new QVBoxLayout(this);
  const int margine = Misura(Passo::Filo);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->addWidget(schede_);
  connect(schede_, &QTabWidget::currentChanged, this, [this] { Rileggi(); });
  const auto fatto = [this] { Aggiorna(); };
  connect(trasporto_, &PaginaDiForma::Fatto, this, fatto);
  connect(giri_, &PaginaDiForma::Fatto, this, fatto);
  connect(situazione_, &PaginaSituazioneAnno::Annullata, this, fatto);
  Rileggi();
}

void FinestraChiusureAperture::Aggiorna() {
  situazioneLetta_ = false;
  controlliLetti_ = false;
  Rileggi();
}

void FinestraChiusureAperture::Rileggi() {
  const QWidget* inVista = schede_->currentWidget();
  if (inVista == situazione_ && !situazioneLetta_) {
    situazioneLetta_ = true;
    situazione_->Leggi();
  } else if (inVista == controlli_ && !controlliLetti_) {
    controlliLetti_ = true;
    controlli_->Leggi();
  }
}

FinestraChiusureAperture::~FinestraChiusureAperture() {
  hide();  // nothing is read from its fields any more
}

}  // namespace fenalto::screens
