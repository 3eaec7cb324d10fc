// Every key that the program keeps in its settings files: how it is spelled, who owns it, what it
// holds, what it means when it is missing or empty. The page `docs/impostazioni.md` is made from
// it. A reader of a key that isn't here is a slip of the pen, found by Ambiente in a debug build.
#pragma once

#include <span>
#include <string_view>

namespace fenalto {

/// What the text of a key holds.
enum class GenereChiave {
  SiNo,       ///< "Si" or "No"; read without case
  Uno,        ///< "1" for yes, "0" or empty for no; any number but zero is yes
  VeroFalso,  ///< "True" or "False"
  Numero,
  Importo,  ///< millimetres, percentages: decimal text with the comma
  Testo,
  Conto,
  Causale,
  Registro,  ///< of VAT
  Percorso,  ///< file or folder; relative to the company's folder
};

struct ChiaveImpostazione {
  const char* nome;  ///< as it is written in the file, blanks included
  const char* gruppo;
  GenereChiave genere;
  const char* vuota;  ///< what missing or empty means
  const char* uso;
  bool perClasse = false;  ///< also with the suffixes C (customers) and F (suppliers)
};

/// Section `config` of a company's file, by group.
std::span<const ChiaveImpostazione> ChiaviDitta();
/// Section `impostazioni` of `Ini/Ini.ini`.
std::span<const ChiaveImpostazione> ChiaviStazione();
/// Windows that print, which keep two keys named after them: `NAME` (graphic form, kind Uno) and
/// `NAME_XTar` (alignment in millimetres).
std::span<const std::string_view> FinestreTabulati();

/// Whether `chiave` is a key of section `config`, those of the windows that print included.
/// Compared without case, as the file is.
bool ChiaveDitta(std::string_view chiave);
bool ChiaveStazione(std::string_view chiave);

}  // namespace fenalto
