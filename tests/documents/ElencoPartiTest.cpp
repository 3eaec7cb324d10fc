// Lists of customers and suppliers: which parties, in what order, what is told of each, the figures
// of their accounts.
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "core/session/Utenti.h"
#include "documents/parties/ElencoParti.h"
#include "ledger/Stampati.h"

namespace fenalto::prova {
namespace {

class ElencoPartiTest : public DittaDaStampare {
 protected:
  ElencoPartiTest() {
    Tessarc().Inserisci("Categorie", {{"Cod", "XG"}, {"Descrizione", "grossisti"}});
    Tessarc().Inserisci("Agenti", {{"Cod", "X1"}, {"Descrizione", "Verdi Anna"}});
    Cambia("Clienti", "0001", "ragsoc1='Zorzi', Categoria='XG', Agente='X1'");
    Cambia("Clienti", "0002", "ragsoc1='alfa', Categoria='XG'");
    Cambia("Clienti", "0003", "ragsoc1='Beta', Agente='x1'");
    Cambia("Fornitori", "0002", "Categoria='XG'");
  }
  void Cambia(const char* tabella, const char* cod, const std::string& campi) {
    Tessarc().Esegui(std::string("update ") + tabella + " set " + campi + " where Cod='" + cod +
                     "'");
  }
  static documents::SceltaElencoParti Scelta(
      const std::function<void(documents::SceltaParti&)>& restringi) {
    documents::SceltaElencoParti scelta;
    restringi(scelta.parti);
    return scelta;
  }
  static documents::SceltaElencoParti Dettagliata(const char* cfp, const char* cod) {
    return Scelta([&](documents::SceltaParti& s) {
      s.cfp = cfp;
      s.daCod = s.aCod = cod;
      s.dettagliato = true;
    });
  }
  std::string Testo(const documents::SceltaElencoParti& scelta) {
    Verso(Destinazione::Testo);
    EXPECT_TRUE(documents::ElencoParti(ambiente, uscite).Stampa(scelta));
    return uscite.Testo();
  }
  reports::Foglio FoglioDi(const documents::SceltaElencoParti& scelta) {
    return documents::ElencoParti(ambiente, uscite).FoglioParti(scelta);
  }
  /// Codes of the sheet, in their order.
  std::vector<std::string> Codici(const documents::SceltaElencoParti& scelta) {
    const reports::Foglio foglio = FoglioDi(scelta);
    std::vector<std::string> codici;
    for (std::size_t i = 0; i + 1 < foglio.righe.size(); ++i)
      codici.push_back(foglio.righe[i][0].Testo());
    return codici;
  }
  /// A cell by its column's title.
  static Valore Cella(const reports::Foglio& foglio, std::size_t riga, std::string_view titolo) {
    for (std::size_t c = 0; c < foglio.colonne.size(); ++c)
      if (foglio.colonne[c].titolo == titolo) return foglio.righe.at(riga).at(c);
    ADD_FAILURE() << "manca la colonna " << titolo;
    return {};
  }
  static bool HaColonna(const reports::Foglio& foglio, std::string_view titolo) {
    return std::any_of(
        foglio.colonne.begin(), foglio.colonne.end(),
        [&](const reports::ColonnaFoglio& colonna) { return colonna.titolo == titolo; });
  }
};

TEST_F(ElencoPartiTest, ChiEInCheOrdine) {
  struct Caso {
    const char* quale;
    std::function<void(documents::SceltaParti&)> scelta;
    std::vector<std::string> codici;
  };
  const Caso casi[] = {
      {"tutti", [](documents::SceltaParti&) {}, {"0001", "0002", "0003"}},
      {"dal", [](documents::SceltaParti& s) { s.daCod = "0002"; }, {"0002", "0003"}},
      {"al", [](documents::SceltaParti& s) { s.aCod = "0002"; }, {"0001", "0002"}},
      {"uno", [](documents::SceltaParti& s) { s.daCod = s.aCod = "0002"; }, {"0002"}},
      {"categoria", [](documents::SceltaParti& s) { s.categoria = "xg"; }, {"0001", "0002"}},
      {"agente", [](documents::SceltaParti& s) { s.agente = "X1"; }, {"0001", "0003"}},
      {"insieme",
       [](documents::SceltaParti& s) {
         s.daCod = "0001";
         s.categoria = "XG";
         s.agente = "X1";
       },
       {"0001"}},
      {"per nome", [](documents::SceltaParti& s) { s.perNome = true; }, {"0002", "0003", "0001"}},
      // An agent doesn't narrow suppliers, who have none.
      {"fornitori",
       [](documents::SceltaParti& s) {
         s.cfp = "F";
         s.categoria = "XG";
         s.agente = "X1";
       },
       {"0002"}},
  };
  for (const Caso& caso : casi) EXPECT_EQ(Codici(Scelta(caso.scelta)), caso.codici) << caso.quale;
}

TEST_F(ElencoPartiTest, QuelCheNonSiStampa) {
  documents::ElencoParti elenco(ambiente, uscite);
  EXPECT_FALSE(elenco.Stampa(Scelta([](documents::SceltaParti& s) {
    s.daCod = "0002";
    s.aCod = "0001";
  })));
  EXPECT_EQ(SoloMessaggio(), "il codice iniziale 0002 viene dopo quello finale 0001");
  const documents::SceltaElencoParti nessuno = Scelta([](documents::SceltaParti& s) {
    s.daCod = "5";
    s.categoria = "XG";
  });
  EXPECT_FALSE(elenco.Stampa(nessuno));
  EXPECT_EQ(SoloMessaggio(), "nessun cliente da stampare: codici da 5, categoria XG grossisti");
  EXPECT_THAT(elenco.FoglioParti(nessuno).colonne, IsEmpty());
  EXPECT_EQ(Messaggi().size(), 1U);
  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(elenco.Stampa({}));
  EXPECT_THAT(Messaggi(), IsEmpty());
}

TEST_F(ElencoPartiTest, Sintetico) {
  Cambia("Clienti", "0001",
         "ragsoc2='di Zorzi Ugo', localita='Lecco', Prov='LC', telefono1='', telefono2='0341 1', "
         "piva='01234567890'");
  EXPECT_THAT(
      Testo(Scelta([](documents::SceltaParti& s) { s.agente = "X1"; })),
      AllOf(
          HasSubstr("ELENCO CLIENTI\ntutti i codici, agente X1 Verdi Anna\n"),
          HasSubstr("\n0001       Zorzi                                             Lecco         "
                    "               LC 0341 1               01234567890\n"
                    "           di Zorzi Ugo\n"
                    "0003       Beta\n"),
          HasSubstr("\nTOTALE CLIENTI: 2\n"), Not(HasSubstr("s.do iniz."))));
}

TEST_F(ElencoPartiTest, DettagliatoDiceSoloQuelCheCe) {
  Cambia("Clienti", "0001",
         "ragsoc2='di Zorzi Ugo', indirizzo='Via Roma 1', cap='23900', localita='Lecco', "
         "Prov='LC', telefono1='0341 1', telefono2='0341 2', EMail='zorzi@esempio.it', "
         "Contatto2='Ugo', TelContatto2='333', piva='01234567890', Fido=1500, Banca='Banca "
         "Popolare', CinInt='IT60', Cin='X', Abi='05428', CAB='11101', ContoBanca='000000123456', "
         "ContropFatture='XNO'");
  const std::string testo = Testo(Dettagliata("C", "0001"));
  EXPECT_THAT(
      testo,
      AllOf(HasSubstr("ELENCO CLIENTI - ANAGRAFICA E CONTABILE\n"),
            HasSubstr("codici da 0001 a 0001 - saldi anno 2024\n"),
            HasSubstr("  indirizzo      Via Roma 1   "),
            HasSubstr("  telefono       0341 1 - 0341 2\n"),
            HasSubstr("  località       23900 Lecco (LC)  "),
            HasSubstr("  e-mail         zorzi@esempio.it\n"),
            HasSubstr("  contatti       Ugo 333\n"), HasSubstr("  conto riepil.  120.001 "),
            HasSubstr("  categoria      XG grossisti"),
            HasSubstr("  agente         X1 Verdi Anna\n"), HasSubstr("  fido           1.500,00"),
            HasSubstr("  coordinate     IT60 X 05428 11101 000000123456\n")));
  // A code that has no entry is told as it is; what isn't filled is not told.
  EXPECT_THAT(testo, AllOf(HasSubstr("  contropartita  XNO   "), Not(HasSubstr("fax")),
                           Not(HasSubstr("vettore")), Not(HasSubstr("bic"))));
  EXPECT_THAT(Testo(Dettagliata("F", "0003")),
              AllOf(HasSubstr("0003       Fornitori 0003 dell'Oro"),
                    Not(HasSubstr("conto riepil.")), HasSubstr("TOTALE FORNITORI: 1")));
}

// Long texts go on below; a note of several lines would break the columns.
TEST_F(ElencoPartiTest, TestiLunghi) {
  const std::string posta(60, 'p');
  Cambia("Clienti", "0001", "EMail='" + posta + "', indirizzo='riga\r\nspezzata'");
  const std::string testo = Testo(Dettagliata("C", "0001"));
  EXPECT_THAT(testo, AllOf(HasSubstr("  e-mail         " + posta.substr(0, 49) + "\n"),
                           HasSubstr("                 " + posta.substr(49) + "\n"),
                           HasSubstr("  indirizzo      riga  spezzata ")));
}

TEST_F(ElencoPartiTest, SaldiDellAnno) {
  Articolo(2024, 1, G(1, 1, 2024), {{"C", "0001", I("100"), "APE"}, {"C", "0002", I("7"), "APEX"}});
  Articolo(2024, 2, G(15, 2, 2024), {{"C", "0001", I("50.5")}, {"F", "0001", I("-9")}});
  Articolo(2024, 3, G(20, 2, 2025), {{"C", "0001", I("-20.25")}});  // of the year, dated ahead
  Articolo(2023, 1, G(15, 2, 2023), {{"C", "0001", I("999")}});
  const documents::SceltaElencoParti scelta = Scelta([](documents::SceltaParti& s) {
    s.dettagliato = true;
    s.perNome = true;
  });
  const auto righe = [](const reports::Foglio& foglio) {
    std::vector<std::string> lette;
    for (std::size_t i = 0; i < foglio.righe.size(); ++i) {
      std::string riga = Cella(foglio, i, "Codice").Testo();
      for (const char* titolo : {"Saldo iniziale", "Dare", "Avere", "Saldo"})
        riga += " " + Cella(foglio, i, titolo).Importo().Testo();
      lette.push_back(riga);
    }
    return lette;
  };
  EXPECT_THAT(righe(FoglioDi(scelta)),
              ElementsAre("0002 7 0 0 7", "0003 0 0 0 0", "0001 100 50.5 20.25 130.25",
                          " 107 50.5 20.25 137.25"));
  EXPECT_THAT(
      Testo(scelta),
      AllOf(HasSubstr("     s.do iniz.            dare           avere           saldo\n"),
            HasSubstr("        100,000          50,500          20,250         130,250\n"),
            HasSubstr("TOTALE CLIENTI: 3"),
            HasSubstr("        107,000          50,500          20,250         137,250\n")));
}

TEST_F(ElencoPartiTest, SenzaDirittoSenzaSaldi) {
  Articolo(2024, 2, G(15, 2, 2024), {{"C", "0001", I("50.5")}});
  Utenti::HashEconomico(true);
  ASSERT_TRUE(Utenti(ambiente).Salva("", {"capo", "capo", 99}, "segreta"));
  ASSERT_TRUE(Utenti(ambiente).Salva("", {"banco", "al banco", 50}, "segreta"));
  ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024));  // with users from here on
  ASSERT_TRUE(ambiente.Accedi("banco", "segreta"));
  const documents::SceltaElencoParti scelta = Dettagliata("C", "0001");
  EXPECT_FALSE(HaColonna(FoglioDi(scelta), "Saldo"));
  EXPECT_THAT(Testo(scelta), AllOf(HasSubstr("Zorzi"), Not(HasSubstr("50,500")),
                                   Not(HasSubstr("s.do iniz.")), Not(HasSubstr("saldi"))));
}

