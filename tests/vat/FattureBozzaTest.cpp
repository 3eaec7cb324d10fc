// A VAT registration that wasn't confirmed when the program stopped is gone on with as it was
// typed.
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

class FattureBozzaTest : public FatturaDiProva {};

TEST_F(FattureBozzaTest, UnaNuovaSiConfermaComeSeNulla) {
  const FatturaDaScrivere fattura{
      .riva = "3",
      .parte = "0001",
      .righe = {{"500.001", "22", I("100")}, {"500.002", "10", I("33.33")}}};
  const std::int64_t intera = Inserisci(fattura);
  FatturaDaScrivere altra = fattura;
  altra.nFat = "13";
  {
    vat::RegistrazioneIva fatture(ambiente);
    ASSERT_TRUE(Digita(fatture, altra));
    ASSERT_TRUE(fatture.ApriRiga(0));
    fatture.Riga().Scrivi("Descrizione", "in mano");
    fatture.RigaLasciata("Descrizione");
  }
  vat::RegistrazioneIva fatture(ambiente);
  dialoghi.Rispondera("C'è una registrazione non confermata del", Risposta::Si);
  ASSERT_TRUE(fatture.Riprendi());
  EXPECT_EQ(fatture.Registro().cod, "3");
  EXPECT_EQ(fatture.StatoCorrente(), vat::RegistrazioneIva::Stato::RigaAperta);
  EXPECT_EQ(fatture.Riga().Testo("Descrizione"), "in mano");
  fatture.AnnullaRiga();
  EXPECT_EQ(fatture.TotFat(), I("158.66"));
  ASSERT_TRUE(fatture.Conferma());
  auto attese = RigheDi(intera);
  auto trovate = RigheDi(fatture.NumeroConfermato());
  for (auto& riga : attese) {
    if (const auto dove = riga.find("FATT.12"); dove != std::string::npos)
      riga.replace(dove, 7, "FATT.13");
  }
  EXPECT_EQ(trovate, attese);
  EXPECT_FALSE(fatture.Riprendi());
}

TEST_F(FattureBozzaTest, UnaCorrezioneOUnRegistroSparito) {
  const std::int64_t numero =
      Inserisci({.riva = "3", .parte = "0001", .righe = {{"500.001", "22", I("100")}}});
  const auto correggi = [&] {
    vat::RegistrazioneIva fatture(ambiente);
    ASSERT_TRUE(fatture.Apri(numero));
    ASSERT_TRUE(fatture.ApriRiga(0));
    fatture.Riga().Scrivi("Conto", "500.002");
    ASSERT_TRUE(fatture.ConfermaRiga());
    ASSERT_TRUE(DigitaRiga(fatture, {"500.001", "22", I("7")}));
  };
  correggi();
  vat::RegistrazioneIva fatture(ambiente);
  Messaggi();
  dialoghi.Rispondera("(correzione di quanto già registrato)", Risposta::Si);
  ASSERT_TRUE(fatture.Riprendi());
  ASSERT_EQ(fatture.Righe().size(), 2U);
  EXPECT_EQ(fatture.Righe()[0].conto, "500.002");
  EXPECT_EQ(fatture.TotImponibile(), I("107"));
  EXPECT_FALSE(fatture.Nuova());
  fatture.Abbandona();
  correggi();
  Tessarc().Esegui("update Movimenti set Imponibile=99 where Imponibile=100");
  Messaggi();
  dialoghi.Rispondera("(correzione di quanto già registrato)", Risposta::Si);
  EXPECT_FALSE(fatture.Riprendi());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("è cambiata dopo"));

  {
    vat::RegistrazioneIva altra(ambiente);
    ASSERT_TRUE(
        Digita(altra, {.riva = "3V", .parte = "0001", .righe = {{"500.001", "22", I("1")}}}));
  }
  Tessarc().Esegui("delete from RegistriIva where Cod='3V'");
  Messaggi();
  dialoghi.Rispondera("una registrazione non confermata", Risposta::Si);
  EXPECT_FALSE(fatture.Riprendi());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il registro iva"));
}

}  // namespace
}  // namespace fenalto::prova
