#include "vat/codes/TipiRegistro.h"

#include <algorithm>
#include <array>

#include "core/values/Testo.h"

namespace fenalto::vat {

namespace {

constexpr auto kAvere = LatoImporto::Avere;
constexpr auto kDare = LatoImporto::Dare;

constexpr std::string_view kVendite = "Fattura vendite o nota credito su vendite";
constexpr std::string_view kCorrGiorno = "Corrispettivi (registrazione giornaliera)";
constexpr std::string_view kCorrMese = "Corrispettivi (registrazione mensile)";

// A reverse-charge invoice stands on 04 with the sides of a sale and on 05 with those of a
// purchase, a supplier's on both: so the two halves cancel.
constexpr std::array kTipi{
    TipoRegistro{.tipo = "01",
                 .cfp = "C",
                 .latoImposta = kAvere,
                 .didascalia = kVendite,
                 .causale = "Fatture/Note cred. IVA Vendite",
                 .documenti = true},
    TipoRegistro{.tipo = "02",
                 .cfp = "P",
                 .latoImposta = kAvere,
                 .didascalia = kCorrGiorno,
                 .didascaliaMensile = kCorrMese,
                 .causale = "Incassi corrispettivi",
                 .corrispettivi = true,
                 .codiceIvaProposto = true,
                 .ivaFacoltativa = true,
                 .documenti = true},
    TipoRegistro{.tipo = "03",
                 .cfp = "F",
                 .latoImposta = kDare,
                 .didascalia = "Fattura acquisti o nota credito su acquisti",
                 .causale = "Fatture/Note cred.IVA Acquisti",
                 .documenti = true},
    TipoRegistro{.tipo = "04",
                 .cfp = "F",
                 .latoImposta = kAvere,
                 .didascalia = "Fatt.acquisti con sistema del reverse charge (intra e altro)",
                 .causale = "Autofatt./rev.charge/Intrac.",
                 .documenti = true},
    TipoRegistro{.tipo = "05",
                 .cfp = "F",
                 .latoImposta = kDare,
                 .didascalia = "Nuova registrazione",
                 .causale = "Fatt.passive rev.charge/Intra",
                 .soloProgramma = true,
                 .documenti = true},
    TipoRegistro{.tipo = "06",
                 .cfp = "C",
                 .latoImposta = kAvere,
                 .didascalia = kVendite,
                 .causale = "Fatture in sospensione IVA",
                 .documenti = true},
    TipoRegistro{.tipo = "07",
                 .cfp = "P",
                 .latoImposta = kAvere,
                 .didascalia = "Corrispettivi ventilati (registrazione giornaliera)",
                 .didascaliaMensile = "Corrispettivi ventilati (registrazione mensile)",
                 .causale = "Corrispettivi(Ventilaz.su Acq)",
                 .corrispettivi = true,
                 .ivaFacoltativa = true,
                 .documenti = true},
    TipoRegistro{.tipo = "08",
                 .cfp = "",
                 .didascalia = "Nuova registrazione (speciale)",
                 .soloProgramma = true},
    TipoRegistro{.tipo = "08A",
                 .cfp = "",
                 .didascalia = "Nuova registrazione (speciale)",
                 .soloProgramma = true},
    TipoRegistro{.tipo = "09",
                 .cfp = "P",
                 .latoImposta = kAvere,
                 .didascalia = kCorrGiorno,
                 .didascaliaMensile = kCorrMese,
                 .causale = "Incassi corrispettivi",
                 .corrispettivi = true,
                 .codiceIvaProposto = true},
    TipoRegistro{.tipo = "11", .cfp = "F", .latoImposta = kAvere, .didascalia = kVendite},
};

}  // namespace

std::span<const TipoRegistro> TipiRegistro() {
  return kTipi;
}

const TipoRegistro* TrovaTipoRegistro(std::string_view tipo) {
  const auto* const trovato = std::find_if(
      kTipi.begin(), kTipi.end(), [&](const TipoRegistro& t) { return UgualeTesto(t.tipo, tipo); });
  return trovato == kTipi.end() ? nullptr : trovato;
}

bool RegistroCorrispettivi(std::string_view tipo) {
  const TipoRegistro* trovato = TrovaTipoRegistro(tipo);
  return trovato != nullptr && trovato->corrispettivi;
}

LatoImporto LatoImposta(std::string_view tipo) {
  const TipoRegistro* trovato = TrovaTipoRegistro(tipo);
  return trovato == nullptr ? LatoImporto::Nessuno : trovato->latoImposta;
}

std::string_view DidascaliaRegistrazione(std::string_view tipo, bool mensile) {
  const TipoRegistro* trovato = TrovaTipoRegistro(tipo);
  if (trovato == nullptr) return {};
  return mensile && trovato->corrispettivi ? trovato->didascaliaMensile : trovato->didascalia;
}

}  // namespace fenalto::vat
