// Balances carried to the next year: refusals in their order, what is skipped, what gives way.
#include "ledger/ChiusureDiProva.h"
#include "ledger/closing/SituazioneAnno.h"

namespace fenalto::prova {
namespace {

class TrasportoSaldiTest : public ChiusureDiProva {
 protected:
  TrasportoSaldiTest() { AnnoPiccolo(); }
  std::vector<std::string> Aperture(int anno = 2025) {
    return Leggi(
        "select Causale, CFP, Conto, ImpoDare, ImpoAvere, ContoControp from Movimenti "
        "where Posi=100 and Anno=" +
        std::to_string(anno) + " order by NumDoc");
  }
};

TEST_F(TrasportoSaldiTest, ProvvisorioPoiDefinitivo) {
  Tessarc().Esegui("delete * from Causali where Cod='APE' or Cod='APEX'");
  ASSERT_TRUE(Trasporta(false));
  EXPECT_THAT(Messaggi(), ElementsAre("non ci sono articoli con causale APEX",
                                      "Create registrazioni apertura anno 2025 da n.articolo 1 a "
                                      "n.4"));
  EXPECT_THAT(Aperture(),
              ElementsAre("APEX|P|100.010|1000|0|970.001", "APEX|C|0001|500|0|970.001",
                          "APEX|P|300.001|0|1000|970.001", "APEX|F|0001|0|300|970.001"));
  EXPECT_THAT(
      Leggi("select Cod, Descrizione, Ripete from Causali where Cod like 'APE*' order by "
            "Cod"),
      ElementsAre("APE|Riporto Saldi Apertura|True", "APEX|Saldi Apertura Provvisori|True"));
  Articolo(2025, 9, G(2, 1, 2025), {{"P", "100.010", I("5")}, {"P", "110.001", I("-5")}});
  ASSERT_TRUE(GiroEconomici());
  ASSERT_TRUE(GiroUtile());
  Messaggi();
  ASSERT_TRUE(Trasporta(true));
  EXPECT_THAT(Messaggi(),
              ElementsAre("Le registrazioni della precedente apertura provvisoria (causale=APEX) "
                          "verranno eliminate",
                          "Create registrazioni apertura anno 2025 da n.articolo 10 a n.14"));
  EXPECT_THAT(Leggi("select Causale, count(*) from Movimenti where Anno=2025 group by Causale"),
              ElementsAre("001|2", "APE|10"));
  EXPECT_THAT(Leggi("select distinct CREATOINAUTOMATICO, Dt from Articoli where Anno=2025 and "
                    "NumDoc>9"),
              ElementsAre("93|2025-01-01"));
  // Taken back, the replaced provisional openings don't come back.
  dialoghi.Rispondera(
      "Le 4 registrazioni di apertura provvisoria che aveva sostituito non ritornano",
      Risposta::Si);
  ASSERT_TRUE(ledger::AnnullaOperazione(ambiente,
                                        ledger::LeggiSituazioneAnno(ambiente).operazioni.at(0).id));
  EXPECT_THAT(Leggi("select NumDoc from Articoli where Anno=2025"), ElementsAre("9"));
}

TEST_F(TrasportoSaldiTest, UnSecondoDefinitivoSiChiede) {
  ASSERT_TRUE(Trasporta(true));
  const std::string libri = Libri();
  ledger::TrasportoSaldi trasporto(ambiente);
  trasporto.LetturaSaldi();
  trasporto.Dati().Scrivi("TrasportoDefinitivo", true);
  dialoghi.Rispondera("CONFERMA TRASPORTO SALDI APERTURA", Risposta::Si);
  dialoghi.Rispondera("sull'anno 2025 ci sono già registrazioni di apertura definitive",
                      Risposta::No);
  EXPECT_FALSE(trasporto.ConfermaSaldi());
  EXPECT_EQ(Libri(), libri);
}

TEST_F(TrasportoSaldiTest, SaltaContropartitaZeriECodiciIgnoti) {
  Articolo(2024, 4, G(1, 6, 2024), {{"P", kContoApertura, I("8")}, {"P", "100.010", I("-8")}});
  // On the summary account itself, and a customer of the same code as the supplier.
  Articolo(2024, 5, G(1, 6, 2024), {{"P", "120.001", I("2")}, {"P", "100.010", I("-2")}});
  ledger::TrasportoSaldi trasporto(ambiente);
  trasporto.LetturaSaldi();
  std::vector<std::string> lista;
  for (const auto& voce : trasporto.Lista()) {
    lista.push_back(voce.cfp + " " + voce.conto + " " + voce.saldo.Testo());
  }
  EXPECT_THAT(lista, ElementsAre("P 100.010 990", "P 120.001 2", "C 0001 500", "P 300.001 -1000",
                                 "F 0001 -300", "P 970.001 8"));
  trasporto.TogliSaldo(3);
  Tessarc().Esegui("delete * from ContiClientiFornitori where CFP='F' and Cod='0001'");
  dialoghi.Rispondera("CONFERMA TRASPORTO SALDI", Risposta::Si);
  ASSERT_TRUE(trasporto.ConfermaSaldi());
  EXPECT_TRUE(dialoghi.HaDetto("Attenzione : non esiste il conto 0001"));
  EXPECT_THAT(Aperture(), ElementsAre("APEX|P|100.010|990|0|970.001", "APEX|P|120.001|2|0|970.001",
                                      "APEX|C|0001|500|0|970.001"));
}

TEST_F(TrasportoSaldiTest, Rifiuti) {
  struct Caso {
    const char* nome;
    std::vector<std::pair<const char*, Valore>> campi;
    bool letti;
    bool chiesto;
    const char* testo;
    const char* campo;
  };
  const std::string db = ambiente.PercorsoDb("tessarc").string();
  const std::vector<Caso> casi{
      {"senza data e lista",
       {{"DtSaldi", Data()}},
       false,
       false,
       "manca contropartita o data",
       "DtSaldi"},
      {"senza contropartita",
       {{"Contropartita", ""}},
       true,
       false,
       "manca contropartita o data",
       "Contropartita"},
      {"senza lista e db",
       {{"NuovoNomeDbCont2Saldi", ""}},
       false,
       false,
       "i saldi sono tutti a zero",
       "pLetturaSaldi"},
      {"senza db",
       {{"NuovoNomeDbCont2Saldi", ""}},
       true,
       false,
       "manca nome db",
       "NuovoNomeDbCont2Saldi"},
      {"db che non c'è",
       {{"NuovoNomeDbCont2Saldi", "/non/esiste/Cont32.mdb"}},
       true,
       true,
       "errore su apertura database nuovo esercizio:",
       "NuovoNomeDbCont2Saldi"},
      {"anno che non c'è",
       {{"NuovoAnnoSaldi", 2026}},
       true,
       true,
       "L'esercizio anno 2026 sull'archivio",
       "NuovoAnnoSaldi"},
      {"da euro a lire",
       {{"NuovoAnnoSaldi", 2000}},
       true,
       true,
       "Non si possono trasportare saldi da una contabilità in EURO ad una in LIRE",
       "NuovoAnnoSaldi"},
      {"sullo stesso anno",
       {{"NuovoAnnoSaldi", 2024}},
       true,
       true,
       "è lo stesso da cui si leggono",
       "NuovoAnnoSaldi"},
      {"contropartita ignota",
       {{"Contropartita", "970.777"}},
       true,
       true,
       "il conto 970.777 non esiste",
       "Contropartita"},
      {"data di un altro anno",
       {{"DtSaldi", G(31, 12, 2024)}},
       true,
       true,
       "non è dell'anno 2025",
       "DtSaldi"}};
  const std::string prima = Contenuto();
  for (const Caso& caso : casi) {
    ledger::TrasportoSaldi trasporto(ambiente);
    if (caso.letti) trasporto.LetturaSaldi();
    for (const auto& [campo, valore] : caso.campi) trasporto.Dati().Scrivi(campo, valore);
    if (caso.chiesto) dialoghi.Rispondera("CONFERMA TRASPORTO SALDI APERTURA", Risposta::Si);
    EXPECT_FALSE(trasporto.ConfermaSaldi()) << caso.nome;
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.testo)) << caso.nome;
    EXPECT_EQ(trasporto.CampoRifiutato(), caso.campo) << caso.nome;
  }
  EXPECT_EQ(Contenuto(), prima);
}

