// The frame of the row that is open, with its buttons: what the row frames of registrations share.
//
// Its fields are a described form. A frame's own class gives the form, places the buttons and says
// what the row is; here are the binding, the label that tells a new row from an old one, and the
// three buttons with what they do.
#pragma once

#include <QGroupBox>

#include "core/records/DescrizioneForma.h"
#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fenalto {
class Scheda;
}

namespace fenalto::screens {

class CampiForma;
class Legatura;

/// Asked before a row with something typed in it is left.
constexpr const char* kLasciareRiga =
    "Nella riga ci sono modifiche non confermate.\nSi vuole lasciarla senza confermarle ?";

class RiquadroDiRiga : public QGroupBox {
  Q_OBJECT

 public:
  /// Shows the open row and takes the focus where there is something to type.
  virtual void Entra();
  /// Shows the open row, and what may be done with it.
  void Mostra();
  /// Puts the focus where an existing row is left from.
  void PrendiFoco();
  /// Whether something typed isn't in the row yet.
  [[nodiscard]] bool Pendente() const;
  /// Whether leaving the row would lose something typed.
  [[nodiscard]] bool Digitata() const;
  /// Puts the focus where typing begins.
  void DaiFoco();
  /// Takes what is typed; false when it can't be read (told).
  bool Raccogli();
  /// Takes what is typed and confirms the row; false when it stays open (told).
  bool Conferma();
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
  [[nodiscard]] virtual bool RigaNuova() const = 0;
  [[nodiscard]] virtual bool SolaLettura() const = 0;
  [[nodiscard]] virtual Scheda& Riga() const = 0;
  /// Confirms the row. False when a check stopped it; `campo` is then the field to go to, empty for
  /// none.
  virtual bool ConfermaRiga(std::string& campo) = 0;
  virtual bool EliminaRiga() = 0;
  virtual void AnnullaRiga() = 0;
  /// A field of the row was left and what it holds counts.
  virtual void RigaLasciata(const std::string& campo) = 0;
  /// Whether passing through a field that counts without a new value does so, left that way.
  [[nodiscard]] virtual bool ContaPassando(Qt::FocusReason /*motivo*/) const { return true; }
  [[nodiscard]] virtual records::StatoCampo Stato(const std::string& /*nome*/) const { return {}; }
  /// The field where typing begins, empty when there is nothing left to type.
  [[nodiscard]] virtual std::string PrimoCampo() const = 0;

  /// Builds the fields; gives the layout under them.
  QVBoxLayout& Compila(records::DescrizioneForma forma);

  Finestre& finestre_;
  Legatura* legatura_;
  CampiForma* campi_ = nullptr;
  QLabel* quale_;  ///< new row or existing row
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;

 private:
  void CampoLasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo);
  void MostraCampi();
  void Elimina();
  /// Of the open row; 0 for rows without.
  [[nodiscard]] std::int64_t Posizione() const;
};

}  // namespace fenalto::screens
