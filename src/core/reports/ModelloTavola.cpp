// The page model of a table that none was drawn for by hand: lists whose columns the user picks or
// whose widths follow from what is in them.
#include <algorithm>
#include <string_view>
#include <vector>

#include "core/reports/DescrizioneRapporto.h"
#include "core/reports/MisuraTesto.h"
#include "core/reports/PezzoSagoma.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::reports {
namespace {

/// Left edge and width of the body, in hundredths of a millimetre, upright and on its side.
constexpr std::int64_t kSinistra = 1'000;
constexpr std::int64_t kLargoVerticale = 19'000;
constexpr std::int64_t kLargoOrizzontale = 27'700;
/// What keeps the columns off the ends of the box over them.
constexpr std::int64_t kRientro = 100;
/// A character of the text form, what keeps a column from the next, and the least that a text is
/// narrowed to.
constexpr std::int64_t kCarattere = 172;
constexpr std::int64_t kStacco = 220;
constexpr std::int64_t kMinimo = 1'500;
/// Height of a line of captions, and of the box that holds one.
constexpr std::int64_t kRigaTitoli = 340;
constexpr std::int64_t kRiquadroTitoli = 600;

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

/// A column where it stands on the page, and what stands over it.
struct PostoColonna {
  const Colonna* colonna;
  std::int64_t largo;
  bool cede;  ///< a text, which can be narrowed
  std::int64_t da = 0;
  std::vector<std::string> titoli = {};
};

/// What a text form with bars leaves without a caption is named as on the sheet.
const std::string& TitoloDi(const Colonna& colonna) {
  return colonna.titolo.empty() ? colonna.foglio.titolo : colonna.titolo;
}

std::string TraVirgolette(const std::string& testo) {
  std::string scritto = "\"";
  for (const char c : testo) scritto.append(c == '"' ? 2 : 1, c);
  return scritto + "\"";
}

/// The words of a caption aren't broken.
std::int64_t PerTitolo(std::string_view titolo) {
  std::int64_t largo = 0;
  while (!titolo.empty()) {
    const std::size_t fine = std::min(titolo.find(' '), titolo.size());
    largo = std::max<std::int64_t>(largo,
                                   LarghezzaTesto(titolo.substr(0, fine), CarattereTavola(true)));
    titolo.remove_prefix(std::min(fine + 1, titolo.size()));
  }
  return largo + largo / 100;
}

std::int64_t Insieme(const std::vector<PostoColonna>& posti) {
  std::int64_t somma = 0;
  for (const PostoColonna& posto : posti) somma += posto.largo;
  return somma;
}

/// Takes from the widest texts what the page doesn't have.
void Stringi(std::vector<PostoColonna>& posti, std::int64_t largo) {
  constexpr std::int64_t kPasso = 50;
  for (std::int64_t troppo = Insieme(posti) - largo; troppo > 0; troppo -= kPasso) {
    PostoColonna* larga = nullptr;
    for (PostoColonna& posto : posti) {
      if (!posto.cede || posto.largo <= kMinimo) continue;
      if (larga == nullptr || posto.largo > larga->largo) larga = &posto;
    }
    if (larga == nullptr) return;
    larga->largo -= kPasso;
  }
}

std::vector<PostoColonna> Desiderati(const std::vector<Colonna>& colonne) {
  std::vector<PostoColonna> posti;
  for (const Colonna& c : colonne) {
    if (!c.mostrata || c.campo.empty()) continue;
    const PezzoSagoma pezzo(c.sagoma);
    const auto caratteri = static_cast<std::int64_t>(LunghezzaTesto(c.sagoma));
    const std::int64_t vuole = c.largo > 0 ? c.largo + c.largo / 100 : caratteri * kCarattere;
    posti.push_back(
        {&c, std::max(vuole, PerTitolo(TitoloDi(c))) + kStacco, pezzo.Testo() && !c.codice});
  }
  return posti;
}

/// The columns over the whole width.
void Stendi(std::vector<PostoColonna>& posti, std::int64_t largo) {
  Stringi(posti, largo);
  const std::int64_t somma = std::max<std::int64_t>(Insieme(posti), 1);
  std::int64_t finora = 0;
  for (PostoColonna& posto : posti) {
    posto.da = kSinistra + kRientro + finora * largo / somma;
    finora += posto.largo;
    const std::int64_t fine = kSinistra + kRientro + finora * largo / somma;
    posto.largo = std::max(fine - posto.da - kStacco, kStacco);
    posto.titoli =
        InLarghezza(TitoloDi(*posto.colonna), static_cast<int>(posto.largo), CarattereTavola(true));
  }
}

/// The captions, the last lines of all at one height.
std::string TitoliDi(const std::vector<PostoColonna>& posti, std::size_t righe) {
  constexpr std::int64_t kCima = 3'620;
  std::string testo;
  for (const PostoColonna& posto : posti) {
    for (std::size_t i = 0; i < posto.titoli.size(); ++i) {
      const std::size_t riga = righe - posto.titoli.size() + i;
      if (posto.titoli[i].empty()) continue;
      testo += "testo " + TraVirgolette(posto.titoli[i]) + " grassetto y ";
      testo += Mm(kCima + static_cast<std::int64_t>(riga) * kRigaTitoli);
      testo += Posto(posto.da, posto.largo) + (posto.cede ? "\n" : " destra\n");
    }
  }
  return testo;
}

}  // namespace

