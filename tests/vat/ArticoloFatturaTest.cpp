// The registration of an issued invoice: rows by kind of price and discount, what follows it, its
// being written anew and erased.
#include "vat/FatturaDiProva.h"
#include "vat/postings/ArticoloFattura.h"
#include "vat/postings/SeguitoFattura.h"

namespace fenalto::prova {
namespace {

using ::testing::ElementsAreArray;

class ArticoloFatturaTest : public FatturaDiProva {
 protected:
  static vat::RichiestaArticoloFattura Richiesta(std::vector<vat::TotaleDocumento> totali) {
    vat::RichiestaArticoloFattura r;
    r.totali = std::move(totali);
    r.riva = "1";
    r.conto = "0001";
    r.dt = r.dtFat = G(15, 3, 2024);
    r.nProt = 7;
    r.nFat = "7/A";
    r.anno = 2024;
    r.tipoDoc = "FT";
    r.senzaScadenze = true;
    return r;
  }
  bool Crea(const vat::RichiestaArticoloFattura& richiesta) {
    log = {};
    Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
    const bool fatto = vat::CreaArticoloFattura(ambiente, richiesta, numDoc, log);
    transazione.Conferma();
    return fatto;
  }
  bool Elimina(int anno, const char* riva, std::int64_t nProt, const char* pagamento) {
    log = {};
    Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
    const bool fatto = vat::EliminaContabFattura(ambiente, anno, riva, nProt, pagamento, log);
    transazione.Conferma();
    return fatto;
  }
  /// Of each row what changes from case to case: side, taxable amount and VAT, counter-account.
  std::vector<std::string> Brevi() {
    std::vector<std::string> brevi;
    for (Rs r = Tessarc().Recordset("select * from Movimenti order by Posi"); !r.Eof();
         r.MoveNext()) {
      const auto i = [&](const char* campo) { return Stringa(r.Fields(campo).Importo()); };
      brevi.push_back(r.Fields("Conto").Testo() + " " + i("ImpoDare") + "/" + i("ImpoAvere") + " " +
                      i("Imponibile") + "+" + i("Iva") + " " + r.Fields("ContoControp").Testo());
    }
    return brevi;
  }

