// The window "Inserimento Fatture e registrazioni IVA in contabilità": thin over Fatture.
#pragma once

#include "screens/common/rows/FinestraDuePagine.h"
#include "vat/entry/RegistrazioneIva.h"

namespace fenalto::screens {

class PaginaFattura;
class PaginaRegistro;

class FinestraFatture : public FinestraDuePagine {
  Q_OBJECT

 public:
  explicit FinestraFatture(Finestre& finestre);
  ~FinestraFatture() override;

  /// The window, or null after telling why no VAT document can be registered in the company.
  static FinestraFatture* Crea(Finestre& finestre);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

  void Apri(std::int64_t numero) override;
  void ChiudiRecord() override;
  void FocoScelta() override;
  void AggiornaScelta() override;
  bool Riprendi() override;
  void DopoRegistrazione(std::int64_t numero) override;

 private:
  void Collega();
  void Nuovo();
  void MostraRegistrazione();
  void MostraTitolo();

  vat::RegistrazioneIva fatture_;
  PaginaRegistro* scelta_;
  PaginaFattura* registrazione_;
};

}  // namespace fenalto::screens
