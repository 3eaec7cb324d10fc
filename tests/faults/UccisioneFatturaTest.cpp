// A process is killed while it confirms reverse-charge documents: of a document, its second half,
// the giro of its cost, the payment and the due dates of the foreign supplier all is there, or
// nothing.
#include <cstdio>
#include <random>

#include "faults/Registrazioni.h"
#include "faults/Uccisione.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

class UccisioneFatturaTest : public FatturaDiProva {
 protected:
  static FatturaDaScrivere ReverseCharge() {
    return {.riva = "4",
            .parte = "0001",
            .righe = {{"900.220", "22R", I("1000")}},
            .altri = {{"CausaleIntra", "029"},
                      {"FornitoreIntra", "0002"},
                      {"ContoCostiIntra", "500.001"},
                      {"PagamentoIntra", "MISTO"}}};
  }
  void ConfermaSenzaFine(int tubo) const {
    const auto cassa = NuovaStazione("CASSA");
    vat::RegistrazioneIva fatture(*cassa->ambiente);
    while (Digita(fatture, ReverseCharge()) && fatture.Conferma()) {
      const int numero = static_cast<int>(fatture.NumeroConfermato());
      if (write(tubo, &numero, sizeof numero) != sizeof numero) break;
      cassa->dialoghi.messaggi.clear();
    }
  }
  /// Registrations of a document as they are numbered: the two halves, giro, payment.
  static constexpr int kPerDocumento = 4;
  void ControllaIntere(std::int64_t documenti) {
    const auto quanti = [](Archivio& archivio, const std::string& sql) {
      return archivio.Singolo("select Count(*) from " + sql).Intero();
    };
    EXPECT_EQ(quanti(Tessarc(), "Articoli"), documenti * kPerDocumento);
    EXPECT_EQ(quanti(Tessarc(), "Articoli where Riva='4'"), documenti);
    EXPECT_EQ(quanti(Tessarc(), "Articoli where Riva='5'"), documenti);
    EXPECT_EQ(quanti(Tessarc(), "Movimenti"), documenti * 10);
    EXPECT_EQ(quanti(Scadenzario(), "Scadenze"), documenti * 2);
    const auto saldo = [&](const char* dove) {
      return Tessarc()
          .Singolo(std::string("select Sum(ImpoDare)-Sum(ImpoAvere) from Movimenti ") + dove)
          .Importo();
    };
    EXPECT_EQ(saldo(""), Importo());
    EXPECT_EQ(saldo("where Conto='900.220'"), Importo());
  }
};

TEST_F(UccisioneFatturaTest, ReverseChargeInteroONulla) {
  const int volte = Lungo() ? 100 : 12;
  std::mt19937 caso(static_cast<unsigned>(Seme()));
  const fs::path giornale = ambiente.PercorsoDb("tessarc").string() + "-journal";
  int inMezzo = 0;
  std::int64_t documenti = 0;
  for (int volta = 0; volta < volte; ++volta) {
    ambiente.ChiudiDitta();
    const int annunciato = UccidiAlLavoro(std::chrono::microseconds(caso() % 60'000),
                                          [this](int tubo) { ConfermaSenzaFine(tubo); });
    ASSERT_GT(annunciato, 0) << "kill " << volta << ": the process stopped of itself";
    std::error_code errore;
    if (fs::file_size(giornale, errore) > 0 && !errore) ++inMezzo;

    ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024).Riuscito());
    documenti = Tessarc().Singolo("select Count(*) from Articoli where Riva='4'").Intero();
    const std::int64_t ultimoAnnunciato = (annunciato - 1) / kPerDocumento + 1;
    // The one under way may have been confirmed without having been told.
    ASSERT_GE(documenti, ultimoAnnunciato) << "kill " << volta;
    ASSERT_LE(documenti, ultimoAnnunciato + 1) << "kill " << volta;
    ControllaIntere(documenti);
    ASSERT_FALSE(HasFailure()) << "kill " << volta;
  }
  // The numbering is free, and goes on where it was.
  EXPECT_EQ(Inserisci(ReverseCharge()), documenti * kPerDocumento + 1);
  EXPECT_GT(inMezzo, 0);
  std::printf("%d kills, %d in the middle of a document, %d documents\n", volte, inMezzo,
              static_cast<int>(documenti));
}

}  // namespace
}  // namespace fenalto::prova
