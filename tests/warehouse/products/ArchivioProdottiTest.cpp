// The archive of products: what it refuses and asks, what is written with a product.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "ledger/DittaDiProva.h"
#include "ledger/GuastiDiProva.h"
#include "warehouse/products/ArchivioProdotti.h"
#include "warehouse/products/CodificaProdotti.h"
#include "warehouse/products/FileProdotto.h"

namespace fenalto::warehouse {
namespace {

using prova::I;
using prova::Metti;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Campi = std::vector<std::pair<const char*, Valore>>;

class ArchivioProdottiTest : public prova::DittaDiProva {
 protected:
  ArchivioProdottiTest()
      : parte(std::make_shared<ParteProdotto>(
            ambiente,
            DalMagazzino{.costoUltimo = [](const std::string&) { return I("8"); },
                         .costoDaDistinta = [](const std::string&,
                                               bool medio) { return medio ? I("3.5") : I("4"); },
                         .decimaliPrezzo = 3})),
        prodotti(ambiente, ArchivioProdotti(parte)) {}

  void Prodotto(const char* cod, const char* barcode = "") {
    Metti(Tessarc(), "CodiciRiga", "Cod", cod, "Descrizione", std::string("merce ") + cod,
          "Barcode", barcode);
  }
  void Scrivi(const Campi& campi) {
    for (const auto& [campo, valore] : campi) prodotti.Record().Scrivi(campo, valore);
  }
  /// A row typed and confirmed.
  bool Fornitore(const Campi& campi, std::string* campo = nullptr) {
    EXPECT_TRUE(parte->fornitori.Nuova());
    for (const auto& [nome, valore] : campi) parte->fornitori.Riga().Scrivi(nome, valore);
    return parte->fornitori.Conferma(ambiente, campo);
  }
  /// "X1 1 0001 12.5", in order.
  std::vector<std::string> Fornitori() {
    std::vector<std::string> righe;
    for (Rs rs = Tessarc().Recordset(
             "select Cod, Posi, Fornitore, Prezzo from prodottiFor_r order by Cod, Posi");
         !rs.Eof(); rs.MoveNext()) {
      righe.push_back(rs.Fields(0).Testo() + " " + rs.Fields(1).Testo() + " " +
                      rs.Fields(2).Testo() + " " + rs.Fields(3).Testo());
    }
    return righe;
  }
  Valore Campo(const char* cod, const char* campo) {
    return ambiente.Cerca("tessarc", "CodiciRiga", {{"Cod", cod}}, campo);
  }

