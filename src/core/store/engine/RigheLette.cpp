#include "core/store/engine/RigheLette.h"

#include <cmath>

#include "core/values/Testo.h"

namespace fenalto::engine {
namespace {

Data DataDi(std::int64_t giorni) {
  return Data::DaGiorni(static_cast<std::int32_t>(giorni));
}

std::size_t Mescola(std::uint64_t x) {
  x ^= x >> 33U;
  x *= 0xff51afd7ed558ccdULL;
  x ^= x >> 33U;
  return x;
}

/// Equal numbers of any type share their whole part.
std::size_t HashReale(double reale) {
  constexpr double kLimite = 9e18;
  if (!(std::abs(reale) < kLimite)) return 1;
  return Mescola(static_cast<std::uint64_t>(static_cast<std::int64_t>(reale)));
}

}  // namespace

void RigheLette::Prepara(const std::vector<sql::ColonnaUscita>& colonne, bool conIdentita) {
  colonne_ = &colonne;
  conIdentita_ = conIdentita;
  larghezza_ = colonne.size() + (conIdentita ? 1 : 0);
}

std::string_view RigheLette::Testo(std::uint64_t posto) const {
  std::uint32_t lunghezza = 0;
  std::memcpy(&lunghezza, testi_.data() + posto, sizeof lunghezza);
  return {testi_.data() + posto + sizeof lunghezza, lunghezza};
}

void RigheLette::ApriRiga() {
  aperta_ = righe_ * larghezza_;
  if (celle_.capacity() < aperta_ + larghezza_) {
    const std::size_t posti = larghezza_ * (righe_ == 0 ? 4 : righe_ * 2);
    celle_.reserve(posti);
    presenti_.reserve(posti);
    if (righe_ == 0) testi_.reserve(larghezza_ * 32);
  }
  celle_.resize(aperta_ + larghezza_);
  presenti_.resize(aperta_);
  presenti_.resize(aperta_ + larghezza_);
}

void RigheLette::Scrivi(std::size_t cella, Tipo tipo, const Valore& valore) {
  presenti_[cella] = valore.Nullo() ? 0 : 1;
  if (valore.Nullo()) return;
  std::uint64_t& posto = celle_[cella];
  switch (tipo) {
    case Tipo::Booleano:
      posto = valore.Booleano() ? 1 : 0;
      break;
    case Tipo::Intero:
      posto = static_cast<std::uint64_t>(valore.Intero());
      break;
    case Tipo::Importo:
      posto = static_cast<std::uint64_t>(valore.Importo().Decimillesimi());
      break;
    case Tipo::Reale:
      posto = std::bit_cast<std::uint64_t>(valore.Reale());
      break;
    case Tipo::Data:
      posto = static_cast<std::uint64_t>(static_cast<std::int64_t>(valore.Data().Giorni()));
      break;
    default:
      PoniTesto(posto, valore.Testo());
  }
}

void RigheLette::Accoda(const std::vector<Valore>& valori, std::int64_t identita) {
  celle_.resize((righe_ + 1) * larghezza_);
  presenti_.resize(celle_.size());
  ++righe_;
  if (conIdentita_) {
    celle_.back() = static_cast<std::uint64_t>(identita);
    presenti_.back() = 1;
  }
  Sostituisci(righe_ - 1, valori);
}

void RigheLette::Sostituisci(std::size_t riga, const std::vector<Valore>& valori) {
  for (std::size_t c = 0; c < valori.size(); ++c) {
    Scrivi(riga * larghezza_ + c, (*colonne_)[c].tipo, valori[c]);
  }
}

void RigheLette::Elimina(std::size_t riga) {
  const auto da = static_cast<std::ptrdiff_t>(riga * larghezza_);
  const auto a = da + static_cast<std::ptrdiff_t>(larghezza_);
  celle_.erase(celle_.begin() + da, celle_.begin() + a);
  presenti_.erase(presenti_.begin() + da, presenti_.begin() + a);
  --righe_;
}

void RigheLette::Svuota() {
  celle_.clear();
  presenti_.clear();
  testi_.clear();
  righe_ = 0;
}

Valore RigheLette::Campo(std::size_t riga, std::size_t colonna) const {
  const std::size_t cella = riga * larghezza_ + colonna;
  if (presenti_[cella] == 0) return {};
  const std::uint64_t posto = celle_[cella];
  const auto intero = static_cast<std::int64_t>(posto);
  switch ((*colonne_)[colonna].tipo) {
    case Tipo::Booleano:
      return intero != 0;
    case Tipo::Intero:
      return intero;
    case Tipo::Importo:
      return Importo::DaDecimillesimi(intero);
    case Tipo::Reale:
      return std::bit_cast<double>(posto);
    case Tipo::Data:
      return DataDi(intero);
    default:
      return std::string(Testo(posto));
  }
}

std::int64_t RigheLette::Identita(std::size_t riga) const {
  return static_cast<std::int64_t>(celle_[riga * larghezza_ + larghezza_ - 1]);
}

std::size_t RigheLette::Hash(std::size_t riga, std::size_t colonna) const {
  const std::uint64_t posto = celle_[riga * larghezza_ + colonna];
  const auto intero = static_cast<std::int64_t>(posto);
  switch ((*colonne_)[colonna].tipo) {
    case Tipo::Importo:
      return Mescola(static_cast<std::uint64_t>(intero / Importo::kScala));
    case Tipo::Reale:
      return HashReale(std::bit_cast<double>(posto));
    case Tipo::Testo:
    case Tipo::Nullo:
      return HashTesto(Testo(posto));
    default:
      return Mescola(posto);
  }
}

bool RigheLette::Uguale(std::size_t riga, std::size_t colonna, const Valore& valore) const {
  if (Nullo(riga, colonna) || valore.Nullo()) return false;
  const Tipo tipo = (*colonne_)[colonna].tipo;
  if (tipo != Tipo::Testo) return Campo(riga, colonna) == valore;
  return valore.Tipo() == Tipo::Testo &&
         UgualeTesto(Testo(celle_[riga * larghezza_ + colonna]), valore.RifTesto());
}

std::size_t HashValore(const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Nullo:
      return 0;
    case Tipo::Booleano:
      return Mescola(valore.Booleano() ? 1 : 0);
    case Tipo::Intero:
      return Mescola(static_cast<std::uint64_t>(valore.Intero()));
    case Tipo::Importo:
      return Mescola(
          static_cast<std::uint64_t>(valore.Importo().Decimillesimi() / Importo::kScala));
    case Tipo::Reale:
      return HashReale(valore.Reale());
    case Tipo::Data:
      return Mescola(static_cast<std::uint64_t>(static_cast<std::int64_t>(valore.Data().Giorni())));
    case Tipo::Testo:
      return HashTesto(valore.RifTesto());
  }
  return 0;
}

}  // namespace fenalto::engine
