// Rows read from a statement, held tight: eight bytes and a mark a field, texts one after the
// other.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "core/sql/Traduttore.h"
#include "core/values/Valore.h"

namespace fenalto::engine {

class RigheLette {
 public:
  /// `conIdentita`: the statement has one more column than `colonne`, the row's identity.
  void Prepara(const std::vector<sql::ColonnaUscita>& colonne, bool conIdentita);

  [[nodiscard]] std::size_t Numero() const { return righe_; }
  [[nodiscard]] std::size_t Larghezza() const { return larghezza_; }
  /// What the engine's column is to be read as.
  [[nodiscard]] Tipo TipoDi(std::size_t colonna) const {
    return colonna < colonne_->size() ? (*colonne_)[colonna].tipo : Tipo::Intero;
  }
  /// Room for one more row, all Null, which the engine fills field by field; it counts once closed.
  void ApriRiga();
  /// A whole number, an amount, days, 0 or 1.
  void ScriviIntero(std::size_t colonna, std::int64_t intero) {
    presenti_[aperta_ + colonna] = 1;
    celle_[aperta_ + colonna] = static_cast<std::uint64_t>(intero);
  }
  void ScriviReale(std::size_t colonna, double reale) {
    presenti_[aperta_ + colonna] = 1;
    celle_[aperta_ + colonna] = std::bit_cast<std::uint64_t>(reale);
  }
  void ScriviTesto(std::size_t colonna, std::string_view testo) {
    presenti_[aperta_ + colonna] = 1;
    PoniTesto(celle_[aperta_ + colonna], testo);
  }
  void ChiudiRiga() { ++righe_; }

  void Accoda(const std::vector<Valore>& valori, std::int64_t identita);
  void Sostituisci(std::size_t riga, const std::vector<Valore>& valori);
  void Elimina(std::size_t riga);
  void Svuota();

  [[nodiscard]] Valore Campo(std::size_t riga, std::size_t colonna) const;
  [[nodiscard]] std::int64_t Identita(std::size_t riga) const;

  /// Hash of a field and comparison with a value that agree with the equality of Valore; Null is
  /// equal to nothing.
  [[nodiscard]] std::size_t Hash(std::size_t riga, std::size_t colonna) const;
  [[nodiscard]] bool Uguale(std::size_t riga, std::size_t colonna, const Valore& valore) const;
  [[nodiscard]] bool Nullo(std::size_t riga, std::size_t colonna) const {
    return !presenti_[riga * larghezza_ + colonna];
  }

 private:
  [[nodiscard]] std::string_view Testo(std::uint64_t posto) const;
  void PoniTesto(std::uint64_t& cella, std::string_view testo) {
    const auto lunghezza = static_cast<std::uint32_t>(testo.size());
    const std::size_t posto = testi_.size();
    cella = posto;
    testi_.resize(posto + sizeof lunghezza + testo.size());
    std::memcpy(testi_.data() + posto, &lunghezza, sizeof lunghezza);
    if (!testo.empty()) {
      std::memcpy(testi_.data() + posto + sizeof lunghezza, testo.data(), testo.size());
    }
  }
  void Scrivi(std::size_t cella, Tipo tipo, const Valore& valore);

  const std::vector<sql::ColonnaUscita>* colonne_ = nullptr;
  std::size_t larghezza_ = 0;
  std::size_t righe_ = 0;
  std::size_t aperta_ = 0;  ///< first cell of the row being filled
  bool conIdentita_ = false;
  /// A number, the bits of a real, or the place of a text in testi_ (its length, then its bytes).
  std::vector<std::uint64_t> celle_;
  std::vector<std::uint8_t> presenti_;
  std::vector<char> testi_;
};

/// Hash of a value that agrees with RigheLette::Hash.
std::size_t HashValore(const Valore& valore);

}  // namespace fenalto::engine
