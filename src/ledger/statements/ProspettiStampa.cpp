// Printed form of the statements: costs and revenues, then assets and liabilities.
#include "ledger/statements/BilancioInterno.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kSinistra =
    " $$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ççççççççççççççç                ";
constexpr const char* kDestra =
    " $$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$                 ççççççççççççççç";
constexpr const char* kDoppia =
    " $$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$ççççççççççççççç  ççççççççççççççç";
constexpr const char* kFinale =
    "              $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$          ççççççççççççççç          ";
constexpr std::size_t kLarghezzaProspetti = 79;
constexpr const char* kNote = " *=rettifiche di bilancio";

/// What differs between the two pages.
struct Facciata {
  const char* lettera;
  const char* titolo;
  const char* colonne;
  const char* intestazione;
  const char* titoloDare;
  const char* titoloAvere;
  const char* seDare;   ///< closing words when the left side is the greater
  const char* seAvere;  ///< when the right side is
  const char* testoSeDare;
  const char* testoSeAvere;
};

constexpr Facciata kEconomica = {
    "E",
    "stampa situazione costi/ricavi",
    "  codice    descrizione mastro/sottoconto               costi          ricavi  ",
    "SITUAZIONE COSTI E RICAVI",
    "COSTI",
    "RICAVI",
    "PERDITA DI ESERCIZIO",
    "UTILE DI ESERCIZIO",
    "PERDITA DI ESERCIZIO",
    "UTILE DI ESERCIZIO"};
constexpr Facciata kPatrimoniale = {
    "P",
    "stampa situazione patrimoniale",
    "  codice    descrizione mastro/sottoconto              attivo         passivo  ",
    "SITUAZIONE PATRIMONIALE",
    "ATTIVO",
    "PASSIVO",
    "ECCEDENZA ATTIVA",
    "ECCEDENZA PASSIVA",
    "eccedenza attiva",
    "eccedenza passiva"};

/// The two columns: a balance above zero stands left, the absolute value of one below zero right.
struct ColonneProspetto {
  Importo dare;
  Importo avere;
  void Aggiungi(Importo saldo) {
    if (saldo.Negativo()) {
      avere -= saldo;
    } else {
      dare += saldo;
    }
  }
};

class TabulatoProspetti : private Tabulato {
 public:
  TabulatoProspetti(Ambiente& a, reports::FabbricaUscite& uscite, const SceltaBilancio& s)
      : Tabulato(a, uscite, s),
        sinistra_(Picture(kSinistra)),
        destra_(Picture(kDestra)),
        doppia_(Picture(kDoppia)),
        rettificaSinistra_("*" + sinistra_.substr(1)),
        rettificaDestra_("*" + destra_.substr(1)),
        finale_(Picture(kFinale)) {}

  bool Esegui() {
    if (!Apri({"situazione patrimoniale, costi e ricavi", "Situazione patrimoniale, costi e ricavi",
               "TiPatr", kLarghezzaProspetti, scelta.stGrafico, scelta.xTar})) {
      return false;
    }
    stampa.Intestazione([this] { Testata(); });
    if (!Stendi(kEconomica)) return false;
    stampa.NuovaPagina();
    return Stendi(kPatrimoniale) && stampa.Fine();
  }

 private:
  /// One page of the two; false when the user cancelled.
  bool Stendi(const Facciata& facciata) {
    facciata_ = &facciata;
    totali_ = {};
    rettifiche_ = false;
    VisitaConti visita(ambiente, RichiestaDi(scelta, facciata.lettera, false));
    if (!visita.Visita(facciata.intestazione, [this](const auto& m) { Mastro(m); })) return false;
    Chiusura();
    return true;
  }

  void Testata() {
    ApriTestata(grafico ? facciata_->intestazione : facciata_->titolo, ScrittaTutto(scelta));
    if (grafico) {
      stampa.CampoModello("INTESTAZIONE", facciata_->intestazione);
      stampa.CampoModello("TITOLODARE", facciata_->titoloDare);
      stampa.CampoModello("TITOLOAVERE", facciata_->titoloAvere);
      return;
    }
    stampa.Riga(facciata_->colonne);
    Rigo("-");
  }

