#include "warehouse/stock/VariazionePrezzi.h"

#include <array>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "warehouse/stock/Costi.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::warehouse {
namespace {

constexpr std::int64_t kPagina = 500;  // products read at once, and between two signs of life

struct ColonnaPrezzo {
  const char* nome;
  const char* scritta;
  bool SceltaVariazione::* scelta;
};
constexpr std::array<ColonnaPrezzo, 4> kPrezzi = {{
    {"Prezzo", "Prezzo 1", &SceltaVariazione::prezzo1},
    {"Prezzo2", "Prezzo 2", &SceltaVariazione::prezzo2},
    {"Prezzo3", "Prezzo 3", &SceltaVariazione::prezzo3},
    {"PrezzoIva", "Prezzo con Iva", &SceltaVariazione::prezzoIva},
}};

std::string Domanda(const SceltaVariazione& scelta) {
  std::string testo = "Conferma aggiornamento del ";
  for (const ColonnaPrezzo& prezzo : kPrezzi) {
    if (scelta.*prezzo.scelta) testo += std::string(prezzo.scritta) + " ";
  }
  testo += "\nin percentuale " + ScriviImporto(scelta.percAumPr, 0);
  testo += scelta.base == BasePrezzo::Attuale       ? " sul prezzo attuale"
           : scelta.base == BasePrezzo::CostoUltimo ? " sull'ultimo costo"
                                                    : " sul 'costo digitato'";
  testo += "\nDa prodotto " + scelta.prodotti.daCodiceRiga + " A " + scelta.prodotti.aaCodiceRiga;
  const std::string filtri = FiltriProdotti(scelta.prodotti);
  return filtri.empty() ? testo : testo + "\n" + filtri;
}

/// A product with what its prices may be taken from.
struct ProdottoDaVariare {
  std::string cod;
  Importo costoDigitato;
  std::array<Importo, kPrezzi.size()> prezzi;
};

/// The walk that writes, in the caller's transaction.
class Variazione {
 public:
  Variazione(Ambiente& ambiente, const SceltaVariazione& scelta)
      : ambiente_(ambiente),
        scelta_(scelta),
        condizione_(CondizioneProdotti(scelta.prodotti)),
        decimali_(DecimaliPrezzo(ambiente)) {}

  /// Why nothing is to be written; empty when all was.
  std::string Scrivi() {
    Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
    const auto avanzamento = ambiente_.Dialogo().Avvia(
        "Variazione prezzi",
        tessarc.Singolo("SELECT Count(*) FROM CodiciRiga WHERE " + condizione_).Intero());
    std::optional<CostiInSerie> costi;
    if (scelta_.base == BasePrezzo::CostoUltimo) costi.emplace(ambiente_);
    std::int64_t visti = 0;
    // A page at a time, since what is read is also written.
    for (std::vector<ProdottoDaVariare> pagina = Pagina(""); !pagina.empty();
         pagina = Pagina(pagina.back().cod)) {
      for (const ProdottoDaVariare& prodotto : pagina) {
        Varia(prodotto, costi ? costi->Di(prodotto.cod).ultimo : prodotto.costoDigitato);
      }
      visti += static_cast<std::int64_t>(pagina.size());
      if (!avanzamento->Avanza(visti)) return "interrotta";
    }
    return "";
  }
  [[nodiscard]] std::int64_t SenzaCosto() const { return senzaCosto_; }

 private:
  std::vector<ProdottoDaVariare> Pagina(const std::string& dopo) {
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
        "SELECT TOP " + std::to_string(kPagina) +
        " Cod, CostoDigitato, Prezzo, Prezzo2, Prezzo3, PrezzoIva FROM "
        "CodiciRiga WHERE " +
        condizione_ + " AND " + sql::Criterio("CodiciRiga.Cod", ">", dopo) + " ORDER BY Cod");
    std::vector<ProdottoDaVariare> pagina;
    for (; !rs.Eof(); rs.MoveNext()) {
      ProdottoDaVariare& uno = pagina.emplace_back();
      uno.cod = rs.Fields(0).Testo();
      uno.costoDigitato = rs.Fields(1).Importo();
      for (std::size_t i = 0; i < kPrezzi.size(); ++i) uno.prezzi[i] = rs.Fields(i + 2).Importo();
    }
    return pagina;
  }

