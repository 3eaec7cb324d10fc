// A column's piece of a picture, taken apart.
#pragma once

#include <string_view>

namespace fenalto::reports {

/// What stands before the only placeholder of a piece, the placeholder, what stands after.
struct PezzoSagoma {
  explicit PezzoSagoma(std::string_view sagoma) : prima(sagoma) {
    const auto inizio = sagoma.find_first_of(kSegni);
    if (inizio == std::string_view::npos) return;
    // Letters of a placeholder take up to two bytes, none of which stands elsewhere in a picture.
    const auto fine = sagoma.find_last_of(kConPunti) + 1;
    prima = sagoma.substr(0, inizio);
    segnaposto = sagoma.substr(inizio, fine - inizio);
    dopo = sagoma.substr(fine);
  }
  /// Whether it takes a text, to the left; numbers stand to the right.
  [[nodiscard]] bool Testo() const {
    return segnaposto.starts_with('$') || segnaposto.starts_with("§");
  }

  std::string_view prima;
  std::string_view segnaposto;
  std::string_view dopo;

 private:
  static constexpr std::string_view kSegni = "$#§ç";
  static constexpr std::string_view kConPunti = "$#§ç.,";
};

}  // namespace fenalto::reports
