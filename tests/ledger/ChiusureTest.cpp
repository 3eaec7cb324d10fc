// The three runs that close a year: what they write, refuse and ask, and how they are taken back.
#include "ledger/ChiusureDiProva.h"
#include "ledger/closing/ControlliChiusura.h"
#include "ledger/closing/SituazioneAnno.h"

namespace fenalto::prova {
namespace {

class ChiusureTest : public ChiusureDiProva {
 protected:
  ChiusureTest() { AnnoPiccolo(); }
  std::vector<std::string> Scritte(int origine, int anno = 2024) {
    return Leggi(
        "select m.Posi, m.Causale, m.Descrizione, m.CFP, m.Conto, m.ImpoDare, m.ImpoAvere, "
        "m.CFPControp, m.ContoControp from Movimenti as m inner join Articoli as a on "
        "(m.Anno=a.Anno) and (m.NumDoc=a.NumDoc) where a.Anno=" +
        std::to_string(anno) + " and a.CREATOINAUTOMATICO=" + std::to_string(origine) +
        " order by m.NumDoc, m.Posi");
  }
};

TEST_F(ChiusureTest, LAnnoIntero) {
  ASSERT_TRUE(GiroEconomici());
  EXPECT_EQ(SoloMessaggio(), "Create registrazioni GIRO ECONOMICI - da n.articolo 4 a 5");
  EXPECT_THAT(
      Scritte(94),
      ElementsAre("100|060||P|500.010|0|300|P|980.001", "200|060||P|980.001|300|0|P|500.010",
                  "100|060||P|700.010|500|0|P|980.001", "200|060||P|980.001|0|500|P|700.010"));
  EXPECT_THAT(Leggi("select CFP, Conto, CfpA, ContoA, Dt from Articoli where Anno=2024 and "
                    "CREATOINAUTOMATICO=94 order by NumDoc"),
              ElementsAre("P|980.001|P|500.010|2024-12-31", "P|700.010|P|980.001|2024-12-31"));
  ASSERT_TRUE(GiroUtile());
  EXPECT_THAT(UltimaDomanda(), HasSubstr("CONFERMA GIRO utile/perdita (200,00) ?"));
  EXPECT_EQ(SoloMessaggio(), "Creata registrazione utile/perdita - articolo n.6");
  EXPECT_THAT(Scritte(92), ElementsAre("100|061|UTILE ESERCIZIO 2024|P|980.001|200|0|P|300.010",
                                       "200|061|UTILE ESERCIZIO 2024|P|300.010|0|200|P|980.001"));
  ASSERT_TRUE(Chiude());
  EXPECT_THAT(UltimaDomanda(), HasSubstr("altrimenti i saldi finali vengono azzerati"));
  EXPECT_EQ(SoloMessaggio(), "Create registrazioni chiusura patrimoniali - da n.articolo 7 a 11");
  EXPECT_THAT(Saldi(2024), IsEmpty());
  // Repeated, none has anything left to move: the closing account isn't turned into profit.
  const std::string libri = Libri();
  EXPECT_TRUE(GiroEconomici());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("GIRO ECONOMICI - nessuna"));
  EXPECT_TRUE(GiroUtile());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("980.001 è a zero"));
  EXPECT_TRUE(Chiude());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("nessuna"));
  EXPECT_EQ(Libri(), libri);
}

TEST_F(ChiusureTest, UnaPerditaStaInDare) {
  Articolo(2024, 4, G(5, 5, 2024), {{"P", "500.010", I("900")}, {"P", "100.010", I("-900")}});
  ASSERT_TRUE(GiroEconomici());
  ASSERT_TRUE(GiroUtile());
  EXPECT_THAT(UltimaDomanda(), HasSubstr("(700,00)"));
  EXPECT_THAT(Scritte(92), Contains("200|061|PERDITA ESERCIZIO 2024|P|300.010|700|0|P|980.001"));
}

TEST_F(ChiusureTest, RipetutoMuoveSoloQuelloCheResta) {
  ASSERT_TRUE(GiroEconomici());
  Articolo(2024, 40, G(5, 5, 2024), {{"P", "500.020", I("7")}, {"P", "100.010", I("-7")}});
  Messaggi();
  ASSERT_TRUE(GiroEconomici());
  EXPECT_EQ(SoloMessaggio(), "Create registrazioni GIRO ECONOMICI - da n.articolo 41 a 41");
}

