#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <set>

#include "core/reports/FileAccanto.h"
#include "core/reports/Foglio.h"
#include "core/reports/TestoStampato.h"
#include "core/reports/VerificaXlsx.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace {

// What the format holds.
constexpr std::size_t kMassimoRighe = 1'048'576;
constexpr std::size_t kMassimoColonne = 16'384;
constexpr std::size_t kMassimoTesto = 32'767;
/// Spreadsheets keep 15 significant digits: a longer number goes as text rather than wrong.
constexpr std::int64_t kMassimoEsatto = 1'000'000'000'000'000;
/// The day counts of spreadsheets agree with the calendar from 01/03/1900 on.
constexpr std::int32_t kPrimoGiornoCerto = 61;

/// How a cell shows.
struct Aspetto {
  std::string numero;  ///< number format, empty for none
  bool grassetto = false;
  bool titolo = false;
  auto operator<=>(const Aspetto&) const = default;
};

std::string FormatoNumero(const Valore& valore, int decimali) {
  switch (valore.Tipo()) {
    case Tipo::Data:
      return "dd/mm/yyyy";
    case Tipo::Intero:
      return "0";
    case Tipo::Importo: {
      const int posti = std::clamp(decimali, 0, 4);
      return posti == 0 ? "#,##0" : "#,##0." + std::string(static_cast<std::size_t>(posti), '0');
    }
    default:
      return "";
  }
}

/// A text fit for a cell: no control character but the line break, not longer than a cell holds.
std::string TestoCella(const std::string& testo) {
  std::string pulito;
  std::size_t posto = kMassimoTesto / 2;  // the limit counts units of UTF-16, two at most each
  if (LunghezzaTesto(testo) > posto) {
    AccodaPulito(pulito, testo, posto);
    return pulito;
  }
  std::string_view resto = testo;
  for (;;) {
    const std::size_t fine = std::min(resto.find('\n'), resto.size());
    AccodaPulito(pulito, resto.substr(0, fine));
    if (fine == resto.size()) return pulito;
    pulito += '\n';
    resto.remove_prefix(fine + 1);
  }
}

class ScrittoreXlsx {
 public:
  explicit ScrittoreXlsx(const std::string& file)
      : libro_(workbook_new(file.c_str()), &workbook_close),
        foglio_(libro_ ? workbook_add_worksheet(libro_.get(), "Foglio1") : nullptr) {}

  [[nodiscard]] bool Pronto() const { return foglio_ != nullptr; }

  void Scrivi(const Foglio& foglio) {
    for (const auto& riga : foglio.premessa) ScriviRiga(riga, foglio, false, false);
    std::vector<Valore> titoli;
    titoli.reserve(foglio.colonne.size());
    for (const ColonnaFoglio& colonna : foglio.colonne) titoli.emplace_back(colonna.titolo);
    larghezze_.assign(foglio.colonne.size(), 0);
    ScriviRiga(titoli, foglio, true, true);
    worksheet_freeze_panes(foglio_, riga_, 0);
    const std::set<std::size_t> totali(foglio.totali.begin(), foglio.totali.end());
    for (std::size_t i = 0; i < foglio.righe.size(); ++i)
      ScriviRiga(foglio.righe[i], foglio, totali.contains(i), false);
    for (std::size_t i = 0; i < larghezze_.size(); ++i) {
      constexpr std::size_t kMinima = 6;
      constexpr std::size_t kMassima = 60;
      const std::size_t larghezza = std::clamp(larghezze_[i] + 2, kMinima, kMassima);
      const auto colonna = static_cast<lxw_col_t>(i);
      worksheet_set_column(foglio_, colonna, colonna, static_cast<double>(larghezza), nullptr);
    }
  }

  /// Writes the file; true when the library noticed no failure.
  bool Chiudi() { return workbook_close(libro_.release()) == LXW_NO_ERROR; }

 private:
  lxw_format* Formato(const Aspetto& aspetto) {
    if (aspetto == Aspetto()) return nullptr;
    if (const auto noto = formati_.find(aspetto); noto != formati_.end()) return noto->second;
    lxw_format* formato = workbook_add_format(libro_.get());
    if (!aspetto.numero.empty()) format_set_num_format(formato, aspetto.numero.c_str());
    if (aspetto.grassetto) format_set_bold(formato);
    if (aspetto.titolo) format_set_bottom(formato, LXW_BORDER_THIN);
    formati_.emplace(aspetto, formato);
    return formato;
  }

