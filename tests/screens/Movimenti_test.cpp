// What only the primanota window does: keys, focus, pages, closing, texts that can't be read. The
// rules of a registration are tried where they are, in the ledger.
#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>

#include "core/sql/Criterio.h"
#include "core/store/BasiDati.h"
#include "screens/FinestraProva.h"

namespace fenalto::prova {

class MovimentiTest : public FinestraProva {
 protected:
  void SetUp() override { Apri(QStringLiteral("Movimenti")); }

  /// A registration of two rows.
  std::int64_t Semplice() { return Registra({{"100.010", I("50")}, {"110.001", I("-50")}}); }
  /// Opens the new row of a new registration.
  void NuovaConRiga() {
    Clic("Nuovo");
    Clic("PNuovaRiga");
    ASSERT_EQ(Foco(), "Causale");
  }
  void ScriviRiga(const char* conto, const char* importo, const char* valore) {
    Clic("PNuovaRiga");
    Scrivi("Causale", "020");
    Scrivi("Conto", conto);
    Scrivi(importo, valore);
    Clic("ConfermaRiga");
  }
  void ApriNumero(std::int64_t numero) {
    Digita("Rt1", std::to_string(numero).c_str());
    Tasto(Qt::Key_Return);
    ASSERT_EQ(Pagina(), 1);
  }
};

TEST_F(MovimentiTest, InvioPassaAlCampoDopo) {
  NuovaConRiga();
  QStringList visti;
  for (int i = 0; i < 9; ++i) {
    visti << Foco();
    Tasto(Qt::Key_Return);
  }
  EXPECT_EQ(visti.join(QLatin1Char(' ')).toStdString(),
            "Causale Descrizione CFP Conto ImpoDare ImpoAvere Categoria Commessa ConfermaRiga");
  Clic("AnnullaRiga");
  // With contra-entries typed by hand their fields come in between.
  Clic("ContropAutomatiche");
  Clic("PNuovaRiga");
  Campo("ImpoAvere")->setFocus();
  Tasto(Qt::Key_Return);
  EXPECT_EQ(Foco(), "CFPControp");
  EXPECT_TRUE(Campo("FrameControp")->isEnabled());
}

TEST_F(MovimentiTest, UnaRegistrazioneConISoliTasti) {
  Tasto(Qt::Key_Insert);
  ASSERT_EQ(Foco(), "Dt");
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1403"));
  Tasto(Qt::Key_Insert);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("001"));
  Tasto(Qt::Key_Return);
  Tasto(Qt::Key_Return);
  Tasto(Qt::Key_Return);
  ASSERT_EQ(Foco(), "Conto");
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("100.010"));
  Tasto(Qt::Key_Return);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1.234,5"));
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(Foco(), "PNuovaRiga");
  EXPECT_EQ(Testo("Sbilancio"), "1.234,50");

  Tasto(Qt::Key_Insert);
  Tasto(Qt::Key_Return);  // the causal of the row before proposes what balances
  EXPECT_EQ(Testo("ImpoAvere"), "1.234,50");
  Digita("Conto", "110.001");
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Testo("Sbilancio"), "0,00");
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(SoloMessaggio(), "ARTICOLO CONTABILE n. 1\nannotare il numero");
  EXPECT_EQ(Pagina(), 0);
  EXPECT_EQ(Testo("Rt1"), "1");
  EXPECT_EQ(Foco(), "Nuovo");
  EXPECT_EQ(Testo("Rt1Descrizione"), QStringLiteral("14/03/2024   100.010  Cassa contanti  →  "
                                                    "110.001  Banca c/c"));
  EXPECT_EQ(CampoTestata(1, "Dt").Neutro(), "2024-03-14");

  // Ctrl+Canc deletes, within a text field too.
  dialoghi.Rispondera("Conferma eliminazione ARTICOLO", Risposta::Si);
  Campo("Rt1")->setFocus();
  Tasto(Qt::Key_Return);
  Campo("DescrArtDupl")->setFocus();
  Tasto(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(NumeroRighe(1), 0);
  EXPECT_EQ(Testo("Rt1"), "");
  EXPECT_EQ(Righe("ElencoArticoli"), 0);
}

