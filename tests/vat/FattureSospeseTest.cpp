// Deferred-VAT invoices: what is listed, when a day of collection is refused, what its storno
// moves.
#include "vat/FatturaDiProva.h"
#include "vat/entry/FattureSospese.h"
#include "vat/settlement/TotaliRegistri.h"

namespace fenalto::prova {
namespace {

class FattureSospeseTest : public FatturaDiProva {
 protected:
  FattureSospeseTest() {
    // Deferred VAT of the register of type 06 has an account of its own.
    Tessarc().Esegui("update RegistriIva set Conto='170.002' where Cod='6'");
    sospesa = Inserisci({.riva = "6", .parte = "0001", .righe = {{"700.001", "22", I("100")}}});
    differita = Inserisci({.riva = "1",
                           .parte = "0001",
                           .righe = {{"700.001", "22", I("50")}},
                           .altri = {{"Ep", true}}});
    acquisto = Inserisci({.riva = "3",
                          .parte = "0001",
                          .righe = {{"500.001", "22", I("200")}},
                          .altri = {{"Ep", true}}});
    Inserisci({.riva = "1", .parte = "0001", .righe = {{"700.001", "22", I("7")}}});
    EXPECT_NE(sospesa * differita * acquisto, 0);
    Messaggi();
  }

  vat::ArticoloOrigine A(std::int64_t numDoc) { return {ambiente.Anno(), numDoc}; }

  /// Rows of the list as "riva/nprot name taxable+vat day".
  std::vector<std::string> Elenco(const vat::FiltroSospese& filtro) {
    std::vector<std::string> righe;
    for (const vat::FatturaSospesa& f : vat::FattureSospese(ambiente).Elenco(filtro)) {
      righe.push_back(f.riva + "/" + std::to_string(f.nProt) + " " + f.nome + " " +
                      f.imponibile.Testo() + "+" + f.iva.Testo() + " " + f.dtIncasso.Testo());
    }
    return righe;
  }

  std::string Incasso(std::int64_t numDoc) {
    return CampoTestata(numDoc, "DtIncasso").Data().Testo();
  }

  /// Sum on the register of collected invoices in a month, by the settlement's own reading.
  Importo Incassate(const char* tipo, int mese) {
    vat::PeriodoIva periodo;
    periodo.cod = (mese < 10 ? "0" : "") + std::to_string(mese);
    periodo.anno = 2024;
    periodo.daMese = periodo.aaMese = mese;
    vat::IntervalloRegistro intervallo;
    intervallo.riva = std::string(tipo) == "08" ? "8" : "8A";
    intervallo.tipo = tipo;
    intervallo.daIncassi = true;
    return vat::CalcolaTotaliRegistri(ambiente, periodo, {intervallo}, {}).Valore().front().Iva();
  }

