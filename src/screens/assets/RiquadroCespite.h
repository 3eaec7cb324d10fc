// The frame of the open row of an asset's card.
#pragma once

#include "assets/Cespiti.h"
#include "screens/common/rows/SulCasoUso.h"

class QLabel;

namespace fenalto::screens {

class RiquadroCespite : public RiquadroSul<assets::Cespiti> {
  Q_OBJECT

 public:
  RiquadroCespite(assets::Cespiti& cespiti, Finestre& finestre, QWidget* genitore = nullptr);

 protected:
  [[nodiscard]] records::StatoCampo Stato(const std::string& nome) const override;
  [[nodiscard]] std::string PrimoCampo() const override { return RigaNuova() ? "Cau" : ""; }
  bool ConfermaRiga(std::string& campo) override;
  /// By key alone: a click on a button proposes nothing that isn't seen any more.
  [[nodiscard]] bool ContaPassando(Qt::FocusReason motivo) const override {
    return motivo == Qt::TabFocusReason || motivo == Qt::BacktabFocusReason;
  }

 private:
  QLabel* aiuto_;  ///< what to type under the row's causal
};

}  // namespace fenalto::screens
