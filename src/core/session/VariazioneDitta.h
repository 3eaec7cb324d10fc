// "Modifica impostazioni Ditta": the company's data and choices, shown, checked and written.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "core/session/CampiImpostazioni.h"

namespace fenalto {

class VariazioneDitta {
 public:
  /// The field of the year's row of `Anni`.
  static constexpr std::string_view kIvaTrimestrale = "IVATRIMESTRALE";

  /// Reads the company that is open.
  explicit VariazioneDitta(Ambiente& ambiente);

  /// Every field that is a key, in the order in which they are written.
  static std::span<const CampoImpostazione> Campi();
  /// Fields by name, flags as booleans; kIvaTrimestrale among them.
  Scheda& Dati() { return campi_.Dati(); }
  [[nodiscard]] bool Modificata() const { return campi_.Dati().Modificata(); }
  void Rileggi();

  /// A field was left: a value that is refused goes back to what it was, and the refusal is told.
  bool CampoLasciato(std::string_view campo);
  /// What looks wrong in a field but is let go on (VAT number, tax code); empty when nothing does.
  [[nodiscard]] std::string Avviso(std::string_view campo) const;
  /// A path as it is kept: from the company's folder when it lies inside it, whole otherwise.
  [[nodiscard]] std::string PercorsoBreve(const std::filesystem::path& percorso) const;
  /// Asks, writes the year's row, then every key that is not in the file as it would be written,
  /// and tells. False when the user said no or something couldn't be written (it was told).
  bool Conferma();
  /// The field that stopped the last confirmation, empty for none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campi_.CampoRifiutato(); }

 private:
  Ambiente& ambiente_;
  CampiImpostazioni campi_;
};

}  // namespace fenalto