TEST_F(ElencoPartiTest, FoglioConCodiciEDescrizioni) {
  Cambia("Clienti", "0001", "Fido=1500, EMail='=1+1'");
  const reports::Foglio foglio = FoglioDi(Dettagliata("C", "0001"));
  EXPECT_EQ(Cella(foglio, 0, "Agente").Testo(), "X1");
  EXPECT_EQ(Cella(foglio, 0, "Nome agente").Testo(), "Verdi Anna");
  EXPECT_EQ(Cella(foglio, 0, "Fido").Importo(), I("1500"));
  EXPECT_EQ(Cella(foglio, 1, "Ragione sociale").Testo(), "TOTALE CLIENTI: 1");
  EXPECT_THAT(foglio.totali, ElementsAre(1U));
  for (const auto& riga : foglio.righe) EXPECT_EQ(riga.size(), foglio.colonne.size());
  const reports::Foglio fornitori = FoglioDi(Dettagliata("F", "0001"));
  EXPECT_FALSE(HaColonna(fornitori, "Agente"));
  EXPECT_TRUE(HaColonna(fornitori, "Pagamento"));
  for (const auto& riga : fornitori.righe) EXPECT_EQ(riga.size(), fornitori.colonne.size());
}

class MolteParti : public ElencoPartiTest {
 protected:
  static constexpr int kQuante = 350;
  MolteParti() {
    Transazione transazione(ambiente.Basi());
    for (int i = 0; i < kQuante; ++i) {
      Metti(Tessarc(), "Clienti", "Cod", std::to_string(1000 + i), "ragsoc1", "molti", "indirizzo",
            "Via " + std::to_string(i), "localita", "Lecco", "piva", "1", "Conto", "120.001");
    }
    transazione.Conferma();
  }
  static documents::SceltaElencoParti Molte(bool grafico) {
    documents::SceltaElencoParti scelta;
    scelta.parti.daCod = "1000";
    scelta.parti.dettagliato = true;
    scelta.stGrafico = grafico;
    return scelta;
  }
};

