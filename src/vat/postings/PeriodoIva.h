// Periods of the VAT settlement: months, quarters, the year.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::vat {

struct PeriodoIva {
  std::string cod;  ///< "01" to "12", "T1" to "T4", "Z"
  int anno = 0;
  int daMese = 1;
  int aaMese = 12;
  bool euro = true;   ///< currency of its year; lire otherwise
  std::string testo;  ///< as `Mesi` tells it
  [[nodiscard]] bool Annuale() const { return cod == "Z"; }
  [[nodiscard]] bool Trimestre() const { return !Annuale() && aaMese > daMese; }
  /// The month or quarter that closes the year.
  [[nodiscard]] bool Ultimo() const { return !Annuale() && aaMese == 12; }
  [[nodiscard]] Data Primo() const;
  [[nodiscard]] Data UltimoGiorno() const;
  [[nodiscard]] bool Contiene(Data data) const { return data >= Primo() && data <= UltimoGiorno(); }
};

/// Whether the year is settled by quarter (`IvaTrimestrale` of `Anni`).
bool IvaTrimestrale(Ambiente& ambiente, int anno);
/// Whether the year is kept in euro; a year that isn't the company's is taken for one.
bool AnnoInEuro(Ambiente& ambiente, int anno);
/// Key of the month or quarter that a date falls in.
std::string ChiavePeriodo(Data data, bool trimestrale);
/// Key of the period that a date falls in when its settlement is stored, empty while it is open.
/// The date's own year says whether it is settled by month or by quarter, whatever year is
/// selected.
std::string PeriodoChiuso(Ambiente& ambiente, Data data);
/// The periods that the year offers: the annual summary, then months or quarters.
std::vector<PeriodoIva> PeriodiIva(Ambiente& ambiente, int anno);
/// Months of a key, without its text, whatever the year settles by; an empty `cod` for a key that
/// names no period.
PeriodoIva PeriodoDiChiave(int anno, const std::string& cod);
/// Period of a key; an empty `cod` when there is none.
PeriodoIva LeggiPeriodo(Ambiente& ambiente, int anno, const std::string& cod);

}  // namespace fenalto::vat
