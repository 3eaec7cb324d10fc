#include "screens/warehouse/stock/FinestraStProdotti.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/look/Misure.h"
#include "screens/warehouse/stock/FormaStProdotti.h"
#include "warehouse/stock/ColonneMagazzino.h"
#include "warehouse/stock/DaRiordinare.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

using warehouse::SceltaMagazzino;
using warehouse::SceltaProdotti;
using warehouse::SceltaVariazione;

constexpr int kColonnaProdotto = 2;  // of the list of what to order again

QHBoxLayout* FilaPulsanti(const QList<QPushButton*>& pulsanti) {
  auto* riga = new QHBoxLayout;
  riga->addStretch(1);
  for (auto* pulsante : pulsanti) riga->addWidget(pulsante);
  return riga;
}

}  // namespace

FinestraStProdotti::FinestraStProdotti(Finestre& finestre)
    : FinestraRapporto(QStringLiteral("StProdotti"),
                       tr("Elenco prodotti, esistenze, lotti e funzioni varie"), finestre),
      stampa_(finestre.Sessione(), finestre.Uscite()),
      variazione_(finestre.Sessione()),
      schede_(new QTabWidget) {
  Proponi(kSceltaProdotti, SceltaProdotti());
  Proponi(kSceltaMagazzino, SceltaMagazzino());
  Proponi(kSceltaVariazione, SceltaVariazione());
  for (const auto& colonna : warehouse::ColonneMagazzino()) {
    Record().Aggiungi(CampoColonna(colonna.nome), Tipo::Booleano);
  }
  for (const std::string& colonna : warehouse::ColonneRicordate(Sessione())) {
    Record().Scrivi(CampoColonna(colonna), true);
  }
  auto* scelta = new QVBoxLayout;
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(scelta);
  colonna->addWidget(schede_, 1);
  CreaPagine();
  Compila(FormaStProdotti(), [this, scelta](const std::string& pagina) -> QVBoxLayout& {
    return pagina.empty() ? *scelta : pagina == kPaginaPrezzi ? *prezzi_ : *situazione_;
  });
  Mostra();
}

void FinestraStProdotti::CreaPagine() {
  PreparaSchede(*schede_, QStringLiteral("SSTab1"));
  CreaSituazione();
  CreaRiordino();
  CreaPrezzi();
  MisuraDellaPagina(*schede_);
}

QVBoxLayout& FinestraStProdotti::NuovaPagina(const QString& titolo) {
  auto* pagina = new QWidget;
  auto* colonna = new QVBoxLayout(pagina);
  schede_->addTab(pagina, titolo);
  return *colonna;
}

void FinestraStProdotti::CreaSituazione() {
  QVBoxLayout& colonna = NuovaPagina(tr("Situazione magazzino"));
  situazione_ = new QVBoxLayout;
  colonna.addLayout(situazione_);
  auto* stampa = Pulsante(QStringLiteral("Stampa2"), tr("Stampa"));
  auto* foglio = Pulsante(QStringLiteral("XlsEsp"), tr("Esporta in foglio"));
  connect(stampa, &QPushButton::clicked, this, &FinestraStProdotti::StampaSituazione);
  connect(foglio, &QPushButton::clicked, this, &FinestraStProdotti::FoglioSituazione);
  auto* piede = CreaOpzioni().Riga();
  piede->addWidget(foglio);
  piede->addWidget(stampa);
  colonna.addLayout(piede);
  colonna.addStretch(1);
  AssegnaMnemoniche({stampa, foglio});
}

void FinestraStProdotti::CreaRiordino() {
  QVBoxLayout& colonna = NuovaPagina(tr("Da riordinare"));
  const int decQ = warehouse::DecimaliQuantita(Sessione());
  const int decP = warehouse::DecimaliPrezzo(Sessione());
  riordino_ =
      new Griglia(QStringLiteral("GrigliaRiordino"), Nome(),
                  {{tr("Fornitore"), Tipo::Testo, 80, 2, QStringLiteral("Fornitore")},
                   {tr("Nome"), Tipo::Testo, 160, 2, QStringLiteral("NomeFornitore")},
                   {tr("Prodotto"), Tipo::Testo, 110, 2, QStringLiteral("CodiceRiga")},
                   {tr("Descrizione"), Tipo::Testo, 220, 2, QStringLiteral("Descrizione")},
                   {tr("Suo codice"), Tipo::Testo, 90, 2, QStringLiteral("codprfor")},
                   {tr("U.M."), Tipo::Testo, 50, 2, QStringLiteral("um")},
                   {tr("Disponibile"), Tipo::Importo, 90, decQ, QStringLiteral("Disponibile")},
                   {tr("Scorta"), Tipo::Importo, 80, decQ, QStringLiteral("Scorta")},
                   {tr("Minimo"), Tipo::Importo, 80, decQ, QStringLiteral("QMinRiordino")},
                   {tr("Da ordinare"), Tipo::Importo, 90, decQ, QStringLiteral("DaOrdinare")},
                   {tr("Costo"), Tipo::Importo, 90, decP, QStringLiteral("Costo")}});
  riordino_->Elastica(3);
  riordino_->QuandoVuota(
      tr("\"Elenco da riordinare\" mostra qui i prodotti con la quantità disponibile sotto la "
         "scorta"));
  riordino_->setToolTip(tr("doppio clic o Invio su una riga apre il prodotto"));
  const auto apri = [this](int indice) {
    if (indice < 0) return;
    Segui({.funzione = "CodiciRiga",
           .codice = riordino_->Modello().Riga(indice)[kColonnaProdotto].Testo()});
  };
  connect(riordino_, &Griglia::RigaDoppioClic, this, apri);
  connect(riordino_, &Griglia::RigaInvio, this, apri);
  totaleRiordino_ = new QLabel;
  totaleRiordino_->setObjectName(QStringLiteral("TotaleRiordino"));
  auto* leggi = Pulsante(QStringLiteral("LeggiRiordino"), tr("Elenco da riordinare"), tr("F5"));
  auto* foglio = Pulsante(QStringLiteral("XlsEspRiordino"), tr("Esporta in foglio"));
  connect(leggi, &QPushButton::clicked, this, &FinestraStProdotti::LeggiRiordino);
  connect(foglio, &QPushButton::clicked, this, [this] { Esporta(*riordino_); });
  auto* piede = FilaPulsanti({foglio, leggi});
  piede->insertWidget(0, totaleRiordino_);
  colonna.addWidget(riordino_, 1);
  colonna.addLayout(piede);
  AssegnaMnemoniche({leggi, foglio});
}

