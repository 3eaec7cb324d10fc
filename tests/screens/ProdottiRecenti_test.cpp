// What a party was sold lately: a row chosen there goes to the window that opened the list.
#include <QTableView>

#include "screens/FinestraProva.h"
#include "screens/documents/recent/FinestraProdottiRecenti.h"

namespace fenalto::prova {
namespace {

class ProdottiRecentiFinestraTest : public FinestraProva {
 protected:
  ProdottiRecentiFinestraTest() {
    for (int i = 0; i < 3; ++i) {
      Metti(Tessarc(), "FattureCli_r", "TipoDoc", "XT", "Anno", 2024, "NumDoc", i + 1, "Posi", 100,
            "Dt", G(1 + i, 3, 2024), "CFP", "C", "CliFor", "0001", "CodiceRiga",
            i < 2 ? "XA" : "XB", "Descrizione", i < 2 ? "vite" : "bullone", "Prezzo",
            Importo::DaUnita(i + 1));
    }
    Apri("Clienti");
    documento = finestra;
    EXPECT_TRUE(screens::FinestraProdottiRecenti::Apri(
        *documento, *principale, {"XT", "C", "0001"},
        [this](const documents::ValoriRiga& valori) { consegnati.push_back(valori); }));
    finestra = principale->findChild<screens::FinestraFunzione*>("ProdottiMovCliFor");
  }
  ~ProdottiRecentiFinestraTest() override { QTest::qWait(0); }

  screens::FinestraFunzione* documento = nullptr;
  std::vector<documents::ValoriRiga> consegnati;
};

TEST_F(ProdottiRecentiFinestraTest, ConISoliTasti) {
  ASSERT_NE(finestra, nullptr);
  EXPECT_EQ(Foco(), "CercaProdotti");
  ASSERT_EQ(Righe("GrigliaProdotti"), 2);
  EXPECT_EQ(Cella("GrigliaProdotti", 0, "Descrizione_"), "bullone");
  // Down into the list: the rows of each product show below.
  Tasto(Qt::Key_Down);
  EXPECT_EQ(Righe("GrigliaRighe"), 1);
  Tasto(Qt::Key_Down);
  ASSERT_EQ(Righe("GrigliaRighe"), 2);
  EXPECT_EQ(Cella("GrigliaRighe", 1, "Prezzo"), "1,00");
  dialoghi.Rispondera("Inserisco prodotto, descrizione, prezzo e sconti sul documento",
                      Risposta::No);
  Tasto(Qt::Key_Return);
  EXPECT_TRUE(consegnati.empty());
  dialoghi.Rispondera("Inserisco prodotto, descrizione, prezzo e sconti sul documento",
                      Risposta::Si);
  Tasto(Qt::Key_Return);
  QTest::qWait(20);
  ASSERT_EQ(consegnati.size(), 1U);
  EXPECT_EQ(consegnati[0].codiceRiga, "XA");
  EXPECT_EQ(consegnati[0].prezzo, Importo::DaUnita(2)) << "the last row's, not the first one's";
  EXPECT_EQ(principale->findChild<QWidget*>("ProdottiMovCliFor"), nullptr);
  EXPECT_TRUE(documento->isVisible());
}

TEST_F(ProdottiRecentiFinestraTest, UnaRigaDiSotto) {
  ASSERT_NE(finestra, nullptr);
  Digita("CercaProdotti", "vit");
  QTest::qWait(20);
  ASSERT_EQ(Righe("GrigliaProdotti"), 1);
  Tasto(Qt::Key_Down);
  dialoghi.Rispondera("Inserisco prodotto", Risposta::Si);
  DoppioClic("GrigliaRighe", 1);
  QTest::qWait(20);
  ASSERT_EQ(consegnati.size(), 1U);
  EXPECT_EQ(consegnati[0].prezzo, Importo::DaUnita(1));
}

}  // namespace
}  // namespace fenalto::prova
