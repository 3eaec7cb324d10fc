// What only the window of the VAT registrations does: keys, focus, frames by type, what refusals
// lead back to, the pile of paper. The rules are tried where they are, in the VAT room.
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

#include "screens/FinestraProva.h"

namespace fenalto::prova {

class FinestraFattureTest : public FinestraProva {
 protected:
  FinestraFattureTest() {
    Metti(Tessarc(), "Fornitori", "Cod", "9001", "ragsoc1", "Carta & Penna snc", "Conto", "400.001",
          "CodIva", "22", "ContropFatture", "500.005");
    Tessarc().Inserisci("Fornitori", {{"Cod", "9000"}, {"ragsoc1", "Senza conto"}});
  }
  void Config(const char* chiave) { ambiente.ScriviImpostazione({}, "config", chiave, "SI"); }
  void ApriSu(const char* registro) {
    Apri(QStringLiteral("Fatture"));
    Scrivi("RivaX", registro);
  }
  void NuovaSu(const char* registro) {
    ApriSu(registro);
    Clic("Nuovo");
    ASSERT_EQ(Pagina(), 1);
  }
  void RigaDi(const char* imponibile) {
    Clic("PNuovaRiga");
    Scrivi("Imponibile", imponibile);
    Clic("ConfermaRiga");
  }
  /// A purchase of two rows, with keys and buttons.
  void Acquisto(const char* numero) {
    Clic("Nuovo");
    Scrivi("Contox", "9001");
    Scrivi("NFat", numero);
    Scrivi("DtFat", "14/03/2024");
    RigaDi("100");
    RigaDi("50");
    Clic("Conferma");
  }
  bool Vede(const char* nome) { return Campo(nome)->isVisible(); }
  bool Usa(const char* nome) { return Campo(nome)->isVisible() && Campo(nome)->isEnabled(); }
};

TEST_F(FinestraFattureTest, UnaPilaDiFattureConISoliTasti) {
  ApriSu("3");
  Tasto(Qt::Key_Insert);
  ASSERT_EQ(Foco(), "Dt");
  QStringList visti;
  for (int i = 0; i < 7; ++i) {
    visti << Foco();
    Tasto(Qt::Key_Return);
  }
  EXPECT_EQ(visti.join(QLatin1Char(' ')).toStdString(),
            "Dt Contox NFat DtFat Pagamento Descrizionex TotaleXVerifica");
  Campo("Contox")->setFocus();
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("9001"));
  Tasto(Qt::Key_Return);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("17"));
  Tasto(Qt::Key_Return);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("12"));
  Tasto(Qt::Key_Insert);
  // The supplier has account and code: only the amount is left to type.
  ASSERT_EQ(Foco(), "Imponibile");
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("100"));
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Foco(), "PNuovaRiga");
  EXPECT_EQ(Testo("TotFat"), "122,00");
  EXPECT_EQ(Righe("GrigliaContabile"), 3);
  Messaggi();
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_THAT(Messaggi().front(), ::testing::HasSubstr("N.Prot.IVA 1 - Articolo Contabile1"));
  // Ready for the next sheet, on the same register.
  EXPECT_EQ(Pagina(), 0);
  EXPECT_EQ(Foco(), "Nuovo");
  EXPECT_EQ(Testo("RivaX"), "3");
  EXPECT_EQ(Righe("ElencoFatture"), 1);
}

TEST_F(FinestraFattureTest, EscLasciaRigaRegistrazioneFinestra) {
  NuovaSu("3");
  Scrivi("Contox", "9001");
  Clic("PNuovaRiga");
  Digita("Imponibile", "abc");
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  Tasto(Qt::Key_Escape);
  EXPECT_FALSE(Vede("FrameRiga"));
  EXPECT_EQ(Foco(), "PNuovaRiga");
  dialoghi.Rispondera("modifiche non confermate", Risposta::No);
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Pagina(), 1);
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Pagina(), 0);
  EXPECT_EQ(Foco(), "Nuovo");
  EXPECT_FALSE(finestra->InModifica());
}

