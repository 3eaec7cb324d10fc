// The choice of a record of an archive: the selector, and the list with what narrows it.
//
// Rows come in pages as the list is scrolled. A search starts once the keys already typed have been
// taken, so that typing never waits for a list that the next key makes useless.
#pragma once

#include <QWidget>

#include "core/archives/ElencoArchivio.h"

class QAbstractButton;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace fenalto::screens {

class CampoCodice;
class Griglia;
class RigaFiltri;

class PaginaSceltaArchivio : public QWidget {
  Q_OBJECT

 public:
  PaginaSceltaArchivio(Ambiente& ambiente, const archives::DescrizioneArchivio& descrizione);
  /// Reads the list again with the same filter, and goes back to the place where it was.
  void Ricarica();
  /// Empties the selector and gives it the focus.
  void Pronta();
  void MostraCodice(const QString& codice);
  [[nodiscard]] QString Codice() const;
  /// Shows the code in the selector; whether the archive has it.
  bool Esiste(const QString& codice);
  [[nodiscard]] archives::FiltroElenco Filtro() const;
  [[nodiscard]] archives::ElencoArchivio& Elenco() { return elenco_; }
  [[nodiscard]] screens::Griglia& Griglia() { return *griglia_; }
  /// The current row of the list, while it holds that code.
  void Indica(const QString& codice);
  /// Esc: empties the search or the filter that is being typed; false when there was none.
  bool SvuotaRicerca();
  /// Enter in the search or in a filter: opens the only row found, or goes to the rows. False for
  /// another control.
  bool InvioInRicerca(const QObject* controllo);
  void AggiungiPulsante(QPushButton* pulsante);
  /// Whether records can be added here.
  void MostraNuovo(bool visibile);
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const { return pulsanti_; }
  /// The focus goes through the controls as they stand on the page.
  void OrdinaFoco();

 signals:
  void Scelto(const QString& codice);
  void Nuovo();
  void Stampa();
  void Esporta();

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void CreaSelettore(const archives::DescrizioneArchivio& descrizione);
  void CreaElenco(const archives::DescrizioneArchivio& descrizione);
  void Disponi();
  void Collega();
  void Leggi();
  void DiQuanti();
  [[nodiscard]] QString CodiceDi(int riga) const;
  [[nodiscard]] bool InRicerca(const QObject* controllo) const;

  Ambiente& ambiente_;
  archives::ElencoArchivio elenco_;
  CampoCodice* selettore_;
  QPushButton* apri_;
  QPushButton* nuovo_;
  QPushButton* stampa_;
  QPushButton* esporta_;
  QLineEdit* cerca_;
  screens::Griglia* griglia_;
  RigaFiltri* filtri_;
  QLabel* stato_;
  QGridLayout* fila_;
  QTimer* ripresa_;
  QList<QAbstractButton*> pulsanti_;
  std::string ultimo_;   ///< code of the last row read
  bool finito_ = false;  ///< the last page read was the last there is
};

}  // namespace fenalto::screens
