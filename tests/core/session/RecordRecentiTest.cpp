// The records touched last, a user and a station apart, and the state of the copies.
#include <gmock/gmock.h>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "core/session/RecordRecenti.h"

namespace fenalto::prova {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Codici(const RecordRecenti& recenti, const char* utente) {
  std::vector<std::string> codici;
  for (const auto& record : recenti.Di(utente)) codici.push_back(record.codice);
  return codici;
}

}  // namespace

TEST(RecordRecenti, UnoPerUtenteIlPiuRecentePrimaEUnaVoltaSola) {
  const CartellaProva cartella;
  {
    RecordRecenti recenti(cartella / "Recenti", "PC 1/a");
    recenti.Aggiungi("anna", AlNumero("Movimenti", 1, 2024));
    recenti.Aggiungi("anna", AllArchivio("CLIENTI", "0001"));
    recenti.Aggiungi("ugo", AlNumero("Fatture", 9, 2024));
    recenti.Aggiungi("ANNA", AlNumero("Movimenti", 1, 2024));
    recenti.Aggiungi("anna", AlNumero("Movimenti", 1, 2023));
    EXPECT_THAT(Codici(recenti, "anna"), ElementsAre("1", "1", "0001"));
  }
  // Kept, with what would break the file's lines put out of harm.
  RecordRecenti riletti(cartella / "Recenti", "PC 1/a");
  EXPECT_THAT(Codici(riletti, "anna"), ElementsAre("1", "1", "0001"));
  EXPECT_EQ(riletti.Di("anna").front(), AlNumero("Movimenti", 1, 2023));
  EXPECT_EQ(riletti.Di("ugo").front(), AlNumero("Fatture", 9, 2024));
  riletti.Aggiungi("ugo", AllArchivio("FORNITORI", "a\tb\nc"));
  for (int i = 0; i < 30; ++i) riletti.Aggiungi("anna", AlNumero("Movimenti", 100 + i, 2024));
  const RecordRecenti ancora(cartella / "Recenti", "PC 1/a");
  EXPECT_EQ(ancora.Di("anna").size(), RecordRecenti::kTenuti);
  EXPECT_EQ(ancora.Di("anna").front().codice, "129");
  EXPECT_THAT(Codici(ancora, "ugo"), ElementsAre("a b c", "9"));
  // Another station has its own.
  EXPECT_TRUE(RecordRecenti(cartella / "Recenti", "PC2").Di("anna").empty());
}

TEST(RecordRecenti, FileRottoOCartellaCheNonCe) {
  const CartellaProva cartella;
  std::filesystem::create_directory(cartella / "Recenti");
  ScriviFile(cartella / "Recenti" / "A.txt", "\n\t\t\t\nanna\tMovimenti\t5\tx\t\nanna\tFatture\n");
  EXPECT_THAT(Codici(RecordRecenti(cartella / "Recenti", "A"), "anna"), ElementsAre("5"));
  // A company that is gone isn't made again.
  RecordRecenti via(cartella / "Sparita/Recenti", "A");
  via.Aggiungi("", AlNumero("Movimenti", 1, 2024));
  EXPECT_EQ(via.Di("").size(), 1U);
  EXPECT_FALSE(std::filesystem::exists(cartella / "Sparita"));
}

TEST(StatoCopie, DaQuandoEQuandoAvvisa) {
  const CartellaProva cartella;
  const auto opzioni = OpzioniProva(cartella.Percorso());
  CreaDittaProva(opzioni, "Prova");
  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  ASSERT_TRUE(ambiente.ApriDitta("Prova"));
  EXPECT_TRUE(ambiente.Copie().Vecchia());
  const Data oggi = orologio.Oggi();
  const auto copie = ambiente.CartellaDitta() / "Copie";
  std::filesystem::create_directories(copie / oggi.PiuGiorni(-9).Iso());
  EXPECT_EQ(ambiente.Copie().giorni, 9);
  EXPECT_TRUE(ambiente.Copie().Vecchia());
  std::filesystem::create_directory(copie / oggi.PiuGiorni(-7).Iso());
  EXPECT_EQ(ambiente.Copie().ultima, oggi.PiuGiorni(-7));
  EXPECT_FALSE(ambiente.Copie().Vecchia());
}

}  // namespace fenalto::prova
