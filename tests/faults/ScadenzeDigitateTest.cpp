// Deposits and unpaid receipts under faults: a process killed while it confirms one. The due date
// and its registration are both there, or neither is.
#include "duedates/payments/AnticipoFattura.h"
#include "duedates/payments/InsolutoRiba.h"
#include "duedates/payments/ScadenzaDigitataDiProva.h"
#include "faults/Uccisioni.h"

namespace fenalto::prova {
namespace {

class ScadenzeDigitateTest : public ScadenzaDigitataDiProva {
 protected:
  ScadenzeDigitateTest() {
    Imposta("3");
    Imposta("4");
  }
  /// A deposit and an unpaid receipt in turn; the number of its due date, 0 when it was refused.
  static std::int64_t ScriviUna(duedates::ScadenzaDigitata& caso, const char* importo) {
    caso.ScegliParte("C", "0001");
    if (!caso.Nuovo()) return 0;
    Digita(caso, "ImportoE", I(importo));
    return caso.Conferma() ? caso.NumeroScritto() : 0;
  }
  void ScriviSenzaFine(int tubo) const {
    const auto cassa = NuovaStazione("CASSA");
    duedates::AnticipoFattura anticipo(*cassa->ambiente);
    duedates::InsolutoRiba insoluto(*cassa->ambiente);
    for (bool quale = false;; quale = !quale) {
      const int numero =
          static_cast<int>(quale ? ScriviUna(insoluto, "10") : ScriviUna(anticipo, "-10"));
      if (numero == 0 || write(tubo, &numero, sizeof numero) != sizeof numero) return;
      cassa->dialoghi.messaggi.clear();
    }
  }
  /// Each due date holds its registration, which is whole; how many there are.
  std::int64_t Scritte() {
    const std::int64_t quante = QuanteScadenze();
    EXPECT_EQ(Tessarc().Singolo("select Count(*) from Articoli").Intero(), quante);
    EXPECT_EQ(Tessarc().Singolo("select Count(*) from Movimenti").Intero(), quante * 2);
    EXPECT_EQ(Tessarc().Singolo("select Sum(ImpoDare)-Sum(ImpoAvere) from Movimenti").Importo(),
              Importo());
    EXPECT_EQ(Scadenzario()
                  .Singolo("select Count(*) from Scadenze where Articolo=Numero and Anno=2024")
                  .Intero(),
              quante);
    if (quante != 0) {
      EXPECT_EQ(Tessarc().Singolo("select Max(NumDoc) from Articoli").Intero(), quante);
    }
    return quante;
  }
};

TEST_F(ScadenzeDigitateTest, UccisoAMetaInteraONulla) {
  UccidiPiuVolte(
      ambiente, "scadenzario", [this](int tubo) { ScriviSenzaFine(tubo); },
      [this] { return Scritte(); });
  duedates::AnticipoFattura anticipo(ambiente);
  const std::int64_t scritte = Scritte();
  EXPECT_EQ(ScriviUna(anticipo, "-10"), scritte + 1);
}

}  // namespace
}  // namespace fenalto::prova
