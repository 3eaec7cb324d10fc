// The checks of a confirmation: a document that offends all of them is mended one at a time, so
// that each shows itself in its turn, and nothing is written until the last.
#include <functional>

#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

/// What stops the confirmation, where it sends, and what mends it.
struct Passo {
  std::string atteso;
  std::string campo;
  std::function<void(vat::RegistrazioneIva&)> rimedia;
};

std::function<void(vat::RegistrazioneIva&)> Scrive(const char* campo, const Valore& valore) {
  return [=](vat::RegistrazioneIva& f) { f.Testa().Scrivi(campo, valore); };
}

class FattureControlliTest : public FatturaDiProva {
 protected:
  void Percorri(vat::RegistrazioneIva& fatture, const std::vector<Passo>& passi) {
    const std::string prima = Tutto();
    for (const Passo& passo : passi) {
      SCOPED_TRACE(passo.atteso);
      Messaggi();
      std::string campo;
      EXPECT_FALSE(fatture.Conferma(&campo));
      EXPECT_EQ(SoloMessaggio(), passo.atteso);
      EXPECT_EQ(campo, passo.campo);
      EXPECT_EQ(Tutto(), prima);
      EXPECT_TRUE(fatture.Nuova());
      passo.rimedia(fatture);
    }
    Messaggi();
    EXPECT_TRUE(fatture.Conferma()) << ::testing::PrintToString(Messaggi());
  }
};

