#include "screens/ledger/PaginaRegistrazione.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/lists/Griglia.h"
#include "screens/ledger/PannelloAllegati.h"
#include "screens/ledger/RiquadroRiga.h"

namespace fenalto::screens {
namespace {

QLabel* EtichettaDati(const char* nome) {
  auto* etichetta = new QLabel;
  etichetta->setObjectName(QString::fromLatin1(nome));
  etichetta->setTextFormat(Qt::PlainText);
  return etichetta;
}

/// A total: to be read and copied, never typed into.
CampoImporto* Totale(const char* nome, int decimali) {
  constexpr int kCifre = 16;
  auto* campo = new CampoImporto(QString::fromLatin1(nome), nullptr, decimali);
  campo->setReadOnly(true);
  campo->setFocusPolicy(Qt::ClickFocus);
  LargoCaratteri(campo, kCifre);
  return campo;
}

}  // namespace

PaginaRegistrazione::PaginaRegistrazione(ledger::Primanota& primanota, Finestre& finestre,
                                         QWidget* genitore)
    : PaginaSul(primanota, finestre, genitore) {
  constexpr int kRigheMinime = 4;
  Usa(CreaGriglia(), kRigheMinime, new RiquadroRiga(caso_, finestre_));
  allegati_ = new PannelloAllegati(caso_, finestre_);
  CreaCampi();
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(CreaTestata());
  colonna->addWidget(solaLettura_);
  colonna->addWidget(righe_, 1);
  colonna->addWidget(riga_);
  colonna->addWidget(CreaPiede());
  connect(automatiche_, &QCheckBox::clicked, this, [this](bool attive) {
    caso_.ContropAutomatiche(attive);
    Mostra();
  });
  AssegnaMnemoniche(QList<QAbstractButton*>{conferma_, nuovaRiga_, elimina_} + riga_->Pulsanti() +
                    QList<QAbstractButton*>{annulla_} + allegati_->Pulsanti());
}

void PaginaRegistrazione::CreaCampi() {
  auto& sessione = finestre_.Sessione();
  const int decimali = sessione.Euro() ? 2 : 0;
  numero_ = new CampoNumero(QStringLiteral("NumDoc"));
  numero_->setToolTip(tr("vuoto: lo assegna il programma alla conferma"));
  probabile_ = EtichettaDati("ProbabileNumDoc");
  probabileDidascalia_ = new QLabel(tr("probabile n."));
  data_ = new CampoData(QStringLiteral("Dt"),
                        [&sessione] { return std::pair(sessione.Anno(), sessione.Ora().Oggi()); });
  data_->setToolTip(tr("15, 1503, 150324 o 15/3: il resto si completa da solo"));
  anno_ = EtichettaDati("AnnoRegistrazione");
  avvisoData_ = EtichettaDati("AvvisoData");
  automatiche_ = Casella("ContropAutomatiche", tr("contropartite automatiche"));
  duplicabile_ = Casella("Duplicabile", tr("duplicabile"));
  duplicabile_->setToolTip(tr("la registrazione si offre come modello per quelle nuove"));
  descrizione_ = new CampoTesto(QStringLiteral("DescrArtDupl"));
  descrizione_->setPlaceholderText(tr("nome nell'elenco delle registrazioni duplicabili"));
  solaLettura_->setText(tr("Registrazione in modifica altrove: si può consultare, non cambiare."));
  totDare_ = Totale("TotDare", decimali);
  totAvere_ = Totale("TotAvere", decimali);
  sbilancio_ = Totale("Sbilancio", decimali);
  for (QWidget* campo :
       std::initializer_list<QWidget*>{numero_, data_, duplicabile_, descrizione_, probabile_}) {
    legatura_->Lega(campo);
  }
}

Griglia* PaginaRegistrazione::CreaGriglia() {
  return new Griglia(QStringLiteral("GrigliaRighe"), QStringLiteral("Movimenti"),
                     {{tr("Posi"), Tipo::Intero, 50},
                      {tr("Causale"), Tipo::Testo, 60},
                      {tr("Descr. causale"), Tipo::Testo, 130},
                      {tr("Descrizione"), Tipo::Testo, 170},
                      {tr("CFP"), Tipo::Testo, 40},
                      {tr("Conto"), Tipo::Testo, 80},
                      {tr("Descr. conto"), Tipo::Testo, 180},
                      {tr("Dare"), Tipo::Importo, 100},
                      {tr("Avere"), Tipo::Importo, 100},
                      {tr("Controp."), Tipo::Testo, 80},
                      {tr("Diversi"), Tipo::Booleano, 50}});
}

QWidget* PaginaRegistrazione::CreaTestata() {
  auto* testata = new QWidget;
  auto* riga = new QHBoxLayout(testata);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->addLayout(DisponiTestata(), 3);
  riga->addWidget(allegati_, 2);
  testata->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  return testata;
}

QGridLayout* PaginaRegistrazione::DisponiTestata() {
  constexpr int kCifreNumero = 10;
  constexpr int kCifreData = 11;
  LargoCaratteri(numero_, kCifreNumero);
  LargoCaratteri(data_, kCifreData);
  auto* griglia = new QGridLayout;
  griglia->setHorizontalSpacing(8);
  griglia->setVerticalSpacing(4);
  griglia->addWidget(Didascalia(tr("Articolo n."), numero_), 0, 0);
  griglia->addWidget(numero_, 0, 1);
  auto* probabile = new QHBoxLayout;
  probabile->setContentsMargins(0, 0, 16, 0);
  probabile->addWidget(probabileDidascalia_);
  probabile->addWidget(probabile_);
  griglia->addLayout(probabile, 0, 2);
  griglia->addWidget(Didascalia(tr("Data"), data_), 0, 3, Qt::AlignRight);
  griglia->addWidget(data_, 0, 4);
  griglia->addWidget(new QLabel(tr("Anno")), 0, 5);
  griglia->addWidget(anno_, 0, 6);
  griglia->addWidget(avvisoData_, 0, 7);
  griglia->addWidget(Didascalia(tr("Modello"), descrizione_), 1, 0);
  griglia->addWidget(duplicabile_, 1, 1);
  griglia->addWidget(descrizione_, 1, 2, 1, 6);
  griglia->setColumnStretch(7, 1);
  griglia->setRowStretch(2, 1);
  return griglia;
}

QWidget* PaginaRegistrazione::CreaPiede() {
  auto* piede = new QWidget;
  auto* riga = new QHBoxLayout(piede);
  riga->setContentsMargins(0, 0, 0, 0);
  const struct {
    QString testo;
    CampoImporto* campo;
  } totali[] = {{tr("Dare"), totDare_}, {tr("Avere"), totAvere_}, {tr("Sbilancio"), sbilancio_}};
  for (const auto& totale : totali) {
    riga->addWidget(Didascalia(totale.testo, totale.campo));
    riga->addWidget(totale.campo);
  }
  riga->addSpacing(12);
  riga->addWidget(automatiche_);
  riga->addStretch(1);
  for (auto* pulsante : {nuovaRiga_, conferma_, elimina_, annulla_}) riga->addWidget(pulsante);
  return piede;
}

// --- What is shown ----------------------------------------------------------------------------

void PaginaRegistrazione::Mostra() {
  const bool scrivibile = !caso_.SolaLettura();
  for (QWidget* campo :
       std::initializer_list<QWidget*>{numero_, data_, duplicabile_, descrizione_, automatiche_,
                                       nuovaRiga_, conferma_, elimina_}) {
    campo->setEnabled(scrivibile);
  }
  solaLettura_->setVisible(!scrivibile);
  legatura_->Mostra();
  const auto& testa = caso_.Testa();
  anno_->setText(QString::fromStdString(testa.Testo("Anno")));
  probabileDidascalia_->setVisible(!probabile_->text().isEmpty());
  const Data registrata = testa.Leggi("Dt").Data();
  const bool altroAnno = !registrata.Nulla() && registrata.Anno() != testa.Leggi("Anno").Intero();
  avvisoData_->setText(altroAnno ? tr("data di un altro anno") : QString());
  automatiche_->setChecked(caso_.ContropAutomatiche());
  MostraElencoRighe();
  MostraTotali();
  allegati_->Mostra();
  MostraRiquadro();
}

void PaginaRegistrazione::MostraElencoRighe() {
  std::vector<std::vector<Valore>> righe;
  for (const auto& riga : caso_.Righe()) {
    righe.push_back({riga.posi, riga.causale, riga.descrCausale, riga.descrizione, riga.cfp,
                     riga.conto, riga.descrConto, riga.impoDare, riga.impoAvere, riga.contoControp,
                     riga.diversiControp, riga.num});
  }
  MostraRighe(std::move(righe));
}

void PaginaRegistrazione::MostraTotali() {
  totDare_->Mostra(caso_.TotDare());
  totAvere_->Mostra(caso_.TotAvere());
  sbilancio_->Mostra(caso_.Sbilancio());
  ColoraErrato(sbilancio_, !caso_.Sbilancio().Zero());
}

void PaginaRegistrazione::FocoData() {
  data_->setFocus();
}

// --- Rows -------------------------------------------------------------------------------------

void PaginaRegistrazione::ApriRiga(int indice) {
  if (!legatura_->Raccogli()) return;
  if (!caso_.ApriRiga(righe_->Modello().Riga(indice).back().Intero())) return;
  riga_->Entra();
  righe_->VaiARiga(indice);
}

void PaginaRegistrazione::NuovaRiga() {
  if (!Raccogli() || !caso_.PNuovaRiga()) return;
  riga_->Entra();
}

// --- Registration -----------------------------------------------------------------------------

std::optional<std::int64_t> PaginaRegistrazione::ConfermaRegistrazione() {
  if (caso_.Conferma()) return caso_.NumeroConfermato();
  Mostra();
  return std::nullopt;
}

bool PaginaRegistrazione::EliminaRegistrazione() {
  if (caso_.Elimina()) return true;
  Mostra();
  return false;
}

}  // namespace fenalto::screens
