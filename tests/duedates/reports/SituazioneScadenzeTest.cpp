// What is open by party and by month, in classes of ageing.
#include <rapidcheck.h>

#include "ScadenzeDaStampare.h"
#include "duedates/reports/SituazioneScadenze.h"

namespace fenalto::prova {
namespace {

using ::testing::ElementsAre;

class SituazioneScadenzeTest : public ScadenzeDaStampare {
 protected:
  duedates::Situazione Calcola(const char* cfp = "C", Data alla = G(15, 3, 2024)) {
    return duedates::SituazioneScadenze(ambiente).Calcola({cfp, alla}).value();
  }
  /// "not due/30/60/90/beyond"
  static std::string Testo(const duedates::ImportiFasce& fasce) {
    std::string testo;
    for (std::size_t i = 0; i < duedates::kFasce; ++i)
      testo += (i == 0 ? "" : "/") + fasce.Di(static_cast<duedates::Fascia>(i)).Testo();
    return testo;
  }
  static std::vector<std::string> Parti(const duedates::Situazione& situazione) {
    std::vector<std::string> testi;
    for (const duedates::ParteAperta& p : situazione.parti)
      testi.push_back(p.conto + " " + std::to_string(p.scadenze) + ": " + Testo(p.importi));
    return testi;
  }
  static std::vector<std::string> Mesi(const duedates::Situazione& situazione) {
    std::vector<std::string> testi;
    for (const duedates::MeseAperto& m : situazione.mesi) {
      testi.push_back(duedates::NomeMese(m.mese) + " " + std::to_string(m.scadenze) + ": " +
                      m.scaduto.Testo() + "+" + m.aScadere.Testo() + " " + m.progressivo.Testo());
    }
    return testi;
  }
};

TEST_F(SituazioneScadenzeTest, PerParteEPerMese) {
  ScriviTutte();
  Scrivi({"C", "X9", {}, "5", "01"});  // of a party that is gone, at sight
  const duedates::Situazione situazione = Calcola();
  EXPECT_THAT(Parti(situazione),
              ElementsAre("0001 3: 149.75/-30/100/0/0", "0002 2: 470/0/0/0/0", "X9 1: 0/0/0/0/5"));
  // A month may be overdue in part.
  EXPECT_THAT(Mesi(situazione),
              ElementsAre("senza data 1: 5+0 5", "gennaio 2024 1: 100+0 105",
                          "marzo 2024 3: -30+549.75 624.75", "gennaio 2025 1: 0+70 694.75"));
  EXPECT_EQ(Testo(situazione.totali), "619.75/-30/100/0/5");
  EXPECT_EQ(situazione.totali.Scaduto(), I("75"));
  EXPECT_EQ(situazione.totali.Totale(), I("694.75"));
  EXPECT_EQ(situazione.scadenze, 6);
  EXPECT_THAT(Parti(Calcola("F")), ElementsAre("0001 1: 0/0/900/0/0"));
  EXPECT_THAT(Parti(Calcola("C", G(1, 1, 2023))),
              ElementsAre("0001 3: 219.75/0/0/0/0", "0002 2: 470/0/0/0/0", "X9 1: 0/0/0/0/5"));
}

TEST_F(SituazioneScadenzeTest, LeScadenzeDiUnaParte) {
  ScriviTutte();
  const auto importi = [this](const char* conto) {
    std::vector<std::string> testi;
    const auto aperte = duedates::SituazioneScadenze(ambiente).Aperte({"C", {}}, conto).value();
    for (const duedates::ScadenzaStampata& s : aperte)
      testi.push_back(s.conto + " " + s.dt.Testo() + " " + s.Residuo().Testo());
    return testi;
  };
  EXPECT_THAT(importi("0001"),
              ElementsAre("0001 31/01/2024 100", "0001 10/03/2024 -30", "0001 15/03/2024 149.75"));
  EXPECT_EQ(importi("").size(), 5U);
  EXPECT_TRUE(importi("0003").empty());
}

TEST_F(SituazioneScadenzeTest, SenzaDataOAnnullataNonSiVede) {
  EXPECT_FALSE(duedates::SituazioneScadenze(ambiente).Calcola({"C", {}}));
  EXPECT_EQ(SoloMessaggio(), "manca la data a cui vedere la situazione");
  EXPECT_EQ(duedates::SituazioneScadenze(ambiente).Proposta().alla, G(15, 3, 2024));
  ScriviMolte("0001", 500, "1.01");
  EXPECT_EQ(Calcola().totali.Totale(), I("505"));
  dialoghi.annullaDopo = 0;
  EXPECT_FALSE(duedates::SituazioneScadenze(ambiente).Calcola({"C", G(15, 3, 2024)}));
  EXPECT_FALSE(duedates::SituazioneScadenze(ambiente).Aperte({"C", G(15, 3, 2024)}, ""));
}

TEST(FasciaTest, DaiGiorniDiRitardo) {
  const Data alla = G(15, 3, 2024);
  struct Caso {
    int ritardo;
    duedates::Fascia fascia;
  };
  constexpr Caso kCasi[] = {{-400, duedates::Fascia::AScadere}, {0, duedates::Fascia::AScadere},
                            {1, duedates::Fascia::Fino30},      {30, duedates::Fascia::Fino30},
                            {31, duedates::Fascia::Fino60},     {60, duedates::Fascia::Fino60},
                            {61, duedates::Fascia::Fino90},     {90, duedates::Fascia::Fino90},
                            {91, duedates::Fascia::Oltre},      {4000, duedates::Fascia::Oltre}};
  for (const Caso& caso : kCasi)
    EXPECT_EQ(duedates::FasciaDi(alla.PiuGiorni(-caso.ritardo), alla), caso.fascia) << caso.ritardo;
  EXPECT_EQ(duedates::FasciaDi({}, alla), duedates::Fascia::Oltre);
  EXPECT_EQ(duedates::GiorniRitardo(alla.PiuGiorni(-31), alla), 31);
  EXPECT_EQ(duedates::GiorniRitardo(alla, alla), std::nullopt);
}

TEST(ColonneMesiTest, SeiMesiAttornoEIlRestoAgliEstremi) {
  const auto colonne =
      duedates::ColonneMesi({{duedates::MeseDi({}), 1, I("1"), {}, {}},
                             {duedates::MeseDi(G(31, 8, 2023)), 1, I("2"), {}, {}},
                             {duedates::MeseDi(G(1, 9, 2023)), 1, I("4"), {}, {}},
                             {duedates::MeseDi(G(31, 3, 2024)), 1, I("8"), I("16"), {}},
                             {duedates::MeseDi(G(30, 9, 2024)), 1, {}, I("32"), {}},
                             {duedates::MeseDi(G(1, 10, 2024)), 1, {}, I("64"), {}},
                             {duedates::MeseDi(G(1, 1, 2030)), 1, {}, I("128"), {}}},
                            G(15, 3, 2024));
  std::vector<std::string> scritte;
  for (const duedates::ColonnaMesi& c : colonne) {
    if (c.scaduto.Zero() && c.aScadere.Zero()) continue;
    scritte.push_back(c.nome + " " + c.scaduto.Testo() + "+" + c.aScadere.Testo());
  }
  EXPECT_EQ(colonne.size(), 15U);
  EXPECT_EQ(colonne.at(5).nome, "gen 24");
  EXPECT_THAT(scritte, ElementsAre("prima 3+0", "set 4+0", "mar 8+16", "set 0+32", "dopo 0+192"));
}

// Whatever is open, parties, months, classes and places of the chart tell the same sum.
TEST_F(SituazioneScadenzeTest, ParlanoTuttiDelloStessoTotale) {
  const Data alla = G(15, 3, 2024);
  EXPECT_TRUE(rc::check([&] {
    Importo atteso;
    Transazione transazione(ambiente.Basi());  // given up at the end
    for (int i = *rc::gen::inRange(0, 15); i > 0; --i) {
      const auto importo = Importo::DaDecimillesimi(*rc::gen::inRange(-9'999'999, 9'999'999));
      const bool pagata = *rc::gen::element(false, false, true);
      Scrivi({"C", *rc::gen::element("0001", "0002", "0003"),
              alla.PiuGiorni(*rc::gen::inRange(-400, 400)), importo.Testo().c_str(),
              pagata ? "30" : "10"});
      if (!pagata) atteso += importo;
    }
    const duedates::Situazione situazione = Calcola();
    Importo parti;
    Importo mesi;
    Importo colonne;
    for (const auto& p : situazione.parti) parti += p.importi.Totale();
    for (const auto& m : situazione.mesi) mesi += m.Totale();
    for (const auto& c : duedates::ColonneMesi(situazione.mesi, alla))
      colonne += c.scaduto + c.aScadere;
    RC_ASSERT(situazione.totali.Totale() == atteso);
    RC_ASSERT(parti == atteso);
    RC_ASSERT(mesi == atteso);
    RC_ASSERT(colonne == atteso);
  }));
}

}  // namespace
}  // namespace fenalto::prova
