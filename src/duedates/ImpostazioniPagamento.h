// What the windows of payments keep in the company's settings: causal and accounts of the
// registration that each writes.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto {

/// The windows, by the number at the end of their keys.
enum class FinestraPagamento { Scadenzario = 1, SingolaParte = 2, Anticipi = 3, Insoluti = 4 };

struct ImpostazioniPagamento {
  std::string causale;              ///< `CausalePagScad`
  std::string contropartita;        ///< `ContropartitaPagScad`
  std::string contoArrotondamenti;  ///< `ContoArrotondamentiPagScad`, of windows 1 and 2
  /// `RegistrazioneContabilePagScad`; window 1 always writes it.
  bool conRegistrazione = true;
};

/// The keys of the party's class ("CausalePagScad1C"); where one is empty, the key without the
/// class.
ImpostazioniPagamento LeggiImpostazioni(Ambiente& ambiente, FinestraPagamento finestra,
                                        const std::string& cfp);
/// Writes what differs from what is read, under the keys of the class; a window writes as each
/// field is left.
void ScriviImpostazioni(Ambiente& ambiente, FinestraPagamento finestra, const std::string& cfp,
                        const ImpostazioniPagamento& impostazioni);

}  // namespace fenalto