  std::int64_t numDoc = 0;
  vat::LogContabile log;
};

TEST_F(ArticoloFatturaTest, TutteLeColonne) {
  auto r = Richiesta({{"700.001", "22", I("100"), I("22")}, {"700.002", "10", I("50"), I("10")}});
  r.commessa = 5;
  r.ep = r.nVarAnPrec = true;
  r.dtIncasso = G(1, 4, 2024);
  r.pagamento = "DUE";
  ASSERT_TRUE(Crea(r));
  EXPECT_EQ(log.testo, "Effettuata contabilizzazione fattura: art.1 prot.7");
  const std::string causa = " «FATT. 7/A Del 15/03/2024»";
  EXPECT_THAT(RigheDi(1),
              ElementsAre("1 11 P:700.001 0/100 C:0001 t3 22 100+22+0" + causa + " com.5",
                          "2 11 P:700.002 0/50 C:0001 t3 10 50+5+0" + causa + " com.5",
                          "9998 12 P:170.001 0/27 C:0001 t4  0+0+0 «Fatture emesse»",
                          "9999 13 C:0001 177/0 P:700.001 t5  0+0+0" + causa + " com.5"));
  EXPECT_EQ(TestaDi(1),
            "15/03/2024 C:0001 : auto11 1/7 15/03/2024 «7/A» DUE ep variazione incasso 01/04/2024");
  Config("CommesseVecchioSistema", "1");
  r.nProt = 8;
  ASSERT_TRUE(Crea(r));
  EXPECT_THAT(RigheDi(2).back(), ::testing::Not(HasSubstr("com.")));
}

struct CasoRighe {
  const char* nome;
  std::vector<vat::TotaleDocumento> totali;
  const char* sconto;
  bool ivati, inverte;
  const char* riva;
  std::vector<std::string> attese;
};

TEST_F(ArticoloFatturaTest, RigheDelDocumento) {
  const std::vector<CasoRighe> casi = {
      CasoRighe("sconto cassa: il netto è troncato, l'iva è sul netto",
                {{"700.001", "22", I("99.99"), I("22")}}, "3", false, false, "1",
                {"700.001 0/96.99 96.99+21.34 0001", "170.001 0/21.34 0+0 0001",
                 "0001 118.33/0 0+0 700.001"}),
      CasoRighe("omaggio: imponibile zero, iva sul valore", {{"700.001", "22", I("100"), I("22")}},
                "100", false, false, "1",
                {"700.001 0/0 0+22 0001", "170.001 0/22 0+0 0001", "0001 22/0 0+0 700.001"}),
      CasoRighe("prezzi ivati: lo sconto non conta", {{"700.001", "22", I("10"), I("22")}}, "50",
                true, false, "1",
                {"700.001 0/8.2 8.2+1.8 0001", "170.001 0/1.8 0+0 0001", "0001 10/0 0+0 700.001"}),
      CasoRighe("netti uguali: resta il primo; righe senza importo, codice o conto non ci sono",
                {{"700.003", "22", I("0"), I("22")},
                 {"700.004", "", I("9"), I("22")},
                 {"", "22", I("9"), I("22")},
                 {"700.001", "22", I("10"), I("22")},
                 {"700.002", "22", I("10"), I("22")}},
                "0", false, false, "1",
                {"700.001 0/10 10+2.2 0001", "700.002 0/10 10+2.2 0001", "170.001 0/4.4 0+0 0001",
                 "0001 24.4/0 0+0 700.001"}),
      CasoRighe("un netto più grande prende la contropartita",
                {{"700.001", "22", I("10"), I("22")}, {"700.002", "22", I("10.01"), I("22")}}, "0",
                false, false, "1",
                {"700.001 0/10 10+2.2 0001", "700.002 0/10.01 10.01+2.2 0001",
                 "170.001 0/4.4 0+0 0001", "0001 24.41/0 0+0 700.002"}),
      CasoRighe("nota di credito", {{"700.001", "22", I("-10.05"), I("22")}}, "0", false, false,
                "1",
                {"700.001 0/-10.05 -10.05+-2.21 0001", "170.001 0/-2.21 0+0 0001",
                 "0001 -12.26/0 0+0 700.001"}),
      CasoRighe("nota di credito dall'altra parte", {{"700.001", "22", I("-10.05"), I("22")}}, "0",
                false, true, "1",
                {"700.001 10.05/0 -10.05+-2.21 0001", "170.001 2.21/0 0+0 0001",
                 "0001 0/12.26 0+0 700.001"}),
      CasoRighe("corrispettivi senza iva: niente riga 9998", {{"700.010", "ZCOR", I("10"), I("0")}},
                "0", false, false, "7", {"700.010 0/10 10+0 0001", "0001 10/0 0+0 700.010"}),
      CasoRighe("acquisti: l'altro lato", {{"500.001", "22", I("10"), I("22")}}, "0", false, false,
                "3",
                {"500.001 10/0 10+2.2 0001", "170.003 2.2/0 0+0 0001", "0001 0/12.2 0+0 500.001"}),
  };
  for (const auto& caso : casi) {
    SCOPED_TRACE(caso.nome);
    Tessarc().Esegui("delete * from Movimenti");
    Tessarc().Esegui("delete * from Articoli");
    Config("InvertoDAinNoteCredito", caso.inverte ? "1" : "0");
    auto r = Richiesta(caso.totali);
    r.riva = caso.riva;
    r.scontoCassa = I(caso.sconto);
    r.prezziIvati = caso.ivati;
    ASSERT_TRUE(Crea(r));
    EXPECT_THAT(Brevi(), ElementsAreArray(caso.attese));
  }
}

TEST_F(ArticoloFatturaTest, InLire) {
  ASSERT_TRUE(ambiente.ScegliAnno(2000).Riuscito());
  auto r = Richiesta({{"700.001", "20", I("10.33"), I("20")}});
  r.anno = 2000;
  r.inLire = true;
  r.scontoCassa = I("3");
  // 10.33 euro are 20002 lire; 3% of them is 600 lire cut; 20% of 19402 goes up to 3881.
  ASSERT_TRUE(Crea(r));
  EXPECT_THAT(Brevi(), ElementsAre("700.001 0/19402 19402+3881 0001", "170.001 0/3881 0+0 0001",
                                   "0001 23283/0 0+0 700.001"));
}

TEST_F(ArticoloFatturaTest, QuelCheSegue) {
  auto r = Richiesta({{"700.001", "22", I("1000"), I("22")}});
  r.pagamento = "MISTO";
  r.senzaScadenze = false;
  r.ritenute = {{"P20", "ritenuta", I("200")}, {"A11", "altra", I("0")}};
  ASSERT_TRUE(Crea(r));
  EXPECT_EQ(log.testo,
            "Effettuata contabilizzazione fattura: art.1 prot.7\n"
            "Effettuata contabilizzazione pagamento : art.2\n"
            "Effettuata registrazione giro ritenuta : art.3\n"
            "Create Scadenze: \n30/04/2024 31/05/2024 ");
  EXPECT_THAT(RigheDi(2)[0], HasSubstr("C:0001 0/1020 P:100.010"));
  EXPECT_THAT(RigheDi(3)[0], HasSubstr("C:0001 0/200 P:180.010 t0  0+0+0 «ritenuta»"));
  EXPECT_THAT(Scadenze(), ElementsAre("1 30/04/2024 510 C:0001 fatture 00 1/7 7/A",
                                      "1 31/05/2024 510 C:0001 fatture 00 1/7 7/A"));
  EXPECT_EQ(Conti(), "3 7 2");
  // Written anew: no second payment nor giro; due dates only of a document with a type.
  r.nuovo = false;
  r.numDoc = numDoc;
  r.totali[0].importo = I("2000");
  ASSERT_TRUE(Crea(r));
  EXPECT_THAT(log.testo, HasSubstr("elim.contabilizzazione fattura art.1\nelim. scadenze "
                                   "30/04/2024 31/05/2024 \nEffettuata contabilizzazione fattura: "
                                   "art.1 prot.7\nCreate Scadenze: "));
  EXPECT_EQ(Scadenze()[0], "1 30/04/2024 1120 C:0001 fatture 00 1/7 7/A");
  EXPECT_EQ(Conti(), "3 7 2");
  EXPECT_EQ(vat::TrovaSeguito(ambiente, {2024, 1}).size(), 2U) << "of another description";
  r.tipoDoc.clear();
  ASSERT_TRUE(Crea(r));
  EXPECT_THAT(Scadenze(), IsEmpty());
}

TEST_F(ArticoloFatturaTest, SiFermaPrimaDiScrivere) {
  auto r = Richiesta({{"700.001", "22", I("1000"), I("22")}});
  r.pagamento = "MISTO";
  ASSERT_TRUE(Crea(r));
  const std::string prima = Tutto();
  struct Caso {
    const char* riva;
    int anno;
    bool nuovo;
    std::int64_t nProt;
    std::string avviso;
  };
  const std::string testa =
      "ATTENZIONE : in contabilità non esiste l'articolo relativo a questa fattura!!!\n";
  for (const Caso& caso :
       {Caso{"1", 0, true, 8, "manca modifica 'anno'"},
        {"9", 2024, true, 8, "tipo registro iva 09 non previsto su CreaArticoloFattura"},
        {"11", 2024, true, 8, "tipo registro iva 11 non previsto su CreaArticoloFattura"},
        {"8", 2024, true, 8, "tipo registro iva 08 non previsto su CreaArticoloFattura"},
        // Known to be unwritable before the old one is erased.
        {"11", 2024, false, 7, "tipo registro iva 11 non previsto su CreaArticoloFattura"},
        {"1", 2024, false, 99,
         testa + "potrebbero essere state effettuate variazioni o annullamenti "
                 "errati o forzato un numero documento errato"}}) {
    SCOPED_TRACE(caso.avviso);
    r.riva = caso.riva;
    r.anno = caso.anno;
    r.nuovo = caso.nuovo;
    r.nProt = caso.nProt;
    EXPECT_FALSE(Crea(r));
    EXPECT_THAT(log.avvisi, ElementsAre(caso.avviso));
    EXPECT_EQ(log.testo, "");
    EXPECT_EQ(Tutto(), prima);
  }
  r = Richiesta({{"700.001", "22", I("1000"), I("22")}});
  r.contabilizza = false;
  EXPECT_TRUE(Crea(r));
  EXPECT_EQ(Tutto(), prima);
}

TEST_F(ArticoloFatturaTest, Eliminazione) {
  auto r = Richiesta({{"700.001", "22", I("1000"), I("22")}});
  r.pagamento = "DUE";
  r.senzaScadenze = false;
  ASSERT_TRUE(Crea(r));
  // Another register's document of the same number stays.
  r.riva = "1V";
  ASSERT_TRUE(Crea(r));
  EXPECT_TRUE(Elimina(2024, "1", 7, ""));
  EXPECT_EQ(log.testo, "elim.contabilizzazione fattura art.1");
  EXPECT_EQ(Conti(), "1 3 4");
  Scadenzario().Esegui("update Scadenze set Stato='10' where Articolo=2");
  EXPECT_TRUE(Elimina(2024, "1V", 7, "DUE"));
  EXPECT_EQ(log.testo,
            "elim.contabilizzazione fattura art.2\nimpossibile eliminare/rettificare scadenze! (se "
            "si utilizza lo scadenzario: scadenze già pagate, modificate manualmente, cambiato "
            "pagamento sulla fattura ...) ");
  EXPECT_EQ(Conti(), "0 0 4");
  // A head without rows is of another year's books.
  ASSERT_TRUE(Crea(r));
  Tessarc().Esegui("delete * from Movimenti");
  EXPECT_FALSE(Elimina(2024, "1V", 7, "DUE"));
  EXPECT_THAT(log.avvisi,
              ElementsAre("ATTENZIONE : in contabilità non esiste l'articolo relativo a questa "
                          "fattura!!!\nla fattura potrebbe essere relativa ad un esercizio "
                          "contabile diverso da quello indicato in 'selezione anno' oppure sono "
                          "state effettuate variazioni o annullamenti errati : LA REGISTRAZIONE "
                          "CONTABILE NON VERRA' AGGIORNATA"));
}

}  // namespace
}  // namespace fenalto::prova
