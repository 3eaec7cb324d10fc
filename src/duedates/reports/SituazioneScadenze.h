// What is open at a day: by party in classes of ageing, by month of the due dates.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "duedates/reports/LetturaScadenze.h"
#include "duedates/reports/MeseScadenze.h"

namespace fenalto::duedates {

/// How late a due date is: what falls due on the day itself isn't late yet.
enum class Fascia : std::size_t { AScadere, Fino30, Fino60, Fino90, Oltre };
inline constexpr std::size_t kFasce = 5;

/// Days that a due date is late; nothing when it isn't, or has no day.
std::optional<int> GiorniRitardo(Data scadenza, Data alla);
/// A due date without a day is due at sight, and stands with the oldest.
Fascia FasciaDi(Data scadenza, Data alla);

/// An amount for each class.
class ImportiFasce {
 public:
  void Somma(Fascia fascia, Importo importo) { At(fascia) += importo; }
  [[nodiscard]] Importo Di(Fascia fascia) const {
    return valori_.at(static_cast<std::size_t>(fascia));
  }
  [[nodiscard]] Importo Scaduto() const;
  [[nodiscard]] Importo Totale() const;

 private:
  Importo& At(Fascia fascia) { return valori_.at(static_cast<std::size_t>(fascia)); }
  std::array<Importo, kFasce> valori_;
};

/// A customer or supplier with something open; deposits are taken off.
struct ParteAperta {
  std::string conto;
  std::string ragsoc;
  std::int64_t scadenze = 0;
  ImportiFasce importi;
};

struct MeseAperto {
  MeseScadenze mese = 0;
  std::int64_t scadenze = 0;
  Importo scaduto;
  Importo aScadere;
  Importo progressivo;  ///< with all months before
  [[nodiscard]] Importo Totale() const { return scaduto + aScadere; }
};

struct SceltaSituazione {
  std::string cfp = "C";
  Data alla;  ///< due before it is overdue
};

struct Situazione {
  std::vector<ParteAperta> parti;  ///< in order of code
  std::vector<MeseAperto> mesi;    ///< those with something open, oldest first
  ImportiFasce totali;
  std::int64_t scadenze = 0;
};

/// A place of the chart.
struct ColonnaMesi {
  std::string nome;  ///< "dic", "gen 24"; "prima", "dopo" for the months that find no place
  Importo scaduto;
  Importo aScadere;
};
/// Six months on either side of that of the day, none left out; older and later ones together.
std::vector<ColonnaMesi> ColonneMesi(const std::vector<MeseAperto>& mesi, Data alla);

class SituazioneScadenze {
 public:
  explicit SituazioneScadenze(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Customers, as of today.
  [[nodiscard]] SceltaSituazione Proposta() const;
  /// Nothing when the day is missing (told), or the user cancelled.
  [[nodiscard]] std::optional<Situazione> Calcola(const SceltaSituazione& scelta);
  /// The open due dates of a party (of all, when empty), in order of day; as above.
  [[nodiscard]] std::optional<std::vector<ScadenzaStampata>> Aperte(const SceltaSituazione& scelta,
                                                                    const std::string& conto);

 private:
  [[nodiscard]] bool Scorri(const SceltaScadenze& scelta, OrdineScadenze ordine,
                            const std::function<void(const ScadenzaStampata&)>& riga);
  Ambiente& ambiente_;
};

}  // namespace fenalto::duedates
