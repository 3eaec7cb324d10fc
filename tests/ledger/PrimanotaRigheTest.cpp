// The row frame: what a field brings about, and what stops a row.
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

class PrimanotaRigheTest : public DittaDiProva {
 protected:
  PrimanotaRigheTest() : pn(ambiente) { pn.Nuovo(); }
  std::vector<std::int64_t> Posizioni() const {
    std::vector<std::int64_t> posizioni;
    for (const auto& r : pn.Righe()) posizioni.push_back(r.posi);
    return posizioni;
  }
  ledger::Primanota pn;
};

TEST_F(PrimanotaRigheTest, ValoriIniziali) {
  EXPECT_FALSE(ledger::Primanota(ambiente).PNuovaRiga());
  ASSERT_TRUE(pn.PNuovaRiga());
  EXPECT_FALSE(pn.PNuovaRiga());
  EXPECT_TRUE(pn.RigaNuova());
  EXPECT_EQ(pn.Riga().Leggi("Posi").Intero(), 100);
  EXPECT_EQ(pn.Riga().Testo("CFP") + pn.Riga().Testo("CFPControp"), "PP");
  EXPECT_EQ(pn.Riga().Testo("Causale"), "");
  pn.AnnullaRiga();
  EXPECT_FALSE(pn.Modificata());
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("5"), "P", "007"}));
  EXPECT_TRUE(pn.Modificata());
  ASSERT_TRUE(pn.PNuovaRiga());
  EXPECT_EQ(pn.Riga().Leggi("Posi").Intero(), 200);
  EXPECT_EQ(pn.Riga().Testo("Causale"), "007");
}

TEST_F(PrimanotaRigheTest, CausaleCheRipete) {
  struct Caso {
    const char *causale, *primaRiga, *dare, *avere, *descrizione;
  };
  // 001 repeats, 020 doesn't, 999 doesn't exist.
  const std::vector<Caso> casi = {{"001", "12.34", "0", "12.34", "prima"},
                                  {"001", "-12.34", "12.34", "0", "prima"},
                                  {"001", "0", "0", "0", "prima"},
                                  {"020", "12.34", "0", "0", ""},
                                  {"999", "12.34", "0", "0", ""}};
  for (const Caso& caso : casi) {
    pn.Nuovo();
    ASSERT_TRUE(Scrivi(pn, {"100.010", I(caso.primaRiga), "P", "005", "prima"}));
    ASSERT_TRUE(pn.PNuovaRiga());
    pn.Riga().Scrivi("Causale", caso.causale);
    pn.RigaLasciata("Causale");
    EXPECT_EQ(pn.Riga().Leggi("ImpoDare").Importo(), I(caso.dare)) << caso.causale;
    EXPECT_EQ(pn.Riga().Leggi("ImpoAvere").Importo(), I(caso.avere)) << caso.causale;
    EXPECT_EQ(pn.Riga().Testo("Descrizione"), caso.descrizione) << caso.causale;
  }
  // The causal taken from the row before proposes when it is first left, and then leaves alone what
  // the user has typed.
  pn.Nuovo();
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("5"), "P", "001", "prima"}));
  ASSERT_TRUE(pn.PNuovaRiga());
  pn.RigaLasciata("Causale");
  EXPECT_EQ(pn.Riga().Leggi("ImpoAvere").Importo(), I("5"));
  EXPECT_EQ(pn.Riga().Testo("Descrizione"), "prima");
  pn.Riga().Scrivi("ImpoAvere", I("3"));
  pn.RigaLasciata("Causale");
  EXPECT_EQ(pn.Riga().Leggi("ImpoAvere").Importo(), I("3"));
  pn.AnnullaRiga();
  // On a stored row it proposes nothing.
  ASSERT_TRUE(pn.ApriRiga(pn.Righe()[0].num));
  EXPECT_FALSE(pn.RigaNuova());
  pn.Riga().Scrivi("Causale", "005");
  pn.RigaLasciata("Causale");
  EXPECT_TRUE(pn.Riga().Leggi("ImpoAvere").Importo().Zero());
}

TEST_F(PrimanotaRigheTest, ImportiEClassi) {
  ASSERT_TRUE(pn.PNuovaRiga());
  Scheda& riga = pn.Riga();
  riga.Scrivi("ImpoDare", I("5"));
  pn.RigaLasciata("ImpoDare");
  riga.Scrivi("ImpoAvere", I("7"));
  pn.RigaLasciata("impoavere");
  EXPECT_TRUE(riga.Leggi("ImpoDare").Importo().Zero());
  riga.Scrivi("ImpoDare", Importo());
  pn.RigaLasciata("ImpoDare");
  EXPECT_EQ(riga.Leggi("ImpoAvere").Importo(), I("7"));

  for (const auto& [classe, conto] : {std::pair{"CFP", "Conto"}, {"CFPControp", "ContoControp"}}) {
    riga.Scrivi(conto, "100.010");
    pn.RigaLasciata(classe);
    EXPECT_EQ(riga.Testo(conto), "100.010");
    riga.Scrivi(classe, "c");
    pn.RigaLasciata(classe);
    EXPECT_EQ(riga.Testo(classe) + riga.Testo(conto), "C");
    riga.Scrivi(conto, "0001");
    EXPECT_EQ(pn.DescrizioneCodice(conto), "Clienti 0001 dell'Oro");
    riga.Scrivi(classe, "X");
    pn.RigaLasciata(classe);
    EXPECT_EQ(riga.Testo(classe) + riga.Testo(conto), "P");
    EXPECT_EQ(pn.DescrizioneCodice(conto), std::nullopt);
  }
  riga.Scrivi("Causale", "APE");
  EXPECT_EQ(pn.DescrizioneCodice("Causale"), "Riporto Saldi Apertura");
}

