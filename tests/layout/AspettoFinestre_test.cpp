// Every window of the program as it is laid out: nothing over something else, nothing cut, nothing
// out of reach, everything legible.
//
// At one size in the usual run. FENALTO_ASPETTO=tutto goes through all sizes, in both tones;
// FENALTO_FOTO=DIR makes pictures of the windows and prints into that folder as well. Scales are
// the caller's: QT_SCALE_FACTOR, one process each.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QMdiSubWindow>
#include <QPixmap>
#include <QSettings>
#include <QStyle>

#include "layout/Difetti.h"
#include "layout/GiroFinestre.h"
#include "screens/common/look/Tavolozza.h"
#include "screens/main/Applicazione.h"

namespace fenalto::prova {
namespace {

bool Tutto() {
  return qEnvironmentVariable("FENALTO_ASPETTO") == QLatin1String("tutto");
}

QString Foto() {
  return qEnvironmentVariable("FENALTO_FOTO");
}

QString NomeTono(screens::Tono tono) {
  return tono == screens::Tono::Chiaro ? QStringLiteral("chiaro") : QStringLiteral("scuro");
}

/// The picture of the main window as it stands, named after what it shows.
void Ritrai(QWidget& principale, const QString& dove, const QSize& misura, screens::Tono tono) {
  const QString cartella = QStringLiteral("%1/%2x%3-%4")
                               .arg(Foto(), QString::number(misura.width()),
                                    QString::number(misura.height()), NomeTono(tono));
  ASSERT_TRUE(QDir().mkpath(cartella));
  QString nome = dove;
  nome.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]+")), QStringLiteral("-"));
  ASSERT_TRUE(principale.grab().save(QStringLiteral("%1/%2.png").arg(cartella, nome), "PNG"));
}

/// The type that windows are made for; a larger one may make them scroll.
bool Usuale() {
  constexpr double kPunti = 10;
  return QApplication::font().pointSizeF() <= kPunti;
}

/// A window of a function that has to be scrolled. The settings of a company are a long page, and
/// what is announced takes room for a moment.
QStringList Scorre(const QWidget& finestra) {
  const auto* funzione = qobject_cast<const screens::FinestraFunzione*>(&finestra);
  if (funzione == nullptr) return {};
  const QSize sua = funzione->size();
  const QSize area = funzione->parentWidget()->size();
  const auto* annuncio = funzione->Cornice()->findChild<QWidget*>(QStringLiteral("BarraAnnunci"));
  const bool lunga = funzione->Nome() == QLatin1String("Utility") ||
                     (annuncio != nullptr && annuncio->isVisible());
  // The bar of a long page takes some of its width.
  const int barra = lunga ? funzione->style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
  if (sua.width() <= area.width() + barra && (lunga || sua.height() <= area.height())) return {};
  return {QStringLiteral("scorre: è di %1x%2 in %3x%4")
              .arg(sua.width())
              .arg(sua.height())
              .arg(area.width())
              .arg(area.height())};
}

}  // namespace

class AspettoFinestreTest : public ::testing::Test {
 protected:
  void Giro(GiroFinestre& giro, const QSize& misura, screens::Tono tono) {
    QStringList detti;
    giro.Fai(misura, [&](QWidget& finestra, const QString& dove) {
      if (!Foto().isEmpty()) Ritrai(*finestra.window(), dove, misura, tono);
      QStringList trovati = Difetti(finestra);
      if (Usuale()) trovati += Scorre(finestra);
      for (const QString& difetto : trovati) {
        const QString detto = finestra.objectName() + QLatin1Char(' ') + difetto;
        if (detti.contains(detto)) continue;
        detti << detto;
        ADD_FAILURE() << misura.width() << "x" << misura.height() << " "
                      << NomeTono(tono).toStdString() << ", " << dove.toStdString() << ": "
                      << difetto.toStdString();
      }
    });
  }
};

TEST_F(AspettoFinestreTest, SiVedonoIntere) {
  QList<QSize> misure{{1024, 700}};
  QList<screens::Tono> toni{screens::Tono::Chiaro};
  if (Tutto()) {
    misure << QSize(1366, 768) << QSize(1920, 1080);
    toni << screens::Tono::Scuro;
  }
  for (const auto tono : toni) {
    QApplication::setPalette(screens::Tavolozza(tono));
    QSettings().clear();
    GiroFinestre giro;
    for (const QSize& misura : misure) Giro(giro, misura, tono);
  }
}

TEST_F(AspettoFinestreTest, StampeInFoto) {
  if (Foto().isEmpty()) GTEST_SKIP() << "senza FENALTO_FOTO";
  GiroFinestre giro;
  const QString cartella = Foto() + QStringLiteral("/stampe");
  ASSERT_TRUE(QDir().mkpath(cartella));
  giro.Stampa(cartella.toStdString());
  EXPECT_FALSE(QDir(cartella).isEmpty());
}

// Text on all grounds of both palettes, and the colours that mean something.
TEST(TavolozzaTest, SiLegge) {
  using screens::Segno;
  for (const auto tono : {screens::Tono::Chiaro, screens::Tono::Scuro}) {
    const QPalette tavolozza = screens::Tavolozza(tono);
    for (const auto fondo : {QPalette::Window, QPalette::Base, QPalette::AlternateBase}) {
      const QColor sotto = tavolozza.color(fondo);
      for (const auto segno :
           {Segno::Accento, Segno::Scaduto, Segno::InScadenza, Segno::Fatto, Segno::Sommesso}) {
        EXPECT_GE(screens::Contrasto(screens::Colore(segno, tavolozza), sotto), 4.5)
            << NomeTono(tono).toStdString() << " segno " << static_cast<int>(segno) << " fondo "
            << static_cast<int>(fondo);
      }
      EXPECT_GE(screens::Contrasto(screens::Colore(Segno::Filo, tavolozza), sotto), 3.0)
          << NomeTono(tono).toStdString() << " filo";
    }
    EXPECT_EQ(screens::TonoDi(tavolozza), tono);
  }
}

TEST(TavolozzaTest, ContrastoNoto) {
  EXPECT_NEAR(screens::Contrasto(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(screens::Contrasto(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
  EXPECT_NEAR(screens::Contrasto(QColor(0, 0, 0, 0), Qt::white), 1, 0.01);
}

}  // namespace fenalto::prova

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const fenalto::CartellaProva memoria;
  QApplication applicazione(argc, argv);
  fenalto::screens::Applicazione::Prepara(FENALTO_DATA);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString(memoria.Percorso().string()));
  // A font grown by the system instead of the screen.
  if (const double volte = qEnvironmentVariable("FENALTO_CARATTERE").toDouble(); volte > 0) {
    QFont carattere = QApplication::font();
    carattere.setPointSizeF(carattere.pointSizeF() * volte);
    QApplication::setFont(carattere);
  }
  return RUN_ALL_TESTS();
}
