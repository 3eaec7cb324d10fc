// Lines of a bank statement against open due dates: what each line probably settles, proposed for
// the user to accept one by one. Nothing is written without a yes.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/bank/EstrattoBanca.h"
#include "duedates/payments/RegistraPagamento.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

/// What a line may settle: due dates of one party, whole.
struct PropostaBanca {
  std::string cfp;
  std::string conto;
  std::string nome;  ///< the party's
  std::vector<Scadenza> scadenze;
  /// What is left of the due dates after the line's amount; a few cents at most.
  Importo arrotondamento;
  /// "importo esatto, nome nella descrizione, fattura 12": why it is proposed.
  std::string motivo;
  /// How sure it is; those of the same line are in falling order.
  int punti = 0;

  [[nodiscard]] Importo Residuo() const;
};

/// How an accepted proposal is registered.
struct OpzioniAbbinamento {
  std::string causale;
  std::string contropartita;  ///< the bank's account
  std::string contoArrotondamenti;
};

class AbbinamentoBanca {
 public:
  /// A difference up to this much is taken for a rounding, or a charge, when the party's name
  /// speaks for it.
  static Importo MassimoArrotondamento();
  static constexpr std::size_t kMassimoProposte = 10;

  explicit AbbinamentoBanca(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Reads the open due dates and the lines settled before; progress can be cancelled (false).
  bool Prepara();
  /// The line was accepted before, from this file or from another that overlaps it.
  [[nodiscard]] bool GiaAbbinata(const LineaEstratto& linea) const;
  /// Proposals for a line, the surest first: customers' for money received, suppliers' for money
  /// paid.
  [[nodiscard]] std::vector<PropostaBanca> Proponi(const LineaEstratto& linea) const;

  /// Checks of a payment, then payment, registration and the note that the line is settled, in one
  /// transaction. False when it wasn't written; the user was told why. Its due dates then leave the
  /// proposals.
  bool Accetta(const LineaEstratto& linea, const PropostaBanca& proposta,
               const OpzioniAbbinamento& opzioni);

 private:
  struct Parte {
    std::string cfp;
    std::string conto;
    std::string nome;
    /// Words of the name, as they are searched.
    std::vector<std::string> parole;
    std::vector<Scadenza> scadenze;  ///< in order of due date
    Importo residuo;
  };
  using Indici = std::vector<std::size_t>;

  void Leggi(const std::string& cfp, Avanzamento& avanzamento, bool& interrotta);
  void Indicizza();
  [[nodiscard]] Indici Candidate(const LineaEstratto& linea, const std::string& cfp,
                                 const std::set<std::string>& parole) const;
  using Nominata = std::function<bool(const Scadenza&)>;
  /// Finds the party's due dates that make the amount; false when none do.
  static bool Scegli(const Parte& parte, Importo importo, const Nominata& nominata,
                     PropostaBanca& proposta);
  /// `elenco` holds the words of the line in their order, `parole` each once.
  static std::optional<PropostaBanca> Confronta(const Parte& parte, const LineaEstratto& linea,
                                                const std::vector<std::string>& elenco,
                                                const std::set<std::string>& parole);
  [[nodiscard]] std::string Rifiuto(const LineaEstratto& linea, const Pagamento& pagamento) const;
  void Togli(const PropostaBanca& proposta);

  Ambiente& ambiente_;
  std::set<std::string> abbinate_;
  std::vector<Parte> parti_;
  std::multimap<Importo, std::size_t> perImporto_;  ///< rest of a due date or sum of first ones
  std::multimap<std::string, std::size_t> perParola_;
};

}  // namespace fenalto::duedates
