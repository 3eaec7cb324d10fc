// Balance of an account over a period, with its opening apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/store/Archivio.h"
#include "core/values/Data.h"
#include "core/values/Importo.h"

namespace fenalto::ledger {

/// Causals of the opening registrations: their amounts are the opening balance, never the period's.
inline constexpr std::string_view kCausaleApertura = "APE";
inline constexpr std::string_view kCausaleAperturaProvvisoria = "APEX";

struct Saldo {
  Importo saldoIniziale;  ///< debit minus credit of the opening registrations in the period
  Importo totaleDare;
  Importo totaleAvere;
  /// saldoIniziale + totaleDare - totaleAvere
  [[nodiscard]] Importo Finale() const { return saldoIniziale + totaleDare - totaleAvere; }
  Saldo& operator+=(const Saldo& altro) {
    saldoIniziale += altro.saldoIniziale;
    totaleDare += altro.totaleDare;
    totaleAvere += altro.totaleAvere;
    return *this;
  }
};

/// The balance routine of the ledger. It keeps two result sets, one for the movements of the period
/// and one for the openings; with `mantieniAperto` they hold all accounts, so that a report asks an
/// account at a time without querying again.
class SaldoConto {
 public:
  struct Richiesta {
    bool mantieniAperto = false;
    bool chiudiAlTermine = false;
    std::string conto;
    std::string cfp = "P";
    /// One more causal left out of the period's debit and credit; empty for none.
    std::string causaleEsclusa;
    int anno = 0;  ///< 0 for all years
    Data daData;
    Data aData;
  };
  explicit SaldoConto(Archivio& archivio) : archivio_(archivio) {}

  Saldo Calcola(const Richiesta& richiesta);
  /// Closes the kept sets.
  void Chiudi();

  /// Text of the first query (movements) and of the second (openings): what Calcola runs.
  static std::string TestoMovimenti(const Richiesta& richiesta);
  static std::string TestoAperture(const Richiesta& richiesta);

 private:
  Archivio& archivio_;
  std::optional<Rs> movimenti_;
  std::optional<Rs> aperture_;
};

}  // namespace fenalto::ledger
