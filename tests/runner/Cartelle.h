// The folders a copione works in: the program folder, filled from the model company when it is new,
// and a private place for settings and scratch files.
#pragma once

#include <filesystem>

#include "core/session/Ambiente.h"

namespace fenalto::copione {

/// A temporary folder of its own, removed with all that it holds when it goes.
class CartellaProvvisoria {
 public:
  CartellaProvvisoria();
  ~CartellaProvvisoria();
  CartellaProvvisoria(const CartellaProvvisoria&) = delete;
  CartellaProvvisoria& operator=(const CartellaProvvisoria&) = delete;
  [[nodiscard]] const std::filesystem::path& Percorso() const { return percorso_; }

 private:
  std::filesystem::path percorso_;
};

/// Makes the company that copioni open in a missing or empty folder; one with data is left as it
/// is. Two processes may ask for the same folder at once.
Esito<bool> Riempi(const OpzioniAmbiente& opzioni);

}  // namespace fenalto::copione
