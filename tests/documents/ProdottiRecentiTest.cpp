// What a party was sold lately: a product a row, with what its last document row says.
#include "documents/recent/ProdottiRecenti.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {
namespace {

using documents::ProdottiRecenti;
using documents::RigheProdotto;
using documents::SceltaRecenti;
using Testi = std::vector<std::string>;

class ProdottiRecentiTest : public DittaDiProva {
 protected:
  std::int64_t Riga(const char* tipo, Data dt, int numero, int posi, const std::string& prodotto,
                    const char* descrizione, int prezzo, const char* cfp = "C",
                    const char* parte = "0001") {
    return Metti(Tessarc(), "FattureCli_r", "TipoDoc", tipo, "Anno", dt.Anno(), "NumDoc", numero,
                 "Posi", posi, "Dt", dt, "CFP", cfp, "CliFor", parte, "CodiceRiga", prodotto,
                 "Descrizione", descrizione, "um", "PZ", "Prezzo",
                 Importo::DaDecimillesimi(prezzo * 10'000LL), "Sc1",
                 Importo::DaDecimillesimi(50'000));
  }
  template <typename Fonte>
  static Testi Tutte(Fonte& fonte, const std::string& testo = "") {
    fonte.Comincia({.testo = testo});
    Testi righe;
    while (!fonte.Finita()) {
      for (const auto& riga : fonte.Avanti()) {
        righe.push_back(riga[2].Testo() + " " + riga[3].Testo() + " " + riga[6].Testo());
      }
    }
    return righe;
  }
  Testi Recenti(const SceltaRecenti& scelta, const std::string& testo = "") {
    ProdottiRecenti recenti(ambiente);
    recenti.Di(scelta);
    return Tutte(recenti, testo);
  }
};

TEST_F(ProdottiRecentiTest, LUltimaRigaPerDataPoiPerNumero) {
  Riga("XT", G(5, 3, 2024), 7, 100, "XA", "vite nuova", 3);
  Riga("XT", G(5, 3, 2024), 6, 100, "xa", "vite di prima", 2);
  Riga("XT", G(10, 12, 2023), 99, 100, "XA", "vite vecchia\ncon seconda riga", 1);
  Riga("XT", G(1, 3, 2024), 8, 100, "XB", "bullone", 4);
  Riga("XT", G(6, 3, 2024), 9, 100, "", "una riga di testo", 5);
  Riga("XS", G(9, 3, 2024), 1, 100, "XC", "altro tipo", 6);
  Riga("XT", G(9, 3, 2024), 2, 100, "XD", "altro cliente", 7, "C", "0002");
  Riga("XT", G(9, 3, 2024), 3, 100, "XE", "fornitore", 8, "F");
  const SceltaRecenti scelta{"XT", "C", "0001"};
  EXPECT_THAT(Recenti(scelta), ElementsAre("XA vite nuova 3", "XB bullone 4"));
  EXPECT_THAT(Recenti({"", "C", "0001"}),
              ElementsAre("XC altro tipo 6", "XA vite nuova 3", "XB bullone 4"));
  // A text looks at what is shown, never at an older row.
  EXPECT_THAT(Recenti(scelta, "vite nuo"), ElementsAre("XA vite nuova 3"));
  EXPECT_THAT(Recenti(scelta, "vecchia"), IsEmpty());
  EXPECT_THAT(Recenti({"XT", "C", ""}), IsEmpty());
  RigheProdotto righe(ambiente);
  righe.Di(scelta, "XA");
  EXPECT_THAT(Tutte(righe),
              ElementsAre("XA vite nuova 3", "xa vite di prima 2", "XA vite vecchia 1"));
  righe.Di(scelta, "");
  EXPECT_THAT(Tutte(righe), IsEmpty());
}

TEST_F(ProdottiRecentiTest, ATrattiComeInteri) {
  constexpr int kRighe = 3'300;
  constexpr int kProdotti = 37;
  std::map<std::string, std::pair<Data, int>> ultime;
  int diUno = 0;
  {
    Transazione transazione(ambiente.Basi());
    for (int i = 0; i < kRighe; ++i) {
      const std::string prodotto = "X" + std::to_string(i * i % kProdotti);
      // Many rows of one day, and days that don't follow the numbers.
      const Data dt = G(1 + i * 7 % 9, 1 + i % 2, 2024);
      Riga("XT", dt, i + 1, 100, prodotto, "riga", i + 1);
      auto& ultima = ultime[prodotto];
      ultima = std::max(ultima, {dt, i + 1});
      diUno += prodotto == "X1" ? 1 : 0;
    }
    transazione.Conferma();
  }
  std::vector<std::pair<std::pair<Data, int>, std::string>> ordine;
  for (const auto& [prodotto, ultima] : ultime) ordine.emplace_back(ultima, prodotto);
  std::ranges::sort(ordine, std::greater());
  Testi attese;
  for (const auto& [ultima, prodotto] : ordine) {
    attese.push_back(prodotto + " riga " + std::to_string(ultima.second));
  }
  EXPECT_EQ(Recenti({"XT", "C", "0001"}), attese);
  RigheProdotto righe(ambiente);
  righe.Di({"XT", "C", "0001"}, "X1");
  EXPECT_EQ(Tutte(righe).size(), static_cast<std::size_t>(diUno));
}

TEST_F(ProdottiRecentiTest, CioCheVaSulDocumento) {
  const auto identita = Riga("XT", G(5, 3, 2024), 7, 100, "XA", "vite\nzincata", 3);
  const auto valori = documents::ValoriDaRiga(ambiente, identita);
  ASSERT_TRUE(valori.has_value());
  EXPECT_EQ(valori->codiceRiga, "XA");
  EXPECT_EQ(valori->descrizione, "vite\nzincata") << "whole, though the list shows a line";
  EXPECT_EQ(valori->um, "PZ");
  EXPECT_EQ(valori->prezzo, Importo::DaDecimillesimi(30'000));
  EXPECT_EQ(valori->sc1, Importo::DaDecimillesimi(50'000));
  EXPECT_FALSE(valori->quantita.has_value());
  EXPECT_EQ(valori->provenienza, "prodotti recenti");
  EXPECT_FALSE(documents::ValoriDaRiga(ambiente, identita + 1).has_value());
}

}  // namespace
}  // namespace fenalto::prova
