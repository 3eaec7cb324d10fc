// The run of the unified VAT register: proposals, checks, print, definitive store.
#include "core/sql/Criterio.h"
#include "ledger/GuastiDiProva.h"
#include "vat/RegistroIvaDiProva.h"

namespace fenalto::prova {

class RegistroIvaTest : public RegistroIvaDiProva {};

TEST_F(RegistroIvaTest, Periodi) {
  EXPECT_EQ(vat::ChiavePeriodo(G(29, 2, 2024), false), "02");
  EXPECT_EQ(vat::ChiavePeriodo(G(31, 12, 2024), false), "12");
  EXPECT_EQ(vat::ChiavePeriodo(G(31, 3, 2024), true), "T1");
  EXPECT_EQ(vat::ChiavePeriodo(G(1, 4, 2024), true), "T2");
  std::string mesi;
  for (const vat::PeriodoIva& p : registro.Periodi()) mesi += p.cod + " ";
  EXPECT_EQ(mesi, "Z 01 02 03 04 05 06 07 08 09 10 11 12 ");
  EXPECT_EQ(vat::LeggiPeriodo(ambiente, 2024, "02").UltimoGiorno(), G(29, 2, 2024));
  EXPECT_EQ(vat::LeggiPeriodo(ambiente, 2024, "T2").cod, "");
  Tessarc().Esegui("update Anni set IvaTrimestrale=True where Anno=2024");
  std::string trimestri;
  for (const vat::PeriodoIva& p : registro.Periodi()) trimestri += p.cod + " ";
  EXPECT_EQ(trimestri, "Z T1 T2 T3 T4 ");
  const vat::PeriodoIva secondo = vat::LeggiPeriodo(ambiente, 2024, "T2");
  EXPECT_EQ(secondo.Primo(), G(1, 4, 2024));
  EXPECT_EQ(secondo.UltimoGiorno(), G(30, 6, 2024));
  EXPECT_FALSE(secondo.Ultimo());
  EXPECT_TRUE(vat::LeggiPeriodo(ambiente, 2024, "T4").Ultimo());
  EXPECT_FALSE(registro.ScegliPeriodo("07"));
  EXPECT_FALSE(registro.ScegliPeriodo(""));
  // A year that the company doesn't keep is monthly.
  EXPECT_FALSE(vat::IvaTrimestrale(ambiente, 1999));
}

TEST_F(RegistroIvaTest, Proposte) {
  Scrivi({"1", 1, G(10, 1, 2024), {{"22", I("100"), I("22")}}});
  Scrivi({"1", 2, G(31, 1, 2024), {{"22", I("100"), I("22")}}});
  Scrivi({"1", 3, G(1, 2, 2024), {{"22", I("100"), I("22")}}});
  const auto proposto = [&](const char* periodo, const char* riva) {
    registro.ScegliPeriodo(periodo);
    const vat::IntervalloRegistro& i = Intervallo(riva);
    return std::to_string(i.daNProt) + "-" + std::to_string(i.aaNProt);
  };
  EXPECT_EQ(proposto("01", "1"), "1-2");
  EXPECT_EQ(proposto("01", "3"), "1-0");
  EXPECT_EQ(proposto("Z", "1"), "1-3");
  EXPECT_TRUE(Intervallo("8").daIncassi);
  Tessarc().Esegui("update RegistriIva set UltProtSt=2 where Cod='1'");
  EXPECT_EQ(proposto("02", "1"), "3-3");
  EXPECT_EQ(proposto("03", "1"), "3-2");
  EXPECT_EQ(Messaggi(), std::vector<std::string>{});

  // Printed: the range begins where it began; what was deleted or added since is told.
  Metti(Tessarc(), "UltProtStRegIva", "Anno", 2024, "Riva", "1", "MeseTrimestre", "01", "DaNProt",
        1, "UltProtSt", 1);
  EXPECT_EQ(proposto("01", "1"), "1-2");
  EXPECT_EQ(SoloMessaggio(),
            "Registro 1 Fatture emesse\nci sono già registrazioni successive a 10/01/2024\n"
            "bisogna impostare la casella 'fino al n.protocollo ...'");
  Tessarc().Esegui("update UltProtStRegIva set UltProtSt=9");
  EXPECT_EQ(proposto("01", "1"), "1-2");
  EXPECT_EQ(SoloMessaggio(),
            "Registro 1 Fatture emesse\nil protocollo 9 non esiste più\n"
            "bisogna impostare la casella 'fino al n.protocollo ...'");
  Tessarc().Esegui("update UltProtStRegIva set UltProtSt=2");
  EXPECT_EQ(proposto("02", "1"), "3-3");
  Tessarc().Inserisci("ChiusureIva", {{"Anno", 2024}, {"MESETRIMESTRE", "01"}});
  EXPECT_EQ(proposto("01", "1"), "1-2");
  EXPECT_EQ(SoloMessaggio(),
            "La chiusura iva del periodo Gennaio è già stata effettuata in definitiva.\n"
            "E'possibile ristamparla e riconfermarla in definitiva.\n"
            "In questo caso: \n"
            "- se sono state modificate/inserite registrazioni può essere necessario forzare i "
            "numeri protocollo.\n"
            "- l'eventuale credito iva dovrà essere forzato.");

  // A year of which nothing is printed begins from 1, whatever the year before came to.
  Tessarc().Esegui("update UltProtStRegIva set Anno=2023");
  EXPECT_EQ(proposto("02", "1"), "1-3");
}

TEST_F(RegistroIvaTest, IncassateSenzaRegistro) {
  Tessarc().Esegui("delete * from RegistriIva where Tipo='08' or Tipo='08A'");
  Scrivi({"1", 1, G(10, 12, 2023), {{"22", I("100"), I("22")}}, true, G(30, 6, 2024), 2023});
  Scrivi({"3", 1, G(10, 1, 2024), {{"22", I("50"), I("11")}}, true, G(1, 4, 2024)});
  Tessarc().Esegui("update Anni set IvaTrimestrale=True where Anno=2024");
  struct Caso {
    const char* periodo;
    std::size_t messaggi;
  };
  for (const Caso& caso : {Caso{"T1", 0}, Caso{"T2", 2}, Caso{"T3", 0}, Caso{"Z", 2}}) {
    registro.ScegliPeriodo(caso.periodo);
    const std::vector<std::string> messaggi = Messaggi();
    ASSERT_EQ(messaggi.size(), caso.messaggi) << caso.periodo;
    if (messaggi.empty()) continue;
    EXPECT_EQ(messaggi[0],
              "ci sono fatture vendita in sospensione iva pagate:\n"
              "è necessario creare un registro iva di tipo 08");
    EXPECT_EQ(messaggi[1],
              "ci sono fatture acquisti in sospensione iva incassate:\n"
              "è necessario creare un registro iva di tipo 08A");
  }
  registro.ScegliPeriodo("T2");
  Messaggi();
  const auto problemi = registro.Controlla();
  EXPECT_THAT(
      Testi(problemi),
      ElementsAre("? ci sono fatture vendita in sospensione iva pagate: è necessario creare "
                  "un registro iva di tipo 08",
                  "? Registro 1 : il numero protocollo 1 del 10/12/2023, incassato o pagato "
                  "il 30/06/2024, resta fuori dalla liquidazione",
                  "? ci sono fatture acquisti in sospensione iva incassate: è necessario "
                  "creare un registro iva di tipo 08A",
                  "? Registro 3 : il numero protocollo 1 del 10/01/2024, incassato o pagato "
                  "il 01/04/2024, resta fuori dalla liquidazione"));
  EXPECT_EQ(problemi[1].numDoc, 0) << "of another year";
  EXPECT_NE(problemi[3].numDoc, 0);
}

TEST_F(RegistroIvaTest, SecondoRegistroDellaVentilazione) {
  Scrivi({"3", 1, G(5, 3, 2024), {{"22V", I("100"), I("22")}}});
  Scrivi({"3V", 1, G(6, 3, 2024), {{"22V", I("100"), I("22")}}});
  Scegli("03");
  vat::Ventilazione& v = registro.Opzioni().ventilazione;
  EXPECT_EQ(v.aaNProt, 1);
  v.aaNProt = 7;
  v.riva1 = "3V";
  registro.ProponiVentilazione(true);
  EXPECT_EQ(v.aaNProt1, 1);
  EXPECT_EQ(v.aaNProt, 7) << "typed";
  registro.ProponiVentilazione(false);
  EXPECT_EQ(v.aaNProt, 1);
  // The same period once more keeps what is typed, and takes in what isn't.
  v.aaNProt = 7;
  Scegli("03");
  EXPECT_EQ(v.aaNProt, 7);
  Scegli("04");
  EXPECT_EQ(v.aaNProt, 1) << "another period";
  Scrivi({"3", 2, G(7, 3, 2024), {{"22V", I("100"), I("22")}}});
  Scegli("04");
  EXPECT_EQ(v.aaNProt, 2);
}

TEST_F(RegistroIvaTest, Controlli) {
  Scrivi({"1", 1, G(10, 3, 2024), {{"22", I("100"), I("22")}}});
  Scrivi({"1", 3, G(9, 3, 2024), {{"22", I("100"), I("22")}}});
  Scrivi({"1", 4, G(12, 3, 2024), {}});
  const std::int64_t aprile = Scrivi({"1", 5, G(1, 4, 2024), {{"22", I("100"), I("22")}}});
  Scrivi({"2", 1, G(10, 3, 2024), {{"20", I("122"), {}}, {"ZCOR", I("50"), {}}}});
  Scrivi({"7", 1, G(10, 3, 2024), {{"ZCOR", I("50"), {}}, {"22", I("10"), I("2.2")}}});
  const std::int64_t senzaIva = Scrivi({"3", 1, G(10, 3, 2024), {{"22V", I("10"), I("2.2")}}});
  Tessarc().Esegui("delete * from Movimenti where TIPORIGA=4 and " +
                   sql::Criterio("NumDoc", "=", senzaIva));
  Scegli("03");
  Intervallo("1").aaNProt = 6;
  const auto problemi = registro.Controlla();
  EXPECT_THAT(
      Testi(problemi),
      ElementsAre("Registro 1 : manca articolo relativo al n.protocollo2",
                  "? Registro 1 : il numero protocollo 3 del 09/03/2024 segue un protocollo del "
                  "10/03/2024",
                  "? Registro 1 : il numero protocollo 5 ha data registrazione 01/04/2024 diversa "
                  "da Marzo",
                  "Registro 1 : manca articolo relativo al n.protocollo6",
                  "Registro 1 : manca movimento relativo al n.protocollo4",
                  "Registro 2 : il codice iva 'ZCORR' si può usare solo se si utilizza la "
                  "ventilazione corrispettivi",
                  "? Registro 3 : manca la riga di contabilità dell'iva sul n.protocollo 1",
                  "Registro 7 : il codice iva 22 è stato utilizzato sulla registrazione di "
                  "corrispettivi da ventilare:\n è necessario utilizzare il codice iva 'ZCOR'"));
  EXPECT_EQ(problemi[2].numDoc, aprile);
  // The first that stops is told, and nothing is printed.
  EXPECT_FALSE(registro.Stampa(uscite));
  EXPECT_EQ(SoloMessaggio(), "Registro 1 : manca articolo relativo al n.protocollo2");
  EXPECT_TRUE(uscite.pagine.empty());
  // What only asks is asked once.
  for (const char* riva : {"2", "7", "3"}) Intervallo(riva).aaNProt = 0;
  Intervallo("1").daNProt = 5;
  Intervallo("1").aaNProt = 5;
  dialoghi.Rispondera("diversa da Marzo\nProseguo ugualmente ?", Risposta::No);
  EXPECT_FALSE(registro.Stampa(uscite));
  dialoghi.Rispondera("Proseguo ugualmente ?", Risposta::Si);
  EXPECT_TRUE(Stampa(Risposta::No));
}

TEST_F(RegistroIvaTest, Ventilazione) {
  // Purchases 104 + 122 + 110; shares that don't end, and whose cents make one less than the whole.
  Scrivi({"3", 1, G(5, 3, 2024), {{"04V", I("100"), I("4")}, {"22", I("999"), I("219.78")}}});
  Scrivi({"3", 2, G(6, 3, 2024), {{"22V", I("100"), I("22")}, {"10V", I("100"), I("10")}}});
  Scrivi({"3", 3, G(7, 3, 2024), {{"22V", I("1000"), I("220")}}});
  Scrivi({"7", 1, G(8, 3, 2024), {{"ZCOR", I("1003"), {}}}});
  Scegli("03");
  registro.Opzioni().ventilazione.aaNProt = 2;
  const auto totali = registro.Totali();
  ASSERT_TRUE(totali) << totali.Errore().messaggio;
  const vat::TotaleRegistro* corrispettivi = nullptr;
  for (const vat::TotaleRegistro& t : totali.Valore())
    if (t.intervallo.riva == "7") corrispettivi = &t;
  std::vector<std::string> righe;
  Importo somma;
  for (std::size_t i = 0; i < corrispettivi->quote.size(); ++i) {
    const vat::QuotaVentilazione& q = corrispettivi->quote[i];
    const vat::TotaleCodice& c = corrispettivi->codici[i];
    somma += q.corrispettivi;
    righe.push_back(q.codIva + " " + q.acquisti.Testo() + " " + std::to_string(q.quota) + " " +
                    q.corrispettivi.Testo() + "=" + c.imponibile.Testo() + "+" + c.iva.Testo());
  }
  EXPECT_THAT(righe, ElementsAre("04V 104 3095238 310.45=298.51+11.94",
                                 "10V 110 3273810 328.36=298.51+29.85",
                                 "22V 122 3630952 364.19=298.52+65.67"));
  EXPECT_EQ(somma, I("1003"));
  EXPECT_EQ(corrispettivi->ivaScorporata, I("107.46"));
  ASSERT_TRUE(Stampa(Risposta::No));
  EXPECT_THAT(uscite.Testo(),
              HasSubstr("VENTILAZIONE DEI CORRISPETTIVI\n"
                        "in base agli acquisti annotati sul registro 3 Fatture ricevute\n"
                        "fino al n. prot. 2\n"
                        "importo acquisti        336,000\n"
                        "Calcolo coefficienti di ripartizione\n"
                        "     %IVA       importo   % ripart.\n"
                        "04V  4           104,000   30,95238\n"
                        "10V  10          110,000   32,73810\n"));

  struct Caso {
    const char* riva;
    std::int64_t fino;
    const char* messaggio;
  };
  const char* manca =
      "Ventilazione corrispetti: impostare registro iva acquisti destinati alla rivendita";
  for (const Caso& caso : {Caso{"", 9, manca}, Caso{"99", 9, manca},
                           Caso{"3", 0,
                                "sul registro acquisti non è stata trovato alcuna registrazione "
                                "con codice iva per 'ventilazione' (vedere codici iva)"}}) {
    registro.Opzioni().ventilazione = {caso.riva, caso.fino, "", 0};
    EXPECT_FALSE(registro.Stampa(uscite));
    EXPECT_EQ(SoloMessaggio(), caso.messaggio);
  }
}

TEST_F(RegistroIvaTest, CorrispettiviLordi) {
  Scrivi({"2", 1, G(8, 3, 2024), {{"20", I("100"), {}}, {"20", I("22"), {}}}});
  Scrivi({"2", 2, G(9, 3, 2024), {{"20", I("50"), I("11")}, {"10", I("10"), {}}}});
  // Codes are the same whatever their case; apart, two cents each would hold no VAT.
  Scrivi({"2", 3, G(9, 3, 2024), {{"22i50", I("0.02"), {}}, {"22I50", I("0.02"), {}}}});
  Scegli("03");
  const auto totali = registro.Totali();
  ASSERT_TRUE(totali);
  std::vector<std::string> righe;
  for (const vat::TotaleRegistro& t : totali.Valore()) {
    for (const vat::TotaleCodice& c : t.codici) {
      righe.push_back(t.intervallo.riva + " " + c.codIva + " " + c.imponibile.Testo() + "+" +
                      c.iva.Testo());
    }
    EXPECT_EQ(t.ivaScorporata, t.intervallo.riva == "2" ? I("22.92") : Importo());
  }
  EXPECT_THAT(righe, ElementsAre("2 10 9.09+0.91", "2 20 150+33", "2 22I50 0.03+0.01"));
}

TEST_F(RegistroIvaTest, DefinitivaDueVolte) {
  Scrivi({"1", 1, G(10, 3, 2024), {{"22", I("100"), I("22")}, {"10", I("20"), I("2")}}});
  Scrivi({"1", 2, G(11, 3, 2024), {{"22", I("50"), I("11")}}, true});
  Scrivi({"3", 1, G(11, 3, 2024), {{"22I50", I("10"), I("1.1"), I("1.1")}}});
  Scegli("03");
  const std::string prima = Tutto();
  ASSERT_TRUE(Stampa(Risposta::No));
  EXPECT_EQ(Tutto(), prima) << "una stampa di prova non cambia niente";
  EXPECT_THAT(uscite.Testo(), HasSubstr("stampa di prova"));
  const std::vector<std::string> attesi = {"1  0/0/0", "1 10 20/2/0", "1 22 150/33/0", "3  0/0/0",
                                           "3 22I50 10/1.1/1.1"};
  for (int volta = 0; volta < 2; ++volta) {
    registro.ScegliPeriodo("03");
    Messaggi();
    ASSERT_TRUE(Stampa(Risposta::Si));
    EXPECT_THAT(uscite.Testo(), HasSubstr("Anno/pag. 2024/1\n"));
    EXPECT_EQ(Memorizzati("TotaliIva", "03"), attesi);
    EXPECT_THAT(Memorizzati("TotaliIvaEP", "03"), ElementsAre("1 22 50/11/0"));
    EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM ChiusureIva").Intero(), 1);
    EXPECT_EQ(Tessarc().Singolo("SELECT UltProtSt FROM UltProtStRegIva WHERE Riva='1'").Intero(),
              2);
    EXPECT_EQ(Tessarc().Singolo("SELECT UltProtSt FROM RegistriIva WHERE Cod='1'").Intero(), 2);
    EXPECT_EQ(
        Tessarc().Singolo("SELECT TOTALEIVA FROM TotaliIva WHERE Riva='1' AND CodIva=''").Importo(),
        I("35"));
  }
  // The next period goes on with protocols and pages.
  Scrivi({"1", 3, G(10, 4, 2024), {{"22", I("100"), I("22")}}});
  registro.ScegliPeriodo("04");
  EXPECT_EQ(Intervallo("1").daNProt, 3);
  const auto pagine = Tessarc().Singolo("SELECT UltPag FROM ChiusureIva").Intero();
  EXPECT_EQ(pagine, 3);
  ASSERT_TRUE(Stampa(Risposta::Si));
  EXPECT_THAT(uscite.Testo(), HasSubstr("Anno/pag. 2024/4\n"));

  dialoghi.Rispondera("Comfarma eliminazione liquidazioni iva dell'anno 2024", Risposta::Si);
  Messaggi();
  Tessarc().Esegui("update ChiusureIva set CreditoPrec=33 where MESETRIMESTRE='03'");
  EXPECT_TRUE(registro.EliminaLiquidazioni());
  EXPECT_EQ(SoloMessaggio(), "liquidazioni iva eliminate");
  EXPECT_EQ(Tessarc().Singolo("SELECT CreditoIva FROM CreditoIva").Importo(), I("33"));
  EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM UltProtStRegIva").Intero(), 0);
  EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM ChiusureIva").Intero(), 0);
  Scegli("03");
  EXPECT_EQ(Intervallo("1").daNProt, 1);
}

TEST_F(RegistroIvaTest, AnnullataNonMemorizza) {
  {
    Transazione transazione(ambiente.Basi());
    for (int n = 1; n <= 250; ++n) Scrivi({"1", n, G(10, 3, 2024), {{"22", I("1"), I("0.22")}}});
    transazione.Conferma();
  }
  Scegli("03");
  const std::string prima = Tutto();
  dialoghi.annullaDopo = 200;
  EXPECT_FALSE(Stampa(Risposta::Si));
  dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(registro.Stampa(uscite));
  EXPECT_EQ(Tutto(), prima);
}

TEST_F(RegistroIvaTest, OgniGuastoLasciaTutto) {
  Scrivi({"1", 1, G(10, 3, 2024), {{"22", I("100"), I("22")}}});
  Scrivi({"1", 2, G(11, 3, 2024), {{"22", I("50"), I("11")}}, true});
  Scegli("03");
  const std::string prima = Tutto();
  // Only the statements behind the question are the store's.
  struct Innesco : FabbricaDiProva {
    BasiDati* basi = nullptr;
    int n = 0;
    std::unique_ptr<reports::Uscita> Crea(const SceltaUscita& s, const std::string& r) override {
      auto uscita = FabbricaDiProva::Crea(s, r);
      basi->ImpostaGuasto(n, Guasto::Errore);
      return uscita;
    }
  };
  const int guasti = FallisceOgniVolta(
      ambiente.Basi(), [this] { return Tutto(); },
      [this](int n) {
        Verso(Destinazione::Testo);
        dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
        Messaggi();
        Innesco innesco;
        innesco.basi = &ambiente.Basi();
        innesco.n = n;
        return registro.Stampa(innesco);
      });
  EXPECT_GT(guasti, 15);
  EXPECT_NE(Tutto(), prima);
}

TEST_F(RegistroIvaTest, DuePostazioni) {
  Scrivi({"1", 1, G(10, 3, 2024), {{"22", I("100"), I("22")}}});
  Scegli("03");
  auto altra = NuovaStazione("BANCO");
  // The other station stores while this one prints.
  struct Mentre : FabbricaDiProva {
    std::function<void()> fai;
    std::unique_ptr<reports::Uscita> Crea(const SceltaUscita& s, const std::string& r) override {
      auto uscita = FabbricaDiProva::Crea(s, r);
      if (fai) std::exchange(fai, nullptr)();
      return uscita;
    }
  } mentre;
  mentre.fai = [&] {
    vat::RegistroIvaUnico suo(*altra->ambiente);
    suo.ScegliPeriodo("03");
    altra->dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
    altra->dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
    FabbricaDiProva sue;
    EXPECT_TRUE(suo.Stampa(sue));
  };
  dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
  Verso(Destinazione::Testo);
  EXPECT_FALSE(registro.Stampa(mentre));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("un'altra postazione"));
  EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM ChiusureIva").Intero(), 1);
}

