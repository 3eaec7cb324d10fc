// A receipt that the bank returned unpaid: a new due date for what is owed again, and the
// registration that takes the collection back. The receipt presented stays paid.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "duedates/payments/ScadenzaDigitata.h"
#include "duedates/schedules/RicercaScadenze.h"

namespace fenalto::duedates {

/// `Programma` of an unpaid receipt's due date.
inline constexpr const char* kProgrammaInsoluto = "insoluti";

/// A receipt that was presented, and may have come back.
struct RicevutaPresentata {
  std::int64_t numero = 0;
  Data dt;
  Importo importoE;
  std::string nFat;
  Data dtFat;
  std::string banca;
  std::int64_t nDistinta = 0;
  Data dtPres;
  std::string descrizione;
  std::int64_t insoluto = 0;  ///< due date that was written when it came back; 0 for none
};

class InsolutoRiba : public ScadenzaDigitata {
 public:
  explicit InsolutoRiba(Ambiente& ambiente);

  /// Opens the due date of an unpaid receipt to change it; false when there is none of that number
  /// written here (told).
  bool Apri(std::int64_t numero);
  /// One that was written before is being changed; its party stays.
  [[nodiscard]] bool Aperto() const { return vista_.has_value(); }
  /// The due date opened; 0 for a new one, which gets its number when it is written.
  [[nodiscard]] std::int64_t Numero() const;
  /// The registration of the one opened has been written: changing it writes no second one.
  [[nodiscard]] bool RegContEffettuata() const { return vista_ && vista_->articolo != 0; }

  /// Receipts of the party that are with a bank, the last presented first, `massimo` at most.
  [[nodiscard]] std::vector<RicevutaPresentata> Presentate(std::size_t massimo);
  /// Takes amount, invoice, bank and batch from a receipt.
  void Riprendi(std::int64_t numero);

 protected:
  void Proponi() override;
  void Completa(ScadenzaConRegistrazione& cosa) const override;
  [[nodiscard]] std::string Nome() const override { return "dell'insoluto"; }
  [[nodiscard]] std::string Riuscita() const override;
  [[nodiscard]] bool Rinuncia() override;

 private:
  /// The receipt that is being registered: the one taken from the list, or the one with the batch
  /// and the invoice that were typed, which hasn't come back yet when there is one. Nothing
  /// without.
  [[nodiscard]] std::optional<RicevutaPresentata> Ricevuta();
  /// Finds the unpaid due dates that were written of receipts.
  void SegnaTornate(std::vector<RicevutaPresentata>& ricevute);

  std::int64_t ripresa_ = 0;  ///< receipt taken from the list
};

}  // namespace fenalto::duedates
