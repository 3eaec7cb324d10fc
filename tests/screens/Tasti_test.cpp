// The keys that a day's work takes, and where they lead: those pressed beside the texts are
// counted.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTabWidget>

#include "screens/FinestraProva.h"
#include "screens/main/DialoghiQt.h"

namespace fenalto::prova {

class TastiTest : public FinestraProva {
 protected:
  /// Types into whatever has the focus.
  static void Testi(const char* testo) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(testo));
  }
  void Premi(Qt::Key tasto, Qt::KeyboardModifiers modificatori = Qt::NoModifier) {
    ++premuti;
    Tasto(tasto, modificatori);
  }
  void Invio(int volte = 1) {
    for (int i = 0; i < volte; ++i) Premi(Qt::Key_Return);
  }
  void Conferma() { Premi(Qt::Key_Return, Qt::ControlModifier); }

  int premuti = 0;
};

// What is typed after a refusal mends it, before a report as at a confirmation.
TEST_F(TastiTest, UnRapportoRifiutatoPortaSulCampo) {
  struct Caso {
    const char *finestra, *campo, *testo, *messaggio, *rifiutato;
  };
  for (const Caso& caso :
       {Caso{"StGiornale", "DaDt", "31/12/2099", "è successiva a quella finale", "DaDt"},
        {"StGiornale", "DaPag", "0", "le pagine si numerano da 1", "DaPag"},
        {"STEstrattoConto", "DaData", "31/12/2099", "è successiva a quella finale", "DaData"},
        {"STScadenzePerData", "DaData", "31/12/2099", "è successiva a quella finale", "DaData"},
        {"STClienti", "DaCod", "9", "viene dopo quello finale", "DaCod"}}) {
    SCOPED_TRACE(caso.messaggio);
    Apri(QString::fromLatin1(caso.finestra));
    if (finestra->findChild<QWidget*>(QStringLiteral("AData")) != nullptr) {
      Scrivi("AData", "01/01/2024");
    }
    if (finestra->findChild<QWidget*>(QStringLiteral("ACod")) != nullptr) Scrivi("ACod", "1");
    Scrivi(caso.campo, caso.testo);
    Clic("Stampa");
    EXPECT_THAT(SoloMessaggio(), ::testing::HasSubstr(caso.messaggio));
    EXPECT_EQ(Foco(), caso.rifiutato);
    finestra->Cornice()->close();
  }
}

TEST_F(TastiTest, UnaRegistrazioneDiTreRighe) {
  Apri(QStringLiteral("Movimenti"));
  Premi(Qt::Key_Insert);
  Testi("1403");
  Invio();
  ASSERT_EQ(Foco(), "Causale");
  Testi("001");
  Invio(3);
  Testi("100.010");
  Invio();
  Testi("1234,5");
  Conferma();
  for (const auto& [conto, importo] :
       {std::pair{"110.001", "1000"}, std::pair{"700.010", "234,5"}}) {
    Invio();
    ASSERT_EQ(Foco(), "Causale");
    Invio(3);
    ASSERT_EQ(Foco(), "Conto");
    Testi(conto);
    Invio(2);
    ASSERT_EQ(Foco(), "ImpoAvere");
    Testi(importo);
    Conferma();
  }
  EXPECT_EQ(Testo("Sbilancio"), "0,00");
  Conferma();
  EXPECT_EQ(SoloMessaggio(), "ARTICOLO CONTABILE n. 1\nannotare il numero");
  EXPECT_LE(premuti, 45);
}

TEST_F(TastiTest, UnaFattura) {
  Metti(Tessarc(), "Fornitori", "Cod", "9001", "ragsoc1", "Carta & Penna snc", "Conto", "400.001",
        "CodIva", "22", "ContropFatture", "500.005");
  Apri(QStringLiteral("Fatture"));
  Scrivi("RivaX", "3");
  Premi(Qt::Key_Insert);
  Invio();
  Testi("9001");
  Invio();
  Testi("17");
  Invio();
  Testi("12");
  while (Foco() != QLatin1String("Imponibile") && premuti < 25) Invio();
  Testi("100");
  Conferma();
  Conferma();
  EXPECT_THAT(Messaggi().front(), ::testing::HasSubstr("N.Prot.IVA 1 - Articolo Contabile1"));
  EXPECT_LE(premuti, 25);
}

TEST_F(TastiTest, UnPagamento) {
  Metti(ambiente.ArchivioDi("scadenzario"), "Scadenze", "Numero", 1, "CFP", "F", "Conto", "0001",
        "Dt", G(31, 3, 2024), "ImportoE", I("122"), "Stato", "00", "NFat", 17, "DtFat",
        G(12, 2, 2024));
  Apri(QStringLiteral("PagamentiDaScadenzario"));
  Campo("CFPx")->setFocus();
  Testi("F");
  Invio();
  ASSERT_EQ(Foco(), "CliFor");
  Testi("0001");
  Invio();
  ASSERT_EQ(Foco(), "Dt");
  Invio();
  Testi("Bonifico");
  Invio(2);
  Testi("001");
  Invio();
  Testi("110.001");
  Invio();
  ASSERT_EQ(Foco(), "ContoArrotondamentiPagScad1");
  Invio();
  ASSERT_EQ(Foco(), "GrigliaScadenze") << ::testing::PrintToString(Messaggi());
  Invio();
  ASSERT_EQ(Foco(), "ImportoPagato");
  Conferma();
  Conferma();
  EXPECT_THAT(SoloMessaggio(), ::testing::HasSubstr("Creato articolo contabile 1"));
  EXPECT_LE(premuti, 22);
}

