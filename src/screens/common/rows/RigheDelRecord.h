// The rows that belong to an archive's record (rates of a payment code, destinations of a
// customer): their list, the frame of the one that is open, and the four buttons.
//
// What the rows are is a description, over the use case that holds them; which button does what,
// when a row may be left and where the focus goes is the same for all.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/records/DescrizioneForma.h"
#include "core/session/Scheda.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/windows/Finestre.h"

class QPushButton;

namespace fenalto::screens {

class RiquadroDiRiga;

/// A further button of the open row: what it does is taken from what is typed so far.
struct PulsanteDiRiga {
  QString nome;
  QString testo;
  QString suggerimento;
  std::function<void()> azione;
};

/// Rows of a record and what is asked of their use case.
struct DescrizioneRighe {
  QString memoria;      ///< under which the grid remembers its widths
  QString riga;         ///< title of the frame: "Rata"
  QString nuova;        ///< "Nuova rata"
  std::string aperta;   ///< told of a new row that can't be left so
  QString elenco = {};  ///< title of the box around the list, empty for none
  std::vector<ColonnaGriglia> colonne;
  records::DescrizioneForma forma;
  std::string primoCampo;  ///< where a new row begins
  bool attese = false;     ///< a record without rows isn't whole: typing goes on with them

  std::function<Scheda&()> scheda;  ///< fields of the open row
  std::function<bool()> inRiga;
  std::function<bool()> rigaNuova;
  /// A row was added, changed or deleted.
  std::function<bool()> modificate;
  /// Cells of all rows; the first of each is its key.
  std::function<std::vector<std::vector<Valore>>()> celle;
  std::function<bool(const Valore& chiave)> apri;
  std::function<bool()> inizia;
  /// False when a check stopped it; `campo` is then the field to go to, empty for none.
  std::function<bool(std::string& campo)> conferma;
  std::function<bool()> elimina;
  std::function<void()> annulla;
  /// No record is open any more.
  std::function<void()> chiudi;
  std::function<void(const std::string& campo)> lasciato = {};
  /// A row was opened or left.
  std::function<void()> cambiata = {};
  std::vector<PulsanteDiRiga> pulsanti = {};
};

class RigheDelRecord : public QWidget {
  Q_OBJECT

 public:
  RigheDelRecord(DescrizioneRighe righe, Finestre& finestre, QWidget* genitore = nullptr);

  /// Shows the rows, and the open one when there is one.
  void Mostra();
  void SolaLettura(bool attiva) { solaLettura_ = attiva; }
  /// Takes what is typed and confirms the open row; false when it must stay open (told).
  bool ConfermaAperta();
  /// Whether the rows or the open one hold changes.
  [[nodiscard]] bool Modificate() const;
  /// Gives the open row up, after a question when something was typed in it; false when there was
  /// none.
  bool Annulla();
  /// The record has no rows yet and wants some.
  [[nodiscard]] bool Attese() const;
  /// Begins a new row.
  void Comincia();
  /// Forgets the rows: no record is open any more.
  void Chiudi();

 private:
  class Riquadro;
  void Disponi();
  void Collega();
  void MostraCambiata();
  void Lascia();
  void Apri(int indice);
  void Nuova();
  [[nodiscard]] bool ApertaModificata() const;

  DescrizioneRighe descritte_;
  Finestre& finestre_;
  Griglia* griglia_;
  QPushButton* nuova_;
  Riquadro* riquadro_;  ///< of the open row
  bool solaLettura_ = false;
};

}  // namespace fenalto::screens
