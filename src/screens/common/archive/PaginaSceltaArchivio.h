// The choice of a record of an archive: the selector, and the list with what narrows it.
#pragma once

#include <QWidget>

#include "core/archives/ElencoArchivio.h"

class QAbstractButton;
class QGridLayout;
class QLabel;
class QPushButton;

namespace fenalto::screens {

class CampoCodice;
class ElencoCercato;
class Griglia;

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
  [[nodiscard]] screens::Griglia& Griglia();
  /// The code that is chosen here: the one typed, if the archive has it, else that of the row.
  [[nodiscard]] QString Indicato() const;
  /// Tells that a field waits for a code.
  void MostraRichiesta(const QString& testo);
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

 private:
  void CreaSelettore(const archives::DescrizioneArchivio& descrizione);
  void CreaElenco(const archives::DescrizioneArchivio& descrizione);
  void Disponi();
  void Collega();

  Ambiente& ambiente_;
  archives::ElencoArchivio elenco_;
  CampoCodice* selettore_;
  QPushButton* apri_;
  QPushButton* nuovo_;
  QPushButton* stampa_;
  QPushButton* esporta_;
  ElencoCercato* lista_;
  QLabel* richiesta_;
  QGridLayout* fila_;
  QList<QAbstractButton*> pulsanti_;
};

}  // namespace fenalto::screens
