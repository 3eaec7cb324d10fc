// The preview used by keys and clicks, while it is composed and after.

#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTest>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "print/Campione.h"
#include "print/FabbricaUsciteQt.h"
#include "print/UscitaAnteprima.h"
#include "print/UscitaStampante.h"
#include "print/VistaPagina.h"

namespace fenalto::print {
namespace {

using namespace prova;

class Anteprima : public ::testing::Test {
 protected:
  Anteprima()
      : sotto(&principale), uscita("Bilancio", dialoghi, &principale, [this](const Rinvio& r) {
          rinvii.push_back(r);
        }) {
    sotto.setGeometry(0, 0, 200, 30);
    principale.resize(400, 300);
    principale.show();
    QSettings().clear();
  }

  /// A page whose third line leads to a registration.
  static reports::Pagina PaginaConRinvio(int numero) {
    reports::Pagina pagina = PaginaFissa(kA4, numero, 30, 133);
    auto& riga = std::get<reports::RigaFissa>(pagina.elementi[2]);
    riga.testo = "  Perché n. " + std::to_string(numero) + " Società " + riga.testo.substr(40);
    riga.rinvio = {"Documento", std::to_string(numero), 2026, "F", 2};
    return pagina;
  }
  FinestraAnteprima& Composta(int pagine) {
    for (int numero = 1; numero <= pagine; ++numero)
      EXPECT_TRUE(uscita.Aggiungi(PaginaConRinvio(numero)));
    auto* finestra = uscita.Finestra();
    const auto esito = uscita.Fine();
    EXPECT_TRUE(esito && esito.Valore());
    QTest::qWait(0);
    return *finestra;
  }
  /// A text that a person types, accents included.
  static void Scrivi(QWidget* campo, const QString& testo) {
    for (const QChar lettera : testo) {
      QKeyEvent tasto(QEvent::KeyPress, 0, Qt::NoModifier, QString(lettera));
      QApplication::sendEvent(campo, &tasto);
    }
  }

