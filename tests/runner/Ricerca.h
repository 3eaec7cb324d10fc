// Finding a control of a window by its object name, as a person would see it.
#pragma once

#include <QList>
#include <QPoint>
#include <QStringList>
#include <QTabWidget>
#include <QWidget>

class QAction;

namespace fenalto::copione {

class Ricerca {
 public:
  explicit Ricerca(QWidget& finestra) : finestra_(finestra) {}

  /// All controls of the window with that name, without case; a tool bar's entry counts as its
  /// button. The window itself when no control has its name.
  [[nodiscard]] QList<QWidget*> Tutti(const QString& nome) const;
  /// The one that is visible and enabled; else the visible one; else the one on a page that can be
  /// turned to, which is turned to. Fails when there is none or more than one.
  QWidget& Trova(const QString& nome) const;
  /// The same without turning a page: what is only read must not leave the page that is in front,
  /// since leaving it may give a record up.
  QWidget& Guarda(const QString& nome) const;
  /// The same, and it can be used: visible, enabled, in view, not covered.
  QWidget& Usabile(const QString& nome) const;
  /// Fails when a control that was found can't be used any more.
  void Accerta(QWidget& controllo, const QString& nome) const;
  /// Like Usabile; a word that names no control may be a button's caption.
  QWidget& Pulsante(const QString& nome) const;
  /// An entry of the window's menus by its object name; null when there is none.
  [[nodiscard]] QAction* VoceMenu(const QString& nome) const;
  /// The failure of a control that can't be used, with the names that the window has.
  [[noreturn]] void Fallisci(const QString& nome, const QString& motivo) const;

  /// Hidden only because other pages are in front, all of which can be turned.
  [[nodiscard]] bool Girabile(const QWidget& controllo) const;

 private:
  [[nodiscard]] QList<QWidget*> Controlli() const;
  [[nodiscard]] QStringList Nomi() const;
  void Gira(QWidget& controllo) const;
  QWidget* Unico(QList<QWidget*> candidati, const QString& nome) const;

  QWidget& finestra_;
};

/// The point of a control that is clicked: its middle, or the mark of a check box.
QPoint PuntoDi(const QWidget& controllo);
/// Turns a tab control by a click on its tab.
void GiraPagina(QTabWidget& schede, int pagina);
/// A caption without its marks of mnemonics and its shortcut.
QString SenzaMnemonica(const QString& testo);

}  // namespace fenalto::copione
