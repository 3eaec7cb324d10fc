// The workspace: the function windows, one tab each, and those that were set free.
//
// A window fills the workspace until the user sets it free; then it floats in it with a frame of
// its own, which is remembered for its function. Either way it has a tab. The window itself lies in
// a scroller: where it would be less than its least size, it scrolls.
#pragma once

#include <QWidget>

class QMdiSubWindow;
class QTabBar;
class QToolButton;

namespace fenalto::screens {

class AreaFinestre;
class FinestraFunzione;

class AreaLavoro : public QWidget {
  Q_OBJECT

 public:
  explicit AreaLavoro(QWidget* genitore = nullptr);

  /// Takes a new function window, shows it as its function's windows are shown and brings it to the
  /// front.
  void Metti(FinestraFunzione& finestra);
  /// Takes a window away and destroys it, without questions.
  void Togli(FinestraFunzione& finestra);
  void PortaAvanti(FinestraFunzione& finestra);
  /// Open function windows, the one in front last.
  [[nodiscard]] QList<FinestraFunzione*> Aperte() const;
  /// The same in the order of their tabs.
  [[nodiscard]] QList<FinestraFunzione*> InOrdine() const;
  /// Sets a window free, or back into its tab.
  void Libera(FinestraFunzione& finestra, bool libera);
  [[nodiscard]] bool Libera(const FinestraFunzione& finestra) const;
  /// Remembers how a window is shown, before it closes.
  void Ricorda(const FinestraFunzione& finestra) const;
  /// Goes to the next tab, or to the one before it.
  void Gira(bool avanti);
  /// Where the windows lie, and the background under them.
  [[nodiscard]] QWidget* viewport() const;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void CreaLinguette();
  void CreaTasti();
  void MenuLinguetta(const QPoint& punto);
  void ChiudiAltre(const QMdiSubWindow* cornice);
  void Attivata(QMdiSubWindow* cornice);
  void MostraTitolo(const QMdiSubWindow& cornice);
  /// Frame, place and size of a window as it is to be.
  void Sistema(QMdiSubWindow& cornice, bool libera);
  [[nodiscard]] QRect PostoLibero(const FinestraFunzione& finestra) const;
  /// Drops the tabs of windows that have gone.
  void Riallinea();
  [[nodiscard]] QMdiSubWindow* Cornice(int linguetta) const;
  [[nodiscard]] int Linguetta(const QMdiSubWindow* cornice) const;

  QTabBar* linguette_;
  QToolButton* libera_;
  QWidget* barra_;
  AreaFinestre* area_;
  bool seguendo_ = false;  ///< the tabs follow the windows, not the other way
};

}  // namespace fenalto::screens
