#include "screens/warehouse/products/PaginaListini.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
namespace {

using records::Digitato;
using records::GenereCampo;
using records::Mostrato;

records::DescrizioneForma FormaListino(int decimali) {
  constexpr int kPercento = 7;
  constexpr int kPrezzo = 12;
  return {.campi = {Mostrato("LListino", GenereCampo::Titolo, "Listino"),
                    Digitato("LCodPrCli", "riferimento del cliente", 30).Mostra(20).Accanto(),
                    Digitato("LPrezzo", "Prezzo", kPrezzo).Decimali(decimali),
                    Digitato("LSc1", "sconti %", kPercento).Accanto(),
                    Digitato("LSc2", "", kPercento).Accanto(),
                    Digitato("LSc3", "", kPercento).Accanto(),
                    Digitato("LProv", "Provvigione %", kPercento),
                    Digitato("LDt", "aggiornato il").Accanto()},
          .stretta = true};
}

}  // namespace

PaginaListini::PaginaListini(archives::ArchivioCodici& prodotti, Finestre& finestre, int decimali,
                             QWidget* genitore)
    : QWidget(genitore),
      prodotti_(prodotti),
      finestre_(finestre),
      listini_(finestre.Sessione()),
      legatura_(new Legatura([this]() -> Scheda& { return listini_.Riga(); },
                             finestre.Sessione().Dialogo(), this)),
      presenti_(new Griglia(
          QStringLiteral("GridListini"), QStringLiteral("CodiciRiga"),
          {{tr("Listino"), Tipo::Testo, 90},
           {tr("Riferimento cliente"), Tipo::Testo, 150, 2, QStringLiteral("RiferimCli")},
           {tr("Prezzo"), Tipo::Importo, 95, decimali},
           {tr("Sc.1"), Tipo::Importo, 55, 0, QStringLiteral("Sc1")},
           {tr("Sc.2"), Tipo::Importo, 55, 0, QStringLiteral("Sc2")},
           {tr("Sc.3"), Tipo::Importo, 55, 0, QStringLiteral("Sc3")},
           {tr("Provvigione"), Tipo::Importo, 85, 0, QStringLiteral("prov")},
           {tr("Aggiornato il"), Tipo::Data, 95, 2, QStringLiteral("DataAgg")}})),
      assenti_(new QListWidget),
      riquadro_(new QGroupBox(tr("Prezzo sul listino"))) {
  Disponi(decimali);
  Collega();
}

void PaginaListini::Disponi(int decimali) {
  presenti_->QuandoVuota(tr("il prodotto non è su nessun listino"));
  presenti_->setToolTip(tr("doppio clic o Invio: modifica il prezzo sul listino"));
  assenti_->setObjectName(QStringLiteral("ListNoListino"));
  assenti_->setUniformItemSizes(true);
  assenti_->setToolTip(tr("doppio clic o Invio: aggiunge il prodotto al listino"));
  auto* di = new QVBoxLayout;
  di->addWidget(Didascalia(tr("Listini su cui il prodotto c'è"), presenti_));
  di->addWidget(presenti_, 1);
  auto* senza = new QVBoxLayout;
  senza->addWidget(Didascalia(tr("Listini su cui non c'è"), assenti_));
  senza->addWidget(assenti_, 1);
  auto* elenchi = new QHBoxLayout;
  elenchi->addLayout(di, 4);
  elenchi->addLayout(senza, 1);
  auto* dentro = new QVBoxLayout(riquadro_);
  campi_ = new CampiForma(finestre_.Sessione(), FormaListino(decimali), {legatura_}, *dentro);
  campi_->setParent(this);
  auto* conferma = Pulsante(QStringLiteral("ConfermaAggListino"), tr("Conferma prezzo"));
  auto* annulla = Pulsante(QStringLiteral("AnnullaAggListino"), tr("Abbandona"), tr("Esc"));
  legatura_->Rinuncia(annulla);
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addWidget(conferma);
  pulsanti->addWidget(annulla);
  pulsanti->addStretch(1);
  dentro->addLayout(pulsanti);
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(elenchi, 1);
  colonna->addWidget(riquadro_);
  AssegnaMnemoniche({conferma, annulla});
  connect(conferma, &QPushButton::clicked, this, &PaginaListini::Conferma);
  connect(annulla, &QPushButton::clicked, this, [this] { Annulla(); });
}

void PaginaListini::Collega() {
  connect(presenti_, &Griglia::RigaDoppioClic, this, &PaginaListini::Modifica);
  connect(presenti_, &Griglia::RigaInvio, this, &PaginaListini::Modifica);
  connect(assenti_, &QListWidget::itemActivated, this, &PaginaListini::Aggiungi);
}

void PaginaListini::showEvent(QShowEvent* evento) {
  QWidget::showEvent(evento);
  if (daLeggere_) MostraElenchi();
}

void PaginaListini::Mostra() {
  const std::string codice = prodotti_.Aperto() ? prodotti_.Contesto().codicePrima : std::string();
  if (codice != letto_ || !prodotti_.Aperto()) {
    listini_.Annulla();
    daLeggere_ = true;
  }
  letto_ = codice;
  if (daLeggere_ && isVisible()) return MostraElenchi();
  MostraRiga();
}

void PaginaListini::MostraElenchi() {
  daLeggere_ = false;
  listini_.Leggi(letto_);
  std::vector<std::vector<Valore>> righe;
  for (const warehouse::RigaListino& r : listini_.Presente()) {
    righe.push_back({r.listino, r.codPrCli, r.prezzo, r.sc1, r.sc2, r.sc3, r.prov, r.dt});
  }
  presenti_->Modello().Righe(std::move(righe));
  assenti_->clear();
  for (const std::string& listino : listini_.Assente()) assenti_->addItem(Qs(listino));
  MostraRiga();
}

void PaginaListini::MostraRiga() {
  const bool aperta = listini_.InRiga();
  if (aperta) legatura_->Mostra();
  riquadro_->setVisible(aperta);
  presenti_->setEnabled(!aperta);
  assenti_->setEnabled(!aperta);
}

void PaginaListini::Modifica(int indice) {
  if (indice < 0 || prodotti_.SolaLettura()) return;
  if (!listini_.Modifica(presenti_->Modello().Riga(indice).front().Testo())) return;
  MostraRiga();
  campi_->DaiFoco(QStringLiteral("LPrezzo"));
}

void PaginaListini::Aggiungi() {
  const auto* voce = assenti_->currentItem();
  if (voce == nullptr || !prodotti_.Aperto() || prodotti_.SolaLettura()) return;
  const bool aperta =
      listini_.Aggiungi(voce->text().toStdString(), prodotti_.Nuovo(), prodotti_.Record());
  if (!aperta) return;
  MostraRiga();
  campi_->DaiFoco(QStringLiteral("LPrezzo"));
}

void PaginaListini::Conferma() {
  if (!listini_.InRiga() || !legatura_->Raccogli()) return;
  std::string campo;
  if (listini_.Conferma(&campo)) {
    MostraElenchi();
    presenti_->setFocus();
  } else if (!campo.empty()) {
    campi_->DaiFoco(Qs(campo));
  }
}

bool PaginaListini::Annulla() {
  if (!listini_.InRiga()) return false;
  listini_.Annulla();
  MostraRiga();
  presenti_->setFocus();
  return true;
}

bool PaginaListini::Digitata() const {
  return listini_.InRiga() && (listini_.Digitata() || legatura_->Pendente());
}

}  // namespace fenalto::screens
