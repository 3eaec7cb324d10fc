#include "core/session/CopieDitta.h"

#include <sodium.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <fstream>
#include <optional>

#include "core/session/CambioDitta.h"
#include "core/session/Ditte.h"
#include "core/session/FileIni.h"
#include "core/session/FileTesto.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDescrizione = "Copia.txt";
constexpr const char* kSezione = "Copia";
constexpr const char* kImpronte = "Impronte";
constexpr std::string_view kPrimaDi = " prima di ";
constexpr std::string_view kPasso = "prima-del-passo-";
constexpr std::string_view kBuona = "buona";
constexpr std::string_view kDanneggiata = "danneggiata";

/// The file's content in a number that no other content has; nothing when it can't be read.
std::optional<std::string> Impronta(const fs::path& file) {
  constexpr std::size_t kPezzo = std::size_t{1} << 20U;
  std::ifstream flusso(file, std::ios::binary);
  if (!flusso || sodium_init() < 0) return std::nullopt;
  crypto_generichash_state stato;
  crypto_generichash_init(&stato, nullptr, 0, crypto_generichash_BYTES);
  std::vector<char> pezzo(kPezzo);
  while (flusso) {
    flusso.read(pezzo.data(), static_cast<std::streamsize>(pezzo.size()));
    crypto_generichash_update(&stato, reinterpret_cast<const unsigned char*>(pezzo.data()),
                              static_cast<unsigned long long>(flusso.gcount()));
  }
  if (!flusso.eof()) return std::nullopt;
  std::array<unsigned char, crypto_generichash_BYTES> somma{};
  crypto_generichash_final(&stato, somma.data(), somma.size());
  std::array<char, crypto_generichash_BYTES * 2 + 1> testo{};
  sodium_bin2hex(testo.data(), testo.size(), somma.data(), somma.size());
  return std::string(testo.data());
}

/// A reason as a folder's name takes it, on any disk that a copy may be carried to.
std::string PerNome(std::string_view motivo) {
  constexpr std::size_t kMassimo = 60;
  std::string nome;
  for (const char c : Mid(motivo, 1, kMassimo)) {
    const bool buono = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                       c == ' ' || c == '-' || (static_cast<unsigned char>(c) & 0x80U) != 0;
    nome += buono ? c : '-';
  }
  return std::string(Rifila(nome));
}

bool DueCifre(std::string_view testo) {
  return testo.size() == 2 && testo.find_first_not_of("0123456789") == std::string_view::npos;
}

Data GiornoDelFile(const fs::path& file) {
  struct stat stato{};
  std::tm giorno{};
  if (stat(file.c_str(), &stato) != 0 || localtime_r(&stato.st_mtime, &giorno) == nullptr)
    return {};
  return Data::DaGma(giorno.tm_mday, giorno.tm_mon + 1, giorno.tm_year + 1900).value_or(Data());
}

std::uintmax_t ByteIn(const fs::path& percorso) {
  std::error_code errore;
  std::uintmax_t byte = 0;
  auto voce = fs::recursive_directory_iterator(
      percorso, fs::directory_options::skip_permission_denied, errore);
  for (; !errore && voce != fs::recursive_directory_iterator(); voce.increment(errore)) {
    std::error_code ignoto;
    if (voce->is_regular_file(ignoto)) byte += voce->file_size(ignoto);
  }
  return byte;
}

/// What the folder's name tells.
void LeggiNome(CopiaDitta& copia) {
  const std::string nome = copia.cartella.filename().string();
  if (const auto giorno = Data::DaIso(nome)) {
    // A daily copy gets its name only once it is whole and verified.
    copia.data = *giorno;
    copia.motivo = "giornaliera";
    copia.verifica = VerificaCopia::Buona;
    copia.verificata = giorno->Testo();
    return;
  }
  if (nome.starts_with(kPasso)) {
    copia.motivo = "prima dell'aggiornamento degli archivi, passo " + nome.substr(kPasso.size());
    copia.data = GiornoDelFile(copia.archivi.tessarc);
    return;
  }
  constexpr std::size_t kGiorno = 10;
  constexpr std::size_t kFineOra = 16;
  copia.motivo = nome;
  const auto giorno = Data::DaIso(nome.substr(0, kGiorno));
  if (!giorno || nome.size() < kFineOra || nome[kGiorno] != ' ' || nome[13] != '.' ||
      !DueCifre(std::string_view(nome).substr(11, 2)) ||
      !DueCifre(std::string_view(nome).substr(14, 2))) {
    copia.data = GiornoDelFile(copia.archivi.tessarc);
    return;
  }
  copia.data = *giorno;
  copia.ora = nome.substr(11, 2) + ":" + nome.substr(14, 2);
  copia.motivo = std::string(Rifila(std::string_view(nome).substr(kFineOra)));
  copia.verifica = VerificaCopia::Buona;
  copia.verificata = copia.data.Testo() + " " + copia.ora;
}

