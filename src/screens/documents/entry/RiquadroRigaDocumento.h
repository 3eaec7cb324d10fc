// The row frame of a document: the fields of the open row, and what is known of its product.
#pragma once

#include <utility>

#include "documents/entry/FattureCli.h"
#include "screens/common/rows/SulCasoUso.h"

namespace fenalto::screens {

class AccantoDocumento;
class CampoCodice;

class RiquadroRigaDocumento : public RiquadroSul<documents::FattureCli> {
  Q_OBJECT

 public:
  RiquadroRigaDocumento(documents::FattureCli& documento, Finestre& finestre,
                        QWidget* genitore = nullptr);

  [[nodiscard]] CampoCodice& Prodotto() const;
  /// A new row in which nothing was typed: it may go without a word.
  [[nodiscard]] bool Intatta() const;
  /// The row that was confirmed last was a new one; tells it once.
  bool ConfermataNuova() { return std::exchange(confermataNuova_, false); }
  /// Gives the focus to a field of the row; false when it can't take it.
  bool VaiA(const std::string& campo);

 protected:
  bool ConfermaRiga(std::string& campo) override;
  [[nodiscard]] records::StatoCampo Stato(const std::string& nome) const override;
  /// The product, and the quantity once it is there.
  [[nodiscard]] std::string PrimoCampo() const override;

 private:
  bool confermataNuova_ = false;
  AccantoDocumento* accanto_;
};

}  // namespace fenalto::screens
