#include "core/archives/DittaArchivi.h"

namespace fenalto::prova {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ArchivioCodiciTest : public DittaArchivi {
 protected:
  bool Conferma(archives::ArchivioCodici& archivio) {
    rifiuto = {};
    return archivio.Conferma(&rifiuto);
  }
  void Nuovo(archives::ArchivioCodici& archivio, const std::string& cod,
             const std::string& descrizione) {
    archivio.Inizia();
    archivio.Record().Scrivi("Cod", cod);
    archivio.Record().Scrivi("Descrizione", descrizione);
  }
  Rifiuto rifiuto;
};

TEST_F(ArchivioCodiciTest, AperturaTitoloEModifica) {
  archives::ArchivioCodici archivio(ambiente, Categorie());
  EXPECT_FALSE(archivio.Aperto());
  EXPECT_EQ(archivio.Titolo(), "");
  EXPECT_FALSE(archivio.Apri("Z"));
  EXPECT_FALSE(archivio.Apri(""));
  EXPECT_THAT(Messaggi(), IsEmpty());

  ASSERT_TRUE(archivio.Apri("a"));
  EXPECT_EQ(archivio.Titolo(), "categoria A");
  EXPECT_EQ(archivio.Record().Testo("Nota"), "nota di A");
  EXPECT_FALSE(archivio.Nuovo());
  EXPECT_FALSE(archivio.Modificato());
  // A code that isn't there changes nothing; the open record can be opened again.
  EXPECT_FALSE(archivio.Apri("Z"));
  EXPECT_EQ(archivio.Titolo(), "categoria A");
  ASSERT_TRUE(archivio.Apri("A"));
  EXPECT_FALSE(archivio.SolaLettura());
  archivio.Record().Scrivi("Descrizione", "VOCE A");
  EXPECT_TRUE(archivio.Modificato());
  archivio.Abbandona();
  EXPECT_FALSE(archivio.Modificato());
  EXPECT_FALSE(Conferma(archivio));

  archivio.Inizia();
  EXPECT_EQ(archivio.Titolo(), "nuova categoria");
  EXPECT_FALSE(archivio.Modificato());
  EXPECT_FALSE(archivio.Elimina());
  EXPECT_THAT(Messaggi(), IsEmpty());
}

TEST_F(ArchivioCodiciTest, FiltroDellaDescrizione) {
  archives::DescrizioneArchivio d = Categorie();
  d.filtro = "Cod<'B' or Cod>'B'";
  archives::ArchivioCodici archivio(ambiente, d);
  EXPECT_FALSE(archivio.Apri("B"));
  EXPECT_TRUE(archivio.Apri("C"));
  // What the filter hides is there all the same.
  Nuovo(archivio, "b", "x");
  EXPECT_FALSE(Conferma(archivio));
  EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr("categoria già esistente: b")));
}

