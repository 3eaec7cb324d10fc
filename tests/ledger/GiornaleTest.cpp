// The legal journal: order, layout, amounts carried forward, the definitive print.
#include <map>
#include <random>

#include "core/reports/MisuraTesto.h"
#include "core/values/Testo.h"
#include "ledger/Stampati.h"
#include "ledger/journal/Giornale.h"

namespace fenalto::prova {

class GiornaleTest : public DittaDaStampare {
 protected:
  bool Stampa(const ledger::SceltaGiornale& scelta, Destinazione verso = Destinazione::Testo,
              Risposta definitiva = Risposta::No) {
    Verso(verso);
    dialoghi.Rispondera("STAMPA DEFINITIVA ?", definitiva);
    return giornale.Stampa(scelta);
  }
  static ledger::SceltaGiornale Scelta() {
    ledger::SceltaGiornale scelta;
    scelta.daDt = G(1, 1, 2024);
    scelta.aaDt = G(31, 12, 2024);
    return scelta;
  }
  [[nodiscard]] std::string Corpo() const {
    const std::string testo = uscite.Testo();
    return testo.substr(testo.find("---\n") + 4);
  }
  /// Numbers of the registrations in the order in which they stand.
  [[nodiscard]] std::vector<std::int64_t> Ordine() const {
    std::vector<std::int64_t> numeri;
    for (const auto& pagina : uscite.Righe()) {
      for (const std::string& riga : pagina)
        if (riga.starts_with("art.")) numeri.push_back(std::stoll(riga.substr(4)));
    }
    return numeri;
  }
  Valore Segno() { return Tessarc().Singolo("SELECT Max(dt) FROM UltimaDataLibro"); }

