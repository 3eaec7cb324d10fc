// Erasing and renaming the code of a product: where it is used, what is refused, what is left.
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <set>

#include "core/session/Allegati.h"
#include "core/values/Testo.h"
#include "ledger/GuastiDiProva.h"
#include "ledger/Stampati.h"
#include "warehouse/products/EliminazioneProdotto.h"

namespace fenalto::prova {
namespace {

using ::testing::Optional;
using warehouse::EliminazioneProdotto;

class EliminazioneProdottoTest : public DittaDaStampare {
 protected:
  EliminazioneProdottoTest() {
    for (const auto& [cod, descrizione] :
         {std::pair{"XA", "Vite"}, std::pair{"XB", "Bullone\nzincato"}, std::pair{"XC", "Mensola"},
          std::pair{"XD", "Scaffale"}, std::pair{"XE", "Dado"}}) {
      Metti(Tessarc(), "CodiciRiga", "Cod", cod, "Descrizione", descrizione, "um", "PZ");
    }
    Metti(Tessarc(), "TipiFattureCli", "Cod", "XT", "Descrizione", "DDT di prova");
  }
  void Documento(const char* prodotto, int anno, int numero, int posi, Importo quantita,
                 const char* cs = "S") {
    Metti(Tessarc(), "FattureCli_r", "TipoDoc", "XT", "Anno", anno, "NumDoc", numero, "Posi", posi,
          "CodiceRiga", prodotto, "Descrizione", "riga", "Dt", G(3, 2, anno), "Quantita", quantita,
          "CS", cs);
  }
  /// A use of each kind.
  void Usi() {
    Documento("XA", 2024, 2, 100, I("3"));
    Documento("XA", 2024, 2, 200, I("1"));
    Documento("xa", 2023, 9, 100, I("1"));
    Metti(Tessarc(), "OrdiniCli_r", "TipoDoc", "F", "NumDoc", 1, "Posi", 100, "CodiceRiga", "XA",
          "Dt", G(1, 2, 2024));
    Metti(Tessarc(), "OrdiniCli_r", "TipoDoc", "O", "NumDoc", 5, "Posi", 100, "CodiceRiga", "XA",
          "Dt", G(1, 2, 2024), "Quantita", I("7"));
    Metti(Tessarc(), "OrdiniFor_r", "TipoDoc", "O", "NumDoc", 6, "Posi", 100, "CodiceRiga", "XA",
          "Dt", G(1, 2, 2024));
    Metti(Tessarc(), "Listini", "Cod", "XL", "Descrizione", "ingrosso");
    Metti(Tessarc(), "Listini_r", "Cod", "XL", "Posi", 100, "CodiceRiga", "XA");
    Metti(Tessarc(), "Commesse_r", "NumDoc", 4, "Posi", 100, "CodiceRiga", "XA", "Dt",
          G(7, 3, 2024), "Cliente", "0001");
    Tessarc().Esegui("update Clienti set SpRiBa='XA' where Cod='0002'");
    Metti(Tessarc(), "Db_r", "Cod", "XC", "Posi", 100, "CodiceRiga", "XA", "Quantita", I("4"));
    Metti(Tessarc(), "Db_r", "Cod", "XD", "Posi", 100, "CodiceRiga", "XA", "Quantita", I("8"));
    Metti(Tessarc(), "prodottiFor_r", "Cod", "XA", "Posi", 1, "Fornitore", "0001", "Prezzo",
          I("2"));
  }
  std::string NomeCliente(const char* cod) {
    return NzStr(ambiente.Cerca("tessarc", "Clienti", {{"Cod", cod}}, "ragsoc1"));
  }
  std::vector<std::string> Testi(const char* prodotto, std::size_t pagina) {
    std::vector<std::string> testi;
    warehouse::UsiProdotto usi(ambiente, prodotto);
    while (!usi.Finiti()) {
      for (const auto& uso : usi.Avanti(pagina)) {
        testi.push_back(uso.uso + "|" + std::to_string(uso.numero));
      }
    }
    return testi;
  }
  std::int64_t Conta(const std::string& tabella, const std::string& dove) {
    return Tessarc().Singolo("select Count(*) from " + tabella + " where " + dove).Intero();
  }
  /// Rows that name a code, by the references' table.
  std::int64_t Nominano(const char* cod) {
    return archives::ContaRiferimenti(ambiente, "CodiciRiga", cod);
  }
  bool Rinomina(const char* da, const char* a, Risposta risposta = Risposta::Si) {
    EliminazioneProdotto prodotto(ambiente);
    EXPECT_TRUE(prodotto.Apri(da));
    dialoghi.Rispondera("Conferma modifica codice", risposta);
    return prodotto.Rinomina(a);
  }
  bool Elimina(const char* cod) {
    EliminazioneProdotto prodotto(ambiente);
    EXPECT_TRUE(prodotto.Apri(cod));
    dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
    return prodotto.Elimina();
  }
};

// A table that comes to hold products adds its lines to the references' table: otherwise a renamed
// product would lose its rows without a word.
TEST_F(EliminazioneProdottoTest, OgniColonnaCheTieneUnProdottoENellaTavola) {
  // Columns that hold a product under another name, and columns that only sound so.
  const std::set<std::string> altre{"clienti.spriba", "db_r.cod", "prodottifor_r.cod"};
  const std::set<std::string> estranee{// codes by which customers and suppliers know a product
                                       "fatturecli_r.codprcli", "ordinicli_r.codprcli",
                                       "listini_r.codprcli", "prodottifor_r.codprfor"};
  std::set<std::string> tavola;
  for (const auto& r : archives::TavolaRiferimenti()) {
    if (UgualeTesto(r.archivio, "CodiciRiga")) {
      tavola.insert(SenzaMaiuscole(std::string(r.tabella) + "." + r.campo));
    }
  }
  std::set<std::string> schema;
  for (const char* chiave : {"tessarc", "scadenzario"}) {
    sqlite3* motore = nullptr;
    ASSERT_EQ(sqlite3_open_v2(ambiente.PercorsoDb(chiave).c_str(), &motore, SQLITE_OPEN_READONLY,
                              nullptr),
              SQLITE_OK);
    sqlite3_stmt* colonne = nullptr;
    sqlite3_prepare_v2(motore,
                       "SELECT m.name, p.name FROM sqlite_master m, pragma_table_info(m.name) p "
                       "WHERE m.type='table'",
                       -1, &colonne, nullptr);
    const auto testo = [&](int i) {
      return std::string(reinterpret_cast<const char*>(sqlite3_column_text(colonne, i)));
    };
    while (sqlite3_step(colonne) == SQLITE_ROW) {
      schema.insert(SenzaMaiuscole(testo(0) + "." + testo(1)));
    }
    sqlite3_finalize(colonne);
    sqlite3_close(motore);
  }
  ASSERT_TRUE(schema.contains("codiciriga.cod"));
  for (const std::string& colonna : altre) EXPECT_TRUE(schema.contains(colonna)) << colonna;
  for (const std::string& colonna : estranee) EXPECT_TRUE(schema.contains(colonna)) << colonna;
  std::set<std::string> attese = altre;
  for (const std::string& colonna : schema) {
    const std::string nome = colonna.substr(colonna.find('.') + 1);
    const bool suona = nome.find("codiceriga") != std::string::npos ||
                       nome.find("prodott") != std::string::npos || nome.starts_with("codpr");
    if (suona && !estranee.contains(colonna)) attese.insert(colonna);
  }
  EXPECT_EQ(tavola, attese);
}

TEST_F(EliminazioneProdottoTest, UsiNelLoroOrdine) {
  Usi();
  Metti(Tessarc(), "Db_r", "Cod", "XA", "Posi", 100, "CodiceRiga", "XB", "Quantita", I("1"));
  const auto tutti = Testi("XA", 100);
  EXPECT_THAT(tutti,
              ElementsAre("DDT di prova|9", "DDT di prova|2", "OFFERTA CLIENTE|1",
                          "ORDINE CLIENTE|5", "ORDINE FORNITORE|6", "Listino XL ingrosso|0",
                          "COMMESSA 4 del 07/03/2024  cliente " + NomeCliente("0001") + "|4",
                          "SPESE INCASSO RIBA SUL CLIENTE 0002 " + NomeCliente("0002") + "|0",
                          "entra nelle seguenti distinte base|0", "XC Mensola|0", "XD Scaffale|0",
                          " HA LA DISTINTA BASE|0"));
  for (const std::size_t pagina : {1U, 2U, 3U, 5U}) EXPECT_EQ(Testi("XA", pagina), tutti);
  EXPECT_THAT(Testi("XE", 10), IsEmpty());
}

TEST_F(EliminazioneProdottoTest, UsiStampati) {
  Usi();
  EliminazioneProdotto prodotto(ambiente, &uscite);
  ASSERT_TRUE(prodotto.Apri("xa"));
  Verso(Destinazione::Testo);
  ASSERT_TRUE(prodotto.StampaUsi());
  const std::string carta = uscite.Testo();
  EXPECT_THAT(carta, AllOf(HasSubstr("il prodotto XAè presente nei seguenti documenti"),
                           HasSubstr("DDT di prova"), HasSubstr("entra nelle seguenti")));
  ASSERT_TRUE(prodotto.Apri("XB"));
  EXPECT_FALSE(prodotto.StampaUsi());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non è presente"));
}

TEST_F(EliminazioneProdottoTest, Rifiuti) {
  Usi();
  Metti(Tessarc(), "Db_r", "Cod", "XA", "Posi", 100, "CodiceRiga", "XB", "Quantita", I("1"));
  const std::string lungo(19, 'X');
  struct Caso {
    const char* prodotto;
    std::optional<std::string> nuovo;  ///< nothing: it is to be erased
    const char* domanda;               ///< asked, answered yes (no when nothing is told)
    std::string messaggio;
  };
  const Caso casi[] = {
      {"XA", {}, "Conferma eliminazione", "il codice XA ha la distinta base \nbisogna prima"},
      {"XB", {}, "Conferma eliminazione\nprodotto XB Bullone\n", ""},
      {"XA", "", nullptr, "inserire un codice"},
      {"XA", "  ", nullptr, "inserire un codice"},
      {"XA", " XA ", nullptr, "quello che il prodotto ha già"},
      {"XA", lungo, nullptr, "al massimo 18 caratteri"},
      {"XA", "X\x01", nullptr, "1"},
      {"XA", "X9", "nuovo codice X9", ""},
      {"XA", "xe", "il codice XE esiste già", ""},
      // XA is made of XB, XC of XA: one of each couple would be its own component.
      {"XA", "XB", nullptr, "entrerebbero nella loro stessa distinta base"},
      {"XB", "XA", nullptr, "entrerebbero nella loro stessa distinta base"},
      {"XC", "XB", nullptr, "con XA entrerebbero"},
  };
  const std::string prima = Contenuto();
  for (const Caso& caso : casi) {
    SCOPED_TRACE(std::string(caso.prodotto) + " -> " + caso.nuovo.value_or("(eliminato)"));
    EliminazioneProdotto prodotto(ambiente);
    ASSERT_TRUE(prodotto.Apri(caso.prodotto));
    const bool detto = !caso.messaggio.empty();
    if (caso.domanda != nullptr) {
      dialoghi.Rispondera(caso.domanda, detto ? Risposta::Si : Risposta::No);
    }
    std::string campo;
    EXPECT_FALSE(caso.nuovo ? prodotto.Rinomina(*caso.nuovo, &campo) : prodotto.Elimina());
    EXPECT_EQ(prodotto.Fatto(), "");
    if (caso.nuovo) {
      EXPECT_EQ(campo, "NuovoCodice");
    }
    if (detto) {
      EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    } else {
      EXPECT_THAT(Messaggi(), IsEmpty());
    }
    EXPECT_EQ(Contenuto(), prima);
  }
}

TEST_F(EliminazioneProdottoTest, EliminatoOvunque) {
  Usi();
  const auto file = cartella.Percorso() / "scheda.txt";
  std::ofstream(file) << "scheda";
  const std::int64_t id = ambiente.Cerca("tessarc", "CodiciRiga", {{"Cod", "XA"}}, "ID").Intero();
  Allegati allegati(ambiente, warehouse::kAllegatiProdotti, "Prodotto");
  allegati.Collega(id);
  ASSERT_TRUE(allegati.Aggiungi(file));
  const auto copia = allegati.Elenco().front().file;
  ASSERT_TRUE(Elimina("XA"));
  EXPECT_EQ(SoloMessaggio(), "prodotto XA ELIMINATO DAI DOCUMENTI");
  EXPECT_EQ(Nominano("XA"), 0);
  EXPECT_EQ(Conta("CodiciRiga", "Cod='XA'"), 0);
  EXPECT_EQ(Conta("FattureCli_r", "CodiceRiga='' and Descrizione='riga'"), 3);
  EXPECT_EQ(Conta("OrdiniCli_r", "CodiceRiga='' and Quantita=7"), 1);
  EXPECT_EQ(Conta("Commesse_r", "CodiceRiga='' and NumDoc=4"), 1);
  EXPECT_EQ(Conta("Listini_r", "Cod='XL'"), 0);
  EXPECT_EQ(Conta("Db_r", "Cod='XC' or Cod='XD'"), 0);
  EXPECT_EQ(Conta("prodottiFor_r", "Fornitore='0001'"), 0);
  EXPECT_EQ(Conta("Clienti", "Cod='0002' and SpRiBa=''"), 1);
  EXPECT_EQ(Conta("Allegati", "Tipo='Prodotti'"), 0);
  EXPECT_FALSE(std::filesystem::exists(copia));
}

TEST_F(EliminazioneProdottoTest, RinominatoInDueRuoli) {
  Usi();
  Metti(Tessarc(), "Db_r", "Cod", "XA", "Posi", 100, "CodiceRiga", "XB", "Quantita", I("1"));
  const std::int64_t nominano = Nominano("XA");
  const std::string nuovo = "X'à * [1] " + std::string(8, 'y');
  ASSERT_EQ(LunghezzaTesto(nuovo), 18U);
  ASSERT_TRUE(Rinomina("XA", nuovo.c_str()));
  EXPECT_EQ(SoloMessaggio(), "prodotto XA SOSTITUITO con " + nuovo);
  EXPECT_EQ(Nominano("XA"), 0);
  EXPECT_EQ(Nominano(nuovo.c_str()), nominano);
  EXPECT_EQ(Conta("Db_r", "Cod='XC' or CodiceRiga='XB'"), 2);
  // Another case only: the same product.
  ASSERT_TRUE(Rinomina("XB", "xb"));
  EXPECT_EQ(ambiente.Cerca("tessarc", "Db_r", {{"CodiceRiga", "XB"}}, "CodiceRiga"), Valore("xb"));
  EXPECT_EQ(Conta("CodiciRiga", "Cod='xb'"), 1);
}

TEST_F(EliminazioneProdottoTest, UnioneDiceIDoppiETieneQuelliDellAltro) {
  Usi();
  Metti(Tessarc(), "Listini_r", "Cod", "XL", "Posi", 200, "CodiceRiga", "XB", "Prezzo", I("9"));
  Metti(Tessarc(), "Db_r", "Cod", "XC", "Posi", 200, "CodiceRiga", "XB", "Quantita", I("5"));
  Metti(Tessarc(), "prodottiFor_r", "Cod", "XB", "Posi", 1, "Fornitore", "0001", "Prezzo", I("3"));
  Metti(Tessarc(), "prodottiFor_r", "Cod", "XA", "Posi", 2, "Fornitore", "0002", "Prezzo", I("4"));
  Metti(Tessarc(), "prodottiFor_r", "Cod", "XA", "Posi", 3, "Fornitore", "0003", "Prezzo", I("5"));
  Documento("XB", 2024, 2, 300, I("10"));
  Tessarc().Esegui("update CodiciRiga set um='KG' where Cod='XB'");
  ASSERT_TRUE(Rinomina("XA", "XB"));
  EXPECT_THAT(UltimaDomanda(), AllOf(HasSubstr("scompare XA Vite"), HasSubstr("resta XB Bullone"),
                                     HasSubstr("unità di misura sono diverse: PZ e KG")));
  const auto messaggi = Messaggi();
  ASSERT_EQ(messaggi.size(), 2U);
  EXPECT_THAT(messaggi[0], AllOf(HasSubstr("fornitore 0001"), HasSubstr("listino XL"),
                                 HasSubstr("distinta base di XC")));
  EXPECT_EQ(messaggi[1], "prodotto XA SOSTITUITO con XB");
  EXPECT_EQ(Conta("CodiciRiga", "Cod='XA'"), 0);
  EXPECT_EQ(Nominano("XA"), 0);
  EXPECT_EQ(Tessarc().Singolo("select Sum(Quantita) from FattureCli_r where CodiceRiga='XB'"),
            Valore(I("15")));
  EXPECT_EQ(Conta("Listini_r", "CodiceRiga='XB' and Prezzo=9"), 1);
  EXPECT_EQ(Conta("Listini_r", "CodiceRiga='XB'"), 1);
  EXPECT_EQ(Tessarc().Singolo("select Sum(Quantita) from Db_r where CodiceRiga='XB'"),
            Valore(I("13")));
  EXPECT_EQ(Tessarc().Singolo("select Sum(Prezzo) from prodottiFor_r where Cod='XB'"),
            Valore(I("12")));
}

// With a bill on both, that of the product that stays is kept whole.
TEST_F(EliminazioneProdottoTest, UnioneDiDueDistinte) {
  Metti(Tessarc(), "Db_r", "Cod", "XA", "Posi", 100, "CodiceRiga", "XC", "Quantita", I("1"));
  Metti(Tessarc(), "Db_r", "Cod", "XB", "Posi", 100, "CodiceRiga", "XD", "Quantita", I("2"));
  ASSERT_TRUE(Rinomina("XA", "XB"));
  EXPECT_THAT(Messaggi().front(), HasSubstr("tutta la distinta base di XA"));
  EXPECT_EQ(Conta("Db_r", "Cod='XB' and CodiceRiga='XD'"), 1);
  EXPECT_EQ(Conta("Db_r", "1=1"), 1);
}

TEST_F(EliminazioneProdottoTest, TuttoONulla) {
  Usi();
  Metti(Tessarc(), "prodottiFor_r", "Cod", "XB", "Posi", 1, "Fornitore", "0001", "Prezzo", I("3"));
  const auto fotografia = [this] { return Contenuto(); };
  const auto prova = [&](const std::function<bool()>& azione) {
    return FallisceOgniIstruzione(ambiente.Basi(), Guasto::Errore, fotografia, azione);
  };
  EXPECT_GT(prova([this] { return warehouse::RinominaOvunque(ambiente, "XA", "X9"); }), 9);
  EXPECT_GT(prova([this] { return warehouse::RinominaOvunque(ambiente, "X9", "XB"); }), 15);
  EXPECT_GT(prova([this] { return warehouse::EliminaOvunque(ambiente, "XB"); }), 9);
}

TEST_F(EliminazioneProdottoTest, MolteRigheSiPossonoFermare) {
  {
    Transazione transazione(ambiente.Basi());
    for (int i = 0; i < 3'000; ++i) Documento("XA", 2023 + i % 2, 1 + i, 100, I("1"));
    transazione.Conferma();
  }
  const std::string prima = Contenuto();
  dialoghi.annullaDopo = 1'600;  // after the first year
  EXPECT_FALSE(Elimina("XA"));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("interrotta: non è stato scritto nulla"));
  EXPECT_FALSE(Rinomina("XA", "X9"));
  Messaggi();
  EXPECT_EQ(Contenuto(), prima);
  dialoghi.annullaDopo = 10'000;
  EXPECT_TRUE(Rinomina("XA", "X9"));
  EXPECT_EQ(Nominano("X9"), 3'000);
}

TEST_F(EliminazioneProdottoTest, InModificaAltrove) {
  Usi();
  const auto altra = NuovaStazione("UFFICIO");
  Rs aperto =
      altra->ambiente->ArchivioDi("tessarc").Recordset("select * from CodiciRiga where Cod='XB'");
  ASSERT_TRUE(aperto.Edit());
  const std::string prima = Contenuto();
  EXPECT_FALSE(Elimina("XB"));
  EXPECT_THAT(SoloMessaggio(), AllOf(HasSubstr("XB è in modifica"), HasSubstr("UFFICIO")));
  EXPECT_FALSE(Rinomina("XA", "XB")) << "the product that would stay";
  EXPECT_EQ(Contenuto(), prima);
}

/// On random data: figures of stock, orders and bills follow the code, and are added up by a merge.
class RinominaCasualeTest : public EliminazioneProdottoTest,
                            public ::testing::WithParamInterface<unsigned> {
 protected:
  using Cifre = std::map<std::string, Importo>;

  RinominaCasualeTest() : sorte(GetParam()) {
    Transazione transazione(ambiente.Basi());
    for (int i = 1; i <= 60; ++i) {
      Documento(Prodotto(), 2023 + Fino(2), i, 100, Quantita(), Fino(3) == 0 ? "C" : "S");
      Metti(Tessarc(), Fino(2) == 0 ? "OrdiniCli_r" : "OrdiniFor_r", "TipoDoc", "O", "NumDoc", i,
            "Posi", 100, "CodiceRiga", Prodotto(), "Quantita", Quantita());
      Metti(Tessarc(), "Commesse_r", "NumDoc", i, "Posi", 100, "CodiceRiga", Prodotto(), "Quantita",
            Quantita());
    }
    // Components are XA and XB, each in bills of its own: no merge finds anything twice.
    for (int i = 1; i <= 6; ++i) {
      const std::string cod = "XM" + std::to_string(i);
      Metti(Tessarc(), "CodiciRiga", "Cod", cod);
      Metti(Tessarc(), "Db_r", "Cod", cod, "Posi", 100, "CodiceRiga", i % 2 == 0 ? "XA" : "XB",
            "Quantita", Quantita());
    }
    transazione.Conferma();
  }
  int Fino(int massimo) { return std::uniform_int_distribution<int>(0, massimo - 1)(sorte); }
  Importo Quantita() { return Importo::DaDecimillesimi(1 + Fino(900'000)); }
  const char* Prodotto() {
    constexpr std::array kProdotti{"XA", "XB", "XC"};
    return kProdotti.at(static_cast<std::size_t>(Fino(3)));
  }
  Cifre Leggi(const std::string& cod) {
    Cifre cifre;
    for (const char* cosa :
         {"FattureCli_r where CS='C' and", "FattureCli_r where CS='S' and Anno=2023 and",
          "FattureCli_r where CS='S' and", "OrdiniCli_r where", "OrdiniFor_r where",
          "Commesse_r where", "Db_r where"}) {
      const Valore somma = Tessarc().Singolo("select Sum(Quantita) from " + std::string(cosa) +
                                             " CodiceRiga='" + cod + "'");
      cifre[cosa] = somma.Nullo() ? Importo() : somma.Importo();
    }
    return cifre;
  }
  std::mt19937 sorte;
};

TEST_P(RinominaCasualeTest, LeCifreSeguonoIlCodice) {
  const Cifre a = Leggi("XA");
  const Cifre b = Leggi("XB");
  const Cifre c = Leggi("XC");
  ASSERT_TRUE(Rinomina("XA", "X'9"));
  EXPECT_EQ(Leggi("X''9"), a);
  EXPECT_EQ(Leggi("XB"), b);
  ASSERT_TRUE(Rinomina("X'9", "XB"));
  Cifre insieme = a;
  for (auto& [cosa, somma] : insieme) somma += b.at(cosa);
  EXPECT_EQ(Leggi("XB"), insieme);
  EXPECT_EQ(Leggi("XC"), c);
  Messaggi();
}

INSTANTIATE_TEST_SUITE_P(Semi, RinominaCasualeTest, ::testing::Range(1U, 7U));

}  // namespace
}  // namespace fenalto::prova