TEST_F(ArchivioCodiciTest, OrdineDeiControlli) {
  archives::ArchivioCodici archivio(ambiente, Categorie());
  Tessarc().Inserisci("Clienti", {{"Cod", "0001"}, {"Categoria", "a"}});
  ASSERT_TRUE(archivio.Apri("A"));
  Traccia();
  struct Caso {
    const char *cod, *ferma, *messaggio, *campo;
    std::vector<std::string> traccia;
  };
  const std::vector<Caso> casi = {
      Caso(" \t ", "controllo 1", "inserire un codice", "Cod", {}),
      Caso("b", "controllo 1", "fermo: controllo 1", "Descrizione", {"controllo 1"}),
      Caso("b", "controllo 2", "fermo: controllo 2", "Descrizione", {"controllo 1", "controllo 2"}),
      Caso(" b ", "guardia codice", "già esistente: b", "Cod", {"controllo 1", "controllo 2"}),
      Caso("n", "guardia codice", "fermo: guardia codice", "Descrizione",
           {"controllo 1", "controllo 2", "guardia codice"}),
      Caso("n", "", "non si può variare o eliminare il codice in quanto ci sono clienti", "Cod",
           {"controllo 1", "controllo 2", "guardia codice"}),
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.messaggio);
    archivio.Record().Scrivi("Cod", caso.cod);
    ferma = caso.ferma;
    EXPECT_FALSE(Conferma(archivio));
    EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr(caso.messaggio)));
    EXPECT_EQ(rifiuto.campo, caso.campo);
    EXPECT_EQ(Traccia(), caso.traccia);
    EXPECT_TRUE(archivio.Aperto());
  }
  // In another case it is the same code: neither guards nor references.
  ferma = "guardia codice";
  archivio.Record().Scrivi("Cod", "a");
  archivio.Record().Scrivi("Descrizione", "altra");
  EXPECT_TRUE(Conferma(archivio));
  EXPECT_FALSE(archivio.Aperto());
  EXPECT_THAT(Traccia(), ElementsAre("controllo 1", "controllo 2", "con scrittura", "dopo A>a"));
  EXPECT_THAT(Righe(), ElementsAre("a=altra", "B=voce B", "C=voce C"));
}

TEST_F(ArchivioCodiciTest, CodiciDiAltriArchivi) {
  bool visibile = true;
  bool attivo = true;
  archives::DescrizioneArchivio d = Categorie();
  d.campiExtra.emplace_back("Agente", Tipo::Testo);
  d.campi.push_back(records::DiCodice("Agente", "Venditore", "agenti").In("Vendite"));
  d.riquadri = {{.nome = "Vendite", .titolo = ""}};
  d.aperto = [](archives::ContestoArchivio& c) { c.scheda.Scrivi("Agente", "X0"); };
  d.stato = [&](const archives::ContestoArchivio&, const std::string& nome) {
    return nome == "Vendite" ? records::StatoCampo{.visibile = visibile}
                             : records::StatoCampo{.attivo = attivo};
  };
  Tessarc().Inserisci("Agenti", {{"Cod", "X1"}, {"Descrizione", "Verdi"}});
  archives::ArchivioCodici archivio(ambiente, d);
  // What was there before stays.
  ASSERT_TRUE(archivio.Apri("A"));
  archivio.Record().Scrivi("Descrizione", "altra");
  EXPECT_TRUE(Conferma(archivio));
  struct Caso {
    const char* agente;
    bool visibile, attivo, nuovo, ammesso;
  };
  const Caso casi[] = {{"X2", true, true, false, false}, {"X0", true, true, true, false},
                       {"x1", true, true, false, true},  {" ", true, true, false, true},
                       {"X2", false, true, false, true}, {"X2", true, false, false, true}};
  for (const Caso& caso : casi) {
    if (caso.nuovo) {
      Nuovo(archivio, "N", "nuova");
    } else {
      ASSERT_TRUE(archivio.Apri("B"));
    }
    archivio.Record().Scrivi("Agente", caso.agente);
    visibile = caso.visibile;
    attivo = caso.attivo;
    EXPECT_EQ(Conferma(archivio), caso.ammesso) << caso.agente;
    if (caso.ammesso) continue;
    EXPECT_THAT(Messaggi(), ElementsAre(std::string("Venditore: il codice ") + caso.agente +
                                        " non esiste, sceglierne uno dall'elenco (F2)"));
    EXPECT_EQ(rifiuto.campo, "Agente");
  }
  EXPECT_THAT(Messaggi(), IsEmpty());
}

