// Registrations, documents and what has no year erased by choice.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto::ledger {

class EliminazioneSelettiva {
 public:
  explicit EliminazioneSelettiva(Ambiente& ambiente);

  /// ElimDaDt, ElimAaDt with the kinds ElimPrimanota, ElimRegIva, ElimDocumenti; and, without a
  /// year, ElimScadenze, ElimOrdiniCli, ElimOrdiniFor.
  [[nodiscard]] Scheda& Dati() { return dati_; }
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }
  /// Whether the company has the tables behind a choice.
  [[nodiscard]] bool Disponibile(const std::string& campo) const;

  // Each true when something was erased; what stops it was told.
  /// Registrations and documents of the selected year, of the days and kinds chosen.
  bool EliminaArticoli();
  /// All records without a year of the kinds chosen.
  bool EliminaScadenze();

 private:
  bool Rifiuta(const std::string& testo, const std::string& campo);
  [[nodiscard]] bool Scelto(const char* campo) const { return dati_.Leggi(campo).Booleano(); }
  bool Elimina(const std::string& motivo, std::int64_t quanti, const std::function<void()>& scrivi);
  /// Condition of the chosen registrations on Articoli; empty when no kind of them is chosen.
  [[nodiscard]] std::string CriterioArticoli() const;
  [[nodiscard]] std::string Periodo() const;

  Ambiente& ambiente_;
  Scheda dati_;
  std::string campoRifiutato_;
};

}  // namespace fenalto::ledger
