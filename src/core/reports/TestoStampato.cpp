#include "core/reports/TestoStampato.h"

#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

bool AsciiStampabile(char c) {
  return c >= ' ' && c <= '~';
}

/// A line holds no tab and no end of another.
bool Spazio(char32_t c) {
  return (c >= U'\t' && c <= U'\r') || c == 0x2028 || c == 0x2029;
}

}  // namespace

std::string TestoStampato(const Valore& valore) {
  switch (valore.Tipo()) {
    case Tipo::Booleano:
      return valore.Booleano() ? "Sì" : "No";
    case Tipo::Importo:
      return ScriviImporto(valore.Importo(), 0, false);
    case Tipo::Data:
      return valore.Data().Testo();
    case Tipo::Reale: {
      std::string testo = valore.Neutro();
      std::ranges::replace(testo, '.', ',');
      return testo;
    }
    case Tipo::Nullo:
    case Tipo::Intero:
    case Tipo::Testo:
      break;
  }
  return valore.Neutro();
}

std::size_t AccodaPulito(std::string& riga, std::string_view testo, std::size_t massimo) {
  std::size_t quanti = 0;
  while (!testo.empty() && quanti < massimo) {
    // Plain runs in one go: most text is.
    const std::string_view resto = testo.substr(0, massimo - quanti);
    const auto fine = std::ranges::find_if_not(resto, AsciiStampabile);
    if (const auto n = static_cast<std::size_t>(fine - resto.begin()); n > 0) {
      riga.append(resto.substr(0, n));
      testo.remove_prefix(n);
      quanti += n;
      continue;
    }
    const lettere::Unita unita = lettere::Leggi(testo);
    const bool spazio = unita.valida && Spazio(unita.carattere);
    lettere::Accoda(riga, spazio ? U' ' : lettere::Mostrabile(unita), true);
    testo.remove_prefix(unita.byte);
    ++quanti;
  }
  return quanti;
}

bool Numerico(const Valore& valore) {
  const Tipo tipo = valore.Tipo();
  return tipo == Tipo::Intero || tipo == Tipo::Importo || tipo == Tipo::Reale;
}

std::vector<std::string> InRighe(const std::string& testo, std::size_t larghezza) {
  std::vector<std::string> righe;
  std::string_view resto = Rifila(testo);
  while (resto.size() > larghezza && LunghezzaTesto(resto) > larghezza) {
    const std::string pezzo = Mid(resto, 1, larghezza + 1);
    std::size_t fine = pezzo.find_last_of(" \t\r\n");
    if (fine == std::string::npos || fine == 0) fine = Mid(resto, 1, larghezza).size();
    righe.emplace_back(Rifila(resto.substr(0, fine)));
    resto = Rifila(resto.substr(fine));
  }
  if (righe.empty() || !resto.empty()) righe.emplace_back(resto);
  return righe;
}

}  // namespace fenalto::reports
