// Locks that outlive a statement: the record in edit and the numbering lock.
//
// Whatever the engine makes them of, they vanish with the process that held them, two windows of
// one process exclude each other as two stations do, and one that can't have a lock is told who
// holds it.
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
  /// What an engine holds for it, and lets go of on destruction.
  struct Tenuta {
    Tenuta() = default;
    virtual ~Tenuta() = default;
    Tenuta(const Tenuta&) = delete;
    Tenuta& operator=(const Tenuta&) = delete;
  };
  Blocco() = default;
  explicit Blocco(std::unique_ptr<Tenuta> tenuta) : tenuta_(std::move(tenuta)) {}
  [[nodiscard]] bool Tenuto() const { return tenuta_ != nullptr; }
  void Rilascia() noexcept { tenuta_.reset(); }

 private:
  std::unique_ptr<Tenuta> tenuta_;
};

/// A session's place among those that have a company open; given up on destruction.
class PostoPresenza {
 public:
  PostoPresenza() = default;
  virtual ~PostoPresenza() = default;
  PostoPresenza(const PostoPresenza&) = delete;
  PostoPresenza& operator=(const PostoPresenza&) = delete;

  virtual void Utente(const std::string& utente) = 0;
  /// Makes it the only place there is: nobody, or somebody who holds another; then it stays shared.
  virtual std::optional<Detentore> Esclusiva() = 0;
  virtual void Condividi() = 0;
};

/// The locks of a company's stations, as its engine has them (engine::Motore::ApriBlocchi).
class Blocchi {
 public:
  Blocchi() = default;
  virtual ~Blocchi() = default;
  Blocchi(const Blocchi&) = delete;
  Blocchi& operator=(const Blocchi&) = delete;

  virtual void Utente(std::string utente) = 0;

  /// The lock of one record, without waiting; the holder when it is taken. `tabella` and `chiave`
  /// are compared without case.
  virtual Esito<Blocco, Detentore> Record(std::string_view tabella, std::string_view chiave) = 0;
  /// The numbering lock of a table; waits at most `attesa`, first come first served, then returns
  /// the holder.
  virtual Esito<Blocco, Detentore> Tabella(std::string_view tabella,
                                           std::chrono::milliseconds attesa) = 0;
  /// Who holds the lock of a record now, if anybody.
  [[nodiscard]] virtual std::optional<Detentore> ChiTiene(std::string_view tabella,
                                                          std::string_view chiave) const = 0;
  /// A place among those that have the company open; the holder when somebody has it alone. It
  /// outlives this object.
  virtual Esito<std::unique_ptr<PostoPresenza>, Detentore> Presenza() = 0;
};

/// Whether the folder lies on a network file system (NFS, SMB, ...).
bool CartellaDiRete(const std::filesystem::path& cartella);

}  // namespace fenalto
