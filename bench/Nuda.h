// The bare engine on the plain tables: what the program's own readings are measured against.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace fenalto::banco {

/// The engine's C interface on the plain tables.
class Nuda {
 public:
  /// `prepara` gives the connection what the file's schema names.
  explicit Nuda(const std::filesystem::path& file, void (*prepara)(sqlite3*) = nullptr) {
    if (sqlite3_open(file.c_str(), &motore_) != SQLITE_OK) throw std::runtime_error("nuda");
    if (prepara != nullptr) prepara(motore_);
    Esegui("PRAGMA journal_mode=TRUNCATE");
    Esegui("PRAGMA synchronous=FULL");
    Esegui("PRAGMA cache_size=-32000");
  }
  ~Nuda() {
    for (auto* istruzione : preparate_) sqlite3_finalize(istruzione);
    sqlite3_close(motore_);
  }
  Nuda(const Nuda&) = delete;
  Nuda& operator=(const Nuda&) = delete;

  void Esegui(const char* sql) {
    if (sqlite3_exec(motore_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(motore_));
    }
  }
  sqlite3_stmt* Prepara(const char* sql) {
    sqlite3_stmt* istruzione = nullptr;
    if (sqlite3_prepare_v2(motore_, sql, -1, &istruzione, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(motore_));
    }
    preparate_.push_back(istruzione);
    return istruzione;
  }

 private:
  sqlite3* motore_ = nullptr;
  std::vector<sqlite3_stmt*> preparate_;
};

/// Steps through a bare statement, touching every column.
inline std::int64_t Leggi(sqlite3_stmt* istruzione) {
  std::int64_t somma = 0;
  while (sqlite3_step(istruzione) == SQLITE_ROW) {
    const int colonne = sqlite3_column_count(istruzione);
    for (int i = 0; i < colonne; ++i) {
      somma += sqlite3_column_type(istruzione, i) == SQLITE_TEXT
                   ? static_cast<std::int64_t>(sqlite3_column_bytes(istruzione, i))
                   : sqlite3_column_int64(istruzione, i);
    }
  }
  sqlite3_reset(istruzione);
  return somma;
}

inline void Lega(sqlite3_stmt* istruzione, int posto, const char* testo) {
  sqlite3_bind_text(istruzione, posto, testo, -1, SQLITE_STATIC);
}

/// Balances of all accounts in the generated company's last year, in the period (kTutti, kPeriodo,
/// kGruppi) and at its opening (kTutti, kApertura, kGruppi).
inline constexpr const char* kTutti =
    "SELECT Movimenti.CFP, Movimenti.Conto, Sum(ImpoDare), Sum(ImpoAvere) FROM Movimenti LEFT JOIN "
    "Articoli ON Movimenti.Anno=Articoli.Anno AND Movimenti.NumDoc=Articoli.NumDoc WHERE "
    "Articoli.Anno=2024 AND Articoli.Dt>=32874 AND Articoli.Dt<=51136 AND ";
inline constexpr const char* kPeriodo = "Movimenti.Causale<>'APE' AND Movimenti.Causale<>'APEX'";
inline constexpr const char* kApertura = "(Movimenti.Causale='APE' OR Movimenti.Causale='APEX')";
inline constexpr const char* kGruppi =
    " GROUP BY Movimenti.CFP, Movimenti.Conto ORDER BY Movimenti.CFP, Movimenti.Conto";

}  // namespace fenalto::banco
