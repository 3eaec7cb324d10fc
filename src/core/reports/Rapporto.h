// A report on its way to paper or to a sheet: the lines of its description, written once for the
// text form, the graphic form and the sheet.
//
// Order of use: Tavola where the report has a table; Apri with the report's heading, or ApriFoglio;
// then lines, and Fine. What only paper has (headings, rules, room) does nothing on a sheet, and on
// a sheet only rows and totals of the table stand.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/reports/Cornice.h"
#include "core/reports/DescrizioneRapporto.h"

namespace fenalto::reports {

/// Amounts that each page hands on to the next: "a riportare" on its last line, "riporto" under the
/// heading of the next.
struct Riporto {
  Fascia fascia;
  /// The line's values after its words.
  std::function<std::vector<Valore>()> somme;
  /// "a riportare" stands even where all is zero (the next page then has no "riporto").
  bool ancheZero = false;
};

class Rapporto {
 public:
  Rapporto(Ambiente& ambiente, FabbricaUscite& uscite);
  ~Rapporto();
  Rapporto(const Rapporto&) = delete;
  Rapporto& operator=(const Rapporto&) = delete;

  /// The report's columns. A total's words go into the field `campoScritta` of the model, and under
  /// the column `sottoFoglio` of the sheet. Amounts written `ç` follow the year's currency.
  void Tavola(Colonne colonne, const std::string& campoScritta = "",
              const std::string& sottoFoglio = "");
  /// Asks for the output and prepares it; false when the report ends here. Without a width the
  /// table's is taken, without a model one is drawn from its columns. `testata` prints the heading
  /// of each page.
  bool Apri(const Cornice& cornice, std::function<void()> testata);
  /// The same on an output given beforehand.
  bool Apri(std::unique_ptr<Uscita> uscita, const Cornice& cornice, std::function<void()> testata);
  /// Fills a sheet instead: its columns, the usual lines above them, and `premessa`.
  void ApriFoglio(Foglio& foglio, const std::vector<std::vector<Valore>>& premessa);
  /// Ends the output; false when it was cancelled or failed (told to the user).
  bool Fine();

  [[nodiscard]] bool Grafico() const { return grafico_; }
  [[nodiscard]] bool SuFoglio() const { return foglio_ != nullptr; }
  [[nodiscard]] bool Interrotta() const { return !SuFoglio() && stampa_.Interrotta(); }
  /// The pages, for what no line describes.
  [[nodiscard]] Stampa& Carta() { return stampa_; }
  /// The company as headings name it.
  [[nodiscard]] DatiDitta& Ditta() { return ditta_; }
  [[nodiscard]] const DatiDitta& Ditta() const { return ditta_; }
  /// Characters of a line of the text form; a table that is known only later sets them.
  [[nodiscard]] std::size_t Larghezza() const { return larghezza_; }
  void Larghezza(std::size_t caratteri);

  // --- Heading -----------------------------------------------------------------------------------
  /// Company, page and date; the page is counted from 1 unless told. Of a model the fields DITTA,
  /// RagSoc1_2, Indirizzo_localita, PIVA, CODFISC, ANNO, DATASTAMPA and Pag.
  void TestataDitta(int pagina = 0);
  /// A line of the heading, or the field of that name; without words nothing.
  void Titolo(std::string_view campo, const std::string& testo, bool grassetto = false);
  /// A line of words that the text form alone has.
  void RigaTesto(std::string_view testo, bool grassetto = false);
  /// The captions of the text form between a rule of `sopra` (none when empty) and one of "-".
  void Titoli(std::string_view sopra = "=");

