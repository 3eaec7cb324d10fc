// Repairs, scratch files, numbered pages, the password.
#include "admin/repairs/CopieDiProva.h"
#include "admin/repairs/FileTemporanei.h"
#include "admin/repairs/PagineNumerate.h"
#include "admin/repairs/Riparazioni.h"
#include "core/session/Utenti.h"
#include "core/store/CambioArchivi.h"
#include "vat/settlement/LiquidazioneIva.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

class RiparazioniTest : public DittaConCopie {
 protected:
  /// Class and account of both sides of a head.
  std::string Testata(std::int64_t numero) {
    std::string testo;
    for (const char* campo : {"CFP", "Conto", "CfpA", "ContoA"}) {
      testo += CampoTestata(numero, campo).Testo() + "/";
    }
    return testo;
  }
  void NominaLaCopia() {
    EXPECT_THAT(SoloMessaggio(), HasSubstr(ElencoCopie(ambiente).front().cartella.string()));
  }
  admin::Riparazioni riparazioni{ambiente};
};

TEST_F(RiparazioniTest, AggiornaDiversi) {
  struct Caso {
    std::vector<Riga> righe;
    const char* testata;
  };
  const Caso casi[] = {
      {{{"P", "100.010", I("9")}, {"C", "0001", I("-9")}}, "P/100.010/C/0001/"},
      {{{"P", "100.010", I("4")}, {"P", "100.010", I("5")}, {"C", "0001", I("-9")}},
       "P/100.010/C/0001/"},
      {{{"P", "100.010", I("4")}, {"P", "700.010", I("5")}, {"C", "0001", I("-9")}},
       "/DIVERSI/C/0001/"},
      {{{"C", "0001", I("9")}, {"C", "0001", I("-4")}, {"F", "0001", I("-5")}}, "C/0001//DIVERSI/"},
      {{{"P", "100.010", I("0")}, {"P", "700.010", I("5")}, {"P", "100.010", I("-5")}},
       "P/700.010/P/100.010/"},
      {{{"P", "700.010", I("5")}}, "P/700.010///"},
  };
  std::int64_t numero = 100;
  for (const Caso& caso : casi) Articolo(2024, ++numero, G(1, 2, 2024), caso.righe);
  Articolo(2024, 200, G(1, 2, 2024), casi[0].righe, "01", 1);
  Tessarc().Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", 201}, {"Conto", "senza righe"}});
  ASSERT_TRUE(riparazioni.AggiornaDiversi());
  EXPECT_THAT(dialoghi.messaggi, Contains(HasSubstr("Lavoro eseguito\nregistrazioni viste 7, "
                                                    "corrette 7")));
  NominaLaCopia();
  numero = 100;
  for (const Caso& caso : casi) EXPECT_EQ(Testata(++numero), caso.testata) << numero;
  EXPECT_EQ(Testata(200), "////") << "su un registro iva";
  EXPECT_EQ(Testata(201), "/senza righe///");
  ASSERT_TRUE(riparazioni.AggiornaDiversi());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("corrette 0"));
}

TEST_F(RiparazioniTest, SenzaCopiaNonSiRiparaNulla) {
  fs::create_directories(CartellaCopie(ambiente).parent_path());
  ScriviFile(CartellaCopie(ambiente), "non è una cartella");
  const std::string adesso = Tutto();
  EXPECT_FALSE(riparazioni.AggiornaDiversi());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("Non è stato cambiato nulla"));
  EXPECT_FALSE(riparazioni.RifaiContiClientiFornitori());
  EXPECT_EQ(Tutto(), adesso);
}

TEST_F(RiparazioniTest, OgniIstruzioneCheFallisceNonLasciaNulla) {
  Tessarc().Esegui("delete * from ContiClientiFornitori where CFP='C'");
  Metti(Tessarc(), "ChiusureIva", "Anno", 2024, "MeseTrimestre", "01", "CreditoPrec", I("70"));
  vat::ScriviCreditoIva(ambiente, I("900"));
  for (int n = 2; n < 5; ++n) UnAltroArticolo(n);
  const std::string adesso = Tutto();
  const std::function<bool()> lavori[] = {
      [this] { return riparazioni.AggiornaDiversi(); },
      [this] { return riparazioni.RifaiContiClientiFornitori(); },
      [this] {
        dialoghi.Rispondera("Proseguo", Risposta::Si);
        return riparazioni.EliminaLiquidazioni(2024);
      }};
  for (const auto& lavoro : lavori) {
    int n = 1;
    for (;; n += 1 + n / 20) {
      ambiente.Basi().ImpostaGuasto(n, Guasto::Errore);
      const bool riuscito = lavoro();
      ambiente.Basi().ImpostaGuasto(0, Guasto::Nessuno);
      if (riuscito) break;
      ASSERT_EQ(Tutto(), adesso) << n;
    }
    EXPECT_GT(n, 5);
    dialoghi.messaggi.clear();
    ASSERT_TRUE(
        RipristinaCopia(ElencoCopie(ambiente).front().cartella, ambiente.Basi().Percorsi()));
    ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024));
    ASSERT_EQ(Tutto(), adesso) << "la copia fatta prima";
  }
}

