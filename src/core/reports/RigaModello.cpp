#include "core/reports/RigaModello.h"

#include <algorithm>

#include "core/values/Lettere.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

constexpr std::string_view kBianchi = " \t";
constexpr int kCentesimi = 100;

/// Whether `nome` is one of the names in `elenco`, between blanks.
bool Tra(std::string_view elenco, std::string_view nome) {
  while (!elenco.empty()) {
    const std::size_t fine = std::min(elenco.find(' '), elenco.size());
    if (elenco.substr(0, fine) == nome) return true;
    elenco.remove_prefix(std::min(fine + 1, elenco.size()));
  }
  return false;
}

/// Reads one attribute after the other.
class LetturaAttributi {
 public:
  LetturaAttributi(const std::vector<ParolaModello>& parole, std::size_t n, const Carattere& c)
      : parole_(parole), n_(n) {
    letti_.carattere = c;
  }

  Esito<AttributiModello> Leggi(std::string_view ammessi) {
    while (n_ < parole_.size()) {
      const ParolaModello& parola = parole_[n_++];
      const std::string nome = SenzaMaiuscole(parola.testo);
      if (parola.traVirgolette) return Errore{"il testo \"" + parola.testo + "\" è fuori posto"};
      if (!Tra(ammessi, nome)) return Errore{"parola sconosciuta «" + parola.testo + "»"};
      if (Tra(visti_, nome)) return Errore{"«" + parola.testo + "» è scritto due volte"};
      visti_ += nome + " ";
      if (auto errore = Uno(nome)) return std::move(*errore);
    }
    return std::move(letti_);
  }

 private:
  std::optional<Errore> Uno(const std::string& nome) {
    if (nome == "sinistra") return Allinea(Allineamento::Sinistra);
    if (nome == "centro") return Allinea(Allineamento::Centro);
    if (nome == "destra") return Allinea(Allineamento::Destra);
    if (nome == "grassetto" || nome == "corsivo") {
      (nome == "grassetto" ? letti_.carattere.grassetto : letti_.carattere.corsivo) = true;
      return std::nullopt;
    }
    if (nome == "acapo") {
      letti_.aCapo = true;
      return std::nullopt;
    }
    if (n_ >= parole_.size()) return Errore{"dopo «" + nome + "» manca il valore"};
    const ParolaModello& valore = parole_[n_++];
    if (nome == "carattere" || nome == "formato") return Testo(nome, valore);
    const auto misura = MisuraModello(valore);
    if (!misura) return Errore{"dopo «" + nome + "» " + misura.Errore().messaggio};
    return Numero(nome, misura.Valore());
  }

  std::optional<Errore> Allinea(Allineamento come) {
    if (letti_.allineamento) return Errore{"l'allineamento è scritto due volte"};
    letti_.allineamento = come;
    return std::nullopt;
  }

  std::optional<Errore> Testo(const std::string& nome, const ParolaModello& valore) {
    if (!valore.traVirgolette || Rifila(valore.testo).empty())
      return Errore{"dopo «" + nome + "» va un testo tra virgolette"};
    if (nome == "formato") {
      letti_.formato = valore.testo;
    } else {
      letti_.carattere.famiglia = valore.testo;
    }
    return std::nullopt;
  }

  std::optional<Errore> Numero(const std::string& nome, int misura) {
    constexpr int kNero = 255;
    constexpr int kMassimoPunti = 200 * kCentesimi;
    if (nome == "grigio") {
      if (misura % kCentesimi != 0 || misura > kNero * kCentesimi)
        return Errore{"«grigio» va da 0 (nero) a 255 (bianco)"};
      misura /= kCentesimi;
    } else if (nome == "punti") {
      if (misura < kCentesimi || misura > kMassimoPunti) return Errore{"«punti» va da 1 a 200"};
      letti_.carattere.corpo = misura;
    }
    letti_.misure.emplace(nome, misura);
    return std::nullopt;
  }

  const std::vector<ParolaModello>& parole_;
  std::size_t n_;
  std::string visti_;
  AttributiModello letti_;
};

/// Takes a text in quotes from the beginning of `riga`; nothing when it isn't closed.
std::optional<std::string> TogliVirgolette(std::string_view& riga) {
  std::string testo;
  riga.remove_prefix(1);
  while (!riga.empty()) {
    if (riga.front() != '"') {
      testo += riga.front();
    } else if (riga.substr(1).starts_with('"')) {
      testo += '"';
      riga.remove_prefix(1);
    } else {
      riga.remove_prefix(1);
      return testo;
    }
    riga.remove_prefix(1);
  }
  return std::nullopt;
}

}  // namespace

Esito<std::vector<ParolaModello>> ParoleModello(std::string_view riga) {
  std::vector<ParolaModello> parole;
  for (;;) {
    riga.remove_prefix(std::min(riga.find_first_not_of(kBianchi), riga.size()));
    if (riga.empty() || riga.front() == '#') return parole;
    if (riga.front() == '"') {
      auto testo = TogliVirgolette(riga);
      if (!testo) return Errore{"le virgolette non sono chiuse"};
      if (!riga.empty() && kBianchi.find(riga.front()) == std::string_view::npos)
        return Errore{"dopo le virgolette chiuse va uno spazio"};
      parole.push_back({std::move(*testo), true});
      continue;
    }
    const std::size_t fine = std::min(riga.find_first_of(kBianchi), riga.size());
    parole.push_back({std::string(riga.substr(0, fine)), false});
    riga.remove_prefix(fine);
  }
}

Esito<int> MisuraModello(const ParolaModello& parola) {
  constexpr std::size_t kMassimoCifre = 4;
  const std::string& testo = parola.testo;
  const std::size_t segno = std::min(testo.find_first_of(".,"), testo.size());
  const std::string intera = testo.substr(0, segno);
  const bool conDecimali = segno < testo.size();
  std::string decimali = conDecimali ? testo.substr(segno + 1) : std::string();
  const auto soloCifre = [](const std::string& t) {
    return std::ranges::all_of(t, lettere::Cifra);
  };
  if (parola.traVirgolette || intera.empty() || (conDecimali && decimali.empty()) ||
      !soloCifre(intera) || !soloCifre(decimali))
    return Errore{"va un numero, non «" + testo + "»"};
  if (decimali.size() > 2) return Errore{"«" + testo + "» ha più di due decimali"};
  if (intera.size() > kMassimoCifre) return Errore{"«" + testo + "» è troppo grande"};
  decimali.resize(2, '0');
  return std::stoi(intera) * kCentesimi + std::stoi(decimali);
}

int AttributiModello::Misura(std::string_view nome, int altrimenti) const {
  const auto trovata = misure.find(nome);
  return trovata == misure.end() ? altrimenti : trovata->second;
}

Esito<AttributiModello> LeggiAttributi(const std::vector<ParolaModello>& parole, std::size_t n,
                                       std::string_view ammessi, const Carattere& carattere) {
  return LetturaAttributi(parole, n, carattere).Leggi(ammessi);
}

}  // namespace fenalto::reports
