// Radio buttons that together hold one field's value.
#pragma once

#include <QWidget>
#include <vector>

#include "screens/common/fields/Campi.h"

class QRadioButton;

namespace fenalto::screens {

class GruppoScelta : public QWidget, public CampoValore {
  Q_OBJECT

 public:
  struct Scelta {
    QString valore;
    QString testo;
    QString nome;  ///< object name of its button
  };

  /// `nome` is the field; the buttons stand in a row while they fit one, one below the other
  /// otherwise.
  GruppoScelta(const QString& nome, std::vector<Scelta> scelte, QWidget* genitore = nullptr);
  /// A value that no button stands for leaves all of them off.
  void Mostra(const Valore& valore) override;
  [[nodiscard]] Esito<Valore> Letto() const override;

 signals:
  void Scelto();

 private:
  std::vector<Scelta> scelte_;
  std::vector<QRadioButton*> pulsanti_;
};

}  // namespace fenalto::screens
