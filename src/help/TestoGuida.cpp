#include "help/TestoGuida.h"

#include <algorithm>
#include <cctype>

#include "core/values/Testo.h"

namespace fenalto::help {
namespace {

/// The line that parts a table's head from its rows.
bool FiloTabella(std::string_view riga) {
  return !riga.empty() && riga.front() == '|' &&
         riga.find_first_not_of("|-: ") == std::string_view::npos;
}

/// "# Titolo" gives 1, "## Titolo" 2; 0 for what is no heading.
std::size_t LivelloTitolo(std::string_view riga) {
  const std::size_t segni = std::min(riga.find_first_not_of('#'), riga.size());
  return segni > 0 && segni < riga.size() && riga[segni] == ' ' ? segni : 0;
}

}  // namespace

std::string Ancora(std::string_view titolo) {
  std::string ancora;
  for (const char lettera : Minuscolo(titolo)) {
    const auto byte = static_cast<unsigned char>(lettera);
    if (lettera == ' ') {
      ancora += '-';
    } else if (byte >= 0x80 || std::isalnum(byte) != 0 || lettera == '-' || lettera == '_') {
      ancora += lettera;
    }
  }
  return ancora;
}

std::string SenzaSegni(std::string_view riga) {
  std::string testo;
  for (std::size_t i = 0; i < riga.size(); ++i) {
    const char segno = riga[i];
    if (segno == '*' || segno == '`' || segno == '[') continue;
    if (segno == '!' && i + 1 < riga.size() && riga[i + 1] == '[') continue;
    if (segno == ']') {
      // The address behind a link's words.
      const bool indirizzo = i + 1 < riga.size() && riga[i + 1] == '(';
      const std::size_t fine = indirizzo ? riga.find(')', i) : std::string_view::npos;
      if (fine != std::string_view::npos) i = fine;
      continue;
    }
    testo += segno == '|' ? ' ' : segno;
  }
  return std::string(Rifila(testo));
}

std::vector<Sezione> LeggiSezioni(std::string_view markdown) {
  std::vector<Sezione> sezioni(1);
  bool riquadro = false;
  for (std::size_t da = 0; da < markdown.size();) {
    const std::size_t fine = std::min(markdown.find('\n', da), markdown.size());
    std::string_view riga = markdown.substr(da, fine - da);
    da = fine + 1;
    if (!riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
    if (riga.starts_with("```")) {
      riquadro = !riquadro;
      continue;
    }
    const std::size_t livello = riquadro ? 0 : LivelloTitolo(riga);
    if (livello > 0) {
      std::string titolo = SenzaSegni(riga.substr(livello));
      if (livello == 1 && sezioni.front().titolo.empty()) {
        sezioni.front().titolo = std::move(titolo);
        continue;
      }
      std::string ancora = Ancora(titolo);
      sezioni.push_back({std::move(titolo), std::move(ancora), {}});
      continue;
    }
    if (FiloTabella(riga)) continue;
    std::string pulita = SenzaSegni(riga);
    if (pulita.empty()) continue;
    std::string& testo = sezioni.back().testo;
    if (!testo.empty()) testo += ' ';
    testo += pulita;
  }
  return sezioni;
}

}  // namespace fenalto::help
