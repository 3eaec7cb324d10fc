#include "screens/duedates/reports/FinestraSituazioneScadenze.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "core/values/FormatoImporto.h"
#include "duedates/reports/SituazioneScadenze.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/lists/PiedeGriglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/reports/GraficoBarre.h"
#include "screens/common/windows/InCorso.h"

namespace fenalto::screens {
namespace {

enum Pagina { kSituazione = 0, kScadenze = 1 };

constexpr int kLarghezzaMesi = 550;
/// Columns of the due dates that say nothing when a party is chosen.
constexpr int kColonneParte[] = {1, 2};
/// After the columns shown: the due date's place in the list, which sorting doesn't change.
constexpr std::size_t kPosto = 12;

/// The amounts told under the parties, in the order of GrigliaParti.
constexpr std::array<const char*, duedates::kFasce + 2> kNomiTotali = {
    "TotAScadere", "TotFino30", "TotFino60", "TotFino90", "TotOltre", "TotScaduto", "Totale"};

QString Scritto(Importo importo) {
  return Qs(ScriviImporto(importo, 2));
}

/// Classes, what is overdue of them, all.
std::array<Importo, kNomiTotali.size()> Importi(const duedates::ImportiFasce& fasce) {
  return {fasce.Di(duedates::Fascia::AScadere),
          fasce.Di(duedates::Fascia::Fino30),
          fasce.Di(duedates::Fascia::Fino60),
          fasce.Di(duedates::Fascia::Fino90),
          fasce.Di(duedates::Fascia::Oltre),
          fasce.Scaduto(),
          fasce.Totale()};
}

std::vector<Valore> Celle(const duedates::ScadenzaStampata& s, Data alla, std::int64_t posto) {
  const auto ritardo = duedates::GiorniRitardo(s.dt, alla);
  return {s.dt,     s.conto,           s.ragsoc,
          s.nFat,   s.dtFat,           s.DescrizioneSegnata(),
          s.tipo,   s.StatoInParola(), s.importo,
          s.pagato, s.Residuo(),       ritardo ? Valore(*ritardo) : Valore(),
          posto};
}

}  // namespace

struct FinestraSituazioneScadenze::Interno {
  Interno(FinestraSituazioneScadenze& finestraUsata, Finestre& gestoreUsato);
  void CreaGriglie();
  QHBoxLayout* CreaScelta();
  PiedeGriglia* CreaTotali();
  QWidget* CreaSituazione();
  QWidget* CreaScadenze();
  void Collega();
  [[nodiscard]] duedates::SceltaSituazione Scelta() const;
  void DataLasciata();
  void Carica();
  /// Reads again, and stays on the due dates of the party at hand.
  void Rileggi();
  void Mostra(const duedates::Situazione& situazione);
  void MostraGrafico(const duedates::Situazione& situazione);
  /// The open due dates of a party; of all, when empty.
  void VediScadenze(const std::string& quale, const std::string& ragsoc);
  /// The same of the party in a row.
  void VediParte(int riga);
  void VediScadenza(int riga);

  FinestraSituazioneScadenze& finestra;
  Finestre& gestore;
  duedates::SituazioneScadenze situazioni;
  std::vector<duedates::ScadenzaStampata> elencate;
  Data mostrata;  ///< day of what is shown
  /// Code and name of the party whose due dates are listed; empty for all.
  std::pair<std::string, std::string> vista;

