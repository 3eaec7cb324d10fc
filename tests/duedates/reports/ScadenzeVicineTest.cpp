// What is overdue and what falls due in the next days.
#include "ScadenzeDaStampare.h"
#include "duedates/reports/ScadenzeVicine.h"
#include "duedates/reports/SituazioneScadenze.h"

namespace fenalto::prova {

class ScadenzeVicineTest : public ScadenzeDaStampare {
 protected:
  /// "overdue amount/near amount"
  std::string Lette(const char* cfp, Data oggi) {
    const auto vicine = duedates::LeggiScadenzeVicine(ambiente, cfp, oggi);
    const auto testo = [](const duedates::GruppoScadenze& gruppo) {
      return std::to_string(gruppo.quante) + " " + gruppo.importo.Testo();
    };
    return testo(vicine.scadute) + "/" + testo(vicine.vicine);
  }
};

TEST_F(ScadenzeVicineTest, ScaduteEDeiProssimiSetteGiorni) {
  EXPECT_EQ(Lette("C", G(15, 3, 2024)), "0 0/0 0");
  ScriviTutte();
  // What falls due today isn't late; the deposit of the 10th is taken off, what is paid is out.
  EXPECT_EQ(Lette("C", G(15, 3, 2024)), "2 70/1 149.75");
  EXPECT_EQ(Lette("F", G(15, 3, 2024)), "1 900/0 0");
  // The seventh day counts, the eighth doesn't.
  EXPECT_EQ(Lette("C", G(25, 3, 2024)), "3 219.75/1 400");
  EXPECT_EQ(Lette("C", G(24, 3, 2024)), "3 219.75/0 0");
  // Without a day it is due at sight; what is late is what the situation says.
  Scrivi({"C", "0001", {}, "5", "01"});
  EXPECT_EQ(Lette("C", G(15, 3, 2024)), "3 75/1 149.75");
  const auto situazione =
      duedates::SituazioneScadenze(ambiente).Calcola({"C", G(15, 3, 2024)}).value();
  EXPECT_EQ(situazione.totali.Scaduto(), I("75"));
}

}  // namespace fenalto::prova
