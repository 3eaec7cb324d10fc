// A page of a report, independent of any device. Lengths are hundredths of a millimetre from the
// page's upper left corner.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "core/values/Rinvio.h"

namespace fenalto::reports {

struct FormatoPagina {
  int larghezza = 21'000;  ///< A4 upright
  int altezza = 29'700;
  int margine = 500;  ///< on all sides
  [[nodiscard]] bool Orizzontale() const { return larghezza > altezza; }
};

enum class Allineamento { Sinistra, Centro, Destra };

struct Carattere {
  std::string famiglia = "Arial Narrow";
  int corpo = 900;  ///< hundredths of a point
  bool grassetto = false;
  bool corsivo = false;
  bool operator==(const Carattere&) const = default;
};

/// Stands in a Scritta or a RigaFissa for the number of pages of the whole report (U+E000), which a
/// page that is handed on before the last one is made can't know. An output that keeps its pages
/// puts the number in its place at the end (RisolviPagineTotali); one that passes them on as they
/// come leaves it out (with `totale` 0).
inline constexpr const char* kSegnoPagineTotali = "\uE000";

/// A text on one line, cut at `larghezza` (0 for as long as it is).
struct Scritta {
  int x = 0;
  int y = 0;  ///< top of the line
  int larghezza = 0;
  Allineamento allineamento = Allineamento::Sinistra;
  Carattere carattere;
  std::string testo;
  Rinvio rinvio;  ///< what the text stands for: where a double click on it leads
  /// A number, which must not be cut: a device on which it is wider than `larghezza` prints as many
  /// asterisks as fit.
  bool numero = false;
};

/// A whole line of fixed-pitch text, whose columns stay exact on every device.
struct RigaFissa {
  int x = 0;
  int y = 0;
  int passo = 17;  ///< characters an inch
  bool grassetto = false;
  std::string testo;
  Rinvio rinvio;
};

struct Tratto {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
  int spessore = 20;
};

struct Riquadro {
  int x = 0;
  int y = 0;
  int larghezza = 0;
  int altezza = 0;
  int spessore = 0;  ///< of the border, 0 for none
  int grigio = 255;  ///< fill, 255 for none
};

struct Immagine {
  int x = 0;
  int y = 0;
  int larghezza = 0;
  int altezza = 0;
  std::string file;
};

using Elemento = std::variant<Scritta, RigaFissa, Tratto, Riquadro, Immagine>;

struct Pagina {
  FormatoPagina formato;
  int numero = 1;
  std::vector<Elemento> elementi;
};

/// Puts the total in the place of kSegnoPagineTotali; with 0 the sign is left out.
void RisolviPagineTotali(Pagina& pagina, int totale);

}  // namespace fenalto::reports
