#include <gmock/gmock.h>

#include "core/archives/Importazione.h"
#include "core/archives/LettoreTabella.h"
#include "core/store/BasiDati.h"
#include "ledger/DittaDiProva.h"
#include "ledger/accounts/GeneriImporta.h"
#include "vat/codes/ImportaCodiciIva.h"

namespace fenalto::prova {
namespace {

using Testi = std::vector<std::string>;

// --- Reading -------------------------------------------------------------------------------------

TEST(LettoreTabella, ComeEsconoDagliAltriProgrammi) {
  struct Caso {
    const char* nome;
    std::string testo;
  };
  const Caso casi[] = {
      {"punto e virgola, Windows-1252", "Cod;Citt\xE0\n1;Forl\xEC\n2;a\n"},
      {"marca e CR LF",
       "\xEF\xBB\xBF"
       "Cod;Città\r\n1;Forlì\r\n2;a\r\n"},
      {"virgola e virgolette", "Cod,\"Città\"\n1,\"Forlì\"\n2,a"},
      {"tabulazioni", "Cod\tCittà\n1\tForlì\n2\ta\n"},
      {"separatore detto", "sep=,\r\nCod,Città\r\n1,Forlì\r\n2,a\r\n"},
      {"righe e colonne vuote", "\r\nCod;Città;;\n1;Forlì;;\n;;;\n\n2;a\n"},
  };
  for (const auto& caso : casi) {
    SCOPED_TRACE(caso.nome);
    const auto letta = archives::LeggiTabellaDaTesto(caso.testo);
    ASSERT_TRUE(letta) << letta.Errore().messaggio;
    EXPECT_THAT(letta.Valore().nomi, ElementsAre("Cod", "Città"));
    ASSERT_EQ(letta.Valore().righe.size(), 2U);
    EXPECT_THAT(letta.Valore().righe[0].campi, ElementsAre("1", "Forlì"));
    EXPECT_THAT(letta.Valore().righe[1].campi, ElementsAre("2", "a"));
  }
}

TEST(LettoreTabella, RigheDelFileEColonneSenzaNome) {
  const auto letta =
      archives::LeggiTabellaDaTesto("\nCod;;Note\n\n1;x;\"due\nlinee\"\n2;y 5\" z;b\n");
  ASSERT_TRUE(letta) << letta.Errore().messaggio;
  EXPECT_THAT(letta.Valore().nomi, ElementsAre("Cod", "Colonna 2", "Note"));
  EXPECT_EQ(letta.Valore().righe[0].linea, 4U);
  EXPECT_EQ(letta.Valore().righe[1].linea, 6U);
  EXPECT_EQ(letta.Valore().righe[1].campi[1], "y 5\" z");
}

TEST(LettoreTabella, CioCheNonEUnaTabella) {
  std::string troppe = "Cod\n";
  for (std::size_t i = 0; i <= archives::kMassimoRigheTabella; ++i) troppe += "1\n";
  const std::pair<std::string, const char*> casi[] = {
      {"", "vuoto"},
      {" \r\n\n", "vuoto"},
      {"a;b\n1;2;3\n", "riga 2: 3 valori per 2 colonne"},
      {"a;b\n1;\"mai chiuse\n", "riga 2: virgolette non chiuse"},
      {std::string("\xFF\xFE"
                   "C\0o\0d\0",
                   8),
       "non è un testo"},
      {troppe, "200000 righe"}};
  for (const auto& [testo, parte] : casi) {
    const auto letta = archives::LeggiTabellaDaTesto(testo);
    ASSERT_FALSE(letta) << parte;
    EXPECT_THAT(letta.Errore().messaggio, HasSubstr(parte));
  }
  EXPECT_THAT(archives::LeggiTabella("non-c-e.csv").Errore().messaggio, HasSubstr("non esiste"));
}

// UTF-8 with a byte broken isn't Windows-1252: what is broken is told where it stands.
TEST(LettoreTabella, Utf8Guasto) {
  struct Caso {
    std::string testo;
    const char* campo;  ///< as it is read
  };
  for (const Caso& caso : {Caso{"Cod;Città\n1;Forl\xC3;\n", "Forl\xC3"},
                           {"Cod;Nome\n1;Forl\xC3\n", "Forl\xC3"},
                           {"Cod;Nome\n1;5 \xC2 m\n", "5 \xC2 m"},
                           {"\xEF\xBB\xBF"
                            "Cod;Nome\n1;Forl\xEC\n",
                            "Forl\xEC"},
                           {"Cod;Nome\n1;\xABPerch\xE9\xBB \xE8 5 \x80\n", "«Perché» è 5 €"},
                           {"Cod;Nome\n1;CAFF\xC8\xBB \xE8 gi\xE0\n", "CAFFÈ» è già"}}) {
    SCOPED_TRACE(caso.campo);
    const auto letta = archives::LeggiTabellaDaTesto(caso.testo);
    ASSERT_TRUE(letta) << letta.Errore().messaggio;
    EXPECT_EQ(letta.Valore().righe.at(0).campi.at(1), caso.campo);
  }
  const auto nome = archives::LeggiTabellaDaTesto("\nCod;Citt\xC3\n1;x\n");
  ASSERT_FALSE(nome);
  EXPECT_THAT(nome.Errore().messaggio, HasSubstr("riga 2, colonna 2: nel nome il testo contiene "
                                                 "il byte C3, che non è un carattere"));
}

TEST(LettoreValori, ImportiSecondoLaColonna) {
  struct Caso {
    Testi colonna;
    const char* testo;
    const char* atteso;  ///< null: refused
  };
  const Caso casi[] = {{{}, "1.234,56", "1234.56"},
                       {{}, "1,234.56", "1234.56"},
                       {{}, "12,5", "12.5"},
                       {{}, "12.5", "12.5"},
                       {{}, "1.234.567", "1234567"},
                       {{}, "0.125", "0.125"},
                       {{}, "1.234", nullptr},
                       {{"0,5"}, "1.234", "1234"},
                       {{"0.50"}, "1.234", "1.234"},
                       {{"0,5", "0.50"}, "1.234", nullptr},
                       {{"0.50"}, "1,234", "1234"},
                       {{}, "1,234", "1.234"},
                       {{}, "€ 1.000,00-", "-1000"},
                       {{}, "(12,00)", "-12"},
                       {{}, "22,00 %", "22"},
                       {{}, "1,50000", "1.5"},
                       {{}, "", "0"},
                       {{}, "-", nullptr},
                       {{}, "12a", nullptr},
                       {{}, "1,2,3", nullptr},
                       {{}, "12.34.567", nullptr},
                       {{}, "1,23456", nullptr},
                       {{}, "99999999999999999999", nullptr}};
  for (const auto& caso : casi) {
    archives::StileDecimali stile;
    for (const auto& altro : caso.colonna) stile.Guarda(altro);
    const auto letto = archives::LeggiImportoDiFile(caso.testo, stile.Stile());
    ASSERT_EQ(letto.Riuscito(), caso.atteso != nullptr) << caso.testo;
    if (letto) {
      EXPECT_EQ(letto.Valore().Testo(), caso.atteso) << caso.testo;
    }
  }
}

TEST(LettoreValori, DateEFlag) {
  const std::pair<const char*, const char*> date[] = {{"15/03/2024", "2024-03-15"},
                                                      {"5-3-24", "2024-03-05"},
                                                      {"2024-03-15", "2024-03-15"},
                                                      {"15.03.2024 00:00:00", "2024-03-15"},
                                                      {" ", ""}};
  for (const auto& [testo, attesa] : date)
    EXPECT_EQ(archives::LeggiDataDiFile(testo).Valore().Iso(), attesa) << testo;
  for (const char* testo : {"31/02/2024", "15", "15/03", "45366", "03/15/2024", "domani"})
    EXPECT_FALSE(archives::LeggiDataDiFile(testo)) << testo;
  for (const char* testo : {"Sì", "SI", "s", "Vero", "true", "1", "-1", "x"})
    EXPECT_TRUE(archives::LeggiFlagDiFile(testo).Valore()) << testo;
  for (const char* testo : {"", "No", "n", "FALSO", "0"})
    EXPECT_FALSE(archives::LeggiFlagDiFile(testo).Valore()) << testo;
  EXPECT_FALSE(archives::LeggiFlagDiFile("forse"));
}

// --- The import ----------------------------------------------------------------------------------

class ImportazioneTest : public DittaDiProva {
 protected:
  std::unique_ptr<archives::Importazione> Apri(const std::string& genere,
                                               const std::string& testo) {
    auto generi = ledger::GeneriImportaContabili();
    generi.push_back(vat::GenereImportaCodiciIva());
    for (auto& uno : generi) {
      if (uno.nome != genere) continue;
      auto importazione = std::make_unique<archives::Importazione>(ambiente, std::move(uno));
      const auto letto = importazione->ApriTesto(testo);
      EXPECT_TRUE(letto) << letto.Errore().messaggio;
      return importazione;
    }
    return nullptr;
  }
  /// Errors as "line column: reason".
  static Testi Errori(const archives::EsitoImporta& esito) {
    Testi testi;
    for (const auto& e : esito.errori)
      testi.push_back(std::to_string(e.linea) + " " + e.colonna + ": " + e.motivo);
    return testi;
  }
  Testi Righe(const std::string& sql) {
    Testi testi;
    for (Rs rs = Tessarc().Recordset(sql); !rs.Eof(); rs.MoveNext()) {
      std::string riga;
      for (std::size_t i = 0; i < rs.Colonne().size(); ++i)
        riga += (i > 0 ? "|" : "") + rs.Fields(i).Testo();
      testi.push_back(riga);
    }
    return testi;
  }
};

constexpr const char* kPiano =
    "Conto;Descrizione;Tipo;C F P;Rettifica\n"
    "990.001;Cassa di prova;Patrimoniale;;1.234,50\n"
    "990;Mastro di prova;P;;\n"
    "990.002;Altro mastro;E;;\n"
    "991.001;Senza mastro;P;;\n"
    "990.003;Riepilogo;;clienti;\n"
    "990.003;Ripetuto;P;;\n"
    "990.004;;P;Z;\n"
    "990.;Senza conto;;;\n"
    "992;Senza natura;;;\n"
    "100.010;Esiste già;P;;\n"
    "990.005;Campanello \x07;P;;\n"
    "990.006;Citt\xC3;P;;\n";

TEST_F(ImportazioneTest, PianoDeiContiConRigheSbagliate) {
  const auto importa = Apri("Conti", kPiano);
  const std::string prima = Contenuto();
  const auto controllo = importa->Controlla({});
  EXPECT_THAT(
      Errori(controllo),
      ElementsAre("4 Tipo: Patrimoniale/Economico : su mastro diverso da conto",
                  HasSubstr("5 Conto: il mastro 991 non esiste"),
                  "7 Conto: codice ripetuto: è già alla riga 6",
                  "8 Descrizione: manca «Descrizione»", "8 C F P: «Z» non è ammesso: P, C, F",
                  HasSubstr("9 Conto: manca mastro o conto"),
                  HasSubstr("10 Tipo: manca Patrimoniale/Economico"),
                  "12 Descrizione: il testo contiene il carattere di controllo U+0007: toglierlo",
                  "13 Descrizione: il testo contiene il byte C3, che non è un carattere: "
                  "toglierlo"));
  EXPECT_EQ(controllo.nuove, 3U);
  EXPECT_EQ(controllo.saltate, 1U);
  EXPECT_EQ(controllo.errate, 8U);

  const auto fermata = importa->Importa({});
  ASSERT_TRUE(fermata);
  EXPECT_FALSE(fermata.Valore().scritta);
  EXPECT_EQ(Contenuto(), prima);

  const auto fatta = importa->Importa({.escludiErrate = true});
  ASSERT_TRUE(fatta) << fatta.Errore().messaggio;
  EXPECT_TRUE(fatta.Valore().scritta);
  EXPECT_THAT(Righe("select Cod, Descrizione, CFP, PatrEcon, ImportoSitAziendale from Conti where "
                    "Cod LIKE '99*' order by Cod"),
              ElementsAre("990.001|Cassa di prova|P|P|1234.5", "990.003|Riepilogo|C|P|0"));
  EXPECT_THAT(Righe("select Cod, PatrEcon from Mastri where Cod LIKE '99*'"), ElementsAre("990|P"));
  // Only plain accounts stand in the list of what a movement may name.
  EXPECT_THAT(Righe("select Cod, CFP, Descrizione from ContiClientiFornitori where Cod LIKE '99*'"),
              ElementsAre("990.001|P|Cassa di prova"));
}

TEST_F(ImportazioneTest, PianoDeiContiAggiornato) {
  const auto importa =
      Apri("Conti",
           "Conto;Descrizione;Natura;C F P\n100;Mastro rinominato;;\n"
           "100.010;Conto rinominato;;\n100.020;Altra classe;P;C\n110;Natura;E;\n");
  EXPECT_THAT(
      Errori(importa->Controlla({.aggiornaEsistenti = true})),
      ElementsAre(HasSubstr("4 C F P: la classe"), HasSubstr("5 Natura: il mastro ha già")));
  ASSERT_TRUE(importa->Importa({.aggiornaEsistenti = true, .escludiErrate = true}));
  EXPECT_THAT(Righe("select Descrizione, PatrEcon from Mastri where Cod='100'"),
              ElementsAre("Mastro rinominato|P"));
  EXPECT_THAT(Righe("select Descrizione, PatrEcon, CFP from Conti where Cod='100.010'"),
              ElementsAre("Conto rinominato|P|P"));
  EXPECT_THAT(Righe("select Descrizione from ContiClientiFornitori where Cod='100.010'"),
              ElementsAre("Conto rinominato"));
}

TEST_F(ImportazioneTest, ClientiNuoviEAggiornati) {
  const std::string testo =
      "Codice cliente,Rag. Soc.,Città,P.IVA,Cod. IVA,Fido,Conto,Colonna ignota\n"
      "9001,\"Rossi, Bianchi & C.\",Forlì,12345678903,22,\"1.500,00\",,x\n"
      "0001,Nome nuovo,Cesena,,,,120.001,y\n"
      "9002,Verdi,,,XX,,100.010,z\n";
  const auto importa = Apri("Clienti", testo);
  EXPECT_FALSE(importa->Abbinamenti().Campo(7));
  EXPECT_THAT(importa->Anteprima(1), ElementsAre(ElementsAre("9001", "Rossi, Bianchi & C.", "Forlì",
                                                             "12345678903", "", "22", "1.500,00")));
  EXPECT_THAT(Errori(importa->Controlla({.aggiornaEsistenti = true})),
              ElementsAre("4 Cod. IVA: «XX» non c'è nell'archivio CodiciIva"));
  const auto fatta = importa->Importa({.aggiornaEsistenti = true, .escludiErrate = true});
  ASSERT_TRUE(fatta) << fatta.Errore().messaggio;
  EXPECT_EQ(fatta.Valore().nuove, 1U);
  EXPECT_EQ(fatta.Valore().aggiornate, 1U);
  // A new customer takes the chart's summary account and price 1; what has no column stays.
  EXPECT_THAT(
      Righe("select Cod, ragsoc1, localita, Fido, Prezzi123, CodIva from Clienti where Cod='9001'"),
      ElementsAre("9001|Rossi, Bianchi & C.|Forlì|1500|1|22"));
  const auto riepilogo = Righe(
      "select CFP from Conti inner join Clienti on Conti.Cod="
      "Clienti.Conto where Clienti.Cod='9001'");
  EXPECT_THAT(riepilogo, ElementsAre("C"));
  EXPECT_THAT(Righe("select Descrizione from ContiClientiFornitori where CFP='C' and (Cod='0001' "
                    "or Cod='9001') order by Cod"),
              ElementsAre("Nome nuovo", "Rossi, Bianchi & C."));
}

TEST_F(ImportazioneTest, FornitoriCodiciIvaERiferimenti) {
  struct Caso {
    const char *genere, *testo;
    const char* errore;  ///< of line 2, null for none
  };
  const Caso casi[] = {
      {"Fornitori", "Cod;Ragione sociale;Nato il\n9001;Neri;01/02/1970\n", nullptr},
      {"Fornitori", "Cod;Ragione sociale;Nato il\n9001;Neri;31/02/1970\n", "non è una data"},
      {"Fornitori", "Cod;Ragione sociale;Conto\n9001;Neri;120.001\n", "riepilogativo di classe F"},
      {"Fornitori", "Cod;Ragione sociale;Codice pagamento\n9001;Neri;ZZ\n", "archivio Pagamento"},
      {"Fornitori", "Cod;Ragione sociale\n12345678901;Neri\n", "11 caratteri: al massimo 10"},
      {"Fornitori", "Cod;Ragione sociale\n;Neri\n", "manca il codice"},
      {"Clienti", "Cod;Nome;Sconto\n9001;Neri;101\n", "fuori dai limiti"},
      {"CodiciIva", "Codice IVA;Descrizione;Aliquota;Scorporo\nX1;Prova;5,5;Sì\n", nullptr},
      {"CodiciIva", "Codice IVA;Descrizione;Aliquota\nzcor;Prova;0\n", "riservato"},
      {"CodiciIva", "Codice IVA;Descrizione;Campo elenco\nX1;Prova;6\n", "da 0 a 5"},
      {"CodiciIva", "Codice IVA;Descrizione;Campo elenco\nX1;Prova;1,5\n", "numero intero"},
      {"CodiciIva", "Codice IVA;Descrizione;Scorporo\nX1;Prova;boh\n", "non è un sì o un no"}};
  for (const auto& caso : casi) {
    SCOPED_TRACE(caso.testo);
    const auto esito = Apri(caso.genere, caso.testo)->Controlla({});
    if (caso.errore == nullptr) {
      EXPECT_TRUE(esito.errori.empty()) << Errori(esito).front();
      EXPECT_EQ(esito.nuove, 1U);
    } else {
      ASSERT_EQ(esito.errori.size(), 1U);
      EXPECT_THAT(esito.errori[0].motivo, HasSubstr(caso.errore));
      EXPECT_EQ(esito.errori[0].linea, 2U);
    }
  }
}

TEST_F(ImportazioneTest, AbbinamentiRicordatiSenzaDoppi) {
  const char* testo = "Id strano;Denominazione;Nome\nX9;prova;altro\n";
  {
    const auto importa = Apri("CodiciIva", testo);
    // The second column that a synonym fits stays out; without a code nothing can be imported.
    EXPECT_FALSE(importa->Abbinamenti().Campo(0));
    EXPECT_FALSE(importa->Abbinamenti().Campo(2));
    EXPECT_THAT(Errori(importa->Controlla({})), ElementsAre(HasSubstr("nessuna colonna")));
    EXPECT_FALSE(importa->Importa({.escludiErrate = true}).Valore().scritta);
    importa->Abbinamenti().Abbina(0, "Cod");
    importa->Abbinamenti().Abbina(2, "Descrizione");
    EXPECT_FALSE(importa->Abbinamenti().Campo(1));
    EXPECT_TRUE(importa->Importa({}).Valore().scritta);
  }
  EXPECT_THAT(Righe("select Descrizione from CodiciIva where Cod='X9'"), ElementsAre("altro"));
  const auto dopo = Apri("CodiciIva", testo);
  EXPECT_EQ(dopo->Abbinamenti().Colonna("Cod"), 0U);
  EXPECT_EQ(dopo->Abbinamenti().Colonna("Descrizione"), 2U);
}

std::string Molti(int quanti) {
  std::string testo = "Cod;Ragione sociale\n";
  for (int i = 0; i < quanti; ++i) testo += "Y" + std::to_string(i) + ";Nome\n";
  return testo;
}

TEST_F(ImportazioneTest, InterrottaOImpeditaNonScriveNulla) {
  const std::string prima = Contenuto();
  const auto importa = Apri("Clienti", Molti(500));
  // While it checks, and while it writes.
  for (const int passo : {200, 700}) {
    dialoghi.annullaDopo = passo;
    const auto esito = importa->Importa({});
    EXPECT_TRUE(esito.Valore().annullata);
    EXPECT_FALSE(esito.Valore().scritta);
    EXPECT_EQ(Contenuto(), prima);
  }
  dialoghi.annullaDopo = 1'000'000;

  const auto altra = NuovaStazione("MAGAZZINO");
  Rs inModifica =
      altra->ambiente->ArchivioDi("tessarc").Recordset("select * from Clienti where Cod='0001'");
  ASSERT_TRUE(inModifica.Edit());
  const auto bloccata = Apri("Clienti", "Cod;Ragione sociale\n9001;A\n0001;B\n")
                            ->Importa({.aggiornaEsistenti = true});
  ASSERT_FALSE(bloccata);
  EXPECT_THAT(bloccata.Errore().messaggio, HasSubstr("MAGAZZINO"));
  inModifica.CancelUpdate();
  EXPECT_EQ(Contenuto(), prima);
}

TEST_F(ImportazioneTest, OgniIstruzioneCheFallisceLasciaTuttoComEra) {
  const std::string prima = Contenuto();
  const auto importa = Apri("Clienti", "Cod;Ragione sociale\n9001;A\n0001;B\n");
  const archives::OpzioniImporta opzioni{.aggiornaEsistenti = true};
  for (int n = 1;; ++n) {
    ambiente.Basi().ImpostaGuasto(n, Guasto::Errore);
    const auto esito = importa->Importa(opzioni);
    const int eseguite = ambiente.Basi().IstruzioniEseguite();
    ambiente.Basi().ImpostaGuasto(0, Guasto::Nessuno);
    if (esito && esito.Valore().scritta) {
      EXPECT_GT(n, 5);
      EXPECT_LT(eseguite, n);
      break;
    }
    ASSERT_FALSE(esito) << n;
    EXPECT_THAT(esito.Errore().messaggio, HasSubstr("non è stato scritto nulla"));
    ASSERT_EQ(Contenuto(), prima) << n;
    ASSERT_LT(n, 200);
  }
  EXPECT_NE(Contenuto(), prima);
}

}  // namespace
}  // namespace fenalto::prova
