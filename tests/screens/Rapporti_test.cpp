// Reports and spreadsheets in the main window: a grid exported, a text of a preview that leads to
// its registration, previews that go with their session.
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QTimer>

#include "core/reports/Stampa.h"
#include "print/FinestraAnteprima.h"
#include "print/VistaPagina.h"
#include "screens/FinestraProva.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::prova {

class RapportiTest : public FinestraProva {
 protected:
  /// A report of one line with a link, on the screen.
  QPointer<print::FinestraAnteprima> Anteprima(const Rinvio& rinvio) {
    dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Anteprima, {}});
    reports::Stampa stampa(ambiente, principale->Uscite());
    EXPECT_TRUE(stampa.Inizio("Giornale"));
    stampa.Riga("riga con un rinvio", rinvio);
    EXPECT_TRUE(stampa.Fine());
    return principale->findChild<print::FinestraAnteprima*>();
  }
  static void DoppioClicSu(print::FinestraAnteprima& anteprima) {
    QTest::mouseDClick(anteprima.Vista().viewport(), Qt::LeftButton, Qt::NoModifier,
                       anteprima.Vista().SulVetro(QPointF(900, 600)).toPoint());
    QTest::qWait(0);
  }
};

TEST_F(RapportiTest, GrigliaEsportataConITipi) {
  const auto primo = Registra({{"100.010", I("1234.5")}, {"110.001", I("-1234.5")}});
  Registra({{"100.010", I("7")}, {"110.001", I("-7")}}, G(16, 3, 2024));
  Apri(QStringLiteral("Movimenti"));
  Digita("Rt1", std::to_string(primo).c_str());
  Tasto(Qt::Key_Return);
  auto* griglia = Campo<screens::Griglia>("GrigliaRighe");
  const auto file = cartella / "righe.csv";
  dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Csv, file});
  // Through the menu, as a person does.
  QTimer::singleShot(0, [] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (auto* azione : menu->actions()) {
      if (azione->text().contains(QStringLiteral("sporta"))) {
        menu->setActiveAction(azione);
        QTest::keyClick(menu, Qt::Key_Return);
        return;
      }
    }
    menu->close();
    ADD_FAILURE() << "manca la voce Esporta";
  });
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(5, 5),
                         griglia->mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(griglia, &menu);
  const std::string testo = LeggiFile(file);
  EXPECT_NE(testo.find("anno 2024;ditta Prova;data stampa 15/03/2024"), std::string::npos) << testo;
  EXPECT_NE(testo.find(finestra->windowTitle().toStdString()), std::string::npos);
  EXPECT_NE(testo.find("1234,50"), std::string::npos) << testo;

  // A file that can't be written is told.
  dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Xlsx, cartella / "manca" / "a.xlsx"});
  finestra->Esporta(*griglia);
  EXPECT_TRUE(dialoghi.HaDetto("a.xlsx"));
  // Given up: nothing is said.
  const auto detti = dialoghi.messaggi.size();
  dialoghi.ScegliaUscita(std::nullopt);
  finestra->Esporta(*griglia);
  EXPECT_EQ(dialoghi.messaggi.size(), detti);
}

TEST_F(RapportiTest, EsportaAncheLeRigheNonAncoraLette) {
  Apri(QStringLiteral("Movimenti"));
  screens::Griglia griglia(QStringLiteral("Prova"), QStringLiteral("Prova"),
                           {{QStringLiteral("N."), Tipo::Intero},
                            {QStringLiteral("Nascosta"), Tipo::Testo},
                            {QStringLiteral("Importo"), Tipo::Importo}});
  griglia.setColumnHidden(1, true);
  griglia.Modello().Pagine([](int da) {
    std::vector<std::vector<Valore>> righe;
    for (int i = da; i < std::min(da + 100, 250); ++i)
      righe.push_back({i + 1, "no", I("0.5"), "oltre"});
    return righe;
  });
  const auto file = cartella / "tutte.csv";
  dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Csv, file});
  finestra->Esporta(griglia);
  const std::string testo = LeggiFile(file);
  EXPECT_NE(testo.find("N.;Importo\r\n1;0,50\r\n"), std::string::npos) << testo.substr(0, 300);
  EXPECT_NE(testo.find("\r\n250;0,50\r\n"), std::string::npos);
  // Given up while reading: no file.
  griglia.Modello().Pagine([](int da) {
    return std::vector<std::vector<Valore>>(static_cast<std::size_t>(da < 200 ? 100 : 0),
                                            {1, "", I("1")});
  });
  dialoghi.annullaDopo = 1;
  dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Csv, cartella / "no.csv"});
  finestra->Esporta(griglia);
  EXPECT_FALSE(std::filesystem::exists(cartella / "no.csv"));
}

TEST_F(RapportiTest, RinvioAllaRegistrazione) {
  const auto numero = Registra({{"100.010", I("50")}, {"110.001", I("-50")}});
  const auto anteprima = Anteprima(AllaRegistrazione(2024, numero));
  ASSERT_FALSE(anteprima.isNull());
  dialoghi.Rispondera("Vedere la registrazione contabile ?", Risposta::Si);
  DoppioClicSu(*anteprima);
  finestra = principale->Aperta(QStringLiteral("Movimenti"));
  ASSERT_NE(finestra, nullptr);
  EXPECT_EQ(Testo("Rt1").toStdString(), std::to_string(numero));
  EXPECT_EQ(Pagina(), 1);
  EXPECT_EQ(Righe("GrigliaRighe"), 2);
  principale->ChiudiTutto();

  dialoghi.Rispondera("Vedere la registrazione contabile ?", Risposta::No);
  DoppioClicSu(*anteprima);
  EXPECT_EQ(principale->Aperta(QStringLiteral("Movimenti")), nullptr);
}

TEST_F(RapportiTest, RinvioAiMovimentiDelConto) {
  Registra({{"100.010", I("50")}, {"110.001", I("-50")}});
  const auto anteprima = Anteprima(AlConto("P", "110.001"));
  ASSERT_FALSE(anteprima.isNull());
  DoppioClicSu(*anteprima);
  finestra = principale->Aperta(QStringLiteral("MovimentiConto"));
  ASSERT_NE(finestra, nullptr);
  EXPECT_EQ(Testo("Rt1").toStdString(), "110.001");
  ASSERT_EQ(Righe("GrigliaMovimenti"), 1);
  EXPECT_TRUE(Testo("Totali").endsWith(QStringLiteral("saldo -50,00")));
  // Another account in the window that is open already.
  finestra->ApriRecord(AlConto("P", "100.010"));
  EXPECT_TRUE(Testo("Totali").endsWith(QStringLiteral("saldo 50,00")));
}

TEST_F(RapportiTest, LeAnteprimeSeNeVannoConLaFinestraPrincipale) {
  const auto anteprima = Anteprima({});
  ASSERT_FALSE(anteprima.isNull());
  principale->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(anteprima.isNull());
}

}  // namespace fenalto::prova
