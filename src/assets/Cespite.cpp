#include "assets/Cespite.h"

#include <algorithm>

#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"

namespace fenalto::assets {

namespace {

constexpr records::CampoRiga<Cespite> kCampiCespite[] = {
    records::Campo<&Cespite::nCesp>("NCesp"),
    records::Campo<&Cespite::codice>("Codice"),
    records::Campo<&Cespite::descrizione>("Descrizione"),
    records::Campo<&Cespite::cat>("Cat"),
    records::Campo<&Cespite::sn>("sn"),
    records::Campo<&Cespite::ubicaz>("Ubicaz"),
    records::Campo<&Cespite::usato>("Usato"),
    records::Campo<&Cespite::dal>("Dal"),
    records::Campo<&Cespite::note>("Note"),
    records::Campo<&Cespite::cespCorr>("CespCorr"),
    records::Campo<&Cespite::ammCompl>("AmmCompl"),
    records::Campo<&Cespite::dismesso>("Dismesso")};

constexpr records::CampoRiga<MovimentoCespite> kCampiMovimento[] = {
    records::Campo<&MovimentoCespite::posi>("Posi"),
    records::Campo<&MovimentoCespite::anno>("Anno"),
    records::Campo<&MovimentoCespite::cau>("Cau"),
    records::Campo<&MovimentoCespite::estremi>("Estremi"),
    records::Campo<&MovimentoCespite::note>("Note"),
    records::Campo<&MovimentoCespite::p>("P"),
    records::Campo<&MovimentoCespite::importo>("Importo"),
    records::Campo<&MovimentoCespite::storno>("StornoFondoDismParz")};

/// Columns of both tables side by side: of an asset those from 0 on, of its row the others.
std::string Colonne() {
  std::string testo;
  for (const auto& campo : kCampiCespite) {
    testo += (testo.empty() ? "Cespiti." : ", Cespiti.") + std::string(campo.nome);
  }
  for (const auto& campo : kCampiMovimento) testo += ", MovCesp_r." + std::string(campo.nome);
  return testo;
}

Cespite CespiteDi(const Rs& rs) {
  Cespite cespite;
  std::size_t colonna = 0;
  for (const auto& campo : kCampiCespite) campo.scrivi(cespite, rs.Fields(colonna++));
  return cespite;
}

MovimentoCespite MovimentoDi(const Rs& rs) {
  MovimentoCespite movimento;
  std::size_t colonna = std::size(kCampiCespite);
  for (const auto& campo : kCampiMovimento) campo.scrivi(movimento, rs.Fields(colonna++));
  return movimento;
}

}  // namespace

std::span<const records::CampoRiga<Cespite>> CampiCespite() {
  return kCampiCespite;
}

std::span<const records::CampoRiga<MovimentoCespite>> CampiMovimento() {
  return kCampiMovimento;
}

std::string IntervalloCategorie::Condizione(std::string_view campo) const {
  std::string condizione;
  if (!da.empty()) condizione = sql::Criterio(campo, ">=", da);
  if (!a.empty()) condizione += (da.empty() ? "" : " AND ") + sql::Criterio(campo, "<=", a);
  return condizione;
}

bool ScorriCespiti(
    Ambiente& ambiente, const std::string& condizione, const std::string& ordine,
    const std::function<bool(const Cespite&, std::span<const MovimentoCespite>)>& cespite) {
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT " + Colonne() +
      " FROM Cespiti LEFT JOIN MovCesp_r ON Cespiti.NCesp = MovCesp_r.NCesp" +
      (condizione.empty() ? "" : " WHERE " + condizione) + " ORDER BY Cespiti.Cat, " + ordine +
      ", Cespiti.NCesp, MovCesp_r.Anno, MovCesp_r.Cau, MovCesp_r.Posi");
  std::vector<MovimentoCespite> righe;
  while (!rs.Eof()) {
    const Cespite corrente = CespiteDi(rs);
    righe.clear();
    // An asset without rows has one of Nulls.
    for (; !rs.Eof() && rs.Fields(0).Intero() == corrente.nCesp; rs.MoveNext()) {
      if (!rs.Fields(std::size(kCampiCespite)).Nullo()) righe.push_back(MovimentoDi(rs));
    }
    if (!cespite(corrente, righe)) return false;
  }
  return true;
}

std::vector<MovimentoCespite> LeggiMovimenti(Ambiente& ambiente, std::int64_t nCesp) {
  std::vector<MovimentoCespite> righe;
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset("select * from MovCesp_r where " +
                                                   sql::Criterio("NCesp", "=", nCesp) +
                                                   " order by ANNO,CAU,POSI");
  for (; !rs.Eof(); rs.MoveNext()) righe.push_back(records::LeggiRiga(rs, CampiMovimento()));
  return righe;
}

std::string TestoPercento(Importo percento) {
  return ScriviImporto(percento, 0);
}

}  // namespace fenalto::assets
