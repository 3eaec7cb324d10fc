#include "vat/codes/CodiciIva.h"

#include "core/archives/Importazione.h"

namespace fenalto::vat {

namespace {

constexpr std::int64_t kUltimoCampoElenco = 5;

bool Riservato(const std::string& codice) {
  return Valore(codice) == Valore(kCodiceVentilazione);
}

std::optional<Rifiuto> ControllaRiservato(archives::ContestoArchivio& contesto) {
  if (Riservato(contesto.codicePrima)) {
    return Rifiuto{
        "il codice iva 'ZCOR' serve al programma per i corrispettivi da ventilare: non si può "
        "modificare",
        "Cod"};
  }
  if (Riservato(contesto.Codice())) {
    return Rifiuto{
        "il codice iva 'ZCOR' è riservato ai corrispettivi da ventilare: lo crea il programma alla "
        "prima registrazione su un registro di tipo 07",
        "Cod"};
  }
  return std::nullopt;
}

std::optional<Rifiuto> RifiutaEliminazione(archives::ContestoArchivio& contesto) {
  if (!Riservato(contesto.codicePrima)) return std::nullopt;
  return Rifiuto{
      "il codice iva 'ZCOR' serve al programma per i corrispettivi da ventilare: non si può "
      "eliminare",
      ""};
}

std::optional<Rifiuto> ControllaCampoElenco(archives::ContestoArchivio& contesto) {
  const std::int64_t campo = contesto.scheda.Leggi("CampoElenco").Intero();
  if (campo >= 0 && campo <= kUltimoCampoElenco) return std::nullopt;
  return Rifiuto{
      "la colonna degli elenchi annuali va da 0 a 5: " + std::to_string(campo) + " non è ammesso",
      "CampoElenco"};
}

/// Any rate is accepted; one that can hardly be meant is told, so that a slip of the keyboard
/// doesn't go on to the invoices.
void AvvisaAliquota(archives::ContestoArchivio& contesto) {
  const auto insolita = [](Importo percento) {
    return percento.Negativo() || percento > Importo::DaUnita(100);
  };
  for (const auto& [campo, nome] :
       {std::pair{"Perc", "l'aliquota"}, std::pair{"PercInd", "la percentuale indetraibile"}}) {
    const Importo percento = contesto.scheda.Leggi(campo).Importo();
    if (!insolita(percento)) continue;
    contesto.ambiente.Dialogo().Messaggio(
        "codice iva " + contesto.Codice() + ": " + nome + " è " + percento.Testo() +
            "%, di solito è tra 0 e 100. Se è un errore, riaprire il codice e correggerla",
        Icona::Avviso);
  }
}

/// What the columns of the annual lists stand for; the fourth goes over three lines.
constexpr const char* kLegendaElenco =
    "0= non stampa in elenco\n"
    "1= operazioni imponibili\n"
    "2= operazioni non imponibili\n"
    "3 = operazioni esenti\n"
    "4= (solo fornitori) operazioni imponibili comprensive dell'imposta\n"
    "afferente (relativamente ad operazioni registrate senza separata\n"
    "indicazione dell'imponibile e dell'imposta)\n"
    "5 = Operazioni imponibili con IVA non esposta in fattura";

}  // namespace

archives::DescrizioneArchivio CodiciIva() {
  archives::DescrizioneArchivio d;
  d.finestra = "CodiciIva";
  d.titolo = "Archivio Codici IVA";
  d.tabella = "CodiciIva";
  d.titoloNuovo = "nuovo codice iva";
  d.titoloRecord = "codice iva ";
  d.campi = {
      {.nome = "Perc", .didascalia = "Aliquota %", .caratteri = 8, .elenco = true},
      {.nome = "PercInd", .didascalia = "% indetraibile", .caratteri = 8, .elenco = true},
      {.nome = "Ventilazione", .didascalia = "Partecipa alla ventilazione", .elenco = true},
      {.nome = "Scorporo", .didascalia = "Importi IVA compresa (scorporo)", .elenco = true},
      {.nome = "CampoElenco",
       .didascalia = "Colonna elenchi clienti e fornitori",
       .caratteri = 1,
       .nota = kLegendaElenco,
       .elenco = true},
      {.nome = "Note", .didascalia = "Note", .genere = records::GenereCampo::Note},
  };
  d.pulsanti = {archives::PulsanteImporta("CodiciIva")};
  d.controlli = {ControllaRiservato, ControllaCampoElenco};
  d.guardieElimina = {RifiutaEliminazione};
  d.dopoConferma = AvvisaAliquota;
  return d;
}

}  // namespace fenalto::vat
