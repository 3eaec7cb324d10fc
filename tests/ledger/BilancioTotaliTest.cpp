// Totals of the reports against plain sums over random books.
#include <random>

#include "core/sql/Criterio.h"
#include "ledger/Stampati.h"
#include "ledger/statements/BilancioVerifica.h"

namespace fenalto::prova {

class BilancioTotaliTest : public DittaDaStampare {
 protected:
  void ScriviCasuali(std::uint32_t seme, int articoli) {
    std::mt19937 caso(seme);
    const auto uno = [&](std::size_t n) { return caso() % n; };
    // Among them a party without a summary account and accounts that the chart lacks.
    const std::vector<std::pair<const char*, const char*>> conti = {
        {"P", "100.010"}, {"P", "110.001"}, {"P", "170.001"}, {"P", "500.001"}, {"P", "520.007"},
        {"P", "700.010"}, {"P", "710.090"}, {"C", "0001"},    {"C", "0002"},    {"C", "0003"},
        {"F", "0001"},    {"F", "0002"},    {"P", "999.9"},   {"P", "120.001"}};
    const std::vector<const char*> causali = {"001", "062", "APE", "APEX"};
    Transazione transazione(ambiente.Basi());
    for (int numero = 1; numero <= articoli; ++numero) {
      std::vector<Riga> righe;
      Importo somma;
      for (std::size_t i = 1 + uno(4); i > 0; --i) {
        const auto& [cfp, conto] = conti[uno(conti.size())];
        const Importo importo =
            Importo::DaDecimillesimi((static_cast<std::int64_t>(uno(2'000'000)) - 1'000'000) * 100);
        righe.push_back({cfp, conto, importo, causali[uno(causali.size())]});
        somma += importo;
      }
      const auto& [cfp, conto] = conti[uno(conti.size())];
      righe.push_back({cfp, conto, -somma, "001"});
      const int anno = 2023 + static_cast<int>(uno(2));
      Articolo(anno, numero, G(1, 1, 2023).PiuGiorni(static_cast<int>(uno(730))), righe);
    }
    transazione.Conferma();
  }

  std::vector<ledger::SceltaBilancio> Scelte() {
    std::vector<ledger::SceltaBilancio> scelte(4, bilancio.Proposta());
    for (ledger::SceltaBilancio& s : scelte) {
      s.daDt = G(1, 1, 2023);
      s.aaDt = G(31, 12, 2024);
      s.daDtAP = G(20, 2, 2023);
      s.aaDtAP = G(3, 10, 2024);
    }
    scelte[1].noAnno = true;
    scelte[2].escludoCausale = "062";
    scelte[2].daDt = G(15, 5, 2023);
    scelte[3].stampoCliFor = true;
    scelte[3].aaDt = G(1, 7, 2024);
    return scelte;
  }

  /// Debit less credit of what a condition selects, without the program's own balance.
  Importo Somma(const ledger::SceltaBilancio& s, const char* campo, const std::string& condizione) {
    std::string sql = std::string("SELECT Sum(") + campo +
                      ") FROM Movimenti INNER JOIN Articoli ON (Movimenti.Anno = Articoli.Anno) "
                      "AND (Movimenti.NumDoc = Articoli.NumDoc) WHERE " +
                      sql::Criterio("Articoli.Dt", ">=", s.daDt) + " AND " +
                      sql::Criterio("Articoli.Dt", "<=", s.aaDt) + condizione;
    if (!s.noAnno) sql += " AND " + sql::Criterio("Articoli.Anno", "=", s.anno);
    return Tessarc().Singolo(sql).Importo();
  }

  ledger::BilancioVerifica bilancio{ambiente, uscite};
};

TEST_F(BilancioTotaliTest, VerificaUgualeAlleSomme) {
  ScriviCasuali(3, 120);
  for (const ledger::SceltaBilancio& s : Scelte()) {
    const reports::Foglio foglio = bilancio.FoglioVerifica(s);
    const std::vector<Valore>& totali = foglio.righe.back();
    const std::string apertura = " AND (Movimenti.Causale='APE' OR Movimenti.Causale='APEX')";
    std::string periodo = " AND Movimenti.Causale<>'APE' AND Movimenti.Causale<>'APEX'";
    if (!s.escludoCausale.empty()) periodo += " AND Movimenti.Causale<>'" + s.escludoCausale + "'";
    EXPECT_EQ(totali[3].Importo(),
              Somma(s, "ImpoDare", apertura) - Somma(s, "ImpoAvere", apertura));
    EXPECT_EQ(totali[4].Importo(), Somma(s, "ImpoDare", periodo));
    EXPECT_EQ(totali[5].Importo(), Somma(s, "ImpoAvere", periodo));
    EXPECT_EQ(totali[6].Importo(), totali[3].Importo() + totali[4].Importo() - totali[5].Importo());
    // The printed form ends on the same figures.
    Verso(Destinazione::Testo);
    ASSERT_TRUE(bilancio.StampaVerifica(s));
    dialoghi.messaggi.clear();
    const auto righe = uscite.Righe().back();
    reports::Sagoma sagoma(
        reports::PictureImporto("|          TOTALI                             |çççççççççççççççç|"
                                "çççççççççççççççç|çççççççççççççççç|çççççççççççççççç|",
                                true));
    EXPECT_EQ(righe[righe.size() - 2],
              sagoma.Riempi(std::vector<Valore>(totali.begin() + 3, totali.end())));
  }
}

TEST_F(BilancioTotaliTest, LeDueSituazioniFinisconoSullaStessaDifferenza) {
  ScriviCasuali(5, 90);
  for (ledger::SceltaBilancio s : Scelte()) {
    s.escludoCausale.clear();  // what is left out need not balance
    Verso(Destinazione::Testo);
    ASSERT_TRUE(bilancio.StampaProspetti(s));
    std::vector<std::string> differenze;
    for (const auto& pagina : uscite.Righe()) {
      for (const std::string& riga : pagina) {
        if (riga.find("ESERCIZIO") != std::string::npos ||
            riga.find("eccedenza") != std::string::npos) {
          differenze.push_back(riga.substr(riga.size() - 25));
        }
      }
    }
    ASSERT_EQ(differenze.size(), 2U);
    EXPECT_EQ(differenze[0], differenze[1]);
  }
}

TEST_F(BilancioTotaliTest, IMesiFannoIlConfronto) {
  ScriviCasuali(9, 150);
  for (const ledger::SceltaBilancio& s : Scelte()) {
    const std::vector<Valore> totali = bilancio.FoglioConfronto(s).righe.back();
    ledger::MeseConfronto somma;
    const std::vector<ledger::MeseConfronto> mesi = bilancio.MesiConfronto(s);
    ASSERT_EQ(mesi.size(), 12U);
    for (const ledger::MeseConfronto& m : mesi) {
      somma.costiA += m.costiA;
      somma.ricaviA += m.ricaviA;
      somma.costiB += m.costiB;
      somma.ricaviB += m.ricaviB;
    }
    EXPECT_EQ(somma.costiA, totali[3].Importo());
    EXPECT_EQ(somma.ricaviA, totali[4].Importo());
    EXPECT_EQ(somma.costiB, totali[5].Importo());
    EXPECT_EQ(somma.ricaviB, totali[6].Importo());
    EXPECT_FALSE(somma.costiA.Zero() && somma.ricaviA.Zero());
  }
}

}  // namespace fenalto::prova
