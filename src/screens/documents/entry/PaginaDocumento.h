// Second page of the documents: the open one. Its first sheet has the head and the rows, so that a
// document is typed without turning pages; the second what is seldom touched.
#pragma once

#include "documents/entry/FattureCli.h"
#include "screens/common/rows/SulCasoUso.h"
#include "screens/common/windows/Finestre.h"

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QStackedWidget;
class QTabWidget;
class QVBoxLayout;

namespace fenalto::screens {

class CampiForma;
class CampoCodice;
class PannelloAllegati;
class PannelloIncolla;
class RiquadroRigaDocumento;
class TotaliDocumento;

class PaginaDocumento : public PaginaSul<documents::FattureCli> {
  Q_OBJECT

 public:
  PaginaDocumento(documents::FattureCli& documento, Finestre& finestre,
                  QWidget* genitore = nullptr);

  void Entra() override;
  void Mostra() override;
  /// Enter in a field of the open row: where the work goes on. False where it is simply the next.
  bool InvioInRiga(QWidget& campo);
  /// Ctrl+Enter: a row that was typed is confirmed, one that wasn't goes with the confirmation of
  /// the document.
  void ConfermaTutto();
  /// Shows the rows that the clipboard holds before they go in.
  void IncollaRighe();
  void ProdottiRecenti();
  /// Esc: leaves the pasted rows; false when there were none.
  bool LasciaIncollate();
  /// Whether pasting there means rows: in the grid, and in the product's field when it is more than
  /// a word.
  [[nodiscard]] bool SiIncollanoRighe(const QObject* dove) const;

 protected:
  void ApriRiga(int indice) override;
  void NuovaRiga() override;
  std::optional<std::int64_t> ConfermaRegistrazione() override;
  bool EliminaRegistrazione() override;
  void FocoData() override;
  [[nodiscard]] QList<QList<QWidget*>> OrdineTesta() const override;
  void DopoRiga(qint64 posi) override;

 private:
  Griglia* CreaGriglia();
  QWidget* CreaIntestazione();
  QWidget* CreaAltriDati();
  QWidget* CreaComandi();
  QHBoxLayout* CreaPiede();
  void Collega();
  void OrdineTab();
  void MostraCampi(bool scrivibile);
  void MostraDestinazioni();
  void ScegliDestinazione(int indice);
  void MostraElencoRighe();
  /// Turns to the sheet that a field stands on and goes there.
  void VaiAlCampo(const std::string& campo);
  /// A new row that nobody has typed in goes; false when another is open.
  bool TogliIntatta();
  void ApriNuova();
  /// A code that ends in Enter: a scanner's, or typed. False when it is to be taken as any other.
  bool ProdottoLetto(CampoCodice& campo);
  void PrendiRecente(const documents::ValoriRiga& valori);
  void Inserisci(const std::vector<documents::ValoriRiga>& righe);
  void LetturaVeloce(bool attiva);

  QTabWidget* schede_;
  CampiForma* testa_ = nullptr;
  CampiForma* altri_ = nullptr;
  QComboBox* destinazione_;
  RiquadroRigaDocumento* rigaDocumento_;
  PannelloIncolla* incolla_;
  QStackedWidget* pila_;  ///< the rows, or the pasted ones before they go in
  QWidget* foglioAllegati_;
  PannelloAllegati* allegati_;
  TotaliDocumento* totali_;
  QPushButton* incollaRighe_;
  QPushButton* prodottiRecenti_;
  QCheckBox* letturaVeloce_;
};

}  // namespace fenalto::screens
