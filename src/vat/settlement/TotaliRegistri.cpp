#include "vat/settlement/TotaliRegistri.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"
#include "vat/settlement/TotaliInterno.h"

namespace fenalto::vat {
namespace {

constexpr const char* kRighe =
    "SELECT CodIva, Ep, Imponibile, Iva, IvaInd FROM MovimentiIva WHERE ";

/// Sums of deferred invoices collected in the period: they may have been registered in any year.
std::vector<GruppoIva> LeggiIncassati(Ambiente& ambiente, const std::string& tipo,
                                      const PeriodoIva& periodo) {
  std::vector<GruppoIva> gruppi;
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT Movimenti.CodIva, Sum(Movimenti.Imponibile) AS tImponibile, Sum(Movimenti.Iva) AS "
      "tIva, Sum(Movimenti.IvaInd) AS tIvaind FROM ZarticoliSospese AS Articoli INNER JOIN "
      "Movimenti ON (Articoli.Anno "
      "= Movimenti.Anno) AND (Articoli.NumDoc = Movimenti.NumDoc) WHERE " +
      CondizioneIncassati(ambiente, tipo, periodo) +
      " AND Movimenti.TIPORIGA=3 GROUP BY Movimenti.CodIva ORDER BY Movimenti.CodIva");
  for (; !rs.Eof(); rs.MoveNext()) {
    GruppoIva gruppo;
    gruppo.codIva = rs.Fields(0).Testo();
    gruppo.imponibile = rs.Fields(1).Importo();
    gruppo.iva = rs.Fields(2).Importo();
    gruppo.ivaInd = rs.Fields(3).Importo();
    gruppi.push_back(gruppo);
  }
  return gruppi;
}

void Somma(GruppoIva& gruppo, const GruppoIva& altro) {
  gruppo.imponibile += altro.imponibile;
  gruppo.iva += altro.iva;
  gruppo.ivaInd += altro.ivaInd;
  gruppo.lordo += altro.lordo;
}

/// In order of code, those whose codes differ in case alone made one.
std::vector<GruppoIva> Raccogli(std::vector<GruppoIva> sparsi) {
  std::ranges::sort(sparsi, [](const GruppoIva& a, const GruppoIva& b) {
    const int confronto = ConfrontaTesto(a.codIva, b.codIva);
    if (confronto != 0) return confronto < 0;
    return std::tie(a.ep, a.codIva) < std::tie(b.ep, b.codIva);
  });
  std::vector<GruppoIva> gruppi;
  for (GruppoIva& gruppo : sparsi) {
    if (!gruppi.empty() && gruppi.back().ep == gruppo.ep &&
        UgualeTesto(gruppi.back().codIva, gruppo.codIva)) {
      Somma(gruppi.back(), gruppo);
    } else {
      gruppi.push_back(std::move(gruppo));
    }
  }
  return gruppi;
}

/// A group as a total; gross receipts are split into taxable and VAT.
TotaleCodice InTotale(const GruppoIva& gruppo, Importo perc, bool lordi, Importo& scorporata) {
  TotaleCodice totale;
  totale.codIva = gruppo.codIva;
  totale.imponibile = gruppo.imponibile;
  totale.iva = gruppo.iva;
  totale.ivaInd = gruppo.ivaInd;
  if (lordi && !gruppo.lordo.Zero()) {
    const Importo iva = gruppo.lordo - ScorporaImponibile(gruppo.lordo, perc);
    totale.imponibile -= iva;
    totale.iva += iva;
    scorporata += iva;
  }
  return totale;
}

void Somma(std::vector<TotaleCodice>& totali, const TotaleCodice& altro) {
  if (totali.empty() || !UgualeTesto(totali.back().codIva, altro.codIva)) {
    totali.push_back(altro);
    return;
  }
  totali.back().imponibile += altro.imponibile;
  totali.back().iva += altro.iva;
  totali.back().ivaInd += altro.ivaInd;
}

Importo SommaIva(const std::vector<TotaleCodice>& totali) {
  Importo somma;
  for (const TotaleCodice& totale : totali) somma += totale.iva;
  return somma;
}

/// Computes the registers of a run, one at a time.
class CalcoloTotali {
 public:
  CalcoloTotali(Ambiente& ambiente, const PeriodoIva& periodo, const Ventilazione& ventilazione)
      : ambiente_(ambiente), periodo_(periodo), ventilazione_(ventilazione) {}

