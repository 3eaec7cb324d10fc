#include "core/sql/Criterio.h"

#include <algorithm>
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

std::vector<std::string> ParoleCercate(std::string_view testo) {
  std::vector<std::string> parole;
  const std::string piegato = PerRicerca(testo);
  constexpr std::string_view kBianchi = " \t\n\r";
  for (std::size_t da = piegato.find_first_not_of(kBianchi); da != std::string::npos;) {
    const std::size_t fine = std::min(piegato.find_first_of(kBianchi, da), piegato.size());
    std::string parola = piegato.substr(da, fine - da);
    if (std::ranges::find(parole, parola) == parole.end()) parole.push_back(std::move(parola));
    da = piegato.find_first_not_of(kBianchi, fine);
  }
  return parole;
}

std::string CriterioParole(const std::vector<std::string>& campi, std::string_view testo,
                           const std::function<std::string(const std::string& parola)>& sotto) {
  std::string tutte;
  for (const std::string& parola : ParoleCercate(testo)) {
    std::string una;
    for (const std::string& campo : campi) {
      una += (una.empty() ? "" : " OR ") + CriterioContiene(campo, parola);
    }
    if (sotto) una += (una.empty() ? "" : " OR ") + sotto(parola);
    tutte += (tutte.empty() ? "(" : " AND (") + una + ")";
  }
  return tutte;
}

}  // namespace fenalto::sql
