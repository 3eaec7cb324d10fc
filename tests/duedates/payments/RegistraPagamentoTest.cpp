// What a payment writes on due dates and in the books, when it is refused, and that it is written
// whole or not at all.
#include "duedates/payments/RegistraPagamento.h"
#include "duedates/payments/ScadenzeDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

class RegistraPagamentoTest : public ScadenzeDiProva {
 protected:
  duedates::Pagamento Base(const char* cfp, std::vector<duedates::RigaPagamento> righe) {
    duedates::Pagamento p;
    p.cfp = cfp;
    p.dt = G(14, 3, 2024);
    p.causale = "002";
    p.descrizione = "incasso";
    p.contropartita = "100.010";
    p.contoArrotondamenti = "580.010";
    p.righe = std::move(righe);
    return p;
  }
  duedates::RigaPagamento R(std::int64_t numero, const char* pagato,
                            const char* arrotondamento = "0", bool saldata = true) {
    return {S(numero), I(pagato), I(arrotondamento), saldata};
  }
  std::int64_t Registra(const duedates::Pagamento& p) {
    const duedates::PagamentoScritto scritto = duedates::RegistraPagamento(ambiente, p);
    EXPECT_TRUE(scritto.scritto);
    EXPECT_THAT(Messaggi(), IsEmpty());
    return scritto.numDoc;
  }
};

TEST_F(RegistraPagamentoTest, Lati) {
  const auto c = Nuova("C", "0001", "100.02", 5);
  const auto nota = Nuova("C", "0001", "-30", 6);
  const auto f = Nuova("F", "0002", "50", 7, "10");
  struct Caso {
    const char* cosa;
    duedates::Pagamento pagamento;
    std::string testa;
    std::vector<std::string> righe;
  };
  duedates::Pagamento fornitore = Base("F", {R(f, "40.01", "-0.01")});
  fornitore.descrizioneParte = "saldo";
  fornitore.origine = ledger::Origine::PagamentoSingolo;
  const Caso casi[] = {
      {"arrotondamento sul lato della contropartita",
       Base("C", {R(c, "100", "0.02")}),
       "P:100.010 C:0001 21 14/03/2024",
       {"100 002 C:0001 0/100.02 P:100.010 «incasso FT. 5»",
        "200 002 P:100.010 100/0 C:0001 «incasso»", "300 002 P:580.010 0.02/0 C:0001 «incasso»"}},
      {"pagato in più: l'arrotondamento passa dall'altra parte",
       fornitore,
       "F:0002 P:100.010 22 14/03/2024",
       {"100 002 F:0002 40/0 P:100.010 «saldo FT. 7»", "200 002 P:100.010 0/40.01 F:0002 «incasso»",
        "300 002 P:580.010 0.01/0 F:0002 «incasso»"}},
      {"una nota di credito toglie",
       Base("C", {R(c, "100.02"), R(nota, "-30")}),
       "P:100.010 C:0001 21 14/03/2024",
       {"100 002 C:0001 0/100.02 P:100.010 «incasso FT. 5»",
        "200 002 C:0001 30/0 P:100.010 «incasso FT. 6»",
        "300 002 P:100.010 70.02/0 C:0001 «incasso»"}},
      {"una nota di credito da sola è un rimborso",
       Base("C", {R(nota, "-29.99", "-0.01")}),
       "P:100.010 C:0001 21 14/03/2024",
       {"100 002 C:0001 30/0 P:100.010 «incasso FT. 6»",
        "200 002 P:100.010 0/29.99 C:0001 «incasso»", "300 002 P:580.010 0/0.01 C:0001 «incasso»"}},
      {"compensazione: la contropartita non si muove",
       Base("C", {R(c, "30", "0", false), R(nota, "-30")}),
       "P:100.010 C:0001 21 14/03/2024",
       {"100 002 C:0001 0/30 P:100.010 «incasso FT. 5»",
        "200 002 C:0001 30/0 P:100.010 «incasso FT. 6»"}},
  };
  const std::string prima = Contenuto("scadenzario");
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.cosa);
    const auto numDoc = Registra(caso.pagamento);
    EXPECT_EQ(TestaDi(numDoc), caso.testa);
    EXPECT_EQ(RigheDi(numDoc), caso.righe);
    EXPECT_NE(Contenuto("scadenzario"), prima);
    // Open again for the next case.
    for (const duedates::RigaPagamento& riga : caso.pagamento.righe) {
      Scadenzario().Esegui(
          "update Scadenze set Stato='00', DtPag=" + sql::LetteraleSql(Data()) +
          ", ImportoPagatoE=" + sql::LetteraleSql(riga.vista.importoPagatoE) +
          ", ImportoPagato=" + sql::LetteraleSql(EuroInLire(riga.vista.importoPagatoE, true)) +
          " where " + sql::Criterio("Numero", "=", riga.vista.numero));
    }
    EXPECT_EQ(Contenuto("scadenzario"), prima);
  }
}

