#include "core/values/Rinvio.h"

#include <charconv>

namespace fenalto {

std::int64_t Rinvio::Numero() const {
  std::int64_t numero = 0;
  const char* fine = codice.data() + codice.size();
  const auto [dove, errore] = std::from_chars(codice.data(), fine, numero);
  return errore == std::errc() && dove == fine ? numero : 0;
}

Rinvio AlConto(const std::string& cfp, const std::string& conto) {
  return {.funzione = "MovimentiConto", .codice = conto, .classe = cfp};
}

Rinvio AllaRegistrazione(int anno, std::int64_t numero) {
  return AlNumero("Registrazione", numero, anno);
}

Rinvio AllArchivio(const std::string& tabella, const std::string& codice) {
  return {.funzione = tabella, .codice = codice};
}

Rinvio AlNumero(const std::string& funzione, std::int64_t numero, int anno) {
  return {.funzione = funzione, .codice = std::to_string(numero), .anno = anno};
}

Rinvio AlNuovoCespite(int anno, std::int64_t numero) {
  return {.funzione = "Cespiti",
          .codice = std::to_string(numero),
          .anno = anno,
          .classe = kCespiteDaFattura};
}

}  // namespace fenalto
