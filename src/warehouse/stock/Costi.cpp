#include "warehouse/stock/Costi.h"

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Intero128.h"
#include "core/values/Testo.h"

namespace fenalto::warehouse {
namespace {

/// Causal of the opening stock.
constexpr const char* kEsistenzaIniziale = "EI";

/// The loads that count for costs, in order of day and number; what is left to tell equal ones
/// apart makes one product and many give the same last load.
Rs Carichi(Ambiente& ambiente, const std::string& prodotto, Data finoAl) {
  std::string testo =
      "SELECT CodiceRiga, Quantita, Prezzo, Sc1, Sc2, Sc3, CausaleMag, TipoDoc, NumDoc, Anno, Dt "
      "FROM FattureCli_r WHERE ";
  if (!prodotto.empty()) testo += sql::Criterio("CodiceRiga", "=", prodotto) + " AND ";
  testo += sql::Criterio("Anno", "=", ambiente.Anno()) + " AND CS='C'";
  if (!finoAl.Nulla()) testo += " AND " + sql::Criterio("Dt", "<=", finoAl);
  testo +=
      " AND TipoDoc NOT IN (SELECT Cod FROM TipiFattureCli WHERE NoCosti=True)"
      " ORDER BY CodiceRiga, Dt, NumDoc, TipoDoc, Posi";
  return ambiente.ArchivioDi("tessarc").Recordset(testo);
}

/// A sum of products of amounts, exact: hundred-millionths.
class SommaEsatta {
 public:
  void Aggiungi(Importo quantita, Importo prezzo) {
    const Intero128 prodotto =
        static_cast<Intero128>(quantita.Decimillesimi()) * prezzo.Decimillesimi();
    if (__builtin_add_overflow(somma_, prodotto, &somma_)) throw FuoriCampo();
  }
  void Aggiungi(const SommaEsatta& altra) {
    if (__builtin_add_overflow(somma_, altra.somma_, &somma_)) throw FuoriCampo();
  }
  [[nodiscard]] Importo Arrotondata() const { return Diviso(Importo::DaUnita(1)); }
  [[nodiscard]] Importo Diviso(Importo quantita) const {
    const Intero128 divisore = quantita.Decimillesimi();
    return ImportoDa128(divisore < 0 ? QuozienteVicino(-somma_, -divisore)
                                     : QuozienteVicino(somma_, divisore));
  }

 private:
  Intero128 somma_ = 0;
};

/// Costs of a product, load by load.
class ContoCosti {
 public:
  void Carico(const Rs& riga) {
    const Importo quantita = riga.Fields(1).Importo();
    const Importo netto = PrezzoNetto(riga.Fields(2).Importo(), riga.Fields(3).Importo(),
                                      riga.Fields(4).Importo(), riga.Fields(5).Importo());
    costi_.tipoDoc = riga.Fields(7).RifTesto();
    costi_.numDoc = riga.Fields(8).Intero();
    costi_.anno = static_cast<int>(riga.Fields(9).Intero());
    costi_.ultimoCarico = riga.Fields(10).Data();
    if (!netto.Zero()) costi_.ultimo = netto;
    quantita_ += quantita;
    const bool iniziale = UgualeTesto(riga.Fields(6).RifTesto(), kEsistenzaIniziale);
    (iniziale ? iniziali_ : carichi_).Aggiungi(quantita, netto);
  }

  [[nodiscard]] Costi Fine() {
    costi_.valoreCarichi = carichi_.Arrotondata();
    if (!quantita_.Zero()) {
      carichi_.Aggiungi(iniziali_);
      costi_.medio = carichi_.Diviso(quantita_);
    }
    return std::move(costi_);
  }

 private:
  Costi costi_;
  Importo quantita_;
  SommaEsatta carichi_;
  SommaEsatta iniziali_;
};

}  // namespace

Costi CalcoloCosti(Ambiente& ambiente, const std::string& prodotto, Data finoAl) {
  ContoCosti conto;
  if (prodotto.empty()) return conto.Fine();
  for (Rs riga = Carichi(ambiente, prodotto, finoAl); !riga.Eof(); riga.MoveNext()) {
    conto.Carico(riga);
  }
  return conto.Fine();
}

CostiInSerie::CostiInSerie(Ambiente& ambiente, Data finoAl)
    : carichi_(Carichi(ambiente, "", finoAl)) {}

Costi CostiInSerie::Di(const std::string& prodotto) {
  ContoCosti conto;
  for (; !prodotto.empty() && carichi_.Al(prodotto); carichi_.Avanti()) {
    conto.Carico(carichi_.Riga());
  }
  return conto.Fine();
}

Importo CostoDaDistinta(Ambiente& ambiente, const std::string& prodotto, bool medio) {
  Importo totale;
  Rs righe = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT CodiceRiga, Quantita FROM Db_r WHERE " + sql::Criterio("Cod", "=", prodotto) +
      " ORDER BY Posi");
  for (; !righe.Eof(); righe.MoveNext()) {
    const std::string componente = righe.Fields(0).Testo();
    const Costi costi = CalcoloCosti(ambiente, componente);
    Importo costo = medio ? costi.medio : costi.ultimo;
    if (costo.Zero()) {
      costo =
          ambiente.Cerca("tessarc", "CodiciRiga", {{"Cod", componente}}, "CostoDigitato").Importo();
    }
    totale += righe.Fields(1).Importo().Per(costo);
  }
  return totale;
}

}  // namespace fenalto::warehouse
