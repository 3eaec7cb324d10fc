// Printed form of the comparison of costs and revenues between two periods.
#include "ledger/statements/BilancioInterno.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kRigaConfronto =
    " $$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ çççççççççççççç çççççççççççççç çççççççççççççç "
    "çççççççççççççç çççççççççççççç #####,#";
constexpr const char* kColonneConfronto =
    "  codice    descrizione mastro/sottoconto              costi A       ricavi A        costi B "
    "      ricavi B     differenza      %";
constexpr std::size_t kLarghezzaConfronto = 130;
constexpr const char* kTitolo = " CONFRONTO COSTI E RICAVI ";

/// Costs and revenues of the two periods.
struct ColonneConfronto {
  std::array<Importo, 2> costi;
  std::array<Importo, 2> ricavi;
  /// A balance above zero is a cost, one below zero a revenue.
  void Aggiungi(const Saldi& saldi) {
    for (std::size_t p = 0; p < saldi.size(); ++p) {
      const Importo saldo = saldi[p].Finale();
      if (saldo.Negativo()) {
        ricavi[p] -= saldo;
      } else {
        costi[p] += saldo;
      }
    }
  }
  [[nodiscard]] Importo Saldo(std::size_t p) const { return costi[p] - ricavi[p]; }
};

/// A line's cells; Null leaves one empty.
struct CelleStampate {
  std::array<Valore, 4> importi;  ///< costs A, revenues A, costs B, revenues B
  Valore differenza;
  Valore percento;
};

class TabulatoConfronto : private Tabulato {
 public:
  TabulatoConfronto(Ambiente& a, reports::FabbricaUscite& uscite, const SceltaBilancio& s)
      : Tabulato(a, uscite, s), riga_(Picture(kRigaConfronto)) {}

  bool Esegui() {
    if (!Apri({"confronto costi e ricavi", "Confronto costi e ricavi", "TiConfr",
               kLarghezzaConfronto, scelta.stGrafico, scelta.xTar})) {
      return false;
    }
    stampa.Intestazione([this] { Testata(); });
    VisitaConti visita(ambiente, RichiestaDi(scelta, "E", true));
    if (!visita.Visita("Confronto costi e ricavi", [this](const auto& m) { Mastro(m); })) {
      return false;
    }
    Chiusura();
    return stampa.Fine();
  }

 private:
  [[nodiscard]] std::string Periodo(bool a) const {
    const int anno = a ? scelta.anno : scelta.annoPrec;
    return (a ? "Periodo A  dal " : "Periodo B  dal ") + (a ? scelta.daDt : scelta.daDtAP).Testo() +
           " al " + (a ? scelta.aaDt : scelta.aaDtAP).Testo() +
           (scelta.noAnno ? "" : "  anno " + std::to_string(anno));
  }

  void Testata() {
    ApriTestata(kTitolo, grafico ? "" : ScrittaScelte(scelta));
    if (grafico) {
      stampa.CampoModello("SCELTE", ScrittaScelte(scelta));
      stampa.CampoModello("titolo1", Periodo(true));
      stampa.CampoModello("titolo2", Periodo(false));
      return;
    }
    stampa.Riga(" " + Periodo(true));
    stampa.Riga(" " + Periodo(false));
    Rigo("-");
    stampa.Riga(kColonneConfronto);
    Rigo("-");
  }

  [[nodiscard]] CelleStampate Intere(const ColonneConfronto& c) const {
    const Scostamento scosta = Scosta(c.Saldo(0), c.Saldo(1));
    return {{c.costi[0], c.ricavi[0], c.costi[1], c.ricavi[1]}, scosta.differenza, scosta.percento};
  }

  void Mastro(const MastroVisitato& mastro) {
    ColonneConfronto colonne;
    bool stampato = false;
    for (const ContoVisitato& conto : mastro.conti) {
      colonne.Aggiungi(conto.saldi);
      stampato = stampato || ContoStampato(scelta, conto);
    }
    for (std::size_t p = 0; p < 2; ++p) {
      totali_.costi[p] += colonne.costi[p];
      totali_.ricavi[p] += colonne.ricavi[p];
    }
    if (!stampato) return;
    stampa.Riserva(scelta.soloMastri ? 1 : 2);
    Riga(mastro.cod, mastro.descrizione, Intere(colonne), {}, true);
    if (scelta.soloMastri) return;
    for (const ContoVisitato& conto : mastro.conti) Conto(conto);
    Stacco();
  }

