// Correcting and deleting a document that has written other registrations.
#include "ledger/registrations/TestataArticolo.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

using ::testing::AllOf;
using ::testing::Not;

constexpr const char* kDomanda = "Con questa registrazione sono state scritte anche:";

class FattureSeguitoTest : public FatturaDiProva {
 protected:
  FattureSeguitoTest() {
    Config("RegAutoBolleDoganali", "Si");
    Config("RITENUTAACCONTO", "SI");
  }

  /// Paid at once, two registrations: the invoice and its payment.
  static FatturaDaScrivere Vendita(const char* nFat = "12") {
    return {.riva = "1",
            .parte = "0001",
            .righe = {{"700.001", "22", I("100")}},
            .nFat = nFat,
            .pagamento = "MISTO"};
  }
  static FatturaDaScrivere ReverseCharge(const char* codIva = "22I50") {
    return {.riva = "4",
            .parte = "0001",
            .righe = {{"900.220", codIva, I("100")}},
            .altri = {{"CausaleIntra", "029"},
                      {"FornitoreIntra", "0002"},
                      {"ContoCostiIntra", "500.001"},
                      {"PagamentoIntra", "DUE"}}};
  }
  static FatturaDaScrivere Dogana() {
    return {.riva = "3",
            .parte = "0001",
            .righe = {{"900.220", "22", I("1000")}},
            .pagamento = "DUE",
            .altri = {{"BollaDog", true},
                      {"FornitoreBollaDog", "0002"},
                      {"CausaleBollaDog", "029"},
                      {"PagamentoBollaDog", "DUE"}}};
  }

  /// Opens a registration and gives its first row another taxable amount.
  void Cambia(vat::RegistrazioneIva& f, std::int64_t numero, const char* importo) {
    ASSERT_TRUE(f.Apri(numero));
    ASSERT_TRUE(f.ApriRiga(0));
    f.Riga().Scrivi("Imponibile", I(importo));
    for (const char* campo : {"Iva", "IvaInd"}) f.Riga().Scrivi(campo, Importo());
    f.RigaLasciata("Imponibile");
    ASSERT_TRUE(f.ConfermaRiga());
    Messaggi();
  }
  bool Corregge(std::int64_t numero, const char* importo, Risposta risposta) {
    vat::RegistrazioneIva f(ambiente);
    Cambia(f, numero, importo);
    dialoghi.Rispondera(kDomanda, risposta);
    return f.Conferma();
  }
  bool Elimina(std::int64_t numero, Risposta risposta) {
    vat::RegistrazioneIva f(ambiente);
    EXPECT_TRUE(f.Apri(numero));
    dialoghi.Rispondera("Conferma eliminazione ARTICOLO CONTABILE ?", Risposta::Si);
    dialoghi.Rispondera(kDomanda, risposta);
    return f.Elimina();
  }
  /// Debit minus credit of an account, or of a party of that class, in the whole year.
  Importo Saldo(const char* conto, const char* cfp = "P") {
    return Tessarc()
        .Singolo(std::string("select Sum(ImpoDare)-Sum(ImpoAvere) from Movimenti where CFP='") +
                 cfp + "' and Conto='" + conto + "'")
        .Importo();
  }
};