void FinestraStProdotti::CreaPrezzi() {
  QVBoxLayout& colonna = NuovaPagina(tr("Variazione prezzi"));
  prezzi_ = new QVBoxLayout;
  auto* varia = Pulsante(QStringLiteral("Command5"), tr("variazione automatica prezzi vendita"));
  connect(varia, &QPushButton::clicked, this, &FinestraStProdotti::VariaPrezzi);
  colonna.addLayout(prezzi_);
  colonna.addLayout(FilaPulsanti({varia}));
  colonna.addStretch(1);
  AssegnaMnemoniche({varia});
}

void FinestraStProdotti::ApriScheda(int scheda) {
  if (scheda >= 0 && scheda < schede_->count()) schede_->setCurrentIndex(scheda);
}

void FinestraStProdotti::ApriRecord(const Rinvio& rinvio) {
  Record().Scrivi("DaCodiceRiga", rinvio.codice);
  Record().Scrivi("AaCodiceRiga", rinvio.codice);
  Mostra();
  ApriScheda(rinvio.scheda);
}

void FinestraStProdotti::Aggiorna() {
  if (schede_->currentWidget()->isAncestorOf(riordino_)) LeggiRiordino();
}

std::vector<std::string> FinestraStProdotti::Colonne() const {
  std::vector<std::string> colonne;
  for (const auto& colonna : warehouse::ColonneMagazzino()) {
    if (Record().Leggi(CampoColonna(colonna.nome)).Booleano()) colonne.emplace_back(colonna.nome);
  }
  return colonne;
}

void FinestraStProdotti::Cambiato(const std::string& campo) {
  if (DiColonna(campo)) warehouse::RicordaColonne(Sessione(), Colonne());
}

SceltaMagazzino FinestraStProdotti::Situazione() const {
  SceltaMagazzino scelta = Scelta(kSceltaMagazzino);
  scelta.prodotti = Scelta(kSceltaProdotti);
  scelta.colonne = Colonne();
  return scelta;
}

void FinestraStProdotti::StampaSituazione() {
  RifiutiDi(stampa_);
  Raccolto([this] { stampa_.Stampa(Situazione()); });
}

void FinestraStProdotti::FoglioSituazione() {
  RifiutiDi(stampa_);
  Raccolto([this] {
    const reports::Foglio composto = stampa_.Foglio(Situazione());
    if (composto.colonne.empty()) return;  // nothing found, or stopped by the user
    if (const auto uscita = Dialogo().ScegliUscita("situazione magazzino", true)) {
      ScriviFoglio(composto, *uscita, Dialogo());
    }
  });
}

void FinestraStProdotti::LeggiRiordino() {
  RifiutiDi(stampa_);
  Raccolto([this] {
    const auto voci = warehouse::DaRiordinare(Sessione(), Scelta(kSceltaProdotti));
    if (!voci) return;  // stopped by the user
    std::vector<std::vector<Valore>> righe;
    for (const warehouse::VoceRiordino& voce : *voci) {
      righe.push_back({voce.fornitore, voce.nomeFornitore, voce.prodotto, voce.descrizione,
                       voce.codPrFor, voce.um, voce.disponibile, voce.scorta, voce.qMinRiordino,
                       voce.daOrdinare, voce.costo});
    }
    totaleRiordino_->setText(voci->empty() ? tr("nessun prodotto da riordinare")
                             : voci->size() == 1
                                 ? tr("1 prodotto da riordinare")
                                 : tr("%1 prodotti da riordinare").arg(voci->size()));
    riordino_->Modello().Righe(std::move(righe));
  });
}

void FinestraStProdotti::VariaPrezzi() {
  RifiutiDi(variazione_);
  Raccolto([this] {
    SceltaVariazione scelta = Scelta(kSceltaVariazione);
    scelta.prodotti = Scelta(kSceltaProdotti);
    variazione_.Esegui(scelta);
  });
}

}  // namespace fenalto::screens