TEST_F(FattureControlliTest, AcquistoNellOrdine) {
  ASSERT_EQ(Inserisci({.riva = "3", .parte = "0001", .righe = {{"500.001", "22", I("9")}}}), 1);
  Tessarc().Inserisci("UltimaDataLibro", {{"Anno", 2024}, {"dt", G(31, 3, 2024)}});
  Tessarc().Inserisci("ChiusureIva", {{"Anno", 2024}, {"MeseTrimestre", "04"}});
  vat::RegistrazioneIva f(ambiente);
  f.VerificaFatForn(true);
  f.VerificaTotale(true);
  ASSERT_TRUE(f.ScegliRegistro("3"));
  ASSERT_TRUE(f.Nuovo());
  for (const auto& [campo, valore] :
       std::vector<std::pair<const char*, Valore>>{{"Dt", G(31, 3, 2024)},
                                                   {"DtFat", G(15, 3, 2024)},
                                                   {"NFat", "12"},
                                                   {"DtIncasso", G(1, 5, 2024)},
                                                   {"BollaDog", true},
                                                   {"RitAcc", true},
                                                   {"NProt", "0"},
                                                   {"NVarAnPrec", true}}) {
    f.Testa().Scrivi(campo, valore);
  }
  const char* dogana = "mancano dati per registrazione giro bolla doganale";
  const char* ritenuta1 = "mancano dati per registrazione giro ritenuta 1";
  const char* ritenuta2 = "mancano dati per registrazione giro ritenuta 2";
  Percorri(
      f,
      {{"data registrazione contabile antecedente all'ultima data già stampata su libro giornale",
        "Dt", Scrive("Dt", G(1, 4, 2024))},
       {"La data registrazione è relativa ad un periodo già stampato sul registro iva", "Dt",
        Scrive("Dt", G(2, 5, 2024))},
       {"manca codice cliente/fornitore iva", "Contox", Scrive("Contox", "9999")},
       {"il fornitore 9999 non esiste", "Contox", Scrive("Contox", "0003")},
       {"non è stata impostata la riga con imponibile ed iva", "PNuovaRiga",
        [](vat::RegistrazioneIva& x) { DigitaRiga(x, {"500.001", "22", I("100")}); }},
       {"la data incasso si imposta solo per le fatture in sospensione IVA", "DtIncasso",
        // Cleared by the check itself.
        [](vat::RegistrazioneIva& x) { EXPECT_TRUE(x.Testa().Leggi("DtIncasso").Data().Nulla()); }},
       {"sull'anagrafica del fornitore 0003 non è inserito il conto riepilogativo", "Contox",
        Scrive("Contox", "0001")},
       {dogana, "FornitoreBollaDog", Scrive("FornitoreBollaDog", "0003")},
       {dogana, "CausaleBollaDog", Scrive("CausaleBollaDog", "029")},
       {ritenuta1, "CausaleRitAcc1", Scrive("CausaleRitAcc1", "024")},
       {ritenuta1, "ContoRitAcc1", Scrive("ContoRitAcc1", "180.010")},
       {ritenuta1, "ImportoRitAcc1",
        [](vat::RegistrazioneIva& x) {
          x.Testa().Scrivi("ImportoRitAcc1", I("20"));
          x.Testa().Scrivi("CausaleRitAcc2", "024");
        }},
       {ritenuta2, "ContoRitAcc2", Scrive("ContoRitAcc2", "180.010")},
       {ritenuta2, "ImportoRitAcc2",
        [](vat::RegistrazioneIva& x) {
          x.Testa().Scrivi("ImportoRitAcc2", I("5"));
          x.Testa().Scrivi("CausaleRitAcc2", "");
        }},
       {ritenuta2, "CausaleRitAcc2",
        [](vat::RegistrazioneIva& x) {
          x.Testa().Scrivi("ContoRitAcc2", "");
          x.Testa().Scrivi("ImportoRitAcc2", Importo());
        }},
       {"sull'anagrafica del fornitore  0003 non è inserito il conto riepilogativo",
        "FornitoreBollaDog", Scrive("FornitoreBollaDog", "0002")},
       {" non si può forzare n.protocollo=0", "NProt", Scrive("NProt", "12a")},
       {"il protocollo «12a» non è un numero: scrivere solo cifre, o lasciarlo vuoto perché lo "
        "assegni il programma",
        "NProt", Scrive("NProt", "2147483648")},
       {"il protocollo 2147483648 è troppo grande: il massimo è 2147483647", "NProt",
        [](vat::RegistrazioneIva& x) {
          x.Testa().Scrivi("NProt", "");
          x.Testa().Scrivi("NFat", "13");
        }},
       {"Totale fattura diverso dal Totale fattura di controllo", "TotaleXVerifica",
        Scrive("TotaleXVerifica", I("122"))},
       {"E'stata spuntata la casella 'nota di variazione anni precedenti'\r\nse si tratta "
        "effettivamente di nota di variazione bisogna inserire il segno meno sugli importi",
        "NVarAnPrec",
        [](vat::RegistrazioneIva& x) {
          for (const auto& [campo, valore] :
               std::vector<std::pair<const char*, Valore>>{{"NVarAnPrec", false},
                                                           {"Dt", Data()},
                                                           {"Pagamento", "ZZ"},
                                                           {"CausaleBollaDog", "ZZ"},
                                                           {"ContoRitAcc1", "ZZ"}}) {
            x.Testa().Scrivi(campo, valore);
          }
        }},
       {"manca la data", "Dt", Scrive("Dt", G(2, 5, 2024))},
       {"il codice pagamento ZZ non esiste", "Pagamento", Scrive("Pagamento", "")},
       {"la causale ZZ non esiste", "CausaleBollaDog", Scrive("CausaleBollaDog", "029")},
       {"il conto ZZ non esiste", "ContoRitAcc1", Scrive("ContoRitAcc1", "180.010")}});
  // The document, the customs giro, one withholding.
  EXPECT_EQ(Conti().substr(0, 1), "4");
}

