#include "screens/ledger/ElencoRegistrazioni.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "screens/common/Disposizione.h"
#include "screens/common/Griglia.h"

namespace fenalto {
namespace {

constexpr int kPagina = 200;
constexpr std::int64_t kTratto = 4'000;  // numbers gone through by one statement of a search
constexpr int kTempoTurno = 25;          // ms that a search takes between two events
constexpr int kTrovateMassime = 2'000;

using RigheGriglia = std::vector<std::vector<Valore>>;

RigheGriglia ComeRighe(const std::vector<ArticoloLetto>& letti) {
  RigheGriglia righe;
  righe.reserve(letti.size());
  for (const auto& letto : letti) {
    righe.push_back({letto.numero, letto.data, letto.dare, letto.avere});
  }
  return righe;
}

}  // namespace

ElencoRegistrazioni::ElencoRegistrazioni(Ambiente& ambiente, QWidget* genitore)
    : QWidget(genitore),
      lettore_(ambiente),
      cerca_(new QLineEdit),
      stato_(new QLabel),
      griglia_(new Griglia(QStringLiteral("ElencoArticoli"), QStringLiteral("Movimenti"),
                           {{tr("Numero"), Tipo::Intero, 70},
                            {tr("Data"), Tipo::Data, 90},
                            {tr("Dare"), Tipo::Testo, 240},
                            {tr("Avere"), Tipo::Testo, 240}})),
      ripresa_(new QTimer(this)) {
  cerca_->setObjectName(QStringLiteral("CercaArticoli"));
  cerca_->setPlaceholderText(tr("numero, data, oppure conto o parte della sua descrizione"));
  cerca_->setClearButtonEnabled(true);
  cerca_->installEventFilter(this);
  stato_->setObjectName(QStringLiteral("StatoRicerca"));
  // The order is the source's: rows come in pages.
  griglia_->horizontalHeader()->setSectionsClickable(false);
  ripresa_->setSingleShot(true);

  auto* sopra = new QHBoxLayout;
  sopra->addWidget(Didascalia(tr("Cerca"), cerca_));
  sopra->addWidget(cerca_, 1);
  sopra->addWidget(stato_);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addLayout(sopra);
  colonna->addWidget(griglia_, 1);

  connect(cerca_, &QLineEdit::textChanged, this, &ElencoRegistrazioni::Ricarica);
  connect(ripresa_, &QTimer::timeout, this, &ElencoRegistrazioni::Prosegui);
  connect(griglia_, &Griglia::clicked, this,
          [this](const QModelIndex& riga) { emit Indicato(NumeroDi(riga.row())); });
  connect(griglia_, &Griglia::RigaDoppioClic, this,
          [this](int riga) { emit Scelto(NumeroDi(riga)); });
  connect(griglia_, &Griglia::RigaInvio, this, [this](int riga) { emit Scelto(NumeroDi(riga)); });
}

qint64 ElencoRegistrazioni::NumeroDi(int riga) const {
  return griglia_->Modello().Riga(riga).front().Intero();
}

void ElencoRegistrazioni::FocoCerca() {
  cerca_->setFocus();
}

void ElencoRegistrazioni::Ricarica() {
  ripresa_->stop();
  lettore_.Dimentica();
  ricerca_ = lettore_.Interpreta(cerca_->text().toStdString());
  sotto_ = lettore_.Inizio();
  stato_->clear();
  if (!ricerca_.immediata) {
    griglia_->Modello().Righe({});
    Prosegui();
    return;
  }
  griglia_->Modello().Pagine([this](int da) {
    if (da == 0) sotto_ = lettore_.Inizio();
    auto letti = lettore_.Pagina(ricerca_, sotto_, 0, kPagina);
    if (!letti.empty()) sotto_ = letti.back().numero;
    return ComeRighe(letti);
  });
  if (griglia_->Modello().rowCount() == 0 && !cerca_->text().trimmed().isEmpty()) DiTrovate();
}

void ElencoRegistrazioni::Prosegui() {
  QElapsedTimer turno;
  turno.start();
  auto& modello = griglia_->Modello();
  while (sotto_ > 1 && modello.rowCount() < kTrovateMassime && turno.elapsed() < kTempoTurno) {
    const std::int64_t oltre = std::max<std::int64_t>(0, sotto_ - 1 - kTratto);
    const auto letti = lettore_.Pagina(ricerca_, sotto_, oltre, kPagina);
    const bool altri = letti.size() == static_cast<std::size_t>(kPagina);
    sotto_ = altri ? letti.back().numero : oltre + 1;
    modello.Aggiungi(ComeRighe(letti));
  }
  if (sotto_ > 1 && modello.rowCount() < kTrovateMassime) {
    stato_->setText(tr("cerco... (fino al n. %1)").arg(sotto_));
    ripresa_->start(0);
    return;
  }
  DiTrovate();
}

void ElencoRegistrazioni::DiTrovate() {
  const int trovate = griglia_->Modello().rowCount();
  if (trovate >= kTrovateMassime) {
    stato_->setText(tr("le ultime %1: restringere la ricerca").arg(trovate));
  } else {
    stato_->setText(trovate == 0   ? tr("nessuna registrazione")
                    : trovate == 1 ? tr("1 registrazione")
                                   : tr("%1 registrazioni").arg(trovate));
  }
}

QString ElencoRegistrazioni::Descrizione(std::int64_t numero) {
  const auto letto = lettore_.Uno(numero);
  if (!letto) return {};
  QString testo = QString::fromStdString(letto->data.Testo());
  const QString dare = QString::fromStdString(letto->dare);
  const QString avere = QString::fromStdString(letto->avere);
  if (!dare.isEmpty() || !avere.isEmpty()) {
    testo += QStringLiteral("   %1  →  %2").arg(dare, avere);
  }
  return testo;
}

bool ElencoRegistrazioni::eventFilter(QObject* oggetto, QEvent* evento) {
  // From the search line straight into what it has found.
  if (oggetto == cerca_ && evento->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Down &&
      griglia_->Modello().rowCount() > 0) {
    griglia_->setFocus();
    griglia_->VaiARiga(std::max(0, griglia_->RigaCorrente()));
    return true;
  }
  return QWidget::eventFilter(oggetto, evento);
}

}  // namespace fenalto
