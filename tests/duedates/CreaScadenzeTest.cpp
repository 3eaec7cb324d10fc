#include "duedates/schedules/CreaScadenze.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {
namespace {

constexpr const char* kNonCreate =
    "Scadenze: NON create (se si utilizza lo scadenzario verificare la corretta impostazione dei "
    "codici pagamento)";

class CreaScadenzeTest : public DittaDiProva {
 protected:
  CreaScadenzeTest() {
    Transazione transazione(ambiente.Basi());
    Codice("TRE", {{"NuovaCodifica", true}, {"AggiornaScad", true}, {"CodPagIva", "IVA"}});
    for (const char* rata : {"01", "02", "03"})
      Metti(Tessarc(), "Pagamento_r", "Cod", "TRE", "Rata", rata, "PercImporto", I("33.3333"),
            "DopoMesi", rata[1] - '0', "DataFattura", true, "Tipo", rata[1] == '2' ? "03" : "");
    Codice("IVA", {{"NumeroSc", 1}, {"PrimaSc", 0}, {"AggiornaScad", true}, {"Tipo", "01"}});
    Codice("SPENTO", {{"NumeroSc", 1}});
    Codice("ROTTO", {{"NumeroSc", 1}, {"AggiornaScad", true}, {"CodPagIva", "SPENTO"}});
    transazione.Conferma();
  }

  void Codice(const char* cod, std::vector<Coppia> campi) {
    campi.emplace_back("Cod", cod);
    Tessarc().Inserisci("Pagamento", campi);
  }

  static duedates::RichiestaScadenze Richiesta(const char* codPag, const char* importo,
                                               const char* iva = "0") {
    duedates::RichiestaScadenze r;
    r.cfp = "C";
    r.conto = "0001";
    r.codPag = codPag;
    r.data = r.dataFat = G(15, 3, 2024);
    r.importo = I(importo);
    r.iva = I(iva);
    r.descrizione = std::string(70, 'x') + "\r\nseconda riga";
    r.numFat = "123/A";
    r.numProt = 7;
    r.riva = "01";
    r.anno = 2024;
    r.articolo = 5;
    r.programma = "fatture";
    r.tipoDoc = "FT";
    return r;
  }

  bool Crea(const duedates::RichiestaScadenze& richiesta) {
    log.clear();
    avvisi.clear();
    Transazione transazione(ambiente.Basi());
    const bool scritte = duedates::CreaScadenze(ambiente, richiesta, log, avvisi);
    transazione.Conferma();
    return scritte;
  }

  bool EliminaScadenze(int anno, std::int64_t articolo) {
    log.clear();
    Transazione transazione(ambiente.Basi());
    const bool fatto = duedates::EliminaScadenzeFattura(ambiente, anno, articolo, log);
    transazione.Conferma();
    return fatto;
  }

  /// A line a row: number, date, euro, lire, type, first and last.
  std::vector<std::string> Righe() {
    std::vector<std::string> righe;
    Rs rs = Scadenzario().Recordset("SELECT * FROM Scadenze ORDER BY Numero");
    for (; !rs.Eof(); rs.MoveNext()) {
      std::string riga;
      for (const char* campo : {"Numero", "Dt", "ImportoE", "Importo", "Tipo"})
        riga += rs.Fields(campo).Testo() + " ";
      riga += rs.Fields("PrimaScad").Booleano() ? "P" : "-";
      righe.push_back(riga + (rs.Fields("Ultimascad").Booleano() ? "U" : "-"));
    }
    return righe;
  }

  Archivio& Scadenzario() { return ambiente.ArchivioDi("scadenzario"); }

