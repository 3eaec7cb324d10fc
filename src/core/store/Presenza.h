// Who has a company open: each session holds a shared place beside its databases, and what can't be
// done while others work there (rename, delete, compact, restore) takes the place alone.
#pragma once

#include <memory>
#include <string>

#include "core/store/Blocchi.h"
#include "core/store/CopiaSicurezza.h"
#include "core/values/Esito.h"

namespace fenalto {

/// A held place, released on destruction. It stays whatever becomes of the databases and of their
/// folder's name, so they may be closed and moved meanwhile.
class Presenza {
 public:
  /// A place shared with other sessions; the error tells who has taken the company alone. Nothing
  /// when there is no database at that place, and so nothing to be present at. Throws
  /// ErroreArchivio.
  static Esito<std::shared_ptr<Presenza>> Prendi(const PercorsiArchivi& percorsi,
                                                 const std::string& ditta,
                                                 const std::string& stazione);
  Presenza(const Presenza&) = delete;
  Presenza& operator=(const Presenza&) = delete;
  ~Presenza() = default;

  /// From now on it names this user to others.
  void Utente(const std::string& utente) { posto_->Utente(utente); }
  /// Nobody else may have the company open, or open it; the error names who is in the way, and then
  /// the place is shared as before.
  Esito<bool> Sola();
  /// Shared again.
  void ConAltri() { posto_->Condividi(); }

 private:
  Presenza(std::string ditta, std::string stazione, std::unique_ptr<PostoPresenza> posto);
  std::string ditta_;
  std::string stazione_;
  std::unique_ptr<PostoPresenza> posto_;
};

}  // namespace fenalto
