#include "vat/postings/PeriodoIva.h"

#include <algorithm>

#include "core/sql/Criterio.h"

namespace fenalto::vat {
namespace {

constexpr int kMesiTrimestre = 3;
constexpr int kMesiAnno = 12;

/// Months of a key: "02" is 2 to 2, "T2" is 4 to 6. Nothing for a key that names no period.
std::optional<std::pair<int, int>> MesiDi(const std::string& cod) {
  const auto cifra = [&](std::size_t i) { return cod[i] >= '0' && cod[i] <= '9'; };
  if (cod == "Z") return std::pair(1, kMesiAnno);
  if (cod.size() != 2 || !cifra(1)) return std::nullopt;
  if (cod[0] == 'T') {
    const int trimestre = cod[1] - '0';
    if (trimestre < 1 || trimestre > kMesiAnno / kMesiTrimestre) return std::nullopt;
    return std::pair((trimestre - 1) * kMesiTrimestre + 1, trimestre * kMesiTrimestre);
  }
  if (!cifra(0)) return std::nullopt;
  const int mese = (cod[0] - '0') * 10 + (cod[1] - '0');
  if (mese < 1 || mese > kMesiAnno) return std::nullopt;
  return std::pair(mese, mese);
}

}  // namespace

Data PeriodoIva::Primo() const {
  return Data::DaGma(1, daMese, anno).value_or(Data());
}

Data PeriodoIva::UltimoGiorno() const {
  return Data::DaGma(1, aaMese, anno).value_or(Data()).FineMese();
}

bool IvaTrimestrale(Ambiente& ambiente, int anno) {
  return Nz(ambiente.Cerca("tessarc", "Anni", {{"Anno", anno}}, "IvaTrimestrale")).Booleano();
}

bool AnnoInEuro(Ambiente& ambiente, int anno) {
  const Valore euro = ambiente.Cerca("tessarc", "Anni", {{"Anno", anno}}, "Euro");
  return euro.Nullo() || euro.Booleano();
}

std::string ChiavePeriodo(Data data, bool trimestrale) {
  const int mese = data.Mese();
  if (trimestrale) return "T" + std::to_string((mese - 1) / kMesiTrimestre + 1);
  return (mese < 10 ? "0" : "") + std::to_string(mese);
}

std::string PeriodoChiuso(Ambiente& ambiente, Data data) {
  if (data.Nulla()) return {};
  std::string periodo = ChiavePeriodo(data, IvaTrimestrale(ambiente, data.Anno()));
  const bool chiuso = ambiente.Esiste("tessarc", "ChiusureIva",
                                      {{"MeseTrimestre", periodo}, {"Anno", data.Anno()}});
  return chiuso ? periodo : std::string();
}

PeriodoIva PeriodoDiChiave(int anno, const std::string& cod) {
  PeriodoIva periodo;
  const auto mesi = MesiDi(cod);
  if (!mesi) return periodo;
  periodo.cod = cod;
  periodo.anno = anno;
  periodo.daMese = mesi->first;
  periodo.aaMese = mesi->second;
  return periodo;
}

std::vector<PeriodoIva> PeriodiIva(Ambiente& ambiente, int anno) {
  const std::string elenco = IvaTrimestrale(ambiente, anno)
                                 ? "select * from Mesi where COD='Z' OR (COD>='T1' AND COD<='T4') "
                                 : "select * from Mesi where COD='Z' OR (COD>='01' AND COD<='12') ";
  const bool euro = AnnoInEuro(ambiente, anno);
  std::vector<PeriodoIva> periodi;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(elenco + "order by COD"); !rs.Eof();
       rs.MoveNext()) {
    PeriodoIva periodo = PeriodoDiChiave(anno, rs.Fields("Cod").Testo());
    if (periodo.cod.empty()) continue;
    periodo.euro = euro;
    periodo.testo = rs.Fields("Descrizione").Testo();
    periodi.push_back(periodo);
  }
  // The annual summary comes first, whatever its key's place among the others.
  std::ranges::stable_partition(periodi, [](const PeriodoIva& p) { return p.Annuale(); });
  return periodi;
}

PeriodoIva LeggiPeriodo(Ambiente& ambiente, int anno, const std::string& cod) {
  for (PeriodoIva& periodo : PeriodiIva(ambiente, anno)) {
    if (periodo.cod == cod) return periodo;
  }
  return {};
}

}  // namespace fenalto::vat
