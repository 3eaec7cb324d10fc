// The row frame: the fields of one row of the registration, while it is open.
#pragma once

#include <QGroupBox>

#include "ledger/Primanota.h"
#include "screens/common/Finestre.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QFrame;
class QGridLayout;
class QLabel;
class QPushButton;

namespace fenalto {

class CampoCodice;
class CampoImporto;
class CampoNumero;
class CampoTesto;
class Legatura;

class RiquadroRiga : public QGroupBox {
  Q_OBJECT

 public:
  RiquadroRiga(Primanota& primanota, Finestre& finestre, QWidget* genitore = nullptr);

  /// Shows the open row and takes the focus where work on it begins.
  void Entra();
  /// Puts the focus where an existing row is left from.
  void PrendiFoco();
  /// Shows the open row, and what may be done with it.
  void Mostra();
  /// Whether something typed isn't in the row yet.
  [[nodiscard]] bool Pendente() const;
  /// Takes what is typed; false when it can't be read (told).
  bool Raccogli();
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 signals:
  /// The row was confirmed, deleted or given up; `posi` is its position.
  void Confermata(qint64 posi);
  void Eliminata(qint64 posi);
  void Annullata();

 private:
  void CreaCampi();
  void Disponi();
  QGridLayout* DisponiCampi();
  QWidget* CreaContropartita();
  QFrame* CreaSaldo();
  void OrdineTab();
  void Collega();
  void CampoLasciato(const QString& campo, bool cambiato);
  /// Gives the account fields the source of the classes in the row.
  void ScegliFonti();
  void Conferma();
  void Elimina();
  void VisSaldo();

  Primanota& primanota_;
  Finestre& finestre_;
  Legatura* legatura_;
  CampoNumero* posi_;
  CampoCodice* causale_;
  CampoTesto* descrizione_;
  QComboBox* cfp_;
  CampoCodice* conto_;
  CampoImporto* dare_;
  CampoImporto* avere_;
  QGroupBox* controp_;
  QComboBox* cfpControp_;
  CampoCodice* contoControp_;
  QCheckBox* diversi_;
  CampoCodice* categoria_;
  CampoTesto* commessa_;
  QLabel* quale_;
  QFrame* saldo_;
  QLabel* valoriSaldo_[4];
  QPushButton* visSaldo_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;
  std::string classe_;  ///< that the source of `Conto` is for
  std::string classeControp_;
};

}  // namespace fenalto