TEST_F(FattureSeguitoTest, PagataSubito) {
  ASSERT_EQ(Inserisci(Vendita()), 1);
  EXPECT_EQ(Conti(), "2 5 2");
  const std::string prima = Tutto();
  EXPECT_FALSE(Corregge(1, "200", Risposta::Annulla));
  EXPECT_THAT(UltimaDomanda(), HasSubstr("\narticolo n. 2: pagamento\n"));
  EXPECT_EQ(Tutto(), prima);
  EXPECT_TRUE(Corregge(1, "200", Risposta::No));
  EXPECT_EQ(Saldo("0001", "C"), I("122"));
  EXPECT_TRUE(Corregge(1, "300", Risposta::Si));
  EXPECT_EQ(Saldo("0001", "C"), Importo());
  EXPECT_EQ(Saldo("100.010"), I("366"));
  // Party, day, number and payment code.
  vat::RegistrazioneIva f(ambiente);
  Tessarc().Inserisci("Pagamento", {{"Cod", "BANCA"}, {"Conto", "110.001"}, {"Causale", "005"}});
  ASSERT_TRUE(f.Apri(1));
  for (const auto& [campo, valore] : std::vector<std::pair<const char*, Valore>>{
           {"Contox", "0002"}, {"Dt", G(20, 3, 2024)}, {"NFat", "13"}, {"Pagamento", "BANCA"}}) {
    f.Testa().Scrivi(campo, valore);
  }
  f.Testa().Scrivi("Descrizionex", "FATT.13");
  dialoghi.Rispondera(kDomanda, Risposta::Si);
  ASSERT_TRUE(f.Conferma()) << ::testing::PrintToString(Messaggi());
  EXPECT_THAT(RigheDi(2), ElementsAre("1 005 C:0002 0/366 P:110.001 t0  0+0+0 «FATT.13»",
                                      "2 005 P:110.001 366/0 C:0002 t0  0+0+0 «FATT.13»"));
  EXPECT_THAT(TestaDi(2), HasSubstr("20/03/2024 P:110.001 C:0002 auto24"));
  // A code that isn't paid at once takes the payment away.
  ASSERT_TRUE(f.Apri(1));
  f.Testa().Scrivi("Pagamento", "DUE");
  dialoghi.Rispondera(kDomanda, Risposta::Si);
  ASSERT_TRUE(f.Conferma());
  EXPECT_EQ(Conti(), "1 3 2");
}

TEST_F(FattureSeguitoTest, SenzaSeguitoNonChiede) {
  auto fattura = Vendita();
  fattura.pagamento = "DUE";
  ASSERT_EQ(Inserisci(fattura), 1);
  vat::RegistrazioneIva f(ambiente);
  Cambia(f, 1, "200");
  EXPECT_TRUE(f.Conferma());
  // Nor what is confirmed as it was.
  ASSERT_EQ(Inserisci(Vendita("14")), 2);
  ASSERT_TRUE(f.Apri(2));
  EXPECT_TRUE(f.Conferma());
}

TEST_F(FattureSeguitoTest, Eliminazione) {
  struct Caso {
    FatturaDaScrivere fattura;
    const char *intere, *senza;  ///< registrations, rows, due dates before and left behind
  };
  for (const Caso& caso : {Caso{Vendita(), "2 5 2", "1 2 0"},
                           {ReverseCharge(), "4 10 2", "3 7 2"},
                           {Dogana(), "2 5 4", "1 2 2"}}) {
    SCOPED_TRACE(caso.fattura.riva);
    for (const Risposta risposta : {Risposta::Annulla, Risposta::Si}) {
      const auto numero = Inserisci(caso.fattura);
      ASSERT_NE(numero, 0) << ::testing::PrintToString(Messaggi());
      EXPECT_EQ(Conti(), caso.intere);
      EXPECT_EQ(Elimina(numero, risposta), risposta == Risposta::Si);
      EXPECT_EQ(Conti(), risposta == Risposta::Si ? "0 0 0" : caso.intere);
      if (risposta == Risposta::Si) continue;
      EXPECT_TRUE(Elimina(numero, Risposta::No));
      EXPECT_EQ(Conti(), caso.senza);
      for (const char* tabella : {"Articoli", "Movimenti"})
        Tessarc().Esegui(std::string("delete * from ") + tabella);
      Scadenzario().Esegui("delete * from Scadenze");
    }
  }
}

