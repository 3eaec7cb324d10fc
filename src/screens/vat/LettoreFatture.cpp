#include "screens/vat/LettoreFatture.h"

#include <charconv>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "vat/RigheIva.h"

namespace fenalto {
namespace {

constexpr std::size_t kPartiCercate = 400;  // parties that one search may stand for

std::optional<std::int64_t> ComeNumero(std::string_view testo) {
  std::int32_t numero = 0;
  const auto* fine = testo.data() + testo.size();
  const auto [dove, errore] = std::from_chars(testo.data(), fine, numero);
  if (errore != std::errc() || dove != fine || numero <= 0) return std::nullopt;
  return numero;
}

}  // namespace

std::string LettoreFatture::Descritto(const std::string& cfp, const std::string& conto) {
  if (conto.empty()) return {};
  auto [voce, nuova] = descrizioni_.try_emplace(cfp + "|" + conto);
  if (nuova) {
    voce->second = NzStr(ambiente_.Cerca("tessarc", "ContiClientiFornitori",
                                         {{"Cod", conto}, {"CFP", cfp}}, "Descrizione"));
  }
  return voce->second;
}

std::vector<FatturaLetta> LettoreFatture::Leggi(const std::string& condizione, int quante) {
  std::vector<FatturaLetta> lette;
  Rs righe = Tessarc().Recordset(
      "SELECT TOP " + std::to_string(quante) +
      " NProt, NumDoc, Dt, CFP, Conto, NFat, DtFat, Riva FROM ZarticoliFatture WHERE " +
      Criterio("Anno", "=", ambiente_.Anno()) + " AND " + condizione + " ORDER BY NumDoc DESC");
  for (; !righe.Eof(); righe.MoveNext()) {
    FatturaLetta letta;
    letta.nProt = righe.Fields(0).Intero();
    letta.numDoc = righe.Fields(1).Intero();
    letta.data = righe.Fields(2).Data();
    letta.conto = NzStr(righe.Fields(4));
    letta.descrConto = Descritto(NzStr(righe.Fields(3)), letta.conto);
    letta.nFat = NzStr(righe.Fields(5));
    letta.dtFat = righe.Fields(6).Data();
    letta.riva = righe.Fields(7).Testo();
    lette.push_back(std::move(letta));
  }
  LeggiTotali(lette);
  return lette;
}

void LettoreFatture::LeggiTotali(std::vector<FatturaLetta>& lette) {
  if (lette.empty()) return;
  std::map<std::int64_t, Importo> totali;
  std::string numeri;
  for (const auto& letta : lette) {
    numeri += (numeri.empty() ? "" : ",") + std::to_string(letta.numDoc);
  }
  Rs righe = Tessarc().Recordset(
      "SELECT NumDoc, Imponibile, Iva, IvaInd FROM Movimenti WHERE " +
      Criterio("Anno", "=", ambiente_.Anno()) + " AND NumDoc IN (" + numeri + ") AND " +
      Criterio("TipoRiga", "=", static_cast<int>(TipoRigaIva::Imponibile)));
  for (; !righe.Eof(); righe.MoveNext()) {
    totali[righe.Fields(0).Intero()] +=
        righe.Fields(1).Importo() + righe.Fields(2).Importo() + righe.Fields(3).Importo();
  }
  for (auto& letta : lette) letta.totale = totali[letta.numDoc];
}

std::vector<FatturaLetta> LettoreFatture::Pagina(const std::string& riva,
                                                 const std::string& condizione, std::int64_t fino,
                                                 int quante) {
  if (riva.empty()) return {};
  std::string testo = Criterio("Riva", "=", riva) + " AND " + Criterio("NumDoc", "<=", fino);
  if (!condizione.empty()) testo += " AND (" + condizione + ")";
  return Leggi(testo, quante);
}

std::optional<FatturaLetta> LettoreFatture::Una(std::int64_t numDoc) {
  auto lette = Leggi(Criterio("NumDoc", "=", numDoc), 1);
  if (lette.empty()) return std::nullopt;
  return std::move(lette.front());
}

std::string LettoreFatture::Parti(const std::string& cercato, const std::string& classe) {
  std::string codici;
  std::size_t trovati = 0;
  Rs righe = Tessarc().Recordset("SELECT Cod, Descrizione FROM ContiClientiFornitori WHERE " +
                                 Criterio("CFP", "=", classe));
  for (; !righe.Eof() && trovati < kPartiCercate; righe.MoveNext()) {
    const std::string codice = righe.Fields(0).Testo();
    if (!PerRicerca(codice).starts_with(cercato) &&
        PerRicerca(NzStr(righe.Fields(1))).find(cercato) == std::string::npos) {
      continue;
    }
    codici += (codici.empty() ? "" : ",") + LetteraleSql(codice);
    ++trovati;
  }
  if (codici.empty()) return {};
  return " OR (" + Criterio("CFP", "=", classe) + " AND Conto IN (" + codici + "))";
}

std::string LettoreFatture::Interpreta(const std::string& testo, const std::string& classe) {
  const std::string cercato(Rifila(testo));
  if (cercato.empty()) return {};
  const auto numero = ComeNumero(cercato);
  if (!numero) {
    const auto data = LeggiData(cercato, ambiente_.Anno(), ambiente_.Ora().Oggi());
    if (data && !data.Valore().Nulla()) {
      return Criterio("Dt", "=", data.Valore()) + " OR " + Criterio("DtFat", "=", data.Valore());
    }
  }
  std::string condizione = CriterioInizia("NFat", cercato);
  if (numero) {
    condizione +=
        " OR " + Criterio("NumDoc", "=", *numero) + " OR " + Criterio("NProt", "=", *numero);
  }
  return condizione + Parti(PerRicerca(cercato), classe);
}

}  // namespace fenalto
