#include "screens/common/lists/Griglia.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QSettings>
#include <algorithm>
#include <numeric>

#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "screens/common/lists/DelegatoGriglia.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

bool Numerica(Tipo tipo) {
  return tipo == Tipo::Importo || tipo == Tipo::Intero || tipo == Tipo::Reale;
}

QString Mostrato(const Valore& valore, const ColonnaGriglia& colonna) {
  switch (colonna.tipo) {
    case Tipo::Importo: {
      const Importo importo = valore.Importo();
      return importo.Zero() ? QString()
                            : QString::fromStdString(ScriviImporto(importo, colonna.decimali));
    }
    case Tipo::Data:
      return QString::fromStdString(valore.Data().Testo());
    case Tipo::Booleano:
      return valore.Booleano() ? QStringLiteral("sì") : QString();
    case Tipo::Intero: {
      const auto numero = valore.Intero();
      return numero == 0 ? QString() : QString::number(numero);
    }
    default:
      return QString::fromStdString(Visibile(valore.Testo()));
  }
}

bool Minore(const Valore& a, const Valore& b, const ColonnaGriglia& colonna) {
  switch (colonna.tipo) {
    case Tipo::Importo:
      return a.Importo() < b.Importo();
    case Tipo::Intero:
    case Tipo::Booleano:
      return a.Intero() < b.Intero();
    case Tipo::Data:
      return a.Data() < b.Data();
    default:
      return (colonna.numeri ? ConfrontaNumeri(a.Testo(), b.Testo())
                             : ConfrontaTesto(a.Testo(), b.Testo())) < 0;
  }
}

}  // namespace

ModelloGriglia::ModelloGriglia(std::vector<ColonnaGriglia> colonne, QObject* genitore)
    : QAbstractTableModel(genitore), colonne_(std::move(colonne)) {}

void ModelloGriglia::Righe(std::vector<std::vector<Valore>> righe) {
  beginResetModel();
  righe_ = std::move(righe);
  pagina_ = {};
  finite_ = true;
  endResetModel();
}

void ModelloGriglia::Pagine(std::function<std::vector<std::vector<Valore>>(int da)> pagina) {
  beginResetModel();
  righe_ = pagina(0);
  finite_ = righe_.empty();
  pagina_ = std::move(pagina);
  endResetModel();
}

void ModelloGriglia::Aggiungi(std::vector<std::vector<Valore>> righe) {
  if (righe.empty()) return;
  const int prima = static_cast<int>(righe_.size());
  beginInsertRows({}, prima, prima + static_cast<int>(righe.size()) - 1);
  std::move(righe.begin(), righe.end(), std::back_inserter(righe_));
  endInsertRows();
}

const std::vector<Valore>& ModelloGriglia::Riga(int indice) const {
  return righe_.at(static_cast<std::size_t>(indice));
}

void ModelloGriglia::Cella(int riga, int colonna, Valore valore) {
  righe_.at(static_cast<std::size_t>(riga)).at(static_cast<std::size_t>(colonna)) =
      std::move(valore);
  emit dataChanged(index(riga, colonna), index(riga, colonna));
}

void ModelloGriglia::Titolo(int colonna, const QString& titolo) {
  colonne_.at(static_cast<std::size_t>(colonna)).titolo = titolo;
  emit headerDataChanged(Qt::Horizontal, colonna, colonna);
}

void ModelloGriglia::Decimali(int decimali) {
  for (auto& colonna : colonne_) colonna.decimali = decimali;
}

void ModelloGriglia::Decimali(int colonna, int decimali) {
  colonne_.at(static_cast<std::size_t>(colonna)).decimali = decimali;
}

int ModelloGriglia::rowCount(const QModelIndex& genitore) const {
  return genitore.isValid() ? 0 : static_cast<int>(righe_.size());
}

int ModelloGriglia::columnCount(const QModelIndex& genitore) const {
  return genitore.isValid() ? 0 : static_cast<int>(colonne_.size());
}

