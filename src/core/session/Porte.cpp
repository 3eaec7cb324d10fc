#include "core/session/Porte.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <random>

namespace fenalto {

namespace {

std::tm AdessoLocale() {
  const std::time_t adesso = std::time(nullptr);
  std::tm locale{};
  ::localtime_r(&adesso, &locale);
  return locale;
}

}  // namespace

Data OrologioDiSistema::Oggi() const {
  const std::tm adesso = AdessoLocale();
  return Data::DaGma(adesso.tm_mday, adesso.tm_mon + 1, adesso.tm_year + 1900).value_or(Data());
}

std::string OrologioDiSistema::Ora() const {
  const std::tm adesso = AdessoLocale();
  std::array<char, 6> testo{};
  std::strftime(testo.data(), testo.size(), "%H:%M", &adesso);
  return testo.data();
}

std::uint64_t CasoDiSistema::Numero() {
  std::random_device dado;
  constexpr unsigned kMeta = 32;
  return (std::uint64_t{dado()} << kMeta) | dado();
}

}  // namespace fenalto
