// Finding a product: while typing in a field, and in the lists of the search window.
#include "core/archives/FonteCodici.h"
#include "ledger/DittaDiProva.h"
#include "warehouse/products/ElencoProdotti.h"

namespace fenalto::prova {
namespace {

using warehouse::ElencoProdotti;
using warehouse::QualiProdotti;
using Codici = std::vector<std::string>;

class ElencoProdottiTest : public DittaDiProva {
 protected:
  ElencoProdottiTest() {
    const auto prodotto = [this](const char* cod, const char* descrizione, const char* barcode,
                                 bool fuoriUso = false, const char* cat = "") {
      Metti(Tessarc(), "CodiciRiga", "Cod", cod, "Descrizione", descrizione, "Barcode", barcode,
            "FuoriUso", fuoriUso, "CategoriaMag", cat);
    };
    Tessarc().Esegui("delete * from CodiciRiga");
    prodotto("VITE4", "Vite a testa svasata 4x40\nzincata", "8001");
    prodotto("VITE5", "Vite a testa tonda 5x50", "8002", false, "XF");
    prodotto("VITE3", "Vite a testa svasata 3x30", "8003", true);
    prodotto("B10", "Bullone M10 caffè", "8004");
    prodotto("B12", "Bullone M12 per VITE5", "VITE4");
    prodotto("TESTA", "Martello 100%", "8006");
    const auto fornitore = [this](const char* cod, const char* chi, const char* suo, int posi = 1) {
      Metti(Tessarc(), "prodottiFor_r", "Cod", cod, "Posi", posi, "Fornitore", chi, "codprfor", suo,
            "Prezzo", Importo::DaDecimillesimi(12'500));
    };
    fornitore("B10", "0001", "HEX-10/Z");
    fornitore("B10", "0002", "10.9", 2);
    fornitore("VITE4", "0001", "HEX-40");
    fornitore("VITE3", "0002", "HEX-30");
    Metti(Tessarc(), "Db_r", "Cod", "B12", "Posi", 100, "CodiceRiga", "VITE4");
    Metti(Tessarc(), "Db_r", "Cod", "B12", "Posi", 200, "CodiceRiga", "VITE3");
    Metti(Tessarc(), "Db_r", "Cod", "TESTA", "Posi", 100, "CodiceRiga", "VITE4");
  }

  Codici Cerca(const std::string& testo, int massimo = 60) {
    Codici codici;
    for (const auto& voce : archives::Fonte(ambiente, "prodotti")->Cerca(testo, massimo)) {
      codici.push_back(voce.codice);
    }
    return codici;
  }
  Codici Elenco(QualiProdotti quali, const warehouse::FiltroProdotti& filtro,
                const std::string& testo = "") {
    ElencoProdotti elenco(ambiente, quali);
    elenco.Restringi(filtro);
    elenco.Comincia({.testo = testo});
    Codici codici;
    while (!elenco.Finita()) {
      for (const auto& riga : elenco.Avanti()) codici.push_back(riga.front().Testo());
    }
    return codici;
  }
};

TEST_F(ElencoProdottiTest, MentreSiScrive) {
  struct Caso {
    const char* testo;
    Codici trovati;
  };
  const Caso casi[] = {
      // What begins with it, then its words in whatever order and place.
      {"vite", {"VITE4", "VITE5", "B12"}},
      {"testa", {"TESTA", "VITE4", "VITE5"}},
      {"TONDA vite", {"VITE5"}},
      {"40 svas testa", {"VITE4"}},
      {"zinc vite4", {"VITE4"}},
      {"caffe", {"B10"}},
      {"100%", {"TESTA"}},
      {"bull*", {}},
      // The supplier's code counts as the product's own words.
      {"hex", {"B10", "VITE4"}},
      {"bullone hex", {"B10"}},
      {"10.9 hex", {"B10"}},
      // A barcode, whole or in part; one that is another product's code leads to both.
      {"8002", {"VITE5"}},
      {"800", {"B10", "TESTA", "VITE4", "VITE5"}},
      {"vite4", {"B12", "VITE4"}},
      // Out of use: only when it is named whole.
      {"svasata", {"VITE4"}},
      {"vite3", {"VITE3"}},
      {"8003", {"VITE3"}},
      {"tre' or '1'='1", {}},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.testo);
    EXPECT_EQ(Cerca(caso.testo), caso.trovati);
    if (caso.trovati.size() > 1) {
      const Codici prime = Cerca(caso.testo, 1);
      EXPECT_EQ(prime, Codici{caso.trovati.front()});
    }
  }
}

TEST_F(ElencoProdottiTest, IlCampoRisolve) {
  const auto fonte = archives::Fonte(ambiente, "prodotti");
  EXPECT_EQ(fonte->Descrizione("vite4"), "Vite a testa svasata 4x40") << "one line";
  EXPECT_EQ(fonte->Descrizione("VITE3"), "Vite a testa svasata 3x30") << "out of use, but typed";
  EXPECT_EQ(fonte->Canonico("b10"), "B10");
  EXPECT_EQ(fonte->DaSegno("8002"), "VITE5");
  EXPECT_EQ(fonte->DaSegno("8003"), "VITE3");
  EXPECT_EQ(fonte->DaSegno("80"), "");
  EXPECT_EQ(fonte->DaSegno(""), "") << "products without a barcode have an empty one";
}

TEST_F(ElencoProdottiTest, Elenchi) {
  using Q = QualiProdotti;
  EXPECT_EQ(Elenco(Q::Tutti, {}), (Codici{"B10", "B12", "TESTA", "VITE4", "VITE5"}));
  EXPECT_EQ(Elenco(Q::Tutti, {.ancheFuoriUso = true}).size(), 6U);
  EXPECT_EQ(Elenco(Q::Tutti, {.cat = "xf"}), Codici{"VITE5"});
  EXPECT_EQ(Elenco(Q::Tutti, {}, "8003"), Codici{"VITE3"});
  EXPECT_EQ(Elenco(Q::Tutti, {}, "hex bullone"), Codici{"B10"});
  EXPECT_EQ(Elenco(Q::PerFornitore, {}), (Codici{"B10", "VITE4", "B10"}));
  EXPECT_EQ(Elenco(Q::PerFornitore, {.fornitore = "0002"}), Codici{"B10"});
  EXPECT_EQ(Elenco(Q::PerFornitore, {.fornitore = "0002", .ancheFuoriUso = true}),
            (Codici{"B10", "VITE3"}));
  EXPECT_EQ(Elenco(Q::ConDistinta, {}), (Codici{"B12", "TESTA"}));
  EXPECT_EQ(Elenco(Q::ConDistinta, {}, "m12"), Codici{"B12"});
  EXPECT_EQ(Elenco(Q::Componenti, {}), Codici{"VITE4"});
  EXPECT_EQ(Elenco(Q::Componenti, {.ancheFuoriUso = true}), (Codici{"VITE3", "VITE4"}));
}

// Pages join without a gap or a row twice, whatever the codes are.
TEST_F(ElencoProdottiTest, PagineIntere) {
  constexpr int kQuanti = 450;
  {
    Transazione transazione(ambiente.Basi());
    for (int i = 0; i < kQuanti; ++i) {
      const std::string cod = (i % 3 == 0 ? "x'" : "X ") + std::to_string(i);
      Metti(Tessarc(), "CodiciRiga", "Cod", cod, "Descrizione", "serie");
      Metti(Tessarc(), "prodottiFor_r", "Cod", cod, "Posi", 1, "Fornitore",
            i % 2 == 0 ? "0001" : "0003");
    }
    transazione.Conferma();
  }
  EXPECT_EQ(Elenco(QualiProdotti::Tutti, {}, "serie").size(), std::size_t{kQuanti});
  EXPECT_EQ(Elenco(QualiProdotti::PerFornitore, {}, "serie").size(), std::size_t{kQuanti});
}

}  // namespace
}  // namespace fenalto::prova