TEST_F(RegistraPagamentoTest, ScadenzePagateInParteEPoiASaldo) {
  const auto n = Nuova("C", "0001", "100", 5);
  Registra(Base("C", {R(n, "60", "0", false)}));
  EXPECT_EQ(Pagata(n), "10 60 14/03/2024");
  EXPECT_EQ(S(n).Residuo(), I("40"));
  Registra(Base("C", {R(n, "39.5", "0.5")}));
  EXPECT_EQ(Pagata(n), "30 100 14/03/2024");
}

TEST_F(RegistraPagamentoTest, PiuParti) {
  const auto uno = Nuova("F", "0001", "10", 1);
  const auto due = Nuova("F", "0002", "20", 0);
  const auto numDoc = Registra(Base("F", {R(uno, "10"), R(due, "19", "1")}));
  EXPECT_EQ(TestaDi(numDoc), ":DIVERSI P:100.010 21 14/03/2024");
  EXPECT_THAT(RigheDi(numDoc), ElementsAre("100 002 F:0001 10/0 P:100.010 «incasso FT. 1»",
                                           "200 002 F:0002 20/0 P:100.010 «incasso»",
                                           "300 002 P:100.010 0/29 F:DIVERSI «incasso»",
                                           "400 002 P:580.010 0/1 F:DIVERSI «incasso»"));
  const auto terza = Nuova("C", "0001", "10", 1);
  const auto quarta = Nuova("C", "0002", "20", 2);
  EXPECT_EQ(TestaDi(Registra(Base("C", {R(terza, "10"), R(quarta, "20")}))),
            ":DIVERSI :DIVERSI 21 14/03/2024");
}

TEST_F(RegistraPagamentoTest, SenzaRegistrazione) {
  const auto n = Nuova("C", "0003", "100", 5);
  duedates::Pagamento p = Base("C", {R(n, "100")});
  p.conRegistrazione = false;
  p.contropartita = "";
  EXPECT_EQ(Registra(p), 0);
  EXPECT_EQ(Pagata(n), "30 100 14/03/2024");
  EXPECT_EQ(duedates::TestoPagamentoScritto({true, 0}), "- Scadenzario aggiornato");
  EXPECT_EQ(duedates::TestoPagamentoScritto({true, 12}),
            "- Scadenzario aggiornato\n- Creato articolo contabile 12");
}

TEST_F(RegistraPagamentoTest, Rifiuti) {
  const auto buona = Nuova("C", "0001", "100", 5);
  const auto senza = Nuova("C", "0003", "100", 6);
  const auto fornitore = Nuova("F", "0003", "100", 7);
  const duedates::Pagamento base = Base("C", {R(buona, "99", "1")});
  const auto con = [&base](const auto& cambia) {
    duedates::Pagamento p = base;
    cambia(p);
    return p;
  };
  struct Caso {
    duedates::Pagamento pagamento;
    const char* messaggio;
  };
  const Caso casi[] = {
      {con([](auto& p) { p.righe.clear(); }), "non è stata selezionata alcuna scadenza"},
      {con([](auto& p) {
         p.origine = ledger::Origine::PagamentoSingolo;
         p.descrizione = "";
         p.contropartita = "";
       }),
       "Mancano le descrizioni contabili"},
      {con([](auto& p) { p.contropartita = ""; }), "manca contropartita"},
      {con([](auto& p) { p.contropartita = "999.999"; }),
       "manca contropartita: 999.999 non è nel piano dei conti"},
      {con([](auto& p) { p.contoArrotondamenti = ""; }), "manca conto arrotondamenti"},
      {Base("C", {R(buona, "100"), R(senza, "100")}), "sul cliente 0003 manca conto riepilogativo"},
      {Base("F", {R(fornitore, "100")}), "sul fornitore 0003 manca conto riepilogativo"},
      {con([&](auto& p) {
         p.origine = ledger::Origine::PagamentoSingolo;
         p.righe = {R(senza, "100")};
       }),
       "sull'anagrafica del cliente/fornitore 0003 non è inserito il conto riepilogativo"},
      {Base("C", {R(buona, "99")}), "importo pagato+arrotondamento diverso da importo da saldare"},
      {Base("C", {R(buona, "50", "1", false)}),
       "l'arrotondamento e'valido solo se la scadenza e'saldata"},
      {Base("C", {R(buona, "100", "0", false)}),
       "se l'importo pagato è uguale all'importo scadenza inserire spunta su 'scadenza saldata'"},
      {Base("C", {R(buona, "100"), R(buona, "100")}), "Non è stato scritto nulla."},
  };
  const std::string prima = Tutto();
  for (const Caso& caso : casi) {
    EXPECT_FALSE(duedates::RegistraPagamento(ambiente, caso.pagamento).scritto);
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
  }
  ASSERT_TRUE(ambiente.ScegliAnno(2000));
  EXPECT_FALSE(duedates::RegistraPagamento(ambiente, base).scritto);
  EXPECT_THAT(SoloMessaggio(), HasSubstr("lo scadenzario non funziona in lire"));
  EXPECT_EQ(Tutto(), prima);
}

