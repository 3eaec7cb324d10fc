#include "core/archives/ArchivioCodici.h"
#include "duedates/codes/CodiciPagamento.h"
#include "duedates/codes/DescrizioneCodice.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {
namespace {

class CodiciPagamentoTest : public DittaDiProva {
 protected:
  CodiciPagamentoTest()
      : rate(std::make_shared<duedates::RateCodice>(ambiente)),
        codici(ambiente, duedates::DescrizioneCodiciPagamento(rate)) {}

  /// A new code with one rate a percentage.
  void Inizia(const char* cod, const std::vector<const char*>& percentuali) {
    codici.Inizia();
    codici.Record().Scrivi("Cod", cod);
    codici.Record().Scrivi("Descrizione", "prova");
    for (const char* percento : percentuali) EXPECT_TRUE(Rata(percento));
  }

  bool Rata(const char* percento, const char* numero = nullptr) {
    rate->NuovaRiga();
    rate->Riga().Scrivi("PercImporto", I(percento));
    if (numero != nullptr) rate->Riga().Scrivi("Rata", numero);
    return rate->ConfermaRiga();
  }

  std::vector<std::string> Righe(const char* cod) {
    std::vector<std::string> righe;
    for (const duedates::RataPagamento& rata : duedates::LeggiRate(ambiente, cod))
      righe.push_back(rata.rata + " " + rata.percImporto.Testo() + " " +
                      std::to_string(rata.dopoMesi));
    return righe;
  }

  std::shared_ptr<duedates::RateCodice> rate;
  archives::ArchivioCodici codici;
};

TEST_F(CodiciPagamentoTest, RowsAreNumberedProposedAndReplaced) {
  Inizia("X", {"50"});
  rate->NuovaRiga();
  EXPECT_EQ(rate->Riga().Testo("Rata"), "02");
  EXPECT_EQ(rate->Riga().Testo("PercImporto"), "50");
  EXPECT_EQ(rate->Riga().Testo("DopoMesi"), "2");
  EXPECT_FALSE(rate->NuovaRiga());
  EXPECT_TRUE(rate->ConfermaRiga());
  ASSERT_TRUE(codici.Conferma());
  EXPECT_THAT(Righe("X"), ElementsAre("01 50 1", "02 50 2"));
  EXPECT_THAT(Messaggi(), IsEmpty());

  ASSERT_TRUE(codici.Apri("X"));
  EXPECT_FALSE(rate->Modificate());
  ASSERT_TRUE(rate->ApriRiga("01"));
  rate->Riga().Scrivi("Rata", "3");
  EXPECT_TRUE(rate->ConfermaRiga());
  EXPECT_TRUE(rate->Modificate());
  ASSERT_TRUE(rate->ApriRiga("02"));
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::No);
  EXPECT_FALSE(rate->EliminaRiga());
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::Si);
  EXPECT_TRUE(rate->EliminaRiga());
  dialoghi.Rispondera("la percentuale delle rate non è uguale a 100", Risposta::Si);
  ASSERT_TRUE(codici.Conferma());
  EXPECT_THAT(Righe("X"), ElementsAre("03 50 1"));
}

TEST_F(CodiciPagamentoTest, RowsRefused) {
  Inizia("X", {"50"});
  const struct {
    const char *percento, *numero, *messaggio, *campo;
  } casi[] = {
      {"0", "02", "non si puù impostare una percentuale=0", "PercImporto"},
      {"50", "01", "Rata già esistente", "Rata"},
      {"50", "1", "Rata già esistente", "Rata"},
      {"50", "11", "numero rata: valore ammesso da 01 a 10", "Rata"},
      {"50", "", "numero rata: valore ammesso da 01 a 10", "Rata"},
  };
  for (const auto& c : casi) {
    rate->NuovaRiga();
    rate->Riga().Scrivi("PercImporto", I(c.percento));
    rate->Riga().Scrivi("Rata", c.numero);
    Rifiuto rifiuto;
    EXPECT_FALSE(rate->ConfermaRiga(&rifiuto));
    EXPECT_EQ(SoloMessaggio(), c.messaggio);
    EXPECT_EQ(rifiuto.campo, c.campo) << c.messaggio;
    EXPECT_TRUE(rate->InRiga());
  }
  rate->AnnullaRiga();
  EXPECT_EQ(rate->Righe().size(), 1U);
}

