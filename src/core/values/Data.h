// A calendar day, proleptic Gregorian, years 1 to 9999; the null date is 30/12/1899.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/values/Esito.h"

namespace fenalto {

class Data {
 public:
  /// The null date, which shows as nothing.
  constexpr Data() = default;
  /// Days since 30/12/1899 (may be negative). Out of years 1 to 9999 throws std::out_of_range.
  [[nodiscard]] static Data DaGiorni(std::int32_t giorni);
  /// Nothing when there is no such day (31/02, 29/02 of a common year, year 0 or 10000).
  [[nodiscard]] static std::optional<Data> DaGma(int giorno, int mese, int anno);
  /// "AAAA-MM-GG"; nothing on anything else.
  [[nodiscard]] static std::optional<Data> DaIso(std::string_view testo);

  [[nodiscard]] constexpr std::int32_t Giorni() const { return giorni_; }
  [[nodiscard]] constexpr bool Nulla() const { return giorni_ == 0; }
  [[nodiscard]] int Giorno() const;
  [[nodiscard]] int Mese() const;
  [[nodiscard]] int Anno() const;
  /// 1 Monday to 7 Sunday.
  [[nodiscard]] int GiornoSettimana() const;

  /// The day `n` days on; throws std::out_of_range past years 1 to 9999.
  [[nodiscard]] Data PiuGiorni(std::int32_t n) const;
  /// The same day `n` months on, or the last day of that month when it is shorter.
  [[nodiscard]] Data PiuMesi(std::int32_t n) const;
  [[nodiscard]] Data FineMese() const;

  /// "AAAA-MM-GG"; "" for the null date.
  [[nodiscard]] std::string Iso() const;
  /// "GG/MM/AAAA"; "" for the null date.
  [[nodiscard]] std::string Testo() const;

  constexpr auto operator<=>(const Data&) const = default;

 private:
  constexpr explicit Data(std::int32_t giorni) : giorni_(giorni) {}
  std::int32_t giorni_ = 0;
};

[[nodiscard]] bool Bisestile(int anno);
[[nodiscard]] int GiorniDelMese(int mese, int anno);

/// Reads a date as typed, completing it from `oggi` and the session's year: "15" (day of `oggi`'s
/// month), "1503", "150324", "15032024", "15/3", "15/3/24", "15-03-2024", "15.3.2024", blanks
/// around. Years of two digits: 00 to 79 are 2000 to 2079, 80 to 99 are 1980 to 1999. A missing
/// year is `annoSessione`. Empty is the null date. An error says what is wrong ("31/02: febbraio
/// 2024 ha 29 giorni").
Esito<Data> LeggiData(std::string_view testo, int annoSessione, Data oggi);

}  // namespace fenalto
