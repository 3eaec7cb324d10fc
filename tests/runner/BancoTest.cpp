// Fields and buttons under real events.
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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

}  // namespace
}  // namespace fenalto::copione
