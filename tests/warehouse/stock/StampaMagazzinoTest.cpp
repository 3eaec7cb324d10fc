// The warehouse report: which products, which columns, totals that plain statements give; what is
// to be ordered again.
#include <rapidcheck.h>

#include "warehouse/stock/ColonneMagazzino.h"
#include "warehouse/stock/DaRiordinare.h"
#include "warehouse/stock/MagazzinoDiProva.h"
#include "warehouse/stock/StampaMagazzino.h"

namespace fenalto::prova {
namespace {

using warehouse::SceltaMagazzino;

class StampaMagazzinoTest : public MagazzinoDiProva {
 protected:
  StampaMagazzinoTest() {
    Metti(Tessarc(), "CodiciRiga", "Cod", "P3", "Descrizione", "Aste\nin ferro", "Scorta", I("10"),
          "QMinRiordino", I("50"), "CategoriaMag", "X1", "CostoDigitato", I("2"), "Ricarico",
          I("50"));
    Metti(Tessarc(), "CodiciRiga", "Cod", "P4", "Descrizione", "Zinco", "Scorta", I("4"));
    Metti(Tessarc(), "CodiciRiga", "Cod", "P5", "Descrizione", "Vecchio", "Scorta", I("4"),
          "FuoriUso", true);
    Metti(Tessarc(), "ContiClientiFornitori", "Cod", "X9", "CFP", "F", "Descrizione", "Ferro srl");
    Metti(Tessarc(), "prodottiFor_r", "Cod", "P3", "Posi", 1, "Fornitore", "X9", "codprfor", "A-3",
          "Prezzo", I("4"), "Sc1", I("50"));
    Metti(Tessarc(), "prodottiFor_r", "Cod", "P3", "Posi", 2, "Fornitore", "X8", "Prezzo", I("3"));
    Riga({.prodotto = "P1", .quantita = "10", .prezzo = "3"});
    Riga({.prodotto = "P2", .cs = "S", .quantita = "4", .tipo = "XS", .causale = "XS"});
    Riga({.prodotto = "P3", .quantita = "6", .prezzo = "5", .mag = "01"});
    Riga({.prodotto = "P3",
          .cs = "S",
          .quantita = "1",
          .dt = G(1, 3, 2024),
          .mag = "01",
          .tipo = "XS",
          .causale = "XS"});
    Riga({.prodotto = "P4", .quantita = "5"});
    Riga({.prodotto = "P4", .cs = "S", .quantita = "1", .dt = G(31, 12, 2023), .tipo = "XS"});
  }

  static SceltaMagazzino Con(std::vector<std::string> colonne = {"codice", "esistenza"}) {
    SceltaMagazzino scelta;
    scelta.colonne = std::move(colonne);
    return scelta;
  }
  /// Codes shown, parted by blanks.
  std::string Codici(const SceltaMagazzino& scelta) {
    std::string codici;
    warehouse::ScorriMagazzino(
        ambiente, scelta, false, [] { return true; },
        [&](const warehouse::RigaMagazzino& riga) {
          codici += (codici.empty() ? "" : " ") + riga.prodotto.cod;
          return true;
        });
    return codici;
  }

