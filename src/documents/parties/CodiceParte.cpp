#include "documents/parties/CodiceParte.h"

#include <algorithm>
#include <charconv>

#include "core/session/ImpostazioneAttiva.h"

namespace fenalto::documents {

namespace {

constexpr std::size_t kCifre = 4;
constexpr std::size_t kCifreMassime = 5;

bool Numerico(std::string_view codice) {
  return !codice.empty() &&
         std::all_of(codice.begin(), codice.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Order of texts of digits as numbers, however many digits they have.
bool NumeroMinore(std::string_view a, std::string_view b) {
  const auto senzaZeri = [](std::string_view cifre) {
    cifre.remove_prefix(std::min(cifre.find_first_not_of('0'), cifre.size()));
    return cifre;
  };
  const std::string_view numeroA = senzaZeri(a);
  const std::string_view numeroB = senzaZeri(b);
  return numeroA.size() != numeroB.size() ? numeroA.size() < numeroB.size() : numeroA < numeroB;
}

}  // namespace

bool CodificaAutomatica(Ambiente& ambiente) {
  return ImpostazioneAttiva(ambiente, "CodficaCliFor");
}

std::string UltimoCodice(Ambiente& ambiente, std::string_view tabella) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  std::string ultimo = tessarc.Singolo("SELECT Max(Cod) FROM " + std::string(tabella)).Testo();
  if (!Numerico(ultimo)) return ultimo;
  Rs codici = tessarc.Recordset("SELECT Cod FROM " + std::string(tabella));
  for (; !codici.Eof(); codici.MoveNext()) {
    std::string codice = codici.Fields(0).Testo();
    if (Numerico(codice) && NumeroMinore(ultimo, codice)) ultimo = std::move(codice);
  }
  return ultimo;
}

std::string CodiceDopo(std::string_view ultimo) {
  if (!ultimo.empty() && (!Numerico(ultimo) || ultimo.size() > kCifreMassime)) return {};
  int numero = 0;
  std::from_chars(ultimo.data(), ultimo.data() + ultimo.size(), numero);
  const std::string cifre = std::to_string(numero + 1);
  return std::string(cifre.size() < kCifre ? kCifre - cifre.size() : 0, '0') + cifre;
}

bool CodiceDiSerie(std::string_view codice) {
  return codice.size() == kCifre && Numerico(codice);
}

}  // namespace fenalto::documents
