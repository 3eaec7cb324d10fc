#include "screens/documents/parties/RiquadroDestinazioni.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
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

}  // namespace

RiquadroDestinazioni::RiquadroDestinazioni(documents::DestinazioniCliente& destinazioni,
                                           Cliente cliente, Finestre& finestre, QWidget* genitore)
    : RigheDelRecord(
          {.memoria = QStringLiteral("Destinazioni"),
           .riga = tr("Destinazione"),
           .nuova = tr("Nuova destinazione"),
           .aperta = "la nuova destinazione non è stata confermata: confermarla o abbandonarla",
           .primoCampo = QStringLiteral("RagSoc1Dest_R")},
          Colonne(), finestre, genitore),
      destinazioni_(destinazioni),
      cliente_(std::move(cliente)) {
  CreaCampi();
  Disponi();
}

void RiquadroDestinazioni::CreaCampi() {
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
  griglia_->setMinimumHeight(kAltezzaGriglia);
  auto* elenco = new QGroupBox(tr("oppure diverse destinazioni da selezionare emettendo ddt"));
  auto* interno = new QVBoxLayout(elenco);
  interno->addWidget(griglia_);
  interno->addWidget(InFila({nuova_}));
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(elenco);
  colonna->addWidget(riquadro_);
}

std::vector<std::vector<Valore>> RiquadroDestinazioni::Elenco() const {
  std::vector<std::vector<Valore>> righe;
  for (const documents::DestinazioneMerce& destinazione : destinazioni_.Righe()) {
    std::vector<Valore> riga{Valore(destinazione.posi)};
    riga.insert(riga.end(), destinazione.testi.begin(), destinazione.testi.end());
    righe.push_back(std::move(riga));
  }
  return righe;
}

bool RiquadroDestinazioni::ApriRiga(const Valore& chiave) {
  return cliente_.raccogli() && destinazioni_.Apri(chiave.Intero());
}

bool RiquadroDestinazioni::NuovaRiga() {
  return cliente_.raccogli() && destinazioni_.Nuova(cliente_.cliente());
}

bool RiquadroDestinazioni::ConfermaRiga(QString& /*campo*/) {
  return destinazioni_.Conferma(finestre_.Sessione().Dialogo());
}

bool RiquadroDestinazioni::EliminaRiga() {
  return destinazioni_.Elimina(finestre_.Sessione().Dialogo());
}

}  // namespace fenalto::screens