TEST_F(FinestraFattureTest, IRifiutiRiportanoAlCampo) {
  NuovaSu("3");
  Clic("Conferma");
  EXPECT_EQ(SoloMessaggio(), "manca codice cliente/fornitore iva");
  EXPECT_EQ(Foco(), "Contox");
  Scrivi("Contox", "9000");
  Clic("Conferma");
  EXPECT_EQ(Foco(), "PNuovaRiga");
  Clic("PNuovaRiga");
  Clic("ConfermaRiga");
  EXPECT_EQ(Foco(), "CodIva");
  Scrivi("CodIva", "22");
  Clic("ConfermaRiga");
  EXPECT_EQ(Foco(), "Conto");
  Scrivi("Conto", "500.005");
  Scrivi("Imponibile", "10");
  Scrivi("Iva", "9");
  dialoghi.Rispondera("importo IVA errato", Risposta::No);
  Clic("ConfermaRiga");
  EXPECT_EQ(Foco(), "Iva");
  // Another row isn't opened over one that was changed.
  Scrivi("Iva", "2,20");
  Clic("ConfermaRiga");
  Clic("PNuovaRiga");
  Scrivi("Imponibile", "5");
  Messaggi();
  Campo<QTableView>("GrigliaRighe")
      ->clicked(Campo<QTableView>("GrigliaRighe")->model()->index(0, 0));
  EXPECT_EQ(SoloMessaggio(), "confermare o annullare prima la riga");
  EXPECT_EQ(Testo("Posi"), "2");
}

TEST_F(FinestraFattureTest, RiquadriDelTipoDiRegistro) {
  Config("RegAutoIntraCee");
  Config("RegAutoBolleDoganali");
  Config("RITENUTAACCONTO");
  const struct {
    const char *registro, *parte;
    bool intra, bolla, ritenute, riprotocollo;
  } casi[] = {{"1", "Cliente", false, false, true, false},
              {"3", "Fornitore", false, true, true, true},
              {"4", "Fornitore", true, false, false, false},
              {"2", "Conto cassa", false, false, false, true}};
  Apri(QStringLiteral("Fatture"));
  for (const auto& caso : casi) {
    SCOPED_TRACE(caso.registro);
    Scrivi("RivaX", caso.registro);
    EXPECT_EQ(Vede("FrameRiprotocollo"), caso.riprotocollo);
    Clic("Nuovo");
    EXPECT_EQ(Testo("EtichettaParte"), caso.parte);
    EXPECT_EQ(Testo("EtichettaDtFat"),
              std::string(caso.registro) == "2" ? "data corrispettivi" : "del");
    EXPECT_EQ(Vede("FrameIntra"), caso.intra);
    EXPECT_EQ(Vede("FrameBollaDog"), caso.bolla);
    EXPECT_EQ(Vede("FrameRitAcc"), caso.ritenute);
    EXPECT_FALSE(Vede("DtIncasso"));
    Clic("Annulla");
  }
  Scrivi("RivaX", "3");
  Clic("Nuovo");
  EXPECT_FALSE(Usa("FornitoreBollaDog"));
  EXPECT_FALSE(Usa("ContoRitAcc1"));
  Clic("BollaDog");
  Clic("RitAcc");
  EXPECT_TRUE(Usa("FornitoreBollaDog"));
  EXPECT_TRUE(Usa("ContoRitAcc1"));
  Clic("Ep");
  EXPECT_TRUE(Vede("DtIncasso"));
}

