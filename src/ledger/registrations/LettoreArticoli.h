// Reads the registrations of the selected year for the list from which one is chosen: newest first,
// a page at a time, whatever their number.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/archives/FonteElenco.h"
#include "ledger/accounts/RicercaRegistrazioni.h"

namespace fenalto::ledger {

struct ArticoloLetto {
  std::int64_t numero = 0;
  Data data;
  std::string dare;  ///< account and its description, or "DIVERSI"
  std::string avere;
  std::string descrizione = {};  ///< the first that a row has
  Importo importo = {};          ///< what its rows debit
};

/// Columns: number, date, debit, credit, description, amount. A search looks for a number, a date,
/// an account of the head by code or by a part of its description, or rows with that amount or with
/// a part of their description.
class LettoreArticoli : public archives::FonteElenco {
 public:
  explicit LettoreArticoli(Ambiente& ambiente) : ambiente_(ambiente), descrizioni_(ambiente) {}

  void Comincia(const archives::FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return sotto_ <= 1; }
  [[nodiscard]] bool ATratti() const override { return !ricerca_.immediata; }
  [[nodiscard]] std::int64_t Punto() const override { return sotto_; }
  /// "15/03/2024   100.010  Cassa contanti  →  700.010  Vendite"; empty when there is none.
  std::string Testo(std::int64_t numero);

 private:
  struct Ricerca {
    std::string condizione = {};  ///< of the store's language; empty for all
    std::string diRighe = {};     ///< that a row may meet instead
    bool immediata = true;        ///< an index answers
    bool impossibile = false;     ///< nothing can meet it
  };
  /// Registrations with a number below `sotto` and above `oltre`, at most `quante`.
  std::vector<ArticoloLetto> Pagina(const Ricerca& ricerca, std::int64_t sotto, std::int64_t oltre,
                                    int quante);
  /// Adds what their rows tell.
  void LeggiRighe(std::vector<ArticoloLetto>& letti);
  Ricerca Interpreta(const std::string& testo);
  std::string ConConto(const std::string& testo);
  std::string Descritto(const std::string& cfp, const std::string& conto);
  Archivio& Tessarc() { return ambiente_.ArchivioDi("tessarc"); }

  Ambiente& ambiente_;
  DescrizioniConti descrizioni_;
  Ricerca ricerca_;
  std::int64_t sotto_ = 0;  ///< where the reading goes on: numbers below this one
};

}  // namespace fenalto::ledger
