// What the binder knows of the data: tables with typed columns, stored queries, mirrored columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/values/Valore.h"

namespace fenalto::sql {

struct ColonnaCatalogo {
  std::string nome;
  Tipo tipo = Tipo::Testo;
  /// The column accepts Null; otherwise its empty value is "", 0, False or the null date.
  bool ammetteNull = false;
  /// A counter that fills itself on insertion.
  bool contatore = false;
  /// A column of the store's own (a mirror kept by triggers): not part of `*`, not writable.
  bool nascosta = false;
  /// A text that usually holds a number, as that of an invoice: beside a number it is compared by
  /// its digits, 0 stands for the empty one, and it is sorted as numbers are.
  bool cifre = false;
};

/// Columns of another table kept beside each row of this one by triggers: the binder drops a join
/// that only reads them. `specchio` is Null exactly when the other table has no row of that key.
struct Specchio {
  std::string tabella;              ///< the other table ("Articoli")
  std::vector<std::string> chiave;  ///< key, same names on both sides ("Anno","NumDoc")
  std::vector<std::pair<std::string, std::string>> colonne;  ///< {other's column, local mirror}
};

struct TabellaCatalogo {
  std::string nome;
  /// Name as the engine takes it, qualified and quoted: "\"x3\".\"Movimenti\"".
  std::string nomeMotore;
  std::vector<ColonnaCatalogo> colonne;
  /// Columns of the primary key, in order.
  std::vector<std::string> chiave;
  std::vector<Specchio> specchi;

  /// Column by name, without case; null when there is none.
  [[nodiscard]] const ColonnaCatalogo* Colonna(std::string_view nomeColonna) const;
};

/// A stored query: a name for a SELECT of the dialect.
struct VistaCatalogo {
  std::string nome;
  std::string testo;
};

class Catalogo {
 public:
  virtual ~Catalogo() = default;
  /// Names are compared without case; null when there is no such table or query.
  [[nodiscard]] virtual const TabellaCatalogo* Tabella(std::string_view nome) const = 0;
  [[nodiscard]] virtual const VistaCatalogo* Vista(std::string_view nome) const = 0;
};

}  // namespace fenalto::sql