  std::shared_ptr<ParteProdotto> parte;
  archives::ArchivioCodici prodotti;
};

TEST_F(ArchivioProdottiTest, LaCodificaAutomaticaRifiutaCodiciDiversi) {
  constexpr const char* kPrima =
      "impossibile procedere con la codifica automatica in quanto l'ultimo codice risulta essere ";
  constexpr const char* kDopo = "prima bisogna modificare i codici attualmente inseriti";
  struct Caso {
    std::vector<const char*> codici;
    int cifre;
    std::string rifiuto;  ///< empty when the next code follows
    const char* codice;
  };
  const std::vector<Caso> casi = {
      {{}, 4, "", "0001"},
      {{}, 6, "", "000001"},
      {{"00041", "00007"}, 5, "", "00042"},
      {{"0999"}, 4, "", "1000"},
      {{"ABC"}, 4, std::string(kPrima) + "ABC(alfanumerico)\n" + kDopo, ""},
      {{"0001", "12-A"}, 4, std::string(kPrima) + "12-A(alfanumerico)\n" + kDopo, ""},
      {{"0001"},
       5,
       std::string(kPrima) + "0001\nmentre è impostata la codifica automatica a 5 cifre\n" + kDopo,
       ""},
      {{"9999"},
       4,
       "i codici a 4 cifre sono finiti: l'ultimo è 9999\nscegliere una codifica più lunga, dopo "
       "aver modificato i codici attualmente inseriti",
       ""},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.rifiuto + caso.codice);
    Tessarc().Esegui("delete from CodiciRiga");
    for (const char* codice : caso.codici) Prodotto(codice);
    ambiente.ScriviImpostazione({}, "config", "CodificaProdottiAutomatica", "0");
    const bool ammessa = caso.rifiuto.empty();
    EXPECT_EQ(ImpostaCodifica(ambiente, caso.cifre), ammessa);
    EXPECT_EQ(CifreCodifica(ambiente), ammessa ? caso.cifre : 0);
    if (!ammessa) {
      EXPECT_EQ(SoloMessaggio(), caso.rifiuto);
    }
    // The same two checks stop a new product, however the setting got there.
    ambiente.ScriviImpostazione({}, "config", "CodificaProdottiAutomatica",
                                std::to_string(caso.cifre));
    EXPECT_EQ(prodotti.Inizia(), ammessa);
    EXPECT_EQ(prodotti.Aperto(), ammessa);
    if (ammessa) {
      EXPECT_EQ(prodotti.Record().Testo("Cod"), caso.codice);
      EXPECT_FALSE(prodotti.Stato("Cod").attivo);
    } else {
      EXPECT_EQ(SoloMessaggio(), caso.rifiuto);
    }
    prodotti.Abbandona();
  }
}

TEST_F(ArchivioProdottiTest, UnCodicePropostoEPresoAltroveLasciaIlPosto) {
  ambiente.ScriviImpostazione({}, "config", "CodificaProdottiAutomatica", "4");
  ASSERT_TRUE(prodotti.Inizia());
  ASSERT_EQ(prodotti.Record().Testo("Cod"), "0001");
  Prodotto("0001");
  ASSERT_TRUE(prodotti.Conferma());
  EXPECT_EQ(prodotti.UltimoConfermato(), "0002");
  EXPECT_THAT(Messaggi(), IsEmpty());
}

TEST_F(ArchivioProdottiTest, Rifiuti) {
  struct Caso {
    Campi campi;
    const char* messaggio;
    const char* campo;
  };
  const std::vector<Caso> casi = {
      {{{"Cod", "  "}}, "inserire un codice", "Cod"},
      {{{"Cod", std::string(60, 'X')}}, "il codice può avere al più 18 caratteri", "Cod"},
      {{{"CodIva", "X9"}}, "Codice IVA: il codice X9 non esiste", "CodIva"},
      {{{"CategoriaMag", "X9"}}, "Categoria: il codice X9 non esiste", "CategoriaMag"},
      {{{"Sc2", I("100.0001")}}, "lo sconto non può superare 100", "Sc2"},
      {{{"ScCampagna", I("120")}}, "lo sconto non può superare 100", "ScCampagna"},
      {{{"Scorta", I("-1")}}, "la scorta non può essere negativa", "Scorta"},
      {{{"QMinRiordino", I("-0.5")}}, "riordino non può essere negativa", "QMinRiordino"},
      {{{"ConversioneA", I("-2")}}, "la conversione non può essere negativa", "ConversioneA"},
      {{{"ggScad", -3}}, "giorni di scadenza non possono essere negativi", "ggScad"},
      {{{"ValidDal", prova::G(2, 3, 2024)}, {"ValidAl", prova::G(1, 3, 2024)}},
       "la campagna finisce il 01/03/2024, prima di cominciare",
       "ValidAl"},
      {{{"FileImmagine", "../segreti.png"}}, "il solo nome del file", "FileImmagine"},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.messaggio);
    ASSERT_TRUE(prodotti.Inizia());
    Scrivi({{"Cod", "X'1%"}});
    Scrivi(caso.campi);
    Rifiuto rifiuto;
    EXPECT_FALSE(prodotti.Conferma(&rifiuto));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    EXPECT_EQ(rifiuto.campo, caso.campo);
    EXPECT_TRUE(ambiente.ArchivioDi("tessarc").Recordset("CodiciRiga").Eof());
  }
  // What borders on them is taken: quotes, wild cards, whole discounts, fifty lines.
  std::string lunga = "riga";
  for (int i = 0; i < 50; ++i) lunga += "\nriga " + std::to_string(i);
  ASSERT_TRUE(prodotti.Inizia());
  Scrivi({{"Cod", "X'1%"},
          {"Descrizione", lunga},
          {"Sc", I("100")},
          {"Sc3", I("-5")},
          {"Prezzo", I("1.2345")},
          {"ValidDal", prova::G(2, 3, 2024)}});
  ASSERT_TRUE(prodotti.Conferma());
  EXPECT_EQ(Campo("X'1%", "Descrizione").Testo(), lunga);
  EXPECT_EQ(Campo("X'1%", "Prezzo").Importo(), I("1.2345"));
}

