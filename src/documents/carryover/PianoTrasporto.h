// What a year's stock comes to at its end, product by product and warehouse by warehouse: the rows
// of the opening stock that the next year begins with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::documents {

/// At which value stock is carried over.
enum class ValoreTrasporto { CostoUltimo, CostoMedio, CostoDigitato };

struct VoceTrasporto {
  std::string mag;  ///< "" for rows that name no warehouse
  std::string prodotto;
  std::string descrizione;
  std::string um;
  Importo quantita;  ///< zero for a product that only its last cost is kept of
  Importo prezzo;
  std::string conto;
  std::string codIva;

  [[nodiscard]] Importo Valore() const { return quantita.Per(prezzo); }
  /// Stock without a value: its product never had the cost that was chosen.
  [[nodiscard]] bool SenzaValore() const { return !quantita.Zero() && prezzo.Zero(); }
};

/// By product and warehouse; nothing when it was stopped. A product with a last cost and stock in
/// no warehouse has one row, of quantity zero, in the first that it moved in.
std::optional<std::vector<VoceTrasporto>> PianoTrasporto(Ambiente& ambiente,
                                                         ValoreTrasporto valore);

/// Tells two states of what the plan is read from apart.
std::string ImprontaEsistenze(Ambiente& ambiente);

}  // namespace fenalto::documents
