#include "duedates/payments/AnticipoFattura.h"

#include "core/values/Testo.h"

namespace fenalto::duedates {

AnticipoFattura::AnticipoFattura(Ambiente& ambiente)
    : ScadenzaDigitata(ambiente, FinestraPagamento::Anticipi) {
  Abbandona();
}

std::string AnticipoFattura::Testo() const {
  return std::string("Anticipo su fatt.da ") + (Cfp() == "C" ? "emettere" : "ricevere");
}

void AnticipoFattura::Proponi() {
  dati_.Scrivi("Dt", dati_.Leggi("DtReg"));
  dati_.Scrivi("Tipo", "01");
  dati_.Scrivi("Stato", kStatoAperta);
  dati_.Scrivi("Descrizione", Testo());
}

std::optional<ScadenzaDigitata::Intoppo> AnticipoFattura::RifiutoImporto() const {
  if (ImportoE().Negativo()) return std::nullopt;
  return Intoppo{"L'importo deve essere impostato con il segno meno", "ImportoE"};
}

void AnticipoFattura::Completa(ScadenzaConRegistrazione& cosa) const {
  // A deposit is money: a customer's comes in and is owed to him, a supplier's goes out.
  cosa.parteInDare = cosa.cfp == "F";
  cosa.campi.emplace_back("anticipo", true);
  cosa.campi.emplace_back("Programma", kProgrammaAnticipo);
}

std::string AnticipoFattura::Riuscita() const {
  return "- anticipo inserito in scadenzario\n"
         "(quando verrà registrata una fattura l'anticipo potrà essere dedotto)";
}

}  // namespace fenalto::duedates
