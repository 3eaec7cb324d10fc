// The lists beside the register: stored settlements, deferred invoices.
#include "core/reports/Rapporto.h"
#include "core/sql/Criterio.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "vat/register/RegistroIvaInterno.h"

namespace fenalto::vat {
namespace {

constexpr const char* kTitoloChiusure =
    "ELENCO LIQUIDAZIONI IVA       $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ anno ####,";
constexpr const char* kChiusura =
    "$$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ ##.###.###.###,##";
constexpr std::size_t kLarghezzaChiusure = 90;

constexpr const char* kTitoloSospese =
    "ELENCO FATTURE AD ESIGIBILTA' IVA DIFFERITA  dal $$$$$$$$ al $$$$$$$$        ";
constexpr const char* kColonneSospese =
    "cliente/fornitore                    anno data     artic.  protoc.  fattura      imponibile   "
    " "
    "         iva   incasso";
constexpr const char* kSospesa =
    "§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§§ ####, $$$$$$$$ ######, ######, ######, ###.###.###,### "
    "###.###.###,###   $$$$$$$$  ";
constexpr const char* kTotaleSospese =
    "                                                              TOTALE ###.###.###,### "
    "###.###.###,###             ";
constexpr std::size_t kLarghezzaSospese = 121;

/// A deferred invoice with the sums of its rows.
struct Sospesa {
  int anno = 0;
  std::int64_t numDoc = 0;
  std::string parte;
  std::string nFat;
  std::int64_t nProt = 0;
  Data dt;
  Data dtIncasso;
  Importo imponibile;
  Importo iva;
};

/// Prints the invoices of a statement, whose rows come one after the other, and their total.
void StampaSospese(Ambiente& ambiente, reports::Rapporto& rapporto, const std::string& sql) {
  Sospesa totale;
  Sospesa corrente;
  const auto riga = [&](const Sospesa& s) {
    if (s.anno == 0) return;
    totale.imponibile += s.imponibile;
    totale.iva += s.iva;
    rapporto.Riga(
        {kSospesa},
        {s.parte, s.anno, s.dt, s.numDoc, s.nProt, s.nFat, s.imponibile, s.iva, s.dtIncasso},
        AllaRegistrazione(s.anno, s.numDoc));
  };
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(sql); !rs.Eof(); rs.MoveNext()) {
    const auto anno = static_cast<int>(rs.Fields(0).Intero());
    const std::int64_t numDoc = rs.Fields(1).Intero();
    if (anno != corrente.anno || numDoc != corrente.numDoc) {
      riga(corrente);
      corrente = {};
      corrente.anno = anno;
      corrente.numDoc = numDoc;
      corrente.nProt = rs.Fields(2).Intero();
      corrente.nFat = rs.Fields(3).Testo();
      corrente.dt = rs.Fields(4).Data();
      corrente.dtIncasso = rs.Fields(5).Data();
      corrente.parte = ledger::NomeConto(ambiente, rs.Fields(6).Testo(), rs.Fields(7).Testo());
    }
    corrente.imponibile += rs.Fields(8).Importo();
    corrente.iva += rs.Fields(9).Importo() + rs.Fields(10).Importo();
  }
  riga(corrente);
  rapporto.Rigo("-");
  rapporto.Riga({kTotaleSospese, {}, true}, {totale.imponibile, totale.iva});
}

std::string TestoSospese(const RegistroIvaUnico::ElencoSospese& richiesta) {
  std::string sql =
      "SELECT Articoli.Anno, Articoli.NumDoc, Articoli.NProt, Articoli.NFat, Articoli.Dt, "
      "Articoli.DtIncasso, Articoli.CFP, Articoli.Conto, Movimenti.Imponibile, Movimenti.Iva, "
      "Movimenti.IvaInd FROM ZarticoliSospese AS Articoli INNER JOIN Movimenti ON (Articoli.Anno = "
      "Movimenti.Anno) "
      "AND (Articoli.NumDoc = Movimenti.NumDoc) WHERE " +
      sql::Criterio("Articoli.Riva", "=", richiesta.riva) + " AND Movimenti.TIPORIGA=3";
  if (!richiesta.da.Nulla()) sql += " AND " + sql::Criterio("Articoli.Dt", ">=", richiesta.da);
  if (!richiesta.a.Nulla()) sql += " AND " + sql::Criterio("Articoli.Dt", "<=", richiesta.a);
  if (richiesta.soloDaPagare) sql += " AND " + sql::Criterio("Articoli.DtIncasso", "=", Data());
  if (richiesta.soloPagate) sql += " AND " + sql::Criterio("Articoli.DtIncasso", "<>", Data());
  return sql + " ORDER BY Articoli.Anno, Articoli.NProt, Articoli.NumDoc, Movimenti.Posi";
}

}  // namespace