TEST_F(CodiciPagamentoTest, ChecksOfASaving) {
  struct Caso {
    std::vector<Coppia> campi;
    std::vector<const char*> percentuali;
    const char* domanda;    ///< answered yes; null for none
    const char* messaggio;  ///< that stops it; null when it is saved
  };
  const Caso casi[] = {
      Caso({{"Cod", ""}, {"Descrizione", ""}}, {}, nullptr, "inserire un codice"),
      Caso({{"Descrizione", ""}}, {},
           "Non è stata impostata nessuna rata di pagamento\nil programma non creerà "
           "automaticamente "
           "le scadenze\nproseguo ugualmente",
           "manca descrizione"),
      Caso(
          {{"Descrizione", ""}}, {"33.3333", "33.3333", "33.3333"},
          "la percentuale delle rate non è uguale a 100:\nla differenza per arrivare al 100% verrà "
          "conteggiata sull'ultima rata\nproseguo ugualmente",
          "manca descrizione"),
      Caso({{"NuovaCodifica", false}, {"NumeroSc", 11}}, {}, nullptr,
           "numero scad: valore ammesso da 0 a 10"),
      Caso({{"NuovaCodifica", false}, {"NumeroSc", -1}}, {}, nullptr,
           "numero scad: valore ammesso da 0 a 10"),
      Caso({{"ggSpost2", 32}}, {"100"}, nullptr,
           "giorno a cui spostare le scadenze: valore ammesso da 0 a 31"),
      Caso({{"AggiornaScad", false}}, {"100"}, nullptr, nullptr),
  };
  for (const Caso& c : casi) {
    Inizia("X", c.percentuali);
    for (const auto& [campo, valore] : c.campi) codici.Record().Scrivi(campo, valore);
    if (c.domanda != nullptr) dialoghi.Rispondera(c.domanda, Risposta::Si);
    EXPECT_EQ(codici.Conferma(), c.messaggio == nullptr);
    const std::string detto = SoloMessaggio();
    if (c.messaggio != nullptr) {
      EXPECT_EQ(detto, c.messaggio);
    } else {
      EXPECT_THAT(detto, HasSubstr("questo codice pagamento NON aggiorna automat"));
    }
    codici.Abbandona();
  }
  Inizia("Y", {});
  dialoghi.Rispondera("nessuna rata", Risposta::No);
  EXPECT_FALSE(codici.Conferma());
  EXPECT_FALSE(duedates::LeggiCodicePagamento(ambiente, "Y"));
}

TEST_F(CodiciPagamentoTest, AccountAndCausalAreTold) {
  Inizia("X", {"100"});
  codici.Record().Scrivi("Conto", "100.010");
  EXPECT_TRUE(codici.Conferma());
  const auto messaggi = Messaggi();
  ASSERT_EQ(messaggi.size(), 3U);
  EXPECT_EQ(messaggi[0],
            "il programma crea automaticamente la registrazione del pagamento quando si "
            "inseriscono le fatture");
  EXPECT_EQ(messaggi[1],
            "Se si impostano 'conto' e 'causale' per 'registrazione automatica pagamento' non "
            "bisogna impostare le rate");
  EXPECT_THAT(messaggi[2],
              HasSubstr("registrando le fatture crea automaticamente\nla registrazione contabile "
                        "del pagamento\nconto 100.010 "));
  EXPECT_THAT(messaggi[2], HasSubstr("manca la causale"));
}

TEST_F(CodiciPagamentoTest, AChangedCodeIsCarriedAndADeletionTakesTheRates) {
  Inizia("VECCHIO", {"100"});
  codici.Record().Scrivi("CodPagIva", "VECCHIO");
  ASSERT_TRUE(codici.Conferma());
  {
    Transazione transazione(ambiente.Basi());
    Tessarc().Esegui("UPDATE Clienti SET Pagamento='vecchio' WHERE Cod='0001'");
    ambiente.ArchivioDi("scadenzario")
        .Inserisci("Scadenze", {{"Numero", 1}, {"Pagamento", "VECCHIO"}});
    transazione.Conferma();
  }
  ASSERT_TRUE(codici.Apri("VECCHIO"));
  codici.Record().Scrivi("Cod", "NUOVO");
  ASSERT_TRUE(codici.Conferma());
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_THAT(Righe("VECCHIO"), IsEmpty());
  EXPECT_THAT(Righe("NUOVO"), ElementsAre("01 100 1"));
  EXPECT_EQ(Tessarc().Singolo("SELECT Pagamento FROM Clienti WHERE Cod='0001'"), Valore("NUOVO"));
  EXPECT_EQ(Tessarc().Singolo("SELECT CodPagIva FROM Pagamento WHERE Cod='NUOVO'"),
            Valore("NUOVO"));
  EXPECT_EQ(ambiente.ArchivioDi("scadenzario").Singolo("SELECT Pagamento FROM Scadenze"),
            Valore("NUOVO"));

  ASSERT_TRUE(codici.Apri("NUOVO"));
  dialoghi.Rispondera("eliminazione", Risposta::Si);
  EXPECT_FALSE(codici.Elimina());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("clienti che lo usano"));
  Tessarc().Esegui("UPDATE Clienti SET Pagamento=''");
  ambiente.ArchivioDi("scadenzario").Esegui("DELETE FROM Scadenze");
  dialoghi.Rispondera("eliminazione", Risposta::Si);
  EXPECT_TRUE(codici.Elimina());
  EXPECT_THAT(Righe("NUOVO"), IsEmpty());
}

