#include "ledger/statements/BilancioVerifica.h"

#include <map>
#include <optional>
#include <utility>

#include "core/archives/CodiciNoti.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/statements/BilancioInterno.h"

namespace fenalto::ledger {

namespace {

std::optional<Rifiuto> ControllaDate(Data da, Data a, bool confronto, const std::string& periodo) {
  const std::string quale = confronto ? " del periodo " + periodo : "";
  const std::string fine = periodo == "B" ? "AP" : "";
  if (a.Nulla()) {
    return Rifiuto{"manca la data finale" + quale + ": indicare il periodo", "AaDt" + fine};
  }
  if (da > a) {
    return Rifiuto{"la data iniziale" + quale + " " + da.Testo() +
                       " è successiva a quella finale " + a.Testo() + ": correggere il periodo",
                   "DaDt" + fine};
  }
  return std::nullopt;
}

Data UnAnnoPrima(Data data) {
  return data.Nulla() ? data : data.PiuMesi(-12);
}

}  // namespace

SceltaBilancio BilancioVerifica::Proposta() {
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  SceltaBilancio scelta;
  scelta.anno = ambiente_.Anno();
  const std::vector<Coppia> anno = {{"Anno", scelta.anno}};
  scelta.daDt = ambiente_.Min("Dt", "Articoli", anno, archivio).Data();
  scelta.aaDt = ambiente_.Max("Dt", "Articoli", anno, archivio).Data();
  if (scelta.aaDt.Nulla()) {
    scelta.daDt = Data::DaGma(1, 1, scelta.anno).value();
    scelta.aaDt = Data::DaGma(31, 12, scelta.anno).value();
  }
  scelta.daMastro = NzStr(archivio.Singolo("SELECT Min(Cod) FROM Mastri"));
  scelta.aaMastro = NzStr(archivio.Singolo("SELECT Max(Cod) FROM Mastri"));
  return PeriodoPrecedente(scelta);
}

SceltaBilancio BilancioVerifica::PeriodoPrecedente(SceltaBilancio scelta) {
  scelta.annoPrec = scelta.anno - 1;
  scelta.daDtAP = UnAnnoPrima(scelta.daDt);
  scelta.aaDtAP = UnAnnoPrima(scelta.aaDt);
  return scelta;
}

std::optional<Rifiuto> BilancioVerifica::Controlla(const SceltaBilancio& scelta, bool confronto) {
  auto rifiuto = ControllaDate(scelta.daDt, scelta.aaDt, confronto, "A");
  if (!rifiuto && confronto) rifiuto = ControllaDate(scelta.daDtAP, scelta.aaDtAP, confronto, "B");
  if (rifiuto) return rifiuto;
  if (!scelta.aaMastro.empty() && ConfrontaTesto(scelta.daMastro, scelta.aaMastro) > 0) {
    return Rifiuto{"il mastro iniziale " + scelta.daMastro + " segue quello finale " +
                       scelta.aaMastro + ": scambiarli",
                   "DaMastro"};
  }
  return archives::CodiceIgnoto(ambiente_, {"EscludoCausale", "Causale da escludere", "causali"},
                                scelta.escludoCausale);
}

bool BilancioVerifica::Pronto(const SceltaBilancio& scelta, bool confronto) {
  std::optional<Rifiuto> rifiuto = Controlla(scelta, confronto);
  if (!rifiuto) {
    std::string sql =
        "SELECT Count(*) FROM MASTRI WHERE " + sql::Criterio("COD", ">=", scelta.daMastro);
    if (!scelta.aaMastro.empty()) sql += " AND " + sql::Criterio("COD", "<=", scelta.aaMastro);
    if (ambiente_.ArchivioDi("tessarc").Singolo(sql).Intero() == 0) {
      rifiuto = {"non c'è nessun mastro da " + scelta.daMastro + " a " + scelta.aaMastro,
                 "DaMastro"};
    }
  }
  return !Rifiuta(ambiente_, rifiuto);
}

namespace {

/// On which side the accounts of the report stand, [0] for period A and [1] for B: an account keeps
/// its side in every month, so that the months add up to the report.
using Lati = std::map<std::pair<std::string, std::string>, std::array<bool, 2>>;

/// Nothing when the user stopped the reading.
std::optional<Lati> LatiDeiConti(Ambiente& ambiente, SceltaBilancio scelta) {
  scelta.stampoCliFor = true;
  Lati lati;
  const auto piega = [](const std::string& cfp, const std::string& cod) {
    return std::pair(SenzaMaiuscole(cfp), SenzaMaiuscole(cod));
  };
  VisitaConti visita(ambiente, RichiestaDi(scelta, "E", true));
  const bool letti = visita.Visita("Mesi del confronto", [&](const MastroVisitato& mastro) {
    for (const ContoVisitato& conto : mastro.conti) {
      const std::array<bool, 2> costo = {!conto.saldi[0].Finale().Negativo(),
                                         !conto.saldi[1].Finale().Negativo()};
      for (const std::string& classe : {conto.cfp, std::string(kClassePiano)}) {
        lati[piega(classe, conto.cod)] = costo;
      }
      for (const ParteVisitata& parte : conto.parti) lati[piega(parte.cfp, parte.cod)] = costo;
    }
  });
  if (!letti) return std::nullopt;
  return lati;
}

std::string TestoGiorni(const PeriodoVisita& periodo, const std::string& causaleEsclusa) {
  std::string testo =
      "SELECT Movimenti.CFP, Movimenti.Conto, Articoli.Dt, Sum(Movimenti.ImpoDare) AS Dare, "
      "Sum(Movimenti.ImpoAvere) AS Avere FROM Movimenti LEFT JOIN Articoli ON (Movimenti.Anno = "
      "Articoli.Anno) AND (Movimenti.NumDoc = Articoli.NumDoc) WHERE " +
      sql::Criterio("Articoli.Dt", ">=", periodo.daData) + " AND " +
      sql::Criterio("Articoli.Dt", "<=", periodo.aData);
  if (periodo.anno != 0) testo += " AND " + sql::Criterio("Articoli.Anno", "=", periodo.anno);
  // Openings count whatever is excluded, as in the balance.
  if (!causaleEsclusa.empty()) {
    testo += " AND (" + sql::Criterio("Movimenti.Causale", "<>", causaleEsclusa) + " OR " +
             sql::Criterio("Movimenti.Causale", "=", kCausaleApertura) + " OR " +
             sql::Criterio("Movimenti.Causale", "=", kCausaleAperturaProvvisoria) + ")";
  }
  return testo + " GROUP BY Movimenti.CFP, Movimenti.Conto, Articoli.Dt";
}

}  // namespace

std::vector<MeseConfronto> BilancioVerifica::MesiConfronto(const SceltaBilancio& scelta) {
  std::vector<MeseConfronto> mesi(12);
  for (std::size_t i = 0; i < mesi.size(); ++i) mesi[i].mese = static_cast<int>(i) + 1;
  const RichiestaVisita richiesta = RichiestaDi(scelta, "E", true);
  const auto lati = LatiDeiConti(ambiente_, scelta);
  if (!lati) return {};
  for (std::size_t p = 0; p < richiesta.periodi.size(); ++p) {
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
        TestoGiorni(richiesta.periodi[p], scelta.escludoCausale));
    for (; !rs.Eof(); rs.MoveNext()) {
      const auto lato =
          lati->find({SenzaMaiuscole(rs.Fields(0).Testo()), SenzaMaiuscole(rs.Fields(1).Testo())});
      if (lato == lati->end()) continue;
      MeseConfronto& mese = mesi[static_cast<std::size_t>(rs.Fields(2).Data().Mese()) - 1];
      const Importo saldo = rs.Fields(3).Importo() - rs.Fields(4).Importo();
      if (lato->second[p]) {
        (p == 0 ? mese.costiA : mese.costiB) += saldo;
      } else {
        (p == 0 ? mese.ricaviA : mese.ricaviB) -= saldo;
      }
    }
  }
  return mesi;
}

}  // namespace fenalto::ledger
