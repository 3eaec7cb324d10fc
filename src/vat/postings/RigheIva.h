// From the taxable rows of a VAT document, as typed, to its whole double entry.
//
// Pure: no store, no screen. What a caller must look up (type, description and account of the
// register) and what is set for the company come in with the document.
//
// Invariant: for any rows and either setting, debits equal credits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Esito.h"
#include "core/values/Importo.h"

namespace fenalto::vat {

/// `TIPORIGA` of a row of a VAT registration.
enum class TipoRigaIva { Altra = 0, Imponibile = 3, Iva = 4, Parte = 5 };

/// `Posi` of the VAT row and of the party's row: after any that a user types.
inline constexpr std::int64_t kPosiIva = 9998;
inline constexpr std::int64_t kPosiParte = 9999;

/// A row of `Movimenti`, without its counter.
struct RigaIva {
  int anno = 0;
  std::int64_t numDoc = 0;
  std::int64_t posi = 0;
  std::string causale;
  std::string descrizione;
  std::string cfp;
  std::string conto;
  Importo impoDare;
  Importo impoAvere;
  std::string cfpControp;
  std::string contoControp;
  bool diversiControp = false;
  TipoRigaIva tipoRiga = TipoRigaIva::Imponibile;
  std::string codIva;
  Importo imponibile;
  Importo iva;
  Importo ivaInd;
  std::string categoria;
  std::string commessa;

  friend bool operator==(const RigaIva&, const RigaIva&) = default;
};

/// The document that rows belong to.
struct DocumentoIva {
  int anno = 0;
  std::int64_t numDoc = 0;
  std::string riva;         ///< code of the register
  std::string tipo;         ///< its type
  std::string descrRiva;    ///< its description
  std::string contoIva;     ///< its VAT account
  std::string conto;        ///< the party (cash account on receipts)
  std::string descrizione;  ///< of the party's row
  bool commesseVecchioSistema = false;
  bool inverteNoteCredito = false;  ///< InvertoDAinNoteCredito
};

struct RigheComplete {
  std::vector<RigaIva> righe;  ///< the taxable ones as they came, VAT row, party's row
  std::string avviso;          ///< to be shown; empty for none
  Importo imponibile;
  Importo iva;
  Importo ivaInd;
  [[nodiscard]] Importo Totale() const { return imponibile + iva + ivaInd; }
};

/// Completes the rows of a registration typed by hand: VAT and party's rows that are among them are
/// dropped and made anew, a row without `posi` gets the next number. The error names a type of
/// register that isn't posted on.
Esito<RigheComplete> CreaRigheIvaCli(const DocumentoIva& documento,
                                     const std::vector<RigaIva>& digitate);

}  // namespace fenalto::vat