TEST_F(FattureControlliTest, FatturaGiaRegistrata) {
  const FatturaDaScrivere doppia{
      .riva = "3", .parte = "0001", .righe = {{"500.001", "22", I("9")}}};
  ASSERT_NE(Inserisci(doppia), 0);
  vat::RegistrazioneIva f(ambiente);
  f.VerificaFatForn(true);
  ASSERT_TRUE(Digita(f, doppia));
  const std::string prima = Tutto();
  Messaggi();
  dialoghi.Rispondera(
      "esiste già una registrazione di fattura con il medesimo fornitore e numero "
      "fattura",
      Risposta::No);
  EXPECT_FALSE(f.Conferma());
  EXPECT_THAT(UltimaDomanda(), HasSubstr("Proseguo ugualmente ?"));
  EXPECT_THAT(Messaggi(), ::testing::IsEmpty());
  EXPECT_EQ(Tutto(), prima);
  dialoghi.Rispondera("esiste già", Risposta::Si);
  EXPECT_TRUE(f.Conferma());
  // Another supplier, a sale, another day on another register: no search.
  for (const auto& [riva, parte, dt] :
       std::vector<std::tuple<std::string, std::string, Data>>{{"3", "0002", G(15, 3, 2024)},
                                                               {"1", "0001", G(15, 3, 2024)},
                                                               {"3V", "0001", G(16, 3, 2024)}}) {
    ASSERT_TRUE(Digita(f, {.riva = riva, .parte = parte, .righe = doppia.righe, .dt = dt}));
    EXPECT_TRUE(f.Conferma());
  }
}

TEST_F(FattureControlliTest, StessoDocumentoQualunqueOpzione) {
  const auto con = [](const char* riva, const char* nFat, Data dt) {
    return FatturaDaScrivere{.riva = riva,
                             .parte = "0001",
                             .righe = {{"500.001", "22", I("9")}},
                             .nFat = nFat,
                             .dt = dt};
  };
  const Data giorno = G(15, 3, 2024);
  ASSERT_EQ(Inserisci(con("3", "12", giorno)), 1);
  vat::RegistrazioneIva f(ambiente);
  f.VerificaFatForn(false);
  for (const char* riva : {"3", "3V", "11"}) {
    ASSERT_TRUE(Digita(f, con(riva, "12", giorno)));
    const std::string prima = Tutto();
    dialoghi.Rispondera(
        "il documento n. 12 del 15/03/2024 di questo fornitore è già registrato\n"
        "(anno 2024, registro iva 3, articolo n. 1)\nProseguo ugualmente ?",
        Risposta::No);
    std::string campo;
    EXPECT_FALSE(f.Conferma(&campo));
    EXPECT_EQ(campo, "NFat");
    EXPECT_EQ(Tutto(), prima);
  }
  ASSERT_EQ(Inserisci(con("3", "13", giorno)), 2);
  ASSERT_EQ(Inserisci(con("3", "12", G(16, 3, 2024))), 3) << "another day";
  // A stored one asks when it becomes the same, and not for itself.
  ASSERT_TRUE(f.Apri(2));
  f.Testa().Scrivi("Pagamento", "");
  EXPECT_TRUE(f.Conferma());
  ASSERT_TRUE(f.Apri(2));
  f.Testa().Scrivi("NFat", "12");
  dialoghi.Rispondera("articolo n. 1)", Risposta::Si);
  EXPECT_TRUE(f.Conferma());
}

TEST_F(FattureControlliTest, EstremiDelDocumento) {
  struct Caso {
    const char *riva, *nFat;
    Data dtFat;
    const char *domanda, *campo;
  };
  const Data giorno = G(14, 3, 2024);
  const char* numero = "manca il numero del documento\nProseguo ugualmente ?";
  const char* data = "manca la data del documento\nProseguo ugualmente ?";
  for (const Caso& caso :
       {Caso{"3", "", giorno, numero, "NFat"},
        {"11", "7", {}, data, "DtFat"},
        {"3", "", {}, "mancano il numero e la data del documento\nProseguo ugualmente ?", "NFat"},
        {"1", "7", {}, data, "DtFat"},
        {"1", "", giorno, "", ""},
        {"9", "", {}, "", ""}}) {
    SCOPED_TRACE(std::string(caso.riva) + caso.nFat + caso.domanda);
    vat::RegistrazioneIva f(ambiente);
    const bool corrispettivi = std::string_view(caso.riva) == "9";
    ASSERT_TRUE(Digita(f, {.riva = caso.riva,
                           .parte = corrispettivi ? "" : "0001",
                           .righe = {{"700.001", "22", I("1")}}}));
    f.Testa().Scrivi("NFat", caso.nFat);
    f.Testa().Scrivi("DtFat", caso.dtFat);
    if (*caso.domanda == 0) {
      EXPECT_TRUE(f.Conferma()) << ::testing::PrintToString(Messaggi());
      continue;
    }
    const std::string prima = Tutto();
    std::string campo;
    dialoghi.Rispondera(caso.domanda, Risposta::No);
    EXPECT_FALSE(f.Conferma(&campo));
    EXPECT_EQ(campo, caso.campo);
    EXPECT_EQ(Tutto(), prima);
    dialoghi.Rispondera(caso.domanda, Risposta::Si);
    EXPECT_TRUE(f.Conferma());
  }
}

