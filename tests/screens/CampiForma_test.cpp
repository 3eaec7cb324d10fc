// Forms built from their description: controls by type and kind, places, state, sources, turns.
#include "screens/common/fields/CampiForma.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <stdexcept>

#include "ledger/DittaDiProva.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {
namespace {

using Genere = records::GenereCampo;

class CampiFormaTest : public prova::DittaDiProva {
 protected:
  CampiFormaTest() {
    testa.Aggiungi("Numero", Tipo::Intero);
    testa.Aggiungi("Giorno", Tipo::Data);
    testa.Aggiungi("Vettore", Tipo::Testo);
    testa.Aggiungi("Classe", Tipo::Testo);
    altra.Aggiungi("Importo", Tipo::Importo);
    altra.Aggiungi("Chiusa", Tipo::Booleano);
    Tessarc().Esegui("delete from Vettori");
    Tessarc().Esegui("delete from Agenti");
    Tessarc().Inserisci("Vettori", {{"Cod", "A1"}, {"Descrizione", "Alfa"}});
    Tessarc().Inserisci("Vettori", {{"Cod", "B1"}, {"Descrizione", "Beta"}});
  }
  void Costruisci(records::DescrizioneForma forma) {
    auto* colonna = new QVBoxLayout(&pagina);
    campi = std::make_unique<CampiForma>(ambiente, std::move(forma),
                                         QList<Legatura*>{&diTesta, &diAltra}, *colonna);
  }
  static records::DescrizioneForma Forma() {
    return {.campi = {{.nome = "Numero", .didascalia = "Numero", .turno = 1},
                      {.nome = "Giorno",
                       .didascalia = "del",
                       .accanto = true,
                       .nomeDidascalia = "EtichettaGiorno"},
                      {.nome = "Vettore",
                       .didascalia = "Vettore",
                       .genere = Genere::Codice,
                       .fonte = "vettori",
                       .colonna = 1,
                       .peso = 1},
                      {.nome = "Classe",
                       .genere = Genere::Combinata,
                       .scelte = {{"P"}, {"C"}},
                       .riquadro = "Dentro",
                       .anchePassando = true},
                      {.nome = "Importo", .didascalia = "Importo", .decimali = 0, .colonna = 1},
                      {.nome = "Chiusa", .didascalia = "chiusa", .riquadro = "Sotto"},
                      {.nome = "Nota", .genere = Genere::Sommessa, .accanto = true},
                      {.nome = "Calcola", .didascalia = "Calcola", .genere = Genere::Pulsante}},
            .riquadri = {{.nome = "Dentro", .titolo = "Classe", .righe = 1},
                         {.nome = "Sotto", .titolo = "Sotto", .largo = true}}};
  }

