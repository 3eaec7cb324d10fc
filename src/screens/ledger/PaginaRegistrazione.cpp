#include "screens/ledger/PaginaRegistrazione.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

#include "screens/common/Campi.h"
#include "screens/common/Disposizione.h"
#include "screens/common/Griglia.h"
#include "screens/common/Legatura.h"
#include "screens/ledger/PannelloAllegati.h"
#include "screens/ledger/RiquadroRiga.h"

namespace fenalto {
namespace {

QCheckBox* Casella(const char* nome, const QString& testo) {
  auto* casella = new QCheckBox(testo);
  casella->setObjectName(QString::fromLatin1(nome));
  return casella;
}

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

PaginaRegistrazione::PaginaRegistrazione(Primanota& primanota, Finestre& finestre,
                                         QWidget* genitore)
    : QWidget(genitore), primanota_(primanota), finestre_(finestre) {
  legatura_ = new Legatura([this]() -> Scheda& { return primanota_.Testa(); },
                           finestre_.Sessione().Dialogo(), this);
  riga_ = new RiquadroRiga(primanota_, finestre_);
  allegati_ = new PannelloAllegati(primanota_, finestre_);
  CreaCampi();
  CreaGriglia();
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(CreaTestata());
  colonna->addWidget(solaLettura_);
  colonna->addWidget(righe_, 1);
  colonna->addWidget(riga_);
  colonna->addWidget(CreaPiede());
  Collega();
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
  solaLettura_ = EtichettaDati("AvvisoSolaLettura");
  solaLettura_->setText(tr("Registrazione in modifica altrove: si può consultare, non cambiare."));
  QFont grassetto = solaLettura_->font();
  grassetto.setBold(true);
  solaLettura_->setFont(grassetto);
  totDare_ = Totale("TotDare", decimali);
  totAvere_ = Totale("TotAvere", decimali);
  sbilancio_ = Totale("Sbilancio", decimali);
  nuovaRiga_ = Pulsante(QStringLiteral("PNuovaRiga"), tr("Nuova riga"), tr("Ins"));
  conferma_ = Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"));
  elimina_ = Pulsante(QStringLiteral("Elimina"), tr("Elimina"), tr("Ctrl+Canc"));
  annulla_ = Pulsante(QStringLiteral("Annulla"), tr("Annulla"), tr("Esc"));
  for (QWidget* campo :
       std::initializer_list<QWidget*>{numero_, data_, duplicabile_, descrizione_, probabile_}) {
    legatura_->Lega(campo);
  }
}

void PaginaRegistrazione::CreaGriglia() {
  righe_ = new Griglia(QStringLiteral("GrigliaRighe"), QStringLiteral("Movimenti"),
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
  righe_->Modello().Decimali(finestre_.Sessione().Euro() ? 2 : 0);
  righe_->setToolTip(tr("clic o Invio su una riga la apre"));
  constexpr int kRigheMinime = 4;
  righe_->setMinimumHeight(righe_->fontMetrics().height() * (kRigheMinime + 2));
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

void PaginaRegistrazione::Collega() {
  connect(legatura_, &Legatura::Lasciato, this, &PaginaRegistrazione::CampoLasciato);
  connect(automatiche_, &QCheckBox::clicked, this, [this](bool attive) {
    primanota_.ContropAutomatiche(attive);
    Mostra();
  });
  connect(righe_, &Griglia::RigaScelta, this, &PaginaRegistrazione::ApriRiga);
  // The first click has opened the row, the second has taken the focus to the grid.
  connect(righe_, &Griglia::RigaDoppioClic, this, [this](int indice) {
    ApriRiga(indice);
    if (riga_->isVisible()) riga_->PrendiFoco();
  });
  connect(riga_, &RiquadroRiga::Confermata, this, &PaginaRegistrazione::DopoRiga);
  connect(riga_, &RiquadroRiga::Eliminata, this, &PaginaRegistrazione::DopoRiga);
  connect(riga_, &RiquadroRiga::Annullata, this, [this] { DopoRiga(0); });
  connect(nuovaRiga_, &QPushButton::clicked, this, &PaginaRegistrazione::NuovaRiga);
  connect(conferma_, &QPushButton::clicked, this, &PaginaRegistrazione::Conferma);
  connect(elimina_, &QPushButton::clicked, this, &PaginaRegistrazione::Elimina);
  connect(annulla_, &QPushButton::clicked, this, &PaginaRegistrazione::AbbandonoChiesto);
}

void PaginaRegistrazione::CampoLasciato(const QString& campo, bool cambiato,
                                        Qt::FocusReason motivo) {
  if (primanota_.StatoCorrente() == Primanota::Stato::Inattiva) return;
  // The date is checked each time that it is typed, and once when the user passes through it.
  const bool diData = campo == QLatin1String("Dt");
  const Data valore = diData ? primanota_.Testa().Leggi("Dt").Data() : Data();
  const bool passata = diData && valore != dataVista_ &&
                       (motivo == Qt::TabFocusReason || motivo == Qt::BacktabFocusReason);
  if (!cambiato && !passata) return;
  if (diData) dataVista_ = valore;
  primanota_.TestaLasciata(campo.toStdString());
  Mostra();
}

bool PaginaRegistrazione::Raccogli() {
  return legatura_->Raccogli() && riga_->Raccogli();
}

bool PaginaRegistrazione::Pendente() const {
  return legatura_->Pendente() || riga_->Pendente();
}

// --- What is shown ----------------------------------------------------------------------------

void PaginaRegistrazione::Mostra() {
  const bool scrivibile = !primanota_.SolaLettura();
  for (QWidget* campo :
       std::initializer_list<QWidget*>{numero_, data_, duplicabile_, descrizione_, automatiche_,
                                       nuovaRiga_, conferma_, elimina_}) {
    campo->setEnabled(scrivibile);
  }
  solaLettura_->setVisible(!scrivibile);
  legatura_->Mostra();
  const auto& testa = primanota_.Testa();
  anno_->setText(QString::fromStdString(testa.Testo("Anno")));
  probabileDidascalia_->setVisible(!probabile_->text().isEmpty());
  const Data registrata = testa.Leggi("Dt").Data();
  const bool altroAnno = !registrata.Nulla() && registrata.Anno() != testa.Leggi("Anno").Intero();
  avvisoData_->setText(altroAnno ? tr("data di un altro anno") : QString());
  automatiche_->setChecked(primanota_.ContropAutomatiche());
  MostraRighe();
  MostraTotali();
  allegati_->Mostra();
  const bool rigaAperta = primanota_.StatoCorrente() == Primanota::Stato::RigaAperta;
  if (rigaAperta) riga_->Mostra();
  riga_->setVisible(rigaAperta);
}

void PaginaRegistrazione::MostraRighe() {
  std::vector<std::vector<Valore>> righe;
  for (const auto& riga : primanota_.Righe()) {
    righe.push_back({riga.posi, riga.causale, riga.descrCausale, riga.descrizione, riga.cfp,
                     riga.conto, riga.descrConto, riga.impoDare, riga.impoAvere, riga.contoControp,
                     riga.diversiControp, riga.num});
  }
  const int corrente = righe_->RigaCorrente();
  const auto posi = corrente >= 0 ? righe_->Modello().Riga(corrente).front().Intero() : 0;
  righe_->Modello().Righe(std::move(righe));
  VaiAPosizione(posi);
}

void PaginaRegistrazione::VaiAPosizione(std::int64_t posi) {
  for (int i = 0; i < righe_->Modello().rowCount(); ++i) {
    if (righe_->Modello().Riga(i).front().Intero() == posi) righe_->VaiARiga(i);
  }
}

void PaginaRegistrazione::MostraTotali() {
  totDare_->Mostra(primanota_.TotDare());
  totAvere_->Mostra(primanota_.TotAvere());
  sbilancio_->Mostra(primanota_.Sbilancio());
  ColoraErrato(sbilancio_, !primanota_.Sbilancio().Zero());
}

void PaginaRegistrazione::Entra() {
  dataVista_ = Data();
  Mostra();
  if (primanota_.Nuova()) {
    data_->setFocus();
  } else {
    righe_->setFocus();
    righe_->VaiARiga(0);
  }
}

// --- Rows -------------------------------------------------------------------------------------

void PaginaRegistrazione::ApriRiga(int indice) {
  if (!legatura_->Raccogli()) return;
  if (!primanota_.ApriRiga(righe_->Modello().Riga(indice).back().Intero())) return;
  riga_->Entra();
  righe_->VaiARiga(indice);
}

void PaginaRegistrazione::NuovaRiga() {
  if (!Raccogli() || !primanota_.PNuovaRiga()) return;
  riga_->Entra();
}

void PaginaRegistrazione::DopoRiga(qint64 posi) {
  Mostra();
  VaiAPosizione(posi);
  if (nuovaRiga_->isEnabled()) {
    FocoInVista(nuovaRiga_);
  } else {
    righe_->setFocus();
  }
}

bool PaginaRegistrazione::AnnullaRiga() {
  if (primanota_.StatoCorrente() != Primanota::Stato::RigaAperta) return false;
  primanota_.AnnullaRiga();
  DopoRiga(0);
  return true;
}

// --- Registration -----------------------------------------------------------------------------

void PaginaRegistrazione::Conferma() {
  if (!Raccogli()) return;
  if (primanota_.Conferma()) {
    emit Confermata(primanota_.NumeroConfermato());
  } else {
    Mostra();
  }
}

void PaginaRegistrazione::Elimina() {
  if (primanota_.Elimina()) {
    emit Eliminata();
  } else {
    Mostra();
  }
}

}  // namespace fenalto
