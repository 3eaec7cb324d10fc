// The registrations that were written together with a VAT document and stand in the books by
// themselves: found again, corrected with it, erased with it.
//
// `AnnoOrigine` and `NumDocOrigine` tie them to their document. Those written before there were
// such columns are told by who wrote them, the day, the party and what they say, and they come
// after it. What the document doesn't keep (accounts, causals, supplier, amount of a withholding)
// is taken from them as they stand.
//
// As RegistrazioniAutomatiche.h: under the caller's numbering lock and transaction, without a word.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {

enum class GenereSeguito {
  CopiaIntra,        ///< on the register of type "05"
  GiroCosto,         ///< of reverse charge
  GiroIndetraibile,  ///< of the VAT that reverse charge can't deduct
  GiroDogana,
  GiroRitenuta,
  Pagamento,
  PagamentoGiro  ///< of the supplier of a giro
};

/// A class and an account.
struct ContoDiParte {
  std::string cfp;
  std::string cod;
};

struct RegistrazioneSeguita {
  GenereSeguito genere = GenereSeguito::Pagamento;
  ArticoloOrigine articolo;
  std::string nome;       ///< "articolo n. 12: giro della bolla doganale"
  std::string ferma;      ///< why it can't be changed; empty when it can
  ContoDiParte parte;     ///< the document's party as it bears it; empty when it doesn't
  std::string fornitore;  ///< of a giro: who has its due dates
  Importo dallaParte;     ///< debit minus credit on the document's own party
};

/// What follows from a document as it is stored now, in order of number; nothing of what isn't one.
std::vector<RegistrazioneSeguita> TrovaSeguito(Ambiente& ambiente,
                                               const ArticoloOrigine& documento);

/// The registrations tied to a document, and their being tied to one: its head may be erased, which
/// unties them, to be written anew.
std::vector<ArticoloOrigine> LegatiA(Ambiente& ambiente, const ArticoloOrigine& documento);
void LegaA(Ambiente& ambiente, const std::vector<ArticoloOrigine>& legati,
           const ArticoloOrigine& documento);

/// Writes what followed again, after the document (already written anew, perhaps under another
/// number): under the same numbers, with its day, party, description and amounts. `daPagare` is
/// what is paid at once, `pagamentoPrima` the code that the document had. Withholdings keep their
/// amount. Due dates of a giro are made anew while they are free. All is tied to the document.
void CorreggiSeguito(Ambiente& ambiente, const std::vector<RegistrazioneSeguita>& seguito,
                     const ArticoloOrigine& documento, const std::string& pagamentoPrima,
                     Importo daPagare, LogContabile& log);

/// Erases what followed, with the due dates that are free.
void EliminaSeguito(Ambiente& ambiente, const std::vector<RegistrazioneSeguita>& seguito,
                    LogContabile& log);

}  // namespace fenalto::vat
