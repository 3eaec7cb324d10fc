#include "ledger/closing/ControlliChiusura.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "ledger/closing/SaldiEsercizio.h"
#include "ledger/closing/VociDaMuovere.h"

namespace fenalto::ledger {

namespace {

using Rilievi = std::vector<RilievoChiusura>;

/// The last months of the periods of a settlement.
constexpr int kMesiAnno = 12;
constexpr int kMesiTrimestre = 3;

/// An account of the chart, as the checks look at it.
struct ContoPiano {
  std::string cod;
  std::string descrizione;
  std::string patrEcon;
  std::string mastro;  ///< letter of its master; empty without one
  std::string nomeMastro;
};

/// Accounts by folded code, each with the letter of the master that its code begins with.
std::map<std::string, ContoPiano> LeggiPiano(Archivio& tessarc) {
  std::map<std::string, std::pair<std::string, std::string>> mastri;
  for (Rs rs = tessarc.Recordset("select Cod, PatrEcon, Descrizione from Mastri"); !rs.Eof();
       rs.MoveNext()) {
    mastri[SenzaMaiuscole(rs.Fields(std::size_t{0}).Testo())] = {rs.Fields(1).Testo(),
                                                                 rs.Fields(2).Testo()};
  }
  std::map<std::string, ContoPiano> piano;
  for (Rs rs = tessarc.Recordset("select Cod, Descrizione, PatrEcon from Conti"); !rs.Eof();
       rs.MoveNext()) {
    ContoPiano conto{rs.Fields(std::size_t{0}).Testo(), rs.Fields(1).Testo(), rs.Fields(2).Testo(),
                     "", ""};
    const std::string piegato = SenzaMaiuscole(conto.cod);
    for (std::size_t i = piegato.find('.'); i != std::string::npos; i = piegato.find('.', i + 1)) {
      const auto mastro = mastri.find(piegato.substr(0, i));
      if (mastro == mastri.end()) continue;
      conto.mastro = mastro->second.first;
      conto.nomeMastro = mastro->second.second;
      break;
    }
    piano.emplace(piegato, std::move(conto));
  }
  return piano;
}

std::string Saldo(Importo saldo) {
  return "saldo " + ScriviImporto(saldo, 2);
}

void Sbilanciate(Ambiente& ambiente, Rilievi& rilievi) {
  const int anno = ambiente.Anno();
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "select NumDoc, Sum(ImpoDare), Sum(ImpoAvere) from Movimenti where " +
      sql::Criterio("Anno", "=", anno) +
      " group by NumDoc having Sum(ImpoDare)<>Sum(ImpoAvere) order by NumDoc");
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::int64_t numero = rs.Fields(std::size_t{0}).Intero();
    const Importo sbilancio = rs.Fields(1).Importo() - rs.Fields(2).Importo();
    rilievi.push_back({"registrazione sbilanciata", "articolo " + std::to_string(numero),
                       "sbilancio " + ScriviImporto(sbilancio, 2), true,
                       AllaRegistrazione(anno, numero)});
  }
}

void SenzaTestata(Ambiente& ambiente, Rilievi& rilievi) {
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "select distinct Movimenti.NumDoc from Movimenti left join Articoli on (Movimenti.Anno = "
      "Articoli.Anno) and (Movimenti.NumDoc = Articoli.NumDoc) where " +
      sql::Criterio("Movimenti.Anno", "=", ambiente.Anno()) + " and Articoli.Dt is null");
  for (; !rs.Eof(); rs.MoveNext()) {
    rilievi.push_back({"righe senza registrazione",
                       "articolo " + rs.Fields(std::size_t{0}).Testo(),
                       "le righe ci sono, la registrazione no: non entrano nei saldi",
                       true,
                       {}});
  }
}

void ContiSenzaLettera(const std::map<std::string, ContoPiano>& piano, const SaldiEsercizio& saldi,
                       Rilievi& rilievi) {
  for (const auto& [piegato, conto] : piano) {
    const bool lettera =
        UgualeTesto(conto.patrEcon, kPatrimoniale) || UgualeTesto(conto.patrEcon, kEconomico);
    std::string difetto;
    if (!lettera) {
      difetto = "non è né patrimoniale né economico: nessuna operazione lo muove";
    } else if (conto.mastro.empty()) {
      difetto = "non ha il mastro: il trasporto dei saldi lo lascia indietro";
    } else if (!UgualeTesto(conto.mastro, conto.patrEcon)) {
      difetto = "è «" + conto.patrEcon + "», il suo mastro «" + conto.mastro + "»";
    }
    if (difetto.empty()) continue;
    const bool mosso = !saldi.Di("P", conto.cod).Zero();
    rilievi.push_back({"patrimoniale/economico", conto.cod + " " + conto.descrizione, difetto,
                       mosso, AllArchivio("CONTI", conto.cod)});
  }
}

