// What is wrong with how a window is laid out: found by looking at its controls as they stand.
#pragma once

#include <QStringList>

class QWidget;

namespace fenalto::prova {

/// One line a fault: the control, and what is wrong with it. Looked for are controls over each
/// other, text that is cut without saying so, controls that no scrolling reaches or that are less
/// than their least size, amounts without room, text that can't be read on its ground.
[[nodiscard]] QStringList Difetti(QWidget& finestra);

}  // namespace fenalto::prova
