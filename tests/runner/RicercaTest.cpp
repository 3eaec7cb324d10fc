#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <array>

#include "runner/Banco.h"
#include "runner/Ricerca.h"

namespace fenalto::copione {
namespace {

/// A window with the tabs `SSTab1` of three pages, in the last of them the tabs `SSTab2` of two.
class RicercaTest : public Banco {
 protected:
  void SetUp() override {
    Banco::SetUp();
    if (HasFatalFailure()) return;
    auto* colonna = new QVBoxLayout(finestra);
    fuori = Aggiungi(colonna, "Fuori");
    esterne = new QTabWidget;
    esterne->setObjectName(QStringLiteral("SSTab1"));
    colonna->addWidget(esterne);
    for (auto& pagina : pagine) pagina = NuovaPagina(esterne);
    interne = new QTabWidget;
    interne->setObjectName(QStringLiteral("SSTab2"));
    pagine[2]->addWidget(interne);
    for (auto& pagina : dentro) pagina = NuovaPagina(interne);
  }

  static QVBoxLayout* NuovaPagina(QTabWidget* schede) {
    auto* pagina = new QWidget;
    auto* colonna = new QVBoxLayout(pagina);
    schede->addTab(pagina, QStringLiteral("p"));
    return colonna;
  }
  static QLineEdit* Aggiungi(QVBoxLayout* colonna, const char* nome, const char* testo = "") {
    auto* campo = new QLineEdit(QString::fromUtf8(testo));
    campo->setObjectName(QString::fromLatin1(nome));
    colonna->addWidget(campo);
    return campo;
  }

  QLineEdit* fuori = nullptr;
  QTabWidget* esterne = nullptr;
  QTabWidget* interne = nullptr;
  std::array<QVBoxLayout*, 3> pagine{};
  std::array<QVBoxLayout*, 2> dentro{};
};

TEST_F(RicercaTest, GiraFinoAllaPaginaPiuInterna) {
  Aggiungi(dentro[1], "Fondo", "giù");
  Mostra();
  EXPECT_EQ(Corri("visibile fondo\nvale FONDO giù\nattivo Fondo"), "");
  EXPECT_EQ(esterne->currentIndex(), 0);
  EXPECT_EQ(Corri("scrivi Fondo su\nvale Fondo su"), "");
  EXPECT_EQ(esterne->currentIndex(), 2);
  EXPECT_EQ(interne->currentIndex(), 1);
}

TEST_F(RicercaTest, QuellaCheSiVedePrimaDelleAltre) {
  Aggiungi(pagine[0], "Campo", "zero");
  Aggiungi(pagine[1], "Campo", "uno");
  Mostra();
  EXPECT_EQ(Corri("vale Campo zero\npagina SSTab1 1\nvale Campo uno"), "");
  EXPECT_NE(Corri("pagina SSTab1 2\nvale Campo zero").find("ambiguous"), std::string::npos);
}

TEST_F(RicercaTest, PaginaChiusaNonSiGira) {
  Aggiungi(pagine[1], "Campo", "x");
  esterne->setTabEnabled(1, false);
  Mostra();
  EXPECT_NE(Corri("vale Campo x").find("hidden"), std::string::npos);
  EXPECT_NE(Corri("pagina SSTab1 1").find("disabled"), std::string::npos);
  EXPECT_NE(Corri("pagina SSTab1 3").find("3 pages"), std::string::npos);
  EXPECT_EQ(esterne->currentIndex(), 0);
}

TEST_F(RicercaTest, UsoNegato) {
  Aggiungi(pagine[0], "Spento")->setEnabled(false);
  Aggiungi(pagine[0], "Lettura", "sì")->setReadOnly(true);
  Mostra();
  EXPECT_EQ(Corri("spento Spento\nspento Lettura\nattivo Fuori\nvale Lettura sì"), "");
  EXPECT_NE(Corri("scrivi Spento x").find("disabled"), std::string::npos);
  EXPECT_NE(Corri("scrivi Lettura x").find("read-only"), std::string::npos);
  EXPECT_NE(Corri("attivo Spento").find("disabled"), std::string::npos);
  EXPECT_NE(Corri("attivo Lettura").find("read-only"), std::string::npos);
  EXPECT_NE(Corri("spento Fuori").find("can be used"), std::string::npos);
}

TEST_F(RicercaTest, Coperto) {
  Mostra();
  auto* velo = new QFrame(finestra);
  velo->setObjectName(QStringLiteral("Velo"));
  velo->setGeometry(finestra->rect());
  velo->show();
  EXPECT_NE(Corri("scrivi Fuori x").find("covered by Velo"), std::string::npos);
  delete velo;
  EXPECT_EQ(Corri("scrivi Fuori x\nvale Fuori x"), "");
}

TEST_F(RicercaTest, DidascaliaAlPostoDelNome) {
  int premuto = 0;
  auto* pulsante = new QPushButton(QStringLiteral("Nuovo && &vecchio"));
  QObject::connect(pulsante, &QPushButton::clicked, finestra, [&] { ++premuto; });
  pagine[0]->addWidget(pulsante);
  Mostra();
  EXPECT_EQ(Corri("clic \"nuovo & vecchio\""), "");
  EXPECT_EQ(premuto, 1);
  EXPECT_NE(Corri("clic vecchio").find("no button"), std::string::npos);
}

}  // namespace
}  // namespace fenalto::copione
