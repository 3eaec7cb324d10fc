// Balances of all accounts and parties of a year, read at once.
#pragma once

#include <map>
#include <string>

#include "core/store/Archivio.h"
#include "core/values/Importo.h"

namespace fenalto::ledger {

/// What all registrations of a year leave on an account or party, whatever their date: debit minus
/// credit, openings included.
class SaldiEsercizio {
 public:
  struct Voce {
    std::string cfp;
    std::string conto;
    Importo saldo;
  };
  /// Class and code, folded.
  using Chiave = std::pair<std::string, std::string>;

  SaldiEsercizio(Archivio& tessarc, int anno);

  static Chiave ChiaveDi(const std::string& cfp, const std::string& conto);
  [[nodiscard]] Importo Di(const std::string& cfp, const std::string& conto) const;
  /// All that moved, by class and code.
  [[nodiscard]] const std::map<Chiave, Voce>& Voci() const { return voci_; }

 private:
  void Somma(Rs righe);
  std::map<Chiave, Voce> voci_;
};

}  // namespace fenalto::ledger
