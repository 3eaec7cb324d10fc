// Commands on combo boxes, lists, trees and grids.
#include <QAbstractItemView>
#include <QComboBox>
#include <QPointer>
#include <QTreeView>
#include <algorithm>
#include <limits>

#include "runner/Contesto.h"
#include "runner/Eventi.h"
#include "runner/VoceElenco.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::copione {
namespace {

QAbstractItemView& VistaDi(const Ricerca& ricerca, QWidget& controllo, const QString& nome) {
  auto* vista = qobject_cast<QAbstractItemView*>(&controllo);
  if (vista == nullptr || vista->model() == nullptr) {
    ricerca.Fallisci(nome, QStringLiteral("is no grid, list or tree"));
  }
  return *vista;
}

int PrimaColonna(const QAbstractItemView& vista) {
  const int colonne = vista.model()->columnCount(vista.rootIndex());
  for (int i = 0; i < colonne; ++i) {
    if (ColonnaVisibile(vista, i)) return i;
  }
  return 0;
}

QString Righe(QAbstractItemView& vista) {
  return QString::number(ContaRighe(vista, std::numeric_limits<int>::max()));
}

/// Scrolls to a cell and gives the point of it that can be clicked.
QPoint PuntoCella(QAbstractItemView& vista, const QModelIndex& indice, const QString& nome) {
  vista.scrollTo(indice);
  SmaltisciEventi();
  const QRect cella = vista.visualRect(indice).intersected(vista.viewport()->rect());
  if (cella.isEmpty()) {
    throw Fallimento(QStringLiteral("\"%1\" has no room to show the row").arg(nome));
  }
  return cella.center();
}

/// Moves the focus to a view as a click does, and finds the view anew when that rebuilt the window.
QAbstractItemView& VistaPronta(Contesto& contesto, const QString& nome) {
  auto ricerca = contesto.Cerca();
  const QPointer<QAbstractItemView> vista(&VistaDi(ricerca, ricerca.Usabile(nome), nome));
  if (vista->focusPolicy() != Qt::NoFocus) {
    MettiFuoco(*vista, Qt::MouseFocusReason);
    contesto.Attendi();
  }
  if (vista && vista->isVisible()) {
    ricerca.Accerta(*vista, nome);
    return *vista;
  }
  auto nuova = contesto.Cerca();
  return VistaDi(nuova, nuova.Usabile(nome), nome);
}

void PremiRiga(Contesto& contesto, const Comando& comando, bool doppio) {
  const QString nome = Qs(comando.Testo(0));
  auto& vista = VistaPronta(contesto, nome);
  const auto indice = IndiceDi(vista, comando.Numero(1) - 1, PrimaColonna(vista));
  if (!indice.isValid()) {
    throw Fallimento(QStringLiteral("\"%1\" has %2 rows, no row %3")
                         .arg(nome, Righe(vista))
                         .arg(comando.Numero(1)));
  }
  const QPoint punto = PuntoCella(vista, indice, nome);
  if (doppio) {
    DoppioClic(*vista.viewport(), punto);
  } else {
    Clic(*vista.viewport(), punto);
  }
}

/// The first cell with that text, branches of a tree included.
QModelIndex CercaVoce(QAbstractItemView& vista, const QModelIndex& sotto, const QString& testo,
                      Qt::CaseSensitivity caso) {
  auto* modello = vista.model();
  while (modello->canFetchMore(sotto)) {
    const int prima = modello->rowCount(sotto);
    modello->fetchMore(sotto);
    if (modello->rowCount(sotto) == prima) break;
  }
  for (int riga = 0; riga < modello->rowCount(sotto); ++riga) {
    for (int colonna = 0; colonna < modello->columnCount(sotto); ++colonna) {
      const auto indice = modello->index(riga, colonna, sotto);
      if (ColonnaVisibile(vista, colonna) &&
          TestoCella(vista, indice).compare(testo.trimmed(), caso) == 0) {
        return indice;
      }
    }
    const auto ramo = modello->index(riga, 0, sotto);
    if (qobject_cast<QTreeView*>(&vista) == nullptr || !modello->hasChildren(ramo)) continue;
    if (const auto dentro = CercaVoce(vista, ramo, testo, caso); dentro.isValid()) return dentro;
  }
  return {};
}

/// Whether a header's key, or one of several, is that name.
bool HaChiave(const QVariant& chiavi, const QString& nome) {
  const auto parti = chiavi.toString().split(QLatin1Char('|'));
  return std::any_of(parti.begin(), parti.end(), [&](const QString& parte) {
    return parte.simplified().compare(nome, Qt::CaseInsensitive) == 0;
  });
}

/// Column by its key, by the caption of its header, or by its number from 1.
int ColonnaDi(const QAbstractItemView& vista, const QString& nome, const QString& colonna) {
  const auto* modello = vista.model();
  QList<int> visibili;
  QStringList testate;
  for (int i = 0; i < modello->columnCount(vista.rootIndex()); ++i) {
    if (!ColonnaVisibile(vista, i)) continue;
    visibili << i;
    testate << modello->headerData(i, Qt::Horizontal).toString().simplified();
  }
  for (const int i : visibili) {
    const auto chiavi = modello->headerData(i, Qt::Horizontal, screens::kRuoloChiave);
    if (HaChiave(chiavi, colonna.simplified())) return i;
  }
  for (qsizetype i = 0; i < testate.size(); ++i) {
    if (testate[i].compare(colonna.simplified(), Qt::CaseInsensitive) == 0) return visibili[i];
  }
  bool numero = false;
  const int indice = colonna.toInt(&numero) - 1;
  if (numero && indice >= 0 && indice < visibili.size()) return visibili[indice];
  throw Fallimento(QStringLiteral("\"%1\" has no column \"%2\" but: %3")
                       .arg(nome, colonna, testate.join(QStringLiteral(", "))));
}

}  // namespace

