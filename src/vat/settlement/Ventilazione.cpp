// Receipts whose VAT is found by the shares of the purchases for resale.
#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Intero128.h"
#include "core/values/Testo.h"
#include "vat/settlement/TotaliInterno.h"

namespace fenalto::vat {
namespace {

constexpr const char* kManca =
    "Ventilazione corrispetti: impostare registro iva acquisti destinati alla rivendita";
constexpr const char* kNessuno =
    "sul registro acquisti non è stata trovato alcuna registrazione con codice iva per "
    "'ventilazione' (vedere codici iva)";
constexpr int kCentesimi = 2;

/// `intero` times `parte` over `totale`, cut to ten-thousandths: exact enough to round to cents,
/// since cutting never takes a value across a half cent. Nothing of a total of nothing.
Importo Proporzione(Importo intero, Importo parte, Importo totale) {
  if (totale.Zero()) return {};
  const auto prodotto = static_cast<Intero128>(intero.Decimillesimi()) *
                        static_cast<Intero128>(parte.Decimillesimi());
  return Importo::DaDecimillesimi(
      static_cast<std::int64_t>(prodotto / static_cast<Intero128>(totale.Decimillesimi())));
}

/// `parte` of `totale` in hundred-thousandths of a percent, to the nearest, halves away from zero.
std::int64_t QuotaAcquisti(Importo parte, Importo totale) {
  constexpr Intero128 kCento = 100 * 100'000;
  const auto doppio = static_cast<Intero128>(parte.Decimillesimi()) * kCento * 2;
  const auto t = static_cast<Intero128>(totale.Decimillesimi());
  return static_cast<std::int64_t>((doppio + (parte.Negativo() ? -t : t)) / (t * 2));
}

}  // namespace

std::string ErroreVentilazione(const std::string& tipo, const std::vector<GruppoIva>& gruppi) {
  const bool ventilato = UgualeTesto(tipo, "07");
  for (const GruppoIva& gruppo : gruppi) {
    const bool zcor = UgualeTesto(gruppo.codIva, kCodiceVentilazione);
    if (zcor && !ventilato) {
      return "il codice iva 'ZCORR' si può usare solo se si utilizza la ventilazione corrispettivi";
    }
    if (ventilato && !zcor && !gruppo.Vuoto()) {
      return "il codice iva " + gruppo.codIva +
             " è stato utilizzato sulla registrazione di corrispettivi da ventilare:\n è "
             "necessario utilizzare il codice iva 'ZCOR'";
    }
  }
  return {};
}

Esito<std::vector<QuotaVentilazione>> LeggiAcquisti(Ambiente& ambiente, int anno,
                                                    const Ventilazione& ventilazione) {
  const auto esiste = [&](const std::string& riva) {
    return ambiente.Esiste("tessarc", "RegistriIva", {{"Cod", riva}});
  };
  if (ventilazione.riva.empty() || !esiste(ventilazione.riva)) return Errore{kManca};
  if (!ventilazione.riva1.empty() && !esiste(ventilazione.riva1)) return Errore{kManca};
  const auto fino = [](const std::string& riva, std::int64_t aaNProt) {
    return "(" + sql::Criterio("Riva", "=", riva) + " AND " +
           sql::Criterio("NProt", "<=", aaNProt) + ")";
  };
  std::string registri = fino(ventilazione.riva, ventilazione.aaNProt);
  const bool secondo =
      !ventilazione.riva1.empty() && !UgualeTesto(ventilazione.riva, ventilazione.riva1);
  if (secondo)
    registri = "(" + registri + " OR " + fino(ventilazione.riva1, ventilazione.aaNProt1) + ")";
  std::vector<QuotaVentilazione> quote;
  for (const GruppoIva& gruppo :
       LeggiGruppi(ambiente, sql::Criterio("Anno", "=", anno) + " AND " + registri)) {
    const auto campo = [&](const char* nome) {
      return Nz(ambiente.Cerca("tessarc", "CodiciIva", {{"Cod", gruppo.codIva}}, nome));
    };
    if (!campo("Ventilazione").Booleano()) continue;
    const Importo acquisti = gruppo.imponibile + gruppo.iva;
    // Deferred purchases come as a group of their own.
    if (!quote.empty() && UgualeTesto(quote.back().codIva, gruppo.codIva)) {
      quote.back().acquisti += acquisti;
    } else {
      quote.push_back({gruppo.codIva, campo("Perc").Importo(), acquisti, 0, {}});
    }
  }
  Importo totale;
  for (const QuotaVentilazione& quota : quote) totale += quota.acquisti;
  if (quote.empty() || totale <= Importo()) return Errore{kNessuno};
  for (QuotaVentilazione& quota : quote) {
    quota.quota = QuotaAcquisti(quota.acquisti, totale);
  }
  return quote;
}

void Ventila(TotaleRegistro& totale, std::vector<QuotaVentilazione> quote) {
  totale.acquistiVentilazione = {};
  for (const QuotaVentilazione& quota : quote) totale.acquistiVentilazione += quota.acquisti;
  Importo resto = totale.corrispettiviDaVentilare;
  for (std::size_t i = 0; i < quote.size(); ++i) {
    QuotaVentilazione& quota = quote[i];
    const Importo esatta =
        Proporzione(totale.corrispettiviDaVentilare, quota.acquisti, totale.acquistiVentilazione);
    const bool ultima = i + 1 == quote.size();
    quota.corrispettivi = ultima ? resto : Arrotonda(esatta, kCentesimi, ModoArrotonda::Vicino);
    resto -= quota.corrispettivi;
    if (quota.corrispettivi.Zero()) continue;
    TotaleCodice codice;
    codice.codIva = quota.codIva;
    codice.imponibile = ScorporaImponibile(quota.corrispettivi, quota.perc);
    codice.iva = quota.corrispettivi - codice.imponibile;
    totale.ivaScorporata += codice.iva;
    totale.codici.push_back(codice);
  }
  totale.quote = std::move(quote);
}

}  // namespace fenalto::vat
