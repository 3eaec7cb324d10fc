// Deferred-VAT invoices: which are open or collected, and the day of collection, with which their
// VAT falls due on the register of type 08 (sales) or 08A (purchases).
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "core/session/Ambiente.h"
#include "vat/postings/RegistrazioniAutomatiche.h"

namespace fenalto::vat {

/// Invoices marked as deferred (`Ep`), and all those on a register of type 06.
struct FatturaSospesa {
  int anno = 0;
  std::int64_t numDoc = 0;
  std::string riva;
  std::int64_t nProt = 0;
  Data dt;
  Data dtFat;
  std::string nFat;
  std::string cfp;
  std::string conto;
  std::string nome;  ///< of the party
  Importo imponibile;
  Importo iva;
  Data dtIncasso;  ///< null while it is open
};

enum class StatoSospese { Tutte, Aperte, Incassate };

struct FiltroSospese {
  std::string riva = {};   ///< empty for all registers
  std::string parte = {};  ///< code, or a part of the name, of the customer or supplier
  Data da = {};            ///< of the registration
  Data a = {};
  StatoSospese stato = StatoSospese::Tutte;
};

class FattureSospese {
 public:
  explicit FattureSospese(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Whether the company has a register of type 06, 08 or 08A.
  [[nodiscard]] static bool Usate(Ambiente& ambiente);
  /// Registers that hold, or may hold, deferred invoices: code and description.
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> Registri();
  /// In order of date and number, whatever the session's year.
  [[nodiscard]] std::vector<FatturaSospesa> Elenco(const FiltroSospese& filtro);

  /// Sets the day of collection. Refused, and told why, when the period of the old or of the new
  /// day is settled, or the day comes before the registration. When the firm keeps deferred VAT on
  /// an account of its own, a storno (code 1) of that day moves it to the account of the 08 (08A)
  /// register; the one of an earlier day is erased. False when nothing was changed.
  bool Imposta(const ArticoloOrigine& fattura, Data incasso);
  /// Takes the day off, with its storno.
  bool Annulla(const ArticoloOrigine& fattura);

 private:
  bool Cambia(const ArticoloOrigine& fattura, Data incasso);
  Ambiente& ambiente_;
};

}  // namespace fenalto::vat
