// Payments as they are typed: what starts one, which due dates can be chosen, the rules of a row,
// the order of a confirmation's checks, what stays after a refusal.
#include "duedates/payments/PagamentiScadenzario.h"
#include "duedates/payments/ScadenzeDiProva.h"

namespace fenalto::prova {
namespace {

using Modo = duedates::PagamentiScadenzario::Modo;
using Stato = duedates::PagamentiScadenzario::Stato;

class PagamentiScadenzarioTest : public ScadenzeDiProva {
 protected:
  PagamentiScadenzarioTest() {
    for (const char* finestra : {"1", "2"}) {
      Config(std::string("CausalePagScad") + finestra, "002");
      Config(std::string("ContropartitaPagScad") + finestra, "100.010");
      Config(std::string("ContoArrotondamentiPagScad") + finestra, "580.010");
    }
    Config("RegistrazioneContabilePagScad2", "1");
  }
  void Config(const std::string& chiave, const char* valore) {
    for (const char* classe : {"C", "F"})
      ambiente.ScriviImpostazione({}, "config", chiave + classe, valore);
  }
  /// A payment of customers that is ready for its due dates.
  static void Inizia(duedates::PagamentiScadenzario& p, const char* conto = "") {
    p.ScegliParte("C", conto);
    p.Testa().Scrivi("Descrizione", "incasso");
    ASSERT_TRUE(p.Nuovo());
  }
  static bool Digita(duedates::PagamentiScadenzario& p, const char* pagato,
                     const char* arrotondamento, bool saldata) {
    p.Riga().Scrivi("ImportoPagato", I(pagato));
    p.Riga().Scrivi("Arrotondamento", I(arrotondamento));
    p.Riga().Scrivi("Saldata", saldata);
    return p.ConfermaRiga();
  }
  std::vector<std::int64_t> Trovate(const duedates::RicercaScadenze& ricerca) {
    std::vector<std::int64_t> numeri;
    duedates::CercaScadenze(ambiente, ricerca, [&](const duedates::RigaScadenza& riga) {
      numeri.push_back(riga.numero);
      return true;
    });
    return numeri;
  }
};

TEST_F(PagamentiScadenzarioTest, CosaMancaPerIniziare) {
  duedates::PagamentiScadenzario piu(ambiente, Modo::PiuParti);
  duedates::PagamentiScadenzario una(ambiente, Modo::SingolaParte);
  const auto rifiuta = [this](duedates::PagamentiScadenzario& p, const char* messaggio) {
    EXPECT_FALSE(p.Nuovo());
    EXPECT_EQ(SoloMessaggio(), messaggio);
    EXPECT_EQ(p.StatoCorrente(), Stato::Inattiva);
  };
  rifiuta(una, "impostare un codice cliente o fornitore");
  una.ScegliParte("C", "8888");
  rifiuta(una, "impostare un codice cliente o fornitore");
  una.ScegliParte("C", "0001");
  rifiuta(una, "Manca descrizione contabile");
  una.Impostazioni().Scrivi("RegistrazioneContabilePagScad2", false);
  EXPECT_TRUE(una.Nuovo());

  rifiuta(piu, "Manca descrizione contabile");
  piu.Testa().Scrivi("Descrizione", "incasso");
  for (const char* campo : {"CausalePagScad1", "ContropartitaPagScad1"}) {
    const std::string prima = piu.Impostazioni().Testo(campo);
    for (const char* valore : {"", "ZZZ"}) {
      piu.Impostazioni().Scrivi(campo, valore);
      rifiuta(piu, "Manca causale o conti");
    }
    piu.Impostazioni().Scrivi(campo, prima);
  }
  piu.Impostazioni().Scrivi("ContoArrotondamentiPagScad1", "ZZZ");
  rifiuta(piu, "Manca causale o conti");
  piu.Impostazioni().Scrivi("ContoArrotondamentiPagScad1", "");
  EXPECT_TRUE(piu.Nuovo());
}

TEST_F(PagamentiScadenzarioTest, OgniClasseHaLeSueImpostazioni) {
  duedates::PagamentiScadenzario p(ambiente, Modo::PiuParti);
  p.ScegliParte("F", "");
  p.Impostazioni().Scrivi("CausalePagScad1", "003");
  p.ImpostazioneLasciata();
  p.ScegliParte("C", "");
  EXPECT_EQ(p.Impostazioni().Testo("CausalePagScad1"), "002");
  duedates::PagamentiScadenzario dopo(ambiente, Modo::PiuParti);
  dopo.ScegliParte("F", "");
  EXPECT_EQ(dopo.Impostazioni().Testo("CausalePagScad1"), "003");
  // Class and party stay while a payment is open.
  Inizia(p);
  EXPECT_FALSE(p.ScegliParte("F", ""));
  EXPECT_TRUE(p.ScegliParte("C", "0002"));
  duedates::PagamentiScadenzario una(ambiente, Modo::SingolaParte);
  Inizia(una, "0001");
  EXPECT_FALSE(una.ScegliParte("C", "0002"));
}

// A company may have the keys without class alone: they serve both until one class gets its own.
TEST_F(PagamentiScadenzarioTest, ImpostazioniSenzaClasse) {
  const std::string chiave = "ContropartitaPagScad1";
  Config(chiave, "");
  ambiente.ScriviImpostazione({}, "config", chiave, "100.010");
  duedates::PagamentiScadenzario p(ambiente, Modo::PiuParti);
  const auto lascia = [&](const char* classe, const char* valore) {
    p.ScegliParte(classe, "");
    p.Impostazioni().Scrivi(chiave, valore);
    p.ImpostazioneLasciata();
  };
  const auto lette = [&] {
    std::string insieme = ambiente.Config(chiave);
    for (const char* classe : {"C", "F"}) {
      duedates::PagamentiScadenzario dopo(ambiente, Modo::PiuParti);
      dopo.ScegliParte("F", "");
      dopo.ScegliParte(classe, "");
      insieme += "|" + dopo.Impostazioni().Testo(chiave);
    }
    return insieme;
  };
  EXPECT_EQ(lette(), "100.010|100.010|100.010");
  lascia("F", "100.020");
  EXPECT_EQ(lette(), "100.020|100.010|100.020");
  lascia("C", "");
  EXPECT_EQ(lette(), "||100.020");
  lascia("F", "");
  EXPECT_EQ(lette(), "||");
  lascia("C", "100.010");
  EXPECT_EQ(lette(), "100.010|100.010|");
}

TEST_F(PagamentiScadenzarioTest, DataProposta) {
  EXPECT_EQ(duedates::PagamentiScadenzario(ambiente, Modo::PiuParti).Testa().Leggi("Dt").Data(),
            G(15, 3, 2024));
  ASSERT_TRUE(ambiente.ScegliAnno(2023));
  EXPECT_EQ(duedates::PagamentiScadenzario(ambiente, Modo::PiuParti).Testa().Leggi("Dt").Data(),
            G(31, 12, 2023));
}

TEST_F(PagamentiScadenzarioTest, RicercaEScelta) {
  const auto terza = Nuova("C", "0001", "30", 7);
  const auto prima = Nuova("C", "0001", "100", 5);
  const auto altra = Nuova("C", "0002", "50", 6);
  const auto fornitore = Nuova("F", "0001", "10", 5);
  const auto pagata = Nuova("C", "0001", "9", 4);
  Scadenzario().Esegui("update Scadenze set Stato='30' where Numero=5");
  duedates::PagamentiScadenzario p(ambiente, Modo::PiuParti);
  p.ScegliParte("C", "");
  EXPECT_THAT(Trovate(p.Ricerca("", {})), ElementsAre(terza, prima, altra));
  EXPECT_THAT(Trovate(p.Ricerca("5", {})), ElementsAre(prima));
  EXPECT_THAT(Trovate(p.Ricerca("", G(1, 2, 2024))), IsEmpty());
  duedates::PagamentiScadenzario una(ambiente, Modo::SingolaParte);
  una.ScegliParte("C", "0001");
  EXPECT_THAT(Trovate(una.Ricerca("", {})), ElementsAre(prima, terza));

  EXPECT_FALSE(una.Scegli(prima, false));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("Nuova Registrazione"));
  Inizia(una, "0001");
  const std::vector<std::pair<std::int64_t, const char*>> rifiutate = {
      {99, "Manca scadenza"},
      {pagata, "è già stata pagata o presentata"},
      {altra, "non è del cliente/fornitore del pagamento"},
      {fornitore, "non è del cliente/fornitore del pagamento"}};
  for (const auto& [numero, messaggio] : rifiutate) {
    EXPECT_FALSE(una.Scegli(numero, true));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(messaggio));
  }
  EXPECT_THAT(una.Righe(), IsEmpty());

