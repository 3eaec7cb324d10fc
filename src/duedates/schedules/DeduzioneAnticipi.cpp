#include "duedates/schedules/DeduzioneAnticipi.h"

#include <algorithm>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

std::string Euro(Importo importo) {
  return ScriviImporto(importo, kDecimaliScadenza);
}

void AbbassaScadenza(Ambiente& ambiente, const Scadenza& scadenza, Importo dedotto) {
  std::vector<Coppia> campi = CampiImporto(scadenza.importoE - dedotto);
  campi.emplace_back("Modificata", true);
  // Nothing is left to be paid.
  if (scadenza.Residuo() == dedotto) campi.emplace_back("Stato", kStatoPagata);
  AggiornaScadenza(ambiente, scadenza.numero, campi);
}

void ScaricaAnticipo(Ambiente& ambiente, const QuotaAnticipo& dedotto) {
  if (dedotto.Intera()) {
    AggiornaScadenza(ambiente, dedotto.anticipo.numero, {{"Stato", kStatoPagata}});
    return;
  }
  std::vector<Coppia> campi = CampiPagato(dedotto.anticipo.importoPagatoE - dedotto.quota);
  campi.emplace_back("Stato", kStatoParziale);
  AggiornaScadenza(ambiente, dedotto.anticipo.numero, campi);
}

/// Why nothing was written; empty when all was.
std::string Scrivi(Ambiente& ambiente, const Scadenza& scadenza,
                   const std::vector<QuotaAnticipo>& quote) {
  if (const auto cambiata = ScadenzaCambiata(ambiente, scadenza)) return *cambiata;
  Importo dedotto;
  for (const QuotaAnticipo& quota : quote) {
    if (const auto cambiata = ScadenzaCambiata(ambiente, quota.anticipo)) return *cambiata;
    ScaricaAnticipo(ambiente, quota);
    dedotto += quota.quota;
  }
  AbbassaScadenza(ambiente, scadenza, dedotto);
  return {};
}

std::string TestoDeduzione(const std::vector<QuotaAnticipo>& quote) {
  std::string testo = "- Scadenza modificata";
  if (std::ranges::any_of(quote, [](const auto& quota) { return quota.Intera(); })) {
    testo += "\n- Anticipi dedotti e portati in stato 30";
  }
  for (const QuotaAnticipo& quota : quote) {
    if (quota.Intera()) continue;
    testo += "\n- dell'anticipo n. " + std::to_string(quota.anticipo.numero) +
             " restano da dedurre euro " + Euro(quota.anticipo.Residuo().Assoluto() - quota.quota);
  }
  return testo;
}

std::string Domanda(const QuotaAnticipo& quota) {
  std::string testo =
      "sottraggo l'anticipo di euro " + Euro(quota.quota) + " dall'importo della scadenza ?";
  if (!quota.Intera()) {
    testo += "\n(l'anticipo è di euro " + Euro(quota.anticipo.Residuo().Assoluto()) +
             ": il resto rimane da dedurre)";
  }
  return testo;
}

}  // namespace

std::vector<Scadenza> AnticipiAperti(Ambiente& ambiente, const std::string& cfp,
                                     const std::string& conto) {
  std::vector<Scadenza> anticipi;
  Rs righe =
      ambiente.ArchivioDi("scadenzario")
          .Recordset("SELECT * FROM SCADENZE WHERE " + sql::Criterio("CFP", "=", cfp) + " AND " +
                     sql::Criterio("Conto", "=", conto) + " AND ANTICIPO=True AND " +
                     CondizioneAperta() + " ORDER BY Dt, Numero");
  for (; !righe.Eof(); righe.MoveNext()) anticipi.push_back(ScadenzaDi(righe));
  return anticipi;
}

std::vector<QuotaAnticipo> ScegliAnticipi(Ambiente& ambiente, const Scadenza& scadenza,
                                          const std::vector<Scadenza>& anticipi) {
  std::vector<QuotaAnticipo> scelti;
  // A credit note has nothing to be lowered, and a deposit isn't taken off another one.
  if (!scadenza.Aperta() || scadenza.anticipo) return scelti;
  Importo resto = scadenza.Residuo();
  for (const Scadenza& anticipo : anticipi) {
    if (resto <= Importo()) break;
    // A number given anew after an erased registration brings the due dates of two parties
    // together.
    if (!UgualeTesto(anticipo.cfp, scadenza.cfp) || !UgualeTesto(anticipo.conto, scadenza.conto)) {
      continue;
    }
    // Typed with the wrong sign: a debt, which would be lost if it were taken off.
    if (!anticipo.Residuo().Negativo()) continue;
    const QuotaAnticipo quota{anticipo, std::min(resto, anticipo.Residuo().Assoluto())};
    if (!ambiente.Dialogo().Conferma(Domanda(quota))) continue;
    resto -= quota.quota;
    scelti.push_back(quota);
  }
  return scelti;
}

bool DeduciAnticipi(Ambiente& ambiente, const Scadenza& scadenza,
                    const std::vector<QuotaAnticipo>& quote) {
  if (quote.empty()) return false;
  const bool scritta =
      records::Esegui(ambiente, {.nonRiuscita = "deduzione dell'anticipo non riuscita: ",
                                 .scrivi = [&] { return Scrivi(ambiente, scadenza, quote); }});
  if (scritta) ambiente.Dialogo().Annuncia(TestoDeduzione(quote));
  return scritta;
}

}  // namespace fenalto::duedates
