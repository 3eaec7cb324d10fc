// What makes customers different from suppliers, and the pieces of their archives.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/archives/DescrizioneArchivio.h"
#include "documents/parties/DestinazioniCliente.h"

namespace fenalto::documents {

struct Parte {
  const char* tabella;
  const char* classe;  ///< in registrations, and of the summary accounts
  const char* titolo;
  const char* titoloNuovo;
  const char* titoloRecord;
  const char* plurale;      ///< "clienti"
  const char* chiaveNuovo;  ///< setting that, on "NO", keeps records as they are
  const char* ordini;       ///< window of its orders
  [[nodiscard]] bool Clienti() const { return *classe == 'C'; }
};

/// Length of a VAT number or tax code.
inline constexpr std::size_t kCaratteriFiscale = 16;

/// Level that sees balances and accounts of a party.
inline constexpr int kLivelloContabile = 99;

// --- Extra fields --------------------------------------------------------------------------------

inline constexpr const char* kUltimoCodice = "UltimoCodice";    ///< highest code, beside a new one
inline constexpr const char* kInfoPagamento = "InfoPagamento";  ///< what the payment code does

// --- Fields (CampiParti.cpp) ---------------------------------------------------------------------

/// Fields, frames and pages of the record.
void DescriviCampi(archives::DescrizioneArchivio& archivio, const Parte& parte);
/// Frame of what is asked of natural persons under withholding.
inline constexpr const char* kPersonaFisica = "PersonaFisica";
/// Frame of the predefined destination.
inline constexpr const char* kPredefinita = "DestinazionePredefinita";

// --- Rules (ControlliParti.cpp) ------------------------------------------------------------------

/// A field was left with a new value. `destinazioni` is null for suppliers.
void ParteLasciata(archives::ContestoArchivio& contesto, const Parte& parte,
                   const DestinazioniCliente* destinazioni, const std::string& campo);
/// Shows what the payment code on the screen does.
void MostraPagamento(archives::ContestoArchivio& contesto);
/// Checks of a confirmation in their order, before and after those of a changed code.
std::vector<archives::DescrizioneArchivio::Controllo> ControlliParte(const Parte& parte);
std::vector<archives::DescrizioneArchivio::Controllo> ControlliParteDopoCodice(const Parte& parte);

}  // namespace fenalto::documents