TEST_F(RegistroIvaTest, RegistrazioniIntere) {
  // Names, numbers and addresses that no line has room for, on two rows each.
  Tessarc().Esegui(
      "update ContiClientiFornitori set Descrizione='Consorzio Interprovinciale Vini, Oli e "
      "Derivati della Valle' where CFP='C' and Cod='0001'");
  Tessarc().Esegui(
      "update Clienti set indirizzo='Strada Statale 16 Adriatica, chilometro 812 più 500, zona "
      "artigianale', cap='71010', localita='San Paolo di Civitate', Prov='FG', piva='01234567897' "
      "where Cod='0001'");
  {
    Transazione transazione(ambiente.Basi());
    for (int n = 1; n <= 60; ++n) {
      Scrivi({"1", n, G(10, 3, 2024), {{"22", I("100"), I("22")}, {"10", I("10"), I("1")}}});
    }
    transazione.Conferma();
  }
  Tessarc().Esegui("update Articoli set NFat='2024/VENDITE/' + NFat + '/BIS'");
  Scegli("03");
  registro.Opzioni().stIndirizzo = true;
  ASSERT_TRUE(Stampa(Risposta::No));
  std::size_t trovate = 0;
  for (const auto& righe : uscite.Righe()) {
    std::string testo;
    for (const std::string& riga : righe) testo += riga + "\n";
    const auto quante = [&testo](const char* cosa) {
      std::size_t n = 0;
      for (std::size_t da = 0; (da = testo.find(cosa, da)) != std::string::npos; ++da) ++n;
      return n;
    };
    // Each page that has the beginning of a registration has its end.
    EXPECT_EQ(quante("Consorzio"), quante("01234567897"));
    EXPECT_EQ(quante("Consorzio"), quante("/BIS"));
    trovate += quante("01234567897");
  }
  EXPECT_EQ(trovate, 60U);
  EXPECT_GT(uscite.pagine.size(), 3U);
}

