// The frame that every report shares: the company's data in a heading, the choice of output and
// mode, the place of a model.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "core/reports/Stampa.h"

namespace fenalto::reports {

/// The company as a heading names it, read from its settings.
struct DatiDitta {
  std::string ragSoc1_2;
  std::string indirizzoLocalita;
  std::string piva;
  std::string codFisc;
};
DatiDitta LeggiDatiDitta(Ambiente& ambiente);
/// "Partita IVA ...   Codice fiscale ...", as far as they are known.
std::string CodiciDitta(const DatiDitta& ditta);

/// Path of a model: the one of the program folder (`Ini/NAME.mod`, which a user may have changed)
/// before the one that the program is shipped with.
std::filesystem::path PercorsoModello(const Ambiente& ambiente, std::string_view nome);

/// What a report asks of its frame.
struct Cornice {
  std::string rapporto;       ///< name in the dialog of outputs
  std::string titolo;         ///< of the document
  std::string modello = {};   ///< name without `.mod`
  std::size_t larghezza = 0;  ///< widest line of text mode
  bool grafico = false;       ///< the user wants the graphic form
  double xTar = 0;            ///< correction of the horizontal position, millimetres
  /// Amounts are of the year's currency: on a model, which shows cents, those in lire have none.
  bool lireIntere = false;
  /// Once the output is chosen, before the first page: for a table that is known only from what it
  /// shows. The report ends when it gives false.
  std::function<bool()> prepara = {};
};

/// `n` times a character (a letter of a picture may take more than a byte).
std::string Ripeti(std::string_view carattere, std::size_t n);

}  // namespace fenalto::reports
