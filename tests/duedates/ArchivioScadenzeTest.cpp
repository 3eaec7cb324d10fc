// One due date opened, corrected, added, erased, restored: what is refused and told, what is
// written, and that another station's work is never lost.
#include "duedates/payments/ScadenzeDiProva.h"
#include "duedates/schedules/ArchivioScadenze.h"
#include "duedates/schedules/CreaScadenze.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

constexpr const char* kMeno =
    "se si tratta di un anticipo su fattura da emettere o ricevere bisogna impostare il segno meno "
    "sull'importo";
constexpr const char* kAutomatica =
    "Attenzione : se sono state effettuate variazioni su una scadenza creata automaticamente "
    "potrebbero esserci discordanze con la contabilità";

class ArchivioScadenzeTest : public ScadenzeDiProva {
 protected:
  Valore Campo(std::int64_t numero, const char* campo) {
    return Scadenzario().Singolo("select " + std::string(campo) + " from Scadenze where " +
                                 sql::Criterio("Numero", "=", numero));
  }
  void Imposta(std::int64_t numero, const std::string& campi) {
    Scadenzario().Esegui("update Scadenze set " + campi + " where " +
                         sql::Criterio("Numero", "=", numero));
  }
  /// A due date that a payment of 14/03/2024 has closed.
  std::int64_t Saldata() {
    const auto n = Nuova("C", "0001", "100", 5, "100");
    Imposta(n, "Stato='30', DtPag=#03/14/2024#");
    return n;
  }

  duedates::ArchivioScadenze archivio{ambiente};
};

TEST_F(ArchivioScadenzeTest, UnaNuovaPrendeIlNumeroAllaConferma) {
  const auto prima = Nuova("C", "0001", "100", 5);
  archivio.Inizia();
  EXPECT_EQ(archivio.Titolo(), "nuova scadenza ");
  EXPECT_FALSE(archivio.Modificata());
  archivio.Record().Scrivi("Conto", "0002");
  archivio.Record().Scrivi("Tipo", "01");
  archivio.Record().Scrivi("Stato", "01");
  archivio.Record().Scrivi("ImportoE", I("10.5"));
  // Another station is quicker.
  const auto altra = Nuova("F", "0001", "1", 6);
  ASSERT_TRUE(archivio.Conferma());
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_FALSE(archivio.Aperta());
  EXPECT_EQ(archivio.Numero(), altra + 1);
  EXPECT_EQ(S(archivio.Numero()).dt, G(15, 3, 2024));
  EXPECT_EQ(Campo(archivio.Numero(), "Importo").Importo(), EuroInLire(I("10.5"), true));
  EXPECT_EQ(Campo(archivio.Numero(), "Programma").Testo(), "scadenze");
  EXPECT_EQ(S(prima).importoE, I("100"));
}

TEST_F(ArchivioScadenzeTest, ControlliNelLoroOrdine) {
  struct Caso {
    duedates::ArchivioScadenze::Uso uso;
    const char *conto, *tipo, *stato, *campo, *messaggio;
  };
  using Uso = duedates::ArchivioScadenze::Uso;
  constexpr const char* kManca = "manca cliente/fornitore, tipo, stato";
  const Caso casi[] = {
      {Uso::Archivio, "", "01", "01", "Conto", kManca},
      {Uso::Archivio, "0001", " ", "01", "Tipo", kManca},
      {Uso::Archivio, "0001", "01", "", "Stato", kManca},
      {Uso::Documento, "0001", "", "01", "Tipo", "manca tipo o stato"},
      {Uso::Documento, "0001", "01", "", "Stato", "manca tipo o stato"},
      {Uso::Archivio, "9999", "77", "1", "Conto", "il cliente 9999 non è in archivio"},
      {Uso::Archivio, "0001", "77", "1", "Tipo", "il tipo 77 non è fra i tipi di pagamento"},
      {Uso::Archivio, "0001", "01", "1", "Stato", "lo stato è di due cifre"},
      {Uso::Archivio, "0001", "01", "3x", "Stato", "lo stato è di due cifre"},
  };
  const std::string prima = Tutto();
  for (const Caso& caso : casi) {
    duedates::ArchivioScadenze nuova(ambiente, caso.uso);
    nuova.Inizia({{"Conto", caso.conto}, {"Tipo", caso.tipo}, {"Stato", caso.stato}});
    nuova.Record().Scrivi("ImportoE", I("-1"));
    std::string campo;
    EXPECT_FALSE(nuova.Conferma(&campo));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    EXPECT_EQ(campo, caso.campo);
    EXPECT_TRUE(nuova.Aperta());
  }
  archivio.Inizia({{"Conto", "0001"}, {"Tipo", "01"}, {"Stato", "01"}, {"Dt", Data()}});
  EXPECT_FALSE(archivio.Conferma());
  EXPECT_EQ(SoloMessaggio(), "manca la data della scadenza");
  archivio.Record().Scrivi("Dt", G(1, 4, 2024));
  archivio.Record().Scrivi("Riva", "ZZ");
  std::string campo;
  EXPECT_FALSE(archivio.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio(),
            "Registro iva: il codice ZZ non esiste, sceglierne uno dall'elenco (F2)");
  EXPECT_EQ(campo, "Riva");
  archivio.Record().Scrivi("Riva", "");
  archivio.Record().Scrivi("ImportoE", I("10.005"));
  EXPECT_FALSE(archivio.Conferma());
  EXPECT_EQ(SoloMessaggio(),
            "l'importo 10,005 ha più di due decimali: gli importi sono in centesimi");
  EXPECT_EQ(Tutto(), prima);
}