TEST_F(RiparazioniTest, ElencoDeiContiComeGliArchivi) {
  Metti(Tessarc(), "Clienti", "Cod", "9001", "ragsoc1", "Bianchi", "ragsoc2", "& figli");
  Metti(Tessarc(), "ContiClientiFornitori", "Cod", "9999", "CFP", "F", "Descrizione", "non c'è");
  Tessarc().Esegui("delete * from ContiClientiFornitori where CFP='P'");
  ASSERT_TRUE(riparazioni.RifaiContiClientiFornitori());
  EXPECT_THAT(dialoghi.messaggi.back(), HasSubstr("lavoro eseguito"));
  NominaLaCopia();
  EXPECT_EQ(Tessarc().Singolo("select Count(*) from ContiClientiFornitori").Intero(),
            Tessarc().Singolo("select Count(*) from Conti").Intero() + 7);
  const Rs bianchi = Tessarc().Recordset("select * from ContiClientiFornitori where Cod='9001'");
  EXPECT_EQ(bianchi.Fields("Descrizione").Testo() + "|" + bianchi.Fields("Descrizione2").Testo(),
            "Bianchi|& figli");
  EXPECT_EQ(NzStr(ambiente.Cerca("tessarc", "ContiClientiFornitori",
                                 {{"Cod", "100.010"}, {"CFP", "P"}}, "Descrizione")),
            NzStr(ambiente.Cerca("tessarc", "Conti", {{"Cod", "100.010"}}, "Descrizione")));
}

TEST_F(RiparazioniTest, LiquidazioniDiUnAnno) {
  vat::ScriviCreditoIva(ambiente, I("900"));
  for (const int anno : {2023, 2024}) {
    Metti(Tessarc(), "ChiusureIva", "Anno", anno, "MeseTrimestre", "01", "CreditoPrec",
          I(anno == 2024 ? "70" : "5"));
    Metti(Tessarc(), "ChiusIva", "Anno", anno, "MeseTrimestre", "01");
    Metti(Tessarc(), "UltProtStRegIva", "Anno", anno, "MeseTrimestre", "01");
  }
  ambiente.ScriviImpostazione({}, "config", "RivaUnico", "01");
  const auto righe = [&](const std::string& tabella) {
    return Tessarc().Singolo("select Count(*) from " + tabella + " where Anno=2024").Intero();
  };
  dialoghi.Rispondera(
      "- l'eventiale credito iva, relativo all'anno precedente, dovrà essere "
      "forzato manualmente\npoi si potrà ristampare il registro iva con le "
      "relative liquidazioni\nProseguo",
      Risposta::No);
  EXPECT_FALSE(riparazioni.EliminaLiquidazioni(2024));
  EXPECT_EQ(righe("ChiusureIva"), 1);
  dialoghi.Rispondera("Attenzione:\n- le registrazioni contabili dei giriconto", Risposta::Si);
  ASSERT_TRUE(riparazioni.EliminaLiquidazioni(2024));
  EXPECT_THAT(dialoghi.messaggi.back(), HasSubstr("eliminazione effettuata"));
  NominaLaCopia();
  for (const char* tabella : {"ChiusureIva", "ChiusIva", "UltProtStRegIva"}) {
    EXPECT_EQ(righe(tabella), 0) << tabella;
    EXPECT_EQ(Tessarc().Singolo(std::string("select Count(*) from ") + tabella).Intero(), 1);
  }
  EXPECT_EQ(ambiente.Config("RivaUnico"), "");
  EXPECT_EQ(Tessarc().Singolo("select CreditoIva from CreditoIva where Cod='01'").Importo(),
            I("70"));
}

