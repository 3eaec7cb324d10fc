// The window "Elenco e selezione dei più recenti prodotti fatturati o movimentati": what a party
// was sold lately, from which a row goes on the document that opened it.
#pragma once

#include <QPointer>
#include <functional>

#include "documents/recent/ProdottiRecenti.h"
#include "screens/common/windows/FinestraFunzione.h"

class QCheckBox;
class QLabel;

namespace fenalto::screens {

class ElencoCercato;

class FinestraProdottiRecenti : public FinestraFunzione {
  Q_OBJECT

 public:
  using Consegna = std::function<void(const documents::ValoriRiga& valori)>;

  explicit FinestraProdottiRecenti(Finestre& finestre);
  ~FinestraProdottiRecenti() override;

  /// Opens it for a party of a type of document. What is chosen is handed to `consegna` once this
  /// window has closed and `richiedente` is in front again; nothing happens when that has gone.
  /// False when the window couldn't be opened.
  static bool Apri(FinestraFunzione& richiedente, Finestre& finestre,
                   const documents::SceltaRecenti& scelta, Consegna consegna);
  /// Code of a party, its class and the type of document: "C 01".
  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;

 protected:
  bool Indietro() override;
  bool Invio(QWidget& campo) override;

 private:
  void Disponi();
  void Collega();
  void Leggi();
  void LeggiRighe();
  /// The row of that identity goes on the document, if the user wants it.
  void Scegli(std::int64_t identita);

  documents::SceltaRecenti scelta_;
  documents::ProdottiRecenti prodotti_;
  documents::RigheProdotto delProdotto_;
  Consegna consegna_;
  QPointer<FinestraFunzione> richiedente_;
  QLabel* parte_;
  QCheckBox* tutti_;
  ElencoCercato* elenco_;
  screens::Griglia* righe_;
};

}  // namespace fenalto::screens
