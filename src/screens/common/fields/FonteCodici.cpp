#include "screens/common/fields/FonteCodici.h"

#include <algorithm>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::screens {

FonteTabella::FonteTabella(std::function<Archivio&()> archivio, std::string fonte,
                           std::string campoChiave, std::string campoDescrizione,
                           std::function<std::string()> filtro)
    : archivio_(std::move(archivio)),
      fonte_(std::move(fonte)),
      chiave_(std::move(campoChiave)),
      descrizione_(std::move(campoDescrizione)),
      filtro_(std::move(filtro)) {}

std::string FonteTabella::Da(const std::string& condizione, int massimo) const {
  const bool interrogazione = UgualeTesto(std::string_view(fonte_).substr(0, 7), "select ");
  std::string testo = "SELECT ";
  if (massimo > 0) testo += "TOP " + std::to_string(massimo) + " ";
  testo += chiave_ + ", " + descrizione_ + " FROM ";
  testo += interrogazione ? "(" + fonte_ + ") AS Fonte" : fonte_;
  std::string filtro = filtro_ ? filtro_() : std::string();
  if (!filtro.empty() && !condizione.empty()) filtro = "(" + filtro + ") AND ";
  if (!filtro.empty() || !condizione.empty()) testo += " WHERE " + filtro + condizione;
  return testo;
}

std::optional<std::string> FonteTabella::Descrizione(const std::string& codice) {
  if (codice.empty()) return std::nullopt;
  Rs trovata = archivio_().Recordset(Da(sql::Criterio(chiave_, "=", codice)));
  if (trovata.Eof()) return std::nullopt;
  return NzStr(trovata.Fields(1));
}

std::string FonteTabella::Canonico(const std::string& codice) {
  Rs trovata = archivio_().Recordset(Da(sql::Criterio(chiave_, "=", codice)));
  return trovata.Eof() ? codice : trovata.Fields(0).Testo();
}

std::vector<VoceCodice> FonteTabella::Cerca(const std::string& testo, int massimo) {
  const auto leggi = [&](const std::string& condizione) {
    std::vector<VoceCodice> voci;
    Rs righe = archivio_().Recordset(Da(condizione, massimo) + " ORDER BY " + chiave_);
    for (; !righe.Eof(); righe.MoveNext()) {
      voci.push_back({NzStr(righe.Fields(0)), NzStr(righe.Fields(1))});
    }
    return voci;
  };
  if (massimo <= 0) return {};
  if (testo.empty()) return leggi("");
  const std::string inizia = sql::CriterioInizia(chiave_, testo);
  const auto comincia = [cercato = PerRicerca(testo)](const VoceCodice& voce) {
    return IniziaRicerca(voce.codice, cercato);
  };
  // One pass over the table finds all there is, unless there is more than is asked for: then codes
  // that begin with the text may come later, and a pass over the codes alone finds them.
  auto trovate = leggi("(" + inizia + " OR " + sql::CriterioContiene(descrizione_, testo) + ")");
  if (trovate.size() < static_cast<std::size_t>(massimo)) {
    std::stable_partition(trovate.begin(), trovate.end(), comincia);
    return trovate;
  }
  auto prime = leggi(inizia);
  for (auto& voce : trovate) {
    if (prime.size() >= static_cast<std::size_t>(massimo)) break;
    if (!comincia(voce)) prime.push_back(std::move(voce));
  }
  return prime;
}

}  // namespace fenalto::screens
