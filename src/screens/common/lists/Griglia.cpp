#include "screens/common/lists/Griglia.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSettings>
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

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

void ModelloGriglia::Decimali(int decimali) {
  for (auto& colonna : colonne_) colonna.decimali = decimali;
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
  if (ruolo == Qt::DisplayRole) return colonna.titolo;
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
  std::stable_sort(righe_.begin(), righe_.end(), [&](const auto& a, const auto& b) {
    return ordine == Qt::AscendingOrder ? Minore(a[indice], b[indice], quale)
                                        : Minore(b[indice], a[indice], quale);
  });
  emit layoutChanged();
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
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setShowGrid(false);
  setTabKeyNavigation(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
  QSettings memoria;
  memoria.beginGroup(QStringLiteral("griglie/%1/%2").arg(finestra_, nome));
  int indice = 0;
  for (const auto& colonna : modello_->Colonne()) {
    setColumnWidth(indice, memoria.value(colonna.titolo, colonna.larghezza).toInt());
    ++indice;
  }
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int sezione, int, int nuova) {
            if (sezione == modello_->columnCount() - 1) return;
            QSettings().setValue(
                QStringLiteral("griglie/%1/%2/%3")
                    .arg(finestra_, objectName(),
                         modello_->Colonne()[static_cast<std::size_t>(sezione)].titolo),
                nuova);
          });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int sezione) {
    auto* testata = horizontalHeader();
    // Rows that come in pages keep their source's order.
    testata->setSortIndicatorShown(!modello_->APagine());
    modello_->sort(sezione, testata->sortIndicatorOrder());
  });
  // Rows shown anew keep the order that the user chose.
  connect(modello_, &QAbstractItemModel::modelReset, this, [this] {
    const auto* testata = horizontalHeader();
    if (!testata->isSortIndicatorShown()) return;
    modello_->sort(testata->sortIndicatorSection(), testata->sortIndicatorOrder());
  });
  connect(this, &QTableView::clicked, this,
          [this](const QModelIndex& riga) { emit RigaScelta(riga.row()); });
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& riga) { emit RigaDoppioClic(riga.row()); });
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

void Griglia::Copia() const {
  QStringList righe;
  QStringList testata;
  for (const auto& colonna : modello_->Colonne()) testata << colonna.titolo;
  righe << testata.join(QLatin1Char('\t'));
  for (int riga = 0; riga < modello_->rowCount(); ++riga) {
    QStringList celle;
    for (int colonna = 0; colonna < modello_->columnCount(); ++colonna) {
      celle << modello_->index(riga, colonna).data().toString();
    }
    righe << celle.join(QLatin1Char('\t'));
  }
  QApplication::clipboard()->setText(righe.join(QLatin1Char('\n')));
}

void AllargaColonna(Griglia& griglia, int colonna) {
  griglia.horizontalHeader()->setStretchLastSection(false);
  griglia.horizontalHeader()->setSectionResizeMode(colonna, QHeaderView::Stretch);
}

}  // namespace fenalto::screens
