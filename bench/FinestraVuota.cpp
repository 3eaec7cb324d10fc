// The start of an empty window: what the program's own start is measured against.

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

int main(int argc, char** argv) {
  QApplication applicazione(argc, argv);
  QMainWindow finestra;
  finestra.resize(1280, 720);
  finestra.show();
  QTimer::singleShot(0, &applicazione, &QApplication::quit);
  return QApplication::exec();
}
