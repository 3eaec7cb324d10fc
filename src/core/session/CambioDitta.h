// Companies made, renamed and put aside, as folders and files.
//
// Several files change, and no order of them is safe by itself: so a note in the program folder
// says what is under way, and the next start finishes it or takes it back. Whatever kills the
// program, a company is there as it was or as it was to be.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ditte.h"
#include "core/store/CopiaSicurezza.h"
#include "core/values/Esito.h"

namespace fenalto {

inline constexpr const char* kFileTessarc = "Cont32.mdb";
inline constexpr const char* kFileScadenzario = "Scad32.mdb";

/// A company being made in a folder beside its own, where nobody finds it. What isn't put in place
/// goes with this object.
class CantiereDitta {
 public:
  /// Begins a company of that name, which becomes the default one when `predefinita`, with
  /// `Immagini` and `Documenti`; `adesso` is "AAAA-MM-GG HH.MM". The error is told as it is.
  static Esito<CantiereDitta> Apri(const Ditte& ditte, const std::string& nome, bool predefinita,
                                   const std::string& adesso);
  CantiereDitta(CantiereDitta&& altro) noexcept;
  CantiereDitta& operator=(CantiereDitta&&) = delete;
  ~CantiereDitta();

  /// Where the databases are to be made.
  [[nodiscard]] PercorsiArchivi Archivi() const;
  /// Moves the whole company to its place, with those settings. A folder that is there already
  /// goes to the bin, where it is returned.
  Esito<std::optional<std::filesystem::path>> Posa(const std::string& impostazioni);

 private:
  struct Interno;
  explicit CantiereDitta(std::unique_ptr<Interno> interno);
  std::unique_ptr<Interno> interno_;
};

/// Where a company of that name has its folder and its settings, or would have them.
struct PostoDitta {
  std::filesystem::path cartella;
  std::filesystem::path impostazioni;
};
PostoDitta PostoPer(const Ditte& ditte, const std::string& nome);

/// A step of renaming, by the number that its failure is told with.
struct PassoFallito {
  int numero = 0;
  std::string motivo;
};
/// Renames the folder, then the settings file, and rewrites what they say of each other. Nobody may
/// have the company open. A failure leaves the old name.
Esito<bool, PassoFallito> RinominaFileDitta(const Ditte& ditte, const std::string& da,
                                            const std::string& a);

/// Moves a company's folder and settings to the bin (Cestino.h). Nobody may have it open. A failure
/// leaves the company.
Esito<std::filesystem::path> CestinaDitta(const Ditte& ditte, const std::string& nome,
                                          const std::string& adesso);

/// Now, as the bin's names begin: "AAAA-MM-GG HH.MM".
std::string Adesso(const Orologio& orologio);

/// Finishes or takes back what a program that was killed had under way; what was done of it, a
/// sentence each. What another station is doing at this moment is left to it.
std::vector<std::string> RiprendiLavoriDitte(const Ditte& ditte);

/// Test seam: called before each change on the disk. It may throw std::runtime_error, as a disk
/// would, or end the process. Empty takes it off.
void SuPassoDitta(std::function<void()> azione);

}  // namespace fenalto