TEST_F(TastiTest, LePagineDiUnCliente) {
  Apri(QStringLiteral("Clienti"));
  Tasto(Qt::Key_Insert);
  auto* schede = Campo<QTabWidget>("SSTab2");
  ASSERT_EQ(schede->currentIndex(), 0);
  Premi(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(schede->currentIndex(), 1);
  EXPECT_TRUE(schede->currentWidget()->isAncestorOf(QApplication::focusWidget()));
  EXPECT_LE(premuti, 2);
  Tasto(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(schede->currentIndex(), 0);
  Tasto(Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(schede->currentIndex(), 2);
}

TEST_F(TastiTest, InvioNellUltimoCampoDiUnArchivio) {
  Apri(QStringLiteral("Causali"));
  Tasto(Qt::Key_Insert);
  Testi("X1");
  QString prima;
  for (int i = 0; i < 40 && Foco() != QLatin1String("Conferma"); ++i) {
    ASSERT_NE(Foco(), prima);
    prima = Foco();
    Tasto(Qt::Key_Return);
  }
  EXPECT_EQ(Foco(), "Conferma");
}

TEST_F(TastiTest, UnCampoSiSelezionaEntrando) {
  Apri(QStringLiteral("Movimenti"));
  Tasto(Qt::Key_Insert);
  auto* data = Campo<QLineEdit>("Dt");
  EXPECT_EQ(data->selectedText(), data->text());
  auto* numero = Campo<QLineEdit>("NumDoc");
  QTest::keyClick(data, Qt::Key_Backtab);
  QTest::mouseClick(data, Qt::LeftButton);
  EXPECT_EQ(data->selectedText(), data->text());
  // A second click puts the cursor.
  QTest::mouseClick(data, Qt::LeftButton);
  EXPECT_FALSE(data->hasSelectedText());
  // After a refusal what is typed goes where it was at fault.
  Registra({{"100.010", I("50")}, {"110.001", I("-50")}});
  Scrivi("NumDoc", "1");
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Messaggi().size(), 1U);
  Testi("7");
  EXPECT_EQ(numero->text(), "7");
}

TEST_F(TastiTest, IlCodiceTornaDallArchivioNelCampo) {
  Apri(QStringLiteral("Movimenti"));
  auto* movimenti = finestra;
  Tasto(Qt::Key_Insert);
  Tasto(Qt::Key_Return);
  Tasto(Qt::Key_F3);
  finestra = principale->Aperta(QStringLiteral("Causali"));
  ASSERT_NE(finestra, nullptr);
  Tasto(Qt::Key_Insert);
  Scrivi("Cod", "X1");
  Scrivi("Descrizione", "giro");
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(principale->Aperta(QStringLiteral("Causali")), nullptr);
  finestra = movimenti;
  EXPECT_EQ(Foco(), "Causale");
  EXPECT_EQ(Testo("Causale"), "X1");
  EXPECT_EQ(Testo("CausaleDescrizione"), "giro");

  // Ctrl+Enter in the list takes what stands there; Esc alone leaves the field as it was.
  for (const bool prende : {true, false}) {
    Tasto(Qt::Key_F3);
    finestra = principale->Aperta(QStringLiteral("Causali"));
    ASSERT_NE(finestra, nullptr);
    Tasto(Qt::Key_Escape);  // the record that F3 has opened
    if (prende) Digita("Rt1", "001");
    prende ? Tasto(Qt::Key_Return, Qt::ControlModifier) : Tasto(Qt::Key_Escape);
    finestra = movimenti;
    EXPECT_EQ(Foco(), "Causale");
    EXPECT_EQ(Testo("Causale"), "001");
  }
}

TEST_F(TastiTest, CioCheAnnunciaSoltantoSparisceConLAzioneDopo) {
  screens::DialoghiQt veri;
  veri.Sopra(principale.get());
  Apri(QStringLiteral("Movimenti"));
  const auto* cornice = finestra->Cornice();
  const auto testo = [cornice] {
    return cornice->findChild<QLabel*>(QStringLiteral("TestoAnnuncio"))->text().toStdString();
  };
  const auto inVista = [cornice] {
    return cornice->findChild<QWidget*>(QStringLiteral("BarraAnnunci"))->isVisible();
  };
  veri.Annuncia("ARTICOLO CONTABILE n. 1\nannotare il numero");
  veri.Annuncia("creato articolo 2");
  EXPECT_EQ(testo(), "ARTICOLO CONTABILE n. 1\nannotare il numero\ncreato articolo 2");
  EXPECT_TRUE(inVista());
  Tasto(Qt::Key_Shift);
  EXPECT_TRUE(inVista());
  Tasto(Qt::Key_Tab);
  EXPECT_FALSE(inVista());
  // What the next action announces takes the place of what stood there.
  veri.Annuncia("prima");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  veri.Annuncia("dopo");
  QTest::qWait(0);
  EXPECT_EQ(testo(), "dopo");
  EXPECT_TRUE(inVista());
}

}  // namespace fenalto::prova