TEST_F(FattureControlliTest, DataFatturaDelleVendite) {
  vat::RegistrazioneIva f(ambiente);
  const auto dtFat = [&] { return f.Testa().Leggi("DtFat").Data(); };
  const auto dt = [&](Data data) {
    f.Testa().Scrivi("Dt", data);
    f.TestaLasciata("Dt");
  };
  for (const auto& [riva, proposta] :
       {std::pair("1", true), {"6", true}, {"3", false}, {"4", false}}) {
    SCOPED_TRACE(riva);
    ASSERT_TRUE(f.ScegliRegistro(riva));
    ASSERT_TRUE(f.Nuovo());
    EXPECT_EQ(dtFat(), proposta ? G(15, 3, 2024) : Data());
    dt(G(20, 3, 2024));
    EXPECT_EQ(dtFat(), proposta ? G(20, 3, 2024) : Data());
    if (std::string_view(riva) == "1") {
      EXPECT_EQ(f.Testa().Testo("Descrizionex"), "FATT.1 Del 20/03/2024");
    }
    // Typed, it stays.
    f.Testa().Scrivi("DtFat", G(1, 3, 2024));
    dt(G(21, 3, 2024));
    EXPECT_EQ(dtFat(), G(1, 3, 2024));
    f.Abbandona();
  }
}

TEST_F(FattureControlliTest, CodiciEliminatiAltrove) {
  struct Caso {
    const char *elimina, *messaggio, *campo;
  };
  for (const Caso& caso :
       {Caso{"Conti where Cod='500.001'", "riga 1: il conto 500.001 non esiste nel piano dei conti",
             "GrigliaRighe"},
        {"CodiciIva where Cod='22'", "riga 1: il codice iva 22 non esiste", "GrigliaRighe"},
        {"Causali where Cod='32'",
         "la causale 32 del registro iva 3 non esiste: riconfermare il registro in Archivi, "
         "Contabilità, Registri Iva",
         "Riva"},
        {"Conti where Cod='170.003'", "il conto iva 170.003 del registro iva 3 non esiste", "Riva"},
        {"Pagamento where Cod='DUE'", "il codice pagamento DUE non esiste", "Pagamento"},
        {"Fornitori where Cod='0001'", "il fornitore 0001 non esiste", "Contox"}}) {
    SCOPED_TRACE(caso.elimina);
    Transazione transazione(ambiente.Basi());
    vat::RegistrazioneIva f(ambiente);
    ASSERT_TRUE(Digita(
        f,
        {.riva = "3", .parte = "0001", .righe = {{"500.001", "22", I("1")}}, .pagamento = "DUE"}));
    Tessarc().Esegui(std::string("delete * from ") + caso.elimina);
    if (std::string_view(caso.elimina).starts_with("Conti ")) {
      Tessarc().Esegui(
          "delete * from ContiClientiFornitori where CFP='P' and (Cod='500.001' or "
          "Cod='170.003')");
    }
    Messaggi();
    std::string campo;
    EXPECT_FALSE(f.Conferma(&campo));
    EXPECT_EQ(SoloMessaggio(), caso.messaggio);
    EXPECT_EQ(campo, caso.campo);
    EXPECT_EQ(Conti(), "0 0 0");
    // Rolled back, the next one begins anew.
  }
}

