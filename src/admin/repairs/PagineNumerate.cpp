#include "admin/repairs/PagineNumerate.h"

#include "core/reports/Rapporto.h"
#include "core/values/Testo.h"

namespace fenalto::admin {

namespace {

constexpr int kMassimo = 2'000;       // pages at once
constexpr int kUltimaPagina = 9'999;  // what the picture holds
constexpr std::size_t kIntestazione = 70;

constexpr const char* kTestata =
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ "
    "                   Anno/pag. $$$$/$$$$";
constexpr const char* kDitta =
    "$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$"
    "$$$$$"
    "$";
constexpr std::size_t kLarghezza = 109;

}  // namespace

SceltaPagine PagineNumerate::Proposta() const {
  SceltaPagine scelta;
  scelta.annoPag = ambiente_.Anno();
  return scelta;
}

std::string PagineNumerate::Rifiuto(const SceltaPagine& scelta) {
  const auto rifiuta = [this](const char* campo, std::string testo) {
    campoRifiutato_ = campo;
    return testo;
  };
  campoRifiutato_.clear();
  if (Rifila(scelta.intestazione).empty()) return rifiuta("Intestazione", kInvito);
  if (LunghezzaTesto(scelta.intestazione) > kIntestazione) {
    return rifiuta("Intestazione", "l'intestazione è troppo lunga: al massimo " +
                                       std::to_string(kIntestazione) + " caratteri");
  }
  if (scelta.annoPag < 1900 || scelta.annoPag > 2999) {
    return rifiuta("AnnoPag", "l'anno delle pagine non è un anno contabile");
  }
  if (scelta.daPag < 1) return rifiuta("DaPag", "la prima pagina deve essere almeno la 1");
  if (scelta.aaPag < scelta.daPag) {
    return rifiuta("AaPag", "l'ultima pagina viene prima della prima");
  }
  if (scelta.aaPag > kUltimaPagina || scelta.aaPag - scelta.daPag >= kMassimo) {
    return rifiuta("AaPag", "troppe pagine: al massimo " + std::to_string(kMassimo) +
                                " per volta, fino alla " + std::to_string(kUltimaPagina));
  }
  return {};
}

bool PagineNumerate::Stampa(const SceltaPagine& scelta) {
  if (const std::string no = Rifiuto(scelta); !no.empty()) {
    ambiente_.Dialogo().Messaggio(no, Icona::Avviso);
    return false;
  }
  reports::Rapporto rapporto(ambiente_, uscite_);
  const auto testata = [&] {
    const int pagina = scelta.daPag + rapporto.Carta().NumeroPagina() - 1;
    const reports::DatiDitta& ditta = rapporto.Ditta();
    if (rapporto.Grafico()) {
      rapporto.TestataDitta(pagina);
      rapporto.Titolo("TITOLO", scelta.intestazione);
      rapporto.Titolo("AnnoPag", std::to_string(scelta.annoPag) + "/" + std::to_string(pagina));
      return;
    }
    rapporto.Riga({kTestata, {}, true}, {scelta.intestazione, scelta.annoPag, pagina});
    std::string chi = ditta.ragSoc1_2;
    for (const std::string& parte : {ditta.indirizzoLocalita, reports::CodiciDitta(ditta)}) {
      if (!parte.empty()) chi += "  " + parte;
    }
    rapporto.Riga({kDitta}, {chi});
  };
  const reports::Cornice cornice{"pagine numerate",
                                 "Pagine numerate: " + scelta.intestazione,
                                 "TiPagine",
                                 kLarghezza,
                                 scelta.stGrafico,
                                 scelta.xTar,
                                 true};
  if (!rapporto.Apri(cornice, testata)) return false;
  rapporto.Avvia("Pagine numerate", scelta.aaPag - scelta.daPag + 1, 1);
  for (int pagina = scelta.daPag; pagina <= scelta.aaPag && rapporto.Passo(); ++pagina) {
    if (pagina > scelta.daPag) rapporto.Carta().NuovaPagina();
    rapporto.Vuota();
  }
  return rapporto.Fine();
}

}  // namespace fenalto::admin