void RegistroIvaUnico::StampaElencoChiusure(reports::FabbricaUscite& uscite) {
  Ambiente& ambiente = interno_->ambiente;
  reports::Rapporto rapporto(ambiente, uscite);
  const auto testata = [&] {
    rapporto.TestataDitta();
    rapporto.Riga({kTitoloChiusure, {}, true}, {rapporto.Ditta().ragSoc1_2, ambiente.Anno()});
    rapporto.Rigo("=");
  };
  if (!rapporto.Apri({"elenco liquidazioni iva",
                      "Elenco liquidazioni IVA anno " + std::to_string(ambiente.Anno()), "",
                      kLarghezzaChiusure},
                     testata)) {
    return;
  }
  std::string periodo;
  for (Rs rs = interno_->tessarc.Recordset(
           "SELECT r_descrizione as descrizione, r_impo as importo,mesetrimestre as "
           "periodo,n,anno, ScrittaPeriodo from chiusiva where " +
           sql::Criterio("anno", "=", ambiente.Anno()) + " order by anno, mesetrimestre, n");
       !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields("periodo").Testo();
    if (cod != periodo) {
      if (!periodo.empty()) rapporto.Vuota();
      rapporto.Riserva(3);
      rapporto.Riga({kChiusura, {}, true}, {cod, rs.Fields("ScrittaPeriodo").Testo()});
      periodo = cod;
    }
    const Importo importo = rs.Fields("importo").Importo();
    // A note has no amount.
    rapporto.Riga({kChiusura}, {Valore(), rs.Fields("descrizione").Testo(),
                                importo.Zero() ? Valore() : Valore(importo)});
  }
  rapporto.Fine();
}

void RegistroIvaUnico::StampaElencoSospese(reports::FabbricaUscite& uscite,
                                           const ElencoSospese& richiesta) {
  Ambiente& ambiente = interno_->ambiente;
  if (!ambiente.Esiste("tessarc", "RegistriIva", {{"Cod", richiesta.riva}})) {
    return interno_->Avviso("manca registro iva");
  }
  reports::Rapporto rapporto(ambiente, uscite);
  const auto testata = [&] {
    rapporto.TestataDitta();
    rapporto.Riga({kTitoloSospese, {}, true}, {richiesta.da, richiesta.a});
    if (richiesta.soloDaPagare) rapporto.Carta().Riga("solo fatture non pagate");
    if (richiesta.soloPagate) rapporto.Carta().Riga("solo fatture pagate");
    rapporto.Rigo("=");
    rapporto.Carta().Riga(kColonneSospese);
    rapporto.Rigo("-");
  };
  if (!rapporto.Apri({"elenco fatture iva differita", "Elenco fatture a esigibilità differita", "",
                      kLarghezzaSospese},
                     testata)) {
    return;
  }
  StampaSospese(ambiente, rapporto, TestoSospese(richiesta));
  rapporto.Fine();
}

}  // namespace fenalto::vat
