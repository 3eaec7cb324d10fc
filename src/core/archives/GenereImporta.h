// What can be imported from a file: a kind is a description of the table, its fields and its
// checks.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::archives {

/// A value that stands in files under several texts ("Patrimoniale" for "P").
struct ValoreAmmesso {
  std::string valore;
  std::vector<std::string> sinonimi = {};
};

struct CampoImporta {
  std::string nome;  ///< column of the table; its type tells how a text is read
  std::string didascalia;
  std::vector<std::string> sinonimi = {};  ///< captions that files use
  bool obbligatorio = false;               ///< of a new record
  std::size_t lunghezza = 60;              ///< greatest length of a text
  std::string riferimento = {};            ///< table of codes that the value must be in
  std::vector<ValoreAmmesso> ammessi = {};
  std::optional<std::pair<int, int>> limiti = {};  ///< least and greatest number
  /// Of a field of rows beside the record (a product's suppliers): their table, and the column
  /// there. The kind writes them (conScrittura).
  std::string accanto = {};
  std::string colonna = {};
};

/// A line of the file, read.
struct RigaImporta {
  std::size_t linea = 0;
  std::string tabella;  ///< it goes into
  bool nuova = true;    ///< no such code is stored
  /// Fields that the file gives, and what a kind adds to a new record.
  std::vector<Coppia> valori = {};
  std::vector<Coppia> accanto = {};  ///< the same of fields beside the record, by the fields' names
  /// A code that an earlier line has: only what stands beside the record is new.
  bool seguito = false;

  [[nodiscard]] bool Ha(std::string_view campo) const;
  /// Value of a field, Null when there is none.
  [[nodiscard]] Valore Leggi(std::string_view campo) const;
  [[nodiscard]] std::string Testo(std::string_view campo) const;
  void Scrivi(std::string_view campo, Valore valore);
};

/// One reason why a line can't be imported. `campo` is the field's name, empty for the whole line.
struct MotivoImporta {
  std::string campo;
  std::string motivo;
};

/// What a kind's checks may look at: codes stored, and lines of the file already found right.
class ContestoImporta {
 public:
  explicit ContestoImporta(Ambiente& ambiente) : ambiente_(ambiente) {}
  [[nodiscard]] Ambiente& Sessione() const { return ambiente_; }
  /// Whether a code is stored or comes from the file; the codes of a table are read once.
  bool Esiste(const std::string& tabella, const std::string& codice);
  [[nodiscard]] bool Memorizzato(const std::string& tabella, const std::string& codice);
  /// A field of a code, as it will be after the import; Null when there is no such code.
  Valore Campo(const std::string& tabella, const std::string& codice, const std::string& campo);
  /// The first code whose field has that value; "" when there is none. Looked up once.
  std::string Proposto(const std::string& tabella, const std::string& campo,
                       const std::string& valore);
  /// A line was found right: its code counts from now on.
  void Accolta(const RigaImporta& riga);

 private:
  Ambiente& ambiente_;
  using Codici = std::map<std::string, RigaImporta>;
  /// By table, then by code without case: the accepted line, or an empty one for a stored code.
  std::map<std::string, Codici> tavole_;
  Codici& Tavola(const std::string& tabella);
  std::map<std::string, std::map<std::string, Valore>> letti_;
  std::map<std::string, std::string> proposti_;
};

struct GenereImporta {
  std::string nome;    ///< "Clienti": name under which the mapping is remembered
  std::string titolo;  ///< "clienti": what is told of
  /// Tables that lines go into, in the order of checks and writing; keyed by `Cod`.
  std::vector<std::string> tabelle;
  std::vector<CampoImporta> campi;  ///< `Cod` among them

  /// Which table a line with that code goes into; empty: the first.
  std::function<std::string(const std::string& codice)> tabellaDi = {};
  /// The kind's own proposals and checks of a line whose fields were found right.
  std::function<std::vector<MotivoImporta>(ContestoImporta&, RigaImporta&)> controlla = {};
  /// What else is written with a line, in the import's transaction.
  std::function<void(Ambiente&, const RigaImporta&)> conScrittura = {};
  /// Field beside the record that makes a repeated code a further row of it; empty: no code comes
  /// twice.
  std::string ripetutoPer = {};
};

}  // namespace fenalto::archives