TEST_F(CodiciPagamentoTest, ACopyTakesTheRatesAlong) {
  Inizia("X", {"40", "60"});
  ASSERT_TRUE(codici.Conferma());
  ASSERT_TRUE(codici.Apri("X"));
  codici.Duplica();
  EXPECT_TRUE(rate->Modificate());
  codici.Record().Scrivi("Cod", "Y");
  ASSERT_TRUE(codici.Conferma());
  EXPECT_THAT(Righe("Y"), ElementsAre("01 40 1", "02 60 2"));
  EXPECT_THAT(Righe("X"), ElementsAre("01 40 1", "02 60 2"));
  codici.Inizia();
  EXPECT_THAT(rate->Righe(), IsEmpty());
}

TEST_F(CodiciPagamentoTest, TheTestTellsWhatTheFixedListOfLeapYearsDoes) {
  duedates::CodicePagamento codice;
  codice.aggiornaScad = codice.nuovaCodifica = true;
  duedates::RataPagamento rata;
  rata.percImporto = I("100");
  rata.dopoMesi = 1;
  rata.fineMese = true;
  codice.rate = {rata};
  const auto nota = [&](Data data) {
    return duedates::ProvaCodice(ambiente, codice, data, I("10")).righe.at(0).nota;
  };
  EXPECT_THAT(nota(G(31, 1, 2024)), HasSubstr("febbraio 2024 ha 29 giorni"));
  EXPECT_EQ(nota(G(31, 1, 2023)), "");
  EXPECT_EQ(nota(G(31, 1, 2020)), "");
  EXPECT_EQ(nota(G(28, 2, 2024)), "");
  codice.rate[0].fineMese = false;
  EXPECT_EQ(nota(G(28, 1, 2024)), "");
  codice.nuovaCodifica = false;
  codice.numeroSc = codice.primaSc = 1;
  codice.giornoSc = 31;
  EXPECT_THAT(nota(G(31, 1, 2024)), HasSubstr("febbraio 2024"));
  codice.aggiornaScad = false;
  EXPECT_THAT(duedates::ProvaCodice(ambiente, codice, G(1, 1, 2024), I("10")).avvisi,
              ElementsAre(HasSubstr("non aggiorna lo scadenzario")));
}

TEST(DescrizioneCodice, Words) {
  const struct {
    duedates::RataPagamento rata;
    const char *descrizione, *griglia;
  } casi[] = {
      {{"01", I("33.3333"), 2, 0, true, false, false, 0, "02", ""},
       "33% 60GG FM Bonifico",
       "33,3333% 60GG FINE MESE"},
      {{"01", I("66.6667"), 1, 15, false, true, false, 0, "", ""},
       "67% 30+15GG DF",
       "66,6667% 30GG+15GG DATA FATT."},
      {{"01", I("100"), 0, 45, false, false, true, 10, "02", ""},
       "100% 45GG al 10 Bonifico",
       "100% 0GG+45GG AL 10 M.SUC."},
  };
  duedates::CodicePagamento codice;
  const auto tipo = [](const std::string& t) { return std::string(t == "02" ? "Bonifico" : ""); };
  EXPECT_EQ(duedates::ComponiDescrizione(codice, tipo).Errore().messaggio,
            "non posso creare automaticamente la descrizione: non è stata inserita alcuna rata");
  for (const auto& c : casi) {
    codice.rate = {c.rata};
    EXPECT_EQ(duedates::ComponiDescrizione(codice, tipo).Valore(), c.descrizione);
    EXPECT_EQ(duedates::TestoRata(c.rata, codice), c.griglia);
  }
  codice.rate.push_back(codice.rate[0]);
  EXPECT_EQ(duedates::ComponiDescrizione(codice, tipo).Valore(),
            "100% 45GG al 10 Bonifico, 100% 45GG al 10 Bonifico");
  codice.sposta[1] = {10, 8, 1, 8, 31};
  EXPECT_EQ(duedates::TestoRata(casi[0].rata, codice),
            "33,3333% 60GG FINE MESE (se 1.8/31.8 sposta al 10 mese succ)");
}

TEST(DescrizioneCodice, InformationLine) {
  duedates::CodicePagamento codice;
  codice.conto = "100.010";
  EXPECT_EQ(duedates::InformazioneCodice(codice),
            "con questo codice pagamento\nNON viene aggiornato lo scadenzario pagamenti");
  codice.causale = "004";
  codice.aggiornaScad = true;
  EXPECT_EQ(duedates::InformazioneCodice(codice),
            "con questo codice pagamento, inserendo le fatture, viene creata la registrazione 004 "
            "sul conto 100.010\nviene aggiornato lo scadenzario pagamenti");
}

}  // namespace
}  // namespace fenalto::prova
