#include "admin/repairs/FileTemporanei.h"

#include <chrono>
#include <cstdlib>
#include <set>
#include <vector>

#include "core/session/CopieDitta.h"
#include "core/session/Ditte.h"
#include "core/values/Testo.h"

namespace fenalto::admin {

namespace fs = std::filesystem;

namespace {

bool DiLavoro(const fs::path& file) {
  return Somiglia(file.filename().string(), "x*.mdb");
}

/// A folder that a copy is made in, of some other day: no work takes that long.
bool LasciataLi(const fs::directory_entry& voce) {
  std::error_code errore;
  const auto scritta = voce.last_write_time(errore);
  const std::string nome = voce.path().filename().string();
  return !errore && nome.starts_with('.') && nome.ends_with(".tmp") && voce.is_directory(errore) &&
         scritta < fs::file_time_type::clock::now() - std::chrono::hours(24);
}

/// The databases of every company, whatever they are called.
std::set<fs::path> ArchiviDelleDitte(const Ambiente& ambiente) {
  std::set<fs::path> archivi;
  const Ditte ditte(ambiente.CartellaProgramma());
  for (const DittaTrovata& ditta : ambiente.DitteTrovate()) {
    const auto percorsi = ditte.Percorsi(ditta.nome);
    if (!percorsi) continue;
    archivi.insert(percorsi.Valore().tessarc);
    archivi.insert(percorsi.Valore().scadenzario);
  }
  return archivi;
}

}  // namespace

fs::path CartellaTemporanea() {
  const char* indicata = std::getenv("Temp");
  std::error_code errore;
  if (indicata != nullptr && fs::is_directory(indicata, errore)) return indicata;
  return fs::temp_directory_path(errore);
}

void EliminaTemporanei(Ambiente& ambiente) {
  const std::set<fs::path> archivi = ArchiviDelleDitte(ambiente);
  std::vector<fs::path> via;
  std::error_code errore;
  for (const fs::path& cartella : {CartellaTemporanea(), ambiente.CartellaDitta()}) {
    for (const auto& voce : fs::directory_iterator(cartella, errore)) {
      std::error_code ignoto;
      const bool file = voce.is_regular_file(ignoto) && DiLavoro(voce.path());
      if (file && !archivi.contains(voce.path())) via.push_back(voce.path());
    }
  }
  for (const auto& voce : fs::directory_iterator(CartellaCopie(ambiente), errore)) {
    if (LasciataLi(voce)) via.push_back(voce.path());
  }
  std::string restano;
  for (const fs::path& uno : via) {
    std::error_code guasto;
    fs::remove_all(uno, guasto);
    if (guasto) restano.append("\n«").append(uno.string()).append("»: ").append(guasto.message());
  }
  if (!restano.empty()) {
    ambiente.Dialogo().Messaggio("non si sono potuti eliminare:" + restano, Icona::Avviso);
  }
  ambiente.Dialogo().Annuncia("File tempranei eliminati");
}

}  // namespace fenalto::admin
