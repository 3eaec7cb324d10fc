// Every statement of what writes is made to fail once: nothing may have changed, and the work can
// go on as if it had not happened.
#include <fstream>
#include <functional>

#include "ledger/DittaDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {

class PrimanotaGuastiTest : public DittaDiProva, public ::testing::WithParamInterface<Guasto> {
 protected:
  PrimanotaGuastiTest() : pn(ambiente) {}

  std::string Mostrato() {
    std::string testo;
    for (const ledger::RigaPrimanota& r : pn.Righe()) {
      testo += std::to_string(r.num) + "|" + std::to_string(r.posi) + "|" + r.conto + "|" +
               r.impoDare.Testo() + "|" + r.impoAvere.Testo() + "|" + r.contoControp + "\n";
    }
    return testo + pn.TotDare().Testo() + "|" + pn.TotAvere().Testo() + "|" +
           std::to_string(static_cast<int>(pn.StatoCorrente()));
  }
  std::size_t FileAllegati() const {
    std::size_t quanti = 0;
    std::error_code errore;
    for (auto i = std::filesystem::directory_iterator(ambiente.CartellaDocumenti(), errore);
         i != std::filesystem::directory_iterator(); ++i) {
      ++quanti;
    }
    return quanti;
  }
  int ProvaTutti(const std::function<bool()>& azione) {
    return FallisceOgniIstruzione(
        ambiente.Basi(), GetParam(),
        [this] { return Contenuto() + Mostrato() + std::to_string(FileAllegati()); }, azione);
  }
  void Conferma(int alMeno) {
    const int guasti = ProvaTutti([&] {
      const bool riuscita = pn.Conferma();
      const auto messaggi = Messaggi();
      EXPECT_EQ(messaggi.size(), 1U);
      if (!riuscita && !messaggi.empty()) {
        EXPECT_THAT(messaggi[0], ::testing::HasSubstr("Non è stato scritto nulla"));
      }
      return riuscita;
    });
    EXPECT_GE(guasti, alMeno);
  }
  ledger::Primanota pn;
};

TEST_P(PrimanotaGuastiTest, NuovaRegistrazioneConAllegato) {
  std::ofstream(cartella / "ricevuta.txt") << "pagato";
  pn.Nuovo();
  for (const RigaDaScrivere& riga :
       {RigaDaScrivere{"100.010", I("5")}, {"110.001", I("-3")}, {"0001", I("-2"), "C"}}) {
    ASSERT_TRUE(Scrivi(pn, riga));
  }
  ASSERT_TRUE(pn.AggiungiAllegato(cartella / "ricevuta.txt"));
  Conferma(7);
  EXPECT_EQ(pn.NumeroConfermato(), 1);
  EXPECT_EQ(NumeroRighe(1), 3);
  EXPECT_EQ(FileAllegati(), 1U);
  ASSERT_TRUE(pn.Apri(1));
  EXPECT_EQ(pn.Allegati().size(), 1U);
}

TEST_P(PrimanotaGuastiTest, RegistrazioneVariataDiNumero) {
  Registra({{"100.010", I("5")}, {"110.001", I("-5")}});
  ASSERT_TRUE(pn.Apri(1));
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("1")}));
  ASSERT_TRUE(Scrivi(pn, {"0001", I("-1"), "F"}));
  pn.Testa().Scrivi("NumDoc", 9);
  Conferma(8);
  EXPECT_EQ(NumeroRighe(1), 0);
  EXPECT_EQ(NumeroRighe(9), 4);
}

TEST_P(PrimanotaGuastiTest, Eliminazione) {
  Registra({{"100.010", I("5")}, {"110.001", I("-5")}});
  ASSERT_TRUE(pn.Apri(1));
  EXPECT_GE(ProvaTutti([&] {
              dialoghi.Rispondera("ARTICOLO", Risposta::Si);
              return pn.Elimina();
            }),
            5);
  EXPECT_EQ(NumeroRighe(1), 0);
}

TEST_P(PrimanotaGuastiTest, Righe) {
  pn.Nuovo();
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("5")}));
  ASSERT_TRUE(pn.PNuovaRiga());
  pn.Riga().Scrivi("Causale", "001");
  pn.Riga().Scrivi("Conto", "110.001");
  pn.Riga().Scrivi("ImpoAvere", I("5"));
  EXPECT_GE(ProvaTutti([&] { return pn.ConfermaRiga(); }), 4);
}

INSTANTIATE_TEST_SUITE_P(Guasti, PrimanotaGuastiTest,
                         ::testing::Values(Guasto::Errore, Guasto::Memoria));

}  // namespace fenalto::prova
