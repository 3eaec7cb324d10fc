// Registrations that the program writes by itself: from VAT documents, payments, receipts.
//
// Nothing here asks, tells or opens a transaction: the caller holds the numbering lock of
// "ARTICOLI" and a transaction from before the number is taken to after the last write.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

/// `CREATOINAUTOMATICO` of a registration: who wrote it.
enum class Origine {
  Manuale = 0,
  StornoSospesa = 1,
  Fattura = 11,
  PagamentoScadenze = 21,
  PagamentoSingolo = 22,
  DistintaRiba = 23,
  Pagamento = 24,
  GiroRitenuta = 26,
  GiroErario = 41,
  GiroCorrispettivi = 42,
  ReverseCharge = 51,
  BollaDoganale = 52,
  RitenutaAcconto = 53,
  QuoteCespiti = 61,  ///< depreciation of a year, confirmed by the user
  Chiusura = 91,
  GiroUtile = 92,
  Apertura = 93,
  GiroEconomico = 94
};

/// Next number of a registration of a year: the greatest plus 1.
std::int64_t ProssimoNumDoc(Ambiente& ambiente, int anno);
/// A registration by its key; none at number 0.
struct ArticoloOrigine {
  int anno = 0;
  std::int64_t numDoc = 0;
};

/// The head of a registration: account of the debit side and of the credit side, as the source
/// wants them ("DIVERSI" for several).
struct TestaRegistrazione {
  int anno = 0;
  Data dt;
  std::string cfp;
  std::string conto;
  std::string cfpA;
  std::string contoA;
  Origine origine = Origine::Manuale;
  Data dtFat = {};
  std::string nFat = {};
  ArticoloOrigine seguitoDi = {};  ///< the document that it was written with
};
struct RigaRegistrazione {
  std::int64_t posi = 0;
  std::string causale;
  std::string descrizione;  ///< cut to the 255 characters of the column
  std::string cfp;
  std::string conto;
  Importo dare;
  Importo avere;
  std::string cfpControp;
  std::string contoControp;
};
/// Writes head and rows under a number, in any company's books; the head's identity.
std::int64_t ScriviRegistrazione(Archivio& tessarc, std::int64_t numDoc,
                                 const TestaRegistrazione& testa,
                                 const std::vector<RigaRegistrazione>& righe);
/// Writes head and rows under the next number of the year and gives it.
std::int64_t ScriviRegistrazione(Ambiente& ambiente, const TestaRegistrazione& testa,
                                 const std::vector<RigaRegistrazione>& righe);

/// A registration of two rows: `cfp`, `conto` against `cfpA`, `contoA`.
struct RegistrazioneDueRighe {
  int anno = 0;
  Data dt;
  std::string causale;
  std::string descrizione;
  std::string cfp;  ///< of row 1
  std::string conto;
  Importo dare;  ///< of row 1; row 2 has the sides swapped
  Importo avere;
  std::string cfpA;  ///< of row 2
  std::string contoA;
  std::int64_t posi1 = 1;
  std::int64_t posi2 = 2;
  Origine origine = Origine::Manuale;
  /// Head: account of the debit side and of the credit side, as the source wants them.
  std::string testaCfp;
  std::string testaConto;
  std::string testaCfpA;
  std::string testaContoA;
  Data dtFat;
  std::string nFat;
  ArticoloOrigine seguitoDi;  ///< the document that it was written with
};
/// Writes head and rows under the next number and gives it.
std::int64_t ScriviDueRighe(Ambiente& ambiente, const RegistrazioneDueRighe& registrazione);

}  // namespace fenalto::ledger