  void ScriviRiga(const std::vector<Valore>& valori, const Foglio& foglio, bool grassetto,
                  bool titolo) {
    for (std::size_t i = 0; i < valori.size(); ++i) {
      int decimali = i < foglio.colonne.size() ? foglio.colonne[i].decimali : 2;
      if (decimali == 2 && valori[i].Tipo() == Tipo::Importo) {
        decimali = foglio.decimali.Di(valori[i].Importo());
      }
      const std::size_t caratteri =
          ScriviCella(static_cast<lxw_col_t>(i), valori[i], decimali, grassetto, titolo);
      if (i < larghezze_.size()) larghezze_[i] = std::max(larghezze_[i], caratteri);
    }
    ++riga_;
  }

  /// Gives how many characters the cell shows.
  std::size_t ScriviCella(lxw_col_t colonna, const Valore& valore, int decimali, bool grassetto,
                          bool titolo) {
    lxw_format* formato = Formato({FormatoNumero(valore, decimali), grassetto, titolo});
    if (const auto numero = NumeroCella(valore)) {
      worksheet_write_number(foglio_, riga_, colonna, *numero, formato);
      return valore.Tipo() == Tipo::Importo ? ScriviImportoFisso(valore.Importo(), decimali).size()
                                            : TestoStampato(valore).size();
    }
    const std::string testo = TestoCella(TestoStampato(valore));
    if (testo.empty()) return 0;
    // As a string, whatever it begins with: never a formula.
    worksheet_write_string(foglio_, riga_, colonna, testo.c_str(),
                           Formato({"", grassetto, titolo}));
    return LunghezzaTesto(testo);
  }

  /// The number of a cell that can hold it exactly; nothing for texts and the null date.
  static std::optional<double> NumeroCella(const Valore& valore) {
    const auto esatto = [](std::int64_t n) { return n < kMassimoEsatto && n > -kMassimoEsatto; };
    switch (valore.Tipo()) {
      case Tipo::Intero:
        if (esatto(valore.Intero())) return static_cast<double>(valore.Intero());
        return std::nullopt;
      case Tipo::Importo: {
        const std::int64_t n = valore.Importo().Decimillesimi();
        // The nearest double to the decimal value: both operands are exact.
        if (esatto(n)) return static_cast<double>(n) / static_cast<double>(Importo::kScala);
        return std::nullopt;
      }
      case Tipo::Reale:
        if (std::isfinite(valore.Reale())) return valore.Reale();
        return std::nullopt;
      case Tipo::Data:
        if (valore.Data().Giorni() >= kPrimoGiornoCerto) return valore.Data().Giorni();
        return std::nullopt;
      default:
        return std::nullopt;
    }
  }

  std::unique_ptr<lxw_workbook, decltype(&workbook_close)> libro_;
  lxw_worksheet* foglio_;
  lxw_row_t riga_ = 0;
  std::vector<std::size_t> larghezze_;
  std::map<Aspetto, lxw_format*> formati_;
};

}  // namespace

Esito<bool> EsportaXlsx(const Foglio& foglio, const std::filesystem::path& file) {
  const auto rifiuta = [&](const std::string& perche) {
    return Errore{"impossibile scrivere «" + file.string() + "»: " + perche};
  };
  if (foglio.premessa.size() + 1 + foglio.righe.size() > kMassimoRighe) {
    return rifiuta("sono più righe di quante ne tiene un foglio (1.048.576); restringere la " +
                   std::string("selezione o esportare in CSV"));
  }
  if (foglio.colonne.size() > kMassimoColonne)
    return rifiuta("sono più colonne di quante ne tiene un foglio (16.384)");
  FileAccanto uscita(file);
  if (!uscita.Apri()) return uscita.Chiudi();
  ScrittoreXlsx scrittore(uscita.Percorso().string());
  if (!scrittore.Pronto()) return rifiuta("memoria insufficiente");
  scrittore.Scrivi(foglio);
  if (!scrittore.Chiudi() || !XlsxIntero(uscita.Percorso()))
    return rifiuta("disco pieno o guasto: liberare spazio e riprovare");
  return uscita.Chiudi();
}

}  // namespace fenalto::reports
