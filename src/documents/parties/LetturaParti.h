// Customers or suppliers as their lists read them: one query in the order of the list, the names
// behind their codes, the year's figures of their accounts.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"
#include "ledger/accounts/SaldoConto.h"

namespace fenalto::documents {

/// Which parties a list holds; empty codes narrow nothing.
struct SceltaParti {
  std::string cfp = "C";  ///< customers or "F" suppliers
  std::string daCod;
  std::string aCod;
  std::string categoria;
  std::string agente;    ///< of customers only
  bool perNome = false;  ///< in order of name, of code otherwise
  /// All that is known of a party, with the figures of its account where the user may see them.
  bool dettagliato = false;

  [[nodiscard]] bool Clienti() const;
};

/// A field that a list shows.
struct CampoParte {
  const char* nome;
  const char* titolo;
  const char* tabella = nullptr;  ///< where the code's description is; null for no code
  const char* titoloDescrizione = "";
  bool soloClienti = false;
  bool sintetico = false;  ///< in the short layout too
  Tipo tipo = Tipo::Testo;
};

/// A party with the texts behind its codes.
class ParteElencata {
 public:
  ParteElencata() = default;
  /// A field of the list; Null for one that its table lacks.
  [[nodiscard]] Valore Campo(std::string_view nome) const;
  /// A text field, without blanks around.
  [[nodiscard]] std::string Testo(std::string_view nome) const;
  /// Description of a code field, empty for a code that isn't in its table.
  [[nodiscard]] std::string Descrizione(std::string_view nome) const;

  ledger::Saldo saldo;

 private:
  friend class LetturaParti;
  std::map<std::string, Valore, std::less<>> campi_;
  std::map<std::string, std::string, std::less<>> descrizioni_;
};

/// One thing said of a party: "telefono", "0341 123456". Continued texts have no caption.
struct VoceParte {
  std::string didascalia;
  std::string valore;
};
/// A line of the detailed layout, in two columns.
struct RigaParte {
  VoceParte sinistra;
  VoceParte destra;
};
/// What is known of a party, in lines whose values have at most `larghezza` characters; nothing is
/// said of what isn't filled.
std::vector<RigaParte> RigheDettaglio(const ParteElencata& parte, std::size_t larghezza);

/// What is wrong in a choice, in words for the user.
std::optional<Rifiuto> DifettoScelta(const SceltaParti& scelta);
/// The choice in words: "clienti da 0001 a 0009, agente 01 Verdi, in ordine di nome".
std::string ScrittaScelta(Ambiente& ambiente, const SceltaParti& scelta);

class LetturaParti {
 public:
  LetturaParti(Ambiente& ambiente, const SceltaParti& scelta);

  /// Fields of the layout, in the order of the sheet.
  [[nodiscard]] std::vector<CampoParte> Campi() const;
  /// Whether parties come with the figures of their accounts.
  [[nodiscard]] bool ConSaldi() const { return conSaldi_; }
  [[nodiscard]] std::int64_t Conta();
  /// Hands the parties out one by one until `parte` returns false, showing how far it is of
  /// `quante`. False when it did, or the user cancelled.
  bool Scorri(std::int64_t quante, const std::function<bool(const ParteElencata&)>& parte);

 private:
  [[nodiscard]] std::string Fonte() const;
  void LeggiDescrizioni();
  ParteElencata Leggi(const Rs& rs, std::span<const CampoParte> campi);

  Ambiente& ambiente_;
  SceltaParti scelta_;
  bool conSaldi_;
  /// Descriptions by table and code, compared as the store does.
  struct SenzaCaso {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
  };
  std::map<std::string, std::map<std::string, std::string, SenzaCaso>, std::less<>> descrizioni_;
  ledger::SaldoConto saldi_;
  ledger::SaldoConto::Richiesta richiesta_;
};

}  // namespace fenalto::documents
