// The due dates of one document: what there is to pay of it, the deposits of its party, and what
// its paper says of the payment.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/schedules/RicercaScadenze.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

class ScadenzeDocumento {
 public:
  explicit ScadenzeDocumento(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Takes year and number of a registration; false, and nothing changes, when there are neither a
  /// registration nor due dates of that number.
  bool Apri(int anno, std::int64_t articolo);
  [[nodiscard]] bool Aperto() const { return r_.articolo != 0; }
  [[nodiscard]] int Anno() const { return r_.anno; }
  [[nodiscard]] std::int64_t Articolo() const { return r_.articolo; }
  [[nodiscard]] const std::string& Cfp() const { return r_.cfp; }
  [[nodiscard]] const std::string& Conto() const { return r_.conto; }
  /// "registrazione n. 12 del 2024: ROSSI SRL, ft. 5 del 31/01/2024, registro 1 prot. 7"
  [[nodiscard]] std::string Descrizione() const;

  /// Reads the due dates and the deposits again: from now on these count as seen.
  void Rileggi();
  /// The search that shows the document's due dates, the paid ones too.
  [[nodiscard]] RicercaScadenze Ricerca() const;
  /// The search of the party's open deposits.
  [[nodiscard]] RicercaScadenze RicercaAnticipi() const;
  [[nodiscard]] const std::vector<Scadenza>& Scadenze() const { return scadenze_; }
  [[nodiscard]] const std::vector<Scadenza>& Anticipi() const { return anticipi_; }

  /// What a new due date of the document is proposed.
  [[nodiscard]] std::vector<Coppia> Nuova() const;
  /// A due date was chosen: asks whether to take the deposits off it, and does. True when done;
  /// whatever happened, all is to be read again.
  bool DeduciAnticipi(std::int64_t numero);

  // What the document prints.

  /// The due dates print on invoices (key `ScadenzePagamento`), and the registration has one.
  [[nodiscard]] bool ConStampa() const { return conStampa_; }
  /// Texts that an invoice may print.
  struct TestiStampa {
    std::string evidenziate;  ///< A: as the document has it now
    std::string codice;       ///< B: by its payment code
    std::string scadenzario;  ///< C: by its due dates
  };
  [[nodiscard]] TestiStampa Testi() const;
  /// Keeps one of them ("A", "B", "C") on the document. False when none is chosen or it couldn't be
  /// written (told).
  bool ScegliStampa(const std::string& lettera);

 private:
  /// The registration that the due dates belong to.
  struct Registrazione {
    int anno = 0;
    std::int64_t articolo = 0;
    std::string cfp;  ///< of the party
    std::string conto;
    std::string riva;
    std::int64_t nProt = 0;
    std::string nFat;
    Data dtFat;
    std::string pagamento;
  };
  bool LeggiRegistrazione();
  void LeggiFattura();
  [[nodiscard]] std::string CondizioneFattura() const;
  [[nodiscard]] Importo TotaleRegistrato() const;

  Ambiente& ambiente_;
  Registrazione r_;
  std::vector<Scadenza> scadenze_;
  std::vector<Scadenza> anticipi_;
  bool conStampa_ = false;
};

}  // namespace fenalto::duedates
