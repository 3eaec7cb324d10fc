// The page of checks: what stops a print, what it asks about, and what is worth a look.
#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "vat/register/RegistroIvaInterno.h"
#include "vat/settlement/TotaliInterno.h"

namespace fenalto::vat {
namespace {

/// Problems of a kind told one by one; the rest is a number.
constexpr std::size_t kMassimo = 200;
/// Questions gathered in one.
constexpr std::size_t kInDomanda = 10;

std::string Nome(const IntervalloRegistro& intervallo) {
  return "Registro " + intervallo.riva;
}

}  // namespace

/// Each protocol of the range is there and dated in the period: told by three numbers.
bool RegistroIvaUnico::Interno::SequenzaIntera(const IntervalloRegistro& intervallo) {
  Rs rs = tessarc.Recordset("SELECT Count(*), Min(Dt), Max(Dt) FROM ZarticoliProtocollati WHERE " +
                            CondizioneIntervallo(intervallo, periodo.anno));
  return rs.Fields(0).Intero() == intervallo.aaNProt - intervallo.daNProt + 1 &&
         periodo.Contiene(rs.Fields(1).Data()) && periodo.Contiene(rs.Fields(2).Data());
}

void RegistroIvaUnico::Interno::ControllaSequenza(const IntervalloRegistro& intervallo, bool tutto,
                                                  std::vector<ProblemaRegistro>& problemi) {
  std::int64_t atteso = intervallo.daNProt;
  std::size_t detti = 0;
  Data prima;
  const auto aggiungi = [&](std::int64_t nProt, std::int64_t numDoc, bool ferma,
                            std::string testo) {
    if (++detti <= kMassimo) {
      problemi.push_back({intervallo.riva, nProt, numDoc, ferma, std::move(testo)});
    }
  };
  const auto mancanti = [&](std::int64_t fino) {
    for (; atteso < fino; ++atteso) {
      if (detti >= kMassimo) break;
      aggiungi(
          atteso, 0, true,
          Nome(intervallo) + " : manca articolo relativo al n.protocollo" + std::to_string(atteso));
    }
    atteso = fino;
  };
  Rs rs = tessarc.Recordset("SELECT NProt, NumDoc, Dt FROM ZarticoliProtocollati WHERE " +
                            CondizioneIntervallo(intervallo, periodo.anno) + " ORDER BY NProt");
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::int64_t nProt = rs.Fields(0).Intero();
    const Data dt = rs.Fields(2).Data();
    mancanti(nProt);
    atteso = nProt + 1;
    if (!periodo.Contiene(dt)) {
      aggiungi(nProt, rs.Fields(1).Intero(), false,
               Nome(intervallo) + " : il numero protocollo " + std::to_string(nProt) +
                   " ha data registrazione " + dt.Testo() + " diversa da " + periodo.testo);
    } else if (tutto && dt < prima) {
      aggiungi(nProt, rs.Fields(1).Intero(), false,
               Nome(intervallo) + " : il numero protocollo " + std::to_string(nProt) + " del " +
                   dt.Testo() + " segue un protocollo del " + prima.Testo());
    }
    prima = std::max(prima, dt);
  }
  mancanti(intervallo.aaNProt + 1);
}

void RegistroIvaUnico::Interno::ControllaRighe(const IntervalloRegistro& intervallo, bool tutto,
                                               std::vector<ProblemaRegistro>& problemi) {
  const std::string righe = "SELECT NProt, NumDoc FROM ZarticoliProtocollati AS Articoli WHERE " +
                            CondizioneIntervallo(intervallo, periodo.anno, "Articoli.") + " AND ";
  const std::string propria =
      "(SELECT * FROM Movimenti WHERE Movimenti.Anno=Articoli.Anno AND "
      "Movimenti.NumDoc=Articoli.NumDoc AND ";
  const auto cerca = [&](const std::string& condizione, bool ferma, const char* testo) {
    std::size_t detti = 0;
    for (Rs rs = tessarc.Recordset(righe + condizione + " ORDER BY NProt");
         !rs.Eof() && ++detti <= kMassimo; rs.MoveNext()) {
      const std::int64_t nProt = rs.Fields(0).Intero();
      problemi.push_back({intervallo.riva, nProt, rs.Fields(1).Intero(), ferma,
                          Nome(intervallo) + testo + std::to_string(nProt)});
    }
  };
  cerca("NOT EXISTS " + propria + "Movimenti.TIPORIGA=3)", true,
        " : manca movimento relativo al n.protocollo");
  if (!tutto) return;
  // Receipts by hand may leave the VAT to the print; elsewhere it must be in the books.
  cerca("EXISTS " + propria + "Movimenti.TIPORIGA=3 AND Movimenti.Iva<>0) AND NOT EXISTS " +
            propria + "Movimenti.TIPORIGA=4)",
        false, " : manca la riga di contabilità dell'iva sul n.protocollo ");
}

