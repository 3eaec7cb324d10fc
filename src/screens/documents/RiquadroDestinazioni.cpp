#include "screens/documents/RiquadroDestinazioni.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/Campi.h"
#include "screens/common/Disposizione.h"
#include "screens/common/Griglia.h"
#include "screens/common/Legatura.h"

namespace fenalto {
namespace {

constexpr int kCaratteriNome = 50;
constexpr int kCaratteriCap = 10;
constexpr int kMostratiCap = 6;
constexpr int kMostratiLocalita = 28;
constexpr int kCaratteriProvincia = 4;
constexpr int kCaratteriCodice = 20;
constexpr int kAltezzaGriglia = 130;

std::vector<ColonnaGriglia> Colonne() {
  return {{QStringLiteral("Posi"), Tipo::Intero, 45},
          {QStringLiteral("Ragione sociale"), Tipo::Testo, 190},
          {QStringLiteral("(seconda riga)"), Tipo::Testo, 110},
          {QStringLiteral("Indirizzo"), Tipo::Testo, 150},
          {QStringLiteral("CAP"), Tipo::Testo, 55},
          {QStringLiteral("Località"), Tipo::Testo, 120},
          {QStringLiteral("Prov."), Tipo::Testo, 45},
          {QStringLiteral("Cod.dest."), Tipo::Testo, 80}};
}

/// Controls beside each other, as one field.
QWidget* InFila(std::initializer_list<QWidget*> controlli) {
  auto* insieme = new QWidget;
  auto* fila = new QHBoxLayout(insieme);
  fila->setContentsMargins(0, 0, 0, 0);
  for (auto* controllo : controlli) fila->addWidget(controllo);
  fila->addStretch(1);
  return insieme;
}

}  // namespace

RiquadroDestinazioni::RiquadroDestinazioni(DestinazioniCliente& destinazioni, Cliente cliente,
                                           Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      destinazioni_(destinazioni),
      cliente_(std::move(cliente)),
      dialogo_(finestre.Sessione().Dialogo()),
      legatura_(new Legatura([this]() -> Scheda& { return destinazioni_.Riga(); }, dialogo_, this)),
      griglia_(
          new Griglia(QStringLiteral("GrigliaRighe"), QStringLiteral("Destinazioni"), Colonne())),
      riquadro_(new QGroupBox(tr("Destinazione"))),
      nuova_(Pulsante(QStringLiteral("PNuovaRiga"), tr("Nuova destinazione"), tr("Ins"))),
      conferma_(Pulsante(QStringLiteral("ConfermaRiga"), tr("Conferma riga"), tr("Ctrl+Invio"))),
      elimina_(Pulsante(QStringLiteral("EliminaRiga"), tr("Elimina riga"), tr("Ctrl+Canc"))),
      annulla_(Pulsante(QStringLiteral("AnnullaRiga"), tr("Abbandona riga"), tr("Esc"))) {
  CreaCampi();
  Disponi();
  Collega();
  riquadro_->hide();
}

void RiquadroDestinazioni::CreaCampi() {
  riquadro_->setObjectName(QStringLiteral("FrameRiga"));
  auto* modulo = new QFormLayout(riquadro_);
  const auto campo = [this](const char* nome, int caratteri, int mostrati) {
    auto* nuovo = new CampoTesto(QString::fromLatin1(nome), nullptr, caratteri);
    LargoCaratteri(nuovo, mostrati + 1);
    legatura_->Lega(nuovo);
    return nuovo;
  };
  auto* nome = campo("RagSoc1Dest_R", kCaratteriNome, kCaratteriNome);
  auto* seconda = campo("ragsoc2Dest_R", kCaratteriNome, kCaratteriNome);
  auto* indirizzo = campo("indirizzodest_R", kCaratteriNome, kCaratteriNome);
  auto* cap = campo("capdest_r", kCaratteriCap, kMostratiCap);
  auto* localita = campo("localitadest_r", kCaratteriNome, kMostratiLocalita);
  auto* provincia = campo("provdest_r", kCaratteriProvincia, kCaratteriProvincia);
  provincia->Maiuscole(true);
  auto* codice = campo("CODDEST", kCaratteriCodice, kCaratteriCodice);
  modulo->addRow(Didascalia(tr("Ragione sociale"), nome), InFila({nome}));
  modulo->addRow(Didascalia(tr("(seconda riga)"), seconda), InFila({seconda}));
  modulo->addRow(Didascalia(tr("Indirizzo"), indirizzo), InFila({indirizzo}));
  modulo->addRow(Didascalia(tr("CAP"), cap),
                 InFila({cap, Didascalia(tr("Località"), localita), localita,
                         Didascalia(tr("Prov."), provincia), provincia}));
  modulo->addRow(Didascalia(tr("Cod.destinazione per fileconad"), codice), InFila({codice}));
  modulo->addRow(InFila({conferma_, elimina_, annulla_}));
}

void RiquadroDestinazioni::Disponi() {
  // The open row can be given up from a field whose text can't be read.
  annulla_->setFocusPolicy(Qt::TabFocus);
  griglia_->setMinimumHeight(kAltezzaGriglia);
  auto* elenco = new QGroupBox(tr("oppure diverse destinazioni da selezionare emettendo ddt"));
  auto* interno = new QVBoxLayout(elenco);
  interno->addWidget(griglia_);
  interno->addWidget(InFila({nuova_}));
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(elenco);
  colonna->addWidget(riquadro_);
  AssegnaMnemoniche({nuova_, conferma_, elimina_, annulla_});
}

void RiquadroDestinazioni::Collega() {
  connect(griglia_, &Griglia::RigaScelta, this, &RiquadroDestinazioni::Apri);
  connect(nuova_, &QPushButton::clicked, this, &RiquadroDestinazioni::Nuova);
  connect(conferma_, &QPushButton::clicked, this, [this] {
    if (Conferma()) nuova_->setFocus();
  });
  connect(elimina_, &QPushButton::clicked, this, &RiquadroDestinazioni::Elimina);
  connect(annulla_, &QPushButton::clicked, this, &RiquadroDestinazioni::Annulla);
}

void RiquadroDestinazioni::Mostra() {
  std::vector<std::vector<Valore>> righe;
  for (const DestinazioneMerce& destinazione : destinazioni_.Righe()) {
    std::vector<Valore> riga{Valore(destinazione.posi)};
    riga.insert(riga.end(), destinazione.testi.begin(), destinazione.testi.end());
    righe.push_back(std::move(riga));
  }
  griglia_->Modello().Righe(std::move(righe));
  legatura_->Mostra();
  riquadro_->setVisible(destinazioni_.InRiga());
  nuova_->setEnabled(!destinazioni_.InRiga() && !solaLettura_);
  griglia_->setEnabled(!destinazioni_.InRiga());
}

void RiquadroDestinazioni::MostraTutto() {
  cliente_.rigaCambiata();
  Mostra();
}

void RiquadroDestinazioni::SolaLettura(bool attiva) {
  solaLettura_ = attiva;
}

void RiquadroDestinazioni::Apri(int indice) {
  if (solaLettura_ || indice < 0 || !cliente_.raccogli()) return;
  if (!destinazioni_.Apri(griglia_->Modello().Riga(indice).front().Intero())) return;
  MostraTutto();
  FocoInVista(conferma_);
}

void RiquadroDestinazioni::Nuova() {
  if (!cliente_.raccogli() || !destinazioni_.Nuova(cliente_.cliente())) return;
  MostraTutto();
  FocoInVista(riquadro_->findChild<QWidget*>(QStringLiteral("RagSoc1Dest_R")));
}

bool RiquadroDestinazioni::Conferma() {
  if (!legatura_->Raccogli() || !destinazioni_.Conferma(dialogo_)) return false;
  MostraTutto();
  return true;
}

void RiquadroDestinazioni::Elimina() {
  if (destinazioni_.Elimina(dialogo_)) MostraTutto();
}

bool RiquadroDestinazioni::Annulla() {
  if (!destinazioni_.InRiga()) return false;
  destinazioni_.Annulla();
  MostraTutto();
  nuova_->setFocus();
  return true;
}

bool RiquadroDestinazioni::Modificata() const {
  return destinazioni_.InRiga() && (destinazioni_.Riga().Modificata() || legatura_->Pendente());
}

bool RiquadroDestinazioni::ConfermaAperta() {
  if (!destinazioni_.InRiga()) return true;
  if (Modificata()) return Conferma();
  if (!destinazioni_.RigaNuova()) return Annulla();
  dialogo_.Messaggio("la nuova destinazione non è stata confermata: confermarla o abbandonarla",
                     Icona::Avviso);
  return false;
}

}  // namespace fenalto
