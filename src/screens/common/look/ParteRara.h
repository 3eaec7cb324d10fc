// The part of a box that is folded away while it isn't used.
//
// A rare box (customs, withholding) shows the tick that turns it on; the fields that follow from it
// unfold when it is ticked, or when the record has it ticked already.
#pragma once

#include <QWidget>

namespace fenalto::screens {

class ParteRara : public QWidget {
  Q_OBJECT

 public:
  explicit ParteRara(QWidget* genitore = nullptr) : QWidget(genitore) { hide(); }
  /// Unfolds it, or folds it away; never from under the focus.
  void Apri(bool aperta);
};

}  // namespace fenalto::screens