  // --- Lines -------------------------------------------------------------------------------------
  /// A picture in the year's currency, ready for Riga.
  [[nodiscard]] Fascia Prepara(Fascia fascia) const;
  /// A line that isn't of the table; a line without fields is of the text form alone.
  void Riga(const Fascia& fascia, std::vector<Valore> valori, const Rinvio& rinvio = {});
  /// A row of the table, with the values of all columns.
  void RigaTavola(const std::vector<Valore>& celle, const Rinvio& rinvio = {},
                  bool grassetto = false);
  /// A total that has words and the sums alone.
  void Totale(const std::string& scritta, const Somme& somme, bool grassetto = true);
  /// A total laid out as a row: the columns' fields for totals, bold on paper and on the sheet.
  void RigaTotale(const std::vector<Valore>& celle);
  /// A field of the page's head or foot (graphic form).
  void Piede(std::string_view campo, const Valore& valore);
  /// Words over the whole width, or in a field of the body.
  void Scritta(std::string_view campo, const std::string& testo, bool grassetto = false,
               const Rinvio& rinvio = {});
  /// A rule: of the text form, or in both forms.
  void Rigo(std::string_view carattere);
  void Filo(std::string_view carattere);
  /// An empty line.
  void Vuota();
  /// An empty line (in the text form a rule of `carattere`) between two parts; none at a page's
  /// foot.
  void Stacco(std::string_view carattere = "");
  /// The lines in which a text stands: in a field of the model, or of so many characters.
  [[nodiscard]] std::vector<std::string> InCampo(std::string_view campo, const std::string& testo,
                                                 std::size_t caratteri) const;
  /// As Stampa::Riserva.
  void Riserva(int righe);

  // --- Amounts carried forward -------------------------------------------------------------------
  /// From here on pages hand amounts on; none do without a value.
  void Riporta(std::optional<Riporto> riporto) { riporto_ = std::move(riporto); }
  /// Room for that many lines, and in the text form for the amounts carried forward behind them,
  /// unless these are the `ultime`; otherwise the page ends with what it hands on.
  void Spazio(int righe, bool ultime = false);

  // --- Progress ----------------------------------------------------------------------------------
  /// Shows how far the report is, at every `ogni`-th step.
  void Avvia(const std::string& testo, std::int64_t totale, std::int64_t ogni);
  /// A step; false when the user cancelled or the output failed.
  bool Passo();

 private:
  /// On the output that is open.
  bool Appronta(const Cornice& cornice, std::function<void()> testata);
  bool PrendiModello(const Cornice& cornice);
  void Stendi(const Fascia& fascia, std::vector<Valore> valori, const Rinvio& rinvio);
  /// The values of the columns shown, as the form at hand writes them.
  [[nodiscard]] std::vector<Valore> Celle(const std::vector<Valore>& celle) const;
  /// A line of the model, with as many lines below it as its texts take.
  void StendiModello(const Fascia& fascia, const std::vector<Valore>& valori, const Rinvio& rinvio);
  void RigaModello(const Fascia& fascia, const std::vector<Valore>& valori, const Rinvio& rinvio,
                   double y);
  void RigaRiporto(const char* testo, const double* y);
  [[nodiscard]] bool NienteDaRiportare() const;
  [[nodiscard]] Valore PerModello(const Valore& valore) const;

  Ambiente& ambiente_;
  Stampa stampa_;
  DatiDitta ditta_;
  bool grafico_ = false;
  Foglio* foglio_ = nullptr;
  std::size_t larghezza_ = 0;
  bool lireIntere_ = false;
  std::string intera_;  ///< picture of a text over the whole width
  std::optional<Colonne> colonne_;
  std::vector<std::string> titoli_;
  std::string campoScritta_;
  std::string sottoFoglio_;
  Fascia riga_;
  Fascia totale_;
  std::optional<Riporto> riporto_;
  std::unique_ptr<Avanzamento> avanzamento_;
  std::int64_t passi_ = 0;
  std::int64_t ogni_ = 1;
};

/// What a report asks before it begins: something to show. Tells when there is nothing, and gives
/// the number found.
std::int64_t Trovati(Ambiente& ambiente, const std::function<std::int64_t()>& conta,
                     const std::function<std::string()>& nessuno);

}  // namespace fenalto::reports
