// The window of the archives of codes, on agents and on causals of the warehouse: choice, record,
// list, and what it lets nobody lose.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include "screens/FinestraProva.h"

namespace fenalto::prova {

class ArchivioTest : public FinestraProva {
 protected:
  void SetUp() override {
    for (const auto& [cod, descrizione, localita] :
         {std::tuple{"XA", "Alberti Aldo", "Torino"}, std::tuple{"XB", "Bassi Bice", "Asti"},
          std::tuple{"XC", "Però Corrado", "Torino"}, std::tuple{"XD*", "D'Este", "Roma"},
          std::tuple{"XO'", "Dell'Orto", "Asti"}}) {
      Metti(Tessarc(), "Agenti", "Cod", cod, "Descrizione", descrizione, "Localita", localita);
    }
    Apri(QStringLiteral("Agenti"));
  }
  void ApriCodice(const char* codice) {
    Digita("Rt1", codice);
    Tasto(Qt::Key_Return);
  }
  bool Aperto() { return Campo("SSTab2")->isEnabled(); }
  QString Scheda() { return Campo<QTabWidget>("SSTab2")->tabText(0); }
  std::string Descrizione(const char* codice) {
    return NzStr(ambiente.Cerca("tessarc", "Agenti", {{"Cod", codice}}, "Descrizione"));
  }
  /// Codes of the list, in its order.
  QString Codici() {
    QStringList codici;
    for (int riga = 0; riga < Righe("GrigliaArchivio"); ++riga)
      codici << Cella("GrigliaArchivio", riga, "Codice");
    return codici.join(QLatin1Char(' '));
  }
};

TEST_F(ArchivioTest, SiApreColCodiceOConLElenco) {
  EXPECT_EQ(Foco(), "Rt1");
  EXPECT_EQ(finestra->windowTitle(), "Archivio Agenti");
  ApriCodice("xb");
  ASSERT_TRUE(Aperto());
  EXPECT_EQ(Testo("Cod"), "XB");
  EXPECT_EQ(Foco(), "Descrizione");
  EXPECT_EQ(Scheda(), "agente XB");
  EXPECT_EQ(finestra->windowTitle(), "Archivio Agenti - agente XB");
  Tasto(Qt::Key_Escape);
  EXPECT_FALSE(Aperto());
  EXPECT_EQ(finestra->windowTitle(), "Archivio Agenti");
  EXPECT_EQ(Testo("Cod"), "");
  EXPECT_EQ(Testo("Rt1"), "");
  EXPECT_EQ(Foco(), "Rt1");

  // A code that isn't there opens nothing and says nothing; leaving the selector doesn't either.
  ApriCodice("XNO");
  EXPECT_FALSE(Aperto());
  EXPECT_EQ(Foco(), "Rt1");
  Scrivi("Rt1", "XA");
  EXPECT_FALSE(Aperto());
  EXPECT_EQ(Testo("Rt1Descrizione"), "Alberti Aldo");
  EXPECT_TRUE(Messaggi().empty());
  Clic("Apri");
  EXPECT_TRUE(Aperto());
  Clic("Annulla");

  DoppioClic("GrigliaArchivio", 2);
  EXPECT_EQ(Testo("Descrizione"), QStringLiteral("Però Corrado"));
  Tasto(Qt::Key_Escape);
  // Codes with letters that searches and statements give a meaning to.
  for (const char* codice : {"XD*", "XO'"}) {
    ApriCodice(codice);
    ASSERT_TRUE(Aperto()) << codice;
    EXPECT_EQ(Testo("Cod"), codice);
    Scrivi("Indirizzo", "via l'Aquila* 1");
    Clic("Conferma");
    EXPECT_EQ(ambiente.Cerca("tessarc", "Agenti", {{"Cod", codice}}, "Indirizzo").Testo(),
              "via l'Aquila* 1");
  }
}

TEST_F(ArchivioTest, NuovoSdoppiatoEliminato) {
  Tasto(Qt::Key_Insert);
  ASSERT_TRUE(Aperto());
  EXPECT_EQ(Scheda(), "nuovo agente");
  EXPECT_EQ(Foco(), "Cod");
  for (const char* nome : {"Elimina", "Sdoppia", "Precedente", "Successivo"})
    EXPECT_FALSE(Campo(nome)->isEnabled()) << nome;
  Clic("Conferma");
  EXPECT_EQ(SoloMessaggio(), "inserire un codice");
  EXPECT_EQ(Foco(), "Cod");
  Scrivi("Cod", "XE");
  Scrivi("Descrizione", "Erba");
  Scrivi("Provv", "7,5");
  auto* note = Campo<QPlainTextEdit>("Note");
  note->setFocus();
  QTest::keyClicks(note, QStringLiteral("prima"));
  Tasto(Qt::Key_Return);
  QTest::keyClicks(note, QStringLiteral("seconda"));
  Tasto(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(Aperto());
  EXPECT_EQ(Foco(), "Rt1");
  EXPECT_EQ(Codici(), "XA XB XC XD* XE XO'");
  EXPECT_EQ(ambiente.Cerca("tessarc", "Agenti", {{"Cod", "XE"}}, "Note").Testo(), "prima\nseconda");

  ApriCodice("XE");
  Clic("Sdoppia");
  EXPECT_EQ(Scheda(), "nuovo agente");
  EXPECT_EQ(Testo("Cod"), "");
  EXPECT_EQ(Testo("Provv"), "7,50");
  EXPECT_EQ(Foco(), "Cod");
  Scrivi("Cod", "XF");
  Clic("Conferma");
  EXPECT_EQ(Descrizione("XF"), "Erba");

  ApriCodice("XF");
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::No);
  Clic("Elimina");
  EXPECT_TRUE(Aperto());
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  Tasto(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_FALSE(Aperto());
  EXPECT_EQ(Codici(), "XA XB XC XD* XE XO'");
  EXPECT_EQ(Foco(), "Rt1");
}

TEST_F(ArchivioTest, DallUnoAllAltroNellElencoFiltrato) {
  Digita("FiltroLocalita", "tor");
  QTest::qWait(0);
  EXPECT_EQ(Codici(), "XA XC");
  DoppioClic("GrigliaArchivio", 0);
  Digita("Descrizione", "Altri");
  dialoghi.Rispondera("modifiche non confermate", Risposta::No);
  Clic("Successivo");
  EXPECT_EQ(Testo("Cod"), "XA");
  EXPECT_EQ(Testo("Descrizione"), "Altri");
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  Clic("Successivo");
  EXPECT_EQ(Testo("Cod"), "XC");
  EXPECT_EQ(Descrizione("XA"), "Alberti Aldo");
  // At the end nothing is asked, since nothing would be given up.
  Digita("Descrizione", "Altri");
  Clic("Successivo");
  EXPECT_EQ(Testo("Descrizione"), "Altri");
  EXPECT_NE(Testo("AvvisoRecord"), "");
  Clic("Conferma");
  EXPECT_EQ(Codici(), "XA XC");
  EXPECT_EQ(Testo("FiltroLocalita"), "tor");
  EXPECT_EQ(Cella("GrigliaArchivio", 1, "Descrizione"), "Altri");
  DoppioClic("GrigliaArchivio", 1);
  Tasto(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(Testo("Cod"), "XA");
}

TEST_F(ArchivioTest, CercaMentreSiScrive) {
  Digita("Cerca", "zz");
  QTest::qWait(0);
  EXPECT_EQ(Testo("StatoElenco"), "nessun codice con questo testo");
  // Esc empties the search before it closes the window; Enter opens the only one found.
  Campo("Cerca")->setFocus();
  Tasto(Qt::Key_Escape);
  EXPECT_EQ(Righe("GrigliaArchivio"), 5);
  Digita("Cerca", "bassi");
  Tasto(Qt::Key_Return);
  EXPECT_EQ(Testo("Cod"), "XB");
}

TEST_F(ArchivioTest, UnElencoLungoSiLeggeAPagineETornaAlPosto) {
  Transazione transazione(ambiente.Basi());
  for (int i = 0; i < 450; ++i)
    Tessarc().Inserisci("Agenti", {{"Cod", "Y" + std::to_string(1000 + i)}});
  transazione.Conferma();
  Tasto(Qt::Key_F5);
  EXPECT_EQ(Righe("GrigliaArchivio"), 200);
  EXPECT_EQ(Testo("StatoElenco"), "i primi 200 codici");
  auto* griglia = Campo<QAbstractItemView>("GrigliaArchivio");
  while (griglia->model()->canFetchMore({})) griglia->model()->fetchMore({});
  EXPECT_EQ(Righe("GrigliaArchivio"), 455);
  griglia->scrollTo(griglia->model()->index(400, 0));
  DoppioClic("GrigliaArchivio", 400);
  const QString codice = Testo("Cod");
  Scrivi("Descrizione", "trovato");
  Clic("Conferma");
  EXPECT_EQ(griglia->currentIndex().row(), 400);
  EXPECT_EQ(Cella("GrigliaArchivio", 400, "Codice"), codice);
  EXPECT_EQ(Cella("GrigliaArchivio", 400, "Descrizione"), "trovato");
  EXPECT_TRUE(
      griglia->viewport()->rect().intersects(griglia->visualRect(griglia->model()->index(400, 0))));
}

TEST_F(ArchivioTest, NienteDiScrittoSiPerdeSenzaDomanda) {
  ApriCodice("XA");
  Digita("Descrizione", "a met");
  dialoghi.Rispondera("Archivio Agenti - agente XA", Risposta::No);
  finestra->Cornice()->close();
  EXPECT_TRUE(Aperto());
  EXPECT_EQ(Testo("Descrizione"), "a met");
  dialoghi.Rispondera("modifiche non confermate", Risposta::No);
  finestra->ApriRecord({.codice = "XB"});
  EXPECT_EQ(Testo("Cod"), "XA");
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  finestra->ApriRecord({.codice = "XB"});
  EXPECT_EQ(Testo("Cod"), "XB");

  // Another code chosen on the left: the list, the selector, a new one; one that isn't there.
  Digita("Descrizione", "ancora");
  for (const bool elenco : {true, false}) {
    dialoghi.Rispondera("modifiche non confermate", Risposta::No);
    if (elenco)
      DoppioClic("GrigliaArchivio", 0);
    else
      Clic("Nuovo");
    EXPECT_EQ(Testo("Cod"), "XB");
    EXPECT_EQ(Testo("Descrizione"), "ancora");
  }
  ApriCodice("XNONCE");
  EXPECT_EQ(Testo("Descrizione"), "ancora");
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  ApriCodice("XA");
  EXPECT_EQ(Testo("Cod"), "XA");
  finestra->ApriRecord({.codice = "XB"});

  // Given up from a field whose text can't be read, by its button and by Esc.
  for (const bool clic : {true, false}) {
    Digita("Provv", "sette");
    dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
    if (clic)
      Clic("Annulla");
    else
      Tasto(Qt::Key_Escape);
    EXPECT_TRUE(Messaggi().empty());
    EXPECT_FALSE(Aperto());
    ApriCodice("XB");
    EXPECT_EQ(Testo("Provv"), "0,00");
  }
  // Looked at and left: nothing is asked, step by step to the closed window.
  Tasto(Qt::Key_Escape);
  Tasto(Qt::Key_Escape);
  EXPECT_TRUE(principale->FinestreAperte().isEmpty());
  EXPECT_EQ(Descrizione("XA"), "Alberti Aldo");
}

TEST_F(ArchivioTest, InModificaAltroveSiGuardaECambiatoAltroveSiChiede) {
  const auto altra = NuovaStazione("cassa");
  {
    Rs presa =
        altra->ambiente->ArchivioDi("tessarc").Recordset("select * from Agenti where Cod='XA'");
    ASSERT_TRUE(presa.Edit());
    ApriCodice("XA");
    EXPECT_NE(SoloMessaggio().find("cassa"), std::string::npos);
    EXPECT_TRUE(Aperto());
    EXPECT_NE(Testo("AvvisoRecord"), "");
    for (const char* nome : {"Cod", "Descrizione", "Note", "Conferma", "Elimina"})
      EXPECT_FALSE(Campo(nome)->isEnabled()) << nome;
    // Its copy is one's own.
    Clic("Sdoppia");
    EXPECT_EQ(Testo("AvvisoRecord"), "");
    EXPECT_TRUE(Campo("Conferma")->isEnabled());
    dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
    Tasto(Qt::Key_Escape);
  }
  ApriCodice("XA");
  EXPECT_TRUE(Campo("Conferma")->isEnabled());
  Scrivi("Descrizione", "mia");
  altra->ambiente->ArchivioDi("tessarc").Esegui(
      "update Agenti set Descrizione='sua' where Cod='XA'");
  dialoghi.Rispondera("sua", Risposta::No);
  Clic("Conferma");
  EXPECT_TRUE(Aperto());
  EXPECT_EQ(Testo("Descrizione"), "mia");
  dialoghi.Rispondera("sua", Risposta::Si);
  Clic("Conferma");
  EXPECT_EQ(Descrizione("XA"), "mia");
}

TEST_F(ArchivioTest, IlRifiutoPortaAlCampo) {
  Apri(QStringLiteral("CausaliMag"));
  Clic("Nuovo");
  Scrivi("Cod", "XX");
  Scrivi("Descrizione", "prova");
  Clic("Conferma");
  EXPECT_EQ(SoloMessaggio(), "impostare Carico=C oppure Scarico=S");
  EXPECT_EQ(Foco(), "CS");
  QTest::keyClicks(Campo("CS"), QStringLiteral("s"));
  EXPECT_EQ(Testo("CS"), "S");
  Clic("Conferma");
  EXPECT_EQ(Messaggi().size(), 0u);
  ApriCodice("EI");
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  Clic("Elimina");
  EXPECT_EQ(SoloMessaggio(), "EI è una causale predefinita non si può eliminare");
  EXPECT_TRUE(Aperto());
  // What a frame's or field's state switches off stays so while the record is open.
  Apri(QStringLiteral("Categorie"));
  Clic("Nuovo");
  EXPECT_FALSE(Campo("nonmodif")->isEnabled());
  EXPECT_TRUE(Campo("Cod")->isEnabled());
}

TEST_F(ArchivioTest, DalCodiceAlSuoArchivio) {
  ApriCodice("XA");
  Digita("Descrizione", "a met");
  dialoghi.Rispondera("modifiche non confermate", Risposta::No);
  principale->Segui(AllArchivio("AGENTI", "XB"));
  EXPECT_EQ(Testo("Cod"), "XA");
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  principale->Segui(AllArchivio("AGENTI", "XB"));
  ASSERT_EQ(principale->FinestreAperte().size(), 1);
  finestra = principale->FinestreAperte().front();
  EXPECT_EQ(Testo("Cod"), "XB");
  EXPECT_TRUE(Aperto());
  // From a field of one archive to another one.
  Apri(QStringLiteral("Conti"));
  ApriCodice("100.010");
  ASSERT_TRUE(Aperto());
  Campo("Mastro")->setFocus();
  Tasto(Qt::Key_F3);
  finestra = principale->findChild<screens::FinestraFunzione*>(QStringLiteral("Mastri"));
  ASSERT_NE(finestra, nullptr);
  EXPECT_EQ(Testo("Cod"), "100");
}

TEST_F(ArchivioTest, IlFocoGiraComeStannoICampiEIPulsantiPropriMostranoLeRighe) {
  Clic("Nuovo");
  for (const char* nome : {"Cod", "Descrizione", "Provv", "Indirizzo", "Localita", "telefono"}) {
    EXPECT_EQ(Foco(), nome);
    Tasto(Qt::Key_Return);
  }
  Tasto(Qt::Key_Escape);

  Apri(QStringLiteral("Conti"));
  ApriCodice("100.010");
  ASSERT_TRUE(Aperto());
  EXPECT_FALSE(Campo("Riquadro")->isVisible());
  Clic("saldo");
  EXPECT_TRUE(Campo<QPlainTextEdit>("Riquadro")->toPlainText().contains(QStringLiteral("saldo")));
  // A choice is a change as any other, and goes with the record that had it.
  auto* scelte = Campo("PatrEcon")->findChildren<QAbstractButton*>().last();
  QTest::mouseClick(scelte, Qt::LeftButton, Qt::NoModifier, QPoint(8, scelte->height() / 2));
  EXPECT_TRUE(finestra->InModifica());
  dialoghi.Rispondera("modifiche non confermate", Risposta::Si);
  Tasto(Qt::Key_Escape);
  EXPECT_FALSE(scelte->isChecked());
  EXPECT_FALSE(Campo("Riquadro")->isVisible());
}

}  // namespace fenalto::prova
