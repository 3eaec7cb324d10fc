// A use case's transaction, which joins that of a caller who writes many at once.
#pragma once

#include <optional>

#include "core/store/BasiDati.h"

namespace fenalto {

/// A transaction of its own; or a part of the one the caller holds to write many registrations at
/// once, who then rolls it back when one of them isn't written.
class TransazioneComune {
 public:
  TransazioneComune(BasiDati& basi, Transazione::Ambito ambito) {
    if (!basi.InTransazione()) propria_.emplace(basi, ambito);
  }
  void Conferma() {
    if (propria_) propria_->Conferma();
  }

 private:
  std::optional<Transazione> propria_;
};

}  // namespace fenalto