TEST_F(FattureControlliTest, RiepilogativoFuoriDalPiano) {
  for (const auto& [riva, tabella, parte] :
       {std::tuple{"3", "Fornitori", "fornitore"}, {"1", "Clienti", "cliente"}}) {
    SCOPED_TRACE(parte);
    vat::RegistrazioneIva f(ambiente);
    ASSERT_TRUE(Digita(f, {.riva = riva, .parte = "0001", .righe = {{"500.001", "22", I("1")}}}));
    Tessarc().Esegui(std::string("update ") + tabella + " set Conto='499.999' where Cod='0001'");
    Messaggi();
    const std::string prima = Tutto();
    std::string campo;
    EXPECT_FALSE(f.Conferma(&campo));
    EXPECT_EQ(SoloMessaggio(), std::string("il conto riepilogativo 499.999 del ") + parte +
                                   " 0001 non esiste nel piano dei conti: correggere l'anagrafica");
    EXPECT_EQ(campo, "Contox");
    EXPECT_EQ(Tutto(), prima);
  }
}

TEST_F(FattureControlliTest, CodiciDiCioCheSegue) {
  struct Caso {
    const char *riva, *rompe, *messaggio, *campo;
  };
  const char* riconfermare =
      "la causale 52 del registro iva 5 non esiste: riconfermare il registro in Archivi, "
      "Contabilità, Registri Iva";
  for (const Caso& caso :
       {Caso{"1", "update Pagamento set Causale='QQQ'",
             "la causale QQQ del codice pagamento MISTO non esiste", "Pagamento"},
        {"3", "update Pagamento set Conto='100.999'",
         "il conto 100.999 del codice pagamento MISTO non esiste", "Pagamento"},
        {"4", "update Pagamento set Conto='100.999'",
         "il conto 100.999 del codice pagamento MISTO non esiste", "PagamentoIntra"},
        {"4", "update RegistriIva set Conto='' where Cod='5'",
         "sul registro iva 5 manca il conto iva", "RivaIntra"},
        {"4", "update RegistriIva set Conto='170.999' where Cod='5'",
         "il conto iva 170.999 del registro iva 5 non esiste", "RivaIntra"},
        {"4", "delete * from Causali where Cod='52'", riconfermare, "RivaIntra"}}) {
    SCOPED_TRACE(caso.rompe);
    Transazione transazione(ambiente.Basi());
    FatturaDaScrivere fattura{.riva = caso.riva,
                              .parte = "0001",
                              .righe = {{"900.220", "22", I("1")}},
                              .pagamento = "MISTO"};
    if (fattura.riva == "4") {
      fattura.altri = {{"CausaleIntra", "029"},
                       {"FornitoreIntra", "0002"},
                       {"ContoCostiIntra", "500.001"},
                       {"PagamentoIntra", "MISTO"}};
    }
    vat::RegistrazioneIva f(ambiente);
    ASSERT_TRUE(Digita(f, fattura));
    Tessarc().Esegui(caso.rompe);
    Messaggi();
    std::string campo;
    EXPECT_FALSE(f.Conferma(&campo));
    EXPECT_EQ(SoloMessaggio(), caso.messaggio);
    EXPECT_EQ(campo, caso.campo);
    EXPECT_EQ(Conti(), "0 0 0");
  }
}

TEST_F(FattureControlliTest, ReverseCharge) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, {.riva = "4",
                         .parte = "0001",
                         .righe = {{"900.220", "22R", I("100")}},
                         .altri = {{"RivaIntra", ""}}}));
  const char* giro = "mancano dati per registrazione automatica giro 'costo a fornitore'";
  Percorri(f, {{"inserire registro iva acquisti intra", "RivaIntra", Scrive("RivaIntra", "5")},
               {giro, "CausaleIntra", Scrive("CausaleIntra", "029")},
               {giro, "FornitoreIntra", Scrive("FornitoreIntra", "0003")},
               {giro, "ContoCostiIntra", Scrive("ContoCostiIntra", "500.001")},
               {"sull'anagrafica del fornitore  0003 non è inserito il conto riepilogativo",
                "FornitoreIntra", Scrive("NoIntraCosto_a_Forn", true)}});
  EXPECT_EQ(Conti().substr(0, 1), "2");
  // Without the automatism nothing of it is asked.
  Config("RegAutoIntraCee", "No");
  EXPECT_NE(Inserisci({.riva = "4",
                       .parte = "0001",
                       .righe = {{"900.220", "22R", I("1")}},
                       .altri = {{"RivaIntra", ""}}}),
            0);
}