TEST_F(FattureSeguitoTest, ReverseChargeInParteIndetraibile) {
  ASSERT_EQ(Inserisci(ReverseCharge()), 1);
  const auto saldi = [&](const char* imponibile, const char* iva, const char* costo) {
    EXPECT_EQ(Saldo("900.220"), -I(iva)) << "the VAT that is owed and isn't deducted";
    EXPECT_EQ(Saldo("500.001"), I(costo));
    EXPECT_EQ(Saldo("0002", "F"), -I(imponibile)) << "the taxable amount alone";
    EXPECT_EQ(Saldo("0001", "F"), Importo());
  };
  EXPECT_THAT(RigheDi(1)[0], HasSubstr("0/100 F:0001 t3 22I50 100+22+0"));
  EXPECT_THAT(RigheDi(1)[1], HasSubstr("42 P:900.220 0/22 "));
  EXPECT_THAT(RigheDi(2)[0], HasSubstr("111/0 F:0001 t3 22I50 100+11+11"));
  EXPECT_THAT(RigheDi(2)[1], HasSubstr("52 P:900.220 11/0 "));
  saldi("100", "11", "111");
  EXPECT_EQ(Scadenze()[0], "3 30/04/2024 50 F:0002 fattintra 00 5/1 12");
  EXPECT_TRUE(Corregge(1, "300", Risposta::Si));
  EXPECT_THAT(UltimaDomanda(),
              HasSubstr("\narticolo n. 2: registro iva 5, protocollo 1\narticolo n. 3: giro del "
                        "costo al fornitore 0002\narticolo n. 4: giro dell'iva indetraibile al "
                        "costo\n"));
  saldi("300", "33", "333");
  EXPECT_EQ(Scadenze()[0], "3 30/04/2024 150 F:0002 fattintra 00 5/1 12");
  EXPECT_EQ(Conti(), "4 10 2");
  // What is printed stays as it is, and is told.
  Tessarc().Inserisci("UltProtStRegIva", {{"Anno", 2024}, {"Riva", "5"}, {"UltProtSt", 1}});
  const auto copia = RigheDi(2);
  EXPECT_TRUE(Corregge(1, "400", Risposta::Si));
  EXPECT_THAT(UltimaDomanda(), HasSubstr("protocollo 1 (resta com'è: già stampata sul registro "
                                         "iva)\n"));
  EXPECT_EQ(RigheDi(2), copia);
}

TEST_F(FattureSeguitoTest, NotaDiCreditoInReverseCharge) {
  Config("InvertoDAinNoteCredito", "1");
  auto nota = ReverseCharge();
  nota.righe[0].imponibile = I("-100");
  ASSERT_EQ(Inserisci(nota), 1);
  EXPECT_THAT(RigheDi(2)[0], HasSubstr("0/111 F:0001 t3 22I50 -100+-11+-11"));
  EXPECT_THAT(RigheDi(2)[1], HasSubstr("52 P:900.220 0/11 "));
  EXPECT_EQ(Saldo("900.220"), I("11"));
  EXPECT_EQ(Saldo("500.001"), I("-111"));
}

TEST_F(FattureSeguitoTest, BollaDoganale) {
  ASSERT_EQ(Inserisci(Dogana()), 1);
  // The customs office is owed the VAT alone, in the ledger and in the due dates.
  const auto dovuto = [&](const char* dogana, const char* merce) {
    EXPECT_EQ(Saldo("0001", "F"), -I(dogana));
    EXPECT_EQ(Saldo("0002", "F"), -I(merce));
    const auto scadenze = [&](const char* conto) {
      return Scadenzario()
          .Singolo(std::string("select Sum(ImportoE) from Scadenze where Conto='") + conto + "'")
          .Importo();
    };
    EXPECT_EQ(scadenze("0001"), I(dogana));
    EXPECT_EQ(scadenze("0002"), I(merce));
  };
  dovuto("220", "1000");
  EXPECT_TRUE(Corregge(1, "2000", Risposta::Si));
  dovuto("440", "2000");
  // Left alone, the giro takes off what it took.
  EXPECT_TRUE(Corregge(1, "3000", Risposta::No));
  EXPECT_EQ(Saldo("0001", "F"), I("-1660"));
  EXPECT_EQ(Scadenze()[0], "1 30/04/2024 830 F:0001 fatture 00 3/1 12");
}

TEST_F(FattureSeguitoTest, RitenutaTieneIlSuoImporto) {
  ASSERT_EQ(Inserisci({.riva = "3",
                       .parte = "0001",
                       .righe = {{"500.001", "22", I("1000")}},
                       .pagamento = "DUE",
                       .altri = {{"RitAcc", true},
                                 {"CausaleRitAcc1", "024"},
                                 {"ContoRitAcc1", "180.010"},
                                 {"ImportoRitAcc1", I("200")}}}),
            1);
  EXPECT_TRUE(Corregge(1, "2000", Risposta::Si));
  EXPECT_THAT(Messaggi().back(), HasSubstr("la ritenuta dell'articolo n. 2 ha l'importo di prima"));
  EXPECT_EQ(Saldo("180.010"), I("-200"));
  EXPECT_EQ(Scadenze()[0], "1 30/04/2024 1120 F:0001 fatture 00 3/1 12");
}

