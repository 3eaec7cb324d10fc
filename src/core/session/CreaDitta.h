// A new company, made beside its place and put there when it is whole (CambioDitta.h).
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto {

/// From this year on books are kept in euro.
inline constexpr int kPrimoInEuro = 2002;

struct AnnoDitta {
  int anno = 0;
  bool euro = true;
  bool ivaTrimestrale = false;
};

/// What a new company's settings begin with.
enum class Partenza {
  Iniziali,    ///< the choices, without any code
  DelModello,  ///< and the codes of the model company that payments, receipts and year end need
};

struct NuovaDitta {
  std::string nome;  ///< a good one (VerificaNomeDitta), that no company has
  bool predefinita = true;
  Partenza partenza = Partenza::Iniziali;
  std::string adesso = {};  ///< "AAAA-MM-GG HH.MM", for what goes to the bin
};
struct DittaCreata {
  std::filesystem::path cartella;
  std::optional<std::filesystem::path> cestinata;  ///< what was in its place, where it is now
};

/// Makes a company with the first settings; `riempi` makes both databases, and throws what keeps
/// it from that. Nothing is left when a step fails. A folder in its place gives way to it.
Esito<DittaCreata> CreaDitta(const OpzioniAmbiente& opzioni, const NuovaDitta& nuova,
                             const std::function<void(const PercorsiArchivi&)>& riempi);
/// Makes both databases, empty, and fills them in one transaction. Throws std::exception.
void RiempiDitta(const OpzioniAmbiente& opzioni, const PercorsiArchivi& percorsi,
                 const std::function<void(BasiDati&)>& riempi);
/// The rows of the model company in the program's data. Throws std::exception.
void CaricaModello(BasiDati& basi, const std::filesystem::path& cartellaDati);
void ScriviAnno(BasiDati& basi, const AnnoDitta& anno);

/// Makes the company's folder with both databases filled from `modello/`, `Immagini`, `Documenti`,
/// the rows of `Anni` and the settings file; nothing is left when a step fails. The name becomes
/// the default company when `predefinita`.
Esito<bool> CreaDittaDaModello(const OpzioniAmbiente& opzioni, const std::string& nome,
                               const std::vector<AnnoDitta>& anni, bool predefinita,
                               Partenza partenza = Partenza::Iniziali);

}  // namespace fenalto