TEST_F(PrimanotaRigheTest, ControlliInOrdine) {
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("5")}));
  struct Caso {
    std::int64_t posi;
    const char *causale, *cfp, *conto;
    std::string messaggio;
    std::string campo = "Conto";
    const char* controp = "";
    const char* categoria = "";
  };
  const std::string manca = "manca causale o conto";
  const auto ignoto = [](const std::string& campo, const std::string& codice) {
    return campo + ": il codice " + codice + " non esiste, sceglierne uno dall'elenco (F2)";
  };
  const std::string riepilogo =
      "sull'anagrafica del cliente/fornitore 0003 non è inserito il "
      "conto riepilogativo";
  const std::vector<Caso> casi = {
      {100, "", "P", "", "posizione già esistente\nla prima libera in fondo è la 200", "Posi"},
      {200, "", "P", "100.010", manca + "\nscrivere la causale", "Causale"},
      {200, "001", "P", "", manca + "\nscrivere il conto"},
      {200, "999", "P", "100.010", manca + "\n" + ignoto("Causale", "999"), "Causale"},
      {200, "001", "P", "999.999", manca + "\n" + ignoto("Conto", "999.999")},
      // The summary of customers is no account of rows.
      {200, "001", "P", "120.001", manca + "\n" + ignoto("Conto", "120.001")},
      {200, "001", "F", "100.010", manca + "\n" + ignoto("Conto", "100.010")},
      {200, "001", "C", "0003", riepilogo, "Conto", "999.999"},
      {200, "001", "F", "0003", riepilogo},
      {200, "001", "P", "100.010", ignoto("Contropartita", "999.999"), "ContoControp", "999.999"},
      {200, "001", "P", "100.010", ignoto("Categoria", "XX"), "Categoria", "", "XX"},
      {200, "001", "f", "0001", "", ""},
  };
  pn.ContropAutomatiche(false);
  for (const Caso& caso : casi) {
    ASSERT_TRUE(pn.PNuovaRiga());
    pn.Riga().Scrivi("Posi", caso.posi);
    pn.Riga().Scrivi("Causale", caso.causale);
    pn.Riga().Scrivi("CFP", caso.cfp);
    pn.Riga().Scrivi("Conto", caso.conto);
    pn.Riga().Scrivi("ContoControp", caso.controp);
    pn.Riga().Scrivi("Categoria", caso.categoria);
    std::string campo;
    EXPECT_EQ(pn.ConfermaRiga(&campo), caso.messaggio.empty()) << caso.conto;
    EXPECT_EQ(campo, caso.campo) << caso.messaggio;
    EXPECT_EQ(Messaggi(), caso.messaggio.empty() ? std::vector<std::string>{}
                                                 : std::vector<std::string>{caso.messaggio});
    pn.AnnullaRiga();
  }
  ASSERT_EQ(pn.Righe().size(), 2U);
  EXPECT_EQ(pn.Righe()[1].cfp, "F");
  EXPECT_EQ(pn.Righe()[1].descrConto, "Fornitori 0001 dell'Oro");
  EXPECT_EQ(pn.Righe()[1].descrCausale, "Giroconto");
}

TEST_F(PrimanotaRigheTest, LePosizioniOrdinano) {
  for (const char* conto : {"100.010", "100.020", "110.001"})
    ASSERT_TRUE(Scrivi(pn, {conto, I("1")}));
  ASSERT_TRUE(pn.ApriRiga(pn.Righe()[2].num));
  pn.Riga().Scrivi("Posi", 150);
  ASSERT_TRUE(pn.ConfermaRiga());
  EXPECT_EQ(Posizioni(), (std::vector<std::int64_t>{100, 150, 200}));
  EXPECT_EQ(pn.Righe()[1].conto, "110.001");
  EXPECT_FALSE(pn.ApriRiga(9999));

  ASSERT_TRUE(pn.ApriRiga(pn.Righe()[2].num));
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::No);
  EXPECT_FALSE(pn.EliminaRiga());
  dialoghi.Rispondera("RIGA", Risposta::Si);
  EXPECT_TRUE(pn.EliminaRiga());
  EXPECT_EQ(Posizioni(), (std::vector<std::int64_t>{100, 150}));
  EXPECT_EQ(pn.TotDare(), I("2"));
  EXPECT_EQ(pn.Sbilancio(), I("2"));
}

TEST_F(PrimanotaRigheTest, ImportoFuoriCampo) {
  const Importo grande = I("900000000000000");
  ASSERT_TRUE(Scrivi(pn, {"100.010", grande}));
  EXPECT_FALSE(Scrivi(pn, {"100.020", grande}));
  EXPECT_THAT(SoloMessaggio(), ::testing::HasSubstr("fuori dal campo"));
  EXPECT_EQ(pn.StatoCorrente(), ledger::Primanota::Stato::RigaAperta);
  EXPECT_EQ(pn.TotDare(), grande);
  ASSERT_EQ(pn.Righe().size(), 1U);
  pn.Riga().Scrivi("ImpoDare", I("1"));
  EXPECT_TRUE(pn.ConfermaRiga());
  EXPECT_EQ(pn.Righe().size(), 2U);
}

}  // namespace fenalto::prova
