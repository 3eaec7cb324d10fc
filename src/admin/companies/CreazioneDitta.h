// "Creazione Nuova ditta": name, first year, what it starts from, and what it keeps of that.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/archives/TabelleDitta.h"
#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto::admin {

/// A kind of data that a copy may keep: the field that says so, and whether it is proposed.
struct OpzioneCopia {
  const char* campo;
  archives::SceltaDati scelta;
  bool proposta;
};

class CreazioneDitta {
 public:
  explicit CreazioneDitta(Ambiente& ambiente);

  /// `Ditta`, `Anno`, `IvaTrimestrale`, `CopiaDitta` (a copy of the open company, otherwise the
  /// model company), and the options.
  Scheda& Dati() { return dati_; }
  /// The kinds that the open company's tables have.
  [[nodiscard]] const std::vector<OpzioneCopia>& Opzioni() const { return opzioni_; }
  [[nodiscard]] bool Modificata() const { return dati_.Modificata(); }
  /// Proposes a company as if nothing had been typed.
  void Proponi();

  /// The name as it is being typed: a symbol is refused, told, and taken out.
  std::string NomeDigitato(const std::string& testo);
  /// Checks, questions, the company, and the last message. True when it was made: the program then
  /// ends, and starts on it.
  bool Conferma();
  /// The field that stopped the last confirmation, empty for none.
  [[nodiscard]] const std::string& CampoRifiutato() const { return campoRifiutato_; }

 private:
  bool Rifiuta(std::string_view campo, const std::string& messaggio);
  bool ControllaDati();
  bool ChiediSostituzione(const std::string& nome);
  [[nodiscard]] std::set<archives::SceltaDati> Tenute() const;

  Ambiente& ambiente_;
  Scheda dati_;
  std::vector<OpzioneCopia> opzioni_;
  std::string campoRifiutato_;
};

}  // namespace fenalto::admin
