// The list of documents: what each choice and search finds, in which order, a page at a time; and
// the way of Enter through a row.
#include <algorithm>

#include "core/session/Utenti.h"
#include "documents/entry/ElencoDocumenti.h"
#include "documents/entry/PercorsoRiga.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {
namespace {

using documents::ElencoDocumenti;
using documents::GenereElenco;
using documents::SceltaElenco;

class ElencoDocumentiTest : public DittaDiProva {
 protected:
  ElencoDocumentiTest() {
    Metti(Tessarc(), "ContiClientiFornitori", "Cod", "9001", "CFP", "C", "Descrizione",
          "Rossi Costruzioni");
    Metti(Tessarc(), "ContiClientiFornitori", "Cod", "9001", "CFP", "F", "Descrizione",
          "Fornaci Riunite");
    Metti(Tessarc(), "Clienti", "Cod", "9001", "ragsoc1", "Rossi Costruzioni");
    Metti(Tessarc(), "Fornitori", "Cod", "9001", "ragsoc1", "Fornaci Riunite");
    Documento("01", 1, G(10, 1, 2024), "C", "100");
    Documento("01", 2, G(5, 2, 2024), "C", "25.5");
    Documento("02", 7, G(5, 2, 2024), "C", "3");
    Documento("03", 1, G(6, 2, 2024), "C", "1000");
    Documento("10", 4, G(1, 3, 2024), "F", "40");
    Documento("01", 1, G(10, 1, 2023), "C", "9");
    Tessarc().Esegui(
        "UPDATE FattureCli SET NumDocCarico='A/17', DtDocCarico=#02/28/2024# WHERE TipoDoc='10'");
    Tessarc().Esegui(
        "UPDATE FattureCli SET Fatturo=true, Fattura=12 WHERE TipoDoc='01' AND NumDoc=2");
    Tessarc().Esegui("UPDATE FattureCli SET Chiave='cantiere Lodi' WHERE TipoDoc='02'");
  }
  void Documento(const char* tipo, int numero, Data data, const char* cfp, const char* importo) {
    Metti(Tessarc(), "FattureCli", "TipoDoc", tipo, "Anno", data.Anno(), "NumDoc", numero, "Dt",
          data, "CFP", cfp, "CliFor", "9001", "Mag", "01");
    for (const int posi : {100, 200}) {
      Metti(Tessarc(), "FattureCli_r", "TipoDoc", tipo, "Anno", data.Anno(), "NumDoc", numero,
            "Posi", posi, "Importo", posi == 100 ? I(importo) : I("0.5"));
    }
  }
  /// The keys that a search finds, and what they come to.
  std::string Trovati(const SceltaElenco& scelta, const std::string& testo = "") {
    ElencoDocumenti elenco(ambiente);
    elenco.Scegli(scelta);
    elenco.Comincia({.testo = testo, .colonne = {}});
    std::string trovati;
    while (!elenco.Finita()) {
      for (const auto& riga : elenco.Avanti()) {
        trovati += riga.at(ElencoDocumenti::kChiave).Testo() + " ";
      }
    }
    const auto somma = elenco.Somma();
    return trovati + "= " + std::to_string(somma.documenti) + " " + somma.righe.Testo();
  }
};

TEST_F(ElencoDocumentiTest, CheCosaTrovano) {
  struct Caso {
    SceltaElenco scelta;
    const char *testo, *trovati;
  };
  for (const Caso& caso : std::initializer_list<Caso>{
           {{GenereElenco::DelTipo, "01", {}, {}}, "", "01/2 01/1 = 2 126.5"},
           {{GenereElenco::DelTipo, "", {}, {}}, "", "= 0 0"},
           {{GenereElenco::DelTipo, "99", {}, {}}, "", "= 0 0"},
           {{GenereElenco::Tutti, "", {}, {}}, "", "10/4 03/1 02/7 01/2 01/1 = 5 1171"},
           {{GenereElenco::Bolle, "", {}, {}}, "", "02/7 01/2 01/1 = 3 130"},
           {{GenereElenco::Fatture, "", {}, {}}, "", "03/1 = 1 1000.5"},
           {{GenereElenco::Movimenti, "", {}, {}}, "", "10/4 = 1 40.5"},
           {{GenereElenco::Tutti, "", G(5, 2, 2024), G(6, 2, 2024)}, "", "03/1 02/7 01/2 = 3 1030"},
           {{GenereElenco::DelTipo, "01", G(11, 1, 2024), {}}, "", "01/2 = 1 26"},
           {{GenereElenco::Tutti, "", {}, {}}, "1", "03/1 01/1 = 2 1101"},
           {{GenereElenco::Tutti, "", {}, {}}, "5/2", "02/7 01/2 = 2 29.5"},
           {{GenereElenco::Tutti, "", {}, {}}, "28/02/2024", "10/4 = 1 40.5"},
           {{GenereElenco::Tutti, "", {}, {}}, "a/1", "10/4 = 1 40.5"},
           {{GenereElenco::Tutti, "", {}, {}}, "LODI", "02/7 = 1 3.5"},
           {{GenereElenco::Tutti, "", {}, {}}, "fornaci", "10/4 = 1 40.5"},
           {{GenereElenco::Bolle, "", {}, {}}, "costruz", "02/7 01/2 01/1 = 3 130"},
           {{GenereElenco::Tutti, "", {}, {}}, "9001", "10/4 03/1 02/7 01/2 01/1 = 5 1171"},
           {{GenereElenco::Tutti, "", {}, {}}, "d'Este %*?[", "= 0 0"}}) {
    SCOPED_TRACE(caso.trovati + std::string(" / ") + caso.testo);
    EXPECT_EQ(Trovati(caso.scelta, caso.testo), caso.trovati);
  }
}

TEST_F(ElencoDocumentiTest, LePagineNonPerdonoENonRipetono) {
  Tessarc().Esegui("DELETE * FROM FattureCli");
  Tessarc().Esegui("DELETE * FROM FattureCli_r");
  // More than a page share a day and a type, more than a page a day alone.
  for (int i = 1; i <= 260; ++i) {
    Documento(i % 3 == 0 ? "02" : "01", i, G(1 + i / 250, 2, 2024), "C", "1");
  }
  for (const auto genere : {GenereElenco::Tutti, GenereElenco::Bolle, GenereElenco::DelTipo}) {
    ElencoDocumenti elenco(ambiente);
    elenco.Scegli({genere, "01", {}, {}});
    elenco.Comincia({});
    std::vector<std::string> chiavi;
    while (!elenco.Finita()) {
      for (const auto& riga : elenco.Avanti()) {
        chiavi.push_back(riga.at(ElencoDocumenti::kChiave).Testo());
      }
    }
    EXPECT_EQ(chiavi.size(), genere == GenereElenco::DelTipo ? 174U : 260U);
    std::ranges::sort(chiavi);
    EXPECT_EQ(std::ranges::adjacent_find(chiavi), chiavi.end());
  }
}

TEST_F(ElencoDocumentiTest, CheCosaSiDiceDiUno) {
  ElencoDocumenti elenco(ambiente);
  elenco.Scegli({GenereElenco::Tutti, "", {}, {}});
  elenco.Comincia({});
  std::vector<std::string> note;
  for (const auto& riga : elenco.Avanti()) note.push_back(riga.at(7).Testo());
  EXPECT_THAT(note, ElementsAre("rif. A/17 del 28/02/2024", "", "", "fattura 12", ""));
  EXPECT_EQ(elenco.Testo("01", 2), "05/02/2024   26,00   9001  Rossi Costruzioni");
  EXPECT_EQ(elenco.Testo("01", 3), "");
  EXPECT_EQ(elenco.DallaChiave("A/B/12"), (documents::IdentitaDocumento{"A/B", 2024, 12}));
}

TEST_F(ElencoDocumentiTest, ChiNonEmetteFattureNonLeVede) {
  Utenti::HashEconomico(true);
  ASSERT_TRUE(Utenti(ambiente).Salva("", {"capo", "utente", 99}, "segreta"));
  ASSERT_TRUE(Utenti(ambiente).Salva("", {"mag", "utente", 30}, "segreta"));
  ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024));
  ASSERT_TRUE(ambiente.Accedi("mag", "segreta"));
  EXPECT_EQ(Trovati({GenereElenco::Tutti, "", {}, {}}), "10/4 02/7 01/2 01/1 = 4 170.5");
  EXPECT_EQ(Trovati({GenereElenco::Fatture, "", {}, {}}), "= 0 0");
}

