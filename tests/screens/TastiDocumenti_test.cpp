// The keys that a delivery note takes: those pressed beside the texts are counted.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QTabWidget>

#include "screens/FinestraProva.h"

namespace fenalto::prova {

class TastiDocumentiTest : public FinestraProva {
 protected:
  TastiDocumentiTest() {
    Metti(Tessarc(), "Clienti", "Cod", "9001", "ragsoc1", "Rossi Costruzioni");
    for (int i = 1; i <= 10; ++i) {
      Metti(Tessarc(), "CodiciRiga", "Cod", "X" + std::to_string(i), "Descrizione",
            "prodotto " + std::to_string(i), "Barcode", "80000000000" + std::to_string(i), "CodIva",
            "22", "Conto", "700.001");
    }
    Apri(QStringLiteral("FattureCli"));
  }
  static void Testi(const std::string& testo) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(testo));
  }
  void Premi(Qt::Key tasto, Qt::KeyboardModifiers modificatori = Qt::NoModifier) {
    ++premuti;
    Tasto(tasto, modificatori);
  }
  /// Type, party: the first row is open then.
  void Comincia(const char* tipo) {
    Scrivi("xTipoDoc", tipo);
    Premi(Qt::Key_Insert);
    ASSERT_EQ(Foco(), "CliFor");
    Testi("9001");
    Premi(Qt::Key_Return);
    ASSERT_EQ(Foco(), "CodiceRiga");
  }
  std::string Quante() {
    return Tessarc().Singolo("SELECT COUNT(*) FROM FattureCli_r").Testo() + " " +
           Tessarc().Singolo("SELECT SUM(Quantita) FROM FattureCli_r").Testo();
  }

  int premuti = 0;
};

TEST_F(TastiDocumentiTest, UnaBollaDiDieciRighe) {
  Comincia("02");
  for (int i = 1; i <= 10; ++i) {
    ASSERT_EQ(Foco(), "CodiceRiga");
    Testi("X" + std::to_string(i));
    Premi(Qt::Key_Return);
    ASSERT_EQ(Foco(), "Quantita");
    Testi("2");
    Premi(Qt::Key_Return);
  }
  Premi(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Quante(), "10 20") << ::testing::PrintToString(Messaggi());
  // Two for the head, two a row, one for the whole.
  EXPECT_LE(premuti, 23);
  EXPECT_EQ(Foco(), "Nuovo");
}

TEST_F(TastiDocumentiTest, UnaBollaDiDieciRigheConIPrezzi) {
  Comincia("01");
  for (int i = 1; i <= 10; ++i) {
    Testi("X" + std::to_string(i));
    Premi(Qt::Key_Return);
    Testi("2");
    Premi(Qt::Key_Return);
    ASSERT_EQ(Foco(), "Prezzo");
    Testi("1,5");
    Premi(Qt::Key_Return);
  }
  Premi(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Quante(), "10 20") << ::testing::PrintToString(Messaggi());
  EXPECT_LE(premuti, 33);
}

// A scanner sends Enter itself, so nobody presses anything between the first code and the last.
TEST_F(TastiDocumentiTest, UnaBollaDiDieciRigheConIlLettore) {
  Comincia("02");
  Campo<QCheckBox>("LetturaVeloce")->click();
  ASSERT_EQ(Foco(), "CodiceRiga");
  for (int i = 1; i <= 10; ++i) {
    Testi("80000000000" + std::to_string(i));
    Tasto(Qt::Key_Return);
    ASSERT_EQ(Foco(), "CodiceRiga") << i;
    ASSERT_EQ(Righe("GrigliaRighe"), i);
  }
  Premi(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Quante(), "10 10") << ::testing::PrintToString(Messaggi());
  EXPECT_LE(premuti, 3);
}

TEST_F(TastiDocumentiTest, DieciRigheIncollate) {
  Comincia("02");
  QString righe;
  for (int i = 1; i <= 10; ++i) righe += QStringLiteral("X%1\t%1\t1,5\n").arg(i);
  QApplication::clipboard()->setText(righe);
  // In the product's field of a row that waits, as in the grid.
  Premi(Qt::Key_V, Qt::ControlModifier);
  ASSERT_EQ(Foco(), "InserisciIncollate");
  Premi(Qt::Key_Return);
  Premi(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Quante(), "10 55") << ::testing::PrintToString(Messaggi());
  EXPECT_LE(premuti, 5);
}

// What is refused on a sheet out of sight is brought into sight.
TEST_F(TastiDocumentiTest, IlFocoVaDoveSiRipara) {
  Premi(Qt::Key_Insert);
  Clic("PNuovaRiga");
  Scrivi("CodiceRiga", "X1");
  Clic("ConfermaRiga");
  auto* schede = Campo<QTabWidget>("SSTab2");
  schede->setCurrentIndex(1);
  Clic("Conferma");
  EXPECT_EQ(Foco(), QStringLiteral("CliFor"));
  EXPECT_EQ(schede->currentIndex(), 0);
  Scrivi("CliFor", "9001");
  schede->setCurrentIndex(1);
  Scrivi("CodiceVettore", "ZZ9");
  schede->setCurrentIndex(0);
  Clic("Conferma");
  EXPECT_EQ(Foco(), QStringLiteral("CodiceVettore")) << ::testing::PrintToString(Messaggi());
  EXPECT_EQ(schede->currentIndex(), 1);
}

}  // namespace fenalto::prova
