// Figures told on a line, each after its caption.
#pragma once

#include <QString>
#include <optional>

#include "core/values/Importo.h"

class QHBoxLayout;
class QLabel;
class QWidget;

namespace fenalto::screens {

/// A figure that can be read and copied.
QLabel* Figura(const char* nome);
/// The line of a widget that is nothing else.
QHBoxLayout& LineaDiFigure(QWidget& dove);
void AggiungiFigura(QHBoxLayout& linea, const QString& didascalia, QLabel* figura);
/// "45,00 (52,9 %)"
QString TestoMargine(Importo margine, const std::optional<Importo>& percento, int decimali);

}  // namespace fenalto::screens
