// Locks that outlive a statement: the record in edit and the numbering lock.
//
// Each is an operating-system lock (open-file-description kind, closed on exec) on a byte of the
// lock file beside the database: it vanishes with the process that held it, whatever kills it.
// Who holds it stands in the lock file, in a slot of fixed size beside the byte. Each Blocco has a
// descriptor of its own, so two windows of one process exclude each other as two stations do.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/values/Esito.h"

namespace fenalto {

/// Who holds a lock.
struct Detentore {
  std::string stazione;
  std::string utente;
  std::int64_t processo = 0;
  std::string dalle;  ///< "15/03/2024 10:00"
  /// "dalla stazione UFFICIO (utente MARIA, dalle 10:00)"
  [[nodiscard]] std::string Descrizione() const;
};

/// A held lock; released on destruction. Movable.
class Blocco {
 public:
  Blocco() = default;
  Blocco(Blocco&&) noexcept;
  Blocco& operator=(Blocco&&) noexcept;
  ~Blocco();
  [[nodiscard]] bool Tenuto() const { return descrittore_ >= 0; }
  void Rilascia() noexcept;

 private:
  friend class Blocchi;
  int descrittore_ = -1;
  std::int64_t posto_ = 0;
};

class Blocchi {
 public:
  /// `file` is made when missing. Throws ErroreArchivio when it can't be made or written.
  Blocchi(std::filesystem::path file, std::string stazione, std::string utente);
  ~Blocchi();
  Blocchi(const Blocchi&) = delete;
  Blocchi& operator=(const Blocchi&) = delete;

  void Utente(std::string utente);

  /// The lock of one record, without waiting; the holder when it is taken. `tabella` and `chiave`
  /// are compared without case.
  Esito<Blocco, Detentore> Record(std::string_view tabella, std::string_view chiave);
  /// The numbering lock of a table; waits at most `attesa`, first come first served, then returns
  /// the holder.
  Esito<Blocco, Detentore> Tabella(std::string_view tabella, std::chrono::milliseconds attesa);
  /// Who holds the lock of a record now, if anybody.
  [[nodiscard]] std::optional<Detentore> ChiTiene(std::string_view tabella,
                                                  std::string_view chiave) const;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

/// Proves with a second process that locks of the kind used here exclude other processes in this
/// folder. False means that the folder's file system doesn't keep locks and data there would be
/// lost.
bool BlocchiAffidabili(const std::filesystem::path& cartella);
/// Whether the folder lies on a network file system (NFS, SMB, ...).
bool CartellaDiRete(const std::filesystem::path& cartella);

}  // namespace fenalto