void RegistroIvaUnico::Interno::ControllaCodici(const IntervalloRegistro& intervallo,
                                                std::vector<ProblemaRegistro>& problemi) {
  const std::string condizione = CondizioneIntervallo(intervallo, periodo.anno);
  const std::string errore = ErroreVentilazione(intervallo.tipo, LeggiGruppi(ambiente, condizione));
  if (errore.empty()) return;
  // The first registration that has it, so that it can be opened.
  const bool ventilato = UgualeTesto(intervallo.tipo, "07");
  Rs rs = tessarc.Recordset(
      "SELECT TOP 1 NProt, NumDoc FROM MovimentiIva WHERE " + condizione + " AND " +
      sql::Criterio("CodIva", ventilato ? "<>" : "=", kCodiceVentilazione) + " ORDER BY NProt");
  problemi.push_back({intervallo.riva, rs.Eof() ? 0 : rs.Fields(0).Intero(),
                      rs.Eof() ? 0 : rs.Fields(1).Intero(), true,
                      Nome(intervallo) + " : " + errore});
}

void RegistroIvaUnico::Interno::ControllaVentilazione(std::vector<ProblemaRegistro>& problemi) {
  for (const IntervalloRegistro& intervallo : intervalli) {
    if (!UgualeTesto(intervallo.tipo, "07") || intervallo.Vuoto()) continue;
    const auto acquisti = LeggiAcquisti(ambiente, periodo.anno, opzioni.ventilazione);
    if (acquisti) return;
    problemi.push_back({intervallo.riva, 0, 0, true, acquisti.Errore().messaggio});
    return;
  }
}

void RegistroIvaUnico::Interno::ControllaIncassi(std::vector<ProblemaRegistro>& problemi) {
  for (const SenzaRegistro& manca : IncassiSenzaRegistro()) {
    std::string testo = manca.testo;
    std::ranges::replace(testo, '\n', ' ');
    problemi.push_back({"", 0, 0, false, testo});
    std::size_t detti = 0;
    for (Rs rs = tessarc.Recordset(
             "SELECT Riva, NProt, NumDoc, Anno, Dt, DtIncasso FROM ZarticoliSospese AS Articoli "
             "WHERE " +
             CondizioneIncassati(ambiente, manca.tipo, periodo) + " ORDER BY Anno, Riva, NProt");
         !rs.Eof() && ++detti <= kMassimo; rs.MoveNext()) {
      // The page opens registrations of the selected year alone.
      const bool delAnno = rs.Fields(3).Intero() == periodo.anno;
      problemi.push_back(
          {rs.Fields(0).Testo(), rs.Fields(1).Intero(), delAnno ? rs.Fields(2).Intero() : 0, false,
           "Registro " + rs.Fields(0).Testo() + " : il numero protocollo " + rs.Fields(1).Testo() +
               " del " + rs.Fields(4).Data().Testo() + ", incassato o pagato il " +
               rs.Fields(5).Data().Testo() + ", resta fuori dalla liquidazione"});
    }
  }
}

bool RegistroIvaUnico::Interno::Superati(const std::vector<ProblemaRegistro>& problemi) {
  std::string domanda;
  std::size_t quanti = 0;
  for (const ProblemaRegistro& problema : problemi) {
    if (problema.ferma) {
      Avviso(problema.testo);
      return false;
    }
    if (++quanti <= kInDomanda) domanda += problema.testo + "\n";
  }
  if (quanti == 0) return true;
  if (quanti > kInDomanda) {
    domanda += "e altri " + std::to_string(quanti - kInDomanda) + " protocolli\n";
  }
  return ambiente.Dialogo().Conferma(domanda + "Proseguo ugualmente ?");
}

void RegistroIvaUnico::Interno::ControllaRegistro(const IntervalloRegistro& intervallo, bool tutto,
                                                  std::vector<ProblemaRegistro>& problemi) {
  if (intervallo.daIncassi || intervallo.Vuoto()) return;
  if (tutto || !SequenzaIntera(intervallo)) ControllaSequenza(intervallo, tutto, problemi);
  ControllaRighe(intervallo, tutto, problemi);
  // A print hears of wrong codes from the totals.
  if (tutto) ControllaCodici(intervallo, problemi);
}

std::vector<ProblemaRegistro> RegistroIvaUnico::Controlla() {
  std::vector<ProblemaRegistro> problemi;
  for (const IntervalloRegistro& intervallo : interno_->intervalli) {
    interno_->ControllaRegistro(intervallo, true, problemi);
  }
  interno_->ControllaVentilazione(problemi);
  interno_->ControllaIncassi(problemi);
  return problemi;
}

}  // namespace fenalto::vat
