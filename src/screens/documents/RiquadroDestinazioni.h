// The list of a customer's goods destinations, and the fields of the one that is open.
#pragma once

#include <QWidget>
#include <functional>

#include "documents/DestinazioniCliente.h"
#include "screens/common/Finestre.h"

class QGroupBox;
class QLabel;
class QPushButton;

namespace fenalto {

class Griglia;
class Legatura;

class RiquadroDestinazioni : public QWidget {
  Q_OBJECT

 public:
  /// What the list asks of the customer's window.
  struct Cliente {
    std::function<ContestoArchivio&()> cliente;
    /// Takes what is typed in the customer's fields; false when it can't be read (told).
    std::function<bool()> raccogli;
    /// A row was opened or left.
    std::function<void()> rigaCambiata;
  };

  RiquadroDestinazioni(DestinazioniCliente& destinazioni, Cliente cliente, Finestre& finestre,
                       QWidget* genitore = nullptr);

  /// Shows the rows, and the open one when there is one.
  void Mostra();
  void SolaLettura(bool attiva);
  /// Takes what is typed and confirms the open row; false when it must stay open (told).
  bool ConfermaAperta();
  /// Whether the open row holds changes.
  [[nodiscard]] bool Modificata() const;
  /// Gives the open row up; false when there was none.
  bool Annulla();

 private:
  void CreaCampi();
  void Disponi();
  void Collega();
  void MostraTutto();
  void Apri(int indice);
  void Nuova();
  bool Conferma();
  void Elimina();

  DestinazioniCliente& destinazioni_;
  Cliente cliente_;
  Dialoghi& dialogo_;
  Legatura* legatura_;
  Griglia* griglia_;
  QGroupBox* riquadro_;
  QPushButton* nuova_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;
  bool solaLettura_ = false;
};

}  // namespace fenalto