TEST_F(MovimentiTest, EscTornaIndietroUnPassoAllaVolta) {
  NuovaConRiga();
  Digita("ImpoDare", "abc");
  dialoghi.Rispondera("modifiche non confermate", Risposta::No);
  Tasto(Qt::Key_Escape);
  EXPECT_TRUE(Campo("FrameRiga")->isVisible());
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  Tasto(Qt::Key_Escape);  // the row goes, and what couldn't be read with it
  EXPECT_FALSE(Campo("FrameRiga")->isVisible());
  Clic("PNuovaRiga");
  Tasto(Qt::Key_F2);
  Tasto(Qt::Key_Escape);  // the list alone
  EXPECT_TRUE(Campo("FrameRiga")->isVisible());
  Tasto(Qt::Key_Escape);  // nothing was typed in the row
  EXPECT_FALSE(Campo("FrameRiga")->isVisible());
  EXPECT_EQ(Pagina(), 1);
  ScriviRiga("100.010", "ImpoDare", "5");
  EXPECT_TRUE(Messaggi().empty());

  dialoghi.Rispondera("modifiche non confermate", Risposta::No);
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Pagina(), 1);
  EXPECT_EQ(Righe("GrigliaRighe"), 1);
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Pagina(), 0);
  EXPECT_FALSE(Campo<QTabWidget>("SSTab1")->isTabEnabled(1));
  Tasto(Qt::Key_Escape);
  EXPECT_TRUE(principale->FinestreAperte().isEmpty());
  EXPECT_EQ(Tessarc().Singolo("select count(*) from Articoli").Intero(), 0);
}

TEST_F(MovimentiTest, UnTestoCheNonSiLeggeTrattieneIlFoco) {
  Clic("Nuovo");
  Clic("PNuovaRiga");
  struct Caso {
    const char *campo, *testo;
  };
  for (const auto& [campo, testo] : {Caso{"ImpoDare", "12,3,4"}, {"Posi", "x"}}) {
    Scrivi(campo, testo);
    EXPECT_EQ(Messaggi().size(), 1u) << campo;
    EXPECT_EQ(Foco(), campo);
    EXPECT_EQ(Testo(campo), testo);
    // Neither a click nor a key presses a button meanwhile, and each complains once.
    Clic("ConfermaRiga");
    EXPECT_EQ(Messaggi().size(), 1u) << campo;
    Tasto(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Messaggi().size(), 1u) << campo;
    EXPECT_EQ(Foco(), campo);
    Scrivi(campo, "7");
    EXPECT_TRUE(Messaggi().empty());
  }
  EXPECT_EQ(Testo("ImpoDare"), "7,00");
  EXPECT_TRUE(Campo("FrameRiga")->isVisible());
}

TEST_F(MovimentiTest, LaClasseScegliDoveSiCercaIlConto) {
  NuovaConRiga();
  Scrivi("Conto", "100.010");
  EXPECT_EQ(Testo("ContoDescrizione"), "Cassa contanti");
  Scrivi("CFP", "f");
  EXPECT_EQ(Testo("CFP"), "F");
  EXPECT_EQ(Testo("Conto"), "");
  Scrivi("Conto", "0001");
  EXPECT_EQ(Testo("ContoDescrizione"), "Fornitori 0001 dell'Oro");
  // A part of a description that fits one only stands for its code.
  Scrivi("CFP", "C");
  Scrivi("Conto", "clienti 0002");
  EXPECT_EQ(Testo("Conto"), "0002");
  Scrivi("CFP", "P");
  // What is no account is looked for in the other classes; a code that both have isn't guessed,
  // unless the causal was last used with one of them.
  Scrivi("Conto", "fornitori 0001");
  EXPECT_EQ(Testo("CFP"), "F");
  EXPECT_EQ(Testo("Conto"), "0001");
  Scrivi("CFP", "P");
  Scrivi("Conto", "0002");
  EXPECT_EQ(Testo("CFP"), "P");
  Metti(Tessarc(), "Movimenti", "Anno", 2024, "NumDoc", 90, "Causale", "020", "CFP", "C");
  Scrivi("Causale", "020");
  Scrivi("Conto", "0002");
  EXPECT_EQ(Testo("CFP"), "C");
  EXPECT_EQ(Testo("ContoDescrizione"), "Clienti 0002 dell'Oro");
  Scrivi("CFP", "P");
  // The list leaves the causals of the VAT registrations out; typed, they exist.
  Scrivi("Causale", "APE");
  EXPECT_FALSE(Testo("CausaleDescrizione").isEmpty());
}

