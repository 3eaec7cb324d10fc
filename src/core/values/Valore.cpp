#include "core/values/Valore.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "core/values/Intero128.h"
#include "core/values/Testo.h"

namespace fenalto {

namespace {

using T = Tipo;

[[noreturn]] void Insensata(std::string_view testo, std::string_view cosa) {
  throw std::domain_error("\"" + std::string(testo) + "\" non è " + std::string(cosa));
}

[[noreturn]] void Insensata(T da, std::string_view cosa) {
  static constexpr std::array<std::string_view, 7> kNomi = {
      "il valore nullo", "un sì-no", "un intero", "un importo", "un reale", "una data", "un testo"};
  throw std::domain_error(std::string(kNomi[static_cast<std::size_t>(da)]) + " non diventa " +
                          std::string(cosa));
}

/// Shortest decimal text, without exponent.
std::string TestoReale(double v) {
  if (v == 0) return "0";  // no minus
  // The longest, the smallest subnormal, has 324 leading places and 17 digits.
  std::array<char, 400> cifre{};
  const auto fine =
      std::to_chars(cifre.data(), cifre.data() + cifre.size(), v, std::chars_format::fixed).ptr;
  return {cifre.data(), fine};
}

double RealeDaTesto(std::string_view testo) {
  double v = 0;
  const char* fine = testo.data() + testo.size();
  const auto esito = std::from_chars(testo.data(), fine, v);
  if (esito.ec == std::errc::result_out_of_range) throw FuoriCampo();
  if (esito.ec != std::errc() || esito.ptr != fine || !std::isfinite(v))
    Insensata(testo, "un numero");
  return v;
}

bool NessunaAltraCheCifre(std::string_view testo) {
  return testo.find_first_not_of("0123456789") == std::string_view::npos;
}

/// "-12.345678" to four decimals, nearest, ties to even; nothing when it isn't such a number.
std::optional<Importo> ImportoArrotondato(std::string_view testo) {
  constexpr std::size_t kDecimali = 4;
  if (auto esatto = Importo::DaTesto(testo)) return esatto;
  const std::size_t punto = testo.find('.');
  if (punto == std::string_view::npos || testo.size() - punto - 1 <= kDecimali) return std::nullopt;
  const std::string_view oltre = testo.substr(punto + 1 + kDecimali);
  if (!NessunaAltraCheCifre(oltre)) return std::nullopt;
  const auto tagliato = Importo::DaTesto(testo.substr(0, punto + 1 + kDecimali));
  if (!tagliato) return std::nullopt;
  const bool sopraMeta = oltre.front() > '5' ||
                         (oltre.front() == '5' && oltre.find_first_not_of('0', 1) != oltre.npos);
  const bool meta = oltre.front() == '5' && !sopraMeta;
  if (!sopraMeta && !(meta && tagliato->Decimillesimi() % 2 != 0)) return tagliato;
  const Importo ultimo = Importo::DaDecimillesimi(1);
  return testo.front() == '-' ? *tagliato - ultimo : *tagliato + ultimo;
}

Importo ImportoDaReale(double v) {
  // Beyond this no double is near the range of Importo, and its text would be long.
  constexpr double kLimite = 1e15;
  if (std::isnan(v)) throw std::domain_error("un reale indefinito non diventa un importo");
  if (std::abs(v) >= kLimite) throw FuoriCampo();
  if (const auto importo = ImportoArrotondato(TestoReale(v))) return *importo;
  throw FuoriCampo();
}

Importo ImportoDaTesto(std::string_view testo) {
  testo = Rifila(testo);
  if (testo.empty()) return {};
  if (const auto importo = ImportoArrotondato(testo)) return *importo;
  return ImportoDaReale(RealeDaTesto(testo));
}

std::int64_t InteroDaReale(double v) {
  constexpr double kLimite = 9223372036854775808.0;
  if (std::isnan(v)) throw std::domain_error("un reale indefinito non diventa un intero");
  if (v >= kLimite || v < -kLimite) throw FuoriCampo();
  return static_cast<std::int64_t>(std::nearbyint(v));
}

std::int64_t InteroDaImporto(Importo v) {
  return static_cast<std::int64_t>(QuozienteVicino(v.Decimillesimi(), Importo::kScala));
}

std::int64_t InteroDaTesto(std::string_view testo) {
  testo = Rifila(testo);
  if (testo.empty()) return 0;
  std::int64_t n = 0;
  const char* fine = testo.data() + testo.size();
  if (const auto e = std::from_chars(testo.data(), fine, n); e.ec == std::errc() && e.ptr == fine)
    return n;
  if (const auto importo = ImportoArrotondato(testo)) return InteroDaImporto(*importo);
  return InteroDaReale(RealeDaTesto(testo));
}

Data DataDaGiorni(std::int64_t giorni) {
  if (giorni < std::numeric_limits<std::int32_t>::min() ||
      giorni > std::numeric_limits<std::int32_t>::max())
    throw std::domain_error("data fuori dagli anni da 1 a 9999");
  try {
    return Data::DaGiorni(static_cast<std::int32_t>(giorni));
  } catch (const std::out_of_range& fuori) {
    throw std::domain_error(fuori.what());
  }
}

}  // namespace

bool Valore::Booleano() const {
  switch (Tipo()) {
    case T::Nullo:
      return false;
    case T::Booleano:
      return std::get<bool>(v_);
    case T::Intero:
      return std::get<std::int64_t>(v_) != 0;
    case T::Importo:
      return !std::get<fenalto::Importo>(v_).Zero();
    case T::Reale:
      return std::get<double>(v_) != 0;
    case T::Testo:
      break;
    case T::Data:
      Insensata(Tipo(), "un sì-no");
  }
  const std::string_view testo = Rifila(std::get<std::string>(v_));
  if (testo.empty() || UgualeTesto(testo, "False")) return false;
  if (UgualeTesto(testo, "True")) return true;
  return RealeDaTesto(testo) != 0;
}

std::int64_t Valore::Intero() const {
  switch (Tipo()) {
    case T::Nullo:
      return 0;
    case T::Booleano:
      return std::get<bool>(v_) ? 1 : 0;
    case T::Intero:
      return std::get<std::int64_t>(v_);
    case T::Importo:
      return InteroDaImporto(std::get<fenalto::Importo>(v_));
    case T::Reale:
      return InteroDaReale(std::get<double>(v_));
    case T::Data:
      return std::get<fenalto::Data>(v_).Giorni();
    case T::Testo:
      break;
  }
  return InteroDaTesto(std::get<std::string>(v_));
}

fenalto::Importo Valore::Importo() const {
  switch (Tipo()) {
    case T::Importo:
      return std::get<fenalto::Importo>(v_);
    case T::Reale:
      return ImportoDaReale(std::get<double>(v_));
    case T::Testo:
      return ImportoDaTesto(std::get<std::string>(v_));
    default:
      return fenalto::Importo::DaUnita(Intero());
  }
}

double Valore::Reale() const {
  switch (Tipo()) {
    case T::Importo:
      return static_cast<double>(std::get<fenalto::Importo>(v_).Decimillesimi()) /
             static_cast<double>(fenalto::Importo::kScala);
    case T::Reale:
      return std::get<double>(v_);
    case T::Testo: {
      const std::string_view testo = Rifila(std::get<std::string>(v_));
      return testo.empty() ? 0 : RealeDaTesto(testo);
    }
    default:
      return static_cast<double>(Intero());
  }
}

fenalto::Data Valore::Data() const {
  switch (Tipo()) {
    case T::Nullo:
      return {};
    case T::Intero:
      return DataDaGiorni(std::get<std::int64_t>(v_));
    case T::Importo:
      return DataDaGiorni(std::get<fenalto::Importo>(v_).ParteIntera());
    case T::Reale:
      return DataDaGiorni(InteroDaReale(std::floor(std::get<double>(v_))));
    case T::Data:
      return std::get<fenalto::Data>(v_);
    case T::Testo:
      break;
    case T::Booleano:
      Insensata(Tipo(), "una data");
  }
  const std::string_view testo = Rifila(std::get<std::string>(v_));
  if (testo.empty()) return {};
  if (const auto data = fenalto::Data::DaIso(testo)) return *data;
  Insensata(testo, "una data");
}

std::string Valore::Testo() const {
  return Neutro();
}

const std::string& Valore::RifTesto() const {
  if (const auto* testo = std::get_if<std::string>(&v_)) return *testo;
  Insensata(Tipo(), "un testo senza conversione");
}

std::string Valore::Neutro() const {
  switch (Tipo()) {
    case T::Nullo:
      return {};
    case T::Booleano:
      return std::get<bool>(v_) ? "True" : "False";
    case T::Intero:
      return std::to_string(std::get<std::int64_t>(v_));
    case T::Importo:
      return std::get<fenalto::Importo>(v_).Testo();
    case T::Reale:
      return TestoReale(std::get<double>(v_));
    case T::Data:
      return std::get<fenalto::Data>(v_).Iso();
    case T::Testo:
      break;
  }
  return std::get<std::string>(v_);
}

Valore Valore::Come(fenalto::Tipo tipo) const {
  if (Nullo() || tipo == Tipo()) return *this;
  switch (tipo) {
    case T::Nullo:
      break;
    case T::Booleano:
      return Booleano();
    case T::Intero:
      return Intero();
    case T::Importo:
      return Importo();
    case T::Reale:
      return Reale();
    case T::Data:
      return Data();
    case T::Testo:
      return Testo();
  }
  return {};
}

Valore Valore::Vuoto(fenalto::Tipo tipo) {
  switch (tipo) {
    case T::Nullo:
      break;
    case T::Booleano:
      return false;
    case T::Intero:
      return std::int64_t{0};
    case T::Importo:
      return fenalto::Importo();
    case T::Reale:
      return 0.0;
    case T::Data:
      return fenalto::Data();
    case T::Testo:
      return std::string();
  }
  return {};
}

bool operator==(const Valore& a, const Valore& b) {
  const auto numero = [](T tipo) {
    return tipo == T::Booleano || tipo == T::Intero || tipo == T::Importo || tipo == T::Reale;
  };
  if (a.Tipo() == b.Tipo()) {
    if (a.Tipo() == T::Testo) return UgualeTesto(a.RifTesto(), b.RifTesto());
    return a.v_ == b.v_;
  }
  if (!numero(a.Tipo()) || !numero(b.Tipo())) return false;
  if (a.Tipo() == T::Reale || b.Tipo() == T::Reale) return a.Reale() == b.Reale();
  const auto decimillesimi = [](const Valore& v) {
    if (const auto* importo = std::get_if<Importo>(&v.v_))
      return Intero128{importo->Decimillesimi()};
    return Intero128{v.Intero()} * Importo::kScala;
  };
  return decimillesimi(a) == decimillesimi(b);
}

Valore Nz(const Valore& valore) {
  return valore.Nullo() ? Valore(0) : valore;
}

std::string NzStr(const Valore& valore) {
  return valore.Testo();
}

}  // namespace fenalto
