#include "warehouse/products/CodificaProdotti.h"

#include <algorithm>
#include <charconv>

#include "core/values/Testo.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::warehouse {
namespace {

constexpr const char* kCodifica = "CodificaProdottiAutomatica";

std::string CodicePiuAlto(Ambiente& ambiente) {
  return NzStr(ambiente.ArchivioDi("tessarc").Singolo("SELECT Max(cod) FROM codiciriga"));
}

bool SoloCifre(const std::string& codice) {
  return codice.find_first_not_of("0123456789") == std::string::npos;
}

/// Zeros before a number up to so many digits.
std::string InCifre(std::string numero, int cifre) {
  const auto mancano =
      static_cast<std::size_t>(cifre) - std::min(numero.size(), std::size_t(cifre));
  return numero.insert(0, mancano, '0');
}

}  // namespace

int CifreCodifica(Ambiente& ambiente) {
  const std::string testo = ambiente.Config(kCodifica);
  int cifre = 0;
  std::from_chars(testo.data(), testo.data() + testo.size(), cifre);
  return std::ranges::find(kCifreCodifica, cifre) == kCifreCodifica.end() ? 0 : cifre;
}

std::optional<std::string> ImpedimentoCodifica(Ambiente& ambiente, int cifre) {
  if (cifre == 0) return std::nullopt;
  const std::string ultimo = CodicePiuAlto(ambiente);
  if (ultimo.empty()) return std::nullopt;
  constexpr const char* kPrima =
      "impossibile procedere con la codifica automatica in quanto l'ultimo codice risulta essere ";
  constexpr const char* kDopo = "prima bisogna modificare i codici attualmente inseriti";
  if (!SoloCifre(ultimo)) return kPrima + ultimo + "(alfanumerico)\n" + kDopo;
  const std::string digitate = std::to_string(cifre) + " cifre";
  if (ultimo.size() != static_cast<std::size_t>(cifre)) {
    return kPrima + ultimo + "\nmentre è impostata la codifica automatica a " + digitate + "\n" +
           kDopo;
  }
  if (ultimo.find_first_not_of('9') != std::string::npos) return std::nullopt;
  return "i codici a " + digitate + " sono finiti: l'ultimo è " + ultimo +
         "\nscegliere una codifica più lunga, dopo aver modificato i codici attualmente inseriti";
}

std::string CodiceSeguente(Ambiente& ambiente, int cifre) {
  const std::string ultimo = CodicePiuAlto(ambiente);
  return InCifre(std::to_string(ultimo.empty() ? 1 : std::stoll(ultimo) + 1), cifre);
}

bool ImpostaCodifica(Ambiente& ambiente, int cifre) {
  if (const auto no = ImpedimentoCodifica(ambiente, cifre)) {
    ambiente.Dialogo().Messaggio(*no, Icona::Avviso);
    return false;
  }
  return ambiente.ScriviImpostazione({}, "config", kCodifica, std::to_string(cifre));
}

}  // namespace fenalto::warehouse
