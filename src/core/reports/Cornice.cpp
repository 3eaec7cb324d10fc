#include "core/reports/Cornice.h"

#include <system_error>

#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

/// `prima` and `dopo` with a blank between; no blank beside nothing.
std::string Unisci(const std::string& prima, const std::string& dopo) {
  return std::string(Rifila(prima + " " + dopo));
}

}  // namespace

DatiDitta LeggiDatiDitta(Ambiente& ambiente) {
  // The blank after ragsoc1 belongs to the key.
  return {Unisci(ambiente.Config("ragsoc1 "), ambiente.Config("ragsoc2")),
          Unisci(ambiente.Config("indirizzo"), ambiente.Config("localita")),
          ambiente.Config("piva"), ambiente.Config("codfisc")};
}

std::string CodiciDitta(const DatiDitta& ditta) {
  std::string codici;
  if (!ditta.piva.empty()) codici = "Partita IVA " + ditta.piva + "   ";
  if (!ditta.codFisc.empty()) codici += "Codice fiscale " + ditta.codFisc;
  return codici;
}

std::filesystem::path PercorsoModello(const Ambiente& ambiente, std::string_view nome) {
  const std::string file = std::string(nome) + ".mod";
  std::filesystem::path proprio = ambiente.CartellaProgramma() / "Ini" / file;
  std::error_code errore;
  if (std::filesystem::exists(proprio, errore)) return proprio;
  return ambiente.CartellaDati() / "ini" / file;
}

std::string Ripeti(std::string_view carattere, std::size_t n) {
  std::string testo;
  testo.reserve(carattere.size() * n);
  for (std::size_t i = 0; i < n; ++i) testo += carattere;
  return testo;
}

}  // namespace fenalto::reports
