// Random warehouses against a model of its own in exact fractions: one product at a time and in
// series, movements row by row.
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <tuple>

#include "core/values/Razionale.h"
#include "warehouse/stock/MagazzinoDiProva.h"
#include "warehouse/stock/PannelloEsistenza.h"
#include "warehouse/stock/VistaMovimenti.h"

namespace fenalto::prova {
namespace {

/// In the store's order.
constexpr const char* kProdotti[] = {"a", "B", "b1", "C'd", "c*", "è"};
constexpr int kQuantiProdotti = 6;
constexpr const char* kTipi[] = {"EI", "XC", "XN"};  // in the order of their codes
constexpr const char* kMagazzini[] = {"", "01", "02"};
constexpr const char* kSensi[] = {"C", "S", ""};

struct Casuale {
  int prodotto = 0;
  int anno = 2024;
  int giorno = 0;  ///< of the year
  int senso = 0;
  int mag = 0;
  int tipo = 0;
  bool iniziale = false;
  int numero = 1;
  int quantita = 0;  ///< ten-thousandths
  int prezzo = 0;
  int sconto = 0;   ///< percent
  int sconto2 = 0;  ///< hundredths of a percent
  int ordine = 0;   ///< 0 none
  int commessa = 0;
  bool cliente = false;
};

/// A row of an order or of a job.
struct Aperta {
  int prodotto = 0;
  int quantita = 0;
  bool chiusa = false;
  bool offerta = false;
};

struct Magazzino {
  std::vector<Casuale> righe;
  std::vector<Aperta> ordiniCli;
  std::vector<Aperta> ordiniFor;
  std::vector<Aperta> commesse;
};

template <class T, class M>
auto In(M T::* membro, int da, int a) {
  return rc::gen::set(membro, rc::gen::inRange(da, a));
}

rc::Gen<Casuale> UnaRiga() {
  using C = Casuale;
  return rc::gen::build<C>(In(&C::prodotto, 0, kQuantiProdotti), In(&C::anno, 2023, 2026),
                           In(&C::giorno, 0, 365), In(&C::senso, 0, 3), In(&C::mag, 0, 3),
                           In(&C::tipo, 0, 3), rc::gen::set(&C::iniziale), In(&C::numero, 1, 6),
                           In(&C::quantita, -50'000, 300'000), In(&C::prezzo, 0, 5'000'000),
                           In(&C::sconto, 0, 101), In(&C::sconto2, -500, 3'000),
                           In(&C::ordine, 0, 5), In(&C::commessa, 0, 5), rc::gen::set(&C::cliente));
}

rc::Gen<Aperta> UnaAperta() {
  return rc::gen::build<Aperta>(In(&Aperta::prodotto, 0, kQuantiProdotti),
                                In(&Aperta::quantita, 0, 200'000), rc::gen::set(&Aperta::chiusa),
                                rc::gen::set(&Aperta::offerta));
}

Importo D(int decimillesimi) {
  return Importo::DaDecimillesimi(decimillesimi);
}
Data Giorno(const Casuale& r) {
  return G(1, 1, r.anno).PiuGiorni(r.giorno);
}

/// What stands in the documents, worked out row by row.
class Modello {
 public:
  Modello(const Magazzino& magazzino, int prodotto, std::string mag, Data finoAl)
      : m_(magazzino), p_(prodotto), mag_(std::move(mag)), finoAl_(finoAl) {}

  [[nodiscard]] Razionale Mossi(int senso) const {
    Razionale somma = 0;
    for (const Casuale& r : m_.righe) {
      if (r.prodotto != p_ || r.anno != 2024 || r.senso != senso || !InTempo(r)) continue;
      if (mag_.empty() || mag_ == kMagazzini[r.mag]) somma += Esatto(D(r.quantita));
    }
    return somma;
  }
  [[nodiscard]] Razionale Impegnato() const {
    Razionale somma = 0;
    for (std::size_t i = 0; i < m_.ordiniCli.size(); ++i) {
      somma += Resta(m_.ordiniCli[i], [&](const Casuale& r) {
        return r.ordine == static_cast<int>(i) + 1 && r.cliente;
      });
    }
    for (std::size_t i = 0; i < m_.commesse.size(); ++i) {
      if (m_.commesse[i].offerta) continue;  // jobs know no offers: they aren't written
      somma += Resta(m_.commesse[i], [&](const Casuale& r) {
        return r.commessa == static_cast<int>(i) + 1 && r.senso == 1;
      });
    }
    return somma;
  }
  [[nodiscard]] Razionale Ordinato() const {
    Razionale somma = 0;
    for (std::size_t i = 0; i < m_.ordiniFor.size(); ++i) {
      somma += Resta(m_.ordiniFor[i], [&](const Casuale& r) {
        return r.ordine == static_cast<int>(i) + 1 && !r.cliente;
      });
    }
    return somma;
  }

  struct Costo {
    Razionale ultimo = 0;
    Razionale medio = 0;
    Razionale valore = 0;
    Data dt;
    int numero = 0;
  };
  [[nodiscard]] Costo Costi() const {
    std::vector<const Casuale*> carichi;
    for (const Casuale& r : m_.righe) {
      if (r.prodotto == p_ && r.anno == 2024 && r.senso == 0 && InTempo(r) && r.tipo != 2) {
        carichi.push_back(&r);
      }
    }
    std::ranges::stable_sort(
        carichi, {}, [](const Casuale* r) { return std::tuple(r->giorno, r->numero, r->tipo); });
    Costo costo;
    Razionale quantita = 0;
    Razionale valore = 0;
    for (const Casuale* r : carichi) {
      const Razionale netto = Netto(*r);
      const Razionale q = Esatto(D(r->quantita));
      if (netto != 0) costo.ultimo = netto;
      costo.dt = Giorno(*r);
      costo.numero = r->numero;
      quantita += q;
      valore += q * netto;
      if (!r->iniziale) costo.valore += q * netto;
    }
    costo.valore = Tenuto(costo.valore);
    if (quantita != 0) costo.medio = Tenuto(valore / quantita);
    return costo;
  }

 private:
  [[nodiscard]] bool InTempo(const Casuale& r) const {
    return finoAl_.Nulla() || Giorno(r) <= finoAl_;
  }
  template <class F>
  [[nodiscard]] Razionale Resta(const Aperta& riga, F serve) const {
    if (riga.prodotto != p_ || riga.chiusa || riga.offerta) return 0;
    Razionale resta = Esatto(D(riga.quantita));
    for (const Casuale& r : m_.righe) {
      if (serve(r)) resta -= Esatto(D(r.quantita));
    }
    return resta;
  }
  static Razionale Netto(const Casuale& r) {
    Razionale netto = Esatto(D(r.prezzo));
    for (const Razionale& sconto : {Razionale(r.sconto), Razionale(r.sconto2, 100)}) {
      netto -= Tenuto(netto * sconto / 100);
    }
    return netto;
  }

  const Magazzino& m_;
  int p_;
  std::string mag_;
  Data finoAl_;
};

class MagazzinoCasuale : public MagazzinoDiProva {
 protected:
  void Scrivi(const Magazzino& m) {
    TransazioneComune transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    for (const char* tabella : {"FattureCli_r", "OrdiniCli_r", "OrdiniFor_r", "Commesse_r"}) {
      Tessarc().Esegui(std::string("delete * from ") + tabella);
    }
    std::int64_t posi = 0;
    for (const Casuale& r : m.righe) {
      Metti(Tessarc(), "FattureCli_r", "TipoDoc", kTipi[r.tipo], "Anno", r.anno, "NumDoc", r.numero,
            "Posi", ++posi, "CodiceRiga", kProdotti[r.prodotto], "Quantita", D(r.quantita),
            "Prezzo", D(r.prezzo), "Sc1", I("1").Per(Importo::DaUnita(r.sconto)), "Sc3",
            D(r.sconto2 * 100), "Dt", Giorno(r), "CS", kSensi[r.senso], "Mag", kMagazzini[r.mag],
            "CausaleMag", r.iniziale ? "EI" : "XC", "CFP", r.cliente ? "C" : "F", "Ordine",
            r.ordine, "PosiOrdine", r.ordine == 0 ? 0 : 7, "Commessa", r.commessa, "PosiCommessa",
            r.commessa == 0 ? 0 : 7);
    }
    const auto ordini = [&](const char* tabella, const std::vector<Aperta>& righe) {
      for (std::size_t i = 0; i < righe.size(); ++i) {
        Metti(Tessarc(), tabella, "TipoDoc", righe[i].offerta ? "F" : "O", "NumDoc",
              static_cast<std::int64_t>(i) + 1, "Posi", 7, "CodiceRiga",
              kProdotti[righe[i].prodotto], "Quantita", D(righe[i].quantita), "OrdineSaldato",
              righe[i].chiusa);
      }
    };
    ordini("OrdiniCli_r", m.ordiniCli);
    ordini("OrdiniFor_r", m.ordiniFor);
    for (std::size_t i = 0; i < m.commesse.size(); ++i) {
      if (m.commesse[i].offerta) continue;
      Metti(Tessarc(), "Commesse_r", "NumDoc", static_cast<std::int64_t>(i) + 1, "Posi", 7,
            "CodiceRiga", kProdotti[m.commesse[i].prodotto], "Quantita", D(m.commesse[i].quantita),
            "Ut", m.commesse[i].chiusa);
    }
    transazione.Conferma();
  }

  static void ComeIlModello(const Modello& modello, const warehouse::Esistenza& e,
                            const warehouse::Costi& c) {
    const Razionale esistenza = modello.Mossi(0) - modello.Mossi(1);
    RC_ASSERT(Esatto(e.carichi) == modello.Mossi(0));
    RC_ASSERT(Esatto(e.scarichi) == modello.Mossi(1));
    RC_ASSERT(Esatto(e.esistenza) == esistenza);
    RC_ASSERT(Esatto(e.impegnato) == modello.Impegnato());
    RC_ASSERT(Esatto(e.ordinato) == modello.Ordinato());
    RC_ASSERT(Esatto(e.disponibile) == esistenza + modello.Ordinato() - modello.Impegnato());
    RC_ASSERT(Esatto(e.disponibileReale) == esistenza - modello.Impegnato());
    const Modello::Costo costo = modello.Costi();
    RC_ASSERT(Esatto(c.ultimo) == costo.ultimo);
    RC_ASSERT(Esatto(c.medio) == costo.medio);
    RC_ASSERT(Esatto(c.valoreCarichi) == costo.valore);
    RC_ASSERT(c.ultimoCarico == costo.dt);
    RC_ASSERT(c.numDoc == costo.numero);
  }

  void MovimentiComeLeFigure(const char* prodotto, const char* mag) {
    const auto righe = warehouse::LeggiMovimenti(ambiente, {.prodotto = prodotto, .mag = mag});
    const auto figure = warehouse::CalcoloEsistenza(ambiente, prodotto, {.mag = mag});
    RC_ASSERT(righe.back().carichi == figure.carichi);
    RC_ASSERT(righe.back().scarichi == figure.scarichi);
    RC_ASSERT(righe.back().esistenza == figure.esistenza);
    if (righe.size() > 1) RC_ASSERT(righe[righe.size() - 2].esistenza == figure.esistenza);
    for (const auto& punto : warehouse::AndamentoEsistenza(ambiente, prodotto, mag)) {
      if (punto.fineMese.Anno() != ambiente.Anno()) continue;
      RC_ASSERT(
          warehouse::CalcoloEsistenza(ambiente, prodotto, {.mag = mag, .finoAl = punto.fineMese})
              .esistenza == punto.esistenza);
    }
  }
};

TEST_F(MagazzinoCasuale, FigureComeIlModello) {
  EXPECT_TRUE(rc::check("single, in series and row by row agree with the model", [this] {
    const auto aperte = rc::gen::resize(4, rc::gen::container<std::vector<Aperta>>(UnaAperta()));
    const Magazzino m{*rc::gen::container<std::vector<Casuale>>(UnaRiga()), *aperte, *aperte,
                      *aperte};
    Scrivi(m);
    const char* mag = kMagazzini[*rc::gen::inRange(0, 3)];
    const int giorno = *rc::gen::inRange(-1, 365);
    const Data finoAl = giorno < 0 ? Data() : G(1, 1, 2024).PiuGiorni(giorno);
    const warehouse::FiltroEsistenza filtro{mag, finoAl};
    warehouse::EsistenzeInSerie esistenze(ambiente, filtro);
    warehouse::CostiInSerie costi(ambiente, finoAl);
    for (int p = 0; p < kQuantiProdotti; ++p) {
      const char* prodotto = kProdotti[p];
      const Modello modello(m, p, mag, finoAl);
      ComeIlModello(modello, warehouse::CalcoloEsistenza(ambiente, prodotto, filtro),
                    warehouse::CalcoloCosti(ambiente, prodotto, finoAl));
      // Whoever lists products may leave some out.
      if (p % 3 != 1) ComeIlModello(modello, esistenze.Di(prodotto), costi.Di(prodotto));
      MovimentiComeLeFigure(prodotto, mag);
    }
  }));
}

TEST_F(MagazzinoCasuale, InSerieFuoriOrdine) {
  warehouse::EsistenzeInSerie esistenze(ambiente);
  esistenze.Di("P2");
  EXPECT_THROW(esistenze.Di("P1"), std::logic_error);
}

}  // namespace
}  // namespace fenalto::prova
