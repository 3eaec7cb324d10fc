// The card of an asset, worked out from its rows alone: cost, fund, residual and gain by year.
//
// Register, card, status and automatic run all ask this one function, so that no two of them can
// tell different figures. Nothing here reads or writes.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Importo.h"

namespace fenalto::assets {

// Causals of the rows.
inline constexpr std::string_view kCosto = "100";
inline constexpr std::string_view kRivalutazione = "200";  ///< or write-down, with a minus sign
inline constexpr std::string_view kDismissioneParziale = "300";
inline constexpr std::string_view kQuoteIniziali = "390";  ///< sum of the quotas of earlier years
inline constexpr std::string_view kQuota = "400";
inline constexpr std::string_view kDismissione = "500";

/// A row of `MovCesp_r`.
struct MovimentoCespite {
  std::int64_t posi = 0;
  int anno = 0;
  std::string cau;
  std::string estremi = {};
  std::string note = {};
  Importo p = {};  ///< percent
  Importo importo = {};
  Importo storno = {};  ///< amount of the fund (causals 300 and 200)

  [[nodiscard]] bool DiQuota() const { return cau == kQuota || cau == kQuoteIniziali; }
  bool operator==(const MovimentoCespite&) const = default;
};

/// The order of an asset's rows: by year, causal, position.
bool PrimaNellaScheda(const MovimentoCespite& a, const MovimentoCespite& b);

/// A year with rows; the figures stand at its end.
struct AnnoCespite {
  int anno = 0;
  std::size_t da = 0;  ///< its rows, among those that the card was made of
  std::size_t a = 0;   ///< after its last one
  Importo costo;
  Importo fondoPrec;  ///< without this year's quota
  Importo quota;
  Importo accantonato;
  Importo residuo;
  std::optional<Importo> vendita = {};

  /// Above zero a gain on the sale, below a loss; nothing without a sale.
  [[nodiscard]] std::optional<Importo> Plusvalenza() const {
    if (!vendita) return std::nullopt;
    return *vendita - residuo;
  }
};

struct SchedaCespite {
  std::vector<AnnoCespite> anni;   ///< those with rows, in order
  std::vector<int> mancanti = {};  ///< years without rows between those that have some
  bool conCosto = false;
  int annoVendita = 0;  ///< 0 while it isn't disposed of

  [[nodiscard]] bool Dismesso() const { return annoVendita != 0; }
  [[nodiscard]] Importo Costo() const { return anni.empty() ? Importo() : anni.back().costo; }
  [[nodiscard]] Importo Fondo() const { return anni.empty() ? Importo() : anni.back().accantonato; }
  [[nodiscard]] Importo Residuo() const { return anni.empty() ? Importo() : anni.back().residuo; }
  /// All of its cost is depreciated.
  [[nodiscard]] bool Completato() const { return conCosto && Residuo() <= Importo(); }
  [[nodiscard]] int UltimoAnno() const { return anni.empty() ? 0 : anni.back().anno; }
  /// "2021/2022", empty for none.
  [[nodiscard]] std::string AnniMancanti() const;
};

/// `righe` stand in the card's order. Throws FuoriCampo.
SchedaCespite CalcolaScheda(std::span<const MovimentoCespite> righe);
/// Of the rows up to the end of a year.
SchedaCespite CalcolaScheda(std::span<const MovimentoCespite> righe, int finoAllAnno);

/// The line that a year gives at the end of `anno`, which may have no rows of its own: then
/// nothing but the fund has changed its column.
AnnoCespite SituazioneAl(const SchedaCespite& scheda, int anno);
/// Years for which a quota lacks at the end of `anno`: gaps, and those after the last row while
/// something is left to depreciate.
std::vector<int> AnniScoperti(const SchedaCespite& scheda, int anno);
/// "2021/2022"
std::string ElencoAnni(const std::vector<int>& anni);

}  // namespace fenalto::assets
