// An asset as it is stored, and how assets are read with their rows.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "assets/SchedaCespite.h"
#include "core/records/CampoRiga.h"
#include "core/session/Ambiente.h"

namespace fenalto::assets {

inline constexpr const char* kTabella = "Cespiti";
inline constexpr const char* kTabellaRighe = "MovCesp_r";

/// A row of `Cespiti`.
struct Cespite {
  std::int64_t nCesp = 0;
  std::string codice;
  std::string descrizione;
  std::string cat;
  std::string sn;
  std::string ubicaz;
  bool usato = false;
  Data dal;
  std::string note;
  std::int64_t cespCorr = 0;
  bool ammCompl = false;
  bool dismesso = false;
  bool operator==(const Cespite&) const = default;
};

/// Columns of the two tables, but for those that rows repeat of their card.
std::span<const records::CampoRiga<Cespite>> CampiCespite();
std::span<const records::CampoRiga<MovimentoCespite>> CampiMovimento();

/// Categories from one code to another; an empty end is open.
struct IntervalloCategorie {
  std::string da;
  std::string a;
  /// Condition on a column, in the store's language; empty for all.
  [[nodiscard]] std::string Condizione(std::string_view campo) const;
};

/// Goes through assets that meet a condition (empty for all), category by category and in each by
/// `ordine` ("Cespiti.NCesp"), each with its rows in the card's order; one at a time is in memory.
/// `cespite` returns false to stop. False when it did.
bool ScorriCespiti(
    Ambiente& ambiente, const std::string& condizione, const std::string& ordine,
    const std::function<bool(const Cespite&, std::span<const MovimentoCespite>)>& cespite);

std::vector<MovimentoCespite> LeggiMovimenti(Ambiente& ambiente, std::int64_t nCesp);

/// A percentage as people write it: "20", "33,33".
std::string TestoPercento(Importo percento);

}  // namespace fenalto::assets
