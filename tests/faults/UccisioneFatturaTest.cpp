// A process is killed while it confirms reverse-charge documents: of a document, its second half,
// the giro of its cost, the payment and the due dates of the foreign supplier all is there, or
// nothing.
#include "faults/Uccisioni.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

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
    FatturaDaScrivere fattura = ReverseCharge();
    // Numbers that no process before has used.
    std::int64_t nFat = fatture.ProbabileNumDoc();
    const auto nuova = [&] {
      fattura.nFat = std::to_string(nFat++);
      return Digita(fatture, fattura);
    };
    while (nuova() && fatture.Conferma()) {
      const int numero = static_cast<int>(fatture.NumeroConfermato());
      if (write(tubo, &numero, sizeof numero) != sizeof numero) break;
      cassa->dialoghi.messaggi.clear();
    }
  }
  /// Registrations of a document as they are numbered: the two halves, giro, payment.
  static constexpr int kPerDocumento = 4;
  /// How many documents there are, of which nothing is missing.
  std::int64_t Interi() {
    const auto quanti = [](Archivio& archivio, const std::string& sql) {
      return archivio.Singolo("select Count(*) from " + sql).Intero();
    };
    const std::int64_t documenti = quanti(Tessarc(), "Articoli where Riva='4'");
    EXPECT_EQ(quanti(Tessarc(), "Articoli"), documenti * kPerDocumento);
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
    return documenti;
  }
};

TEST_F(UccisioneFatturaTest, ReverseChargeInteroONulla) {
  UccidiPiuVolte(
      ambiente, "tessarc", [this](int tubo) { ConfermaSenzaFine(tubo); },
      [this] { return Interi(); }, kPerDocumento);
  // The numbering is free, and goes on where it was.
  const std::int64_t documenti = Interi();
  EXPECT_EQ(Inserisci(ReverseCharge()), documenti * kPerDocumento + 1);
}

}  // namespace
}  // namespace fenalto::prova
