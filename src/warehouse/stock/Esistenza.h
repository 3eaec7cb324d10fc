// Quantities of a product, computed from the rows of documents each time: there is no table of
// stock. Figures are those of the session's year; its opening stock are the rows of type EI.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "warehouse/stock/SerieCodici.h"

namespace fenalto::warehouse {

struct Esistenza {
  Importo esistenza;         ///< carichi - scarichi
  Importo impegnato;         ///< ordered by customers and foreseen by jobs, not delivered yet
  Importo ordinato;          ///< ordered from suppliers, not received yet
  Importo disponibile;       ///< esistenza + ordinato - impegnato
  Importo disponibileReale;  ///< esistenza - impegnato
  Importo carichi;
  Importo scarichi;
};

/// What is looked at; orders and jobs depend on neither.
struct FiltroEsistenza {
  std::string mag = {};  ///< warehouse, empty for all
  Data finoAl = {};      ///< last day of movements, null for all
};

Esistenza CalcoloEsistenza(Ambiente& ambiente, const std::string& prodotto,
                           const FiltroEsistenza& filtro = {});

/// The same figures for many products, asked for by ascending code: four result sets for all of
/// them. What is asked for in another order (by description) goes to CalcoloEsistenza, so that
/// memory stays flat there too.
class EsistenzeInSerie {
 public:
  explicit EsistenzeInSerie(Ambiente& ambiente, const FiltroEsistenza& filtro = {});
  Esistenza Di(const std::string& prodotto);

 private:
  SerieCodici movimenti_;
  SerieCodici ordiniCli_;
  SerieCodici commesse_;
  SerieCodici ordiniFor_;
};

/// Stock of a product in a warehouse that its rows name; "" for those that name none.
struct EsistenzaInMagazzino {
  std::string mag;
  Importo esistenza;
};

/// By warehouse, for many products asked for by ascending code: those of a product come by `mag`,
/// one for each that has moved in the session's year.
class EsistenzePerMagazzino {
 public:
  explicit EsistenzePerMagazzino(Ambiente& ambiente);
  std::vector<EsistenzaInMagazzino> Di(const std::string& prodotto);

 private:
  SerieCodici movimenti_;
};

}  // namespace fenalto::warehouse
