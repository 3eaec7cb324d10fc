// The open company taken alone, for work that needs it closed everywhere: rename, delete, compact,
// restore.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "core/session/Ambiente.h"
#include "core/store/Presenza.h"

namespace fenalto {

/// Held from before the databases are closed until they are opened again; on destruction a company
/// that was closed is opened again where it was, if it still can be.
class PresenzaEsclusiva {
 public:
  PresenzaEsclusiva(PresenzaEsclusiva&& altra) noexcept = default;
  PresenzaEsclusiva& operator=(PresenzaEsclusiva&&) = delete;
  ~PresenzaEsclusiva();

  /// Where the company's databases are, open or closed.
  [[nodiscard]] const PercorsiArchivi& Percorsi() const { return percorsi_; }
  /// Closes the databases (a running copy is waited for): until Riapri the session is on no
  /// company, while others still can't open it.
  void Chiudi();
  /// Opens the company again on the same year and for the same user; `ditta` under another name.
  /// Others may open it from now on.
  Esito<bool> Riapri(const std::string& ditta = "");
  /// The company has gone: nothing is opened again.
  void Abbandona() { ambiente_.reset(); }

 private:
  friend Esito<PresenzaEsclusiva> PrendiDitta(Ambiente& ambiente);
  explicit PresenzaEsclusiva(Ambiente& ambiente);

  struct Lascia {
    void operator()(Ambiente* /*ambiente*/) const {}
  };
  std::unique_ptr<Ambiente, Lascia> ambiente_;  ///< null once moved from or given up
  std::shared_ptr<Presenza> presenza_;
  PercorsiArchivi percorsi_;
  std::string ditta_;
  int anno_ = 0;
  Utente utente_;
};

/// Takes the open company alone; the error names the station that has it open too.
Esito<PresenzaEsclusiva> PrendiDitta(Ambiente& ambiente);

}  // namespace fenalto
