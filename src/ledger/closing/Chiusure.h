// The three runs that close a year: costs and revenues to profit and loss, the result to its
// balance-sheet account, the balance-sheet accounts to the closing account.
//
// Each run is one transaction under the numbering lock, and is kept among the year's operations.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"
#include "ledger/closing/ScrittoreChiusure.h"

namespace fenalto::ledger {

/// Whether an account's letter is that of the balance sheet.
bool ContoPatrimoniale(Archivio& tessarc, const std::string& conto);
/// A plain account of the chart that isn't there, or a causal; empty when both are. What is told.
std::string CodiciDiChiusura(Ambiente& ambiente, const std::string& conto,
                             const std::string& causale);
/// Asks whether to write a registration of that day although its journal is printed; true when not
/// printed or answered yes.
bool DentroGiornaleStampato(Ambiente& ambiente, int anno, Data dt);

class Chiusure {
 public:
  explicit Chiusure(Ambiente& ambiente);

  /// Dates, accounts and causals: DtGiroEcon, C_ProfittiPerdite, Cau_ProfittiPerdite,
  /// C_UtilePerdita, Cau_UtilePerdita, DtGiroPatr, C_Chiusura, Cau_Chiusura.
  [[nodiscard]] Scheda& Dati() { return dati_; }
  /// A field was left: accounts and causals are kept in the settings.
  void CampoLasciato(const std::string& campo);
  /// Field that the last run was refused for; empty for none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }

  // Each true when it went through; what stops it was told.
  bool ConfermaEconomici();
  bool ConfermaUtile();
  bool ConfermaChiusura();

 private:
  /// What a run needs and how it is told.
  struct Corsa {
    CorsaChiusura scritta;
    std::string domanda;
    std::string nonRiuscita;
    std::string avanzamento;
    std::string messaggio;  ///< before the numbers
    std::string nulla;      ///< when there was nothing to write
    bool unaSola = false;   ///< one registration, told by its number
    /// Reads under the lock what is to be moved; the refusal in `rifiuto`.
    std::function<std::vector<VoceSaldo>(std::string& rifiuto)> voci;
  };
  /// The three fields of a run, which all must be there.
  struct Campi {
    const char* data;
    const char* conto;
    const char* causale;
  };
  bool Rifiuta(const std::string& testo, const std::string& campo);
  bool Mancano(const Campi& campi);
  /// The refusals that follow those of each run: unknown codes, a day of another year.
  bool ControllaCampi(const Campi& campi);
  bool EsegueCorsa(Corsa corsa);
  [[nodiscard]] Corsa Prepara(Origine origine, const Campi& campi) const;
  [[nodiscard]] std::string Testo(const char* campo) const { return dati_.Testo(campo); }

  Ambiente& ambiente_;
  Scheda dati_;
  std::string campoRifiutato_;
};

}  // namespace fenalto::ledger