  Esito<TotaleRegistro> Registro(const IntervalloRegistro& intervallo) {
    TotaleRegistro totale;
    totale.intervallo = intervallo;
    totale.conto =
        NzStr(ambiente_.Cerca("tessarc", "RegistriIva", {{"Cod", intervallo.riva}}, "Conto"));
    totale.segno = static_cast<int>(
        Nz(ambiente_.Cerca("tessarc", "TIPIregistriiva", {{"Cod", intervallo.tipo}}, "PIUMENO"))
            .Intero());
    const std::vector<GruppoIva> gruppi = Gruppi(intervallo);
    if (const std::string errore = ErroreVentilazione(intervallo.tipo, gruppi); !errore.empty()) {
      return Errore{"Registro " + intervallo.riva + " " + intervallo.descrizione + "\n" + errore};
    }
    const bool ventilato = UgualeTesto(intervallo.tipo, "07");
    for (const GruppoIva& gruppo : gruppi) {
      if (ventilato) {
        totale.corrispettiviDaVentilare += gruppo.imponibile + gruppo.iva + gruppo.ivaInd;
      } else {
        Aggiungi(totale, gruppo);
      }
    }
    if (ventilato && !totale.corrispettiviDaVentilare.Zero()) {
      auto acquisti = LeggiAcquisti(ambiente_, periodo_.anno, ventilazione_);
      if (!acquisti) return acquisti.Errore();
      Ventila(totale, std::move(acquisti).Valore());
    }
    for (TotaleCodice& codice : totale.codici) CompletaCodice(ambiente_, codice);
    for (TotaleCodice& codice : totale.differiti) CompletaCodice(ambiente_, codice);
    return totale;
  }

 private:
  std::vector<GruppoIva> Gruppi(const IntervalloRegistro& intervallo) {
    if (intervallo.Vuoto()) return {};
    if (!intervallo.daIncassi) {
      return LeggiGruppi(ambiente_, CondizioneIntervallo(intervallo, periodo_.anno));
    }
    // Of several registers of that type the first takes them: an invoice counts once.
    const bool giaPresi = std::ranges::any_of(
        incassati_, [&](const std::string& tipo) { return UgualeTesto(tipo, intervallo.tipo); });
    if (giaPresi) return {};
    incassati_.push_back(intervallo.tipo);
    return LeggiIncassati(ambiente_, intervallo.tipo, periodo_);
  }

  void Aggiungi(TotaleRegistro& totale, const GruppoIva& gruppo) {
    const Importo perc =
        Nz(ambiente_.Cerca("tessarc", "CodiciIva", {{"Cod", gruppo.codIva}}, "Perc")).Importo();
    const bool lordi = UgualeTesto(totale.intervallo.tipo, "02");
    const TotaleCodice codice = InTotale(gruppo, perc, lordi, totale.ivaScorporata);
    Somma(totale.codici, codice);
    if (gruppo.ep) Somma(totale.differiti, codice);
  }

  Ambiente& ambiente_;
  const PeriodoIva& periodo_;
  const Ventilazione& ventilazione_;
  std::vector<std::string> incassati_;
};

}  // namespace

Importo TotaleRegistro::Iva() const {
  Importo iva = SommaIva(codici);
  if (!UgualeTesto(intervallo.tipo, "04")) return iva;
  for (const TotaleCodice& codice : codici) iva += codice.ivaInd;
  return iva;
}

Importo TotaleRegistro::IvaDifferita() const {
  return SommaIva(differiti);
}

