// Users of a company and their rights.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto {

/// Keeps the table `Ut`. Refusals are errors with the reason.
class Utenti {
 public:
  explicit Utenti(Ambiente& ambiente) : ambiente_(ambiente) {}

  [[nodiscard]] std::vector<Utente> Elenco() const;
  /// Adds a user or changes one (`codiceAttuale` not empty). The first user must be of level 99;
  /// the last of level 99 keeps it; levels are 99, 50, 30. An empty password leaves the stored one
  /// of an existing user and is refused for a new one.
  Esito<bool> Salva(const std::string& codiceAttuale, const Utente& utente,
                    const std::string& password);
  /// Removes a user; the last of level 99 can't go while others remain, and may go as the very
  /// last.
  Esito<bool> Elimina(const std::string& cod);
  /// Changes the password of who is logged in: the two new ones must agree and the old one be
  /// right.
  Esito<bool> CambiaPassword(const std::string& vecchia, const std::string& nuova,
                             const std::string& ripetuta);

  /// Hash of a password (argon2id) and its check.
  static std::string Hash(const std::string& password);
  static bool Verifica(const std::string& hash, const std::string& password);
  /// A hash that no user has, to spend the time of a check on.
  static const std::string& HashDiNessuno();
  /// The cheapest setting, for tests.
  static void HashEconomico(bool attivo);

 private:
  Ambiente& ambiente_;
};

}  // namespace fenalto