/// Parties and codes that moved in the year, and stand nowhere that a closing would find them.
void CodiciSenzaPosto(Archivio& tessarc, const std::map<std::string, ContoPiano>& piano,
                      const SaldiEsercizio& saldi, Rilievi& rilievi) {
  std::map<SaldiEsercizio::Chiave, std::string> riepiloghi;
  for (const auto& [tabella, cfp] : {std::pair("Clienti", "C"), std::pair("Fornitori", "F")}) {
    for (Rs rs = tessarc.Recordset(std::string("select Cod, Conto from ") + tabella); !rs.Eof();
         rs.MoveNext()) {
      riepiloghi[SaldiEsercizio::ChiaveDi(cfp, rs.Fields(std::size_t{0}).Testo())] =
          rs.Fields(1).Testo();
    }
  }
  for (const auto& [chiave, voce] : saldi.Voci()) {
    const bool classeParte = chiave.first == "c" || chiave.first == "f";
    const auto parte = classeParte ? riepiloghi.find(chiave) : riepiloghi.end();
    if (parte == riepiloghi.end()) {
      if (piano.contains(chiave.second)) continue;
      rilievi.push_back({"codice sconosciuto", voce.cfp + " " + voce.conto, Saldo(voce.saldo),
                         !voce.saldo.Zero(), AlConto(voce.cfp, voce.conto)});
    } else if (!voce.saldo.Zero() && !piano.contains(SenzaMaiuscole(parte->second))) {
      rilievi.push_back(
          {chiave.first == "c" ? "cliente senza conto" : "fornitore senza conto", voce.conto,
           parte->second.empty()
               ? "manca il conto riepilogativo, " + Saldo(voce.saldo)
               : "il conto " + parte->second + " non esiste, " + Saldo(voce.saldo),
           true, AllArchivio(chiave.first == "c" ? "CLIENTI" : "FORNITORI", voce.conto)});
    }
  }
}

void Transitori(Ambiente& ambiente, const std::map<std::string, ContoPiano>& piano,
                const SaldiEsercizio& saldi, Rilievi& rilievi) {
  const std::string apertura = SenzaMaiuscole(ambiente.Config("ContropartitaApertura"));
  for (const auto& [piegato, conto] : piano) {
    const Importo saldo = saldi.Di("P", conto.cod);
    if (saldo.Zero()) continue;
    const auto dice = [&](std::string_view parola) {
      return InRicerca(conto.descrizione, parola) || InRicerca(conto.nomeMastro, parola);
    };
    if (piegato == apertura) {
      rilievi.push_back({"conto di apertura", conto.cod + " " + conto.descrizione, Saldo(saldo),
                         false, AlConto("P", conto.cod)});
    } else if (dice("transitor") || dice("sospes")) {
      rilievi.push_back({"conto transitorio", conto.cod + " " + conto.descrizione, Saldo(saldo),
                         false, AlConto("P", conto.cod)});
    }
  }
}

/// Periods with VAT registrations that weren't settled.
void PeriodiIva(Ambiente& ambiente, Rilievi& rilievi) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const int anno = ambiente.Anno();
  const bool trimestri =
      Nz(ambiente.Cerca("tessarc", "Anni", {{"Anno", anno}}, "IvaTrimestrale")).Booleano();
  const int mesi = trimestri ? kMesiTrimestre : 1;
  for (int n = 1; n <= kMesiAnno / mesi; ++n) {
    const std::string cifre = std::to_string(n);
    const std::string periodo = trimestri ? "T" + cifre : n < 10 ? "0" + cifre : cifre;
    const Data da = Data::DaGma(1, (n - 1) * mesi + 1, anno).value();
    const Data a = da.PiuMesi(mesi - 1).FineMese();
    const bool usato =
        !tessarc
             .Singolo("select top 1 1 from Articoli where " + sql::Criterio("Anno", "=", anno) +
                      " and Riva<>'' and " + sql::Criterio("Dt", ">=", da) + " and " +
                      sql::Criterio("Dt", "<=", a))
             .Nullo();
    if (!usato ||
        ambiente.Esiste("tessarc", "ChiusureIva", {{"Anno", anno}, {"MESETRIMESTRE", periodo}})) {
      continue;
    }
    rilievi.push_back({"IVA non liquidata",
                       "periodo " + periodo,
                       "manca la stampa definitiva del registro IVA",
                       false,
                       {.funzione = "STRegistroIvaUnico"}});
  }
}

/// Receipts presented to a bank that fell due within the year and aren't closed.
void RicevuteInBanca(Ambiente& ambiente, Rilievi& rilievi) {
  const Data fine = Data::DaGma(31, 12, ambiente.Anno()).value();
  const std::string colonna = ambiente.Euro() ? "ImportoE" : "Importo";
  Rs rs = ambiente.ArchivioDi("scadenzario")
              .Recordset("select Numero, Conto, Dt, " + colonna +
                         " from Scadenze where CFP='C' and Stato='20' and " +
                         sql::Criterio("Dt", "<=", fine) + " order by Dt, Numero");
  for (; !rs.Eof(); rs.MoveNext()) {
    rilievi.push_back({"ricevuta in banca non chiusa", "cliente " + rs.Fields("Conto").Testo(),
                       "scadenza del " + rs.Fields("Dt").Data().Testo() + ", " +
                           ScriviImporto(rs.Fields(3).Importo(), 2),
                       false, AlNumero("Scadenze", rs.Fields("Numero").Intero())});
  }
}

}  // namespace

std::vector<RilievoChiusura> ControllaPrimaDiChiudere(Ambiente& ambiente) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::map<std::string, ContoPiano> piano = LeggiPiano(tessarc);
  const SaldiEsercizio saldi(tessarc, ambiente.Anno());
  Rilievi rilievi;
  Sbilanciate(ambiente, rilievi);
  SenzaTestata(ambiente, rilievi);
  ContiSenzaLettera(piano, saldi, rilievi);
  CodiciSenzaPosto(tessarc, piano, saldi, rilievi);
  Transitori(ambiente, piano, saldi, rilievi);
  PeriodiIva(ambiente, rilievi);
  RicevuteInBanca(ambiente, rilievi);
  std::ranges::stable_partition(rilievi, &RilievoChiusura::grave);
  return rilievi;
}

}  // namespace fenalto::ledger
