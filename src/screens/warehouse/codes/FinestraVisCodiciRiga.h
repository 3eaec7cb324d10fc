// The window "Ricerca prodotti di magazzino, servizi e codici per fatture, ddt e movimentazione
// magazzino": four lists from which a product is chosen. A product field opens it (Ctrl+F2) and
// gets what was chosen; opened otherwise it leads to the archive.
#pragma once

#include <array>

#include "screens/common/windows/FinestraFunzione.h"

class QTabWidget;

namespace fenalto::screens {

class PaginaProdotti;

class FinestraVisCodiciRiga : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraVisCodiciRiga(Finestre& finestre);
  ~FinestraVisCodiciRiga() override;

  /// Searches what was typed in the field.
  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;

 protected:
  bool Indietro() override;
  bool Invio(QWidget& campo) override;
  [[nodiscard]] std::string CodiceDaRendere() const override { return scelto_; }
  void RichiestaDa(const QString& campo) override;
  void showEvent(QShowEvent* evento) override;

 private:
  [[nodiscard]] PaginaProdotti& Corrente() const;
  /// Reads the page in sight, if it wasn't yet.
  void Leggi();
  void Scegli(const QString& codice);

  QTabWidget* schede_;
  std::array<PaginaProdotti*, 4> pagine_{};
  std::array<bool, 4> lette_{};
  std::string scelto_;
};

}  // namespace fenalto::screens
