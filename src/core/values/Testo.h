// UTF-8 text as the store compares it: without case, and without accents while searching.
#pragma once

#include <string>
#include <string_view>

namespace fenalto {

/// Case-folded copy (simple folding of Latin, Greek and Cyrillic; any other letter as it is;
/// invalid bytes as they are).
std::string SenzaMaiuscole(std::string_view testo);
/// Case-folded and without accents ("Perché" -> "perche"): what search while typing compares.
std::string PerRicerca(std::string_view testo);
/// Whether PerRicerca(testo) holds, or begins with, `cercato`, which is folded so already. Fast on
/// plain ASCII: for searches over whole tables.
bool InRicerca(std::string_view testo, std::string_view cercato);
bool IniziaRicerca(std::string_view testo, std::string_view cercato);
std::string Maiuscolo(std::string_view testo);
std::string Minuscolo(std::string_view testo);

/// Order of the store: negative, zero or positive, ignoring case; total and consistent with
/// SenzaMaiuscole (equal exactly when the folded texts are). Fast on plain ASCII.
int ConfrontaTesto(std::string_view a, std::string_view b) noexcept;
/// ConfrontaTesto(a, b) == 0.
bool UgualeTesto(std::string_view a, std::string_view b) noexcept;
/// Hash consistent with UgualeTesto.
std::size_t HashTesto(std::string_view testo) noexcept;

/// Pattern match of the store's LIKE, ignoring case: `*` any run, `?` one character, `#` one digit,
/// `[a-z]`, `[!a-z]` classes; a bracketed special character stands for itself ("[*]").
bool Somiglia(std::string_view testo, std::string_view modello) noexcept;

/// Without blanks (space, tab, CR, LF, no-break space) at both ends.
std::string_view Rifila(std::string_view testo) noexcept;
/// Number of characters (code points); invalid bytes count one each.
std::size_t LunghezzaTesto(std::string_view testo) noexcept;
/// `lunghezza` characters from `inizio` (from 1), as Mid of the store's language.
std::string Mid(std::string_view testo, std::size_t inizio, std::size_t lunghezza);
/// Whether the bytes are well-formed UTF-8.
bool Utf8Valido(std::string_view testo) noexcept;
/// The text as it is shown: control characters and bytes that are none by their marks
/// (lettere::Mostrabile), so that they are seen and spoil neither a line nor a page. Tabs and line
/// ends stay.
std::string Visibile(std::string_view testo);
/// Why a text can't be written among the data: the first control character in it (tabs and line
/// ends aside) or byte that is no character, by its code; empty when it can.
std::string DifettoTesto(std::string_view testo);
/// Why a text can't take the place of `originale`, which was shown by its marks: the first of those
/// marks that is still in it, and the character that it stands for; empty when none is.
std::string SegnoRimasto(std::string_view originale, std::string_view digitato);
/// Order of numbers that are written as texts: by the digits they begin with, however many, then as
/// texts: "9", "10", "10/A".
int ConfrontaNumeri(std::string_view a, std::string_view b);
/// Windows-1252 to UTF-8: for files written by other programs.
std::string DaLatin1(std::string_view testo);

}  // namespace fenalto
