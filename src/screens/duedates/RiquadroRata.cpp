#include "screens/duedates/RiquadroRata.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/DescrizioneCodice.h"
#include "screens/common/Campi.h"
#include "screens/common/CampoCodice.h"
#include "screens/common/Disposizione.h"
#include "screens/common/Griglia.h"
#include "screens/common/Legatura.h"

namespace fenalto {
namespace {

constexpr int kCifre = 6;
constexpr int kCifrePercentuale = 10;
constexpr int kCaratteriDescrizione = 40;

std::vector<ColonnaGriglia> Colonne() {
  return {{QStringLiteral("Rata"), Tipo::Testo, 50},
          {QStringLiteral("PercImporto"), Tipo::Importo, 90, 0},
          {QStringLiteral("Scadenza"), Tipo::Testo, 300},
          {QStringLiteral("Tipo"), Tipo::Testo, 50},
          {QStringLiteral("Descrizione"), Tipo::Testo, 200}};
}

QCheckBox* Casella(const char* nome, const QString& testo) {
  auto* casella = new QCheckBox(testo);
  casella->setObjectName(QString::fromLatin1(nome));
  return casella;
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

RiquadroRata::RiquadroRata(RateCodice& rate, std::function<Scheda&()> codice, Finestre& finestre,
                           QWidget* genitore)
    : QWidget(genitore),
      rate_(rate),
      codice_(std::move(codice)),
      finestre_(finestre),
      legatura_(new Legatura([this]() -> Scheda& { return rate_.Riga(); },
                             finestre.Sessione().Dialogo(), this)),
      griglia_(new Griglia(QStringLiteral("GrigliaRighe"), QStringLiteral("CodiciPagamento"),
                           Colonne())),
      riquadro_(new QGroupBox(tr("Rata"))),
      nuova_(Pulsante(QStringLiteral("PNuovaRiga"), tr("Nuova rata"), tr("Ins"))),
      conferma_(Pulsante(QStringLiteral("ConfermaRiga"), tr("Conferma riga"), tr("Ctrl+Invio"))),
      elimina_(Pulsante(QStringLiteral("EliminaRiga"), tr("Elimina riga"), tr("Ctrl+Canc"))),
      annulla_(Pulsante(QStringLiteral("AnnullaRiga"), tr("Abbandona riga"), tr("Esc"))) {
  CreaCampi();
  Disponi();
  Collega();
  riquadro_->hide();
}

void RiquadroRata::CreaCampi() {
  riquadro_->setObjectName(QStringLiteral("FrameRiga"));
  auto* modulo = new QFormLayout(riquadro_);
  const auto numero = [](const char* nome) {
    auto* campo = new CampoNumero(QString::fromLatin1(nome));
    LargoCaratteri(campo, kCifre);
    return campo;
  };
  auto* rata = new CampoTesto(QStringLiteral("Rata"), nullptr, 2);
  LargoCaratteri(rata, kCifre);
  auto* percento = new CampoImporto(QStringLiteral("PercImporto"), nullptr, 0);
  LargoCaratteri(percento, kCifrePercentuale);
  auto* mesi = numero("DopoMesi");
  auto* giorni = numero("DopoGiorni");
  auto* fineMese = Casella("FineMese", tr("fine mese"));
  auto* dataFattura = Casella("DataFattura", tr("data fattura"));
  auto* giornoFisso = Casella("GiornoFisso", tr("giorno fisso del mese dopo:"));
  auto* fisso = numero("GGFisso");
  auto& sessione = finestre_.Sessione();
  auto* tipo =
      new CampoCodice(QStringLiteral("Tipo"), QString(),
                      std::make_shared<FonteTabella>(
                          [&sessione]() -> Archivio& { return sessione.ArchivioDi("tessarc"); },
                          "tipipagamento", "Cod", "Descrizione"));
  LargoCaratteri(tipo, kCifre);
  tipo->setToolTip(
      tr("per le riba su fatture tipo=03, negli altri casi il tipo è solo "
         "un'indicazione"));
  auto* descrizione = new CampoTesto(QStringLiteral("Descrizione"));
  LargoCaratteri(descrizione, kCaratteriDescrizione);
  modulo->addRow(Didascalia(tr("Rata"), rata),
                 InFila({rata, Didascalia(tr("Percentuale"), percento), percento}));
  modulo->addRow(Didascalia(tr("Dopo mesi"), mesi),
                 InFila({mesi, Didascalia(tr("e giorni"), giorni), giorni}));
  modulo->addRow(tr("Scadenza"), InFila({fineMese, dataFattura, giornoFisso, fisso}));
  modulo->addRow(Didascalia(tr("Tipo"), tipo), InFila({tipo, tipo->Etichetta()}));
  modulo->addRow(Didascalia(tr("Descrizione"), descrizione), InFila({descrizione}));
  modulo->addRow(InFila({conferma_, elimina_, annulla_}));
  for (QWidget* campo :
       std::initializer_list<QWidget*>{rata, percento, mesi, giorni, fineMese, dataFattura,
                                       giornoFisso, fisso, tipo, descrizione})
    legatura_->Lega(campo);
}

void RiquadroRata::Disponi() {
  // The open row can be given up from a field whose text can't be read.
  annulla_->setFocusPolicy(Qt::TabFocus);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(griglia_, 1);
  colonna->addWidget(InFila({nuova_}));
  colonna->addWidget(riquadro_);
  AssegnaMnemoniche({nuova_, conferma_, elimina_, annulla_});
}

void RiquadroRata::Collega() {
  connect(griglia_, &Griglia::RigaScelta, this, &RiquadroRata::Apri);
  connect(nuova_, &QPushButton::clicked, this, &RiquadroRata::Nuova);
  connect(conferma_, &QPushButton::clicked, this, [this] {
    if (Conferma()) nuova_->setFocus();
  });
  connect(elimina_, &QPushButton::clicked, this, &RiquadroRata::Elimina);
  connect(annulla_, &QPushButton::clicked, this, &RiquadroRata::Annulla);
  connect(legatura_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (!cambiato || !rate_.InRiga()) return;
    rate_.Lasciato(campo.toStdString());
    legatura_->Mostra();
  });
}

void RiquadroRata::Mostra() {
  const CodicePagamento codice = rate_.Codice(codice_());
  std::vector<std::vector<Valore>> righe;
  for (const RataPagamento& rata : codice.rate)
    righe.push_back(
        {rata.rata, rata.percImporto, TestoRata(rata, codice), rata.tipo, rata.descrizione});
  griglia_->Modello().Righe(std::move(righe));
  legatura_->Mostra();
  riquadro_->setVisible(rate_.InRiga());
  nuova_->setEnabled(!rate_.InRiga() && !solaLettura_);
  griglia_->setEnabled(!rate_.InRiga());
}

void RiquadroRata::SolaLettura(bool attiva) {
  solaLettura_ = attiva;
}

void RiquadroRata::Apri(int indice) {
  if (solaLettura_ || indice < 0) return;
  if (!rate_.ApriRiga(griglia_->Modello().Riga(indice).front().Testo())) return;
  Mostra();
  FocoInVista(conferma_);
}

void RiquadroRata::Nuova() {
  if (!rate_.NuovaRiga()) return;
  Mostra();
  riquadro_->findChild<QWidget*>(QStringLiteral("PercImporto"))->setFocus();
}

bool RiquadroRata::Conferma() {
  if (!legatura_->Raccogli()) return false;
  Rifiuto rifiuto;
  if (rate_.ConfermaRiga(&rifiuto)) {
    Mostra();
    return true;
  }
  if (auto* campo = riquadro_->findChild<QWidget*>(QString::fromStdString(rifiuto.campo)))
    campo->setFocus();
  return false;
}

void RiquadroRata::Elimina() {
  if (rate_.EliminaRiga()) Mostra();
}

bool RiquadroRata::Annulla() {
  if (!rate_.InRiga()) return false;
  rate_.AnnullaRiga();
  Mostra();
  nuova_->setFocus();
  return true;
}

bool RiquadroRata::Modificata() const {
  return rate_.InRiga() && (rate_.Riga().Modificata() || legatura_->Pendente());
}

bool RiquadroRata::ConfermaAperta() {
  if (!rate_.InRiga()) return true;
  if (Modificata()) return Conferma();
  if (!rate_.RigaNuova()) return Annulla();
  finestre_.Sessione().Dialogo().Messaggio(
      "la nuova rata non è stata confermata: confermarla o abbandonarla", Icona::Avviso);
  return false;
}

}  // namespace fenalto