TEST_F(TrasportoSaldiTest, DalleLireConLeCifreCheHa) {
  ASSERT_TRUE(ambiente.ScegliAnno(2000));
  Articolo(2000, 1, G(1, 3, 2000),
           {{"P", "100.010", I("1936270")}, {"P", "300.001", I("-1936270")}});
  ledger::TrasportoSaldi trasporto(ambiente);
  trasporto.LetturaSaldi();
  trasporto.Dati().Scrivi("NuovoAnnoSaldi", 2023);
  trasporto.CampoLasciato("NuovoAnnoSaldi");
  EXPECT_EQ(trasporto.Dati().Leggi("DtSaldi").Data(), G(1, 1, 2023));
  dialoghi.Rispondera("CONFERMA TRASPORTO SALDI", Risposta::Si);
  ASSERT_TRUE(trasporto.ConfermaSaldi());
  EXPECT_THAT(Aperture(2023), Contains("APEX|P|100.010|1936270|0|970.001"));
}

TEST_F(TrasportoSaldiTest, SuUnAltraDitta) {
  CreaDittaProva(OpzioniProva(cartella / "programma"), "Seconda", {{2025, true}});
  ledger::TrasportoSaldi trasporto(ambiente);
  trasporto.LetturaSaldi();
  const auto trovati = trasporto.ArchiviTrovati();
  ASSERT_EQ(trovati.size(), 2U);
  const auto altro = trovati[0] == ambiente.PercorsoDb("tessarc") ? trovati[1] : trovati[0];
  trasporto.Dati().Scrivi("NuovoNomeDbCont2Saldi", altro.string());
  const std::string prima = Contenuto();
  dialoghi.Rispondera("SU " + altro.string(), Risposta::Si);
  ASSERT_TRUE(trasporto.ConfermaSaldi());
  EXPECT_EQ(Contenuto(), prima);
  // Its parties aren't there: they are left out, one message each.
  EXPECT_TRUE(dialoghi.HaDetto("Attenzione : non esiste il conto 0001"));
  EXPECT_TRUE(dialoghi.HaDetto("Create registrazioni apertura anno 2025 da n.articolo 1 a n.2"));
  ASSERT_TRUE(ambiente.ApriDitta("Seconda", 2025));
  EXPECT_THAT(Aperture(),
              ElementsAre("APEX|P|100.010|1000|0|970.001", "APEX|P|300.001|0|1000|970.001"));
}

}  // namespace
}  // namespace fenalto::prova