  ASSERT_TRUE(una.Scegli(prima, false));
  EXPECT_EQ(una.StatoCorrente(), Stato::RigaAperta);
  EXPECT_EQ(una.Riga().Leggi("ImportoPagato").Importo(), I("100"));
  EXPECT_TRUE(una.Riga().Leggi("Saldata").Booleano());
  EXPECT_FALSE(una.Scegli(prima, false));
  EXPECT_EQ(SoloMessaggio(), "il pagamento e' gia stato selezionato");
  // Another one is refused while the open row can't be confirmed.
  una.Riga().Scrivi("Arrotondamento", I("1"));
  EXPECT_FALSE(una.Scegli(terza, false));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("importo pagato+arrotondamento"));
  // Given up, a due date just chosen isn't there any more.
  una.AnnullaRiga();
  EXPECT_THAT(una.Righe(), IsEmpty());
  ASSERT_TRUE(una.Scegli(prima, true));
  EXPECT_EQ(una.StatoCorrente(), Stato::Aperta);
  ASSERT_TRUE(una.Scegli(terza, true));
  EXPECT_EQ(una.TotPagato(), I("130"));

  ASSERT_TRUE(una.ApriRiga(una.Righe()[0].num));
  una.AnnullaRiga();
  EXPECT_EQ(una.Righe().size(), 2U);
  ASSERT_TRUE(una.ApriRiga(una.Righe()[0].num));
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::No);
  EXPECT_FALSE(una.EliminaRiga());
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::Si);
  EXPECT_TRUE(una.EliminaRiga());
  EXPECT_EQ(una.TotPagato(), I("30"));
  // A new payment starts from nothing.
  Inizia(una, "0001");
  EXPECT_THAT(una.Righe(), IsEmpty());
  EXPECT_TRUE(una.Scegli(terza, true));
}