TEST_F(ArchivioCodiciTest, CodiciParticolari) {
  archives::ArchivioCodici archivio(ambiente, [this] {
    archives::DescrizioneArchivio d = Categorie();
    d.caratteriCodice = 200;
    return d;
  }());
  const std::string lungo(200, 'x');
  for (const std::string& cod : std::vector<std::string>{"l'oro", "*", "A*", "[a-c]", "#1/1/2020#",
                                                         "due  parole", "\"x\"", "è", lungo}) {
    SCOPED_TRACE(cod);
    Nuovo(archivio, " " + cod + "\xC2\xA0", "di " + cod);
    ASSERT_TRUE(Conferma(archivio));
    ASSERT_TRUE(archivio.Apri(cod));
    EXPECT_EQ(archivio.Record().Testo("Cod"), cod);
    EXPECT_EQ(archivio.Record().Testo("Descrizione"), "di " + cod);
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
    EXPECT_TRUE(archivio.Elimina());
    EXPECT_FALSE(archivio.Apri(cod));
  }
  EXPECT_THAT(Messaggi(), IsEmpty());
  Nuovo(archivio, lungo + "x", "troppo");
  EXPECT_FALSE(Conferma(archivio));
  EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr("al più 200 caratteri")));
  // Blanks stored by another program stay until the code is typed anew.
  Tessarc().Inserisci("Categorie", {{"Cod", " Z "}, {"Descrizione", "z"}});
  ferma = "guardia codice";
  ASSERT_TRUE(archivio.Apri(" Z "));
  EXPECT_TRUE(Conferma(archivio));
  EXPECT_THAT(Righe(), ::testing::Contains(" Z =z"));
}

TEST_F(ArchivioCodiciTest, Composto) {
  archives::DescrizioneArchivio d = Categorie();
  d.codiceComposto = true;
  d.compone = [](archives::ContestoArchivio& c) {
    c.scheda.Scrivi("Cod", c.scheda.Testo("Nota") + ".1");
  };
  archives::ArchivioCodici archivio(ambiente, d);
  archivio.Inizia();
  archivio.Record().Scrivi("Nota", "K");
  EXPECT_TRUE(Conferma(archivio));
  EXPECT_EQ(traccia.back(), "dopo nuovo>K.1");
  EXPECT_TRUE(archivio.Apri("K.1"));
}

TEST_F(ArchivioCodiciTest, Duplica) {
  archives::ArchivioCodici archivio(ambiente, Categorie());
  archivio.Duplica();
  EXPECT_FALSE(archivio.Aperto());
  ASSERT_TRUE(archivio.Apri("B"));
  archivio.Record().Scrivi("nonmodif", true);
  archivio.Duplica();
  EXPECT_TRUE(archivio.Nuovo());
  EXPECT_TRUE(archivio.Modificato());
  EXPECT_EQ(archivio.Record().Testo("Cod"), "");
  EXPECT_EQ(archivio.Record().Testo("Descrizione"), "voce B");
  EXPECT_TRUE(archivio.Record().Leggi("nonmodif").Booleano());
  // The lock of the original is free again.
  EXPECT_FALSE(ambiente.Basi().Blocchi().ChiTiene("Categorie", "B"));
  archivio.Record().Scrivi("Cod", "D");
  EXPECT_TRUE(Conferma(archivio));
  EXPECT_THAT(Righe(), ElementsAre("A=voce A", "B=voce B", "C=voce C", "D=voce B"));
}

TEST_F(ArchivioCodiciTest, DueStazioni) {
  const auto altra = Altra("MAGAZZINO");
  archives::ArchivioCodici primo(ambiente, Categorie());
  archives::ArchivioCodici secondo(*altra->ambiente, Categorie());
  ASSERT_TRUE(primo.Apri("A"));
  ASSERT_TRUE(secondo.Apri("a"));
  EXPECT_TRUE(secondo.SolaLettura());
  EXPECT_THAT(altra->dialoghi.UltimoMessaggio(), HasSubstr("dalla stazione UFFICIO"));
  secondo.Record().Scrivi("Descrizione", "x");
  EXPECT_FALSE(secondo.Modificato());
  EXPECT_FALSE(secondo.Conferma());
  EXPECT_FALSE(secondo.Elimina());
  EXPECT_TRUE(altra->dialoghi.domande.empty());
  primo.Record().Scrivi("Descrizione", "del primo");
  ASSERT_TRUE(primo.Conferma());
  ASSERT_TRUE(secondo.Apri("A"));
  EXPECT_FALSE(secondo.SolaLettura());
  EXPECT_EQ(secondo.Record().Testo("Descrizione"), "del primo");
}

