#include "core/session/IndiceIni.h"

#include <algorithm>

namespace fenalto {

IndiceIni::IndiceIni(const FileIni& file) {
  for (const auto& voce : file.Voci()) {
    if (sezioni_.empty() || !UgualeTesto(sezioni_.back().nome, voce.sezione)) {
      sezioni_.push_back({std::string(voce.sezione), {}});
    }
    // The first of two keys counts.
    sezioni_.back().chiavi.try_emplace(std::string(voce.chiave), voce.valore);
  }
}

const std::string& IndiceIni::Valore(std::string_view sezione, std::string_view chiave) const {
  static const std::string manca;
  chiave.remove_prefix(std::min(chiave.find_first_not_of(" \t"), chiave.size()));
  for (const auto& una : sezioni_) {
    if (!UgualeTesto(una.nome, sezione)) continue;
    const auto trovata = una.chiavi.find(chiave);
    return trovata == una.chiavi.end() ? manca : trovata->second;
  }
  return manca;
}

}  // namespace fenalto
