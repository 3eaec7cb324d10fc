// The stock of the session's year carried over as the opening stock of the next one: a document of
// type EI for each warehouse, and one for what names none. It works in two steps, a plan that is
// looked at and its execution; repeated, it replaces what it wrote itself and nothing else.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/reports/SceltaRifiutata.h"
#include "documents/carryover/PianoTrasporto.h"

namespace fenalto::documents {

struct SceltaTrasporto {
  ValoreTrasporto valore = ValoreTrasporto::CostoUltimo;
  Data dtDoc;  ///< of the documents
};

class TrasportoEsistenze : public reports::SceltaRifiutata {
 public:
  explicit TrasportoEsistenze(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// The year that receives the stock.
  [[nodiscard]] int NuovoAnno() const { return ambiente_.Anno() + 1; }
  [[nodiscard]] SceltaTrasporto Proposta() const;

  /// Reads what would be carried over; nothing when the choice is refused (told) or the reading was
  /// stopped.
  bool Leggi(const SceltaTrasporto& scelta);
  /// What was read; empty before.
  [[nodiscard]] const std::vector<VoceTrasporto>& Piano() const { return piano_; }
  [[nodiscard]] bool Letto() const { return !impronta_.empty(); }
  /// What was read isn't asked for any more.
  void Dimentica();
  /// Asks and writes what was read, in one transaction; true when it was written.
  bool Conferma(const SceltaTrasporto& scelta);

 private:
  /// A document that an earlier run has written.
  struct Precedente {
    std::int64_t numDoc = 0;
    std::string mag;
  };
  enum class Negative { Riporta, Ignora };

  [[nodiscard]] std::optional<Rifiuto> Difetto(const SceltaTrasporto& scelta) const;
  [[nodiscard]] std::vector<Precedente> Precedenti() const;
  bool ChiediNegative();
  bool ChiediConferma();
  bool ChiediPrecedenti();
  bool FaiCopia();
  [[nodiscard]] std::vector<VoceTrasporto> DaScrivere() const;
  std::string Scrivi(const SceltaTrasporto& scelta);
  void Annuncia() const;

  Ambiente& ambiente_;
  std::vector<VoceTrasporto> piano_;
  std::string impronta_;
  ValoreTrasporto valoreLetto_ = ValoreTrasporto::CostoUltimo;
  Negative negative_ = Negative::Riporta;
  std::vector<Precedente> precedenti_;
  std::string copia_;                 ///< what the last message says of it
  std::vector<std::string> scritti_;  ///< documents, as the last message names them
};

}  // namespace fenalto::documents
