// Pages to a window on the screen.
#pragma once

#include <QPointer>
#include <functional>
#include <string>

#include "core/reports/Uscita.h"
#include "core/session/Porte.h"
#include "print/FinestraAnteprima.h"

namespace fenalto::print {

class UscitaAnteprima : public reports::Uscita {
 public:
  /// `suRinvio` is told the link that the user double-clicks, after the composition; `sopra` is the
  /// main window. Both ports must outlive the window.
  UscitaAnteprima(std::string titolo, Dialoghi& dialoghi, QWidget* sopra,
                  std::function<void(const Rinvio&)> suRinvio);
  ~UscitaAnteprima() override;
  [[nodiscard]] bool SoloTesto() const override { return false; }
  void Titolo(const std::string& titolo) override { titolo_ = titolo; }
  bool Aggiungi(reports::Pagina pagina) override;
  Esito<bool> Fine() override;
  void Annulla() override;
  /// The window, null before the first page and once it has gone.
  [[nodiscard]] FinestraAnteprima* Finestra() const { return finestra_; }

 private:
  std::string titolo_;
  Dialoghi& dialoghi_;
  QPointer<QWidget> sopra_;
  std::function<void(const Rinvio&)> suRinvio_;
  QPointer<FinestraAnteprima> finestra_;
  bool finita_ = false;
};

}  // namespace fenalto::print
