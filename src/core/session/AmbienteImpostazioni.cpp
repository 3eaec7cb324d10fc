// Settings: read often, so kept; changed by other stations, so looked at each time.

#include <sys/stat.h>

#include <algorithm>
#include <stdexcept>
#include <system_error>

#include "core/session/AmbienteInterno.h"
#include "core/session/Chiavi.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kConfig = "config";

/// For so long a file is taken to be as it was: a look at it costs as much as many reads. A window
/// that opens looks anyway (RiguardaImpostazioni).
constexpr auto kSenzaGuardare = std::chrono::milliseconds(100);

/// In a debug build a key of section `config` that Chiavi.h doesn't have throws: a misspelled key
/// would read as empty for ever.
void VerificaDichiarata([[maybe_unused]] std::string_view chiave) {
#ifndef NDEBUG
  if (ChiaveDitta(chiave)) return;
  throw std::logic_error("chiave non dichiarata in core/session/ChiaviTavola.h: " +
                         std::string(chiave));
#endif
}

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

const IndiceIni& Ambiente::Interno::Impostazioni(const fs::path& file) {
  const fs::path percorso = file.empty() ? fs::path() : PercorsoImpostazioni(file);
  const bool dellaDitta =
      file.empty() || (sessione != nullptr && percorso == sessione->fileImpostazioni);
  IniLetto& letto = dellaDitta ? Aperta().impostazioni : letti[percorso];
  const auto adesso = std::chrono::steady_clock::now();
  if (letto.guardato && adesso - *letto.guardato < kSenzaGuardare) return letto.indice;
  letto.guardato = adesso;
  const fs::path& vero = dellaDitta ? Aperta().fileImpostazioni : percorso;
  const IniLetto::Impronta impronta = ImprontaDi(vero);
  if (letto.impronta == impronta) return letto.indice;
  const auto riletto = FileIni::Leggi(vero);
  // A key is never an error: what can't be read has no keys, and is tried again.
  letto.impronta = riletto ? impronta : IniLetto::Impronta{};
  letto.indice = riletto ? IndiceIni(riletto.Valore()) : IndiceIni();
  return letto.indice;
}

fs::path Ambiente::FileStazione() const {
  return CartellaProgramma() / "Ini" / "Ini.ini";
}

void Ambiente::RiguardaImpostazioni() {
  if (interno_->sessione) interno_->sessione->impostazioni.guardato.reset();
  for (auto& [percorso, letto] : interno_->letti) letto.guardato.reset();
}

std::string Ambiente::LeggiImpostazione(const fs::path& file, std::string_view sezione,
                                        std::string_view chiave) {
  return interno_->Impostazioni(file).Valore(sezione, chiave);
}

bool Ambiente::ScriviImpostazione(const fs::path& file, std::string_view sezione,
                                  std::string_view chiave, std::string_view valore) {
  const fs::path percorso = interno_->PercorsoImpostazioni(file);
  std::error_code errore;
  fs::create_directories(percorso.parent_path(), errore);
  const auto scritto = FileIni::Scrivi(percorso, sezione, chiave, valore);
  RiguardaImpostazioni();
  if (scritto) return true;
  interno_->dialoghi.Messaggio("l'impostazione " + std::string(chiave) +
                                   " non è stata registrata: " + scritto.Errore().messaggio,
                               Icona::Errore);
  return false;
}

std::string Ambiente::Config(std::string_view chiave) {
  VerificaDichiarata(chiave);
  return LeggiImpostazione({}, kConfig, chiave);
}

namespace {

/// A folder of the company, as its setting says it.
fs::path CartellaDi(const fs::path& ditta, std::string_view impostata, const char* usuale) {
  std::string valore(Rifila(impostata));
  std::replace(valore.begin(), valore.end(), '\\', '/');
  return valore.empty() ? ditta / usuale : (ditta / valore).lexically_normal();
}

}  // namespace

fs::path Ambiente::CartellaDocumenti() const {
  return CartellaDi(CartellaDitta(), interno_->Impostazioni({}).Valore(kConfig, "DirectoryDoc"),
                    "Documenti");
}

fs::path Ambiente::CartellaImmagini() const {
  return CartellaDi(CartellaDitta(), interno_->Impostazioni({}).Valore(kConfig, "DirectoryImm"),
                    "Immagini");
}

}  // namespace fenalto