TEST_F(FinestraFattureTest, SceltaDelRegistro) {
  Apri(QStringLiteral("Fatture"));
  EXPECT_EQ(Foco(), "RivaX");
  Clic("Nuovo");
  EXPECT_EQ(SoloMessaggio(), "inserire codice registro iva");
  EXPECT_EQ(Foco(), "RivaX");
  Scrivi("RivaX", "3");
  EXPECT_TRUE(
      finestra->windowTitle().endsWith(QStringLiteral("Fattura acquisti o nota credito su "
                                                      "acquisti")));
  // A register that doesn't exist keeps the focus, then leaves the one that was chosen.
  Scrivi("RivaX", "QQ");
  EXPECT_THAT(SoloMessaggio(), ::testing::HasSubstr("QQ non trovato"));
  EXPECT_EQ(Foco(), "RivaX");
  Tasto(Qt::Key_Tab);
  EXPECT_EQ(Testo("RivaX"), "3");
  EXPECT_TRUE(Messaggi().empty());
  // Picked from the list, without a letter typed.
  Campo("RivaX")->setFocus();
  Tasto(Qt::Key_F2);
  Tasto(Qt::Key_Tab);
  EXPECT_EQ(Testo("TitoloNuova"), "Fattura vendite o nota credito su vendite");
}

TEST_F(FinestraFattureTest, ControlloDelTotaleMentreSiScrive) {
  ApriSu("3");
  Clic("OptTotaleXVerifica");
  Clic("Nuovo");
  Scrivi("Contox", "9001");
  RigaDi("100");
  Digita("TotaleXVerifica", "12");
  EXPECT_EQ(Testo("DifferenzaVerifica"), "-110,00");
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("2"));
  EXPECT_EQ(Testo("DifferenzaVerifica"), "0,00");
  EXPECT_EQ(Foco(), "TotaleXVerifica");
}

TEST_F(FinestraFattureTest, SolaLettura) {
  ApriSu("3");
  Acquisto("17");
  Tessarc().Inserisci("UltimaDataLibro", {{"dt", G(31, 3, 2024)}});
  Messaggi();
  finestra->ApriRecord({.codice = "1"});
  EXPECT_THAT(SoloMessaggio(), ::testing::HasSubstr("stampata su libro giornale"));
  EXPECT_TRUE(Vede("AvvisoSolaLettura"));
  for (const char* nome :
       {"Dt", "Contox", "NFat", "Ep", "TotaleXVerifica", "PNuovaRiga", "Conferma", "Elimina"}) {
    EXPECT_FALSE(Campo(nome)->isEnabled()) << nome;
  }
  DoppioClic("GrigliaRighe", 0);
  EXPECT_TRUE(Vede("FrameRiga"));
  EXPECT_FALSE(Usa("Imponibile"));
  EXPECT_FALSE(Usa("ConfermaRiga"));
  Tasto(Qt::Key_Escape);
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Pagina(), 0);
}

TEST_F(FinestraFattureTest, ElencoCercatoEOrdinato) {
  ApriSu("3");
  for (const char* numero : {"17", "B5"}) Acquisto(numero);
  EXPECT_EQ(Cella("ElencoFatture", 0, "Articolo"), "2");
  auto* testata = Campo<QTableView>("ElencoFatture")->horizontalHeader();
  QTest::mouseClick(testata->viewport(), Qt::LeftButton, {},
                    QPoint(testata->sectionViewportPosition(1) + 5, 5));
  const bool primo = Cella("ElencoFatture", 0, "Articolo") == QLatin1String("1");
  QTest::mouseClick(testata->viewport(), Qt::LeftButton, {},
                    QPoint(testata->sectionViewportPosition(1) + 5, 5));
  EXPECT_NE(Cella("ElencoFatture", 0, "Articolo") == QLatin1String("1"), primo);
  const struct {
    const char* cercato;
    int trovate;
  } casi[] = {{"17", 1}, {"b5", 1}, {"2", 1}, {"15/3", 2}, {"zzz", 0}, {"", 2}};
  for (const auto& caso : casi) {
    Digita("CercaFatture", caso.cercato);
    if (*caso.cercato == 0) Tasto(Qt::Key_Delete);
    QTest::qWait(1);
    EXPECT_EQ(Righe("ElencoFatture"), caso.trovate) << caso.cercato;
  }
}

}  // namespace fenalto::prova