TEST_F(ArchivioProdottiTest, IlBarcodeDiUnAltroSiChiedeSoloSeUnivoco) {
  constexpr const char* kDomanda = "codice a barre già esistente su cod X1\nproseguo ugualmente";
  Prodotto("X1", "8001");
  ASSERT_TRUE(prodotti.Inizia());
  Scrivi({{"Cod", "X2"}, {"Barcode", "8001"}});
  prodotti.Lasciato("Barcode");
  EXPECT_THAT(prodotti.Contesto().foco, IsEmpty()) << "not asked for";

  ambiente.ScriviImpostazione({}, "config", "BarcodeUnivoco", "1");
  dialoghi.Rispondera(kDomanda, Risposta::No);
  prodotti.Lasciato("Barcode");
  EXPECT_EQ(prodotti.Contesto().foco, "Barcode");
  // One that nobody left the field with is asked about at the confirmation.
  dialoghi.Rispondera(kDomanda, Risposta::No);
  Rifiuto rifiuto;
  EXPECT_FALSE(prodotti.Conferma(&rifiuto));
  EXPECT_EQ(rifiuto.campo, "Barcode");
  dialoghi.Rispondera(kDomanda, Risposta::Si);
  prodotti.Lasciato("Barcode");
  ASSERT_TRUE(prodotti.Conferma()) << "accepted once";
  // Its own barcode is no other's.
  ASSERT_TRUE(prodotti.Apri("X2"));
  Scrivi({{"um", "pz"}});
  EXPECT_TRUE(prodotti.Conferma());
  EXPECT_THAT(Messaggi(), IsEmpty());
}

TEST_F(ArchivioProdottiTest, RifiutiDelleRigheDeiFornitori) {
  struct Caso {
    Campi campi;
    const char* messaggio;
    const char* campo;
  };
  const std::vector<Caso> casi = {
      {{{"Prezzox", I("3")}}, "manca fornitore", "Fornitore"},
      {{{"Fornitore", "0001"}}, "fornitore già esistente", "Fornitore"},
      {{{"Fornitore", "X999"}}, "Fornitore: il codice X999 non esiste", "Fornitore"},
      {{{"Fornitore", "0002"}, {"xSc2", I("101")}}, "lo sconto non può superare 100", "xSc2"},
  };
  ASSERT_TRUE(prodotti.Inizia());
  ASSERT_TRUE(Fornitore({{"Fornitore", "0001"}}));
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.messaggio);
    std::string campo;
    EXPECT_FALSE(Fornitore(caso.campi, &campo));
    EXPECT_EQ(campo, caso.campo);
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.messaggio));
    parte->fornitori.Annulla();
  }
  // A stored row keeps its supplier without being its own double, and can't take another's.
  ASSERT_TRUE(Fornitore({{"Fornitore", "0002"}}));
  ASSERT_TRUE(parte->fornitori.Apri(2));
  EXPECT_TRUE(parte->fornitori.Conferma(ambiente, nullptr));
  ASSERT_TRUE(parte->fornitori.Apri(2));
  parte->fornitori.Riga().Scrivi("Fornitore", "0001");
  EXPECT_FALSE(parte->fornitori.Conferma(ambiente, nullptr));
  EXPECT_EQ(SoloMessaggio(), "fornitore già esistente");
  parte->fornitori.Annulla();
  ASSERT_TRUE(parte->fornitori.Apri(1));
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::No);
  EXPECT_FALSE(parte->fornitori.Elimina(dialoghi));
  dialoghi.Rispondera("Conferma eliminazione RIGA ?", Risposta::Si);
  EXPECT_TRUE(parte->fornitori.Elimina(dialoghi));
  EXPECT_EQ(parte->fornitori.Righe().size(), 1U);
}