TEST_F(FattureSeguitoTest, CambiataAManoOInModificaAltrove) {
  ASSERT_EQ(Inserisci(Vendita()), 1);
  Tessarc().Esegui("update Movimenti set ImpoDare=1 where NumDoc=2 and ImpoDare<>0");
  const auto pagamento = RigheDi(2);
  EXPECT_TRUE(Corregge(1, "200", Risposta::Si));
  EXPECT_THAT(Messaggi().front(), AllOf(HasSubstr("articolo n. 2"), HasSubstr("a mano")));
  EXPECT_EQ(RigheDi(2), pagamento);
  const auto altra = NuovaStazione("CASSA");
  auto blocco = ledger::BloccaArticolo(*altra->ambiente, 2024, 2);
  ASSERT_TRUE(blocco);
  const std::string prima = Tutto();
  EXPECT_FALSE(Corregge(1, "300", Risposta::Si));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("la registrazione n. 2 è in modifica"));
  EXPECT_EQ(Tutto(), prima);
}

TEST_F(FattureSeguitoTest, RestanoLegatiSeIlDocumentoCambiaNumeroOGiorno) {
  struct Caso {
    FatturaDaScrivere fattura;
    const char* conto;
    const char *cfp, *dopo;  ///< balance of the account once the document is 300
  };
  for (const Caso& caso : {Caso{Vendita(), "0001", "C", "0"},
                           {ReverseCharge(), "0002", "F", "-300"},
                           // 300 for the goods, the VAT for the office: by now the same party.
                           {Dogana(), "0002", "F", "-366"}}) {
    SCOPED_TRACE(caso.fattura.riva);
    ASSERT_EQ(Inserisci(caso.fattura), 1);
    const std::string quanti = Conti();
    // Number, day and party, each with what follows left as it is.
    std::int64_t numero = 1;
    for (const auto& [campo, valore] : std::vector<std::pair<const char*, Valore>>{
             {"NumDoc", 50}, {"Dt", G(20, 3, 2024)}, {"NFat", "77"}, {"Contox", "0002"}}) {
      SCOPED_TRACE(campo);
      vat::RegistrazioneIva f(ambiente);
      ASSERT_TRUE(f.Apri(numero));
      f.Testa().Scrivi(campo, valore);
      dialoghi.Rispondera(kDomanda, Risposta::No);
      ASSERT_TRUE(f.Conferma()) << ::testing::PrintToString(Messaggi());
      EXPECT_THAT(UltimaDomanda(), HasSubstr(kDomanda));
      numero = 50;
    }
    EXPECT_TRUE(Corregge(50, "300", Risposta::Si));
    EXPECT_EQ(Saldo(caso.conto, caso.cfp), I(caso.dopo));
    EXPECT_EQ(Saldo("0001", caso.cfp), Importo()) << "nothing of the party before";
    EXPECT_TRUE(Elimina(50, Risposta::Si));
    EXPECT_EQ(Conti().substr(0, 4), "0 0 ");
    Scadenzario().Esegui("delete * from Scadenze");
  }
}

TEST_F(FattureSeguitoTest, SecondaMetaRinumerata) {
  ASSERT_EQ(Inserisci(ReverseCharge()), 1);
  Tessarc().Esegui("update Articoli set NumDoc=90 where NumDoc=2");
  Tessarc().Esegui("update Movimenti set NumDoc=90 where NumDoc=2");
  EXPECT_TRUE(Corregge(1, "300", Risposta::Si));
  EXPECT_EQ(Saldo("500.001"), I("333"));
  EXPECT_EQ(Saldo("900.220"), I("-33"));
}

