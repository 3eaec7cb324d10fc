// A line of a report as a fixed-width picture with placeholders, compiled once and filled many
// times.
//
// `$` and `§` runs are texts, left aligned and cut at the run's width (a date is gg/mm/aaaa from 10
// places on and gg/mm/aa in fewer); `#` with `.` and `,` are numbers, right aligned: the places
// after the comma are the decimals, a picture that ends with a comma has none and the comma doesn't
// print but keeps its place, a `.` asks for marks of thousands; `ç` runs are amounts and must go
// through PictureImporto first. Everything else prints as it stands.
//
// Decimals beyond the picture's are rounded to the nearest, halves away from zero; those that an
// amount doesn't have are zeros. A number too long for its field, be it a picture or a text, fills
// it with asterisks: no digit is ever lost. A minus stands directly before the first digit, inside
// the picture, and what is rounded to zero has none. A picture may begin with a mark (".###,###"):
// directly after a letter, a digit or another placeholder that mark is text ("n.###,").
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Valore.h"

namespace fenalto::reports {

class Sagoma {
 public:
  explicit Sagoma(std::string_view testo);

  /// Placeholders, numbered from 1, left to right.
  [[nodiscard]] std::size_t Campi() const { return segnaposti_; }
  /// Characters of the printed line.
  [[nodiscard]] std::size_t Larghezza() const { return larghezza_; }
  /// The line with `campi[n-1]` in the n-th placeholder; missing and Null values and the null date
  /// are empty fields. Control characters of a text (tabs, line breaks) print as blanks, bytes that
  /// are no character as U+FFFD. A text in a number's place prints right aligned.
  [[nodiscard]] std::string Riempi(std::span<const Valore> campi) const;

 private:
  enum class Genere { Fisso, Testo, Numero };
  struct Pezzo {
    Genere genere = Genere::Fisso;
    std::string fisso;
    std::size_t larghezza = 0;
    std::size_t decimali = 0;
    bool migliaia = false;
    bool unita = true;  ///< a place before the comma, where a zero prints
  };
  void AggiungiFisso(std::string_view testo);
  void AggiungiTesto(std::size_t larghezza);
  std::size_t AggiungiNumero(std::string_view testo);
  static void RiempiTesto(const Pezzo& pezzo, const Valore& valore, std::string& riga);
  static void RiempiNumero(const Pezzo& pezzo, const Valore& valore, std::string& riga);
  std::vector<Pezzo> pezzi_;
  std::size_t segnaposti_ = 0;
  std::size_t larghezza_ = 0;
};

/// Rewrites each run of `ç` for the year's currency: a run of n takes the last n characters of the
/// mask " ###.###.###,###" (euro) or "###.###.###.###," (lire), and blanks before the whole mask
/// when n is greater than its 16.
std::string PictureImporto(std::string_view sagoma, bool euro);

}  // namespace fenalto::reports
