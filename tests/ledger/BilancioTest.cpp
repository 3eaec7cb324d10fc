// Trial balance, statements and comparison on books small enough to be worked out by hand.
#include <map>

#include "core/values/Testo.h"
#include "ledger/Stampati.h"
#include "ledger/accounts/MovimentiConto.h"
#include "ledger/statements/BilancioInterno.h"
#include "ledger/statements/BilancioVerifica.h"

namespace fenalto::prova {

class BilancioTest : public DittaDaStampare {
 protected:
  BilancioTest() {
    Articolo(2024, 1, G(1, 1, 2024),
             {{"P", "100.010", I("1000"), "APE"}, {"P", "300.001", I("-1000"), "APE"}});
    Articolo(2024, 2, G(10, 2, 2024),
             {{"C", "0001", I("122")}, {"P", "700.010", I("-100")}, {"P", "170.001", I("-22")}});
    Articolo(2024, 3, G(5, 3, 2024), {{"P", "100.010", I("122")}, {"C", "0001", I("-122")}});
    Articolo(2024, 4, G(6, 3, 2024),
             {{"P", "520.007", I("30.5")}, {"F", "0002", I("-30.5"), "062"}});
    // The year before, for the comparison.
    Articolo(2023, 1, G(1, 6, 2023), {{"P", "520.007", I("20")}, {"P", "700.010", I("-20")}});
  }