// A register that a stored due date names stays, though its archive has lost it.
TEST_F(ArchivioScadenzeTest, RegistroDiUnTempo) {
  const auto n = Nuova("C", "0001", "100", 5);
  Imposta(n, "Riva='ZZ'");
  ASSERT_TRUE(archivio.Apri(n));
  archivio.Record().Scrivi("Descrizione", "saldo");
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_EQ(Campo(n, "Riva").Testo(), "ZZ");
}

TEST_F(ArchivioScadenzeTest, AvvisiCheNonFermano) {
  struct Caso {
    const char* importo;
    bool anticipo;
    const char* programma;
    std::vector<std::string> detti;
  };
  const Caso casi[] = {{"5", false, "", {}},
                       {"5", false, "scadenze", {}},
                       {"-5", false, "", {kMeno}},
                       {"5", true, "", {kMeno}},
                       {"5", false, "fatture", {kAutomatica}},
                       {"-5", true, "acconti", {kMeno, kAutomatica}}};
  for (const Caso& caso : casi) {
    const auto n = Nuova("C", "0001", caso.importo, 5);
    Imposta(n, "Programma='" + std::string(caso.programma) +
                   "', anticipo=" + (caso.anticipo ? "True" : "False"));
    ASSERT_TRUE(archivio.Apri(n));
    EXPECT_EQ(archivio.Titolo(), "scadenza n. " + std::to_string(n));
    archivio.Record().Scrivi("Descrizione", "corretta");
    EXPECT_TRUE(archivio.Conferma());
    EXPECT_EQ(Messaggi(), caso.detti);
    EXPECT_EQ(S(n).descrizione, "corretta");
    EXPECT_EQ(Campo(n, "Programma").Testo(), caso.programma);
  }
  duedates::ArchivioScadenze delDocumento(ambiente, duedates::ArchivioScadenze::Uso::Documento);
  ASSERT_TRUE(delDocumento.Apri(1));
  EXPECT_TRUE(delDocumento.Conferma());
  EXPECT_EQ(SoloMessaggio(), "Scadenza memorizzata");
}

// A tipo that the archive of types has lost doesn't keep an old due date from being corrected.
TEST_F(ArchivioScadenzeTest, QuelloCheNonSiToccaNonSiControlla) {
  const auto n = Nuova("C", "0001", "100", 5);
  Imposta(n, "Conto='PERSO', Tipo='77', Stato='1', Importo=7");
  ASSERT_TRUE(archivio.Apri(n));
  archivio.Record().Scrivi("Dt", G(1, 4, 2024));
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_EQ(S(n).dt, G(1, 4, 2024));
  EXPECT_EQ(Campo(n, "Importo").Importo(), I("7"));
}