/// What its own file tells, and knows better.
void LeggiDescrizione(CopiaDitta& copia) {
  const auto letto = FileIni::Leggi(copia.cartella / kDescrizione);
  if (!letto || !letto.Valore().HaSezione(kSezione)) return;
  const FileIni& ini = letto.Valore();
  const auto prendi = [&ini](const char* chiave, std::string& dove) {
    if (const std::string valore = ini.Valore(kSezione, chiave); !valore.empty()) dove = valore;
  };
  prendi("Ditta", copia.ditta);
  prendi("Ora", copia.ora);
  prendi("Motivo", copia.motivo);
  if (const auto giorno = Data::DaIso(ini.Valore(kSezione, "Data"))) copia.data = *giorno;
  const std::string esito = ini.Valore(kSezione, "Verifica");
  if (esito == kBuona) copia.verifica = VerificaCopia::Buona;
  if (esito == kDanneggiata) copia.verifica = VerificaCopia::Danneggiata;
  prendi("Verificata", copia.verificata);
}

fs::path SeCartella(const fs::path& percorso) {
  std::error_code errore;
  return fs::is_directory(percorso, errore) ? percorso : fs::path();
}

/// The settings file of a whole copy, beside the folder of its databases.
fs::path IniIn(const fs::path& cartella) {
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    const fs::path& file = voce.path();
    if (!UgualeTesto(file.extension().string(), ".ini")) continue;
    if (fs::is_directory(cartella / file.stem(), errore)) return file;
  }
  return {};
}

/// A file of that name in a folder, without case.
fs::path FileIn(const fs::path& cartella, const std::string& nome) {
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    if (UgualeTesto(voce.path().filename().string(), nome)) return voce.path();
  }
  return cartella / nome;
}

/// The databases in a folder: under the names that the copied company's settings give them, under
/// those of the open company, under the usual ones.
std::optional<PercorsiArchivi> ArchiviIn(const fs::path& cartella, const fs::path& ini,
                                         const PercorsiArchivi& aperti) {
  std::vector<std::pair<std::string, std::string>> nomi;
  if (const auto letto = FileIni::Leggi(ini); !ini.empty() && letto) {
    nomi.emplace_back(letto.Valore().Valore("Archivi", "Tessarc"),
                      letto.Valore().Valore("Archivi", "Scadenzario"));
  }
  nomi.emplace_back(aperti.tessarc.filename().string(), aperti.scadenzario.filename().string());
  nomi.emplace_back("Cont32.mdb", "Scad32.mdb");
  for (const auto& [tessarc, scadenzario] : nomi) {
    PercorsiArchivi trovati{FileIn(cartella, tessarc), FileIn(cartella, scadenzario)};
    std::error_code errore;
    if (!tessarc.empty() && !scadenzario.empty() && fs::is_regular_file(trovati.tessarc, errore) &&
        fs::is_regular_file(trovati.scadenzario, errore)) {
      return trovati;
    }
  }
  return std::nullopt;
}

/// Which company works in that folder, empty for none.
std::string DittaCheLavoraIn(const Ambiente& ambiente, const fs::path& cartella) {
  std::error_code errore;
  for (const DittaTrovata& ditta : ambiente.DitteTrovate()) {
    if (fs::equivalent(ambiente.CartellaDitta(ditta.nome), cartella, errore)) return ditta.nome;
  }
  return {};
}

