// Registrations that follow from a VAT document: its payment, the withholding, the second half of a
// reverse-charge pair with the giro of the cost, the customs giro.
//
// Nothing here asks, tells or opens a transaction: the caller holds the numbering lock of
// "ARTICOLI" and one transaction over both databases from before the first number is taken to after
// the last write. What happened is in the log, line by line; what the user must be told apart from
// it is in `avvisi`, to be shown after the transaction.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::vat {

struct LogContabile {
  std::string testo;  ///< lines separated by a line feed
  std::vector<std::string> avvisi;
  void Riga(std::string_view riga);
};

/// Next protocol of a register of a year: the greatest plus 1.
std::int64_t ProssimoNProt(Ambiente& ambiente, int anno, const std::string& riva);

using ledger::ArticoloOrigine;

/// A party's document and the code of `Pagamento` or `Ritenute` that gives account and causal.
struct RichiestaControConto {
  std::string cfp;  ///< "C" or "F"
  std::string conto;
  std::string codice;
  std::string descrizione;
  Importo importo;
  Data dt;
  int anno = 0;
  ArticoloOrigine documento = {};
};
/// The immediate payment of a document, when its payment code has account and causal; the number of
/// the registration, 0 when nothing was written.
std::int64_t CreaContabPagamento(Ambiente& ambiente, const RichiestaControConto& richiesta,
                                 LogContabile& log);
/// The withholding giro by a code of `Ritenute`; likewise.
std::int64_t CreaGiroRitenuta(Ambiente& ambiente, const RichiestaControConto& richiesta,
                              LogContabile& log);

/// Condition that finds its head, or its rows.
std::string ChiaveArticolo(const ArticoloOrigine& articolo);
/// Its head; at the end when there is none.
Rs LeggiArticolo(Ambiente& ambiente, const ArticoloOrigine& articolo);

/// Second half of a reverse-charge registration on a register of type "04".
struct DatiIntra {
  std::string rivaIntra;  ///< register of type "05"
  bool senzaGiroCosto = false;
  std::string causale;  ///< `CausaleIntraCosto_a_Forn`
  std::string fornitore;
  std::string contoCosti;
  std::string pagamento;
};
bool RegistraIntra(Ambiente& ambiente, const ArticoloOrigine& origine, const DatiIntra& dati,
                   LogContabile& log);

struct DatiBollaDoganale {
  std::string fornitore;
  std::string causale;
  std::string pagamento;
};
bool RegistraBollaDoganale(Ambiente& ambiente, const ArticoloOrigine& origine,
                           const DatiBollaDoganale& dati, LogContabile& log);

struct DatiGiroRitenuta {
  std::string causale;
  std::string conto;
  Importo importo;
};
bool RegistraGiroRitenuta(Ambiente& ambiente, const ArticoloOrigine& origine,
                          const DatiGiroRitenuta& dati, LogContabile& log);

}  // namespace fenalto::vat
