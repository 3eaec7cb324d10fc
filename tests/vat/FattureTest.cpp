// A VAT document from its register to the books: proposals, numbers, what follows, opening,
// deletion.
#include "core/sql/Criterio.h"
#include "vat/FatturaDiProva.h"
#include "vat/entry/RegistrazioneIva.h"

namespace fenalto::prova {
namespace {

class FattureTest : public FatturaDiProva {
 protected:
  static FatturaDaScrivere Vendita(const char* importo = "100") {
    return {.riva = "1", .parte = "0001", .righe = {{"700.001", "22", I(importo)}}};
  }
  static FatturaDaScrivere Acquisto(const char* importo = "100") {
    return {.riva = "3", .parte = "0001", .righe = {{"500.001", "22", I(importo)}}};
  }
  std::int64_t Protocollo(std::int64_t numDoc) { return CampoTestata(numDoc, "NProt").Intero(); }
  static FatturaDaScrivere Con(FatturaDaScrivere fattura, const char* campo, const Valore& valore) {
    fattura.altri.emplace_back(campo, valore);
    return fattura;
  }
};

// --- Registers -----------------------------------------------------------------------------------

TEST_F(FattureTest, Registri) {
  Tessarc().Inserisci("RegistriIva", {{"Cod", "1X"}, {"Tipo", "01"}, {"Descrizione", "Senza"}});
  vat::RegistrazioneIva f(ambiente);
  EXPECT_FALSE(f.ScegliRegistro(" "));
  EXPECT_EQ(SoloMessaggio(), "inserire codice registro iva");
  EXPECT_FALSE(f.Nuovo());
  Messaggi();
  EXPECT_TRUE(f.ScegliRegistro("1X"));
  EXPECT_EQ(SoloMessaggio(),
            "Sul registro iva 1X Senza\r\nbisogna inserire il conto iva per poter effettuare le "
            "registrazioni");
  EXPECT_FALSE(f.Nuovo());
  EXPECT_EQ(SoloMessaggio(),
            "per effettuare registrazioni sul registro iva 1X è necessario inserire il conto iva "
            "da : menu->archivi->registri iva");
  for (const auto& [cod, tipo] : {std::pair{"8", "08"}, {"8A", "08A"}}) {
    const std::string speciale = std::string("non su può registrare su un registro di tipo ") +
                                 tipo +
                                 "!\r\nFatt.Sospens.IVA incassate viene aggiornato automaticamente "
                                 "inserendo la data incasso sulle fatture in sospensione iva";
    EXPECT_TRUE(f.ScegliRegistro(cod)) << "it can be looked through";
    EXPECT_EQ(SoloMessaggio(), speciale);
    EXPECT_FALSE(f.Nuovo());
    EXPECT_EQ(SoloMessaggio(), speciale);
  }
  EXPECT_TRUE(f.ScegliRegistro("5"));
  EXPECT_EQ(SoloMessaggio(),
            "Attenzione: le registrazioni di fatture con con sistema del reverse charge (intra e "
            "altro) si effettuano sul registro di tipo 04 ed il programma provvede ad inserirle "
            "anche su quello di tipo 05");
  EXPECT_TRUE(f.Nuovo());
  const char* acquisti = "Riprotocollo automatico fatture acquisto per data registrazione";
  const char* corrispettivi = "Riprotocollo automatico corrispettivi per data registrazione";
  struct Caso {
    const char *riva, *classe, *parte, *riprotocollo;
  };
  for (const Caso& caso : {Caso{"1", "C", "Cliente", ""},
                           {"6", "C", "Cliente", ""},
                           {"3", "F", "Fornitore", acquisti},
                           {"4", "F", "Fornitore", ""},
                           {"11", "F", "Fornitore", ""},
                           {"2", "P", "Conto cassa", corrispettivi},
                           {"7", "P", "Conto cassa", corrispettivi},
                           {"9", "P", "Conto cassa", corrispettivi}}) {
    SCOPED_TRACE(caso.riva);
    ASSERT_TRUE(f.ScegliRegistro(caso.riva));
    EXPECT_EQ(f.ClasseParte(), caso.classe);
    EXPECT_EQ(f.EtichettaParte(), caso.parte);
    EXPECT_EQ(f.TestoRiprotocollo(), caso.riprotocollo);
  }
}

// --- Proposals -----------------------------------------------------------------------------------

TEST_F(FattureTest, DescrizioneSegueFinoAChiLaTocca) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, Vendita()));
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "FATT.12 Del 15/03/2024");
  f.Testa().Scrivi("NFat", "13");
  f.TestaLasciata("NFat");
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "FATT.13 Del 15/03/2024");
  EXPECT_EQ(f.Righe()[0].descrizione, "FATT.13 Del 15/03/2024") << "the rows follow";
  f.Testa().Scrivi("Descrizionex", "Nota a mano");
  f.TestaLasciata("Descrizionex");
  f.Testa().Scrivi("NFat", "14");
  dialoghi.Rispondera(
      "E'stato modificato il n.fattura: si vuole cambiare automaticamente anche la descrizione ?",
      Risposta::No);
  f.TestaLasciata("NFat");
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "Nota a mano");
  f.Testa().Scrivi("DtFat", G(16, 3, 2024));
  dialoghi.Rispondera(
      "E'stata modificata la data: si vuole cambiare automaticamente anche la descrizione ?",
      Risposta::Si);
  Messaggi();
  f.TestaLasciata("DtFat");
  EXPECT_EQ(SoloMessaggio(), "data fattura successiva alla data registrazione");
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "FATT.14 Del 16/03/2024");
  ASSERT_TRUE(f.Conferma());
  // Of a stored one it is asked even where nobody touched it.
  ASSERT_TRUE(f.Apri(1));
  f.Testa().Scrivi("NFat", "15");
  dialoghi.Rispondera("E'stato modificato il n.fattura", Risposta::Si);
  f.TestaLasciata("NFat");
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "FATT.15 Del 16/03/2024");
}

