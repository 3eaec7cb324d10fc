#include "core/store/CopiaSicurezza.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>

#include "core/store/Apertura.h"
#include "core/store/NucleoBasi.h"
#include "core/store/engine/Disco.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEstensioneLavoro = ".tmp";  // of a folder in which a copy is being made

/// Removes all but the newest copies, and what copies that were killed left behind. What can't be
/// removed now will be another day.
void TieniUltime(const fs::path& cartella) {
  std::error_code ignorato;
  const auto copie = CopieEsistenti(cartella);
  for (std::size_t i = kCopieTenute; i < copie.size(); ++i) fs::remove_all(copie[i], ignorato);
  const auto ieri = fs::file_time_type::clock::now() - std::chrono::hours(24);
  std::vector<fs::path> resti;
  for (const auto& voce : fs::directory_iterator(cartella, ignorato)) {
    const fs::path& resto = voce.path();
    if (resto.extension() == kEstensioneLavoro && voce.last_write_time(ignorato) < ieri) {
      resti.push_back(resto);
    }
  }
  for (const fs::path& resto : resti) fs::remove_all(resto, ignorato);
}

/// Copies both databases into a folder that gets its name when they are whole. `superata`: another
/// station that was quicker has made the same.
Esito<fs::path> FaiCopia(const PercorsiArchivi& percorsi, const fs::path& cartella,
                         const std::string& nome, bool superata) {
  // One name a process: two stations that copy at once don't meet in one folder.
  const fs::path lavoro =
      cartella / ("." + nome + "-" + std::to_string(getpid()) + kEstensioneLavoro);
  const fs::path finale = cartella / nome;
  try {
    fs::create_directories(cartella);
    if (superata && fs::is_directory(finale)) return finale;
    fs::remove_all(lavoro);
    fs::create_directory(lavoro);
    const PercorsiArchivi copia = ArchiviDellaCopia(lavoro, percorsi);
    const engine::Motore& motore = MotoreDi(percorsi);
    motore.Copia(BasiDi(percorsi), {copia.tessarc, copia.scadenzario});
    for (const fs::path& file : {copia.tessarc, copia.scadenzario}) {
      motore.ControllaCopia(file, true);
      engine::Sincronizza(file);
    }
    engine::Sincronizza(lavoro);
    std::error_code rinomina;
    fs::rename(lavoro, finale, rinomina);
    if (rinomina && superata && fs::is_directory(finale)) {
      fs::remove_all(lavoro);
    } else if (rinomina) {
      throw std::runtime_error(finale.string() + " non si può creare: " + rinomina.message());
    }
    engine::Sincronizza(cartella);
    return finale;
  } catch (const std::exception& errore) {
    std::error_code ignorato;
    fs::remove_all(lavoro, ignorato);
    return Errore{"La copia di sicurezza in " + finale.string() +
                  " non è riuscita: " + errore.what() +
                  ". I dati sono intatti; controllare lo spazio e i permessi della cartella."};
  }
}

}  // namespace

bool CopiaDovuta(const fs::path& cartella, Data oggi) {
  std::error_code errore;
  return !fs::is_directory(cartella / oggi.Iso(), errore);
}

std::vector<fs::path> CopieEsistenti(const fs::path& cartella) {
  std::vector<fs::path> copie;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    if (voce.is_directory() && Data::DaIso(voce.path().filename().string())) {
      copie.push_back(voce.path());
    }
  }
  std::sort(copie.begin(), copie.end(), std::greater<>());
  return copie;
}

Esito<fs::path> EseguiCopia(const PercorsiArchivi& percorsi, const fs::path& cartella, Data oggi) {
  auto fatta = FaiCopia(percorsi, cartella, oggi.Iso(), true);
  if (fatta) TieniUltime(cartella);
  return fatta;
}

Esito<fs::path> EseguiCopiaDetta(const PercorsiArchivi& percorsi, const fs::path& cartella,
                                 const std::string& nome) {
  return FaiCopia(percorsi, cartella, nome, false);
}

PercorsiArchivi ArchiviDellaCopia(const fs::path& copia, const PercorsiArchivi& percorsi) {
  return {copia / percorsi.tessarc.filename(), copia / percorsi.scadenzario.filename()};
}

Esito<bool> ControllaCopia(const PercorsiArchivi& copia) {
  try {
    for (const fs::path& file : {copia.tessarc, copia.scadenzario}) {
      if (!fs::exists(file)) throw std::runtime_error("manca il file " + file.string());
      MotoreDi(copia).ControllaCopia(file, true);
    }
    return true;
  } catch (const std::exception& errore) {
    return Errore{errore.what()};
  }
}

Esito<bool> CopiaArchivio(const fs::path& origine, const fs::path& destinazione) {
  std::error_code esiste;
  if (fs::exists(destinazione, esiste)) {
    return Errore{"la copia " + destinazione.string() + " esiste già"};
  }
  try {
    if (destinazione.has_parent_path()) fs::create_directories(destinazione.parent_path());
    const engine::Motore& motore = MotoreDi({origine, {}});
    motore.Copia({{kTessarc, origine}}, {destinazione});
    motore.ControllaCopia(destinazione, false);
    engine::Sincronizza(destinazione);
    engine::Sincronizza(fs::absolute(destinazione).parent_path());
    return true;
  } catch (const std::exception& errore) {
    std::error_code ignorato;
    fs::remove(destinazione, ignorato);
    return Errore{"La copia di " + origine.string() + " in " + destinazione.string() +
                  " non è riuscita: " + errore.what()};
  }
}

}  // namespace fenalto
