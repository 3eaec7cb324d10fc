// Price lists from the product: questions, what is written, lists changed elsewhere.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "ledger/DittaDiProva.h"
#include "ledger/GuastiDiProva.h"
#include "warehouse/products/ListiniProdotto.h"

namespace fenalto::warehouse {
namespace {

using prova::I;
using prova::Metti;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ListiniProdottoTest : public prova::DittaDiProva {
 protected:
  ListiniProdottoTest() : prodotto(*Tessarc().Catalogo().Tabella("CodiciRiga")), listini(ambiente) {
    for (const char* listino : {"L1", "L2"}) Metti(Tessarc(), "Listini", "Cod", listino);
    Metti(Tessarc(), "Listini_r", "Cod", "L1", "Posi", 4, "CodiceRiga", "X1", "Prezzo", I("10"),
          "Dt", prova::G(1, 1, 2024));
    Metti(Tessarc(), "Listini_r", "Cod", "L2", "Posi", 7, "CodiceRiga", "X9");
    prodotto.Scrivi("Prezzo", I("12.5"));
    prodotto.Scrivi("Sc", I("5"));
    prodotto.Scrivi("Prov", I("2"));
    listini.Leggi("X1");
  }

  /// "L1 4 X1 10 0 2024-01-01", in order.
  std::vector<std::string> Righe() {
    std::vector<std::string> righe;
    for (Rs rs = Tessarc().Recordset(
             "select Cod, Posi, CodiceRiga, Prezzo, Sc1, Dt from Listini_r order by Cod, Posi");
         !rs.Eof(); rs.MoveNext()) {
      std::string riga;
      for (std::size_t c = 0; c < rs.Colonne().size(); ++c) {
        riga += (c == 0 ? "" : " ") + rs.Fields(c).Testo();
      }
      righe.push_back(riga);
    }
    return righe;
  }

  /// Short: a failure prints it.
  std::string Foto() {
    std::string testo;
    for (const std::string& riga : Righe()) testo += riga + "\n";
    return testo;
  }

  Scheda prodotto;
  ListiniProdotto listini;
};

TEST_F(ListiniProdottoTest, ModificaEAggiungeSuDomanda) {
  EXPECT_THAT(listini.Assente(), ElementsAre("L2"));
  dialoghi.Rispondera("vuoi modificare prezzo, sconti ecc. sul listino L1", Risposta::No);
  EXPECT_FALSE(listini.Modifica("L1"));
  dialoghi.Rispondera("vuoi modificare prezzo, sconti ecc. sul listino L1", Risposta::Si);
  ASSERT_TRUE(listini.Modifica("L1"));
  listini.Riga().Scrivi("LPrezzo", I("11"));
  ASSERT_TRUE(listini.Conferma(nullptr));
  EXPECT_FALSE(listini.InRiga());

  constexpr const char* kAggiungi =
      "vuoi aggiungere sul listino L2 il prodotto X1 con relativo prezzo, sconti, ecc.";
  EXPECT_FALSE(listini.Aggiungi("L2", true, prodotto));
  EXPECT_EQ(SoloMessaggio(),
            "per aggiunger un nuovo prodotto su di un listino è necessario prima confermare il "
            "nuovo prodotto");
  dialoghi.Rispondera(kAggiungi, Risposta::Si);
  ASSERT_TRUE(listini.Aggiungi("L2", false, prodotto));
  std::string campo;
  listini.Riga().Scrivi("LSc2", I("100.01"));
  EXPECT_FALSE(listini.Conferma(&campo));
  EXPECT_EQ(campo, "LSc2");
  EXPECT_EQ(SoloMessaggio(), "lo sconto non può superare 100");
  listini.Riga().Scrivi("LSc2", I("0"));
  EXPECT_GT(prova::FallisceOgniIstruzione(
                ambiente.Basi(), Guasto::Errore, [this] { return Foto(); },
                [this] { return listini.Conferma(nullptr); }),
            2);
  EXPECT_THAT(Righe(),
              ElementsAre("L1 4 X1 11 0 2024-03-15", "L2 7 X9 0 0 ", "L2 8 X1 12.5 5 2024-03-15"));
  listini.Leggi("X1");
  EXPECT_TRUE(listini.Assente().empty());
}

TEST_F(ListiniProdottoTest, UnListinoCambiatoAltroveNonSiRovina) {
  dialoghi.Rispondera("vuoi modificare", Risposta::Si);
  ASSERT_TRUE(listini.Modifica("L1"));
  Tessarc().Esegui("update Listini_r set Posi=5 where Cod='L1'");
  EXPECT_FALSE(listini.Conferma(nullptr));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("L1 è stata eliminata da un'altra stazione"));
  listini.Annulla();
  dialoghi.Rispondera("vuoi aggiungere", Risposta::Si);
  ASSERT_TRUE(listini.Aggiungi("L2", false, prodotto));
  Tessarc().Esegui("update Listini_r set CodiceRiga='X1' where Cod='L2'");
  EXPECT_FALSE(listini.Conferma(nullptr));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("è già sul listino L2"));
}

}  // namespace
}  // namespace fenalto::warehouse
