// What a control is to whoever types and reads: the field inside it, whether it can be written, the
// text it shows.
#pragma once

#include <QString>
#include <optional>

class QWidget;

namespace fenalto::copione {

/// The field that a control is, or holds when it is a frame around one field only.
QWidget* CampoDentro(QWidget& controllo);
/// A field that text is typed into.
[[nodiscard]] bool SiScrive(const QWidget& controllo);
[[nodiscard]] bool SolaLettura(const QWidget& controllo);
void SelezionaTutto(QWidget& campo);
/// Puts the cursor after the last character.
void VaiInFondo(QWidget& campo);
/// Text shown, without blanks around: si or no for what can be ticked; nothing for a control that
/// shows no text.
std::optional<QString> TestoDi(const QWidget& controllo);

}  // namespace fenalto::copione