TEST_F(MovimentiTest, LaDataAvvisaQuandoCiSiPassa) {
  Clic("Nuovo");
  Scrivi("Dt", "31/12/2023");
  EXPECT_NE(SoloMessaggio().find("anno diverso da 2024"), std::string::npos);
  EXPECT_FALSE(Testo("AvvisoData").isEmpty());
  Campo("Dt")->setFocus();
  Tasto(Qt::Key_Tab);
  EXPECT_TRUE(Messaggi().empty());
  Scrivi("Dt", "31/12/2023");
  EXPECT_EQ(Messaggi().size(), 1u);
  Clic("Conferma");
  ApriNumero(1);
  Messaggi();
  // A stored date warns the first time that the user passes through it.
  for (const std::size_t attesi : {1u, 0u}) {
    Campo("Dt")->setFocus();
    Tasto(Qt::Key_Return);
    EXPECT_EQ(Messaggi().size(), attesi);
  }
}

TEST_F(MovimentiTest, DueStazioniSullaStessaRegistrazione) {
  const auto numero = Semplice();
  ApriNumero(numero);
  const auto altra = NuovaStazione("BANCO");
  {
    const auto altraPrincipale = Principale(*altra->ambiente);
    auto* seconda = altraPrincipale->ApriFunzione(QStringLiteral("Movimenti"));
    seconda->ApriRecord(AlNumero("Movimenti", numero));
    ASSERT_EQ(altra->dialoghi.messaggi.size(), 1u);
    EXPECT_NE(altra->dialoghi.messaggi[0].find("UFFICIO"), std::string::npos);
    for (const char* nome : {"Dt", "NumDoc", "Conferma", "Elimina", "PNuovaRiga",
                             "ContropAutomatiche", "AggiungiAllegato"}) {
      EXPECT_FALSE(seconda->findChild<QWidget*>(QString::fromLatin1(nome))->isEnabled()) << nome;
    }
    EXPECT_TRUE(seconda->findChild<QWidget*>(QStringLiteral("AvvisoSolaLettura"))->isVisible());
    EXPECT_FALSE(seconda->InModifica());
    // Given up here, it can be changed there.
    principale->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(principale.get()));
    Clic("Annulla");
    seconda->ApriRecord(AlNumero("Movimenti", numero));
    EXPECT_TRUE(seconda->findChild<QWidget*>(QStringLiteral("Conferma"))->isEnabled());
  }
  EXPECT_EQ(altra->dialoghi.messaggi.size(), 1u);
}

