#include "ledger/registrations/LettoreArticoli.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::ledger {
namespace {

constexpr std::int64_t kTratto = 4'000;  // numbers gone through by one statement of a search
constexpr std::string_view kScrittaDiversi = "DIVERSI";

void Unisci(std::string& condizione, const std::string& altra) {
  if (altra.empty()) return;
  if (!condizione.empty()) condizione += " OR ";
  condizione += altra;
}

std::string CondizioneDiClasse(const std::string& classe, const std::string& codici) {
  return "(" + sql::Criterio("CFP", "=", classe) + " AND Conto IN (" + codici + ")) OR (" +
         sql::Criterio("CfpA", "=", classe) + " AND ContoA IN (" + codici + "))";
}

/// Rows with that amount on either side, or with the text in their description. A bare number is
/// that of a registration.
std::string DiRighe(const std::string& testo) {
  if (const auto importo = LeggiImporto(testo); importo && !importo.Valore().Zero()) {
    if (testo.find_first_not_of("0123456789") == std::string::npos) return {};
    return sql::Criterio("ImpoDare", "=", importo.Valore()) + " OR " +
           sql::Criterio("ImpoAvere", "=", importo.Valore());
  }
  constexpr std::size_t kLettere = 2;
  return PerRicerca(testo).size() < kLettere ? std::string()
                                             : sql::CriterioContiene("Descrizione", testo);
}

}  // namespace

std::string LettoreArticoli::Descritto(const std::string& cfp, const std::string& conto) {
  if (conto.empty() || conto == kScrittaDiversi) return conto;
  const std::string& descrizione = descrizioni_.Di(cfp, conto);
  return descrizione.empty() ? conto : conto + "  " + descrizione;
}

std::vector<ArticoloLetto> LettoreArticoli::Pagina(const Ricerca& ricerca, std::int64_t sotto,
                                                   std::int64_t oltre, int quante) {
  std::vector<ArticoloLetto> letti;
  if (ricerca.impossibile) return letti;
  std::string testo = "SELECT TOP " + std::to_string(quante) +
                      " NumDoc, Dt, CFP, Conto, CfpA, ContoA FROM ZArticoliNonIva WHERE " +
                      sql::Criterio("Anno", "=", ambiente_.Anno()) + " AND " +
                      sql::Criterio("NumDoc", "<", sotto) + " AND " +
                      sql::Criterio("NumDoc", ">", oltre);
  std::string condizione = ricerca.condizione;
  if (!ricerca.diRighe.empty()) {
    Unisci(condizione, "NumDoc IN (SELECT NumDoc FROM Movimenti WHERE " +
                           sql::Criterio("Anno", "=", ambiente_.Anno()) + " AND " +
                           sql::Criterio("NumDoc", "<", sotto) + " AND " +
                           sql::Criterio("NumDoc", ">", oltre) + " AND (" + ricerca.diRighe + "))");
  }
  if (!condizione.empty()) testo += " AND (" + condizione + ")";
  Rs righe = Tessarc().Recordset(testo + " ORDER BY NumDoc DESC");
  for (; !righe.Eof(); righe.MoveNext()) {
    letti.push_back({righe.Fields(0).Intero(), righe.Fields(1).Data(),
                     Descritto(righe.Fields(2).Testo(), righe.Fields(3).Testo()),
                     Descritto(righe.Fields(4).Testo(), righe.Fields(5).Testo())});
  }
  LeggiRighe(letti);
  return letti;
}

void LettoreArticoli::LeggiRighe(std::vector<ArticoloLetto>& letti) {
  if (letti.empty()) return;
  std::map<std::int64_t, ArticoloLetto*> perNumero;
  std::string numeri;
  for (auto& letto : letti) {
    perNumero[letto.numero] = &letto;
    numeri += (numeri.empty() ? "" : ",") + std::to_string(letto.numero);
  }
  Rs righe = Tessarc().Recordset("SELECT NumDoc, Descrizione, ImpoDare FROM Movimenti WHERE " +
                                 sql::Criterio("Anno", "=", ambiente_.Anno()) + " AND NumDoc IN (" +
                                 numeri + ") ORDER BY NumDoc, Posi");
  for (; !righe.Eof(); righe.MoveNext()) {
    auto& letto = *perNumero.at(righe.Fields(0).Intero());
    if (letto.descrizione.empty()) letto.descrizione = NzStr(righe.Fields(1));
    letto.importo += righe.Fields(2).Importo();
  }
}

void LettoreArticoli::Comincia(const archives::FiltroElenco& filtro) {
  descrizioni_.Dimentica();
  ricerca_ = Interpreta(filtro.testo);
  sotto_ =
      ambiente_.Max("NumDoc", "Articoli", {{"Anno", ambiente_.Anno()}}, Tessarc()).Intero() + 1;
}

archives::FonteElenco::Righe LettoreArticoli::Avanti() {
  const std::int64_t oltre = ATratti() ? std::max<std::int64_t>(0, sotto_ - 1 - kTratto) : 0;
  const auto letti = Pagina(ricerca_, sotto_, oltre, kPagina);
  const bool altri = letti.size() == static_cast<std::size_t>(kPagina);
  sotto_ = altri ? letti.back().numero : oltre + 1;
  Righe righe;
  righe.reserve(letti.size());
  for (const auto& letto : letti) {
    righe.push_back(
        {letto.numero, letto.data, letto.dare, letto.avere, letto.descrizione, letto.importo});
  }
  return righe;
}

std::string LettoreArticoli::Testo(std::int64_t numero) {
  const auto letti = Pagina({}, numero + 1, numero - 1, 1);
  if (letti.empty()) return {};
  const auto& letto = letti.front();
  std::string testo = letto.data.Testo();
  if (!letto.dare.empty() || !letto.avere.empty()) {
    testo += "   " + letto.dare + "  →  " + letto.avere;
  }
  return testo;
}

std::string LettoreArticoli::ConConto(const std::string& testo) {
  std::string condizione;
  for (const auto& [classe, elenco] : ContiCercati(Tessarc(), testo)) {
    Unisci(condizione, CondizioneDiClasse(classe, elenco));
  }
  const std::string cercato = PerRicerca(testo);
  constexpr std::size_t kLettereDiversi = 3;
  if (cercato.size() >= kLettereDiversi && PerRicerca(kScrittaDiversi).starts_with(cercato)) {
    Unisci(condizione, "Conto='DIVERSI' OR ContoA='DIVERSI'");
  }
  return condizione;
}

LettoreArticoli::Ricerca LettoreArticoli::Interpreta(const std::string& testo) {
  Ricerca ricerca;
  const auto cercato = LeggiCercato(testo, ambiente_);
  if (cercato.testo.empty()) return ricerca;
  if (!cercato.data.Nulla()) {
    ricerca.condizione = sql::Criterio("Dt", "=", cercato.data);
    return ricerca;
  }
  ricerca.condizione = ConConto(cercato.testo);
  ricerca.diRighe = DiRighe(cercato.testo);
  ricerca.immediata = ricerca.condizione.empty() && ricerca.diRighe.empty();
  if (cercato.numero) Unisci(ricerca.condizione, sql::Criterio("NumDoc", "=", *cercato.numero));
  ricerca.impossibile = ricerca.condizione.empty() && ricerca.diRighe.empty();
  return ricerca;
}

}  // namespace fenalto::ledger
