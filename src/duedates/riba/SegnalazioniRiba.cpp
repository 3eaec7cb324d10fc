#include "duedates/riba/SegnalazioniRiba.h"

#include <algorithm>
#include <set>

#include "core/values/FormatoImporto.h"

namespace fenalto {
namespace {

constexpr int kCentesimi = 2;
/// Receipts that a group names before it only counts them.
constexpr std::size_t kNominate = 4;
/// Lines of the message.
constexpr std::ptrdiff_t kRigheMessaggio = 24;

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
      testi.push_back(gruppo.ricevute.empty()
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

}  // namespace

std::vector<std::string> SegnalazioniRiba(Ambiente& ambiente, const DistintaRiba& distinta,
                                          const FileRiba& file, const std::vector<Scadenza>& viste,
                                          bool contabile) {
  Gruppi gruppi(distinta);
  std::set<std::string> visti;
  for (std::size_t i = 0; i < viste.size(); ++i) {
    Importi(gruppi, viste[i], i + 1);
    if (contabile && visti.insert(viste[i].conto).second &&
        ContoRiepilogativo(ambiente, viste[i].cfp, viste[i].conto).empty()) {
      gruppi.Aggiungi("sul cliente " + viste[i].conto + " manca conto riepilogativo", i + 1);
    }
  }
  for (const NotaRiba& nota : file.note) {
    gruppi.Aggiungi(nota.messaggio, static_cast<std::size_t>(nota.ricevuta));
  }
  return gruppi.Testi();
}

std::string MessaggioSegnalazioni(const std::vector<std::string>& gruppi) {
  if (gruppi.empty()) return {};
  std::string testo = "Segnalazioni sul file per la banca:\n";
  std::ptrdiff_t righe = 0;
  for (std::size_t i = 0; i < gruppi.size(); ++i) {
    righe += std::ranges::count(gruppi[i], '\n') + 1;
    if (i > 0 && righe > kRigheMessaggio) {
      return testo + "\n... e altre " + std::to_string(gruppi.size() - i) +
             ": sono tutte in fondo alla stampa della distinta";
    }
    testo += "\n" + gruppi[i];
  }
  return testo;
}

std::string ImpedimentiRiba(const DistintaRiba& distinta, const FileRiba& file) {
  Gruppi gruppi(distinta);
  for (const NotaRiba& nota : file.note) {
    if (nota.grave) gruppi.Aggiungi(nota.messaggio, static_cast<std::size_t>(nota.ricevuta));
  }
  std::string testo;
  for (const std::string& gruppo : gruppi.Testi()) testo += "\n" + gruppo;
  return testo.empty() ? testo : "il file per la banca non può essere scritto:" + testo;
}

}  // namespace fenalto
