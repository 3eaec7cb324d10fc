// The window of document types: that of every archive, with the paths and the picture of a type,
// beside a page of the company's choices.
#pragma once

#include "screens/common/archive/FinestraArchivio.h"

class QComboBox;

namespace fenalto::screens {

class AnteprimaImmagine;
class PaginaImpostazioniDocumenti;

class FinestraTipiDocumento : public FinestraArchivio {
  Q_OBJECT

 public:
  explicit FinestraTipiDocumento(Finestre& finestre);
  ~FinestraTipiDocumento() override;

  [[nodiscard]] bool InModifica() const override;
  void Abbandona() override;
  void ApriScheda(int scheda) override;
  void ApriRecord(const Rinvio& rinvio) override;
  bool Indietro() override;
  void Aggiorna() override;

 protected:
  void MostraRecord() override;
  bool PremiConferma() override;

 private:
  void Disponi();
  [[nodiscard]] QComboBox* Modelli();
  void Sfoglia(const std::string& campo);
  [[nodiscard]] bool AlleImpostazioni() const;

  QTabWidget* schede_ = nullptr;
  PaginaImpostazioniDocumenti* impostazioni_;
  AnteprimaImmagine* anteprima_;
};

}  // namespace fenalto::screens