TEST_F(RegistroIvaTest, GiriSulGiornale) {
  Scrivi({"1", 1, G(10, 3, 2024), {{"22", I("1000"), I("220")}}});
  Tessarc().Inserisci("UltimaDataLibro", {{"Anno", 2024}, {"dt", G(30, 4, 2024)}});
  for (const auto& [chiave, valore] : {std::pair("RegistrazioneContabileErario", "0"),
                                       {"ContoIvaErario", "170.010"},
                                       {"CausaleErario", "027"}}) {
    ambiente.ScriviImpostazione({}, "config", chiave, valore);
  }
  const std::string avviso =
      "data registrazione contabile antecedente all'ultima data già stampata su libro giornale";
  Scegli("03");
  ASSERT_TRUE(Stampa(Risposta::Si));
  EXPECT_THAT(Messaggi(), Not(::testing::Contains(avviso))) << "nothing is registered";
  ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabileErario", "1");
  registro.ScegliPeriodo("03");
  Messaggi();
  ASSERT_TRUE(Stampa(Risposta::Si));
  EXPECT_EQ(Messaggi().front(), avviso);
}

TEST_F(RegistroIvaTest, ProRataProposto) {
  Scrivi({"3", 1, G(10, 3, 2024), {{"22", I("1000"), I("220")}}});
  for (const auto& [chiave, valore] : {std::pair("ProRata", "10"), {"CausaleErario", "027"}}) {
    ambiente.ScriviImpostazione({}, "config", chiave, valore);
  }
  const auto articoli = [&] { return Tessarc().Singolo("select Count(*) from Articoli").Intero(); };
  Scegli("03");
  ASSERT_TRUE(Stampa(Risposta::Si)) << "no account, no question";
  ambiente.ScriviImpostazione({}, "config", "ContoProRata", "590.001");
  for (const auto& [risposta, attesi] : {std::pair(Risposta::No, 1), {Risposta::Si, 2}}) {
    registro.ScegliPeriodo("03");
    dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::Si);
    dialoghi.Rispondera(
        "Il pro-rata rende indetraibile IVA per 22,00.\nLa registro a costo sul conto 590.001 ?",
        risposta);
    Verso(Destinazione::Testo);
    ASSERT_TRUE(registro.Stampa(uscite));
    EXPECT_EQ(articoli(), attesi);
  }
}

