// What is typed into amount and date fields: any bytes. Nothing may break the readers, and what
// they take must come back the same once written.
#include <string_view>

#include "Pretendi.h"
#include "core/values/Data.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace {

void ProvaImporto(std::string_view testo) {
  using namespace fenalto;
  const auto letto = LeggiImporto(testo);
  if (!letto) {
    Pretendi(!letto.Errore().messaggio.empty());
    return;
  }
  const Importo importo = letto.Valore();
  Pretendi(LeggiImporto(ScriviImporto(importo, 2)).Valore() == importo);
  Pretendi(LeggiImporto(ScriviImporto(importo, 0, false)).Valore() == importo);
  Pretendi(Importo::DaTesto(importo.Testo()) == importo);
  Pretendi(PictureImporto(importo, 15, true).size() == 15);
}

void ProvaData(std::string_view testo) {
  using namespace fenalto;
  const Data oggi = Data::DaGma(24, 11, 2026).value();
  const auto letta = LeggiData(testo, 2025, oggi);
  if (!letta) {
    Pretendi(!letta.Errore().messaggio.empty());
    return;
  }
  Pretendi(LeggiData(letta.Valore().Testo(), 2025, oggi).Valore() == letta.Valore());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const std::string_view testo = Testo(dati, quanti);
  ProvaImporto(testo);
  ProvaData(testo);
  return 0;
}
