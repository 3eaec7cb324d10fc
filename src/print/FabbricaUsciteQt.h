// The outputs that the desktop program has: preview, printer, PDF, text.
#pragma once

#include <QObject>
#include <QWidget>

#include "core/reports/Uscita.h"
#include "core/session/Porte.h"

namespace fenalto::print {

class FabbricaUsciteQt : public QObject, public reports::FabbricaUscite {
  Q_OBJECT

 public:
  /// `sopra` is the main window; `dialoghi` must outlive this and the previews.
  FabbricaUsciteQt(Dialoghi& dialoghi, QWidget* sopra);
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita& scelta,
                                        const std::string& rapporto) override;

 signals:
  /// A text with a link was double-clicked in a preview.
  void RinvioScelto(const fenalto::Rinvio& rinvio);

 private:
  Dialoghi& dialoghi_;
  QWidget* sopra_;
};

}  // namespace fenalto::print
