#include "warehouse/products/FileProdotto.h"

#include <algorithm>
#include <system_error>

#include "core/values/Testo.h"

namespace fenalto::warehouse {

namespace fs = std::filesystem;

std::vector<std::string> FileDi(const fs::path& cartella) {
  std::vector<std::string> nomi;
  std::error_code errore;
  for (fs::directory_iterator file(cartella, errore), fine; !errore && file != fine;
       file.increment(errore)) {
    std::error_code senzaTipo;
    if (file->is_regular_file(senzaTipo)) nomi.push_back(file->path().filename().string());
  }
  std::ranges::sort(
      nomi, [](const std::string& a, const std::string& b) { return ConfrontaTesto(a, b) < 0; });
  return nomi;
}

bool NomeFileAmmesso(Dialoghi& dialogo, const std::string& nome) {
  if (LunghezzaTesto(nome) <= static_cast<std::size_t>(kCaratteriFile)) return true;
  dialogo.Messaggio("nome file troppo lungo", Icona::Avviso);
  return false;
}

fs::path FileNella(const fs::path& cartella, const std::string& nome) {
  if (nome.empty() || nome == "." || nome == ".." ||
      nome.find_first_of("/\\") != std::string::npos) {
    return {};
  }
  std::error_code errore;
  fs::path file = cartella / nome;
  return fs::is_regular_file(file, errore) ? file : fs::path();
}

}  // namespace fenalto::warehouse
