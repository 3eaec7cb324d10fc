// Figures of the card worked out by hand, the quota of the automatic run, the years to come.
#include <iterator>

#include "assets/CespitiDiProva.h"
#include "assets/LineeScheda.h"
#include "assets/PrevisioneCespite.h"

namespace fenalto::prova {
namespace {

using assets::CalcolaScheda;
using assets::EsitoQuota;
using assets::MovimentoCespite;

std::string Cifre(const assets::AnnoCespite& a) {
  return std::to_string(a.anno) + ": " + a.costo.Testo() + " " + a.fondoPrec.Testo() + " " +
         a.quota.Testo() + " " + a.accantonato.Testo() + " " + a.residuo.Testo() +
         (a.vendita ? " plus " + a.Plusvalenza()->Testo() : "");
}

TEST(SchedaCespite, CifrePerAnno) {
  struct Caso {
    std::vector<MovimentoCespite> righe;
    std::vector<std::string> anni;
    std::string mancanti;
  };
  const Caso casi[] = {
      {{}, {}, ""},
      // Two invoices, two quotas in the second year.
      {{Mov(2022, "100", "600"), Mov(2022, "100", "400"), Mov(2022, "400", "100"),
        Mov(2023, "400", "150"), Mov(2023, "400", "50")},
       {"2022: 1000 0 100 100 900", "2023: 1000 100 200 300 700"},
       ""},
      // A part is sold: its cost goes, and its fund.
      {{Mov(2022, "100", "1000"), Mov(2022, "400", "200"), Mov(2023, "300", "400", "80"),
        Mov(2023, "400", "120")},
       {"2022: 1000 0 200 200 800", "2023: 600 120 120 240 360"},
       ""},
      // Revaluation of cost and fund, then a write-down of both.
      {{Mov(2022, "100", "1000"), Mov(2022, "200", "300", "50"), Mov(2023, "200", "-100", "-20")},
       {"2022: 1300 50 0 50 1250", "2023: 1200 30 0 30 1170"},
       ""},
      {{Mov(2022, "100", "500"), Mov(2022, "400", "200"), Mov(2023, "500", "500")},
       {"2022: 500 0 200 200 300", "2023: 500 200 0 200 300 plus 200"},
       ""},
      {{Mov(2022, "100", "500"), Mov(2022, "400", "200"), Mov(2023, "500", "100")},
       {"2022: 500 0 200 200 300", "2023: 500 200 0 200 300 plus -200"},
       ""},
      // Years left out; those before the opening sum aren't.
      {{Mov(2018, "100", "500"), Mov(2021, "390", "200"), Mov(2024, "400", "50")},
       {"2018: 500 0 0 0 500", "2021: 500 0 200 200 300", "2024: 500 200 50 250 250"},
       "2022/2023"},
  };
  for (const Caso& caso : casi) {
    const assets::SchedaCespite scheda = CalcolaScheda(caso.righe);
    std::vector<std::string> anni;
    for (const auto& anno : scheda.anni) anni.push_back(Cifre(anno));
    EXPECT_EQ(anni, caso.anni);
    EXPECT_EQ(scheda.AnniMancanti(), caso.mancanti);
  }
}

TEST(SchedaCespite, LeLineeDiconoTutto) {
  std::vector<MovimentoCespite> righe = {Mov(2020, "100", "500"), Mov(2022, "300", "100", "40"),
                                         Mov(2022, "500", "900")};
  righe[0].estremi = "ft. 12";
  righe[0].note = "di seconda mano";
  std::vector<std::string> linee;
  for (const auto& l : assets::LineeDi(CalcolaScheda(righe), righe,
                                       [](const std::string& cau) { return "c" + cau; })) {
    linee.push_back(l.causale + "|" + l.testo + "|" + (l.importo ? l.importo->Testo() : "") +
                    (l.totali ? " " + Cifre(*l.totali) : ""));
  }
  EXPECT_THAT(
      linee,
      ElementsAre("c100|ft. 12|500", "|di seconda mano|", "totali anno 2020|| 2020: 500 0 0 0 500",
                  "|ERRORE: manca anno/i 2021|", "c300||100", "|storno fondo|40", "c500||900",
                  "totali anno 2022|| 2022: 400 -40 0 -40 440 plus 460",
                  "|Minusvalenza/Plusvalenza|460", "|ERRORE: MANCANO REGISTRAZIONI ANNO/I 2021|"));
  righe.pop_back();
  EXPECT_THAT(assets::LineeDi(CalcolaScheda(righe), righe, [](const std::string&) { return ""; })
                  .back()
                  .testo,
              HasSubstr("2021 oppure manca la dismissione"));
}

TEST(QuotaAutomatica, ControlliEdImporti) {
  struct Caso {
    std::vector<MovimentoCespite> righe;
    int anno;
    const char *perc, *perc1;
    EsitoQuota esito;
    const char *importo, *aliquota;
    bool completa;
    const char* testo;
  };
  const auto dal = Mov(2022, "100", "1000");
  const Caso casi[] = {
      {{dal}, 2021, "20", "10", EsitoQuota::NonAncora, "0", "0", false, ""},
      {{},
       2022,
       "20",
       "10",
       EsitoQuota::MancaCosto,
       "0",
       "0",
       false,
       "Manca registrazione del costo originario"},
      {{dal},
       2023,
       "20",
       "10",
       EsitoQuota::MancaPrimoAnno,
       "0",
       "0",
       false,
       "Manca ammortamento dell'anno della data entrata in funzione "},
      {{dal, Mov(2022, "400", "100")},
       2024,
       "20",
       "10",
       EsitoQuota::MancaAnno,
       "0",
       "0",
       false,
       "Manca ammortamento anno 2023"},
      {{dal, Mov(2022, "400", "100")},
       2022,
       "20",
       "10",
       EsitoQuota::GiaRegistrata,
       "0",
       "0",
       false,
       "Ammortamento già registrato"},
      {{dal},
       2022,
       "20",
       "10",
       EsitoQuota::Quota,
       "100",
       "10",
       false,
       "Quota ammortamento 10% (10 % del costo 1.000,00)"},
      {{dal, Mov(2022, "400", "100")},
       2023,
       "20",
       "10",
       EsitoQuota::Quota,
       "200",
       "20",
       false,
       "Quota ammortamento 20% (20 % del costo 1.000,00)"},
      // The opening sum stands for the years before.
      {{dal, Mov(2023, "390", "300")},
       2024,
       "20",
       "10",
       EsitoQuota::Quota,
       "200",
       "20",
       false,
       "Quota ammortamento 20% (20 % del costo 1.000,00)"},
      {{dal, Mov(2023, "390", "850")},
       2024,
       "20",
       "10",
       EsitoQuota::Quota,
       "150",
       "15",
       true,
       "Quota ammortamento 15% (15 % del costo 1.000,00)"},
      {{dal, Mov(2023, "390", "800")},
       2024,
       "20",
       "10",
       EsitoQuota::Quota,
       "200",
       "20",
       true,
       "Quota ammortamento 20% (20 % del costo 1.000,00)"},
      {{dal, Mov(2023, "390", "933.33")},
       2024,
       "20",
       "10",
       EsitoQuota::Quota,
       "66.67",
       "6.66",
       true,
       "Quota ammortamento 6,66% (6,66 % del costo 1.000,00)"},
      {{Mov(2022, "100", "100")},
       2022,
       "33.33",
       "33.33",
       EsitoQuota::Quota,
       "33.33",
       "33.33",
       false,
       "Quota ammortamento 33,33% (33,33 % del costo 100,00)"},
      {{dal},
       2022,
       "20",
       "0",
       EsitoQuota::SenzaAliquota,
       "0",
       "0",
       false,
       "Manca la percentuale di ammortamento sulla categoria"},
      {{dal, Mov(2023, "390", "1000")},
       2024,
       "20",
       "10",
       EsitoQuota::Completo,
       "0",
       "20",
       false,
       "Ammortamento completato"},
      // Quotas of a later year are there already: what is left for this one is less.
      {{dal, Mov(2022, "400", "100"), Mov(2024, "400", "850")},
       2023,
       "20",
       "10",
       EsitoQuota::Quota,
       "50",
       "5",
       true,
       "Quota ammortamento 5% (5 % del costo 1.000,00)"},
  };
  assets::Cespite cespite;
  cespite.dal = G(1, 6, 2022);
  for (const Caso& caso : casi) {
    const auto quota = assets::CalcolaQuota(cespite, caso.righe,
                                            {"X", "", I(caso.perc), I(caso.perc1)}, caso.anno);
    EXPECT_EQ(quota.esito, caso.esito) << caso.testo;
    EXPECT_EQ(quota.importo, I(caso.importo)) << caso.testo;
    EXPECT_EQ(quota.aliquota, I(caso.aliquota)) << caso.testo;
    EXPECT_EQ(quota.completa, caso.completa) << caso.testo;
    EXPECT_EQ(quota.Testo(), caso.testo);
  }
}

TEST(PrevisioneCespite, FinoAlCompletamento) {
  assets::Cespite cespite;
  cespite.dal = G(1, 6, 2022);
  const assets::AliquoteCategoria categoria{"X", "", I("40"), I("20")};
  const std::vector<MovimentoCespite> righe = {Mov(2022, "100", "1000")};
  const auto mostra = [](const std::vector<assets::PuntoCespite>& punti) {
    std::string testo;
    for (const auto& p : punti) {
      testo += std::to_string(p.anno) + (p.previsto ? "* " : " ") + p.residuo.Testo() + "; ";
    }
    return testo;
  };
  EXPECT_EQ(mostra(PrevisioneCespite(cespite, righe, categoria, 10)),
            "2022* 800; 2023* 400; 2024* 0; ");
  EXPECT_EQ(mostra(PrevisioneCespite(cespite, righe, categoria, 1)), "2022* 800; ");
  std::vector<MovimentoCespite> venduto = righe;
  venduto.push_back(Mov(2022, "500", "900"));
  EXPECT_EQ(mostra(PrevisioneCespite(cespite, venduto, categoria, 10)), "2022 1000; ");
  EXPECT_EQ(mostra(PrevisioneCespite(cespite, righe, {}, 10)), "2022 1000; ");
}

}  // namespace
}  // namespace fenalto::prova
