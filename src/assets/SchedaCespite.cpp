#include "assets/SchedaCespite.h"

#include <algorithm>
#include <tuple>

namespace fenalto::assets {

namespace {

/// What the rows of a year add up to.
struct SommeAnno {
  Importo variazione;
  Importo storno;
  Importo quota;
  std::optional<Importo> vendita;

  void Aggiungi(const MovimentoCespite& riga) {
    if (riga.cau == kCosto) {
      variazione += riga.importo;
    } else if (riga.cau == kDismissioneParziale) {
      variazione -= riga.importo;
      storno += riga.storno;
    } else if (riga.cau == kRivalutazione) {
      variazione += riga.importo;
      storno -= riga.storno;
    } else if (riga.DiQuota()) {
      quota += riga.importo;
    } else if (riga.cau == kDismissione) {
      vendita = riga.importo;
    }
  }
};

/// Earlier years are covered by the row that holds the sum of their quotas.
std::vector<int> Buchi(const std::vector<AnnoCespite>& anni,
                       std::span<const MovimentoCespite> righe) {
  int coperto = 0;
  for (const MovimentoCespite& riga : righe) {
    if (riga.cau == kQuoteIniziali) coperto = std::max(coperto, riga.anno);
  }
  std::vector<int> buchi;
  for (std::size_t i = 1; i < anni.size(); ++i) {
    for (int anno = anni[i - 1].anno + 1; anno < anni[i].anno; ++anno) {
      if (anno > coperto) buchi.push_back(anno);
    }
  }
  return buchi;
}

}  // namespace

bool PrimaNellaScheda(const MovimentoCespite& a, const MovimentoCespite& b) {
  return std::tie(a.anno, a.cau, a.posi) < std::tie(b.anno, b.cau, b.posi);
}

std::string ElencoAnni(const std::vector<int>& anni) {
  std::string testo;
  for (const int anno : anni) testo += (testo.empty() ? "" : "/") + std::to_string(anno);
  return testo;
}

std::string SchedaCespite::AnniMancanti() const {
  return ElencoAnni(mancanti);
}

SchedaCespite CalcolaScheda(std::span<const MovimentoCespite> righe) {
  SchedaCespite scheda;
  Importo costo;
  Importo fondoPrec;
  Importo accantonato;
  for (std::size_t i = 0; i < righe.size();) {
    AnnoCespite anno;
    anno.anno = righe[i].anno;
    anno.da = i;
    SommeAnno somme;
    for (; i < righe.size() && righe[i].anno == anno.anno; ++i) {
      somme.Aggiungi(righe[i]);
      scheda.conCosto = scheda.conCosto || righe[i].cau == kCosto;
    }
    anno.a = i;
    costo += somme.variazione;
    fondoPrec -= somme.storno;
    accantonato = accantonato - somme.storno + somme.quota;
    anno.costo = costo;
    anno.fondoPrec = fondoPrec;
    anno.quota = somme.quota;
    anno.accantonato = accantonato;
    anno.residuo = costo - accantonato;
    anno.vendita = somme.vendita;
    if (somme.vendita) scheda.annoVendita = anno.anno;
    fondoPrec += somme.quota;
    scheda.anni.push_back(anno);
  }
  scheda.mancanti = Buchi(scheda.anni, righe);
  return scheda;
}

SchedaCespite CalcolaScheda(std::span<const MovimentoCespite> righe, int finoAllAnno) {
  const auto dopo = std::ranges::find_if(
      righe, [&](const MovimentoCespite& riga) { return riga.anno > finoAllAnno; });
  return CalcolaScheda(righe.first(static_cast<std::size_t>(dopo - righe.begin())));
}

AnnoCespite SituazioneAl(const SchedaCespite& scheda, int anno) {
  AnnoCespite situazione;
  for (const AnnoCespite& uno : scheda.anni) {
    if (uno.anno <= anno) situazione = uno;
  }
  if (situazione.anno == anno) return situazione;
  situazione.anno = anno;
  situazione.fondoPrec = situazione.accantonato;
  situazione.quota = Importo();
  situazione.vendita.reset();
  return situazione;
}

std::vector<int> AnniScoperti(const SchedaCespite& scheda, int anno) {
  std::vector<int> scoperti = scheda.mancanti;
  if (scheda.anni.empty() || scheda.Dismesso() || scheda.Residuo().Zero()) return scoperti;
  for (int altro = scheda.UltimoAnno() + 1; altro <= anno; ++altro) scoperti.push_back(altro);
  return scoperti;
}

}  // namespace fenalto::assets
