#include <algorithm>

#include "core/reports/FileAccanto.h"
#include "core/reports/Foglio.h"
#include "core/reports/TestoStampato.h"
#include "core/session/FileTesto.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

constexpr std::string_view kFineRiga = "\r\n";

/// A text that a spreadsheet would take for a formula gets an apostrophe: what comes from outside
/// (a customer's name) must not run on the reader's machine.
std::string Innocuo(std::string testo) {
  constexpr std::string_view kPericolosi = "=+-@\t\r";
  if (!testo.empty() && kPericolosi.find(testo.front()) != std::string_view::npos)
    testo.insert(testo.begin(), '\'');
  return testo;
}

std::string Cella(const Valore& valore, int decimali) {
  if (valore.Tipo() == Tipo::Importo) return ScriviImporto(valore.Importo(), decimali, false);
  std::string testo = TestoStampato(valore);
  return valore.Tipo() == Tipo::Testo ? Innocuo(Visibile(testo)) : testo;
}

void AccodaCella(std::string& riga, const std::string& testo) {
  const bool virgolette = testo.find_first_of(";\"\r\n") != std::string::npos ||
                          testo.starts_with(' ') || testo.ends_with(' ');
  if (!virgolette) {
    riga += testo;
    return;
  }
  riga += '"';
  for (const char c : testo) {
    if (c == '"') riga += '"';
    riga += c;
  }
  riga += '"';
}

}  // namespace

Esito<bool> EsportaCsv(const Foglio& foglio, const std::filesystem::path& file) {
  FileAccanto uscita(file);
  bool continua = uscita.Scrivi(kSegnoUtf8);
  const auto scrivi = [&](const std::vector<Valore>& valori) {
    std::string riga;
    for (std::size_t i = 0; i < valori.size(); ++i) {
      if (i > 0) riga += ';';
      const int decimali = i < foglio.colonne.size() ? foglio.colonne[i].decimali : 2;
      AccodaCella(riga, Cella(valori[i], decimali));
    }
    riga += kFineRiga;
    return uscita.Scrivi(riga);
  };
  for (const auto& valori : foglio.premessa) continua = continua && scrivi(valori);
  std::vector<Valore> titoli;
  titoli.reserve(foglio.colonne.size());
  for (const ColonnaFoglio& colonna : foglio.colonne) titoli.emplace_back(colonna.titolo);
  continua = continua && scrivi(titoli);
  for (const auto& valori : foglio.righe) {
    if (!continua) break;
    continua = scrivi(valori);
  }
  // A failure is kept by the file and told here.
  return uscita.Chiudi();
}

}  // namespace fenalto::reports
