// Small registrations over both databases, written through the store, and how to tell whether what
// is found is whole.
#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "core/store/BasiDati.h"

namespace fenalto::prova {

/// A folder of its own, removed with what is in it.
class CartellaDiProva {
 public:
  CartellaDiProva();
  ~CartellaDiProva();
  CartellaDiProva(const CartellaDiProva&) = delete;
  CartellaDiProva& operator=(const CartellaDiProva&) = delete;
  [[nodiscard]] const std::filesystem::path& Percorso() const { return percorso_; }

 private:
  std::filesystem::path percorso_;
};

/// Version of each registration by its number.
using Registrate = std::map<int, int>;
/// Number that stands for a row of tessarc alone, changed by a statement outside any transaction:
/// the engine commits it in another way than what covers both databases.
inline constexpr int kRigaSola = 0;

/// Makes an empty company in `cartella` with the program's own schema; fails the test when it
/// can't.
PercorsiArchivi CreaDitta(const std::filesystem::path& cartella);
OpzioniApertura OpzioniDiProva(const std::string& stazione = "UFFICIO");

/// Writes version `versione` of registration `numero` and confirms it, in one transaction: its head
/// and rows in tessarc, its due dates in scadenzario. A version past the first replaces the one
/// before. kRigaSola is one statement instead. Throws ErroreArchivio.
void Registra(BasiDati& basi, int numero, int versione);

/// Writes the first version of the registration that comes after the last, its number taken under
/// the numbering lock; nothing when the lock wasn't free within `attesa`.
std::optional<int> RegistraProssimo(BasiDati& basi, std::chrono::milliseconds attesa);

/// What is registered. Adds to `guasti` a line for each registration that is half there, doesn't
/// balance or mixes versions.
Registrate Leggi(BasiDati& basi, std::string& guasti);

/// Has the engine look at every page and index of both databases; what it finds goes to `guasti`.
void ControllaFile(const PercorsiArchivi& percorsi, const std::string& vfs, std::string& guasti);

/// Where random choices begin: FENALTO_SEME, or another each time. Prints it.
long Seme();
/// Whether the long runs were asked for (FENALTO_LUNGO=1).
bool Lungo();

}  // namespace fenalto::prova
