// A process is killed while somebody types: every row confirmed before is offered again.
#include "faults/Registrazioni.h"
#include "faults/Uccisione.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {
namespace {

class BozzaUccisaTest : public DittaDiProva {
 protected:
  void DigitaSenzaFine(int tubo) const {
    const auto cassa = NuovaStazione("CASSA");
    ledger::Primanota pn(*cassa->ambiente);
    pn.Nuovo();
    for (int riga = 1;; ++riga) {
      if (!Scrivi(pn, {"100.010", Importo::DaUnita(riga), "P", "001", "riga"})) break;
      if (write(tubo, &riga, sizeof riga) != sizeof riga) break;
    }
  }
};

TEST_F(BozzaUccisaTest, NessunaRigaConfermataSiPerde) {
  const int volte = Lungo() ? 50 : 8;
  for (int volta = 0; volta < volte; ++volta) {
    ambiente.ChiudiDitta();
    const int dette = UccidiAlLavoro(std::chrono::microseconds(4'000 * (volta + 1)),
                                     [this](int tubo) { DigitaSenzaFine(tubo); });
    ASSERT_GT(dette, 0) << "the process stopped of itself";
    ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024).Riuscito());
    const auto cassa = NuovaStazione("CASSA");
    ledger::Primanota pn(*cassa->ambiente);
    cassa->dialoghi.Rispondera("una registrazione non confermata", Risposta::Si);
    ASSERT_TRUE(pn.Riprendi());
    const auto trovate = static_cast<int>(pn.Righe().size());
    // The one under way may have been kept without having been told.
    ASSERT_GE(trovate, dette);
    ASSERT_LE(trovate, dette + 1);
    for (int riga = 0; riga < trovate; ++riga) {
      ASSERT_EQ(pn.Righe()[static_cast<std::size_t>(riga)].impoDare, Importo::DaUnita(riga + 1));
    }
    pn.Abbandona();
    ASSERT_FALSE(pn.Riprendi());
  }
}

}  // namespace
}  // namespace fenalto::prova
