// The record that a form has open: its head, whether it is stored, its lock, why it can't be
// changed.
//
// A use case with rows holds one beside its Righe and asks it first:
//
//   if (documento.RifiutaRiga(righe.InRiga()) || documento.RifiutaSolaLettura()) return false;
#pragma once

#include <optional>
#include <string>

#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"
#include "core/session/Scheda.h"

namespace fenalto::records {

/// What a form with rows is doing.
enum class Stato { Inattiva, Aperta, RigaAperta };

class DocumentoAperto {
 public:
  explicit DocumentoAperto(Ambiente& ambiente) : ambiente_(ambiente) {}

  /// Fields of the head, which the use case sets up once.
  [[nodiscard]] Scheda& Testa() { return testa_; }
  [[nodiscard]] const Scheda& Testa() const { return testa_; }

  [[nodiscard]] bool Aperto() const { return aperto_; }
  /// Not stored yet.
  [[nodiscard]] bool Nuovo() const { return nuovo_; }
  [[nodiscard]] bool SolaLettura() const { return !motivo_.empty(); }
  /// Why it can only be looked at; empty when it can be changed.
  [[nodiscard]] const std::string& Motivo() const { return motivo_; }
  /// Open, and free to be changed.
  [[nodiscard]] bool Modificabile() const { return aperto_ && !SolaLettura(); }
  [[nodiscard]] Stato StatoCorrente(bool inRiga) const;

  /// A new record is open, with its head as it stands now.
  void Inizia();
  /// A stored record is open, with its head as it stands now; `motivo` tells why it can't be
  /// changed, and then no lock is kept.
  void Mostra(Esito<Blocco, Detentore> blocco, std::string motivo = {});
  /// No record is open; the lock is free, the head empty.
  void Chiudi() noexcept;

  /// Stops what would change a record that can only be looked at, telling so.
  bool RifiutaSolaLettura() const;
  /// Stops what can't be done with an open row, telling so.
  bool RifiutaRiga(bool inRiga) const;
  /// Tells a refusal, if there is one: `campo` receives the control to go to.
  bool Rifiuta(const std::optional<Rifiuto>& rifiuto, std::string* campo) const;
  void Avviso(const std::string& testo) const;

 private:
  Ambiente& ambiente_;
  Scheda testa_;
  Blocco blocco_;
  std::string motivo_;
  bool aperto_ = false;
  bool nuovo_ = false;
};

}  // namespace fenalto::records
