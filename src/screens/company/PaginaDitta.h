// One page of the window `Utility`.
#pragma once

#include <QWidget>

#include "screens/common/windows/Finestre.h"

namespace fenalto::screens {

class PaginaDitta : public QWidget {
 public:
  /// What each page is for: N is the entry `ApreUtilityN` of the menu.
  enum class Scheda { Nuova = 0, Variazione = 1, Utilita = 2, Copie = 3 };

  PaginaDitta(Scheda scheda, Finestre& finestre) : scheda_(scheda), finestre_(finestre) {}
  [[nodiscard]] Scheda Quale() const { return scheda_; }
  /// The caption of the tab, and the window's while the page is in sight.
  [[nodiscard]] virtual QString Titolo() const = 0;
  /// What was typed would be lost.
  [[nodiscard]] virtual bool InModifica() const { return false; }
  /// Gives up what was typed.
  virtual void Abbandona() {}
  /// Reads again what it shows; called when the page comes into sight, and by F5.
  virtual void Aggiorna() {}
  /// The button that Ctrl+Enter presses.
  [[nodiscard]] virtual const char* PulsanteConferma() const { return "Conferma"; }

 protected:
  [[nodiscard]] Finestre& Gestore() const { return finestre_; }
  [[nodiscard]] Ambiente& Sessione() const { return finestre_.Sessione(); }

 private:
  Scheda scheda_;
  Finestre& finestre_;
};

}  // namespace fenalto::screens
