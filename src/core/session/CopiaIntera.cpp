#include "core/session/CopiaIntera.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <stdexcept>

#include "core/session/CambioDitta.h"
#include "core/session/CopieDitta.h"
#include "core/session/FileIni.h"
#include "core/session/FileTesto.h"
#include "core/store/engine/Disco.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

/// The user gave up: nothing to tell.
struct Annullata : std::runtime_error {
  Annullata() : std::runtime_error("") {}
};

/// Whether `dentro` is `fuori` or lies in it.
bool StaDentro(const fs::path& dentro, const fs::path& fuori) {
  std::error_code errore;
  const fs::path a = fs::weakly_canonical(dentro, errore);
  const fs::path b = fs::weakly_canonical(fuori, errore);
  return std::mismatch(b.begin(), b.end(), a.begin(), a.end()).first == b.end();
}

/// Why a copy can't go there; empty when it can.
std::string Rifiuto(const Ambiente& ambiente, const fs::path& dove, std::uintmax_t byte) {
  std::error_code errore;
  const std::string nome = "«" + dove.string() + "»";
  if (!fs::is_directory(dove, errore)) return nome + " non è una cartella";
  for (const fs::path& sua :
       {ambiente.CartellaDitta(), ambiente.CartellaImmagini(), ambiente.CartellaDocumenti()}) {
    if (StaDentro(dove, sua)) {
      return "la cartella " + nome + " è dentro quella da copiare, «" + sua.string() +
             "»: sceglierne una fuori, meglio su un altro disco";
    }
  }
  if (access(dove.c_str(), W_OK | X_OK) != 0) {
    return "nella cartella " + nome +
           " non si può scrivere: dare il permesso o sceglierne un'altra";
  }
  const auto spazio = fs::space(dove, errore);
  if (!errore && spazio.available < byte) {
    return "nella cartella " + nome + " non c'è spazio: servono " + ScriviByte(byte) +
           " e ne restano " + ScriviByte(spazio.available);
  }
  return {};
}

std::uintmax_t Grandi(const std::vector<fs::path>& file) {
  std::uintmax_t byte = 0;
  for (const fs::path& uno : file) {
    std::error_code errore;
    const auto suoi = fs::file_size(uno, errore);
    if (!errore) byte += suoi;
  }
  return byte;
}

/// The settings as they hold wherever the copy is put: files by their names, folders where the copy
/// has them.
std::string Impostazioni(const Ambiente& ambiente) {
  const auto letto = LeggiFileTesto(ambiente.FileImpostazioni());
  if (!letto) throw std::runtime_error(letto.Errore().messaggio);
  FileIni ini = FileIni::DaTesto(letto.Valore());
  ini.Imposta("Archivi", "Tessarc", ambiente.PercorsoDb("tessarc").filename().string());
  ini.Imposta("Archivi", "Scadenzario", ambiente.PercorsoDb("scadenzario").filename().string());
  ini.Imposta("config", "DirectoryImm", "Immagini");
  ini.Imposta("config", "DirectoryDoc", "Documenti");
  return ini.Testo();
}

std::string Nome(Ambiente& ambiente, const fs::path& dove) {
  return NomeLibero(dove, ambiente.Ditta() + " " + Adesso(ambiente.Ora()));
}

bool StessoDisco(const fs::path& a, const fs::path& b) {
  struct stat una{};
  struct stat altra{};
  return stat(a.c_str(), &una) == 0 && stat(b.c_str(), &altra) == 0 && una.st_dev == altra.st_dev;
}

class Copiatura {
 public:
  Copiatura(Ambiente& ambiente, const fs::path& dove)
      : ambiente_(ambiente),
        nome_(Nome(ambiente, dove)),
        dove_(dove),
        lavoro_(dove / ("." + nome_ + "-" + std::to_string(getpid()) + ".tmp")) {}