void Scegli(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const QString testo = Qs(comando.Testo(1));
  const auto ricerca = contesto.Cerca();
  const QPointer<QWidget> controllo(&ricerca.Usabile(nome));
  if (auto* casella = qobject_cast<QComboBox*>(controllo.data())) {
    MettiFuoco(*casella, Qt::MouseFocusReason);
    contesto.Attendi();
    if (!controllo) ricerca.Fallisci(nome, QStringLiteral("went away"));
    ricerca.Accerta(*casella, nome);
    ScegliDaCasella(contesto, *casella, nome, testo, false);
    return;
  }
  auto& vista = VistaPronta(contesto, nome);
  auto indice = CercaVoce(vista, vista.rootIndex(), testo, Qt::CaseSensitive);
  if (!indice.isValid()) {
    indice = CercaVoce(vista, vista.rootIndex(), testo, Qt::CaseInsensitive);
  }
  if (!indice.isValid()) {
    throw Fallimento(
        QStringLiteral("\"%1\" has no entry \"%2\" in its %3 rows").arg(nome, testo, Righe(vista)));
  }
  if (auto* albero = qobject_cast<QTreeView*>(&vista)) {
    for (auto ramo = indice.parent(); ramo.isValid(); ramo = ramo.parent()) albero->expand(ramo);
  }
  Clic(*vista.viewport(), PuntoCella(vista, indice, nome));
}

void Riga(Contesto& contesto, const Comando& comando) {
  PremiRiga(contesto, comando, false);
}

void DoppioClicRiga(Contesto& contesto, const Comando& comando) {
  PremiRiga(contesto, comando, true);
}

void VerificaRighe(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const auto ricerca = contesto.Cerca();
  auto& controllo = ricerca.Trova(nome);
  const auto* casella = qobject_cast<QComboBox*>(&controllo);
  const int righe = casella != nullptr ? casella->count()
                                       : ContaRighe(VistaDi(ricerca, controllo, nome),
                                                    std::numeric_limits<int>::max());
  if (righe != comando.Numero(1)) {
    throw Fallimento(
        QStringLiteral("\"%1\" has %2 rows, not %3").arg(nome).arg(righe).arg(comando.Numero(1)));
  }
}

void VerificaCella(Contesto& contesto, const Comando& comando) {
  const QString nome = Qs(comando.Testo(0));
  const auto ricerca = contesto.Cerca();
  auto& vista = VistaDi(ricerca, ricerca.Trova(nome), nome);
  const int colonna = ColonnaDi(vista, nome, Qs(comando.Testo(2)));
  const auto indice = IndiceDi(vista, comando.Numero(1) - 1, colonna);
  if (!indice.isValid()) {
    throw Fallimento(QStringLiteral("\"%1\" has %2 rows, no row %3")
                         .arg(nome, Righe(vista))
                         .arg(comando.Numero(1)));
  }
  const QString testo = TestoCella(vista, indice);
  if (testo != Qs(comando.Testo(3)).trimmed()) {
    throw Fallimento(QStringLiteral("\"%1\" row %2 column %3 shows \"%4\", not \"%5\"")
                         .arg(nome)
                         .arg(comando.Numero(1))
                         .arg(Qs(comando.Testo(2)), testo, Qs(comando.Testo(3))));
  }
}

}  // namespace fenalto::copione
