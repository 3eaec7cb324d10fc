// A described report: one table, from which paper, model and sheet come; breaks and amounts carried
// from page to page.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/reports/AmbienteProva.h"
#include "core/reports/Rapporto.h"
#include "core/session/CartellaProva.h"

namespace fenalto::reports {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Vendita {
  std::string zona;
  std::string cliente;
  std::int64_t fattura = 0;
  Importo importo;
};

Tabella<Vendita> TabellaVendite(bool conZona) {
  return Tabella<Vendita>(
      {{{"zona", "$$$$", "R_ZONA", "", {"Zona"}, false, conZona}, &Vendita::zona},
       {{"cliente", "|$$$$$$$$", "R_CLIENTE", "", {"Cliente"}}, &Vendita::cliente},
       {{"fatt.", " ######,", "R_NFAT", "", {"Fattura", Tipo::Intero}, false, true, true},
        &Vendita::fattura},
       {{"importo", "|##.###,##|", "R_IMPORTO", "R_TOTIMPORTO", {"Importo", Tipo::Importo}, true},
        &Vendita::importo}});
}

const std::vector<Vendita> kVendite = {{"nord", "Rossi", 1, Importo::DaUnita(10)},
                                       {"nord", "Verdi", 2, Importo::DaUnita(20)},
                                       {"sud", "Bianchi", 3, Importo::DaUnita(400)}};

class RapportoTest : public testing::Test {
 protected:
  bool Apri(const Tabella<Vendita>& tabella, bool grafico, std::function<void()> testata) {
    rapporto.Tavola(tabella, "R_SCRITTATOT", "Cliente");
    p.dialoghi.ScegliaUscita(SceltaUscita{});
    p.fabbrica.prossima = std::make_unique<UscitaSpia>(!grafico, p.visto);
    Cornice cornice{"vendite", "Vendite"};
    cornice.grafico = grafico;
    return rapporto.Apri(cornice, std::move(testata));
  }
  /// The walk: a total for each zone and one of all.
  void Scorri(const Tabella<Vendita>& tabella) {
    Rotture<Vendita> rotture(tabella,
                             {{[](const Vendita& a, const Vendita& b) { return a.zona == b.zona; },
                               {},
                               [this](const Vendita& v, const Somme& somme) {
                                 rapporto.Totale("tot. " + v.zona, somme);
                               }}});
    for (const Vendita& vendita : kVendite) {
      const std::vector<Valore> celle = tabella.Celle(vendita);
      rotture.Riga(vendita, celle);
      rapporto.RigaTavola(celle);
    }
    rotture.Fine();
    rapporto.Filo("=");
    rapporto.Totale("TOTALE", rotture.Generali());
  }

  /// A report is a company's.
  struct ConDitta : AmbienteProva {
    ConDitta() {
      CreaDittaProva(OpzioniProva(cartella.Percorso()), "Prova", {{2024, true}});
      if (!ambiente.ApriDitta("Prova", 2024)) throw std::runtime_error("Prova non si apre");
    }
  };

