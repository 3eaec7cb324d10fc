// The printed batch of bank receipts, and what is added to it once it is in the books.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/reports/Uscita.h"
#include "duedates/riba/Riba.h"

namespace fenalto::duedates {

/// A batch ready to be printed and written. `vista` and `iban` follow the receipts of `distinta`.
struct DatiDistinta {
  std::int64_t numero = 0;
  BancaPresentazione banca;
  DistintaRiba distinta;
  std::vector<Scadenza> vista;
  std::vector<std::string> iban;  ///< of the customers, as far as it is known
  FileRiba file;
  std::string nomeFile;
  std::string conservato;                 ///< the file of that name that was there before
  std::vector<std::string> segnalazioni;  ///< remarks on the receipts, each of several lines
  std::vector<std::string> noteFile;      ///< remarks on the file

  [[nodiscard]] Importo Totale() const;
};

class StampaDistinta {
 public:
  StampaDistinta(Ambiente& ambiente, reports::FabbricaUscite& uscite, const DatiDistinta& dati,
                 const FormaDistinta& forma)
      : ambiente_(ambiente), uscite_(uscite), dati_(dati), forma_(forma) {}

  /// Asks where to and prints the batch, for the user to look at; false when he gave up.
  bool Prova();
  /// Once the batch is in the books, to the same place without asking again: a file is written
  /// again whole, the preview shows batch and end, paper gets the end alone. `numDoc` is 0 without
  /// a registration.
  void Definitiva(std::int64_t numDoc);

 private:
  Ambiente& ambiente_;
  reports::FabbricaUscite& uscite_;
  /// In the form that was chosen, as far as the output takes it.
  bool Stendi(std::unique_ptr<reports::Uscita> uscita, bool ricevute,
              std::optional<std::int64_t> articolo);

  const DatiDistinta& dati_;
  FormaDistinta forma_;
  std::optional<SceltaUscita> scelta_;
};

}  // namespace fenalto::duedates