QVariant ModelloGriglia::data(const QModelIndex& indice, int ruolo) const {
  if (!indice.isValid()) return {};
  const auto& colonna = colonne_[static_cast<std::size_t>(indice.column())];
  if (ruolo == Qt::DisplayRole) {
    const auto& riga = righe_[static_cast<std::size_t>(indice.row())];
    return Mostrato(riga[static_cast<std::size_t>(indice.column())], colonna);
  }
  if (ruolo == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::AlignVCenter |
                               (Numerica(colonna.tipo) ? Qt::AlignRight : Qt::AlignLeft));
  }
  return {};
}

QVariant ModelloGriglia::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
  if (verso != Qt::Horizontal) return QAbstractTableModel::headerData(sezione, verso, ruolo);
  const auto& colonna = colonne_[static_cast<std::size_t>(sezione)];
  if (ruolo == Qt::DisplayRole || ruolo == Qt::ToolTipRole) return colonna.titolo;
  if (ruolo == kRuoloChiave) return colonna.Chiave();
  if (ruolo == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::AlignVCenter |
                               (Numerica(colonna.tipo) ? Qt::AlignRight : Qt::AlignLeft));
  }
  return {};
}

void ModelloGriglia::sort(int colonna, Qt::SortOrder ordine) {
  if (colonna < 0 || pagina_) return;
  const auto indice = static_cast<std::size_t>(colonna);
  const ColonnaGriglia& quale = colonne_[indice];
  emit layoutAboutToBeChanged();
  std::vector<int> posti(righe_.size());
  std::iota(posti.begin(), posti.end(), 0);
  const auto cella = [&](int riga) -> const Valore& {
    return righe_[static_cast<std::size_t>(riga)][indice];
  };
  std::stable_sort(posti.begin(), posti.end(), [&](int a, int b) {
    return ordine == Qt::AscendingOrder ? Minore(cella(a), cella(b), quale)
                                        : Minore(cella(b), cella(a), quale);
  });
  Riordina(posti);
  emit layoutChanged();
}

void ModelloGriglia::Riordina(const std::vector<int>& posti) {
  std::vector<std::vector<Valore>> ordinate;
  std::vector<int> nuovoPosto(righe_.size());
  ordinate.reserve(righe_.size());
  for (const int vecchio : posti) {
    nuovoPosto[static_cast<std::size_t>(vecchio)] = static_cast<int>(ordinate.size());
    ordinate.push_back(std::move(righe_[static_cast<std::size_t>(vecchio)]));
  }
  righe_ = std::move(ordinate);
  // The current row stays the same record.
  for (const QModelIndex& vecchio : persistentIndexList()) {
    changePersistentIndex(
        vecchio, index(nuovoPosto[static_cast<std::size_t>(vecchio.row())], vecchio.column()));
  }
}

bool ModelloGriglia::canFetchMore(const QModelIndex& genitore) const {
  return !genitore.isValid() && !finite_;
}

void ModelloGriglia::fetchMore(const QModelIndex& genitore) {
  if (genitore.isValid() || finite_) return;
  auto altre = pagina_(static_cast<int>(righe_.size()));
  if (altre.empty()) {
    finite_ = true;
    return;
  }
  Aggiungi(std::move(altre));
}

Griglia::Griglia(const QString& nome, const QString& finestra, std::vector<ColonnaGriglia> colonne,
                 QWidget* genitore)
    : QTableView(genitore),
      finestra_(finestra),
      modello_(new ModelloGriglia(std::move(colonne), this)) {
  setObjectName(nome);
  setModel(modello_);
  setItemDelegate(new DelegatoGriglia(*this));
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setShowGrid(false);
  setTabKeyNavigation(false);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(fontMetrics().height());
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + Misura(Passo::Vicino));
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setTextElideMode(Qt::ElideRight);
  RicordaLarghezze();
  connect(modello_, &QAbstractItemModel::modelReset, this,
          [this] { FaiPostoAiNumeri(0, modello_->rowCount() - 1); });
  connect(modello_, &QAbstractItemModel::rowsInserted, this,
          [this](const QModelIndex&, int prima, int ultima) { FaiPostoAiNumeri(prima, ultima); });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &Griglia::Ordina);
  // Rows shown anew keep the order that the user chose.
  connect(modello_, &QAbstractItemModel::modelReset, this, [this] {
    const auto* testata = horizontalHeader();
    if (!testata->isSortIndicatorShown()) return;
    modello_->sort(testata->sortIndicatorSection(), testata->sortIndicatorOrder());
  });
  connect(selectionModel(), &QItemSelectionModel::currentRowChanged, viewport(),
          qOverload<>(&QWidget::update));
  connect(this, &QTableView::clicked, this,
          [this](const QModelIndex& riga) { emit RigaScelta(riga.row()); });
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& riga) { emit RigaDoppioClic(riga.row()); });
}

