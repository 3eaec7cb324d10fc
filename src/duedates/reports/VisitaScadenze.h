// The walk over the due dates of a report, with its breaks and totals; whoever follows it makes
// pages or a sheet of them.
#pragma once

#include <cstdint>
#include <map>

#include "duedates/reports/StampaScadenze.h"

namespace fenalto::duedates {

struct TotaliScadenze {
  Importo importo;
  Importo pagato;
  Importo residuo;
  TotaliScadenze& operator+=(const ScadenzaStampata& s);
};

/// Rows of a party between two looks at how far a report is.
inline constexpr std::int64_t kOgniParti = 200;

/// A month, as year * 12 + month - 1.
using MeseScadenze = int;
MeseScadenze MeseDi(Data data);
/// "marzo 2024"; "senza data" for that of the null date.
std::string NomeMese(MeseScadenze mese);

/// What a walk tells, in the order of the report.
class SeguitoScadenze {
 public:
  virtual ~SeguitoScadenze() = default;
  /// A party begins (by party only).
  virtual void Parte(const ScadenzaStampata& prima) = 0;
  virtual void Riga(const ScadenzaStampata& scadenza) = 0;
  enum class Totale { Mese, Parte, MeseDiTutti, Generale };
  virtual void Totali(Totale quale, const std::string& scritta, const TotaliScadenze& totali) = 0;
  /// Nothing more is wanted.
  [[nodiscard]] virtual bool Fermato() const { return false; }
};

class VisitaScadenze {
 public:
  VisitaScadenze(Ambiente& ambiente, const SceltaStampaScadenze& scelta, SeguitoScadenze& seguito)
      : ambiente_(ambiente), scelta_(scelta), seguito_(seguito) {}
  /// False when the user cancelled, or the follower had enough.
  bool Visita(std::int64_t quante);

 private:
  void Riga(const ScadenzaStampata& scadenza);
  void FineMese();
  void FineParte();
  void Fine();
  [[nodiscard]] bool PerConto() const { return scelta_.ordine == OrdineScadenze::PerConto; }

  Ambiente& ambiente_;
  const SceltaStampaScadenze& scelta_;
  SeguitoScadenze& seguito_;
  bool iniziata_ = false;
  std::string conto_;
  std::string ragsoc_;
  MeseScadenze meseCorrente_ = 0;
  TotaliScadenze mese_;
  TotaliScadenze parte_;
  TotaliScadenze generale_;
  /// By party the months come back at each one; their totals stand at the end.
  std::map<MeseScadenze, TotaliScadenze> mesi_;
};

}  // namespace fenalto::duedates
