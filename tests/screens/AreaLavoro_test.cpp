// The workspace: a tab for each window, windows set free, and what is remembered of them.
#include "screens/main/AreaLavoro.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QTabBar>

#include "screens/FinestraProva.h"

namespace fenalto::prova {

class AreaLavoroTest : public FinestraProva {
 protected:
  QTabBar& Linguette() { return *principale->findChild<QTabBar*>(QStringLiteral("Linguette")); }
  QStringList Titoli() {
    QStringList titoli;
    for (int i = 0; i < Linguette().count(); ++i) titoli << Linguette().tabText(i);
    return titoli;
  }
  /// Presses the cross of a tab.
  void ChiudiLinguetta(int indice) {
    auto* croce = Linguette().tabButton(indice, QTabBar::RightSide);
    ASSERT_NE(croce, nullptr);
    QTest::mouseClick(croce, Qt::LeftButton);
    QTest::qWait(0);
  }
  QRect Area() { return principale->Area().viewport()->rect(); }
};

TEST_F(AreaLavoroTest, UnaLinguettaPerFinestraCheRiempieLArea) {
  Apri(QStringLiteral("Movimenti"));
  EXPECT_EQ(finestra->Cornice()->geometry(), Area());
  Apri(QStringLiteral("Fatture"));
  EXPECT_EQ(finestra->Cornice()->geometry(), Area());
  EXPECT_EQ(Linguette().count(), 2);
  EXPECT_EQ(Linguette().currentIndex(), 1);
  EXPECT_EQ(Linguette().tabToolTip(1), finestra->windowTitle());
  // The menu bar shows menus and nothing of the windows.
  EXPECT_EQ(principale->windowTitle(), QStringLiteral("Fenalto - Prova"));
  principale->resize(1100, 720);
  QTest::qWait(0);
  for (auto* aperta : principale->FinestreAperte())
    EXPECT_EQ(aperta->Cornice()->geometry(), Area());
  // A tab brings its window to the front, with the focus where it was.
  Linguette().setCurrentIndex(0);
  QTest::qWait(0);
  EXPECT_EQ(principale->FinestreAperte().last()->Nome(), QStringLiteral("Movimenti"));
  EXPECT_TRUE(principale->FinestreAperte().last()->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(AreaLavoroTest, LaCroceChiudeComeLaFinestra) {
  Apri(QStringLiteral("Movimenti"));
  Clic("Nuovo");
  Scrivi("Dt", "0103");
  dialoghi.Rispondera("Ci sono modifiche non confermate", Risposta::No);
  ChiudiLinguetta(0);
  EXPECT_EQ(Linguette().count(), 1);
  EXPECT_NE(principale->Aperta(QStringLiteral("Movimenti")), nullptr);
  dialoghi.Rispondera("Ci sono modifiche non confermate", Risposta::Si);
  ChiudiLinguetta(0);
  EXPECT_EQ(Linguette().count(), 0);
  EXPECT_FALSE(Linguette().isVisible());
  EXPECT_TRUE(principale->FinestreAperte().isEmpty());
}

TEST_F(AreaLavoroTest, CtrlF6PassaFraLeFinestre) {
  for (const char* nome : {"Movimenti", "Fatture", "Clienti"}) Apri(QString::fromLatin1(nome));
  const auto davanti = [this] { return principale->FinestreAperte().last()->Nome(); };
  Tasto(Qt::Key_F6, Qt::ControlModifier);
  EXPECT_EQ(davanti(), QStringLiteral("Movimenti"));
  Tasto(Qt::Key_F6, Qt::ControlModifier);
  EXPECT_EQ(davanti(), QStringLiteral("Fatture"));
  Tasto(Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(davanti(), QStringLiteral("Movimenti"));
  EXPECT_EQ(Linguette().currentIndex(), 0);
}

TEST_F(AreaLavoroTest, UnaFinestraLiberaSiRicorda) {
  Apri(QStringLiteral("Movimenti"));
  Apri(QStringLiteral("Fatture"));
  auto& area = principale->Area();
  area.Libera(*finestra, true);
  QTest::qWait(0);
  const QRect posto(40, 30, 700, 500);
  finestra->Cornice()->setGeometry(posto);
  EXPECT_EQ(Linguette().count(), 2);
  finestra->Cornice()->close();
  QTest::qWait(0);
  Apri(QStringLiteral("Fatture"));
  EXPECT_TRUE(area.Libera(*finestra));
  EXPECT_EQ(finestra->Cornice()->geometry(), posto);
  EXPECT_FALSE(area.Libera(*principale->Aperta(QStringLiteral("Movimenti"))));
  // A place that is out of the area now is brought back into it.
  finestra->Cornice()->setGeometry(5000, -50, 5000, 580);
  finestra->Cornice()->close();
  QTest::qWait(0);
  Apri(QStringLiteral("Fatture"));
  EXPECT_TRUE(Area().contains(finestra->Cornice()->geometry()));
  // The button of its frame for the full size puts it back.
  finestra->Cornice()->showMaximized();
  QTest::qWait(0);
  EXPECT_FALSE(area.Libera(*finestra));
  EXPECT_EQ(finestra->Cornice()->geometry(), Area());
}

TEST_F(AreaLavoroTest, DovePocoSpazioScorreENonSchiaccia) {
  Apri(QStringLiteral("Fatture"));
  principale->Area().Libera(*finestra, true);
  finestra->Cornice()->setGeometry(0, 0, 500, 300);
  QTest::qWait(0);
  EXPECT_GE(finestra->width(), finestra->minimumSizeHint().width());
  EXPECT_GE(finestra->height(), finestra->minimumSizeHint().height());
  auto* scorre = finestra->Cornice()->findChild<QScrollArea*>();
  ASSERT_TRUE(scorre->verticalScrollBar()->isVisible());
  // What gets the focus comes into view.
  scorre->verticalScrollBar()->setValue(scorre->verticalScrollBar()->maximum());
  Campo("Rt1")->setFocus();
  QTest::qWait(0);
  const QPoint punto = Campo("Rt1")->mapTo(scorre->viewport(), QPoint(1, 1));
  EXPECT_TRUE(scorre->viewport()->rect().contains(punto)) << punto.x() << " " << punto.y();
}

TEST_F(AreaLavoroTest, LaFinestraPrincipaleStaNelloSchermo) {
  principale->setGeometry(-3000, -2000, 9000, 7000);
  principale->close();
  principale = Principale(ambiente, QSize());
  // The frame around it is known only once a desktop has put it there.
  const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
  EXPECT_TRUE(schermo.contains(QRect(principale->pos(), principale->size())))
      << principale->width() << "x" << principale->height();
}

}  // namespace fenalto::prova
