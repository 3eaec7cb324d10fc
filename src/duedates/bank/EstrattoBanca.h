// A bank statement as banks let it be downloaded (.csv): lines of day, amount and description.
//
// Columns are found by their names, which the user may correct; the mapping is remembered. A line
// that can't be read for sure is put aside with the reason, never guessed.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/archives/Corrispondenze.h"
#include "core/session/Ambiente.h"
#include "core/session/Csv.h"
#include "core/values/Esito.h"
#include "duedates/bank/LineeEstratto.h"

namespace fenalto::duedates {

/// What a line gives: `Data`, `Descrizione`, and `Importo` with its sign or `Addebito` and
/// `Accredito` apart.
const std::vector<archives::CampoImporta>& CampiEstratto();

class EstrattoBanca {
 public:
  explicit EstrattoBanca(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Reads the file and finds the columns; what was open stays open on an error. Lines are read by
  /// Leggi.
  Esito<bool> Apri(const std::filesystem::path& file);
  Esito<bool> ApriTesto(std::string_view byte);
  [[nodiscard]] bool Aperto() const { return corrispondenze_ != nullptr; }
  [[nodiscard]] const TabellaCsv& Tabella() const { return tabella_; }
  /// Only while open.
  [[nodiscard]] archives::Corrispondenze& Abbinamenti() { return *corrispondenze_; }

  /// Reads the lines by the columns chosen, and remembers these. An error says which column is
  /// missing.
  Esito<bool> Leggi();
  [[nodiscard]] const std::vector<LineaEstratto>& Linee() const { return lette_.linee; }
  [[nodiscard]] const std::vector<LineaScartata>& Scartate() const { return lette_.scartate; }

 private:
  Esito<bool> Prendi(Esito<TabellaCsv> letta);

  Ambiente& ambiente_;
  TabellaCsv tabella_;
  std::unique_ptr<archives::Corrispondenze> corrispondenze_;
  LineeEstratto lette_;
};

}  // namespace fenalto::duedates