// The confirmation of an invoice makes its due dates anew, but not those a person has changed.
TEST_F(ArchivioScadenzeTest, LeCorretteAManoNonSiRifannoConLaFattura) {
  const auto elimina = [this] {
    std::string log;
    Transazione transazione(ambiente.Basi());
    const bool eliminate = duedates::EliminaScadenzeFattura(ambiente, 2024, 12, log);
    transazione.Conferma();
    return eliminate;
  };
  const auto n = Nuova("C", "0001", "100", 5);
  Imposta(n, "Articolo=12, Programma='fatture'");
  ASSERT_TRUE(archivio.Apri(n));
  ASSERT_TRUE(archivio.Conferma());  // only looked at
  EXPECT_TRUE(elimina());
  const auto corretta = Nuova("C", "0001", "100", 5);
  Imposta(corretta, "Articolo=12, Programma='fatture'");
  ASSERT_TRUE(archivio.Apri(corretta));
  archivio.Record().Scrivi("Dt", G(1, 4, 2024));
  ASSERT_TRUE(archivio.Conferma());
  EXPECT_FALSE(elimina());
  EXPECT_EQ(S(corretta).stato, "00");
  Messaggi();
}

TEST_F(ArchivioScadenzeTest, Elimina) {
  const auto n = Nuova("C", "0001", "100", 5);
  ASSERT_TRUE(archivio.Apri(n));
  for (const auto risposta : {Risposta::No, Risposta::Si}) {
    EXPECT_TRUE(duedates::LeggiScadenza(ambiente, n).has_value());
    dialoghi.Rispondera("Conferma eliminazione SCADENZA ?", risposta);
    EXPECT_EQ(archivio.Elimina(), risposta == Risposta::Si);
    EXPECT_EQ(SoloMessaggio(),
              "Attenzione : se sono state effettuate variazioni sulla scadenza potrebbero crearsi "
              "discordanze con altri archivi (per esempio con movimenti contabili e fatture)");
  }
  EXPECT_FALSE(duedates::LeggiScadenza(ambiente, n).has_value());
  EXPECT_FALSE(archivio.Aperta());
  EXPECT_FALSE(archivio.Apri(n));
}

TEST_F(ArchivioScadenzeTest, RipristinaUnaPagata) {
  const auto aperta = Nuova("C", "0001", "100", 5);
  ASSERT_TRUE(archivio.Apri(aperta));
  EXPECT_FALSE(archivio.Ripristinabile());
  const auto n = Saldata();
  ASSERT_TRUE(archivio.Apri(n));
  ASSERT_TRUE(archivio.Ripristinabile());
  archivio.Record().Scrivi("Descrizione", "ancora da confermare");
  const std::string domanda =
      "Si tratta di una scadenza già pagata. Si puo ripristinarla come 'non pagata', ma "
      "attenzione:\nbisogna anche eliminare la registrazione contabile del pagamento\n\n"
      "imposto questa scadenza come NON ANCORA PAGATA";
  dialoghi.Rispondera(domanda, Risposta::No);
  EXPECT_FALSE(archivio.Ripristina());
  EXPECT_EQ(Pagata(n), "30 100 14/03/2024");
  dialoghi.Rispondera(domanda, Risposta::Si);
  EXPECT_TRUE(archivio.Ripristina());
  EXPECT_EQ(Pagata(n), "01 0 ");
  EXPECT_FALSE(archivio.Ripristinabile());
  // What was being typed is still there, and can be confirmed.
  EXPECT_TRUE(archivio.Modificata());
  EXPECT_EQ(S(n).descrizione, "");
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_EQ(S(n).descrizione, "ancora da confermare");
  EXPECT_EQ(Pagata(n), "01 0 ");
  EXPECT_THAT(Messaggi(), IsEmpty());
}

// A batch confirmed by mistake: what the customer had paid before stays paid.
TEST_F(ArchivioScadenzeTest, RipristinaUnaRiba) {
  const auto n = Nuova("C", "0001", "100", 5, "40");
  Imposta(n,
          "Tipo='03', Stato='30', Ndistinta=7, BancaPresentaz='01', DtPres=#03/10/2024#, "
          "DtPag=#03/05/2024#");
  ASSERT_TRUE(archivio.Apri(n));
  dialoghi.Rispondera("bisogna anche eliminare la registrazione contabile RIBA a CLIENTI",
                      Risposta::Si);
  ASSERT_TRUE(archivio.Ripristina());
  EXPECT_EQ(Pagata(n), "01 40 05/03/2024");
  EXPECT_EQ(Campo(n, "Ndistinta").Intero(), 0);
  EXPECT_EQ(Campo(n, "BancaPresentaz").Testo(), "");
  EXPECT_TRUE(Campo(n, "DtPres").Data().Nulla());
  // What took its place would be asked for a second time.
  Imposta(n, "Stato='30', Programma='Raggruppata'");
  ASSERT_TRUE(archivio.Apri(n));
  dialoghi.Rispondera("e la scadenza in cui questa era stata raggruppata", Risposta::No);
  EXPECT_FALSE(archivio.Ripristina());
  // Paid by hand, not presented.
  Imposta(n, "Stato='30', DtPag=#03/14/2024#, ImportoPagatoE=100");
  ASSERT_TRUE(archivio.Apri(n));
  dialoghi.Rispondera("registrazione contabile del pagamento", Risposta::No);
  EXPECT_FALSE(archivio.Ripristina());
}

