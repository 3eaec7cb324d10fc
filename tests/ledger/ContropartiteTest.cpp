// The automatic contra-entries against a plain model of their rule, on rows that change at random.
#include <random>

#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

namespace {

/// What a row shows of its contra-entry: "P 100.010" or "P 100.010 +".
std::string Controp(const ledger::RigaPrimanota& r) {
  return r.cfpControp + " " + r.contoControp + (r.diversiControp ? " +" : "");
}

std::vector<std::string> Modello(const std::vector<ledger::RigaPrimanota>& righe) {
  std::string contoDare = " ";
  std::string contoAvere = " ";
  Importo maxDare;
  Importo maxAvere;
  int quantiDare = 0;
  int quantiAvere = 0;
  for (const ledger::RigaPrimanota& r : righe) {
    if (r.impoDare > maxDare) {
      maxDare = r.impoDare;
      contoDare = r.cfp + " " + r.conto;
    }
    if (r.impoAvere > maxAvere) {
      maxAvere = r.impoAvere;
      contoAvere = r.cfp + " " + r.conto;
    }
    if (!r.impoDare.Zero()) ++quantiDare;
    if (!r.impoAvere.Zero()) ++quantiAvere;
  }
  std::vector<std::string> attese;
  for (const ledger::RigaPrimanota& r : righe) {
    std::string attesa = " ";
    if (!r.impoDare.Zero()) attesa = contoAvere + (quantiAvere > 1 ? " +" : "");
    if (!r.impoAvere.Zero()) attesa = contoDare + (quantiDare > 1 ? " +" : "");
    attese.push_back(attesa);
  }
  return attese;
}

std::vector<std::string> Mostrate(const ledger::Primanota& pn) {
  std::vector<std::string> mostrate;
  for (const ledger::RigaPrimanota& r : pn.Righe()) mostrate.push_back(Controp(r));
  return mostrate;
}

}  // namespace

using ContropartiteTest = DittaDiProva;

TEST_F(ContropartiteTest, Casi) {
  struct Caso {
    std::vector<RigaDaScrivere> righe;
    std::vector<std::string> attese;
  };
  const std::vector<Caso> casi = {
      {{{"100.010", I("5")}, {"110.001", I("-5")}}, {"P 110.001", "P 100.010"}},
      {{{"0001", I("5"), "C"}}, {" "}},
      // Two credits: the greater one, and "several" only on the debit.
      {{{"100.010", I("5")}, {"110.001", I("-2")}, {"0001", I("-3"), "F"}},
       {"F 0001 +", "P 100.010", "P 100.010"}},
      // A tie keeps the first row.
      {{{"100.010", I("4")}, {"100.020", I("4")}, {"110.001", I("-8")}},
       {"P 110.001", "P 110.001", "P 100.010 +"}},
      // Rows without an amount have none.
      {{{"100.010", I("0")}, {"100.020", I("4")}, {"110.001", I("-4")}},
       {" ", "P 110.001", "P 100.020"}},
  };
  for (const Caso& caso : casi) {
    ledger::Primanota pn(ambiente);
    pn.Nuovo();
    for (const auto& riga : caso.righe) ASSERT_TRUE(Scrivi(pn, riga));
    EXPECT_EQ(Mostrate(pn), caso.attese);
  }
}

TEST_F(ContropartiteTest, UnoStornoInNegativoHaLeSueContropartite) {
  ledger::Primanota pn(ambiente);
  pn.Nuovo();
  for (const auto& [conto, campo] : {std::pair{"100.010", "ImpoDare"}, {"110.001", "ImpoAvere"}}) {
    ASSERT_TRUE(pn.PNuovaRiga());
    pn.Riga().Scrivi("Causale", "001");
    pn.Riga().Scrivi("Conto", conto);
    pn.Riga().Scrivi(campo, I("-5"));
    ASSERT_TRUE(pn.ConfermaRiga());
  }
  EXPECT_EQ(Mostrate(pn), (std::vector<std::string>{"P 110.001", "P 100.010"}));
}

TEST_F(ContropartiteTest, SeguonoOgniModificaDiRiga) {
  std::mt19937 caso(3);
  const auto uno = [&](std::size_t n) { return static_cast<std::size_t>(caso()) % n; };
  const std::vector<const char*> conti = {"100.010", "100.020", "110.001", "110.002", "300.001"};
  ledger::Primanota pn(ambiente);
  pn.Nuovo();
  for (int passo = 0; passo < 150; ++passo) {
    const std::size_t quante = pn.Righe().size();
    const std::size_t azione = quante < 2 ? 0 : uno(4);
    if (azione >= 2) {
      ASSERT_TRUE(pn.ApriRiga(pn.Righe()[uno(quante)].num));
    } else {
      ASSERT_TRUE(pn.PNuovaRiga());
    }
    if (azione == 3) {
      dialoghi.Rispondera("RIGA", Risposta::Si);
      ASSERT_TRUE(pn.EliminaRiga());
    } else {
      // Few amounts, so that ties are common; now and then a row moves to another place.
      const Importo importo = Importo::DaUnita(static_cast<std::int64_t>(uno(4)));
      const bool dare = uno(2) == 0;
      pn.Riga().Scrivi("Causale", "001");
      pn.Riga().Scrivi("Conto", conti[uno(conti.size())]);
      pn.Riga().Scrivi("ImpoDare", dare ? importo : Importo());
      pn.Riga().Scrivi("ImpoAvere", dare ? Importo() : importo);
      if (uno(3) == 0) pn.Riga().Scrivi("Posi", static_cast<std::int64_t>(1000 * passo + 7) % 991);
      if (!pn.ConfermaRiga()) pn.AnnullaRiga();
    }
    ASSERT_EQ(Mostrate(pn), Modello(pn.Righe())) << passo;
  }
  // The row frame holds what the grid showed.
  const std::vector<ledger::RigaPrimanota> prima = pn.Righe();
  for (const ledger::RigaPrimanota& r : prima) {
    ASSERT_TRUE(pn.ApriRiga(r.num));
    EXPECT_EQ(pn.Riga().Testo("ContoControp"), r.contoControp);
    EXPECT_EQ(pn.Riga().Leggi("DiversiControp").Booleano(), r.diversiControp);
    pn.AnnullaRiga();
  }
}

TEST_F(ContropartiteTest, SenzaSpuntaRestanoQuelleScritte) {
  ledger::Primanota pn(ambiente);
  pn.Nuovo();
  EXPECT_TRUE(pn.ContropAutomatiche());
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("5")}));
  ASSERT_TRUE(Scrivi(pn, {"110.001", I("-5")}));
  pn.ContropAutomatiche(false);
  ASSERT_TRUE(pn.ApriRiga(pn.Righe()[1].num));
  pn.Riga().Scrivi("ContoControp", "300.001");
  pn.Riga().Scrivi("DiversiControp", true);
  ASSERT_TRUE(pn.ConfermaRiga());
  ASSERT_TRUE(Scrivi(pn, {"100.020", I("9")}));
  EXPECT_EQ(Mostrate(pn), (std::vector<std::string>{"P 110.001", "P 300.001 +", "P "}));
  pn.ContropAutomatiche(true);
  EXPECT_EQ(Mostrate(pn), Modello(pn.Righe()));
  // Opening a stored registration leaves its contra-entries alone.
  ASSERT_TRUE(Scrivi(pn, {"110.001", I("-9")}));
  ASSERT_TRUE(pn.Conferma());
  ASSERT_TRUE(pn.Apri(1));
  EXPECT_FALSE(pn.ContropAutomatiche());
}

}  // namespace fenalto::prova
