// The window of payment codes: an open row is neither lost nor saved.
#include <QTabWidget>

#include "screens/FinestraProva.h"

namespace fenalto::prova {

class CodiciPagamentoFinestra : public FinestraProva {
 protected:
  void SetUp() override { Apri(QStringLiteral("CodiciPagamento")); }
  void Pagina(int indice) { Campo<QTabWidget>("SSTab2")->setCurrentIndex(indice); }
};

TEST_F(CodiciPagamentoFinestra, AnOpenRowIsNotLost) {
  Clic("Nuovo");
  Scrivi("Cod", "X");
  Pagina(1);
  Clic("PNuovaRiga");
  Pagina(0);
  Clic("Conferma");
  EXPECT_EQ(SoloMessaggio(), "la nuova rata non è stata confermata: confermarla o abbandonarla");
  EXPECT_EQ(Campo<QTabWidget>("SSTab2")->currentIndex(), 1);
  Tasto(Qt::Key_Escape);
  EXPECT_FALSE(Campo("FrameRiga")->isVisible());
  EXPECT_TRUE(finestra->InModifica());
}

}  // namespace fenalto::prova
