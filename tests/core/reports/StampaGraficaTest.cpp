// Graphic mode: fields at their places, the mark of continuation, what is fixed on every page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/reports/AmbienteProva.h"
#include "core/reports/MisuraTesto.h"

namespace fenalto::reports {
namespace {

using testing::ElementsAre;

// Body from 50 to 100 mm, lines of 10: four lines and the mark.
constexpr const char* kModello = R"([pagina]
formato A4 verticale
linea x1 10 y1 45 x2 200 y2 45

[testata]
campo DITTA x 10 y 10 larghezza 100 grassetto punti 12
campo Pag x 180 y 10 larghezza 20 destra
campo PagTot x 200 y 10 larghezza 10

[corpo]
inizio 50
fine 100
riga 10
campo R_Descrizione x 10 larghezza 80
campo R_DARE x 100 y 1 larghezza 30 destra formato "##.###.###,##"
campo R_Dt x 140 larghezza 20

[piede]
campo TotaleDare x 100 y 110 larghezza 30 destra formato "##.###.###,##"
)";

class StampaGrafica : public testing::Test {
 protected:
  StampaGrafica() {
    ScriviFile(p.cartella / "TiProva.mod", kModello);
    p.Inizia(false);
  }
  void Prepara() {
    ASSERT_TRUE(stampa.Modello(p.cartella / "TiProva.mod"));
    stampa.ModoTesto(false);
    stampa.Intestazione([this] {
      stampa.CampoModello("ditta", "Rossi srl");
      stampa.CampoModello("Pag", stampa.NumeroPagina());
    });
  }
  void RigaCorpo(const std::string& testo) {
    stampa.CampoModello("R_DESCRIZIONE", testo, stampa.YCorrente());
    stampa.AvanzaRiga();
  }
  static std::vector<std::string> Testi(const Pagina& pagina) {
    std::vector<std::string> testi;
    for (const Elemento& elemento : pagina.elementi)
      if (const auto* scritta = std::get_if<Scritta>(&elemento)) testi.push_back(scritta->testo);
    return testi;
  }
  static const Scritta& Trova(const Pagina& pagina, const std::string& testo) {
    for (const Elemento& elemento : pagina.elementi)
      if (const auto* scritta = std::get_if<Scritta>(&elemento); scritta && scritta->testo == testo)
        return *scritta;
    throw std::runtime_error("manca " + testo);
  }

