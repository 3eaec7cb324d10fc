#include "core/store/Blocchi.h"

#include <sys/vfs.h>

#include <algorithm>
#include <array>

namespace fenalto {

std::string Detentore::Descrizione() const {
  std::string testo = "dalla stazione " + (stazione.empty() ? std::string("?") : stazione);
  std::string dettagli;
  if (!utente.empty()) dettagli = "utente " + utente;
  if (!dalle.empty()) dettagli += (dettagli.empty() ? "dalle " : ", dalle ") + dalle;
  return dettagli.empty() ? testo : testo + " (" + dettagli + ")";
}

bool CartellaDiRete(const std::filesystem::path& cartella) {
  struct statfs stato{};
  if (statfs(cartella.c_str(), &stato) != 0) return false;
  constexpr std::array<std::uint64_t, 6> kDiRete = {
      0x6969,      // NFS
      0xFF534D42,  // CIFS
      0xFE534D42,  // SMB2
      0x517B,      // SMB
      0x5346414F,  // AFS
      0x65735546,  // FUSE, which hides what lies below
  };
  const auto genere = static_cast<std::uint64_t>(stato.f_type) & 0xFFFFFFFFU;
  return std::find(kDiRete.begin(), kDiRete.end(), genere) != kDiRete.end();
}

}  // namespace fenalto
