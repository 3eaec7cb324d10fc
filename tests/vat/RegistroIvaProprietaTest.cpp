// Random companies: totals of the registers against plain sums over the rows.
#include <map>
#include <random>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "vat/RegistroIvaDiProva.h"

namespace fenalto::prova {
namespace {

using Chiave = std::pair<std::string, std::string>;

struct Somme {
  Importo imponibile;
  Importo iva;
  Importo ivaInd;
  friend bool operator==(const Somme&, const Somme&) = default;
  friend void PrintTo(const Somme& s, std::ostream* o) {
    *o << s.imponibile.Testo() << "/" << s.iva.Testo() << "/" << s.ivaInd.Testo();
  }
  void Aggiungi(const Somme& altra) {
    imponibile += altra.imponibile;
    iva += altra.iva;
    ivaInd += altra.ivaInd;
  }
};

using Tavola = std::map<Chiave, Somme>;

/// A row as the test itself wrote it down.
struct RigaScritta {
  std::string riva;
  std::string codIva;
  Data dt;
  bool ep;
  Data dtIncasso;
  Somme somme;
};

class RegistroIvaProprietaTest : public RegistroIvaDiProva {
 protected:
  /// Registrations of two years, in order of date; purchases and sales may be deferred and
  /// collected on any later day.
  void ScriviAnni(std::mt19937& caso) {
    static constexpr const char* kRegistri[] = {"1", "1V", "2", "3", "4", "5", "9", "6"};
    static constexpr const char* kCodici[] = {"22", "10", "04", "E10", "22I50"};
    const auto fra = [&](int da, int a) { return std::uniform_int_distribution(da, a)(caso); };
    Transazione transazione(ambiente.Basi());
    for (const int anno : {2023, 2024}) {
      std::map<std::string, int> protocolli;
      Data dt = G(1, 1, anno);
      for (int n = 0; n < 150 && dt.Anno() == anno; ++n, dt = dt.PiuGiorni(fra(0, 4))) {
        if (dt.Anno() != anno) break;
        Registrata r{kRegistri[fra(0, 7)], 0, dt, {}};
        r.anno = anno;
        r.nProt = ++protocolli[r.riva];
        const std::string riva = r.riva;
        const bool differibile = riva == "1" || riva == "1V" || riva == "3";
        if (riva == "6" || (differibile && fra(0, 2) == 0)) {
          r.ep = true;
          if (fra(0, 3) > 0) r.dtIncasso = dt.PiuGiorni(fra(0, 400));
        }
        for (int righe = fra(1, 3); righe > 0; --righe)
          Riga(r, riva == "2", fra, kCodici[fra(0, 4)]);
        Scrivi(r);
      }
    }
    transazione.Conferma();
  }

  template <typename Fra>
  void Riga(Registrata& r, bool lordi, const Fra& fra, const char* codIva) {
    const auto cento = [](int n) { return Importo::DaDecimillesimi(std::int64_t{n} * 100); };
    // Credit notes are below zero.
    const Importo imponibile = cento(fra(-30'000, 100'000));
    Somme somme{imponibile, {}, {}};
    if (!lordi || fra(0, 1) == 0) {
      somme.iva = CalcolaIva(imponibile, I("22"), true);
      if (std::string_view(codIva) == "22I50") {
        somme.ivaInd = IvaIndetraibile(somme.iva, I("50"), true);
        somme.iva -= somme.ivaInd;
      }
    }
    r.righe.push_back({codIva, somme.imponibile, somme.iva, somme.ivaInd});
    scritte.push_back({r.riva, codIva, r.dt, r.ep, r.dtIncasso, somme});
  }

  /// What the register of a period must hold, from the rows as written.
  Tavola Attesi(const vat::PeriodoIva& periodo) const {
    Tavola attesi;
    std::map<std::string, Importo> lordi;
    for (const RigaScritta& r : scritte) {
      if (periodo.Contiene(r.dt)) {
        attesi[{r.riva, r.codIva}].Aggiungi(r.somme);
        const bool lorda = r.somme.iva.Zero() && r.somme.ivaInd.Zero();
        if (r.riva == "2" && lorda) lordi[r.codIva] += r.somme.imponibile;
      }
      if (r.ep && periodo.Contiene(r.dtIncasso)) {
        attesi[{r.riva == "3" ? "8A" : "8", r.codIva}].Aggiungi(r.somme);
      }
    }
    for (const auto& [codIva, lordo] : lordi) {
      const Importo perc = codIva == "E10" ? Importo() : I(codIva.substr(0, 2).c_str());
      const Importo iva = lordo - ScorporaImponibile(lordo, perc);
      attesi[{"2", codIva}].Aggiungi({-iva, iva, {}});
    }
    return attesi;
  }

  std::vector<RigaScritta> scritte;
};

TEST_F(RegistroIvaProprietaTest, TotaliSonoLeSommeDelleRighe) {
  std::mt19937 caso(20241124);
  ScriviAnni(caso);
  Somme incassate;
  for (const int anno : {2023, 2024}) {
    ASSERT_TRUE(ambiente.ScegliAnno(anno));
    for (const vat::PeriodoIva& periodo : registro.Periodi()) {
      ASSERT_TRUE(registro.ScegliPeriodo(periodo.cod));
      // Nothing is printed: every month begins from protocol 1, so the range is given by hand.
      for (vat::IntervalloRegistro& i : registro.Intervalli()) {
        i.daNProt = 1 + Tessarc()
                            .Singolo("SELECT Max(NProt) FROM Articoli WHERE " +
                                     sql::Criterio("Anno", "=", anno) + " AND " +
                                     sql::Criterio("Riva", "=", i.riva) + " AND " +
                                     sql::Criterio("Dt", "<", periodo.Primo()))
                            .Intero();
        i.aaNProt = std::max(i.aaNProt, i.daNProt - 1);
      }
      const auto totali = registro.Totali();
      ASSERT_TRUE(totali) << totali.Errore().messaggio;
      Tavola trovati;
      for (const vat::TotaleRegistro& t : totali.Valore()) {
        for (const vat::TotaleCodice& c : t.codici) {
          trovati[{t.intervallo.riva, c.codIva}].Aggiungi({c.imponibile, c.iva, c.ivaInd});
        }
        if (t.intervallo.daIncassi && !periodo.Annuale()) {
          for (const vat::TotaleCodice& c : t.codici) {
            incassate.Aggiungi({c.imponibile, c.iva, c.ivaInd});
          }
        }
      }
      ASSERT_EQ(trovati, Attesi(periodo)) << anno << " " << periodo.cod;
    }
  }
  // Each collected invoice counted in one month of one year.
  Somme attese;
  for (const RigaScritta& r : scritte) {
    const int anno = r.dtIncasso.Anno();
    if (r.ep && (anno == 2023 || anno == 2024)) attese.Aggiungi(r.somme);
  }
  EXPECT_EQ(incassate, attese);
}

}  // namespace
}  // namespace fenalto::prova
