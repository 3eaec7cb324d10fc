// Rows and registers of VAT registrations between the books and the postings.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "vat/postings/RigheIva.h"

namespace fenalto::vat {

/// What is known of a document from its register and the company's settings: type, description and
/// account of the register, InvertoDAinNoteCredito, CommesseVecchioSistema. An unknown register
/// gives an empty type.
DocumentoIva DocumentoDiRegistro(Ambiente& ambiente, const std::string& riva);

void ScriviRigaIva(Archivio& tessarc, const RigaIva& riga);
/// All rows of a registration, in order of `Posi`.
std::vector<RigaIva> LeggiRigheIva(Archivio& tessarc, int anno, std::int64_t numDoc);

}  // namespace fenalto::vat
