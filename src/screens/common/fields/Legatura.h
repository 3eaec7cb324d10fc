// Binds the controls of a window to the fields of a record by name.
//
// A control is left when it loses the focus or Enter is pressed in it: its value goes into the
// record when it changed, and `Lasciato` tells the field, so that the window can call the rule that
// follows and show the record again. A text that can't be read stays in the control, which takes
// the focus back after a message. Nothing is read from a control that was hidden while it had the
// focus: its record is being given up.
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <vector>

#include "core/session/Porte.h"
#include "core/session/Scheda.h"

class QLabel;

namespace fenalto::screens {

class CampoValore;

class Legatura : public QObject {
  Q_OBJECT

 public:
  /// `scheda` is asked for at each use, since a use case may make it anew.
  Legatura(std::function<Scheda&()> scheda, Dialoghi& dialoghi, QObject* genitore);

  /// The record that controls are bound to.
  [[nodiscard]] Scheda& Record() const { return scheda_(); }
  /// Binds a control to the field of its object name. Typed fields, combo boxes (by text), check
  /// boxes, radio buttons alone or in a GruppoScelta, and labels can be bound.
  void Lega(QWidget* controllo);
  /// The control that gives the record up: what is left for it isn't read.
  void Rinuncia(QWidget* controllo) { rinuncia_ = controllo; }
  /// Shows the record in all controls.
  void Mostra();
  /// Takes what is typed in the control that has the focus, as leaving it would. False when some
  /// control holds a text that can't be read; its message was shown.
  bool Raccogli();
  /// Whether a control holds typed text that isn't in the record yet.
  [[nodiscard]] bool Pendente() const;

 signals:
  /// A control was left; `cambiato` when its value is new or was typed again. `motivo` tells a
  /// passage by key (Tab, Enter) from another.
  void Lasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  bool Lascia(QWidget* controllo, bool digitato, Qt::FocusReason motivo);
  bool Rifiuta(QWidget* controllo, const std::string& messaggio);
  void MostraUno(QWidget* controllo);
  std::function<Scheda&()> scheda_;
  Dialoghi& dialoghi_;
  std::vector<QWidget*> controlli_;
  QWidget* rinuncia_ = nullptr;
  bool occupata_ = false;
  /// The control and text that leaving has just complained about, so that the button pressed by the
  /// same gesture doesn't repeat it.
  QWidget* rifiutato_ = nullptr;
  QString testoRifiutato_;
};

}  // namespace fenalto::screens
