// The row frame of a VAT registration: the fields of one taxable row, while it is open.
#pragma once

#include <QGroupBox>

#include "screens/common/Finestre.h"
#include "vat/Fatture.h"

class QAbstractButton;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace fenalto {

class CampoCodice;
class CampoImporto;
class CampoNumero;
class CampoTesto;
class Legatura;

class RiquadroRigaIva : public QGroupBox {
  Q_OBJECT

 public:
  RiquadroRigaIva(Fatture& fatture, Finestre& finestre, QWidget* genitore = nullptr);

  /// Shows the open row and takes the focus where there is something to type.
  void Entra();
  /// Puts the focus where an existing row is left from.
  void PrendiFoco();
  void Mostra();
  /// Whether something typed isn't in the row yet.
  [[nodiscard]] bool Pendente() const;
  /// Takes what is typed; false when it can't be read (told).
  bool Raccogli();
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 signals:
  /// The row was confirmed or deleted; `posi` is the position that it had.
  void Confermata(qint64 posi);
  void Eliminata(qint64 posi);
  void Annullata();

 private:
  void CreaCampi();
  QGridLayout* DisponiCampi();
  QHBoxLayout* DisponiPulsanti();
  void OrdineTab();
  void Collega();
  void CampoLasciato(const QString& campo, bool cambiato);
  void Scorpora();
  void Conferma();
  void Elimina();

  Fatture& fatture_;
  Finestre& finestre_;
  Legatura* legatura_;
  CampoNumero* posi_;
  CampoCodice* conto_;
  CampoCodice* codIva_;
  CampoTesto* descrizione_;
  CampoCodice* categoria_;
  CampoTesto* commessa_;
  CampoImporto* imponibile_;
  CampoImporto* iva_;
  CampoImporto* ivaInd_;
  CampoImporto* totale_;
  QLabel* quale_;
  QPushButton* scorpora_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;
};

}  // namespace fenalto