TEST_F(ArchivioScadenzeTest, VedereLaRegistrazione) {
  const auto articolo = DittaDiProva::Registra({{"100.010", I("5")}, {"580.010", I("-5")}});
  const auto n = Nuova("C", "0001", "100", 5);
  const auto vede = [&](const char* campi) {
    Imposta(n, campi);
    archivio.Apri(n);
    return archivio.VedereRegCont();
  };
  EXPECT_FALSE(vede("Articolo=0"));
  EXPECT_EQ(SoloMessaggio(), "la scadenza non ha una registrazione contabile");
  dialoghi.Rispondera("Vedere la fattura  ?", Risposta::Si);
  EXPECT_FALSE(vede("Articolo=1, Anno=2023"));
  EXPECT_EQ(SoloMessaggio(), "selezionare l'anno 2023");
  dialoghi.Rispondera("Vedere la fattura  ?", Risposta::Si);
  EXPECT_FALSE(vede("Articolo=99, Anno=2024"));
  EXPECT_EQ(SoloMessaggio(), "nel 2024 non c'è più la registrazione n. 99");
  dialoghi.Rispondera("Vedere la fattura  ?", Risposta::No);
  EXPECT_FALSE(vede("Articolo=1"));
  for (const bool iva : {false, true}) {
    Tessarc().Esegui(std::string("update Articoli set Riva='") + (iva ? "3" : "") + "'");
    dialoghi.Rispondera("Vedere la fattura  ?", Risposta::Si);
    const auto registrazione = vede("Articolo=1");
    ASSERT_TRUE(registrazione.has_value());
    EXPECT_EQ(registrazione->numero, articolo);
    EXPECT_EQ(registrazione->iva, iva);
  }
  Tessarc().Esegui("update Articoli set CFP='C', Conto='0002' where NumDoc=1");
  dialoghi.Rispondera("Vedere la fattura  ?", Risposta::Si);
  EXPECT_FALSE(vede("Articolo=1"));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("è di un altro cliente o fornitore"));
}

// What is rarely meant is asked, after what is told.
TEST_F(ArchivioScadenzeTest, DomandePrimaDiScrivere) {
  struct Caso {
    const char *com, *campo;
    Valore digitato;
    const char* domanda;  ///< empty for none
    std::vector<std::string> detti;
  };
  const std::string pagata =
      "Si tratta di una scadenza già pagata. Si puo ripristinarla come 'non pagata', ma "
      "attenzione:\nbisogna anche eliminare la registrazione ";
  const Caso casi[] = {
      {"Stato='30', ImportoPagatoE=100, DtPag=#03/14/2024#",
       "Stato",
       "01",
       "contabile del pagamento",
       {}},
      {"Stato='30', ImportoPagatoE=100, DtPag=#03/14/2024#", "Stato", "35", "", {}},
      {"Stato='30', ImportoPagatoE=100, DtPag=#03/14/2024#", "Descrizione", "x", "", {}},
      {"Tipo='03', Stato='30', Ndistinta=7",
       "Stato",
       "01",
       "",
       {pagata + "contabile RIBA a CLIENTI"}},
      {"Stato='10', ImportoPagatoE=40",
       "ImportoPagatoE",
       I("-40"),
       "l'importo pagato -40,00 ha il segno contrario all'importo della scadenza, 100,00",
       {}},
      {"Stato='10', ImportoPagatoE=40", "ImportoPagatoE", I("50"), "", {}},
      {"Stato='10', ImportoPagatoE=-40", "Descrizione", "x", "", {}},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(std::string(caso.com) + ": " + caso.campo);
    for (const auto risposta : {Risposta::No, Risposta::Si}) {
      const bool chiede = *caso.domanda != '\0';
      const auto n = Nuova("C", "0001", "100", 5);
      Imposta(n, caso.com);
      const std::string prima = Tutto();
      ASSERT_TRUE(archivio.Apri(n));
      archivio.Record().Scrivi(caso.campo, caso.digitato);
      if (chiede) dialoghi.Rispondera(caso.domanda, risposta);
      std::string campo;
      const bool scritta = archivio.Conferma(&campo);
      EXPECT_EQ(scritta, !chiede || risposta == Risposta::Si);
      EXPECT_EQ(Tutto() != prima, scritta);
      EXPECT_EQ(campo, scritta ? "" : caso.campo);
      EXPECT_EQ(Messaggi(), caso.detti);
      archivio.Abbandona();
    }
  }
}