TEST_F(FattureTest, UnAcquistoDiBeniChiedeIlCespite) {
  int nFat = 100;
  const auto registra = [&](const char* conto) {
    vat::RegistrazioneIva f(ambiente);
    FatturaDaScrivere acquisto = Acquisto();
    acquisto.righe = {{conto, "22", I("1000")}};
    acquisto.nFat = std::to_string(++nFat);
    EXPECT_TRUE(Digita(f, acquisto));
    EXPECT_TRUE(f.Conferma());
    return f.CespiteChiesto();
  };
  EXPECT_FALSE(registra("540.005"));
  for (const bool si : {true, false}) {
    dialoghi.Rispondera("Si vuole inserire un nuovo cespite ?", si ? Risposta::Si : Risposta::No);
    EXPECT_EQ(registra("210.005"), si);
  }
}

TEST_F(FattureTest, ProposteDiNumeriECorrispettivi) {
  ASSERT_NE(Inserisci(Con(Vendita(), "NProt", "41")), 0);
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(f.ScegliRegistro("1"));
  ASSERT_TRUE(f.Nuovo());
  EXPECT_EQ(f.Testa().Testo("ProbabileNProt"), "42");
  EXPECT_EQ(f.Testa().Testo("ProbabileNumDoc"), "2");
  EXPECT_EQ(f.Testa().Testo("NFat"), "42");
  EXPECT_EQ(f.Testa().Testo("NProt"), "") << "shown, not taken";
  ASSERT_TRUE(f.ScegliRegistro("2"));
  ASSERT_TRUE(f.Nuovo());
  EXPECT_EQ(f.Testa().Testo("Contox"), "100.010");
  EXPECT_EQ(f.Testa().Testo("NFat"), "1");
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "CORRISPETTIVI Del 15/03/2024");
  f.Testa().Scrivi("Dt", G(16, 3, 2024));
  f.TestaLasciata("Dt");
  EXPECT_EQ(f.Testa().Leggi("DtFat").Data(), G(16, 3, 2024));
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "CORRISPETTIVI Del 16/03/2024");
  Tessarc().Esegui("update RegistriIva set RegMensileCorrisp=True where Cod='2'");
  ASSERT_TRUE(f.ScegliRegistro("2"));
  ASSERT_TRUE(f.Nuovo());
  EXPECT_EQ(f.Testa().Testo("Descrizionex"), "CORRISPETTIVI MESE 3/2024");
}

