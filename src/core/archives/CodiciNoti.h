// Codes typed into a record, looked up where their fields look them up: one rule for every archive
// and document. Only what was typed counts: a record written long ago may name a code that isn't
// in its archive any more, and its other fields can still be changed.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/records/DescrizioneForma.h"
#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"
#include "core/session/Scheda.h"

namespace fenalto::archives {

/// A field that holds a code.
struct CampoDiCodice {
  std::string campo;
  std::string didascalia;
  std::string fonte;  ///< a name of `Fonti`
};

/// Why a code can't stand in a field; nothing when it is empty or exists.
std::optional<Rifiuto> CodiceIgnoto(Ambiente& ambiente, const CampoDiCodice& campo,
                                    const std::string& codice);

/// The first field of a form, of those that the user can reach, whose code doesn't exist. Of a
/// stored record only fields that differ from it are looked at.
std::optional<Rifiuto> CodiceIgnoto(
    Ambiente& ambiente, const records::DescrizioneForma& forma, const Scheda& record, bool nuovo,
    const std::function<records::StatoCampo(const std::string& nome)>& stato);

}  // namespace fenalto::archives
