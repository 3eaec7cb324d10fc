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
constexpr std::size_t kLarghezza = 79;
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
struct Colonne {
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

class TabulatoProspetti {
 public:
  TabulatoProspetti(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                    const SceltaBilancio& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        rapporto_(ambiente, uscite),
        dare_(rapporto_.Prepara({kSinistra, {"R_conto", "R_descrizione", "R_DARE"}})),
        avere_(rapporto_.Prepara({kDestra, {"R_conto", "R_descrizione", "R_AVERE"}})),
        doppia_(rapporto_.Prepara(
            {kDoppia, {"R_mastro", "R_descrmastro", "R_TOTDARE", "R_TOTAVERE"}, true})),
        finale_(rapporto_.Prepara({kFinale, {}, true})) {}

  bool Esegui() {
    reports::Cornice cornice = CorniceBilancio(scelta_, "situazione patrimoniale, costi e ricavi",
                                               "Situazione patrimoniale, costi e ricavi", "TiPatr");
    cornice.larghezza = kLarghezza;
    if (!rapporto_.Apri(cornice, [this] { Testata(); }) || !Stendi(kEconomica)) return false;
    rapporto_.Carta().NuovaPagina();
    return Stendi(kPatrimoniale) && rapporto_.Fine();
  }

 private:
  /// One page of the two; false when the user cancelled.
  bool Stendi(const Facciata& facciata) {
    facciata_ = &facciata;
    totali_ = {};
    rettifiche_ = false;
    VisitaConti visita(ambiente_, RichiestaDi(scelta_, facciata.lettera, false));
    if (!visita.Visita(facciata.intestazione, [this](const auto& m) { Mastro(m); })) return false;
    Chiusura();
    return true;
  }

  void Testata() {
    TestataBilancio(rapporto_, scelta_,
                    rapporto_.Grafico() ? facciata_->intestazione : facciata_->titolo,
                    ScrittaTutto(scelta_));
    if (rapporto_.Grafico()) {
      rapporto_.Titolo("INTESTAZIONE", facciata_->intestazione);
      rapporto_.Titolo("TITOLODARE", facciata_->titoloDare);
      return rapporto_.Titolo("TITOLOAVERE", facciata_->titoloAvere);
    }
    rapporto_.Rigo("=");
    rapporto_.Carta().Riga(facciata_->colonne);
    rapporto_.Rigo("-");
  }

  void Mastro(const MastroVisitato& mastro) {
    Colonne colonne;
    bool stampato = false;
    for (const ContoVisitato& conto : mastro.conti) {
      colonne.Aggiungi(conto.saldi[0].Finale());
      colonne.Aggiungi(conto.rettifica);
      stampato = stampato || ContoStampato(scelta_, conto) || !conto.rettifica.Zero();
    }
    totali_.dare += colonne.dare;
    totali_.avere += colonne.avere;
    if (!stampato) return;
    rapporto_.Riserva(scelta_.soloMastri ? 1 : 2);
    rapporto_.Riga(doppia_, {mastro.cod, mastro.descrizione, colonne.dare, colonne.avere});
    if (scelta_.soloMastri) return;
    ScorriVoci(scelta_, mastro, rapporto_,
               [this](const VoceBilancio& voce) { Riga(voce, voce.saldi[0].Finale(), false); });
    for (const ContoVisitato& conto : mastro.conti) {
      if (conto.rettifica.Zero()) continue;
      rettifiche_ = true;
      Riga({conto.cod, conto.cfp, conto.descrizione, conto.saldi}, conto.rettifica, true);
    }
    rapporto_.Stacco();
  }

  /// An adjustment bears a star before its code.
  void Riga(const VoceBilancio& voce, Importo saldo, bool rettifica) {
    reports::Fascia fascia = saldo.Negativo() ? avere_ : dare_;
    const bool grafico = rapporto_.Grafico();
    if (rettifica && !grafico) fascia.sagoma.front() = '*';
    rapporto_.Riga(
        fascia,
        {rettifica && grafico ? "*" + voce.cod : voce.cod, voce.descrizione, saldo.Assoluto()},
        voce.Rinvio());
  }

  void Chiusura() {
    const Importo differenza = totali_.dare - totali_.avere;
    const bool dare = !differenza.Negativo();
    if (rapporto_.Grafico()) {
      // The totals stand in the foot of the page's last sheet.
      rapporto_.Piede("SCRITTATOTALI", "TOTALI");
      rapporto_.Piede("TDAL", totali_.dare);
      rapporto_.Piede("TAAL", totali_.avere);
      if (rettifiche_) rapporto_.Piede("NOTE2", kNote + 1);
      if (differenza.Zero()) return;
      rapporto_.Piede("SCRITTAFINALE", dare ? facciata_->seDare : facciata_->seAvere);
      return rapporto_.Piede("SALDO", differenza.Assoluto());
    }
    rapporto_.Riserva(6);
    rapporto_.Rigo("=");
    rapporto_.Riga(doppia_, {"", "TOTALI", totali_.dare, totali_.avere});
    rapporto_.Rigo("=");
    if (!differenza.Zero()) {
      rapporto_.Riga(finale_, {dare ? facciata_->testoSeDare : facciata_->testoSeAvere,
                               differenza.Assoluto()});
    }
    if (rettifiche_) {
      rapporto_.Vuota();
      rapporto_.Carta().Riga(kNote);
    }
  }

  Ambiente& ambiente_;
  const SceltaBilancio& scelta_;
  reports::Rapporto rapporto_;
  reports::Fascia dare_;
  reports::Fascia avere_;
  reports::Fascia doppia_;
  reports::Fascia finale_;
  const Facciata* facciata_ = &kEconomica;
  Colonne totali_;
  bool rettifiche_ = false;
};

}  // namespace

bool BilancioVerifica::StampaProspetti(const SceltaBilancio& scelta) {
  return Pronto(scelta, false) && TabulatoProspetti(ambiente_, uscite_, scelta).Esegui();
}

}  // namespace fenalto::ledger
