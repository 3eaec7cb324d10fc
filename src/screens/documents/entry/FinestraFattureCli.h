// The window "Emissione Fatture ddt e movimenti magazzino": thin over FattureCli.
#pragma once

#include "documents/entry/FattureCli.h"
#include "screens/common/rows/FinestraDuePagine.h"

namespace fenalto::screens {

class PaginaDocumento;
class PaginaSceltaDocumento;

class FinestraFattureCli : public FinestraDuePagine {
  Q_OBJECT

 public:
  explicit FinestraFattureCli(Finestre& finestre);
  ~FinestraFattureCli() override;

  /// The window, or null after telling why no document can be entered in the company.
  static FinestraFattureCli* Crea(Finestre& finestre);

  void ApriRecord(const Rinvio& rinvio) override;
  bool Indietro() override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  bool PremiConferma() override;
  bool Invio(QWidget& campo) override;

  void Apri(std::int64_t numero) override;
  bool Riprendi() override;
  void ChiudiRecord() override;
  bool IndietroDaScelta() override;
  void FocoScelta() override;
  void AggiornaScelta() override;
  void DopoRegistrazione(std::int64_t numero) override;

 private:
  void Collega();
  /// The options of the user, in sight on all pages.
  QWidget* CreaOpzioni();
  void ApriDocumento(const documents::IdentitaDocumento& quale);
  void Nuovo();
  void Sdoppia(const documents::IdentitaDocumento& origine);
  void MostraDocumento();
  void MostraTitolo();
  [[nodiscard]] bool SulDocumento() const;

  documents::FattureCli documento_;
  PaginaSceltaDocumento* scelta_;
  PaginaDocumento* pagina_;
};

}  // namespace fenalto::screens
