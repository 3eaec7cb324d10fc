// Carries out the commands of one copione on a program of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "runner/Grammatica.h"
#include "runner/Sorveglianza.h"

namespace fenalto::copione {

struct Copione {
  std::string file;
  std::vector<Comando> comandi;
};

struct OpzioniEsecuzione {
  OpzioniAmbiente ambiente;
  std::filesystem::path uscita;
  bool continua = false;
};

/// Company and year that every copione opens.
inline constexpr const char* kDitta = "Prova";
inline constexpr int kAnno = 2024;
/// Milliseconds that a command may take.
inline constexpr std::int64_t kLimite = 60'000;

/// Runs a copione from its first command to the end and prints its failures. Needs a QApplication.
/// True when all held.
bool EseguiCopione(const Copione& copione, const OpzioniEsecuzione& opzioni, Segnalibro& segno);

}  // namespace fenalto::copione