/// The first file that isn't any more as it was when the copy was made; empty when all are.
std::string FileCambiato(const CopiaDitta& copia) {
  const auto letto = FileIni::Leggi(copia.cartella / kDescrizione);
  if (!letto) return {};
  for (const fs::path& file : {copia.archivi.tessarc, copia.archivi.scadenzario}) {
    const std::string attesa = letto.Valore().Valore(kImpronte, file.filename().string());
    if (!attesa.empty() && Impronta(file) != attesa) return file.string();
  }
  return {};
}

}  // namespace

std::string CopiaDitta::Descrizione() const {
  std::string testo = "del " + data.Testo();
  if (!ora.empty()) testo += " delle " + ora;
  return motivo.empty() ? testo : testo + " (" + motivo + ")";
}

std::string CopiaDitta::TestoVerifica() const {
  if (verifica == VerificaCopia::Mai) return "mai";
  return (verifica == VerificaCopia::Buona ? "buona, " : "DANNEGGIATA, ") + verificata;
}

fs::path CartellaCopie(const Ambiente& ambiente) {
  return ambiente.CartellaDitta() / "Copie";
}

std::string NomeLibero(const fs::path& cartella, const std::string& radice) {
  std::string nome = radice;
  std::error_code errore;
  for (int n = 2; fs::exists(cartella / nome, errore); ++n) {
    nome = radice + " (" + std::to_string(n) + ")";
  }
  return nome;
}

Esito<fs::path> CopiaPrimaDi(Ambiente& ambiente, std::string_view motivo) {
  const fs::path cartella = CartellaCopie(ambiente);
  std::string radice = Adesso(ambiente.Ora());
  radice.append(kPrimaDi).append(PerNome(motivo));
  const std::string nome = NomeLibero(cartella, radice);
  const PercorsiArchivi percorsi = ambiente.Basi().Percorsi();
  auto fatta = EseguiCopiaDetta(percorsi, cartella, nome);
  if (!fatta) return fatta;
  DescriviCopia(fatta.Valore(), ArchiviDellaCopia(fatta.Valore(), percorsi), ambiente.Ditta(),
                std::string(Rifila(kPrimaDi)) + " " + std::string(motivo), ambiente.Ora().Oggi(),
                ambiente.Ora().Ora());
  return fatta;
}

std::string NominaCopia(const fs::path& copia) {
  return "\ncopia di sicurezza fatta prima: «" + copia.string() + "»";
}

std::vector<CopiaDitta> ElencoCopie(const Ambiente& ambiente) {
  std::vector<CopiaDitta> copie;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(CartellaCopie(ambiente), errore)) {
    if (voce.path().filename().string().starts_with('.')) continue;
    if (auto copia = LeggiCopia(ambiente, voce.path())) copie.push_back(std::move(copia).Valore());
  }
  std::sort(copie.begin(), copie.end(), [](const CopiaDitta& a, const CopiaDitta& b) {
    if (a.data != b.data) return a.data > b.data;
    if (a.ora != b.ora) return a.ora > b.ora;
    return a.cartella > b.cartella;
  });
  return copie;
}

Esito<CopiaDitta> LeggiCopia(const Ambiente& ambiente, const fs::path& cartella) {
  std::error_code errore;
  if (!fs::is_directory(cartella, errore)) {
    return Errore{"«" + cartella.string() + "» non è la cartella di una copia"};
  }
  if (const std::string ditta = DittaCheLavoraIn(ambiente, cartella); !ditta.empty()) {
    return Errore{"«" + cartella.string() + "» è la cartella in cui lavora la ditta " + ditta +
                  ", non una copia: scegliere una copia nella sua cartella Copie"};
  }
  CopiaDitta copia;
  copia.cartella = cartella;
  copia.ini = IniIn(cartella);
  const fs::path dentro = copia.Intera() ? cartella / copia.ini.stem() : cartella;
  const auto archivi = ArchiviIn(
      dentro, copia.ini, {ambiente.PercorsoDb("tessarc"), ambiente.PercorsoDb("scadenzario")});
  if (!archivi) {
    return Errore{"nella cartella «" + dentro.string() +
                  "» non ci sono tutti e due gli archivi di una ditta (Cont32.mdb e Scad32.mdb)"};
  }
  copia.archivi = *archivi;
  copia.immagini = SeCartella(dentro / "Immagini");
  copia.documenti = SeCartella(dentro / "Documenti");
  if (copia.Intera()) copia.ditta = copia.ini.stem().string();
  copia.byte = ByteIn(cartella);
  LeggiNome(copia);
  LeggiDescrizione(copia);
  return copia;
}