  ConDitta p;
  Rapporto rapporto{p.ambiente, p.fabbrica};
};

TEST_F(RapportoTest, LaTabellaSuTesto) {
  const auto tabella = TabellaVendite(false);
  ASSERT_TRUE(Apri(tabella, false, [this] { rapporto.Titoli(); }));
  Scorri(tabella);
  ASSERT_TRUE(rapporto.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 1U);
  EXPECT_THAT(Righe(p.visto.pagine[0]),
              ElementsAre("============================",  //
                          "|cliente    fatt.|  importo|",  //
                          "----------------------------",  //
                          "|Rossi          1|    10,00|",  //
                          "|Verdi          2|    20,00|",  //
                          "tot. nord        |    30,00|",  //
                          "|Bianchi        3|   400,00|",  //
                          "tot. sud         |   400,00|",  //
                          "============================",  //
                          "TOTALE           |   430,00|"));
}

TEST_F(RapportoTest, LoStessoGiroSulFoglioConTutteLeColonne) {
  const auto tabella = TabellaVendite(false);
  rapporto.Tavola(tabella, "R_SCRITTATOT", "Cliente");
  Foglio foglio;
  rapporto.ApriFoglio(foglio, {{"Vendite"}});
  Scorri(tabella);
  ASSERT_TRUE(rapporto.Fine());
  std::vector<std::string> righe;
  for (const auto& riga : foglio.righe) {
    std::string& testo = righe.emplace_back();
    for (const Valore& cella : riga) testo += cella.Neutro() + ";";
  }
  EXPECT_THAT(righe, ElementsAre("nord;Rossi;1;10;", "nord;Verdi;2;20;", ";tot. nord;;30;",
                                 "sud;Bianchi;3;400;", ";tot. sud;;400;", ";TOTALE;;430;"));
  EXPECT_THAT(foglio.totali, ElementsAre(2U, 4U, 5U));
  EXPECT_EQ(foglio.colonne[2].tipo, Tipo::Intero);
  EXPECT_EQ(foglio.premessa.back().front().Testo(), "Vendite");
}

TEST_F(RapportoTest, IlModelloSiDisegnaDalleColonneScelte) {
  const auto tabella = TabellaVendite(true);
  ASSERT_TRUE(Apri(tabella, true, [this] { rapporto.Titolo("TITOLO", "Vendite"); }));
  Scorri(tabella);
  ASSERT_TRUE(rapporto.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 1U);
  std::string testi;
  const Scritta* codice = nullptr;
  const Scritta* importo = nullptr;
  for (const Elemento& elemento : p.visto.pagine[0].elementi) {
    const auto* scritta = std::get_if<Scritta>(&elemento);
    if (scritta == nullptr) continue;
    testi += scritta->testo + ";";
    if (scritta->testo == "2") codice = scritta;
    if (scritta->testo == "20,00") importo = scritta;
  }
  EXPECT_THAT(testi, HasSubstr("zona;cliente;fatt.;importo;"));
  EXPECT_THAT(testi, HasSubstr("nord;Rossi;1;10,00;nord;Verdi;2;20,00;tot. nord;30,00;"));
  ASSERT_TRUE(codice != nullptr && importo != nullptr);
  // The number of an invoice is a name: cut where it is too long, never starred out.
  EXPECT_FALSE(codice->numero);
  EXPECT_TRUE(importo->numero);
  EXPECT_EQ(importo->allineamento, Allineamento::Destra);
  EXPECT_GT(importo->x, codice->x);
}

TEST_F(RapportoTest, UnTestoLungoVaACapoTuttoInsieme) {
  // Four body lines and the mark.
  std::filesystem::create_directories(p.cartella / "Ini");
  ScriviFile(p.cartella / "Ini" / "TiLungo.mod",
             "[corpo]\ninizio 50\nfine 100\nriga 10\ncampo R_DESCRIZIONE x 10 larghezza 60 acapo\n"
             "campo R_IMPORTO x 80 larghezza 30 destra\n");
  p.dialoghi.ScegliaUscita(SceltaUscita{});
  p.fabbrica.prossima = std::make_unique<UscitaSpia>(false, p.visto);
  Cornice cornice{"vendite", "Vendite", "TiLungo", 80, true};
  bool preparata = false;
  cornice.prepara = [&] { return preparata = true; };
  ASSERT_TRUE(rapporto.Apri(cornice, [] {}));
  EXPECT_TRUE(preparata);
  const Fascia riga{"", {"R_DESCRIZIONE", "R_IMPORTO"}};
  const std::string lungo =
      "Costruzioni generali fratelli Martinelli & associati società per azioni";
  for (int i = 1; i <= 3; ++i) rapporto.Riga(riga, {"breve", i});
  rapporto.Riga(riga, {lungo, 4});
  rapporto.Riga(riga, {"dopo", 5});
  ASSERT_TRUE(rapporto.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 2U);
  std::vector<std::string> testi;
  std::vector<int> quote;
  for (const Elemento& elemento : p.visto.pagine[1].elementi) {
    if (const auto* scritta = std::get_if<Scritta>(&elemento)) {
      testi.push_back(scritta->testo);
      quote.push_back(scritta->y);
    }
  }
  ASSERT_EQ(testi.size(), 5U) << "le due righe del nome stanno sulla stessa pagina";
  EXPECT_EQ(testi[0] + " " + testi[2], lungo);
  EXPECT_EQ(testi[1], "4") << "l'importo sta una volta sola, sulla prima riga";
  EXPECT_THAT(quote, ElementsAre(5'000, 5'000, 6'000, 7'000, 7'000));
}

TEST_F(RapportoTest, UnTitoloPiuLargoDellaColonnaVaACapo) {
  const Colonne colonne({{"n. di fattura", "$$$$$$$"},
                         {"propone la descrizione", " $$$$$$$$$$$", "R_P"},
                         {"importo", " #####,##"}});
  EXPECT_THAT(colonne.Titoli(), ElementsAre("n. di   propone la          ",  //
                                            "fattura descrizione  importo"));
  // Drawn, the box of captions grows with them and the body begins below.
  std::vector<Colonna> strette;
  for (int i = 0; i < 14; ++i) {
    strette.push_back({"propone la descrizione", "$$$", "R_C" + std::to_string(i)});
  }
  const auto modello = ModelloStampa::DaTesto(Colonne(strette).Modello(""), "prova").Valore();
  EXPECT_TRUE(modello.Formato().Orizzontale());
  EXPECT_EQ(modello.InizioCorpo(), 4'640);
}

TEST_F(RapportoTest, LePagineSiPassanoGliImporti) {
  const auto tabella = TabellaVendite(false);
  ASSERT_TRUE(Apri(tabella, false, [this] { rapporto.RigaTesto("testata"); }));
  Importo somma;
  rapporto.Riporta(Riporto{{"$$$$$$$$$$$$ ####", {}}, [&] { return std::vector<Valore>{somma}; }});
  while (p.visto.pagine.empty()) {
    rapporto.Spazio(1);
    rapporto.Riga({"riga"}, {});
    somma += Importo::DaUnita(1);
  }
  rapporto.Spazio(1, true);
  ASSERT_TRUE(rapporto.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 2U);
  // 96 lines a page: heading and "a riportare" leave 94.
  EXPECT_EQ(Righe(p.visto.pagine[0]).size(), 96U);
  EXPECT_EQ(Righe(p.visto.pagine[0]).back(), "a riportare    94");
  EXPECT_EQ(Righe(p.visto.pagine[1])[1], "riporto        94");
}

TEST_F(RapportoTest, SenzaNullaDaStampareSiDice) {
  const auto prova = [this](std::int64_t quanti) {
    return Trovati(p.ambiente, [=] { return quanti; }, [] { return "nessuna vendita"; });
  };
  EXPECT_EQ(prova(0), 0);
  EXPECT_EQ(prova(3), 3);
  EXPECT_THAT(p.dialoghi.messaggi, ElementsAre("nessuna vendita"));
}

}  // namespace
}  // namespace fenalto::reports
