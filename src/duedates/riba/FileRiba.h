// A batch of bank receipts put into the lines of the bank's file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/values/Data.h"
#include "core/values/Esito.h"
#include "core/values/Importo.h"
#include "duedates/riba/TracciatoRiba.h"

namespace fenalto::duedates {

/// The bank of presentation, by the names of `Banche`.
struct BancaRiba {
  std::string codSia;
  std::string abi;
  std::string cab;
  std::string contoCorrente;
  bool operator==(const BancaRiba&) const = default;
};

/// The company.
struct CreditoreRiba {
  std::string ragSoc1;
  std::string ragSoc2;
  std::string indirizzo;
  std::string localita;
  std::string piva;
};

/// The customer, by the names of `Clienti`.
struct DebitoreRiba {
  std::string ragSoc1;
  std::string ragSoc2;
  std::string indirizzo;
  std::string cap;
  std::string localita;
  std::string prov;
  std::string piva;
  std::string abi;
  std::string cab;
  std::string banca;
  std::string agenzia;
};

/// A due date of the batch.
struct RicevutaRiba {
  Data scadenza;
  Importo importo;  ///< euro
  std::string descrizione;
  DebitoreRiba debitore;
};

/// What a file is made of; receipts are numbered from 1 in their order.
struct DistintaRiba {
  Data data;
  BancaRiba banca;
  CreditoreRiba creditore;
  std::vector<RicevutaRiba> ricevute;
  RibaSegno segno = RibaSegno::DellImporto;
};

/// Something to tell the user about a field. What every receipt repeats (the company's name) is
/// told once.
struct NotaRiba {
  std::string messaggio;
  int ricevuta = 0;  ///< number of the receipt, 0 for bank, company and batch
  int volte = 1;
  /// The file would say another amount than the batch: it must not be written.
  bool grave = false;
};

/// A file in memory.
struct FileRiba {
  std::string testo;
  std::vector<NotaRiba> note;
  RibaSegno segno = RibaSegno::DellImporto;
};

/// The lines of the batch. Missing and cut fields are written as they can be, with a note.
[[nodiscard]] FileRiba ComponiFileRiba(const DistintaRiba& distinta);

/// Checks the lines, writes them beside the file, gives it its name and reads it back. An error
/// says why nothing was written: a grave note, an error of the check, the folder missing or full.
Esito<bool> ScriviFileRiba(const std::filesystem::path& percorso, const FileRiba& file);

}  // namespace fenalto::duedates