  AmbienteProva p;
  Stampa& stampa = p.stampa;
};

TEST_F(StampaGrafica, IlModelloRottoFermaIlRapporto) {
  EXPECT_FALSE(stampa.Modello(p.cartella / "manca.mod"));
  EXPECT_TRUE(p.dialoghi.HaDetto("manca.mod» non esiste"));
  ScriviFile(p.cartella / "rotto.mod", "[pagina]\nfromato A4\n");
  EXPECT_FALSE(stampa.Modello(p.cartella / "rotto.mod"));
  EXPECT_TRUE(p.dialoghi.HaDetto("rotto.mod», riga 2: parola sconosciuta «fromato»"));
  EXPECT_TRUE(p.visto.pagine.empty());
  EXPECT_THROW(stampa.ModoTesto(false), std::logic_error);
}

TEST_F(StampaGrafica, CampiAlLoroPosto) {
  Prepara();
  stampa.Dimensioni(12.5);
  const Rinvio rinvio = AllaRegistrazione(2026, 12);
  const double y = stampa.YCorrente();
  EXPECT_DOUBLE_EQ(y, 50);
  stampa.CampoModello("r_dare", Importo::DaTesto("-1234.5").value(), y, rinvio);
  stampa.CampoModello("R_DT", Data::DaGma(3, 2, 2026).value(), y);
  stampa.CampoModello("R_Assente", "non stampato", y);
  stampa.CampoModello("R_Descrizione", Valore(), y);
  stampa.AvanzaRiga();
  stampa.CampoModello("R_dare", 123456789, stampa.YCorrente());
  stampa.Filetto();
  stampa.CampoModello("TotaleDare", Importo::DaUnita(5));
  EXPECT_TRUE(stampa.Fine());

  ASSERT_EQ(p.visto.pagine.size(), 1U);
  const Pagina& pagina = p.visto.pagine[0];
  EXPECT_THAT(Testi(pagina), ElementsAre(kSegnoPagineTotali, "Rossi srl", "1", "-1.234,50",
                                         "03/02/2026", "*************", "5,00"));
  const Scritta& dare = Trova(pagina, "-1.234,50");
  EXPECT_EQ(dare.x, 10'250) << "spostata di 2,5 mm";
  EXPECT_EQ(dare.y, 5'100) << "1 mm sotto il capo della riga";
  EXPECT_EQ(dare.larghezza, 3'000);
  EXPECT_EQ(dare.allineamento, Allineamento::Destra);
  EXPECT_TRUE(dare.numero);
  EXPECT_EQ(dare.rinvio, rinvio);
  const Scritta& ditta = Trova(pagina, "Rossi srl");
  EXPECT_EQ(ditta.x, 1'250);
  EXPECT_EQ(ditta.carattere.corpo, 1'200);
  EXPECT_TRUE(ditta.carattere.grassetto);
  EXPECT_FALSE(ditta.numero);
  // What is fixed moves too, and the rule spans the body's fields.
  std::vector<Tratto> tratti;
  for (const Elemento& elemento : pagina.elementi)
    if (const auto* tratto = std::get_if<Tratto>(&elemento)) tratti.push_back(*tratto);
  ASSERT_EQ(tratti.size(), 2U);
  EXPECT_EQ(tratti[0].x1, 1'250);
  EXPECT_EQ(tratti[1].x1, 1'250);
  EXPECT_EQ(tratti[1].x2, 16'250);
  EXPECT_EQ(tratti[1].y1, 6'000);
}

TEST_F(StampaGrafica, InTestataUnNomeLungoSiScrivePiuPiccolo) {
  const std::string lungo = "OFFICINE MECCANICHE RIUNITE DI ROSSI GIUSEPPE E BIANCHI MARIO";
  Prepara();
  stampa.CampoModello("DITTA", lungo);
  RigaCorpo(lungo);
  EXPECT_TRUE(stampa.Fine());
  const Pagina& pagina = p.visto.pagine.at(0);
  std::vector<const Scritta*> scritte;
  for (const Elemento& elemento : pagina.elementi) {
    const auto* scritta = std::get_if<Scritta>(&elemento);
    if (scritta != nullptr && scritta->testo == lungo) scritte.push_back(scritta);
  }
  ASSERT_EQ(scritte.size(), 2U);
  EXPECT_LT(scritte[0]->carattere.corpo, 1'200);
  EXPECT_LE(LarghezzaTesto(lungo, scritte[0]->carattere), scritte[0]->larghezza);
  EXPECT_EQ(scritte[1]->carattere.corpo, 900) << "il corpo della pagina ha una grandezza sola";
}

TEST_F(StampaGrafica, LaPaginaPienaSegue) {
  Prepara();
  EXPECT_EQ(stampa.RigheLibere(), 4);
  for (int i = 1; i <= 5; ++i) RigaCorpo("riga " + std::to_string(i));
  EXPECT_EQ(stampa.RigheLibere(), 3);
  EXPECT_TRUE(stampa.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 2U);
  EXPECT_THAT(Testi(p.visto.pagine[0]),
              ElementsAre(kSegnoPagineTotali, "Rossi srl", "1", "riga 1", "riga 2", "riga 3",
                          "riga 4", "segue su pagina successiva"));
  EXPECT_EQ(Trova(p.visto.pagine[0], "segue su pagina successiva").y, 9'000);
  EXPECT_THAT(Testi(p.visto.pagine[1]),
              ElementsAre(kSegnoPagineTotali, "Rossi srl", "2", "riga 5"));
  EXPECT_EQ(Trova(p.visto.pagine[1], "riga 5").y, 5'000);
}

TEST_F(StampaGrafica, ChiFinisceConLaPaginaNonSegue) {
  Prepara();
  for (int i = 1; i <= 4; ++i) RigaCorpo("riga");
  EXPECT_EQ(stampa.RigheLibere(), 0);
  EXPECT_TRUE(stampa.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 1U);
  EXPECT_EQ(Testi(p.visto.pagine[0]).back(), "riga");
}

// A report may keep its own position and compare it with the page's measures.
TEST_F(StampaGrafica, ChiTieneIlProprioConto) {
  Prepara();
  double y = stampa.YCorrente();
  for (int i = 1; i <= 5; ++i) {
    if (stampa.AltezzaPagina() - stampa.MargineBasso() <= y) {
      stampa.CampoModello("R_DESCRIZIONE", "segue su pagina successiva", y);
      stampa.NuovaPagina();
      y = stampa.YCorrente();
    }
    stampa.CampoModello("R_DESCRIZIONE", "riga " + std::to_string(i), y);
    y += 10;
  }
  EXPECT_TRUE(stampa.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 2U);
  EXPECT_EQ(Testi(p.visto.pagine[0]).back(), "segue su pagina successiva");
  EXPECT_EQ(Testi(p.visto.pagine[1]).back(), "riga 5");
}

TEST_F(StampaGrafica, RiservaERigheVuote) {
  Prepara();
  RigaCorpo("uno");
  stampa.AvanzaRiga();
  stampa.Riserva(2);
  EXPECT_EQ(stampa.RigheLibere(), 2);
  EXPECT_EQ(stampa.NumeroPagina(), 1);
  stampa.Riserva(3);
  RigaCorpo("titolo");
  for (int i = 0; i < 3; ++i) stampa.AvanzaRiga();
  stampa.AvanzaRiga();  // on a full page the next line is the first of the new one
  EXPECT_DOUBLE_EQ(stampa.YCorrente(), 50);
  stampa.Fine();
  ASSERT_EQ(p.visto.pagine.size(), 3U);
  EXPECT_EQ(Testi(p.visto.pagine[0]).back(), "segue su pagina successiva");
  EXPECT_EQ(Trova(p.visto.pagine[1], "titolo").y, 5'000);
}

TEST_F(StampaGrafica, UnUscitaDiSoloTestoRestaInTesto) {
  p.Inizia(true);
  EXPECT_TRUE(stampa.SoloTesto());
  stampa.ModoTesto(false);
  stampa.Riga("testo");
  EXPECT_TRUE(stampa.Fine());
  EXPECT_THAT(Righe(p.visto.pagine.at(0)), ElementsAre("testo"));
}

TEST(PagineTotali, ChiTieneLePagineMetteIlNumero) {
  UscitaMemoria uscita(false);
  for (int i = 0; i < 12; ++i) {
    Pagina pagina;
    Scritta scritta;
    scritta.testo = "pag. 1 di " + std::string(kSegnoPagineTotali) + ", " + kSegnoPagineTotali;
    pagina.elementi.emplace_back(scritta);
    uscita.Aggiungi(pagina);
  }
  EXPECT_TRUE(uscita.Fine());
  EXPECT_EQ(std::get<Scritta>(uscita.Pagine()[3].elementi[0]).testo, "pag. 1 di 12, 12");
}

}  // namespace
}  // namespace fenalto::reports
