// Settlements beside those of a year before, and the periods of a year.
#include "ledger/DittaDiProva.h"
#include "vat/settlement/ConfrontoLiquidazioni.h"

namespace fenalto::prova {
namespace {

vat::RigaLiquidazione Riga(const char* descrizione, const char* importo) {
  vat::RigaLiquidazione riga;
  riga.descrizione = descrizione;
  riga.importo = I(importo);
  return riga;
}

vat::RigaLiquidazione Nota(const char* descrizione) {
  vat::RigaLiquidazione riga;
  riga.descrizione = descrizione;
  riga.nota = true;
  return riga;
}

/// "description=now/before", line by line.
std::vector<std::string> Testi(const std::vector<vat::RigaAffiancata>& righe) {
  std::vector<std::string> testi;
  for (const auto& riga : righe) {
    testi.push_back(riga.descrizione + (riga.nota ? ""
                                                  : "=" + Valore(riga.importo).Neutro() + "/" +
                                                        Valore(riga.precedente).Neutro()));
  }
  return testi;
}

}  // namespace

TEST(ConfrontoLiquidazioni, RigheUgualiAffiancateLeAltreAlLoroPosto) {
  using ::testing::ElementsAre;
  const std::vector<vat::RigaLiquidazione> ora{Riga("Registro 1", "10"), Riga("Registro 3", "-4"),
                                               Riga("IVA a debito", "6"),
                                               Riga("IVA DA VERSARE", "6"), Nota("nota")};
  EXPECT_THAT(Testi(vat::AffiancaLiquidazioni(ora, {})),
              ElementsAre("Registro 1=10/0", "Registro 3=-4/0", "IVA a debito=6/0",
                          "IVA DA VERSARE=6/0", "nota"));
  // A line twice in one settlement goes with the second one; old notes aren't told.
  const std::vector<vat::RigaLiquidazione> prima{
      Riga("registro 1", "8"),     Riga("Registro 2", "1"),     Riga("Registro 3", "-20"),
      Riga("IVA a credito", "11"), Riga("IVA A CREDITO", "11"), Nota("vecchia")};
  EXPECT_THAT(
      Testi(vat::AffiancaLiquidazioni(ora, prima)),
      ElementsAre("Registro 1=10/8", "Registro 2=0/1", "Registro 3=-4/-20", "IVA a debito=6/0",
                  "IVA DA VERSARE=6/0", "nota", "IVA a credito=0/11", "IVA A CREDITO=0/11"));
  EXPECT_THAT(Testi(vat::AffiancaLiquidazioni({Riga("x", "1"), Riga("x", "2")},
                                              {Riga("x", "3"), Riga("x", "4")})),
              ElementsAre("x=1/3", "x=2/4"));
}

class ConfrontoLiquidazioniTest : public DittaDiProva {
 protected:
  void Chiudi(const char* periodo) {
    Tessarc().Inserisci("ChiusureIva", {{"Anno", 2024}, {"MESETRIMESTRE", periodo}});
  }
  void Totale(const char* periodo, const char* riva, const char* tipo, const char* iva) {
    Metti(Tessarc(), "TotaliIva", "Anno", 2024, "PERIODO", periodo, "Riva", riva, "Tipo", tipo,
          "TOTALEIVA", I(iva));
  }
};

TEST_F(ConfrontoLiquidazioniTest, IlPrimoPeriodoDopoGliUltimiLiquidati) {
  EXPECT_EQ(vat::PeriodoDaLiquidare(ambiente), "01");
  Chiudi("01");
  Chiudi("03");  // February was left out
  EXPECT_EQ(vat::PeriodoDaLiquidare(ambiente), "04");
  Chiudi("12");
  EXPECT_EQ(vat::PeriodoDaLiquidare(ambiente), "");
  Tessarc().Esegui("UPDATE Anni SET IvaTrimestrale=True WHERE Anno=2024");
  EXPECT_EQ(vat::PeriodoDaLiquidare(ambiente), "T1");
}

TEST_F(ConfrontoLiquidazioniTest, AndamentoDeiPeriodiLiquidatiEDiQuelloInCorso) {
  Totale("01", "1", "01", "100");
  Totale("01", "2", "02", "-10");  // returns lower what is owed
  Totale("01", "3", "03", "40");
  Totale("01", "6", "06", "7");    // takes no part
  Totale("02", "1", "01", "900");  // the current period as it was stored before
  Totale("04", "1", "01", "500");  // of a settlement that was erased
  Chiudi("01");
  Chiudi("02");
  Metti(Tessarc(), "TotaliIvaEP", "Anno", 2024, "PERIODO", "01", "Riva", "1", "CodIva", "22",
        "Tipo", "01", "Iva", I("60"));
  vat::Liquidazione corrente;
  corrente.periodo = vat::LeggiPeriodo(ambiente, 2024, "02");
  vat::IvaRegistro vendite;
  vendite.segno = 1;
  vendite.iva = I("35");
  vendite.differita = I("5");
  corrente.registri.push_back(vendite);
  const auto periodi = vat::AndamentoIva(ambiente, corrente);
  ASSERT_EQ(periodi.size(), 12U);
  EXPECT_EQ(periodi[0].debito, I("30"));  // 100 - 10, 60 of which aren't collected yet
  EXPECT_EQ(periodi[0].credito, I("40"));
  EXPECT_EQ(periodi[1].debito, I("30"));
  EXPECT_TRUE(periodi[0].presente && periodi[1].presente);
  for (std::size_t i = 2; i < periodi.size(); ++i) EXPECT_FALSE(periodi[i].presente) << i;
}

}  // namespace fenalto::prova
