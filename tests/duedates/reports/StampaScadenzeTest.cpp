// Printed due dates: which, in what order, with which totals; the pages' lines and links.
#include "ScadenzeDaStampare.h"
#include "duedates/reports/StampaScadenze.h"

namespace fenalto::prova {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class StampaScadenzeTest : public ScadenzeDaStampare {
 protected:
  /// Due dates as "day party state amount/paid/left", totals as "text: amount/paid/left".
  std::vector<std::string> Righe(const duedates::SceltaStampaScadenze& scelta) {
    enum Colonna : std::size_t { kGiorno, kConto, kNome, kStato = 7, kImporto, kPagato, kResiduo };
    std::vector<std::string> righe;
    const reports::Foglio foglio =
        duedates::StampaScadenze(ambiente, uscite).FoglioScadenze(scelta);
    for (const auto& riga : foglio.righe) {
      const bool totale = riga[kConto].Tipo() == Tipo::Nullo;
      righe.push_back((totale ? riga[kNome].Testo() + ":"
                              : riga[kGiorno].Data().Testo() + " " + riga[kConto].Testo() + " " +
                                    riga[kStato].Testo()) +
                      " " + riga[kImporto].Importo().Testo() + "/" +
                      riga[kPagato].Importo().Testo() + "/" + riga[kResiduo].Importo().Testo());
    }
    return righe;
  }
  static duedates::SceltaStampaScadenze Scelta(duedates::OrdineScadenze ordine,
                                               bool totaliMese = false) {
    duedates::SceltaStampaScadenze scelta;
    scelta.ordine = ordine;
    scelta.totaliMese = totaliMese;
    return scelta;
  }
  bool Stampa(const duedates::SceltaStampaScadenze& scelta, Destinazione destinazione) {
    Verso(destinazione);
    return duedates::StampaScadenze(ambiente, uscite).Stampa(scelta);
  }
};

TEST_F(StampaScadenzeTest, PerContoConITotaliDiMeseParteETutti) {
  ScriviTutte();
  EXPECT_THAT(
      Righe(Scelta(duedates::OrdineScadenze::PerConto, true)),
      ElementsAre("31/01/2024 0001 aperta 100/0/100", "totale gennaio 2024: 100/0/100",
                  "10/03/2024 0001 aperta -30/0/-30", "15/03/2024 0001 parziale 200/50.25/149.75",
                  "totale marzo 2024: 170/50.25/119.75",
                  "totale 0001 Clienti 0001 dell'Oro: 270/50.25/219.75",
                  "31/03/2024 0002 presentata 400/0/400", "totale marzo 2024: 400/0/400",
                  "01/01/2025 0002 aperta 70/0/70", "totale gennaio 2025: 70/0/70",
                  "totale 0002 Clienti 0002 dell'Oro: 470/0/470",
                  "in scadenza a gennaio 2024: 100/0/100",
                  "in scadenza a marzo 2024: 570/50.25/519.75",
                  "in scadenza a gennaio 2025: 70/0/70", "TOTALE GENERALE: 740/50.25/689.75"));
}

TEST_F(StampaScadenzeTest, PerDataConIMesi) {
  ScriviTutte();
  duedates::SceltaStampaScadenze scelta = Scelta(duedates::OrdineScadenze::PerData, true);
  scelta.scadenze.anchePagate = true;
  // Nothing is left of what was closed, whatever was paid of it.
  EXPECT_THAT(
      Righe(scelta),
      ElementsAre("05/01/2023 0002 pagata 10/10/0", "totale gennaio 2023: 10/10/0",
                  "31/01/2024 0001 aperta 100/0/100", "totale gennaio 2024: 100/0/100",
                  "10/03/2024 0001 aperta -30/0/-30", "15/03/2024 0001 parziale 200/50.25/149.75",
                  "20/03/2024 0001 pagata 60/60/0", "31/03/2024 0002 presentata 400/0/400",
                  "totale marzo 2024: 630/110.25/519.75", "01/01/2025 0002 aperta 70/0/70",
                  "totale gennaio 2025: 70/0/70", "TOTALE GENERALE: 810/120.25/689.75"));
}

TEST_F(StampaScadenzeTest, LeScelte) {
  ScriviTutte();
  Scrivi({"C", "X9", {}, "5", "01"});  // a party that is gone, a due date without a day
  const auto righe = [this](const std::function<void(duedates::SceltaScadenze&)>& restringi) {
    duedates::SceltaStampaScadenze scelta = Scelta(duedates::OrdineScadenze::PerData);
    restringi(scelta.scadenze);
    return Righe(scelta);
  };
  EXPECT_THAT(righe([](duedates::SceltaScadenze& s) { s.cfp = "F"; }),
              ElementsAre("31/01/2024 0001 aperta 900/0/900", "TOTALE GENERALE: 900/0/900"));
  EXPECT_THAT(righe([](duedates::SceltaScadenze& s) { s.daCliFor = s.aCliFor = "x9"; }),
              ElementsAre(" X9 aperta 5/0/5", "TOTALE GENERALE: 5/0/5"));
  EXPECT_THAT(righe([](duedates::SceltaScadenze& s) {
                s.daData = G(31, 1, 2024);
                s.aData = G(10, 3, 2024);
              }),
              ElementsAre("31/01/2024 0001 aperta 100/0/100", "10/03/2024 0001 aperta -30/0/-30",
                          "TOTALE GENERALE: 70/0/70"));
  EXPECT_THAT(righe([](duedates::SceltaScadenze& s) {
                s.aCliFor = "0001";
                s.daData = G(15, 3, 2024);
                s.anchePagate = true;
              }),
              ElementsAre("15/03/2024 0001 parziale 200/50.25/149.75",
                          "20/03/2024 0001 pagata 60/60/0", "TOTALE GENERALE: 260/110.25/149.75"));
  duedates::SceltaStampaScadenze senzaData = Scelta(duedates::OrdineScadenze::PerConto);
  senzaData.scadenze.daCliFor = "X9";
  EXPECT_THAT(Righe(senzaData), Contains("senza data: 5/0/5"));
}

TEST_F(StampaScadenzeTest, RaggruppateEPresentateNonSonoPagate) {
  Scrivi({"C", "0001", G(1, 5, 2024), "100", "30", "0", 1, {{"Programma", "Raggruppata"}}});
  Scrivi({"C", "0001", G(2, 5, 2024), "300", "30", "40", 2, {{"Programma", "Raggruppata"}}});
  Scrivi({"C", "0001", G(3, 5, 2024), "360", "00", "0", 0, {{"Programma", "RaggRiba"}}});
  Scrivi({"C", "0001", G(4, 5, 2024), "80", "30", "0", 3, {{"Ndistinta", 12}}});
  Scrivi({"C", "0001", G(5, 5, 2024), "90", "30", "90", 4, {{"Ndistinta", 11}}});
  Scrivi({"C", "0001", G(6, 5, 2024), "7", "01", "0", 5, {{"Programma", "Raggruppata"}}});
  duedates::SceltaStampaScadenze scelta = Scelta(duedates::OrdineScadenze::PerData);
  scelta.scadenze.anchePagate = true;
  // What the customer was asked for is told once: 40 paid, 360 in the place of what was left.
  EXPECT_THAT(Righe(scelta),
              ElementsAre("02/05/2024 0001 raggrupp. 40/40/0", "03/05/2024 0001 aperta 360/0/360",
                          "04/05/2024 0001 presentata 80/0/0", "05/05/2024 0001 pagata 90/90/0",
                          "06/05/2024 0001 aperta 7/0/7", "TOTALE GENERALE: 577/130/367"));
}

TEST_F(StampaScadenzeTest, QuelCheNonSiStampa) {
  ScriviTutte();
  struct Caso {
    duedates::SceltaScadenze scelta;
    const char* messaggio;
  };
  const auto scelta = [](const char* da, const char* a, Data daData, Data aData) {
    duedates::SceltaScadenze s;
    s.daCliFor = da;
    s.aCliFor = a;
    s.daData = daData;
    s.aData = aData;
    return s;
  };
  const std::vector<Caso> casi = {
      {scelta("", "", G(2, 1, 2024), G(1, 1, 2024)),
       "la data iniziale 02/01/2024 è successiva a quella finale 01/01/2024"},
      {scelta("0002", "0001", {}, {}), "il codice iniziale 0002 viene dopo quello finale 0001"},
      {scelta("0003", "", G(1, 1, 2024), {}),
       "nessuna scadenza da stampare: scadenze aperte dal 01/01/2024, clienti da 0003 di clienti"},
  };
  for (const Caso& caso : casi) {
    duedates::SceltaStampaScadenze s;
    s.scadenze = caso.scelta;
    EXPECT_FALSE(duedates::StampaScadenze(ambiente, uscite).Stampa(s));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    EXPECT_TRUE(duedates::StampaScadenze(ambiente, uscite).FoglioScadenze(s).colonne.empty());
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
  }
  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(duedates::StampaScadenze(ambiente, uscite).Stampa({}));
}

TEST_F(StampaScadenzeTest, LeRigheDelTesto) {
  ScriviTutte();
  ASSERT_TRUE(Stampa(Scelta(duedates::OrdineScadenze::PerConto), Destinazione::Testo));
  for (const char* riga :
       {"SCADENZE PER CLIENTE   scadenze aperte\n", "\n0001  Clienti 0001 dell'Oro\n",
        "15/03/2024        2            scad.2                                01 parziale          "
        " "
        "200,00          50,25         149,75\n",
        "\ntotale 0001 Clienti 0001 dell'Oro                                                   "
        "       270,00          50,25         219,75\n"}) {
    EXPECT_THAT(uscite.Testo(), HasSubstr(riga));
  }
  EXPECT_THAT(uscite.Testo(), Not(HasSubstr("totale marzo")));
  ASSERT_TRUE(Stampa(Scelta(duedates::OrdineScadenze::PerData, true), Destinazione::Testo));
  EXPECT_THAT(uscite.Testo(), HasSubstr("SCADENZE PER DATA - CLIENTI"));
  EXPECT_THAT(uscite.Testo(), HasSubstr("\n31/03/2024 0002     Clienti 0002 dell'Oro"));
}

TEST_F(StampaScadenzeTest, OgniRigaPortaAllaRegistrazioneOAlConto) {
  ScriviTutte();
  ASSERT_TRUE(Stampa(Scelta(duedates::OrdineScadenze::PerConto), Destinazione::Testo));
  std::vector<std::string> rinvii;
  for (const reports::Pagina& pagina : uscite.pagine) {
    for (const reports::Elemento& elemento : pagina.elementi) {
      const auto* riga = std::get_if<reports::RigaFissa>(&elemento);
      if (riga == nullptr || riga->rinvio.Vuoto()) continue;
      const Rinvio& r = riga->rinvio;
      rinvii.push_back(r.anno == 0 ? r.classe + r.codice : std::to_string(r.anno) + "/" + r.codice);
    }
  }
  EXPECT_THAT(rinvii, ElementsAre("C0001", "2024/7", "C0001", "C0001", "C0002", "C0002", "C0002"));
}

TEST_F(StampaScadenzeTest, SuPiuPagineLaParteSiRinomina) {
  ScriviMolte("0001", 240, "1.01");
  Scrivi({"C", "0002", G(1, 1, 2024), "5"});
  duedates::SceltaStampaScadenze scelta = Scelta(duedates::OrdineScadenze::PerConto);
  for (const bool grafico : {false, true}) {
    scelta.stGrafico = grafico;
    ASSERT_TRUE(Stampa(scelta, grafico ? Destinazione::Pdf : Destinazione::Testo));
    ASSERT_GT(uscite.pagine.size(), 2U);
    std::vector<std::string> testi = uscite.Scritte();
    for (const auto& pagina : uscite.Righe())
      for (const std::string& riga : pagina)
        testi.push_back(riga.substr(0, riga.find_last_not_of(' ') + 1));
    const auto quante = [&testi](const char* testo) {
      return static_cast<std::size_t>(std::count(testi.begin(), testi.end(), testo));
    };
    EXPECT_EQ(quante("0001  Clienti 0001 dell'Oro"), 1U) << grafico;
    EXPECT_EQ(quante("0001  Clienti 0001 dell'Oro  (segue)"), uscite.pagine.size() - 1) << grafico;
    EXPECT_EQ(quante("0002  Clienti 0002 dell'Oro  (segue)"), 0U) << grafico;
    if (grafico) {
      EXPECT_THAT(testi, Contains("247,40"));
    }
  }
  dialoghi.annullaDopo = 0;
  EXPECT_FALSE(Stampa(scelta, Destinazione::Pdf));
  EXPECT_TRUE(duedates::StampaScadenze(ambiente, uscite).FoglioScadenze(scelta).colonne.empty());
}

}  // namespace
}  // namespace fenalto::prova
