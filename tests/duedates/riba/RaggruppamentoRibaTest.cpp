// Grouping of receipts: which go together, what is written and what is left, when nothing is.
#include "duedates/riba/RaggruppamentoRiba.h"
#include "ledger/GuastiDiProva.h"
#include "ledger/Stampati.h"

namespace fenalto::prova {
namespace {

struct DaScrivere {
  std::int64_t numero;
  const char* conto;
  Data dt;
  const char* importo;
  std::int64_t nFat;
  Data dtFat;
  std::vector<Coppia> altri = {};
};

class RaggruppamentoRibaTest : public DittaDiProva {
 protected:
  Archivio& Scadenzario() { return ambiente.ArchivioDi("scadenzario"); }

  void Scrivi(const DaScrivere& d) {
    std::vector<Coppia> campi = {{"Numero", d.numero}, {"CFP", "C"},
                                 {"Conto", d.conto},   {"Dt", d.dt},
                                 {"Tipo", "03"},       {"Stato", "00"},
                                 {"NFat", d.nFat},     {"DtFat", d.dtFat},
                                 {"Pagamento", "R30"}, {"Programma", "fatture"},
                                 {"Anno", 2024},       {"Articolo", d.numero}};
    for (const Coppia& campo : duedates::CampiImporto(I(d.importo))) campi.push_back(campo);
    for (const Coppia& altro : d.altri) {
      std::erase_if(campi, [&](const Coppia& campo) { return campo.first == altro.first; });
      campi.push_back(altro);
    }
    Scadenzario().Inserisci("Scadenze", campi);
  }

  /// Three invoices of one group, one of another day.
  void ScriviGruppo() {
    Scrivi({1, "0001", G(31, 5, 2024), "100.10", 12, G(31, 1, 2024)});
    Scrivi({2, "0001", G(31, 5, 2024), "200.20", 15, G(31, 1, 2024)});
    Scrivi({3, "0001", G(31, 5, 2024), "300", 20, G(28, 2, 2024), {{"Descrizione", "ft. 20"}}});
    Scrivi({4, "0001", G(30, 6, 2024), "50", 20, G(28, 2, 2024)});
  }

  /// Groups as "customer day code: numbers = total", '*' when they become one.
  std::vector<std::string> Gruppi(const duedates::SceltaRaggruppamento& scelta = {}) {
    std::vector<std::string> testi;
    for (const duedates::GruppoRiba& g : Leggi(scelta)) {
      std::string testo = g.conto + " " + g.dt.Testo() + " " + g.pagamento + ":";
      for (const duedates::Scadenza& s : g.scadenze) testo += " " + std::to_string(s.numero);
      testi.push_back(testo + " = " + g.Totale().Testo() + (g.DaRaggruppare() ? " *" : ""));
    }
    return testi;
  }
  std::vector<duedates::GruppoRiba> Leggi(const duedates::SceltaRaggruppamento& scelta = {}) {
    return Raggruppamento().Elenco(scelta).value();
  }
  duedates::RaggruppamentoRiba Raggruppamento() { return {ambiente, uscite}; }

  bool Definitivo(const std::vector<duedates::GruppoRiba>& gruppi) {
    dialoghi.Rispondera("E' stata impostata la stampa definitiva: ESEGUO IL LAVORO ?",
                        Risposta::Si);
    dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
    return Raggruppamento().Definitivo({G(1, 1, 2024), G(31, 12, 2024), ""}, gruppi);
  }
  /// What customers still have to pay.
  Importo Aperto() {
    return Scadenzario()
        .Singolo("select Sum(ImportoE-ImportoPagatoE) from Scadenze where CFP='C' and Stato<'30'")
        .Importo();
  }
  std::string Scadenze() { return Contenuto("scadenzario"); }