  /// Registrations enough for some pages, some with long texts.
  void ScriviMolti(int quanti) {
    std::mt19937 caso(17);
    Transazione transazione(ambiente.Basi());
    for (int numero = 1; numero <= quanti; ++numero) {
      const Importo importo =
          Importo::DaDecimillesimi(static_cast<std::int64_t>(1 + caso() % 5'000'000) * 100);
      const std::string testo = caso() % 5 == 0 ? std::string(caso() % 300, 'x') : "vendita";
      Articolo(2024, numero, G(1, 1, 2024).PiuGiorni(static_cast<int>(caso() % 360)),
               {{"P", "100.010", importo, "001", testo}, {"P", "700.010", -importo}});
    }
    transazione.Conferma();
  }
  ledger::Giornale giornale{ambiente, uscite};
};

TEST_F(GiornaleTest, Righe) {
  ambiente.ScriviImpostazione({}, "config", "ragsoc1 ", "ROSSI");
  ambiente.ScriviImpostazione({}, "config", "piva", "01234567897");
  Articolo(2024, 1, G(1, 1, 2024), {{"P", "100.010", I("9"), "APEX"}});
  Articolo(2024, 2, G(10, 2, 2024),
           {{"C", "0001", I("122"), "062", "fatt. 7"}, {"P", "700.010", I("-122")}}, "V1", 7);
  ledger::SceltaGiornale scelta = Scelta();
  scelta.daPag = 12;
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_EQ(Messaggi(),
            (std::vector<std::string>{
                "Ci sono saldi di apertura provvisori che non vengono stampati sul giornale"}));
  const std::string c1 =
      NzStr(ambiente.Cerca("tessarc", "Causali", {{"Cod", "062"}}, "Descrizione"));
  const std::string c2 =
      NzStr(ambiente.Cerca("tessarc", "Causali", {{"Cod", "001"}}, "Descrizione"));
  const auto largo = [](std::string testo, std::size_t n) {
    testo.resize(n, ' ');
    return testo;
  };
  EXPECT_EQ(uscite.Testo(),
            "                       LIBRO GIORNALE                  Anno/pag. 2024/12\n"
            "ROSSI\n"
            "Partita IVA 01234567897\n"
            "                                        Giornale contabilità dal 01/01/24 al "
            "31/12/24\n" +
                std::string(128, '=') +
                "\nDATA REG.CONTO  DESCRIZ.CONTO / CAUSALE / DESCRIZ. MOVIMENTO                    "
                "                               DARE       AVERE\n" +
                std::string(128, '-') +
                "\nart.      2                    10/02/24 n.protocollo Iva 7\n"
                "         0001     Clienti 0001 dell'Oro          " +
                largo(c1 + " fatt. 7", 46) +
                "         122,000\n"
                "         700.010  Corrispettivi                  " +
                largo(c2 + " prova", 46) + "                         122,000\n" +
                std::string(128, '=') + "\n" + largo("totali   dal 01/01/2024  al 31/12/2024", 95) +
                "         122,000         122,000\n");
  const auto& riga = std::get<reports::RigaFissa>(uscite.pagine[0].elementi[7]);
  EXPECT_EQ(riga.rinvio, AllaRegistrazione(2024, 2));

  scelta.stampaCompatta = true;
  scelta.intesto = false;
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_EQ(uscite.Testo().find("LIBRO GIORNALE"), std::string::npos);
  EXPECT_THAT(Corpo(), HasSubstr("10/02/24 0001   art. 2/prot 7 Clienti 0001 dell'Oro / " + c1 +
                                 " / fatt. 7 "));
  // A code too long for its place goes with the description.
  EXPECT_THAT(Corpo(), HasSubstr("\n                700.010 Corrispettivi / " + c2 + " / prova "));
}

TEST_F(GiornaleTest, Ordine) {
  const auto scrivi = [&](std::int64_t numero, int giorno, const char* riva, int nProt) {
    Articolo(2024, numero, G(giorno, 3, 2024), {{"P", "100.010", I("1")}}, riva, nProt);
  };
  scrivi(1, 2, "", 0);
  scrivi(2, 1, "", 0);
  scrivi(3, 2, "A1", 1);
  scrivi(4, 2, "V1", 1);
  scrivi(5, 2, "V1", 2);
  scrivi(6, 2, "", 0);
  Articolo(2023, 9, G(2, 3, 2024), {{"P", "100.010", I("1")}});  // another year's book
  ledger::SceltaGiornale scelta = Scelta();
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_EQ(Ordine(), (std::vector<std::int64_t>{2, 1, 3, 4, 5, 6}));
  EXPECT_TRUE(giornale.Proposta().perArticolo);
  // On one day sales before purchases, what has no register last.
  scelta.perArticolo = false;
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_EQ(Ordine(), (std::vector<std::int64_t>{2, 4, 5, 3, 1, 6}));
  EXPECT_FALSE(giornale.Proposta().perArticolo);
  scelta.daArticolo = 4;
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_EQ(Ordine(), (std::vector<std::int64_t>{4, 5, 6}));
  scelta.stampaNArticolo = false;
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_TRUE(Ordine().empty());
}

TEST_F(GiornaleTest, RiportiDiPagina) {
  ScriviMolti(150);
  for (const bool compatta : {false, true}) {
    ledger::SceltaGiornale scelta = Scelta();
    scelta.stampaCompatta = compatta;
    ASSERT_TRUE(Stampa(scelta));
    const auto pagine = uscite.Righe();
    ASSERT_GT(pagine.size(), 3U);
    const auto importi = [](const std::string& riga) { return riga.substr(98); };
    for (std::size_t p = 0; p + 1 < pagine.size(); ++p) {
      ASSERT_TRUE(pagine[p].back().starts_with("a riportare")) << pagine[p].back();
      const auto riporto = std::ranges::find_if(
          pagine[p + 1], [](const std::string& r) { return r.starts_with("riporto"); });
      ASSERT_NE(riporto, pagine[p + 1].end());
      EXPECT_EQ(importi(*riporto), importi(pagine[p].back()));
      // At most the line that a registration's first one couldn't share the page with.
      EXPECT_GE(pagine[p].size() + 1, pagine[0].size());
      // A registration's first line is never the last before the carried amounts.
      EXPECT_FALSE(pagine[p][pagine[p].size() - 2].starts_with("art."));
    }
    EXPECT_EQ(std::ranges::count_if(pagine[0],
                                    [](const std::string& r) { return r.starts_with("riporto"); }),
              0);
    const std::string totale =
        ::fenalto::reports::Sagoma(reports::PictureImporto("ççççççççççççççç", true))
            .Riempi(std::vector<Valore>{Tessarc().Singolo("SELECT Sum(ImpoDare) FROM Movimenti")});
    EXPECT_THAT(pagine.back().back(), HasSubstr(totale));
    EXPECT_TRUE(pagine.back().back().ends_with(totale));
  }
}

TEST_F(GiornaleTest, RiportiComeSommaDelleRighe) {
  ScriviMolti(120);
  ASSERT_TRUE(Stampa(Scelta()));
  const auto valore = [](std::string testo) {
    std::erase_if(testo, [](char c) { return c == ' ' || c == '.'; });
    std::ranges::replace(testo, ',', '.');
    return testo.empty() ? Importo() : Importo::DaTesto(testo).value();
  };
  Importo dare;
  Importo avere;
  for (const auto& pagina : uscite.Righe()) {
    for (const std::string& riga : pagina) {
      if (riga.starts_with("a riportare") || riga.starts_with("riporto")) {
        EXPECT_EQ(valore(riga.substr(96, 15)), dare);
        EXPECT_EQ(valore(riga.substr(112, 15)), avere);
      } else if (riga.starts_with("         ") && riga[9] != ' ' && riga.size() > 100) {
        dare += valore(riga.substr(96, 15));
        avere += riga.size() > 112 ? valore(riga.substr(112)) : Importo();
      }
    }
  }
  EXPECT_EQ(dare, Tessarc().Singolo("SELECT Sum(ImpoDare) FROM Movimenti").Importo());
  EXPECT_EQ(avere, dare);
}

TEST_F(GiornaleTest, DescrizioneLungaSenzaPerdite) {
  std::string lunga = "ΑΒΓΔ\t€ 1.000 per\r\nla fornitura";
  for (int i = 0; LunghezzaTesto(lunga) < 395; ++i) lunga += " parola" + std::to_string(i);
  lunga += std::string(60, 'Z');  // a word longer than its place
  Articolo(2024, 1, G(1, 2, 2024),
           {{"P", "100.010", I("1234567890123"), "", lunga}, {"P", "300.001", I("-0.005"), ""}});
  ASSERT_TRUE(Stampa(Scelta()));
  std::string letto;
  const auto normale = uscite.Righe();
  for (const std::string& riga : normale[0]) {
    EXPECT_EQ(riga.find_first_of("\t\r\n"), std::string::npos);
    if (LunghezzaTesto(riga) < 60 || !riga.starts_with("      ")) continue;
    letto += Mid(riga, 50, 46);
  }
  const auto senzaBianchi = [](std::string testo) {
    std::erase_if(testo, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    return testo;
  };
  EXPECT_THAT(senzaBianchi(letto), HasSubstr(senzaBianchi(lunga)));
  EXPECT_THAT(Corpo(), HasSubstr(" ***************\n"));  // never a part of an amount
  ledger::SceltaGiornale compatta = Scelta();
  compatta.stampaCompatta = true;
  ASSERT_TRUE(Stampa(compatta));
  const auto stretta = uscite.Righe();
  for (const std::string& riga : stretta[0]) EXPECT_LE(LunghezzaTesto(riga), 132U);
}

TEST_F(GiornaleTest, RigaConDueImporti) {
  Articolo(2024, 1, G(1, 2, 2024), {{"P", "100.010", I("5")}});
  Tessarc().Esegui("UPDATE Movimenti SET ImpoAvere=3");
  ASSERT_TRUE(Stampa(Scelta()));
  EXPECT_THAT(Corpo(), HasSubstr("           5,000           3,000\n"));
}

TEST_F(GiornaleTest, Definitiva) {
  Articolo(2024, 1, G(1, 2, 2024), {{"P", "100.010", I("1")}});
  ledger::SceltaGiornale scelta = Scelta();
  scelta.aaDt = G(30, 6, 2024);
  EXPECT_EQ(giornale.Proposta().daDt, G(1, 1, 2024));
  EXPECT_EQ(giornale.Proposta().aaDt, G(1, 2, 2024));
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_TRUE(Segno().Nullo());
  ASSERT_TRUE(Stampa(scelta, Destinazione::Testo, Risposta::Si));
  EXPECT_EQ(Segno().Data(), G(30, 6, 2024));
  EXPECT_EQ(giornale.Proposta().daDt, G(1, 7, 2024));
  EXPECT_EQ(giornale.Proposta().aaDt, G(1, 7, 2024));
  // An earlier period printed again leaves the mark where it is.
  scelta.aaDt = G(31, 3, 2024);
  ASSERT_TRUE(Stampa(scelta, Destinazione::Testo, Risposta::Si));
  EXPECT_EQ(Segno().Data(), G(30, 6, 2024));
  EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM UltimaDataLibro").Intero(), 1);
  EXPECT_EQ(Tessarc().Singolo("SELECT Anno FROM UltimaDataLibro").Intero(), 2024);
  // Days since the mark that no print had: asked, and left as it is unless the user goes on.
  Articolo(2024, 2, G(5, 7, 2024), {{"P", "100.010", I("1"), "APEX"}});
  Articolo(2024, 3, G(8, 7, 2024), {{"P", "100.010", I("1")}});
  Articolo(2024, 4, G(20, 7, 2024), {{"P", "100.010", I("1")}});
  scelta.daDt = G(8, 7, 2024);
  scelta.aaDt = G(15, 7, 2024);
  ASSERT_TRUE(Stampa(scelta, Destinazione::Testo, Risposta::Si));
  EXPECT_EQ(Segno().Data(), G(15, 7, 2024)) << "a provisional opening is in no book";
  Tessarc().Esegui("UPDATE UltimaDataLibro SET dt=#06/30/2024#");
  for (const auto& [daDt, daArticolo] :
       {std::pair{G(9, 7, 2024), 1}, {G(1, 7, 2024), 4}, {Data(), 4}}) {
    scelta.daDt = daDt;
    scelta.daArticolo = daArticolo;
    Verso(Destinazione::Testo);
    dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
    dialoghi.Rispondera("ne resterebbero fuori", Risposta::No);
    ASSERT_TRUE(giornale.Stampa(scelta));
    EXPECT_EQ(UltimaDomanda().substr(0, 44), "dal 08/07/2024 al 08/07/2024 ci sono registr");
    EXPECT_EQ(Segno().Data(), G(30, 6, 2024));
  }
  Verso(Destinazione::Testo);
  dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
  dialoghi.Rispondera("ne resterebbero fuori", Risposta::Si);
  ASSERT_TRUE(giornale.Stampa(scelta));
  EXPECT_EQ(Segno().Data(), G(15, 7, 2024));
  Tessarc().Esegui("UPDATE UltimaDataLibro SET dt=#06/30/2024#");
  // The year after goes on; the year before isn't held by it.
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_EQ(giornale.Proposta().daDt, G(1, 1, 2025));
  ASSERT_TRUE(ambiente.ScegliAnno(2023));
  EXPECT_EQ(giornale.Proposta().daDt, G(1, 1, 2023));
}

// The last mark lies in a year before, and that year went on after it.
TEST_F(GiornaleTest, DefinitivaConUnAnnoRimastoIndietro) {
  Articolo(2023, 1, G(10, 11, 2023), {{"P", "100.010", I("1")}});
  Articolo(2023, 2, G(5, 12, 2023), {{"P", "100.010", I("1"), "APEX"}});
  Articolo(2023, 3, G(12, 12, 2023), {{"P", "100.010", I("1")}});
  Articolo(2023, 4, G(30, 12, 2023), {{"P", "100.010", I("1")}});
  Articolo(2024, 1, G(1, 2, 2024), {{"P", "100.010", I("1")}});
  Tessarc().Inserisci("UltimaDataLibro", {{"Anno", 2023}, {"dt", G(30, 11, 2023)}});
  ledger::SceltaGiornale scelta = Scelta();
  for (const Risposta risposta : {Risposta::No, Risposta::Si}) {
    Verso(Destinazione::Testo);
    dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
    dialoghi.Rispondera("dal 12/12/2023 al 30/12/2023 ci sono registrazioni", risposta);
    ASSERT_TRUE(giornale.Stampa(scelta));
    EXPECT_EQ(Segno().Data(), risposta == Risposta::Si ? G(31, 12, 2024) : G(30, 11, 2023));
  }
  // That year printed whole, nothing is left behind.
  Tessarc().Esegui("DELETE * FROM UltimaDataLibro");
  Tessarc().Inserisci("UltimaDataLibro", {{"Anno", 2023}, {"dt", G(30, 12, 2023)}});
  ASSERT_TRUE(Stampa(scelta, Destinazione::Testo, Risposta::Si));
  EXPECT_EQ(Segno().Data(), G(31, 12, 2024));
}

// Its movements of before bear the old class.
TEST_F(GiornaleTest, ContoDallaClasseCambiata) {
  Articolo(2024, 1, G(1, 2, 2024), {{"P", "100.010", I("5")}});
  Tessarc().Esegui(
      "UPDATE Conti SET CFP='C', Descrizione='Cassa di una volta' WHERE Cod='100.010'");
  Tessarc().Esegui("DELETE * FROM ContiClientiFornitori WHERE CFP='P' AND Cod='100.010'");
  ledger::SceltaGiornale scelta = Scelta();
  ASSERT_TRUE(Stampa(scelta));
  EXPECT_THAT(Corpo(), HasSubstr("100.010  Cassa di una volta"));
  scelta.stGrafico = true;
  ASSERT_TRUE(Stampa(scelta, Destinazione::Pdf));
  EXPECT_THAT(uscite.Scritte(), ::testing::Contains("Cassa di una volta"));
}

TEST_F(GiornaleTest, LibroVuoto) {
  Articolo(2024, 1, G(1, 1, 2024), {{"P", "100.010", I("9"), "apex"}});
  ASSERT_TRUE(Stampa(Scelta()));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("provvisori"));
  EXPECT_EQ(Corpo().find("100.010"), std::string::npos);
  EXPECT_THAT(Corpo(), HasSubstr("0,000           0,000\n"));
  EXPECT_EQ(uscite.pagine.size(), 1U);
}

TEST_F(GiornaleTest, RifiutiRinunceEVideo) {
  ledger::SceltaGiornale scelta = Scelta();
  std::swap(scelta.daDt, scelta.aaDt);
  EXPECT_FALSE(giornale.Stampa(scelta));
  EXPECT_EQ(SoloMessaggio(),
            "la data iniziale 31/12/2024 è successiva a quella finale 01/01/2024: "
            "correggere il periodo");
  scelta = Scelta();
  scelta.aaDt = {};
  EXPECT_FALSE(giornale.Stampa(scelta));
  EXPECT_EQ(SoloMessaggio(), "manca la data finale: indicare il periodo");
  scelta = Scelta();
  scelta.daPag = 0;
  EXPECT_FALSE(giornale.Stampa(scelta));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("le pagine si numerano da 1 in su"));
  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(giornale.Stampa(Scelta()));
  ASSERT_TRUE(Stampa(Scelta(), Destinazione::Anteprima));
  EXPECT_EQ(SoloMessaggio(),
            "la stampa su 'video' del giornale non è formattata e serve solo per controllo.");
  // Cancelled half way: no output, no question.
  ScriviMolti(250);
  dialoghi.annullaDopo = 100;
  Verso(Destinazione::Testo);
  uscite.fini = 0;
  EXPECT_FALSE(giornale.Stampa(Scelta()));
  EXPECT_EQ(uscite.fini, 0);
  EXPECT_TRUE(uscite.pagine.empty());
}

