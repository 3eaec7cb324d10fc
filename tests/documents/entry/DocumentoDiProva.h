// The test company with products, parties and document types, the shortest way to type a document,
// and what of it then stands in the data.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "documents/entry/FattureCli.h"
#include "documents/entry/RigheDocumento.h"
#include "documents/entry/ScriviDocumento.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

using CampiDaScrivere = std::vector<std::pair<std::string, Valore>>;

/// A row to type: each field is left as a user leaves it.
struct RigaDaDigitare {
  std::string codice;
  Importo quantita = {};
  std::optional<Importo> prezzo = {};
  CampiDaScrivere altri = {};
};

struct DocumentoDaDigitare {
  std::string tipo = "10";
  std::string parte = "9001";
  std::vector<RigaDaDigitare> righe = {};
  CampiDaScrivere altri = {};  ///< of the head, typed after the party
};

/// Beside what DittaDiProva has: warehouses 01 and 02; products P1 (22, 700.001, barcode 8001,
/// typed cost 2), P2 (10), P3 (out of use), DB (two P1 and three P2 make one) and SP; customer 9001
/// with all that a document takes from one, customer 9002 bare, supplier 9001 who sells P1 at 5
/// less 10 per cent; types XF (invoice without register), XI (accompanying invoice with VAT in its
/// prices), XN (delivery note that isn't invoiced, with a free field), XR (invoice on register 1).
class DocumentoDiProva : public DittaDiProva {
 protected:
  DocumentoDiProva();

  void Config(const char* chiave, const char* valore) {
    ambiente.ScriviImpostazione({}, "config", chiave, valore);
  }
  static void Campi(documents::FattureCli& d, const CampiDaScrivere& campi);
  static bool DigitaRiga(documents::FattureCli& d, const RigaDaDigitare& riga);
  static bool Digita(documents::FattureCli& d, const DocumentoDaDigitare& documento);
  /// Types and confirms it; its number, 0 when it was stopped. What is told is forgotten.
  std::int64_t Inserisci(const DocumentoDaDigitare& documento);

  /// "posi codice quantità a prezzo = importo", with what else is set; "|" between rows.
  std::string RigheDi(const std::string& tipo, std::int64_t numero);
  Valore DellaTesta(const std::string& tipo, std::int64_t numero, const char* campo);
  /// Heads and rows in all: "2 5".
  std::string Quanti();
  std::string Esistenza(const char* prodotto, const char* mag = "");
  /// Rows whose copies of their head aren't the head's, and rows without a head.
  std::int64_t Discordi();
  Importo DaVista(const std::string& sql) { return Nz(Tessarc().Singolo(sql)).Importo(); }
};

}  // namespace fenalto::prova