TEST_F(FattureControlliTest, DataIncasso) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, {.riva = "6",
                         .parte = "0001",
                         .righe = {{"700.001", "22", I("100")}},
                         .altri = {{"DtIncasso", G(1, 4, 2024)}}}));
  Percorri(f, {{"Fatture in sospensione IVA: la data di incasso si dovrà impostare successivamente",
                "DtIncasso", [](vat::RegistrazioneIva&) {}}});
  EXPECT_THAT(TestaDi(1), ::testing::Not(HasSubstr("incasso")));
  // The date that the collection put there stays through a change; another is refused.
  Tessarc().Esegui("update Articoli set DtIncasso=#04/10/2024# where NumDoc=1");
  ASSERT_TRUE(f.Apri(1));
  EXPECT_TRUE(f.Conferma());
  EXPECT_THAT(TestaDi(1), HasSubstr("incasso 10/04/2024"));
  ASSERT_TRUE(f.Apri(1));
  f.Testa().Scrivi("DtIncasso", G(11, 4, 2024));
  EXPECT_FALSE(f.Conferma());
  EXPECT_EQ(f.Testa().Leggi("DtIncasso").Data(), G(10, 4, 2024));
  // With deferred VAT on an ordinary register it may be typed.
  ASSERT_NE(Inserisci({.riva = "1",
                       .parte = "0001",
                       .righe = {{"700.001", "22", I("1")}},
                       .altri = {{"Ep", true}, {"DtIncasso", G(1, 4, 2024)}}}),
            0);
}

TEST_F(FattureControlliTest, AnnoDellaData) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, {.riva = "1", .parte = "0001", .righe = {{"700.001", "22", I("100")}}}));
  f.Testa().Scrivi("Dt", G(2, 1, 2025));
  Messaggi();
  const std::string prima = Tutto();
  dialoghi.Rispondera(
      "Attenzione : la data registrazione contabile è relativa ad un anno diverso da 2024",
      Risposta::No);
  EXPECT_FALSE(f.Conferma());
  EXPECT_THAT(UltimaDomanda(), HasSubstr("Proseguo ugualmente"));
  EXPECT_EQ(Tutto(), prima);
  dialoghi.Rispondera("anno diverso da 2024", Risposta::Si);
  EXPECT_TRUE(f.Conferma());
}

TEST_F(FattureControlliTest, DataInferioreEPeriodoTrimestrale) {
  ASSERT_EQ(Inserisci({.riva = "1", .parte = "0001", .righe = {{"700.001", "22", I("9")}}}), 1);
  Tessarc().Esegui("update Anni set IvaTrimestrale=True where Anno=2024");
  Tessarc().Inserisci("ChiusureIva", {{"Anno", 2024}, {"MeseTrimestre", "T1"}});
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(f.ScegliRegistro("1"));
  ASSERT_TRUE(f.Nuovo());
  Messaggi();
  f.Testa().Scrivi("Dt", G(1, 3, 2024));
  f.TestaLasciata("Dt");
  EXPECT_THAT(Messaggi(),
              ElementsAre("data registrazione inferiore a quella dell'ultima fattura registrata",
                          "La data registrazione è relativa ad un periodo già stampato sul "
                          "registro iva"));
  f.Testa().Scrivi("Dt", G(1, 4, 2024));
  f.TestaLasciata("Dt");
  EXPECT_THAT(Messaggi(), ::testing::IsEmpty());
}