  DialoghiFinti dialoghi;
  QWidget principale;
  QLineEdit sotto;
  std::vector<Rinvio> rinvii;
  UscitaAnteprima uscita;
};

TEST_F(Anteprima, PrimaPaginaSubitoERestoChiuso) {
  ASSERT_TRUE(uscita.Aggiungi(PaginaConRinvio(1)));
  auto* finestra = uscita.Finestra();
  ASSERT_NE(finestra, nullptr);
  EXPECT_TRUE(finestra->isVisible());
  EXPECT_TRUE(finestra->Vista().Dipinta());
  // The functions' windows take neither keys nor closing; the preview does.
  QTest::keyClicks(&sotto, QStringLiteral("abc"));
  EXPECT_EQ(sotto.text(), QString());
  principale.close();
  EXPECT_TRUE(principale.isVisible());
  auto* cerca = finestra->findChild<QLineEdit*>(QStringLiteral("Cerca"));
  QTest::keyClicks(cerca, QStringLiteral("abc"));
  EXPECT_EQ(cerca->text(), QStringLiteral("abc"));
  EXPECT_FALSE(finestra->findChild<QPushButton*>(QStringLiteral("Stampa"))->isEnabled());
  // A link is left alone until the report has ended.
  const auto area = finestra->Vista().SulVetro(QPointF(2000, 500 + 2 * 350 + 150)).toPoint();
  QTest::mouseDClick(finestra->Vista().viewport(), Qt::LeftButton, Qt::NoModifier, area);
  EXPECT_TRUE(rinvii.empty());
  ASSERT_TRUE(uscita.Fine());
  QTest::keyClicks(&sotto, QStringLiteral("abc"));
  EXPECT_EQ(sotto.text(), QStringLiteral("abc"));
  QTest::mouseDClick(finestra->Vista().viewport(), Qt::LeftButton, Qt::NoModifier, area);
  ASSERT_EQ(rinvii.size(), 1U);
  EXPECT_EQ(rinvii[0], (Rinvio{"Documento", "1", 2026, "F", 2})) << "as it was before the packing";
  delete finestra;
}

TEST_F(Anteprima, AnnullaEChiusuraNonLascianoNiente) {
  for (const bool chiude : {false, true}) {
    UscitaAnteprima una("Giornale", dialoghi, &principale, {});
    ASSERT_TRUE(una.Aggiungi(PaginaConRinvio(1)));
    const QPointer<FinestraAnteprima> finestra = una.Finestra();
    if (chiude) {
      finestra->close();
    } else {
      QTest::mouseClick(finestra->findChild<QPushButton*>(QStringLiteral("Annulla")),
                        Qt::LeftButton);
    }
    EXPECT_FALSE(una.Aggiungi(PaginaConRinvio(2)));
    const auto esito = una.Fine();
    ASSERT_TRUE(esito) << "chi annulla non ha bisogno di un avviso";
    EXPECT_FALSE(esito.Valore());
    EXPECT_TRUE(finestra.isNull());
  }
  QTest::keyClicks(&sotto, QStringLiteral("x"));
  EXPECT_EQ(sotto.text(), QStringLiteral("x"));
}

TEST_F(Anteprima, PagineElencoETotale) {
  ASSERT_TRUE(uscita.Aggiungi(PaginaFissa(kA4, 1, 3, 133)));
  reports::Pagina conTotale = PaginaFissa(kA4Orizzontale, 2, 3, 192);
  conTotale.elementi.emplace_back(reports::RigaFissa{
      500, 3000, 17, false, std::string("Pag. 2 di ") + reports::kSegnoPagineTotali, {}});
  ASSERT_TRUE(uscita.Aggiungi(conTotale));
  auto* finestra = uscita.Finestra();
  finestra->VaiAPagina(1);
  EXPECT_TRUE(finestra->Vista().TestoScelto().contains(QStringLiteral("Pag. 2 di …")));
  ASSERT_TRUE(uscita.Aggiungi(PaginaFissa(kA4, 3, 3, 133)));
  ASSERT_TRUE(uscita.Fine());
  EXPECT_EQ(finestra->PaginaCorrente(), 1) << "chi legge resta dov'è";
  EXPECT_TRUE(finestra->Vista().TestoScelto().contains(QStringLiteral("Pag. 2 di 3")));
  EXPECT_EQ(finestra->findChild<QListView*>(QStringLiteral("ElencoPagine"))->model()->rowCount(),
            3);
  EXPECT_EQ(finestra->findChild<QLabel*>(QStringLiteral("PagineTotali"))->text(),
            QStringLiteral("di 3"));
  auto* numero = finestra->findChild<QSpinBox*>(QStringLiteral("NumeroPagina"));
  EXPECT_EQ(numero->value(), 2);
  numero->setValue(3);
  EXPECT_EQ(finestra->PaginaCorrente(), 2);
  QTest::keyClick(&finestra->Vista(), Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(&finestra->Vista(), Qt::Key_Home, Qt::ControlModifier);
  QTest::qWait(0);
  EXPECT_EQ(finestra->PaginaCorrente(), 0);
  // Paging down passes to the next page at the end of this one.
  for (int i = 0; i < 6 && finestra->PaginaCorrente() == 0; ++i)
    QTest::keyClick(&finestra->Vista(), Qt::Key_PageDown);
  EXPECT_EQ(finestra->PaginaCorrente(), 1);
  delete finestra;
}

TEST_F(Anteprima, RicercaConSegniAvantiEIndietro) {
  auto& finestra = Composta(5);
  auto* cerca = finestra.findChild<QLineEdit*>(QStringLiteral("Cerca"));
  Scrivi(cerca, QStringLiteral("PERCHE N. 4"));
  QTest::keyClick(cerca, Qt::Key_Return);
  EXPECT_EQ(finestra.PaginaCorrente(), 3);
  ASSERT_EQ(finestra.Vista().Segni().size(), 1U);
  EXPECT_EQ(finestra.Vista().Segni()[0], (Segno{2, 2, 11}));
  EXPECT_EQ(finestra.Vista().SegnoCorrente(), 0);

  // Each line of a page has the word once: thirty places and on to the next page, round the end.
  const QString parola = QStringLiteral(",00");
  finestra.VaiAPagina(4);
  ASSERT_TRUE(finestra.Cerca(parola, 1));
  EXPECT_EQ(finestra.Vista().Segni().size(), 30U);
  EXPECT_EQ(finestra.PaginaCorrente(), 4);
  for (int i = 1; i < 30; ++i) ASSERT_TRUE(finestra.Cerca(parola, 1));
  EXPECT_EQ(finestra.Vista().SegnoCorrente(), 29);
  ASSERT_TRUE(finestra.Cerca(parola, 1));
  EXPECT_EQ(finestra.PaginaCorrente(), 0);
  EXPECT_EQ(finestra.Vista().SegnoCorrente(), 0);
  ASSERT_TRUE(finestra.Cerca(parola, -1));
  EXPECT_EQ(finestra.PaginaCorrente(), 4);
  EXPECT_EQ(finestra.Vista().SegnoCorrente(), 29);

  EXPECT_FALSE(finestra.Cerca(QStringLiteral("introvabile"), 1));
  EXPECT_EQ(finestra.PaginaCorrente(), 4);
  EXPECT_TRUE(finestra.findChild<QLabel*>(QStringLiteral("Stato"))
                  ->text()
                  .contains(QStringLiteral("non si trova")));
  delete &finestra;
}

TEST_F(Anteprima, CopiaDellaPaginaEDelRettangolo) {
  auto& finestra = Composta(1);
  QTest::mouseClick(finestra.findChild<QPushButton*>(QStringLiteral("Copia")), Qt::LeftButton);
  const auto righe = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  ASSERT_EQ(righe.size(), 30);
  EXPECT_EQ(righe[0].size(), 133);
  EXPECT_TRUE(righe[0].startsWith(QStringLiteral("p1 r0 ")) &&
              righe[0].endsWith(QStringLiteral("1000,00")));

  // The last ten columns of lines 5 and 6.
  auto& vista = finestra.Vista();
  const double cella = 2540.0 / 17;
  const auto da = vista.SulVetro(QPointF(500 + 123 * cella, 500 + 5 * 350)).toPoint();
  const auto a = vista.SulVetro(QPointF(500 + 133 * cella, 500 + 6 * 350 + 300)).toPoint();
  QTest::mousePress(vista.viewport(), Qt::LeftButton, Qt::NoModifier, da);
  QMouseEvent mossa(QEvent::MouseMove, a, vista.viewport()->mapToGlobal(a), Qt::NoButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(vista.viewport(), &mossa);
  QTest::mouseRelease(vista.viewport(), Qt::LeftButton, Qt::NoModifier, a);
  finestra.Copia();
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("...1005,00\n   1006,00"));
  delete &finestra;
}

TEST_F(Anteprima, ZoomELarghezza) {
  auto& finestra = Composta(1);
  auto& vista = finestra.Vista();
  EXPECT_TRUE(vista.Adattata());
  const double adatto = vista.Zoom();
  finestra.resize(finestra.width() - 300, finestra.height());
  QTest::qWait(0);
  EXPECT_LT(vista.Zoom(), adatto);
  vista.Ingrandisci(1.5);
  EXPECT_FALSE(vista.Adattata());
  EXPECT_EQ(finestra.findChild<QLabel*>(QStringLiteral("Zoom"))->text(), QStringLiteral("150%"));
  vista.Ingrandisci(1000);
  EXPECT_LE(vista.Zoom(), 8);
  delete &finestra;
}

TEST_F(Anteprima, SalvaPdfEStampa) {
  const CartellaProva cartella;
  auto& finestra = Composta(3);
  dialoghi.ScegliaFile(cartella / "copia");
  QTest::mouseClick(finestra.findChild<QPushButton*>(QStringLiteral("SalvaPdf")), Qt::LeftButton);
  EXPECT_NE(TestoPdf(cartella / "copia.pdf").find("Perché n. 3"), std::string::npos);

  EXPECT_FALSE(finestra.SalvaPdf(cartella.Percorso() / "manca" / "a.pdf"));
  EXPECT_TRUE(dialoghi.HaDetto("manca/a.pdf"));

  dialoghi.annullaDopo = 2;
  EXPECT_FALSE(finestra.SalvaPdf(cartella / "annullato.pdf"));
  EXPECT_FALSE(std::filesystem::exists(cartella / "annullato.pdf"));
  dialoghi.annullaDopo = 100;

  // A printer that prints into a file, pages 2 to 3.
  const auto file = cartella / "stampante.pdf";
  EXPECT_TRUE(finestra.Stampa([&] {
    auto stampante = std::make_unique<QPrinter>(QPrinter::HighResolution);
    stampante->setOutputFormat(QPrinter::PdfFormat);
    stampante->setOutputFileName(QString::fromStdString(file.string()));
    stampante->setPrintRange(QPrinter::PageRange);
    stampante->setFromTo(2, 3);
    return stampante;
  }));
  const std::string testo = TestoPdf(file);
  EXPECT_EQ(testo.find("Perché n. 1"), std::string::npos);
  EXPECT_NE(testo.find("Perché n. 2"), std::string::npos);
  EXPECT_NE(testo.find("Perché n. 3"), std::string::npos);
  EXPECT_NE(DatiPdf(file).find("Page    1 size:  595"), std::string::npos) << DatiPdf(file);
  EXPECT_FALSE(finestra.Stampa([] { return std::unique_ptr<QPrinter>(); }));
  delete &finestra;
}

TEST_F(Anteprima, ViveDaSolaFinoAllaChiusura) {
  QPointer<FinestraAnteprima> finestra;
  {
    UscitaAnteprima una("Giornale", dialoghi, &principale, {});
    ASSERT_TRUE(una.Aggiungi(PaginaConRinvio(1)));
    finestra = una.Finestra();
    ASSERT_TRUE(una.Fine());
  }
  ASSERT_FALSE(finestra.isNull());
  EXPECT_TRUE(finestra->windowTitle().contains(QStringLiteral("Giornale")));
  finestra->close();
  QTest::qWait(0);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(finestra.isNull());
}

}  // namespace
}  // namespace fenalto::print