  void Varia(const ProdottoDaVariare& prodotto, Importo costo) {
    const bool attuale = scelta_.base == BasePrezzo::Attuale;
    if (!attuale && costo.Zero()) {
      ++senzaCosto_;
      return;
    }
    std::string istruzione;
    for (std::size_t i = 0; i < kPrezzi.size(); ++i) {
      if (!(scelta_.*kPrezzi[i].scelta)) continue;
      const Importo base = attuale ? prodotto.prezzi[i] : costo;
      const Importo nuovo =
          Arrotonda(base + base.Percento(scelta_.percAumPr), decimali_, ModoArrotonda::Vicino);
      if (nuovo == prodotto.prezzi[i]) continue;
      istruzione += std::string(kPrezzi[i].nome) + "=" + nuovo.Testo() + ", ";
    }
    if (istruzione.empty()) return;
    ambiente_.ArchivioDi("tessarc").Esegui("UPDATE CodiciRiga SET " + istruzione + "DtAggPrezzi=" +
                                           sql::LetteraleSql(ambiente_.Ora().Oggi()) + " WHERE " +
                                           sql::Criterio("Cod", "=", prodotto.cod));
  }

  Ambiente& ambiente_;
  const SceltaVariazione& scelta_;
  std::string condizione_;
  int decimali_;
  std::int64_t senzaCosto_ = 0;
};

}  // namespace

std::optional<Rifiuto> VariazionePrezzi::Difetto(const SceltaVariazione& scelta) {
  const SceltaProdotti& prodotti = scelta.prodotti;
  if (prodotti.daCodiceRiga.empty() || prodotti.aaCodiceRiga.empty() || scelta.percAumPr.Zero()) {
    return Rifiuto{"mancano dati: 'da prodotto', 'a prodotto' oppure 'percentule'",
                   prodotti.daCodiceRiga.empty()   ? "DaCodiceRiga"
                   : prodotti.aaCodiceRiga.empty() ? "AaCodiceRiga"
                                                   : "PercAumPr"};
  }
  if (scelta.base == BasePrezzo::Nessuna) {
    return Rifiuto{"selezionare un opzione 'ricalcolo ...'", "BasePrezzo"};
  }
  for (const ColonnaPrezzo& prezzo : kPrezzi) {
    if (scelta.*prezzo.scelta) return std::nullopt;
  }
  return Rifiuto{"selezionare un opzione 'prezzo ...'", "Prezzo1"};
}

bool VariazionePrezzi::Esegui(const SceltaVariazione& scelta) {
  if (Rifiuta(ambiente_, Difetto(scelta))) return false;
  Variazione variazione(ambiente_, scelta);
  const bool fatta = records::Esegui(
      ambiente_, {.nonRiuscita = "variazione dei prezzi non riuscita: ",
                  .ambito = Transazione::Ambito::Tessarc,
                  .prima = [&] { return ambiente_.Dialogo().Conferma(Domanda(scelta)); },
                  .scrivi = [&] { return variazione.Scrivi(); }});
  if (!fatta) return false;
  std::string testo = "Variazione prezzi effettuata";
  if (const std::int64_t senza = variazione.SenzaCosto(); senza > 0) {
    testo += "\n" + std::to_string(senza) +
             (senza == 1 ? " prodotto senza costo ha tenuto il suo prezzo"
                         : " prodotti senza costo hanno tenuto i loro prezzi");
  }
  ambiente_.Dialogo().Messaggio(testo);
  return true;
}

}  // namespace fenalto::warehouse
