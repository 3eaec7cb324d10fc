// Scratch databases: unsynced files with one table; see Motore.
#pragma once

#include "core/store/engine/Motore.h"

namespace fenalto::engine::sqlite {

void CreaLavoroFile(const std::filesystem::path& file, const Opzioni& opzioni,
                    const Tabella& tabella, std::string_view campoChiave);

}  // namespace fenalto::engine::sqlite