std::string CondizioneIntervallo(const IntervalloRegistro& intervallo, int anno,
                                 const std::string& prefisso) {
  return sql::Criterio(prefisso + "Anno", "=", anno) + " AND " +
         sql::Criterio(prefisso + "Riva", "=", intervallo.riva) + " AND " +
         sql::Criterio(prefisso + "NProt", ">=", intervallo.daNProt) + " AND " +
         sql::Criterio(prefisso + "NProt", "<=", intervallo.aaNProt);
}

std::string CondizioneIncassati(Ambiente& ambiente, const std::string& tipo,
                                const PeriodoIva& periodo) {
  // Sales may also be kept apart, on a register of type 06.
  const bool acquisti = UgualeTesto(tipo, "08A");
  std::string registri;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
           acquisti ? "SELECT Cod FROM RegistriIva WHERE Tipo='03'"
                    : "SELECT Cod FROM RegistriIva WHERE Tipo='01' OR Tipo='06'");
       !rs.Eof(); rs.MoveNext()) {
    registri +=
        (registri.empty() ? "" : " OR ") + sql::Criterio("Articoli.Riva", "=", rs.Fields(0));
  }
  if (registri.empty()) registri = "Articoli.Riva=''";
  return "(" + registri + ") AND " + sql::Criterio("Articoli.DtIncasso", ">=", periodo.Primo()) +
         " AND " + sql::Criterio("Articoli.DtIncasso", "<=", periodo.UltimoGiorno());
}

std::vector<GruppoIva> LeggiGruppi(Ambiente& ambiente, const std::string& condizione) {
  // Grouped here, by the code as it is written: the engine would sort all rows, comparing text
  // without case at each step.
  std::unordered_map<std::string, std::array<std::optional<GruppoIva>, 2>> perCodice;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(kRighe + condizione); !rs.Eof();
       rs.MoveNext()) {
    const bool ep = rs.Fields(1).Booleano();
    const Valore codIva = rs.Fields(0);
    auto& gruppo = perCodice[codIva.RifTesto()][ep ? 1 : 0];
    if (!gruppo) gruppo.emplace();
    const Importo imponibile = rs.Fields(2).Importo();
    const Importo iva = rs.Fields(3).Importo();
    const Importo ivaInd = rs.Fields(4).Importo();
    Somma(*gruppo,
          {{}, ep, imponibile, iva, ivaInd, iva.Zero() && ivaInd.Zero() ? imponibile : Importo()});
  }
  std::vector<GruppoIva> gruppi;
  for (auto& [codice, due] : perCodice) {
    for (std::size_t ep = 0; ep < due.size(); ++ep) {
      if (!due[ep]) continue;
      due[ep]->codIva = codice;
      due[ep]->ep = ep == 1;
      gruppi.push_back(*due[ep]);
    }
  }
  return Raccogli(std::move(gruppi));
}

void CompletaCodice(Ambiente& ambiente, TotaleCodice& totale) {
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT Descrizione, Perc FROM CodiciIva WHERE " + sql::Criterio("Cod", "=", totale.codIva));
  if (rs.Eof()) return;
  totale.descrizione = rs.Fields(0).Testo();
  totale.perc = rs.Fields(1).Importo();
}

Esito<std::vector<TotaleRegistro>> CalcolaTotaliRegistri(
    Ambiente& ambiente, const PeriodoIva& periodo,
    const std::vector<IntervalloRegistro>& intervalli, const Ventilazione& ventilazione) {
  std::vector<const IntervalloRegistro*> inOrdine;
  for (const IntervalloRegistro& intervallo : intervalli) inOrdine.push_back(&intervallo);
  std::ranges::stable_sort(
      inOrdine, [](const auto* a, const auto* b) { return ConfrontaTesto(a->riva, b->riva) < 0; });
  CalcoloTotali calcolo(ambiente, periodo, ventilazione);
  std::vector<TotaleRegistro> totali;
  for (const IntervalloRegistro* intervallo : inOrdine) {
    auto totale = calcolo.Registro(*intervallo);
    if (!totale) return totale.Errore();
    totali.push_back(std::move(totale).Valore());
  }
  return totali;
}

}  // namespace fenalto::vat
