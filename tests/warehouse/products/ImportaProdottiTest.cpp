// Products from files of other programs, with their suppliers.
#include "core/archives/Importazione.h"
#include "ledger/DittaDiProva.h"
#include "warehouse/products/ImportaProdotti.h"

namespace fenalto::prova {
namespace {

using Testi = std::vector<std::string>;

class ImportaProdottiTest : public DittaDiProva {
 protected:
  ImportaProdottiTest() {
    Metti(Tessarc(), "CategorieMag", "Cod", "XF", "Descrizione", "ferramenta");
    Metti(Tessarc(), "CodiciRiga", "Cod", "XV", "Descrizione", "di prima", "Prezzo", I("5"),
          "Barcode", "8009");
    Metti(Tessarc(), "prodottiFor_r", "Cod", "XV", "Posi", 4, "Fornitore", "0002", "codprfor",
          "vecchio", "Prezzo", I("2"));
  }

  archives::EsitoImporta Importa(const std::string& testo,
                                 const archives::OpzioniImporta& opzioni = {}) {
    archives::Importazione importazione(ambiente, warehouse::GenereImportaProdotti());
    const auto aperto = importazione.ApriTesto(testo);
    EXPECT_TRUE(aperto) << aperto.Errore().messaggio;
    auto esito = importazione.Importa(opzioni);
    EXPECT_TRUE(esito) << esito.Errore().messaggio;
    return esito.Valore();
  }
  /// Rows as text, their fields joined by a bar.
  Testi Righe(const std::string& sql) {
    Testi righe;
    for (Rs rs = Tessarc().Recordset(sql); !rs.Eof(); rs.MoveNext()) {
      std::string riga;
      for (std::size_t c = 0; c < rs.Colonne().size(); ++c) {
        riga += (c == 0 ? "" : "|") + rs.Fields(c).Testo();
      }
      righe.push_back(riga);
    }
    return righe;
  }
  Testi Fornitori(const std::string& cod) {
    return Righe(
        "select Posi, Fornitore, codprfor, Prezzo, Sc1, Sc2 from prodottiFor_r where Cod='" + cod +
        "' order by Posi");
  }
};

TEST_F(ImportaProdottiTest, ProdottiEFornitori) {
  const auto esito = Importa(
      "Cod. articolo;Descrizione;U.M.;EAN;Prezzo vendita;Sconto;IVA;Categoria;Scorta;Obsoleto;"
      "Fornitore;Cod. art. fornitore;Costo fornitore;Sconto fornitore\n"
      "XA;\"Vite\n4x40\";PZ;8001;1,2345;10;22;XF;100;no;0001;HEX;0,75;20\n"
      "xa;;;;;;;;;;0002;Z-9;0,70;\n"
      "XB;Bullone;;;;;;;;sì;;;;\n");
  EXPECT_THAT(esito.errori, IsEmpty());
  EXPECT_EQ(esito.nuove, 2U);
  EXPECT_EQ(esito.seguiti, 1U);
  EXPECT_THAT(Righe("select Cod, Descrizione, um, Barcode, Prezzo, Sc, CodIva, CategoriaMag, "
                    "Scorta, FuoriUso, DtAggPrezzi from CodiciRiga where Cod<'XC' and Cod>='XA' "
                    "order by Cod"),
              ElementsAre(HasSubstr("XA|Vite\n4x40|PZ|8001|1.2345|10|22|XF|100|False|2024-03-15"),
                          HasSubstr("XB|Bullone|||0|0|||0|True|")));
  EXPECT_THAT(Fornitori("XA"), ElementsAre("1|0001|HEX|0.75|20|0", "2|0002|Z-9|0.7|0|0"));
  EXPECT_THAT(Fornitori("XB"), IsEmpty());
}

TEST_F(ImportaProdottiTest, CioCheIlFileNonDaResta) {
  const archives::OpzioniImporta aggiorna{.aggiornaEsistenti = true};
  auto esito = Importa("Codice;Fornitore;Costo fornitore\nXV;0002;3\nXV;0003;4\n", aggiorna);
  EXPECT_THAT(esito.errori, IsEmpty());
  EXPECT_EQ(esito.aggiornate, 1U);
  EXPECT_THAT(Fornitori("XV"), ElementsAre("4|0002|vecchio|3|0|0", "5|0003||4|0|0"));
  EXPECT_THAT(Righe("select Descrizione, Prezzo, Barcode, DtAggPrezzi from CodiciRiga where "
                    "Cod='XV'"),
              ElementsAre(HasSubstr("di prima|5|8009|")));
  const auto data = [this] {
    return Tessarc().Singolo("select DtAggPrezzi from CodiciRiga where Cod='XV'").Data();
  };
  Importa("Codice;Prezzo\nXV;5,00\n", aggiorna);
  EXPECT_TRUE(data().Nulla()) << "the price is the same";
  Importa("Codice;Prezzo\nXV;5,50\n", aggiorna);
  EXPECT_EQ(data(), G(15, 3, 2024));
  // Without the update an existing product keeps its suppliers too.
  esito = Importa("Codice;Descrizione;Fornitore\nXV;altra;0001\nXV;;0001\n");
  EXPECT_EQ(esito.saltate, 2U);
  EXPECT_EQ(Fornitori("XV").size(), 2U);
}

TEST_F(ImportaProdottiTest, RigheSbagliate) {
  struct Caso {
    const char* righe;
    const char* motivo;
  };
  const Caso casi[] = {
      {"XA;;;;;;", "manca «Descrizione»"},
      {"XA;vite;99;;;;", "«99» non c'è nell'archivio CodiciIva"},
      {"XA;vite;;9999;;;", "«9999» non c'è nell'archivio Fornitori"},
      {"XA;vite;;;10;;", "manca fornitore"},
      {"XA;vite;;0001;dieci;;", "dieci"},
      {"XA;vite;;0001;10;101;", "100"},
      {"XA;vite;;;;;120.001", "il conto 120.001 è un riepilogativo di clienti o fornitori"},
      {"XA;vite;;;;;\nXA;vite;;;;;", "codice ripetuto: è già alla riga 2"},
      {"XA;;;;;;\nXA;;;0001;1;;", "il codice è alla riga 2, che è sbagliata"},
      {"XA;vite;;0001;1;;\nxa;;;9999;1;;", "«9999» non c'è nell'archivio Fornitori"},
  };
  const std::string prima = Contenuto();
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.righe);
    const auto esito = Importa(
        std::string("Codice;Descrizione;IVA;Fornitore;Costo fornitore;Sconto fornitore;Conto\n") +
        caso.righe + "\n");
    ASSERT_FALSE(esito.errori.empty());
    EXPECT_THAT(esito.errori.back().motivo, HasSubstr(caso.motivo));
    EXPECT_FALSE(esito.scritta);
    EXPECT_EQ(Contenuto(), prima);
  }
}

TEST_F(ImportaProdottiTest, CodificaAutomaticaEBarcode) {
  ambiente.ScriviImpostazione({}, "config", "CodificaProdottiAutomatica", "4");
  ambiente.ScriviImpostazione({}, "config", "BarcodeUnivoco", "1");
  const auto esito = Importa(
      "Codice;Descrizione;Barcode;Valido dal;Valido al\n"
      "0001;giusto;8001;;\n"
      "1;corto;;;\n"
      "XXXX;lettere;;;\n"
      "0002;doppio;8009;;\n"
      "0003;campagna;;10/05/2024;09/05/2024\n");
  Testi motivi;
  for (const auto& errore : esito.errori) {
    motivi.push_back(std::to_string(errore.linea) + " " + errore.motivo);
  }
  EXPECT_THAT(motivi, ElementsAre(HasSubstr("3 è impostata la codifica automatica a 4 cifre"),
                                  HasSubstr("4 è impostata la codifica automatica a 4 cifre"),
                                  "5 codice a barre già esistente su cod XV",
                                  "6 la campagna finisce prima di cominciare"));
}

}  // namespace
}  // namespace fenalto::prova
