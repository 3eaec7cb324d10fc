#include "core/session/Ditte.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "core/session/FileIni.h"
#include "core/session/FileTesto.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr const char* kFilePredefinita = "DittaDefault.txt";
constexpr std::string_view kEstensione = ".ini";
constexpr std::string_view kRadice = "TESSARC";
constexpr std::size_t kMassimoNome = 60;

bool FinisceConIni(std::string_view nome) {
  return nome.size() > kEstensione.size() &&
         UgualeTesto(nome.substr(nome.size() - kEstensione.size()), kEstensione);
}

/// The file of that path, spelled as it is on disk: other systems don't tell case apart.
fs::path ComeSuDisco(const fs::path& file) {
  std::error_code errore;
  if (fs::exists(file, errore)) return file;
  const std::string nome = file.filename().string();
  for (const auto& voce : fs::directory_iterator(file.parent_path(), errore)) {
    if (UgualeTesto(voce.path().filename().string(), nome)) return voce.path();
  }
  return file;
}

fs::path Normale(std::string valore) {
  valore = std::string(Rifila(valore));
  std::replace(valore.begin(), valore.end(), '\\', '/');
  return valore;
}

}  // namespace

Ditte::Ditte(fs::path cartellaProgramma) : cartella_(std::move(cartellaProgramma)) {}

std::vector<std::string> Ditte::Nomi() const {
  std::vector<std::string> nomi;
  std::error_code errore;
  for (auto voce = fs::directory_iterator(cartella_, errore);
       !errore && voce != fs::directory_iterator(); voce.increment(errore)) {
    const std::string nome = voce->path().filename().string();
    std::error_code ignoto;
    if (nome.starts_with('.') || !FinisceConIni(nome) || !voce->is_regular_file(ignoto)) continue;
    nomi.push_back(nome.substr(0, nome.size() - kEstensione.size()));
  }
  std::sort(nomi.begin(), nomi.end(), [](const std::string& a, const std::string& b) {
    const int ordine = ConfrontaTesto(a, b);
    return ordine != 0 ? ordine < 0 : a < b;
  });
  return nomi;
}

std::vector<DittaTrovata> Ditte::Trovate() const {
  const std::string predefinita = Predefinita();
  std::vector<DittaTrovata> trovate;
  for (const std::string& nome : Nomi()) trovate.push_back({nome, nome == predefinita});
  std::stable_partition(trovate.begin(), trovate.end(),
                        [](const DittaTrovata& ditta) { return ditta.predefinita; });
  return trovate;
}

std::string Ditte::Predefinita() const {
  const auto testo = LeggiFileTesto(cartella_ / kFilePredefinita);
  if (!testo) return {};
  std::string_view riga = testo.Valore();
  if (riga.starts_with(kSegnoUtf8)) riga.remove_prefix(kSegnoUtf8.size());
  riga = Rifila(riga.substr(0, riga.find('\n')));
  if (FinisceConIni(riga)) riga.remove_suffix(kEstensione.size());
  for (const std::string& nome : Nomi()) {
    if (UgualeTesto(nome, riga)) return nome;
  }
  return {};
}

Esito<bool> Ditte::ImpostaPredefinita(const std::string& ditta) const {
  const fs::path file = cartella_ / kFilePredefinita;
  const auto blocco = BloccoFile::Prendi(file);
  if (!blocco) return blocco.Errore();
  const std::string riga = ditta + std::string(kEstensione) + "\n";
  return ScriviFileTesto(file, ditta.empty() ? "" : riga);
}

fs::path Ditte::FileImpostazioni(const std::string& ditta) const {
  return ComeSuDisco(cartella_ / (ditta + std::string(kEstensione)));
}

fs::path Ditte::CartellaPerRegola(const std::string& ditta) const {
  fs::path radice;
  for (const fs::path& parte : cartella_.lexically_normal()) {
    if (UgualeTesto(parte.string().substr(0, kRadice.size()), kRadice)) return radice / ditta;
    radice /= parte;
  }
  return cartella_ / ditta;
}

Esito<PercorsiArchivi> Ditte::Percorsi(const std::string& ditta) const {
  const fs::path fileIni = FileImpostazioni(ditta);
  std::error_code errore;
  if (!fs::exists(fileIni, errore)) {
    return Errore{"la ditta «" + ditta + "» non esiste: manca il file «" + fileIni.string() + "»"};
  }
  const auto ini = FileIni::Leggi(fileIni);
  if (!ini) return ini.Errore();
  const fs::path cartella = ComeSuDisco(CartellaPerRegola(fileIni.stem().string()));
  if (!ini.Valore().HaSezione("Archivi")) {
    return Errore{"nel file «" + fileIni.string() +
                  "» manca la sezione [Archivi] con le chiavi Tessarc e Scadenzario: "
                  "ripristinarlo da una copia"};
  }
  PercorsiArchivi percorsi;
  for (const auto& [chiave, dove] :
       {std::pair{"Tessarc", &percorsi.tessarc}, std::pair{"Scadenzario", &percorsi.scadenzario}}) {
    const fs::path valore = Normale(ini.Valore().Valore("Archivi", chiave));
    if (valore.empty()) {
      return Errore{"nel file «" + fileIni.string() + "», sezione [Archivi], manca la chiave " +
                    chiave + " con il nome del file degli archivi"};
    }
    const bool soloNome = !valore.has_parent_path();
    *dove = ComeSuDisco(((soloNome ? cartella : cartella_) / valore).lexically_normal());
  }
  return percorsi;
}

bool SempliceInNomeDitta(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z') || byte == ' ' || byte == '-' || byte == '_' ||
         (static_cast<unsigned char>(byte) & 0x80U) != 0;
}

namespace {

/// Names of folders of the program's own, and of what isn't a file to other systems that may share
/// the folder.
bool Riservato(std::string_view nome) {
  constexpr std::array<std::string_view, 7> kRiservati = {"Ini", kNomeCestino, "Con",        "Prn",
                                                          "Aux", "Nul",        "TrebHelpPdf"};
  const auto uguale = [nome](std::string_view altro) { return UgualeTesto(nome, altro); };
  if (std::any_of(kRiservati.begin(), kRiservati.end(), uguale)) return true;
  constexpr std::size_t kPorta = 4;  // "COM1"
  return nome.size() == kPorta && nome[3] >= '0' && nome[3] <= '9' &&
         (UgualeTesto(nome.substr(0, 3), "com") || UgualeTesto(nome.substr(0, 3), "lpt"));
}

}  // namespace

Esito<bool> VerificaNomeDitta(const std::string& nome) {
  if (nome.empty() || Rifila(nome) != nome || nome[0] == '-' || !Utf8Valido(nome) ||
      !DifettoTesto(nome).empty() || !std::all_of(nome.begin(), nome.end(), SempliceInNomeDitta)) {
    return Errore{"digitare un semplice nome ditta senza simboli .,/"};
  }
  if (nome.size() > kMassimoNome) {
    return Errore{"il nome della ditta è troppo lungo: al massimo " + std::to_string(kMassimoNome) +
                  " caratteri"};
  }
  if (Riservato(nome)) {
    return Errore{"«" + nome + "» è un nome riservato: digitarne un altro"};
  }
  return true;
}

}  // namespace fenalto
