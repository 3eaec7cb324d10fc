// The test company with the registers, payment codes and parties that VAT documents need, the
// shortest way to type one, and what is then in the books, all columns, a line a row.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ledger/DittaDiProva.h"
#include "vat/entry/RegistrazioneIva.h"

namespace fenalto::prova {

/// A taxable row to type; its VAT is left to the program.
struct RigaFattura {
  std::string conto;
  std::string codIva;
  Importo imponibile;
};

/// A document to type.
struct FatturaDaScrivere {
  std::string riva = {};
  std::string parte = {};  ///< empty: what the program proposes
  std::vector<RigaFattura> righe = {};
  std::string nFat = "12";
  std::string pagamento = {};
  Data dt = G(15, 3, 2024);
  /// Further fields of the head, typed after the others.
  std::vector<std::pair<std::string, Valore>> altri = {};
};

/// Beside what DittaDiProva has: registers "6" (suspended), "9" (receipts) and "11"; payment codes
/// "DUE" (two halves, 30 and 60 days end of month), "MISTO" (the same and paid at once from
/// 100.010), "FERMO" (as DUE, due dates left alone on a change); customer and supplier 0001 with
/// account, VAT code, and "DUE". The control total is off.
class FatturaDiProva : public DittaDiProva {
 protected:
  FatturaDiProva();

  void Config(const char* chiave, const char* valore) {
    ambiente.ScriviImpostazione({}, "config", chiave, valore);
  }
  Archivio& Scadenzario() { return ambiente.ArchivioDi("scadenzario"); }

  /// Types a whole new document without confirming it; false when something stopped it.
  static bool Digita(vat::RegistrazioneIva& fatture, const FatturaDaScrivere& fattura);
  static bool DigitaRiga(vat::RegistrazioneIva& fatture, const RigaFattura& riga);
  /// Types and confirms it; its number, 0 when it was stopped.
  std::int64_t Inserisci(const FatturaDaScrivere& fattura);

  /// Both databases, every table.
  [[nodiscard]] std::string Tutto() const { return Contenuto() + Contenuto("scadenzario"); }
  /// Rows of a registration: "posi causale cfp:conto dare/avere cfp:controp tipo codiva
  /// imponibile+iva+ivaind «descrizione»", and category and job when there are.
  std::vector<std::string> RigheDi(std::int64_t numDoc);
  /// Head: "dt cfp:conto cfpa:contoa auto riva/nprot dtfat nfat pagamento" and what else is set.
  std::string TestaDi(std::int64_t numDoc);
  /// Due dates in order: "articolo dt importo cfp:conto programma stato riva/nprot nfat".
  std::vector<std::string> Scadenze();
  /// Registrations, rows and due dates in all.
  std::string Conti();
  static std::string Stringa(Importo importo);
};

}  // namespace fenalto::prova
