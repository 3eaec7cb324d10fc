// The quotas of a year for all assets of some categories, and taking them back.
//
// Both work in two steps: a plan, which reads and can be shown, and its execution, which asks,
// writes everything in one transaction and prints what it wrote. A bad asset stops neither: it gets
// its line and stays as it is.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "assets/QuotaAutomatica.h"
#include "core/reports/Uscita.h"

namespace fenalto::assets {

/// The choice of the year's functions.
struct SceltaAmmortamento {
  int anno = 0;
  IntervalloCategorie categorie;
  bool stGrafico = false;
  double xTar = 0;
};

/// What the run does with an asset. The texts of the asset and its category are for whoever looks.
struct VoceAmmortamento {
  std::int64_t nCesp = 0;
  std::string descrizione;
  std::string cat;
  std::string descrCat;
  std::int64_t cespCorr = 0;
  QuotaAutomatica quota;
  MovimentoCespite riga;  ///< to be added, when there is a quota
};

/// What the reversal does with an asset.
struct VoceStorno {
  std::int64_t nCesp = 0;
  std::string descrizione;
  std::string cat;
  std::string descrCat;
  int ultimoAnno = 0;  ///< the last one with a quota
  Importo importo;     ///< of the quotas to be deleted
  int righe = 0;       ///< how many there are
  bool completatoDopo = false;
  [[nodiscard]] std::string Testo(int anno) const;
};

class AmmortamentoAutomatico {
 public:
  AmmortamentoAutomatico(Ambiente& ambiente, reports::FabbricaUscite& uscite)
      : ambiente_(ambiente), uscite_(uscite) {}

  /// What a run would do, without writing; nothing when the choice is wrong (told).
  std::optional<std::vector<VoceAmmortamento>> Piano(const SceltaAmmortamento& scelta);
  /// What the reversal would do.
  std::optional<std::vector<VoceStorno>> PianoStorno(const SceltaAmmortamento& scelta);

  /// Plans, hands the plan to `mostra`, asks, asks for the output, writes, prints. True when it
  /// was written.
  bool Registra(const SceltaAmmortamento& scelta,
                const std::function<void(const std::vector<VoceAmmortamento>&)>& mostra);
  /// The same for the deletion of the year's quotas, those typed by hand too.
  bool Elimina(const SceltaAmmortamento& scelta,
               const std::function<void(const std::vector<VoceStorno>&)>& mostra);

 private:
  bool Pronta(const SceltaAmmortamento& scelta);
  template <class Voce>
  bool Fai(const SceltaAmmortamento& scelta, const std::vector<Voce>& voci,
           const std::string& titolo, const std::string& domanda,
           const std::function<void(const Voce&)>& scrivi);

  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
  std::string impronta_;  ///< of the rows that the last plan was made of
};

}  // namespace fenalto::assets
