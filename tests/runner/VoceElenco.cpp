#include "runner/VoceElenco.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QListView>
#include <QTableView>
#include <QTreeView>

#include "runner/Campi.h"
#include "runner/Contesto.h"
#include "runner/Eventi.h"

namespace fenalto::copione {
namespace {

bool RigaNascosta(const QAbstractItemView& vista, int riga) {
  if (const auto* tabella = qobject_cast<const QTableView*>(&vista)) {
    return tabella->isRowHidden(riga);
  }
  if (const auto* elenco = qobject_cast<const QListView*>(&vista)) {
    return elenco->isRowHidden(riga);
  }
  return false;
}

/// Fetches the next page of rows; false when there is none.
bool AltraPagina(QAbstractItemView& vista) {
  auto* modello = vista.model();
  const auto radice = vista.rootIndex();
  if (!modello->canFetchMore(radice)) return false;
  const int prima = modello->rowCount(radice);
  modello->fetchMore(radice);
  SmaltisciEventi();
  return modello->rowCount(radice) > prima || modello->canFetchMore(radice);
}

/// The row of a tree counted through the branches that are open; its count when `riga` is negative.
QModelIndex RamoDi(QTreeView& albero, int riga, int& contate) {
  contate = 0;
  const auto* modello = albero.model();
  // Only the first row has to be looked for: indexBelow passes over hidden ones by itself.
  int prima = 0;
  while (albero.isRowHidden(prima, albero.rootIndex())) ++prima;
  auto indice = modello->index(prima, 0, albero.rootIndex());
  for (; indice.isValid(); indice = albero.indexBelow(indice)) {
    if (contate++ == riga) return indice;
  }
  return {};
}

int VociUguali(const QComboBox& casella, const QString& testo, bool iniziali) {
  const int esatta = casella.findText(testo, Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (esatta >= 0) return esatta;
  for (int i = 0; i < casella.count(); ++i) {
    if (casella.itemText(i).trimmed().compare(testo.trimmed(), Qt::CaseInsensitive) == 0) return i;
  }
  return iniziali && !testo.isEmpty() ? casella.findText(testo, Qt::MatchStartsWith) : -1;
}

}  // namespace

void ScegliDaCasella(Contesto& contesto, QComboBox& casella, const QString& nome,
                     const QString& testo, bool iniziali) {
  const int voce = VociUguali(casella, testo, iniziali);
  if (voce < 0) {
    QStringList voci;
    for (int i = 0; i < casella.count(); ++i) voci << casella.itemText(i);
    throw Fallimento(QStringLiteral("\"%1\" has no entry \"%2\" but: %3")
                         .arg(nome, testo, voci.join(QStringLiteral(", "))));
  }
  const QPointer<QComboBox> viva(&casella);
  casella.showPopup();
  SmaltisciEventi();
  if (!viva || !viva->view()->isVisible()) {
    throw Fallimento(QStringLiteral("the list of \"%1\" does not open").arg(nome));
  }
  const auto indice = viva->model()->index(voce, viva->modelColumn(), viva->rootModelIndex());
  if (!(indice.flags() & Qt::ItemIsEnabled)) {
    viva->hidePopup();
    throw Fallimento(QStringLiteral("the entry \"%1\" of \"%2\" is disabled").arg(testo, nome));
  }
  viva->view()->setCurrentIndex(indice);
  Premi(*viva->view(), *TastoDi("Invio"));
  if (viva && viva->view()->isVisible()) viva->hidePopup();
  contesto.Attendi();
}

int ContaRighe(QAbstractItemView& vista, int massimo) {
  while (true) {
    int righe = 0;
    if (auto* albero = qobject_cast<QTreeView*>(&vista)) {
      RamoDi(*albero, -1, righe);
    } else {
      for (int i = 0; i < vista.model()->rowCount(vista.rootIndex()); ++i) {
        if (!RigaNascosta(vista, i)) ++righe;
      }
    }
    if (righe >= massimo || !AltraPagina(vista)) return righe;
  }
}

QModelIndex IndiceDi(QAbstractItemView& vista, int riga, int colonna) {
  if (vista.model() == nullptr || ContaRighe(vista, riga + 1) <= riga) return {};
  if (auto* albero = qobject_cast<QTreeView*>(&vista)) {
    int contate = 0;
    return RamoDi(*albero, riga, contate).siblingAtColumn(colonna);
  }
  for (int i = 0; i < vista.model()->rowCount(vista.rootIndex()); ++i) {
    if (RigaNascosta(vista, i) || riga-- > 0) continue;
    return vista.model()->index(i, colonna, vista.rootIndex());
  }
  return {};
}

bool ColonnaVisibile(const QAbstractItemView& vista, int colonna) {
  if (const auto* tabella = qobject_cast<const QTableView*>(&vista)) {
    return !tabella->isColumnHidden(colonna);
  }
  if (const auto* albero = qobject_cast<const QTreeView*>(&vista)) {
    return !albero->isColumnHidden(colonna);
  }
  if (const auto* elenco = qobject_cast<const QListView*>(&vista)) {
    return elenco->modelColumn() == colonna;
  }
  return true;
}

QString TestoCella(const QAbstractItemView& vista, const QModelIndex& indice) {
  const QString testo = indice.data(Qt::DisplayRole).toString().trimmed();
  if (!testo.isEmpty()) return testo;
  if (const auto* controllo = vista.indexWidget(indice)) {
    if (const auto mostrato = TestoDi(*controllo)) return *mostrato;
  }
  const auto spunta = indice.data(Qt::CheckStateRole);
  if (!spunta.isValid()) return testo;
  return spunta.toInt() == Qt::Checked ? QStringLiteral("si") : QStringLiteral("no");
}

}  // namespace fenalto::copione