TEST_F(ChiusureTest, Rifiuti) {
  using C = ledger::Chiusure;
  struct Caso {
    const char* nome;
    std::vector<std::pair<const char*, Valore>> campi;
    bool (C::*corsa)();
    const char* testo;
    const char* campo;
  };
  const std::vector<Caso> casi{{"senza conto",
                                {{"C_ProfittiPerdite", ""}},
                                &C::ConfermaEconomici,
                                "manca contropartita o causale o data",
                                "C_ProfittiPerdite"},
                               {"senza causale, e altro",
                                {{"Cau_ProfittiPerdite", ""}, {"C_ProfittiPerdite", "100.010"}},
                                &C::ConfermaEconomici,
                                "manca contropartita o causale o data",
                                "Cau_ProfittiPerdite"},
                               {"senza data",
                                {{"DtGiroEcon", Data()}},
                                &C::ConfermaEconomici,
                                "manca contropartita o causale o data",
                                "DtGiroEcon"},
                               {"patrimoniale, e data di un altro anno",
                                {{"C_ProfittiPerdite", "100.010"}, {"DtGiroEcon", G(1, 1, 2025)}},
                                &C::ConfermaEconomici,
                                "il conto 100.010 non dovrebbe essere Patrimoniale",
                                "C_ProfittiPerdite"},
                               {"conto ignoto",
                                {{"C_ProfittiPerdite", "980.777"}},
                                &C::ConfermaEconomici,
                                "il conto 980.777 non esiste",
                                "C_ProfittiPerdite"},
                               {"causale ignota",
                                {{"Cau_ProfittiPerdite", "XX"}},
                                &C::ConfermaEconomici,
                                "la causale XX non esiste",
                                "Cau_ProfittiPerdite"},
                               {"data di un altro anno",
                                {{"DtGiroEcon", G(1, 1, 2025)}},
                                &C::ConfermaEconomici,
                                "non è dell'anno 2024",
                                "DtGiroEcon"},
                               {"utile senza conto",
                                {{"C_UtilePerdita", ""}},
                                &C::ConfermaUtile,
                                "manca contropartita o causale o data",
                                "C_UtilePerdita"},
                               {"utile da un patrimoniale",
                                {{"C_ProfittiPerdite", "100.010"}, {"C_UtilePerdita", "700.010"}},
                                &C::ConfermaUtile,
                                "il conto 100.010 non dovrebbe essere Patrimoniale",
                                "C_ProfittiPerdite"},
                               {"utile su un economico",
                                {{"C_UtilePerdita", "700.010"}},
                                &C::ConfermaUtile,
                                "il conto 700.010 non dovrebbe essere Economico",
                                "C_UtilePerdita"},
                               {"utile su un riepilogativo",
                                {{"C_UtilePerdita", "120.001"}},
                                &C::ConfermaUtile,
                                "è riepilogativo",
                                "C_UtilePerdita"},
                               {"chiusura senza data",
                                {{"DtGiroPatr", Data()}},
                                &C::ConfermaChiusura,
                                "manca contropartita o causale o data",
                                "DtGiroPatr"},
                               {"chiusura su un patrimoniale",
                                {{"C_Chiusura", "970.001"}},
                                &C::ConfermaChiusura,
                                "il conto 970.001 non dovrebbe essere Patrimoniale",
                                "C_Chiusura"},
                               {"chiusura di un altro anno",
                                {{"DtGiroPatr", G(31, 12, 2023)}},
                                &C::ConfermaChiusura,
                                "non è dell'anno 2024",
                                "DtGiroPatr"}};
  const std::string prima = Contenuto();
  for (const Caso& caso : casi) {
    ledger::Chiusure chiusure(ambiente);
    for (const auto& [campo, valore] : caso.campi) chiusure.Dati().Scrivi(campo, valore);
    EXPECT_FALSE((chiusure.*caso.corsa)()) << caso.nome;
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.testo)) << caso.nome;
    EXPECT_EQ(chiusure.CampoRifiutato(), caso.campo) << caso.nome;
  }
  EXPECT_THAT(dialoghi.domande, IsEmpty());
  EXPECT_EQ(Contenuto(), prima);
}

