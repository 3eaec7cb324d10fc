// The settlement of a period: from the totals of the registers to what is owed, its lines and notes,
// and what it writes.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/reports/Stampa.h"
#include "vat/RegistrazioniAutomatiche.h"
#include "vat/TotaliRegistri.h"

namespace fenalto {

struct VoceManuale {
  std::string descrizione;
  Importo importo;
};

/// What the user gives beside the registers.
struct DatiLiquidazione {
  Importo proRata;    ///< percent
  Importo interessi;  ///< percent; zero for none
  Importo creditoPrec;
  std::array<VoceManuale, 3> meno;  ///< `ImpMeno0` to `ImpMeno2`
  std::array<VoceManuale, 2> piu;   ///< `ImpPiu0`, `ImpPiu1`
};

struct RigaLiquidazione {
  std::string descrizione;
  Importo importo;
  bool nota = false;  ///< a text without an amount
};

/// VAT of a register as it enters the settlement.
struct IvaRegistro {
  std::string riva;
  std::string tipo;
  std::string conto;
  int segno = 0;
  Importo iva;  ///< unsigned
  Importo ivaScorporata;
};

struct Liquidazione {
  PeriodoIva periodo;
  DatiLiquidazione dati;
  std::vector<IvaRegistro> registri;
  std::vector<RigaLiquidazione> righe;
  Importo saldoPeriodo;  ///< before credits and debits; above zero is owed
  Importo risultato;     ///< R of the period, without interest
  Importo interessi;
  Importo daVersare;     ///< with interest; zero or below when nothing is owed
  bool sottoMinimo = false;  ///< owed but below 25.82, so not paid in this period
  [[nodiscard]] Importo Credito() const;  ///< carried on; zero when something is owed
};

/// Pure: the lines in their order, with thresholds, interest and notes.
Liquidazione CalcolaLiquidazione(const PeriodoIva& periodo,
                                 const std::vector<TotaleRegistro>& registri,
                                 const DatiLiquidazione& dati);

/// What the program proposes for a period: ProRata of the settings, the credit of `CreditoIva`, the
/// amount below the minimum that the period before left unpaid.
DatiLiquidazione ProponiLiquidazione(Ambiente& ambiente, const PeriodoIva& periodo);

/// Accounts and causals of the giros, from the settings.
struct DatiGiri {
  bool erario = false;  ///< RegistrazioneContabileErario
  bool corrispettivi = false;  ///< RegistrazioneContabileGiro
  std::string contoErario;
  std::string contoInteressi;
  std::string causaleErario;
  Data dt;  ///< of the registrations
};
DatiGiri LeggiDatiGiri(Ambiente& ambiente);
/// "mancano dati per registrazione contabile " and the like; empty when the giros can be written.
std::string MancanoDatiGiri(Ambiente& ambiente, const DatiGiri& giri,
                            const std::vector<TotaleRegistro>& registri);

/// Replaces the stored settlement of the period, credit and lines, and writes the giros, in the
/// transaction that the caller holds under the numbering lock.
void MemorizzaLiquidazione(Ambiente& ambiente, const Liquidazione& liquidazione,
                           const std::vector<TotaleRegistro>& registri, const DatiGiri& giri,
                           int ultimaPagina, LogContabile& log);

/// Prints the settlement on a page of its own of a report that is open (model `TiChiuIva`).
void StampaLiquidazione(Ambiente& ambiente, Stampa& stampa, const Liquidazione& liquidazione);

/// A stored settlement's lines; empty when the period isn't settled.
std::vector<RigaLiquidazione> LiquidazioneMemorizzata(Ambiente& ambiente, int anno,
                                                      const std::string& periodo);

}  // namespace fenalto