TEST_F(RiparazioniTest, SoloIFileTemporanei) {
  const fs::path temp = cartella / "temp";
  fs::create_directories(temp);
  setenv("Temp", temp.c_str(), 1);
  const fs::path ditta = ambiente.CartellaDitta();
  const CopiaDitta copia = Copia();
  const fs::path mezza = CartellaCopie(ambiente) / ".2024-01-01-9.tmp";
  const fs::path inCorso = CartellaCopie(ambiente) / ".2024-03-15-8.tmp";
  for (const fs::path& cartella_ : {mezza, inCorso}) fs::create_directories(cartella_);
  fs::last_write_time(mezza, fs::file_time_type::clock::now() - std::chrono::hours(30));
  const std::vector<fs::path> via = {temp / "x1.mdb", temp / "X_SCRATCH.MDB", ditta / "xlotti.mdb",
                                     mezza};
  const std::vector<fs::path> restano = {temp / "y.mdb", temp / "x.txt", inCorso, copia.cartella,
                                         ambiente.PercorsoDb("tessarc")};
  for (const fs::path& file : {via[0], via[1], via[2], restano[0], restano[1]})
    ScriviFile(file, "");
  admin::EliminaTemporanei(ambiente);
  unsetenv("Temp");
  EXPECT_EQ(SoloMessaggio(), "File tempranei eliminati");
  for (const fs::path& file : via) EXPECT_FALSE(fs::exists(file)) << file;
  for (const fs::path& file : restano) EXPECT_TRUE(fs::exists(file)) << file;
}

TEST_F(RiparazioniTest, PagineNumerate) {
  ambiente.ScriviImpostazione({}, "config", "ragsoc1 ", "ROSSI SNC");
  admin::PagineNumerate pagine(ambiente, uscite);
  admin::SceltaPagine scelta = pagine.Proposta();
  EXPECT_EQ(scelta.annoPag, 2024);
  struct Caso {
    const char* intestazione;
    int da, aa;
    const char* campo;
  };
  for (const Caso& caso : {Caso{"  ", 1, 3, "Intestazione"}, Caso{"REGISTRO", 0, 3, "DaPag"},
                           Caso{"REGISTRO", 4, 3, "AaPag"}, Caso{"REGISTRO", 1, 2'001, "AaPag"},
                           Caso{"REGISTRO", 9'999, 10'000, "AaPag"}}) {
    scelta.intestazione = caso.intestazione;
    scelta.daPag = caso.da;
    scelta.aaPag = caso.aa;
    EXPECT_FALSE(pagine.Stampa(scelta));
    EXPECT_EQ(pagine.CampoRifiutato(), caso.campo);
  }
  scelta.intestazione = "REGISTRO IVA VENDITE";
  scelta.daPag = 99;
  scelta.aaPag = 101;
  for (const bool grafico : {false, true}) {
    scelta.stGrafico = grafico;
    Verso(grafico ? Destinazione::Pdf : Destinazione::Testo);
    ASSERT_TRUE(pagine.Stampa(scelta));
    ASSERT_EQ(uscite.pagine.size(), 3U) << grafico;
    const std::string testo = grafico ? ::testing::PrintToString(uscite.Scritte()) : uscite.Testo();
    for (const char* pezzo :
         {"REGISTRO IVA VENDITE", "2024/99", "2024/100", "2024/101", "ROSSI SNC"}) {
      std::string atteso = pezzo;
      if (!grafico && atteso == "2024/99") atteso = "Anno/pag. 2024/99";
      EXPECT_THAT(testo, HasSubstr(atteso)) << grafico;
    }
  }
}

TEST_F(RiparazioniTest, Password) {
  Utenti utenti(ambiente);
  Utenti::HashEconomico(true);
  const auto cambia = [&](const char* vecchia, const char* nuova, const char* ripetuta) {
    const auto esito = utenti.CambiaPassword(vecchia, nuova, ripetuta);
    return esito ? "" : esito.Errore().messaggio;
  };
  EXPECT_THAT(cambia("", "a", "a"), HasSubstr("nessun utente è entrato"));
  ASSERT_TRUE(utenti.Salva("", {"MARIA", "", 99}, "vecchia"));
  ASSERT_TRUE(ambiente.ApriDitta("Prova"));
  ASSERT_TRUE(ambiente.Accedi("MARIA", "vecchia"));
  EXPECT_EQ(cambia("sbagliata", "a", "b"), "reinserire password");
  EXPECT_EQ(cambia("vecchia", "", ""), "reinserire password");
  EXPECT_EQ(cambia("sbagliata", "a", "a"), "vecchia password errata");
  EXPECT_TRUE(ambiente.Accedi("MARIA", "vecchia"));
  EXPECT_EQ(cambia("vecchia", "nuova", "nuova"), "");
  EXPECT_FALSE(ambiente.Accedi("MARIA", "vecchia"));
  EXPECT_TRUE(ambiente.Accedi("MARIA", "nuova"));
  Utenti::HashEconomico(false);
}

}  // namespace
}  // namespace fenalto::prova
