// A prepared statement of the embedded engine.
#pragma once

#include <filesystem>

#include "core/store/engine/Connessione.h"

struct sqlite3;
struct sqlite3_stmt;

namespace fenalto::engine::sqlite {

class IstruzioneSqlite final : public Istruzione {
 public:
  /// Throws ErroreArchivio, naming `file`.
  IstruzioneSqlite(sqlite3* connessione, std::string_view sql, std::filesystem::path file);
  ~IstruzioneSqlite() override;
  IstruzioneSqlite(const IstruzioneSqlite&) = delete;
  IstruzioneSqlite& operator=(const IstruzioneSqlite&) = delete;

  void Lega(int indice, const Valore& valore) override;
  void LegaTesto(int indice, std::string_view testo) override;
  void LegaIntero(int indice, std::int64_t intero) override;
  bool Avanza() override;
  bool Leggi(RigheLette& righe, std::size_t quante) override;
  [[nodiscard]] Valore Campo(int colonna, Tipo tipo) const override;
  [[nodiscard]] std::int64_t Cambiate() const override;
  [[nodiscard]] std::int64_t Aggiunta() const override;
  void Azzera() noexcept override;
  void LasciaMemoria() noexcept override;

 private:
  sqlite3_stmt* istruzione_ = nullptr;
  std::filesystem::path file_;  ///< of messages
};

}  // namespace fenalto::engine::sqlite
