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
  bool sottoMinimo = false;               ///< owed but below 25.82, so not paid in this period
  [[nodiscard]] Importo Credito() const;  ///< carried on; zero when something is owed
};

/// What the user must put right in the percentages; empty when they can be used.
std::string ErroreDatiLiquidazione(const DatiLiquidazione& dati);

/// Pure: the lines in their order, with thresholds, interest and notes.
Liquidazione CalcolaLiquidazione(const PeriodoIva& periodo,
                                 const std::vector<TotaleRegistro>& registri,
                                 const DatiLiquidazione& dati);

/// What the program proposes for a period: ProRata of the settings, the credit of `CreditoIva`, the
/// amount below the minimum that the period before left unpaid.
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
  Data dt;  ///< of the registrations
};
DatiGiri LeggiDatiGiri(Ambiente& ambiente);
/// "mancano dati per registrazione contabile " and the like; empty when the giros can be written.
/// `interessi` of the settlement, which need an account of their own.
std::string MancanoDatiGiri(Ambiente& ambiente, const DatiGiri& giri,
                            const std::vector<TotaleRegistro>& registri, Importo interessi = {});

/// Replaces the stored settlement of the period, credit and lines, and writes the giros, in the
/// transaction that the caller holds under the numbering lock.
void MemorizzaLiquidazione(Ambiente& ambiente, const Liquidazione& liquidazione,
                           const std::vector<TotaleRegistro>& registri, const DatiGiri& giri,
                           int ultimaPagina, LogContabile& log);

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