// A party is never split over two pages, in either form, and none is lost on the way.
TEST_F(MolteParti, UnaParteStaSuUnaPagina) {
  Verso(Destinazione::Testo);
  ASSERT_TRUE(documents::ElencoParti(ambiente, uscite).Stampa(Molte(false)));
  int trovate = 0;
  ASSERT_GT(uscite.Righe().size(), 5U);
  for (const auto& pagina : uscite.Righe()) {
    for (std::size_t i = 0; i < pagina.size(); ++i) {
      if (pagina[i].find(" molti ") == std::string::npos) continue;
      ++trovate;
      ASSERT_LT(i + 4, pagina.size());
      EXPECT_THAT(pagina[i + 4], HasSubstr("conto riepil.")) << pagina[i];
    }
  }
  EXPECT_EQ(trovate, kQuante);

  Verso(Destinazione::Pdf);
  ASSERT_TRUE(documents::ElencoParti(ambiente, uscite).Stampa(Molte(true)));
  trovate = 0;
  for (const reports::Pagina& pagina : uscite.pagine) {
    int nomi = 0;
    int conti = 0;
    for (const reports::Elemento& elemento : pagina.elementi) {
      const auto* scritta = std::get_if<reports::Scritta>(&elemento);
      if (scritta == nullptr) continue;
      nomi += scritta->testo == "molti" ? 1 : 0;
      conti += scritta->testo == "conto riepil." ? 1 : 0;
    }
    EXPECT_EQ(nomi, conti) << "pagina " << pagina.numero;
    trovate += nomi;
  }
  EXPECT_EQ(trovate, kQuante);
  EXPECT_THAT(uscite.Scritte(), ::testing::Contains("TOTALE CLIENTI: 350"));
}

}  // namespace
}  // namespace fenalto::prova
