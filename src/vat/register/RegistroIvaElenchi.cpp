// The lists beside the register: stored settlements, deferred invoices.
#include "core/reports/Cornice.h"
#include "core/sql/Criterio.h"
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

class ElencoSospeseStampato {
 public:
  ElencoSospeseStampato(Ambiente& ambiente, reports::Stampa& stampa)
      : ambiente_(ambiente), stampa_(stampa) {}

  void Esegui(const std::string& sql) {
    Sospesa corrente;
    for (Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(sql); !rs.Eof(); rs.MoveNext()) {
      const auto anno = static_cast<int>(rs.Fields(0).Intero());
      const std::int64_t numDoc = rs.Fields(1).Intero();
      if (anno != corrente.anno || numDoc != corrente.numDoc) {
        Riga(corrente);
        corrente = {};
        corrente.anno = anno;
        corrente.numDoc = numDoc;
        corrente.nProt = rs.Fields(2).Intero();
        corrente.nFat = rs.Fields(3).Testo();
        corrente.dt = rs.Fields(4).Data();
        corrente.dtIncasso = rs.Fields(5).Data();
        corrente.parte =
            NzStr(ambiente_.Cerca("tessarc", "ContiClientiFornitori",
                                  {{"CFP", rs.Fields(6)}, {"Cod", rs.Fields(7)}}, "Descrizione"));
      }
      corrente.imponibile += rs.Fields(8).Importo();
      corrente.iva += rs.Fields(9).Importo() + rs.Fields(10).Importo();
    }
    Riga(corrente);
    stampa_.Riga(reports::Ripeti("-", kLarghezzaSospese));
    stampa_.Campo(1, imponibile_);
    stampa_.Campo(2, iva_);
    stampa_.Riga(kTotaleSospese, {}, true);
  }

 private:
  void Riga(const Sospesa& sospesa) {
    if (sospesa.anno == 0) return;
    imponibile_ += sospesa.imponibile;
    iva_ += sospesa.iva;
    stampa_.Campo(1, sospesa.parte);
    stampa_.Campo(2, sospesa.anno);
    stampa_.Campo(3, sospesa.dt);
    stampa_.Campo(4, sospesa.numDoc);
    stampa_.Campo(5, sospesa.nProt);
    stampa_.Campo(6, sospesa.nFat);
    stampa_.Campo(7, sospesa.imponibile);
    stampa_.Campo(8, sospesa.iva);
    stampa_.Campo(9, sospesa.dtIncasso);
    stampa_.Riga(kSospesa, AllaRegistrazione(sospesa.anno, sospesa.numDoc));
  }

  Ambiente& ambiente_;
  reports::Stampa& stampa_;
  Importo imponibile_;
  Importo iva_;
};

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
  reports::Stampa stampa(ambiente, uscite);
  const reports::Cornice cornice{"elenco liquidazioni iva",
                                 "Elenco liquidazioni IVA anno " + std::to_string(ambiente.Anno()),
                                 "", kLarghezzaChiusure};
  if (reports::ApriStampa(stampa, ambiente, cornice) == reports::ModoStampa::Fermata) return;
  const reports::DatiDitta ditta = reports::LeggiDatiDitta(ambiente);
  stampa.Intestazione([&] {
    reports::TestataTesto(stampa, ambiente, ditta, stampa.NumeroPagina(), kLarghezzaChiusure);
    stampa.Campo(1, ditta.ragSoc1_2);
    stampa.Campo(2, ambiente.Anno());
    stampa.Riga(kTitoloChiusure, {}, true);
    stampa.Riga(reports::Ripeti("=", kLarghezzaChiusure));
  });
  std::string periodo;
  for (Rs rs = interno_->tessarc.Recordset(
           "SELECT r_descrizione as descrizione, r_impo as importo,mesetrimestre as "
           "periodo,n,anno, ScrittaPeriodo from chiusiva where " +
           sql::Criterio("anno", "=", ambiente.Anno()) + " order by anno, mesetrimestre, n");
       !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields("periodo").Testo();
    if (cod != periodo) {
      if (!periodo.empty()) stampa.Riga("");
      stampa.Riserva(3);
      stampa.Campo(1, cod);
      stampa.Campo(2, rs.Fields("ScrittaPeriodo").Testo());
      stampa.Riga(kChiusura, {}, true);
      periodo = cod;
    }
    stampa.Campo(2, rs.Fields("descrizione").Testo());
    const Importo importo = rs.Fields("importo").Importo();
    // A note has no amount.
    if (!importo.Zero()) stampa.Campo(3, importo);
    stampa.Riga(kChiusura);
  }
  stampa.Fine();
}

void RegistroIvaUnico::StampaElencoSospese(reports::FabbricaUscite& uscite,
                                           const ElencoSospese& richiesta) {
  Ambiente& ambiente = interno_->ambiente;
  if (!ambiente.Esiste("tessarc", "RegistriIva", {{"Cod", richiesta.riva}})) {
    return interno_->Avviso("manca registro iva");
  }
  reports::Stampa stampa(ambiente, uscite);
  const reports::Cornice cornice{"elenco fatture iva differita",
                                 "Elenco fatture a esigibilità differita", "", kLarghezzaSospese};
  if (reports::ApriStampa(stampa, ambiente, cornice) == reports::ModoStampa::Fermata) return;
  const reports::DatiDitta ditta = reports::LeggiDatiDitta(ambiente);
  stampa.Intestazione([&] {
    reports::TestataTesto(stampa, ambiente, ditta, stampa.NumeroPagina(), kLarghezzaSospese);
    stampa.Campo(1, richiesta.da);
    stampa.Campo(2, richiesta.a);
    stampa.Riga(kTitoloSospese, {}, true);
    if (richiesta.soloDaPagare) stampa.Riga("solo fatture non pagate");
    if (richiesta.soloPagate) stampa.Riga("solo fatture pagate");
    stampa.Riga(reports::Ripeti("=", kLarghezzaSospese));
    stampa.Riga(kColonneSospese);
    stampa.Riga(reports::Ripeti("-", kLarghezzaSospese));
  });
  ElencoSospeseStampato(ambiente, stampa).Esegui(TestoSospese(richiesta));
  stampa.Fine();
}

}  // namespace fenalto::vat
