// "Modifica impostazioni Ditta": the company's data and choices, shown, checked and written.
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto {

/// A field of the function: its name is the key's, without the blank that `ragsoc1 ` ends with.
struct CampoVariazione {
  const char* campo;
  const char* chiave;
  enum class Genere {
    Testo,
    Uno,
    SiNo,
    SiNoMaiuscolo,
    Percorso,
    Decimali,
    Causale
  } genere = Genere::Testo;
  const char* vuoto = "";  ///< shown when the key is missing or empty
};

class VariazioneDitta {
 public:
  /// The field of the year's row of `Anni`.
  static constexpr std::string_view kIvaTrimestrale = "IVATRIMESTRALE";

  /// Reads the company that is open.
  explicit VariazioneDitta(Ambiente& ambiente);

  /// Every field that is a key, in the order in which they are written.
  static std::span<const CampoVariazione> Campi();
  /// Fields by name, flags as booleans; kIvaTrimestrale among them.
  Scheda& Dati() { return dati_; }
  [[nodiscard]] bool Modificata() const { return dati_.Modificata(); }
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
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }

 private:
  [[nodiscard]] std::string DaScrivere(const CampoVariazione& campo) const;
  [[nodiscard]] std::string Rifiuto(const CampoVariazione& campo) const;
  [[nodiscard]] std::string RifiutoCausale(const CampoVariazione& campo) const;

  Ambiente& ambiente_;
  Scheda dati_;
  std::string campoRifiutato_;
  std::map<std::string, std::string, std::less<>> letti_;  ///< by field, as they stood in the file
  std::map<std::string, Valore, std::less<>> accettati_;   ///< by field, the last value not refused
};

}  // namespace fenalto