TEST_F(ArchivioProdottiTest, ICostiSiTrasferiscono) {
  Prodotto("X1");
  Metti(Tessarc(), "Db_r", "Cod", "X1", "Posi", 1, "CodiceRiga", "X2", "Quantita", I("2"));
  ASSERT_TRUE(prodotti.Apri("X1"));
  EXPECT_TRUE(prodotti.Stato("Command1").visibile);
  EXPECT_EQ(prodotti.Record().Testo(kTipoCosto), kUltimo);
  // 200, less 10% is 180, less 5% is 171, less 0 and a markup of 100%.
  ASSERT_TRUE(parte->fornitori.Nuova());
  for (const auto& [campo, valore] :
       Campi{{"Prezzox", I("200")}, {"xSc1", I("10")}, {"xSc2", I("5")}, {"xSc3", I("-100")}}) {
    parte->fornitori.Riga().Scrivi(campo, valore);
  }
  AggiornaCostoDigitato(prodotti.Contesto(), *parte);
  EXPECT_EQ(prodotti.Record().Leggi("CostoDigitato").Importo(), I("342"));
  EXPECT_TRUE(AggiornaCostoDaDistinta(prodotti.Contesto(), *parte));
  EXPECT_EQ(prodotti.Record().Leggi("CostoDigitato").Importo(), I("4"));
  Scrivi({{kTipoCosto, kMedio}});
  EXPECT_TRUE(AggiornaCostoDaDistinta(prodotti.Contesto(), *parte));
  EXPECT_EQ(prodotti.Record().Leggi("CostoDigitato").Importo(), I("3.5"));
  prodotti.Abbandona();

  Prodotto("X3");
  ASSERT_TRUE(prodotti.Apri("X3"));
  EXPECT_FALSE(prodotti.Stato("Command1").visibile) << "it has no bill";
  prodotti.Abbandona();
  ASSERT_TRUE(prodotti.Inizia());
  EXPECT_FALSE(AggiornaCostoDaDistinta(prodotti.Contesto(), *parte));
  EXPECT_EQ(SoloMessaggio(), "bisogna prima confermare l'inserimento del prodotto");
}

TEST_F(ArchivioProdottiTest, IlPrezzo5SegueCostoERicarico) {
  struct Caso {
    const char *ricarico, *digitato, *prezzo;
  };
  Prodotto("X1");
  ASSERT_TRUE(prodotti.Apri("X1"));
  for (const Caso& caso : {Caso{"0", "10", "0,000"}, Caso{"12.345", "0", "8,988"},
                           Caso{"50", "10.001", "15,002"}, Caso{"-10", "10", "9,000"}}) {
    SCOPED_TRACE(caso.prezzo);
    Scrivi({{"Ricarico", I(caso.ricarico)}, {"CostoDigitato", I(caso.digitato)}});
    prodotti.Lasciato("Ricarico");
    EXPECT_EQ(prodotti.Record().Testo("Prezzo5"), caso.prezzo);
  }
}

TEST_F(ArchivioProdottiTest, LaDataSegueIPrezziCheCambiano) {
  const Data oggi = prova::G(15, 3, 2024);
  const auto confermato = [&](const Campi& campi) {
    Scrivi(campi);
    EXPECT_TRUE(prodotti.Conferma());
    const Data data = Campo("X1", "DtAggPrezzi").Data();
    EXPECT_TRUE(prodotti.Apri("X1"));
    return data;
  };
  ASSERT_TRUE(prodotti.Inizia());
  EXPECT_TRUE(confermato({{"Cod", "X1"}, {"CostoDigitato", I("3")}}).Nulla()) << "no price yet";
  EXPECT_EQ(confermato({{"Prezzo2", I("3")}}), oggi);
  Tessarc().Esegui("update CodiciRiga set DtAggPrezzi=#01/02/2023#");
  ASSERT_TRUE(prodotti.Apri("X1"));
  EXPECT_EQ(confermato({{"um", "kg"}}), prova::G(2, 1, 2023));
  EXPECT_EQ(confermato({{"Prezzo", I("1")}, {"DtAggPrezzi", prova::G(1, 3, 2024)}}),
            prova::G(1, 3, 2024))
      << "typed by hand";
}

