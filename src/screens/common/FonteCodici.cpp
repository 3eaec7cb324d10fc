#include "screens/common/FonteCodici.h"

#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {

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
  Rs trovata = archivio_().Recordset(Da(Criterio(chiave_, "=", codice)));
  if (trovata.Eof()) return std::nullopt;
  return NzStr(trovata.Fields(1));
}

std::string FonteTabella::Canonico(const std::string& codice) {
  Rs trovata = archivio_().Recordset(Da(Criterio(chiave_, "=", codice)));
  return trovata.Eof() ? codice : trovata.Fields(0).Testo();
}

std::vector<VoceCodice> FonteTabella::Cerca(const std::string& testo, int massimo) {
  std::vector<VoceCodice> voci;
  const auto aggiungi = [&](const std::string& condizione) {
    const int mancano = massimo - static_cast<int>(voci.size());
    if (mancano <= 0) return;
    Rs righe = archivio_().Recordset(Da(condizione, mancano) + " ORDER BY " + chiave_);
    for (; !righe.Eof(); righe.MoveNext()) {
      voci.push_back({NzStr(righe.Fields(0)), NzStr(righe.Fields(1))});
    }
  };
  if (testo.empty()) {
    aggiungi("");
    return voci;
  }
  const std::string inizia = CriterioInizia(chiave_, testo);
  aggiungi(inizia);
  aggiungi(CriterioContiene(descrizione_, testo) + " AND NOT " + inizia);
  return voci;
}

}  // namespace fenalto