TEST_F(FattureSeguitoTest, ScrittiPrimaDelLegame) {
  for (const FatturaDaScrivere& fattura : {Vendita(), ReverseCharge(), Dogana()}) {
    SCOPED_TRACE(fattura.riva);
    ASSERT_EQ(Inserisci(fattura), 1);
    Tessarc().Esegui("update Articoli set AnnoOrigine=0, NumDocOrigine=0");
    EXPECT_TRUE(Corregge(1, "300", Risposta::Si));
    // Recognised once, they are known.
    Tessarc().Esegui("update Movimenti set Descrizione='altro' where NumDoc>1");
    EXPECT_TRUE(Elimina(1, Risposta::Si));
    EXPECT_EQ(Conti(), "0 0 0");
  }
}

TEST_F(FattureSeguitoTest, NumeroLiberatoNonPrendeQuelliDiPrima) {
  ASSERT_EQ(Inserisci(Vendita()), 1);
  EXPECT_TRUE(Elimina(1, Risposta::No));
  auto altra = Vendita("99");
  altra.pagamento = "DUE";
  altra.altri = {{"NumDoc", 1}};
  ASSERT_EQ(Inserisci(altra), 1);
  vat::RegistrazioneIva f(ambiente);
  Cambia(f, 1, "200");
  EXPECT_TRUE(f.Conferma());
  EXPECT_EQ(RigheDi(2).size(), 2U);
  for (const char* tabella : {"Articoli", "Movimenti"}) {
    Tessarc().Esegui(std::string("delete * from ") + tabella + " where NumDoc=1");
  }
  // Typed again as it was, with a payment of its own: the one left behind isn't taken for it.
  ASSERT_EQ(Inserisci(Vendita()), 3);
  Tessarc().Esegui("update Articoli set NumDoc=1 where NumDoc=3");
  Tessarc().Esegui("update Movimenti set NumDoc=1 where NumDoc=3");
  EXPECT_TRUE(Corregge(1, "300", Risposta::Si));
  EXPECT_EQ(Saldo("100.010"), I("122") + I("366"));
}

TEST_F(FattureSeguitoTest, ScadenzePagateOPresentateSiDicono) {
  constexpr const char* kRestano = "Ci sono scadenze già pagate o presentate";
  auto fattura = Vendita();
  fattura.pagamento = "DUE";
  ASSERT_EQ(Inserisci(fattura), 1);
  Scadenzario().Esegui("update Scadenze set Stato='10', ImportoPagatoE=10 where Numero=2");
  const std::string prima = Tutto();
  vat::RegistrazioneIva f(ambiente);
  Cambia(f, 1, "200");
  dialoghi.Rispondera(kRestano, Risposta::No);
  EXPECT_FALSE(f.Conferma());
  EXPECT_THAT(UltimaDomanda(), AllOf(HasSubstr("scadenza n. 2 del 31/05/2024"),
                                     HasSubstr(": pagata in parte (stato 10)\n")));
  EXPECT_THAT(UltimaDomanda(), Not(HasSubstr("scadenza n. 1 ")));
  EXPECT_EQ(Tutto(), prima);
  f.Abbandona();
  ASSERT_TRUE(f.Apri(1));
  f.Testa().Scrivi("Descrizionex", "a text moves none of them");
  const auto domande = dialoghi.domande.size();
  EXPECT_TRUE(f.Conferma());
  EXPECT_EQ(dialoghi.domande.size(), domande);
  const std::string corretta = Tutto();
  ASSERT_TRUE(f.Apri(1));
  dialoghi.Rispondera("Conferma eliminazione ARTICOLO CONTABILE ?", Risposta::Si);
  dialoghi.Rispondera(kRestano, Risposta::No);
  EXPECT_FALSE(f.Elimina());
  EXPECT_EQ(Tutto(), corretta);
  f.Abbandona();
  // Those of the giro's supplier are told with what follows.
  ASSERT_EQ(Inserisci(Dogana()), 2);
  Scadenzario().Esegui("update Scadenze set Stato='25' where Conto='0002' and Articolo=3");
  EXPECT_FALSE(Corregge(2, "2000", Risposta::Annulla));
  EXPECT_THAT(UltimaDomanda(), AllOf(HasSubstr("articolo n. 3: giro della bolla"),
                                     HasSubstr(": presentata (stato 25)\n")));
}

