// The automatic change of prices: refusals in their order, what it writes, and nothing at all when
// it fails in the middle.
#include "ledger/GuastiDiProva.h"
#include "warehouse/stock/MagazzinoDiProva.h"
#include "warehouse/stock/VariazionePrezzi.h"

namespace fenalto::prova {
namespace {

using warehouse::BasePrezzo;
using warehouse::SceltaVariazione;

class VariazionePrezziTest : public MagazzinoDiProva {
 protected:
  VariazionePrezziTest() {
    Tessarc().Esegui(
        "update CodiciRiga set Prezzo=10, Prezzo2=3.335, PrezzoIva=12.2, CostoDigitato=8");
    Riga({.quantita = "1", .prezzo = "6"});
  }
  static SceltaVariazione Tutto() {
    SceltaVariazione scelta;
    scelta.prodotti.daCodiceRiga = "P1";
    scelta.prodotti.aaCodiceRiga = "P2";
    scelta.percAumPr = I("10");
    scelta.base = BasePrezzo::Attuale;
    scelta.prezzo1 = scelta.prezzo2 = true;
    return scelta;
  }
  std::string Prezzi() {
    std::string testo;
    Rs rs = Tessarc().Recordset(
        "select Prezzo, Prezzo2, Prezzo3, PrezzoIva, DtAggPrezzi from CodiciRiga order by Cod");
    for (; !rs.Eof(); rs.MoveNext()) {
      for (std::size_t i = 0; i < 5; ++i) testo += NzStr(rs.Fields(i)) + " ";
      testo += "|";
    }
    return testo;
  }
  warehouse::VariazionePrezzi variazione_{ambiente};
};

TEST_F(VariazionePrezziTest, RifiutiNelLoroOrdine) {
  SceltaVariazione scelta;
  const std::string prima = Prezzi();
  const auto rifiuta = [&](const char* messaggio, const char* campo) {
    EXPECT_FALSE(variazione_.Esegui(scelta));
    EXPECT_EQ(SoloMessaggio(), messaggio);
    EXPECT_EQ(variazione_.CampoRifiutato(), campo);
  };
  constexpr const char* kMancano = "mancano dati: 'da prodotto', 'a prodotto' oppure 'percentule'";
  rifiuta(kMancano, "DaCodiceRiga");
  scelta.prodotti.daCodiceRiga = "P1";
  rifiuta(kMancano, "AaCodiceRiga");
  scelta.prodotti.aaCodiceRiga = "P2";
  rifiuta(kMancano, "PercAumPr");
  scelta.percAumPr = I("10");
  rifiuta("selezionare un opzione 'ricalcolo ...'", "BasePrezzo");
  scelta.base = BasePrezzo::CostoUltimo;
  rifiuta("selezionare un opzione 'prezzo ...'", "Prezzo1");
  scelta.prezzo1 = scelta.prezzoIva = true;
  scelta.prodotti.soloGruppoMag2 = "G";
  dialoghi.Rispondera(
      "Conferma aggiornamento del Prezzo 1 Prezzo con Iva \nin percentuale 10 sull'ultimo costo\n"
      "Da prodotto P1 A P2\nSolo gruppo 2 G",
      Risposta::No);
  EXPECT_FALSE(variazione_.Esegui(scelta));
  EXPECT_EQ(Prezzi(), prima);
}

TEST_F(VariazionePrezziTest, OgniPrezzoELaSuaBase) {
  dialoghi.Rispondera(" sul prezzo attuale", Risposta::Si);
  EXPECT_TRUE(variazione_.Esegui(Tutto()));
  EXPECT_EQ(SoloMessaggio(), "Variazione prezzi effettuata");
  EXPECT_EQ(Prezzi(), "11 3.67 0 12.2 2024-03-15 |11 3.67 0 12.2 2024-03-15 |");
}

TEST_F(VariazionePrezziTest, DaiCosti) {
  SceltaVariazione scelta = Tutto();
  scelta.base = BasePrezzo::CostoUltimo;
  dialoghi.Rispondera(" sull'ultimo costo", Risposta::Si);
  EXPECT_TRUE(variazione_.Esegui(scelta));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("1 prodotto senza costo ha tenuto il suo prezzo"));
  EXPECT_EQ(Prezzi(), "6.6 6.6 0 12.2 2024-03-15 |10 3.335 0 12.2  |");
  scelta.base = BasePrezzo::CostoDigitato;
  scelta.prodotti.daCodiceRiga = "P2";
  scelta.percAumPr = I("-12.5");
  ambiente.ScriviImpostazione({}, "config", "DecP", "3");
  dialoghi.Rispondera(" sul 'costo digitato'", Risposta::Si);
  EXPECT_TRUE(variazione_.Esegui(scelta));
  EXPECT_EQ(Prezzi(), "6.6 6.6 0 12.2 2024-03-15 |7 7 0 12.2 2024-03-15 |");
}

TEST_F(VariazionePrezziTest, InterrottaNonLasciaNulla) {
  const std::string prima = Prezzi();
  dialoghi.annullaDopo = 0;
  dialoghi.Rispondera("Conferma aggiornamento", Risposta::Si);
  EXPECT_FALSE(variazione_.Esegui(Tutto()));
  EXPECT_EQ(Prezzi(), prima);
  // A price out of range stops it too.
  dialoghi.annullaDopo = 1'000;
  Tessarc().Esegui("update CodiciRiga set Prezzo=900000000000000 where Cod='P2'");
  const std::string grande = Prezzi();
  dialoghi.Rispondera("Conferma aggiornamento", Risposta::Si);
  EXPECT_FALSE(variazione_.Esegui(Tutto()));
  EXPECT_EQ(Prezzi(), grande);
}

TEST_F(VariazionePrezziTest, OgniIstruzioneFallisceUnaVolta) {
  std::size_t pronte = 0;
  const int fallite = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Prezzi(); },
      [&] {
        // What fails before the question leaves its answer for the next time.
        for (; pronte < 1; ++pronte) dialoghi.Rispondera("", Risposta::Si);
        const std::size_t chieste = dialoghi.domande.size();
        const bool riuscita = variazione_.Esegui(Tutto());
        pronte -= dialoghi.domande.size() - chieste;
        return riuscita;
      });
  EXPECT_GT(fallite, 3);
  EXPECT_EQ(Prezzi(), "11 3.67 0 12.2 2024-03-15 |11 3.67 0 12.2 2024-03-15 |");
}

}  // namespace
}  // namespace fenalto::prova
