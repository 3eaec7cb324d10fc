#include "core/session/FileIni.h"

#include <algorithm>
#include <set>
#include <stdexcept>

#include "core/session/FileTesto.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

constexpr std::string_view kVuoti = " \t";
constexpr auto npos = std::string_view::npos;

enum class Genere { Altro, Sezione, Chiave };

/// A line of the text; `nome` is the section or the key, `valore` the value, both as written.
struct Riga {
  Genere genere = Genere::Altro;
  std::size_t inizio = 0;
  std::size_t fine = 0;  ///< past the line end
  std::string_view nome;
  std::string_view valore;
  bool vuota = false;
};

std::string_view SenzaVuotiDavanti(std::string_view testo) {
  const auto primo = testo.find_first_not_of(kVuoti);
  return primo == npos ? std::string_view() : testo.substr(primo);
}

std::size_t InizioTesto(std::string_view testo) {
  return testo.starts_with(kSegnoUtf8) ? kSegnoUtf8.size() : 0;
}

Riga LeggiRiga(std::string_view testo, std::size_t inizio) {
  Riga riga;
  riga.inizio = inizio;
  const auto capo = testo.find('\n', inizio);
  riga.fine = capo == npos ? testo.size() : capo + 1;
  std::string_view contenuto = testo.substr(inizio, (capo == npos ? testo.size() : capo) - inizio);
  while (contenuto.ends_with('\r')) contenuto.remove_suffix(1);
  contenuto = SenzaVuotiDavanti(contenuto);
  riga.vuota = contenuto.empty();
  if (riga.vuota || contenuto[0] == ';' || contenuto[0] == '#') return riga;
  if (contenuto[0] == '[') {
    if (const auto chiusa = contenuto.find(']'); chiusa != npos) {
      riga.genere = Genere::Sezione;
      riga.nome = Rifila(contenuto.substr(1, chiusa - 1));
    }
    return riga;
  }
  const auto uguale = contenuto.find('=');
  if (uguale == npos || uguale == 0) return riga;
  riga.genere = Genere::Chiave;
  riga.nome = contenuto.substr(0, uguale);
  riga.valore = contenuto.substr(uguale + 1);
  return riga;
}

/// What a search for a key found: the key's line, or where it would go.
struct Posto {
  std::optional<Riga> riga;
  bool sezione = false;
  std::size_t dove = 0;  ///< after the section's last line that isn't empty
};

/// Looks in the first section of that name only, as who reads these files has always done.
Posto Cerca(std::string_view testo, std::string_view sezione, std::string_view chiave) {
  Posto posto;
  posto.dove = InizioTesto(testo);
  // The lines before the first header are the section without a name.
  bool dentro = posto.sezione = sezione.empty();
  for (std::size_t i = posto.dove; i < testo.size();) {
    const Riga riga = LeggiRiga(testo, i);
    i = riga.fine;
    if (riga.genere == Genere::Sezione) {
      if (dentro) return posto;
      if (!UgualeTesto(riga.nome, sezione)) continue;
      dentro = posto.sezione = true;
    } else if (!dentro) {
      continue;
    } else if (riga.genere == Genere::Chiave && UgualeTesto(riga.nome, chiave)) {
      posto.riga = riga;
      return posto;
    }
    if (!riga.vuota) posto.dove = riga.fine;
  }
  return posto;
}

/// The line end that the file uses.
std::string_view FineRiga(std::string_view testo) {
  const auto capo = testo.find('\n');
  return capo != npos && capo > 0 && testo[capo - 1] == '\r' ? "\r\n" : "\n";
}

/// On one line: a break inside a value would become another line of the file.
std::string SuUnaRiga(std::string_view valore) {
  std::string riga = ComeUtf8(valore);
  std::replace_if(riga.begin(), riga.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return riga;
}

void VerificaNomiIni(std::string_view sezione, std::string_view chiave) {
  const bool buoni = sezione.find_first_of("]\r\n") == npos && Rifila(sezione) == sezione &&
                     Utf8Valido(sezione) && Utf8Valido(chiave) && !chiave.empty() &&
                     chiave.find_first_of("=\r\n") == npos &&
                     std::string_view("[;# \t").find(chiave[0]) == npos;
  if (!buoni) {
    throw std::invalid_argument("nome di sezione o chiave non scrivibile: [" +
                                std::string(sezione) + "] " + std::string(chiave));
  }
}

}  // namespace

Esito<FileIni> FileIni::Leggi(const std::filesystem::path& percorso) {
  auto testo = LeggiFileTesto(percorso);
  if (!testo) return testo.Errore();
  FileIni file;
  file.testo_ = std::move(testo).Valore();
  return file;
}

FileIni FileIni::DaTesto(std::string_view testo) {
  FileIni file;
  file.testo_ = ComeUtf8(testo);
  return file;
}

std::string FileIni::Valore(std::string_view sezione, std::string_view chiave) const {
  const Posto posto = Cerca(testo_, sezione, SenzaVuotiDavanti(chiave));
  return posto.riga ? std::string(posto.riga->valore) : std::string();
}

std::vector<FileIni::Voce> FileIni::Voci() const {
  std::vector<Voce> voci;
  std::set<std::string> viste = {""};
  std::string_view sezione;
  bool dentro = true;
  const std::string_view testo = testo_;
  for (std::size_t i = InizioTesto(testo); i < testo.size();) {
    const Riga riga = LeggiRiga(testo, i);
    i = riga.fine;
    if (riga.genere == Genere::Sezione) {
      sezione = riga.nome;
      dentro = viste.insert(SenzaMaiuscole(sezione)).second;
    } else if (dentro && riga.genere == Genere::Chiave) {
      voci.push_back({sezione, riga.nome, riga.valore});
    }
  }
  return voci;
}

bool FileIni::HaSezione(std::string_view sezione) const {
  return Cerca(testo_, sezione, {}).sezione;
}

void FileIni::Imposta(std::string_view sezione, std::string_view chiave, std::string_view valore) {
  chiave = SenzaVuotiDavanti(chiave);
  VerificaNomiIni(sezione, chiave);
  const std::string scritto = SuUnaRiga(valore);
  const Posto posto = Cerca(testo_, sezione, chiave);
  if (posto.riga) {
    const auto inizio = static_cast<std::size_t>(posto.riga->valore.data() - testo_.data());
    testo_.replace(inizio, posto.riga->valore.size(), scritto);
    return;
  }
  const std::string capo(FineRiga(testo_));
  std::string aggiunta;
  std::size_t dove = posto.dove;
  if (!posto.sezione) {
    dove = testo_.size();
    if (dove > InizioTesto(testo_)) aggiunta = testo_.ends_with('\n') ? capo : capo + capo;
    aggiunta.append("[").append(sezione).append("]").append(capo);
  } else if (dove > InizioTesto(testo_) && testo_[dove - 1] != '\n') {
    aggiunta = capo;
  }
  aggiunta.append(chiave).append("=").append(scritto).append(capo);
  testo_.insert(dove, aggiunta);
}

Esito<bool> FileIni::Scrivi(const std::filesystem::path& percorso, std::string_view sezione,
                            std::string_view chiave, std::string_view valore) {
  const auto blocco = BloccoFile::Prendi(percorso);
  if (!blocco) return blocco.Errore();
  auto file = Leggi(percorso);
  if (!file) return file.Errore();
  const std::string prima = file.Valore().Testo();
  file.Valore().Imposta(sezione, chiave, valore);
  if (file.Valore().Testo() == prima) return true;
  return ScriviFileTesto(percorso, file.Valore().Testo());
}

}  // namespace fenalto