TEST_F(GiornaleTest, FormaGraficaSenzaTagli) {
  const std::string nome = "Immobilizzazioni immateriali in corso e acconti a fornitori esteri";
  Tessarc().Esegui("UPDATE ContiClientiFornitori SET Descrizione='" + nome +
                   "' WHERE Cod='100.010' AND CFP='P'");
  for (const bool compatta : {false, true}) {
    Articolo(2024, compatta ? 2 : 1, G(1, 2, 2024),
             {{"P", "100.010", I("5.125"), "", nome + nome}});
    ledger::SceltaGiornale scelta = Scelta();
    scelta.stGrafico = true;
    scelta.stampaCompatta = compatta;
    scelta.daArticolo = compatta ? 2 : 1;
    ASSERT_TRUE(Stampa(scelta, Destinazione::Pdf));
    std::map<int, std::string> colonne;  // what stands in each, from top to bottom
    for (const auto& elemento : uscite.pagine[0].elementi) {
      if (const auto* scritta = std::get_if<reports::Scritta>(&elemento)) {
        colonne[scritta->x] += scritta->testo + " ";
        if (scritta->larghezza == 0) continue;
        EXPECT_LE(reports::LarghezzaTesto(scritta->testo, scritta->carattere), scritta->larghezza)
            << scritta->testo;
      }
    }
    EXPECT_THAT(colonne[6200], HasSubstr(nome));
    EXPECT_THAT(colonne[10100], HasSubstr(nome + nome));
    EXPECT_THAT(colonne[15700], HasSubstr("5,125 "));
  }
}

