// The registrations that were written together with a VAT document and stand in the books by
// themselves: found again, corrected with it, erased with it.
//
// No column ties them to their document: they are told by who wrote them, the day, the party and
// what they say, and they come after it. What the document doesn't keep (accounts, causals,
// supplier, amount of a withholding) is taken from them as they stand.
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

struct RegistrazioneSeguita {
  GenereSeguito genere = GenereSeguito::Pagamento;
  ArticoloOrigine articolo;
  std::string nome;    ///< "articolo n. 12: giro della bolla doganale"
  std::string ferma;   ///< why it can't be changed; empty when it can
  Importo dallaParte;  ///< debit minus credit on the document's own party
};

/// What follows from a document as it is stored now, in order of number; nothing of what isn't one.
std::vector<RegistrazioneSeguita> TrovaSeguito(Ambiente& ambiente,
                                               const ArticoloOrigine& documento);

/// The document as it was before a correction.
struct DocumentoPrima {
  std::string cfp;
  std::string conto;
  std::string pagamento;
};

/// Writes what followed again, after the document (already written anew, perhaps under another
/// number): under the same numbers, with its day, party, description and amounts. `daPagare` is
/// what is paid at once. Withholdings keep their amount. Due dates of a giro are made anew while
/// they are free.
void CorreggiSeguito(Ambiente& ambiente, const std::vector<RegistrazioneSeguita>& seguito,
                     const ArticoloOrigine& documento, const DocumentoPrima& prima,
                     Importo daPagare, LogContabile& log);

/// Erases what followed, with the due dates that are free.
void EliminaSeguito(Ambiente& ambiente, const std::vector<RegistrazioneSeguita>& seguito,
                    LogContabile& log);

}  // namespace fenalto::vat