  QWidget pagina;
  Scheda testa;
  Scheda altra;
  Legatura diTesta{[this]() -> Scheda& { return testa; }, dialoghi, nullptr};
  Legatura diAltra{[this]() -> Scheda& { return altra; }, dialoghi, nullptr};
  std::unique_ptr<CampiForma> campi;
};

TEST_F(CampiFormaTest, EachFieldIsAControlOfItsTypeBoundToTheRecordThatHasIt) {
  Costruisci(Forma());
  EXPECT_NE(dynamic_cast<CampoNumero*>(&campi->Controllo("numero")), nullptr);
  EXPECT_NE(dynamic_cast<CampoData*>(&campi->Controllo("Giorno")), nullptr);
  EXPECT_NE(dynamic_cast<CampoImporto*>(&campi->Controllo("Importo")), nullptr);
  EXPECT_NE(qobject_cast<QComboBox*>(&campi->Controllo("Classe")), nullptr);
  EXPECT_NE(qobject_cast<QCheckBox*>(&campi->Controllo("Chiusa")), nullptr);
  EXPECT_EQ(campi->Pulsante("Calcola").text(), "Calcola");
  testa.Scrivi("Vettore", "A1");
  altra.Scrivi("Chiusa", true);
  diTesta.Mostra();
  diAltra.Mostra();
  EXPECT_EQ(campi->Codice("Vettore").Etichetta()->text(), "Alfa");
  EXPECT_TRUE(campi->Pulsante("Chiusa").isChecked());
  EXPECT_THROW((void)campi->Controllo("Altro"), std::out_of_range);
}

TEST_F(CampiFormaTest, AFieldOfNoRecordIsRefused) {
  EXPECT_THROW(Costruisci({.campi = {{.nome = "Numero"}, {.nome = "Numer"}}}), std::runtime_error);
}

TEST_F(CampiFormaTest, TheFocusGoesThroughTurnsAsFieldsStand) {
  Costruisci(Forma());
  const auto nomi = [this](int turno) {
    QStringList ordine;
    for (const auto* controllo : campi->Ordine(turno)) ordine << controllo->objectName();
    return ordine.join(QLatin1Char(' ')).toStdString();
  };
  EXPECT_EQ(nomi(0), "Giorno Vettore Classe Importo Calcola Chiusa");
  EXPECT_EQ(nomi(1), "Numero");
  EXPECT_TRUE(campi->Conta("Classe", false));
  EXPECT_FALSE(campi->Conta("Giorno", false));
}

TEST_F(CampiFormaTest, TheStateShowsEnablesAndRenames) {
  Costruisci(Forma());
  const auto stato = [](const std::string& nome) -> records::StatoCampo {
    if (nome == "Giorno") return {.didascalia = "data corrispettivi"};
    if (nome == "Importo") return {.visibile = false};
    if (nome == "Classe") return {.attivo = false};
    if (nome == "Sotto") return {.visibile = false};
    if (nome == "Nota") return {.testo = "da pagare"};
    if (nome == "Vettore") return {.fonte = "agenti"};
    return {};
  };
  testa.Scrivi("Vettore", "A1");
  campi->Applica(stato, false);
  diTesta.Mostra();
  EXPECT_EQ(pagina.findChild<QLabel*>(QStringLiteral("EtichettaGiorno"))->text(),
            "data corrispettivi");
  EXPECT_EQ(campi->Controllo("Giorno").accessibleName(), "data corrispettivi");
  EXPECT_TRUE(campi->Controllo("Importo").isHidden());
  EXPECT_FALSE(campi->Controllo("Classe").isEnabled());
  EXPECT_TRUE(campi->Controllo("Numero").isEnabled());
  EXPECT_TRUE(campi->ConRiquadri());
  EXPECT_TRUE(pagina.findChild<QGroupBox*>(QStringLiteral("Sotto"))->isHidden());
  EXPECT_EQ(dynamic_cast<QLabel&>(campi->Controllo("Nota")).text(), "da pagare");
  EXPECT_EQ(campi->Codice("Vettore").Etichetta()->text(), "codice non trovato");
  campi->Applica(stato, true);
  EXPECT_FALSE(campi->Controllo("Numero").isEnabled());
}

// What came in from outside is seen, kept as it is while nobody types, and not let in by a field.
TEST_F(CampiFormaTest, CaratteriDiControllo) {
  CampoTesto campo(QStringLiteral("Nome"));
  campo.Mostra(Valore("Bar\x07Sport"));
  EXPECT_EQ(campo.text(), QStringLiteral("Bar␇Sport"));
  EXPECT_EQ(campo.Letto().Valore().Testo(), "Bar\x07Sport");
  campo.setText(QStringLiteral("Bar Sport"));
  EXPECT_EQ(campo.Letto().Valore().Testo(), "Bar Sport");
  campo.setText(QStringLiteral("Bar\u001BSport"));
  ASSERT_FALSE(campo.Letto());
  EXPECT_EQ(campo.Letto().Errore().messaggio,
            "il testo contiene il carattere di controllo U+001B: toglierlo");
  // A mark is no text: changed beside it, the value isn't stored with the mark in it.
  campo.setText(QStringLiteral("Bar␇Sport Uno"));
  ASSERT_FALSE(campo.Letto());
  EXPECT_EQ(campo.Letto().Errore().messaggio,
            "il segno ␇ sta per il carattere di controllo U+0007: toglierlo, o sostituirlo con "
            "quel che deve esserci");
  campo.Mostra(Valore("Bar"));
  campo.setText(QStringLiteral("Bar␇"));
  EXPECT_TRUE(campo.Letto()) << "typed by somebody who wants it";
  CampoCodice codice(QStringLiteral("Codice"), archives::FonteInMemoria({{"A", "uno\x07"}}));
  codice.Etichetta()->setParent(&pagina);
  for (const char* tenuto : {"A\x07", "A\xE8"}) {
    codice.Mostra(Valore(tenuto));
    EXPECT_EQ(codice.Letto().Valore().Testo(), tenuto);
  }
  codice.Mostra(Valore("A"));
  EXPECT_EQ(codice.Etichetta()->text(), QStringLiteral("uno␇"));
  codice.setText(QStringLiteral("A\x1B"));
  EXPECT_FALSE(codice.Letto());
  EXPECT_EQ(codice.Codice(), "");
  CampoNote note(QStringLiteral("Note"));
  note.Mostra(Valore("prima\r\nseconda\x02"));
  EXPECT_EQ(note.toPlainText(), QStringLiteral("prima\nseconda␂"));
  EXPECT_EQ(note.Letto().Valore().Testo(), "prima\r\nseconda\x02");
  note.setPlainText(QStringLiteral("uno\ndue"));
  EXPECT_EQ(note.Letto().Valore().Testo(), "uno\ndue");
}

}  // namespace
}  // namespace fenalto::screens