  fs::path Esegui(std::int64_t passi) {
    avanzamento_ = ambiente_.Dialogo().Avvia("Copia della ditta " + ambiente_.Ditta(), passi);
    fs::remove_all(lavoro_);
    fs::create_directory(lavoro_);
    const std::string& ditta = ambiente_.Ditta();
    const PercorsiArchivi percorsi = ambiente_.Basi().Percorsi();
    const auto archivi = EseguiCopiaDetta(percorsi, lavoro_, ditta);
    if (!archivi) throw std::runtime_error(archivi.Errore().messaggio);
    Passo();
    const fs::path ini = lavoro_ / ambiente_.FileImpostazioni().filename();
    if (auto scritto = ScriviFileTesto(ini, Impostazioni(ambiente_)); !scritto) {
      throw std::runtime_error(scritto.Errore().messaggio);
    }
    const auto passo = [this] { return Passo(); };
    CopiaFileSotto(ambiente_.CartellaImmagini(), archivi.Valore() / "Immagini", passo);
    CopiaFileSotto(ambiente_.CartellaDocumenti(), archivi.Valore() / "Documenti", passo);
    DescriviCopia(lavoro_, ArchiviDellaCopia(archivi.Valore(), percorsi), ditta, "copia intera",
                  ambiente_.Ora().Oggi(), ambiente_.Ora().Ora());
    engine::Sincronizza(lavoro_);
    fs::rename(lavoro_, dove_ / nome_);
    engine::Sincronizza(dove_);
    return dove_ / nome_;
  }
  void Disfai() const noexcept {
    std::error_code ignorato;
    fs::remove_all(lavoro_, ignorato);
  }

 private:
  bool Passo() {
    if (avanzamento_->Avanza(++fatti_)) return true;
    throw Annullata();
  }
  Ambiente& ambiente_;
  std::string nome_;
  fs::path dove_;
  fs::path lavoro_;
  std::unique_ptr<Avanzamento> avanzamento_;
  std::int64_t fatti_ = 0;
};

}  // namespace

std::vector<fs::path> FileSotto(const fs::path& cartella) {
  std::vector<fs::path> trovati;
  if (!fs::is_directory(cartella)) return trovati;
  for (const auto& voce : fs::recursive_directory_iterator(cartella)) {
    std::error_code ignoto;
    if (voce.is_regular_file(ignoto)) trovati.push_back(voce.path());
  }
  std::sort(trovati.begin(), trovati.end());
  return trovati;
}

void CopiaFileSotto(const fs::path& da, const fs::path& a, const std::function<bool()>& passo) {
  fs::create_directories(a);
  for (const fs::path& file : FileSotto(da)) {
    const fs::path posto = a / file.lexically_relative(da);
    fs::create_directories(posto.parent_path());
    if (!fs::exists(posto)) {
      // Beside and renamed: half a file would stand for a whole one ever after.
      const fs::path mezzo = posto.string() + ".tmp";
      fs::copy_file(file, mezzo, fs::copy_options::overwrite_existing);
      engine::Sincronizza(mezzo);
      fs::rename(mezzo, posto);
    }
    if (passo && !passo()) return;
  }
}

Esito<fs::path> CopiaIntera(Ambiente& ambiente, const fs::path& dove) {
  std::optional<Copiatura> copiatura;
  try {
    std::vector<fs::path> file{ambiente.PercorsoDb("tessarc"), ambiente.PercorsoDb("scadenzario")};
    for (const fs::path& cartella : {ambiente.CartellaImmagini(), ambiente.CartellaDocumenti()}) {
      const auto suoi = FileSotto(cartella);
      file.insert(file.end(), suoi.begin(), suoi.end());
    }
    if (const std::string no = Rifiuto(ambiente, dove, Grandi(file)); !no.empty()) {
      return Errore{no};
    }
    copiatura.emplace(ambiente, dove);
    return copiatura->Esegui(static_cast<std::int64_t>(file.size()));
  } catch (const Annullata&) {
    copiatura->Disfai();
    return Errore{};
  } catch (const std::exception& errore) {
    if (copiatura) copiatura->Disfai();
    return Errore{"la copia in «" + dove.string() +
                  "» non è riuscita, e non ne resta nulla: " + errore.what()};
  }
}

bool CopiaAdesso(Ambiente& ambiente) {
  const auto dove =
      ambiente.Dialogo().ScegliFile("Cartella in cui fare la copia", ModoFile::Cartella, "");
  if (!dove) return false;
  const auto fatta = CopiaIntera(ambiente, fs::weakly_canonical(*dove));
  if (!fatta) {
    if (!fatta.Errore().messaggio.empty()) {
      ambiente.Dialogo().Messaggio(fatta.Errore().messaggio, Icona::Errore);
    }
    return false;
  }
  std::string testo = "copia della ditta " + ambiente.Ditta() + " fatta e verificata in «" +
                      fatta.Valore().string() + "»: archivi, impostazioni, immagini e documenti";
  if (StessoDisco(*dove, ambiente.CartellaDitta())) {
    testo += "\nÈ sullo stesso disco dei dati: portarla anche su un altro.";
  }
  ambiente.Dialogo().Messaggio(testo);
  return true;
}

}  // namespace fenalto
