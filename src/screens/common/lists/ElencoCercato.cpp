#include "screens/common/lists/ElencoCercato.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/RigaFiltri.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

constexpr int kTempoTurno = 25;         // ms that a search by stretches takes between two events
constexpr int kTrovateMassime = 2'000;  // rows that it stops at
constexpr int kOrdinate = 20'000;       // rows that a click on a header sorts at most
constexpr int kRilette = 5'000;         // rows read again at most to come back to a place

QTimer* ColpoSolo(QObject* genitore) {
  auto* timer = new QTimer(genitore);
  timer->setSingleShot(true);
  return timer;
}

}  // namespace

ElencoCercato::ElencoCercato(FormaElenco forma, archives::FonteElenco& fonte, QWidget* genitore)
    : QWidget(genitore),
      forma_(std::move(forma)),
      fonte_(fonte),
      cerca_(new QLineEdit),
      stato_(new EtichettaElisa),
      griglia_(new screens::Griglia(forma_.griglia, forma_.finestra, forma_.colonne)),
      sopra_(new QHBoxLayout),
      attesa_(ColpoSolo(this)),
      seguito_(ColpoSolo(this)) {
  cerca_->setObjectName(forma_.cerca);
  cerca_->setPlaceholderText(forma_.segnaposto);
  cerca_->setClearButtonEnabled(true);
  stato_->setObjectName(forma_.stato);
  if (!forma_.filtri.empty()) filtri_ = new RigaFiltri(*griglia_, forma_.filtri);
  // Rows come in pages, so the order is the source's, unless all are read first.
  griglia_->horizontalHeader()->setSectionsClickable(forma_.ordinabile);
  Disponi();
  Collega();
}

void ElencoCercato::Disponi() {
  Affianca(*sopra_, tr("Cerca"), cerca_, 1);
  if (!forma_.statoSotto) sopra_->addWidget(stato_);
  auto* righe = new QVBoxLayout;
  righe->setSpacing(Misura(Passo::Filo));
  if (filtri_ != nullptr) righe->addWidget(filtri_);
  righe->addWidget(griglia_, 1);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addLayout(sopra_);
  colonna->addLayout(righe, 1);
  if (forma_.statoSotto) colonna->addWidget(stato_);
}

ElencoCercato::~ElencoCercato() {
  griglia_->Modello().Basta();
}

void ElencoCercato::Collega() {
  const auto cambiata = [this] {
    if (forma_.subito) {
      Ricarica();
    } else {
      attesa_->start(0);
    }
  };
  cerca_->installEventFilter(this);
  griglia_->installEventFilter(this);
  connect(cerca_, &QLineEdit::textChanged, this, cambiata);
  if (filtri_ != nullptr) {
    for (auto* campo : filtri_->Campi()) campo->installEventFilter(this);
    connect(filtri_, &RigaFiltri::Cambiata, this, cambiata);
  }
  connect(attesa_, &QTimer::timeout, this, &ElencoCercato::Ricarica);
  connect(seguito_, &QTimer::timeout, this, &ElencoCercato::Prosegui);
  connect(&griglia_->Modello(), &QAbstractItemModel::rowsInserted, this, [this] {
    if (!fonte_.ATratti()) MostraStato();
  });
  connect(griglia_, &Griglia::clicked, this,
          [this](const QModelIndex& riga) { emit Indicato(ChiaveDi(riga.row())); });
  const auto scegli = [this](int riga) { emit Scelto(ChiaveDi(riga)); };
  connect(griglia_, &Griglia::RigaDoppioClic, this, scegli);
  connect(griglia_, &Griglia::RigaInvio, this, scegli);
  if (!forma_.ordinabile) return;
  connect(griglia_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int sezione) {
    LeggiTutte();
    if (!fonte_.Finita()) {
      stato_->setText(
          tr("le prime %1, ordinate: per le altre restringere la ricerca").arg(Lette()));
    }
    auto* testata = griglia_->horizontalHeader();
    testata->setSortIndicatorShown(true);
    griglia_->Modello().sort(sezione, testata->sortIndicatorOrder());
  });
}

void ElencoCercato::Ricarica() {
  attesa_->stop();
  seguito_->stop();
  if (forma_.ordinabile) griglia_->horizontalHeader()->setSortIndicatorShown(false);
  fonte_.Comincia(Filtro());
  if (fonte_.ATratti()) {
    griglia_->Modello().Righe({});
    Prosegui();
    return;
  }
  griglia_->Modello().Pagine([this](int /*da*/) {
    return fonte_.Finita() ? archives::FonteElenco::Righe() : fonte_.Avanti();
  });
  MostraStato();
}

void ElencoCercato::Prosegui() {
  QElapsedTimer turno;
  turno.start();
  const auto altre = [this] { return !fonte_.Finita() && Lette() < kTrovateMassime; };
  while (altre() && turno.elapsed() < kTempoTurno) griglia_->Modello().Aggiungi(fonte_.Avanti());
  if (!altre()) return MostraStato();
  stato_->setText(tr("cerco... (fino al n. %1)").arg(fonte_.Punto()));
  seguito_->start(0);
}