TEST_F(FattureTest, PartePorta) {
  Tessarc().Esegui("update Clienti set Ep=True where Cod='0002'");
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(f.ScegliRegistro("1"));
  ASSERT_TRUE(f.Nuovo());
  const auto sceglie = [&](const char* cod) {
    f.Testa().Scrivi("Contox", cod);
    f.TestaLasciata("Contox");
    return f.Testa().Testo("Pagamento") + (f.Testa().Leggi("Ep").Booleano() ? " ep" : "");
  };
  EXPECT_EQ(sceglie("0001"), "DUE");
  EXPECT_EQ(sceglie("0002"), " ep") << "that of the party before goes";
  f.Testa().Scrivi("Pagamento", "BB30");
  EXPECT_EQ(sceglie("0002"), "BB30 ep") << "one typed by hand stays";
  EXPECT_EQ(sceglie("0001"), "DUE");
  ASSERT_TRUE(f.ScegliRegistro("3"));
  ASSERT_TRUE(f.Nuovo());
  f.Testa().Scrivi("BollaDog", true);
  EXPECT_EQ(sceglie("0001"), "") << "the supplier of the goods is paid";
}

TEST_F(FattureTest, RicordaPerLaProssima) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, {.riva = "4",
                         .parte = "0001",
                         .righe = {{"900.220", "22R", I("100")}},
                         .altri = {{"CausaleIntra", "029"},
                                   {"FornitoreIntra", "0002"},
                                   {"ContoCostiIntra", "500.001"}}}));
  ASSERT_TRUE(f.Conferma());
  ASSERT_TRUE(f.Apri(1));
  ASSERT_TRUE(f.Conferma());
  ASSERT_TRUE(f.Nuovo());
  EXPECT_EQ(f.Testa().Testo("FornitoreIntra"), "0002") << "also after a change";
  EXPECT_EQ(f.Testa().Testo("ContoCostiIntra"), "500.001");
  EXPECT_EQ(f.Testa().Testo("RivaIntra"), "5");
  EXPECT_EQ(f.Precedente("Contox")->Testo(), "0001");
  EXPECT_EQ(f.Precedente("NProt")->Testo(), "1");
  EXPECT_FALSE(f.Precedente("TotaleXVerifica").has_value());
  // The rows of the party's last registration, without amounts: not written until filled in.
  f.Testa().Scrivi("Contox", "0001");
  EXPECT_EQ(f.RigheProponibili(), 1U);
  f.ProponiRighe();
  ASSERT_EQ(f.Righe().size(), 1U);
  EXPECT_EQ(f.Righe()[0].conto, "900.220");
  EXPECT_TRUE(f.RigheContabili().empty());
  EXPECT_FALSE(f.Conferma());
  EXPECT_EQ(dialoghi.UltimoMessaggio(), "non è stata impostata la riga con imponibile ed iva");
}

// --- Numbers -------------------------------------------------------------------------------------

TEST_F(FattureTest, NumeriENumeriForzati) {
  EXPECT_EQ(Protocollo(Inserisci(Vendita())), 1);
  EXPECT_EQ(Protocollo(Inserisci(Acquisto())), 1) << "each register counts for itself";
  EXPECT_EQ(Protocollo(Inserisci(Con(Vendita(), "NProt", "50"))), 50);
  EXPECT_EQ(Protocollo(Inserisci(Con(Vendita(), "NProt", "7"))), 7) << "a gap may be filled";
  EXPECT_EQ(Protocollo(Inserisci(Vendita())), 51);
  EXPECT_EQ(Inserisci(Con(Vendita(), "NumDoc", 90)), 90);
  EXPECT_EQ(Inserisci(Vendita()), 91);
  const std::string prima = Tutto();
  Messaggi();
  EXPECT_EQ(Inserisci(Con(Vendita(), "NProt", "50")), 0);
  EXPECT_EQ(SoloMessaggio(), "è stato forzato un numero di protocollo iva già esistente");
  EXPECT_EQ(Inserisci(Con(Vendita(), "NumDoc", 90)), 0);
  EXPECT_THAT(SoloMessaggio(), HasSubstr("articolo"));
  EXPECT_EQ(Tutto(), prima);
  EXPECT_EQ(Inserisci(Vendita()), 92) << "the lock was let go";
}

TEST_F(FattureTest, UltimoProtocolloPossibile) {
  const auto ultimo = Inserisci(Con(Vendita(), "NProt", "2147483647"));
  EXPECT_EQ(Protocollo(ultimo), 2147483647);
  const std::string prima = Tutto();
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, Vendita()));
  Messaggi();
  EXPECT_FALSE(f.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("già usato il protocollo 2147483647, l'ultimo possibile"));
  EXPECT_EQ(Tutto(), prima);
  f.Testa().Scrivi("NProt", "1");
  EXPECT_TRUE(f.Conferma());
}