void Griglia::RicordaLarghezze() {
  const QString gruppo = QStringLiteral("griglie/%1/%2/").arg(finestra_, objectName());
  const QSettings memoria;
  int piuLarga = -1;
  for (int i = 0; i < modello_->columnCount(); ++i) {
    const auto& colonna = modello_->Colonne()[static_cast<std::size_t>(i)];
    // A caption is never cut at first.
    const int minima = horizontalHeader()->fontMetrics().horizontalAdvance(colonna.titolo) +
                       2 * MargineCella() + 2;
    setColumnWidth(
        i, memoria.value(gruppo + colonna.Chiave(), std::max(Cresciuta(colonna.larghezza), minima))
               .toInt());
    const bool larga =
        piuLarga < 0 ||
        colonna.larghezza > modello_->Colonne()[static_cast<std::size_t>(piuLarga)].larghezza;
    if (colonna.tipo == Tipo::Testo && larga) piuLarga = i;
  }
  Elastica(piuLarga);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this, gruppo](int sezione, int, int nuova) {
            if (adattando_) return;
            const auto& colonna = modello_->Colonne()[static_cast<std::size_t>(sezione)];
            QSettings().setValue(gruppo + colonna.Chiave(), nuova);
            if (sezione == elastica_) {
              propriaElastica_ = nuova;
            } else {
              AdattaElastica();
            }
          });
}

void Griglia::Ordina(int colonna) {
  auto* testata = horizontalHeader();
  // Rows that come in pages keep their source's order.
  testata->setSortIndicatorShown(!modello_->APagine());
  modello_->sort(colonna, testata->sortIndicatorOrder());
}

void Griglia::Elastica(int colonna) {
  adattando_ = true;
  if (elastica_ >= 0) setColumnWidth(elastica_, propriaElastica_);
  adattando_ = false;
  elastica_ = colonna;
  if (colonna >= 0) propriaElastica_ = columnWidth(colonna);
  AdattaElastica();
}

void Griglia::AdattaElastica() {
  if (elastica_ < 0) return;
  const int resta = viewport()->width() - (horizontalHeader()->length() - columnWidth(elastica_));
  adattando_ = true;
  // Where the grid has to scroll anyway, the column keeps its width.
  setColumnWidth(elastica_, resta < propriaElastica_ / 2 ? propriaElastica_ : resta);
  adattando_ = false;
}

void Griglia::focusInEvent(QFocusEvent* evento) {
  QTableView::focusInEvent(evento);
  // Entered by a key, the grid says where the arrows and Enter begin.
  if (evento->reason() != Qt::MouseFocusReason && selectionModel()->selectedRows().isEmpty()) {
    VaiARiga(std::max(0, RigaCorrente()));
  }
}

void Griglia::resizeEvent(QResizeEvent* evento) {
  QTableView::resizeEvent(evento);
  AdattaElastica();
}

void Griglia::QuandoVuota(const QString& testo) {
  vuota_ = testo;
  viewport()->update();
}

void Griglia::paintEvent(QPaintEvent* evento) {
  QTableView::paintEvent(evento);
  if (vuota_.isEmpty() || modello_->rowCount() > 0) return;
  QPainter pittore(viewport());
  pittore.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                 QPalette::PlaceholderText));
  const int margine = Misura(Passo::Stacco);
  pittore.drawText(viewport()->rect().adjusted(margine, margine, -margine, -margine),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, vuota_);
}

