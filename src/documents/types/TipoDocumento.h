// The type of a document, which decides what the document is and does.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::documents {

/// TipoStampa, by name.
inline constexpr const char* kBolla = "BOLLA";
inline constexpr const char* kFattura = "FATTURA";
inline constexpr const char* kFattAcc = "FATTACC";
inline constexpr const char* kMovimento = "MOVIMENTO";
inline constexpr const char* kScontrino = "SCONTRINOSCARICO";
/// The type of the opening stock, which every company has.
inline constexpr const char* kEsistenzaIniziale = "EI";

/// A row of `TipiFattureCli`, with the sense of its causal.
struct TipoDocumento {
  std::string cod;
  std::string descrizione;
  std::string tipoStampa;
  std::string tipo;  ///< title on paper
  bool tipoDefault = false;
  std::string cfp;
  std::string cliFor;
  std::string riva;
  std::string codIva;
  std::string conto;
  bool prezziIvati = false;
  bool fatturo = false;
  std::string nDdt;
  std::string trasporto;
  std::string porto;
  std::string codAspetto;
  std::string aspetto;
  std::string codiceCausaleTrasporto;
  std::string causaleMag;
  std::string cs;  ///< of the causal: "C", "S", empty without
  std::string mag;
  std::string tipoDocScaricoDB;
  std::string tipoDocTrasferimento;  ///< type of the load that a transfer writes elsewhere
  bool noCosti = false;
  int copie = 0;
  std::string campo1;
  std::string campo2;
  std::string mfTipo;

  [[nodiscard]] bool Bolla() const { return tipoStampa == kBolla; }
  [[nodiscard]] bool Fattura() const { return tipoStampa == kFattura; }
  [[nodiscard]] bool FattAcc() const { return tipoStampa == kFattAcc; }
  /// FATTURA or FATTACC.
  [[nodiscard]] bool Fatturazione() const { return Fattura() || FattAcc(); }
  [[nodiscard]] bool Movimento() const { return tipoStampa == kMovimento; }
  [[nodiscard]] bool Scontrino() const { return tipoStampa == kScontrino; }
};

/// By a single look-up; TipoStampa and CFP in capitals. Nothing when there is none.
std::optional<TipoDocumento> LeggiTipo(Ambiente& ambiente, const std::string& codice);
/// All, by code.
std::vector<TipoDocumento> LeggiTipi(Ambiente& ambiente);

}  // namespace fenalto::documents
