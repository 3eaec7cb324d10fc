// Where ledger and open due dates differ, and how it is printed.
#include "ScadenzeDaStampare.h"
#include "duedates/reports/TestSaldi.h"

namespace fenalto::prova {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class ConfrontaSaldiTest : public ScadenzeDaStampare {
 protected:
  /// A movement of 2024, or of `anno`; debit above zero.
  void Muovi(const char* cfp, const char* conto, const char* saldo, const char* causale = "001",
             int anno = 2024) {
    Transazione transazione(ambiente.Basi());
    const Importo importo = I(saldo);
    Metti(Tessarc(), "Articoli", "Anno", anno, "NumDoc", ++numDoc_, "Dt", G(15, 2, anno));
    Metti(Tessarc(), "Movimenti", "Anno", anno, "NumDoc", numDoc_, "Posi", 100, "Causale", causale,
          "CFP", cfp, "Conto", conto, "ImpoDare", importo.Negativo() ? Importo() : importo,
          "ImpoAvere", importo.Negativo() ? -importo : Importo());
    transazione.Conferma();
  }
  /// "0001 120/100/20": balance, due dates, difference.
  std::vector<std::string> Discordi(const char* cfp, const char* da = "", const char* a = "") {
    std::vector<std::string> discordi;
    for (const duedates::ParteDiscorde& p : duedates::ConfrontaSaldi(ambiente, {cfp, da, a})) {
      discordi.push_back(p.cod + " " + p.saldoContabile.Testo() + "/" + p.saldoScadenze.Testo() +
                         "/" + p.Differenza().Testo());
    }
    return discordi;
  }
  std::string Stampato(const duedates::SceltaConfronto& scelta) {
    Verso(Destinazione::Testo);
    EXPECT_TRUE(duedates::TestSaldi(ambiente, uscite).Stampa(scelta));
    return uscite.Testo();
  }

 private:
  int numDoc_ = 0;
};

TEST_F(ConfrontaSaldiTest, SoloChiSiScosta) {
  EXPECT_THAT(Discordi("C"), IsEmpty());
  // 0001 agrees: an invoice paid in part, a credit note, a deposit, one that is paid.
  Muovi("C", "0001", "300", "APE");
  Muovi("C", "0001", "-80");
  Scrivi({"C", "0001", G(31, 1, 2024), "300", "10", "50"});
  Scrivi({"C", "0001", G(31, 1, 2024), "-20"});
  Scrivi({"C", "0001", G(31, 1, 2024), "-10", "01", "0", 0, {{"anticipo", true}}});
  Scrivi({"C", "0001", G(31, 1, 2024), "77", "30", "70"});
  EXPECT_THAT(Discordi("C"), IsEmpty());
  // 0002 has only a balance, 0003 only a due date.
  Muovi("C", "0002", "0.01");
  Scrivi({"C", "0003", G(31, 1, 2025), "5", "29"});
  EXPECT_THAT(Discordi("C"), ElementsAre("0002 0.01/0/0.01", "0003 0/5/-5"));
  EXPECT_THAT(Discordi("C", "0003"), ElementsAre("0003 0/5/-5"));
  EXPECT_THAT(Discordi("C", "", "0002"), ElementsAre("0002 0.01/0/0.01"));
  // Other years' movements count in other years; due dates in all.
  ASSERT_TRUE(ambiente.ScegliAnno(2023));
  Muovi("C", "0001", "220", "001", 2023);
  EXPECT_THAT(Discordi("C"), ElementsAre("0003 0/5/-5"));
}

// What is owed to a supplier is in credit, and above zero in the due dates.
TEST_F(ConfrontaSaldiTest, FornitoriColSegnoDelleScadenze) {
  Muovi("F", "0001", "-122");
  Scrivi({"F", "0001", G(31, 1, 2024), "122"});
  Muovi("F", "0002", "-100");
  Muovi("F", "0002", "40");
  Scrivi({"F", "0002", G(31, 1, 2024), "100", "00", "30"});
  EXPECT_THAT(Discordi("F"), ElementsAre("0002 60/70/-10"));
  EXPECT_THAT(Discordi("C"), IsEmpty());
}

// Whoever was taken off the archive isn't taken off the check; codes are compared without case.
TEST_F(ConfrontaSaldiTest, AncheChiNonEPiuInArchivio) {
  Muovi("C", "X9", "10");
  Scrivi({"C", "x9", G(31, 1, 2024), "10"});
  Muovi("C", "x8", "3");
  Scrivi({"C", "X7", G(31, 1, 2024), "4"});
  EXPECT_THAT(Discordi("C"), ElementsAre("X7 0/4/-4", "x8 3/0/3"));
  EXPECT_THAT(Stampato({}), HasSubstr("|X7         non in archivio                    |"));
}

TEST_F(ConfrontaSaldiTest, IlFoglio) {
  EXPECT_THAT(Stampato({}), HasSubstr("nessuna differenza"));
  Muovi("C", "0002", "1234567.89");
  Muovi("C", "0001", "-10");
  const std::string testo = Stampato({"C", "0001", "0002"});
  EXPECT_THAT(
      testo,
      HasSubstr(
          "Controllo saldi contabili con scadenze in vita\n"
          "Controllo scadenze in vita con saldi contabili anno 2024, clienti da 0001 a 0002\n"));
  EXPECT_THAT(
      testo,
      AllOf(HasSubstr("|                                              |saldo contabile| saldo "
                      "scadenze|    differenza |\n"),
            HasSubstr("|0001       Clienti 0001 dell'Oro              |        -10,000|"
                      "          0,000|        -10,000|\n"
                      "|0002       Clienti 0002 dell'Oro              |  1.234.567,890|"
                      "          0,000|  1.234.567,890|\n"),
            Not(HasSubstr("nessuna differenza"))));
}

TEST_F(ConfrontaSaldiTest, QuelCheNonSiStampa) {
  duedates::TestSaldi test(ambiente, uscite);
  EXPECT_FALSE(test.Stampa({"C", "0002", "0001"}));
  EXPECT_EQ(SoloMessaggio(), "il codice iniziale 0002 viene dopo quello finale 0001");
  ASSERT_TRUE(ambiente.ScegliAnno(2000));
  EXPECT_FALSE(test.Stampa({}));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non funziona in lire"));
  EXPECT_EQ(uscite.fini, 0);
}

}  // namespace
}  // namespace fenalto::prova
