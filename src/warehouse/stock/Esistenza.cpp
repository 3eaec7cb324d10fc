#include "warehouse/stock/Esistenza.h"

#include "core/sql/Criterio.h"

namespace fenalto::warehouse {
namespace {

/// What sums are taken of: source, its columns after the product, its WHERE.
struct Somme {
  std::string da;
  std::string colonne;
  std::string dove;
};

/// Loads and unloads of the year.
Somme Movimenti(int anno, const FiltroEsistenza& filtro) {
  Somme somme{"FattureCli_r",
              "Sum(IIf(CS='C',Quantita,0)) AS Carichi, Sum(IIf(CS='S',Quantita,0)) AS Scarichi",
              " WHERE " + sql::Criterio("Anno", "=", anno)};
  if (!filtro.mag.empty()) somme.dove += " AND " + sql::Criterio("Mag", "=", filtro.mag);
  if (!filtro.finoAl.Nulla()) somme.dove += " AND " + sql::Criterio("Dt", "<=", filtro.finoAl);
  return somme;
}

/// Rows of orders and jobs with what of each is still open: stored queries, whose conditions stay
/// text, so that the partial indexes below them answer. A row served beyond its quantity counts
/// below zero.
constexpr const char* kOrdiniCli = "ZOrdiniCliAperti";
constexpr const char* kCommesse = "ZCommesseAperte";
constexpr const char* kOrdiniFor = "ZOrdiniForAperti";

Somme Aperte(const char* vista) {
  return {vista, "Sum(Resta) AS Aperta", ""};
}

/// Of all products, by code and what `poi` adds to it.
SerieCodici DiTutti(Ambiente& ambiente, const Somme& somme, const std::string& poi = "") {
  return SerieCodici(ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT CodiceRiga, " + somme.colonne + poi + " FROM " + somme.da + somme.dove +
      " GROUP BY CodiceRiga" + poi + " ORDER BY CodiceRiga" + poi));
}

/// The figures that follow from the sums.
void Deriva(Esistenza& figure) {
  figure.esistenza = figure.carichi - figure.scarichi;
  figure.disponibile = figure.esistenza + figure.ordinato - figure.impegnato;
  figure.disponibileReale = figure.esistenza - figure.impegnato;
}

}  // namespace

Esistenza CalcoloEsistenza(Ambiente& ambiente, const std::string& prodotto,
                           const FiltroEsistenza& filtro) {
  const std::string suo = sql::Criterio("CodiceRiga", "=", prodotto);
  const auto aperta = [&](const char* vista) {
    const Somme somme = Aperte(vista);
    return ", (SELECT " + somme.colonne + " FROM " + somme.da + " WHERE " + suo + ")";
  };
  // One statement for all sums: each would cost more to ask for than to add up.
  const Somme mossi = Movimenti(ambiente.Anno(), filtro);
  const Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT " + mossi.colonne + aperta(kOrdiniCli) + aperta(kCommesse) + aperta(kOrdiniFor) +
      " FROM " + mossi.da + mossi.dove + " AND " + suo);
  // Sums over nothing are Null, which reads as zero.
  Esistenza figure;
  figure.carichi = rs.Fields(0).Importo();
  figure.scarichi = rs.Fields(1).Importo();
  figure.impegnato = rs.Fields(2).Importo() + rs.Fields(3).Importo();
  figure.ordinato = rs.Fields(4).Importo();
  Deriva(figure);
  return figure;
}

EsistenzeInSerie::EsistenzeInSerie(Ambiente& ambiente, const FiltroEsistenza& filtro)
    : movimenti_(DiTutti(ambiente, Movimenti(ambiente.Anno(), filtro))),
      ordiniCli_(DiTutti(ambiente, Aperte(kOrdiniCli))),
      commesse_(DiTutti(ambiente, Aperte(kCommesse))),
      ordiniFor_(DiTutti(ambiente, Aperte(kOrdiniFor))) {}

Esistenza EsistenzeInSerie::Di(const std::string& prodotto) {
  const auto resta = [&](SerieCodici& serie) {
    return serie.Al(prodotto) ? serie.Riga().Fields(1).Importo() : Importo();
  };
  Esistenza figure;
  if (movimenti_.Al(prodotto)) {
    figure.carichi = movimenti_.Riga().Fields(1).Importo();
    figure.scarichi = movimenti_.Riga().Fields(2).Importo();
  }
  figure.impegnato = resta(ordiniCli_) + resta(commesse_);
  figure.ordinato = resta(ordiniFor_);
  Deriva(figure);
  return figure;
}

EsistenzePerMagazzino::EsistenzePerMagazzino(Ambiente& ambiente)
    : movimenti_(DiTutti(ambiente, Movimenti(ambiente.Anno(), {}), ", Mag")) {}

std::vector<EsistenzaInMagazzino> EsistenzePerMagazzino::Di(const std::string& prodotto) {
  std::vector<EsistenzaInMagazzino> esistenze;
  for (; movimenti_.Al(prodotto); movimenti_.Avanti()) {
    const Rs& riga = movimenti_.Riga();
    esistenze.push_back(
        {riga.Fields(3).Testo(), riga.Fields(1).Importo() - riga.Fields(2).Importo()});
  }
  return esistenze;
}

}  // namespace fenalto::warehouse
