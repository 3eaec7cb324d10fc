// Sessions that have one company open, and the one that wants it alone.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "core/session/PresenzaDitta.h"
#include "core/session/Utenti.h"

namespace fenalto {
namespace {

class PresenzaDittaTest : public ::testing::Test {
 protected:
  PresenzaDittaTest() { CreaDittaProva(Opzioni(), "Rossi"); }
  OpzioniAmbiente Opzioni(const std::string& stazione = "UFFICIO") const {
    OpzioniAmbiente opzioni = OpzioniProva(cartella_.Percorso());
    opzioni.stazione = stazione;
    return opzioni;
  }
  std::string Impedimento() {
    const auto presa = PrendiDitta(qui_);
    return presa ? "" : presa.Errore().messaggio;
  }

  CartellaProva cartella_;
  DialoghiFinti dialoghi_;
  OrologioFinto orologio_;
  CasoFinto caso_;
  Ambiente qui_{Opzioni(), dialoghi_, orologio_, caso_};
  Ambiente cassa_{Opzioni("CASSA"), dialoghi_, orologio_, caso_};
};

TEST_F(PresenzaDittaTest, ChiLaVuoleDaSolaSaChiLaTiene) {
  ASSERT_TRUE(qui_.ApriDitta("Rossi"));
  ASSERT_TRUE(cassa_.ApriDitta("rossi"));
  EXPECT_NE(Impedimento().find("«Rossi» è aperta dalla stazione CASSA"), std::string::npos)
      << Impedimento();
  EXPECT_NE(Impedimento(), "") << "il tentativo di prima non ha lasciato niente";
  cassa_.ChiudiDitta();

  Ambiente accanto(Opzioni(), dialoghi_, orologio_, caso_);
  ASSERT_TRUE(accanto.ApriDitta("Rossi"));
  EXPECT_NE(Impedimento().find("un'altra sessione del programma su questa stazione"),
            std::string::npos)
      << Impedimento();
  accanto.ChiudiDitta();

  {
    auto presa = PrendiDitta(qui_);
    ASSERT_TRUE(presa) << presa.Errore().messaggio;
    presa.Valore().Chiudi();
    EXPECT_FALSE(qui_.DittaAperta());
    const auto entrata = cassa_.ApriDitta("Rossi");
    ASSERT_FALSE(entrata);
    EXPECT_NE(entrata.Errore().messaggio.find("tenuta dalla stazione UFFICIO"), std::string::npos)
        << entrata.Errore().messaggio;
    EXPECT_FALSE(cassa_.AnniDi("Rossi"));
  }
  EXPECT_EQ(qui_.Ditta(), "Rossi") << "chi l'aveva chiusa la riapre";
  EXPECT_TRUE(cassa_.ApriDitta("Rossi"));
}

TEST_F(PresenzaDittaTest, RiapreAnnoEUtenteEChiMuoreNonTienePiu) {
  ASSERT_TRUE(qui_.ApriDitta("Rossi"));
  qui_.ArchivioDi("tessarc").Inserisci(
      "Ut", {{"Cod", "MARIA"}, {"Livello", 50}, {"Password", Utenti::Hash("segreta")}});
  ASSERT_TRUE(qui_.ApriDitta("Rossi", 2025));
  ASSERT_TRUE(qui_.Accedi("MARIA", "segreta"));
  auto presa = PrendiDitta(qui_);
  ASSERT_TRUE(presa);
  presa.Valore().Chiudi();
  ASSERT_TRUE(presa.Valore().Riapri());
  EXPECT_EQ(qui_.Anno(), 2025);
  EXPECT_EQ(qui_.UtenteCorrente().cod, "MARIA");
  EXPECT_TRUE(qui_.HaDiritto(50));

  ASSERT_TRUE(cassa_.ApriDitta("Rossi"));
  ASSERT_TRUE(cassa_.Accedi("MARIA", "segreta"));
  EXPECT_NE(Impedimento().find("CASSA (utente MARIA"), std::string::npos) << Impedimento();
  cassa_.ChiudiDitta();

  std::array<int, 2> tubo{};
  ASSERT_EQ(pipe(tubo.data()), 0);
  const pid_t altro = fork();
  if (altro == 0) {
    Ambiente banco(Opzioni("BANCO"), dialoghi_, orologio_, caso_);
    const char esito = banco.ApriDitta("Rossi") ? 's' : 'n';
    (void)!write(tubo[1], &esito, 1);
    while (true) pause();
  }
  char esito = 'n';
  EXPECT_EQ(read(tubo[0], &esito, 1), 1);
  EXPECT_EQ(esito, 's');
  EXPECT_NE(Impedimento().find("BANCO"), std::string::npos) << Impedimento();
  kill(altro, SIGKILL);
  waitpid(altro, nullptr, 0);
  close(tubo[0]);
  close(tubo[1]);
  EXPECT_EQ(Impedimento(), "");
}

}  // namespace
}  // namespace fenalto
