#include "core/archives/LettoreTabella.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

#include "core/session/FileTesto.h"
#include "core/values/Testo.h"

namespace fenalto::archives {
namespace {

std::string_view PrimaLinea(std::string_view testo) {
  return testo.substr(0, testo.find('\n'));
}

/// Spreadsheets may say the separator in a first line of its own: "sep=;". It is taken away.
char SeparatoreDetto(std::string_view& testo) {
  const std::string_view linea = Rifila(PrimaLinea(testo));
  if (linea.size() != 5 || !UgualeTesto(linea.substr(0, 4), "sep=")) return '\0';
  const char detto = linea[4];
  testo.remove_prefix(std::min(testo.size(), PrimaLinea(testo).size() + 1));
  return detto;
}

char SeparatoreDi(std::string_view linea) {
  constexpr std::array kSeparatori = {';', '\t', ','};
  std::array<int, kSeparatori.size()> quanti{};
  bool traVirgolette = false;
  for (const char c : linea) {
    if (c == '"') traVirgolette = !traVirgolette;
    if (traVirgolette) continue;
    for (std::size_t i = 0; i < kSeparatori.size(); ++i) {
      if (c == kSeparatori[i]) ++quanti[i];
    }
  }
  const auto piu = std::max_element(quanti.begin(), quanti.end());
  return kSeparatori[static_cast<std::size_t>(piu - quanti.begin())];
}

bool Vuota(const TabellaCsv::Riga& riga) {
  return std::all_of(riga.campi.begin(), riga.campi.end(),
                     [](const std::string& campo) { return Rifila(campo).empty(); });
}

/// Programs that end every line with a separator name a last column that isn't one.
void TogliColonneVuoteInFondo(TabellaCsv& tabella) {
  std::size_t usate = 0;
  for (const auto& riga : tabella.righe) {
    for (std::size_t i = usate; i < riga.campi.size(); ++i) {
      if (!Rifila(riga.campi[i]).empty()) usate = i + 1;
    }
  }
  while (tabella.nomi.size() > std::max(usate, std::size_t{1}) &&
         Rifila(tabella.nomi.back()).empty()) {
    tabella.nomi.pop_back();
  }
}

Esito<bool> Pareggia(TabellaCsv& tabella) {
  for (auto& riga : tabella.righe) {
    while (riga.campi.size() > tabella.nomi.size() && Rifila(riga.campi.back()).empty()) {
      riga.campi.pop_back();
    }
    if (riga.campi.size() > tabella.nomi.size()) {
      return Errore{"riga " + std::to_string(riga.linea) + ": " +
                    std::to_string(riga.campi.size()) + " valori per " +
                    std::to_string(tabella.nomi.size()) +
                    " colonne. Se un testo contiene il separatore deve stare fra virgolette"};
    }
    riga.campi.resize(tabella.nomi.size());
  }
  return true;
}

}  // namespace

Esito<TabellaCsv> LeggiTabellaDaTesto(std::string_view byte) {
  if (byte.size() > kMassimoFileTesto) {
    return Errore{"il file supera i 64 MB: dividerlo in più file"};
  }
  // What is broken stays so, and is refused where it stands: guessed at, it would be stored.
  const std::string utf8 = Utf8Guasto(byte) ? std::string(byte) : ComeUtf8(byte);
  std::string_view testo(utf8);
  if (testo.find('\0') != std::string_view::npos) {
    return Errore{
        "il file non è un testo: dal foglio elettronico salvarlo come «CSV», codifica UTF-8"};
  }
  if (testo.starts_with(kSegnoUtf8)) testo.remove_prefix(kSegnoUtf8.size());
  char separatore = SeparatoreDetto(testo);
  // Empty lines before the names.
  std::size_t saltate = separatore == '\0' ? 0 : 1;
  while (!testo.empty() && Rifila(PrimaLinea(testo)).empty()) {
    testo.remove_prefix(std::min(testo.size(), PrimaLinea(testo).size() + 1));
    ++saltate;
  }
  if (testo.empty()) return Errore{"il file è vuoto"};
  if (separatore == '\0' || separatore == '"') separatore = SeparatoreDi(PrimaLinea(testo));
  auto letta = LeggiCsv(testo, {separatore, true, kMassimoRigheTabella});
  if (!letta) return letta.Errore();
  TabellaCsv tabella = std::move(letta).Valore();
  for (auto& riga : tabella.righe) riga.linea += saltate;
  std::erase_if(tabella.righe, Vuota);
  TogliColonneVuoteInFondo(tabella);
  if (auto pari = Pareggia(tabella); !pari) return pari.Errore();
  for (std::size_t i = 0; i < tabella.nomi.size(); ++i) {
    if (!Utf8Valido(tabella.nomi[i])) {
      return Errore{"riga " + std::to_string(saltate + 1) + ", colonna " + std::to_string(i + 1) +
                    ": nel nome " + DifettoTesto(tabella.nomi[i])};
    }
    tabella.nomi[i] = std::string(Rifila(tabella.nomi[i]));
    if (tabella.nomi[i].empty()) tabella.nomi[i] = "Colonna " + std::to_string(i + 1);
  }
  return tabella;
}

Esito<TabellaCsv> LeggiTabella(const std::filesystem::path& file) {
  std::error_code errore;
  if (!std::filesystem::exists(file, errore)) {
    return Errore{"il file «" + file.string() + "» non esiste"};
  }
  if (std::filesystem::file_size(file, errore) > kMassimoFileTesto && !errore) {
    return Errore{"il file «" + file.string() + "» supera i 64 MB: dividerlo in più file"};
  }
  auto testo = LeggiFileByte(file);
  if (!testo) return testo.Errore();
  return LeggiTabellaDaTesto(testo.Valore());
}

}  // namespace fenalto::archives
