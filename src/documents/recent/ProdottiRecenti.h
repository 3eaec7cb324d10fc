// What a party was sold, or has sold, lately: a product a row with what its last document row says,
// and all rows of one product. A row chosen there goes on a new document.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>

#include "core/archives/FonteElenco.h"
#include "core/session/Ambiente.h"
#include "documents/entry/RigaDocumento.h"

namespace fenalto::documents {

/// Whose products: of one type of document, or of all when it is empty.
struct SceltaRecenti {
  std::string tipoDoc;
  std::string cfp;  ///< "C" or "F"
  std::string cliFor;
};

/// Column of both lists that holds the identity of the document row; the last one, not shown.
inline constexpr std::size_t kIdentitaRecente = 10;

/// A product a row, the one moved last first. What stands in a row is that of the product's last
/// document row, by date and number. Columns: Data, NDoc, CodiceRiga, Descrizione, um, Quantita,
/// Prezzo, Sc1, Sc2, Sc3, identity. A search finds all its words in code and description.
///
/// The party's rows are gone through backwards in time, a stretch at each reading: the first row of
/// a product that is met is its last one, so the list begins at once however many rows there are.
class ProdottiRecenti : public archives::FonteElenco {
 public:
  explicit ProdottiRecenti(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// From the next Comincia on.
  void Di(SceltaRecenti scelta) { scelta_ = std::move(scelta); }
  void Comincia(const archives::FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return finita_; }
  [[nodiscard]] bool ATratti() const override { return true; }
  [[nodiscard]] std::int64_t Punto() const override { return numero_; }

 private:
  Ambiente& ambiente_;
  SceltaRecenti scelta_;
  std::vector<std::string> parole_;
  std::unordered_set<std::string> visti_;  ///< codes met, without case
  std::string oltre_;                      ///< condition of the rows that follow
  std::int64_t numero_ = 0;                ///< of the document read last
  bool finita_ = true;
};

/// All rows of one product, the last one first. The same columns.
class RigheProdotto : public archives::FonteElenco {
 public:
  explicit RigheProdotto(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// From the next Comincia on; without a product there are no rows.
  void Di(SceltaRecenti scelta, std::string prodotto);
  void Comincia(const archives::FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return finita_; }

 private:
  Ambiente& ambiente_;
  SceltaRecenti scelta_;
  std::string prodotto_;
  std::string oltre_;
  bool finita_ = true;
};

/// What the document row of that identity gives a new one: product, description, unit, price and
/// discounts. Nothing when the row has gone.
std::optional<ValoriRiga> ValoriDaRiga(Ambiente& ambiente, std::int64_t identita);

}  // namespace fenalto::documents
