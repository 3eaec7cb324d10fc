// Enquiries of a product: what each selects, and that pages leave out and repeat nothing.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ledger/DittaDiProva.h"
#include "warehouse/products/InterrogazioniProdotto.h"

namespace fenalto::warehouse {
namespace {

using prova::G;
using prova::I;
using prova::Metti;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using enum GenereInterrogazione;

class InterrogazioniProdottoTest : public prova::DittaDiProva {
 protected:
  std::vector<std::vector<Valore>> Leggi(GenereInterrogazione genere, bool tutti = false) {
    LettoreInterrogazione lettore(ambiente, genere, "X1", tutti);
    std::vector<std::vector<Valore>> righe;
    for (auto pagina = lettore.Avanti(); !pagina.empty(); pagina = lettore.Avanti()) {
      righe.insert(righe.end(), pagina.begin(), pagina.end());
    }
    return righe;
  }
  /// "1 4" of each row: values of two columns.
  std::vector<std::string> Colonne(GenereInterrogazione genere, std::size_t a, std::size_t b,
                                   bool tutti = false) {
    std::vector<std::string> testi;
    for (const auto& riga : Leggi(genere, tutti)) {
      testi.push_back(riga[a].Testo() + " " + riga[b].Testo());
    }
    return testi;
  }
  void Ordine(const char* tabella, const char* tipo, int numero, const char* saldo,
              const char* quantita) {
    const bool cliente = std::string(tabella) == "OrdiniCli_r";
    Metti(Tessarc(), tabella, "TipoDoc", tipo, "NumDoc", numero, "Posi", 1, "CodiceRiga", "X1",
          "Quantita", I(quantita), "OrdineSaldato", std::string(saldo) == "si", "Dt",
          G(numero, 2, 2024), cliente ? "CLIENTE" : "FORNITORE", "0001");
  }
  void Riga(const char* tipo, int numero, const char* cs, const Coppia& altro = {"Posi", 1}) {
    std::vector<Coppia> campi = {{"TipoDoc", tipo},     {"Anno", 2024},       {"NumDoc", numero},
                                 {"Posi", 1},           {"CodiceRiga", "X1"}, {"CS", cs},
                                 {"Dt", G(1, 3, 2024)}, {"Quantita", I("3")}, {"CFP", "C"},
                                 {"CliFor", "0001"}};
    if (altro.first != "Posi") campi.push_back(altro);
    Tessarc().Inserisci("FattureCli_r", campi);
  }
};

TEST_F(InterrogazioniProdottoTest, OgnunaSceglieLeSue) {
  Ordine("OrdiniCli_r", "O", 1, "no", "10");
  Ordine("OrdiniCli_r", "O", 2, "si", "5");
  Ordine("OrdiniCli_r", "F", 3, "no", "7");
  Ordine("OrdiniFor_r", "O", 4, "no", "20");
  Ordine("OrdiniFor_r", "F", 5, "no", "30");
  Metti(Tessarc(), "Commesse_r", "NumDoc", 6, "Posi", 1, "CodiceRiga", "X1", "Quantita", I("9"));
  Metti(Tessarc(), "Commesse_r", "NumDoc", 7, "Posi", 1, "CodiceRiga", "X1", "Ut", true);
  Riga("DD", 1, "S", {"Ordine", 1});
  Tessarc().Esegui("update FattureCli_r set PosiOrdine=1");
  Riga("PR", 2, "");
  Riga("DD", 3, "S", {"Commessa", 6});
  Tessarc().Esegui("update FattureCli_r set PosiCommessa=1 where NumDoc=3");
  Metti(Tessarc(), "FattureCli", "TipoDoc", "DD", "Anno", 2024, "NumDoc", 1, "CFP", "C", "Fatturo",
        true);
  Metti(Tessarc(), "FattureCli", "TipoDoc", "DD", "Anno", 2024, "NumDoc", 3, "CFP", "C", "Fatturo",
        true, "Fattura", 8);

  // Number and what is left to deliver.
  EXPECT_THAT(Colonne(OrdiniCli, 0, 8), ElementsAre("1 7"));
  EXPECT_THAT(Colonne(OrdiniCli, 0, 8, true), ElementsAre("1 7", "2 5"));
  EXPECT_THAT(Colonne(OrdiniFor, 0, 8), ElementsAre("4 20"));
  EXPECT_THAT(Colonne(Offerte, 0, 6), ElementsAre("3 7"));
  EXPECT_THAT(Colonne(OffFor, 0, 6), ElementsAre("5 30"));
  EXPECT_THAT(Colonne(Commesse, 0, 8, true), ElementsAre("6 6", "7 0"));
  EXPECT_THAT(Colonne(Commesse, 0, 7), ElementsAre("6 3"));
  EXPECT_THAT(Colonne(NoMovMag, 3, 4), ElementsAre("PR 2"));
  EXPECT_THAT(Colonne(SituazioneDdt, 3, 4), ElementsAre("DD 1"));
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_THAT(Leggi(NoMovMag), IsEmpty()) << "of the selected year alone";
  EXPECT_THAT(Colonne(SituazioneDdt, 3, 4), ElementsAre("DD 1"));
}

TEST_F(InterrogazioniProdottoTest, LePagineNonSaltanoENonRipetono) {
  constexpr int kDocumenti = 450;
  Transazione tutti(ambiente.Basi(), Transazione::Ambito::Tessarc);
  for (int i = 1; i <= kDocumenti; ++i) {
    // Many on one day, and the same number of two types.
    Riga(i % 2 == 0 ? "PR" : "PX", (i + 1) / 2, "");
  }
  Tessarc().Esegui("update FattureCli_r set Dt=#03/05/2024# where NumDoc<100");
  tutti.Conferma();
  std::set<std::pair<std::string, std::string>> visti;
  Data prima;
  int numero = 0;
  for (const auto& riga : Leggi(NoMovMag)) {
    EXPECT_EQ(riga.front().Intero(), ++numero);
    EXPECT_TRUE(visti.emplace(riga[3].Testo(), riga[4].Testo()).second);
    EXPECT_GE(riga[2].Data(), prima);
    prima = riga[2].Data();
  }
  EXPECT_EQ(visti.size(), static_cast<std::size_t>(kDocumenti));
}

TEST_F(InterrogazioniProdottoTest, OgniRigaPortaAlSuoDocumento) {
  for (const Interrogazione& una : InterrogazioniProdotto()) {
    SCOPED_TRACE(una.titolo);
    const auto righe = Leggi(una.genere);
    for (const auto& riga : righe) EXPECT_EQ(riga.size(), una.colonne.size() + 3);
  }
  Riga("PR", 12, "");
  EXPECT_EQ(RinvioDellaRiga(NoMovMag, Leggi(NoMovMag).front()),
            (Rinvio{.funzione = "FattureCli", .codice = "12", .anno = 2024, .classe = "PR"}));
  Ordine("OrdiniFor_r", "O", 4, "no", "20");
  EXPECT_EQ(RinvioDellaRiga(OrdiniFor, Leggi(OrdiniFor).front()),
            (Rinvio{.funzione = "OrdiniFor", .codice = "4", .classe = "O"}));
}

}  // namespace
}  // namespace fenalto::warehouse
