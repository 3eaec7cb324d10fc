#include "warehouse/products/ElencoProdotti.h"

#include "core/sql/Criterio.h"
#include "core/sql/CriterioDopo.h"
#include "core/values/PrimaLinea.h"

namespace fenalto::warehouse {
namespace {

/// What a list reads. The product's code comes first, whether it is out of use last.
struct Lettura {
  const char* voci;
  const char* tabelle;
  const char* cod;
  const char* descrizione;
  const char* barcode;
  const char* fuoriUso;
};

Lettura LetturaDi(QualiProdotti quali) {
  switch (quali) {
    case QualiProdotti::PerFornitore:
      return {"Cod, Descrizione, um, Fornitore, ragsoc1, codprfor, Prezzo, Sc1, Sc2, Sc3, FuoriUso",
              "zProdottiXFornitore",
              "Cod",
              "Descrizione",
              "Barcode",
              "FuoriUso"};
    case QualiProdotti::ConDistinta:
      return {"Cod, Descrizione, um, Barcode, FuoriUso",
              "zCodiciRigaConDB",
              "Cod",
              "Descrizione",
              "Barcode",
              "FuoriUso"};
    case QualiProdotti::Componenti:
      return {"Db_r.CodiceRiga AS COD, CodiciRiga.Descrizione, CodiciRiga.UM, CodiciRiga.FuoriUso",
              "Db_r INNER JOIN CodiciRiga ON Db_r.CodiceRiga = CodiciRiga.COD",
              "Db_r.CodiceRiga",
              "CodiciRiga.Descrizione",
              "CodiciRiga.Barcode",
              "CodiciRiga.FuoriUso"};
    case QualiProdotti::Tutti:
      break;
  }
  return {"Cod, Descrizione, um, Barcode, Prezzo, FuoriUso",
          "ZCODICIRIGA",
          "Cod",
          "Descrizione",
          "Barcode",
          "FuoriUso"};
}

void Unisci(std::string& condizione, const std::string& altra) {
  if (!altra.empty()) condizione += (condizione.empty() ? "" : " AND ") + altra;
}

}  // namespace

void ElencoProdotti::Comincia(const archives::FiltroElenco& filtro) {
  const Lettura lettura = LetturaDi(quali_);
  ultimo_.clear();
  ultimoFornitore_.clear();
  finita_ = false;
  condizione_.clear();
  if (quali_ == QualiProdotti::Tutti) {
    for (const auto& [campo, valore] :
         {std::pair{"cat", &filtro_.cat}, std::pair{"cat2", &filtro_.cat2},
          std::pair{"gr", &filtro_.gr}, std::pair{"gr2", &filtro_.gr2},
          std::pair{"conto", &filtro_.conto}}) {
      if (!valore->empty()) Unisci(condizione_, sql::Criterio(campo, "=", *valore));
    }
  }
  if (quali_ == QualiProdotti::PerFornitore && !filtro_.fornitore.empty()) {
    Unisci(condizione_, sql::Criterio("fornitore", "=", filtro_.fornitore));
  }
  std::string inUso = std::string(lettura.fuoriUso) + "=false";
  if (!filtro.testo.empty()) {
    inUso = "(" + inUso + " OR " + sql::Criterio(lettura.cod, "=", filtro.testo) + " OR " +
            sql::Criterio(lettura.barcode, "=", filtro.testo) + ")";
    const std::string cod = lettura.cod;
    Unisci(condizione_, sql::CriterioParole(
                            {lettura.cod, lettura.descrizione, lettura.barcode}, filtro.testo,
                            [&](const std::string& parola) {
                              return cod +
                                     " IN (SELECT prodottiFor_r.Cod FROM prodottiFor_r "
                                     "WHERE " +
                                     sql::CriterioContiene("prodottiFor_r.codprfor", parola) + ")";
                            }));
  }
  if (!filtro_.ancheFuoriUso) Unisci(condizione_, inUso);
}

std::string ElencoProdotti::Oltre() const {
  if (ultimo_.empty() && ultimoFornitore_.empty()) return {};
  const std::string_view cod = LetturaDi(quali_).cod;
  if (quali_ != QualiProdotti::PerFornitore) return sql::CriterioDopo({cod}, {ultimo_});
  return sql::CriterioDopo({"Fornitore", cod}, {ultimoFornitore_, ultimo_});
}

std::string ElencoProdotti::Istruzione() const {
  const Lettura lettura = LetturaDi(quali_);
  std::string condizione = condizione_;
  Unisci(condizione, Oltre());
  std::string testo =
      "SELECT TOP " + std::to_string(kPagina) + " " + lettura.voci + " FROM " + lettura.tabelle;
  if (!condizione.empty()) testo += " WHERE " + condizione;
  if (quali_ == QualiProdotti::Componenti) {
    testo +=
        " GROUP BY Db_r.CodiceRiga, CodiciRiga.Descrizione, CodiciRiga.UM, CodiciRiga.FuoriUso";
  }
  testo += " ORDER BY ";
  if (quali_ == QualiProdotti::PerFornitore) testo += "Fornitore, ";
  return testo + lettura.cod;
}

archives::FonteElenco::Righe ElencoProdotti::Avanti() {
  Righe righe;
  for (Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(Istruzione()); !rs.Eof(); rs.MoveNext()) {
    const std::size_t colonne = rs.Colonne().size();
    std::vector<Valore> riga{rs.Fields(0), PrimaLinea(NzStr(rs.Fields(1)))};
    for (std::size_t c = 2; c + 1 < colonne; ++c) riga.push_back(rs.Fields(c));
    riga.emplace_back(rs.Fields(colonne - 1).Booleano() ? "sì" : "");
    ultimo_ = riga.front().Testo();
    if (quali_ == QualiProdotti::PerFornitore) ultimoFornitore_ = NzStr(rs.Fields("Fornitore"));
    righe.push_back(std::move(riga));
  }
  finita_ = righe.size() < static_cast<std::size_t>(kPagina);
  return righe;
}

}  // namespace fenalto::warehouse
