// The run of the unified VAT register: period, ranges, checks, print in test or in definitive,
// store.
//
// A definitive run asks everything first, prints, and then stores protocols, totals, settlement and
// giros in one transaction under the numbering lock: all of it or nothing. Repeating it replaces.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vat/settlement/LiquidazioneIva.h"
#include "vat/settlement/TotaliRegistri.h"

namespace fenalto::vat {

struct OpzioniRegistroIva {
  bool stIndirizzo = false;
  bool saltoCartaTotaliIva = false;
  bool soloTotali = false;
  bool soloChiusura = false;
  Ventilazione ventilazione;
  DatiLiquidazione liquidazione;
  Data dtReg;  ///< date of the giros
  bool stGrafico = true;
  double xTar = 0;
};

/// What would stop or warn, with the registration it is about.
struct ProblemaRegistro {
  std::string riva;
  std::int64_t nProt = 0;
  std::int64_t numDoc = 0;  ///< 0 when no registration is meant
  bool ferma = true;        ///< otherwise it asks and goes on
  std::string testo;
};

class RegistroIvaUnico {
 public:
  explicit RegistroIvaUnico(Ambiente& ambiente);
  ~RegistroIvaUnico();

  [[nodiscard]] std::vector<PeriodoIva> Periodi() const;
  /// "Conferma Periodo": warnings, proposed ranges, deferred invoices. False for an unknown period.
  bool ScegliPeriodo(const std::string& cod);
  /// The same for a look, of a period of the session's year: nothing is told or written, and each
  /// register's range is what its dates put into the period.
  void GuardaPeriodo(const PeriodoIva& periodo);
  [[nodiscard]] const PeriodoIva& Periodo() const;
  /// One a register, in order of code; the user may change the ranges.
  [[nodiscard]] std::vector<IntervalloRegistro>& Intervalli();
  [[nodiscard]] OpzioniRegistroIva& Opzioni();
  /// Proposes the last protocol of the period for the first register that ventilation reads, or for
  /// the second: what was typed for the other stays.
  void ProponiVentilazione(bool secondo);

  /// The page of checks: gaps, missing rows, dates outside the period, ZCOR, ventilation.
  [[nodiscard]] std::vector<ProblemaRegistro> Controlla();
  /// Totals and settlement as they would be printed, for the screen.
  Esito<std::vector<TotaleRegistro>> Totali();
  Esito<Liquidazione> Liquida();
  /// The same over totals read before, when only the data of the settlement have changed.
  Esito<Liquidazione> Liquida(const std::vector<TotaleRegistro>& totali);
  /// Checks, questions, print, and in definitive the store. True when it was printed (and stored).
  bool Stampa(reports::FabbricaUscite& uscite);

  /// `Command2`: asks and erases the stored settlements of the year.
  bool EliminaLiquidazioni();
  /// `StampaElencoChiusure`, `CommElencoFattSospIva`.
  void StampaElencoChiusure(reports::FabbricaUscite& uscite);
  struct ElencoSospese {
    std::string riva;
    Data da;
    Data a;
    bool soloDaPagare = false;
    bool soloPagate = false;
  };
  void StampaElencoSospese(reports::FabbricaUscite& uscite, const ElencoSospese& richiesta);
  /// The older print of one register.
  bool StampaSingolo(reports::FabbricaUscite& uscite, const std::string& riva);

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::vat
