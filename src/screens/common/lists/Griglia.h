// A read-only grid: sort on headers, remembered widths, copy as text, type to search.
//
// The current row is seen whether the grid has the focus or not. The widest column of text takes
// the room that the others leave, so that amounts keep their width; when there is too little room
// the grid scrolls.
#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QTableView>
#include <functional>
#include <vector>

#include "core/values/Valore.h"

namespace fenalto::screens {

struct ColonnaGriglia {
  QString titolo;  ///< for people
  Tipo tipo = Tipo::Testo;
  int larghezza = 100;  ///< pixels at first
  int decimali = 2;     ///< of amounts
  /// Name that the grid's query gives it, several parted by a bar; the caption where there is none.
  QString chiave = {};
  bool numeri = false;  ///< a text that is sorted as numbers are: of an invoice

  [[nodiscard]] const QString& Chiave() const { return chiave.isEmpty() ? titolo : chiave; }
};

/// Role of a header under which a column tells its key.
constexpr int kRuoloChiave = Qt::UserRole;

/// Rows of values held in memory.
class ModelloGriglia : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit ModelloGriglia(std::vector<ColonnaGriglia> colonne, QObject* genitore = nullptr);
  /// Replaces all rows; each has one value a column, and may have more that aren't shown.
  void Righe(std::vector<std::vector<Valore>> righe);
  /// Adds rows at the end.
  void Aggiungi(std::vector<std::vector<Valore>> righe);
  [[nodiscard]] const std::vector<Valore>& Riga(int indice) const;
  /// Replaces one value; the rest of the grid stays as it is.
  void Cella(int riga, int colonna, Valore valore);
  void Decimali(int decimali);
  /// Of one column.
  void Decimali(int colonna, int decimali);
  /// Another caption of a column; its key stays.
  void Titolo(int colonna, const QString& titolo);
  [[nodiscard]] const std::vector<ColonnaGriglia>& Colonne() const { return colonne_; }

  [[nodiscard]] int rowCount(const QModelIndex& genitore = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& genitore = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& indice, int ruolo) const override;
  [[nodiscard]] QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;
  void sort(int colonna, Qt::SortOrder ordine) override;
  bool canFetchMore(const QModelIndex& genitore) const override;
  void fetchMore(const QModelIndex& genitore) override;

  /// Rows that come in pages: `pagina(da)` returns the next rows after the `da` already there, and
  /// none at the end. Sorting is then left to the source.
  void Pagine(std::function<std::vector<std::vector<Valore>>(int da)> pagina);
  /// Asks for no further page, since what they come from goes; the rows stay.
  void Basta() { finite_ = true; }
  [[nodiscard]] bool APagine() const { return static_cast<bool>(pagina_); }

 private:
  /// Puts the rows in the order of these places, and what points at them with them.
  void Riordina(const std::vector<int>& posti);

  std::vector<ColonnaGriglia> colonne_;
  std::vector<std::vector<Valore>> righe_;
  std::function<std::vector<std::vector<Valore>>(int)> pagina_;
  bool finite_ = true;
};

class Griglia;

/// A window that can write its grids to a file: what a grid looks for above itself.
class EsportatoreGriglie {
 public:
  virtual ~EsportatoreGriglie() = default;
  /// Writes a grid of the window to a spreadsheet file that the user chooses.
  virtual void Esporta(Griglia& griglia) = 0;
};

class Griglia : public QTableView {
  Q_OBJECT

 public:
  /// `nome` is the object name; `finestra` names the window for the remembered widths.
  Griglia(const QString& nome, const QString& finestra, std::vector<ColonnaGriglia> colonne,
          QWidget* genitore = nullptr);
  [[nodiscard]] ModelloGriglia& Modello() { return *modello_; }
  /// Index of the current row, -1 for none.
  [[nodiscard]] int RigaCorrente() const;
  void VaiARiga(int indice);
  /// Gives a column the room that the others leave.
  void Elastica(int colonna);
  /// What is told in place of rows while there are none: why, and what to do next.
  void QuandoVuota(const QString& testo);
  /// Rows for which `segnata` holds are shown as chosen.
  void Segna(std::function<bool(const std::vector<Valore>& riga)> segnata);
  [[nodiscard]] bool Segnata(int riga) const;
  /// From the current row on, the next one with a cell that begins with what is typed.
  void keyboardSearch(const QString& testo) override;

 signals:
  /// A row was clicked, or Enter was pressed on it.
  void RigaScelta(int indice);
  void RigaDoppioClic(int indice);
  /// Enter was pressed on a row.
  void RigaInvio(int indice);

 protected:
  void keyPressEvent(QKeyEvent* evento) override;
  void contextMenuEvent(QContextMenuEvent* evento) override;
  void focusInEvent(QFocusEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  void paintEvent(QPaintEvent* evento) override;

 private:
  void RicordaLarghezze();
  void Ordina(int colonna);
  void AdattaElastica();
  /// Makes columns of numbers as wide as their greatest one: half a number is a wrong one.
  void FaiPostoAiNumeri(int primaRiga, int ultimaRiga);
  void Copia();

  QString finestra_;
  ModelloGriglia* modello_;
  std::function<bool(const std::vector<Valore>&)> segnata_;
  QString vuota_;
  QString cercato_;  ///< typed so far
  QElapsedTimer digitato_;
  int elastica_ = -1;
  int propriaElastica_ = 0;  ///< its own width; it is never squeezed below half of it
  bool adattando_ = false;   ///< a width that changes isn't the user's
};

}  // namespace fenalto::screens