TEST_F(RegistroIvaTest, Annuale) {
  Scrivi({"1", 1, G(10, 3, 2024), {{"22", I("100"), I("22")}}});
  Scegli("Z");
  registro.Opzioni().soloChiusura = true;
  EXPECT_FALSE(registro.Stampa(uscite));
  EXPECT_EQ(SoloMessaggio(), "per la chiusura selezionare il periodo e non il riepilogo annuale");
  registro.Opzioni().soloChiusura = false;
  registro.Opzioni().soloTotali = true;
  ASSERT_TRUE(Stampa(Risposta::Si));
  EXPECT_THAT(uscite.Testo(), Not(HasSubstr("Clienti 0001")));
  EXPECT_THAT(Memorizzati("TotaliIva", "Z"), ElementsAre("1  0/0/0", "1 22 100/22/0"));
  // The summary closes nothing.
  EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM ChiusureIva").Intero(), 0);
  EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM UltProtStRegIva").Intero(), 0);
}

TEST_F(RegistroIvaTest, DifferiteModelloEdElenchi) {
  Tessarc().Esegui("update Clienti set indirizzo='Via Po 1', piva='01234567897' where Cod='0001'");
  Scrivi({"1", 7, G(10, 12, 2023), {{"22", I("100"), I("22")}}, true, G(20, 3, 2024), 2023});
  Scrivi({"1", 1, G(10, 3, 2024), {{"22", I("50"), I("11")}, {"10", I("10"), I("1")}}, true});
  Scegli("03");
  registro.Opzioni().stIndirizzo = true;
  ASSERT_TRUE(Stampa(Risposta::No));
  EXPECT_THAT(uscite.Testo(),
              ::testing::ContainsRegex(
                  "10/03/24 +1 Clienti 0001 dell'Oro +1 +10/03/24 IVA 22% +50,00 +11,00 +61,00"));
  EXPECT_THAT(uscite.Testo(), HasSubstr("Via Po 1 Partita IVA 01234567897\n"));
  EXPECT_THAT(uscite.Testo(), HasSubstr("    ---- IVA ad esigibilità differita ----\n"));
  EXPECT_THAT(uscite.Testo(), HasSubstr("PAGATA IL 20/03/2024\n"));
  EXPECT_THAT(uscite.Testo(), HasSubstr("TOTALI per cod.IVA esigibilità differita\n"));
  dialoghi.Rispondera("STAMPA DEFINITIVA ?", Risposta::No);
  Verso(Destinazione::Pdf);
  ASSERT_TRUE(registro.Stampa(uscite));
  EXPECT_THAT(uscite.Scritte(),
              ::testing::IsSupersetOf({"REGISTRO IVA UNICO", "Marzo 2024", "Anno/pag. 2024/1",
                                       "Registro 1 Fatture emesse", "totale del registro", "61,00",
                                       "LIQUIDAZIONE IVA  Marzo 2024", "stampa di prova"}));
  // One register alone asks nothing and settles nothing.
  Verso(Destinazione::Testo);
  ASSERT_TRUE(registro.StampaSingolo(uscite, "1"));
  EXPECT_THAT(uscite.Testo(), Not(HasSubstr("LIQUIDAZIONE IVA")));

  const auto elenco = [&](bool daPagare, bool pagate) {
    Verso(Destinazione::Testo);
    registro.StampaElencoSospese(uscite, {"1", G(1, 1, 2023), G(31, 12, 2024), daPagare, pagate});
    return uscite.Testo();
  };
  const std::string tutte = elenco(false, false);
  EXPECT_THAT(tutte, HasSubstr("ELENCO FATTURE AD ESIGIBILTA' IVA DIFFERITA  dal 01/01/23 al "
                               "31/12/24"));
  EXPECT_THAT(tutte, HasSubstr("TOTALE         160,000          34,000"));
  EXPECT_THAT(elenco(true, false), HasSubstr("TOTALE          60,000          12,000"));
  EXPECT_THAT(elenco(false, true), HasSubstr("20/03/24\n"));
}

}  // namespace fenalto::prova
