#include "screens/warehouse/codes/FinestraVisCodiciRiga.h"

#include <QLineEdit>
#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/warehouse/codes/PaginaProdotti.h"

namespace fenalto::screens {

using warehouse::QualiProdotti;

FinestraVisCodiciRiga::FinestraVisCodiciRiga(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("VisCodiciRiga"),
                       tr("Ricerca prodotti di magazzino, servizi e codici per fatture, ddt e "
                          "movimentazione magazzino"),
                       finestre),
      schede_(new QTabWidget) {
  PreparaSchede(*schede_, QStringLiteral("SSTab1"));
  const std::pair<QualiProdotti, QString> schede[] = {
      {QualiProdotti::Tutti, tr("Tutti i prodotti")},
      {QualiProdotti::PerFornitore, tr("Per fornitore")},
      {QualiProdotti::ConDistinta, tr("Con distinta base")},
      {QualiProdotti::Componenti, tr("Componenti")}};
  std::size_t posto = 0;
  for (const auto& [quali, titolo] : schede) {
    auto* pagina = new PaginaProdotti(Sessione(), quali, Nome());
    pagine_.at(posto++) = pagina;
    schede_->addTab(pagina, titolo);
    connect(pagina, &PaginaProdotti::Scelto, this, &FinestraVisCodiciRiga::Scegli);
  }
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(schede_);
  connect(schede_, &QTabWidget::currentChanged, this, [this] {
    Leggi();
    Corrente().Elenco().Cerca().setFocus();
  });
}

FinestraVisCodiciRiga::~FinestraVisCodiciRiga() {
  hide();
}

PaginaProdotti& FinestraVisCodiciRiga::Corrente() const {
  return *pagine_.at(static_cast<std::size_t>(schede_->currentIndex()));
}

void FinestraVisCodiciRiga::Leggi() {
  bool& letta = lette_.at(static_cast<std::size_t>(schede_->currentIndex()));
  if (!letta) Corrente().Ricarica();
  letta = true;
}

void FinestraVisCodiciRiga::showEvent(QShowEvent* evento) {
  FinestraFunzione::showEvent(evento);
  Leggi();
  Corrente().Elenco().Cerca().setFocus();
}

void FinestraVisCodiciRiga::ApriRecord(const Rinvio& rinvio) {
  schede_->setCurrentIndex(0);
  Corrente().Elenco().Cerca().setText(Qs(rinvio.codice));
  Corrente().Elenco().Cerca().selectAll();
}

void FinestraVisCodiciRiga::RichiestaDa(const QString& campo) {
  Annuncia(tr("Invio o doppio clic: il prodotto va nel campo «%1»").arg(campo));
}

void FinestraVisCodiciRiga::Scegli(const QString& codice) {
  if (codice.isEmpty()) return;
  if (!PerUnCampo()) return Segui(AllArchivio("CODICIRIGA", codice.toStdString()));
  scelto_ = codice.toStdString();
  ChiudiDaTastiera();
}

void FinestraVisCodiciRiga::Aggiorna() {
  lette_.fill(false);
  lette_.at(static_cast<std::size_t>(schede_->currentIndex())) = true;
  Corrente().Elenco().Rileggi();
}

bool FinestraVisCodiciRiga::Indietro() {
  return Corrente().Elenco().SvuotaRicerca();
}

bool FinestraVisCodiciRiga::Invio(QWidget& campo) {
  return Corrente().Elenco().InvioInRicerca(&campo);
}

}  // namespace fenalto::screens
