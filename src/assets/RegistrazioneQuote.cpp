#include "assets/RegistrazioneQuote.h"

#include <algorithm>

#include "core/sql/Criterio.h"

namespace fenalto::assets {

namespace {

constexpr const char* kCausaleUsuale = "039";
constexpr std::int64_t kPassoPosi = 100;

/// Takes of a pot what is asked, as far as there is.
Importo Prendi(QuoteScritte& scritte, const std::string& conto, Importo quanto) {
  Importo& resta = scritte[conto];
  const Importo preso = std::min(std::max(resta, Importo()), quanto);
  resta -= preso;
  return preso;
}

class Righe {
 public:
  explicit Righe(std::string causale) : causale_(std::move(causale)) {}
  void Aggiungi(const std::string& conto, Importo dare, Importo avere, const std::string& contro,
                const std::string& descrizione) {
    if (dare.Zero() && avere.Zero()) return;
    righe_.push_back({posi_ += kPassoPosi, causale_, descrizione, "P", conto, dare, avere,
                      contro.empty() ? "" : "P", contro});
  }
  std::vector<ledger::RigaRegistrazione> Tutte() && { return std::move(righe_); }

 private:
  std::string causale_;
  std::int64_t posi_ = 0;
  std::vector<ledger::RigaRegistrazione> righe_;
};

std::vector<QuoteCategoria> LeggiQuote(Ambiente& ambiente, int anno) {
  std::vector<QuoteCategoria> quote;
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT MovCesp_r.Cat, DescrCat, ContoAmm, ContoFondo, Sum(Importo) FROM MovCesp_r LEFT JOIN "
      "CategorieCespiti ON MovCesp_r.Cat = CategorieCespiti.Cod WHERE Cau='400' AND " +
      sql::Criterio("Anno", "=", anno) +
      " GROUP BY MovCesp_r.Cat, DescrCat, ContoAmm, ContoFondo ORDER BY MovCesp_r.Cat");
  for (; !rs.Eof(); rs.MoveNext()) {
    quote.push_back({NzStr(rs.Fields(0)), NzStr(rs.Fields(1)), NzStr(rs.Fields(2)),
                     NzStr(rs.Fields(3)), rs.Fields(4).Importo()});
  }
  return quote;
}

/// Debits less credits by account, of the year's registrations of quotas.
QuoteScritte LeggiScritte(Ambiente& ambiente, int anno) {
  QuoteScritte scritte;
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT Movimenti.Conto, Sum(ImpoDare - ImpoAvere) FROM Articoli INNER JOIN Movimenti ON "
      "Articoli.Anno = Movimenti.Anno AND Articoli.NumDoc = Movimenti.NumDoc WHERE "
      "Articoli." +
      sql::Criterio("Anno", "=", anno) + " AND Articoli." +
      sql::Criterio("CREATOINAUTOMATICO", "=", static_cast<int>(ledger::Origine::QuoteCespiti)) +
      " AND Movimenti.CFP='P' GROUP BY Movimenti.Conto");
  for (; !rs.Eof(); rs.MoveNext()) scritte[NzStr(rs.Fields(0))] = rs.Fields(1).Importo();
  return scritte;
}

}  // namespace

std::vector<ledger::RigaRegistrazione> RigheDelleQuote(std::span<const QuoteCategoria> quote,
                                                       QuoteScritte costi, QuoteScritte fondi,
                                                       const std::string& causale) {
  Righe righe(causale);
  for (const QuoteCategoria& una : quote) {
    const std::string descrizione = "Quota ammortamento cat. " + una.cat + " " + una.descrizione;
    righe.Aggiungi(una.contoAmm, una.importo - Prendi(costi, una.contoAmm, una.importo), {},
                   una.contoFondo, descrizione);
    righe.Aggiungi(una.contoFondo, {}, una.importo - Prendi(fondi, una.contoFondo, una.importo),
                   una.contoAmm, descrizione);
  }
  const std::string storno = "Storno quote ammortamento eliminate";
  for (const auto& [conto, resta] : fondi) {
    if (resta > Importo()) righe.Aggiungi(conto, resta, {}, "", storno);
  }
  for (const auto& [conto, resta] : costi) {
    if (resta > Importo()) righe.Aggiungi(conto, {}, resta, "", storno);
  }
  return std::move(righe).Tutte();
}

PropostaQuote ProponiQuote(Ambiente& ambiente, int anno) {
  PropostaQuote proposta;
  proposta.registrazione.dt = Data::DaGma(31, 12, anno).value_or(Data());
  proposta.registrazione.origine = ledger::Origine::QuoteCespiti;
  std::vector<QuoteCategoria> quote;
  for (QuoteCategoria& una : LeggiQuote(ambiente, anno)) {
    if (una.contoAmm.empty() || una.contoFondo.empty()) {
      proposta.senzaConti.push_back(una.cat);
    } else {
      quote.push_back(std::move(una));
    }
  }
  // An account that a registration debits holds a cost, one that it credits a fund.
  QuoteScritte costi;
  QuoteScritte fondi;
  for (const auto& [conto, saldo] : LeggiScritte(ambiente, anno)) {
    saldo.Negativo() ? fondi[conto] = -saldo : costi[conto] = saldo;
  }
  const bool usuale = ambiente.Esiste("tessarc", "Causali", {{"Cod", kCausaleUsuale}});
  proposta.registrazione.righe =
      RigheDelleQuote(quote, std::move(costi), std::move(fondi), usuale ? kCausaleUsuale : "");
  return proposta;
}

}  // namespace fenalto::assets
