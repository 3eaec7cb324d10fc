#include "screens/company/FinestraUtility.h"

#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/Misure.h"
#include "screens/company/PaginaCopie.h"
#include "screens/company/PaginaNuovaDitta.h"
#include "screens/company/PaginaUtilita.h"
#include "screens/company/PaginaVariazione.h"

namespace fenalto::screens {

FinestraUtility::FinestraUtility(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("Utility"), tr("Modifica impostazioni Ditta"), finestre),
      schede_(new QTabWidget(this)),
      // In the order of PaginaDitta::Scheda.
      pagine_{new PaginaNuovaDitta(finestre), new PaginaVariazione(finestre),
              new PaginaUtilita(finestre), new PaginaCopie(finestre)} {
  PreparaSchede(*schede_, QStringLiteral("SSTab1"));
  for (auto* pagina : pagine_) schede_->addTab(pagina, pagina->Titolo());
  MisuraDellaPagina(*schede_);
  auto* colonna = new QVBoxLayout(this);
  const int margine = Misura(Passo::Filo);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->addWidget(schede_);
  connect(schede_, &QTabWidget::currentChanged, this, &FinestraUtility::MostraPagina);
  MostraPagina();
}

void FinestraUtility::ApriScheda(int scheda) {
  for (auto* pagina : pagine_) {
    if (static_cast<int>(pagina->Quale()) != scheda) continue;
    schede_->setCurrentWidget(pagina);
    // The first field by Tab.
    for (QWidget* w = pagina->nextInFocusChain(); w != pagina; w = w->nextInFocusChain()) {
      auto* campo = qobject_cast<QLineEdit*>(w);
      if (campo == nullptr || !pagina->isAncestorOf(campo) || !campo->isEnabled() ||
          (campo->focusPolicy() & Qt::TabFocus) == 0) {
        continue;
      }
      campo->setFocus(Qt::OtherFocusReason);
      break;
    }
  }
}

PaginaDitta* FinestraUtility::InVista() const {
  return pagine_.at(static_cast<std::size_t>(schede_->currentIndex()));
}

QString FinestraUtility::NomePerGuida() const {
  return QStringLiteral("%1:%2").arg(Nome()).arg(static_cast<int>(InVista()->Quale()));
}

void FinestraUtility::MostraPagina() {
  setWindowTitle(InVista()->Titolo());
  if (!InVista()->InModifica()) InVista()->Aggiorna();
}

bool FinestraUtility::InModifica() const {
  return std::any_of(pagine_.begin(), pagine_.end(),
                     [](const PaginaDitta* pagina) { return pagina->InModifica(); });
}

void FinestraUtility::Abbandona() {
  for (auto* pagina : pagine_) pagina->Abbandona();
}

bool FinestraUtility::PremiConferma() {
  return Premi({InVista()->PulsanteConferma()});
}

void FinestraUtility::Aggiorna() {
  if (!InVista()->InModifica()) InVista()->Aggiorna();
}

}  // namespace fenalto::screens
