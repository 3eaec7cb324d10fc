// The window "Operazioni automatiche di apertura e chiusura": how far the year is, what to look at
// before closing it, the transport of balances, the three closing runs.
#pragma once

#include "screens/common/windows/FinestraFunzione.h"

class QTabWidget;

namespace fenalto::screens {

class PaginaControlli;
class PaginaGiri;
class PaginaSituazioneAnno;
class PaginaTrasporto;

class FinestraChiusureAperture : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraChiusureAperture(Finestre& finestre);
  ~FinestraChiusureAperture() override;
  void Aggiorna() override;

 private:
  /// Reads what the page in sight shows, unless nothing was done since it was read.
  void Rileggi();

  QTabWidget* schede_;
  PaginaSituazioneAnno* situazione_;
  PaginaControlli* controlli_;
  PaginaTrasporto* trasporto_;
  PaginaGiri* giri_;
  bool situazioneLetta_ = false;
  bool controlliLetti_ = false;
};

}  // namespace fenalto::screens
