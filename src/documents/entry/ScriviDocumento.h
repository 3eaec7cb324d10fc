// Writing a whole document that nobody types: the unload of components, the other side of a
// transfer, opening stock carried over, demonstration data.
//
// Under the caller's numbering locks and in its transaction; nothing is asked or shown.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session/Scheda.h"
#include "core/store/Archivio.h"
#include "documents/entry/RigaDocumento.h"
#include "documents/types/TipoDocumento.h"

namespace fenalto::documents {

/// CREATOINAUTOMATICO of a document.
enum class OrigineDocumento {
  Digitato = 0,
  ScaricoComponenti = 1,
  Trasferimento = 2,
  TrasportoEsistenze = 3
};

struct DocumentoDaScrivere {
  TipoDocumento tipo;
  int anno = 0;
  std::int64_t numDoc = 0;  ///< 0: the next of its series
  Data dt;
  std::string cliFor;
  std::string mag;  ///< goes to head and rows
  std::string numDocCarico;
  Data dtDocCarico;
  OrigineDocumento origine = OrigineDocumento::Digitato;
  std::string tipoDocOrigine;
  int annoOrigine = 0;
  std::int64_t numDocOrigine = 0;
  std::vector<Coppia> altriCampi;  ///< further columns of the head
  std::vector<RigaDocumento> righe;
};

/// Writes it and gives its number. Loads with a lot get their NL1, opening stock aside. What the
/// type proposes of the transport goes into the head unless `altriCampi` says otherwise; a row
/// without position stands 100 after the one before, one without amount takes that of its price.
std::int64_t ScriviDocumento(Ambiente& ambiente, DocumentoDaScrivere documento);
/// Writes such a document over the stored one of its number: day, party, warehouse, references and
/// rows; what else its head has stays. Gives the number.
std::int64_t RiscriviDocumento(Ambiente& ambiente, DocumentoDaScrivere documento);
/// The next number of a series: of the register when the type has one, else of type and year.
std::int64_t ProssimoNumero(Ambiente& ambiente, const TipoDocumento& tipo, int anno);
/// Erases head, rows and attachments of a document. The attachments' files stay in their folder:
/// they can't go before the caller's transaction is committed.
void CancellaDocumento(Ambiente& ambiente, const std::string& tipoDoc, int anno,
                       std::int64_t numDoc);

}  // namespace fenalto::documents
