// The frame of the row that is open, with its buttons: what the row frames of registrations share.
//
// A frame's own class makes and lays out the fields and says what the row is; here are the binding,
// the label that tells a new row from an old one, and the three buttons with what they do.
#pragma once

#include <QGroupBox>

#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QLabel;
class QPushButton;

namespace fenalto {
class Scheda;
}

namespace fenalto::screens {

class CampoCodice;
class Legatura;

class RiquadroDiRiga : public QGroupBox {
  Q_OBJECT

 public:
  /// Shows the open row and takes the focus where there is something to type.
  virtual void Entra() = 0;
  /// Shows the open row, and what may be done with it.
  virtual void Mostra() = 0;
  /// Puts the focus where an existing row is left from.
  void PrendiFoco();
  /// Whether something typed isn't in the row yet.
  [[nodiscard]] bool Pendente() const;
  /// Takes what is typed; false when it can't be read (told).
  bool Raccogli();
  /// The three buttons, the more used first.
  [[nodiscard]] virtual QList<QAbstractButton*> Pulsanti() const;

 signals:
  /// The row was confirmed or deleted; `posi` is the position that it had.
  void Confermata(qint64 posi);
  void Eliminata(qint64 posi);
  void Annullata();

 protected:
  RiquadroDiRiga(Finestre& finestre, QWidget* genitore);

  [[nodiscard]] virtual bool RigaAperta() const = 0;
  [[nodiscard]] virtual Scheda& Riga() const = 0;
  /// Confirms the row. False when a check stopped it: the row is shown again, with the focus on
  /// what there is to put right.
  virtual bool ConfermaRiga() = 0;
  virtual bool EliminaRiga() = 0;
  virtual void AnnullaRiga() = 0;
  virtual void CampoLasciato(const QString& campo, bool cambiato) = 0;

  /// Gives the focus from one to the next by Tab.
  static void Ordina(std::initializer_list<QWidget*> campi);

  Finestre& finestre_;
  Legatura* legatura_;
  QLabel* quale_;  ///< new row or existing row
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;

 private:
  void Conferma();
  void Elimina();
};

}  // namespace fenalto::screens