Carattere CarattereTavola(bool grassetto) {
  return {.corpo = 850, .grassetto = grassetto};
}

std::string Colonne::Modello(const std::string& campoScritta) const {
  std::vector<PostoColonna> posti = Desiderati(colonne_);
  const bool verticale = Insieme(posti) <= kLargoVerticale - 2 * kRientro + kStacco;
  const std::int64_t largo = verticale ? kLargoVerticale : kLargoOrizzontale;
  const std::int64_t fondo = verticale ? 28'500 : 19'800;
  // The gap behind the last column isn't needed.
  Stendi(posti, largo - 2 * kRientro + kStacco);
  std::size_t righeTitoli = 1;
  std::string righe;
  std::string totali;
  std::int64_t primaSomma = kSinistra + largo;
  for (const PostoColonna& posto : posti) {
    const Colonna& c = *posto.colonna;
    const PezzoSagoma pezzo(c.sagoma);
    righeTitoli = std::max(righeTitoli, posto.titoli.size());
    std::string attributi = Posto(posto.da, posto.largo);
    if (!pezzo.Testo() || c.codice) attributi += " destra";
    if (pezzo.Testo()) {
      attributi += " acapo";
    } else {
      attributi +=
          " formato \"" +
          (pezzo.segnaposto.starts_with('#') ? std::string(pezzo.segnaposto) : "####.###.###,##") +
          "\"";
    }
    AggiungiCampo(righe, c.campo, attributi);
    if (!c.sommata) continue;
    primaSomma = std::min(primaSomma, posto.da);
    AggiungiCampo(totali, c.campoTotale, attributi + " grassetto");
  }
  if (!campoScritta.empty()) {
    AggiungiCampo(totali, campoScritta,
                  Posto(kSinistra + kRientro, primaSomma - kSinistra - kRientro) + " grassetto");
  }
  const std::int64_t inPiu = static_cast<std::int64_t>(righeTitoli - 1) * kRigaTitoli;
  const std::string destra = Mm(kSinistra + largo);
  const auto piede = [&](const char* cosa, std::int64_t daDestra, const char* largoPiede) {
    return std::string(cosa) + " punti 8 x " + Mm(kSinistra + largo - daDestra) + largoPiede +
           " y " + Mm(fondo) + "\n";
  };
  return std::string("[pagina]\nformato A4 ") + (verticale ? "verticale" : "orizzontale") +
         "\nmargine 8\ncarattere \"Arial Narrow\" punti 8.5\nlinea x1 10 y1 33.5 x2 " + destra +
         " y2 33.5 spessore 0.4\nriquadro x 10 y 35 larghezza " + Mm(largo) + " altezza " +
         Mm(kRiquadroTitoli + inPiu) + " grigio 235\nlinea x1 10 y1 " + Mm(fondo - 100) + " x2 " +
         destra + " y2 " + Mm(fondo - 100) + " spessore 0.1\n[testata]\n" +
         "campo DITTA x 10 y 9 larghezza " + Mm(largo - 6'200) + " punti 12 grassetto\n" +
         "campo Indirizzo_localita x 10 y 14.6 larghezza " + Mm(largo - 6'200) + " punti 8\n" +
         "campo PIVA x " + Mm(kSinistra + largo - 6'000) + " y 9.8 larghezza 60 destra punti 8\n" +
         "campo CODFISC x " + Mm(kSinistra + largo - 6'000) +
         " y 14.6 larghezza 60 destra punti 8\ncampo TITOLO x 10 y 21 larghezza " + Mm(largo) +
         " punti 13 grassetto\ncampo TITOLO2 x 10 y 27.8 larghezza " + Mm(largo) + " punti 9\n" +
         TitoliDi(posti, righeTitoli) + "[corpo]\ninizio " + Mm(4'300 + inPiu) + "\nfine " +
         Mm(fondo - 200) + "\nriga 4.2\n" + righe + totali +
         "[piede]\ntesto \"stampato il\" x 10 y " + Mm(fondo) +
         " punti 8\ncampo DATASTAMPA x 26 larghezza 40 punti 8 y " + Mm(fondo) + "\n" +
         piede("testo \"pagina\" destra", 3'200, " larghezza 12") +
         piede("campo Pag destra", 1'950, " larghezza 5.5") + piede("testo \"di\"", 1'250, "") +
         piede("campo PagTot", 900, " larghezza 9");
}

}  // namespace fenalto::reports
