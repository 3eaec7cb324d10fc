// Registrations erased by the many, with their rows and with what is attached to them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// In the caller's transaction: erases the registrations that meet a condition on Articoli (whose
/// columns it names without the table), all of one year. The files attached to them can only go
/// once it is committed.
class RegistrazioniEliminate {
 public:
  RegistrazioniEliminate(Ambiente& ambiente, Archivio& tessarc)
      : ambiente_(ambiente), tessarc_(tessarc) {}
  /// How many were erased.
  std::int64_t Elimina(int anno, const std::string& criterio);
  /// After the commit.
  void EliminaFile();

 private:
  Ambiente& ambiente_;
  Archivio& tessarc_;
  std::vector<std::filesystem::path> file_;
};

}  // namespace fenalto::ledger
