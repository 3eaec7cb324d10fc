// The end of a year's stock: what is carried over, refusals, repeating it, and nothing at all when
// a statement of it fails.
#include "documents/carryover/TrasportoEsistenze.h"
#include "ledger/GuastiDiProva.h"
#include "warehouse/stock/MagazzinoDiProva.h"

namespace fenalto::prova {
namespace {

using documents::SceltaTrasporto;
using documents::ValoreTrasporto;

class TrasportoEsistenzeTest : public MagazzinoDiProva {
 protected:
  TrasportoEsistenzeTest() {
    Tessarc().Esegui(
        "update CodiciRiga set CostoDigitato=9, CodIva='22', Conto='X' where Cod='P1'");
    Riga({.quantita = "10", .prezzo = "2", .mag = "01"});
    Riga({.quantita = "5", .prezzo = "5", .dt = G(1, 3, 2024), .mag = "02", .numero = 2});
    Riga({.cs = "S", .quantita = "3", .mag = "01", .tipo = "XS", .causale = "XS"});
    Riga({.quantita = "1", .prezzo = "5", .numero = 3});
    // Sold out, with a last cost.
    Riga({.prodotto = "P2", .quantita = "4", .prezzo = "7", .mag = "02"});
    Riga({.prodotto = "P2", .cs = "S", .quantita = "4", .mag = "02", .tipo = "XS"});
  }

  SceltaTrasporto Al(ValoreTrasporto valore) {
    SceltaTrasporto scelta = trasporto_.Proposta();
    scelta.valore = valore;
    return scelta;
  }
  bool Trasporta(ValoreTrasporto valore = ValoreTrasporto::CostoUltimo) {
    return trasporto_.Leggi(Al(valore)) && trasporto_.Conferma(Al(valore));
  }
  /// The rows of opening stock of 2025: "document mag product quantity price amount".
  std::string Iniziali() {
    std::string testo;
    Rs rs = Tessarc().Recordset(
        "select NumDoc, Mag, CodiceRiga, Quantita, Prezzo, Importo, CausaleMag, CS, CFP, Dt from "
        "FattureCli_r where Anno=2025 and TipoDoc='EI' order by NumDoc, Posi");
    for (; !rs.Eof(); rs.MoveNext()) {
      for (std::size_t i = 0; i < 6; ++i) testo += (i == 0 ? "" : " ") + NzStr(rs.Fields(i));
      testo += "|";
      EXPECT_EQ(NzStr(rs.Fields(6)) + NzStr(rs.Fields(7)) + NzStr(rs.Fields(8)), "EICF");
      EXPECT_EQ(rs.Fields(9).Data(), G(1, 1, 2025));
    }
    return testo;
  }
  void Conferma() { dialoghi.Rispondera("Conferma trasporto", Risposta::Si); }

