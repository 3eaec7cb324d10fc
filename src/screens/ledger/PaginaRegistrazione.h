// Second page of the primanota window: the open registration with its rows.
#pragma once

#include <QWidget>

#include "ledger/Primanota.h"
#include "screens/common/Finestre.h"

class QAbstractButton;
class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;

namespace fenalto {

class CampoData;
class CampoImporto;
class CampoNumero;
class CampoTesto;
class Griglia;
class Legatura;
class PannelloAllegati;
class RiquadroRiga;

class PaginaRegistrazione : public QWidget {
  Q_OBJECT

 public:
  PaginaRegistrazione(Primanota& primanota, Finestre& finestre, QWidget* genitore = nullptr);

  /// Shows the registration that was just opened, and takes the focus.
  void Entra();
  /// Shows everything anew.
  void Mostra();
  /// Whether something typed isn't in the record yet.
  [[nodiscard]] bool Pendente() const;
  /// Gives the open row up; false when none is open.
  bool AnnullaRiga();

 signals:
  void Confermata(qint64 numero);
  void Eliminata();
  /// The user wants to leave the record.
  void AbbandonoChiesto();

 private:
  void CreaCampi();
  void CreaGriglia();
  QWidget* CreaTestata();
  QGridLayout* DisponiTestata();
  QWidget* CreaPiede();
  void Collega();
  void CampoLasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo);
  bool Raccogli();
  void ApriRiga(int indice);
  void NuovaRiga();
  void DopoRiga(qint64 posi);
  void Conferma();
  void Elimina();
  void MostraRighe();
  void MostraTotali();
  void VaiAPosizione(std::int64_t posi);

  Primanota& primanota_;
  Finestre& finestre_;
  Legatura* legatura_;
  CampoNumero* numero_;
  QLabel* probabileDidascalia_;
  QLabel* probabile_;
  CampoData* data_;
  QLabel* anno_;
  QLabel* avvisoData_;
  Data dataVista_;  ///< date whose warnings were given on leaving its field
  QCheckBox* automatiche_;
  QCheckBox* duplicabile_;
  CampoTesto* descrizione_;
  QLabel* solaLettura_;
  Griglia* righe_;
  RiquadroRiga* riga_;
  PannelloAllegati* allegati_;
  CampoImporto* totDare_;
  CampoImporto* totAvere_;
  CampoImporto* sbilancio_;
  QPushButton* nuovaRiga_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;
};

}  // namespace fenalto