TEST_F(GiornaleTest, FormaGrafica) {
  ScriviMolti(150);
  ledger::SceltaGiornale scelta = Scelta();
  scelta.stGrafico = true;
  scelta.daPag = 5;
  ASSERT_TRUE(Stampa(scelta, Destinazione::Anteprima));
  EXPECT_TRUE(Messaggi().empty());  // the graphic form is formatted on the screen too
  const std::vector<std::string> scritte = uscite.Scritte();
  const auto conta = [&](const std::string& t) { return std::ranges::count(scritte, t); };
  const auto pagine = static_cast<std::ptrdiff_t>(uscite.pagine.size());
  ASSERT_GT(pagine, 3);
  EXPECT_EQ(conta("segue su pagina successiva"), pagine - 1);
  EXPECT_EQ(conta("a riportare"), pagine - 1);
  EXPECT_EQ(conta("riporto"), pagine - 1);
  EXPECT_EQ(conta("2024/5"), 1);
  EXPECT_EQ(conta("2024/" + std::to_string(4 + pagine)), 1);
  EXPECT_EQ(conta("LIBRO GIORNALE"), pagine);
  EXPECT_EQ(conta("GIORNALE DI TESSARC'"), 0);
  EXPECT_EQ(conta("totali   dal 01/01/2024  al 31/12/2024"), 1);
  EXPECT_EQ(conta("art. 77"), 1);
}

}  // namespace fenalto::prova