TEST_F(PagamentiScadenzarioTest, RegoleDellaRiga) {
  const auto n = Nuova("C", "0001", "100.02", 5);
  duedates::PagamentiScadenzario p(ambiente, Modo::PiuParti);
  Inizia(p);
  ASSERT_TRUE(p.Scegli(n, false));
  struct Caso {
    const char *pagato, *arrotondamento;
    bool saldata;
    const char* messaggio;
  };
  const Caso casi[] = {
      {"100", "0", true, "importo pagato+arrotondamento diverso da importo da saldare"},
      {"100", "-0.02", true, "importo pagato+arrotondamento diverso da importo da saldare"},
      {"100", "0.02", false, "l'arrotondamento e'valido solo se la scadenza e'saldata"},
      {"100.02", "0", false,
       "se l'importo pagato è uguale all'importo scadenza inserire spunta su 'scadenza saldata'"},
      {"0", "0", false, "l'importo pagato è zero"},
      {"900000000000000", "900000000000000", true, "Correggere l'importo"},
      {"40.005", "0", false, "l'importo 40,005 ha più di due decimali"},
      {"100.015", "0.005", true, "l'importo 100,015 ha più di due decimali"},
  };
  for (const Caso& caso : casi) {
    EXPECT_FALSE(Digita(p, caso.pagato, caso.arrotondamento, caso.saldata));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    EXPECT_EQ(p.StatoCorrente(), Stato::RigaAperta);
  }
  dialoghi.Rispondera(
      "l'importo pagato -40,00 ha il segno contrario all'importo da saldare, 100,02", Risposta::No);
  EXPECT_FALSE(Digita(p, "-40", "0", false));
  EXPECT_EQ(p.StatoCorrente(), Stato::RigaAperta);
  dialoghi.Rispondera("proseguo ugualmente", Risposta::Si);
  EXPECT_TRUE(Digita(p, "-40", "0", false));
  ASSERT_TRUE(p.ApriRiga(p.Righe()[0].num));
  EXPECT_TRUE(Digita(p, "100", "0.02", true));
  EXPECT_EQ(p.TotArrotondamento(), I("0.02"));
  ASSERT_TRUE(p.ApriRiga(p.Righe()[0].num));
  p.Riga().Scrivi("ImportoPagato", I("101"));
  p.ArrotondaDifferenza();
  EXPECT_TRUE(p.ConfermaRiga());
  EXPECT_EQ(p.TotArrotondamento(), I("-0.98"));
  ASSERT_TRUE(p.ApriRiga(p.Righe()[0].num));
  EXPECT_TRUE(Digita(p, "40", "0", false));
  EXPECT_EQ(p.TotPagato(), I("40"));
}