  void Mastro(const MastroVisitato& mastro) {
    ColonneProspetto colonne;
    bool stampato = false;
    for (const ContoVisitato& conto : mastro.conti) {
      colonne.Aggiungi(conto.saldi[0].Finale());
      colonne.Aggiungi(conto.rettifica);
      stampato = stampato || ContoStampato(scelta, conto) || !conto.rettifica.Zero();
    }
    totali_.dare += colonne.dare;
    totali_.avere += colonne.avere;
    if (!stampato) return;
    stampa.Riserva(scelta.soloMastri ? 1 : 2);
    Doppia(mastro.cod, mastro.descrizione, colonne);
    if (scelta.soloMastri) return;
    for (const ContoVisitato& conto : mastro.conti) Conto(conto);
    for (const ContoVisitato& conto : mastro.conti) {
      if (conto.rettifica.Zero()) continue;
      rettifiche_ = true;
      Riga(conto.cod, conto.descrizione, conto.rettifica, AlConto(conto.cfp, conto.cod), true);
    }
    Stacco();
  }

  void Conto(const ContoVisitato& conto) {
    if (!ContoStampato(scelta, conto)) return;
    Riga(conto.cod, conto.descrizione, conto.saldi[0].Finale(), AlConto(conto.cfp, conto.cod));
    for (const ParteVisitata& parte : conto.parti) {
      if (Escluso(scelta, parte.saldi)) continue;
      Riga(parte.cod, "  " + parte.descrizione, parte.saldi[0].Finale(),
           AlConto(parte.cfp, parte.cod));
    }
  }

  void Riga(const std::string& cod, const std::string& descrizione, Importo saldo,
            const Rinvio& rinvio, bool rettifica = false) {
    const bool destra = saldo.Negativo();
    if (grafico) {
      const double y = stampa.YCorrente();
      stampa.CampoModello("R_conto", rettifica ? "*" + cod : cod, y, rinvio);
      stampa.CampoModello("R_descrizione", descrizione, y, rinvio);
      stampa.CampoModello(destra ? "R_AVERE" : "R_DARE", PerModello(saldo.Assoluto()), y, rinvio);
      return stampa.AvanzaRiga();
    }
    stampa.Campo(1, cod);
    stampa.Campo(2, descrizione);
    stampa.Campo(3, saldo.Assoluto());
    if (rettifica) return stampa.Riga(destra ? rettificaDestra_ : rettificaSinistra_, rinvio);
    stampa.Riga(destra ? destra_ : sinistra_, rinvio);
  }

  void Doppia(const std::string& cod, const std::string& descrizione,
              const ColonneProspetto& colonne) {
    if (grafico) {
      const double y = stampa.YCorrente();
      stampa.CampoModello("R_mastro", cod, y);
      stampa.CampoModello("R_descrmastro", descrizione, y);
      stampa.CampoModello("R_TOTDARE", PerModello(colonne.dare), y);
      stampa.CampoModello("R_TOTAVERE", PerModello(colonne.avere), y);
      return stampa.AvanzaRiga();
    }
    stampa.Campo(1, cod);
    stampa.Campo(2, descrizione);
    stampa.Campo(3, colonne.dare);
    stampa.Campo(4, colonne.avere);
    stampa.Riga(doppia_, {}, true);
  }

  void Chiusura() {
    const Importo differenza = totali_.dare - totali_.avere;
    const bool dare = !differenza.Negativo();
    if (grafico) {
      // The totals stand in the foot of the page's last sheet.
      stampa.CampoModello("SCRITTATOTALI", "TOTALI");
      stampa.CampoModello("TDAL", PerModello(totali_.dare));
      stampa.CampoModello("TAAL", PerModello(totali_.avere));
      if (rettifiche_) stampa.CampoModello("NOTE2", kNote + 1);
      if (differenza.Zero()) return;
      stampa.CampoModello("SCRITTAFINALE", dare ? facciata_->seDare : facciata_->seAvere);
      stampa.CampoModello("SALDO", PerModello(differenza.Assoluto()));
      return;
    }
    stampa.Riserva(6);
    Rigo("=");
    Doppia("", "TOTALI", totali_);
    Rigo("=");
    if (!differenza.Zero()) {
      stampa.Campo(1, dare ? facciata_->testoSeDare : facciata_->testoSeAvere);
      stampa.Campo(2, differenza.Assoluto());
      stampa.Riga(finale_, {}, true);
    }
    if (rettifiche_) {
      stampa.Riga("");
      stampa.Riga(kNote);
    }
  }

  std::string sinistra_;
  std::string destra_;
  std::string doppia_;
  std::string rettificaSinistra_;
  std::string rettificaDestra_;
  std::string finale_;
  const Facciata* facciata_ = &kEconomica;
  ColonneProspetto totali_;
  bool rettifiche_ = false;
};

}  // namespace

bool BilancioVerifica::StampaProspetti(const SceltaBilancio& scelta) {
  return Pronto(scelta, false) && TabulatoProspetti(ambiente_, uscite_, scelta).Esegui();
}

}  // namespace fenalto::ledger
