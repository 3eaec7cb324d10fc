// What the windows of payments keep in the company's settings: causal and accounts of the
// registration that each writes.
#pragma once

#include <string>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto::duedates {

/// The windows, by the number at the end of their keys.
enum class FinestraPagamento { Scadenzario = 1, SingolaParte = 2, Anticipi = 3, Insoluti = 4 };

struct ImpostazioniPagamento {
  std::string causale;              ///< `CausalePagScad`
  std::string contropartita;        ///< `ContropartitaPagScad`
  std::string contoArrotondamenti;  ///< `ContoArrotondamentiPagScad`, of windows 1 and 2
  /// `RegistrazioneContabilePagScad`; window 1 always writes it.
  bool conRegistrazione = true;
};

/// The keys of the party's class ("CausalePagScad1C"); as long as neither class has its own, the
/// key without class.
ImpostazioniPagamento LeggiImpostazioni(Ambiente& ambiente, FinestraPagamento finestra,
                                        const std::string& cfp);
/// Writes what differs from what is read, under the keys of the class and, as the last typed, under
/// those without; a window writes as each field is left.
void ScriviImpostazioni(Ambiente& ambiente, FinestraPagamento finestra, const std::string& cfp,
                        const ImpostazioniPagamento& impostazioni);

/// The same as the record that a window binds: each field bears the name of its key
/// ("CausalePagScad1"), whatever the class.
class SchedaImpostazioni {
 public:
  explicit SchedaImpostazioni(FinestraPagamento finestra);
  [[nodiscard]] Scheda& Record() { return scheda_; }
  void Leggi(Ambiente& ambiente, const std::string& cfp);
  /// A field was left.
  void Scrivi(Ambiente& ambiente, const std::string& cfp) const;
  [[nodiscard]] ImpostazioniPagamento Valori() const;

 private:
  [[nodiscard]] std::string Chiave(const char* nome) const;
  FinestraPagamento finestra_;
  Scheda scheda_;
};

}  // namespace fenalto::duedates
