#include <gtest/gtest.h>

#include "runner/DialoghiCopione.h"

namespace fenalto::copione {
namespace {

RispostaAttesa Attesa(Risposta risposta, const std::string& contiene = "") {
  return {"a.cop:1", risposta, std::nullopt, contiene};
}

Risposta Chiede(DialoghiCopione& dialoghi, const std::string& testo, Bottoni bottoni) {
  return dialoghi.Domanda(testo, bottoni, Risposta::No, "", Icona::Domanda);
}

TEST(DialoghiCopione, RisposteInOrdine) {
  DialoghiCopione dialoghi;
  dialoghi.Accoda(Attesa(Risposta::Si, "Conferma"));
  dialoghi.Accoda(RispostaAttesa{"a.cop:2", Risposta::Ok, "1,5", "Quanto"});
  dialoghi.Accoda(Attesa(Risposta::Annulla));
  dialoghi.Accoda(Attesa(Risposta::Annulla));
  EXPECT_EQ(Chiede(dialoghi, "Conferma\r\neliminazione ?", Bottoni::SiNo), Risposta::Si);
  EXPECT_EQ(dialoghi.Chiedi("Quanto ?", ""), "1,5");
  EXPECT_EQ(dialoghi.Chiedi("Quanto ?", ""), std::nullopt);
  EXPECT_EQ(Chiede(dialoghi, "E poi ?", Bottoni::OkAnnulla), Risposta::Annulla);
  dialoghi.Annuncia("fatto");
  EXPECT_EQ(dialoghi.PrendiGuasto(), "");
  EXPECT_EQ(dialoghi.PrendiPiuVecchio(), "Conferma\neliminazione ?");
  EXPECT_EQ(dialoghi.DaVerificare().size(), 4U);
  dialoghi.Ignora();
  EXPECT_EQ(dialoghi.PrendiPiuVecchio(), std::nullopt);
  EXPECT_TRUE(dialoghi.Avanzi().empty());
}

TEST(DialoghiCopione, SenzaRispostaAdatta) {
  const struct {
    std::optional<RispostaAttesa> attesa;
    Bottoni bottoni;
    const char* motivo;
  } casi[] = {
      {std::nullopt, Bottoni::SiNo, "no answer queued: \"Davvero ?\""},
      {Attesa(Risposta::Si, "Altro"), Bottoni::SiNo, "does not contain \"Altro\""},
      {Attesa(Risposta::Ok), Bottoni::SiNo, "no answer `ok`"},
      {Attesa(Risposta::Si), Bottoni::OkAnnulla, "no answer `si`"},
      {Attesa(Risposta::Ok), Bottoni::SiNoAnnulla, "no answer `ok`"},
      {RispostaAttesa{"a.cop:1", Risposta::Ok, "x", ""}, Bottoni::SiNo, "no answer `testo`"},
  };
  for (const auto& caso : casi) {
    DialoghiCopione dialoghi;
    if (caso.attesa) dialoghi.Accoda(*caso.attesa);
    const auto risposta = Chiede(dialoghi, "Davvero ?", caso.bottoni);
    // Whatever goes on must not be what a careless yes would do.
    EXPECT_NE(risposta, Risposta::Si);
    EXPECT_NE(risposta, Risposta::Ok);
    const auto guasto = dialoghi.PrendiGuasto();
    EXPECT_NE(guasto.find(caso.motivo), std::string::npos) << guasto;
  }
}

TEST(DialoghiCopione, UsciteEFile) {
  DialoghiCopione dialoghi;
  dialoghi.Accoda(UscitaAttesa{"a.cop:1", SceltaUscita{Destinazione::Csv, "/x/a.csv"}});
  dialoghi.Accoda(UscitaAttesa{"a.cop:2", std::nullopt});
  dialoghi.Accoda(FileAtteso{"a.cop:3", "/x/b"});
  EXPECT_EQ(dialoghi.ScegliUscita("Giornale", true)->destinazione, Destinazione::Csv);
  EXPECT_FALSE(dialoghi.ScegliUscita("Giornale", false));
  EXPECT_EQ(dialoghi.PrendiGuasto(), "");
  ASSERT_EQ(dialoghi.Avanzi().size(), 1U);
  EXPECT_EQ(dialoghi.Avanzi().front().luogo, "a.cop:3");
  EXPECT_EQ(dialoghi.ScegliFile("Immagine", ModoFile::Apri, ""), "/x/b");
  EXPECT_TRUE(dialoghi.DaVerificare().empty());
  EXPECT_FALSE(dialoghi.ScegliUscita("Giornale", false));
  EXPECT_NE(dialoghi.PrendiGuasto().find("Giornale"), std::string::npos);
  EXPECT_FALSE(dialoghi.ScegliFile("Immagine", ModoFile::Apri, ""));
  EXPECT_NE(dialoghi.PrendiGuasto().find("Immagine"), std::string::npos);
}

}  // namespace
}  // namespace fenalto::copione
