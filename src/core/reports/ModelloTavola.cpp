// The page model of a table whose columns the user picks: no file can hold one for each choice.
#include <algorithm>

#include "core/reports/DescrizioneRapporto.h"
#include "core/reports/PezzoSagoma.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::reports {
namespace {

/// Widest line, in characters, that stands legibly on A4 upright.
constexpr std::size_t kMassimoVerticale = 110;
/// Left edge and width of the body, in hundredths of a millimetre, upright and on its side.
constexpr std::int64_t kSinistra = 1'000;
constexpr std::int64_t kLargoVerticale = 19'000;
constexpr std::int64_t kLargoOrizzontale = 27'700;

/// Hundredths of a millimetre as a model writes millimetres.
std::string Mm(std::int64_t centesimi) {
  constexpr std::int64_t kDecimillesimi = 100;
  return Importo::DaDecimillesimi(centesimi * kDecimillesimi).Testo();
}

std::string Posto(std::int64_t x, std::int64_t largo) {
  return " x " + Mm(x) + " larghezza " + Mm(largo);
}

/// A field of a body line, with its place and attributes.
void AggiungiCampo(std::string& righe, const std::string& nome, const std::string& attributi) {
  righe.append("campo ").append(nome).append(" y 0.6").append(attributi).append("\n");
}

}  // namespace

std::string Colonne::Modello(const std::string& campoScritta) const {
  const bool verticale = Larghezza() <= kMassimoVerticale;
  const std::int64_t largo = verticale ? kLargoVerticale : kLargoOrizzontale;
  const std::string destra = Mm(kSinistra + largo);
  const std::int64_t fondo = verticale ? 28'500 : 19'800;
  std::string titoli;
  std::string righe;
  std::string totali;
  std::size_t caratteri = 0;
  std::int64_t primaSomma = largo;
  for (const Colonna& c : colonne_) {
    if (!c.mostrata) continue;
    const auto inCentesimi = [&](std::size_t n) {
      return static_cast<std::int64_t>(n) * largo / static_cast<std::int64_t>(Larghezza());
    };
    const std::int64_t da = inCentesimi(caratteri);
    caratteri += LunghezzaTesto(c.sagoma);
    if (c.campo.empty()) continue;
    // A narrow gap keeps a column from the next.
    const std::string posto = Posto(kSinistra + da, inCentesimi(caratteri) - da - 100);
    const PezzoSagoma pezzo(c.sagoma);
    std::string attributi = pezzo.Testo() && !c.codice ? "" : " destra";
    titoli.append("testo \"").append(c.titolo).append("\" y 36.2 grassetto");
    titoli.append(posto).append(attributi).append("\n");
    if (!pezzo.Testo() && !c.codice) {
      attributi +=
          " formato \"" +
          (pezzo.segnaposto.starts_with('#') ? std::string(pezzo.segnaposto) : "####.###.###,##") +
          "\"";
    }
    AggiungiCampo(righe, c.campo, posto + attributi);
    if (!c.sommata) continue;
    primaSomma = std::min(primaSomma, da);
    AggiungiCampo(totali, c.campoTotale, posto + attributi + " grassetto");
  }
  if (!campoScritta.empty()) {
    AggiungiCampo(totali, campoScritta, Posto(kSinistra, primaSomma) + " grassetto");
  }
  return std::string("[pagina]\nformato A4 ") + (verticale ? "verticale" : "orizzontale") +
         "\nmargine 8\ncarattere \"Arial Narrow\" punti 8.5\nlinea x1 10 y1 33.5 x2 " + destra +
         " y2 33.5 spessore 0.4\nriquadro x 10 y 35 larghezza " + Mm(largo) +
         " altezza 6 grigio 235\n[testata]\n"
         "campo DITTA x 10 y 9 larghezza 120 punti 12 grassetto\n"
         "campo Indirizzo_localita x 10 y 14.6 larghezza 120 punti 8\n"
         "campo TITOLO x 10 y 21 larghezza " +
         Mm(largo) + " punti 13 grassetto\ncampo TITOLO2 x 10 y 27.8 larghezza " + Mm(largo) +
         " punti 9\n" + titoli + "[corpo]\ninizio 43\nfine " + Mm(fondo - 200) + "\nriga 4.2\n" +
         righe + totali + "[piede]\ntesto \"stampato il\" x 10 y " + Mm(fondo) +
         " punti 8\ncampo DATASTAMPA x 26 larghezza 40 punti 8 y " + Mm(fondo) +
         "\ncampo Pag larghezza 8 destra punti 8 x " + Mm(kSinistra + largo - 2'200) + " y " +
         Mm(fondo) + "\ntesto \"di\" punti 8 x " + Mm(kSinistra + largo - 1'250) + " y " +
         Mm(fondo) + "\ncampo PagTot larghezza 9 punti 8 x " + Mm(kSinistra + largo - 900) + " y " +
         Mm(fondo) + "\n";
}

}  // namespace fenalto::reports