TEST_F(ArchivioProdottiTest, LoSdoppiamentoPortaRigheEDiceDaDoveViene) {
  ASSERT_TRUE(prodotti.Inizia());
  Scrivi({{"Cod", "X1"}, {"Descrizione", "Vite 4x40\nzincata"}, {"um", "pz"}});
  ASSERT_TRUE(Fornitore({{"Fornitore", "0001"}, {"Prezzox", I("12.5")}}));
  ASSERT_TRUE(prodotti.Conferma());
  ASSERT_TRUE(prodotti.Apri("X1"));
  ASSERT_TRUE(prodotti.Duplica());
  EXPECT_EQ(prodotti.Record().Testo("Cod"), "");
  EXPECT_EQ(prodotti.Record().Testo("Descrizione"),
            "Vite 4x40\nnuovo da sdoppiamento prodotto X1 Vite 4x40");
  Scrivi({{"Cod", "X2"}});
  ASSERT_TRUE(prodotti.Conferma());
  EXPECT_EQ(Campo("X2", "um").Testo(), "pz");
  EXPECT_THAT(Fornitori(), ElementsAre("X1 1 0001 12.5", "X2 1 0001 12.5"));
}

TEST_F(ArchivioProdottiTest, IFornitoriCambiatiAltroveNonSiPerdono) {
  Prodotto("X1");
  Metti(Tessarc(), "prodottiFor_r", "Cod", "X1", "Posi", 1, "Fornitore", "0001", "Prezzo", I("1"));
  // Untouched rows are left to whoever changes them meanwhile, also under another code.
  ASSERT_TRUE(prodotti.Apri("X1"));
  Tessarc().Esegui("update prodottiFor_r set Prezzo=2");
  Scrivi({{"Cod", "X2"}});
  ASSERT_TRUE(prodotti.Conferma());
  EXPECT_THAT(Fornitori(), ElementsAre("X2 1 0001 2"));
  // Touched ones are asked about.
  ASSERT_TRUE(prodotti.Apri("X2"));
  ASSERT_TRUE(Fornitore({{"Fornitore", "0002"}}));
  Tessarc().Esegui("update prodottiFor_r set Prezzo=3");
  dialoghi.Rispondera("sono stati cambiati altrove", Risposta::No);
  EXPECT_FALSE(prodotti.Conferma());
  EXPECT_THAT(Fornitori(), ElementsAre("X2 1 0001 3"));
  dialoghi.Rispondera("sono stati cambiati altrove", Risposta::Si);
  EXPECT_TRUE(prodotti.Conferma());
  EXPECT_THAT(Fornitori(), ElementsAre("X2 1 0001 2", "X2 2 0002 0"));
}

TEST_F(ArchivioProdottiTest, QuelCheFallisceNonLasciaNulla) {
  const auto foglio = cartella.Percorso() / "scheda.txt";
  std::ofstream(foglio) << "scheda tecnica";
  Prodotto("X1");
  Metti(Tessarc(), "prodottiFor_r", "Cod", "X1", "Posi", 1, "Fornitore", "0001");
  ASSERT_TRUE(prodotti.Inizia());
  Scrivi({{"Cod", "X5"}, {"Prezzo", I("3")}});
  ASSERT_TRUE(Fornitore({{"Fornitore", "0002"}}));
  ASSERT_TRUE(parte->allegati.Aggiungi(foglio));
  const auto fotografia = [this] { return Contenuto(); };
  EXPECT_GT(prova::FallisceOgniIstruzione(ambiente.Basi(), Guasto::Errore, fotografia,
                                          [this] { return prodotti.Conferma(); }),
            4);
  ASSERT_TRUE(prodotti.Apri("X5"));
  ASSERT_EQ(parte->allegati.Elenco().size(), 1U);
  const auto copia = parte->allegati.Elenco().front().file;
  EXPECT_TRUE(std::filesystem::exists(copia));

  // Deleting an unused product takes suppliers and attachments along.
  EXPECT_GT(prova::FallisceOgniIstruzione(ambiente.Basi(), Guasto::Errore, fotografia,
                                          [this] {
                                            dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?",
                                                                Risposta::Si);
                                            return prodotti.Elimina();
                                          }),
            3);
  EXPECT_FALSE(std::filesystem::exists(copia));
  EXPECT_THAT(Fornitori(), ElementsAre("X1 1 0001 0"));
  EXPECT_TRUE(Tessarc().Recordset("Allegati").Eof());
}

