// Statements of account: who gets a letter, what stands in it, whose credit the balance is.
#include "ScadenzeDaStampare.h"
#include "duedates/reports/EstrattoConto.h"

namespace fenalto::prova {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;

class EstrattoContoTest : public ScadenzeDaStampare {
 protected:
  EstrattoContoTest() { scelta = duedates::EstrattoConto(ambiente, uscite).Proposta(); }
  bool Stampa(Destinazione destinazione = Destinazione::Testo) {
    Verso(destinazione);
    return duedates::EstrattoConto(ambiente, uscite).Stampa(scelta);
  }
  /// Text of each page.
  std::vector<std::string> Pagine() {
    std::vector<std::string> pagine;
    for (const auto& righe : uscite.Righe()) {
      std::string& testo = pagine.emplace_back();
      for (const std::string& riga : righe)
        testo += riga.substr(0, riga.find_last_not_of(' ') + 1) + "\n";
    }
    return pagine;
  }

  duedates::SceltaEstrattoConto scelta;
};

TEST_F(EstrattoContoTest, UnaLetteraPerCliente) {
  ScriviTutte();
  ASSERT_TRUE(Stampa());
  const auto pagine = Pagine();
  ASSERT_EQ(pagine.size(), 2U);
  // Today is 15/03/2024: what falls due today isn't overdue yet.
  EXPECT_THAT(
      pagine[0],
      AllOf(HasSubstr("Clienti 0001 dell'Oro\n"),
            HasSubstr("ESTRATTO CONTO AL 15/03/2024   (codice 0001)\n"),
            HasSubstr("\nScadute\n31/01/2024        1            scad.1                           "
                      "        44         100,00           0,00         100,00\n10/03/2024"),
            HasSubstr("\nA scadere\n15/03/2024        2 "), HasSubstr("totale scaduto"),
            HasSubstr("di cui scaduto"), HasSubstr("SALDO AL 15/03/2024 A NOSTRO CREDITO"),
            HasSubstr(" 219,75\n"), HasSubstr("provvedere al pagamento"),
            Not(HasSubstr("scad.3"))));
  EXPECT_THAT(pagine[1],
              AllOf(HasSubstr("(codice 0002)"), HasSubstr(" 470,00\n"), Not(HasSubstr("Scadute")),
                    Not(HasSubstr("di cui")), HasSubstr("alle scadenze indicate")));
}

TEST_F(EstrattoContoTest, LePagateSottoEDaUnGiorno) {
  ScriviTutte();
  // Only paid ones make no letter.
  Scrivi({"C", "0003", G(18, 3, 2024), "11", "30", "11", 9, {{"DtPag", G(18, 3, 2024)}}});
  scelta.scadenze.anchePagate = true;
  ASSERT_TRUE(Stampa());
  auto pagine = Pagine();
  ASSERT_EQ(pagine.size(), 2U);
  EXPECT_THAT(pagine[0], AllOf(HasSubstr("\nGià pagate\n20/03/2024        3 "),
                               HasSubstr("totale pagato"), HasSubstr(" 219,75\n")));
  EXPECT_THAT(pagine[1], HasSubstr("\nGià pagate\n05/01/2023        6 "));

  scelta.scadenze.pagateDal = G(18, 3, 2024);
  ASSERT_TRUE(Stampa());
  pagine = Pagine();
  EXPECT_THAT(pagine[0], HasSubstr("\nGià pagate dal 18/03/2024\n20/03/2024        3 "));
  EXPECT_THAT(pagine[1], Not(HasSubstr("Già pagate")));
  scelta.scadenze.pagateDal = G(19, 3, 2024);
  ASSERT_TRUE(Stampa());
  EXPECT_THAT(uscite.Testo(), Not(HasSubstr("Già pagate")));
}

TEST_F(EstrattoContoTest, LePresentateInBancaSottoIlLoroTitolo) {
  Scrivi({"C", "0001", G(30, 4, 2024), "80", "30", "0", 3, {{"Ndistinta", 12}}});
  Scrivi({"C", "0001", G(10, 1, 2024), "11", "30", "11", 4, {{"DtPag", G(10, 1, 2024)}}});
  Scrivi({"C", "0001", G(31, 5, 2024), "5", "00", "0", 5});
  scelta.scadenze.anchePagate = true;
  ASSERT_TRUE(Stampa());
  EXPECT_THAT(
      uscite.Testo(),
      AllOf(HasSubstr("\nRicevute bancarie presentate\n30/04/2024        3 "),
            ContainsRegex("totale presentato +80,00\n"),
            HasSubstr("\nGià pagate\n10/01/2024        4 "),
            ContainsRegex("totale pagato +11,00\n"), ContainsRegex("A NOSTRO CREDITO +5,00\n")));
}

TEST_F(EstrattoContoTest, DiChiEIlCredito) {
  struct Caso {
    const char *cfp, *importo, *saldo;
  };
  const std::vector<Caso> casi = {{"C", "100", "A NOSTRO CREDITO"},
                                  {"C", "-100", "A VOSTRO CREDITO"},
                                  {"F", "100", "A VOSTRO CREDITO"},
                                  {"F", "-100", "A NOSTRO CREDITO"}};
  for (const Caso& caso : casi) {
    ambiente.ArchivioDi("scadenzario").Esegui("delete * from Scadenze");
    Scrivi({caso.cfp, "0001", G(31, 1, 2024), caso.importo});
    scelta.scadenze.cfp = caso.cfp;
    ASSERT_TRUE(Stampa());
    EXPECT_THAT(uscite.Testo(), HasSubstr(std::string("SALDO AL 15/03/2024 ") + caso.saldo))
        << caso.cfp << caso.importo;
    // Whoever owes nothing isn't asked to pay.
    const bool sollecito = uscite.Testo().find("provvedere al pagamento") != std::string::npos;
    EXPECT_EQ(sollecito, caso.cfp == std::string("C") && caso.importo[0] != '-');
  }
}

TEST_F(EstrattoContoTest, LePagineDiOgniLetteraSiContanoDaCapo) {
  ScriviMolte("0001", 150, "2");
  Scrivi({"C", "0002", G(1, 1, 2024), "5"});
  ASSERT_TRUE(Stampa());
  const auto pagine = Pagine();
  ASSERT_GT(pagine.size(), 2U);
  for (std::size_t i = 0; i + 1 < pagine.size(); ++i) {
    EXPECT_THAT(pagine[i], HasSubstr("(codice 0001)"));
    EXPECT_THAT(pagine[i], HasSubstr("pag.      " + std::to_string(i + 1) + "\n"));
  }
  EXPECT_THAT(pagine.back(), AllOf(HasSubstr("(codice 0002)"), HasSubstr("pag.      1\n")));
  EXPECT_THAT(pagine[1], Not(HasSubstr("Riepiloghiamo")));

  scelta.stGrafico = true;
  ASSERT_TRUE(Stampa(Destinazione::Pdf));
  EXPECT_THAT(uscite.Scritte(), Contains("codice 0002"));
  EXPECT_THAT(uscite.Scritte(), Contains("Segue dalla pagina precedente:"));
  EXPECT_THAT(uscite.Scritte(), Contains("300,00"));
}

TEST_F(EstrattoContoTest, ConIlModelloDellaDitta) {
  namespace fs = std::filesystem;
  Scrivi({"C", "0001", G(1, 1, 2024), "5"});
  const fs::path ini = ambiente.CartellaProgramma() / "Ini";
  fs::create_directories(ini);
  fs::copy_file(ambiente.CartellaDati() / "ini" / "TiEC.mod", ini / "Nostro.mod");
  std::ofstream(ini / "Nostro.mod", std::ios::app) << "testo \"sede di Lecco\" x 15 y 290\n";
  scelta.stGrafico = true;
  struct Caso {
    const char *modulo, *personale;
    bool nostro;
  };
  for (const Caso& caso : {Caso{"Nostro", "1", true}, Caso{"Nostro.mod", "1", true},
                           Caso{"Nostro", "0", false}, Caso{"", "1", false}}) {
    ambiente.ScriviImpostazione(ambiente.FileImpostazioni(), "config", "ECModulo", caso.modulo);
    ambiente.ScriviImpostazione(ambiente.FileImpostazioni(), "config", "ECTracciatoPersonal",
                                caso.personale);
    ASSERT_TRUE(Stampa(Destinazione::Pdf));
    EXPECT_THAT(uscite.Scritte(), Contains("5,00"));
    const auto scritte = uscite.Scritte();
    EXPECT_EQ(std::count(scritte.begin(), scritte.end(), "sede di Lecco") > 0, caso.nostro)
        << caso.modulo << caso.personale;
  }
}

TEST_F(EstrattoContoTest, QuelCheNonSiStampa) {
  Scrivi({"C", "0001", G(1, 1, 2024), "5", "30", "5"});
  scelta.scadenze.anchePagate = true;
  EXPECT_FALSE(duedates::EstrattoConto(ambiente, uscite).Stampa(scelta));
  EXPECT_EQ(SoloMessaggio(),
            "nessun estratto conto da stampare: scadenze aperte di clienti non ce ne sono");
  scelta.alla = {};
  EXPECT_FALSE(duedates::EstrattoConto(ambiente, uscite).Stampa(scelta));
  EXPECT_EQ(SoloMessaggio(), "manca la data dell'estratto conto");
}

}  // namespace
}  // namespace fenalto::prova
