// The window of users: what it shows, refuses and keeps from a user without the right.
#include <QComboBox>
#include <QTabWidget>

#include "core/session/Utenti.h"
#include "screens/FinestraProva.h"

namespace fenalto::prova {

class UtTest : public FinestraProva {
 protected:
  void SetUp() override {
    Utenti::HashEconomico(true);
    Apri(QStringLiteral("Ut"));
  }
  void Inserisci(const char* cod, const char* livello, const char* password, const char* seconda) {
    Clic("Nuovo");
    Scrivi("Cod", cod);
    auto* elenco = Campo<QComboBox>("Livello");
    elenco->setCurrentText(QString::fromLatin1(livello));
    Scrivi("Password", password);
    Scrivi("Password2", seconda);
    Clic("Conferma");
  }
};

TEST_F(UtTest, InserisceCambiaElimina) {
  Inserisci("", "99", "", "");
  EXPECT_EQ(SoloMessaggio(), "inserire un codice");
  EXPECT_EQ(Foco(), "Cod");
  Scrivi("Cod", "CAPO");
  Scrivi("Password", "segreta");
  Scrivi("Password2", "segretA");
  Clic("Conferma");
  EXPECT_EQ(SoloMessaggio(), "reinserire password");
  EXPECT_EQ(Pagina(), 1);
  Scrivi("Password", "segreta");
  Scrivi("Password2", "segreta");
  Clic("Conferma");
  EXPECT_TRUE(Messaggi().empty());
  EXPECT_EQ(Pagina(), 0);
  EXPECT_EQ(Testo("Rt1"), "");
  EXPECT_EQ(Cella("GrigliaUtenti", 0, "Cod"), "CAPO");

  // A change keeps the password; the last user of level 99 keeps the level.
  Digita("Rt1", "capo");
  Tasto(Qt::Key_Return);
  Scrivi("Descrizione", "Titolare");
  Clic("Conferma");
  EXPECT_EQ(Cella("GrigliaUtenti", 0, "Descrizione"), "Titolare");
  const auto hash = Tessarc().Singolo("select Password from Ut where Cod='CAPO'").Testo();
  EXPECT_TRUE(Utenti::Verifica(hash, "segreta"));
  DoppioClic("GrigliaUtenti", 0);
  Campo<QComboBox>("Livello")->setCurrentText(QStringLiteral("30"));
  Clic("Conferma");
  EXPECT_EQ(Messaggi().size(), 1u);
  EXPECT_EQ(Pagina(), 1);

  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::No);
  Clic("Elimina");
  EXPECT_EQ(Pagina(), 1);
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  Clic("Elimina");
  EXPECT_EQ(Righe("GrigliaUtenti"), 0);
}

TEST_F(UtTest, SenzaIlDirittoSiGuardaSoltanto) {
  Inserisci("CAPO", "99", "segreta1", "segreta1");
  Inserisci("BANCO", "30", "segreta2", "segreta2");
  ASSERT_EQ(Righe("GrigliaUtenti"), 2);
  finestra->parentWidget()->close();
  ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024).Riuscito());
  ASSERT_TRUE(ambiente.Accedi("BANCO", "segreta2").Riuscito());
  Messaggi();
  Apri(QStringLiteral("Ut"));
  QTest::qWait(1);
  EXPECT_NE(SoloMessaggio().find("livello 99"), std::string::npos);
  EXPECT_FALSE(Campo("Nuovo")->isEnabled());
  DoppioClic("GrigliaUtenti", 0);
  for (const char* nome : {"Cod", "Livello", "Password", "Conferma", "Elimina"}) {
    EXPECT_FALSE(Campo(nome)->isEnabled()) << nome;
  }
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Pagina(), 0);
}

TEST_F(UtTest, ChiudereChiedeSeQualcosaEScritto) {
  Clic("Nuovo");
  Digita("Cod", "X");
  dialoghi.Rispondera("modifiche non confermate", Risposta::No);
  Campo<QTabWidget>("SSTab1")->setCurrentIndex(0);
  EXPECT_EQ(Pagina(), 1);
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Pagina(), 0);
}

}  // namespace fenalto::prova