// Two stations chose the same due date: the second is told, by name, and writes nothing of its own.
TEST_F(RegistraPagamentoTest, PagataDaUnaltraPostazione) {
  const auto altra = NuovaStazione("MAGAZZINO");
  const auto una = Nuova("C", "0001", "100", 5);
  const auto contesa = Nuova("C", "0002", "200", 6);
  const duedates::Pagamento qui = Base("C", {R(una, "100"), R(contesa, "200")});
  const duedates::Pagamento la = Base("C", {R(contesa, "200")});
  ASSERT_TRUE(duedates::RegistraPagamento(*altra->ambiente, la).scritto);
  const std::string dopo = Tutto();
  EXPECT_FALSE(duedates::RegistraPagamento(ambiente, qui).scritto);
  EXPECT_THAT(SoloMessaggio(),
              ::testing::AllOf(HasSubstr("scadenza n. 2 del 31/03/2024 di Clienti 0002 dell'Oro, "
                                         "ft. 6 del 31/01/2024, euro 200,00\nè già stata pagata"),
                               HasSubstr("Non è stato scritto nulla.")));
  EXPECT_EQ(Tutto(), dopo);

  Scadenzario().Esegui(
      "update Scadenze set Stato='00', ImportoPagatoE=0, ImportoPagato=0, ImportoE=450 where "
      "Numero=2");
  EXPECT_FALSE(duedates::RegistraPagamento(ambiente, qui).scritto);
  EXPECT_THAT(SoloMessaggio(), HasSubstr("euro 200,00\nè stata modificata da un'altra postazione"));
  Scadenzario().Esegui("delete * from Scadenze where Numero=2");
  EXPECT_FALSE(duedates::RegistraPagamento(ambiente, qui).scritto);
  EXPECT_THAT(SoloMessaggio(), HasSubstr("Manca scadenza\nscadenza n. 2"));
  EXPECT_EQ(Pagata(una), "00 0 ");
  EXPECT_EQ(Registra(Base("C", {R(una, "100")})), 2);
}

TEST_F(RegistraPagamentoTest, ScriveSottoIlBloccoDellaNumerazione) {
  const auto altra = NuovaStazione("MAGAZZINO");
  const auto numerazioneLibera = [&] {
    return altra->ambiente->BloccaTabella("ARTICOLI", false).Tenuto();
  };
  const auto n = Nuova("C", "0001", "100", 5);
  bool libera = true;
  const auto scritto = duedates::RegistraPagamento(
      ambiente, Base("C", {R(n, "100")}), [&](std::int64_t) { libera = numerazioneLibera(); });
  EXPECT_TRUE(scritto.scritto);
  EXPECT_FALSE(libera);
  EXPECT_TRUE(numerazioneLibera());
}

TEST_F(RegistraPagamentoTest, GuastoAMetaNonLasciaNulla) {
  const auto uno = Nuova("C", "0001", "100", 5);
  const auto due = Nuova("C", "0002", "50", 6);
  const duedates::Pagamento p = Base("C", {R(uno, "99", "1"), R(due, "20", "0", false)});
  const int falliti = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Tutto(); },
      [&] {
        return duedates::RegistraPagamento(ambiente, p,
                                           [this](std::int64_t numDoc) {
                                             Scadenzario().Inserisci(
                                                 "MovimentiBanca",
                                                 {{"Chiave", "x"}, {"Articolo", numDoc}});
                                           })
            .scritto;
      });
  EXPECT_GT(falliti, 8);
  for (const std::string& messaggio : Messaggi())
    EXPECT_THAT(messaggio, HasSubstr("Non è stato scritto nulla"));
  EXPECT_EQ(Scadenzario().Singolo("select Articolo from MovimentiBanca").Intero(), 1);
  EXPECT_EQ(RigheDi(1).size(), 4U);
}

}  // namespace
}  // namespace fenalto::prova
