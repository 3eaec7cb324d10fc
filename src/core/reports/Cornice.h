// The frame that every report shares: the company's data in a heading, the choice of output and
// mode, the place of a model.
#pragma once

#include <cstddef>
#include <filesystem>
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

/// Path of a model: the one of the program folder (`Ini/NAME.mod`, which a user may have changed)
/// before the one that the program is shipped with.
std::filesystem::path PercorsoModello(const Ambiente& ambiente, std::string_view nome);

/// What a report asks of its frame.
struct Cornice {
  std::string rapporto;       ///< name in the dialog of outputs
  std::string titolo;         ///< of the document
  std::string modello;        ///< name without `.mod`
  std::size_t larghezza = 0;  ///< widest line of text mode
  bool grafico = false;       ///< the user wants the graphic form
  double xTar = 0;            ///< correction of the horizontal position, millimetres
};

enum class ModoStampa { Fermata, Testo, Grafico };

/// Asks for the output and prepares it. Fermata when the user gave up or the model can't be had.
ModoStampa ApriStampa(Stampa& stampa, const Ambiente& ambiente, const Cornice& cornice);

/// Heading fields that all models know: DITTA, RagSoc1_2, Indirizzo_localita, PIVA, CODFISC, ANNO,
/// DATASTAMPA and Pag.
void CampiTestata(Stampa& stampa, Ambiente& ambiente, const DatiDitta& ditta, int pagina);

/// First lines of a text page of `larghezza` characters: company and page, address and date.
void TestataTesto(Stampa& stampa, Ambiente& ambiente, const DatiDitta& ditta, int pagina,
                  std::size_t larghezza);

/// `n` times a character (a letter of a picture may take more than a byte).
std::string Ripeti(std::string_view carattere, std::size_t n);

}  // namespace fenalto::reports
