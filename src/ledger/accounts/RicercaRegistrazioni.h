// What a line typed above a list of registrations looks for.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::ledger {

struct TestoCercato {
  std::string testo;                   ///< without the blanks around it
  std::optional<std::int64_t> numero;  ///< it is a number of a registration
  Data data;                           ///< it isn't, but is a date; null otherwise
};

TestoCercato LeggiCercato(const std::string& testo, Ambiente& ambiente);

/// The accounts and parties that a text stands for, by the beginning of their code or a part of
/// their description: for each class their codes as literals parted by commas. Of one class alone
/// when it is given. A text that stands for a great many finds the first few hundred.
std::map<std::string, std::string> ContiCercati(Archivio& tessarc, const std::string& testo,
                                                const std::optional<std::string>& classe = {});

/// Descriptions of accounts and parties, each read once.
class DescrizioniConti {
 public:
  explicit DescrizioniConti(Ambiente& ambiente) : ambiente_(ambiente) {}
  const std::string& Di(const std::string& cfp, const std::string& conto);
  void Dimentica() { lette_.clear(); }

 private:
  Ambiente& ambiente_;
  std::map<std::string, std::string> lette_;  ///< by class and code
};

}  // namespace fenalto::ledger
