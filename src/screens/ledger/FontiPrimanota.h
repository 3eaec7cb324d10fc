// The code sources of a registration's row.
#pragma once

#include <QString>
#include <memory>
#include <string>

#include "core/session/Ambiente.h"
#include "screens/common/fields/FonteCodici.h"

namespace fenalto::screens {

/// Lists the causals that a user registers with; a typed code may be any of the archive, those of
/// the VAT registrations included.
std::shared_ptr<FonteCodici> FonteCausali(Ambiente& ambiente);
/// Accounts of a class ("P", "C", "F"; any other counts as "P").
std::shared_ptr<FonteCodici> FonteConti(Ambiente& ambiente, const std::string& classe);
/// The same for the contra-entry.
std::shared_ptr<FonteCodici> FonteContropartite(Ambiente& ambiente, const std::string& classe);
std::shared_ptr<FonteCodici> FonteCategorie(Ambiente& ambiente);

/// Archive behind the accounts of a class.
QString TabellaDiClasse(const std::string& classe);

}  // namespace fenalto::screens
