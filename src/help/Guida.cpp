#include "help/Guida.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "core/values/Testo.h"

namespace fenalto::help {
namespace {

namespace fs = std::filesystem;

/// Bytes of text shown before and after the first place found.
constexpr std::size_t kPrima = 50;
constexpr std::size_t kDopo = 120;

std::vector<std::string> Parole(std::string_view testo) {
  std::vector<std::string> parole;
  std::istringstream corrente{PerRicerca(testo)};
  for (std::string parola; corrente >> parola;) parole.push_back(parola);
  return parole;
}

/// A piece of the text around a word, cut where words begin and end.
std::string Brano(const std::string& testo, const std::string& parola) {
  std::size_t posto = 0;
  // Folding may change lengths: the place is looked for at the beginnings of the text's own words.
  for (std::size_t da = 0; da < testo.size(); ++da) {
    if (da > 0 && testo[da - 1] != ' ' && testo[da - 1] != '\'') continue;
    if (PerRicerca(testo.substr(da, kDopo)).starts_with(parola)) {
      posto = da;
      break;
    }
  }
  std::size_t da = posto > kPrima ? testo.find(' ', posto - kPrima) : 0;
  da = da == std::string::npos || da > posto ? posto : da;
  std::size_t fine = posto + kDopo < testo.size() ? testo.rfind(' ', posto + kDopo) : testo.size();
  if (fine == std::string::npos || fine <= posto) fine = testo.size();
  return (da > 0 ? "…" : "") + std::string(Rifila(testo.substr(da, fine - da))) +
         (fine < testo.size() ? "…" : "");
}

}  // namespace

Guida Guida::Leggi(const fs::path& cartella) {
  Guida guida;
  std::vector<fs::path> file;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    const std::string nome = voce.path().filename().string();
    const bool capitolo = !nome.empty() && nome.front() >= '0' && nome.front() <= '9';
    if (capitolo && voce.path().extension() == ".md") file.push_back(voce.path());
  }
  std::sort(file.begin(), file.end());
  for (const auto& uno : file) {
    std::ostringstream testo;
    testo << std::ifstream(uno, std::ios::binary).rdbuf();
    Capitolo capitolo;
    capitolo.file = uno.filename().string();
    capitolo.sezioni = LeggiSezioni(testo.str());
    capitolo.titolo = capitolo.sezioni.front().titolo;
    guida.capitoli_.push_back(std::move(capitolo));
  }
  return guida;
}

const Capitolo* Guida::Di(std::string_view file) const {
  for (const Capitolo& capitolo : capitoli_) {
    if (capitolo.file == file) return &capitolo;
  }
  return nullptr;
}

std::vector<Trovato> Guida::Cerca(std::string_view testo) const {
  const auto parole = Parole(testo);
  std::vector<Trovato> nelTitolo;
  std::vector<Trovato> altre;
  if (parole.empty()) return altre;
  for (const Capitolo& capitolo : capitoli_) {
    for (const Sezione& sezione : capitolo.sezioni) {
      const auto in = [&](const std::string& dove) {
        return [piegato = PerRicerca(dove)](const std::string& parola) {
          return piegato.find(parola) != std::string::npos;
        };
      };
      const std::string tutto = sezione.titolo + " " + sezione.testo;
      if (!std::all_of(parole.begin(), parole.end(), in(tutto))) continue;
      const bool titolo = std::any_of(parole.begin(), parole.end(), in(sezione.titolo));
      (titolo ? nelTitolo : altre)
          .push_back({{capitolo.file, sezione.ancora},
                      capitolo.titolo,
                      sezione.ancora.empty() ? std::string() : sezione.titolo,
                      Brano(sezione.testo, parole.front())});
    }
  }
  nelTitolo.insert(nelTitolo.end(), altre.begin(), altre.end());
  return nelTitolo;
}

const Sezione* Guida::DelCampo(std::string_view file, std::string_view didascalia) const {
  const Capitolo* capitolo = Di(file);
  const std::string cercata = PerRicerca(DidascaliaPulita(didascalia));
  if (capitolo == nullptr || cercata.empty()) return nullptr;
  for (const Sezione& sezione : capitolo->sezioni) {
    if (InRicerca(sezione.testo, cercata)) return &sezione;
  }
  return nullptr;
}

std::string DidascaliaPulita(std::string_view didascalia) {
  std::string pulita;
  for (const char lettera : didascalia) {
    if (lettera != '&') pulita += lettera;
  }
  std::string_view rifilata = Rifila(pulita);
  while (!rifilata.empty() && rifilata.back() == ':')
    rifilata = Rifila(rifilata.substr(0, rifilata.size() - 1));
  return std::string(rifilata);
}

}  // namespace fenalto::help
