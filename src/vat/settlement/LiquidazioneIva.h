// The settlement of a period: from the totals of the registers to what is owed, its lines and
// notes, and what it writes.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/reports/Stampa.h"
#include "vat/postings/RegistrazioniAutomatiche.h"
#include "vat/settlement/TotaliRegistri.h"

namespace fenalto::vat {

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
  bool nota = false;    ///< a text without an amount
  int segno = 0;        ///< below the balance: -1 is taken off it, 1 is added
  bool totale = false;  ///< sums up the lines above
};

/// VAT of a register as it enters the settlement.
struct IvaRegistro {
  std::string riva;
  std::string tipo;
  std::string conto;
  int segno = 0;
  Importo iva;        ///< unsigned
  Importo differita;  ///< part of `iva` that is due only when the invoices are collected
  Importo ivaScorporata;
  Importo proRata;  ///< of what falls due, the part that the pro-rata takes off
  /// What falls due in the period, with which its account is cleared.
  [[nodiscard]] Importo Dovuta() const { return iva - differita; }
};

struct Liquidazione {
  PeriodoIva periodo;
  DatiLiquidazione dati;
  std::vector<IvaRegistro> registri;
  std::vector<RigaLiquidazione> righe;
  Importo saldoPeriodo;  ///< before credits and debits; above zero is owed
  Importo risultato;     ///< R of the period, without interest
  Importo interessi;
  Importo daVersare;                      ///< with interest; zero or below when nothing is owed
  bool sottoMinimo = false;               ///< owed but too little to be paid in this period
  [[nodiscard]] Importo Credito() const;  ///< carried on; zero when something is owed
  [[nodiscard]] Importo ProRata() const;  ///< taken off by the pro-rata in all; a cost above zero
};

/// What the user must put right in the percentages; empty when they can be used.
std::string ErroreDatiLiquidazione(const DatiLiquidazione& dati);

/// Pure: the lines in their order, with thresholds, interest and notes.
Liquidazione CalcolaLiquidazione(const PeriodoIva& periodo,
                                 const std::vector<TotaleRegistro>& registri,
                                 const DatiLiquidazione& dati);

/// What the program proposes for a period: ProRata of the settings; the credit and the amount too
/// little to be paid that the last period settled before it has left, however long ago.
DatiLiquidazione ProponiLiquidazione(Ambiente& ambiente, const PeriodoIva& periodo);
/// The same for a look: nothing is written, not even the row of a credit that was never kept.
DatiLiquidazione PrevediLiquidazione(Ambiente& ambiente, const PeriodoIva& periodo);

/// Accounts and causals of the giros, from the settings.
struct DatiGiri {
  bool erario = false;         ///< RegistrazioneContabileErario
  bool corrispettivi = false;  ///< RegistrazioneContabileGiro
  std::string contoErario;
  std::string contoInteressi;
  std::string causaleErario;
  std::string contoProRata;  ///< cost that takes what the pro-rata takes off; empty for no giro
  Data dt;                   ///< of the registrations
};
DatiGiri LeggiDatiGiri(Ambiente& ambiente);
/// "mancano dati per registrazione contabile " and the like; empty when the giros can be written.
/// `interessi` of the settlement and `proRata`, what it takes off, need accounts of their own.
std::string MancanoDatiGiri(Ambiente& ambiente, const DatiGiri& giri,
                            const std::vector<TotaleRegistro>& registri, Importo interessi = {},
                            Importo proRata = {});

/// Replaces the stored settlement of the period, credit and lines, and writes the giros, in the
/// transaction that the caller holds under the numbering lock.
void MemorizzaLiquidazione(Ambiente& ambiente, const Liquidazione& liquidazione,
                           const std::vector<TotaleRegistro>& registri, const DatiGiri& giri,
                           int ultimaPagina, LogContabile& log);

/// The credit that the first settled period of a year began with, which is on hand again once the
/// year's settlements are erased; that on hand now when the year has none, or when a later year is
/// settled, whose credit it is.
Importo CreditoPrimaDi(Ambiente& ambiente, int anno);
/// Erases the stored settlements of a year, in the caller's transaction under the numbering lock.
/// Printed again, the first period begins with what it began with, not with what the last left:
/// that credit is on hand again, and returned.
Importo EliminaLiquidazioniDi(Ambiente& ambiente, int anno);
/// Puts a credit on hand for the next period.
void ScriviCreditoIva(Ambiente& ambiente, Importo credito);

/// "manca modello chiusura iva" when the settlement's model isn't there; to be asked before the
/// first page. A model that can't be read is told by the print itself.
std::string MancaModelloLiquidazione(Ambiente& ambiente);
/// Prints the settlement on a page of its own, the last, of a report that is open (model
/// `TiChiuIva`); the report's heading stands on it too.
void StampaLiquidazione(Ambiente& ambiente, reports::Stampa& stampa,
                        const Liquidazione& liquidazione);

/// A stored settlement's lines; empty when the period isn't settled.
std::vector<RigaLiquidazione> LiquidazioneMemorizzata(Ambiente& ambiente, int anno,
                                                      const std::string& periodo);

}  // namespace fenalto::vat