  FabbricaDiProva uscite;
};

TEST_F(RaggruppamentoRibaTest, ElencaPerClienteGiornoECodice) {
  ScriviGruppo();
  const Data maggio = G(31, 5, 2024);
  const Data fattura = G(31, 1, 2024);
  Scrivi({5, "0002", maggio, "10", 1, fattura, {{"Stato", "01"}}});
  Scrivi({6, "0002", maggio, "20", 2, fattura, {{"Pagamento", "R60"}}});
  Scrivi({7, "0002", maggio, "30", 3, fattura, {{"Pagamento", "r30"}}});
  // None of these is a receipt that may still be presented.
  Scrivi({8, "0001", maggio, "1", 4, fattura, {{"Stato", "20"}}});
  Scrivi({9, "0001", maggio, "1", 5, fattura, {{"Tipo", "01"}}});
  Scrivi({10, "0001", maggio, "1", 6, fattura, {{"CFP", "F"}}});
  Scrivi({11, "0001", maggio, "-1", 0, {}, {{"anticipo", true}}});
  EXPECT_THAT(Gruppi(),
              ElementsAre("0001 31/05/2024 R30: 1 2 3 = 600.3 *", "0001 30/06/2024 R30: 4 = 50",
                          "0002 31/05/2024 R30: 5 7 = 40 *", "0002 31/05/2024 R60: 6 = 20"));
  EXPECT_EQ(Gruppi({{}, {}, "0002"}).size(), 2U);
  EXPECT_THAT(Gruppi({G(1, 6, 2024), G(30, 6, 2024), ""}),
              ElementsAre("0001 30/06/2024 R30: 4 = 50"));
  EXPECT_TRUE(Gruppi({G(1, 7, 2024), {}, ""}).empty());
}

TEST_F(RaggruppamentoRibaTest, UnaScadenzaAlPostoDiTre) {
  ScriviGruppo();
  const Importo prima = Aperto();
  ASSERT_TRUE(Definitivo(Leggi()));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("scadenze raggruppate: 3\nnuove scadenze: 1"));
  EXPECT_EQ(Aperto(), prima);

  Rs nuova = Scadenzario().Recordset("select * from Scadenze where Numero=5");
  ASSERT_FALSE(nuova.Eof());
  const std::vector<Coppia> attesi = {
      {"CFP", "C"},
      {"Conto", "0001"},
      {"Dt", G(31, 5, 2024)},
      {"Tipo", "03"},
      {"Stato", "00"},
      {"Programma", "RaggRiba"},
      {"ImportoE", I("600.3")},
      {"ImportoPagatoE", Importo()},
      {"Importo", duedates::CampiImporto(I("600.3"))[0].second},
      {"ImportoPagato", Importo()},
      {"Descrizione", "fatt.n. 12,15 del 31/01/24, 20 del 28/02/24"},
      {"Pagamento", "R30"},
      {"BancaPresentaz", ""},
      {"Ndistinta", 0},
      {"DtPres", Data()},
      {"NFat", ""},
      {"anticipo", false}};
  for (const auto& [campo, valore] : attesi) EXPECT_EQ(nuova.Fields(campo), valore) << campo;

  Rs chiusa = Scadenzario().Recordset("select * from Scadenze where Numero=3");
  EXPECT_EQ(chiusa.Fields("Stato").Testo(), duedates::kStatoPagata);
  EXPECT_EQ(chiusa.Fields("Programma").Testo(), duedates::kProgrammaRaggruppata);
  EXPECT_EQ(chiusa.Fields("Descrizione").Testo(), "ft. 20 (raggruppata nella scad.n. 5)");
  EXPECT_EQ(chiusa.Fields("DtPag").Data(), Data());
  EXPECT_EQ(chiusa.Fields("ImportoPagatoE").Importo(), Importo());

