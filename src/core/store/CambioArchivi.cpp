#include "core/store/CambioArchivi.h"

#include <exception>

#include "core/store/Apertura.h"
#include "core/store/NucleoBasi.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

/// Runs `fai`, which gives where the two databases were made; when it can't nothing of them is
/// left.
template <typename Azione>
Esito<PercorsiArchivi> Pronti(const PercorsiArchivi& percorsi, const Azione& fai) {
  try {
    const std::vector<fs::path> pronti = fai(MotoreDi(percorsi), BasiDi(percorsi));
    return PercorsiArchivi{pronti.front(), pronti.back()};
  } catch (const std::exception& errore) {
    ScartaPreparati(percorsi);
    return Errore{errore.what()};
  }
}

}  // namespace

Esito<PercorsiArchivi> PreparaCopia(const PercorsiArchivi& copia, const PercorsiArchivi& percorsi) {
  if (const auto buona = ControllaCopia(copia); !buona) return buona.Errore();
  return Pronti(percorsi, [&](const engine::Motore& motore, const std::vector<engine::Base>& basi) {
    return motore.Prepara({copia.tessarc, copia.scadenzario}, basi);
  });
}

Esito<PercorsiArchivi> PreparaCompatti(const PercorsiArchivi& percorsi) {
  return Pronti(percorsi, [](const engine::Motore& motore, const std::vector<engine::Base>& basi) {
    return motore.Compatta(basi);
  });
}

Esito<bool> CambiaArchivi(const PercorsiArchivi& percorsi) {
  try {
    MotoreDi(percorsi).Cambia(BasiDi(percorsi));
    return true;
  } catch (const std::exception& errore) {
    ScartaPreparati(percorsi);
    return Errore{errore.what()};
  }
}

Esito<bool> TornaAiSostituiti(const PercorsiArchivi& percorsi) {
  try {
    MotoreDi(percorsi).TornaIndietro(BasiDi(percorsi));
    return true;
  } catch (const std::exception& errore) {
    return Errore{errore.what()};
  }
}

void ScartaPreparati(const PercorsiArchivi& percorsi) noexcept {
  MotoreDi(percorsi).Scarta(BasiDi(percorsi));
}

void TogliSostituiti(const PercorsiArchivi& percorsi) noexcept {
  MotoreDi(percorsi).TogliPrima(BasiDi(percorsi));
}

Esito<bool> RipristinaCopia(const fs::path& copia, const PercorsiArchivi& percorsi) {
  const auto pronti = PreparaCopia(ArchiviDellaCopia(copia, percorsi), percorsi);
  auto cambiati = pronti ? CambiaArchivi(percorsi) : Esito<bool>(pronti.Errore());
  if (cambiati) return cambiati;
  return Errore{"Il ripristino da " + copia.string() +
                " non è riuscito: " + cambiati.Errore().messaggio};
}

}  // namespace fenalto
