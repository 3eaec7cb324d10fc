// Folders and companies for tests, gone with the test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/session/CreaDitta.h"

namespace fenalto {

class CartellaProva {
 public:
  CartellaProva() {
    std::string modello =
        (std::filesystem::temp_directory_path() / "fenalto-prova-XXXXXX").string();
    if (::mkdtemp(modello.data()) == nullptr) throw std::runtime_error("cartella di prova");
    percorso_ = modello;
  }
  CartellaProva(const CartellaProva&) = delete;
  CartellaProva& operator=(const CartellaProva&) = delete;
  ~CartellaProva() {
    std::error_code errore;
    std::filesystem::remove_all(percorso_, errore);
  }
  [[nodiscard]] const std::filesystem::path& Percorso() const { return percorso_; }
  std::filesystem::path operator/(const std::string& nome) const { return percorso_ / nome; }

 private:
  std::filesystem::path percorso_;
};

inline void ScriviFile(const std::filesystem::path& file, const std::string& contenuto) {
  std::ofstream(file, std::ios::binary | std::ios::trunc) << contenuto;
}

inline std::string LeggiFile(const std::filesystem::path& file) {
  std::ostringstream testo;
  testo << std::ifstream(file, std::ios::binary).rdbuf();
  return testo.str();
}

/// Options of a session on a program folder, with the program's real data.
inline OpzioniAmbiente OpzioniProva(const std::filesystem::path& cartellaProgramma) {
  OpzioniAmbiente opzioni;
  opzioni.cartellaProgramma = cartellaProgramma;
  opzioni.cartellaDati = FENALTO_DATA;
  opzioni.stazione = "PROVA";
  opzioni.copie = false;
  return opzioni;
}

/// Makes a company from the model; fails the test when it can't.
inline void CreaDittaProva(const OpzioniAmbiente& opzioni, const std::string& nome,
                           const std::vector<AnnoDitta>& anni = {{2025, true, false},
                                                                 {2026, true, false}},
                           bool predefinita = true) {
  const auto creata = CreaDittaDaModello(opzioni, nome, anni, predefinita);
  if (!creata) throw std::runtime_error(creata.Errore().messaggio);
}

}  // namespace fenalto