TEST_F(FattureControlliTest, Righe) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, {.riva = "3", .parte = "0001"}));
  ASSERT_TRUE(f.PNuovaRiga());
  Messaggi();
  const auto rifiuta = [&](const char* messaggio, const char* atteso) {
    std::string campo;
    EXPECT_FALSE(f.ConfermaRiga(&campo));
    EXPECT_EQ(SoloMessaggio(), messaggio);
    EXPECT_EQ(campo, atteso);
  };
  EXPECT_EQ(f.Riga().Testo("Conto"), "500.001");
  EXPECT_EQ(f.Riga().Testo("CodIva"), "22");
  EXPECT_EQ(f.Riga().Testo("Descrizione"), "FATT.12 Del 15/03/2024");
  f.Riga().Scrivi("CodIva", "");
  f.Riga().Scrivi("Conto", "");
  rifiuta("manca codice iva", "CodIva");
  f.PulisciImporti();
  EXPECT_EQ(SoloMessaggio(), "manca codice iva");
  f.Riga().Scrivi("CodIva", "ZCOR");
  rifiuta("manca conto", "Conto");
  f.Riga().Scrivi("Conto", "500.001");
  Tessarc().Inserisci("CodiciIva", {{"Cod", "ZCOR"}});
  rifiuta("il codice iva 'ZCOR' è riservato ai corrispettivi da ventilare", "CodIva");
  // VAT of 8.20 by 60 percent that isn't deductible: 4.926 is cut.
  f.Riga().Scrivi("CodIva", "22D40");
  f.Riga().Scrivi("Imponibile", I("37.30"));
  f.RigaLasciata("Imponibile");
  EXPECT_EQ(f.Riga().Leggi("Iva").Importo(), I("3.29"));
  EXPECT_EQ(f.Riga().Leggi("IvaInd").Importo(), I("4.92"));
  f.Riga().Scrivi("Iva", I("3.3"));
  dialoghi.Rispondera("importo IVA errato, proseguo ugualmente ?", Risposta::No);
  EXPECT_FALSE(f.ConfermaRiga());
  dialoghi.Rispondera("importo IVA errato", Risposta::Si);
  EXPECT_TRUE(f.ConfermaRiga());
  EXPECT_EQ(f.TotFat(), I("45.52"));
  // The gross amount split.
  ASSERT_TRUE(f.PNuovaRiga());
  f.Riga().Scrivi("CodIva", "22I50");
  f.Riga().Scrivi("Totale", I("-100"));
  f.PulisciImporti();
  EXPECT_EQ(f.Riga().Leggi("Imponibile").Importo(), I("-81.97"));
  EXPECT_EQ(f.Riga().Leggi("IvaInd").Importo(), I("-9.02"));
  EXPECT_EQ(f.Riga().Leggi("Iva").Importo(), I("-9.01"));
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::Si);
  EXPECT_TRUE(f.EliminaRiga());
  EXPECT_EQ(f.Righe().size(), 1U);
}

TEST_F(FattureControlliTest, CorrispettiviDaVentilare) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(f.ScegliRegistro("7"));
  Messaggi();
  ASSERT_TRUE(f.Nuovo());
  EXPECT_EQ(SoloMessaggio(),
            "Verrà creato un codice iva 'ZCOR' che servirà al programma al momento della chiusura "
            "periodica iva");
  ASSERT_TRUE(f.PNuovaRiga());
  EXPECT_EQ(f.Riga().Testo("CodIva"), "ZCOR");
  EXPECT_EQ(f.Riga().Testo("Conto"), "700.010");
  f.Riga().Scrivi("CodIva", "22");
  f.Riga().Scrivi("Imponibile", I("50"));
  f.RigaLasciata("Imponibile");
  EXPECT_TRUE(f.Riga().Leggi("Iva").Importo().Zero());
  EXPECT_FALSE(f.ConfermaRiga());
  EXPECT_EQ(SoloMessaggio(), "sui corrispettivi da ventilare si deve usare il codice iva 'ZCOR'");
  f.Riga().Scrivi("CodIva", "ZCOR");
  EXPECT_TRUE(f.ConfermaRiga());
  EXPECT_TRUE(f.Conferma());
  EXPECT_EQ(RigheDi(1).size(), 2U);
  Messaggi();
  ASSERT_TRUE(f.Nuovo());
  EXPECT_THAT(Messaggi(), ::testing::IsEmpty());
}

}  // namespace
}  // namespace fenalto::prova
