// Which column of a file goes into which field.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/archives/GenereImporta.h"

namespace fenalto::archives {

/// A column's name as it is compared: letters and digits alone, without case and accents.
std::string NomeColonna(std::string_view nome);

class Corrispondenze {
 public:
  /// Proposes a field for each column: what was remembered on this station, otherwise by name and
  /// synonyms. No field stands on two columns.
  Corrispondenze(Ambiente& ambiente, const GenereImporta& genere,
                 const std::vector<CampoImporta>& campi, std::vector<std::string> colonne);

  /// Index of the field in a column, nothing for a column left out.
  [[nodiscard]] std::optional<std::size_t> Campo(std::size_t colonna) const;
  /// Index of the column that gives a field.
  [[nodiscard]] std::optional<std::size_t> Colonna(std::string_view campo) const;
  /// Puts a field (by name; empty for none) on a column; it leaves the column where it stood.
  void Abbina(std::size_t colonna, std::string_view campo);
  /// Keeps the mapping in the station's settings, for files with the same names of columns.
  void Ricorda();

 private:
  [[nodiscard]] std::string Chiave(std::size_t colonna) const;
  void Proponi();

  Ambiente& ambiente_;
  std::string sezione_;
  const std::vector<CampoImporta>& campi_;
  std::vector<std::string> colonne_;
  std::vector<std::optional<std::size_t>> scelte_;
};

}  // namespace fenalto::archives