  QComboBox* classe = new QComboBox;
  CampoData* alla;
  QTabWidget* schede = new QTabWidget;
  Griglia* parti = nullptr;
  Griglia* mesi = nullptr;
  Griglia* scadenze = nullptr;
  GraficoBarre* grafico = new GraficoBarre(QStringLiteral("Grafico"));
  std::array<QLabel*, kNomiTotali.size()> totali{};
  QLabel* parte = new QLabel;
  QLabel* totaleScadenze = new QLabel;
  QPushButton* aggiorna;
  QPushButton* tutte;
  QPushButton* esporta;
  bool leggendo = false;
};

FinestraSituazioneScadenze::Interno::Interno(FinestraSituazioneScadenze& finestraUsata,
                                             Finestre& gestoreUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      situazioni(gestoreUsato.Sessione()),
      alla(CampoGiorno("AllaData", gestoreUsato.Sessione())),
      aggiorna(Pulsante(QStringLiteral("Aggiorna"), tr("Aggiorna"), tr("F5"))),
      tutte(Pulsante(QStringLiteral("Tutte"), tr("Tutte le scadenze"))),
      esporta(Pulsante(QStringLiteral("XlsEsp"), tr("Esporto in Excel"))) {
  CreaGriglie();
  PreparaSchede(*schede, QStringLiteral("SSTab1"));
  schede->addTab(CreaSituazione(), tr("Situazione"));
  schede->addTab(CreaScadenze(), tr("Scadenze"));
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(CreaScelta());
  colonna->addWidget(schede, 1);
  AssegnaMnemoniche({aggiorna, tutte, esporta});
  Collega();
}

void FinestraSituazioneScadenze::Interno::CreaGriglie() {
  parti = new Griglia(QStringLiteral("GrigliaParti"), finestra.Nome(),
                      {{tr("Conto"), Tipo::Testo, 80},
                       {tr("Cliente/fornitore"), Tipo::Testo, 230, 2, QStringLiteral("Ragsoc")},
                       {tr("Scadenze"), Tipo::Intero, 60, 2, QStringLiteral("n_scad")},
                       {tr("A scadere"), Tipo::Importo, 105, 2, QStringLiteral("a scadere")},
                       {tr("Fino a 30 giorni"), Tipo::Importo, 105, 2, QStringLiteral("fino a 30")},
                       {tr("Fino a 60"), Tipo::Importo, 105, 2, QStringLiteral("fino a 60")},
                       {tr("Fino a 90"), Tipo::Importo, 105, 2, QStringLiteral("fino a 90")},
                       {tr("Oltre 90"), Tipo::Importo, 105, 2, QStringLiteral("oltre")},
                       {tr("Scaduto"), Tipo::Importo, 110, 2, QStringLiteral("scaduto")},
                       {tr("Totale"), Tipo::Importo, 115, 2, QStringLiteral("totale")}});
  parti->Elastica(1);
  parti->QuandoVuota(QObject::tr("nessuna scadenza aperta nel periodo scelto"));
  mesi = new Griglia(QStringLiteral("GrigliaMesi"), finestra.Nome(),
                     {{tr("Mese"), Tipo::Testo, 108, 2, QStringLiteral("mese")},
                      {tr("Scadenze"), Tipo::Intero, 50, 2, QStringLiteral("n_scad")},
                      {tr("Scaduto"), Tipo::Importo, 90, 2, QStringLiteral("scaduto")},
                      {tr("A scadere"), Tipo::Importo, 90, 2, QStringLiteral("a scadere")},
                      {tr("Totale"), Tipo::Importo, 90, 2, QStringLiteral("totale")},
                      {tr("Progressivo"), Tipo::Importo, 95, 2, QStringLiteral("progressivo")}});
  // By name, April would come first.
  mesi->setSortingEnabled(false);
  scadenze =
      new Griglia(QStringLiteral("GrigliaScadenze"), finestra.Nome(),
                  {{tr("Scadenza"), Tipo::Data, 90, 2, QStringLiteral("DataScad")},
                   {tr("Conto"), Tipo::Testo, 80},
                   {tr("Cliente/fornitore"), Tipo::Testo, 200, 2, QStringLiteral("Ragsoc")},
                   {tr("N. fattura"), Tipo::Testo, 70, 2, QStringLiteral("NFat"), true},
                   {tr("Data fattura"), Tipo::Data, 90, 2, QStringLiteral("DtFat")},
                   {tr("Descrizione"), Tipo::Testo, 240},
                   {tr("Tipo"), Tipo::Testo, 45},
                   {tr("Stato"), Tipo::Testo, 85},
                   {tr("Importo"), Tipo::Importo, 100},
                   {tr("Pagato"), Tipo::Importo, 100},
                   {tr("Residuo"), Tipo::Importo, 100},
                   {tr("Giorni di ritardo"), Tipo::Intero, 80, 2, QStringLiteral("gg_ritardo")}});
  scadenze->Elastica(5);
  scadenze->QuandoVuota(QObject::tr("scegliere una riga qui sopra: le sue scadenze si vedono qui"));
}

QHBoxLayout* FinestraSituazioneScadenze::Interno::CreaScelta() {
  classe->setObjectName(QStringLiteral("CFPx"));
  classe->addItem(QStringLiteral("C"), QStringLiteral("C"));
  classe->addItem(QStringLiteral("F"), QStringLiteral("F"));
  classe->setToolTip(tr("C clienti, F fornitori"));
  const duedates::SceltaSituazione proposta = situazioni.Proposta();
  classe->setCurrentIndex(classe->findData(Qs(proposta.cfp)));
  alla->Mostra(proposta.alla);
  alla->setToolTip(tr("le scadenze anteriori a questa data sono date per scadute"));
  auto* riga = new QHBoxLayout;
  Affianca(*riga, tr("Scadenze aperte di"), classe);
  Affianca(*riga, tr("alla data del"), alla);
  riga->addWidget(aggiorna);
  riga->addStretch(1);
  riga->addWidget(tutte);
  riga->addWidget(esporta);
  return riga;
}

PiedeGriglia* FinestraSituazioneScadenze::Interno::CreaTotali() {
  constexpr int kPrimaFascia = 3;  // column of the first
  auto* piede = new PiedeGriglia(*parti, tr("Totali"));
  for (std::size_t i = 0; i < kNomiTotali.size(); ++i) {
    auto* importo = totali.at(i) = new QLabel;
    importo->setObjectName(QString::fromLatin1(kNomiTotali.at(i)));
    importo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    importo->setTextInteractionFlags(Qt::TextSelectableByMouse);
    InGrassetto(*importo);
    piede->Metti(kPrimaFascia + static_cast<int>(i), importo);
  }
  return piede;
}

QWidget* FinestraSituazioneScadenze::Interno::CreaSituazione() {
  auto* pagina = new QWidget;
  auto* sotto = new QHBoxLayout;
  mesi->setMinimumWidth(Cresciuta(kLarghezzaMesi));
  sotto->addWidget(mesi);
  sotto->addWidget(grafico, 1);
  auto* colonna = new QVBoxLayout(pagina);
  colonna->addWidget(parti, 3);
  colonna->addWidget(CreaTotali());
  colonna->addLayout(sotto, 2);
  grafico->setAccessibleName(tr("Scaduto e a scadere per mese"));
  parti->setToolTip(tr("doppio clic o Invio: le scadenze aperte"));
  return pagina;
}

QWidget* FinestraSituazioneScadenze::Interno::CreaScadenze() {
  auto* pagina = new QWidget;
  parte->setObjectName(QStringLiteral("Parte"));
  totaleScadenze->setObjectName(QStringLiteral("TotaleScadenze"));
  totaleScadenze->setAlignment(Qt::AlignRight);
  scadenze->setToolTip(tr("doppio clic o Invio: la registrazione"));
  auto* colonna = new QVBoxLayout(pagina);
  colonna->addWidget(parte);
  colonna->addWidget(scadenze, 1);
  colonna->addWidget(totaleScadenze);
  return pagina;
}

void FinestraSituazioneScadenze::Interno::Collega() {
  auto* f = &finestra;
  connect(classe, &QComboBox::currentIndexChanged, f, [this] { Carica(); });
  connect(alla, &QLineEdit::editingFinished, f, [this] { DataLasciata(); });
  connect(aggiorna, &QPushButton::clicked, f, [this] { Rileggi(); });
  connect(tutte, &QPushButton::clicked, f, [this] { VediScadenze({}, {}); });
  connect(esporta, &QPushButton::clicked, f,
          [this] { finestra.Esporta(schede->currentIndex() == kScadenze ? *scadenze : *parti); });
  // The page turned to by hand shows what is chosen on the first.
  connect(schede, &QTabWidget::currentChanged, f, [this](int pagina) {
    if (pagina == kScadenze) VediParte(parti->RigaCorrente());
  });
  const auto vediParte = [this](int riga) { VediParte(riga); };
  connect(parti, &Griglia::RigaDoppioClic, f, vediParte);
  connect(parti, &Griglia::RigaInvio, f, vediParte);
  const auto vediScadenza = [this](int riga) { VediScadenza(riga); };
  connect(scadenze, &Griglia::RigaDoppioClic, f, vediScadenza);
  connect(scadenze, &Griglia::RigaInvio, f, vediScadenza);
}

duedates::SceltaSituazione FinestraSituazioneScadenze::Interno::Scelta() const {
  duedates::SceltaSituazione scelta;
  scelta.cfp = classe->currentData().toString().toStdString();
  if (const auto letta = alla->Letto()) scelta.alla = letta.Valore().Data();
  return scelta;
}

void FinestraSituazioneScadenze::Interno::DataLasciata() {
  const auto letta = alla->Letto();
  ColoraErrato(alla, !letta);
  if (!letta) return;
  alla->Mostra(letta.Valore());
  if (letta.Valore().Data() != mostrata) Rileggi();
}

void FinestraSituazioneScadenze::Interno::Rileggi() {
  const bool scadenzeInVista = schede->currentIndex() == kScadenze;
  Carica();
  if (scadenzeInVista && tutte->isEnabled()) VediScadenze(vista.first, vista.second);
}

void FinestraSituazioneScadenze::Interno::Carica() {
  if (leggendo) return;
  if (const auto letta = alla->Letto(); !letta) {
    gestore.Sessione().Dialogo().Messaggio(letta.Errore().messaggio, Icona::Avviso);
    alla->setFocus();
    return;
  }
  const InCorso inCorso(leggendo);
  const duedates::SceltaSituazione scelta = Scelta();
  mostrata = scelta.alla;
  elencate.clear();
  scadenze->Modello().Righe({});
  parte->clear();
  totaleScadenze->clear();
  schede->setCurrentIndex(kSituazione);
  // What couldn't be read whole isn't shown at all.
  const auto situazione = situazioni.Calcola(scelta);
  Mostra(situazione.value_or(duedates::Situazione{}));
  if (!situazione) grafico->MostraTesto(tr("La situazione non è stata letta"));
  esporta->setEnabled(situazione && situazione->scadenze != 0);
  tutte->setEnabled(esporta->isEnabled());
}

void FinestraSituazioneScadenze::Interno::Mostra(const duedates::Situazione& situazione) {
  std::vector<std::vector<Valore>> righe;
  righe.reserve(situazione.parti.size());
  for (const duedates::ParteAperta& p : situazione.parti) {
    std::vector<Valore> celle = {p.conto, p.ragsoc, p.scadenze};
    for (const Importo importo : Importi(p.importi)) celle.emplace_back(importo);
    righe.push_back(std::move(celle));
  }
  parti->Modello().Righe(std::move(righe));
  if (!situazione.parti.empty()) parti->VaiARiga(0);
  righe.clear();
  for (const duedates::MeseAperto& m : situazione.mesi) {
    righe.push_back(
        {duedates::NomeMese(m.mese), m.scadenze, m.scaduto, m.aScadere, m.Totale(), m.progressivo});
  }
  mesi->Modello().Righe(std::move(righe));
  const auto importi = Importi(situazione.totali);
  for (std::size_t i = 0; i < importi.size(); ++i) totali.at(i)->setText(Scritto(importi.at(i)));
  MostraGrafico(situazione);
}

void FinestraSituazioneScadenze::Interno::MostraGrafico(const duedates::Situazione& situazione) {
  if (situazione.scadenze == 0) return grafico->MostraTesto(tr("Non ci sono scadenze aperte"));
  std::vector<GraficoBarre::Gruppo> gruppi;
  for (const duedates::ColonnaMesi& colonna : duedates::ColonneMesi(situazione.mesi, mostrata)) {
    gruppi.push_back(
        {Qs(colonna.nome),
         {colonna.scaduto, colonna.aScadere},
         tr("%1\nscaduto %2\na scadere %3")
             .arg(Qs(colonna.nome), Scritto(colonna.scaduto), Scritto(colonna.aScadere))});
  }
  grafico->Mostra({{tr("scaduto"), {190, 60, 45}, {240, 130, 110}},
                   {tr("a scadere"), {40, 100, 160}, {120, 180, 235}}},
                  std::move(gruppi), {{{0, 1}, QString()}});
}

void FinestraSituazioneScadenze::Interno::VediScadenze(const std::string& quale,
                                                       const std::string& ragsoc) {
  if (leggendo) return;
  const InCorso inCorso(leggendo);
  auto aperte = situazioni.Aperte(Scelta(), quale);
  if (!aperte) return;
  vista = {quale, ragsoc};
  elencate = std::move(*aperte);
  Importo residuo;
  std::vector<std::vector<Valore>> righe;
  righe.reserve(elencate.size());
  for (const duedates::ScadenzaStampata& s : elencate) {
    righe.push_back(Celle(s, mostrata, static_cast<std::int64_t>(righe.size())));
    residuo += s.Residuo();
  }
  const bool vuota = righe.empty();
  scadenze->Modello().Righe(std::move(righe));
  for (const int colonna : kColonneParte) scadenze->setColumnHidden(colonna, !quale.empty());
  parte->setText(quale.empty() ? tr("tutte le scadenze aperte") : Qs(quale + "  " + ragsoc));
  const QString quante =
      elencate.size() == 1 ? tr("1 scadenza") : tr("%1 scadenze").arg(elencate.size());
  totaleScadenze->setText(tr("%1    residuo %2").arg(quante, Scritto(residuo)));
  schede->setCurrentIndex(kScadenze);
  if (!vuota) scadenze->VaiARiga(0);
  scadenze->setFocus();
}

void FinestraSituazioneScadenze::Interno::VediParte(int riga) {
  if (leggendo || riga < 0) return;
  const auto& celle = parti->Modello().Riga(riga);
  VediScadenze(celle[0].Testo(), celle[1].Testo());
}

void FinestraSituazioneScadenze::Interno::VediScadenza(int riga) {
  const auto posto = static_cast<std::size_t>(scadenze->Modello().Riga(riga)[kPosto].Intero());
  gestore.Segui(elencate.at(posto).RinvioARegistrazione());
}

FinestraSituazioneScadenze::FinestraSituazioneScadenze(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("SituazioneScadenze"), tr("Situazione scadenze"), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->Carica();
}

FinestraSituazioneScadenze::~FinestraSituazioneScadenze() {
  hide();  // nothing is read from its fields any more
}

void FinestraSituazioneScadenze::ApriRecord(const Rinvio& rinvio) {
  Interno& io = *interno_;
  const int classe = io.classe->findData(Qs(rinvio.classe));
  if (classe < 0) return;
  // Another class is read as it is chosen.
  if (classe == io.classe->currentIndex()) {
    io.Carica();
  } else {
    io.classe->setCurrentIndex(classe);
  }
  if (rinvio.scheda != kScadenze || !io.tutte->isEnabled()) {
    io.parti->setFocus();
    return;
  }
  io.VediScadenze({}, {});
  const auto prima = std::ranges::find_if(io.elencate, [&io](const auto& scadenza) {
    return !duedates::GiorniRitardo(scadenza.dt, io.mostrata) && !scadenza.dt.Nulla();
  });
  if (prima != io.elencate.end()) {
    io.scadenze->VaiARiga(static_cast<int>(prima - io.elencate.begin()));
  }
}

void FinestraSituazioneScadenze::Aggiorna() {
  interno_->Rileggi();
}

bool FinestraSituazioneScadenze::Indietro() {
  if (interno_->schede->currentIndex() != kScadenze) return false;
  interno_->schede->setCurrentIndex(kSituazione);
  interno_->parti->setFocus();
  return true;
}

}  // namespace fenalto::screens
