// What a result set holds.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/store/IndiceRicerca.h"
#include "core/store/NucleoBasi.h"
#include "core/store/Rs.h"
#include "core/store/engine/RigheLette.h"

namespace fenalto {

struct Rs::Interno final : CursoreAperto {
  Interno(std::shared_ptr<DatiArchivio> archivio, Preparata istruzione, std::string_view sql,
          sql::Forma letterali);
  ~Interno();

  /// Rows read at once; a result no longer than this leaves no lock behind.
  static constexpr std::size_t kPezzo = 256;
  /// Pieces after which the engine lets go of the pages it has passed: a long reading doesn't come
  /// back to them, and would fill the whole cache.
  static constexpr std::size_t kPezziTenuti = 64;
  /// Rows read into memory to be counted; past these the engine counts.
  static constexpr std::size_t kDaContare = 10'000;

  /// Drops what is in memory, runs the query anew and reads the first piece.
  void Riesegui();
  /// Drops the rows in memory and reads the next piece.
  void Avanza();
  /// Runs the statement and reads the first piece.
  void Esegui();
  void LeggiPezzo(std::size_t quante);
  /// All rows in memory, from the first; the position stays on its row.
  void LeggiTutto();
  /// To the first row: runs the query again when that row has been let go.
  void VersoPrima();
  [[nodiscard]] std::int64_t Conta();
  void Completa() override;
  void Interrompi() noexcept override;
  [[nodiscard]] std::chrono::steady_clock::time_point UltimaLettura() const override {
    return ultimaLettura;
  }
  [[nodiscard]] bool Legge(std::string_view nomeMotore) const override;

  [[nodiscard]] bool Eof() const { return pos >= righe.Numero(); }
  void VersoProssima();
  /// Throws when there is no current row.
  void VerificaRiga() const;

  // Changing.
  [[nodiscard]] const TabellaArchivio& Tabella() const;
  [[nodiscard]] std::optional<std::vector<Valore>> LeggiChiave(std::int64_t identita);
  [[nodiscard]] bool ChiaveCorrisponde(const std::vector<Valore>& chiave) const;
  [[nodiscard]] std::string TestoChiave(const std::vector<Valore>& chiave,
                                        std::int64_t identita) const;
  /// The row as the result shows it now; nothing when it was deleted.
  [[nodiscard]] std::optional<std::vector<Valore>> Rileggi(std::int64_t identita);
  [[nodiscard]] std::optional<std::vector<Valore>> RileggiDaTabella(std::int64_t identita);
  void ScriviModifica();
  void ScriviAggiunta();
  void FineModifica() noexcept;

  std::shared_ptr<DatiArchivio> dati;
  std::shared_ptr<const PianoIstruzione> piano;
  Preparata preparata;  ///< while rows are left to read
  std::string testo;
  sql::Forma forma;

  engine::RigheLette righe;
  std::size_t pos = 0;
  std::size_t pezzi = 0;  ///< read since the pages were let go
  /// Rows before the first in memory have been let go; to go back the query runs again.
  bool scartate = false;
  /// How many they are; -1 when not known.
  std::int64_t precedenti = 0;
  /// Reading stopped before the last row; to go on the query runs again.
  bool troncata = false;
  bool rigaPronta = false;  ///< the statement stands on a row not yet taken
  bool iscritto = false;
  std::chrono::steady_clock::time_point ultimaLettura;
  IndiceRicerca indice;

  ModoModifica modo = ModoModifica::Nessuna;
  std::vector<Valore> tampone;
  std::vector<bool> toccati;
  Blocco blocco;
};

}  // namespace fenalto
