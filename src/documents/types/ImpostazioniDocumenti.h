// The company's choices for documents and stock, as the window of document types shows them.
#pragma once

#include "core/records/DescrizioneForma.h"
#include "core/session/CampiImpostazioni.h"

namespace fenalto::documents {

class ImpostazioniDocumenti {
 public:
  explicit ImpostazioniDocumenti(Ambiente& ambiente);

  /// Fields by key.
  Scheda& Dati() { return campi_.Dati(); }
  [[nodiscard]] const Scheda& Dati() const { return campi_.Dati(); }
  void Rileggi() { campi_.Rileggi(); }
  /// A field was left: a value that is refused goes back to what it was, and the refusal is told.
  bool CampoLasciato(std::string_view campo) { return campi_.CampoLasciato(campo); }
  /// Writes them all together and tells it; false when one was refused or couldn't be written
  /// (told).
  bool Salva();
  [[nodiscard]] const std::string& CampoRifiutato() const { return campi_.CampoRifiutato(); }

 private:
  Ambiente& ambiente_;
  CampiImpostazioni campi_;
};

records::DescrizioneForma FormaImpostazioniDocumenti();

}  // namespace fenalto::documents
