// A record being edited: named, typed fields that controls are bound to by name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Catalogo.h"
#include "core/store/Rs.h"
#include "core/values/Valore.h"

namespace fenalto {

class Scheda {
 public:
  Scheda() = default;
  /// The visible columns of a table, all empty.
  explicit Scheda(const sql::TabellaCatalogo& tabella);
  /// A field that isn't a column of the table.
  void Aggiungi(std::string nome, Tipo tipo);

  [[nodiscard]] bool Ha(std::string_view campo) const;
  /// Of all fields, as they came.
  [[nodiscard]] std::vector<std::string> Nomi() const;
  [[nodiscard]] Tipo TipoDi(std::string_view campo) const;
  /// Value of a field; throws std::out_of_range on an unknown name.
  [[nodiscard]] const Valore& Leggi(std::string_view campo) const;
  [[nodiscard]] std::string Testo(std::string_view campo) const { return Leggi(campo).Testo(); }
  /// Sets a field, converted to its type.
  void Scrivi(std::string_view campo, const Valore& valore);
  /// All fields empty and not changed.
  void Svuota();
  /// Takes the fields that a row has by name; not changed afterwards.
  void Carica(const Rs& riga);
  /// Fields and values of the table's own columns without its counter, for a write.
  [[nodiscard]] std::vector<std::pair<std::string, Valore>> Campi() const;

  /// Whether a field differs from what it was at Svuota, Carica or Consolida.
  [[nodiscard]] bool Modificata() const;
  /// The same of one field; throws std::out_of_range on an unknown name.
  [[nodiscard]] bool Modificata(std::string_view campo) const;
  /// What is there now counts as not changed.
  void Consolida();

 private:
  struct Campo {
    std::string nome;
    Tipo tipo = Tipo::Testo;
    Valore valore;
    Valore originale;
    bool diTabella = true;
    bool contatore = false;
    bool ammetteNull = false;
  };
  [[nodiscard]] const Campo* Trova(std::string_view campo) const;
  [[nodiscard]] const Campo& Preso(std::string_view campo) const;
  static bool Diverso(const Campo& campo);
  static Valore Convertito(const Campo& campo, const Valore& valore);
  std::vector<Campo> campi_;
};

}  // namespace fenalto