void Griglia::FaiPostoAiNumeri(int primaRiga, int ultimaRiga) {
  constexpr int kRighe = 300;
  const int fine = std::min(primaRiga + kRighe, ultimaRiga + 1);
  adattando_ = true;
  for (int colonna = 0; colonna < modello_->columnCount(); ++colonna) {
    if (!Numerica(modello_->Colonne()[static_cast<std::size_t>(colonna)].tipo)) continue;
    int largo = 0;
    for (int riga = primaRiga; riga < fine; ++riga) {
      largo = std::max(
          largo, fontMetrics().horizontalAdvance(modello_->index(riga, colonna).data().toString()));
    }
    largo += 2 * MargineCella();
    if (largo > columnWidth(colonna)) setColumnWidth(colonna, largo);
  }
  adattando_ = false;
  AdattaElastica();
}

void Griglia::Segna(std::function<bool(const std::vector<Valore>&)> segnata) {
  segnata_ = std::move(segnata);
  viewport()->update();
}

bool Griglia::Segnata(int riga) const {
  return segnata_ && segnata_(modello_->Riga(riga));
}

int Griglia::RigaCorrente() const {
  return currentIndex().isValid() ? currentIndex().row() : -1;
}

void Griglia::VaiARiga(int indice) {
  if (indice < 0 || indice >= modello_->rowCount()) return;
  setCurrentIndex(modello_->index(indice, 0));
  scrollTo(modello_->index(indice, 0));
}

void Griglia::keyPressEvent(QKeyEvent* evento) {
  const bool invio = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (invio && evento->modifiers() == Qt::NoModifier && RigaCorrente() >= 0) {
    const int riga = RigaCorrente();
    emit RigaScelta(riga);
    emit RigaInvio(riga);
    return;
  }
  if (evento->matches(QKeySequence::Copy)) {
    Copia();
    return;
  }
  // Keys that mean something to the window (Ins, Canc, Esc, function keys) pass through.
  if (evento->key() == Qt::Key_Insert || evento->key() == Qt::Key_Escape) {
    evento->ignore();
    return;
  }
  QTableView::keyPressEvent(evento);
}

void Griglia::contextMenuEvent(QContextMenuEvent* evento) {
  QMenu menu(this);
  menu.addAction(tr("&Copia come testo"), this, [this] { Copia(); });
  for (QWidget* sopra = parentWidget(); sopra != nullptr; sopra = sopra->parentWidget()) {
    auto* esportatore = dynamic_cast<EsportatoreGriglie*>(sopra);
    if (esportatore == nullptr) continue;
    menu.addAction(tr("&Esporta..."), this, [this, esportatore] { esportatore->Esporta(*this); });
    break;
  }
  menu.exec(evento->globalPos());
}

void Griglia::Copia() {
  while (modello_->canFetchMore({})) modello_->fetchMore({});
  QList<int> mostrate;
  QStringList testata;
  for (int colonna = 0; colonna < modello_->columnCount(); ++colonna) {
    if (isColumnHidden(colonna)) continue;
    mostrate << colonna;
    testata << modello_->Colonne()[static_cast<std::size_t>(colonna)].titolo;
  }
  QStringList righe{testata.join(QLatin1Char('\t'))};
  for (int riga = 0; riga < modello_->rowCount(); ++riga) {
    QStringList celle;
    for (const int colonna : mostrate) celle << modello_->index(riga, colonna).data().toString();
    righe << celle.join(QLatin1Char('\t'));
  }
  QApplication::clipboard()->setText(righe.join(QLatin1Char('\n')));
}

void Griglia::keyboardSearch(const QString& testo) {
  const bool segue =
      digitato_.isValid() && digitato_.elapsed() < QApplication::keyboardInputInterval();
  cercato_ = segue ? cercato_ + testo : testo;
  digitato_.start();
  const int righe = modello_->rowCount();
  // One letter goes on to the next row; more of them look again from the row that the first found.
  const int da = std::max(0, RigaCorrente()) + (segue || RigaCorrente() < 0 ? 0 : 1);
  for (int i = 0; i < righe; ++i) {
    const int riga = (da + i) % righe;
    for (int colonna = 0; colonna < modello_->columnCount(); ++colonna) {
      const QString cella = modello_->index(riga, colonna).data().toString();
      if (isColumnHidden(colonna) || !cella.startsWith(cercato_, Qt::CaseInsensitive)) continue;
      VaiARiga(riga);
      return;
    }
  }
}

}  // namespace fenalto::screens
