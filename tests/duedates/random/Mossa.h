// What a bookkeeper does to due dates, drawn at random. A move holds numbers that get their meaning
// from what stands in the books when it is made, so that any run can be cut short or shrunk.
#pragma once

#include <rapidcheck.h>

#include <array>
#include <cstddef>
#include <ostream>
#include <vector>

#include "core/values/Importo.h"

namespace fenalto::prova {

enum class Genere {
  Fattura,
  CambiaFattura,
  EliminaFattura,
  PagaParte,
  PagaDiversi,
  Anticipo,
  Distinta,
  Raggruppa,
  Insoluto,
  CambiaInsoluto,
  EliminaPagamento,
  Deduci,
  Ripristina,
  ScadenzaAMano,
  EliminaScadenza,
};

inline constexpr std::array kNomi = {"fattura",         "cambia fattura",    "elimina fattura",
                                     "paga una parte",  "paga diversi",      "anticipo",
                                     "distinta",        "raggruppa",         "insoluto",
                                     "cambia insoluto", "elimina pagamento", "deduci",
                                     "ripristina",      "scadenza a mano",   "elimina scadenza"};

struct Mossa {
  Genere genere = Genere::Fattura;
  int quale = 0;            ///< which party, invoice, due date
  int importo = 1;          ///< in cents, or how much of what there is
  unsigned bit = 0;         ///< choices of yes and no
  std::vector<int> scelte;  ///< due dates, and what is done with each
};

inline Importo Centesimi(int quanti) {
  return Importo::DaDecimillesimi(100LL * quanti);
}

inline Importo ImportoDi(const Mossa& mossa) {
  return Centesimi(mossa.importo);
}

inline bool Bit(const Mossa& mossa, unsigned quale) {
  return ((mossa.bit >> quale) & 1U) != 0;
}

inline void showValue(const Mossa& m, std::ostream& uscita) {
  uscita << "\n  " << kNomi.at(static_cast<std::size_t>(m.genere)) << " quale " << m.quale
         << " importo " << m.importo << " bit " << m.bit << " scelte";
  for (const int scelta : m.scelte) uscita << ' ' << scelta;
}

inline rc::Gen<Mossa> UnaMossa() {
  const auto genere = rc::gen::weightedElement<Genere>({{6, Genere::Fattura},
                                                        {2, Genere::CambiaFattura},
                                                        {1, Genere::EliminaFattura},
                                                        {4, Genere::PagaParte},
                                                        {3, Genere::PagaDiversi},
                                                        {2, Genere::Anticipo},
                                                        {2, Genere::Distinta},
                                                        {1, Genere::Raggruppa},
                                                        {2, Genere::Insoluto},
                                                        {1, Genere::CambiaInsoluto},
                                                        {1, Genere::EliminaPagamento},
                                                        {3, Genere::Deduci},
                                                        {2, Genere::Ripristina},
                                                        {2, Genere::ScadenzaAMano},
                                                        {1, Genere::EliminaScadenza}});
  return rc::gen::build<Mossa>(
      rc::gen::set(&Mossa::genere, genere), rc::gen::set(&Mossa::quale, rc::gen::inRange(0, 1'000)),
      rc::gen::set(&Mossa::importo, rc::gen::inRange(1, 300'000)),
      rc::gen::set(&Mossa::bit, rc::gen::inRange(0U, 256U)),
      rc::gen::set(&Mossa::scelte, rc::gen::resize(6, rc::gen::container<std::vector<int>>(
                                                          rc::gen::inRange(0, 1'000)))));
}

}  // namespace fenalto::prova