  std::int64_t sospesa = 0;
  std::int64_t differita = 0;
  std::int64_t acquisto = 0;
};

TEST_F(FattureSospeseTest, Elenco) {
  const std::string cliente = "Clienti 0001 dell'Oro";
  EXPECT_THAT(Elenco({}), ElementsAre("6/1 " + cliente + " 100+22 ", "1/1 " + cliente + " 50+11 ",
                                      "3/1 Fornitori 0001 dell'Oro 200+44 "));
  vat::FattureSospese sospese(ambiente);
  ASSERT_TRUE(sospese.Imposta(A(differita), G(2, 5, 2024)));
  EXPECT_THAT(Elenco({.stato = vat::StatoSospese::Incassate}),
              ElementsAre("1/1 " + cliente + " 50+11 02/05/2024"));
  EXPECT_EQ(Elenco({.stato = vat::StatoSospese::Aperte}).size(), 2U);
  EXPECT_EQ(Elenco({.parte = "FORNITORI 0001"}).size(), 1U);
  EXPECT_EQ(Elenco({.parte = "0001"}).size(), 3U);
  EXPECT_THAT(Elenco({.riva = "6", .parte = "niente"}), IsEmpty());
  EXPECT_THAT(Elenco({.da = G(16, 3, 2024)}), IsEmpty());
  EXPECT_EQ(Elenco({.da = G(15, 3, 2024), .a = G(15, 3, 2024)}).size(), 3U);
  // The session's year doesn't matter.
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_EQ(Elenco({}).size(), 3U);
}

TEST_F(FattureSospeseTest, ContaSulRegistroDegliIncassiNelMeseDellIncasso) {
  vat::FattureSospese sospese(ambiente);
  EXPECT_EQ(Incassate("08", 5), Importo());
  ASSERT_TRUE(sospese.Imposta(A(sospesa), G(31, 5, 2024)));
  ASSERT_TRUE(sospese.Imposta(A(differita), G(1, 5, 2024)));
  ASSERT_TRUE(sospese.Imposta(A(acquisto), G(1, 6, 2024)));
  EXPECT_EQ(Incassate("08", 5), I("33"));
  EXPECT_EQ(Incassate("08A", 5), Importo());
  EXPECT_EQ(Incassate("08A", 6), I("44"));
  ASSERT_TRUE(sospese.Annulla(A(sospesa)));
  EXPECT_EQ(Incassate("08", 5), I("11"));
}

TEST_F(FattureSospeseTest, StornoSoloDaUnContoAParte) {
  Config("CausaleErario", "027");
  vat::FattureSospese sospese(ambiente);
  const std::string prima = Tutto();
  // 170.001 is the account of both registers: nothing is moved.
  ASSERT_TRUE(sospese.Imposta(A(differita), G(2, 5, 2024)));
  EXPECT_THAT(Messaggi(), IsEmpty());
  ASSERT_TRUE(sospese.Annulla(A(differita)));
  EXPECT_EQ(Tutto(), prima);

  ASSERT_TRUE(sospese.Imposta(A(sospesa), G(2, 5, 2024)));
  EXPECT_EQ(SoloMessaggio(),
            "Storno dell'IVA differita: ARTICOLO CONTABILE n. 5\nannotare il numero");
  EXPECT_EQ(TestaDi(5), "02/05/2024 P:170.002 P:170.001 auto1 /0 15/03/2024 «12» ");
  EXPECT_THAT(RigheDi(5),
              ElementsAre("1 027 P:170.002 22/0 P:170.001 t0  0+0+0 «Storno IVA differita prot. "
                          "6/1 del 15/03/2024»",
                          "2 027 P:170.001 0/22 P:170.002 t0  0+0+0 «Storno IVA differita prot. "
                          "6/1 del 15/03/2024»"));
  // Moved to another day it is one still; without a day there is none.
  ASSERT_TRUE(sospese.Imposta(A(sospesa), G(7, 1, 2025)));
  EXPECT_EQ(Tessarc().Singolo("select Count(*) from Articoli where CREATOINAUTOMATICO=1").Intero(),
            1);
  EXPECT_EQ(Tessarc().Singolo("select Dt from Articoli where CREATOINAUTOMATICO=1").Data(),
            G(7, 1, 2025));
  Messaggi();
  ASSERT_TRUE(sospese.Annulla(A(sospesa)));
  EXPECT_EQ(Conti(), "4 12 0");
  EXPECT_EQ(Incasso(sospesa), "");

  // A purchase is moved from the debit side.
  Tessarc().Esegui("update RegistriIva set Conto='170.004' where Cod='8A'");
  ASSERT_TRUE(sospese.Imposta(A(acquisto), G(2, 5, 2024)));
  Messaggi();
  EXPECT_EQ(TestaDi(5), "02/05/2024 P:170.004 P:170.003 auto1 /0 15/03/2024 «12» ");
  EXPECT_THAT(RigheDi(5)[0], HasSubstr("P:170.003 0/44 P:170.004"));
}

TEST_F(FattureSospeseTest, Rifiuti) {
  Tessarc().Esegui("insert into ChiusureIva (Anno, MESETRIMESTRE) values (2024, '04')");
  Tessarc().Esegui("update Anni set IvaTrimestrale=True where Anno=2025");
  Tessarc().Esegui("insert into ChiusureIva (Anno, MESETRIMESTRE) values (2025, 'T1')");
  struct Caso {
    Data data;
    const char* messaggio;
  };
  const std::vector<Caso> casi = {
      {{}, "impostare la data di incasso"},
      {G(14, 3, 2024), "viene prima della registrazione della fattura 6/1 del 15/03/2024"},
      {G(1, 4, 2024), "nel periodo 04/2024, la cui liquidazione IVA è già stampata"},
      {G(30, 4, 2024), "nel periodo 04/2024"},
      {G(31, 3, 2025), "nel periodo T1/2025"},
      {G(1, 1, 2026), "in un anno che la ditta non ha"},
  };
  vat::FattureSospese sospese(ambiente);
  const std::string prima = Tutto();
  for (const Caso& caso : casi) {
    EXPECT_FALSE(sospese.Imposta(A(sospesa), caso.data));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
  }
  EXPECT_FALSE(sospese.Imposta(A(4), G(2, 5, 2024)));  // not deferred
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non è più in sospensione"));
  EXPECT_FALSE(sospese.Annulla(A(sospesa)));  // has no day
  EXPECT_EQ(Tutto(), prima);

  // The day that is left is looked at as the new one is.
  ASSERT_TRUE(sospese.Imposta(A(sospesa), G(2, 5, 2024)));
  Messaggi();
  Tessarc().Esegui("insert into ChiusureIva (Anno, MESETRIMESTRE) values (2024, '05')");
  EXPECT_FALSE(sospese.Annulla(A(sospesa)));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("nel periodo 05/2024"));
  EXPECT_FALSE(sospese.Imposta(A(sospesa), G(2, 6, 2024)));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("nel periodo 05/2024"));
  Tessarc().Esegui("delete * from ChiusureIva");
  Tessarc().Esegui("insert into UltimaDataLibro (Anno, dt) values (2024, #05/02/2024#)");
  EXPECT_FALSE(sospese.Annulla(A(sospesa)));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("articolo n. 5 del 02/05/2024, è già sul libro giornale"));

  Tessarc().Esegui("delete * from RegistriIva where Tipo='08A'");
  EXPECT_FALSE(sospese.Imposta(A(acquisto), G(2, 6, 2024)));
  EXPECT_EQ(SoloMessaggio(), "è necessario creare un registro iva di tipo 08A");
}

