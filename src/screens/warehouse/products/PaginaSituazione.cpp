#include "screens/warehouse/products/PaginaSituazione.h"

#include <QPushButton>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/windows/Attesa.h"
#include "screens/warehouse/products/PaginaEsistenza.h"
#include "screens/warehouse/products/PaginaInterrogazione.h"
#include "screens/warehouse/products/PaginaMovimenti.h"

namespace fenalto::screens {

PaginaSituazione::PaginaSituazione(Finestre& finestre, QWidget* genitore) : QTabWidget(genitore) {
  PreparaSchede(*this, QStringLiteral("SSTab3"));
  setUsesScrollButtons(true);
  auto* esistenza = new PaginaEsistenza(finestre);
  addTab(esistenza, tr("Esistenza"));
  schede_.push_back({[esistenza](const std::string& prodotto) { esistenza->Leggi(prodotto); },
                     esistenza->PulsanteAggiorna()});
  auto* movimenti = new PaginaMovimenti(finestre);
  addTab(movimenti, tr("Movimenti"));
  schede_.push_back({[movimenti](const std::string& prodotto) { movimenti->Leggi(prodotto, true); },
                     movimenti->PulsanteAggiorna()});
  stampa_ = movimenti->PulsanteStampa();
  for (const warehouse::Interrogazione& una : warehouse::InterrogazioniProdotto()) {
    auto* pagina = new PaginaInterrogazione(una, finestre);
    addTab(pagina, QString::fromUtf8(una.linguetta));
    setTabToolTip(count() - 1, QString::fromUtf8(una.titolo));
    schede_.push_back({[pagina](const std::string& prodotto) { pagina->Leggi(prodotto); },
                       pagina->PulsanteAggiorna()});
  }
  MisuraDellaPagina(*this);
  connect(this, &QTabWidget::currentChanged, this, &PaginaSituazione::LeggiInVista);
}

void PaginaSituazione::Mostra(const std::string& prodotto) {
  if (prodotto == prodotto_) return;
  prodotto_ = prodotto;
  for (Scheda& scheda : schede_) scheda.daLeggere = true;
  // Nothing of another product is seen while the page waits to be looked at.
  if (prodotto.empty()) {
    for (const Scheda& scheda : schede_) scheda.leggi({});
  }
  if (isVisible()) LeggiInVista();
}

void PaginaSituazione::showEvent(QShowEvent* evento) {
  QTabWidget::showEvent(evento);
  LeggiInVista();
}

void PaginaSituazione::LeggiInVista() {
  if (!isVisible() || currentIndex() < 0) return;
  Scheda& scheda = schede_.at(static_cast<std::size_t>(currentIndex()));
  if (!scheda.daLeggere) return;
  scheda.daLeggere = false;
  const Attesa attesa;
  scheda.leggi(prodotto_);
}

bool PaginaSituazione::Aggiorna() {
  if (!isVisible() || currentIndex() < 0) return false;
  schede_.at(static_cast<std::size_t>(currentIndex())).aggiorna->click();
  return true;
}

QList<QAbstractButton*> PaginaSituazione::Pulsanti() const {
  QList<QAbstractButton*> pulsanti;
  for (const Scheda& scheda : schede_) pulsanti << scheda.aggiorna;
  return pulsanti << stampa_;
}

}  // namespace fenalto::screens