TEST_F(ArchivioCodiciTest, CambiatoAltrove) {
  const auto altra = Altra("MAGAZZINO");
  archives::ArchivioCodici archivio(ambiente, Categorie());
  ASSERT_TRUE(archivio.Apri("A"));
  archivio.Record().Scrivi("Descrizione", "mia");
  altra->ambiente->ArchivioDi("tessarc").Esegui(
      "update Categorie set Descrizione='altrui' where Cod='A'");
  dialoghi.Rispondera("Descrizione: era «voce A», adesso «altrui»", Risposta::No);
  EXPECT_FALSE(Conferma(archivio));
  EXPECT_TRUE(archivio.Aperto());
  EXPECT_EQ(archivio.Record().Testo("Descrizione"), "mia");
  EXPECT_EQ(Righe()[0], "A=altrui");
  dialoghi.Rispondera("categoria A: cambiato", Risposta::Si);
  EXPECT_TRUE(Conferma(archivio));
  EXPECT_EQ(Righe()[0], "A=mia");
  EXPECT_THAT(Messaggi(), IsEmpty());
}

TEST_F(ArchivioCodiciTest, EliminatoAltrove) {
  archives::ArchivioCodici archivio(ambiente, Categorie());
  ASSERT_TRUE(archivio.Apri("A"));
  archivio.Record().Scrivi("Descrizione", "mia");
  Altra("MAGAZZINO")
      ->ambiente->ArchivioDi("tessarc")
      .Esegui("delete * from Categorie where Cod='A'");
  EXPECT_FALSE(Conferma(archivio));
  EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr("categoria A: ")));
  EXPECT_TRUE(archivio.Nuovo());
  EXPECT_TRUE(archivio.Modificato());
  EXPECT_TRUE(Conferma(archivio));
  EXPECT_THAT(Righe(), ElementsAre("A=mia", "B=voce B", "C=voce C"));
}

TEST_F(ArchivioCodiciTest, Eliminazione) {
  archives::ArchivioCodici archivio(ambiente, Categorie());
  Tessarc().Inserisci("Movimenti", {{"Anno", 2026}, {"Categoria", "B"}});
  ASSERT_TRUE(archivio.Apri("A"));
  Traccia();
  const auto elimina = [&](Risposta risposta) {
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", risposta);
    return archivio.Elimina();
  };
  EXPECT_FALSE(elimina(Risposta::No));
  EXPECT_THAT(Traccia(), IsEmpty());
  for (const char* guardia : {"guardia elimina", "guardia codice"}) {
    ferma = guardia;
    EXPECT_FALSE(elimina(Risposta::Si));
    EXPECT_THAT(Messaggi(), ElementsAre(std::string("fermo: ") + guardia));
    EXPECT_EQ(Traccia().back(), guardia);
  }
  ferma.clear();
  // What was typed over the code doesn't say which record is erased.
  archivio.Record().Scrivi("Cod", "B");
  EXPECT_TRUE(elimina(Risposta::Si));
  EXPECT_THAT(Traccia(), ElementsAre("guardia elimina", "guardia codice", "con eliminazione"));
  EXPECT_FALSE(archivio.Aperto());
  ASSERT_TRUE(archivio.Apri("b"));
  EXPECT_FALSE(elimina(Risposta::Si));
  EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr("movimenti contabili che lo usano")));
  EXPECT_THAT(Righe(), ElementsAre("B=voce B", "C=voce C"));
}

}  // namespace fenalto::prova
