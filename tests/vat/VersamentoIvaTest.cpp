// When VAT is paid, which period comes next, and what it amounts to so far.
#include "vat/RegistroIvaDiProva.h"
#include "vat/register/IvaInCorso.h"
#include "vat/settlement/VersamentoIva.h"

namespace fenalto::prova {
namespace {

vat::PeriodoIva Mesi(int anno, int da, int a) {
  vat::PeriodoIva periodo;
  periodo.cod = da == a ? (da < 10 ? "0" : "") + std::to_string(da) : "T" + std::to_string(a / 3);
  periodo.anno = anno;
  periodo.daMese = da;
  periodo.aaMese = a;
  return periodo;
}

std::vector<vat::StatoPeriodo> MesiDel2024(int liquidati) {
  std::vector<vat::StatoPeriodo> stati;
  for (int mese = 1; mese <= 12; ++mese)
    stati.push_back({Mesi(2024, mese, mese), mese <= liquidati});
  return stati;
}

}  // namespace

TEST(VersamentoIva, GiornoDiOgniPeriodo) {
  const struct {
    int anno, da, a;
    Data giorno;
  } casi[] = {
      {2024, 1, 1, G(16, 2, 2024)},    // a Friday
      {2024, 2, 2, G(18, 3, 2024)},    // Saturday the 16th
      {2024, 5, 5, G(17, 6, 2024)},    // Sunday the 16th
      {2024, 7, 7, G(20, 8, 2024)},    // August
      {2023, 7, 7, G(21, 8, 2023)},    // 20 August is a Sunday
      {2024, 12, 12, G(16, 1, 2025)},  // into the next year
      {2017, 3, 3, G(18, 4, 2017)},    // the 16th is Easter, the 17th Easter Monday
      {2001, 3, 3, G(17, 4, 2001)},    // the 16th is Easter Monday
      {2024, 1, 3, G(16, 5, 2024)},    // quarters
      {2024, 4, 6, G(20, 8, 2024)},   {2024, 7, 9, G(18, 11, 2024)}, {2024, 10, 12, G(17, 3, 2025)},
  };
  for (const auto& caso : casi) {
    EXPECT_EQ(vat::GiornoVersamento(Mesi(caso.anno, caso.da, caso.a)), caso.giorno)
        << caso.anno << " " << caso.da << "-" << caso.a;
  }
  vat::PeriodoIva anno = Mesi(2024, 1, 12);
  anno.cod = "Z";
  EXPECT_TRUE(vat::GiornoVersamento(anno).Nulla());
}

// The period chosen, and those behind it that wait.
TEST(VersamentoIva, IlPeriodoCheViene) {
  const struct {
    int liquidati;
    Data oggi;
    const char* atteso;  // empty for none
    std::size_t arretrati;
  } casi[] = {
      {1, G(15, 3, 2024), "02", 0},                                // paid on the 18th
      {1, G(18, 3, 2024), "02", 0}, {1, G(19, 3, 2024), "03", 1},  // too late for February
      {0, G(15, 3, 2024), "02", 1}, {2, G(15, 3, 2024), "03", 0},
      {3, G(15, 3, 2024), "", 0},                                  // April hasn't begun
      {12, G(1, 2, 2025), "", 0},   {10, G(1, 6, 2025), "12", 1},  // all are past: the last one
      {0, G(31, 12, 2023), "", 0},
  };
  for (const auto& caso : casi) {
    const auto scelto = vat::ScegliPeriodoInVista(MesiDel2024(caso.liquidati), caso.oggi);
    ASSERT_EQ(scelto.has_value(), *caso.atteso != '\0') << caso.oggi.Testo();
    if (!scelto) continue;
    EXPECT_EQ(scelto->periodo.cod, caso.atteso) << caso.oggi.Testo();
    EXPECT_EQ(scelto->arretrati.size(), caso.arretrati) << caso.oggi.Testo();
  }
  // A period settled later closes those before it.
  auto stati = MesiDel2024(0);
  stati[1].liquidato = true;
  EXPECT_TRUE(vat::ScegliPeriodoInVista(stati, G(15, 3, 2024))->arretrati.empty());
}

class IvaInCorsoTest : public RegistroIvaDiProva {
 protected:
  /// "02 18/03/2024 33" and the periods that wait; nothing is told or written meanwhile.
  std::string Letta() {
    const std::string prima = Tutto();
    const auto iva = vat::LeggiIvaInCorso(ambiente);
    EXPECT_EQ(Messaggi(), std::vector<std::string>{});
    EXPECT_EQ(Tutto(), prima);
    if (!iva) return "niente";
    std::string testo = iva->periodo.cod + " " + iva->versamento.Testo() + " " +
                        iva->importo.Testo() + (iva->finito ? "" : " in corso") +
                        (iva->sottoMinimo ? " sotto il minimo" : "") + iva->errore;
    for (const auto& periodo : iva->arretrati) testo += " <" + periodo.cod;
    return testo;
  }
};

TEST_F(IvaInCorsoTest, LImportoFinora) {
  Scrivi({"1", 1, G(10, 1, 2024), {{"22", I("1000"), I("220")}}});
  Scrivi({"1", 2, G(5, 2, 2024), {{"22", I("500"), I("110")}}});
  Scrivi({"3", 1, G(20, 2, 2024), {{"22", I("350"), I("77")}}});
  Scrivi({"1", 3, G(7, 3, 2024), {{"22", I("100"), I("22")}}});
  // January waits, and is no part of February.
  EXPECT_EQ(Letta(), "02 18/03/2024 33 sotto il minimo <01");
  Tessarc().Esegui("INSERT INTO CreditoIva ( Cod, CreditoIva ) values ('01',40)");
  EXPECT_EQ(Letta(), "02 18/03/2024 33 sotto il minimo <01");
  // January is settled: its credit counts, and what it left unpaid.
  Tessarc().Inserisci("ChiusureIva", {{"Anno", 2024}, {"MESETRIMESTRE", "01"}});
  EXPECT_EQ(Letta(), "02 18/03/2024 -7");
  Tessarc().Esegui("update ChiusureIva set Importo=20");
  EXPECT_EQ(Letta(), "02 18/03/2024 13 sotto il minimo");
  Tessarc().Inserisci("ChiusureIva", {{"Anno", 2024}, {"MESETRIMESTRE", "02"}});
  Tessarc().Esegui("update CreditoIva set CreditoIva=0");
  EXPECT_EQ(Letta(), "03 16/04/2024 22 in corso sotto il minimo");
  Tessarc().Inserisci("ChiusureIva", {{"Anno", 2024}, {"MESETRIMESTRE", "03"}});
  EXPECT_EQ(Letta(), "niente");
}

TEST_F(IvaInCorsoTest, TrimestreESenzaRegistrazioni) {
  Tessarc().Esegui("update Anni set IvaTrimestrale=True where Anno=2024");
  EXPECT_EQ(Letta(), "T1 16/05/2024 0 in corso");
  Scrivi({"1", 1, G(10, 1, 2024), {{"22", I("1000"), I("220")}}});
  Scrivi({"1", 2, G(7, 3, 2024), {{"22", I("100"), I("22")}}});
  EXPECT_EQ(Letta(), "T1 16/05/2024 242 in corso");
}

}  // namespace fenalto::prova