TEST_F(ChiusureTest, DentroIlGiornaleStampatoSiChiede) {
  Metti(Tessarc(), "UltimaDataLibro", "Anno", 2025, "dt", G(31, 3, 2025));
  ASSERT_TRUE(GiroEconomici());  // the next year's journal is another book
  Metti(Tessarc(), "UltimaDataLibro", "Anno", 2024, "dt", G(31, 12, 2024));
  const std::string libri = Libri();
  dialoghi.Rispondera("CONFERMA GIRO utile/perdita", Risposta::Si);
  dialoghi.Rispondera("già stampata su libro giornale", Risposta::No);
  ledger::Chiusure chiusure(ambiente);
  EXPECT_FALSE(chiusure.ConfermaUtile());
  EXPECT_EQ(Libri(), libri);
}

TEST_F(ChiusureTest, InterrottaNonLasciaNulla) {
  Articolo(2024, 4, G(5, 5, 2024), {{"P", "500.020", I("7")}, {"P", "100.010", I("-7")}});
  for (int i = 0; i < 60; ++i) {
    const std::string cod = "500.9" + std::to_string(10 + i);
    Metti(Tessarc(), "Conti", "Cod", cod, "CFP", "P", "PatrEcon", "E");
    Articolo(2024, 10 + i, G(5, 5, 2024), {{"P", cod.c_str(), I("1")}, {"P", "100.010", I("-1")}});
  }
  const std::string prima = Contenuto();
  dialoghi.annullaDopo = 50;
  EXPECT_FALSE(GiroEconomici());
  EXPECT_EQ(SoloMessaggio(), "operazione interrotta.\nNon è stato scritto nulla.");
  EXPECT_EQ(Contenuto(), prima);
}

TEST_F(ChiusureTest, LaSituazioneSegueLeOperazioni) {
  const auto stati = [&] {
    std::string testo;
    for (const auto& passo : ledger::LeggiSituazioneAnno(ambiente).passi)
      testo += passo.stato + "; ";
    return testo;
  };
  EXPECT_EQ(stati(), "fatta; da fare; da fare; niente da fare; da fare; ");
  ASSERT_TRUE(Trasporta(false));
  EXPECT_EQ(stati(), "fatta; fatta, provvisoria; da fare; niente da fare; da fare; ");
  EXPECT_EQ(ledger::LeggiSituazioneAnno(ambiente).prossimo, "Da fare adesso: Giro conti economici");
  ASSERT_TRUE(GiroEconomici());
  EXPECT_EQ(stati(), "fatta; fatta, provvisoria; fatta; da fare; da fare; ");
  ASSERT_TRUE(GiroUtile());
  // The result wasn't known when the balances were transported.
  EXPECT_EQ(ledger::LeggiSituazioneAnno(ambiente).passi[1].resta,
            "1 conti con un'apertura diversa dal saldo finale");
  ASSERT_TRUE(Trasporta(true));
  ASSERT_TRUE(Chiude());
  const ledger::SituazioneAnno situazione = ledger::LeggiSituazioneAnno(ambiente);
  for (const auto& passo : situazione.passi) {
    EXPECT_TRUE(passo.fatta) << passo.nome << ": " << passo.resta;
  }
  EXPECT_THAT(situazione.prossimo, HasSubstr("L'anno 2024 è chiuso"));
  ASSERT_EQ(situazione.operazioni.size(), 4U);  // the provisional openings gave way
  const auto chiusure = ledger::RegistrazioniDellOperazione(ambiente, situazione.operazioni[0]);
  ASSERT_EQ(chiusure.size(), 5U);
  EXPECT_EQ(chiusure[0].conto, "100.010");
  EXPECT_EQ(chiusure[0].avere, I("1000"));
  EXPECT_EQ(ledger::RegistrazioniDelPasso(ambiente, situazione.passi[1]).size(), 5U);
}

