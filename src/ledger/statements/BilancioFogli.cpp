// The trial balance and the comparison as sheets.
#include <functional>
#include <utility>

#include "core/values/Testo.h"
#include "ledger/statements/BilancioInterno.h"

namespace fenalto::ledger {

namespace {

using RigaFoglio = std::vector<Valore>;
/// Amounts of a line of accounts (of one, or of a master's).
using Celle = std::function<RigaFoglio(const std::vector<const Saldi*>&)>;

std::vector<RigaFoglio> Premessa(Ambiente& ambiente, const SceltaBilancio& scelta,
                                 const std::string& titolo) {
  return {{"ditta ", reports::LeggiDatiDitta(ambiente).ragSoc1_2},
          {"anno ", scelta.noAnno ? Valore("tutti") : Valore(scelta.anno)},
          {" data stampa ", ambiente.Ora().Oggi()},
          {titolo},
          {"da mastro ", scelta.daMastro, " a ", scelta.aaMastro}};
}

/// Fills a sheet by the walk, masters' totals after their accounts.
class Riempitore {
 public:
  Riempitore(const SceltaBilancio& scelta, reports::Foglio& foglio, Celle celle)
      : scelta_(scelta), foglio_(foglio), celle_(std::move(celle)) {}

  void Mastro(const MastroVisitato& mastro) {
    lettera_ = UgualeTesto(mastro.patrEcon, "E") ? "e" : "p";
    std::vector<const Saldi*> tutti;
    bool stampato = false;
    for (const ContoVisitato& conto : mastro.conti) {
      tutti.push_back(&conto.saldi);
      if (!ContoStampato(scelta_, conto)) continue;
      stampato = true;
      if (scelta_.soloMastri) continue;
      Riga(conto.cod, conto.descrizione, {&conto.saldi});
      for (const ParteVisitata& parte : conto.parti) {
        if (!Escluso(scelta_, parte.saldi)) Riga(parte.cod, parte.descrizione, {&parte.saldi});
      }
    }
    const RigaFoglio importi = celle_(tutti);
    if (totali_.empty()) totali_.resize(importi.size());
    for (std::size_t i = 0; i < importi.size(); ++i) {
      if (!importi[i].Nullo()) totali_[i] = totali_[i].Importo() + importi[i].Importo();
    }
    if (stampato) Totale("tot. " + mastro.cod, mastro.descrizione, importi);
  }

  /// Sums of the masters' amounts, as many as the line has.
  [[nodiscard]] const RigaFoglio& Totali() const { return totali_; }

  void Totale(const std::string& cod, const std::string& descrizione, const RigaFoglio& importi) {
    foglio_.totali.push_back(foglio_.righe.size());
    Aggiungi({cod, descrizione, lettera_}, importi);
  }
  void SenzaLettera() { lettera_.clear(); }

 private:
  void Riga(const std::string& cod, const std::string& descrizione,
            const std::vector<const Saldi*>& saldi) {
    Aggiungi({cod, descrizione, lettera_}, celle_(saldi));
  }
  void Aggiungi(RigaFoglio riga, const RigaFoglio& importi) {
    riga.insert(riga.end(), importi.begin(), importi.end());
    foglio_.righe.push_back(std::move(riga));
  }

  const SceltaBilancio& scelta_;
  reports::Foglio& foglio_;
  Celle celle_;
  std::string lettera_;
  RigaFoglio totali_;
};

RigaFoglio CelleVerifica(const std::vector<const Saldi*>& conti) {
  Saldo totale;
  for (const Saldi* conto : conti) totale += (*conto)[0];
  return {totale.saldoIniziale, totale.totaleDare, totale.totaleAvere, totale.Finale()};
}

/// Percentages of totals are taken anew: only amounts add up.
RigaFoglio ConScostamento(const std::array<Importo, 2>& costi,
                          const std::array<Importo, 2>& ricavi) {
  const Scostamento scosta = Scosta(costi[0] - ricavi[0], costi[1] - ricavi[1]);
  return {costi[0], ricavi[0], costi[1], ricavi[1], scosta.differenza, scosta.percento};
}

RigaFoglio CelleConfronto(const std::vector<const Saldi*>& conti) {
  std::array<Importo, 2> costi;
  std::array<Importo, 2> ricavi;
  for (const Saldi* conto : conti) {
    for (std::size_t p = 0; p < conto->size(); ++p) {
      const Importo saldo = (*conto)[p].Finale();
      if (saldo.Negativo()) {
        ricavi[p] -= saldo;
      } else {
        costi[p] += saldo;
      }
    }
  }
  return ConScostamento(costi, ricavi);
}

void ColonneFoglio(reports::Foglio& foglio, const std::vector<std::string>& importi) {
  foglio.colonne = {{"Codice"}, {"Descrizione"}, {"p/e"}};
  for (const std::string& titolo : importi) foglio.colonne.push_back({titolo, Tipo::Importo, 2});
}

}  // namespace

reports::Foglio BilancioVerifica::FoglioVerifica(const SceltaBilancio& scelta) {
  reports::Foglio foglio;
  foglio.premessa =
      Premessa(ambiente_, scelta,
               scelta.soloMastri ? "BILANCIO DI VERIFICA SOLO MASTRI" : "BILANCIO DI VERIFICA");
  foglio.premessa.push_back({ScrittaPeriodo(scelta.daDt, scelta.aaDt)});
  ColonneFoglio(foglio, {"Saldo Iniziale", "Dare", "Avere", "Saldo"});
  Riempitore riempitore(scelta, foglio, CelleVerifica);
  VisitaConti visita(ambiente_, RichiestaDi(scelta, "", false));
  if (!visita.Visita("Bilancio di verifica", [&](const auto& m) { riempitore.Mastro(m); })) {
    return {};
  }
  riempitore.SenzaLettera();
  riempitore.Totale("", "TOTALI",
                    riempitore.Totali().empty() ? CelleVerifica({}) : riempitore.Totali());
  return foglio;
}

reports::Foglio BilancioVerifica::FoglioConfronto(const SceltaBilancio& scelta) {
  reports::Foglio foglio;
  foglio.premessa = Premessa(ambiente_, scelta, "CONFRONTO COSTI E RICAVI");
  const auto anno = [&](int a) { return scelta.noAnno ? Valore("tutti") : Valore(a); };
  foglio.premessa.push_back(
      {"periodo A anno ", anno(scelta.anno), ScrittaPeriodo(scelta.daDt, scelta.aaDt)});
  foglio.premessa.push_back(
      {"periodo B anno ", anno(scelta.annoPrec), ScrittaPeriodo(scelta.daDtAP, scelta.aaDtAP)});
  ColonneFoglio(foglio, {"costi A", "ricavi A", "costi B", "ricavi B", "differenza", "%"});
  foglio.colonne.back().decimali = 1;
  Riempitore riempitore(scelta, foglio, CelleConfronto);
  VisitaConti visita(ambiente_, RichiestaDi(scelta, "E", true));
  if (!visita.Visita("Confronto costi e ricavi", [&](const auto& m) { riempitore.Mastro(m); })) {
    return {};
  }
  riempitore.SenzaLettera();
  RigaFoglio t = riempitore.Totali();
  t.resize(4);
  riempitore.Totale(
      "", "TOTALI",
      ConScostamento({t[0].Importo(), t[2].Importo()}, {t[1].Importo(), t[3].Importo()}));
  return foglio;
}

}  // namespace fenalto::ledger
