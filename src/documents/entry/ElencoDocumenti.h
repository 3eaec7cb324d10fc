// The list of documents from which one is chosen: of a type, of a kind, or all, newest first, a
// page at a time, whatever their number.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/archives/FonteElenco.h"
#include "documents/entry/FattureCli.h"
#include "ledger/accounts/RicercaRegistrazioni.h"

namespace fenalto::documents {

enum class GenereElenco { DelTipo, Tutti, Bolle, Fatture, Movimenti };

struct SceltaElenco {
  GenereElenco genere = GenereElenco::DelTipo;
  std::string tipo;  ///< of DelTipo
  Data da;           ///< days of the documents, null for any
  Data a;
  bool operator==(const SceltaElenco&) const = default;
};

struct SommaElenco {
  std::int64_t documenti = 0;
  Importo righe;  ///< amounts of their rows
};

/// Columns: type, number, date, party and its name, warehouse, amount of the rows, what there is to
/// say of it; behind them its key. A search looks for a number, a date, the number of the sender's
/// paper from its beginning, the search key, or a party by code or by a part of its name. Below
/// level 50 nobody sees invoices.
class ElencoDocumenti : public archives::FonteElenco {
 public:
  /// Place of the key among the values of a row.
  static constexpr std::size_t kChiave = 8;

  explicit ElencoDocumenti(Ambiente& ambiente) : ambiente_(ambiente), descrizioni_(ambiente) {}

  /// Reads others from the next `Comincia` on; false when they are the same.
  bool Scegli(SceltaElenco scelta);
  void Comincia(const archives::FiltroElenco& filtro) override;
  Righe Avanti() override;
  [[nodiscard]] bool Finita() const override { return finita_; }
  /// Of all that is listed, also what wasn't read yet.
  SommaElenco Somma();
  /// "15/03/2024   122,00   9001  Rossi snc"; empty when the year has no such document.
  std::string Testo(const std::string& tipoDoc, std::int64_t numDoc);

  /// The key of a document in a row, and the other way round (for the session's year).
  static std::string Chiave(const std::string& tipoDoc, std::int64_t numDoc);
  [[nodiscard]] IdentitaDocumento DallaChiave(const std::string& chiave) const;

 private:
  struct Letto;
  std::vector<Letto> Leggi(const std::string& condizione, int quanti);
  void LeggiImporti(std::vector<Letto>& letti);
  /// Condition of what is chosen and typed.
  std::string Condizione(const std::string& testo);
  std::string Cercato(const std::string& testo);
  /// Types of invoices that the user has no right to.
  std::string Riservati();
  [[nodiscard]] std::string Seguito() const;
  [[nodiscard]] const char* Da() const;
  Archivio& Tessarc() { return ambiente_.ArchivioDi("tessarc"); }

  Ambiente& ambiente_;
  ledger::DescrizioniConti descrizioni_;
  SceltaElenco scelta_;
  std::string condizione_;
  bool letta_ = false;  ///< some row was read: the next page begins after the last one
  Data ultimaData_;
  std::string ultimoTipo_;
  std::int64_t ultimoNumero_ = 0;
  bool finita_ = true;
};

}  // namespace fenalto::documents
