#include "vat/codes/ImportaCodiciIva.h"

#include <string>
#include <utility>
#include <vector>

#include "core/values/Testo.h"
#include "vat/codes/CodiciIva.h"

namespace fenalto::vat {
namespace {

constexpr std::size_t kLunghezzaCodice = 10;
constexpr std::size_t kLunghezzaNote = 4'000;
constexpr std::pair<int, int> kPercento{0, 100};
constexpr std::pair<int, int> kColonneElenchi{0, 5};

std::vector<archives::MotivoImporta> Controlla(archives::ContestoImporta& /*contesto*/,
                                               archives::RigaImporta& riga) {
  if (!UgualeTesto(riga.Testo("Cod"), kCodiceVentilazione)) return {};
  return {{"Cod", "il codice iva 'ZCOR' è riservato ai corrispettivi da ventilare"}};
}

}  // namespace

archives::GenereImporta GenereImportaCodiciIva() {
  archives::GenereImporta codici;
  codici.nome = "CodiciIva";
  codici.titolo = "codici IVA";
  codici.tabelle = {"CodiciIva"};
  codici.campi = {
      {.nome = "Cod",
       .didascalia = "Codice",
       .sinonimi = {"Codice IVA", "Cod. IVA", "Id"},
       .obbligatorio = true,
       .lunghezza = kLunghezzaCodice},
      {.nome = "Descrizione",
       .didascalia = "Descrizione",
       .sinonimi = {"Denominazione", "Nome", "Descr"},
       .obbligatorio = true},
      {.nome = "Perc",
       .didascalia = "Aliquota",
       .sinonimi = {"Percentuale", "Aliquota IVA", "% IVA", "Perc. IVA"},
       .limiti = kPercento},
      {.nome = "PercInd",
       .didascalia = "Percentuale indetraibile",
       .sinonimi = {"Indetraibile", "% indetraibile", "Indetraibilità", "Perc. indetraibile"},
       .limiti = kPercento},
      {.nome = "Ventilazione", .didascalia = "Ventilazione", .sinonimi = {"Ventila"}},
      {.nome = "Scorporo", .didascalia = "Scorporo", .sinonimi = {"IVA compresa", "Lordo"}},
      {.nome = "CampoElenco",
       .didascalia = "Colonna degli elenchi",
       .sinonimi = {"Campo elenco", "Elenchi"},
       .limiti = kColonneElenchi},
      {.nome = "Note",
       .didascalia = "Note",
       .sinonimi = {"Annotazioni", "Riferimento normativo", "Norma"},
       .lunghezza = kLunghezzaNote}};
  codici.controlla = Controlla;
  return codici;
}

}  // namespace fenalto::vat
