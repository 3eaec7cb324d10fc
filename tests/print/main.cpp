// The toolkit, once for the program, without a display.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QSettings>

#include "core/session/CartellaProva.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  const fenalto::CartellaProva memoria;
  QApplication applicazione(argc, argv);
  QApplication::setApplicationName(QStringLiteral("fenalto"));
  QApplication::setOrganizationName(QStringLiteral("fenalto"));
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString(memoria.Percorso().string()));
  for (const char* file : {"Regular", "Bold", "Italic", "BoldItalic"}) {
    QFontDatabase::addApplicationFont(
        QStringLiteral(FENALTO_DATA "/fonts/LiberationSansNarrow-%1.ttf")
            .arg(QString::fromLatin1(file)));
  }
  return RUN_ALL_TESTS();
}
