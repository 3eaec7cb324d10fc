// Pages to a printer of the system.
#pragma once

#include <QPrinter>
#include <functional>
#include <memory>

#include "print/UscitaDipinta.h"

class QWidget;

namespace fenalto::print {

/// Asks for the printer, the copies and the pages, over that window; the last printer used is
/// proposed. Nothing when cancelled.
std::unique_ptr<QPrinter> ScegliStampante(QWidget* sopra, int pagine = 0);

class UscitaStampante : public UscitaDipinta {
 public:
  /// Gives the printer, ready to print; asked when the first page is there. Nothing: given up.
  using Scelta = std::function<std::unique_ptr<QPrinter>()>;
  explicit UscitaStampante(Scelta scelta, AvanzaPagine avanza = {});
  ~UscitaStampante() override;

 protected:
  Esito<bool> Apri() override;
  [[nodiscard]] QPagedPaintDevice& Foglio() override { return *stampante_; }
  [[nodiscard]] std::string Guasto() override;
  Esito<bool> Chiudi() override;
  void Abbandona() override;
  [[nodiscard]] bool Richiesta(int pagina) const override;

 private:
  Scelta scelta_;
  std::unique_ptr<QPrinter> stampante_;
};

}  // namespace fenalto::print
