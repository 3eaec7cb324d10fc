#include "ledger/accounts/CodiceConto.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "core/sql/Criterio.h"

namespace fenalto::ledger {

namespace {

/// Longest sub-code that is counted on: more digits are a number of something else.
constexpr std::size_t kMassimeCifre = 6;
constexpr int kDecina = 10;

bool TutteCifre(const std::string& testo) {
  return !testo.empty() && testo.size() <= kMassimeCifre &&
         std::all_of(testo.begin(), testo.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Sub-codes in use of the greatest width, as numbers.
struct Sottoconti {
  std::set<int> numeri;
  std::size_t cifre = 0;
};

Sottoconti LeggiSottoconti(Ambiente& ambiente, const std::string& mastro) {
  Sottoconti letti;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset("SELECT Cod FROM Conti WHERE Cod LIKE " +
                                                        sql::LetteraleSql(ModelloConti(mastro)));
       !rs.Eof(); rs.MoveNext()) {
    const std::string cod = rs.Fields(0).Testo();
    if (cod.size() <= mastro.size()) continue;
    const std::string contox = cod.substr(mastro.size() + 1);
    if (!TutteCifre(contox) || contox.size() < letti.cifre) continue;
    if (contox.size() > letti.cifre) letti = {{}, contox.size()};
    int numero = 0;
    std::from_chars(contox.data(), contox.data() + contox.size(), numero);
    letti.numeri.insert(numero);
  }
  return letti;
}

}  // namespace

CodiceConto DividiCodiceConto(Ambiente& ambiente, const std::string& codice) {
  const auto primo = codice.find('.');
  if (primo == std::string::npos) return {codice, ""};
  for (auto punto = primo; punto != std::string::npos; punto = codice.find('.', punto + 1)) {
    const std::string mastro = codice.substr(0, punto);
    if (ambiente.Esiste("tessarc", "Mastri", {{"Cod", mastro}})) {
      return {mastro, codice.substr(punto + 1)};
    }
  }
  return {codice.substr(0, primo), codice.substr(primo + 1)};
}

std::string ModelloConti(const std::string& mastro) {
  std::string modello;
  for (const char c : mastro) {
    const bool speciale = std::string_view("*?#[").find(c) != std::string_view::npos;
    if (speciale) modello += '[';
    modello += c;
    if (speciale) modello += ']';
  }
  return modello + ".*";
}

bool HaConti(Ambiente& ambiente, const std::string& mastro) {
  const Valore quanti = ambiente.ArchivioDi("tessarc").Singolo(
      "SELECT Count(*) FROM Conti WHERE Cod LIKE " + sql::LetteraleSql(ModelloConti(mastro)));
  return quanti.Intero() > 0;
}

std::string ProssimoContox(Ambiente& ambiente, const std::string& mastro) {
  const auto [numeri, cifre] = LeggiSottoconti(ambiente, mastro);
  if (numeri.empty()) return "001";
  const bool decine =
      std::all_of(numeri.begin(), numeri.end(), [](int n) { return n % kDecina == 0; });
  int massimo = 1;
  for (std::size_t i = 0; i < cifre; ++i) massimo *= kDecina;
  int prossimo = *numeri.rbegin() + (decine ? kDecina : 1);
  if (prossimo >= massimo) {
    prossimo = 1;
    while (numeri.contains(prossimo)) ++prossimo;
    if (prossimo >= massimo) return "";
  }
  std::string testo = std::to_string(prossimo);
  return std::string(cifre - testo.size(), '0') + testo;
}

}  // namespace fenalto::ledger
