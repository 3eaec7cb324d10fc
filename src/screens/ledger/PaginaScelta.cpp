#include "screens/ledger/PaginaScelta.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/ElencoCercato.h"
#include "screens/common/lists/SelettoreArticolo.h"
#include "screens/common/windows/FunzioniCorrelate.h"

namespace fenalto::screens {
namespace {

constexpr int kCorrelatePerRiga = 5;

constexpr FunzioneCorrelata kCorrelate[] = {
    {"FunzCor01", "movimenti per conto", "STMovimentiPerConto"},
    {"FunzCor02", "situazione scadenze", "Scadenze"},
    {"FunzCor03", "patrimoniale e costi/ricavi", "STBilancioVerifica", 1},
    {"FunzCor04", "elenco articoli contabili", "STArticoli"},
    {"FunzCor05", "ricerca movimenti", "RicercaMovimenti"},
    {"FunzCor06", "bilancio di verifica", "STBilancioVerifica", 0},
    {"FunzCor07", "librogiornale", "StGiornale"},
    {"FunzCor08", "scadenze per cliente/fornitore", "STScadenzePerConto"},
    {"FunzCor09", "scadenze per data", "STScadenzePerData"},
    {"FunzCor10", "estratto conto clienti", "STEstrattoConto"},
    {"FunzCor11", "archivio scadenze", "Scadenze"},
    {"FunzCor12", "registrazioni iva", "Fatture"},
    {"FunzCor15", "operazioni automatiche di apertura e chiusura", "ChiusureAperture"},
};

constexpr FunzioneCorrelata kAltriModi[] = {
    {"NuovoDaScad",
     "Pagamento/incasso con selezione scadenze da scaricare\n(singolo cliente/fornitore)",
     "PagamentiDaScadenzario1Cli"},
    {"NuovoDaScadMulti",
     "Pagamento/incasso con selezione scadenze da scaricare\n(multi cliente/fornitore)",
     "PagamentiDaScadenzario"},
    {"NuovoAnticipo", "Anticipo su fattura da ricevere/emettere\ncon inserimento in scadenzario",
     "AccontiPrimaDiFattura"},
    {"NuovoInsoluti", "Registrazione insoluti riba", "InsolutiRiba"},
    {"NuovoRiba", "Distinta riba", "RiBa"},
};

/// Silent while an index answers and something is found.
QString DiTrovate(const FormaElenco::Letti& letti) {
  if (letti.troppi) return QObject::tr("le ultime %1: restringere la ricerca").arg(letti.righe);
  if (letti.righe == 0) return letti.cercato ? QObject::tr("nessuna registrazione") : QString();
  if (!letti.aTratti) return {};
  return letti.righe == 1 ? QObject::tr("1 registrazione")
                          : QObject::tr("%1 registrazioni").arg(letti.righe);
}

}  // namespace

PaginaScelta::PaginaScelta(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore), finestre_(finestre), lettore_(finestre.Sessione()) {
  auto* griglia = new QGridLayout(this);
  griglia->addWidget(CreaSelettore(), 0, 0, 1, 2);
  riquadroElenco_ = CreaElenco();
  griglia->addWidget(riquadroElenco_, 1, 0);
  riquadroModelli_ = CreaModelli();
  griglia->addWidget(riquadroModelli_, 1, 0);
  griglia->addWidget(CreaModi(), 1, 1);
  griglia->addWidget(CreaCorrelate(), 2, 0, 1, 2);
  griglia->setColumnStretch(0, 1);
  griglia->setRowStretch(1, 1);
  AssegnaMnemoniche(pulsanti_);
  Aggiorna();
}

QWidget* PaginaScelta::CreaSelettore() {
  auto* riga = new QWidget;
  auto* disposizione = new QHBoxLayout(riga);
  disposizione->setContentsMargins(0, 0, 0, 0);
  selettore_ = new SelettoreArticolo(
      [this](std::int64_t numero) {
        const QString testo = QString::fromStdString(lettore_.Testo(numero));
        return testo.isEmpty() ? tr("nel %1 non c'è una registrazione non iva con questo numero")
                                     .arg(finestre_.Sessione().Anno())
                               : testo;
      },
      this);
  connect(selettore_, &SelettoreArticolo::ApriChiesto, this, &PaginaScelta::ApriChiesto);
  selettore_->Disponi(*disposizione, 1);
  pulsanti_ << selettore_->PulsanteApri();
  return riga;
}

QGroupBox* PaginaScelta::CreaElenco() {
  auto* riquadro = new QGroupBox(tr("Registrazioni del %1").arg(finestre_.Sessione().Anno()));
  auto* colonna = new QVBoxLayout(riquadro);
  elenco_ = new ElencoCercato(
      {.finestra = QStringLiteral("Movimenti"),
       .griglia = QStringLiteral("ElencoArticoli"),
       .cerca = QStringLiteral("CercaArticoli"),
       .stato = QStringLiteral("StatoRicerca"),
       .segnaposto = tr("numero, data, importo, conto o parte di una descrizione"),
       .colonne = {{tr("Numero"), Tipo::Intero, 70},
                   {tr("Data"), Tipo::Data, 90},
                   {tr("Dare"), Tipo::Testo, 170},
                   {tr("Avere"), Tipo::Testo, 170},
                   {tr("Descrizione"), Tipo::Testo, 180},
                   {tr("Importo"), Tipo::Importo, 90}},
       .testo = DiTrovate,
       .subito = true,
       .ordinabile = true},
      lettore_);
  elenco_->Griglia().Modello().Decimali(finestre_.Sessione().Euro() ? 2 : 0);
  colonna->addWidget(elenco_);
  selettore_->Segui(*elenco_);
  return riquadro;
}

QGroupBox* PaginaScelta::CreaModi() {
  auto* riquadro = new QGroupBox(tr("Nuova registrazione"));
  auto* colonna = new QVBoxLayout(riquadro);
  nuovo_ = Pulsante(QStringLiteral("Nuovo"), tr("Registrazione generica"), tr("Ins"));
  auto* duplica = Pulsante(QStringLiteral("Sdoppia"), tr("Registrazione da movimento duplicabile"));
  for (auto* pulsante : {nuovo_, duplica}) {
    ASinistra(pulsante);
    pulsanti_ << pulsante;
    colonna->addWidget(pulsante);
  }
  connect(nuovo_, &QPushButton::clicked, this, &PaginaScelta::NuovoChiesto);
  connect(duplica, &QPushButton::clicked, this, &PaginaScelta::ModelliChiesti);
  for (const auto& modo : kAltriModi) {
    colonna->addWidget(PulsanteFunzione(finestre_, modo, pulsanti_));
  }
  colonna->addStretch(1);
  return riquadro;
}

QGroupBox* PaginaScelta::CreaModelli() {
  auto* riquadro =
      new QGroupBox(tr("Registrazioni duplicabili: doppio clic o Invio per prendere le righe"));
  riquadro->setObjectName(QStringLiteral("FrameDupl"));
  modelli_ = new Griglia(QStringLiteral("GridArtDup"), QStringLiteral("Movimenti"),
                         {{tr("Articolo"), Tipo::Intero, 70},
                          {tr("Anno"), Tipo::Intero, 60},
                          {tr("Data"), Tipo::Data, 90},
                          {tr("Descrizione"), Tipo::Testo, 240},
                          {tr("Dare"), Tipo::Testo, 100},
                          {tr("Avere"), Tipo::Testo, 100}});
  senzaModelli_ = new QLabel(
      tr("Nessuna registrazione è segnata come duplicabile. Per averne una, aprirla, spuntare "
         "\"duplicabile\" e confermarla."));
  senzaModelli_->setObjectName(QStringLiteral("SenzaModelli"));
  senzaModelli_->setWordWrap(true);
  auto* chiudi = Pulsante(QStringLiteral("ChiudiDupl"), tr("Torna all'elenco"), tr("Esc"));
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(senzaModelli_, 1);
  sotto->addStretch();
  sotto->addWidget(chiudi);
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(modelli_, 1);
  colonna->addLayout(sotto);
  riquadro->hide();
  const auto prendi = [this](int riga) {
    const auto& valori = modelli_->Modello().Riga(riga);
    emit ModelloScelto(valori[0].Intero(), static_cast<int>(valori[1].Intero()));
  };
  connect(modelli_, &Griglia::RigaDoppioClic, this, prendi);
  connect(modelli_, &Griglia::RigaInvio, this, prendi);
  connect(chiudi, &QPushButton::clicked, this, &PaginaScelta::ChiudiModelli);
  pulsanti_ << chiudi;
  return riquadro;
}

QGroupBox* PaginaScelta::CreaCorrelate() {
  auto* riquadro = RiquadroCorrelate(finestre_, kCorrelate, kCorrelatePerRiga, pulsanti_);
  auto* chiusure = riquadro->findChild<QPushButton*>(QStringLiteral("FunzCor15"));
  disconnect(chiusure, &QPushButton::clicked, nullptr, nullptr);
  connect(chiusure, &QPushButton::clicked, this, &PaginaScelta::ChiusureChieste);
  return riquadro;
}

void PaginaScelta::Aggiorna() {
  elenco_->Ricarica();
  selettore_->Descrivi();
}

void PaginaScelta::Seleziona(std::int64_t numero) {
  selettore_->Seleziona(numero);
}

void PaginaScelta::FocoSelettore() {
  selettore_->Foco();
}

void PaginaScelta::FocoNuovo() {
  FocoInVista(nuovo_);
}

void PaginaScelta::MostraModelli(const std::vector<ledger::ModelloPrimanota>& modelli) {
  std::vector<std::vector<Valore>> righe;
  for (const auto& modello : modelli) {
    righe.push_back({modello.articolo, modello.anno, modello.dt, modello.descrArtDupl,
                     modello.conto, modello.contoA});
  }
  senzaModelli_->setVisible(righe.empty());
  modelli_->Modello().Righe(std::move(righe));
  riquadroElenco_->hide();
  riquadroModelli_->show();
  modelli_->setFocus();
  modelli_->VaiARiga(0);
}

bool PaginaScelta::ChiudiModelli() {
  if (riquadroModelli_->isHidden()) return false;
  riquadroModelli_->hide();
  riquadroElenco_->show();
  nuovo_->setFocus();
  return true;
}

}  // namespace fenalto::screens
