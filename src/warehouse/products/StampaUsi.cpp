// The uses of a product on paper.
#include "core/reports/Rapporto.h"
#include "warehouse/products/EliminazioneProdotto.h"

namespace fenalto::warehouse {
namespace {

using reports::ColonnaDi;
using reports::Ripeti;

Valore Numero(std::int64_t numero) {
  return numero == 0 ? Valore("") : Valore(std::to_string(numero));
}

reports::Tabella<UsoProdotto> TabellaUsi() {
  constexpr std::size_t kUso = 70;
  const auto colonna = [](const char* titolo, const std::string& sagoma, const char* campo,
                          auto valore, bool numero = false) {
    ColonnaDi<UsoProdotto> c{{titolo, sagoma, campo}, valore};
    c.codice = numero;
    return c;
  };
  using U = UsoProdotto;
  return reports::Tabella<U>(
      {colonna("dove", Ripeti("$", kUso), "R_C1", [](const U& u) { return Valore(u.uso); }),
       colonna(
           "anno", " $$$$", "R_C2", [](const U& u) { return Numero(u.anno); }, true),
       colonna("data", " $$$$$$$$$$", "R_C3", [](const U& u) { return Valore(u.dt.Testo()); }),
       colonna("tipo", " $$$$$", "R_C4", [](const U& u) { return Valore(u.tipo); }),
       colonna("numero", " $$$$$$$$$", "R_C5", [](const U& u) { return Numero(u.numero); }, true)});
}

}  // namespace

bool EliminazioneProdotto::StampaUsi() {
  constexpr std::size_t kPagina = 500;
  if (!Aperto() || uscite_ == nullptr) return false;
  UsiProdotto usi = Usi();
  std::vector<UsoProdotto> pagina = usi.Avanti(kPagina);
  if (pagina.empty()) {
    ambiente_.Dialogo().Messaggio("il prodotto " + codice_ + " non è presente in alcun documento");
    return false;
  }
  reports::Rapporto rapporto(ambiente_, *uscite_);
  const auto tabella = TabellaUsi();
  rapporto.Tavola(tabella, "R_SCRITTATOT");
  const reports::Cornice cornice{
      .rapporto = "uso del prodotto", .titolo = Titolo(), .grafico = true};
  const bool aperta = rapporto.Apri(cornice, [&] {
    rapporto.TestataDitta();
    rapporto.Titolo("TITOLO", Titolo(), true);
    rapporto.Titolo("TITOLO2", descrizione_);
    rapporto.Titoli("");
  });
  if (!aperta) return false;
  rapporto.Avvia("Stampa", 0, static_cast<std::int64_t>(kPagina));
  for (; !pagina.empty(); pagina = usi.Avanti(kPagina)) {
    for (const UsoProdotto& uso : pagina) {
      rapporto.RigaTavola(tabella.Celle(uso), uso.rinvio, uso.rinvio.Vuoto());
      if (!rapporto.Passo()) return false;
    }
  }
  return rapporto.Fine();
}

}  // namespace fenalto::warehouse