Esito<bool> VerificaDella(Ambiente& ambiente, CopiaDitta& copia) {
  Esito<bool> esito = true;
  if (const std::string cambiato = FileCambiato(copia); !cambiato.empty()) {
    esito = Errore{"il file " + cambiato + " non è più com'era quando la copia è stata fatta"};
  } else {
    esito = ControllaCopia(copia.archivi);
  }
  copia.verifica = esito ? VerificaCopia::Buona : VerificaCopia::Danneggiata;
  copia.verificata = ambiente.Ora().Oggi().Testo() + " " + ambiente.Ora().Ora();
  const fs::path file = copia.cartella / kDescrizione;
  // On a disk that can't be written the copy is looked at all the same.
  if (FileIni::Scrivi(file, kSezione, "Verifica", esito ? kBuona : kDanneggiata)) {
    static_cast<void>(FileIni::Scrivi(file, kSezione, "Verificata", copia.verificata).Riuscito());
  }
  if (esito) return esito;
  return Errore{"la copia " + copia.Descrizione() + " è danneggiata e non si può usare: " +
                esito.Errore().messaggio + "\nScegliere un'altra copia."};
}

bool EliminaCopia(Ambiente& ambiente, const CopiaDitta& copia) {
  if (copia.cartella.parent_path() != CartellaCopie(ambiente)) return false;
  if (!ambiente.Dialogo().Conferma("Elimino la copia " + copia.Descrizione() +
                                   " ?\nNon si potrà più tornare a quei dati.")) {
    return false;
  }
  // Out of the list first: half a copy must never look like one.
  const fs::path via =
      copia.cartella.parent_path() / ("." + copia.cartella.filename().string() + ".tmp");
  std::error_code errore;
  fs::rename(copia.cartella, via, errore);
  if (!errore) fs::remove_all(via, errore);
  if (!errore) return true;
  ambiente.Dialogo().Messaggio(
      "la copia «" + copia.cartella.string() + "» non si è potuta eliminare: " + errore.message(),
      Icona::Errore);
  return false;
}

void DescriviCopia(const fs::path& cartella, const PercorsiArchivi& archivi,
                   const std::string& ditta, std::string_view motivo, Data data,
                   const std::string& ora) {
  FileIni ini = FileIni::DaTesto("");
  ini.Imposta(kSezione, "Ditta", ditta);
  ini.Imposta(kSezione, "Data", data.Iso());
  ini.Imposta(kSezione, "Ora", ora);
  ini.Imposta(kSezione, "Motivo", motivo);
  ini.Imposta(kSezione, "Verifica", kBuona);
  ini.Imposta(kSezione, "Verificata", data.Testo() + " " + ora);
  for (const fs::path& file : {archivi.tessarc, archivi.scadenzario}) {
    ini.Imposta(kImpronte, file.filename().string(), Impronta(file).value_or(""));
  }
  static_cast<void>(ScriviFileTesto(cartella / kDescrizione, ini.Testo()).Riuscito());
}

std::string ScriviByte(std::uintmax_t byte) {
  constexpr std::uintmax_t kMille = 1024;
  constexpr std::array kUnita = {"KB", "MB", "GB", "TB"};
  // Tenths of the unit, rounded up: nothing is smaller than a tenth.
  std::uintmax_t decimi = (byte * 10 + kMille - 1) / kMille;
  std::size_t unita = 0;
  for (; decimi >= kMille * 10 && unita + 1 < kUnita.size(); ++unita)
    decimi = (decimi + kMille / 2) / kMille;
  return std::to_string(decimi / 10) + "," + std::to_string(decimi % 10) + " " + kUnita[unita];
}

}  // namespace fenalto
