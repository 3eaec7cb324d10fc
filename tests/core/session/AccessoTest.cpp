// Users, their rules, and the log-in.
#include <gtest/gtest.h>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "core/session/Utenti.h"

namespace fenalto {
namespace {

using namespace std::chrono_literals;
using Credenziali = Dialoghi::Credenziali;

class AccessoTest : public ::testing::Test {
 protected:
  AccessoTest() {
    Utenti::HashEconomico(true);
    OpzioniAmbiente opzioni = OpzioniProva(cartella_.Percorso());
    opzioni.attendi = [this](std::chrono::milliseconds attesa) { attese_.push_back(attesa); };
    CreaDittaProva(opzioni, "Rossi");
    CreaDittaProva(opzioni, "Bianchi", {{2026, true, false}}, false);
    ambiente_ = std::make_unique<Ambiente>(opzioni, dialoghi_, orologio_, caso_);
    if (!ambiente_->ApriDitta("Rossi")) throw std::runtime_error("apertura");
  }
  ~AccessoTest() override { Utenti::HashEconomico(false); }

  CartellaProva cartella_;
  DialoghiFinti dialoghi_;
  OrologioFinto orologio_;
  CasoFinto caso_;
  std::vector<std::chrono::milliseconds> attese_;
  std::unique_ptr<Ambiente> ambiente_;
};

TEST_F(AccessoTest, Regole) {
  Utenti utenti(*ambiente_);
  EXPECT_FALSE(ambiente_->ServeAccesso());
  struct Passo {
    const char* attuale;  ///< "-" deletes
    Utente utente;
    const char* password;
    const char* rifiuto;  ///< a piece of the refusal; empty when it goes
  };
  const Passo passi[] = {
      {"", {"anna", "Anna", 50}, "a", "primo utente"},
      {"", {"anna", "Anna", 99}, "", "password"},
      {"", {"", "Anna", 99}, "a", "codice"},
      {"", {"anna", "Anna", 40}, "a", "livello"},
      {"", {"anna", "Anna", 99}, "a", ""},
      {"", {"ANNA", "Altra", 99}, "a", "esiste già"},
      {"anna", {"anna", "Anna", 50}, "", "ultimo utente di livello 99"},
      {"", {"bruno", "Bruno d'Este", 30}, "b", ""},
      {"-", {"anna", "", 0}, "", "ultimo utente di livello 99"},
      {"bruno", {"anna", "Bruno", 30}, "", "esiste già"},
      {"bruno", {"Bruno2", "Bruno", 99}, "", ""},
      {"bruno", {"bruno", "Bruno", 99}, "", "non c'è più"},
      {"anna", {"anna", "Anna", 30}, "nuova", ""},
      {"-", {"bruno2", "", 0}, "", "ultimo utente di livello 99"},
      {"-", {"nessuno", "", 0}, "", "non c'è più"},
      {"-", {"anna", "", 0}, "", ""},
      {"-", {"bruno2", "", 0}, "", ""},
  };
  for (const Passo& passo : passi) {
    const auto esito = std::string(passo.attuale) == "-"
                           ? utenti.Elimina(passo.utente.cod)
                           : utenti.Salva(passo.attuale, passo.utente, passo.password);
    const std::string rifiuto = esito ? "" : esito.Errore().messaggio;
    EXPECT_EQ(esito.Riuscito(), std::string(passo.rifiuto).empty())
        << passo.utente.cod << ": " << rifiuto;
    EXPECT_NE(rifiuto.find(passo.rifiuto), std::string::npos) << rifiuto;
  }
  EXPECT_TRUE(utenti.Elenco().empty());
}

TEST_F(AccessoTest, PasswordTenutaECambiata) {
  Utenti utenti(*ambiente_);
  ASSERT_TRUE(utenti.Salva("", {"anna", "Anna", 99}, "prima"));
  const auto hash = [&] {
    return ambiente_->Cerca("tessarc", "Ut", {{"Cod", "anna"}}, "Password").Testo();
  };
  EXPECT_EQ(hash().find("prima"), std::string::npos);
  EXPECT_TRUE(Utenti::Verifica(hash(), "prima"));
  EXPECT_FALSE(Utenti::Verifica(hash(), "Prima"));
  ASSERT_TRUE(utenti.Salva("anna", {"anna", "Anna Neri", 99}, ""));
  EXPECT_TRUE(Utenti::Verifica(hash(), "prima"));
  ASSERT_TRUE(utenti.Salva("anna", {"anna", "Anna Neri", 99}, "l'è'dopo"));
  EXPECT_TRUE(Utenti::Verifica(hash(), "l'è'dopo"));
  EXPECT_FALSE(Utenti::Verifica("", ""));
  EXPECT_FALSE(Utenti::Verifica(std::string(500, '$'), "prima"));
  EXPECT_NE(Utenti::Hash("uguale"), Utenti::Hash("uguale"));
}

TEST_F(AccessoTest, LivelliERallentamento) {
  Utenti utenti(*ambiente_);
  ASSERT_TRUE(utenti.Salva("", {"anna", "Anna", 99}, "a"));
  ASSERT_TRUE(utenti.Salva("", {"bruno", "Bruno", 50}, "b"));
  ASSERT_TRUE(ambiente_->ApriDitta("Bianchi"));
  ASSERT_TRUE(ambiente_->ApriDitta("Rossi"));
  EXPECT_TRUE(ambiente_->ServeAccesso());
  EXPECT_FALSE(ambiente_->HaDiritto(30)) << "prima dell'accesso non si fa niente";
  EXPECT_TRUE(ambiente_->HaDiritto(0));

  ASSERT_TRUE(ambiente_->Accedi("BRUNO", "b"));
  EXPECT_EQ(ambiente_->UtenteCorrente().cod, "bruno");
  EXPECT_TRUE(ambiente_->HaDiritto(50));
  EXPECT_FALSE(ambiente_->HaDiritto(99));

  for (int n = 0; n < 5; ++n) EXPECT_FALSE(ambiente_->Accedi("anna", "no"));
  EXPECT_TRUE(attese_.empty());
  for (int n = 0; n < 5; ++n) EXPECT_FALSE(ambiente_->Accedi("nessuno", "a"));
  EXPECT_EQ(attese_, (std::vector<std::chrono::milliseconds>{2s, 4s, 8s, 16s, 30s}));
  EXPECT_EQ(ambiente_->UtenteCorrente().cod, "bruno");
  EXPECT_TRUE(ambiente_->Accedi("anna", "a"));
  attese_.clear();
  EXPECT_FALSE(ambiente_->Accedi("anna", ""));
  EXPECT_TRUE(attese_.empty()) << "un accesso giusto fa ripartire il conto";
}

TEST_F(AccessoTest, AccessoAllAvvioEAlCambioDiDitta) {
  ASSERT_TRUE(Utenti(*ambiente_).Salva("", {"anna", "Anna", 99}, "a"));
  ambiente_->ChiudiDitta();
  dialoghi_.Acceda(Credenziali{"anna", "sbagliata"});
  dialoghi_.Acceda(std::nullopt);
  EXPECT_FALSE(ambiente_->Avvia("Rossi"));
  EXPECT_FALSE(ambiente_->DittaAperta());
  EXPECT_EQ(dialoghi_.avvisiAccesso,
            (std::vector<std::string>{"", "utente o password non validi"}));

  dialoghi_.Acceda(Credenziali{"anna", "a"});
  ASSERT_TRUE(ambiente_->Avvia("Rossi"));
  EXPECT_TRUE(ambiente_->HaDiritto(99));
  // The same company again keeps who is in; giving the log-in up keeps the session.
  dialoghi_.ScegliaDitta(SceltaDitta{"Rossi", 2025});
  EXPECT_TRUE(ambiente_->SelezioneArchivi());
  EXPECT_EQ(ambiente_->UtenteCorrente().cod, "anna");
  ASSERT_TRUE(ambiente_->ApriDitta("Bianchi"));
  dialoghi_.ScegliaDitta(SceltaDitta{"Rossi", 2025});
  dialoghi_.Acceda(std::nullopt);
  EXPECT_FALSE(ambiente_->SelezioneArchivi());
  EXPECT_EQ(ambiente_->Ditta(), "Bianchi");
}

}  // namespace
}  // namespace fenalto
