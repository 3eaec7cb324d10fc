// Every statement of every run of the year end is made to fail once: nothing is left half done.
#include "ledger/ChiusureDiProva.h"
#include "ledger/GuastiDiProva.h"
#include "ledger/closing/EliminazioneAnno.h"
#include "ledger/closing/EliminazioneSelettiva.h"
#include "ledger/closing/NuovoEsercizio.h"
#include "ledger/closing/SituazioneAnno.h"

namespace fenalto::prova {
namespace {

/// Says yes to every question, and types the year that is asked for.
class SiSempre : public DialoghiFinti {
 public:
  Risposta Domanda(const std::string&, Bottoni, Risposta, const std::string&, Icona) override {
    return Risposta::Si;
  }
  std::optional<std::string> Chiedi(const std::string&, const std::string&) override {
    return "2023";
  }
};

class ChiusureGuastiTest : public ChiusureDiProva, public ::testing::WithParamInterface<Guasto> {
 protected:
  ChiusureGuastiTest()
      : altra(OpzioniProva(cartella / "programma"), si, stazione->orologio, stazione->caso) {
    AnnoPiccolo();
    Articolo(2023, 1, G(1, 3, 2023), {{"P", "100.010", I("7")}, {"P", "110.001", I("-7")}});
    EXPECT_TRUE(altra.ApriDitta("Prova", 2024));
  }
  void OgniIstruzione(const char* nome, int alMeno, const std::function<bool()>& azione) {
    const int guasti = FallisceOgniIstruzione(
        altra.Basi(), GetParam(), [this] { return Contenuto() + Contenuto("scadenzario"); },
        azione);
    EXPECT_GE(guasti, alMeno) << nome;
  }
  SiSempre si;
  Ambiente altra;
};

TEST_P(ChiusureGuastiTest, OgniOperazione) {
  const auto trasporta = [this](bool definitivo) {
    ledger::TrasportoSaldi trasporto(altra);
    trasporto.LetturaSaldi();
    trasporto.Dati().Scrivi("TrasportoDefinitivo", definitivo);
    return trasporto.ConfermaSaldi();
  };
  ledger::Chiusure chiusure(altra);
  OgniIstruzione("provvisorio", 15, [&] { return trasporta(false); });
  OgniIstruzione("economici", 10, [&] { return chiusure.ConfermaEconomici(); });
  OgniIstruzione("utile", 8, [&] { return chiusure.ConfermaUtile(); });
  OgniIstruzione("definitivo", 20, [&] { return trasporta(true); });
  OgniIstruzione("chiusura", 20, [&] { return chiusure.ConfermaChiusura(); });
  EXPECT_THAT(Saldi(2024), IsEmpty());
  const auto ultima = ledger::LeggiOperazioni(ambiente, 2024).at(0);
  OgniIstruzione("annulla", 5, [&] { return ledger::AnnullaOperazione(altra, ultima.id); });
  OgniIstruzione("nuovo anno", 5,
                 [&] { return ledger::NuovoEsercizio(altra).ConfermaNuovoAnno(); });
  OgniIstruzione("elimina anno", 15, [&] { return ledger::EliminaAnno(altra, 2023); });
  OgniIstruzione("selettiva", 5, [&] {
    ledger::EliminazioneSelettiva elimina(altra);
    elimina.Dati().Scrivi("ElimPrimanota", true);
    elimina.Dati().Scrivi("ElimDocumenti", true);
    return elimina.EliminaArticoli();
  });
}

INSTANTIATE_TEST_SUITE_P(Guasti, ChiusureGuastiTest,
                         ::testing::Values(Guasto::Errore, Guasto::Memoria));

}  // namespace
}  // namespace fenalto::prova
