// The settlement on paper: the last page of the register.
#include <filesystem>
#include <string>

#include "core/reports/Cornice.h"
#include "vat/settlement/LiquidazioneInterno.h"

namespace fenalto::vat {

namespace {

constexpr const char* kModello = "TiChiuIva";
constexpr const char* kRigaTitolo =
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$";
constexpr const char* kRiga =
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ $ ##.###.###.###,##";

std::string Titolo(const PeriodoIva& periodo) {
  return (periodo.Annuale() ? "Totali IVA  " : "LIQUIDAZIONE IVA  ") + periodo.testo;
}

const char* Segno(const RigaLiquidazione& riga) {
  if (riga.segno == 0) return "";
  return riga.segno < 0 ? "-" : "+";
}

void RigaGrafica(reports::Stampa& stampa, const RigaLiquidazione& riga) {
  const double y = stampa.YCorrente();
  if (riga.nota) {
    stampa.CampoModello("R_NOTA", riga.descrizione, y);
  } else {
    stampa.CampoModello(riga.totale ? "R_DESCRTOT" : "R_DESCRIZIONE", riga.descrizione, y);
    stampa.CampoModello("R_SEGNO", Segno(riga), y);
    stampa.CampoModello(riga.totale ? "R_TOT" : "R_IMPO", riga.importo, y);
  }
  stampa.AvanzaRiga();
  // Room and a rule after each balance.
  if (!riga.totale) return;
  stampa.Filetto();
  stampa.AvanzaRiga();
}

void RigaTesto(reports::Stampa& stampa, const RigaLiquidazione& riga) {
  if (riga.nota) {
    stampa.Campo(1, riga.descrizione);
    return stampa.Riga(kRigaTitolo);
  }
  stampa.Campo(1, riga.descrizione);
  stampa.Campo(2, Segno(riga));
  stampa.Campo(3, riga.importo);
  stampa.Riga(kRiga, {}, riga.totale);
  if (riga.totale) stampa.Riga("");
}

}  // namespace

std::string MancaModelloLiquidazione(Ambiente& ambiente) {
  std::error_code errore;
  const bool presente =
      std::filesystem::exists(reports::PercorsoModello(ambiente, kModello), errore);
  return presente ? "" : "manca modello chiusura iva";
}

void StampaLiquidazione(Ambiente& ambiente, reports::Stampa& stampa,
                        const Liquidazione& liquidazione) {
  stampa.NuovaPagina();
  if (!stampa.Grafico()) {
    stampa.Riga("");
    stampa.Campo(1, Titolo(liquidazione.periodo));
    stampa.Riga(kRigaTitolo, {}, true);
    stampa.Riga("");
    for (const RigaLiquidazione& riga : liquidazione.righe) RigaTesto(stampa, riga);
    return;
  }
  if (const std::string manca = MancaModelloLiquidazione(ambiente); !manca.empty()) {
    return ambiente.Dialogo().Messaggio(manca, Icona::Errore);
  }
  if (!stampa.Modello(reports::PercorsoModello(ambiente, kModello))) return;
  stampa.CampoModello("TITOLOCHIUSURA", Titolo(liquidazione.periodo) + " " +
                                            std::to_string(liquidazione.periodo.anno));
  for (const RigaLiquidazione& riga : liquidazione.righe) RigaGrafica(stampa, riga);
}

}  // namespace fenalto::vat