TEST_F(PagamentiScadenzarioTest, Conferma) {
  const auto n = Nuova("C", "0001", "100.02", 5);
  duedates::PagamentiScadenzario p(ambiente, Modo::SingolaParte);
  EXPECT_FALSE(p.Conferma());
  EXPECT_EQ(SoloMessaggio(), "non è stata selezionata alcuna scadenza");
  Inizia(p, "0001");
  EXPECT_FALSE(p.Conferma());
  EXPECT_EQ(SoloMessaggio(), "non è stata selezionata alcuna scadenza");
  ASSERT_TRUE(p.Scegli(n, false));
  p.Riga().Scrivi("ImportoPagato", I("100"));
  // The open row is confirmed first, by its own rules.
  EXPECT_FALSE(p.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("importo pagato+arrotondamento"));
  p.Riga().Scrivi("Arrotondamento", I("0.02"));
  struct Caso {
    bool testa;
    const char *campo, *messaggio;
  };
  for (const Caso& caso : {Caso{true, "Descrizione", "Mancano le descrizioni contabili"},
                           {false, "ContropartitaPagScad2", "manca contropartita"},
                           {false, "ContoArrotondamentiPagScad2", "manca conto arrotondamenti"}}) {
    Scheda& scheda = caso.testa ? p.Testa() : p.Impostazioni();
    const std::string prima = scheda.Testo(caso.campo);
    scheda.Scrivi(caso.campo, "");
    EXPECT_FALSE(p.Conferma());
    EXPECT_EQ(SoloMessaggio(), caso.messaggio);
    scheda.Scrivi(caso.campo, prima);
  }
  p.Testa().Scrivi("Dt", Data());
  EXPECT_FALSE(p.Conferma());
  EXPECT_EQ(SoloMessaggio(), "manca la data di registrazione");
  p.Testa().Scrivi("Dt", G(2, 1, 2025));
  dialoghi.Rispondera("anno diverso da 2024", Risposta::No);
  EXPECT_FALSE(p.Conferma());
  EXPECT_EQ(p.Righe().size(), 1U);
  p.Testa().Scrivi("Dt", G(14, 3, 2024));
  Messaggi();
  // Already on the journal: a warning alone.
  Tessarc().Esegui("insert into UltimaDataLibro (Anno, dt) values (2024, #03/20/2024#)");
  ASSERT_TRUE(p.Conferma());
  EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr("già stampata su libro giornale"),
                                      "- Scadenzario aggiornato\n- Creato articolo contabile 1"));
  EXPECT_EQ(p.NumeroConfermato(), 1);
  EXPECT_EQ(p.StatoCorrente(), Stato::Inattiva);
  EXPECT_EQ(Pagata(n), "30 100.02 14/03/2024");
  EXPECT_EQ(TestaDi(1), "P:100.010 C:0001 22 14/03/2024");
  EXPECT_THAT(RigheDi(1), ElementsAre("100 002 C:0001 0/100.02 P:100.010 «incasso FT. 5»",
                                      "200 002 P:100.010 100/0 C:0001 «incasso»",
                                      "300 002 P:580.010 0.02/0 C:0001 «incasso»"));
}

