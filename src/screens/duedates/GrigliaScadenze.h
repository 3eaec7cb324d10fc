// The grid of due dates (`GrigliaScadenze`) that the windows of this folder share.
#pragma once

#include <cstdint>

#include "core/session/Ambiente.h"
#include "duedates/schedules/RicercaScadenze.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {

class GrigliaScadenze : public Griglia {
  Q_OBJECT

 public:
  /// `finestra` names the window for the remembered widths.
  explicit GrigliaScadenze(const QString& finestra, QWidget* genitore = nullptr,
                           const QString& nome = QStringLiteral("GrigliaScadenze"));

  /// Fills the grid; a long search shows how far it is and can be cancelled, which leaves what was
  /// found so far. Returns the rows and what is left of them, of each class that there is.
  struct Totale {
    int righe = 0;
    Importo daIncassare;  ///< of customers
    Importo daPagare;     ///< of suppliers
    bool clienti = false;
    bool fornitori = false;
    bool interrotta = false;
    [[nodiscard]] Importo Residuo() const { return daIncassare + daPagare; }
  };
  Totale Cerca(Ambiente& ambiente, const duedates::RicercaScadenze& ricerca);
  void Svuota();
  /// Number of the due date of a row, of the current one when -1; 0 for none.
  [[nodiscard]] std::int64_t Numero(int riga = -1);
  /// The same from the row's values.
  [[nodiscard]] static std::int64_t NumeroDi(const std::vector<Valore>& riga);

 signals:
  /// A row was double-clicked, or Enter was pressed on it.
  void Scelta(qint64 numero);
};

}  // namespace fenalto::screens
