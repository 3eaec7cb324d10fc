// The row frame: the fields of one row of the registration, while it is open.
#pragma once

#include "ledger/registrations/Primanota.h"
#include "screens/common/rows/SulCasoUso.h"

class QFrame;

namespace fenalto::screens {

class RiquadroRiga : public RiquadroSul<ledger::Primanota> {
  Q_OBJECT

 public:
  RiquadroRiga(ledger::Primanota& primanota, Finestre& finestre, QWidget* genitore = nullptr);

  void Entra() override;
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const override;

 protected:
  bool ConfermaRiga(std::string& campo) override;
  void RigaLasciata(const std::string& campo) override;
  [[nodiscard]] records::StatoCampo Stato(const std::string& nome) const override;
  [[nodiscard]] std::string PrimoCampo() const override {
    return caso_.RigaNuova() ? "Causale" : "";
  }

 private:
  QFrame* CreaSaldo();
  /// The account that is being taken is of another class than the row's.
  void PrendiClasse(const QString& classe);
  void VisSaldo();

  QFrame* saldo_;
  QLabel* valoriSaldo_[4];
  QPushButton* visSaldo_;
};

}  // namespace fenalto::screens
