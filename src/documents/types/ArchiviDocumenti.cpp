#include "documents/types/ArchiviDocumenti.h"

#include <utility>

namespace fenalto::documents {
namespace {

archives::DescrizioneArchivio CodiceDocumento(std::string tabella, std::string titolo,
                                              std::string titoloRecord) {
  archives::DescrizioneArchivio archivio;
  archivio.finestra = tabella;
  archivio.titolo = std::move(titolo);
  archivio.tabella = std::move(tabella);
  archivio.titoloNuovo = "nuova cau.trasp.";
  archivio.titoloRecord = std::move(titoloRecord);
  return archivio;
}

archives::DescrizioneArchivio Vettori() {
  archives::DescrizioneArchivio vettori;
  vettori.finestra = "Vettori";
  vettori.titolo = "Archivio Vettori (per emissione ddt)";
  vettori.tabella = "Vettori";
  vettori.titoloNuovo = "nuovo vettore";
  vettori.titoloRecord = "vettore ";
  // The four lines print as they stand in the carrier's place of the delivery note.
  vettori.campi = {{.nome = "Riga1", .didascalia = "Riga 1 sul ddt", .caratteri = 50},
                   {.nome = "Riga2", .didascalia = "Riga 2", .caratteri = 50},
                   {.nome = "Riga3", .didascalia = "Riga 3", .caratteri = 50},
                   {.nome = "Riga4", .didascalia = "Riga 4", .caratteri = 50}};
  return vettori;
}

archives::DescrizioneArchivio Agenti() {
  archives::DescrizioneArchivio agenti;
  agenti.finestra = "Agenti";
  agenti.titolo = "Archivio Agenti";
  agenti.tabella = "Agenti";
  agenti.titoloNuovo = "nuovo agente";
  agenti.titoloRecord = "agente ";
  agenti.campi = {{.nome = "Provv", .didascalia = "Provvigione %", .elenco = true},
                  {.nome = "Indirizzo", .didascalia = "Indirizzo", .caratteri = 50},
                  {.nome = "Localita", .didascalia = "Località", .caratteri = 50, .elenco = true},
                  {.nome = "telefono", .didascalia = "Telefono", .caratteri = 30, .elenco = true},
                  {.nome = "EMail", .didascalia = "E-mail", .caratteri = 80},
                  {.nome = "Note", .didascalia = "Note", .genere = records::GenereCampo::Note}};
  return agenti;
}

}  // namespace

std::vector<archives::DescrizioneArchivio> ArchiviDocumenti() {
  return {
      Agenti(), Vettori(),
      CodiceDocumento("CodiciAspetto", "Archivio Aspetto dei beni (per emissione ddt)", "aspetto "),
      CodiceDocumento("CodiciPorto", "Archivio Porto (per emissione ddt)", "porto "),
      CodiceDocumento("CodiciCausaliTrasporto", "Archivio Causali trasporto (per emissione ddt)",
                      "cau.trasp. ")};
}

}  // namespace fenalto::documents
