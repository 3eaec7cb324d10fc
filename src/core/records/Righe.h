// The rows of a record, in memory from its opening to its confirmation, and the one that is open.
//
// A use case holds `Righe<R>` beside its DocumentoAperto. `R` is a plain struct with its fields
// described once (CampoRiga.h); its rules stay in the room:
//
//   bool Ordine::ConfermaRiga() {
//     if (!righe.InRiga() || documento.RifiutaSolaLettura()) return false;
//     RigaOrdine riga = righe.Digitata();
//     if (!Controlla(riga)) return false;
//     auto nuove = righe.Con(std::move(riga));  // as they would be
//     const Totali nuovi = Somma(nuove);        // may throw: nothing has changed yet
//     righe.Sostituisci(std::move(nuove));      // now they are, and the row is closed
//     totali = nuovi;
//     return true;
//   }
//
// What follows a field that was left is written into `Riga()`. A row with a member `num` is given
// a number of its own, which no other row gets while the form lives; one with `posi` stands in the
// order of its position. Writing: ScriviRighe (RigheInTabella.h).
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "core/records/CampoRiga.h"
#include "core/session/Scheda.h"

namespace fenalto::records {

/// The order of rows with positions.
template <class R>
bool PerPosizione(const R& a, const R& b) {
  if constexpr (requires { a.num; }) {
    return std::pair(a.posi, a.num) < std::pair(b.posi, b.num);
  } else {
    return a.posi < b.posi;
  }
}

template <class R>
class Righe {
 public:
  using Ordine = bool (*)(const R& a, const R& b);

  /// `campi` outlive the rows. Rows that no order tells apart stay as they came.
  explicit Righe(std::span<const CampoRiga<R>> campi, Ordine ordine = &PerPosizione<R>)
      : campi_(campi), ordine_(ordine) {
    AggiungiCampi(riga_, campi_);
  }

  [[nodiscard]] const std::vector<R>& Tutte() const { return righe_; }
  [[nodiscard]] std::span<const CampoRiga<R>> Campi() const { return campi_; }
  /// Another one whenever the rows have become others.
  [[nodiscard]] std::uint64_t Versione() const { return versione_; }
  /// A row was added, changed or deleted since they were loaded.
  [[nodiscard]] bool Modificate() const { return modificate_; }
  /// They are to be written although nobody touched them, or not.
  void Modificate(bool modificate) { modificate_ = modificate; }

  /// Takes the rows of another record; none is open.
  void Carica(std::vector<R> righe) {
    Sostituisci(std::move(righe));
    modificate_ = false;
  }
  /// Takes the rows as they are now; none is open.
  void Sostituisci(std::vector<R> righe) {
    righe_ = std::move(righe);
    Numera();
    std::stable_sort(righe_.begin(), righe_.end(), ordine_);
    modificate_ = true;
    ++versione_;
    Annulla();
  }
  /// Changes rows where they stand, so that they follow the head or each other: the open one stays
  /// open, and nothing counts as changed. `ritocca` takes them all and leaves number and order.
  template <class F>
  auto Ritocca(F ritocca) {
    ++versione_;
    return ritocca(righe_);
  }

  // --- The open row ------------------------------------------------------------------------------

  [[nodiscard]] bool InRiga() const { return inRiga_; }
  [[nodiscard]] bool RigaNuova() const { return inRiga_ && !aperta_; }
  /// Fields of the open row, by their names; empty when none is open.
  [[nodiscard]] Scheda& Riga() { return riga_; }
  [[nodiscard]] const Scheda& Riga() const { return riga_; }
  /// The open row as it was when it was opened; null for a new one or none.
  [[nodiscard]] const R* Aperta() const { return aperta_ ? &righe_[*aperta_] : nullptr; }
  /// Something was typed into the open row.
  [[nodiscard]] bool Digitando() const { return inRiga_ && riga_.Modificata(); }

  /// Opens a new row that begins as `proposta`, with what of it the fields don't show.
  void Nuova(R proposta) {
    Mostra(proposta);
    aperta_.reset();
    proposta_ = std::move(proposta);
  }
  /// Opens a row by its place; false when it isn't there.
  bool Apri(std::size_t indice) {
    if (indice >= righe_.size()) return false;
    Mostra(righe_[indice]);
    aperta_ = indice;
    return true;
  }
  /// Opens the first row that has this value of a member; false when none has.
  template <class T>
  bool Apri(T R::* membro, const T& valore) {
    const auto trovata = std::ranges::find(righe_, valore, membro);
    return Apri(static_cast<std::size_t>(std::distance(righe_.begin(), trovata)));
  }
  /// The open row with what is typed in its fields; what the fields don't show stays as it was.
  [[nodiscard]] R Digitata() const {
    return LeggiCampi(riga_, campi_, aperta_ ? righe_[*aperta_] : proposta_);
  }
  /// All rows as they would be, in their order, with `riga` in the place of the open one.
  [[nodiscard]] std::vector<R> Con(R riga) const {
    std::vector<R> nuove = righe_;
    if (aperta_) {
      nuove[*aperta_] = std::move(riga);
    } else {
      nuove.push_back(std::move(riga));
    }
    std::stable_sort(nuove.begin(), nuove.end(), ordine_);
    return nuove;
  }
  /// All rows as they would be without the open one.
  [[nodiscard]] std::vector<R> Senza() const {
    std::vector<R> nuove = righe_;
    if (aperta_) nuove.erase(nuove.begin() + static_cast<std::ptrdiff_t>(*aperta_));
    return nuove;
  }
  /// Gives the open row up.
  void Annulla() {
    inRiga_ = false;
    aperta_.reset();
    proposta_ = {};
    riga_.Svuota();
  }

  // --- Positions ---------------------------------------------------------------------------------

  /// The position `passo` after the last one.
  [[nodiscard]] std::int64_t ProssimaPosi(std::int64_t passo) const {
    return (righe_.empty() ? 0 : righe_.back().posi) + passo;
  }
  /// Whether a row other than the open one has that position.
  [[nodiscard]] bool PosiOccupata(std::int64_t posi) const {
    return std::ranges::any_of(
        righe_, [&](const R& riga) { return riga.posi == posi && &riga != Aperta(); });
  }

 private:
  void Mostra(const R& riga) {
    riga_.Svuota();
    MostraCampi(riga_, campi_, riga);
    riga_.Consolida();
    inRiga_ = true;
  }
  void Numera() {
    if constexpr (requires(R& riga) { riga.num; }) {
      for (R& riga : righe_) {
        if (riga.num == 0) riga.num = ++ultimoNum_;
      }
    }
  }

  std::span<const CampoRiga<R>> campi_;
  Ordine ordine_;
  std::vector<R> righe_;
  Scheda riga_;
  R proposta_{};  ///< what a new row began as
  bool inRiga_ = false;
  std::optional<std::size_t> aperta_;  ///< place of the open row, none for a new one
  bool modificate_ = false;
  std::uint64_t versione_ = 0;
  std::int64_t ultimoNum_ = 0;
};

}  // namespace fenalto::records
