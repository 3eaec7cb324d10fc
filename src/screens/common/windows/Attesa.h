// The pointer that shows that the program works.
#pragma once

#include <QGuiApplication>

namespace fenalto::screens {

/// Shows it while in scope.
class Attesa {
 public:
  Attesa() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Attesa() { QGuiApplication::restoreOverrideCursor(); }
  Attesa(const Attesa&) = delete;
  Attesa& operator=(const Attesa&) = delete;
};

}  // namespace fenalto::screens