  // The new one is no invoice's: it isn't grouped again.
  EXPECT_THAT(Gruppi(), ElementsAre("0001 30/06/2024 R30: 4 = 50"));
  EXPECT_FALSE(Raggruppamento().Definitivo({}, Leggi()));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non ci sono Ri.Ba. da raggruppare"));
}

TEST_F(RaggruppamentoRibaTest, DelleParzialiIlResiduoENienteSottoZero) {
  ScriviGruppo();
  Scadenzario().Esegui(
      "update Scadenze set Stato='10', ImportoPagatoE=40.1, ImportoPagato=77644 where Numero=1");
  const Data giugno = G(30, 6, 2024);
  Scrivi({5, "0001", giugno, "-50", 3, G(1, 3, 2024)});  // credit note of all that there is
  Scrivi({6, "0002", giugno, "80", 4, G(1, 3, 2024)});
  Scrivi({7, "0002", giugno, "-30", 5, G(1, 3, 2024)});
  const Importo prima = Aperto();
  ASSERT_TRUE(Definitivo(Leggi()));
  EXPECT_EQ(Aperto(), prima);
  const std::string messaggio = SoloMessaggio();
  EXPECT_THAT(messaggio, HasSubstr("raggruppate per il solo residuo: 1"));
  EXPECT_THAT(messaggio, HasSubstr("non è maggiore di zero, che restano come sono: 1"));
  const auto importo = [this](int numero) {
    return Scadenzario()
        .Singolo("select ImportoE from Scadenze where Numero=" + std::to_string(numero))
        .Importo();
  };
  EXPECT_EQ(importo(8), I("560.2"));
  EXPECT_EQ(importo(9), I("50"));
  // What was paid of it stays where it was paid.
  EXPECT_EQ(Scadenzario().Singolo("select ImportoPagatoE from Scadenze where Numero=1").Importo(),
            I("40.1"));
  EXPECT_THAT(Gruppi(), ElementsAre("0001 30/06/2024 R30: 4 5 = 0"));
}

TEST_F(RaggruppamentoRibaTest, Stampa) {
  ScriviGruppo();
  const std::string prima = Scadenze();
  dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
  ASSERT_TRUE(Raggruppamento().StampaProva({G(1, 1, 2024), G(31, 12, 2024), ""}, Leggi()));
  EXPECT_EQ(Scadenze(), prima);
  for (const char* riga :
       {"RAGGRUPPAMENTO RIBA DA DATA SCAD 01/01/24 A 31/12/24",
        "cliente                                n.fatt. data ft. data sc.        importo  "
        "riferimenti fatture",
        "0001 Clienti 0001 dell'Oro                  12 31/01/24 31/05/24        100,100",
        "raggruppate 3                                           31/05/24        600,300  "
        "fatt.n. 12,15 del 31/01/24, 20 del 28/02/24",
        "0001 Clienti 0001 dell'Oro                  20 28/02/24 30/06/24         50,000",
        "TOTALE                                                                  650,300  "
        "scadenze 4, ricevute dopo il raggruppamento 2"}) {
    EXPECT_THAT(uscite.Testo(), HasSubstr(riga));
  }
  EXPECT_THAT(uscite.Testo(), Not(HasSubstr("DEFINITIVO")));
  ASSERT_TRUE(Definitivo(Leggi()));
  EXPECT_THAT(uscite.Testo(), HasSubstr("A 31/12/24 DEFINITIVO"));
  Messaggi();
  EXPECT_FALSE(Raggruppamento().StampaProva({}, {}));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non ci sono Ri.Ba."));
}

TEST_F(RaggruppamentoRibaTest, RifiutateNonScrivonoNulla) {
  ScriviGruppo();
  const auto gruppi = Leggi();
  const std::string prima = Scadenze();
  dialoghi.Rispondera("ESEGUO IL LAVORO", Risposta::No);
  EXPECT_FALSE(Raggruppamento().Definitivo({}, gruppi));
  dialoghi.Rispondera("ESEGUO IL LAVORO", Risposta::Si);
  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(Raggruppamento().Definitivo({}, gruppi));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("Non è stato scritto nulla"));
  EXPECT_EQ(Scadenze(), prima);

