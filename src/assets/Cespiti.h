// The card of an asset in edit: its head, its rows, what follows from them, and their rules.
//
// Rows stay in memory until the confirmation, which writes card and rows in one transaction. State
// and figures are worked out from the rows after each change (SchedaCespite.h). The automatic
// functions write without asking for the card's lock: so what was read at the opening is compared
// with what stands there before it is written.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "assets/Cespite.h"
#include "core/records/DocumentoAperto.h"

namespace fenalto::assets {

/// Up to this cost an asset may be depreciated as a whole in its first year, euro (art. 102, comma
/// 5, TUIR).
inline constexpr Importo kCostoMinimo = Importo::DaDecimillesimi(5'164'600);

/// Another asset that names the open one as its reference.
struct CespiteCorrelato {
  std::int64_t nCesp = 0;
  std::string codice;
  std::string descrizione;
  std::string cat;
  std::string descrCat;
};

class Cespiti {
 public:
  using Stato = records::Stato;

  explicit Cespiti(Ambiente& ambiente);
  ~Cespiti();

  [[nodiscard]] Stato StatoCorrente() const;
  [[nodiscard]] bool Nuova() const;
  [[nodiscard]] bool SolaLettura() const;
  [[nodiscard]] bool Modificata() const;
  /// "nuovo cespite", "cespite n. 12"; empty while nothing is open.
  [[nodiscard]] std::string Titolo() const;

  // --- Head -------------------------------------------------------------------------------------

  /// A new card, with the number that it will probably get.
  void Nuovo();
  /// A new card filled from a purchase invoice: its description, date, and the cost of its rows on
  /// accounts of depreciable goods, with the invoice and the supplier. False when there is no such
  /// registration, or no such row in it.
  bool NuovoDaFattura(int anno, std::int64_t numDoc);
  /// Opens a stored one, telling whether it is completed or disposed of. False when there is none.
  bool Apri(std::int64_t nCesp);
  /// Bound fields: the columns of `Cespiti`; `CespCorr` is a text, empty for none.
  [[nodiscard]] Scheda& Testa();
  /// A field of the head was left: a date that can't change and a wrong reference go back.
  void TestaLasciata(std::string_view campo);
  [[nodiscard]] std::int64_t Numero() const;
  /// Others that name this one.
  [[nodiscard]] std::vector<CespiteCorrelato> Correlati() const;

  // --- Rows -------------------------------------------------------------------------------------

  /// In the card's order.
  [[nodiscard]] const std::vector<MovimentoCespite>& Righe() const;
  /// What follows from them.
  [[nodiscard]] SchedaCespite Calcolata() const;

  /// Opens a new row; refused (told) without date and category.
  bool PNuovaRiga(std::string* campo = nullptr);
  bool ApriRiga(std::int64_t posi);
  [[nodiscard]] bool RigaNuova() const;
  /// Bound fields: `Cau`, `Anno`, `Importo`, `P`, `Estremi`, `Note`, `StornoFondoDismParz`.
  [[nodiscard]] Scheda& Riga();
  /// A field of the row was left: year proposed, quota worked out when the rate is left.
  void RigaLasciata(std::string_view campo);
  /// What is to be typed under the open row's causal.
  [[nodiscard]] std::string AiutoCausale() const;
  /// Caption of the amount of the fund; empty where the causal has none.
  [[nodiscard]] std::string DidascaliaStorno() const;
  bool ConfermaRiga(std::string* campo = nullptr);
  bool EliminaRiga();
  void AnnullaRiga();

  // --- Confirmation -----------------------------------------------------------------------------

  bool Conferma(std::string* campo = nullptr);
  [[nodiscard]] std::int64_t NumeroConfermato() const;
  bool Elimina();
  void Abbandona();

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::assets
