// Second page of the VAT registrations: the open one with its rows.
#pragma once

#include <QWidget>

#include "screens/common/Finestre.h"
#include "vat/Fatture.h"

class QAbstractButton;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fenalto {

class Griglia;
class Legatura;
class PannelloContabile;
class PannelloOpzioni;
class RiquadroRigaIva;
class TestaFattura;

class PaginaFattura : public QWidget {
  Q_OBJECT

 public:
  PaginaFattura(Fatture& fatture, Finestre& finestre, QWidget* genitore = nullptr);

  /// Shows the registration that was just opened, and takes the focus.
  void Entra();
  /// Shows everything anew.
  void Mostra();
  /// Whether something typed isn't in the record yet.
  [[nodiscard]] bool Pendente() const;
  /// Gives the open row up; false when none is open.
  bool AnnullaRiga();
  /// Takes the rows of the party's last registration and begins to fill them.
  void ProponiRighe();
  /// Repeats in a field of the head what the last registration had; false for another control.
  bool Ripeti(QWidget* campo);

 signals:
  void Confermata(qint64 numero);
  void Eliminata();
  /// The user wants to leave the record.
  void AbbandonoChiesto();

 private:
  void CreaGriglia();
  QVBoxLayout* DisponiSinistra();
  QHBoxLayout* DisponiComandiRighe();
  QHBoxLayout* DisponiPiede();
  void OrdineTab();
  void Collega();
  void CampoLasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo);
  bool Raccogli();
  void ApriRiga(int indice);
  void NuovaRiga();
  void DopoRiga(qint64 posi);
  /// Opens the next proposed row without amounts after a position; false when there is none.
  bool ApriProposta(qint64 dopo);
  void Conferma();
  void Elimina();
  void MostraRighe();
  void MostraProposta();
  void VaiAPosizione(std::int64_t posi);
  void VaiA(const std::string& campo);
  std::string DescrittoConto(const std::string& conto);

  Fatture& fatture_;
  Finestre& finestre_;
  Legatura* legatura_;
  TestaFattura* testa_;
  PannelloOpzioni* opzioni_;
  PannelloContabile* contabile_;
  QLabel* solaLettura_;
  Griglia* righe_;
  RiquadroRigaIva* riga_;
  QLabel* proposta_;
  QPushButton* proponi_;
  QPushButton* nuovaRiga_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;
  Data dataVista_;         ///< date whose warnings were given on leaving its field
  bool percorre_ = false;  ///< the proposed rows are being filled one after the other
};

}  // namespace fenalto
