// The VAT documents of the company `Demo`: the last three months, typed day by day.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "demo/DialoghiMuti.h"
#include "demo/Generatore.h"
#include "vat/entry/RegistrazioneIva.h"

namespace fenalto::demo {

class FattureDemo {
 public:
  /// From the first of the month before last to `oggi`.
  FattureDemo(Ambiente& ambiente, DialoghiMuti& dialoghi, Data oggi);

  /// First day with documents.
  [[nodiscard]] Data Inizio() const { return inizio_; }
  /// There are documents not yet written dated up to `data`.
  [[nodiscard]] bool Attende(Data data) const {
    return scritti_ < documenti_.size() && documenti_[scritti_].dt <= data;
  }
  /// Confirms them; they must be of the year selected. Throws ErroreArchivio when one is refused.
  void FinoA(Data data);

 private:
  struct Riga {
    std::string conto = {};
    std::string codIva = {};
    Importo imponibile = {};
  };
  struct Documento {
    Data dt;
    std::string riva;
    std::string parte = {};        ///< empty: what the program proposes
    std::string nFat = {};         ///< empty: what the program proposes
    Data dtFat = {};               ///< null: the same as `dt`
    std::vector<Riga> righe = {};  ///< account and code empty: what the party proposes
    std::vector<std::pair<std::string, Valore>> altri = {};
  };

  void Vendite(const std::vector<Data>& giorni);
  void Acquisti(const std::vector<Data>& giorni);
  void Estero(const std::vector<Data>& giorni);
  void Corrispettivi(const std::vector<Data>& giorni);
  void Scrivi(const Documento& documento);

  DialoghiMuti& dialoghi_;
  Data inizio_;
  Generatore generatore_;
  vat::RegistrazioneIva fatture_;
  std::vector<Documento> documenti_;  ///< in order of date
  std::size_t scritti_ = 0;
};

}  // namespace fenalto::demo
