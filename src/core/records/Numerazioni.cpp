#include "core/records/Numerazioni.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace fenalto::records {

namespace {

void VerificaOrdine([[maybe_unused]] const std::vector<std::string_view>& tabelle) {
#ifndef NDEBUG
  const auto* posto = kOrdineNumerazioni.begin();
  for (const std::string_view tabella : tabelle) {
    posto = std::find(posto, kOrdineNumerazioni.end(), tabella);
    if (posto == kOrdineNumerazioni.end()) {
      throw std::logic_error("numerazione non prevista, o fuori ordine: " + std::string(tabella));
    }
    ++posto;
  }
#endif
}

}  // namespace

Numerazioni::Numerazioni(Ambiente& ambiente, const std::vector<std::string_view>& tabelle) {
  VerificaOrdine(tabelle);
  for (const std::string_view tabella : tabelle) {
    Blocco blocco = ambiente.BloccaTabella(tabella, true);
    if (!blocco.Tenuto()) {
      tenute_ = false;
      blocchi_.clear();
      return;
    }
    blocchi_.push_back(std::move(blocco));
  }
}

}  // namespace fenalto::records
