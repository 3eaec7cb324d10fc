// Companies as files: who they are, where their folders and databases lie.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/session/Porte.h"
#include "core/store/CopiaSicurezza.h"
#include "core/values/Esito.h"

namespace fenalto {

/// The folder beside the companies that holds what was deleted (Cestino.h).
inline constexpr const char* kNomeCestino = "Cestino";

class Ditte {
 public:
  explicit Ditte(std::filesystem::path cartellaProgramma);

  /// The program folder.
  [[nodiscard]] const std::filesystem::path& Cartella() const { return cartella_; }

  /// Companies with a settings file in the program folder, the default first, then by name.
  [[nodiscard]] std::vector<DittaTrovata> Trovate() const;
  /// Company named by `DittaDefault.txt`; empty when it names none that exists.
  [[nodiscard]] std::string Predefinita() const;
  /// Makes a company the default one; none when empty.
  Esito<bool> ImpostaPredefinita(const std::string& ditta) const;

  /// The company's settings file: as it is spelled on disk when there, without case.
  [[nodiscard]] std::filesystem::path FileImpostazioni(const std::string& ditta) const;
  /// Where a company's folder is by rule; see OpzioniAmbiente.
  [[nodiscard]] std::filesystem::path CartellaPerRegola(const std::string& ditta) const;
  /// Databases as the section `Archivi` of the settings file names them. A bare file name lies in
  /// the company's folder, a path with folders starts at the program folder, `\` separates as `/`.
  [[nodiscard]] Esito<PercorsiArchivi> Percorsi(const std::string& ditta) const;

 private:
  [[nodiscard]] std::vector<std::string> Nomi() const;
  std::filesystem::path cartella_;
};

/// Whether a character may stand in a company's name, byte by byte: letters, digits, blanks, `-`
/// and `_`, and all that isn't ASCII.
bool SempliceInNomeDitta(char byte);
/// Refuses what isn't a plain name, or is one that the program or a system keeps for itself.
Esito<bool> VerificaNomeDitta(const std::string& nome);

}  // namespace fenalto
