// The list from which an asset is chosen: by number, narrowed by a text.
#pragma once

#include <string>

#include "core/archives/FonteElenco.h"
#include "core/session/Ambiente.h"

namespace fenalto::assets {

/// Columns: number, code, description, category, in use from, state. A search looks for a number,
/// or for a part of code, description, serial number, location or category.
class LettoreCespiti : public archives::FonteElenco {
 public:
  explicit LettoreCespiti(Ambiente& ambiente) : ambiente_(ambiente) {}

  void Comincia(const archives::FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return finita_; }
  /// "furgone, 29 Autocarri"; empty when there is none of that number.
  std::string Testo(std::int64_t nCesp);

 private:
  Ambiente& ambiente_;
  std::string condizione_;
  std::int64_t ultimo_ = 0;
  bool finita_ = false;
};

}  // namespace fenalto::assets
