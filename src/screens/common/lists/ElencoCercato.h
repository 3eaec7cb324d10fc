// The list from which a record is chosen: what narrows it (a line to search by, a field above each
// column), what is found, and the keys and clicks that lead from one to the other.
//
// Rows come in pages as the list is scrolled, so that a long list opens as fast as a short one.
// Where no index answers a search, the records are gone through a stretch at a time between one
// event and the next, so that typing never waits, however many they are.
#pragma once

#include <QWidget>
#include <functional>

#include "core/archives/FonteElenco.h"
#include "screens/common/lists/Griglia.h"

class QHBoxLayout;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QTimer;

namespace fenalto::screens {

class RigaFiltri;

/// What a list has of its own.
struct FormaElenco {
  /// How far the reading is, for the line of text beside the search.
  struct Letti {
    int righe = 0;
    bool finito = false;   ///< no row follows
    bool cercato = false;  ///< something narrows the list
    bool aTratti = false;  ///< as FonteElenco says
    bool troppi = false;   ///< a search by stretches stopped since it has found enough
  };

  QString finestra;  ///< function that remembers the widths
  QString griglia;   ///< object names
  QString cerca;
  QString stato;
  QString segnaposto;  ///< in the empty search line
  std::vector<ColonnaGriglia> colonne;
  std::function<QString(const Letti&)> testo;  ///< what `stato` tells
  std::size_t chiave = 0;                      ///< column of what tells a record from the others
  /// Searches at each key, instead of once the keys typed so far have been taken.
  bool subito = false;
  /// A click on a header reads the rest and sorts it.
  bool ordinabile = false;
  bool statoSotto = false;               ///< `stato` stands below the rows
  std::vector<std::string> filtri = {};  ///< names of the fields above the columns; none without
};

class ElencoCercato : public QWidget {
  Q_OBJECT

 public:
  /// The source is read by `Ricarica`; it must live as long as the list.
  ElencoCercato(FormaElenco forma, archives::FonteElenco& fonte, QWidget* genitore = nullptr);
  /// The grid goes after this, and still lays its rows out: it asks nothing more.
  ~ElencoCercato() override;

  /// Reads again from the first row, with the same search.
  void Ricarica();
  /// The same, and goes back to the place where it was.
  void Rileggi();
  /// Empties the search without reading.
  void Svuota();
  /// Key of the current row, empty for none.
  [[nodiscard]] QString Indicata() const;
  /// The current row of the list, while it holds that key.
  void Indica(const QString& chiave);
  /// Esc: empties the search or the filter that is being typed; false when there was none.
  bool SvuotaRicerca();
  /// Enter in the search or in a filter: chooses the only row found, or goes to the rows. False for
  /// another control.
  bool InvioInRicerca(const QObject* controllo);
  [[nodiscard]] archives::FiltroElenco Filtro() const;
  [[nodiscard]] screens::Griglia& Griglia() const { return *griglia_; }
  [[nodiscard]] QLineEdit& Cerca() const { return *cerca_; }
  /// Search line, filters and grid as they stand.
  [[nodiscard]] std::vector<QWidget*> Controlli() const;
  /// Adds a button to the line of the search.
  void Aggiungi(QWidget* pulsante);

 signals:
  /// A row became the current one by a click.
  void Indicato(const QString& chiave);
  /// A row was double-clicked, or Enter was pressed on it.
  void Scelto(const QString& chiave);
  /// Rows were read.
  void Letto(int righe);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void Disponi();
  void Collega();
  /// Goes through stretches until the next event is due.
  void Prosegui();
  void LeggiTutte();
  void MostraStato();
  void VaiAlleRighe();
  /// What is typed in the rows goes on in the search; false for another key.
  bool ScritturaInLista(const QKeyEvent& tasto);
  [[nodiscard]] int Lette() const;
  [[nodiscard]] QString ChiaveDi(int riga) const;
  [[nodiscard]] bool InRicerca(const QObject* controllo) const;

  FormaElenco forma_;
  archives::FonteElenco& fonte_;
  QLineEdit* cerca_;
  QLabel* stato_;
  screens::Griglia* griglia_;
  RigaFiltri* filtri_ = nullptr;
  QHBoxLayout* sopra_;
  QTimer* attesa_;   ///< a search that waits for the keys already typed
  QTimer* seguito_;  ///< the next stretches
};

}  // namespace fenalto::screens
