// The copies of the open company: those of each day, those made before risky work, and what a whole
// copy holds anywhere on a disk.
//
// A copy is a folder with both databases; one of a whole company has its settings and attachments
// too. `Copia.txt` in it tells what the name doesn't: the reason, the hour, how its files were when
// it was made (so that one which the disk has spoiled since is found out), and how it was when it
// was last looked at. A copy without it is good all the same.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto {

enum class VerificaCopia { Mai, Buona, Danneggiata };

struct CopiaDitta {
  std::filesystem::path cartella;
  std::string ditta;  ///< whose it is; empty when it doesn't tell
  Data data;
  std::string ora;  ///< "10:30"; empty when it doesn't tell
  std::string motivo;
  std::uintmax_t byte = 0;
  VerificaCopia verifica = VerificaCopia::Mai;
  std::string verificata;  ///< when it was looked at last
  PercorsiArchivi archivi;
  // Of a whole company; empty otherwise.
  std::filesystem::path ini;
  std::filesystem::path immagini;
  std::filesystem::path documenti;

  [[nodiscard]] bool Intera() const { return !ini.empty(); }
  /// "del 25/11/2026 delle 10:30 (giornaliera)"
  [[nodiscard]] std::string Descrizione() const;
  /// "buona, 25/11/2026 10:30"
  [[nodiscard]] std::string TestoVerifica() const;
};

/// The company's folder of copies.
std::filesystem::path CartellaCopie(const Ambiente& ambiente);

/// A name that nothing in a folder has: `radice`, or with " (2)" and on behind it.
std::string NomeLibero(const std::filesystem::path& cartella, const std::string& radice);

/// Makes a verified copy of both databases, named by hour and reason, outside the ten daily ones,
/// and gives its folder. Mass operations call it first and name the folder when they are done
/// (NominaCopia).
Esito<std::filesystem::path> CopiaPrimaDi(Ambiente& ambiente, std::string_view motivo);
/// "\ncopia di sicurezza fatta prima: «...»", the end of a final message.
std::string NominaCopia(const std::filesystem::path& copia);

/// Copies of the open company, the newest first.
std::vector<CopiaDitta> ElencoCopie(const Ambiente& ambiente);
/// The copy in a folder, wherever it is; the error says why there is none.
Esito<CopiaDitta> LeggiCopia(const Ambiente& ambiente, const std::filesystem::path& cartella);

/// Looks at the whole copy: its files as they were when it was made, every page, this program's.
/// The error says what is wrong with which file. What was found is written down in the copy where
/// it can be.
Esito<bool> VerificaDella(Ambiente& ambiente, CopiaDitta& copia);

/// Asks, and erases a copy of the company's own folder. False when it is still there (told).
bool EliminaCopia(Ambiente& ambiente, const CopiaDitta& copia);

/// Writes down how the files of a copy just made and verified are. What can't be written isn't
/// missed: the copy is good without.
void DescriviCopia(const std::filesystem::path& cartella, const PercorsiArchivi& archivi,
                   const std::string& ditta, std::string_view motivo, Data data,
                   const std::string& ora);

/// "12,4 MB"
std::string ScriviByte(std::uintmax_t byte);

}  // namespace fenalto
