#include "core/session/Allegati.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

/// Most bytes of a document's own name that are kept.
constexpr std::size_t kMassimoNomeAllegato = 80;

/// The name without what a file system, a shell or another system could take amiss.
std::string NomeSicuro(std::string_view nome) {
  std::string sicuro;
  for (const char c : nome) {
    const auto byte = static_cast<unsigned char>(c);
    const bool buono = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                       c == '-' || c == '.' || byte >= 0x80;
    sicuro += buono ? c : '_';
  }
  if (!Utf8Valido(sicuro)) {
    std::replace_if(sicuro.begin(), sicuro.end(), [](char c) { return (c & 0x80) != 0; }, '_');
  }
  if (sicuro.size() > kMassimoNomeAllegato) {
    sicuro.resize(kMassimoNomeAllegato);
    while (!sicuro.empty() && !Utf8Valido(sicuro)) sicuro.pop_back();
  }
  return sicuro.empty() ? "documento" : sicuro;
}

/// Brings a file or folder to the disk, so that a row never outlives its file in a power cut.
bool Sincronizza(const fs::path& percorso) noexcept {
  const int descrittore = ::open(percorso.c_str(), O_RDONLY | O_CLOEXEC);
  if (descrittore < 0) return false;
  const bool riuscito = ::fsync(descrittore) == 0;
  ::close(descrittore);
  return riuscito;
}

std::string DelRecord(const std::string& tipo, std::int64_t idRecord) {
  return " where " + sql::Criterio("Tipo", "=", tipo) + " and " +
         sql::Criterio("IdRecord", "=", idRecord);
}

}  // namespace

Allegati::Allegati(Ambiente& ambiente, std::string tipo, std::string descrizione)
    : ambiente_(ambiente), tipo_(std::move(tipo)), descrizione_(std::move(descrizione)) {}

Allegati::~Allegati() {
  Annullati();
}

void Allegati::Collega(std::int64_t idRecord, std::string_view seconda) {
  std::vector<Allegato> trovati;
  if (idRecord != 0) {
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset("select * from Allegati" +
                                                      DelRecord(tipo_, idRecord) + " order by num");
    for (; !rs.Eof(); rs.MoveNext()) {
      // Only the name is taken from the row: a document never lies outside its folder.
      const fs::path nome = fs::path(rs.Fields("NomeFile").Testo()).filename();
      trovati.push_back({rs.Fields("Num").Intero(), rs.Fields("Descrizione").Testo(),
                         ambiente_.CartellaDocumenti() / nome});
    }
  }
  idRecord_ = idRecord;
  seconda_ = seconda;
  elenco_ = std::move(trovati);
}

void Allegati::Scollega() {
  Annullati();
  idRecord_ = 0;
  seconda_.clear();
  elenco_.clear();
}

bool Allegati::InAttesa() const {
  return std::any_of(elenco_.begin(), elenco_.end(), [](const Allegato& a) { return a.num == 0; });
}

std::string Allegati::Testo(std::string_view seconda) const {
  return seconda.empty() ? descrizione_ : descrizione_ + " - " + std::string(seconda);
}

std::string Allegati::Copia(const fs::path& file, std::int64_t idRecord) const {
  const fs::path cartella = ambiente_.CartellaDocumenti();
  std::error_code errore;
  fs::create_directories(cartella, errore);
  const std::string inizio = tipo_ + "_" + std::to_string(idRecord) + "_";
  const std::string radice = NomeSicuro(file.stem().string());
  const std::string punto = file.extension().string();
  const std::string estensione = punto.size() > 1 ? "." + NomeSicuro(punto.substr(1)) : "";
  for (int volta = 1; volta < 10'000; ++volta) {
    std::string nome = inizio;
    nome += radice;
    if (volta > 1) nome.append("_").append(std::to_string(volta));
    nome += estensione;
    const fs::path destinazione = cartella / nome;
    // Fails when the file exists, without a moment between the look and the making of it.
    if (fs::copy_file(file, destinazione, fs::copy_options::none, errore)) {
      if (Sincronizza(destinazione) && Sincronizza(cartella)) return nome;
      std::error_code nessuno;
      fs::remove(destinazione, nessuno);
      errore = std::make_error_code(std::errc::io_error);
    }
    if (errore != std::errc::file_exists) break;
  }
  throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                       "il documento «" + file.string() + "» non si può copiare in «" +
                           cartella.string() + "» (" + errore.message() +
                           "): controllare che esista e che la cartella sia scrivibile");
}

