// Where each kind of code is referred to, and whether one is in use: one routine over one table.
//
// A table that comes to hold codes of an archive adds its lines here, and every archive's guards
// know of it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/session/Ambiente.h"

namespace fenalto::archives {

/// A field that holds codes of an archive.
struct Riferimento {
  const char* archivio;  ///< table of the codes ("Conti")
  const char* chiave;    ///< database of the table that refers to them
  const char* tabella;   ///< table that refers to them
  const char* campo;
  const char* condizione;  ///< of the dialect, on the same table; empty for none
  const char* messaggio;   ///< what is told when a code is in use
  bool cade = false;       ///< the row says nothing without the code: erased with it, not emptied
};

std::span<const Riferimento> TavolaRiferimenti();

/// What to tell when the code of that archive is in use, in the order of the table; nothing when it
/// may be changed or deleted. Rows of the tables in `proprie` are a part of the record itself.
std::optional<std::string> CodiceUsato(Ambiente& ambiente, std::string_view archivio,
                                       std::string_view codice,
                                       std::span<const std::string> proprie = {});

/// Told after each piece of a walk over references, with the rows done so far; false stops it, and
/// the caller rolls back.
using PassoRiferimenti = std::function<bool(std::int64_t fatte)>;

/// Rows that name the code of that archive.
std::int64_t ContaRiferimenti(Ambiente& ambiente, std::string_view archivio,
                              std::string_view codice);

/// Puts the new code wherever the table names the old one of that archive, in the transaction that
/// the caller holds. False when it was stopped.
bool PortaCodice(Ambiente& ambiente, std::string_view archivio, std::string_view codicePrima,
                 std::string_view codice, const PassoRiferimenti& passo = {});

/// Empties what names a code that goes, and erases the rows that say nothing without it, in the
/// transaction that the caller holds. False when it was stopped.
bool StaccaCodice(Ambiente& ambiente, std::string_view archivio, std::string_view codice,
                  const PassoRiferimenti& passo = {});

}  // namespace fenalto::archives