  ledger::SceltaBilancio Scelta() {
    ledger::SceltaBilancio scelta = ledger::BilancioVerifica(ambiente, uscite).Proposta();
    scelta.daDt = G(1, 1, 2024);
    scelta.aaDt = G(31, 12, 2024);
    scelta.escludoNonMovimentati = true;
    return ledger::BilancioVerifica::PeriodoPrecedente(scelta);
  }
  /// The lines after the heading, without blanks at their ends.
  [[nodiscard]] std::string Corpo() const {
    const std::string testo = uscite.Testo();
    return testo.substr(testo.find("---\n") + 4);
  }
  /// First cells of a sheet's rows.
  static std::vector<std::string> Codici(const reports::Foglio& foglio) {
    std::vector<std::string> codici;
    for (const auto& riga : foglio.righe) codici.push_back(riga[0].Testo());
    return codici;
  }
  ledger::BilancioVerifica bilancio{ambiente, uscite};
};

TEST_F(BilancioTest, Verifica) {
  ledger::SceltaBilancio scelta = Scelta();
  scelta.stampoCliFor = true;
  scelta.daMastro = "100";
  scelta.aaMastro = "400";
  ambiente.ScriviImpostazione({}, "config", "ragsoc1 ", "ROSSI");
  ambiente.ScriviImpostazione({}, "config", "ragsoc2", "& FIGLI");
  Verso(Destinazione::Testo);
  ASSERT_TRUE(bilancio.StampaVerifica(scelta));
  EXPECT_EQ(uscite.fini, 1);
  const std::string vuote =
      "|                |                |                |                |\n";
  const std::string rigo = std::string(115, '-') + "\n";
  EXPECT_EQ(
      Corpo(),
      "| 100      Cassa e valori                     " + vuote +
          "| 100.010  Cassa contanti                     |       1.000,000|         122,000|"
          "           0,000|       1.122,000|\n"
          "| tot. 100 Cassa e valori                     |       1.000,000|         122,000|"
          "           0,000|       1.122,000|\n" +
          rigo + "| 120      Crediti verso clienti              " + vuote +
          "| 120.001  Clienti Italia                     |           0,000|         122,000|"
          "         122,000|           0,000|\n"
          "| 0001       Clienti 0001 dell'Oro            |           0,000|         122,000|"
          "         122,000|           0,000|\n"
          "| tot. 120 Crediti verso clienti              |           0,000|         122,000|"
          "         122,000|           0,000|\n" +
          rigo + "| 170      Erario c/IVA                       " + vuote +
          "| 170.001  IVA a debito                       |           0,000|           0,000|"
          "          22,000|         -22,000|\n"
          "| tot. 170 Erario c/IVA                       |           0,000|           0,000|"
          "          22,000|         -22,000|\n" +
          rigo + "| 300      Patrimonio netto                   " + vuote +
          "| 300.001  Capitale sociale                   |      -1.000,000|           0,000|"
          "           0,000|      -1.000,000|\n"
          "| tot. 300 Patrimonio netto                   |      -1.000,000|           0,000|"
          "           0,000|      -1.000,000|\n" +
          rigo + "| 400      Debiti verso fornitori             " + vuote +
          "| 400.001  Fornitori Italia                   |           0,000|           0,000|"
          "          30,500|         -30,500|\n"
          "| 0002       Fornitori 0002 dell'Oro          |           0,000|           0,000|"
          "          30,500|         -30,500|\n"
          "| tot. 400 Debiti verso fornitori             |           0,000|           0,000|"
          "          30,500|         -30,500|\n" +
          rigo + std::string(115, '=') +
          "\n|          TOTALI                             |           0,000|         244,000|"
          "         174,500|          69,500|\n" +
          std::string(115, '=') + "\n");
  EXPECT_EQ(uscite.Righe()[0][0].substr(0, 13), "ROSSI & FIGLI");
  // A double click on an account's line leads to its movements.
  const auto& riga = std::get<reports::RigaFissa>(uscite.pagine[0].elementi[12]);
  EXPECT_EQ(riga.rinvio, AlConto("C", "120.001")) << riga.testo;
}

TEST_F(BilancioTest, Prospetti) {
  Tessarc().Esegui("UPDATE CONTI SET ImportoSitAziendale=-12.5 WHERE Cod='520.007'");
  Verso(Destinazione::Testo);
  ASSERT_TRUE(bilancio.StampaProspetti(Scelta()));
  const std::string testo = uscite.Testo();
  ASSERT_EQ(uscite.pagine.size(), 2U);
  // What adjusts a cost downwards stands under the revenues.
  EXPECT_NE(
      testo.find(
          " 520        Costi per servizi                           30,500           12,500\n"
          " 520.007    Assicurazioni                               30,500\n"
          "*520.007    Assicurazioni                                                12,500\n"
          "\n"
          " 700        Ricavi di vendita                            0,000          100,000\n"
          " 700.010    Corrispettivi                                               100,000\n"),
      std::string::npos)
      << testo;
  EXPECT_NE(testo.find("            TOTALI                                      30,500          "
                       "112,500\n"),
            std::string::npos)
      << testo;
  EXPECT_NE(testo.find("              UTILE DI ESERCIZIO                               82,000\n"),
            std::string::npos)
      << testo;
  EXPECT_NE(testo.find("\n *=rettifiche di bilancio\n"), std::string::npos);
  EXPECT_NE(testo.find("              eccedenza attiva                                 69,500\n"),
            std::string::npos)
      << testo;
  EXPECT_EQ(uscite.Righe()[1][2].substr(0, 30), "stampa situazione patrimoniale");
}

TEST_F(BilancioTest, ProspettiInPerditaEInPareggio) {
  ledger::SceltaBilancio scelta = Scelta();
  scelta.daDt = G(1, 3, 2024);
  Verso(Destinazione::Testo);
  ASSERT_TRUE(bilancio.StampaProspetti(scelta));
  EXPECT_NE(uscite.Testo().find("PERDITA DI ESERCIZIO"), std::string::npos);
  EXPECT_NE(uscite.Testo().find("eccedenza passiva"), std::string::npos);
  scelta.aaDt = G(5, 3, 2024);
  Verso(Destinazione::Testo);
  ASSERT_TRUE(bilancio.StampaProspetti(scelta));
  EXPECT_EQ(uscite.Testo().find("ESERCIZIO"), std::string::npos);
  EXPECT_EQ(uscite.Testo().find("eccedenza"), std::string::npos);
}

TEST_F(BilancioTest, Confronto) {
  Verso(Destinazione::Testo);
  const ledger::SceltaBilancio scelta = Scelta();
  ASSERT_TRUE(bilancio.StampaConfronto(scelta));
  const std::string testo = uscite.Testo();
  for (const char* riga :
       {" Periodo A  dal 01/01/2024 al 31/12/2024  anno 2024\n",
        " Periodo B  dal 01/01/2023 al 31/12/2023  anno 2023\n",
        " 520.007    Assicurazioni                               30,500                        "
        "20,000                        10,500    52,5\n",
        " 700.010    Corrispettivi                                             100,000          "
        "              20,000         80,000   400,0\n",
        "            UTILE (RICAVI) / PERDITA (COSTI)                           69,500          "
        "                             69,500\n"}) {
    EXPECT_NE(testo.find(riga), std::string::npos) << riga << testo;
  }
  ledger::MeseConfronto somma;
  const std::vector<ledger::MeseConfronto> mesi = bilancio.MesiConfronto(scelta);
  ASSERT_EQ(mesi.size(), 12U);
  for (const ledger::MeseConfronto& m : mesi) {
    somma.costiA += m.costiA;
    somma.ricaviA += m.ricaviA;
    somma.costiB += m.costiB;
    somma.ricaviB += m.ricaviB;
  }
  EXPECT_EQ(somma.costiA.Testo() + " " + somma.ricaviA.Testo(), "30.5 100");
  EXPECT_EQ(somma.costiB.Testo() + " " + somma.ricaviB.Testo(), "20 20");
}

TEST_F(BilancioTest, ConfrontoDelRisultato) {
  struct Caso {
    const char *costiA, *costiB;  ///< revenues are 100 in both
    const char *differenza, *percento;
  };
  // Profit grown, profit shrunk, loss grown, loss shrunk, profit become a loss, none before.
  const Caso casi[] = {{"40", "50", "10", "20"},     {"60", "50", "-10", "-20"},
                       {"160", "150", "-10", "-20"}, {"140", "150", "10", "20"},
                       {"110", "90", "-20", ""},     {"90", "100", "10", ""}};
  for (const Caso& caso : casi) {
    Tessarc().Esegui("DELETE FROM Movimenti");
    Tessarc().Esegui("DELETE FROM Articoli");
    Articolo(2024, 1, G(1, 2, 2024),
             {{"P", "520.007", I(caso.costiA)}, {"P", "700.010", I("-100")}});
    Articolo(2023, 1, G(1, 2, 2023),
             {{"P", "520.007", I(caso.costiB)}, {"P", "700.010", I("-100")}});
    Verso(Destinazione::Testo);
    ASSERT_TRUE(bilancio.StampaConfronto(Scelta()));
    const auto pagine = uscite.Righe();
    const std::string& ultima = pagine.back()[pagine.back().size() - 2];
    const std::string attesa =
        reports::Sagoma(reports::PictureImporto(" çççççççççççççç #####,#", true))
            .Riempi(std::vector<Valore>{
                I(caso.differenza), *caso.percento == '\0' ? Valore() : Valore(I(caso.percento))});
    EXPECT_EQ(ultima.substr(107), attesa) << caso.costiA << " " << caso.costiB << "\n" << ultima;
  }
}

TEST_F(BilancioTest, ScostamentoSulLatoDelConto) {
  const struct {
    const char *a, *b, *differenza, *percento;
  } casi[] = {
      {"150", "100", "50", "50"},     {"-150", "-100", "50", "50"}, {"-50", "-100", "-50", "-50"},
      {"-50", "100", "-150", "-150"}, {"-30", "0", "30", ""},       {"0", "0", "0", ""},
      {"4", "3", "1", "33.3"},        {"8.02", "8", "0.02", "0.3"}, {"0", "100", "-100", "-100"}};
  for (const auto& c : casi) {
    const ledger::Scostamento s = ledger::Scosta(I(c.a), I(c.b));
    EXPECT_EQ(s.differenza.Testo(), c.differenza) << c.a << " " << c.b;
    EXPECT_EQ(s.percento.Neutro(), c.percento) << c.a << " " << c.b;
  }
}

TEST_F(BilancioTest, Scelte) {
  // 0002 of the customers balances out at zero; 110.001 has only an opening.
  Articolo(2024, 5, G(1, 4, 2024), {{"C", "0002", I("5")}, {"P", "130.001", I("-5")}});
  Articolo(2024, 6, G(2, 4, 2024), {{"C", "0002", I("-5")}, {"P", "130.001", I("5")}});
  Articolo(2024, 7, G(1, 1, 2024), {{"P", "110.001", I("7"), "APEX"}});
  const auto codici = [&](void (*cambia)(ledger::SceltaBilancio&)) {
    ledger::SceltaBilancio scelta = Scelta();
    scelta.daMastro = "110";
    scelta.aaMastro = "130";
    cambia(scelta);
    return Codici(bilancio.FoglioVerifica(scelta));
  };
  using Elenco = std::vector<std::string>;
  EXPECT_EQ(codici([](ledger::SceltaBilancio&) {}),
            (Elenco{"110.001", "tot. 110", "120.001", "tot. 120", "130.001", "tot. 130", ""}));
  EXPECT_EQ(codici([](ledger::SceltaBilancio& s) { s.escludoSaldo0 = true; }),
            (Elenco{"110.001", "tot. 110", "", ""}));  // the note on the totals
  EXPECT_EQ(codici([](ledger::SceltaBilancio& s) { s.stampoCliFor = true; }),
            (Elenco{"110.001", "tot. 110", "120.001", "0001", "0002", "tot. 120", "130.001",
                    "tot. 130", ""}));
  EXPECT_EQ(codici([](ledger::SceltaBilancio& s) { s.soloMastri = s.stampoCliFor = true; }),
            (Elenco{"tot. 110", "tot. 120", "tot. 130", ""}));
  EXPECT_EQ(codici([](ledger::SceltaBilancio& s) { s.escludoCausale = "001"; }),
            (Elenco{"110.001", "tot. 110", ""}));
  EXPECT_EQ(codici([](ledger::SceltaBilancio& s) { s.daDt = G(2, 1, 2024); }),
            (Elenco{"120.001", "tot. 120", "130.001", "tot. 130", ""}));
  EXPECT_EQ(codici([](ledger::SceltaBilancio& s) { s.anno = 2023; }), (Elenco{""}));
  EXPECT_EQ(codici([](ledger::SceltaBilancio& s) {
              s.anno = 2023;
              s.noAnno = true;
            }).size(),
            7U);
  // Everything that the chart has, moved or not.
  EXPECT_GT(codici([](ledger::SceltaBilancio& s) { s.escludoNonMovimentati = false; }).size(), 20U);
}

TEST_F(BilancioTest, TotaliConContiNonStampati) {
  // 100.020 comes back to zero: left out with its movements, which the totals hold.
  Articolo(2024, 5, G(1, 4, 2024), {{"P", "100.020", I("5")}, {"P", "110.001", I("-5")}});
  Articolo(2024, 6, G(2, 4, 2024), {{"P", "100.020", I("-5")}, {"P", "110.001", I("5")}});
  ledger::SceltaBilancio scelta = Scelta();
  const auto scritte = [&] {
    std::string testo;
    for (const auto& riga : bilancio.FoglioVerifica(scelta).righe) {
      const std::string cod = riga[0].Testo();
      if (cod.empty() || cod == "tot. 100" || cod == "tot. 110" || cod == "tot. 700") {
        testo += riga[1].Testo() + "|";
      }
    }
    return testo;
  };
  EXPECT_EQ(scritte(), "Cassa e valori|Banche e depositi|Ricavi di vendita|TOTALI|");
  scelta.escludoSaldo0 = true;
  EXPECT_EQ(scritte(),
            "(*) Cassa e valori|Ricavi di vendita|(*) TOTALI|(*) con conti esclusi dalla stampa|");
  scelta.soloMastri = true;
  EXPECT_EQ(scritte(),
            "Cassa e valori|Ricavi di vendita|(*) TOTALI|(*) con conti esclusi dalla stampa|");
}

TEST_F(BilancioTest, QuelCheNessunMastroRaccoglieStaInFondo) {
  Articolo(2024, 5, G(1, 4, 2024),
           {{"P", "999.001", I("10")}, {"C", "0003", I("5")}, {"P", "senza", I("-15")}});
  Metti(Tessarc(), "Conti", "Cod", "888.1", "CFP", "P", "PatrEcon", "E", "Descrizione", "orfano");
  Metti(Tessarc(), "ContiClientiFornitori", "Cod", "888.1", "CFP", "P", "Descrizione", "orfano");
  Articolo(2024, 6, G(1, 4, 2024), {{"P", "888.1", I("-4")}, {"P", "100.010", I("4")}});
  const auto coda = [](const reports::Foglio& foglio) {
    std::vector<std::string> codici = Codici(foglio);
    codici.erase(codici.begin(), std::ranges::find(codici, "tot. 700") + 1);
    return codici;
  };
  ledger::SceltaBilancio scelta = Scelta();
  const reports::Foglio tutto = bilancio.FoglioVerifica(scelta);
  EXPECT_EQ(coda(tutto),
            (std::vector<std::string>{"0003", "888.1", "999.001", "senza", "tot. ", ""}));
  EXPECT_EQ(tutto.righe.back()[6].Importo(), Importo());  // the books balance
  scelta.daMastro = "700";
  scelta.aaMastro = "999";
  EXPECT_EQ(coda(bilancio.FoglioVerifica(scelta)),
            (std::vector<std::string>{"888.1", "999.001", "tot. ", ""}));
  // On the statements too, so that both pages end on the same difference.
  Verso(Destinazione::Testo);
  ASSERT_TRUE(bilancio.StampaProspetti(Scelta()));
  EXPECT_NE(uscite.Testo().find(" 888.1      orfano"), std::string::npos);
  EXPECT_NE(uscite.Testo().find("UTILE DI ESERCIZIO                               73,500\n"),
            std::string::npos);
  EXPECT_NE(uscite.Testo().find("eccedenza attiva                                 73,500\n"),
            std::string::npos);
}

TEST_F(BilancioTest, ContiCheHannoCambiatoClasse) {
  // A plain account became a summary of customers, the summary of suppliers a plain account.
  Tessarc().Esegui("UPDATE Conti SET CFP='C' WHERE Cod='520.007'");
  Tessarc().Esegui("DELETE FROM ContiClientiFornitori WHERE Cod='520.007'");
  Tessarc().Esegui("UPDATE Conti SET CFP='P' WHERE Cod='400.001'");
  ledger::SceltaBilancio scelta = Scelta();
  scelta.stampoCliFor = true;
  const reports::Foglio foglio = bilancio.FoglioVerifica(scelta);
  std::map<std::string, std::string> saldi;
  for (const auto& riga : foglio.righe) {
    saldi[riga[0].Testo()] = riga[1].Testo() + " " + riga[6].Importo().Testo();
  }
  EXPECT_EQ(saldi["520.007"], "Assicurazioni 30.5");
  EXPECT_EQ(saldi["400.001"], "Fornitori Italia -30.5");
  EXPECT_EQ(saldi["0002"], "Fornitori 0002 dell'Oro -30.5");
  EXPECT_FALSE(saldi.contains("tot. "));  // no account without a master
  EXPECT_EQ(foglio.righe.back()[6].Importo(), Importo());
  // Nor on a walk of other masters, or of one letter.
  scelta.daMastro = scelta.aaMastro = "700";
  EXPECT_EQ(Codici(bilancio.FoglioVerifica(scelta)),
            (std::vector<std::string>{"700.010", "tot. 700", ""}));
  Importo costi;
  for (const ledger::MeseConfronto& mese : bilancio.MesiConfronto(Scelta())) costi += mese.costiA;
  EXPECT_EQ(costi, I("30.5"));
}

TEST_F(BilancioTest, CodiciDaCercareAllaLettera) {
  // A master's code is no pattern, and an account belongs to one master.
  for (const char* mastro : {"1*", "30", "30.1"})
    Tessarc().Inserisci("Mastri", {{"Cod", mastro}, {"PatrEcon", "P"}, {"Descrizione", "l'uno"}});
  for (const char* conto : {"1*.5", "30.1.2"})
    Tessarc().Inserisci("Conti", {{"Cod", conto}, {"CFP", "P"}});
  Articolo(2024, 5, G(1, 4, 2024), {{"P", "1*.5", I("1")}, {"P", "30.1.2", I("-1")}});
  ledger::SceltaBilancio scelta = Scelta();
  scelta.daMastro = "1*";
  scelta.aaMastro = "30.1";
  const std::vector<std::string> codici = Codici(bilancio.FoglioVerifica(scelta));
  EXPECT_EQ(std::ranges::count(codici, "1*.5"), 1);
  EXPECT_EQ(std::ranges::count(codici, "100.010"), 1);
  EXPECT_EQ(std::ranges::count(codici, "30.1.2"), 1);
}

TEST_F(BilancioTest, ProposteERifiuti) {
  const ledger::SceltaBilancio proposta = bilancio.Proposta();
  EXPECT_EQ(proposta.daDt, G(1, 1, 2024));
  EXPECT_EQ(proposta.aaDt, G(6, 3, 2024));
  EXPECT_EQ(proposta.daMastro + proposta.aaMastro, "100980");
  EXPECT_EQ(proposta.aaDtAP, G(6, 3, 2023));
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_EQ(bilancio.Proposta().daDt, G(1, 1, 2025));
  EXPECT_EQ(bilancio.Proposta().aaDt, G(31, 12, 2025));

  const auto rifiuto = [&](void (*cambia)(ledger::SceltaBilancio&)) {
    ledger::SceltaBilancio scelta = Scelta();
    cambia(scelta);
    EXPECT_FALSE(bilancio.StampaConfronto(scelta));
    return SoloMessaggio();
  };
  EXPECT_THAT(rifiuto([](ledger::SceltaBilancio& s) { std::swap(s.daDt, s.aaDt); }),
              ::testing::HasSubstr("periodo A 31/12/2024 è successiva"));
  EXPECT_THAT(rifiuto([](ledger::SceltaBilancio& s) { s.aaDtAP = {}; }),
              ::testing::HasSubstr("periodo B"));
  EXPECT_EQ(rifiuto([](ledger::SceltaBilancio& s) { std::swap(s.daMastro, s.aaMastro); }),
            "il mastro iniziale 980 segue quello finale 100: scambiarli");
  EXPECT_EQ(rifiuto([](ledger::SceltaBilancio& s) { s.daMastro = s.aaMastro = "995"; }),
            "non c'è nessun mastro da 995 a 995");
  EXPECT_EQ(rifiuto([](ledger::SceltaBilancio& s) { s.escludoCausale = "X9"; }),
            "Causale da escludere: il codice X9 non esiste, sceglierne uno dall'elenco (F2)");
}

TEST_F(BilancioTest, RinunciaEInterruzione) {
  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(bilancio.StampaVerifica(Scelta()));
  dialoghi.annullaDopo = 100;
  Verso(Destinazione::Testo);
  EXPECT_FALSE(bilancio.StampaProspetti(Scelta()));
  EXPECT_TRUE(uscite.pagine.empty());
  EXPECT_EQ(uscite.fini, 0);
  EXPECT_TRUE(bilancio.FoglioVerifica(Scelta()).colonne.empty());
  EXPECT_TRUE(bilancio.MesiConfronto(Scelta()).empty());
}

TEST_F(BilancioTest, FormaGrafica) {
  ledger::SceltaBilancio scelta = Scelta();
  scelta.stGrafico = true;
  scelta.escludoNonMovimentati = false;
  const auto conta = [&](const std::string& testo) {
    return std::ranges::count(uscite.Scritte(), testo);
  };
  Verso(Destinazione::Pdf);
  ASSERT_TRUE(bilancio.StampaVerifica(scelta));
  EXPECT_GT(uscite.pagine.size(), 2U);
  const auto pagine = static_cast<std::ptrdiff_t>(uscite.pagine.size());
  EXPECT_EQ(conta("segue su pagina successiva"), pagine - 1);
  EXPECT_EQ(conta("BILANCIO DI VERIFICA"), pagine);
  EXPECT_EQ(conta("274,50"), 2);  // the totals
  Verso(Destinazione::Pdf);
  ASSERT_TRUE(bilancio.StampaProspetti(scelta));
  EXPECT_EQ(conta("UTILE DI ESERCIZIO") + conta("ECCEDENZA ATTIVA"), 2);
  Verso(Destinazione::Pdf);
  ASSERT_TRUE(bilancio.StampaConfronto(scelta));
  EXPECT_EQ(conta("52,5"), 3);  // the account, its master and the costs
  // A text output has no graphic form.
  Verso(Destinazione::Testo);
  ASSERT_TRUE(bilancio.StampaConfronto(scelta));
  EXPECT_TRUE(uscite.Scritte().empty());
}

TEST_F(BilancioTest, MovimentiDiUnConto) {
  Tessarc().Esegui(
      "UPDATE Movimenti SET ContoControp='0001', DiversiControp=True WHERE Conto='100.010' AND "
      "NumDoc=3");
  const auto tutti =
      ledger::MovimentiDiConto(ambiente, "P", "100.010", 2024, G(1, 1, 2024), G(31, 12, 2024));
  ASSERT_EQ(tutti.size(), 2U);
  EXPECT_EQ(tutti[0].saldo, I("1000"));
  EXPECT_EQ(tutti[1].saldo, I("1122"));
  EXPECT_EQ(tutti[1].articolo, 3);
  EXPECT_EQ(tutti[1].controp, "0001+diversi");
  EXPECT_EQ(
      ledger::MovimentiDiConto(ambiente, "P", "520.007", 0, G(1, 1, 2023), G(31, 12, 2024)).size(),
      2U);
  EXPECT_EQ(ledger::MovimentiDiConto(ambiente, "P", "520.007", 0, G(1, 1, 2023), G(31, 12, 2024), 1)
                .size(),
            1U);
}

}  // namespace fenalto::prova
