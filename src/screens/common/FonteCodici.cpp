#include "screens/common/FonteCodici.h"

#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

constexpr std::size_t kRigheLette = 20'000;  // bound of one search

}  // namespace

FonteTabella::FonteTabella(std::function<Archivio&()> archivio, std::string fonte,
                           std::string campoChiave, std::string campoDescrizione,
                           std::function<std::string()> filtro)
    : archivio_(std::move(archivio)),
      fonte_(std::move(fonte)),
      chiave_(std::move(campoChiave)),
      descrizione_(std::move(campoDescrizione)),
      filtro_(std::move(filtro)) {}

std::string FonteTabella::Da(const std::string& condizione) const {
  const bool interrogazione = UgualeTesto(std::string_view(fonte_).substr(0, 7), "select ");
  std::string testo = "SELECT " + chiave_ + ", " + descrizione_ + " FROM ";
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
  const std::string cercato = PerRicerca(testo);
  std::vector<VoceCodice> perCodice;
  std::vector<VoceCodice> perDescrizione;
  const auto limite = static_cast<std::size_t>(massimo);
  Rs righe = archivio_().Recordset(Da("") + " ORDER BY " + chiave_);
  for (std::size_t lette = 0; !righe.Eof() && lette < kRigheLette; righe.MoveNext(), ++lette) {
    VoceCodice voce{righe.Fields(0).Testo(), NzStr(righe.Fields(1))};
    if (PerRicerca(voce.codice).starts_with(cercato)) {
      perCodice.push_back(std::move(voce));
      if (perCodice.size() >= limite) break;
    } else if (perDescrizione.size() < limite &&
               PerRicerca(voce.descrizione).find(cercato) != std::string::npos) {
      perDescrizione.push_back(std::move(voce));
    }
  }
  for (auto& voce : perDescrizione) {
    if (perCodice.size() >= limite) break;
    perCodice.push_back(std::move(voce));
  }
  return perCodice;
}

}  // namespace fenalto
