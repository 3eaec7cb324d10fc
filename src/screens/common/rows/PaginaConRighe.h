// The page of an open registration: its head, the grid of its rows with the frame of the open one,
// and the buttons that confirm it, delete it or give it up.
//
// A page's own class lays the controls out and says what the registration is; here is what follows
// from them in the same way for all registrations.
#pragma once

#include <QWidget>
#include <optional>

#include "core/records/DescrizioneForma.h"
#include "core/values/Data.h"
#include "screens/common/lists/Griglia.h"

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace fenalto {
class Scheda;
}

namespace fenalto::screens {

class CampiForma;
class Finestre;
class Legatura;
class RiquadroDiRiga;

class PaginaConRighe : public QWidget {
  Q_OBJECT

 public:
  /// Shows the registration that was just opened, and takes the focus.
  virtual void Entra();
  /// Shows everything anew.
  virtual void Mostra() = 0;
  /// Whether something typed isn't in the record yet.
  [[nodiscard]] bool Pendente() const;
  [[nodiscard]] virtual bool Aperta() const = 0;
  /// The open registration has something that leaving it would lose.
  [[nodiscard]] virtual bool Cambiata() const = 0;
  /// Gives the open row up, after a question when something was typed in it; false when none is
  /// open.
  bool AnnullaRiga();
  /// Enter in a field of the head: the next one, and after the last the row that is typed next.
  /// False for another control.
  bool Invio(QWidget& campo);

 signals:
  void Confermata(qint64 numero);
  void Eliminata();
  /// The user wants to leave the record.
  void AbbandonoChiesto();

 protected:
  PaginaConRighe(Finestre& finestre, QWidget* genitore);

  [[nodiscard]] virtual Scheda& Testa() const = 0;
  /// The open registration isn't stored yet.
  [[nodiscard]] virtual bool Nuova() const = 0;
  [[nodiscard]] virtual bool RigaAperta() const = 0;
  /// A field of the head was left and what it holds counts.
  virtual void TestaLasciata(const std::string& campo) = 0;
  /// Opens the row at an index of the grid.
  virtual void ApriRiga(int indice) = 0;
  virtual void NuovaRiga() = 0;
  virtual void RinunciaRiga() = 0;
  /// The number that the registration was confirmed with. Nothing when a check stopped it: it is
  /// shown again, with the focus on what there is to put right.
  virtual std::optional<std::int64_t> ConfermaRegistrazione() = 0;
  /// False when it is still there; it is shown again.
  virtual bool EliminaRegistrazione() = 0;
  virtual void FocoData() = 0;
  /// Fields of the head as Enter goes through them; each group leads to the rows.
  [[nodiscard]] virtual QList<QList<QWidget*>> OrdineTesta() const = 0;
  /// A row was confirmed or deleted: its position.
  virtual void DopoRiga(qint64 posi);
  /// A row was given up.
  virtual void DopoRinuncia() { DopoRiga(0); }

  /// Builds a form of the head into a layout.
  CampiForma* Compila(records::DescrizioneForma forma, QVBoxLayout& dove);
  /// Takes the grid and the row frame that the page has made.
  void Usa(Griglia* righe, int righeMinime, RiquadroDiRiga* riga);
  /// Takes what is typed; false when it can't be read (told).
  bool Raccogli();
  /// Shows the rows, whose first value is their position, and stays on the one that was current.
  void MostraRighe(std::vector<std::vector<Valore>> righe);
  void MostraRiquadro();
  void VaiAPosizione(std::int64_t posi);
  /// Puts the focus into what a refusal names; it stays where it is when that can't take it.
  void VaiA(const std::string& campo);

  Finestre& finestre_;
  Legatura* legatura_;
  QLabel* solaLettura_;
  Griglia* righe_ = nullptr;
  RiquadroDiRiga* riga_ = nullptr;
  QPushButton* nuovaRiga_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* annulla_;

 private:
  void CampoLasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo);
  void Conferma();
  void VaiAlleRighe();

  Data dataVista_;  ///< date whose warnings were given on leaving its field
};

}  // namespace fenalto::screens