  std::string log;
  std::vector<std::string> avvisi;
};

TEST_F(CreaScadenzeTest, RatesBecomeRows) {
  EXPECT_TRUE(Crea(Richiesta("TRE", "100")));
  EXPECT_THAT(Righe(),
              ElementsAre("1 2024-04-15 33.33 64536 05 P-", "2 2024-05-15 33.33 64536 03 --",
                          "3 2024-06-15 33.34 64555 05 -U"));
  EXPECT_EQ(log, "Create Scadenze: \n15/04/2024 15/05/2024 15/06/2024 ");
  EXPECT_THAT(avvisi, IsEmpty());
  const struct {
    const char* campo;
    Valore atteso;
  } attesi[] = {{"CFP", "C"},
                {"Conto", "0001"},
                {"Stato", "00"},
                {"Anno", 2024},
                {"Articolo", 5},
                {"Riva", "01"},
                {"NProt", 7},
                {"NFat", "123/A"},
                {"DtFat", G(15, 3, 2024)},
                {"Programma", "fatture"},
                {"ImportoPagato", 0},
                {"ImportoPagatoE", 0},
                {"Descrizione", std::string(64, 'x')},
                {"Pagamento", "TRE"},
                {"BancaPresentaz", ""},
                {"Ndistinta", 0},
                {"DtPres", Data()},
                {"TipoDoc", "FT"}};
  for (const auto& [campo, atteso] : attesi)
    EXPECT_EQ(Scadenzario().Singolo(std::string("SELECT ") + campo + " FROM Scadenze"), atteso)
        << campo;
  EXPECT_TRUE(Crea(Richiesta("IVA", "1")));
  EXPECT_EQ(Righe().back(), "4 2024-03-15 1 1936 01 PU");
}

TEST_F(CreaScadenzeTest, VatOnItsOwnCodeComesFirst) {
  EXPECT_TRUE(Crea(Richiesta("TRE", "122", "22")));
  EXPECT_THAT(Righe(),
              ElementsAre("1 2024-03-15 22 42598 01 P-", "2 2024-04-15 33.33 64536 05 --",
                          "3 2024-05-15 33.33 64536 03 --", "4 2024-06-15 33.34 64555 05 -U"));
  EXPECT_EQ(log, "Create Scadenze: \n15/03/2024 15/04/2024 15/05/2024 15/06/2024 ");
}

TEST_F(CreaScadenzeTest, VatOnACodeThatSchedulesNothingIsTold) {
  EXPECT_TRUE(Crea(Richiesta("ROTTO", "122", "22")));
  EXPECT_THAT(Righe(), ElementsAre("1 2024-03-15 100 193627 05 PU"));
  EXPECT_THAT(avvisi, ElementsAre(HasSubstr("SPENTO")));
}

TEST_F(CreaScadenzeTest, RatesOfZeroAreNotWritten) {
  EXPECT_TRUE(Crea(Richiesta("TRE", "-0.02")));
  EXPECT_THAT(Righe(), ElementsAre("1 2024-06-15 -0.02 -39 05 PU"));
}

TEST_F(CreaScadenzeTest, NothingToWrite) {
  for (const char* cod : {"SPENTO", "MAI", ""}) {
    EXPECT_FALSE(Crea(Richiesta(cod, "100"))) << cod;
    EXPECT_EQ(log, kNonCreate);
    EXPECT_THAT(avvisi, IsEmpty());
  }
  EXPECT_FALSE(Crea(Richiesta("TRE", "0")));
  EXPECT_THAT(Righe(), IsEmpty());
}

TEST_F(CreaScadenzeTest, InLireAmountsStayEmpty) {
  ASSERT_TRUE(ambiente.ScegliAnno(2000));
  EXPECT_TRUE(Crea(Richiesta("IVA", "100000")));
  EXPECT_THAT(Righe(), ElementsAre("1 2024-03-15 0 0 01 PU"));
  EXPECT_THAT(avvisi, ElementsAre("lo scadenzario non funziona in lire"));
}

TEST_F(CreaScadenzeTest, NumberOfTheInvoiceIsKeptWhole) {
  const std::pair<const char*, const char*> casi[] = {
      {"12", "12"},
      {" 2024/123 ", "2024/123"},
      {"S/88", "S/88"},
      {"", ""},
      {"99999999999999999999", "99999999999999999999"}};
  for (const auto& [numero, tenuto] : casi) {
    Scadenzario().Esegui("delete * from Scadenze");
    duedates::RichiestaScadenze richiesta = Richiesta("IVA", "1");
    richiesta.numFat = numero;
    ASSERT_TRUE(Crea(richiesta));
    EXPECT_EQ(Scadenzario().Singolo("SELECT NFat FROM Scadenze").Testo(), tenuto);
  }
}

// A number given again after an erased registration: what that one left is another party's.
TEST_F(CreaScadenzeTest, QuelleDiUnAltraParteNonSiToccano) {
  ASSERT_TRUE(Crea(Richiesta("IVA", "1")));
  Scadenzario().Esegui("update Scadenze set Stato='30', Conto='0002'");
  ASSERT_TRUE(Crea(Richiesta("IVA", "2")));
  const auto elimina = [this](const char* conto) {
    Transazione transazione(ambiente.Basi());
    const bool fatto = duedates::EliminaScadenzeFattura(ambiente, 2024, 5, log, {"C", conto});
    transazione.Conferma();
    return fatto;
  };
  EXPECT_TRUE(elimina("0001"));
  EXPECT_EQ(Scadenzario().Singolo("SELECT Conto FROM Scadenze").Testo(), "0002");
  EXPECT_FALSE(elimina("0002"));
  // One that a person gave to another party is the registration's still.
  Scadenzario().Esegui("update Scadenze set Modificata=True");
  EXPECT_FALSE(elimina("0001"));
}

TEST_F(CreaScadenzeTest, DueDatesOfARegistrationAreDeletedUntilOneMoves) {
  Crea(Richiesta("TRE", "100"));
  duedates::RichiestaScadenze altra = Richiesta("IVA", "1");
  altra.articolo = 6;
  Crea(altra);
  EXPECT_TRUE(EliminaScadenze(2024, 5));
  EXPECT_EQ(log, "elim. scadenze 15/04/2024 15/05/2024 15/06/2024 ");
  EXPECT_THAT(Righe(), ElementsAre("4 2024-03-15 1 1936 01 PU"));

  Crea(Richiesta("TRE", "100"));
  Scadenzario().Esegui("UPDATE Scadenze SET Stato='30' WHERE Numero=6");
  EXPECT_FALSE(EliminaScadenze(2024, 5));
  EXPECT_EQ(log,
            "impossibile eliminare/rettificare scadenze! (se si utilizza lo scadenzario: scadenze "
            "già pagate, modificate manualmente, cambiato pagamento sulla fattura ...) ");
  EXPECT_EQ(Righe().size(), 4U);
}

}  // namespace
}  // namespace fenalto::prova
