// First page of the documents: the type, the documents there are, and how one is begun.
#pragma once

#include <QWidget>

#include "documents/entry/ElencoDocumenti.h"
#include "documents/entry/FattureCli.h"
#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace fenalto::screens {

class CampoCodice;
class CampoData;
class CampoNumero;
class ElencoCercato;
class SelettoreArticolo;

class PaginaSceltaDocumento : public QWidget {
  Q_OBJECT

 public:
  PaginaSceltaDocumento(documents::FattureCli& documento, Finestre& finestre,
                        QWidget* genitore = nullptr);

  /// Shows the type that is chosen and reads the list again.
  void Mostra();
  /// Chooses a type, as if it had been typed; false (told) when it can't be.
  bool ScegliTipo(const std::string& codice);
  /// Puts a number into the selector; 0 empties it.
  void Seleziona(std::int64_t numero);
  /// Enter in the search of the list or in a field above it; false for another control.
  bool Invio(QWidget& campo);
  /// Esc: empties the search that is typed; false when there was none.
  bool SvuotaRicerca();
  void FocoTipo();
  void FocoSelettore();
  void FocoNuovo();

 signals:
  void ApriChiesto(const QString& tipoDoc, qint64 numero);
  void NuovoChiesto();
  void SdoppiaChiesto(const QString& tipoDoc, int anno, qint64 numero);
  /// Another type was chosen.
  void TipoCambiato();

 private:
  QWidget* CreaSopra();
  QGroupBox* CreaElenco();
  QWidget* CreaFiltri();
  QGroupBox* CreaNuovo();
  QGroupBox* CreaSdoppia();
  void TipoLasciato();
  void MostraTipo();
  /// Reads the list anew when what it shows has changed; false when it is the same.
  bool Filtra();
  void MostraTotali();
  void Sdoppia();
  void Esporta();

  documents::FattureCli& documento_;
  Finestre& finestre_;
  documents::ElencoDocumenti lettore_;
  CampoCodice* tipo_;
  SelettoreArticolo* selettore_;
  QComboBox* genere_;
  CampoData* da_;
  CampoData* a_;
  QLabel* totali_;
  ElencoCercato* elenco_;
  QGroupBox* riquadroElenco_;
  QLabel* informazioni_;
  QLabel* fatto_;  ///< what the last confirmation or deletion did
  QPushButton* nuovo_;
  CampoCodice* yTipoDoc_;
  CampoNumero* yAnno_;
  CampoNumero* yNumDoc_;
  QPushButton* esporta_;
  QList<QAbstractButton*> pulsanti_;  ///< that can be pressed, the more used first
};

}  // namespace fenalto::screens
