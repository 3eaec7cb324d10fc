#include "runner/Grammatica.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>

#include "core/values/Data.h"
#include "runner/Tasti.h"

namespace fenalto::copione {
namespace {

constexpr int kInclusioni = 16;  // files within files
constexpr std::string_view kMarca = "\xEF\xBB\xBF";

bool Bianco(char c) {
  return c == ' ' || c == '\t';
}

/// Reads the quoted word that begins at `i`; leaves `i` after its closing quote.
Esito<Parola, std::string> LeggiVirgolettata(std::string_view riga, std::size_t& i) {
  Parola parola;
  parola.traVirgolette = true;
  for (++i; i < riga.size(); ++i) {
    const char c = riga[i];
    const char dopo = i + 1 < riga.size() ? riga[i + 1] : '\0';
    if (c == '"') {
      ++i;
      if (i < riga.size() && !Bianco(riga[i])) {
        return std::string("a blank is missing after the closing quote");
      }
      return parola;
    }
    if (c == '\\' && (dopo == '"' || dopo == '\\' || dopo == 'n' || dopo == '|')) {
      parola.testo += dopo == 'n' ? '\n' : dopo;
      ++i;
      continue;
    }
    if (c == '|') parola.barre.push_back(parola.testo.size());
    parola.testo += c;
  }
  return std::string("a quoted word is not closed");
}

Parola LeggiNuda(std::string_view riga, std::size_t& i) {
  Parola parola;
  for (; i < riga.size() && !Bianco(riga[i]); ++i) {
    if (riga[i] == '|') parola.barre.push_back(parola.testo.size());
    parola.testo += riga[i];
  }
  return parola;
}

std::optional<int> NumeroDi(std::string_view testo) {
  int numero = 0;
  const auto* fine = testo.data() + testo.size();
  const auto [dove, errore] = std::from_chars(testo.data(), fine, numero);
  if (testo.empty() || errore != std::errc() || dove != fine || numero < 0) return std::nullopt;
  return numero;
}

/// Commands whose words have a fixed shape: one letter a word, the ones after '?' may be missing.
/// p any word, n whole number from 0, u from 1, d day, t key.
struct Forma {
  std::string_view nome;
  std::string_view parole;
};
constexpr auto kForme = std::to_array<Forma>({
    {"oggi", "d"},      {"anno", "u"},           {"utente", "pp"},     {"riavvia", ""},
    {"interrompi", ""}, {"termina", ""},         {"apri", "p?n"},      {"menu", "p"},
    {"rifiuta", "p?n"}, {"finestra", "p"},       {"aperta", "p"},      {"chiusa", "p"},
    {"chiudi", ""},     {"scrivi", "pp"},        {"digita", "pp"},     {"tasto", "pt"},
    {"scegli", "pp"},   {"spunta", "p"},         {"togli", "p"},       {"clic", "p"},
    {"pagina", "pn"},   {"riga", "pu"},          {"doppioclic", "pu"}, {"file", "p"},
    {"messaggio", "p"}, {"nessunmessaggio", ""}, {"ignora", ""},       {"vale", "pp"},
    {"attivo", "p"},    {"spento", "p"},         {"visibile", "p"},    {"nascosto", "p"},
    {"titolo", "p"},    {"righe", "pn"},         {"cella", "pupp"},    {"esegui", "pp"},
    {"imposta", "pp"},  {"impostazione", "pp"},  {"contiene", "pp"},   {"noncontiene", "pp"},
    {"uguale", "pp"},   {"foto", "p"},           {"attesa", "n"},      {"includi", "p"},
});

std::string Manca(std::size_t sono, std::size_t minimo, std::size_t massimo) {
  std::string quante = std::to_string(minimo);
  if (massimo != minimo) quante += " to " + std::to_string(massimo);
  return "takes " + quante + " words, not " + std::to_string(sono);
}

std::string DifettoParola(char tipo, const std::string& testo) {
  const auto numero = NumeroDi(testo);
  switch (tipo) {
    case 'n':
      return numero ? "" : "\"" + testo + "\" is not a whole number";
    case 'u':
      return numero.value_or(0) > 0 ? "" : "\"" + testo + "\" is not a number from 1";
    case 'd':
      return GiornoDi(testo) ? "" : "\"" + testo + "\" is not a day as 15/03/2024";
    case 't':
      return TastoDi(testo) ? "" : "\"" + testo + "\" is not a key";
    default:
      return "";
  }
}

std::string DifettoForma(const Comando& comando, std::string_view forma) {
  const std::size_t minimo = std::min(forma.find('?'), forma.size());
  std::string tipi(forma);
  std::erase(tipi, '?');
  if (comando.parole.size() < minimo || comando.parole.size() > tipi.size()) {
    return Manca(comando.parole.size(), minimo, tipi.size());
  }
  for (std::size_t i = 0; i < comando.parole.size(); ++i) {
    if (auto difetto = DifettoParola(tipi[i], comando.parole[i].testo); !difetto.empty()) {
      return difetto;
    }
  }
  return "";
}

std::string DifettoRispondi(const Comando& comando) {
  const auto& cosa = comando.Testo(0);
  const auto parole = comando.parole.size();
  if (cosa == "testo") return parole == 2 || parole == 3 ? "" : Manca(parole, 2, 3);
  for (const auto* risposta : {"si", "no", "ok", "annulla"}) {
    if (cosa == risposta) return parole <= 2 ? "" : Manca(parole, 1, 2);
  }
  return "\"" + cosa + "\" is no answer (si, no, ok, annulla, testo)";
}

std::string DifettoStampa(const Comando& comando) {
  const auto& cosa = comando.Testo(0);
  const auto parole = comando.parole.size();
  if (cosa == "annulla") return parole == 1 ? "" : Manca(parole, 1, 1);
  for (const auto* uscita : {"testo", "pdf", "xlsx", "csv"}) {
    if (cosa == uscita) return parole == 2 ? "" : Manca(parole, 2, 2);
  }
  return "\"" + cosa + "\" is no output (testo, pdf, xlsx, csv, annulla)";
}

std::string DifettoDitta(const Comando& comando) {
  const auto parole = comando.parole.size();
  if (parole != 1 && parole != 3) return Manca(parole, 1, 3);
  if (parole == 1) return "";
  if (comando.Testo(1) != "anno") return "after the company comes `anno`";
  return DifettoParola('u', comando.Testo(2));
}

std::string DifettoSql(const Comando& comando) {
  if (comando.parole.size() < 3 || comando.Testo(2) != "=" || comando.parole[2].traVirgolette) {
    return "takes a key, a statement and a lone = before the rows";
  }
  return "";
}

/// Whether the text is well-formed UTF-8.
bool Utf8Valido(std::string_view testo) {
  for (std::size_t i = 0; i < testo.size();) {
    const auto c = static_cast<unsigned char>(testo[i]);
    const std::size_t lunghezza = c < 0x80                ? 1
                                  : c >= 0xC2 && c < 0xE0 ? 2
                                  : c >= 0xE0 && c < 0xF0 ? 3
                                  : c >= 0xF0 && c < 0xF5 ? 4
                                                          : 0;
    if (lunghezza == 0 || i + lunghezza > testo.size()) return false;
    for (std::size_t k = 1; k < lunghezza; ++k) {
      if ((static_cast<unsigned char>(testo[i + k]) & 0xC0) != 0x80) return false;
    }
    i += lunghezza;
  }
  return true;
}

Illeggibile Guasto(const std::string& luogo, const std::string& comando,
                   const std::string& motivo) {
  return {luogo + ": " + (comando.empty() ? motivo : comando + ": " + motivo)};
}

Esito<std::vector<Comando>, Illeggibile> LeggiProfondo(const std::filesystem::path& file,
                                                       const std::filesystem::path& cartella,
                                                       int profondita) {
  std::ifstream flusso(file, std::ios::binary);
  std::error_code errore;
  if (!flusso || std::filesystem::is_directory(file, errore)) {
    return Illeggibile{file.string() + ":0: cannot be read"};
  }
  const std::string testo{std::istreambuf_iterator<char>(flusso), {}};
  auto letti = LeggiTesto(testo, file.string());
  if (!letti) return letti;
  std::vector<Comando> tutti;
  for (auto& comando : letti.Valore()) {
    if (comando.nome != "includi") {
      tutti.push_back(std::move(comando));
      continue;
    }
    if (profondita >= kInclusioni) {
      return Guasto(comando.Luogo(), comando.nome, "too many files within files");
    }
    auto incluso = file.parent_path() / comando.Testo(0);
    if (!std::filesystem::exists(incluso, errore)) {
      if (const auto altro = cartella / comando.Testo(0); std::filesystem::exists(altro, errore)) {
        incluso = altro;
      } else {
        return Guasto(comando.Luogo(), comando.nome, "there is no file " + incluso.string());
      }
    }
    auto dentro = LeggiProfondo(incluso, cartella, profondita + 1);
    if (!dentro) return dentro;
    std::move(dentro.Valore().begin(), dentro.Valore().end(), std::back_inserter(tutti));
  }
  return tutti;
}

}  // namespace

std::vector<std::string> Parola::Valori() const {
  std::vector<std::string> valori;
  std::size_t da = 0;
  for (const auto barra : barre) {
    valori.push_back(testo.substr(da, barra - da));
    da = barra + 1;
  }
  valori.push_back(testo.substr(da));
  return valori;
}

std::string Comando::Luogo() const {
  return file + ":" + std::to_string(riga);
}

const std::string& Comando::Testo(std::size_t indice) const {
  static const std::string kVuoto;
  return indice < parole.size() ? parole[indice].testo : kVuoto;
}

int Comando::Numero(std::size_t indice) const {
  return NumeroDi(Testo(indice)).value_or(0);
}

Esito<std::vector<Parola>, std::string> LeggiParole(std::string_view riga) {
  std::vector<Parola> parole;
  std::size_t i = 0;
  while (true) {
    while (i < riga.size() && Bianco(riga[i])) ++i;
    if (i >= riga.size() || (parole.empty() && riga[i] == '#')) return parole;
    if (riga[i] != '"') {
      parole.push_back(LeggiNuda(riga, i));
      continue;
    }
    auto parola = LeggiVirgolettata(riga, i);
    if (!parola) return parola.Errore();
    parole.push_back(parola.Valore());
  }
}

std::string Difetto(const Comando& comando) {
  if (comando.nome == "rispondi") return DifettoRispondi(comando);
  if (comando.nome == "stampa") return DifettoStampa(comando);
  if (comando.nome == "ditta") return DifettoDitta(comando);
  if (comando.nome == "sql") return DifettoSql(comando);
  const auto forma = std::find_if(kForme.begin(), kForme.end(),
                                  [&](const Forma& f) { return f.nome == comando.nome; });
  if (forma == kForme.end()) return "unknown command";
  return DifettoForma(comando, forma->parole);
}

Esito<std::vector<Comando>, Illeggibile> LeggiTesto(std::string_view testo,
                                                    const std::string& file) {
  if (testo.starts_with(kMarca)) testo.remove_prefix(kMarca.size());
  std::vector<Comando> comandi;
  for (int numero = 1; !testo.empty(); ++numero) {
    const auto fine = std::min(testo.find('\n'), testo.size());
    auto riga = testo.substr(0, fine);
    testo.remove_prefix(std::min(fine + 1, testo.size()));
    if (riga.ends_with('\r')) riga.remove_suffix(1);
    const std::string luogo = file + ":" + std::to_string(numero);
    if (!Utf8Valido(riga)) return Guasto(luogo, "", "the line is not UTF-8 text");
    auto parole = LeggiParole(riga);
    if (!parole) {
      const auto nome = riga.substr(std::min(riga.find_first_not_of(" \t"), riga.size()));
      return Guasto(luogo, std::string(nome.substr(0, nome.find_first_of(" \t\""))),
                    parole.Errore());
    }
    if (parole.Valore().empty()) continue;
    Comando comando{file, numero, parole.Valore().front().testo, {}};
    comando.parole.assign(parole.Valore().begin() + 1, parole.Valore().end());
    if (const auto difetto = Difetto(comando); !difetto.empty()) {
      return Guasto(luogo, comando.nome, difetto);
    }
    comandi.push_back(std::move(comando));
  }
  return comandi;
}

Esito<std::vector<Comando>, Illeggibile> LeggiFile(const std::filesystem::path& file,
                                                   const std::filesystem::path& cartella) {
  return LeggiProfondo(file, cartella, 0);
}

}  // namespace fenalto::copione