TEST_F(FattureTest, DueStazioniSulloStessoProtocollo) {
  const auto altra = NuovaStazione("CASSA");
  vat::RegistrazioneIva qui(ambiente);
  vat::RegistrazioneIva di_la(*altra->ambiente);
  ASSERT_TRUE(Digita(qui, Con(Vendita("1"), "NProt", "60")));
  ASSERT_TRUE(Digita(di_la, Con(Vendita("2"), "NProt", "60")));
  ASSERT_TRUE(di_la.Conferma());
  Messaggi();
  EXPECT_FALSE(qui.Conferma());
  EXPECT_EQ(SoloMessaggio(), "è stato forzato un numero di protocollo iva già esistente");
  EXPECT_EQ(qui.Righe().size(), 1U);
  qui.Testa().Scrivi("NProt", "");
  // While the other one holds the numbering nothing is numbered.
  ASSERT_TRUE(qui.Conferma());
  EXPECT_EQ(Protocollo(qui.NumeroConfermato()), 61);
}

// --- What follows --------------------------------------------------------------------------------

// A stored invoice remembers nothing of its withholding but the giro: its due dates stay net of it.
TEST_F(FattureTest, LaRitenutaRestaFuoriDalleScadenzeRifatte) {
  auto fattura = Acquisto("1000");
  fattura.pagamento = "DUE";
  fattura.altri = {{"RitAcc", true},
                   {"CausaleRitAcc1", "024"},
                   {"ContoRitAcc1", "420.010"},
                   {"ImportoRitAcc1", I("200")}};
  const auto numDoc = Inserisci(fattura);
  ASSERT_NE(numDoc, 0);
  const auto prima = Scadenze();
  vat::RegistrazioneIva fatture(ambiente);
  ASSERT_TRUE(fatture.Apri(numDoc));
  fatture.Testa().Scrivi("NVarAnPrec", false);
  ASSERT_TRUE(fatture.Conferma());
  EXPECT_EQ(Scadenze(), prima);
}

TEST_F(FattureTest, QuelCheSegue) {
  struct Caso {
    const char* nome;
    FatturaDaScrivere fattura;
    std::string conti;  ///< registrations, rows, due dates
    int origine;
  };
  const auto pagata = [](FatturaDaScrivere f, const char* codice) {
    f.pagamento = codice;
    return f;
  };
  auto ritenuta = pagata(Acquisto("1000"), "DUE");
  ritenuta.altri = {{"RitAcc", true},
                    {"CausaleRitAcc1", "024"},
                    {"ContoRitAcc1", "420.010"},
                    {"ImportoRitAcc1", I("200")}};
  auto dueRitenute = ritenuta;
  dueRitenute.altri.insert(
      dueRitenute.altri.end(),
      {{"CausaleRitAcc2", "024"}, {"ContoRitAcc2", "430.003"}, {"ImportoRitAcc2", I("20")}});
  auto dogana = Acquisto("1000");
  dogana.altri = {{"BollaDog", true},
                  {"FornitoreBollaDog", "0002"},
                  {"CausaleBollaDog", "029"},
                  {"PagamentoBollaDog", "DUE"}};
  auto tutte = dogana;
  tutte.altri.insert(tutte.altri.end(), ritenuta.altri.begin(), ritenuta.altri.end());
  const FatturaDaScrivere intra{.riva = "4",
                                .parte = "0001",
                                .righe = {{"900.220", "22R", I("1000")}},
                                .pagamento = "MISTO",
                                .altri = {{"CausaleIntra", "029"},
                                          {"FornitoreIntra", "0002"},
                                          {"ContoCostiIntra", "500.001"},
                                          {"PagamentoIntra", "DUE"}}};
  for (const Caso& caso :
       {Caso{"senza codice", Vendita(), "1 3 0", 0},
        {"rate", pagata(Vendita(), "DUE"), "1 3 2", 0},
        {"pagata subito", pagata(Acquisto(), "MISTO"), "2 5 2", 0},
        {"corrispettivi", pagata({.riva = "2", .righe = {{"700.010", "20", I("1")}}}, "MISTO"),
         "1 2 0", 0},
        {"ritenuta", ritenuta, "2 5 2", 53},
        {"due ritenute", dueRitenute, "3 7 2", 53},
        {"dogana", dogana, "2 5 2", 52},
        {"dogana e ritenuta", tutte, "3 7 2", 53},
        {"reverse charge", intra, "3 8 2", 51}}) {
    SCOPED_TRACE(caso.nome);
    Tessarc().Esegui("delete * from Movimenti");
    Tessarc().Esegui("delete * from Articoli");
    Scadenzario().Esegui("delete * from Scadenze");
    const auto numDoc = Inserisci(caso.fattura);
    ASSERT_EQ(numDoc, 1) << dialoghi.UltimoMessaggio();
    EXPECT_EQ(Conti(), caso.conti);
    EXPECT_EQ(CampoTestata(1, "CREATOINAUTOMATICO").Intero(), caso.origine);
  }
  // With withholdings what is left to pay is scheduled.
  Messaggi();
  const auto numDoc = Inserisci(dueRitenute);
  const auto messaggi = Messaggi();
  ASSERT_EQ(messaggi.size(), 2U);
  EXPECT_THAT(messaggi[0], HasSubstr("Annotare il numero sul documento."));
  EXPECT_THAT(messaggi[0], HasSubstr("Registro iva 3 - N.Prot.IVA 1 - Articolo Contabile" +
                                     std::to_string(numDoc)));
  for (const char* parte : {"Registro iva: 3", "Data registrazione: 15/03/2024", "Conto: 0001",
                            "Data fattura: 15/03/2024", "Numero fattura: 12", "Articolo n.: "}) {
    EXPECT_THAT(messaggi[0], HasSubstr(parte));
  }
  EXPECT_THAT(messaggi[1], HasSubstr("Create Scadenze: \n30/04/2024 31/05/2024 \nRegistrazione "
                                     "giro ritenuta : Articolo n. 5 EFFETTUATA\n"));
  EXPECT_EQ(Scadenze().back(), "4 31/05/2024 500 F:0001 fatture 00 3/1 12");
}

