// The output dialog, and the outputs made from its choice.

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "print/Campione.h"
#include "print/DialogoUscita.h"
#include "print/FabbricaUsciteQt.h"
#include "print/FinestraAnteprima.h"
#include "print/VistaPagina.h"

namespace fenalto::print {
namespace {

using namespace prova;

QRadioButton* Voce(DialogoUscita& dialogo, const char* nome) {
  return dialogo.findChild<QRadioButton*>(QString::fromLatin1(nome));
}

/// Answers the next message box, and tells its text.
void Rispondi(QMessageBox::StandardButton bottone, QString* testo) {
  QTimer::singleShot(0, [bottone, testo] {
    auto* riquadro = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(riquadro, nullptr);
    *testo = riquadro->text();
    riquadro->button(bottone)->click();
  });
}

TEST(DialogoUscita, RicordaLaSceltaDiOgniRapporto) {
  QSettings().clear();
  const CartellaProva cartella;
  {
    DialogoUscita dialogo(QStringLiteral("Bilancio di verifica"));
    EXPECT_EQ(dialogo.Scelta().destinazione, Destinazione::Anteprima);
    EXPECT_TRUE(dialogo.Scelta().file.empty());
    Voce(dialogo, "Pdf")->setChecked(true);
    dialogo.findChild<QLineEdit*>(QStringLiteral("File"))
        ->setText(QString::fromStdString((cartella / "bv.txt").string()));
    dialogo.accept();
    EXPECT_EQ(dialogo.result(), QDialog::Accepted);
    EXPECT_EQ(dialogo.Scelta().destinazione, Destinazione::Pdf);
    EXPECT_EQ(dialogo.Scelta().file, cartella / "bv.pdf") << "il nome finisce come il genere";
  }
  DialogoUscita altro(QStringLiteral("Giornale"));
  EXPECT_EQ(altro.Scelta().destinazione, Destinazione::Anteprima);
  DialogoUscita stesso(QStringLiteral("Bilancio di verifica"));
  EXPECT_EQ(stesso.Scelta().destinazione, Destinazione::Pdf);
  EXPECT_EQ(stesso.Scelta().file, cartella / "Bilancio di verifica.pdf");
  Voce(stesso, "Testo")->setChecked(true);
  EXPECT_EQ(stesso.Scelta().file, cartella / "Bilancio di verifica.txt");
  // Given up: nothing is remembered.
  stesso.reject();
  EXPECT_EQ(DialogoUscita(QStringLiteral("Bilancio di verifica")).Scelta().destinazione,
            Destinazione::Pdf);
}

TEST(DialogoUscita, UnFileCheEsisteSiSostituisceSoloConUnSi) {
  QSettings().clear();
  const CartellaProva cartella;
  ScriviFile(cartella / "gia.pdf", "di prima");
  DialogoUscita dialogo(QStringLiteral("Giornale"));
  dialogo.show();
  Voce(dialogo, "Pdf")->setChecked(true);
  auto* file = dialogo.findChild<QLineEdit*>(QStringLiteral("File"));
  QString chiesto;
  file->setText(QString());
  Rispondi(QMessageBox::Ok, &chiesto);
  dialogo.accept();
  EXPECT_TRUE(chiesto.contains(QStringLiteral("Indicare il file")));
  EXPECT_TRUE(dialogo.isVisible());
  file->setText(QString::fromStdString((cartella / "gia").string()));
  Rispondi(QMessageBox::No, &chiesto);
  dialogo.accept();
  EXPECT_TRUE(chiesto.contains(QStringLiteral("gia.pdf esiste già")));
  EXPECT_TRUE(dialogo.isVisible());
  Rispondi(QMessageBox::Yes, &chiesto);
  dialogo.accept();
  EXPECT_FALSE(dialogo.isVisible());
  EXPECT_EQ(dialogo.result(), QDialog::Accepted);
}

TEST(NomeFile, TitoliComeNomi) {
  const struct {
    const char *titolo, *nome;
  } casi[] = {
      {"Bilancio al 31/12/2025", "Bilancio al 31-12-2025"},
      {"../../etc/passwd", "-..-etc-passwd"},
      {"  ", "stampa"},
      {"Libro «giornale»: pag. 1", "Libro -giornale-- pag. 1"},
  };
  for (const auto& caso : casi)
    EXPECT_EQ(NomeFile(QString::fromUtf8(caso.titolo)), QString::fromUtf8(caso.nome));
}

TEST(FabbricaUscite, OgniDestinazioneHaLaSuaUscita) {
  const CartellaProva cartella;
  DialoghiFinti dialoghi;
  QWidget principale;
  FabbricaUsciteQt fabbrica(dialoghi, &principale);
  const auto testo = fabbrica.Crea({Destinazione::Testo, cartella / "a.txt"}, "Giornale");
  EXPECT_TRUE(testo->SoloTesto());
  ASSERT_TRUE(testo->Aggiungi(PaginaFissa(kA4, 1, 2, 40)));
  ASSERT_TRUE(testo->Fine());
  EXPECT_NE(LeggiFile(cartella / "a.txt").find("p1 r1"), std::string::npos);

  const auto pdf = fabbrica.Crea({Destinazione::Pdf, cartella / "a.pdf"}, "Giornale");
  EXPECT_FALSE(pdf->SoloTesto());
  ASSERT_TRUE(pdf->Aggiungi(PaginaFissa(kA4, 1, 2, 40)));
  ASSERT_TRUE(pdf->Fine());
  EXPECT_NE(DatiPdf(cartella / "a.pdf").find("Giornale"), std::string::npos);

  EXPECT_EQ(fabbrica.Crea({Destinazione::Xlsx, cartella / "a.xlsx"}, "Giornale"), nullptr);

  // A link of a preview reaches the main window through the factory.
  std::vector<Rinvio> rinvii;
  QObject::connect(&fabbrica, &FabbricaUsciteQt::RinvioScelto, &principale,
                   [&](const Rinvio& rinvio) { rinvii.push_back(rinvio); });
  const auto anteprima = fabbrica.Crea({Destinazione::Anteprima, {}}, "Giornale");
  reports::Pagina pagina{kA4, 1, {}};
  const Rinvio conto = AlConto("P", "100.010");
  pagina.elementi.emplace_back(reports::Scritta{
      1000, 1000, 4000, reports::Allineamento::Sinistra, {}, "Cassa contanti", conto, false});
  ASSERT_TRUE(anteprima->Aggiungi(pagina));
  ASSERT_TRUE(anteprima->Fine());
  auto* finestra = principale.findChild<FinestraAnteprima*>();
  ASSERT_NE(finestra, nullptr);
  auto* vetro = finestra->Vista().viewport();
  QTest::mouseDClick(vetro, Qt::LeftButton, Qt::NoModifier,
                     finestra->Vista().SulVetro(QPointF(1500, 1150)).toPoint());
  QTest::mouseDClick(vetro, Qt::LeftButton, Qt::NoModifier,
                     finestra->Vista().SulVetro(QPointF(1500, 5000)).toPoint());
  ASSERT_EQ(rinvii.size(), 1U);
  EXPECT_EQ(rinvii[0], conto);
}

}  // namespace
}  // namespace fenalto::print