  warehouse::StampaMagazzino stampa_{ambiente, uscite};
};

struct CasoScelta {
  const char* nome;
  std::function<void(SceltaMagazzino&)> prepara;
  const char* codici;
};

class SceltaMagazzinoTest : public StampaMagazzinoTest,
                            public ::testing::WithParamInterface<CasoScelta> {};

TEST_P(SceltaMagazzinoTest, QualiProdotti) {
  SceltaMagazzino scelta = Con();
  GetParam().prepara(scelta);
  EXPECT_EQ(Codici(scelta), GetParam().codici);
  // Each product by itself gives the same ones.
  if (!scelta.perDescrizione) {
    scelta.perDescrizione = true;
    EXPECT_EQ(Codici(scelta).size(), std::string(GetParam().codici).size());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Scelte, SceltaMagazzinoTest,
    ::testing::Values(
        CasoScelta{"Tutti", [](auto&) {}, "P1 P2 P3 P4 P5"},
        CasoScelta{"PerDescrizione", [](auto& s) { s.perDescrizione = true; }, "P3 P2 P5 P1 P4"},
        CasoScelta{"Intervallo",
                   [](auto& s) {
                     s.prodotti.daCodiceRiga = "p2";
                     s.prodotti.aaCodiceRiga = "P3";
                   },
                   "P2 P3"},
        CasoScelta{"Categoria", [](auto& s) { s.prodotti.soloCategoriaMag = "X1"; }, "P3"},
        CasoScelta{"Fornitore", [](auto& s) { s.prodotti.soloFornitore = "X8"; }, "P3"},
        CasoScelta{"SottoScorta", [](auto& s) { s.soloSottoScorta = true; }, "P2 P3 P5"},
        CasoScelta{"Esistenti", [](auto& s) { s.soloEsistenti = true; }, "P1 P2 P3 P4"},
        CasoScelta{"EsistentiInMagazzino",
                   [](auto& s) {
                     s.soloEsistenti = true;
                     s.soloMag = "01";
                   },
                   "P3"},
        CasoScelta{"FinoAl",
                   [](auto& s) {
                     s.soloEsistenti = true;
                     s.finoAl = G(1, 2, 2024);
                   },
                   ""},
        CasoScelta{"Negativi", [](auto& s) { s.soloNegativi = true; }, "P2"},
        CasoScelta{"FermiDal", [](auto& s) { s.fermiDal = G(1, 3, 2024); }, "P1 P2 P4 P5"},
        // Today is 15/03/2024: the unload of the year before counts too.
        CasoScelta{"FermiDaMesi", [](auto& s) { s.mesiFermi = 3; }, "P1 P5"},
        CasoScelta{"FermiEsistenti",
                   [](auto& s) {
                     s.mesiFermi = 1;
                     s.soloEsistenti = true;
                   },
                   "P1 P2 P4"}),
    [](const auto& caso) { return std::string(caso.param.nome); });

TEST_F(StampaMagazzinoTest, DiTesto) {
  Verso(Destinazione::Testo);
  SceltaMagazzino scelta = Con({"codice", "descrizione", "costoFornitore", "esistenza",
                                "valoreUltimo", "prezzoRicaricato", "ricarico"});
  scelta.stampoSoloDiversi0 = true;
  EXPECT_TRUE(stampa_.Stampa(scelta));
  const std::string testo = uscite.Testo();
  for (const char* parte :
       {"SITUAZIONE MAGAZZINO anno  2024 tutti i prodotti                                    "
        "situazione al 15/03/24\n",
        "codice             descrizione                              costo fornit.     Esistenza  "
        "      valore  prezzo(%ric) %ricar\n",
        "P3                 Aste                                              2,00          5,00  "
        "       25,00          7,50  50,00\n"
        "                                                                     3,00\n",
        "TOTALE 4 prodotti", "         55,00\n",
        "valore totale: al costo digitato 10,00, al costo ultimo 55,00, al costo medio 55,00\n"}) {
    EXPECT_THAT(testo, HasSubstr(parte));
  }
  EXPECT_THAT(testo, Not(HasSubstr("Vecchio")));
}

TEST_F(StampaMagazzinoTest, SulFoglio) {
  const reports::Foglio foglio = stampa_.Foglio(Con({"codice", "costoFornitore", "valoreUltimo"}));
  ASSERT_EQ(foglio.colonne.size(), 3U);
  EXPECT_EQ(foglio.righe.at(2).at(1).Testo(), "X9 2,00; X8 3,00");
  EXPECT_EQ(foglio.righe.at(5).at(2).Importo(), I("55"));
  EXPECT_EQ(stampa_.Foglio(Con({})).colonne.size(), 0U);
  EXPECT_EQ(SoloMessaggio(), "scegliere almeno una colonna da stampare");
  SceltaMagazzino scelta = Con();
  scelta.mesiFermi = 2;
  scelta.fermiDal = G(1, 1, 2024);
  EXPECT_FALSE(stampa_.Stampa(scelta));
  EXPECT_EQ(stampa_.CampoRifiutato(), "MesiFermi");
  scelta = Con();
  scelta.prodotti.daCodiceRiga = "ZZ";
  EXPECT_FALSE(stampa_.Stampa(scelta));
  EXPECT_THAT(Messaggi(), Contains(HasSubstr("nessun prodotto")));
}

/// Each column has its own cell, and what is ticked is remembered.
TEST_F(StampaMagazzinoTest, TutteLeColonne) {
  std::vector<std::string> tutte;
  for (const auto& colonna : warehouse::ColonneMagazzino()) tutte.emplace_back(colonna.nome);
  const warehouse::TabellaMagazzino tabella(ambiente, tutte);
  ASSERT_EQ(tabella.Tabella().Tutte().size(), tutte.size());
  warehouse::RigaMagazzino riga;
  riga.prodotto.codIva = "22";
  riga.esistenza.esistenza = I("7");
  riga.costi.medio = I("8");
  const auto celle = tabella.Tabella().Celle({&riga, "", false});
  const auto cella = [&](const char* nome) {
    return celle.at(static_cast<std::size_t>(std::ranges::find(tutte, nome) - tutte.begin()));
  };
  EXPECT_EQ(cella("codIva").Testo(), "22");
  EXPECT_EQ(cella("esistenza").Importo(), I("7"));
  EXPECT_EQ(cella("costoMedio").Importo(), I("8"));
  warehouse::RicordaColonne(ambiente, {"codice", "sc3"});
  EXPECT_THAT(warehouse::ColonneRicordate(ambiente), ElementsAre("codice", "sc3"));
  Verso(Destinazione::Pdf);
  SceltaMagazzino scelta = Con(tutte);
  scelta.stGrafico = true;
  EXPECT_TRUE(stampa_.Stampa(scelta));
}

TEST_F(StampaMagazzinoTest, ProdottiDaRiordinare) {
  Metti(Tessarc(), "OrdiniFor_r", "TipoDoc", "O", "NumDoc", 1, "Posi", 1, "CodiceRiga", "P4",
        "Quantita", I("1"));
  Metti(Tessarc(), "OrdiniCli_r", "TipoDoc", "O", "NumDoc", 1, "Posi", 1, "CodiceRiga", "P4",
        "Quantita", I("4"));
  std::string testo;
  const auto voci = warehouse::DaRiordinare(ambiente, {});
  ASSERT_TRUE(voci.has_value());
  for (const auto& v : *voci) {
    testo += v.fornitore + " " + v.nomeFornitore + " " + v.prodotto + " " + v.codPrFor + " " +
             v.descrizione + " " + v.disponibile.Testo() + " " + v.daOrdinare.Testo() + " " +
             v.costo.Testo() + "|";
  }
  EXPECT_EQ(testo, "  P2  Dado 4 -4 4 0|  P4  Zinco 2 2 0|X9 Ferro srl P3 A-3 Aste 5 50 2|");
}

/// Random stock: the report's grand totals are those of plain statements.
TEST_F(StampaMagazzinoTest, TotaliComeIStatement) {
  EXPECT_TRUE(rc::check("totals equal plain statements", [this] {
    const auto quantita = *rc::gen::container<std::vector<int>>(rc::gen::inRange(-500, 3'000));
    TransazioneComune transazione(ambiente.Basi(), Transazione::Ambito::Tessarc);
    Tessarc().Esegui("delete * from FattureCli_r");
    int i = 0;
    for (const int q : quantita) {
      const char* prodotti[] = {"P1", "P2", "P3", "P4"};
      const std::string quanto = Importo::DaDecimillesimi(q * 1'000).Testo();
      Riga({.prodotto = prodotti[++i % 4],
            .cs = i % 3 == 0 ? "S" : "C",
            .quantita = quanto.c_str(),
            .mag = i % 2 == 0 ? "01" : "",
            .numero = i});
    }
    transazione.Conferma();
    const bool perDescrizione = *rc::gen::arbitrary<bool>();
    SceltaMagazzino scelta = Con({"codice", "valoreDigitato", "esistenza"});
    scelta.perDescrizione = perDescrizione;
    const reports::Foglio foglio = stampa_.Foglio(scelta);
    const Importo totale =
        Tessarc()
            .Singolo(
                "SELECT Sum(IIf(FattureCli_r.CS='C',1,-1)*FattureCli_r.Quantita*"
                "CodiciRiga.CostoDigitato) FROM FattureCli_r INNER JOIN CodiciRiga ON "
                "FattureCli_r.CodiceRiga=CodiciRiga.Cod WHERE FattureCli_r.Anno=2024")
            .Importo();
    Importo letto;
    for (const auto& riga : foglio.righe) {
      if (riga.at(0).Testo().starts_with("TOTALE")) letto = riga.at(2).Importo();
    }
    RC_ASSERT(letto == totale);
  }));
}

}  // namespace
}  // namespace fenalto::prova
