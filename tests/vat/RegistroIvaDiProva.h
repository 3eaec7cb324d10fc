// The company of the VAT tests with registers of every type, registrations written straight into
// the books, and a run of the register.
#pragma once

#include <string>
#include <vector>

#include "ledger/Stampati.h"
#include "vat/register/RegistroIvaUnico.h"

namespace fenalto::prova {

struct RigaRegistrata {
  const char* codIva;
  Importo imponibile;
  Importo iva;
  Importo ivaInd = {};
};

/// A registration on a VAT register.
struct Registrata {
  const char* riva;
  std::int64_t nProt;
  Data dt;
  std::vector<RigaRegistrata> righe;
  bool ep = false;
  Data dtIncasso = {};
  int anno = 2024;
};

class RegistroIvaDiProva : public DittaDaStampare {
 protected:
  RegistroIvaDiProva();

  /// Writes it with its VAT and party rows under the next number, and gives the number.
  std::int64_t Scrivi(const Registrata& registrata);
  /// Chooses a period, without a word.
  void Scegli(const char* cod);
  vat::IntervalloRegistro& Intervallo(const char* riva);
  /// Prints the chosen period as text, answering the question of the definitive print.
  bool Stampa(Risposta definitiva, vat::RegistroIvaUnico* altro = nullptr);
  [[nodiscard]] std::string Tutto() const { return Contenuto() + Contenuto("scadenzario"); }
  /// "riva codice imponibile/iva/ivaind" of the stored totals of a period, in order.
  std::vector<std::string> Memorizzati(const char* tabella, const char* periodo);
  [[nodiscard]] std::vector<std::string> Testi(
      const std::vector<vat::ProblemaRegistro>& problemi) const;

  vat::RegistroIvaUnico registro{ambiente};
};

}  // namespace fenalto::prova