TEST_F(ChiusureTest, AnnullarePrendeSoloLeSue) {
  ASSERT_TRUE(GiroEconomici());
  const auto operazione = ledger::LeggiSituazioneAnno(ambiente).operazioni.at(0);
  // One erased by hand; its number was the last and is taken by another registration.
  Tessarc().Esegui("delete * from Movimenti where Anno=2024 and NumDoc=5");
  Tessarc().Esegui("delete * from Articoli where Anno=2024 and NumDoc=5");
  Articolo(2024, 5, G(9, 9, 2024), {{"P", "100.010", I("1")}, {"P", "110.001", I("-1")}});
  Messaggi();
  dialoghi.Rispondera("Annullare l'operazione «giro conti economici»", Risposta::No);
  const std::string libri = Libri();
  EXPECT_FALSE(ledger::AnnullaOperazione(ambiente, operazione.id));
  EXPECT_EQ(Libri(), libri);
  dialoghi.Rispondera("Verranno eliminate 1 registrazioni", Risposta::Si);
  EXPECT_TRUE(ledger::AnnullaOperazione(ambiente, operazione.id));
  EXPECT_THAT(UltimaDomanda(), HasSubstr("ne aveva scritte 2"));
  EXPECT_THAT(Leggi("select NumDoc from Articoli where Anno=2024 order by NumDoc"),
              ElementsAre("1", "2", "3", "5"));
  Messaggi();
  EXPECT_FALSE(ledger::AnnullaOperazione(ambiente, operazione.id));
  EXPECT_EQ(SoloMessaggio(), "l'operazione è già stata annullata");
}

TEST_F(ChiusureTest, ControlliPrimaDiChiudere) {
  EXPECT_THAT(ledger::ControllaPrimaDiChiudere(ambiente), IsEmpty());
  Articolo(2024, 10, G(1, 5, 2024), {{"P", "100.010", I("10")}, {"P", "110.001", I("-9")}});
  ledger::Chiusure chiusure(ambiente);
  dialoghi.Rispondera("i controlli danno 1 rilievo grave (pagina Controlli)", Risposta::No);
  EXPECT_FALSE(chiusure.ConfermaChiusura());
  Articolo(2024, 11, G(1, 5, 2024), {{"C", "0003", I("4")}, {"P", "110.001", I("-4")}});
  Articolo(2024, 12, G(1, 5, 2024), {{"P", "999.999", I("3")}, {"P", "110.001", I("-3")}});
  Articolo(2024, 13, G(1, 5, 2024), {{"P", "900.010", I("2")}, {"P", "110.001", I("-2")}}, "1", 1);
  Metti(Tessarc(), "Movimenti", "Anno", 2024, "NumDoc", 14, "Posi", 100, "CFP", "P", "Conto",
        "100.010");
  Tessarc().Esegui("update Conti set PatrEcon='' where Cod='100.010'");
  Tessarc().Esegui("update Conti set PatrEcon='E' where Cod='110.001'");
  Metti(ambiente.ArchivioDi("scadenzario"), "Scadenze", "Numero", 1, "CFP", "C", "Conto", "0001",
        "Dt", G(30, 6, 2024), "Stato", "20", "ImportoE", I("50"));
  std::vector<std::string> trovati;
  for (const auto& r : ledger::ControllaPrimaDiChiudere(ambiente)) {
    trovati.push_back(r.controllo + (r.grave ? " !" : "") + ": " + r.che);
    EXPECT_EQ(r.rinvio.Vuoto(), r.controllo == "righe senza registrazione") << r.controllo;
  }
  EXPECT_THAT(
      trovati,
      ElementsAre("registrazione sbilanciata !: articolo 10",
                  "righe senza registrazione !: articolo 14",
                  "patrimoniale/economico !: 100.010 Cassa contanti",
                  "patrimoniale/economico !: 110.001 Banca c/c", "cliente senza conto !: 0003",
                  "codice sconosciuto !: P 999.999", HasSubstr("conto transitorio: 900.010"),
                  "IVA non liquidata: periodo 05", "ricevuta in banca non chiusa: cliente 0001"));
}

}  // namespace
}  // namespace fenalto::prova
