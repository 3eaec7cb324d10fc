#include "ledger/statements/BilancioInterno.h"

#include <algorithm>

#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"

namespace fenalto::ledger {

namespace {

bool Mosso(const Saldo& s) {
  return !s.saldoIniziale.Zero() || !s.totaleDare.Zero() || !s.totaleAvere.Zero();
}

Data Inizio(Data da) {
  return da.Nulla() ? Ambiente::DataMinima() : da;
}

}  // namespace

RichiestaVisita RichiestaDi(const SceltaBilancio& scelta, const std::string& lettera,
                            bool confronto) {
  RichiestaVisita richiesta;
  richiesta.daMastro = scelta.daMastro;
  richiesta.aaMastro = scelta.aaMastro;
  richiesta.patrEcon = lettera;
  richiesta.escludoCausale = scelta.escludoCausale;
  richiesta.parti = scelta.stampoCliFor;
  richiesta.periodi.push_back({scelta.noAnno ? 0 : scelta.anno, Inizio(scelta.daDt), scelta.aaDt});
  if (confronto) {
    richiesta.periodi.push_back(
        {scelta.noAnno ? 0 : scelta.annoPrec, Inizio(scelta.daDtAP), scelta.aaDtAP});
  }
  return richiesta;
}

bool Escluso(const SceltaBilancio& scelta, const Saldi& saldi) {
  if (scelta.escludoSaldo0 &&
      std::ranges::all_of(saldi, [](const Saldo& s) { return s.Finale().Zero(); })) {
    return true;
  }
  return scelta.escludoNonMovimentati && std::ranges::none_of(saldi, Mosso);
}

bool ContoStampato(const SceltaBilancio& scelta, const ContoVisitato& conto) {
  return !Escluso(scelta, conto.saldi) ||
         std::ranges::any_of(conto.parti, [&](const ParteVisitata& parte) {
           return !Escluso(scelta, parte.saldi);
         });
}

Scostamento Scosta(Importo a, Importo b) {
  const Importo differenza = a - b;
  Scostamento scostamento;
  scostamento.differenza = (b.Zero() ? a : b).Negativo() ? -differenza : differenza;
  if (!b.Zero()) {
    scostamento.percento =
        Arrotonda(differenza.Per(Importo::DaUnita(100)).Diviso(b), 1, ModoArrotonda::Vicino);
  }
  return scostamento;
}

std::string ScrittaPeriodo(Data da, Data a) {
  return "dal " + Inizio(da).Testo() + " al " + a.Testo();
}

std::string ScrittaAnno(const SceltaBilancio& scelta) {
  return scelta.noAnno ? "tutti gli anni" : "anno " + std::to_string(scelta.anno);
}

std::string ScrittaScelte(const SceltaBilancio& scelta) {
  std::string testo;
  if (!scelta.daMastro.empty() || !scelta.aaMastro.empty()) {
    testo = "da mastro " + scelta.daMastro + " a " + scelta.aaMastro;
  }
  if (!scelta.escludoCausale.empty()) {
    testo += (testo.empty() ? "" : "  ") + ("esclusa la causale " + scelta.escludoCausale);
  }
  return testo;
}

std::string ScrittaTutto(const SceltaBilancio& scelta) {
  return ScrittaAnno(scelta) + "  " + ScrittaPeriodo(scelta.daDt, scelta.aaDt) + "  " +
         ScrittaScelte(scelta);
}

void TestataBilancio(reports::Rapporto& rapporto, const SceltaBilancio& scelta,
                     const std::string& titolo, const std::string& sotto) {
  rapporto.TestataDitta();
  if (rapporto.Grafico()) {
    rapporto.Carta().CampoModello("DADT", scelta.daDt);
    rapporto.Carta().CampoModello("AADT", scelta.aaDt);
  }
  rapporto.Titolo("INTESTAZ", scelta.intestaz);
  rapporto.Titolo("TITOLO", titolo, true);
  rapporto.Titolo("TITOLO2", sotto);
}

reports::Cornice CorniceBilancio(const SceltaBilancio& scelta, const std::string& rapporto,
                                 const std::string& titolo, const std::string& modello) {
  return {rapporto, titolo, modello, 0, scelta.stGrafico, scelta.xTar, true};
}

std::vector<std::vector<Valore>> PremessaBilancio(Ambiente& ambiente,
                                                  const reports::Rapporto& rapporto,
                                                  const SceltaBilancio& scelta,
                                                  const std::string& titolo) {
  return {{"ditta ", rapporto.Ditta().ragSoc1_2},
          {"anno ", scelta.noAnno ? Valore("tutti") : Valore(scelta.anno)},
          {" data stampa ", ambiente.Ora().Oggi()},
          {titolo},
          {"da mastro ", scelta.daMastro, " a ", scelta.aaMastro}};
}

void ScorriVoci(const SceltaBilancio& scelta, const MastroVisitato& mastro,
                const reports::Rapporto& rapporto,
                const std::function<void(const VoceBilancio&)>& voce) {
  const std::string rientro = rapporto.SuFoglio() ? "" : "  ";
  for (const ContoVisitato& conto : mastro.conti) {
    if (!ContoStampato(scelta, conto)) continue;
    voce({conto.cod, conto.cfp, conto.descrizione, conto.saldi});
    for (const ParteVisitata& parte : conto.parti) {
      if (Escluso(scelta, parte.saldi)) continue;
      voce({parte.cod, parte.cfp, rientro + parte.descrizione, parte.saldi, true});
    }
  }
}

std::string LetteraDi(const MastroVisitato& mastro) {
  return UgualeTesto(mastro.patrEcon, "E") ? "e" : "p";
}

}  // namespace fenalto::ledger
