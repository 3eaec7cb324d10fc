// The list of a register's registrations with the line that narrows it.
//
// Rows come in pages as the list is scrolled, so that a long register opens as fast as a short one;
// a click on a header reads the rest and sorts it.
#pragma once

#include "screens/common/lists/ElencoCercato.h"
#include "vat/entry/LettoreFatture.h"

class QPushButton;

namespace fenalto::screens {

class ElencoFatture : public ElencoCercato {
  Q_OBJECT

 public:
  explicit ElencoFatture(Ambiente& ambiente, QWidget* genitore = nullptr);
  /// Shows a register's registrations; `classe` is that of its parties, `titolo` names the export.
  void Mostra(const std::string& riva, const std::string& classe, const std::string& titolo);
  void Ricarica() override;
  /// "registro 3 prot. 12   15/03/2024   122,00   9001  Rossi snc"; empty when there is none.
  [[nodiscard]] QString Descrizione(std::int64_t numero);
  [[nodiscard]] QPushButton* PulsanteEsporta() const { return esporta_; }

 private:
  void LeggiTutte();
  void DiTrovate();

  Ambiente& ambiente_;
  vat::LettoreFatture lettore_;
  std::string riva_;
  std::string classe_;
  std::string titolo_;
  QPushButton* esporta_;
  std::int64_t fino_ = vat::LettoreFatture::kDallInizio;
};

}  // namespace fenalto::screens