void ElencoCercato::Rileggi() {
  auto& modello = griglia_->Modello();
  const QString chiave = Indicata();
  const int lette = std::min(Lette(), kRilette);
  const int posto = griglia_->verticalScrollBar()->value();
  Ricarica();
  while (Lette() < lette && !fonte_.Finita()) modello.fetchMore({});
  // The bar's range follows the rows only at the next layout.
  griglia_->doItemsLayout();
  griglia_->verticalScrollBar()->setValue(posto);
  Indica(chiave);
}

void ElencoCercato::LeggiTutte() {
  auto& modello = griglia_->Modello();
  if (!modello.APagine()) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  while (modello.canFetchMore({}) && Lette() < kOrdinate) modello.fetchMore({});
  archives::FonteElenco::Righe righe;
  for (int i = 0; i < modello.rowCount(); ++i) righe.push_back(modello.Riga(i));
  modello.Righe(std::move(righe));
  QApplication::restoreOverrideCursor();
}

void ElencoCercato::MostraStato() {
  const bool aTratti = fonte_.ATratti();
  stato_->setText(forma_.testo({.righe = Lette(),
                                .finito = fonte_.Finita(),
                                .cercato = !Filtro().Vuoto(),
                                .aTratti = aTratti,
                                .troppi = aTratti && Lette() >= kTrovateMassime}));
  emit Letto(Lette());
}

void ElencoCercato::Svuota() {
  cerca_->clear();
  if (filtri_ != nullptr) filtri_->Svuota();
  attesa_->stop();
}

QString ElencoCercato::Indicata() const {
  const int riga = griglia_->RigaCorrente();
  return riga >= 0 ? ChiaveDi(riga) : QString();
}

void ElencoCercato::Indica(const QString& chiave) {
  if (chiave.isEmpty()) return;
  for (int riga = 0; riga < Lette(); ++riga) {
    if (ChiaveDi(riga).compare(chiave, Qt::CaseInsensitive) != 0) continue;
    griglia_->VaiARiga(riga);
    return;
  }
}

void ElencoCercato::Aggiungi(QWidget* pulsante) {
  sopra_->addWidget(pulsante);
}

int ElencoCercato::Lette() const {
  return griglia_->Modello().rowCount();
}

QString ElencoCercato::ChiaveDi(int riga) const {
  return QString::fromStdString(griglia_->Modello().Riga(riga).at(forma_.chiave).Testo());
}

archives::FiltroElenco ElencoCercato::Filtro() const {
  archives::FiltroElenco filtro{.testo = cerca_->text().trimmed().toStdString()};
  if (filtri_ != nullptr) filtro.colonne = filtri_->Testi();
  return filtro;
}

std::vector<QWidget*> ElencoCercato::Controlli() const {
  std::vector<QWidget*> controlli{cerca_};
  if (filtri_ != nullptr) {
    controlli.insert(controlli.end(), filtri_->Campi().begin(), filtri_->Campi().end());
  }
  controlli.push_back(griglia_);
  return controlli;
}

bool ElencoCercato::InRicerca(const QObject* controllo) const {
  if (controllo == cerca_) return true;
  if (filtri_ == nullptr) return false;
  const auto& campi = filtri_->Campi();
  return std::find(campi.begin(), campi.end(), controllo) != campi.end();
}

bool ElencoCercato::SvuotaRicerca() {
  if (!InRicerca(QApplication::focusWidget()) || Filtro().Vuoto()) return false;
  cerca_->clear();
  if (filtri_ != nullptr) filtri_->Svuota();
  return true;
}

void ElencoCercato::VaiAlleRighe() {
  if (Lette() == 0) return;
  griglia_->setFocus();
  griglia_->VaiARiga(std::max(0, griglia_->RigaCorrente()));
}

bool ElencoCercato::InvioInRicerca(const QObject* controllo) {
  if (!InRicerca(controllo)) return false;
  if (attesa_->isActive()) Ricarica();
  if (Lette() == 1) {
    emit Scelto(ChiaveDi(0));
  } else {
    VaiAlleRighe();
  }
  return true;
}

bool ElencoCercato::ScritturaInLista(const QKeyEvent& tasto) {
  const QString testo = tasto.text();
  if (testo.isEmpty() || !testo.front().isPrint() || testo.front().isSpace() ||
      tasto.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
    return false;
  }
  cerca_->setFocus(Qt::ShortcutFocusReason);
  cerca_->setText(testo);
  return true;
}

bool ElencoCercato::eventFilter(QObject* oggetto, QEvent* evento) {
  // From the search straight into what it has found.
  if (evento->type() == QEvent::KeyPress && InRicerca(oggetto) &&
      static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Down) {
    if (attesa_->isActive()) Ricarica();
    VaiAlleRighe();
    return true;
  }
  if (oggetto == griglia_ && evento->type() == QEvent::KeyPress) {
    return ScritturaInLista(*static_cast<QKeyEvent*>(evento));
  }
  return QWidget::eventFilter(oggetto, evento);
}

}  // namespace fenalto::screens