// The invoice itself changed, or erased, in its own window.
TEST_F(FattureSospeseTest, LoStornoSegueLaFattura) {
  Tessarc().Esegui("update RegistriIva set Conto='170.002' where Cod='1'");
  differita = Inserisci({.riva = "1",
                         .parte = "0001",
                         .righe = {{"700.001", "22", I("60")}},
                         .altri = {{"Ep", true}, {"DtIncasso", G(2, 5, 2024)}}});
  Messaggi();
  const auto storno = [this] {
    Rs r = Tessarc().Recordset(
        "select Movimenti.* from Articoli inner join Movimenti on (Articoli.Anno=Movimenti.Anno) "
        "and (Articoli.NumDoc=Movimenti.NumDoc) where CREATOINAUTOMATICO=1 and Posi=1");
    std::string testo;
    for (; !r.Eof(); r.MoveNext())
      testo += r.Fields("Conto").Testo() + " " + Stringa(r.Fields("ImpoDare").Importo()) + ";";
    return testo;
  };
  EXPECT_EQ(storno(), "170.002 13.2;");
  vat::RegistrazioneIva fatture(ambiente);
  ASSERT_TRUE(fatture.Apri(differita));
  ASSERT_TRUE(DigitaRiga(fatture, {"700.001", "22", I("100")}));
  fatture.Testa().Scrivi("Dt", G(16, 3, 2024));
  ASSERT_TRUE(fatture.Conferma());
  Messaggi();
  EXPECT_EQ(storno(), "170.002 35.2;");

  // A settled period is refused here too; so is what would be taken out of it.
  Tessarc().Esegui("insert into ChiusureIva (Anno, MESETRIMESTRE) values (2024, '05')");
  ASSERT_TRUE(fatture.Apri(differita));
  for (const Data data : {Data(), G(2, 6, 2024)}) {
    fatture.Testa().Scrivi("DtIncasso", data);
    EXPECT_FALSE(fatture.Conferma());
    EXPECT_THAT(SoloMessaggio(), HasSubstr("nel periodo 05/2024"));
    EXPECT_EQ(fatture.Testa().Leggi("DtIncasso").Data(), G(2, 5, 2024));
  }
  Tessarc().Esegui("delete * from ChiusureIva");
  dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
  ASSERT_TRUE(fatture.Elimina());
  Messaggi();
  EXPECT_EQ(storno(), "");
}

TEST_F(FattureSospeseTest, FatturaInModificaAltrove) {
  const auto altra = NuovaStazione("MAGAZZINO");
  vat::RegistrazioneIva fatture(*altra->ambiente);
  ASSERT_TRUE(fatture.Apri(sospesa));
  EXPECT_FALSE(vat::FattureSospese(ambiente).Imposta(A(sospesa), G(2, 5, 2024)));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("è in modifica dalla stazione MAGAZZINO"));
  EXPECT_EQ(Incasso(sospesa), "");
}

TEST_F(FattureSospeseTest, Usate) {
  EXPECT_TRUE(vat::FattureSospese::Usate(ambiente));
  Tessarc().Esegui("delete * from RegistriIva where Tipo='08' or Tipo='08A'");
  EXPECT_TRUE(vat::FattureSospese::Usate(ambiente));
  Tessarc().Esegui("delete * from RegistriIva where Tipo='06'");
  EXPECT_FALSE(vat::FattureSospese::Usate(ambiente));
}

}  // namespace
}  // namespace fenalto::prova
