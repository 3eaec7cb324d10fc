// What follows a VAT document, written in the books: every column of every row.

#include "vat/FatturaDiProva.h"
#include "vat/postings/ArticoloFattura.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::prova {
namespace {

using ::testing::ElementsAreArray;

class RegistrazioniAutomaticheTest : public FatturaDiProva {
 protected:
  /// In a transaction of its own, as a caller holds it.
  template <typename F>
  auto Fai(F azione) {
    log = {};
    Transazione transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
    auto esito = azione();
    transazione.Conferma();
    return esito;
  }

  /// The invoice on the register "4" whose second half is written; its number.
  std::int64_t Autofattura(const char* imponibile) {
    Config("RegAutoIntraCee", "No");
    const auto numero =
        Inserisci({.riva = "4", .parte = "0001", .righe = {{"900.220", "22R", I(imponibile)}}});
    Messaggi();
    return numero;
  }

  /// Debit minus credit of an account in the whole year.
  Importo Saldo(const char* conto) {
    return Tessarc()
        .Singolo(std::string("select Sum(ImpoDare)-Sum(ImpoAvere) from Movimenti where Conto='") +
                 conto + "'")
        .Importo();
  }

  vat::LogContabile log;
};

// --- Payment and withholding of an invoice -------------------------------------------------------

struct CasoPagamento {
  const char *cfp, *pagamento, *importo;
  std::vector<std::string> righe;
  std::string testa;
};

TEST_F(RegistrazioniAutomaticheTest, Pagamento) {
  Tessarc().Inserisci("Pagamento", {{"Cod", "ZOPPO"}, {"Conto", "100.010"}});
  const std::vector<CasoPagamento> casi = {
      CasoPagamento("C", "CONT", "122",
                    {"1 004 C:0001 0/122 P:100.010 t0  0+0+0 «pagata»",
                     "2 004 P:100.010 122/0 C:0001 t0  0+0+0 «pagata»"},
                    "15/03/2024 P:100.010 C:0001 auto24 /0 - «» "),
      CasoPagamento("F", "CONT", "122",
                    {"1 004 F:0001 122/0 P:100.010 t0  0+0+0 «pagata»",
                     "2 004 P:100.010 0/122 F:0001 t0  0+0+0 «pagata»"},
                    "15/03/2024 F:0001 P:100.010 auto24 /0 - «» "),
      CasoPagamento("F", "CONT", "-50.5",
                    {"1 004 F:0001 -50.5/0 P:100.010 t0  0+0+0 «pagata»",
                     "2 004 P:100.010 0/-50.5 F:0001 t0  0+0+0 «pagata»"},
                    "15/03/2024 F:0001 P:100.010 auto24 /0 - «» "),
      // Without account, without causal, of no code, of none that exists: not a word.
      CasoPagamento("C", "DUE", "1", {}, ""),
      CasoPagamento("C", "ZOPPO", "1", {}, ""),
      CasoPagamento("C", "", "1", {}, ""),
      CasoPagamento("C", "MAI", "1", {}, ""),
  };
  std::int64_t atteso = 0;
  for (const auto& caso : casi) {
    SCOPED_TRACE(std::string(caso.cfp) + " " + caso.pagamento + " " + caso.importo);
    const auto numDoc = Fai([&] {
      return vat::CreaContabPagamento(
          ambiente,
          {caso.cfp, "0001", caso.pagamento, "pagata", I(caso.importo), G(15, 3, 2024), 2024}, log);
    });
    if (caso.righe.empty()) {
      EXPECT_EQ(numDoc, 0);
      EXPECT_EQ(log.testo, "");
      continue;
    }
    EXPECT_EQ(numDoc, ++atteso);
    EXPECT_EQ(log.testo, "Effettuata contabilizzazione pagamento : art." + std::to_string(numDoc));
    EXPECT_THAT(RigheDi(numDoc), ElementsAreArray(caso.righe));
    EXPECT_EQ(TestaDi(numDoc), caso.testa);
  }
  EXPECT_EQ(Conti(), "3 6 0");
}

TEST_F(RegistrazioniAutomaticheTest, GiroRitenuta) {
  Tessarc().Inserisci("Ritenute", {{"Cod", "VUOTA"}, {"Conto", "180.010"}});
  const auto crea = [&](const char* codice) {
    return Fai([&] {
      return vat::CreaGiroRitenuta(
          ambiente, {"C", "0001", codice, "ritenuta", I("20"), G(15, 3, 2024), 2024}, log);
    });
  };
  EXPECT_EQ(crea("P20"), 1);
  EXPECT_EQ(log.testo, "Effettuata registrazione giro ritenuta : art.1");
  EXPECT_THAT(RigheDi(1), ElementsAre("1 025 C:0001 0/20 P:180.010 t0  0+0+0 «ritenuta»",
                                      "2 025 P:180.010 20/0 C:0001 t0  0+0+0 «ritenuta»"));
  EXPECT_EQ(TestaDi(1), "15/03/2024 P:180.010 C:0001 auto26 /0 - «» ");
  for (const char* codice : {"VUOTA", "MAI"}) {
    EXPECT_EQ(crea(codice), 0);
    EXPECT_EQ(log.testo, std::string("Impossibile creare registrazione giro ritenuta ") + codice);
  }
  EXPECT_EQ(Conti(), "1 2 0");
}

TEST_F(RegistrazioniAutomaticheTest, GiroRitenutaDallaMaschera) {
  const auto numero =
      Inserisci({.riva = "3", .parte = "0001", .righe = {{"500.001", "22", I("100")}}});
  ASSERT_EQ(numero, 1);
  const auto registra = [&](std::int64_t numDoc, const char* causale) {
    return Fai([&] {
      return vat::RegistraGiroRitenuta(ambiente, {2024, numDoc}, {causale, "420.010", I("20")},
                                       log);
    });
  };
  EXPECT_TRUE(registra(1, "024"));
  EXPECT_EQ(log.testo, "Registrazione giro ritenuta : Articolo n. 2 EFFETTUATA");
  EXPECT_THAT(RigheDi(2),
              ElementsAre("1 024 F:0001 20/0 P:420.010 t0  0+0+0 «FATT.12 Del 15/03/2024»",
                          "2 024 P:420.010 0/20 F:0001 t0  0+0+0 «FATT.12 Del 15/03/2024»"));
  EXPECT_EQ(TestaDi(2), "15/03/2024 F:0001 P:420.010 auto53 /0 - «» ");
  EXPECT_FALSE(registra(1, ""));
  EXPECT_EQ(log.testo, "manca causale per giro ritenuta");
  EXPECT_FALSE(registra(99, "024"));
  EXPECT_EQ(log.testo, "registraz.giro ritenuta : NON ESISTE L'ARTICOLO della fattura");
  EXPECT_EQ(Conti().substr(0, 1), "2");
}

// --- Reverse charge ------------------------------------------------------------------------------

TEST_F(RegistrazioniAutomaticheTest, CoppiaDelReverseCharge) {
  struct Caso {
    const char* imponibile;
    bool inverte;
    /// Sides of taxable, VAT and party row on the second register, and of the cost's giro.
    std::vector<std::string> lati;
    const char* costo;
  };
  const std::vector<Caso> casi = {
      {"1000", false, {"1000/0", "220/0", "0/1220"}, "1000/0"},
      {"-100", false, {"-100/0", "-22/0", "0/-122"}, "-100/0"},
      {"-100", true, {"0/100", "0/22", "122/0"}, "-100/0"},
  };
  std::int64_t primo = 0;
  std::int64_t nProt = 0;
  for (const auto& caso : casi) {
    SCOPED_TRACE(std::string(caso.imponibile) + (caso.inverte ? " inverte" : ""));
    Config("InvertoDAinNoteCredito", caso.inverte ? "1" : "0");
    primo = Autofattura(caso.imponibile);
    ASSERT_NE(primo, 0);
    ++nProt;
    ASSERT_TRUE(Fai([&] {
      return vat::RegistraIntra(ambiente, {2024, primo},
                                {"5", false, "029", "0002", "500.001", "DUE"}, log);
    }));
    const auto n = [&](int oltre) { return std::to_string(primo + oltre); };
    EXPECT_THAT(log.testo,
                HasSubstr("Registraz.IVA su registro 5: N.Prot." + std::to_string(nProt) +
                          " - Articolo " + n(1) + " EFFETTUATA\nRegistraz.Costo : Articolo n. " +
                          n(2) + " EFFETTUATA\nCreate Scadenze: "));
    const std::string imponibile = caso.imponibile;
    const std::string iva = Stringa(I(caso.imponibile).Percento(I("22")));
    EXPECT_THAT(RigheDi(primo + 1),
                ElementsAre("1 51 P:900.220 " + caso.lati[0] + " F:0001 t3 22R " + imponibile +
                                "+" + iva + "+0 «FATT.12 Del 15/03/2024»",
                            "9998 52 P:900.220 " + caso.lati[1] +
                                " F:0001 t4  0+0+0 «Autofatt.rev.charge/Intracom»",
                            "9999 53 F:0001 " + caso.lati[2] +
                                " P:900.220 t5  0+0+0 «FATT.12 Del 15/03/2024»"));
    EXPECT_EQ(TestaDi(primo + 1),
              "15/03/2024 F:0001 : auto51 5/" + std::to_string(nProt) + " 15/03/2024 «12» ");
    const std::string causa = "«FT.INTRACEE12/15/03/2024»";
    std::string contrario(caso.costo);
    contrario = "0/" + contrario.substr(0, contrario.find('/'));
    EXPECT_THAT(
        RigheDi(primo + 2),
        ElementsAre(std::string("9999 029 P:500.001 ") + caso.costo + " F:0002 t0  0+0+0 " + causa,
                    "9999 029 F:0002 " + contrario + " P:500.001 t0  0+0+0 " + causa));
    EXPECT_EQ(TestaDi(primo + 2), "15/03/2024 P:500.001 F:0002 auto51 /0 15/03/2024 «12» ");
    // The pair cancels on the transit account, VAT and taxable, and for its own supplier.
    EXPECT_EQ(Saldo("900.220"), Importo());
    EXPECT_EQ(Saldo("0001"), Importo());
  }
  EXPECT_EQ(Scadenze().size(), 6U);
  EXPECT_EQ(Scadenze()[0], "3 30/04/2024 500 F:0002 fattintra 00 5/1 12");
  EXPECT_EQ(Saldo("500.001"), I("800"));
  EXPECT_EQ(Saldo("0002"), I("-800"));
}

TEST_F(RegistrazioniAutomaticheTest, ReverseChargeIncompleto) {
  const auto primo = Autofattura("1000");
  const auto registra = [&](std::int64_t numDoc, const vat::DatiIntra& dati) {
    return Fai([&] { return vat::RegistraIntra(ambiente, {2024, numDoc}, dati, log); });
  };
  const std::string prima = Tutto();
  EXPECT_FALSE(registra(77, {"5", true, "", "", "", ""}));
  EXPECT_EQ(log.testo, "registraz.automatica intra : NON ESISTE L'ARTICOLO del registro 04");
  EXPECT_FALSE(registra(primo, {"", true, "", "", "", ""}));
  EXPECT_EQ(log.testo,
            "registraz.automatica intra : mancano il registro iva fatture acqusti intra "
            ":impossibile effettuare la registrazione automatica");
  EXPECT_EQ(Tutto(), prima);
  EXPECT_TRUE(registra(primo, {"5", true, "", "", "", ""}));
  EXPECT_EQ(log.testo, "Registraz.IVA su registro 5: N.Prot.1 - Articolo 2 EFFETTUATA");
  // The VAT goes to the account of the second register, where that is another.
  Tessarc().Esegui("update RegistriIva set Conto='170.003' where Cod='5'");
  EXPECT_TRUE(registra(primo, {"5", true, "", "", "", ""}));
  EXPECT_THAT(RigheDi(3)[0], HasSubstr("1 51 P:900.220 1000/0"));
  EXPECT_THAT(RigheDi(3)[1], HasSubstr("9998 52 P:170.003 220/0"));
  for (const vat::DatiIntra& dati : {vat::DatiIntra{"5", false, "", "0002", "500.001", ""},
                                     vat::DatiIntra{"5", false, "029", "", "500.001", ""}}) {
    EXPECT_FALSE(registra(primo, dati));
    EXPECT_THAT(log.testo, HasSubstr("\nregistraz.automatica intra 'costo a fornitore' : mancano "
                                     "dati,impossibile effettuare la registrazione automatica"));
  }
}

// --- Customs -------------------------------------------------------------------------------------

TEST_F(RegistrazioniAutomaticheTest, BollaDoganale) {
  const auto bolla =
      Inserisci({.riva = "3",
                 .parte = "0001",
                 .righe = {{"900.220", "22", I("1000")}, {"500.001", "22I50", I("10")}}});
  ASSERT_EQ(bolla, 1);
  const auto registra = [&](std::int64_t numDoc, const vat::DatiBollaDoganale& dati) {
    return Fai([&] { return vat::RegistraBollaDoganale(ambiente, {2024, numDoc}, dati, log); });
  };
  EXPECT_TRUE(registra(1, {"0002", "029", "MISTO"}));
  EXPECT_THAT(log.testo, HasSubstr("Registraz.giro dogana/fornitore : Articolo n. 2 EFFETTUATA\n"
                                   "Effettuata contabilizzazione pagamento : art.3\n"
                                   "Create Scadenze: "));
  const std::string causa = "«FATT.12 Del 15/03/2024»";
  EXPECT_THAT(RigheDi(2), ElementsAre("9999 029 F:0001 1010/0 F:0002 t0  0+0+0 " + causa,
                                      "9999 029 F:0002 0/1010 F:0001 t0  0+0+0 " + causa));
  EXPECT_THAT(TestaDi(2), HasSubstr("15/03/2024 F:0001 F:0002 auto52 /0"));
  EXPECT_THAT(RigheDi(3), ElementsAre("1 004 F:0002 1010/0 P:100.010 t0  0+0+0 " + causa,
                                      "2 004 P:100.010 0/1010 F:0002 t0  0+0+0 " + causa));
  EXPECT_THAT(Scadenze(), ElementsAre("2 30/04/2024 505 F:0002 bolladog 00 3/1 12",
                                      "2 31/05/2024 505 F:0002 bolladog 00 3/1 12"));
  const std::string prima = Tutto();
  EXPECT_FALSE(registra(77, {"0002", "029", ""}));
  EXPECT_EQ(log.testo, "registraz.automatica intra : NON ESISTE L'ARTICOLO del registro 03");
  for (const vat::DatiBollaDoganale& dati :
       {vat::DatiBollaDoganale{"", "029", ""}, {"0002", "", ""}}) {
    EXPECT_FALSE(registra(1, dati));
    EXPECT_EQ(log.testo,
              "registraz.automatica giro bolla doganale : mancano dati,impossibile effettuare la "
              "registrazione automatica");
  }
  EXPECT_EQ(Tutto(), prima);
}

}  // namespace
}  // namespace fenalto::prova
