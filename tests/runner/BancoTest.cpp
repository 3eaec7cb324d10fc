// Fields and buttons under real events.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "runner/Banco.h"

namespace fenalto::copione {
namespace {

class ComandiCampi : public Banco {
 protected:
  template <typename Controllo>
  Controllo* Aggiungi(const char* nome, Controllo* controllo = new Controllo) {
    controllo->setObjectName(QString::fromLatin1(nome));
    if (finestra->layout() == nullptr) new QVBoxLayout(finestra);
    finestra->layout()->addWidget(controllo);
    return controllo;
  }
};

TEST_F(ComandiCampi, ScriviSostituisceEdEsce) {
  auto* primo = Aggiungi<QLineEdit>("Primo");
  Aggiungi<QLineEdit>("Secondo");
  primo->setText(QStringLiteral("vecchio"));
  int finiti = 0;
  int digitati = 0;
  QObject::connect(primo, &QLineEdit::editingFinished, finestra, [&] { ++finiti; });
  QObject::connect(primo, &QLineEdit::textEdited, finestra, [&] { ++digitati; });
  Mostra();
  EXPECT_EQ(Corri("scrivi primo \"Perché 1.234,56 € 😀 \\\"\""), "");
  EXPECT_EQ(primo->text(), QStringLiteral("Perché 1.234,56 € 😀 \""));
  EXPECT_EQ(finiti, 1);
  EXPECT_EQ(digitati, 21);  // a character a time, the one outside the plane of 65536 as one
  EXPECT_FALSE(primo->hasFocus());
  EXPECT_EQ(Corri("scrivi Primo \"\"\nvale Primo \"\""), "");
}

TEST_F(ComandiCampi, DigitaInFondoEResta) {
  auto* campo = Aggiungi<QLineEdit>("Campo");
  Aggiungi<QLineEdit>("Altro");
  campo->setText(QStringLiteral("ab"));
  Mostra();
  EXPECT_EQ(Corri("digita Campo cd\nvale Campo abcd"), "");
  EXPECT_TRUE(campo->hasFocus());
}

TEST_F(ComandiCampi, Tasti) {
  struct Ascolto : QLineEdit {
    void keyPressEvent(QKeyEvent* evento) override {
      visti << QStringLiteral("%1/%2/%3")
                   .arg(evento->key())
                   .arg(evento->modifiers().toInt())
                   .arg(evento->text().isEmpty() ? 0 : evento->text().at(0).unicode());
    }
    QStringList visti;
  };
  auto* campo = Aggiungi("Campo", new Ascolto);
  Mostra();
  const auto visto = [](int tasto, Qt::KeyboardModifiers altri, int testo) {
    return QStringLiteral("%1/%2/%3").arg(tasto).arg(altri.toInt()).arg(testo);
  };
  EXPECT_EQ(Corri("tasto Campo Invio\ntasto Campo F12\ntasto Campo x\ntasto Campo Maiusc+x\n"
                  "tasto Campo Ctrl+Canc\ntasto Campo Giu"),
            "");
  const QStringList attesi{visto(Qt::Key_Return, Qt::NoModifier, '\r'),
                           visto(Qt::Key_F12, Qt::NoModifier, 0),
                           visto(Qt::Key_X, Qt::NoModifier, 'x'),
                           visto(Qt::Key_X, Qt::ShiftModifier, 'X'),
                           visto(Qt::Key_Delete, Qt::ControlModifier, 0x7F),
                           visto(Qt::Key_Down, Qt::NoModifier, 0)};
  QStringList visti = campo->visti;
  visti.removeIf([](const QString& v) {
    return v.startsWith(QString::number(Qt::Key_Shift)) ||
           v.startsWith(QString::number(Qt::Key_Control));
  });
  EXPECT_EQ(visti, attesi);
}

TEST_F(ComandiCampi, CaselleCombinate) {
  auto* chiusa = Aggiungi<QComboBox>("Chiusa");
  chiusa->addItems(
      {QStringLiteral("Dare"), QStringLiteral("Dare e avere"), QStringLiteral("Avere")});
  auto* aperta = Aggiungi<QComboBox>("Aperta");
  aperta->setEditable(true);
  aperta->addItem(QStringLiteral("uno"));
  int scelte = 0;
  QObject::connect(chiusa, &QComboBox::activated, finestra, [&] { ++scelte; });
  Mostra();
  EXPECT_EQ(Corri("scegli Chiusa \"dare e avere\"\nvale Chiusa \"Dare e avere\""), "");
  EXPECT_EQ(scelte, 1);
  EXPECT_EQ(Corri("scrivi Chiusa Av\nvale Chiusa Avere\nscrivi Chiusa Dare\nvale Chiusa Dare"), "");
  EXPECT_EQ(scelte, 3);
  EXPECT_NE(Corri("scegli Chiusa Da").find("no entry"), std::string::npos);
  EXPECT_NE(Corri("scrivi Chiusa Zeta").find("Dare, Dare e avere, Avere"), std::string::npos);
  EXPECT_EQ(Corri("scrivi Aperta due\nvale Aperta due\nscegli Aperta uno\nvale Aperta uno\n"
                  "righe Chiusa 3"),
            "");
}

TEST_F(ComandiCampi, AltriCampi) {
  Aggiungi<QSpinBox>("Numero");
  auto* testo = Aggiungi<QPlainTextEdit>("Testo");
  auto* cornice = Aggiungi<QFrame>("Cornice");
  (new QVBoxLayout(cornice))->addWidget(new QLineEdit);
  Mostra();
  EXPECT_EQ(Corri("scrivi Numero 42\nvale Numero 42\nscrivi Testo \"a\\nb\"\nvale Testo \"a\\nb\"\n"
                  "digita Testo c\nvale Testo \"a\\nbc\"\nscrivi Cornice dentro\n"
                  "vale Cornice dentro"),
            "");
  EXPECT_EQ(testo->toPlainText(), QStringLiteral("a\nbc"));
}

TEST_F(ComandiCampi, SpuntaETogli) {
  auto* casella = Aggiungi("Casella", new QCheckBox(QStringLiteral("corta")));
  Aggiungi("Una", new QRadioButton(QStringLiteral("una")));
  Aggiungi("Altra", new QRadioButton(QStringLiteral("altra")));
  auto* gruppo = Aggiungi("Gruppo", new QGroupBox(QStringLiteral("gruppo")));
  gruppo->setCheckable(true);
  gruppo->setChecked(false);
  gruppo->setMinimumHeight(40);
  auto* testarda = Aggiungi("Testarda", new QCheckBox(QStringLiteral("x")));
  QObject::connect(testarda, &QCheckBox::clicked, testarda, [=] { testarda->setChecked(false); });
  Mostra();
  int cambi = 0;
  QObject::connect(casella, &QCheckBox::clicked, finestra, [&] { ++cambi; });
  EXPECT_EQ(
      Corri("spunta Casella\nvale Casella si\nspunta Casella\ntogli Casella\nvale Casella no\n"
            "spunta Una\nspunta Altra\nvale Una no\nvale Altra si\nspunta Gruppo\n"
            "vale Gruppo si"),
      "");
  EXPECT_EQ(cambi, 2);
  EXPECT_NE(Corri("togli Altra").find("did not get unticked"), std::string::npos);
  EXPECT_NE(Corri("spunta Testarda").find("did not get ticked"), std::string::npos);
}

TEST_F(ComandiCampi, TestoMostrato) {
  auto* etichetta = Aggiungi("Etichetta", new QLabel(QStringLiteral("  1.234,50 ")));
  Aggiungi("Ricca", new QLabel(QStringLiteral("<b>uno</b> due")));
  Aggiungi("Pulsante", new QPushButton(QStringLiteral("&Conferma")));
  Aggiungi("Muto", new QFrame);
  Mostra();
  EXPECT_EQ(Corri("vale Etichetta 1.234,50\nvale Ricca \"uno due\"\nvale Pulsante Conferma"), "");
  etichetta->setText(QStringLiteral("0,00"));
  EXPECT_EQ(Corri("vale Etichetta 0"), "1: \"Etichetta\" shows \"0,00\", not \"0\"");
  EXPECT_NE(Corri("vale Muto \"\"").find("shows no text"), std::string::npos);
}

// Pressing a button leaves the field first; what that raises is done before the press.
TEST_F(ComandiCampi, ClicDopoAverLasciatoIlCampo) {
  auto* campo = Aggiungi<QLineEdit>("Campo");
  auto* pulsante = Aggiungi("Pulsante", new QToolButton);
  QStringList fatti;
  QObject::connect(campo, &QLineEdit::editingFinished, finestra, [&] {
    fatti << QStringLiteral("lasciato ") + campo->text();
    programma->dialoghi.Domanda("Davvero ?", Bottoni::SiNo, Risposta::No, "", Icona::Domanda);
  });
  QObject::connect(pulsante, &QToolButton::clicked, finestra,
                   [&] { fatti << QStringLiteral("premuto"); });
  Mostra();
  EXPECT_EQ(Corri("digita Campo x\nrispondi si Davvero\nclic Pulsante\nmessaggio Davvero"), "");
  EXPECT_EQ(fatti, (QStringList{QStringLiteral("lasciato x"), QStringLiteral("premuto")}));
  QObject::connect(campo, &QLineEdit::editingFinished, pulsante, [=] { pulsante->hide(); });
  EXPECT_NE(Corri("digita Campo y\nrispondi si\nclic Pulsante").find("hidden"), std::string::npos);
}

TEST_F(ComandiCampi, ClicSuCollegamento) {
  auto* etichetta = Aggiungi(
      "Link",
      new QLabel(QStringLiteral("vai <a href=\"dove\">di là</a> quando vuoi, senza fretta")));
  QString andato;
  QObject::connect(etichetta, &QLabel::linkActivated, finestra,
                   [&](const QString& dove) { andato = dove; });
  Mostra();
  EXPECT_EQ(Corri("clic Link"), "");
  EXPECT_EQ(andato, QStringLiteral("dove"));
}

// A field that takes the focus back holds whoever wants to type elsewhere.
TEST_F(ComandiCampi, CampoCheNonLasciaAndare) {
  struct Geloso : QLineEdit {
    void focusOutEvent(QFocusEvent* evento) override {
      QLineEdit::focusOutEvent(evento);
      setFocus();
    }
  };
  auto* geloso = Aggiungi("Geloso", new Geloso);
  Aggiungi<QLineEdit>("Altro");
  Mostra();
  geloso->setFocus();
  const auto motivo = Corri("digita Geloso x\nscrivi Altro y");
  EXPECT_NE(motivo.find("2: \"Altro\" does not get the focus, which Geloso keeps"),
            std::string::npos)
      << motivo;
}

// A command ends when no work is under way.
TEST_F(ComandiCampi, AspettaILavori) {
  auto* pulsante = Aggiungi<QPushButton>("Pulsante");
  auto* campo = Aggiungi<QLineEdit>("Campo");
  std::shared_ptr<Avanzamento> lavoro;
  QObject::connect(pulsante, &QPushButton::clicked, finestra, [&] {
    lavoro = programma->dialoghi.Avvia("lavoro", 0);
    QTimer::singleShot(150, finestra, [&] {
      campo->setText(QStringLiteral("fatto"));
      lavoro.reset();
    });
  });
  Mostra();
  EXPECT_EQ(Corri("clic Pulsante\nvale Campo fatto"), "");
}

}  // namespace
}  // namespace fenalto::copione
