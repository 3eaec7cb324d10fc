// Grids, lists and trees under real events.
#include <QHeaderView>
#include <QLineEdit>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "runner/Banco.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::copione {
namespace {

class ComandiElenchi : public Banco {
 protected:
  void SetUp() override {
    Banco::SetUp();
    if (HasFatalFailure()) return;
    new QVBoxLayout(finestra);
  }
  void Aggiungi(const char* nome, QWidget* controllo) {
    controllo->setObjectName(QString::fromLatin1(nome));
    finestra->layout()->addWidget(controllo);
  }
  QTableWidget* Griglia() {
    auto* griglia = new QTableWidget(40, 4);
    griglia->setHorizontalHeaderLabels({QStringLiteral("Num"), QStringLiteral("Nascosta"),
                                        QStringLiteral("Data Doc"), QStringLiteral("Si")});
    griglia->horizontalHeaderItem(2)->setData(screens::kRuoloChiave, QStringLiteral("Dt|DtDoc"));
    griglia->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int i = 0; i < 40; ++i) {
      griglia->setItem(i, 0, new QTableWidgetItem(QString::number(i + 1)));
      griglia->setItem(i, 1, new QTableWidgetItem(QStringLiteral("mai")));
      griglia->setItem(i, 2, new QTableWidgetItem(QStringLiteral(" d%1 ").arg(i + 1)));
      auto* spunta = new QTableWidgetItem;
      spunta->setCheckState(i % 2 == 0 ? Qt::Checked : Qt::Unchecked);
      griglia->setItem(i, 3, spunta);
    }
    griglia->setColumnHidden(1, true);
    griglia->setRowHidden(1, true);
    Aggiungi("Griglia", griglia);
    return griglia;
  }
};

TEST_F(ComandiElenchi, RigheECelleInVista) {
  Griglia();
  Mostra();
  EXPECT_EQ(Corri("righe Griglia 39\ncella Griglia 1 Num 1\ncella Griglia 2 num 3\n"
                  "cella griglia 39 2 d40\ncella Griglia 3 \"DATA DOC\" d4\n"
                  "cella Griglia 3 dt d4\ncella Griglia 3 DtDoc d4\ncella Griglia 1 Si si\ncella "
                  "Griglia 3 3 no"),
            "");
  EXPECT_EQ(Corri("righe Griglia 40"), "1: \"Griglia\" has 39 rows, not 40");
  EXPECT_EQ(Corri("cella Griglia 40 Num x"), "1: \"Griglia\" has 39 rows, no row 40");
  EXPECT_NE(Corri("cella Griglia 1 Nascosta mai").find("Num, Data Doc, Si"), std::string::npos);
  EXPECT_NE(Corri("cella Griglia 1 4 x").find("no column"), std::string::npos);
  EXPECT_EQ(Corri("cella Griglia 1 Num 2"),
            "1: \"Griglia\" row 1 column Num shows \"1\", not \"2\"");
}

TEST_F(ComandiElenchi, ClicSuUnaRigaLontana) {
  auto* griglia = Griglia();
  auto* campo = new QLineEdit;
  Aggiungi("Campo", campo);
  QStringList fatti;
  QObject::connect(campo, &QLineEdit::editingFinished, finestra,
                   [&] { fatti << QStringLiteral("lasciato"); });
  QObject::connect(griglia, &QTableWidget::clicked, finestra, [&](const QModelIndex& riga) {
    fatti << QStringLiteral("clic %1").arg(riga.row());
  });
  QObject::connect(griglia, &QTableWidget::doubleClicked, finestra, [&](const QModelIndex& riga) {
    fatti << QStringLiteral("doppio %1").arg(riga.row());
  });
  Mostra();
  EXPECT_EQ(Corri("digita Campo x\nriga Griglia 39\ndoppioclic Griglia 2\nvale Griglia 3"), "");
  EXPECT_EQ(fatti, (QStringList{QStringLiteral("lasciato"), QStringLiteral("clic 39"),
                                QStringLiteral("clic 2"), QStringLiteral("doppio 2")}));
  EXPECT_EQ(Corri("riga Griglia 40"), "1: \"Griglia\" has 39 rows, no row 40");
}

TEST_F(ComandiElenchi, Albero) {
  auto* albero = new QTreeWidget;
  albero->setHeaderLabels({QStringLiteral("Voce"), QStringLiteral("Saldo")});
  auto* ramo = new QTreeWidgetItem(albero, {QStringLiteral("Attivo"), QStringLiteral("10")});
  new QTreeWidgetItem(ramo, {QStringLiteral("Cassa"), QStringLiteral("4")});
  new QTreeWidgetItem(albero, {QStringLiteral("Passivo"), QStringLiteral("6")});
  Aggiungi("Albero", albero);
  Mostra();
  EXPECT_EQ(Corri("righe Albero 2\ncella Albero 2 Saldo 6\nscegli Albero Cassa\nrighe Albero 3\n"
                  "vale Albero Cassa\ncella Albero 2 saldo 4\nriga Albero 3\nvale Albero Passivo"),
            "");
  ramo->setHidden(true);
  EXPECT_EQ(Corri("righe Albero 1\ncella Albero 1 Voce Passivo"), "");
}

}  // namespace
}  // namespace fenalto::copione
