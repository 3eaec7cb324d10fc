// All that is known of one customer or supplier, as a tree: due dates, movements of each year,
// documents of each type.
//
// Which branches there are is cheap to tell; how much is behind each is counted when it comes in
// sight, and what is behind it is read a page at a time when it is opened. A new kind of branch is
// a line of the table in InterrogazioneParte.cpp.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/values/Rinvio.h"

namespace fenalto::documents {

/// What a leaf stands for.
enum class GenereFoglia { Scadenza, Movimento, Documento };

struct RamoParte {
  std::string chiave;  ///< "xSCAD", "xMOVANNO", "xMOVPREC", "xDOC"
  /// What tells the branches of a kind apart: the year, the type of document.
  std::string argomento;
  std::string didascalia;
};

struct ConteggioRamo {
  std::int64_t quanti = 0;
  /// What is left to pay, the balance; zero for documents.
  Importo importo;
};

struct FogliaParte {
  std::string chiave;  ///< of its branch, without the x: "SCAD", "MOVANNO", "MOVPREC", "DOC"
  std::string testo;
  GenereFoglia genere = GenereFoglia::Scadenza;
  /// Number of the due date, of the registration or of the document, with the year of the last two.
  std::int64_t numero = 0;
  int anno = 0;
  std::string tipoDoc;
  /// What is left to pay, debit minus credit; nothing for documents.
  std::optional<Importo> importo;
  /// Place in the order of the branch; the next page begins after it.
  std::vector<Valore> segno;
  Rinvio rinvio;  ///< to the record itself; nothing where no function shows it
};

/// The head of the panel, ready to be read.
struct TestaParte {
  bool esiste = false;
  std::string nome;
  std::string indirizzo;
  std::string contatti;
  std::string fiscali;
  std::string pagamento;
  Importo fido;  ///< customers only
};

/// A document's rows as shown, each followed by the text of its account.
struct RigaDocumentoParte {
  std::string codice;
  std::string descrizione;
  std::string um;
  Importo quantita;
  Importo prezzo;
  std::string sconti;
  Importo importo;
  std::string codIva;
  std::string conto;
  std::string descrConto;
};
struct TotaleIvaDocumento {
  std::string codIva;
  std::string descrizione;
  Importo perc;
  Importo imponibile;
  Importo iva;
};
struct DocumentoParte {
  std::string titolo;
  /// Payment, notes and the like, a line each.
  std::vector<std::string> scritte;
  std::vector<RigaDocumentoParte> righe;
  std::vector<TotaleIvaDocumento> totali;
};

/// A line of a registration.
struct RigaRegistrazione {
  std::string causale;
  std::string descrizione;
  std::string conto;
  std::string descrConto;
  Importo dare;
  Importo avere;
};

class InterrogazioneParte {
 public:
  /// `cfp` is "C" or "F".
  InterrogazioneParte(Ambiente& ambiente, std::string cfp, std::string codice);

  [[nodiscard]] TestaParte Testa();
  /// The branches that the user may see, in their order, not yet counted.
  [[nodiscard]] std::vector<RamoParte> Rami();
  [[nodiscard]] ConteggioRamo Conta(const RamoParte& ramo);
  /// Caption of a counted branch: that of movements tells the balance too.
  [[nodiscard]] std::string Didascalia(const RamoParte& ramo, const ConteggioRamo& conteggio);
  /// At most `quante` leaves after that one (from the first when null), in the order of the branch.
  [[nodiscard]] std::vector<FogliaParte> Foglie(const RamoParte& ramo, const FogliaParte* dopo,
                                                std::size_t quante);

  /// What a leaf shows when it is chosen. Nothing (an empty title) for one that isn't there any
  /// more.
  [[nodiscard]] DocumentoParte Documento(const FogliaParte& foglia);
  [[nodiscard]] std::vector<RigaRegistrazione> Registrazione(int anno, std::int64_t numero);
  /// Names and values of what a due date says of itself; none when it isn't there any more.
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> Scadenza(std::int64_t numero);
  /// To the registration behind a leaf: that of a movement, or of the invoice of a due date; empty
  /// where there is none.
  [[nodiscard]] Rinvio RinvioRegistrazione(const FogliaParte& foglia);

  /// Whether the amounts of a year are euro.
  [[nodiscard]] bool InEuro(int anno);
  /// Decimals of the amounts of a year: lire have none.
  [[nodiscard]] int DecimaliDi(int anno);

 private:
  [[nodiscard]] Rs Vista(const char* nome, const FogliaParte& foglia, const char* ordine);

  Ambiente& ambiente_;
  std::string cfp_;
  std::string codice_;
  std::map<int, bool> euro_;
};

}  // namespace fenalto::documents