std::int64_t Allegati::Inserisci(const std::string& nomeFile, std::int64_t idRecord,
                                 const std::string& testo) {
  return ambiente_.ArchivioDi("tessarc").Inserisci("Allegati", {{"Tipo", tipo_},
                                                                {"IdRecord", idRecord},
                                                                {"Descrizione", testo},
                                                                {"NomeFile", nomeFile},
                                                                {"Dt", ambiente_.Ora().Oggi()}});
}

Esito<bool> Allegati::Aggiungi(const fs::path& file) {
  std::error_code errore;
  if (!fs::is_regular_file(file, errore)) {
    return Errore{"il documento «" + file.string() + "» non esiste o non è un file"};
  }
  const std::string testo = Testo(seconda_);
  if (idRecord_ == 0) {
    elenco_.push_back({0, testo, fs::absolute(file)});
    return true;
  }
  fs::path copia;
  try {
    const std::string nome = Copia(file, idRecord_);
    copia = ambiente_.CartellaDocumenti() / nome;
    elenco_.push_back({Inserisci(nome, idRecord_, testo), testo, copia});
    return true;
  } catch (const ErroreArchivio& e) {
    if (!copia.empty()) fs::remove(copia, errore);
    return Errore{std::string("il documento non è stato allegato: ") + e.what()};
  }
}

Esito<bool> Allegati::Togli(std::size_t indice) {
  if (indice >= elenco_.size()) return Errore{"scegliere un documento allegato"};
  const Allegato allegato = elenco_[indice];
  if (allegato.num != 0) {
    try {
      ambiente_.ArchivioDi("tessarc").Esegui("delete * from Allegati where " +
                                             sql::Criterio("Num", "=", allegato.num));
    } catch (const ErroreArchivio& e) {
      return Errore{std::string("il documento è ancora allegato: ") + e.what()};
    }
    std::error_code errore;
    fs::remove(allegato.file, errore);
  }
  elenco_.erase(elenco_.begin() + static_cast<std::ptrdiff_t>(indice));
  return true;
}

void Allegati::Scrivi(std::int64_t idRecord, std::string_view seconda) {
  const std::string testo = Testo(seconda);
  if (idRecord_ != 0) {
    ambiente_.ArchivioDi("tessarc").Esegui("update Allegati set " +
                                           sql::Criterio("Descrizione", "=", testo) +
                                           DelRecord(tipo_, idRecord));
  }
  for (const Allegato& allegato : elenco_) {
    if (allegato.num != 0) continue;
    const std::string nome = Copia(allegato.file, idRecord);
    copiati_.push_back(ambiente_.CartellaDocumenti() / nome);
    Inserisci(nome, idRecord, testo);
  }
}

void Allegati::Confermati() {
  copiati_.clear();
  Scollega();
}

void Allegati::Annullati() noexcept {
  for (const fs::path& file : copiati_) {
    std::error_code errore;
    fs::remove(file, errore);
  }
  copiati_.clear();
}

void Allegati::EliminaRighe() {
  ambiente_.ArchivioDi("tessarc").Esegui("delete * from Allegati" + DelRecord(tipo_, idRecord_));
}

void Allegati::EliminaFile() {
  for (const Allegato& allegato : elenco_) {
    std::error_code errore;
    if (allegato.num != 0) fs::remove(allegato.file, errore);
  }
  Scollega();
}

}  // namespace fenalto
