// Due dates as the printed reports read them: one query in the order of the report.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/reports/Pagina.h"
#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"

namespace fenalto::duedates {

/// What the reports have in common; empty codes and null dates narrow nothing.
struct SceltaScadenze {
  std::string cfp = "C";  ///< customers or "F" suppliers
  std::string daCliFor;
  std::string aCliFor;
  Data daData;  ///< of the due date
  Data aData;
  bool anchePagate = false;
  Data pagateDal;  ///< with `anchePagate`: only those paid from that day on
};

/// A due date with its party's name.
struct ScadenzaStampata {
  std::string cfp;
  std::string conto;
  std::string ragsoc;
  Data dt;
  std::string tipo;
  std::string stato;
  int anno = 0;
  std::int64_t articolo = 0;
  std::string nFat;
  Data dtFat;
  Importo importo;
  Importo pagato;
  std::string descrizione;
  bool anticipo = false;
  /// Closed by a batch of receipts: the bank has it, nothing was paid yet.
  bool inDistinta = false;
  /// Closed because another took its place: its amount is what had been paid of it before.
  bool raggruppata = false;

  [[nodiscard]] bool Aperta() const;
  /// What is still to be settled: nothing of a due date that is closed, whatever was allowed on it.
  [[nodiscard]] Importo Residuo() const { return Aperta() ? importo - pagato : Importo(); }
  /// The invoice's number as far as its column goes; the description has a longer one whole.
  [[nodiscard]] std::string NumeroFattura() const;
  /// The state in a word: "aperta", "parziale", "presentata", "pagata", "raggrupp."
  [[nodiscard]] std::string StatoInParola() const;
  /// The description, marked when it is a deposit, and with a number that its column can't hold.
  [[nodiscard]] std::string DescrizioneSegnata() const;
  /// Leads to the registration; to the party where the due date has none.
  [[nodiscard]] Rinvio RinvioARegistrazione() const;
};

/// What is wrong in a choice, in words for the user.
std::optional<Rifiuto> DifettoScelta(const SceltaScadenze& scelta);
/// "clienti", or "fornitori".
std::string NomeClasse(const SceltaScadenze& scelta);
/// The period of due dates and the range of parties, in words: "dal .. al .., clienti da .. a ..".
std::string ScrittaScelta(const SceltaScadenze& scelta);

enum class OrdineScadenze { PerConto, PerData };

std::int64_t ContaScadenze(Ambiente& ambiente, const SceltaScadenze& scelta);
/// Hands the due dates out one by one until `riga` returns false. False when it did.
bool ScorriScadenze(Ambiente& ambiente, const SceltaScadenze& scelta, OrdineScadenze ordine,
                    const std::function<bool(const ScadenzaStampata&)>& riga);

}  // namespace fenalto::duedates
