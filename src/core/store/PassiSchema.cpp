#include "core/store/PassiSchema.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

#include "core/store/ErroreArchivio.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

/// Tells an error of `lavoro` as one of that step.
template <typename Lavoro>
void NelPasso(const std::string& passo, const Lavoro& lavoro) {
  try {
    lavoro();
  } catch (const ErroreArchivio& errore) {
    throw ErroreArchivio(errore.PerQuale(), "passo " + passo + " dello schema: " + errore.what());
  }
}

}  // namespace

Esito<std::vector<PassoSchema>> LeggiPassi(const fs::path& cartella) {
  std::vector<PassoSchema> passi;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    if (voce.path().extension() != ".sql") continue;
    const std::string nome = voce.path().filename().string();
    PassoSchema passo{0, voce.path()};
    std::from_chars(nome.data(), nome.data() + nome.size(), passo.numero);
    passi.push_back(std::move(passo));
  }
  if (passi.empty()) {
    return Errore{"mancano i passi dello schema in «" + cartella.string() +
                  "»: reinstallare il programma"};
  }
  std::ranges::sort(passi, {}, &PassoSchema::numero);
  for (std::size_t i = 0; i < passi.size(); ++i) {
    if (passi[i].numero != static_cast<int>(i) + 1) {
      return Errore{"i passi dello schema in «" + cartella.string() +
                    "» non sono numerati di seguito: reinstallare il programma"};
    }
  }
  return passi;
}

void EseguiPassi(engine::Connessione& connessione, const std::string& base,
                 const std::vector<PassoSchema>& passi, int daPasso) {
  for (const PassoSchema& passo : passi) {
    if (passo.numero <= daPasso) continue;
    std::ifstream flusso(passo.file, std::ios::binary);
    const std::string sql{std::istreambuf_iterator<char>(flusso), {}};
    if (!flusso) {
      throw ErroreArchivio(
          ErroreArchivio::Causa::Mancante,
          "impossibile leggere «" + passo.file.string() + "»: reinstallare il programma");
    }
    NelPasso(passo.file.stem().string(), [&] { connessione.EseguiPasso(base, sql); });
  }
  const int ultimo = passi.back().numero;
  NelPasso(std::to_string(ultimo), [&] { connessione.SegnaPasso(base, ultimo); });
}

}  // namespace fenalto
