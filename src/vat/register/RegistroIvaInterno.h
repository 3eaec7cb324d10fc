// The run of the unified register, from inside: what its pieces share.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vat/register/RegistroIvaUnico.h"

namespace fenalto::vat {

/// What a print needs, read and computed before its first line.
struct DatiStampaRegistro {
  PeriodoIva periodo;
  std::vector<TotaleRegistro> totali;
  Liquidazione liquidazione;
  DatiGiri giri;  ///< of a definitive run
  int primaPagina = 1;
  bool definitiva = false;
  bool conLiquidazione = true;
};

struct RegistroIvaUnico::Interno {
  explicit Interno(Ambiente& a) : ambiente(a), tessarc(a.ArchivioDi("tessarc")) {}

  Ambiente& ambiente;
  Archivio& tessarc;
  PeriodoIva periodo;
  std::vector<IntervalloRegistro> intervalli;
  OpzioniRegistroIva opzioni;
  Ventilazione ventilazioneProposta;  ///< its protocols as last put in

  void Avviso(const std::string& testo) { ambiente.Dialogo().Messaggio(testo, Icona::Avviso); }

  // Proposals of a period.
  void AvvisaGiaChiuso();
  void ProponiIntervalli();
  /// The ranges alone, without what is to be told of them.
  void LeggiIntervalli();
  void AvvisaIntervallo(const IntervalloRegistro& intervallo, std::int64_t stampato);
  void AvvisaIncassi();
  /// Deferred invoices collected in the period that no register takes.
  struct SenzaRegistro {
    std::string tipo;  ///< of the register that would
    std::string testo;
  };
  std::vector<SenzaRegistro> IncassiSenzaRegistro();
  void ProponiOpzioni();
  /// What doesn't depend on the settlement before.
  void LeggiOpzioni();
  void ProponiVentilazione(bool secondo);
  /// Puts back what was typed over the proposals of the same period.
  void RimettiVentilazione(const Ventilazione& digitata, const Ventilazione& proposta);
  /// First protocol that isn't printed in definitive.
  std::int64_t PrimoDaStampare(const std::string& riva, std::int64_t ultProtSt);
  std::int64_t UltimoNelPeriodo(const std::string& riva);
  /// One that no protocol has when the period has none.
  std::int64_t PrimoNelPeriodo(const std::string& riva);
  /// Condition of a register's protocols dated in the period.
  [[nodiscard]] std::string NelPeriodo(const std::string& riva) const;

  // Checks.
  /// What must be right for a print; with `tutto` also what is only worth a look.
  void ControllaRegistro(const IntervalloRegistro& intervallo, bool tutto,
                         std::vector<ProblemaRegistro>& problemi);
  bool SequenzaIntera(const IntervalloRegistro& intervallo);
  void ControllaSequenza(const IntervalloRegistro& intervallo, bool tutto,
                         std::vector<ProblemaRegistro>& problemi);
  void ControllaRighe(const IntervalloRegistro& intervallo, bool tutto,
                      std::vector<ProblemaRegistro>& problemi);
  void ControllaCodici(const IntervalloRegistro& intervallo,
                       std::vector<ProblemaRegistro>& problemi);
  void ControllaVentilazione(std::vector<ProblemaRegistro>& problemi);
  /// Each such invoice, after what is told of them all.
  void ControllaIncassi(std::vector<ProblemaRegistro>& problemi);
  /// Tells the first that stops, asks once about all that ask. True to go on.
  bool Superati(const std::vector<ProblemaRegistro>& problemi);

  // The print and the store.
  Esito<std::vector<TotaleRegistro>> Totali();
  std::optional<DatiStampaRegistro> Prepara();
  bool ChiediDefinitiva(DatiStampaRegistro& dati);
  int PrimaPagina();
  bool ChiediProRata(const DatiGiri& giri, Importo proRata);
  /// What a definitive run replaces and goes on from, and what it prints, as text: it tells whether
  /// another station touched them.
  std::string Impronta(const std::vector<TotaleRegistro>& totali);
  bool Memorizza(const DatiStampaRegistro& dati, const std::string& impronta, int ultimaPagina);
  void ScriviTotali(const TotaleRegistro& totale);
  void ScriviProtocolli(const IntervalloRegistro& intervallo);
};

/// Prints the registers of `dati`; the last page's number, nothing when it was cancelled.
std::optional<int> StampaRegistroIva(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                                     const DatiStampaRegistro& dati,
                                     const OpzioniRegistroIva& opzioni);

}  // namespace fenalto::vat