// Somebody has the due date open: it can be looked at. A payment doesn't ask for that, and is found
// when what was typed is to be written.
TEST_F(ArchivioScadenzeTest, UnAltraPostazione) {
  const auto altra = NuovaStazione("MAGAZZINO");
  const auto n = Nuova("C", "0001", "100", 5);
  duedates::ArchivioScadenze la(*altra->ambiente);
  ASSERT_TRUE(la.Apri(n));
  ASSERT_TRUE(archivio.Apri(n));
  EXPECT_TRUE(archivio.SolaLettura());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("in modifica dalla stazione MAGAZZINO"));
  EXPECT_FALSE(archivio.Conferma());
  EXPECT_FALSE(archivio.Elimina());
  EXPECT_FALSE(archivio.Ripristinabile());
  Messaggi();

  la.Record().Scrivi("ImportoE", I("90"));
  Imposta(n, "Stato='30', ImportoPagatoE=100");
  const std::string prima = Tutto();
  EXPECT_FALSE(la.Conferma());
  EXPECT_THAT(altra->dialoghi.UltimoMessaggio(),
              ::testing::AllOf(HasSubstr("è già stata pagata o presentata"),
                               HasSubstr("Non è stato scritto nulla")));
  altra->dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
  EXPECT_FALSE(la.Elimina());
  EXPECT_EQ(Tutto(), prima);
  EXPECT_EQ(la.Record().Leggi("ImportoE").Importo(), I("90"));

  // What this one didn't touch keeps what the other has written meanwhile.
  ASSERT_TRUE(la.Apri(n));
  la.Record().Scrivi("Descrizione", "mia");
  Imposta(n, "TipoDoc='FT'");
  EXPECT_TRUE(la.Conferma());
  EXPECT_EQ(Campo(n, "TipoDoc").Testo(), "FT");
  EXPECT_EQ(S(n).descrizione, "mia");
  ASSERT_TRUE(archivio.Apri(n));
  EXPECT_FALSE(archivio.SolaLettura());
}

TEST_F(ArchivioScadenzeTest, GuastoAMetaNonLasciaNulla) {
  const auto n = Saldata();
  const auto provaOgni = [this](const std::function<bool()>& azione) {
    EXPECT_GT(FallisceOgniIstruzione(
                  ambiente.Basi(), Guasto::Errore, [this] { return Tutto(); }, azione),
              2);
    for (const auto& messaggio : Messaggi()) {
      EXPECT_THAT(messaggio, ::testing::AnyOf(HasSubstr("Non è stato scritto nulla"),
                                              HasSubstr("Attenzione : ")));
    }
  };
  ASSERT_TRUE(archivio.Apri(n));
  provaOgni([&] {
    dialoghi.Rispondera("NON ANCORA PAGATA", Risposta::Si);
    return archivio.Ripristina();
  });
  archivio.Record().Scrivi("ImportoE", I("90"));
  provaOgni([&] { return archivio.Conferma(); });
  EXPECT_EQ(S(n).importoE, I("90"));
  archivio.Inizia({{"Conto", "0001"}, {"Tipo", "01"}, {"Stato", "01"}});
  provaOgni([&] { return archivio.Conferma(); });
  ASSERT_TRUE(archivio.Apri(n + 1));
  provaOgni([&] {
    dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
    return archivio.Elimina();
  });
  EXPECT_FALSE(duedates::LeggiScadenza(ambiente, n + 1).has_value());
}

}  // namespace
}  // namespace fenalto::prova