  void Conto(const ContoVisitato& conto) {
    if (!ContoStampato(scelta, conto)) return;
    Singola(conto.cod, conto.descrizione, conto.saldi, AlConto(conto.cfp, conto.cod));
    for (const ParteVisitata& parte : conto.parti) {
      if (Escluso(scelta, parte.saldi)) continue;
      Singola(parte.cod, "  " + parte.descrizione, parte.saldi, AlConto(parte.cfp, parte.cod));
    }
  }

  /// An account has one cell a period.
  void Singola(const std::string& cod, const std::string& descrizione, const Saldi& saldi,
               const Rinvio& rinvio) {
    ColonneConfronto colonne;
    colonne.Aggiungi(saldi);
    CelleStampate celle = Intere(colonne);
    for (std::size_t i = 0; i < celle.importi.size(); ++i) {
      if (celle.importi[i].Importo().Zero()) celle.importi[i] = {};
    }
    Riga(cod, descrizione, celle, rinvio, false);
  }

  void Riga(const std::string& cod, const std::string& descrizione, const CelleStampate& celle,
            const Rinvio& rinvio, bool totale) {
    if (grafico) return RigaGrafica(cod, descrizione, celle, rinvio, totale);
    stampa.Campo(1, cod);
    stampa.Campo(2, descrizione);
    for (std::size_t i = 0; i < celle.importi.size(); ++i) stampa.Campo(3 + i, celle.importi[i]);
    stampa.Campo(7, celle.differenza);
    stampa.Campo(8, celle.percento);
    stampa.Riga(riga_, rinvio, totale);
  }

  void RigaGrafica(const std::string& cod, const std::string& descrizione,
                   const CelleStampate& celle, const Rinvio& rinvio, bool totale) {
    static constexpr std::array<const char*, 4> kCampi = {"COSTIA", "RICAVIA", "COSTIB", "RICAVIB"};
    const std::string prefisso = totale ? "R_TOT" : "R_";
    const double y = stampa.YCorrente();
    stampa.CampoModello(totale ? "R_mastro" : "R_conto", cod, y, rinvio);
    stampa.CampoModello(totale ? "R_descrmastro" : "R_descrizione", descrizione, y, rinvio);
    for (std::size_t i = 0; i < kCampi.size(); ++i) {
      if (celle.importi[i].Nullo()) continue;
      stampa.CampoModello(prefisso + kCampi[i], PerModello(celle.importi[i].Importo()), y, rinvio);
    }
    if (!celle.differenza.Nullo()) {
      stampa.CampoModello(prefisso + "DIFF", PerModello(celle.differenza.Importo()), y, rinvio);
    }
    stampa.CampoModello(prefisso + "PERC", celle.percento, y, rinvio);
    stampa.AvanzaRiga();
  }

  void Chiusura() {
    stampa.Riserva(grafico ? 4 : 6);
    if (grafico) stampa.Filetto();
    if (!grafico) Rigo("=");
    const auto lato = [&](const char* testo, bool costi) {
      const auto& c = costi ? totali_.costi : totali_.ricavi;
      CelleStampate celle;
      celle.importi[costi ? 0 : 1] = c[0];
      celle.importi[costi ? 2 : 3] = c[1];
      const Scostamento scosta = Scosta(c[0], c[1]);
      celle.differenza = scosta.differenza;
      celle.percento = scosta.percento;
      Riga("", testo, celle, {}, true);
    };
    lato("TOTALE COSTI", true);
    lato("TOTALE RICAVI", false);
    // A profit stands under the revenues, a loss under the costs. From one to the other no
    // percentage says anything.
    CelleStampate celle;
    const std::array<Importo, 2> utile = {-totali_.Saldo(0), -totali_.Saldo(1)};
    for (std::size_t p = 0; p < 2; ++p) {
      if (!utile[p].Zero())
        celle.importi[2 * p + (utile[p].Negativo() ? 0 : 1)] = utile[p].Assoluto();
    }
    celle.differenza = utile[1] - utile[0];
    if (utile[0].Negativo() == utile[1].Negativo()) {
      celle.percento = Scosta(utile[0], utile[1]).percento;
    }
    Riga("", "UTILE (RICAVI) / PERDITA (COSTI)", celle, {}, true);
    if (!grafico) Rigo("=");
  }

  std::string riga_;
  ColonneConfronto totali_;
};

}  // namespace

bool BilancioVerifica::StampaConfronto(const SceltaBilancio& scelta) {
  return Pronto(scelta, true) && TabulatoConfronto(ambiente_, uscite_, scelta).Esegui();
}

}  // namespace fenalto::ledger
