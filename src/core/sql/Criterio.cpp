#include "core/sql/Criterio.h"

#include <array>
#include <cstdio>

#include "core/values/Testo.h"

namespace fenalto::sql {

namespace {

std::string TraApici(std::string_view testo) {
  std::string uscita = "'";
  for (char c : testo) {
    if (c == '\'') uscita += '\'';
    uscita += c;
  }
  return uscita += '\'';
}

std::string DataSql(Data data) {
  std::array<char, 32> buffer{};
  const int n = std::snprintf(buffer.data(), buffer.size(), "#%02d/%02d/%04d#", data.Mese(),
                              data.Giorno(), data.Anno());
  return {buffer.data(), static_cast<std::size_t>(n)};
}

}  // namespace

std::string LetteraleSql(const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Nullo:
      return "Null";
    case Tipo::Data:
      return DataSql(valore.Data());
    case Tipo::Testo:
      return TraApici(valore.RifTesto());
    default:
      return valore.Neutro();
  }
}

std::string Criterio(std::string_view campo, std::string_view operatore, const Valore& valore) {
  std::string uscita(campo);
  if (valore.Nullo()) return uscita += operatore == "<>" ? " IS NOT NULL" : " IS NULL";
  return uscita.append(operatore).append(LetteraleSql(valore));
}

std::string CriterioContiene(std::string_view campo, std::string_view testo) {
  return "InRicerca(" + std::string(campo) + ", " + TraApici(PerRicerca(testo)) + ")";
}

std::string CriterioInizia(std::string_view campo, std::string_view testo) {
  return "IniziaRicerca(" + std::string(campo) + ", " + TraApici(PerRicerca(testo)) + ")";
}

}  // namespace fenalto::sql
