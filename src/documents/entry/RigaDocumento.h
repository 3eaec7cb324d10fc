// A row of a document, and what a source of rows proposes for a new one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/records/CampoRiga.h"

namespace fenalto::documents {

/// A row of `FattureCli_r`, without what it copies from its head.
struct RigaDocumento {
  std::int64_t num = 0;      ///< in memory only
  bool memorizzata = false;  ///< in memory only: it stands in the table
  std::int64_t posi = 0;
  std::string codiceRiga;
  std::string codPrCli;
  std::string descrizione;
  std::string um;
  Importo quantita;
  Importo prezzo;
  Importo sc1;
  Importo sc2;
  Importo sc3;
  Importo importo;
  std::string conto;
  std::string codIva;
  Importo costo;
  Importo prov;
  Importo quantitaA;
  Importo prezzoA;
  Importo campo1;
  Importo campo2;
  std::int64_t ordine = 0;
  std::int64_t posiOrdine = 0;
  bool ordineSaldato = false;
  std::int64_t commessa = 0;
  std::int64_t posiCommessa = 0;
  bool ut = false;
  std::string lotto;
  Data dtScad;
  std::int64_t nl1 = 0;
  std::int64_t nl2 = 0;
  std::int64_t nl3 = 0;
  std::vector<std::pair<std::string, Valore>> altre = {};  ///< columns that no form shows
  bool operator==(const RigaDocumento&) const = default;
};

/// Fields of the open row, by the names of their controls.
std::span<const records::CampoRiga<RigaDocumento>> CampiRigaForma();
/// Columns of `FattureCli_r` that a row holds.
std::span<const records::CampoRiga<RigaDocumento>> CampiRigaTabella();

/// What a source (recent products, barcode, pasted rows, a transfer, orders, lots, jobs) gives for
/// a new row. What it leaves out is proposed as if the product had been typed.
struct ValoriRiga {
  std::string codiceRiga;
  std::optional<std::string> descrizione = {};
  std::optional<std::string> um = {};
  std::optional<Importo> quantita = {};
  std::optional<Importo> prezzo = {};
  std::optional<Importo> sc1 = {};
  std::optional<Importo> sc2 = {};
  std::optional<Importo> sc3 = {};
  std::optional<Importo> prov = {};
  std::int64_t ordine = 0;
  std::int64_t posiOrdine = 0;
  bool ordineSaldato = false;
  std::int64_t commessa = 0;
  std::int64_t posiCommessa = 0;
  std::int64_t nl2 = 0;
  std::string provenienza = {};  ///< shown beside the row: where price and the rest come from
};

}  // namespace fenalto::documents
