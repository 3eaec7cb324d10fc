// The window of payment codes: rates typed, refused and tried.
#include <QTabWidget>

#include "duedates/codes/Rate.h"
#include "screens/FinestraProva.h"

namespace fenalto::prova {

class CodiciPagamentoFinestra : public FinestraProva {
 protected:
  void SetUp() override { Apri(QStringLiteral("CodiciPagamento")); }
  void Pagina(int indice) { Campo<QTabWidget>("SSTab2")->setCurrentIndex(indice); }
  void NuovaRata(const char* percento) {
    Clic("PNuovaRiga");
    EXPECT_EQ(Foco(), "PercImporto");
    Scrivi("PercImporto", percento);
    Clic("ConfermaRiga");
  }
};

TEST_F(CodiciPagamentoFinestra, RatesAreTypedTriedAndSaved) {
  Clic("Nuovo");
  Scrivi("Cod", "DUE");
  Pagina(1);
  NuovaRata("0");
  EXPECT_EQ(SoloMessaggio(), "non si puù impostare una percentuale=0");
  EXPECT_EQ(Foco(), "PercImporto");
  Scrivi("PercImporto", "50");
  Campo("FineMese")->setFocus();
  Tasto(Qt::Key_Space);
  Clic("ConfermaRiga");
  ASSERT_EQ(Righe("GrigliaRighe"), 1);
  EXPECT_EQ(Cella("GrigliaRighe", 0, "Scadenza"), "50% 30GG FINE MESE");
  NuovaRata("50");
  ASSERT_EQ(Righe("GrigliaRighe"), 2);
  EXPECT_TRUE(finestra->InModifica());

  Pagina(2);
  Scrivi("DtProva", "31/1/24");
  Scrivi("ImportoProva", "100,01");
  Clic("Prova");
  ASSERT_EQ(Righe("GrigliaProva"), 2);
  EXPECT_EQ(Cella("GrigliaProva", 0, "Scadenza"), "28/02/2024");
  EXPECT_EQ(Cella("GrigliaProva", 1, "Importo"), "50,01");
  EXPECT_TRUE(Cella("GrigliaProva", 0, "Nota").contains(QStringLiteral("29 giorni")));
  EXPECT_EQ(Cella("GrigliaProva", 1, "Nota"), "");

  Pagina(0);
  Clic("Conferma");
  EXPECT_EQ(SoloMessaggio(), "manca descrizione");
  Clic("CreaDescrizione");
  Clic("Conferma");
  EXPECT_TRUE(Messaggi().empty());
  const auto codice = duedates::LeggiCodicePagamento(ambiente, "DUE");
  ASSERT_TRUE(codice);
  EXPECT_EQ(codice->descrizione, "50% 30GG FM, 50% 60GG FM");
  EXPECT_EQ(codice->rate.size(), 2U);
  EXPECT_FALSE(finestra->InModifica());
}

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
