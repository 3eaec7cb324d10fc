#include "core/store/Istruzioni.h"

#include <bit>

#include "core/values/Testo.h"

namespace fenalto {
namespace {

/// HashTesto is right for any name; this one agrees with it on which names are equal as long as
/// they are ASCII, and costs no call. Names that aren't share one value.
std::size_t HashNome(std::string_view nome) noexcept {
  std::size_t h = 1469598103934665603ULL;
  for (const char c : nome) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) return 0;
    const unsigned char minuscolo =
        byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte | 0x20U) : byte;
    h = (h ^ minuscolo) * 1099511628211ULL;
  }
  return h ^ (h >> 29U);
}

}  // namespace

PianoIstruzione::PianoIstruzione(sql::Istruzione istruzione) : istr(std::move(istruzione)) {
  tavola_.resize(std::bit_ceil(istr.colonne.size() * 2 + 1));
  for (std::size_t i = 0; i < istr.colonne.size(); ++i) {
    if (Indice(istr.colonne[i].nome)) continue;
    std::size_t posto = HashNome(istr.colonne[i].nome) & (tavola_.size() - 1);
    while (tavola_[posto] != 0) posto = (posto + 1) & (tavola_.size() - 1);
    tavola_[posto] = static_cast<std::uint32_t>(i + 1);
  }
}

std::optional<std::size_t> PianoIstruzione::Indice(std::string_view nome) const noexcept {
  std::size_t posto = HashNome(nome) & (tavola_.size() - 1);
  while (tavola_[posto] != 0) {
    const std::size_t i = tavola_[posto] - 1;
    if (istr.colonne[i].nome == nome || UgualeTesto(istr.colonne[i].nome, nome)) return i;
    posto = (posto + 1) & (tavola_.size() - 1);
  }
  return std::nullopt;
}

Preparata::Preparata(engine::Connessione& connessione, std::shared_ptr<VoceCache> voce,
                     const std::string& base)
    : voce_(std::move(voce)) {
  if (voce_->liberi.empty()) {
    istruzione_ = connessione.Prepara(base, voce_->sql);
    return;
  }
  istruzione_ = std::move(voce_->liberi.back());
  voce_->liberi.pop_back();
}

Preparata& Preparata::operator=(Preparata&& altra) noexcept {
  if (this != &altra) {
    Restituisci();
    voce_ = std::move(altra.voce_);
    istruzione_ = std::move(altra.istruzione_);
  }
  return *this;
}

void Preparata::Restituisci() noexcept {
  if (istruzione_ == nullptr) return;
  istruzione_->Azzera();
  constexpr std::size_t kLiberiTenuti = 4;
  try {
    if (voce_->liberi.size() < kLiberiTenuti) voce_->liberi.push_back(std::move(istruzione_));
  } catch (const std::bad_alloc&) {
    // Without memory to keep it, it is let go below.
  }
  istruzione_.reset();
  voce_.reset();
}

std::shared_ptr<VoceCache> CacheIstruzioni::Cerca(const std::string& chiave) {
  const auto trovata = perChiave_.find(chiave);
  if (trovata == perChiave_.end()) return nullptr;
  voci_.splice(voci_.begin(), voci_, trovata->second);
  return trovata->second->second;
}

std::shared_ptr<VoceCache> CacheIstruzioni::Aggiungi(const std::string& chiave,
                                                     std::shared_ptr<const PianoIstruzione> piano,
                                                     std::string sql) {
  auto voce = std::make_shared<VoceCache>();
  voce->piano = std::move(piano);
  voce->sql = std::move(sql);
  voci_.emplace_front(chiave, voce);
  perChiave_[voci_.front().first] = voci_.begin();
  if (voci_.size() > capienza_) {
    perChiave_.erase(voci_.back().first);
    voci_.pop_back();
  }
  return voce;
}

void CacheIstruzioni::Svuota() {
  perChiave_.clear();
  voci_.clear();
}

}  // namespace fenalto
