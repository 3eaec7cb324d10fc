// Random assets against a model of its own, in exact fractions: what card, register and automatic
// run say must be what it says; a run never depreciates more than the cost, and its reversal gives
// the rows back.
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <numeric>

#include "assets/CespitiDiProva.h"

namespace fenalto::prova {
namespace {

using assets::MovimentoCespite;

/// An exact fraction.
struct Frazione {
  long long n = 0;
  long long d = 1;
  Frazione(long long num = 0, long long den = 1) : n(num), d(den) {  // NOLINT
    const long long comune = std::gcd(n, d);
    if (comune > 1) {
      n /= comune;
      d /= comune;
    }
  }
  friend Frazione operator+(Frazione a, Frazione b) { return {a.n * b.d + b.n * a.d, a.d * b.d}; }
  friend Frazione operator-(Frazione a, Frazione b) { return a + Frazione(-b.n, b.d); }
  friend Frazione operator*(Frazione a, Frazione b) { return {a.n * b.n, a.d * b.d}; }
  friend bool operator<(Frazione a, Frazione b) { return a.n * b.d < b.n * a.d; }
  friend bool operator==(Frazione a, Frazione b) { return a.n == b.n && a.d == b.d; }
};

constexpr long long kScala = 10'000;

Frazione F(Importo importo) {
  return {importo.Decimillesimi(), kScala};
}

/// To the nearest, halves away from zero; `x` isn't negative.
long long Vicino(Frazione x) {
  return (2 * x.n + x.d) / (2 * x.d);
}

/// A row as it is drawn: kind, and amounts in cents.
struct Evento {
  int quale = 0;
  int anno = 0;
  int centesimi = 0;
  int storno = 0;
};

struct BeneCasuale {
  int dal = 2015;
  int costo = 100;  ///< cents
  std::vector<Evento> eventi;
};

const char* const kCausali[] = {"100", "200", "300", "390", "400", "400", "400"};

std::vector<MovimentoCespite> RigheDel(const BeneCasuale& bene) {
  std::vector<MovimentoCespite> righe;
  const auto aggiungi = [&](const char* cau, int anno, long long centesimi, long long storno) {
    MovimentoCespite riga{static_cast<std::int64_t>(righe.size()) + 1, anno, cau};
    riga.importo = Importo::DaDecimillesimi(centesimi * 100);
    riga.storno = Importo::DaDecimillesimi(storno * 100);
    righe.push_back(riga);
  };
  aggiungi("100", bene.dal, bene.costo, 0);
  for (const Evento& e : bene.eventi) {
    const std::string cau = kCausali[e.quale];
    const bool conStorno = cau == "200" || cau == "300";
    aggiungi(cau.c_str(), cau == "100" ? bene.dal : bene.dal + e.anno,
             cau == "200" ? e.centesimi - 20'000 : e.centesimi, conStorno ? e.storno : 0);
  }
  std::ranges::sort(righe, assets::PrimaNellaScheda);
  return righe;
}

/// The model: cost and fund of an asset at the end of a year, each row by itself.
struct Modello {
  Frazione costo;
  Frazione fondo;
  Frazione quota;  ///< of the year alone

  Modello(const std::vector<MovimentoCespite>& righe, int anno) {
    for (const auto& r : righe) {
      if (r.anno > anno) continue;
      if (r.cau == "100" || r.cau == "200") costo = costo + F(r.importo);
      if (r.cau == "300") costo = costo - F(r.importo);
      if (r.cau == "200") fondo = fondo + F(r.storno);
      if (r.cau == "300") fondo = fondo - F(r.storno);
      if (r.cau == "390" || r.cau == "400") fondo = fondo + F(r.importo);
      if ((r.cau == "390" || r.cau == "400") && r.anno == anno) quota = quota + F(r.importo);
    }
  }
  [[nodiscard]] Frazione Residuo() const { return costo - fondo; }
};

bool HaQuota(const std::vector<MovimentoCespite>& righe, int anno) {
  return std::ranges::any_of(
      righe, [&](const auto& r) { return r.anno == anno && (r.cau == "400" || r.cau == "390"); });
}

/// The model's quota of a year in cents; 0 where the run must leave the asset alone.
long long QuotaDelModello(const BeneCasuale& bene, const std::vector<MovimentoCespite>& righe,
                          int anno, int percCentesimi) {
  if (bene.dal > anno || HaQuota(righe, anno)) return 0;
  for (int altro = bene.dal; altro < anno; ++altro) {
    const bool coperto = std::ranges::any_of(
        righe, [&](const auto& r) { return r.cau == "390" && r.anno >= altro && r.anno < anno; });
    if (!coperto && !HaQuota(righe, altro)) return 0;
  }
  const Modello al(righe, anno);
  const Modello tutto(righe, 9999);
  const Frazione residuo = tutto.Residuo() < al.Residuo() ? tutto.Residuo() : al.Residuo();
  if (!(Frazione(0) < residuo) || !(Frazione(0) < al.costo)) return 0;
  // Cents of cents: the product has four decimals at most, so that only the cent is rounded.
  const long long quota = Vicino(al.costo * Frazione(percCentesimi, 10'000) * Frazione(100));
  const long long resta = (residuo * Frazione(100)).n;
  return std::min(quota, resta);
}

rc::Gen<BeneCasuale> UnBene() {
  const auto evento =
      rc::gen::build<Evento>(rc::gen::set(&Evento::quale, rc::gen::inRange(0, 7)),
                             rc::gen::set(&Evento::anno, rc::gen::inRange(0, 6)),
                             rc::gen::set(&Evento::centesimi, rc::gen::inRange(1, 60'000)),
                             rc::gen::set(&Evento::storno, rc::gen::inRange(1, 5'000)));
  return rc::gen::build<BeneCasuale>(
      rc::gen::set(&BeneCasuale::dal, rc::gen::inRange(2015, 2024)),
      rc::gen::set(&BeneCasuale::costo, rc::gen::inRange(1, 300'000)),
      rc::gen::set(&BeneCasuale::eventi, rc::gen::container<std::vector<Evento>>(evento)));
}

TEST(CespitiProprieta, SchedaComeIlModello) {
  EXPECT_TRUE(rc::check("card and register agree with the model", [] {
    const BeneCasuale bene = *UnBene();
    const auto righe = RigheDel(bene);
    const auto scheda = assets::CalcolaScheda(righe);
    for (const auto& anno : scheda.anni) {
      const Modello modello(righe, anno.anno);
      RC_ASSERT(F(anno.costo) == modello.costo);
      RC_ASSERT(F(anno.accantonato) == modello.fondo);
      RC_ASSERT(F(anno.residuo) == modello.Residuo());
      RC_ASSERT(F(anno.quota) == modello.quota);
      RC_ASSERT(anno.fondoPrec + anno.quota == anno.accantonato);
    }
    assets::Cespite cespite;
    cespite.dal = G(1, 1, bene.dal);
    for (int anno = bene.dal; anno < bene.dal + 8; ++anno) {
      const Modello modello(righe, anno);
      const auto voce = assets::VoceAl(cespite, righe, anno);
      RC_ASSERT(F(voce.situazione.costo) == modello.costo);
      RC_ASSERT(F(voce.situazione.accantonato) == modello.fondo);
      RC_ASSERT(F(voce.situazione.quota) == modello.quota);
      RC_ASSERT(F(voce.situazione.residuo) == modello.Residuo());
      RC_ASSERT(voce.completato == !(Frazione(0) < modello.Residuo()));
    }
  }));
}

class CespitiCasuali : public CespitiDiProva {};

TEST_F(CespitiCasuali, CalcoloEStornoComeIlModello) {
  constexpr int kAnno = 2024;
  constexpr int kBeni = 12;
  EXPECT_TRUE(rc::check("run and reversal agree with the model", [this] {
    const auto beni =
        *rc::gen::resize(kBeni, rc::gen::container<std::vector<BeneCasuale>>(UnBene()));
    const int perc = *rc::gen::inRange(1, 10'001);  // hundredths of a percent
    Transazione transazione(ambiente.Basi());
    Tessarc().Esegui("delete * from Cespiti");
    Tessarc().Esegui("delete * from MovCesp_r");
    Tessarc().Esegui(
        "update CategorieCespiti set Perc=" + Importo::DaDecimillesimi(perc * 100).Testo() +
        ", Perc1=" + Importo::DaDecimillesimi(perc * 100).Testo());
    std::int64_t n = 0;
    for (const BeneCasuale& bene : beni) {
      ++n;
      Scrivi(n, n % 2 == 0 ? "X1" : "X2", G(1, 6, bene.dal), RigheDel(bene));
    }
    transazione.Conferma();
    assets::AmmortamentoAutomatico automatico(ambiente, uscite);
    const assets::SceltaAmmortamento scelta{kAnno, {"X1", "X2"}};
    dialoghi.Rispondera("Verrà creata", Risposta::Si);
    Verso(Destinazione::Testo);
    RC_ASSERT(automatico.Registra(scelta, {}));
    bool daStornare = true;
    n = 0;
    for (const BeneCasuale& bene : beni) {
      const auto righe = RigheDel(bene);
      const auto dopo = assets::LeggiMovimenti(ambiente, ++n);
      const bool completo = assets::CalcolaScheda(righe).Completato();
      const long long attesa = completo ? 0 : QuotaDelModello(bene, righe, kAnno, perc);
      RC_ASSERT(dopo.size() == righe.size() + (attesa == 0 ? 0 : 1));
      const auto scheda = assets::CalcolaScheda(dopo);
      RC_ASSERT(scheda.Fondo() - assets::CalcolaScheda(righe).Fondo() ==
                Importo::DaDecimillesimi(attesa * 100));
      if (attesa != 0) RC_ASSERT(scheda.Residuo() >= Importo());
      RC_ASSERT(Campo(n, "AmmCompl") == scheda.Completato());
      // The reversal takes quotas typed by hand too, and leaves assets with later ones.
      daStornare = daStornare && !HaQuota(righe, kAnno);
    }
    if (!daStornare) return;
    dialoghi.Rispondera("Verrà eliminata", Risposta::Si);
    Verso(Destinazione::Testo);
    RC_ASSERT(automatico.Elimina(scelta, {}));
    n = 0;
    for (const BeneCasuale& bene : beni) {
      const auto righe = RigheDel(bene);
      const bool oltre =
          std::ranges::any_of(righe, [](const auto& r) { return r.DiQuota() && r.anno > kAnno; });
      ++n;
      if (!oltre) RC_ASSERT(assets::LeggiMovimenti(ambiente, n).size() == righe.size());
    }
  }));
}

}  // namespace
}  // namespace fenalto::prova
