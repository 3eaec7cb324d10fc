// What a run of the year end moves: the accounts of one kind, in order, each with its own balance
// and with the parties that stand behind it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "ledger/closing/SaldiEsercizio.h"

namespace fenalto::ledger {

/// An account or a party with what is left on it, debit minus credit.
struct VoceSaldo {
  std::string cfp;
  std::string conto;
  std::string descrizione;
  Importo saldo;
};

/// Letters of PatrEcon.
inline constexpr std::string_view kPatrimoniale = "P";
inline constexpr std::string_view kEconomico = "E";

class VociDaMuovere {
 public:
  VociDaMuovere(Archivio& tessarc, int anno);

  /// Accounts of that letter with a balance, in order of code, but for those named. A plain account
  /// stands for itself; behind a summary account come its parties, after what was booked on it
  /// directly.
  [[nodiscard]] std::vector<VoceSaldo> Conti(std::string_view patrEcon,
                                             const std::vector<std::string>& esclusi = {});
  /// The same by master: accounts of the balance-sheet masters.
  [[nodiscard]] std::vector<VoceSaldo> DeiMastriPatrimoniali();
  [[nodiscard]] const SaldiEsercizio& Saldi() const { return saldi_; }

 private:
  struct Parte {
    std::string cfp;
    std::string cod;
    std::string descrizione;
  };
  void LeggiParti(const std::string& tabella, const std::string& cfp);
  void AggiungiConti(Rs conti, const std::set<std::string>& esclusi, std::vector<VoceSaldo>& voci);
  void Aggiungi(const std::string& cfp, const std::string& conto, const std::string& descrizione,
                std::vector<VoceSaldo>& voci);

  Archivio& tessarc_;
  SaldiEsercizio saldi_;
  std::map<std::string, std::vector<Parte>> parti_;  ///< by folded summary account
  std::set<SaldiEsercizio::Chiave> diParti_;         ///< classes and codes of parties
  std::set<SaldiEsercizio::Chiave> viste_;
};

}  // namespace fenalto::ledger
