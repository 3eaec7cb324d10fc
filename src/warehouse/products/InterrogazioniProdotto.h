// What hangs on one product in the tables of documents, orders and jobs: one reader over a table of
// enquiries, a page at a time.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/values/Rinvio.h"

namespace fenalto::warehouse {

enum class GenereInterrogazione {
  NoMovMag,       ///< rows of documents that move no stock
  SituazioneDdt,  ///< delivery notes still to be invoiced
  OrdiniCli,
  OrdiniFor,
  Offerte,
  OffFor,
  Commesse
};

struct ColonnaInterrogazione {
  const char* titolo;
  Tipo tipo = Tipo::Testo;
  int larghezza = 100;
  const char* chiave = nullptr;  ///< name that the query gives it, where it isn't the caption
  bool prezzo = false;           ///< an amount with the decimals of prices, else of quantities
};

struct Interrogazione {
  GenereInterrogazione genere;
  const char* titolo;
  const char* linguetta;  ///< short
  const char* griglia;    ///< object names
  const char* aggiorna;   ///< of the button that reads it anew
  const char* opzione;    ///< text of the check box that widens it; null for none
  const char* casella;    ///< its object name
  std::vector<ColonnaInterrogazione> colonne;
};

std::span<const Interrogazione> InterrogazioniProdotto();

/// Reads the rows of one product in their order; a page begins after the last row of the one
/// before, so that the hundredth costs what the first does.
class LettoreInterrogazione {
 public:
  /// `tutti`: with the rows that the check box adds.
  LettoreInterrogazione(Ambiente& ambiente, GenereInterrogazione genere, std::string prodotto,
                        bool tutti);

  /// The next rows: a value a column, then type, year and number of the document behind the row.
  /// None at the end.
  std::vector<std::vector<Valore>> Avanti();

 private:
  struct Forma;
  [[nodiscard]] static const Forma& FormaDi(GenereInterrogazione genere);
  [[nodiscard]] Importo Evasa(const Rs& rs) const;
  [[nodiscard]] std::vector<Valore> Celle(const Rs& rs);

  Ambiente& ambiente_;
  GenereInterrogazione genere_;
  std::string prodotto_;
  bool tutti_;
  std::vector<Valore> ultima_;  ///< keys of the last row read
  std::int64_t lette_ = 0;
  bool finita_ = false;
};

/// Where a row of an enquiry leads; empty for nothing.
Rinvio RinvioDellaRiga(GenereInterrogazione genere, const std::vector<Valore>& riga);

}  // namespace fenalto::warehouse
