// Settings of the company as a form shows them: fields bound to keys, with what they accept.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto {

/// A field of a form of settings: its name is the key's, without the blank that `ragsoc1 ` ends
/// with.
struct CampoImpostazione {
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

class CampiImpostazioni {
 public:
  /// Shows nothing before Rileggi.
  CampiImpostazioni(Ambiente& ambiente, std::vector<CampoImpostazione> campi);

  [[nodiscard]] std::span<const CampoImpostazione> Campi() const { return campi_; }
  /// Fields by name, flags as booleans.
  Scheda& Dati() { return dati_; }
  [[nodiscard]] const Scheda& Dati() const { return dati_; }
  void Rileggi();
  /// A field was left: a value that is refused goes back to what it was, and the refusal is told.
  bool CampoLasciato(std::string_view campo);
  /// Whether all fields hold what they accept; a value that stood in the file may be out of bounds
  /// too.
  bool Ammessi();
  /// Writes what isn't in the file as it would be written: what the user left alone isn't, since
  /// another station may have changed it meanwhile. False when something couldn't be written
  /// (told).
  bool Scrivi();
  /// The field refused last, empty for none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }

 private:
  [[nodiscard]] const CampoImpostazione* CampoDi(std::string_view nome) const;
  [[nodiscard]] std::string DaScrivere(const CampoImpostazione& campo) const;
  [[nodiscard]] std::string Rifiuto(const CampoImpostazione& campo) const;
  [[nodiscard]] std::string RifiutoCausale(const CampoImpostazione& campo) const;

  Ambiente& ambiente_;
  std::vector<CampoImpostazione> campi_;
  Scheda dati_;
  std::string campoRifiutato_;
  std::map<std::string, std::string, std::less<>> letti_;  ///< by field, as they stood in the file
  std::map<std::string, Valore, std::less<>> accettati_;   ///< by field, the last value not refused
};

}  // namespace fenalto
