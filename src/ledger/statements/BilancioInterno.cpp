#include "ledger/statements/BilancioInterno.h"

#include <algorithm>

#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"

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
  const Importo differenza = b - a;
  Scostamento scostamento;
  scostamento.differenza = (a.Zero() ? b : a).Negativo() ? -differenza : differenza;
  if (!a.Zero()) {
    scostamento.percento =
        Arrotonda(differenza.Per(Importo::DaUnita(100)).Diviso(a), 1, ModoArrotonda::Vicino);
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

Tabulato::Tabulato(Ambiente& a, reports::FabbricaUscite& uscite, const SceltaBilancio& s)
    : ambiente(a), scelta(s), stampa(a, uscite), ditta_(reports::LeggiDatiDitta(a)) {}

bool Tabulato::Apri(const reports::Cornice& cornice) {
  larghezza_ = cornice.larghezza;
  const reports::ModoStampa modo = reports::ApriStampa(stampa, ambiente, cornice);
  grafico = modo == reports::ModoStampa::Grafico;
  return modo != reports::ModoStampa::Fermata;
}

void Tabulato::ApriTestata(const std::string& titolo, const std::string& sotto) {
  ++pagina_;
  if (grafico) {
    reports::CampiTestata(stampa, ambiente, ditta_, pagina_);
    stampa.CampoModello("TITOLO", titolo);
    stampa.CampoModello("TITOLO2", sotto);
    stampa.CampoModello("DADT", scelta.daDt);
    stampa.CampoModello("AADT", scelta.aaDt);
    stampa.CampoModello("INTESTAZ", scelta.intestaz);
    return;
  }
  reports::TestataTesto(stampa, ambiente, ditta_, pagina_, larghezza_);
  const std::string intera = reports::Ripeti("$", larghezza_);
  for (const std::string* testo : {&scelta.intestaz, &titolo, &sotto}) {
    if (testo->empty()) continue;
    stampa.Campo(1, *testo);
    stampa.Riga(intera, {}, testo == &titolo);
  }
  Rigo("=");
}

void Tabulato::Rigo(std::string_view carattere) {
  stampa.Riga(reports::Ripeti(carattere, larghezza_));
}

void Tabulato::Stacco(std::string_view carattere) {
  if (stampa.RigheLibere() <= 0) return;
  if (grafico) return stampa.AvanzaRiga();
  if (carattere.empty()) return stampa.Riga("");
  Rigo(carattere);
}

std::string Tabulato::Picture(std::string_view sagoma) const {
  return reports::PictureImporto(sagoma, ambiente.Euro());
}

Valore Tabulato::PerModello(Importo importo) const {
  if (ambiente.Euro()) return importo;
  return ScriviImportoFisso(importo, 0);
}

}  // namespace fenalto::ledger
