// A registration that wasn't confirmed when the program stopped is gone on with as it was typed.
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {
namespace {

constexpr const char* kDomanda =
    "C'è una registrazione non confermata del 15/03/2024 10:00 : la riprendo?";

class PrimanotaBozzaTest : public DittaDiProva {
 protected:
  std::size_t Bozze() const {
    std::size_t quante = 0;
    std::error_code errore;
    for (const auto& voce :
         std::filesystem::directory_iterator(ambiente.CartellaDitta() / "Bozze", errore)) {
      quante += voce.path().extension() == ".txt" ? 1U : 0U;
    }
    return quante;
  }
};

TEST_F(PrimanotaBozzaTest, UnaNuovaSiConfermaComeSeNulla) {
  const auto digita = [](ledger::Primanota& pn) {
    pn.Nuovo();
    pn.Testa().Scrivi("Dt", G(1, 3, 2024));
    pn.TestaLasciata("Dt");
    Scrivi(pn, {"100.010", I("30"), "P", "001", "prima"});
    pn.ContropAutomatiche(false);
    Scrivi(pn, {"110.001", I("-10")});
    pn.PNuovaRiga();
    pn.Riga().Scrivi("Conto", "110.001");
    pn.Riga().Scrivi("ImpoAvere", I("20"));
    pn.RigaLasciata("ImpoAvere");
  };
  const auto conferma = [](ledger::Primanota& pn) {
    EXPECT_TRUE(pn.ConfermaRiga());
    EXPECT_TRUE(pn.Conferma());
  };
  {
    ledger::Primanota pn(ambiente);
    digita(pn);
    conferma(pn);
  }
  EXPECT_EQ(Bozze(), 0U);
  const auto righe = [this](int numero) {
    std::string testo;
    Rs rs = Tessarc().Recordset(
        "select Posi, Causale, Descrizione, CFP, Conto, ImpoDare, "
        "ImpoAvere, ContoControp from Movimenti where NumDoc=" +
        std::to_string(numero) + " order by Num");
    for (; !rs.Eof(); rs.MoveNext()) {
      for (std::size_t i = 0; i < rs.Colonne().size(); ++i) testo += rs.Fields(i).Neutro() + "|";
    }
    return testo;
  };
  {
    ledger::Primanota pn(ambiente);
    digita(pn);
  }
  EXPECT_EQ(Bozze(), 1U);
  ledger::Primanota pn(ambiente);
  dialoghi.Rispondera(kDomanda, Risposta::Si);
  ASSERT_TRUE(pn.Riprendi());
  EXPECT_TRUE(pn.Nuova() && pn.Modificata() && pn.RigaNuova());
  EXPECT_FALSE(pn.ContropAutomatiche());
  EXPECT_EQ(pn.Sbilancio(), I("20"));
  EXPECT_EQ(pn.Righe()[0].descrConto, "Cassa contanti");
  conferma(pn);
  EXPECT_EQ(CampoTestata(2, "Dt").Data(), G(1, 3, 2024));
  EXPECT_EQ(righe(2), righe(1));
  EXPECT_EQ(Bozze(), 0U);
  EXPECT_FALSE(pn.Riprendi());
}

TEST_F(PrimanotaBozzaTest, UnaCorrezioneSiRiprendeSoloSuCioCheERimasto) {
  ASSERT_EQ(Registra({{"100.010", I("5")}, {"110.001", I("-5")}}), 1);
  const auto correggi = [this] {
    ledger::Primanota pn(ambiente);
    ASSERT_TRUE(pn.Apri(1));
    ASSERT_TRUE(pn.ApriRiga(pn.Righe()[0].num));
    pn.Riga().Scrivi("Descrizione", "corretta");
    ASSERT_TRUE(pn.ConfermaRiga());
    EXPECT_EQ(Bozze(), 1U);
  };
  const auto offri = [this] {
    dialoghi.Rispondera("(correzione di quanto già registrato)", Risposta::Si);
  };
  correggi();
  {
    // In use at another station: it waits.
    const auto altra = NuovaStazione("ALTRA");
    ledger::Primanota altrove(*altra->ambiente);
    ASSERT_TRUE(altrove.Apri(1));
    ledger::Primanota pn(ambiente);
    offri();
    EXPECT_FALSE(pn.Riprendi());
    EXPECT_THAT(Messaggi().back(), HasSubstr("è in uso"));
  }
  {
    ledger::Primanota pn(ambiente);
    offri();
    ASSERT_TRUE(pn.Riprendi());
    EXPECT_EQ(pn.Righe()[0].descrizione, "corretta");
    EXPECT_TRUE(pn.Conferma());
    Messaggi();
  }
  EXPECT_EQ(Bozze(), 0U);
  correggi();
  Tessarc().Esegui("update Movimenti set Descrizione='altrove' where ImpoDare=0");
  ledger::Primanota pn(ambiente);
  offri();
  EXPECT_FALSE(pn.Riprendi());
  EXPECT_EQ(SoloMessaggio(),
            "la registrazione n. 1 è cambiata dopo: la correzione non si può riprendere");
  EXPECT_EQ(pn.StatoCorrente(), ledger::Primanota::Stato::Inattiva);
  correggi();
  Tessarc().Esegui("delete from Articoli");
  offri();
  EXPECT_FALSE(pn.Riprendi());
  EXPECT_EQ(SoloMessaggio(),
            "la registrazione n. 1 non c'è più: la correzione non si può riprendere");
  EXPECT_EQ(Bozze(), 0U);
}

TEST_F(PrimanotaBozzaTest, ChiusaSenzaCambiareNonRestaNulla) {
  Registra({{"100.010", I("5")}, {"110.001", I("-5")}});
  ledger::Primanota pn(ambiente);
  pn.Apri(1);
  pn.ContropAutomatiche(true);
  pn.ApriRiga(pn.Righe()[0].num);
  pn.AnnullaRiga();
  pn.Nuovo();
  pn.PNuovaRiga();
  EXPECT_EQ(Bozze(), 0U);
}

}  // namespace
}  // namespace fenalto::prova
