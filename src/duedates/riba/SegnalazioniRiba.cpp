#include "duedates/riba/SegnalazioniRiba.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "core/values/FormatoImporto.h"

namespace fenalto::duedates {
namespace {

constexpr int kCentesimi = 2;
/// Receipts that a group names before it only counts them.
constexpr std::size_t kNominate = 4;
/// Lines of the message, and of what the question adds.
constexpr std::ptrdiff_t kRigheMessaggio = 36;
constexpr std::ptrdiff_t kRigheDomanda = 12;
constexpr const char* kInFondo = "in fondo alla stampa della distinta";

/// "ricevuta 3 ROSSI SRL"
std::string NomeRicevuta(const DistintaRiba& distinta, std::size_t numero) {
  return std::to_string(numero) + " " + distinta.ricevute[numero - 1].debitore.ragSoc1;
}

/// "    ricevute 3 ROSSI SRL, 5 VERDI SPA e altre 12"
std::string Elenco(const DistintaRiba& distinta, const std::vector<std::size_t>& numeri) {
  std::string testo = numeri.size() == 1 ? "    ricevuta " : "    ricevute ";
  for (std::size_t i = 0; i < std::min(numeri.size(), kNominate); ++i) {
    testo += (i == 0 ? "" : ", ") + NomeRicevuta(distinta, numeri[i]);
  }
  if (numeri.size() > kNominate) testo += " e altre " + std::to_string(numeri.size() - kNominate);
  return testo;
}

class Gruppi {
 public:
  explicit Gruppi(const DistintaRiba& distinta) : distinta_(distinta) {}

  /// `ricevuta` 0 for the whole batch.
  void Aggiungi(const std::string& testo, std::size_t ricevuta) {
    auto gruppo = std::ranges::find(gruppi_, testo, &Gruppo::testo);
    if (gruppo == gruppi_.end()) gruppo = gruppi_.insert(gruppi_.end(), {testo, {}});
    if (ricevuta != 0) gruppo->ricevute.push_back(ricevuta);
  }

  [[nodiscard]] std::vector<std::string> Testi() const {
    std::vector<std::string> testi;
    for (const Gruppo& gruppo : gruppi_) {
      // The only receipt needs no name.
      testi.push_back(gruppo.ricevute.empty() || distinta_.ricevute.size() == 1
                          ? gruppo.testo
                          : gruppo.testo + "\n" + Elenco(distinta_, gruppo.ricevute));
    }
    return testi;
  }

 private:
  struct Gruppo {
    std::string testo;
    std::vector<std::size_t> ricevute;
  };
  const DistintaRiba& distinta_;
  std::vector<Gruppo> gruppi_;
};

void Importi(Gruppi& gruppi, const Scadenza& vista, std::size_t numero) {
  if (vista.importoE.Zero()) gruppi.Aggiungi("importo zero", numero);
  if (vista.importoE.Negativo()) {
    gruppi.Aggiungi("importo negativo " + ScriviImporto(vista.importoE, kCentesimi) +
                        ": la banca può respingere la ricevuta",
                    numero);
  }
  if (!vista.importoPagatoE.Zero()) {
    gruppi.Aggiungi("già pagati " + ScriviImporto(vista.importoPagatoE, kCentesimi) +
                        ": la ricevuta va in banca per l'intero importo di " +
                        ScriviImporto(vista.importoE, kCentesimi),
                    numero);
  }
}

/// The groups one under the other, as many as fit; the rest is counted.
std::string Accodati(const std::vector<std::string>& gruppi, std::ptrdiff_t massimo) {
  std::string testo;
  std::ptrdiff_t righe = 0;
  for (std::size_t i = 0; i < gruppi.size(); ++i) {
    righe += std::ranges::count(gruppi[i], '\n') + 1;
    if (i > 0 && righe > massimo) {
      return testo + "\n... e altre " + std::to_string(gruppi.size() - i) + ": sono tutte " +
             kInFondo;
    }
    testo += "\n" + gruppi[i];
  }
  return testo;
}

}  // namespace

std::vector<std::string> SegnalazioniRiba(Ambiente& ambiente, const DistintaRiba& distinta,
                                          const std::vector<Scadenza>& viste, bool contabile) {
  Gruppi gruppi(distinta);
  std::set<std::string> visti;
  for (std::size_t i = 0; i < viste.size(); ++i) {
    Importi(gruppi, viste[i], i + 1);
    if (contabile && visti.insert(viste[i].conto).second &&
        ContoRiepilogativo(ambiente, viste[i].cfp, viste[i].conto).empty()) {
      gruppi.Aggiungi("sul cliente " + viste[i].conto + " manca conto riepilogativo", i + 1);
    }
  }
  return gruppi.Testi();
}

std::vector<std::string> SegnalazioniFile(const DistintaRiba& distinta, const FileRiba& file) {
  Gruppi gruppi(distinta);
  for (const NotaRiba& nota : file.note) {
    gruppi.Aggiungi(nota.messaggio, static_cast<std::size_t>(nota.ricevuta));
  }
  return gruppi.Testi();
}

std::string AvvertenzeRiba(const std::vector<std::string>& distinta,
                           const std::vector<std::string>& file) {
  std::string testo;
  if (!distinta.empty()) testo = "\n\nATTENZIONE" + Accodati(distinta, kRigheDomanda);
  if (!file.empty()) {
    testo +=
        "\n\nsegnalazioni sul file per la banca: " + std::to_string(file.size()) + ", " + kInFondo;
  }
  return testo;
}

std::string MessaggioFile(const std::vector<std::string>& gruppi) {
  if (gruppi.empty()) return {};
  return "Segnalazioni sul file per la banca:\n" + Accodati(gruppi, kRigheMessaggio);
}

std::string ImpedimentiRiba(const DistintaRiba& distinta, const FileRiba& file) {
  FileRiba gravi;
  std::ranges::copy_if(file.note, std::back_inserter(gravi.note), &NotaRiba::grave);
  std::string testo;
  for (const std::string& gruppo : SegnalazioniFile(distinta, gravi)) testo += "\n" + gruppo;
  return testo.empty() ? testo : "il file per la banca non può essere scritto:" + testo;
}

}  // namespace fenalto::duedates
