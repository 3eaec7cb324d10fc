// Values as people and other programs write them in files: amounts with comma or point, dates,
// flags.
#pragma once

#include <string>
#include <string_view>

#include "core/archives/GenereImporta.h"
#include "core/values/Esito.h"

namespace fenalto::archives {

/// What parts the decimals in a column of amounts, as far as its values tell.
enum class Decimali { Ignoto, Virgola, Punto };

/// Looks at one more value of a column. "1.234" and "1,234" tell nothing; two values that tell
/// different things leave Ignoto.
class StileDecimali {
 public:
  void Guarda(std::string_view testo);
  [[nodiscard]] Decimali Stile() const;

 private:
  bool virgola_ = false;
  bool punto_ = false;
};

/// Marks of thousands, a currency sign, a sign before or behind are taken. "1.234" is refused while
/// the column doesn't tell whether the point parts decimals: a wrong guess would be a thousandfold.
Esito<Importo> LeggiImportoDiFile(std::string_view testo, Decimali stile);
/// "15/03/2024", "15-3-24", "15.03.2024", "2024-03-15", with an hour behind; empty is the null
/// date.
Esito<Data> LeggiDataDiFile(std::string_view testo);
/// Sì, S, Vero, True, Yes, X, 1, -1; No, N, Falso, False, 0 and nothing.
Esito<bool> LeggiFlagDiFile(std::string_view testo);
/// One line of at most `massimo` characters, without blanks around; line breaks stay only where a
/// field has several lines.
Esito<std::string> LeggiTestoDiFile(std::string_view testo, std::size_t massimo, bool piuLinee);
/// A text as a field of that type: the above, and the values that the field allows.
Esito<Valore> LeggiValoreDiFile(std::string_view testo, const CampoImporta& campo, Tipo tipo,
                                Decimali stile);

}  // namespace fenalto::archives