// From the product to the quantity, to the price where it is to be typed or looked at, to the next
// row.
TEST_F(ElencoDocumentiTest, LaStradaDiInvioInUnaRiga) {
  Metti(Tessarc(), "CodiciRiga", "Cod", "X1", "Descrizione", "Mattoni", "Barcode", "800123");
  Metti(Tessarc(), "CodiciRiga", "Cod", "X2", "Descrizione", "Mattoni pieni");
  struct Caso {
    const char *tipo, *prezzo, *dopoQuantita;
  };
  for (const Caso& caso :
       {Caso{"01", "", "Prezzo"}, Caso{"01", "2", ""}, Caso{"02", "", ""}, Caso{"10", "", "Prezzo"},
        Caso{"10", "2", "Prezzo"}, Caso{"12", "", ""}, Caso{"EI", "", "Prezzo"}}) {
    SCOPED_TRACE(caso.tipo + std::string(" ") + caso.prezzo);
    documents::FattureCli documento(ambiente);
    ASSERT_TRUE(documento.ScegliTipo(caso.tipo));
    ASSERT_TRUE(documento.Nuovo());
    ASSERT_TRUE(documento.PNuovaRiga());
    EXPECT_EQ(documents::DopoCampoRiga(documento, "CodiceRiga"), "Descrizione");
    documento.Riga().Scrivi("CodiceRiga", "X1");
    if (*caso.prezzo != '\0') documento.Riga().Scrivi("Prezzo", I(caso.prezzo));
    EXPECT_EQ(documents::DopoCampoRiga(documento, "CodiceRiga"), "Quantita");
    EXPECT_EQ(documents::DopoCampoRiga(documento, "Quantita"), caso.dopoQuantita);
    EXPECT_EQ(documents::DopoCampoRiga(documento, "Prezzo"), "");
  }
  using documents::GenereLetto;
  for (const auto& [letto, genere] :
       {std::pair{"x1", GenereLetto::Codice}, std::pair{"800123", GenereLetto::Barcode},
        std::pair{"pieni", GenereLetto::Parole}, std::pair{"matton", GenereLetto::PiuProdotti},
        std::pair{"9'9", GenereLetto::Niente}}) {
    EXPECT_EQ(documents::CheCosaELetto(ambiente, letto), genere) << letto;
  }
}

}  // namespace
}  // namespace fenalto::prova
