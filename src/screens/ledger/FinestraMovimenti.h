// The window "Inserimento Movimenti contabili non Iva - Primanota": thin over Primanota.
#pragma once

#include "ledger/registrations/Primanota.h"
#include "screens/common/rows/FinestraDuePagine.h"

namespace fenalto::screens {

class PaginaRegistrazione;
class PaginaScelta;

class FinestraMovimenti : public FinestraDuePagine {
  Q_OBJECT

 public:
  explicit FinestraMovimenti(Finestre& finestre);
  ~FinestraMovimenti() override;

  /// Begins a registration with the rows that a function proposes, after leaving the open one.
  void Proponi(const ledger::PropostaRegistrazione& proposta);

 protected:
  void Apri(std::int64_t numero) override;
  void ChiudiRecord() override;
  bool IndietroDaScelta() override;
  void FocoScelta() override;
  void AggiornaScelta() override;
  bool Riprendi() override;
  void DopoRegistrazione(std::int64_t numero) override;

 private:
  void Collega();
  void Nuovo();
  void PrendiModello(std::int64_t articolo, int anno);
  void MostraRegistrazione();
  void ApriChiusure();

  ledger::Primanota primanota_;
  PaginaScelta* scelta_;
  PaginaRegistrazione* registrazione_;
};

}  // namespace fenalto::screens
