#include "duedates/bank/LineeEstratto.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

#include "core/archives/LettoreValori.h"
#include "core/values/Testo.h"
#include "core/values/Valore.h"

namespace fenalto::duedates {
namespace {

/// Nobody's bank account moves more at once.
constexpr std::int64_t kMassimoUnita = 1'000'000'000'000;

using Colonna = std::optional<std::size_t>;

/// Runs of blanks and line breaks become one blank.
std::string Riassunta(std::string_view testo) {
  std::string fatta;
  for (const char c : Rifila(testo)) {
    const bool vuoto = c == ' ' || c == '\t' || c == '\r' || c == '\n';
    if (!vuoto) {
      fatta += c;
    } else if (!fatta.empty() && fatta.back() != ' ') {
      fatta += ' ';
    }
  }
  return Mid(fatta, 1, kCaratteriLinea);
}

class Lettore {
 public:
  Lettore(const TabellaCsv& tabella, const ColonneEstratto& colonne) : colonne_(colonne) {
    // One look for all three: a program writes all its columns alike.
    archives::StileDecimali stile;
    for (const auto& riga : tabella.righe) {
      for (const Colonna& colonna : {colonne.importo, colonne.addebito, colonne.accredito}) {
        if (colonna) stile.Guarda(riga.campi.at(*colonna));
      }
    }
    stile_ = stile.Stile();
  }

  [[nodiscard]] Esito<LineaEstratto> Leggi(const TabellaCsv::Riga& riga) const {
    LineaEstratto linea;
    linea.linea = riga.linea;
    const auto data = archives::LeggiDataDiFile(riga.campi.at(*colonne_.data));
    if (!data) return Errore{data.Errore().messaggio};
    if (data.Valore().Nulla()) return Errore{"manca la data"};
    linea.data = data.Valore();
    const auto importo = ImportoDi(riga);
    if (!importo) return Errore{importo.Errore().messaggio};
    if (importo.Valore().Zero()) return Errore{"manca l'importo"};
    linea.importo = importo.Valore();
    if (!colonne_.descrizione) return linea;
    const std::string& descrizione = riga.campi.at(*colonne_.descrizione);
    if (std::string difetto = DifettoTesto(descrizione); !difetto.empty()) {
      return Errore{"descrizione: " + difetto};
    }
    linea.descrizione = Riassunta(descrizione);
    return linea;
  }

 private:
  [[nodiscard]] Esito<Importo> Cella(const TabellaCsv::Riga& riga, const Colonna& colonna) const {
    if (!colonna) return Importo();
    const std::string& testo = riga.campi.at(*colonna);
    if (Rifila(testo).empty()) return Importo();
    auto letto = archives::LeggiImportoDiFile(testo, stile_);
    const Importo massimo = Importo::DaUnita(kMassimoUnita);
    if (letto && (letto.Valore() > massimo || letto.Valore() < -massimo)) {
      return Errore{"importo fuori misura: " + Visibile(testo)};
    }
    return letto;
  }

  /// Debits are written with and without a minus: where the column says it, the sign is known.
  [[nodiscard]] Esito<Importo> ImportoDi(const TabellaCsv::Riga& riga) const {
    auto intero = Cella(riga, colonne_.importo);
    if (!intero || !intero.Valore().Zero()) return intero;
    auto uscita = Cella(riga, colonne_.addebito);
    if (!uscita) return uscita;
    auto entrata = Cella(riga, colonne_.accredito);
    if (!entrata) return entrata;
    if (!uscita.Valore().Zero() && !entrata.Valore().Zero()) {
      return Errore{"ha sia un addebito sia un accredito"};
    }
    const Importo fuori = uscita.Valore();
    return entrata.Valore() + (fuori.Negativo() ? fuori : -fuori);
  }

  const ColonneEstratto& colonne_;
  archives::Decimali stile_ = archives::Decimali::Ignoto;
};

}  // namespace

std::string ColonneEstratto::Manca() const {
  if (!data) return "la colonna della data";
  if (importo || addebito || accredito) return {};
  return "la colonna dell'importo (oppure quelle degli addebiti e degli accrediti)";
}

LineeEstratto LeggiLinee(const TabellaCsv& tabella, const ColonneEstratto& colonne) {
  const Lettore lettore(tabella, colonne);
  LineeEstratto lette;
  std::map<std::string, int> uguali;
  for (const auto& riga : tabella.righe) {
    auto letta = lettore.Leggi(riga);
    if (!letta) {
      lette.scartate.push_back({riga.linea, letta.Errore().messaggio});
      continue;
    }
    LineaEstratto& linea = letta.Valore();
    const std::string chiave = Valore(linea.data).Neutro() + "|" + Valore(linea.importo).Neutro() +
                               "|" + PerRicerca(linea.descrizione);
    linea.chiave = chiave + "|" + std::to_string(++uguali[chiave]);
    lette.linee.push_back(std::move(linea));
  }
  return lette;
}

}  // namespace fenalto::duedates
