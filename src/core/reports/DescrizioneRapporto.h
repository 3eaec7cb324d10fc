// What describes a report: its columns, from which the text form, the graphic form and the sheet
// come, and the kinds of lines beside them.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/reports/Foglio.h"
#include "core/reports/Pagina.h"
#include "core/values/Valore.h"

namespace fenalto::reports {

/// A kind of line: the same values, in the same order, go into the placeholders of its picture
/// (text form) or into the fields of the page model (graphic form).
struct Fascia {
  std::string sagoma;
  std::vector<std::string> campi = {};  ///< one a value; "" for a value that the model doesn't show
  bool grassetto = false;               ///< of the text form; a model has its own faces
};

/// A column as it is drawn.
struct Colonna {
  std::string titolo;  ///< over the column of the text form
  /// Its piece of the line, with the bars and blanks that part it from the column before; the line
  /// is all pieces one after the other.
  std::string sagoma;
  std::string campo = {};        ///< of the model; "" when it doesn't show the column
  std::string campoTotale = {};  ///< of the model, for sums of the column
  ColonnaFoglio foglio = {};     ///< without a title the sheet lacks the column
  bool sommata = false;          ///< has sums in totals
  bool mostrata = true;          ///< on paper; what the user leaves out is still in the sheet
  /// A number that is a name (of an invoice): a text, which is cut and not starred, and stands to
  /// the right as numbers do.
  bool codice = false;
  /// Room that it wants where the model is drawn, in hundredths of a millimetre; 0 for what its
  /// picture takes.
  int largo = 0;
};

/// The face of a table whose model is drawn.
[[nodiscard]] Carattere CarattereTavola(bool grassetto = false);

/// Amounts of the summed columns, one a column (those of the others stay zero).
using Somme = std::vector<Importo>;

/// The columns of a report in their order.
class Colonne {
 public:
  explicit Colonne(std::vector<Colonna> colonne) : colonne_(std::move(colonne)) {}

  [[nodiscard]] const std::vector<Colonna>& Tutte() const { return colonne_; }
  /// Characters of a line of the text form.
  [[nodiscard]] std::size_t Larghezza() const;
  /// The lines of captions, each over its column: to the right over numbers. One that is wider than
  /// its column begins in a line above.
  [[nodiscard]] std::vector<std::string> Titoli() const;
  /// A row: the columns shown.
  [[nodiscard]] Fascia Riga() const;
  /// A total: a text up to the first summed column, and the sums. `campo` is the text's field.
  [[nodiscard]] Fascia Totale(const std::string& campo, bool grassetto = true) const;
  /// The fields for totals of the columns shown.
  [[nodiscard]] std::vector<std::string> CampiTotale() const;

  /// Text of a page model for the columns shown: each takes the room that it wants, and texts give
  /// way (they go on below) where a page on its side isn't wide enough.
  [[nodiscard]] std::string Modello(const std::string& campoScritta) const;

  /// Of the values of all columns, those that stand in the sheet.
  [[nodiscard]] std::vector<Valore> SulFoglio(const std::vector<Valore>& celle) const;
  /// The values of a total: the text and the sums of the columns shown.
  [[nodiscard]] std::vector<Valore> Totale(const std::string& scritta, const Somme& somme) const;
  /// As a row of the sheet, the text under the column of that caption.
  [[nodiscard]] std::vector<Valore> TotaleFoglio(const std::string& scritta,
                                                 const std::string& sotto,
                                                 const Somme& somme) const;
  [[nodiscard]] std::vector<ColonnaFoglio> DelFoglio() const;
  void Somma(Somme& somme, const std::vector<Valore>& celle) const;

 private:
  std::vector<Colonna> colonne_;
};

/// A column with what it shows of a row; `valore` may be a member of the row.
template <class R>
struct ColonnaDi : Colonna {
  std::function<Valore(const R&)> valore;
};

/// The table of a report over rows of type R.
template <class R>
class Tabella : public Colonne {
 public:
  explicit Tabella(const std::vector<ColonnaDi<R>>& colonne)
      : Colonne({colonne.begin(), colonne.end()}) {
    for (const ColonnaDi<R>& colonna : colonne) valori_.push_back(colonna.valore);
  }
  /// The values of all columns.
  [[nodiscard]] std::vector<Valore> Celle(const R& riga) const {
    std::vector<Valore> celle;
    celle.reserve(valori_.size());
    for (const auto& valore : valori_) celle.push_back(valore(riga));
    return celle;
  }

 private:
  std::vector<std::function<Valore(const R&)>> valori_;
};

/// A level of breaks: rows that follow each other with the same key.
template <class R>
struct Gruppo {
  std::function<bool(const R& prima, const R& dopo)> stesso;
  std::function<void(const R& prima)> apre;  ///< before the first row; may be empty
  std::function<void(const R& ultima, const Somme& somme)> chiude;
};

/// Follows a walk of rows through its breaks, the outermost level first, and adds them up.
template <class R>
class Rotture {
 public:
  Rotture(const Tabella<R>& tabella, std::vector<Gruppo<R>> gruppi)
      : tabella_(tabella),
        gruppi_(std::move(gruppi)),
        somme_(gruppi_.size() + 1, Somme(tabella.Tutte().size())) {}

  /// Ends the groups that the row isn't part of, begins its own, adds it up.
  void Riga(const R& riga, const std::vector<Valore>& celle) {
    std::size_t primo = 0;
    if (iniziata_) {
      while (primo < gruppi_.size() && gruppi_[primo].stesso(*ultima_, riga)) ++primo;
      Chiudi(primo);
    }
    for (std::size_t i = primo; i < gruppi_.size(); ++i) {
      if (gruppi_[i].apre) gruppi_[i].apre(riga);
    }
    iniziata_ = true;
    if (!gruppi_.empty()) ultima_ = riga;
    for (Somme& somme : somme_) tabella_.Somma(somme, celle);
  }
  /// Ends all groups.
  void Fine() {
    if (iniziata_) Chiudi(0);
    iniziata_ = false;
  }
  [[nodiscard]] bool Vuota() const { return !iniziata_; }
  /// Of all rows.
  [[nodiscard]] const Somme& Generali() const { return somme_.back(); }

 private:
  void Chiudi(std::size_t fino) {
    for (std::size_t i = gruppi_.size(); i > fino; --i) {
      if (gruppi_[i - 1].chiude) gruppi_[i - 1].chiude(*ultima_, somme_[i - 1]);
      somme_[i - 1].assign(somme_[i - 1].size(), Importo());
    }
  }
  const Tabella<R>& tabella_;
  std::vector<Gruppo<R>> gruppi_;
  std::vector<Somme> somme_;
  bool iniziata_ = false;
  std::optional<R> ultima_;
};

}  // namespace fenalto::reports
