// The movements of a product in the session's year, one after the other, with the running stock.
// Rows are made as they are asked for, and belong to whoever asks.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

struct FiltroMovimenti {
  std::string prodotto;
  Data daDt = {};            ///< earlier rows are one sum; null from the year's beginning
  Data aaDt = {};            ///< null to its end
  std::string mag = {};      ///< empty for all
  std::string tipoDoc = {};  ///< empty for all
  bool anchePrezzi = false;
  bool veloce = false;  ///< the first rows alone where there are many
};

enum class GenereMovimento {
  Movimento,
  Precedenti,  ///< sum of what lies before `daDt`
  Avviso,      ///< says that more rows follow; without figures
  Totali
};

struct RigaMovimento {
  GenereMovimento genere = GenereMovimento::Movimento;
  std::int64_t num = 0;     ///< from 1
  std::string descrizione;  ///< lines
  std::string mag;
  Data dt;
  std::string tipoDoc;
  std::int64_t numDoc = 0;
  Importo carichi;
  Importo scarichi;
  Importo esistenza;  ///< loads less unloads so far
  Importo prezzo;     ///< net, when asked for
  std::string descrizione2;
  int anno = 0;
  std::int64_t posi = 0;

  [[nodiscard]] bool ConCifre() const { return genere != GenereMovimento::Avviso; }
};

/// Rows of a product past which `veloce` shows only the first kMovimentiVeloci.
inline constexpr std::int64_t kMovimentiMolti = 100;
inline constexpr std::int64_t kMovimentiVeloci = 80;

class VistaMovimenti {
 public:
  VistaMovimenti(Ambiente& ambiente, FiltroMovimenti filtro);

  /// The next row; nothing after the last one.
  std::optional<RigaMovimento> Prossima();
  /// Caption of the running figure: "somma" where a filter leaves movements out, since then it is
  /// no stock.
  [[nodiscard]] static const char* TitoloEsistenza(const FiltroMovimenti& filtro);

 private:
  enum class Passo { Righe, Avvisi, Totali, Fine };
  RigaMovimento Nuova(GenereMovimento genere);
  RigaMovimento Movimento();
  RigaMovimento Precedenti();
  std::optional<RigaMovimento> Avviso();
  void Somma();
  void FineRighe();

  Ambiente& ambiente_;
  FiltroMovimenti filtro_;
  Rs righe_;
  Passo passo_ = Passo::Righe;
  std::int64_t num_ = 0;
  std::int64_t lette_ = 0;
  std::size_t avvisi_ = 0;
  bool soloPrime_ = false;
  bool somme_ = false;   ///< rows before the range have been summed
  bool dentro_ = false;  ///< a row of the range has been reached
  Importo carichi_;
  Importo scarichi_;
};

/// All rows at once, for a grid.
std::vector<RigaMovimento> LeggiMovimenti(Ambiente& ambiente, const FiltroMovimenti& filtro);

}  // namespace fenalto::warehouse
