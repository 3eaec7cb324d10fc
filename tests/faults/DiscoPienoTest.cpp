// The disk fills up at any point of the confirmation of a registration: the user is told, nothing
// is written, the rows are still in the window, and with room again the same confirmation goes
// through.
#include <gmock/gmock.h>
#include <sqlite3.h>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "core/store/DiscoFinto.h"
#include "ledger/registrations/Primanota.h"

namespace fenalto::prova {
namespace {

using ::testing::HasSubstr;

class DiscoPienoTest : public ::testing::Test {
 protected:
  DiscoPienoTest() {
    OpzioniAmbiente opzioni = OpzioniProva(cartella / "programma");
    CreaDittaProva(opzioni, "Prova", {{2024, true}});
    opzioni.vfs = DiscoFinto::Nome();
    ambiente = std::make_unique<Ambiente>(opzioni, dialoghi, orologio, caso);
    const auto aperta = ambiente->ApriDitta("Prova", 2024);
    if (!aperta) throw std::runtime_error(aperta.Errore().messaggio);
  }
  ~DiscoPienoTest() override { DiscoFinto::Spazio(-1); }

  /// Heads and rows as another station sees them: "1/2".
  std::string Scritto() const {
    sqlite3* db = nullptr;
    std::string testo = "?";
    sqlite3_open_v2(ambiente->PercorsoDb("tessarc").c_str(), &db, SQLITE_OPEN_READWRITE, "unix");
    const auto raccogli = [](void* dove, int, char** valori, char**) {
      *static_cast<std::string*>(dove) = valori[0];
      return 0;
    };
    sqlite3_exec(
        db, "SELECT (SELECT count(*) FROM Articoli) || '/' || (SELECT count(*) FROM Movimenti)",
        raccogli, &testo, nullptr);
    sqlite3_close(db);
    return testo;
  }
  static void Riga(ledger::Primanota& pn, const char* conto, const char* campo) {
    ASSERT_TRUE(pn.PNuovaRiga());
    pn.Riga().Scrivi("Causale", "001");
    pn.Riga().Scrivi("Descrizione", std::string(60, 'd'));
    pn.Riga().Scrivi("CFP", "P");
    pn.Riga().Scrivi("Conto", conto);
    pn.Riga().Scrivi(campo, Importo::DaUnita(5));
    ASSERT_TRUE(pn.ConfermaRiga());
  }

  CartellaProva cartella;
  DialoghiFinti dialoghi;
  OrologioFinto orologio{Data::DaGma(15, 3, 2024).value()};
  CasoFinto caso;
  std::unique_ptr<Ambiente> ambiente;
};

TEST_F(DiscoPienoTest, ConfirmationIsRefusedWholeAndCanBeTriedAgain) {
  ledger::Primanota pn(*ambiente);
  pn.Nuovo();
  Riga(pn, "100.010", "ImpoDare");
  Riga(pn, "110.001", "ImpoAvere");
  dialoghi.messaggi.clear();
  int rifiutate = 0;
  for (std::int64_t spazio = 0; spazio < 2'000'000; spazio += 1'500) {
    DiscoFinto::Spazio(spazio);
    const bool riuscita = pn.Conferma();
    DiscoFinto::Spazio(-1);
    ASSERT_EQ(dialoghi.messaggi.size(), 1U);
    const std::string messaggio = dialoghi.messaggi.front();
    dialoghi.messaggi.clear();
    if (riuscita) break;
    ++rifiutate;
    ASSERT_THAT(messaggio, HasSubstr("disco pieno")) << spazio;
    ASSERT_THAT(messaggio, HasSubstr("Non è stato scritto nulla")) << spazio;
    ASSERT_EQ(Scritto(), "0/0") << spazio;
    ASSERT_EQ(pn.StatoCorrente(), ledger::Primanota::Stato::Aperta) << spazio;
    ASSERT_EQ(pn.Righe().size(), 2U) << spazio;
    ASSERT_EQ(pn.TotDare(), Importo::DaUnita(5)) << spazio;
  }
  EXPECT_GT(rifiutate, 10);
  EXPECT_EQ(pn.NumeroConfermato(), 1);
  EXPECT_EQ(Scritto(), "1/2");

  // And the next one as if nothing had happened.
  pn.Nuovo();
  Riga(pn, "100.010", "ImpoDare");
  Riga(pn, "110.001", "ImpoAvere");
  EXPECT_TRUE(pn.Conferma());
  EXPECT_EQ(pn.NumeroConfermato(), 2);
  EXPECT_EQ(Scritto(), "2/4");
}

}  // namespace
}  // namespace fenalto::prova
