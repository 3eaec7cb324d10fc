#include "screens/vat/ElencoFatture.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "screens/common/Disposizione.h"
#include "screens/common/EsportaGriglia.h"
#include "screens/common/Griglia.h"

namespace fenalto {
namespace {

constexpr int kPagina = 100;
constexpr std::size_t kColonnaArticolo = 1;

}  // namespace

ElencoFatture::ElencoFatture(Ambiente& ambiente, QWidget* genitore)
    : QWidget(genitore),
      ambiente_(ambiente),
      lettore_(ambiente),
      cerca_(new QLineEdit),
      stato_(new QLabel),
      griglia_(new Griglia(QStringLiteral("ElencoFatture"), QStringLiteral("Fatture"),
                           {{tr("Protocollo"), Tipo::Intero, 75},
                            {tr("Articolo"), Tipo::Intero, 65},
                            {tr("Data"), Tipo::Data, 80},
                            {tr("Codice"), Tipo::Testo, 70},
                            {tr("Cliente/fornitore"), Tipo::Testo, 160},
                            {tr("N. fattura"), Tipo::Testo, 80},
                            {tr("Data fattura"), Tipo::Data, 85},
                            {tr("Totale"), Tipo::Importo, 90}})),
      esporta_(Pulsante(QStringLiteral("XlsEsp"), tr("Esporta..."))),
      ripresa_(new QTimer(this)) {
  griglia_->Modello().Decimali(ambiente.Euro() ? 2 : 0);
  cerca_->setObjectName(QStringLiteral("CercaFatture"));
  cerca_->setPlaceholderText(tr("numero, data, cliente o fornitore"));
  cerca_->setToolTip(
      tr("protocollo, articolo, numero della fattura, data, oppure codice o parte del nome"));
  cerca_->setClearButtonEnabled(true);
  cerca_->installEventFilter(this);
  stato_->setObjectName(QStringLiteral("StatoRicerca"));
  ripresa_->setSingleShot(true);

  auto* sopra = new QHBoxLayout;
  sopra->addWidget(Didascalia(tr("Cerca"), cerca_));
  sopra->addWidget(cerca_, 1);
  sopra->addWidget(stato_);
  sopra->addWidget(esporta_);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addLayout(sopra);
  colonna->addWidget(griglia_, 1);

  // Once the keys already typed have been taken.
  connect(cerca_, &QLineEdit::textChanged, this, [this] { ripresa_->start(0); });
  connect(ripresa_, &QTimer::timeout, this, &ElencoFatture::Ricarica);
  connect(griglia_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int sezione) {
    LeggiTutte();
    auto* testata = griglia_->horizontalHeader();
    testata->setSortIndicatorShown(true);
    griglia_->Modello().sort(sezione, testata->sortIndicatorOrder());
  });
  connect(griglia_, &Griglia::clicked, this,
          [this](const QModelIndex& riga) { emit Indicato(NumeroDi(riga.row())); });
  connect(griglia_, &Griglia::RigaDoppioClic, this,
          [this](int riga) { emit Scelto(NumeroDi(riga)); });
  connect(griglia_, &Griglia::RigaInvio, this, [this](int riga) { emit Scelto(NumeroDi(riga)); });
  connect(esporta_, &QPushButton::clicked, this,
          [this] { EsportaGriglia(*griglia_, ambiente_, titolo_); });
}

qint64 ElencoFatture::NumeroDi(int riga) const {
  return griglia_->Modello().Riga(riga)[kColonnaArticolo].Intero();
}

void ElencoFatture::Mostra(const std::string& riva, const std::string& classe,
                           const std::string& titolo) {
  if (riva != riva_) cerca_->clear();
  riva_ = riva;
  classe_ = classe;
  titolo_ = titolo;
  Ricarica();
}

void ElencoFatture::Ricarica() {
  ripresa_->stop();
  lettore_.Dimentica();
  const std::string condizione = lettore_.Interpreta(cerca_->text().toStdString(), classe_);
  griglia_->horizontalHeader()->setSortIndicatorShown(false);
  griglia_->Modello().Pagine([this, condizione](int da) {
    if (da == 0) fino_ = LettoreFatture::kDallInizio;
    std::vector<std::vector<Valore>> righe;
    for (const auto& letta : lettore_.Pagina(riva_, condizione, fino_, kPagina)) {
      righe.push_back({letta.nProt, letta.numDoc, letta.data, letta.conto, letta.descrConto,
                       letta.nFat, letta.dtFat, letta.totale});
      fino_ = letta.numDoc - 1;
    }
    return righe;
  });
  DiTrovate();
}

void ElencoFatture::LeggiTutte() {
  auto& modello = griglia_->Modello();
  if (!modello.APagine()) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  while (modello.canFetchMore({})) modello.fetchMore({});
  std::vector<std::vector<Valore>> righe;
  for (int i = 0; i < modello.rowCount(); ++i) righe.push_back(modello.Riga(i));
  modello.Righe(std::move(righe));
  QApplication::restoreOverrideCursor();
}

void ElencoFatture::DiTrovate() {
  const bool vuoto = griglia_->Modello().rowCount() == 0;
  esporta_->setEnabled(!vuoto);
  stato_->setText(vuoto && !riva_.empty() ? tr("nessuna registrazione") : QString());
}

QString ElencoFatture::Descrizione(std::int64_t numero) {
  const auto letta = lettore_.Una(numero);
  if (!letta) return {};
  const int decimali = ambiente_.Euro() ? 2 : 0;
  return tr("registro %1 prot. %2   %3   %4   %5  %6")
      .arg(QString::fromStdString(letta->riva))
      .arg(letta->nProt)
      .arg(QString::fromStdString(letta->data.Testo()),
           QString::fromStdString(ScriviImporto(letta->totale, decimali)),
           QString::fromStdString(letta->conto), QString::fromStdString(letta->descrConto));
}

bool ElencoFatture::eventFilter(QObject* oggetto, QEvent* evento) {
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
