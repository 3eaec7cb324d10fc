// Settings: read often, so kept; changed by other stations, so looked at each time.

#include <sys/stat.h>

#include <system_error>

#include "core/session/AmbienteInterno.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

IniLetto::Impronta ImprontaDi(const fs::path& file) {
  struct stat stato{};
  if (::stat(file.c_str(), &stato) != 0) return {};
  constexpr std::int64_t kNanosecondi = 1'000'000'000;
  return {stato.st_dev, stato.st_ino, stato.st_size,
          std::int64_t{stato.st_mtim.tv_sec} * kNanosecondi + stato.st_mtim.tv_nsec};
}

}  // namespace

fs::path Ambiente::Interno::PercorsoImpostazioni(const fs::path& file) const {
  if (file.empty()) return Aperta().fileImpostazioni;
  return opzioni.cartellaProgramma / file;
}

const FileIni& Ambiente::Interno::Impostazioni(const fs::path& file) {
  const IniLetto::Impronta impronta = ImprontaDi(file);
  IniLetto& letto = letti[file];
  if (letto.impronta == impronta) return letto.file;
  auto riletto = FileIni::Leggi(file);
  // A key is never an error: what can't be read has no keys, and is tried again at the next read.
  letto.impronta = riletto ? impronta : IniLetto::Impronta{};
  letto.file = riletto ? std::move(riletto).Valore() : FileIni();
  return letto.file;
}

std::string Ambiente::LeggiImpostazione(const fs::path& file, std::string_view sezione,
                                        std::string_view chiave) {
  return interno_->Impostazioni(interno_->PercorsoImpostazioni(file)).Valore(sezione, chiave);
}

bool Ambiente::ScriviImpostazione(const fs::path& file, std::string_view sezione,
                                  std::string_view chiave, std::string_view valore) {
  const fs::path percorso = interno_->PercorsoImpostazioni(file);
  std::error_code errore;
  fs::create_directories(percorso.parent_path(), errore);
  const auto scritto = FileIni::Scrivi(percorso, sezione, chiave, valore);
  interno_->letti.erase(percorso);
  if (scritto) return true;
  interno_->dialoghi.Messaggio("l'impostazione " + std::string(chiave) +
                                   " non è stata registrata: " + scritto.Errore().messaggio,
                               Icona::Errore);
  return false;
}

std::string Ambiente::Config(std::string_view chiave) {
  return LeggiImpostazione({}, "config", chiave);
}

fs::path Ambiente::CartellaDocumenti() const {
  const fs::path ditta = CartellaDitta();
  std::string valore(Rifila(
      interno_->Impostazioni(interno_->PercorsoImpostazioni({})).Valore("config", "DirectoryDoc")));
  for (char& c : valore) {
    if (c == '\\') c = '/';
  }
  return valore.empty() ? ditta / "Documenti" : (ditta / valore).lexically_normal();
}

}  // namespace fenalto
