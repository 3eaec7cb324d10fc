// The walk of the chart that the trial balance, the statements and the comparison share: masters,
// their accounts, the customers and suppliers behind a summary account, each with its balance.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/session/Ambiente.h"
#include "ledger/accounts/SaldoConto.h"

namespace fenalto::ledger {

struct PeriodoVisita {
  int anno = 0;  ///< 0 for all years
  Data daData;
  Data aData;
};

/// One or two periods walked together: [0] is the report's, or period A, and [1] is period B.
using Saldi = std::array<Saldo, 2>;

/// A customer or a supplier that stands behind a summary account.
struct ParteVisitata {
  std::string cod;
  std::string cfp;
  std::string descrizione;
  Saldi saldi;
};

/// Class of plain accounts.
inline constexpr std::string_view kClassePiano = "P";

struct ContoVisitato {
  std::string cod;
  std::string cfp;
  std::string descrizione;
  Saldi saldi;  ///< with those of its parties, and with what was booked on it under another class
  Importo rettifica;
  std::vector<ParteVisitata> parti;  ///< when asked for
};

struct MastroVisitato {
  std::string cod;  ///< empty for the accounts that the chart lacks
  std::string descrizione;
  std::string patrEcon;
  std::vector<ContoVisitato> conti;
  [[nodiscard]] bool Mancante() const { return cod.empty(); }
};

struct RichiestaVisita {
  std::string daMastro;
  std::string aaMastro;  ///< empty for the last
  std::string patrEcon;  ///< "P" or "E"; empty for both
  std::string escludoCausale;
  bool parti = false;
  std::vector<PeriodoVisita> periodi;
};

/// Reads the chart a master at a time.
///
/// What an account was booked with while it was of another class is its own all the same: a plain
/// account that became a summary, a summary that became plain with parties behind it.
///
/// What is booked on an account that no master leads to (its master or the account itself is
/// missing, or a party has no summary account) would vanish and leave the books unbalanced: it
/// comes last, under a master without a code. On a walk of one letter it goes with "P" unless the
/// account says "E". With a choice of masters, only the accounts whose code begins with one of
/// them.
class VisitaConti {
 public:
  VisitaConti(Ambiente& ambiente, RichiestaVisita richiesta);

  using SuMastro = std::function<void(const MastroVisitato&)>;
  /// Calls `su` for each master that has accounts, in order of code. Shows how far it is under
  /// `testo`; false when the user cancelled.
  bool Visita(const std::string& testo, const SuMastro& su);

 private:
  bool LeggiConti(MastroVisitato& mastro);
  bool LeggiParti(ContoVisitato& conto, const std::string& cfp);
  /// Folded codes of the accounts that the customers or suppliers name; read once.
  const std::set<std::string>& Riepilogativi(const std::string& cfp);
  /// Folded codes of the customers or suppliers that have ever moved; read once.
  const std::set<std::string>& PartiMosse(const std::string& cfp);
  bool LeggiMancanti(MastroVisitato& mancante);
  /// Letter by code, both folded.
  using Mastri = std::map<std::string, std::string>;
  /// Whether no master leads to what was booked, so that this walk has to show it by itself.
  bool Manca(const ContoVisitato& mosso, const Mastri& mastri);
  [[nodiscard]] bool MastroScelto(const std::string& cod, const Mastri& mastri) const;
  Saldi Calcola(const std::string& cfp, const std::string& cod);
  bool Segna(const std::string& cfp, const std::string& cod);
  bool Avanza();

  Ambiente& ambiente_;
  Archivio& archivio_;
  RichiestaVisita richiesta_;
  std::vector<SaldoConto> saldi_;
  std::set<std::pair<std::string, std::string>> visti_;
  std::map<std::string, std::set<std::string>> mosse_;
  std::map<std::string, std::set<std::string>> riepilogativi_;
  std::unique_ptr<Avanzamento> avanzamento_;
  std::int64_t fatti_ = 0;
};

}  // namespace fenalto::ledger