// Codes that are gone since the payment was begun: looked up again, and told with their field.
TEST_F(PagamentiScadenzarioTest, CodiciEliminatiPrimaDellaConferma) {
  const auto n = Nuova("C", "0001", "100", 5);
  struct Caso {
    const char *campo, *codice, *messaggio;
  };
  constexpr const char* kIgnoto = " non esiste, sceglierne uno dall'elenco (F2)";
  for (const Modo modo : {Modo::PiuParti, Modo::SingolaParte}) {
    const std::string numero = modo == Modo::PiuParti ? "1" : "2";
    duedates::PagamentiScadenzario p(ambiente, modo);
    Inizia(p, "0001");
    ASSERT_TRUE(p.Scegli(n, true));
    const std::string prima = Tutto();
    for (const Caso& caso :
         {Caso{"CausalePagScad", "QQQ", "Causale: il codice QQQ"},
          {"CausalePagScad", "", "Manca causale o conti"},
          {"ContropartitaPagScad", "9.9", "manca contropartita: 9.9"},
          {"ContoArrotondamentiPagScad", "9.9", "Conto arrotondamenti: il codice 9.9"}}) {
      SCOPED_TRACE(caso.messaggio);
      const std::string campo = caso.campo + numero;
      const std::string buono = p.Impostazioni().Testo(campo);
      p.Impostazioni().Scrivi(campo, caso.codice);
      EXPECT_FALSE(p.Conferma());
      const std::string detto = SoloMessaggio();
      EXPECT_TRUE(detto.starts_with(caso.messaggio)) << detto;
      if (detto.find("il codice") != std::string::npos) {
        EXPECT_THAT(detto, HasSubstr(kIgnoto));
      }
      EXPECT_EQ(p.CampoRifiutato(), campo);
      EXPECT_EQ(Tutto(), prima);
      p.Impostazioni().Scrivi(campo, buono);
    }
  }
  duedates::PagamentiScadenzario p(ambiente, Modo::PiuParti);
  Inizia(p);
  ASSERT_TRUE(p.Scegli(n, true));
  Tessarc().Esegui("delete * from Causali where Cod='002'");
  EXPECT_FALSE(p.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il codice 002 non esiste"));
  EXPECT_EQ(RigheDi(1).size(), 0U);
}

// A due date that somebody filled in with parts of a cent can still be closed.
TEST_F(PagamentiScadenzarioTest, ResiduoConParteDiCentesimo) {
  const auto n = Nuova("C", "0001", "100.005", 5);
  duedates::PagamentiScadenzario p(ambiente, Modo::PiuParti);
  Inizia(p);
  ASSERT_TRUE(p.Scegli(n, true));
  EXPECT_TRUE(p.Conferma());
  EXPECT_THAT(Pagata(n), HasSubstr("30 100.005"));
  Messaggi();
}

TEST_F(PagamentiScadenzarioTest, InLireSoloLireIntere) {
  const auto n = Nuova("C", "0001", "100", 5);
  ASSERT_TRUE(ambiente.ScegliAnno(2000));
  Config("RegistrazioneContabilePagScad2", "0");
  duedates::PagamentiScadenzario p(ambiente, Modo::SingolaParte);
  p.ScegliParte("C", "0001");
  ASSERT_TRUE(p.Nuovo());
  ASSERT_TRUE(p.Scegli(n, false));
  EXPECT_FALSE(Digita(p, "40.50", "0", false));
  EXPECT_EQ(SoloMessaggio(),
            "l'importo 40,5 ha dei decimali: in un anno in lire gli importi sono in lire intere");
  EXPECT_TRUE(Digita(p, "40", "0", false));
}

TEST_F(PagamentiScadenzarioTest, SingolaParteSenzaRegistrazione) {
  const auto n = Nuova("C", "0001", "100", 5);
  Config("RegistrazioneContabilePagScad2", "0");
  duedates::PagamentiScadenzario p(ambiente, Modo::SingolaParte);
  p.ScegliParte("C", "0001");
  ASSERT_TRUE(p.Nuovo());
  ASSERT_TRUE(p.Scegli(n, true));
  ASSERT_TRUE(p.Conferma());
  EXPECT_EQ(SoloMessaggio(), "- Scadenzario aggiornato");
  EXPECT_EQ(Pagata(n), "30 100 15/03/2024");
  EXPECT_EQ(TestaDi(1), "manca");
}

}  // namespace
}  // namespace fenalto::prova
