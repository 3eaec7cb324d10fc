// The rows that belong to an archive's record (rates of a payment code, destinations of a
// customer): their list, the frame of the one that is open, and the four buttons.
//
// A class of its own makes and lays out the fields and reaches its use case; which button does
// what, when a row may be left and where the focus goes is the same for all.
#pragma once

#include <QWidget>
#include <initializer_list>
#include <string>
#include <vector>

#include "core/session/Scheda.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/windows/Finestre.h"

class QGroupBox;
class QPushButton;

namespace fenalto::screens {

class Legatura;

/// Controls beside each other, as one field.
QWidget* InFila(std::initializer_list<QWidget*> controlli);

class RigheDelRecord : public QWidget {
  Q_OBJECT

 public:
  /// Shows the rows, and the open one when there is one.
  void Mostra();
  void SolaLettura(bool attiva);
  /// Takes what is typed and confirms the open row; false when it must stay open (told).
  bool ConfermaAperta();
  /// Whether the open row holds changes.
  [[nodiscard]] bool Modificata() const;
  /// Gives the open row up; false when there was none.
  bool Annulla();

 protected:
  struct Nomi {
    QString memoria;     ///< under which the grid remembers its widths
    QString riga;        ///< title of the frame: "Rata"
    QString nuova;       ///< "Nuova rata"
    std::string aperta;  ///< told of a new row that can't be left so
    QString primoCampo;  ///< where a new row begins
  };
  RigheDelRecord(Nomi nomi, std::vector<ColonnaGriglia> colonne, Finestre& finestre,
                 QWidget* genitore);

  // --- The use case
  [[nodiscard]] virtual bool InRiga() const = 0;
  [[nodiscard]] virtual bool RigaNuova() const = 0;
  [[nodiscard]] virtual Scheda& Riga() const = 0;
  /// Cells of all rows; the first of each is its key.
  [[nodiscard]] virtual std::vector<std::vector<Valore>> Elenco() const = 0;
  virtual bool ApriRiga(const Valore& chiave) = 0;
  virtual bool NuovaRiga() = 0;
  /// False when a check stopped it; `campo` is then the field to go to, empty for none.
  virtual bool ConfermaRiga(QString& campo) = 0;
  virtual bool EliminaRiga() = 0;
  virtual void AnnullaRiga() = 0;
  /// A row was opened or left.
  virtual void RigaCambiata() {}

  Finestre& finestre_;
  Legatura* legatura_;
  Griglia* griglia_;
  QGroupBox* riquadro_;  ///< of the open row
  QPushButton* nuova_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;

 private:
  void Collega();
  void MostraCambiata();
  void Apri(int indice);
  void Nuova();
  bool Conferma();

  Nomi nomi_;
  bool solaLettura_ = false;
};

}  // namespace fenalto::screens
