// The window of an archive whose records have rows of their own, which are written with them.
#pragma once

#include "screens/common/archive/FinestraArchivio.h"
#include "screens/common/rows/RigheDelRecord.h"

namespace fenalto::screens {

class FinestraArchivioConRighe : public FinestraArchivio {
  Q_OBJECT

 public:
  using FinestraArchivio::FinestraArchivio;
  void Abbandona() override;
  bool Indietro() override;

 protected:
  /// Makes the rows, to be called once by a window's constructor; it places them.
  RigheDelRecord* Crea(DescrizioneRighe righe);
  /// Deletes them, out of sight, for a window's destructor: a field that is destroyed with the
  /// focus would read itself into a row that is gone.
  void TogliRighe();
  void MostraRecord() override;
  void DopoUltimoCampo() override;
  /// Shows the record anew, not its rows.
  void MostraSenzaRighe() { FinestraArchivio::MostraRecord(); }
  bool RaccogliAltro() override;
  [[nodiscard]] bool AltroModificato() const override;

 private:
  /// Turns to the page of the rows.
  void GiraAlleRighe();
  RigheDelRecord* righe_ = nullptr;
};

}  // namespace fenalto::screens
