#include "demo/AnagraficheDemo.h"

#include <array>
#include <span>

#include "demo/DatiDemo.h"
#include "demo/ScrittoreArchivio.h"
#include "documents/parties/ArchiviParti.h"
#include "documents/types/ArchiviDocumenti.h"
#include "duedates/codes/ArchiviScadenze.h"

namespace fenalto::demo {

namespace {

constexpr std::string_view kClientiItalia = "120.001";
constexpr std::string_view kFornitoriItalia = "400.001";
constexpr std::string_view kFornitoriEsteri = "400.002";

/// Every third customer comes from an agent.
std::string_view Agente(std::size_t numero) {
  return numero % 3 == 0 ? kAgentiDemo[numero / 3 % kAgentiDemo.size()].cod : std::string_view();
}

void ScriviParti(ScrittoreArchivio archivio, std::span<const AnagraficaDemo> parti, bool clienti) {
  for (std::size_t n = 1; n <= parti.size(); ++n) {
    const AnagraficaDemo& a = parti[n - 1];
    const std::string codice = CodiceParteDemo(n);
    const std::string_view conto = clienti             ? kClientiItalia
                                   : a.nazione == "IT" ? kFornitoriItalia
                                                       : kFornitoriEsteri;
    ScrittoreArchivio::Campi campi = {{"Cod", codice},
                                      {"ragsoc1", a.ragsoc1},
                                      {"indirizzo", a.indirizzo},
                                      {"cap", a.cap},
                                      {"localita", a.localita},
                                      {"Prov", a.provincia},
                                      {"Nazione", a.nazione},
                                      {"piva", a.piva},
                                      {"Conto", conto},
                                      {"ContropFatture", a.controp},
                                      {"CodIva", a.codIva},
                                      {"Pagamento", a.pagamento}};
    if (clienti) {
      // Receipts are presented to the customer's own bank.
      const BancaDemo& banca = kBancheDemo[n % kBancheDemo.size()];
      campi.emplace_back("Agente", Agente(n));
      campi.emplace_back("Banca", banca.nome);
      campi.emplace_back("Agenzia", banca.agenzia);
      campi.emplace_back("Abi", banca.abi);
      campi.emplace_back("CAB", banca.cab);
    }
    archivio.Scrivi(campi);
  }
}

}  // namespace

std::string CodiceParteDemo(std::size_t numero) {
  const std::string cifre = std::to_string(numero);
  return std::string(kCifreParteDemo - cifre.size(), '0') + cifre;
}

void ScriviImpostazioniDemo(Ambiente& ambiente) {
  // The blank after ragsoc1 belongs to the key.
  const std::array<std::pair<std::string_view, std::string_view>, 10> impostazioni = {
      {{"ragsoc1 ", "EMPORIO BELLOSGUARDO S.R.L."},
       {"ragsoc2", "ferramenta e casalinghi"},
       {"indirizzo", "Via delle Botteghe 21"},
       {"localita", "40068 San Lazzaro di Savena BO"},
       {"piva", "01234567897"},
       {"codfisc", "01234567897"},
       {"NAZIONE", "IT"},
       {"RegAutoIntraCee", "Si"},
       {"RegAutoBolleDoganali", "Si"},
       {"RITENUTAACCONTO", "SI"}}};
  for (const auto& [chiave, valore] : impostazioni) {
    ambiente.ScriviImpostazione("", "config", chiave, valore);
  }
  ambiente.ScriviImpostazione("", "config", "DirectoryRiba", ambiente.CartellaDocumenti().string());
}

void ScriviAnagraficheDemo(Ambiente& ambiente, DialoghiMuti& dialoghi) {
  ScrittoreArchivio banche(ambiente, dialoghi, duedates::ArchiviScadenze(), "Banche");
  for (const BancaDemo& b : kBancheDemo) {
    banche.Scrivi({{"Cod", b.cod},
                   {"Nome", b.nome},
                   {"Agenzia", b.agenzia},
                   {"Abi", b.abi},
                   {"CAB", b.cab},
                   {"ContoCorrente", b.conto},
                   {"CodSia", kSiaDemo},
                   {"paese", "IT"}});
  }
  ScrittoreArchivio agenti(ambiente, dialoghi, documents::ArchiviDocumenti(), "Agenti");
  for (const AgenteDemo& a : kAgentiDemo) {
    agenti.Scrivi({{"Cod", a.cod},
                   {"Descrizione", a.descrizione},
                   {"Provv", a.provvigione},
                   {"Localita", a.localita}});
  }
  const std::vector<archives::DescrizioneArchivio> parti = documents::ArchiviParti();
  ScriviParti({ambiente, dialoghi, parti, "Clienti"}, kClientiDemo, true);
  ScriviParti({ambiente, dialoghi, parti, "Fornitori"}, kFornitoriDemo, false);
}

}  // namespace fenalto::demo