TEST_F(ArchivioProdottiTest, UnProdottoInUsoSiEliminaDoveSiVedonoGliUsi) {
  Prodotto("X1");
  Metti(Tessarc(), "OrdiniCli_r", "TipoDoc", "O", "NumDoc", 1, "Posi", 1, "CodiceRiga", "x1");
  ASSERT_TRUE(prodotti.Apri("X1"));
  Scrivi({{"Cod", "X2"}});
  EXPECT_FALSE(prodotti.Conferma()) << "its code is fixed";
  EXPECT_THAT(SoloMessaggio(), HasSubstr("ordini che lo usano"));
  Rinvio dove;
  prodotti.Contesto().apri = [&](const Rinvio& rinvio) { dove = rinvio; };
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  EXPECT_FALSE(prodotti.Elimina());
  EXPECT_EQ(dove, (Rinvio{.funzione = "EliminazioneProdotto", .codice = "X1"}));
  EXPECT_FALSE(Campo("X1", "Cod").Nullo());
}

TEST_F(ArchivioProdottiTest, SiAssocianoSoloFileDellaCartella) {
  namespace fs = std::filesystem;
  const fs::path immagini = cartella.Percorso() / "figure";
  fs::create_directories(immagini / "altre");
  for (const char* nome : {"b.png", "A.png"}) std::ofstream(immagini / nome) << "figura";
  std::ofstream(cartella.Percorso() / "segreto.png") << "altro";
  EXPECT_THAT(FileDi(immagini), ElementsAre("A.png", "b.png")) << "no folders";
  EXPECT_THAT(FileDi(immagini / "nessuna"), IsEmpty());
  EXPECT_EQ(FileNella(immagini, "b.png"), immagini / "b.png");
  for (const char* nome : {"", ".", "..", "altre", "../segreto.png", "..\\segreto.png", "c.png"}) {
    EXPECT_TRUE(FileNella(immagini, nome).empty()) << nome;
  }
  EXPECT_TRUE(NomeFileAmmesso(dialoghi, std::string(100, 'x')));
  EXPECT_FALSE(NomeFileAmmesso(dialoghi, std::string(101, 'x')));
  EXPECT_EQ(SoloMessaggio(), "nome file troppo lungo");
}

TEST_F(ArchivioProdottiTest, UnoScannerTrovaIlProdotto) {
  Prodotto("X1", "8001");
  Prodotto("X2", "8001");
  Prodotto("8002", "9");
  Prodotto("X3", "8002");
  Tessarc().Esegui("update CodiciRiga set FuoriUso=True where Cod='X1'");
  struct Caso {
    const char *letto, *codice;
  };
  for (const Caso& caso : {Caso{"x2", "X2"}, Caso{"x1", "X1"}, Caso{" 8001 ", "X2"},
                           Caso{"8002", "8002"}, Caso{"7", ""}, Caso{"", ""}, Caso{"80*", ""}}) {
    EXPECT_EQ(TrovaProdotto(ambiente, caso.letto).value_or(""), caso.codice) << caso.letto;
  }
  Tessarc().Esegui("update CodiciRiga set FuoriUso=True where Cod='X2'");
  EXPECT_EQ(TrovaProdotto(ambiente, "8001"), "X1") << "none is in use: the first";
}

}  // namespace
}  // namespace fenalto::warehouse
