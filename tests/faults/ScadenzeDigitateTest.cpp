// Deposits and unpaid receipts under faults: a process killed while it confirms one. The due date
// and its registration are both there, or neither is.
#include <cstdio>
#include <random>

#include "duedates/payments/AnticipoFattura.h"
#include "duedates/payments/InsolutoRiba.h"
#include "duedates/payments/ScadenzaDigitataDiProva.h"
#include "faults/Registrazioni.h"
#include "faults/Uccisione.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

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
  const int volte = Lungo() ? 100 : 12;
  std::mt19937 caso(static_cast<unsigned>(Seme()));
  const fs::path giornale = ambiente.PercorsoDb("scadenzario").string() + "-journal";
  int inMezzo = 0;
  std::int64_t scritte = 0;
  for (int volta = 0; volta < volte; ++volta) {
    ambiente.ChiudiDitta();
    const int annunciata = UccidiAlLavoro(std::chrono::microseconds(caso() % 60'000),
                                          [this](int tubo) { ScriviSenzaFine(tubo); });
    ASSERT_GT(annunciata, 0) << "kill " << volta << ": the process stopped of itself";
    std::error_code errore;
    if (fs::file_size(giornale, errore) > 0 && !errore) ++inMezzo;

    ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024).Riuscito());
    scritte = Scritte();
    // The one under way may have been confirmed without having been told.
    ASSERT_GE(scritte, annunciata) << "kill " << volta;
    ASSERT_LE(scritte, annunciata + 1) << "kill " << volta;
    ASSERT_FALSE(HasFailure()) << "kill " << volta;
  }
  duedates::AnticipoFattura anticipo(ambiente);
  EXPECT_EQ(ScriviUna(anticipo, "-10"), scritte + 1);
  EXPECT_GT(inMezzo, 0);
  std::printf("%d kills, %d in the middle of a confirmation, %d written\n", volte, inMezzo,
              static_cast<int>(scritte));
}

}  // namespace
}  // namespace fenalto::prova
