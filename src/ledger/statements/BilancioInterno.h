// What the printed forms and the sheets of the chart share.
#pragma once

#include <string>
#include <string_view>

#include "core/reports/Cornice.h"
#include "ledger/statements/BilancioVerifica.h"
#include "ledger/statements/VisitaConti.h"

namespace fenalto::ledger {

/// The walk of a choice: of one letter ("P", "E") or of all masters; of both periods when
/// `confronto`.
RichiestaVisita RichiestaDi(const SceltaBilancio& scelta, const std::string& lettera,
                            bool confronto);

/// Whether the choice leaves these balances out. An account with only an opening has moved.
bool Escluso(const SceltaBilancio& scelta, const Saldi& saldi);

/// Whether the account has a line: its own balances, or those of a party printed under it.
bool ContoStampato(const SceltaBilancio& scelta, const ContoVisitato& conto);

/// Difference of two balances on the side of the first (of the second when the first is zero):
/// above zero when a cost or a revenue grew. `percento` is Null when the first is zero.
struct Scostamento {
  Importo differenza;
  Valore percento;
};
Scostamento Scosta(Importo a, Importo b);

/// "dal 01/01/2024 al 31/12/2024"
std::string ScrittaPeriodo(Data da, Data a);
/// "anno 2024", or "tutti gli anni".
std::string ScrittaAnno(const SceltaBilancio& scelta);
/// "da mastro 100 a 980", with what else narrows the report.
std::string ScrittaScelte(const SceltaBilancio& scelta);
/// Year, period and choices of a report of one period.
std::string ScrittaTutto(const SceltaBilancio& scelta);

/// A printed form: the print object, its mode and what every heading needs.
class Tabulato {
 public:
  Tabulato(Ambiente& ambiente, reports::FabbricaUscite& uscite, const SceltaBilancio& scelta);
  Tabulato(const Tabulato&) = delete;
  Tabulato& operator=(const Tabulato&) = delete;

 protected:
  ~Tabulato() = default;

  /// Asks for the output; false when the report ends here.
  bool Apri(const reports::Cornice& cornice);
  /// Beginning of a heading: counts the page, and sets the fields or prints the lines of the
  /// company, the title and a further line.
  void ApriTestata(const std::string& titolo, const std::string& sotto);
  /// Text mode: a rule to the full width.
  void Rigo(std::string_view carattere);
  /// An empty line, or in text mode a rule of `carattere`, between two parts; none at a page's
  /// foot.
  void Stacco(std::string_view carattere = "");
  /// A picture with its amounts in the year's currency.
  [[nodiscard]] std::string Picture(std::string_view sagoma) const;
  /// An amount for a field of a model, which shows cents: lire have none.
  [[nodiscard]] Valore PerModello(Importo importo) const;

  Ambiente& ambiente;
  const SceltaBilancio& scelta;
  reports::Stampa stampa;
  bool grafico = false;

 private:
  reports::DatiDitta ditta_;
  std::size_t larghezza_ = 0;
  int pagina_ = 0;
};

}  // namespace fenalto::ledger
