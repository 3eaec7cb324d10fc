// The price lists on which a product stands, seen and changed from the product.
//
// Each change is written at once, in a transaction of its own: a list belongs to its own archive,
// and the product needn't be confirmed for it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto::warehouse {

/// A row of `Listini_r`.
struct RigaListino {
  std::string listino = {};
  std::int64_t posi = 0;
  std::string codPrCli = {};  ///< the customer's code of the product
  Importo prezzo = {};
  Importo sc1 = {};
  Importo sc2 = {};
  Importo sc3 = {};
  Importo prov = {};
  Data dt = {};  ///< of the last change
};

class ListiniProdotto {
 public:
  explicit ListiniProdotto(Ambiente& ambiente);

  /// Reads the lists of a stored product; those of none for the empty code.
  void Leggi(const std::string& prodotto);
  [[nodiscard]] const std::vector<RigaListino>& Presente() const { return presente_; }
  /// Lists on which the product isn't, by code.
  [[nodiscard]] const std::vector<std::string>& Assente() const { return assente_; }

  // --- The row in edit ---------------------------------------------------------------------------

  [[nodiscard]] bool InRiga() const { return inRiga_; }
  /// `LListino`, `LCodPrCli`, `LPrezzo`, `LSc1`, `LSc2`, `LSc3`, `LProv`, `LDt`.
  [[nodiscard]] Scheda& Riga() { return riga_; }
  /// Something was typed into it.
  [[nodiscard]] bool Digitata() const { return inRiga_ && riga_.Modificata(); }
  /// Asks and opens the row of a list on which the product is.
  bool Modifica(const std::string& listino);
  /// Asks and opens a new row for a list on which it isn't, with the price that the product has now
  /// on the screen. A product that isn't stored is refused (told).
  bool Aggiungi(const std::string& listino, bool prodottoNuovo, const Scheda& prodotto);
  /// `ConfermaAggListino`: writes the row, and the lists are to be read again; false when it was
  /// refused (told), with the field to go to.
  bool Conferma(std::string* campo);
  void Annulla() { inRiga_ = false; }

 private:
  void Apri(const RigaListino& riga);
  [[nodiscard]] std::string Scrivi(const RigaListino& riga);

  Ambiente& ambiente_;
  std::string prodotto_;
  std::vector<RigaListino> presente_;
  std::vector<std::string> assente_;
  Scheda riga_;
  RigaListino aperta_;
  bool nuova_ = false;
  bool inRiga_ = false;
};

}  // namespace fenalto::warehouse
