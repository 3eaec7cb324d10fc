#include "assets/LineeScheda.h"

#include <map>

namespace fenalto::assets {

namespace {

void LineeDiRiga(std::vector<LineaScheda>& linee, const MovimentoCespite& riga,
                 const std::string& causale) {
  linee.push_back({GenereLinea::Riga, riga.anno, causale, riga.estremi, riga.importo});
  if (!riga.note.empty()) linee.push_back({GenereLinea::Nota, riga.anno, "", riga.note});
  if (riga.storno.Zero()) return;
  const char* nome = riga.cau == kDismissioneParziale ? "storno fondo"
                     : riga.cau == kRivalutazione     ? "variaz.fondo"
                                                      : nullptr;
  if (nome != nullptr) {
    linee.push_back({GenereLinea::Ulteriore, riga.anno, "", nome, riga.storno});
  }
}

/// What is told at the end of a card with years left out.
std::string TestoMancanti(const SchedaCespite& scheda) {
  std::string testo = "ERRORE: MANCANO REGISTRAZIONI ANNO/I " + scheda.AnniMancanti();
  if (!scheda.Residuo().Zero() && !scheda.Dismesso()) testo += " oppure manca la dismissione";
  return testo;
}

}  // namespace

std::vector<LineaScheda> LineeDi(const SchedaCespite& scheda,
                                 std::span<const MovimentoCespite> righe,
                                 const std::function<std::string(const std::string&)>& descrivi) {
  std::vector<LineaScheda> linee;
  int prima = 0;
  for (const AnnoCespite& anno : scheda.anni) {
    std::vector<int> tra;
    for (const int mancante : scheda.mancanti) {
      if (mancante > prima && mancante < anno.anno) tra.push_back(mancante);
    }
    prima = anno.anno;
    if (!tra.empty()) {
      linee.push_back(
          {GenereLinea::Errore, anno.anno, "", "ERRORE: manca anno/i " + ElencoAnni(tra)});
    }
    for (std::size_t i = anno.da; i < anno.a; ++i) {
      LineeDiRiga(linee, righe[i], descrivi(righe[i].cau));
    }
    linee.push_back({GenereLinea::Totali, anno.anno, "totali anno " + std::to_string(anno.anno), "",
                     std::nullopt, anno});
    if (const auto plusvalenza = anno.Plusvalenza()) {
      linee.push_back(
          {GenereLinea::Plusvalenza, anno.anno, "", "Minusvalenza/Plusvalenza", plusvalenza});
    }
  }
  if (!scheda.mancanti.empty()) {
    linee.push_back({GenereLinea::Errore, scheda.UltimoAnno(), "", TestoMancanti(scheda)});
  }
  return linee;
}

std::function<std::string(const std::string&)> DescrizioniCausali(Ambiente& ambiente) {
  std::map<std::string, std::string> descrizioni;
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset("SELECT cod, Descrizione FROM CausaliCespiti");
  for (; !rs.Eof(); rs.MoveNext()) {
    descrizioni.emplace(rs.Fields(0).Testo(), NzStr(rs.Fields(1)));
  }
  return [descrizioni = std::move(descrizioni)](const std::string& cau) {
    const auto trovata = descrizioni.find(cau);
    return trovata == descrizioni.end() ? cau : trovata->second;
  };
}

}  // namespace fenalto::assets