TEST_F(FattureTest, VariataRifaLeScadenze) {
  const auto varia = [&](std::int64_t numero, const char* importo, const char* pagamento,
                         std::int64_t nuovoNumero = 0) {
    vat::RegistrazioneIva f(ambiente);
    EXPECT_TRUE(f.Apri(numero));
    EXPECT_TRUE(f.ApriRiga(0));
    f.Riga().Scrivi("Imponibile", I(importo));
    f.Riga().Scrivi("Iva", Importo());
    f.RigaLasciata("Imponibile");
    EXPECT_TRUE(f.ConfermaRiga());
    f.Testa().Scrivi("Pagamento", pagamento);
    if (nuovoNumero != 0) f.Testa().Scrivi("NumDoc", nuovoNumero);
    Messaggi();
    EXPECT_TRUE(f.Conferma());
    return Messaggi().back();
  };
  auto fattura = Vendita();
  fattura.pagamento = "DUE";
  ASSERT_EQ(Inserisci(fattura), 1);
  EXPECT_THAT(varia(1, "200", "DUE"), HasSubstr("elim. scadenze 30/04/2024 31/05/2024"));
  EXPECT_EQ(Scadenze()[0], "1 30/04/2024 122 C:0001 fatture 00 1/1 12");
  // A code that leaves them alone, then a paid one: they stay, and follow the number.
  EXPECT_EQ(varia(1, "300", "FERMO"),
            "queste scadenze potrebbero essere già state modificate manualmente (oppure sono "
            "pagate)");
  EXPECT_EQ(Scadenze()[0], "1 30/04/2024 122 C:0001 fatture 00 1/1 12");
  Scadenzario().Esegui("update Scadenze set Stato='10' where Dt=#05/31/2024#");
  dialoghi.Rispondera("Ci sono scadenze già pagate o presentate", Risposta::Si);
  EXPECT_THAT(varia(1, "400", "DUE", 30), HasSubstr("impossibile eliminare/rettificare scadenze!"));
  EXPECT_THAT(Scadenze(), ElementsAre("30 30/04/2024 122 C:0001 fatture 00 1/1 12",
                                      "30 31/05/2024 122 C:0001 fatture 10 1/1 12"));
  EXPECT_EQ(NumeroRighe(1), 0);
  EXPECT_EQ(NumeroRighe(30), 3);
  // A code taken away takes its due dates with it.
  Scadenzario().Esegui("update Scadenze set Stato='00'");
  varia(30, "400", "");
  EXPECT_THAT(Scadenze(), IsEmpty());
  EXPECT_EQ(Conti(), "1 3 0") << "no payment nor second registration came of the changes";
}

