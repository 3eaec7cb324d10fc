#include "duedates/codes/ArchiviScadenze.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

bool CinqueCifre(std::string_view testo) {
  return testo.size() == 5 &&
         std::ranges::all_of(testo, [](char c) { return c >= '0' && c <= '9'; });
}

/// A code that doesn't fill its place in the bank's file: told, and kept if the user says so.
std::optional<Rifiuto> Chiede(archives::ContestoArchivio& contesto, const char* campo,
                              const char* atteso) {
  const std::string testo = contesto.scheda.Testo(campo);
  const std::string domanda = std::string(campo) + " «" + testo + "» non è di " + atteso +
                              ": la banca può respingere le disposizioni\nproseguo ugualmente";
  if (contesto.ambiente.Dialogo().Conferma(domanda)) return std::nullopt;
  return Rifiuto{"", campo};
}

std::optional<Rifiuto> ControllaAbi(archives::ContestoArchivio& contesto) {
  const std::string abi = contesto.scheda.Testo("Abi");
  if (abi.empty() || CinqueCifre(abi)) return std::nullopt;
  return Chiede(contesto, "Abi", "5 cifre");
}

std::optional<Rifiuto> ControllaCab(archives::ContestoArchivio& contesto) {
  const std::string cab = contesto.scheda.Testo("CAB");
  if (cab.empty() || CinqueCifre(cab)) return std::nullopt;
  return Chiede(contesto, "CAB", "5 cifre");
}

std::optional<Rifiuto> ControllaSia(archives::ContestoArchivio& contesto) {
  const std::string sia = contesto.scheda.Testo("CodSia");
  if (sia.empty() || LunghezzaTesto(sia) == 5) return std::nullopt;
  return Chiede(contesto, "CodSia", "5 caratteri");
}

archives::DescrizioneArchivio Banche() {
  archives::DescrizioneArchivio banche;
  banche.finestra = "Banche";
  banche.titolo = "Archivio Banche (per RiBa)";
  banche.chiave = "scadenzario";
  banche.tabella = "Banche";
  banche.campoDescrizione = "Nome";
  banche.titoloNuovo = "nuova banca";
  banche.titoloRecord = "banca ";
  banche.campi = {{.nome = "Nome", .didascalia = "Nome", .caratteri = 50},
                  {.nome = "Agenzia", .didascalia = "Agenzia", .caratteri = 50, .elenco = true},
                  {.nome = "Abi", .didascalia = "ABI", .caratteri = 5, .elenco = true},
                  {.nome = "CAB", .didascalia = "CAB", .caratteri = 5, .elenco = true},
                  {.nome = "ContoCorrente", .didascalia = "Conto corrente", .caratteri = 12},
                  {.nome = "Cin", .didascalia = "CIN", .caratteri = 1, .maiuscole = true},
                  {.nome = "paese", .didascalia = "Paese", .caratteri = 2, .maiuscole = true},
                  {.nome = "CinInt", .didascalia = "CIN internazionale", .caratteri = 2},
                  {.nome = "Bic", .didascalia = "BIC", .caratteri = 11, .maiuscole = true},
                  {.nome = "CodSia", .didascalia = "Codice SIA", .caratteri = 5, .maiuscole = true},
                  {.nome = "NUltDistinta", .didascalia = "N. ultima distinta Ri.Ba."},
                  {.nome = "NUltDistintaBonifici", .didascalia = "N. ultima distinta bonifici"}};
  banche.controlli = {ControllaAbi, ControllaCab, ControllaSia};
  return banche;
}

}  // namespace

std::vector<archives::DescrizioneArchivio> ArchiviScadenze() {
  return {Banche()};
}

}  // namespace fenalto::duedates
