// A process is killed while it confirms loads from production: of a load, its lot, the series of
// lots and the unload of its components all is there, or nothing.
#include "documents/entry/DocumentoDiProva.h"
#include "faults/Uccisioni.h"

namespace fenalto::prova {
namespace {

class UccisioneDocumentoTest : public DocumentoDiProva {
 protected:
  void ConfermaSenzaFine(int tubo) const {
    const auto cassa = NuovaStazione("CASSA");
    documents::FattureCli d(*cassa->ambiente);
    const auto nuovo = [&] {
      if (!Digita(d, {.tipo = "30"}) ||
          d.RigheDa({{.codiceRiga = "DB", .quantita = I("3"), .prezzo = I("8")}})) {
        return false;
      }
      // A lot that no load before has had.
      const std::string lotto = "L" + std::to_string(d.ProbabileNumDoc());
      return DigitaRiga(d, {"P2", I("1"), I("1"), {{"Lottox", lotto}}});
    };
    while (nuovo() && d.Conferma()) {
      const int numero = static_cast<int>(d.Confermato().numDoc);
      if (write(tubo, &numero, sizeof numero) != sizeof numero) break;
      cassa->dialoghi.messaggi.clear();
    }
  }
  /// How many loads there are, of which nothing is missing.
  std::int64_t Interi() {
    const auto quanti = [&](const std::string& sql) {
      return Nz(Tessarc().Singolo("select " + sql)).Intero();
    };
    const std::int64_t carichi = quanti("Count(*) from FattureCli where TipoDoc='30'");
    EXPECT_EQ(quanti("Count(*) from FattureCli_r where TipoDoc='30'"), carichi * 2);
    EXPECT_EQ(quanti("Count(*) from FattureCli where TipoDoc='31' and NumDocOrigine<>0"), carichi);
    EXPECT_EQ(quanti("Count(*) from FattureCli_r where TipoDoc='31'"), carichi * 2);
    EXPECT_EQ(quanti("Max(NL1) from FattureCli_r"), carichi);
    EXPECT_EQ(quanti("Ultimo from Contatori where Cod='NL1'"), carichi);
    EXPECT_EQ(Discordi(), 0);
    return carichi;
  }
};

TEST_F(UccisioneDocumentoTest, CaricoDaProduzioneInteroONulla) {
  UccidiPiuVolte(
      ambiente, "tessarc", [this](int tubo) { ConfermaSenzaFine(tubo); },
      [this] { return Interi(); });
}

}  // namespace
}  // namespace fenalto::prova