  // Another station was there meanwhile; a due date that stays alone may be changed.
  const auto altra = NuovaStazione("MAGAZZINO");
  struct Caso {
    const char *istruzione, *messaggio;
  };
  const std::vector<Caso> casi = {
      {"update Scadenze set Stato='30' where Numero=2",
       "scadenza n. 2 del 31/05/2024 di Clienti 0001 dell'Oro, ft. 15 del 31/01/2024, euro "
       "200,20\nè già "
       "stata pagata"},
      {"update Scadenze set Stato='00', ImportoE=7 where Numero=2", "era 200,20, ora 7,00"},
      {"delete * from Scadenze where Numero=2", "è stata eliminata da un'altra postazione"},
  };
  for (const Caso& caso : casi) {
    altra->ambiente->ArchivioDi("scadenzario").Esegui(caso.istruzione);
    const std::string cambiato = Scadenze();
    dialoghi.Rispondera("ESEGUO IL LAVORO", Risposta::Si);
    EXPECT_FALSE(Raggruppamento().Definitivo({}, gruppi));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    EXPECT_EQ(Scadenze(), cambiato);
  }
  const auto rilette = Leggi();
  altra->ambiente->ArchivioDi("scadenzario").Esegui("delete * from Scadenze where Numero=4");
  EXPECT_TRUE(Definitivo(rilette));
  Messaggi();
}

TEST_F(RaggruppamentoRibaTest, OgniIstruzioneCheFallisceNonLasciaNulla) {
  ScriviGruppo();
  const auto gruppi = Leggi();
  bool pronta = false;
  const int fallite = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Scadenze() + Contenuto(); },
      [&] {
        dialoghi.Rispondera("ESEGUO IL LAVORO", Risposta::Si);
        // What fails before the print doesn't ask for the output.
        if (!pronta) dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
        dialoghi.domande.clear();
        const bool riuscita = Raggruppamento().Definitivo({}, gruppi);
        pronta = dialoghi.domande.size() == 1;
        return riuscita;
      });
  EXPECT_GT(fallite, 10);
  Messaggi();
}

TEST(RiferimentiFattureTest, InSessantaquattroCaratteri) {
  const auto riferimenti = [](const std::vector<std::pair<std::int64_t, Data>>& fatture) {
    std::vector<duedates::Scadenza> scadenze;
    for (const auto& [nFat, dtFat] : fatture) {
      duedates::Scadenza s;
      s.nFat = std::to_string(nFat);
      s.dtFat = dtFat;
      scadenze.push_back(s);
    }
    return duedates::RiferimentiFatture(scadenze);
  };
  const Data gennaio = G(31, 1, 2024);
  const Data marzo = G(31, 3, 2024);
  EXPECT_EQ(riferimenti({{7, marzo}, {7, marzo}}), "fatt.n. 7 del 31/03/24");
  EXPECT_EQ(riferimenti({{7, marzo}, {9, gennaio}, {8, gennaio}}),
            "fatt.n. 8,9 del 31/01/24, 7 del 31/03/24");
  EXPECT_EQ(riferimenti({{7, {}}, {8, {}}}), "fatt.n. 7,8");
  std::vector<std::pair<std::int64_t, Data>> molte;
  for (int i = 0; i < 30; ++i) molte.emplace_back(1001 + i, gennaio.PiuGiorni(i / 5));
  // Exactly as many as find room, the rest counted.
  EXPECT_EQ(riferimenti(molte), "fatt.n. 1001,1002,1003,1004,1005 del 31/01/24 e altre 25");
  for (std::size_t quante = 1; quante <= molte.size(); ++quante) {
    const std::string testo =
        riferimenti({molte.begin(), molte.begin() + static_cast<int>(quante)});
    EXPECT_LE(testo.size(), 64U) << testo;
  }
}

}  // namespace
}  // namespace fenalto::prova