TEST_F(FattureSeguitoTest, IvaIndetraibileDigitata) {
  // The code would deduct all of it; half is typed as not deductible.
  vat::RegistrazioneIva f(ambiente);
  auto fattura = ReverseCharge("22");
  fattura.righe[0].imponibile = I("1000");
  ASSERT_TRUE(Digita(f, fattura));
  ASSERT_TRUE(f.ApriRiga(0));
  for (const char* campo : {"Iva", "IvaInd"}) f.Riga().Scrivi(campo, I("110"));
  dialoghi.Rispondera("importo IVA errato, proseguo ugualmente ?", Risposta::Si);
  ASSERT_TRUE(f.ConfermaRiga());
  ASSERT_TRUE(f.Conferma()) << ::testing::PrintToString(Messaggi());
  EXPECT_EQ(Conti(), "4 10 2");
  EXPECT_EQ(Saldo("900.220"), I("-110")) << "owed 220, deducted 110";
  EXPECT_EQ(Saldo("500.001"), I("1110"));
  EXPECT_EQ(Saldo("0001", "F"), Importo());
  EXPECT_EQ(Saldo("0002", "F"), I("-1000"));
  EXPECT_THAT(RigheDi(2)[0], HasSubstr("1000+110+110"));
  // Deductible once more, and then not at all.
  EXPECT_TRUE(Corregge(1, "1000", Risposta::Si));
  EXPECT_EQ(Saldo("900.220"), Importo());
  EXPECT_EQ(Saldo("500.001"), I("1000"));
  ASSERT_TRUE(f.Apri(1));
  ASSERT_TRUE(f.ApriRiga(0));
  f.Riga().Scrivi("Iva", Importo());
  f.Riga().Scrivi("IvaInd", I("220"));
  dialoghi.Rispondera("importo IVA errato, proseguo ugualmente ?", Risposta::Si);
  ASSERT_TRUE(f.ConfermaRiga());
  dialoghi.Rispondera(kDomanda, Risposta::Si);
  ASSERT_TRUE(f.Conferma()) << ::testing::PrintToString(Messaggi());
  EXPECT_EQ(Saldo("900.220"), I("-220"));
  EXPECT_EQ(Saldo("500.001"), I("1220"));
  EXPECT_EQ(Tessarc().Singolo("select Count(*) from Movimenti where ImpoDare<0").Intero(), 0);
}

TEST_F(FattureSeguitoTest, IvaIndetraibileDiUnaNotaDiCredito) {
  Config("InvertoDAinNoteCredito", "1");
  vat::RegistrazioneIva f(ambiente);
  auto fattura = ReverseCharge("22");
  fattura.righe[0].imponibile = I("-1000");
  ASSERT_TRUE(Digita(f, fattura));
  ASSERT_TRUE(f.ApriRiga(0));
  f.Riga().Scrivi("Iva", I("-60"));
  f.Riga().Scrivi("IvaInd", I("-160"));
  dialoghi.Rispondera("importo IVA errato, proseguo ugualmente ?", Risposta::Si);
  ASSERT_TRUE(f.ConfermaRiga());
  ASSERT_TRUE(f.Conferma()) << ::testing::PrintToString(Messaggi());
  EXPECT_EQ(Saldo("900.220"), I("160")) << "220 not owed, 60 not deducted";
  EXPECT_EQ(Saldo("500.001"), I("-1160"));
  EXPECT_THAT(RigheDi(2), ::testing::Contains(HasSubstr("P:900.220 100/0")));
}

TEST_F(FattureSeguitoTest, GemelleOgnunaIlSuo) {
  // The same sale twice: each has its own payment behind it.
  ASSERT_EQ(Inserisci(Vendita()), 1);
  ASSERT_EQ(Inserisci(Vendita()), 3);
  EXPECT_TRUE(Elimina(3, Risposta::Si));
  EXPECT_EQ(RigheDi(2).size(), 2U);
  ASSERT_EQ(Inserisci(Vendita()), 3);
  EXPECT_TRUE(Elimina(1, Risposta::Si));
  EXPECT_EQ(RigheDi(2).size(), 0U);
  EXPECT_EQ(RigheDi(4).size(), 2U);
}

}  // namespace
}  // namespace fenalto::prova