// --- Opening and deletion ------------------------------------------------------------------------

TEST_F(FattureTest, Apertura) {
  ASSERT_EQ(Inserisci(Acquisto()), 1);
  vat::RegistrazioneIva f(ambiente);
  EXPECT_FALSE(f.Apri(99));
  Messaggi();
  ASSERT_TRUE(f.Apri(1));
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_EQ(f.Registro().cod, "3");
  EXPECT_FALSE(f.Modificata());
  EXPECT_EQ(f.TotFat(), I("122"));
  EXPECT_TRUE(f.Testa().Leggi("DtIncasso").Data().Nulla());
  f.Abbandona();
  for (const auto& [origine, parte] :
       {std::pair{"11",
                  "si tratta di una registrazione creata automaticamente. (p.es. 'emissione "
                  "fatture', 'fatture intracee', ...) "},
        {"51",
         "si tratta di una registrazione che ha creato automaticamente altre operazioni "
         "contabili (ritenuta acconto, fattura intra, bolla doganale)"},
        {"53",
         "si tratta di una registrazione che ha creato automaticamente altre operazioni "
         "contabili (ritenuta acconto, fattura intra, bolla doganale)"}}) {
    Tessarc().Esegui(std::string("update Articoli set CREATOINAUTOMATICO=") + origine);
    ASSERT_TRUE(f.Apri(1));
    EXPECT_EQ(SoloMessaggio(), std::string("ATTENZIONE : ") + parte);
    f.Abbandona();
  }
}

TEST_F(FattureTest, SolaLettura) {
  ASSERT_EQ(Inserisci(Acquisto()), 1);
  ASSERT_EQ(Inserisci(Acquisto()), 2);
  const auto altra = NuovaStazione("CASSA");
  vat::RegistrazioneIva f(ambiente);
  const std::string prima = Tutto();
  const auto rifiuta = [&](std::int64_t numero, const std::string& motivo) {
    SCOPED_TRACE(motivo);
    Messaggi();
    ASSERT_TRUE(f.Apri(numero));
    EXPECT_TRUE(f.SolaLettura());
    EXPECT_THAT(SoloMessaggio(), HasSubstr(motivo));
    EXPECT_FALSE(f.Conferma());
    EXPECT_FALSE(f.Elimina());
    EXPECT_FALSE(f.PNuovaRiga());
    f.Abbandona();
  };
  {
    vat::RegistrazioneIva di_la(*altra->ambiente);
    ASSERT_TRUE(di_la.Apri(1));
    rifiuta(1, "è in modifica");
  }
  EXPECT_EQ(Tutto(), prima);
  Tessarc().Inserisci("UltProtStRegIva", {{"Anno", 2024}, {"Riva", "3"}, {"UltProtSt", 1}});
  rifiuta(1, "documento già stampato su registro iva");
  ASSERT_TRUE(f.Apri(2));
  EXPECT_FALSE(f.SolaLettura()) << "the next protocol isn't printed yet";
  f.Abbandona();
  Tessarc().Inserisci("UltimaDataLibro", {{"Anno", 2024}, {"dt", G(15, 3, 2024)}});
  rifiuta(2,
          "data registrazione contabile antecedente all'ultima data già stampata su libro "
          "giornale");
}

TEST_F(FattureTest, EliminazioneNonLasciaNulla) {
  auto fattura = Acquisto();
  fattura.pagamento = "DUE";
  ASSERT_EQ(Inserisci(fattura), 1);
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(f.Apri(1));
  dialoghi.Rispondera("Conferma eliminazione ARTICOLO CONTABILE ?", Risposta::No);
  EXPECT_FALSE(f.Elimina());
  EXPECT_EQ(Conti(), "1 3 2");
  dialoghi.Rispondera("Conferma eliminazione ARTICOLO CONTABILE ?", Risposta::Si);
  Messaggi();
  EXPECT_TRUE(f.Elimina());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("N.Prot.IVA 1 - Articolo Contabile1"));
  EXPECT_EQ(Conti(), "0 0 0");
  EXPECT_EQ(f.StatoCorrente(), vat::RegistrazioneIva::Stato::ConRegistro);
  EXPECT_EQ(Protocollo(Inserisci(Acquisto())), 1) << "its numbers are free again";
}

}  // namespace
}  // namespace fenalto::prova
