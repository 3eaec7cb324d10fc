#include "duedates/riba/RaggruppamentoRiba.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/schedules/RicercaScadenze.h"

namespace fenalto::duedates {
namespace {

/// Characters of the references to invoices.
constexpr std::size_t kLunghezzaRiferimenti = 64;
/// Rows between two signs of life.
constexpr std::int64_t kOgni = 500;

std::string Selezione(const SceltaRaggruppamento& scelta) {
  std::string sql =
      "SELECT Scadenze.*, clienti.RagSoc1 FROM Scadenze INNER JOIN clienti ON Scadenze.Conto = "
      "clienti.Cod where " +
      sql::Criterio("Scadenze.CFP", "=", "C") + " and " +
      sql::Criterio("Scadenze.Tipo", "=", kTipoRiba) + " and " +
      sql::Criterio("Scadenze.Stato", "<", kStatoPresentabile) + " and " + CondizioneAperta() +
      " and Scadenze.Nfat<>0";
  if (!scelta.da.Nulla()) sql += " and " + sql::Criterio("Scadenze.Dt", ">=", scelta.da);
  if (!scelta.a.Nulla()) sql += " and " + sql::Criterio("Scadenze.Dt", "<=", scelta.a);
  if (!scelta.conto.empty()) sql += " and " + sql::Criterio("Scadenze.Conto", "=", scelta.conto);
  return sql +
         " order by Scadenze.Conto, Scadenze.Dt, Scadenze.Pagamento, Scadenze.DtFat, "
         "Scadenze.NFat, Scadenze.Numero";
}

bool DelGruppo(const GruppoRiba& gruppo, const Scadenza& scadenza) {
  return gruppo.dt == scadenza.dt && UgualeTesto(gruppo.conto, scadenza.conto) &&
         UgualeTesto(gruppo.pagamento, scadenza.pagamento);
}

/// "GG/MM/AA"
std::string GiornoBreve(Data data) {
  constexpr std::size_t kSecolo = 6;  // digits of the century
  return data.Testo().erase(kSecolo, 2);
}

using Fattura = std::pair<Data, std::string>;

bool Prima(const Fattura& a, const Fattura& b) {
  return a.first != b.first ? a.first < b.first : ConfrontaNumeri(a.second, b.second) < 0;
}

/// The first `quante` invoices, the day after the last of each: " 12,15 del 31/01/24, 20 del ...".
std::string Riferimenti(const std::vector<Fattura>& fatture, std::size_t quante) {
  std::string testo = "fatt.n.";
  for (std::size_t i = 0; i < quante; ++i) {
    const auto& [data, numero] = fatture[i];
    const bool stessoGiorno = i > 0 && fatture[i - 1].first == data;
    testo += (i == 0 ? " " : stessoGiorno ? "," : ", ") + numero;
    const bool ultimaDelGiorno = i + 1 == quante || fatture[i + 1].first != data;
    if (ultimaDelGiorno && !data.Nulla()) testo += " del " + GiornoBreve(data);
  }
  return testo;
}

/// Name of the first due date that another station has changed; nothing when none was.
std::optional<std::string> Cambiata(Ambiente& ambiente, const std::vector<GruppoRiba>& gruppi) {
  for (const GruppoRiba& gruppo : gruppi) {
    if (!gruppo.DaRaggruppare()) continue;
    for (const Scadenza& scadenza : gruppo.scadenze) {
      if (auto cambiata = ScadenzaCambiata(ambiente, scadenza)) return cambiata;
    }
  }
  return std::nullopt;
}

void Chiudi(Ambiente& ambiente, const Scadenza& scadenza, std::int64_t nuova) {
  std::string descrizione = scadenza.descrizione;
  if (!descrizione.empty()) descrizione += ' ';
  descrizione += "(raggruppata nella scad.n. " + std::to_string(nuova) + ")";
  AggiornaScadenza(ambiente, scadenza.numero,
                   {{"Stato", kStatoPagata},
                    {"Programma", kProgrammaRaggruppata},
                    {"Descrizione", descrizione}});
}

void ScriviRaggruppata(Archivio& scadenzario, const GruppoRiba& gruppo, std::int64_t numero) {
  std::vector<Coppia> campi = {{"Numero", numero},
                               {"CFP", "C"},
                               {"Conto", gruppo.conto},
                               {"Dt", gruppo.dt},
                               {"Tipo", kTipoRiba},
                               {"Stato", kStatoScritta},
                               {"Programma", kProgrammaRaggruppamento},
                               {"Descrizione", RiferimentiFatture(gruppo.scadenze)},
                               {"Pagamento", gruppo.pagamento}};
  for (Coppia& campo : CampiImporto(gruppo.Totale())) campi.push_back(std::move(campo));
  scadenzario.Inserisci("Scadenze", campi);
}

/// How many due dates became how many.
struct Scritto {
  std::size_t chiuse = 0;
  std::size_t nuove = 0;
};

/// Under the numbering lock. Why nothing was written, or empty and `scritto` told.
std::string Scrivi(Ambiente& ambiente, const std::vector<GruppoRiba>& gruppi, Scritto& scritto) {
  Archivio& scadenzario = ambiente.ArchivioDi("scadenzario");
  if (auto cambiata = Cambiata(ambiente, gruppi)) return std::move(*cambiata);
  std::int64_t numero = ProssimoNumeroScadenza(ambiente);
  for (const GruppoRiba& gruppo : gruppi) {
    if (!gruppo.DaRaggruppare()) continue;
    for (const Scadenza& scadenza : gruppo.scadenze) Chiudi(ambiente, scadenza, numero);
    ScriviRaggruppata(scadenzario, gruppo, numero++);
    scritto.chiuse += gruppo.scadenze.size();
    ++scritto.nuove;
  }
  return {};
}

/// What the groups hold that a user wouldn't expect; empty when nothing.
std::string Note(const std::vector<GruppoRiba>& gruppi) {
  std::int64_t parziali = 0;
  std::int64_t senzaImporto = 0;
  for (const GruppoRiba& gruppo : gruppi) {
    if (gruppo.scadenze.size() < 2) continue;
    if (!gruppo.DaRaggruppare()) {
      ++senzaImporto;
      continue;
    }
    parziali += std::count_if(gruppo.scadenze.begin(), gruppo.scadenze.end(),
                              [](const Scadenza& s) { return !s.importoPagatoE.Zero(); });
  }
  std::string note;
  if (parziali != 0) {
    note += "\nscadenze già pagate in parte, raggruppate per il solo residuo: " +
            std::to_string(parziali);
  }
  if (senzaImporto != 0) {
    note += "\ngruppi il cui totale non è maggiore di zero, che restano come sono: " +
            std::to_string(senzaImporto);
  }
  return note;
}

}  // namespace

Importo GruppoRiba::Totale() const {
  Importo totale;
  for (const Scadenza& scadenza : scadenze) totale += scadenza.Residuo();
  return totale;
}

bool GruppoRiba::DaRaggruppare() const {
  return scadenze.size() > 1 && Totale() > Importo();
}

std::string RiferimentiFatture(const std::vector<Scadenza>& scadenze) {
  std::vector<Fattura> fatture;
  fatture.reserve(scadenze.size());
  for (const Scadenza& scadenza : scadenze) fatture.emplace_back(scadenza.dtFat, scadenza.nFat);
  std::ranges::sort(fatture, Prima);
  // Two rates of an invoice may fall due on one day.
  fatture.erase(std::unique(fatture.begin(), fatture.end()), fatture.end());
  std::string testo = Riferimenti(fatture, fatture.size());
  for (std::size_t quante = std::min(fatture.size(), kLunghezzaRiferimenti);
       LunghezzaTesto(testo) > kLunghezzaRiferimenti && quante-- > 1;) {
    testo = Riferimenti(fatture, quante) + " e altre " + std::to_string(fatture.size() - quante);
  }
  return testo;
}

std::optional<std::vector<GruppoRiba>> RaggruppamentoRiba::Elenco(
    const SceltaRaggruppamento& scelta) {
  std::vector<GruppoRiba> gruppi;
  const auto avanzamento = ambiente_.Dialogo().Avvia("Ricerca ricevute da raggruppare", 0);
  std::int64_t lette = 0;
  for (Rs rs = ScadenzarioCon(ambiente_, "Clienti").Recordset(Selezione(scelta)); !rs.Eof();
       rs.MoveNext()) {
    Scadenza scadenza = ScadenzaDi(rs);
    if (gruppi.empty() || !DelGruppo(gruppi.back(), scadenza)) {
      gruppi.push_back({.conto = scadenza.conto,
                        .ragsoc = rs.Fields("RagSoc1").Testo(),
                        .dt = scadenza.dt,
                        .pagamento = scadenza.pagamento,
                        .scadenze = {}});
    }
    gruppi.back().scadenze.push_back(std::move(scadenza));
    if (++lette % kOgni == 0 && !avanzamento->Avanza(lette)) return std::nullopt;
  }
  return gruppi;
}

bool RaggruppamentoRiba::StampaProva(const SceltaRaggruppamento& scelta,
                                     const std::vector<GruppoRiba>& gruppi) {
  if (gruppi.empty()) {
    ambiente_.Dialogo().Messaggio("non ci sono Ri.Ba. da stampare tra le date impostate",
                                  Icona::Avviso);
    return false;
  }
  return StampaGruppi(scelta, gruppi, false);
}

bool RaggruppamentoRiba::Definitivo(const SceltaRaggruppamento& scelta,
                                    const std::vector<GruppoRiba>& gruppi) {
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (std::none_of(gruppi.begin(), gruppi.end(),
                   [](const GruppoRiba& gruppo) { return gruppo.DaRaggruppare(); })) {
    dialogo.Messaggio("non ci sono Ri.Ba. da raggruppare tra le date impostate" + Note(gruppi),
                      Icona::Avviso);
    return false;
  }
  if (!dialogo.Conferma("E' stata impostata la stampa definitiva: ESEGUO IL LAVORO ?")) {
    return false;
  }
  constexpr std::string_view kControllare =
      "\nNon è stato scritto nulla: controllare l'elenco aggiornato.";
  Scritto scritto;
  // Before the paper says what can't be done any more, and once more where it counts.
  const auto stampa = [&] {
    if (const auto cambiata = Cambiata(ambiente_, gruppi)) {
      dialogo.Messaggio(*cambiata + std::string(kControllare), Icona::Avviso);
      return false;
    }
    if (StampaGruppi(scelta, gruppi, true)) return true;
    dialogo.Messaggio("stampa definitiva non eseguita.\nNon è stato scritto nulla.", Icona::Avviso);
    return false;
  };
  const bool riuscito =
      records::Esegui(ambiente_, {.nonRiuscita = "raggruppamento Ri.Ba. non riuscito: ",
                                  .dopoRifiuto = kControllare,
                                  .numerazioni = {"ARTICOLI"},
                                  .prima = stampa,
                                  .scrivi = [&] { return Scrivi(ambiente_, gruppi, scritto); }});
  if (!riuscito) return false;
  dialogo.Annuncia(
      "- Scadenzario aggiornato\nscadenze raggruppate: " + std::to_string(scritto.chiuse) +
      "\nnuove scadenze: " + std::to_string(scritto.nuove) + Note(gruppi));
  return true;
}

}  // namespace fenalto::duedates
