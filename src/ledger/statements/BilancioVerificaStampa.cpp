// Printed form of the trial balance.
#include "ledger/statements/BilancioInterno.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kRigaVerifica =
    "| $$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$|çççççççççççççççç|çççççççççççççççç|"
    "çççççççççççççççç|çççççççççççççççç|";
constexpr const char* kRigaMastro =
    "| $$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$|                |                |"
    "                |                |";
constexpr const char* kColonneVerifica =
    "|  codice  descrizione mastro/sottoconto      |  Saldo Iniziale|            Dare|"
    "           Avere|           Saldo|";
constexpr std::size_t kLarghezzaVerifica = 115;

class TabulatoVerifica : private Tabulato {
 public:
  TabulatoVerifica(Ambiente& a, reports::FabbricaUscite& uscite, const SceltaBilancio& s)
      : Tabulato(a, uscite, s), riga_(Picture(kRigaVerifica)) {}

  bool Esegui() {
    const std::string titolo =
        scelta.soloMastri ? "BILANCIO DI VERIFICA SOLO MASTRI" : "BILANCIO DI VERIFICA";
    if (!Apri({"bilancio di verifica", titolo, "TiBV", kLarghezzaVerifica, scelta.stGrafico,
               scelta.xTar})) {
      return false;
    }
    stampa.Intestazione([this, titolo] {
      ApriTestata(titolo, ScrittaTutto(scelta));
      if (grafico) return;
      stampa.Riga(kColonneVerifica);
      Rigo("-");
    });
    VisitaConti visita(ambiente, RichiestaDi(scelta, "", false));
    if (!visita.Visita("Bilancio di verifica", [this](const auto& m) { Mastro(m); })) return false;
    stampa.Riserva(3);
    if (grafico) stampa.Filetto();
    if (!grafico) Rigo("=");
    Totale("", "TOTALI", totali_);
    if (!grafico) Rigo("=");
    return stampa.Fine();
  }

 private:
  void Mastro(const MastroVisitato& mastro) {
    Saldo totale;
    bool stampato = false;
    for (const ContoVisitato& conto : mastro.conti) {
      totale += conto.saldi[0];
      if (!ContoStampato(scelta, conto)) continue;
      if (!scelta.soloMastri) {
        // The master's line never stands alone, nor the last account without its total.
        stampa.Riserva(stampato ? 2 : 3);
        if (!stampato) Testa(mastro);
        Conto(conto);
      }
      stampato = true;
    }
    totali_ += totale;
    if (!stampato) return;
    if (scelta.soloMastri) {
      Totale("tot. " + mastro.cod, mastro.descrizione, totale);
      return;
    }
    if (grafico) stampa.Filetto();
    Totale("tot. " + mastro.cod, mastro.descrizione, totale);
    Stacco("-");
  }

  void Testa(const MastroVisitato& mastro) {
    if (grafico) {
      const double y = stampa.YCorrente();
      stampa.CampoModello("R_mastro", mastro.cod, y);
      stampa.CampoModello("R_descrmastro", mastro.descrizione, y);
      return stampa.AvanzaRiga();
    }
    stampa.Campo(1, mastro.cod);
    stampa.Campo(2, mastro.descrizione);
    stampa.Riga(kRigaMastro, {}, true);
  }

  void Conto(const ContoVisitato& conto) {
    Riga(conto.cod, conto.descrizione, conto.saldi[0], AlConto(conto.cfp, conto.cod));
    for (const ParteVisitata& parte : conto.parti) {
      if (Escluso(scelta, parte.saldi)) continue;
      Riga(parte.cod, "  " + parte.descrizione, parte.saldi[0], AlConto(parte.cfp, parte.cod));
    }
  }

  void Riga(const std::string& cod, const std::string& descrizione, const Saldo& s,
            const Rinvio& rinvio) {
    if (!grafico) return RigaTesto(cod, descrizione, s, rinvio, false);
    const double y = stampa.YCorrente();
    stampa.CampoModello("R_conto", cod, y, rinvio);
    stampa.CampoModello("R_descrizione", descrizione, y, rinvio);
    stampa.CampoModello("R_SALDOINIZIALE", PerModello(s.saldoIniziale), y, rinvio);
    stampa.CampoModello("R_DARE", PerModello(s.totaleDare), y, rinvio);
    stampa.CampoModello("R_AVERE", PerModello(s.totaleAvere), y, rinvio);
    stampa.CampoModello("R_SALDO", PerModello(s.Finale()), y, rinvio);
    stampa.AvanzaRiga();
  }

  void Totale(const std::string& cod, const std::string& descrizione, const Saldo& s) {
    if (!grafico) return RigaTesto(cod, descrizione, s, {}, true);
    const double y = stampa.YCorrente();
    stampa.CampoModello("R_mastro", cod, y);
    stampa.CampoModello("R_descrmastro", descrizione, y);
    stampa.CampoModello("R_TOTSALDOINIZIALE", PerModello(s.saldoIniziale), y);
    stampa.CampoModello("R_TOTDARE", PerModello(s.totaleDare), y);
    stampa.CampoModello("R_TOTAVERE", PerModello(s.totaleAvere), y);
    stampa.CampoModello("R_TOTSALDO", PerModello(s.Finale()), y);
    stampa.AvanzaRiga();
  }

  void RigaTesto(const std::string& cod, const std::string& descrizione, const Saldo& s,
                 const Rinvio& rinvio, bool grassetto) {
    stampa.Campo(1, cod);
    stampa.Campo(2, descrizione);
    stampa.Campo(3, s.saldoIniziale);
    stampa.Campo(4, s.totaleDare);
    stampa.Campo(5, s.totaleAvere);
    stampa.Campo(6, s.Finale());
    stampa.Riga(riga_, rinvio, grassetto);
  }

  std::string riga_;
  Saldo totali_;
};

}  // namespace

bool BilancioVerifica::StampaVerifica(const SceltaBilancio& scelta) {
  return Pronto(scelta, false) && TabulatoVerifica(ambiente_, uscite_, scelta).Esegui();
}

}  // namespace fenalto::ledger