  documents::TrasportoEsistenze trasporto_{ambiente};
};

TEST_F(TrasportoEsistenzeTest, UnDocumentoPerMagazzino) {
  Conferma();
  ASSERT_TRUE(Trasporta());
  EXPECT_EQ(SoloMessaggio(),
            "Trasporto esistenze effettuato\nanno 2025, documenti EI n. 1 (senza magazzino), n. 2 "
            "(magazzino 01), n. 3 (magazzino 02)");
  EXPECT_EQ(Iniziali(), "1  P1 1 5 5|2 01 P1 7 5 35|3 02 P1 5 5 25|3 02 P2 0 7 0|");
  const Importo prima = warehouse::CalcoloEsistenza(ambiente, "P1").esistenza;
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_EQ(warehouse::CalcoloEsistenza(ambiente, "P1").esistenza, prima);
  EXPECT_EQ(warehouse::CalcoloEsistenza(ambiente, "P1", {.mag = "01"}).esistenza, I("7"));
  EXPECT_EQ(warehouse::CalcoloCosti(ambiente, "P2").ultimo, I("7"));
  EXPECT_EQ(
      Tessarc().Singolo("select CodIva from FattureCli_r where NumDoc=1 and TipoDoc='EI'").Testo(),
      "22");
}

TEST_F(TrasportoEsistenzeTest, AiTreValori) {
  Conferma();
  ASSERT_TRUE(Trasporta(ValoreTrasporto::CostoMedio));  // (20 + 25 + 5) / 16
  EXPECT_EQ(Iniziali(),
            "1  P1 1 3.125 3.12|2 01 P1 7 3.125 21.87|3 02 P1 5 3.125 15.62|3 02 P2 0 7 "
            "0|");
  // The typed cost, which P2 hasn't: it stands for its last cost alone.
  Conferma();
  dialoghi.Rispondera(
      "sono già state riportate al 2025 con i documenti EI n. 1 (senza magazzino), "
      "n. 2 (magazzino 01), n. 3 (magazzino 02)",
      Risposta::Si);
  Messaggi();
  ASSERT_TRUE(Trasporta(ValoreTrasporto::CostoDigitato));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("copia di sicurezza fatta prima"));
  EXPECT_EQ(Iniziali(), "1  P1 1 9 9|2 01 P1 7 9 63|3 02 P1 5 9 45|3 02 P2 0 7 0|");
}

/// A warehouse that comes and one that goes: what replaces a document bears its number, and
/// documents of another origin stay.
TEST_F(TrasportoEsistenzeTest, RipetutoSostituisceISuoi) {
  Tessarc().Esegui("delete * from FattureCli_r where Mag=''");
  Conferma();
  ASSERT_TRUE(Trasporta());
  EXPECT_EQ(Iniziali(), "1 01 P1 7 5 35|2 02 P1 5 5 25|2 02 P2 0 7 0|");
  Metti(Tessarc(), "FattureCli", "TipoDoc", "EI", "Anno", 2025, "NumDoc", 3, "Chiave", "a mano");
  Riga({.quantita = "2", .prezzo = "5", .dt = G(2, 3, 2024), .numero = 8});
  Riga({.cs = "S", .quantita = "5", .dt = G(2, 3, 2024), .mag = "02", .tipo = "XS", .numero = 8});
  Riga({.prodotto = "P2", .cs = "C", .quantita = "1", .mag = "01", .numero = 9});
  dialoghi.Rispondera("ci sono 1 documenti EI che non vengono da questa funzione", Risposta::Si);
  Conferma();
  dialoghi.Rispondera("già state riportate", Risposta::Si);
  ASSERT_TRUE(Trasporta());
  EXPECT_EQ(Iniziali(), "1 01 P1 7 5 35|1 01 P2 1 7 7|4  P1 2 5 10|");
  EXPECT_EQ(Tessarc().Singolo("select Count(*) from FattureCli where Chiave='a mano'").Intero(), 1);
}

TEST_F(TrasportoEsistenzeTest, EsistenzeNegative) {
  Riga({.prodotto = "P2", .cs = "S", .quantita = "2", .mag = "01", .tipo = "XS"});
  dialoghi.Rispondera("1 esistenza è negativa", Risposta::Annulla);
  EXPECT_FALSE(Trasporta());
  EXPECT_EQ(Iniziali(), "");
  dialoghi.Rispondera("1 esistenza è negativa", Risposta::No);
  Conferma();
  ASSERT_TRUE(Trasporta());
  EXPECT_EQ(Iniziali(), "1  P1 1 5 5|2 01 P1 7 5 35|2 01 P2 0 7 0|3 02 P1 5 5 25|");
  dialoghi.Rispondera("1 esistenza è negativa", Risposta::Si);
  Conferma();
  dialoghi.Rispondera("già state riportate", Risposta::Si);
  ASSERT_TRUE(Trasporta());
  EXPECT_THAT(Iniziali(), HasSubstr("|2 01 P2 -2 7 -14|"));
}

TEST_F(TrasportoEsistenzeTest, Rifiuti) {
  const std::string prima = Contenuto();
  SceltaTrasporto scelta = trasporto_.Proposta();
  EXPECT_FALSE(trasporto_.Conferma(scelta));
  EXPECT_EQ(SoloMessaggio(), "leggere prima le esistenze da riportare");
  scelta.dtDoc = G(31, 12, 2024);
  EXPECT_FALSE(trasporto_.Leggi(scelta));
  EXPECT_EQ(SoloMessaggio(), "la data dei documenti deve essere dell'anno 2025");
  EXPECT_EQ(trasporto_.CampoRifiutato(), "DtDoc");
  // Read at one value, it isn't written at another.
  EXPECT_TRUE(trasporto_.Leggi(Al(ValoreTrasporto::CostoMedio)));
  EXPECT_FALSE(trasporto_.Conferma(Al(ValoreTrasporto::CostoUltimo)));
  EXPECT_EQ(SoloMessaggio(), "leggere prima le esistenze da riportare");
  dialoghi.Rispondera("Conferma trasporto", Risposta::No);
  EXPECT_FALSE(Trasporta());
  EXPECT_EQ(Contenuto(), prima);
  // Another station sells while the plan is looked at.
  EXPECT_TRUE(trasporto_.Leggi(trasporto_.Proposta()));
  Riga({.cs = "S", .quantita = "1", .mag = "01", .tipo = "XS", .numero = 7});
  Conferma();
  EXPECT_FALSE(trasporto_.Conferma(trasporto_.Proposta()));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("leggerle di nuovo"));
  EXPECT_EQ(Iniziali(), "");
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_FALSE(trasporto_.Leggi(trasporto_.Proposta()));
  EXPECT_EQ(SoloMessaggio(),
            "l'anno 2026 non esiste: aprirlo prima con la funzione 'Apertura nuovo Anno'");
  ASSERT_TRUE(ambiente.ScegliAnno(2023));
  EXPECT_FALSE(trasporto_.Leggi(trasporto_.Proposta()));
  EXPECT_EQ(SoloMessaggio(), "nell'anno 2023 non ci sono esistenze da riportare");
}

TEST_F(TrasportoEsistenzeTest, OgniIstruzioneFallisceUnaVolta) {
  Conferma();
  ASSERT_TRUE(Trasporta());
  Riga({.quantita = "2", .prezzo = "6", .dt = G(2, 3, 2024), .mag = "01", .numero = 8});
  // What fails before a question leaves its answer for the next time.
  std::size_t pronte = 0;
  const int fallite = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Contenuto(); },
      [&] {
        for (; pronte < 2; ++pronte) dialoghi.Rispondera("", Risposta::Si);
        const std::size_t chieste = dialoghi.domande.size();
        const bool riuscita = Trasporta();
        pronte -= dialoghi.domande.size() - chieste;
        return riuscita;
      });
  EXPECT_GT(fallite, 10);
  EXPECT_EQ(Iniziali(), "1  P1 1 6 6|2 01 P1 9 6 54|3 02 P1 5 6 30|3 02 P2 0 7 0|");
}

}  // namespace
}  // namespace fenalto::prova