TEST_F(MovimentiTest, IlSelettoreMostraEInvioApre) {
  const auto numero = Semplice();
  finestra->Aggiorna();
  Scrivi("Rt1", std::to_string(numero).c_str());
  EXPECT_TRUE(Testo("Rt1Descrizione").startsWith(QStringLiteral("15/03/2024")));
  EXPECT_EQ(Pagina(), 0);
  Digita("Rt1", "77");
  EXPECT_TRUE(Testo("Rt1Descrizione").contains(QStringLiteral("non c'è")));
  Tasto(Qt::Key_Return);
  EXPECT_EQ(Pagina(), 0);
  EXPECT_EQ(Foco(), "Rt1");
  EXPECT_TRUE(Messaggi().empty());
  DoppioClic("ElencoArticoli", 0);
  EXPECT_EQ(Pagina(), 1);
  EXPECT_EQ(Testo("NumDoc"), QString::number(numero));
  // A click on a row opens it, and another one is refused meanwhile.
  DoppioClic("GrigliaRighe", 1);
  EXPECT_EQ(Testo("L_nuova_vecchiariga"), "riga esistente");
  EXPECT_EQ(Foco(), "ConfermaRiga");
  DoppioClic("GrigliaRighe", 0);
  EXPECT_EQ(Testo("Posi"), "200");
  EXPECT_TRUE(Messaggi().empty());
}

TEST_F(MovimentiTest, LElencoSiLeggeAPagineESiCerca) {
  constexpr int kQuante = 450;
  {
    Transazione transazione(ambiente.Basi());
    for (int n = 1; n <= kQuante; ++n) {
      const bool affitto = n % 100 == 0;
      Metti(Tessarc(), "Articoli", "Anno", 2024, "NumDoc", n, "Dt", G(1 + n % 28, 1, 2024), "CFP",
            "P", "Conto", affitto ? "550.001" : "100.010", "CfpA", "P", "ContoA", "110.001");
    }
    transazione.Conferma();
  }
  finestra->Aggiorna();
  EXPECT_EQ(Righe("ElencoArticoli"), 200);
  EXPECT_EQ(Cella("ElencoArticoli", 0, "Numero"), "450");
  auto* elenco = Campo<QTableView>("ElencoArticoli");
  for (int i = 0; i < 3; ++i) {
    elenco->verticalScrollBar()->setValue(elenco->verticalScrollBar()->maximum());
    QTest::qWait(0);
  }
  EXPECT_EQ(Righe("ElencoArticoli"), kQuante);
  EXPECT_EQ(Cella("ElencoArticoli", kQuante - 1, "Numero"), "1");

  struct Caso {
    const char* cercato;
    int righe;
    const char* prima;
  };
  for (const auto& [cercato, righe, prima] : {Caso{"550.001", 4, "400"},
                                              {"affitti", 4, "400"},
                                              {"77", 1, "77"},
                                              {"5/1", 16, "424"},
                                              {"110.0", 450, "450"},
                                              {"nessuno così", 0, ""},
                                              {"", 200, "450"}}) {
    Campo<QLineEdit>("CercaArticoli")->setText(QString::fromUtf8(cercato));
    QTRY_VERIFY(!Testo("StatoRicerca").startsWith(QStringLiteral("cerco")));
    EXPECT_EQ(Righe("ElencoArticoli"), righe) << cercato;
    if (righe > 0) {
      EXPECT_EQ(Cella("ElencoArticoli", 0, "Numero"), prima) << cercato;
    }
  }
}

TEST_F(MovimentiTest, LettereESpazio) {
  // In a main window of 1366 x 768 the window has this much, with the frame of a row open too.
  NuovaConRiga();
  const QSize minima = finestra->minimumSizeHint();
  EXPECT_LE(minima.width(), 1340);
  EXPECT_LE(minima.height(), 620);
  auto* schede = Campo<QTabWidget>("SSTab1");
  for (int i = 0; i < schede->count(); ++i) {
    QSet<QString> lettere;
    for (auto* pulsante : schede->widget(i)->findChildren<QAbstractButton*>()) {
      const QString lettera = pulsante->shortcut().toString();
      if (lettera.isEmpty()) {
        // Only what can't be used yet, and check boxes, may go without.
        EXPECT_TRUE(!pulsante->isEnabled() || pulsante->isCheckable() ||
                    pulsante->objectName().isEmpty())
            << pulsante->objectName().toStdString();
        continue;
      }
      EXPECT_FALSE(lettere.contains(lettera)) << lettera.toStdString();
      lettere << lettera;
    }
  }
}

}  // namespace fenalto::prova
