// A batch of receipts from the choice to file, due dates, bank and books: what it writes, in which
// order it is refused, that it is whole or not at all.
#include <fstream>
#include <functional>
#include <random>
#include <set>

#include "core/reports/DiscoPieno.h"
#include "core/values/Testo.h"
#include "duedates/payments/ScadenzeDiProva.h"
#include "duedates/riba/FileDistinta.h"
#include "duedates/riba/Riba.h"
#include "duedates/riba/VerificaFileRiba.h"
#include "faults/Uccisione.h"
#include "ledger/GuastiDiProva.h"
#include "ledger/Stampati.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

/// Lets something happen while the batch is being printed.
class FabbricaConEvento : public FabbricaDiProva {
 public:
  std::unique_ptr<reports::Uscita> Crea(const SceltaUscita& scelta,
                                        const std::string& rapporto) override {
    if (auto evento = std::exchange(alPrimo, {})) evento();
    return FabbricaDiProva::Crea(scelta, rapporto);
  }
  std::function<void()> alPrimo;
};

class RibaTest : public ScadenzeDiProva {
 protected:
  RibaTest() {
    fs::create_directory(Rib());
    for (const auto& [chiave, valore] :
         std::vector<Coppia>{{"ragsoc1 ", "Officine Bianchi"}, {"piva", "03456789012"}}) {
      ambiente.ScriviImpostazione({}, "config", chiave, valore.Testo());
    }
    Metti(Scadenzario(), "Banche", "Cod", "X1", "Nome", "Banca di Prova", "Abi", "03069", "CAB",
          "09606", "ContoCorrente", "100000012345", "CodSia", "A1B2C", "NUltDistinta", 11);
    Tessarc().Esegui(
        "update Clienti set indirizzo='Via Po 7', cap='20122', localita='Milano', prov='MI', "
        "piva='01234567897', ABI='05034', CAB='11700', banca='Banco', agenzia='Milano 3', "
        "CIN='K', CININT='IT44', ContoBanca='000000000123'");
  }

  [[nodiscard]] fs::path Rib() const { return cartella.Percorso() / "rib"; }
  std::int64_t Ricevuta(const char* conto, const char* importo, int nFat,
                        const char* descrizione = "ft. di prova") {
    const std::int64_t numero = Nuova("C", conto, importo, nFat);
    Scadenzario().Esegui(
        "update Scadenze set Tipo='03', Descrizione=" + sql::LetteraleSql(Valore(descrizione)) +
        " where " + sql::Criterio("Numero", "=", numero));
    return numero;
  }
  duedates::ImpostazioniRiba Impostazioni(bool registrazione = true) {
    return {Rib().string(), "002", "100.010", registrazione};
  }
  /// Bank, settings, and all receipts chosen.
  void Prepara(duedates::Riba& riba, bool registrazione = true) {
    EXPECT_TRUE(riba.ImpostaBanca("X1"));
    riba.Imposta(Impostazioni(registrazione));
    std::vector<std::int64_t> numeri;
    for (const duedates::RigaRiba& riga : riba.Righe()) numeri.push_back(riga.numero);
    riba.Scegli(numeri);
  }
  void Stampera() { dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}}); }
  void Definitiva(Risposta risposta = Risposta::Si) {
    Stampera();
    dialoghi.Rispondera(
        "DISTINTA DEFINITIVA ?\nle scadenze selezionate verranno passate in stato=30", risposta);
  }
  bool Conferma(duedates::Riba& riba) {
    Definitiva();
    return riba.Conferma(uscite);
  }

  /// "30 X1 12 15/03/2024": what the batch writes on a due date.
  std::string Presentata(std::int64_t numero) {
    const Rs r = Scadenzario().Recordset("select * from Scadenze where " +
                                         sql::Criterio("Numero", "=", numero));
    return r.Fields("Stato").Testo() + " " + r.Fields("BancaPresentaz").Testo() + " " +
           r.Fields("Ndistinta").Testo() + " " + r.Fields("DtPres").Data().Testo();
  }
  std::int64_t UltimaDistinta() {
    return Scadenzario().Singolo("select NUltDistinta from Banche where Cod='X1'").Intero();
  }
  /// The file as the checking reader sees it.
  duedates::LetturaRiba Letto(const std::string& nome,
                              duedates::RibaSegno segno = duedates::RibaSegno::DellImporto) {
    const auto letto = duedates::VerificaFileRiba(Rib() / nome, segno);
    EXPECT_TRUE(letto.Riuscito()) << nome;
    if (!letto.Riuscito()) return {};
    EXPECT_TRUE(letto.Valore().Buona()) << nome;
    return letto.Valore();
  }
  std::set<std::string> FileScritti() const {
    std::set<std::string> nomi;
    for (const auto& voce : fs::directory_iterator(Rib()))
      nomi.insert(voce.path().filename().string());
    return nomi;
  }
  /// Databases and folder.
  std::string Mondo() const {
    std::string tutto = Tutto();
    for (const std::string& nome : FileScritti()) {
      tutto +=
          nome + (fs::is_regular_file(Rib() / nome) ? duedates::LeggiByteRiba(Rib() / nome).Valore()
                                                    : std::string());
    }
    return tutto;
  }

  FabbricaConEvento uscite;
};

TEST_F(RibaTest, FormaGraficaPerLaBanca) {
  Scadenzario().Esegui("update Banche set paese='IT', CinInt='60', Cin='X' where Cod='X1'");
  Ricevuta("0001", "1234.56", 12, "ft.12 del 31/01/24");
  Ricevuta("0002", "870.125", 15);
  for (const bool tracciato : {false, true}) {
    duedates::Riba riba(ambiente);
    Prepara(riba);
    riba.ImpostaForma({true, 0, tracciato});
    dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Pdf, {}});
    dialoghi.Rispondera("DISTINTA DEFINITIVA ?", tracciato ? Risposta::Si : Risposta::No);
    EXPECT_EQ(riba.Conferma(uscite), tracciato);
    const auto scritte = [&](std::size_t pagina) {
      std::string testo;
      for (const auto& elemento : uscite.pagine[pagina].elementi) {
        if (const auto* scritta = std::get_if<reports::Scritta>(&elemento)) {
          testo += scritta->testo + "|";
        }
      }
      return testo;
    };
    const std::string banca = scritte(0);
    for (const char* parte :
         {"|DISTINTA ORDINI DI INCASSO Ri.Ba. n. 12 del 15/03/2024|", "|Banca di Prova|",
          "|IBAN IT60 X030 6909 6061 0000 0012 345|", "|2|2.104,685|", "|ricevute n. 2|2.104,685|",
          "|Milano MI|01234567897|ft.12 del 31/01/24|05034 11700 Banco|"}) {
      EXPECT_THAT(banca, HasSubstr(parte)) << banca;
    }
    for (const char* mai : {"rib/", " IB", "SEGNALAZIONI", "MEMORIZZATE"}) {
      EXPECT_THAT(banca, Not(HasSubstr(mai)));
    }
    ASSERT_EQ(uscite.pagine.size(), tracciato ? 3U : 2U) << scritte(uscite.pagine.size() - 1);
    if (!tracciato) continue;
    EXPECT_THAT(scritte(1),
                HasSubstr("|CREATO ARTICOLO CONTABILE 1|MEMORIZZATE RIBA SU FILE 12.rib|"));
    EXPECT_THAT(scritte(2), HasSubstr("|TRACCIATO DEL FILE 12.rib|"));
    EXPECT_THAT(scritte(2), HasSubstr("| IBA1B2C03069"));
  }
}

TEST_F(RibaTest, DefinitivaScriveFileScadenzeBancaERegistrazione) {
  const auto una = Ricevuta("0001", "1234.56", 12);
  const auto altra = Ricevuta("0002", "870", 7, "ft. 7 del 31/01/2024 e altre cose da pagare");
  Nuova("C", "0001", "10", 1);                   // not a receipt
  const auto venti = Ricevuta("0001", "11", 2);  // on its way already
  Scadenzario().Esegui("update Scadenze set Stato='20' where " +
                       sql::Criterio("Numero", "=", venti));

  duedates::Riba riba(ambiente);
  ASSERT_EQ(riba.Righe().size(), 2U);  // in order of invoice
  EXPECT_EQ(riba.Righe()[0].numero, altra);
  EXPECT_EQ(riba.Righe()[0].descrizione, "ft. 7 del 31/01/2024 e altre c");
  Prepara(riba);
  EXPECT_EQ(riba.Totale(), I("2104.56"));
  EXPECT_EQ(riba.Descrizione(), "DISTINTA 12 DEL 15/03/2024");
  EXPECT_EQ(riba.NomeFile(), (Rib() / "12.rib").string());
  ASSERT_TRUE(Conferma(riba));
  EXPECT_EQ(SoloMessaggio(), "creato articolo 1");
  EXPECT_THAT(riba.Scritto(), HasSubstr("distinta n. 12: 2 RiBa memorizzate su file"));

  EXPECT_EQ(Presentata(una), "30 X1 12 15/03/2024");
  EXPECT_EQ(Presentata(altra), "30 X1 12 15/03/2024");
  EXPECT_EQ(UltimaDistinta(), 12);
  EXPECT_EQ(TestaDi(1), "P:100.010 C:DIVERSI 23 15/03/2024");
  EXPECT_THAT(
      RigheDi(1),
      ElementsAre("1 002 C:0002 0/870 P:100.010 «ft.7 31/01/24 sc.31/03/24 ft. 7 del 31/01/2024 e "
                  "altre cose da pagare»",
                  "2 002 C:0001 0/1234.56 P:100.010 «ft.12 31/01/24 sc.31/03/24 ft. di prova»",
                  "3 002 P:100.010 2104.56/0 C:DIVERSI «DISTINTA 12 DEL 15/03/2024»"));
  const duedates::LetturaRiba letto = Letto("12.rib");
  EXPECT_THAT(letto.segnalazioni, IsEmpty());
  ASSERT_EQ(letto.ricevute.size(), 2U);
  EXPECT_EQ(letto.ricevute[1].importo, I("1234.56"));
  EXPECT_EQ(letto.righe, 16U);

  for (const char* riga :
       {"DISTINTA ORDINI DI INCASSO RiBa   n.     12 del 15/03/24", "Banca : X1   Banca di Prova",
        "| 0002     Clienti 0002 dell'Oro", "iban IT44K0503411700000000000123",
        "importo totale    |        |     2.104,560|    |", "CREATO ARTICOLO CONTABILE       1",
        " MEMORIZZATE RIBA SU FILE ", "stampa file ", "*....|....|",
        "* IBA1B2C03069150324Officine"}) {
    EXPECT_THAT(uscite.Testo(), HasSubstr(riga));
  }
  // The selection is empty, the next batch ready.
  EXPECT_THAT(riba.Righe(), IsEmpty());
  EXPECT_EQ(riba.QuanteScelte(), 0U);
  EXPECT_EQ(riba.Numero(), 13);

  // Set back by hand a due date goes into another batch; without registration nothing is told.
  Scadenzario().Esegui("update Scadenze set Stato='01' where " + sql::Criterio("Numero", "=", una));
  riba.Rileggi();
  Prepara(riba, false);
  ASSERT_TRUE(Conferma(riba));
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_EQ(Presentata(una), "30 X1 13 15/03/2024");
  EXPECT_EQ(Letto("13.rib").righe, 9U);
  EXPECT_EQ(TestaDi(2), "manca");
  EXPECT_THAT(uscite.Testo(), Not(HasSubstr("CREATO ARTICOLO")));
}

TEST_F(RibaTest, NomeDelFileDigitato) {
  duedates::Riba riba(ambiente);
  riba.Imposta(Impostazioni());
  ASSERT_TRUE(riba.ImpostaBanca("X1"));
  const auto nella = [this](const std::string& nome) { return (Rib() / nome).string(); };
  const std::pair<std::string, std::string> casi[] = {{"marzo.rib", nella("marzo.rib")},
                                                      {" MARZO.RIB ", nella("MARZO.RIB")},
                                                      {"marzo", nella("marzo.rib")},
                                                      {"marzo.txt", nella("marzo.txt")},
                                                      {"altra/marzo.rib", "altra/marzo.rib"},
                                                      {nella("marzo.rib"), nella("marzo.rib")},
                                                      {"", nella("12.rib")}};
  for (const auto& [digitato, file] : casi) {
    riba.ImpostaNomeFile(digitato);
    EXPECT_EQ(riba.NomeFile(), file) << digitato;
  }
}

TEST_F(RibaTest, LaCentesimaNonEntra) {
  for (int i = 1; i <= 100; ++i) Ricevuta("0001", "1.01", i);
  duedates::Riba riba(ambiente);
  Prepara(riba);
  const std::string piena = "troppe scadenze (max 99): la distinta sarà parziale";
  EXPECT_EQ(SoloMessaggio(), piena);
  const std::int64_t ultima = riba.Righe().back().numero;
  EXPECT_FALSE(riba.Cambia(ultima));
  EXPECT_EQ(SoloMessaggio(), piena);
  EXPECT_EQ(riba.QuanteScelte(), 99U);
  EXPECT_EQ(riba.Totale(), I("99.99"));
  // One out, the last in.
  EXPECT_TRUE(riba.Cambia(riba.Righe().front().numero));
  EXPECT_TRUE(riba.Cambia(ultima));
  EXPECT_THAT(Messaggi(), IsEmpty());
  ASSERT_TRUE(Conferma(riba));
  Messaggi();
  const duedates::LetturaRiba letto = Letto("12.rib");
  EXPECT_EQ(letto.righe, 99U * 7 + 2);
  EXPECT_EQ(letto.totale, I("99.99"));
  EXPECT_EQ(RigheDi(1).size(), 100U);
  ASSERT_EQ(riba.Righe().size(), 1U);
}

TEST_F(RibaTest, RifiutiNellOrdine) {
  Ricevuta("0001", "100", 5);
  duedates::Riba riba(ambiente);
  const std::string prima = Mondo();
  const auto rifiuta = [&](const std::string& messaggio) {
    EXPECT_FALSE(riba.Conferma(uscite));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(messaggio));
    EXPECT_EQ(Mondo(), prima);
  };
  duedates::ImpostazioniRiba vuote = Impostazioni();
  vuote.directory = "";
  vuote.causale = "";
  riba.Imposta(vuote);
  rifiuta("inserire banca");
  EXPECT_FALSE(riba.ImpostaBanca("X9"));
  rifiuta("inserire banca");
  ASSERT_TRUE(riba.ImpostaBanca("X1"));
  rifiuta("cartella non valida");
  std::ofstream(cartella.Percorso() / "rib.txt") << "un file";
  for (const char* cartellaStrana : {"manca", "rib.txt"}) {
    vuote.directory = (cartella.Percorso() / cartellaStrana).string();
    riba.Imposta(vuote);
    rifiuta("cartella non valida");
  }
  vuote.directory = Rib().string();
  riba.Imposta(vuote);
  rifiuta("NON E'STATA SELEZIONATA ALCUNA RIBA\nnella griglia 'Selezione Riba'");
  ASSERT_TRUE(riba.Cambia(riba.Righe()[0].numero));
  riba.ImpostaData({});
  EXPECT_FALSE(riba.Conferma(uscite));
  EXPECT_EQ(SoloMessaggio(), "manca la data della distinta");
  EXPECT_EQ(riba.CampoRifiutato(), "DataDistinta");
  riba.ImpostaData(G(15, 3, 2024));

  dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(riba.Conferma(uscite));
  Definitiva(Risposta::No);
  EXPECT_FALSE(riba.Conferma(uscite));
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_EQ(Mondo(), prima);

  // The data of the registration only after the question, and only when there is to be one.
  struct Caso {
    const char *causale, *contropartita, *messaggio;
  };
  for (const Caso& caso : {Caso{"", "100.010", "Mancano dati per registrazione contabile"},
                           Caso{"002", "", "Mancano dati per registrazione contabile"}}) {
    riba.Imposta({Rib().string(), caso.causale, caso.contropartita, true});
    Definitiva();
    rifiuta(caso.messaggio);
  }
  // A code that doesn't exist is told before anything is printed or asked.
  EXPECT_FALSE(uscite.pagine.empty());
  uscite.pagine.clear();
  for (const auto& [causale, contropartita, campo, codice] :
       {std::tuple{"X77", "100.010", "Causale", "X77"},
        {"002", "999.999", "Contropartita", "999.999"}}) {
    riba.Imposta({Rib().string(), causale, contropartita, true});
    rifiuta(std::string(campo) + ": il codice " + codice + " non esiste");
    EXPECT_EQ(riba.CampoRifiutato(), campo);
    EXPECT_TRUE(uscite.pagine.empty());
  }
  riba.Imposta({Rib().string(), "X77", "", false});
  EXPECT_TRUE(Conferma(riba));
  EXPECT_EQ(UltimaDistinta(), 12);
}

// What is missing or too long is told after the batch, to the letter, and stops nothing.
TEST_F(RibaTest, DatiMancantiETroppoLunghi) {
  const std::string lunga = "Società Cooperativa Agricola dei Produttori di Olive del Sud.";
  ASSERT_EQ(LunghezzaTesto(lunga), 61U);
  ambiente.ScriviImpostazione({}, "config", "ragsoc1 ", "Officine Meccaniche Bianchi S.");
  Scadenzario().Esegui("update Banche set CodSia='', Abi='', CAB='' where Cod='X1'");
  Tessarc().Esegui("update Clienti set ragsoc1=" + sql::LetteraleSql(Valore(lunga)) +
                   ", piva='', indirizzo='Calle & Caffè 5 €' where Cod='0001'");
  Ricevuta("0001", "100", 5);
  Ricevuta("0002", "200", 6);
  duedates::Riba riba(ambiente);
  Prepara(riba, false);
  ASSERT_TRUE(Conferma(riba));
  const std::string detto = SoloMessaggio();
  for (const char* nota :
       {"dato : CODICE SIA\n mancante ", "dato : ABI BANCA PRESENTAZIONE RICEVUTE\n mancante ",
        "dato : CAB BANCA PRESENTAZIONE\n mancante ",
        "dato : RAGIONE SOCIALE CREDITORE\nOfficine Meccaniche Bianchi S.\n più lungo di20 verrà "
        "troncato",
        "dato : RAG.SOC.CREDITORE\nOfficine Meccaniche Bianchi S.\n più lungo di24 verrà troncato",
        "del Sud.\n più lungo di30 verrà troncato", "dato : PARTITA IVA DEBITORE\n mancante ",
        "scritto «Calle & Caffe 5 EUR»"}) {
    EXPECT_THAT(detto, HasSubstr(nota));
    // On paper before the question, line by line.
    const std::string ultima(nota);
    EXPECT_THAT(uscite.Testo(), HasSubstr(ultima.substr(0, ultima.find('\n'))));
  }
  EXPECT_THAT(UltimaDomanda(), HasSubstr("in fondo alla stampa della distinta"));
  const duedates::LetturaRiba letto = Letto("12.rib");
  EXPECT_EQ(letto.ricevute[0].debitore, "Societa Cooperativa Agricola d");
}

TEST_F(RibaTest, ImportiNegativiEZero) {
  Ricevuta("0001", "100", 5);
  const auto nota = Ricevuta("0002", "-30.5", 6);
  Ricevuta("0003", "0", 7);
  duedates::Riba riba(ambiente);
  Prepara(riba);

  // With the fixed sign a credit note would be cashed: refused before anything is printed.
  ambiente.ScriviImpostazione({}, "config", "RibaSegno", "-");
  EXPECT_FALSE(riba.Conferma(uscite));
  EXPECT_THAT(SoloMessaggio(), AllOf(HasSubstr("non può essere scritto"), HasSubstr("RibaSegno")));
  EXPECT_THAT(riba.TestoSegno(), HasSubstr("«-» fisso"));
  ASSERT_TRUE(riba.Cambia(nota));
  ASSERT_TRUE(Conferma(riba));
  Messaggi();
  EXPECT_EQ(Letto("12.rib", duedates::RibaSegno::SempreMeno).totale, I("100"));
  ambiente.ScriviImpostazione({}, "config", "RibaSegno", "");

  Ricevuta("0001", "10", 8);
  riba.Rileggi();
  Prepara(riba);
  ASSERT_TRUE(Conferma(riba));
  EXPECT_THAT(UltimaDomanda(), HasSubstr("importo negativo -30,50: la banca può respingere"));
  Messaggi();
  EXPECT_THAT(RigheDi(2),
              ElementsAre("1 002 C:0002 30.5/0 P:100.010 «ft.6 31/01/24 sc.31/03/24 ft. di prova»",
                          "2 002 C:0001 0/10 P:100.010 «ft.8 31/01/24 sc.31/03/24 ft. di prova»",
                          "3 002 P:100.010 0/20.5 C:DIVERSI «DISTINTA 13 DEL 15/03/2024»"));
  const duedates::LetturaRiba letto = Letto("13.rib");
  EXPECT_EQ(letto.ricevute[0].importo, I("-30.5"));
}

TEST_F(RibaTest, SenzaFileNessunaDistinta) {
  Ricevuta("0001", "100", 5);
  duedates::Riba riba(ambiente);
  Prepara(riba);
  fs::create_directory(Rib() / "cartella.rib");
  riba.ImpostaNomeFile("cartella.rib");
  const std::string prima = Mondo();
  EXPECT_FALSE(Conferma(riba));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("Non è stato scritto nulla."));
  EXPECT_EQ(Mondo(), prima);

  // The folder goes while the user looks at the print.
  riba.ImpostaNomeFile("");
  const std::string libri = Tutto();
  uscite.alPrimo = [this] { fs::rename(Rib(), Rib().string() + ".via"); };
  EXPECT_FALSE(Conferma(riba));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("Non è stato scritto nulla."));
  EXPECT_EQ(Tutto(), libri);
  fs::rename(Rib().string() + ".via", Rib());
  EXPECT_EQ(riba.QuanteScelte(), 1U);
  EXPECT_TRUE(Conferma(riba));
  Messaggi();
}

TEST_F(RibaTest, IlFileCheCEraNonSiPerde) {
  Ricevuta("0001", "100", 5);
  Ricevuta("0001", "200", 6);
  std::ofstream(Rib() / "12.rib") << "di un'altra banca";
  duedates::Riba riba(ambiente);
  Prepara(riba, false);
  EXPECT_EQ(riba.FileConservato(), (Rib() / "12.rib.prima").string());
  Scadenzario().Esegui("update Scadenze set ImportoE=7 where NFat=6");
  const std::string prima = Mondo();
  EXPECT_FALSE(Conferma(riba));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("era 200,00, ora 7,00"));
  EXPECT_EQ(Mondo(), prima);
  ASSERT_TRUE(Conferma(riba));
  EXPECT_THAT(FileScritti(), ElementsAre("12.rib", "12.rib.prima"));
  EXPECT_EQ(duedates::LeggiByteRiba(Rib() / "12.rib.prima").Valore(), "di un'altra banca");
  EXPECT_EQ(Letto("12.rib").totale, I("107"));
  EXPECT_THAT(uscite.Testo(), HasSubstr("il file che c'era prima è ora"));
}

TEST_F(RibaTest, DiscoPieno) {
  const duedates::FileRiba file = [this] {
    Ricevuta("0001", "100", 5);
    duedates::Riba riba(ambiente);
    Prepara(riba, false);
    EXPECT_TRUE(Conferma(riba));
    return duedates::FileRiba{
        duedates::LeggiByteRiba(Rib() / "12.rib").Valore(), {}, duedates::RibaSegno::DellImporto};
  }();
  std::ofstream(Rib() / "14.rib") << "prima";
  {
    const reports::DiscoPieno pieno(500);
    for (const char* nome : {"13.rib", "14.rib"}) {
      duedates::FileDistinta distinta(Rib() / nome);
      EXPECT_FALSE(distinta.Scrivi(file).Riuscito()) << nome;
    }
  }
  EXPECT_THAT(FileScritti(), ElementsAre("12.rib", "14.rib"));
  EXPECT_EQ(duedates::LeggiByteRiba(Rib() / "14.rib").Valore(), "prima");
}

TEST_F(RibaTest, OgniIstruzioneCheFallisceNonLasciaNulla) {
  Ricevuta("0001", "100", 5);
  Ricevuta("0002", "50", 6);
  duedates::Riba riba(ambiente);
  Prepara(riba);
  // What fails before the print asks for nothing: the answers stay for the next time.
  std::size_t chieste = 2;
  const int fallite = FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Mondo(); },
      [&] {
        if (chieste > 0) Stampera();
        if (chieste > 1) dialoghi.Rispondera("DISTINTA DEFINITIVA", Risposta::Si);
        dialoghi.domande.clear();
        const bool riuscita = riba.Conferma(uscite);
        chieste = dialoghi.domande.size();
        return riuscita;
      });
  EXPECT_GT(fallite, 12);
  Messaggi();
  EXPECT_EQ(UltimaDistinta(), 12);
  EXPECT_THAT(FileScritti(), ElementsAre("12.rib"));
}

// Two stations chose the same receipt.
TEST_F(RibaTest, PagataDaUnaltraPostazione) {
  const auto contesa = Ricevuta("0001", "100", 5);
  const auto buona = Ricevuta("0002", "200", 6);
  const auto altra = NuovaStazione("MAGAZZINO");
  const auto la = [&](const std::string& istruzione) {
    altra->ambiente->ArchivioDi("scadenzario").Esegui(istruzione);
  };
  duedates::Riba riba(ambiente);
  struct Caso {
    const char *istruzione, *messaggio;
  };
  const std::string chi =
      "scadenza n. 1 del 31/03/2024 di Clienti 0001 dell'Oro, ft. 5 del 31/01/2024, euro 100,00\n";
  for (const Caso& caso :
       {Caso{"Stato='30'", "è già stata pagata o presentata da un'altra postazione"},
        Caso{"ImportoE=90", "importo: era 100,00, ora 90,00"}}) {
    Prepara(riba);
    std::string dopo;
    // While the user looks at the print.
    uscite.alPrimo = [&] {
      la(std::string("update Scadenze set ") + caso.istruzione + " where Numero=1");
      dopo = Mondo();
    };
    EXPECT_FALSE(Conferma(riba));
    const auto messaggi = Messaggi();
    ASSERT_FALSE(messaggi.empty());
    EXPECT_THAT(messaggi[0], AllOf(HasSubstr(chi), HasSubstr(caso.messaggio),
                                   HasSubstr("Non è stato scritto nulla.")));
    EXPECT_EQ(Mondo(), dopo);
    la("update Scadenze set Stato='00', ImportoE=100 where Numero=1");
    riba.Rileggi();
  }
  // Gone from the grid's view already when it is chosen.
  la("delete * from Scadenze where Numero=1");
  riba.ScegliNessuna();
  EXPECT_FALSE(riba.Cambia(contesa));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("non è più da presentare"));
  EXPECT_TRUE(riba.Cambia(buona));
  EXPECT_TRUE(Conferma(riba));
  Messaggi();
}

TEST_F(RibaTest, NumeroPresoDaUnaltraPostazione) {
  const auto qui = Ricevuta("0001", "100", 5);
  Ricevuta("0002", "200", 6);
  const auto altra = NuovaStazione("MAGAZZINO");
  duedates::Riba riba(ambiente);
  Prepara(riba);
  ASSERT_TRUE(riba.Cambia(riba.Righe()[1].numero));
  uscite.alPrimo = [&] {
    duedates::Riba la(*altra->ambiente);
    FabbricaDiProva carta;
    ASSERT_TRUE(la.ImpostaBanca("X1"));
    ASSERT_TRUE(la.Cambia(la.Righe()[1].numero));
    altra->dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
    altra->dialoghi.Rispondera("DISTINTA DEFINITIVA", Risposta::Si);
    ASSERT_TRUE(la.Conferma(carta));
  };
  EXPECT_FALSE(Conferma(riba));
  EXPECT_THAT(SoloMessaggio(), AllOf(HasSubstr("il numero 12 è già di un'altra distinta"),
                                     HasSubstr("la prossima è la n. 13")));
  EXPECT_EQ(Presentata(qui), "00  0 ");
  EXPECT_EQ(Letto("12.rib").totale, I("200"));
  ASSERT_TRUE(Conferma(riba));
  Messaggi();
  EXPECT_EQ(Presentata(qui), "30 X1 13 15/03/2024");
  EXPECT_EQ(Letto("13.rib").totale, I("100"));
  EXPECT_EQ(TestaDi(2), "P:100.010 C:DIVERSI 23 15/03/2024");
}

// Killed at any moment: what is in the books has its file, whole, and its registration.
TEST_F(RibaTest, UccisaAMeta) {
  std::mt19937 caso(7);
  std::int64_t distinte = 0;
  for (int volta = 0; volta < 10; ++volta) {
    ambiente.ChiudiDitta();
    const int annunciata =
        UccidiAlLavoro(std::chrono::microseconds(caso() % 40'000), [&](int tubo) {
          const auto cassa = NuovaStazione("CASSA");
          Archivio& scadenze = cassa->ambiente->ArchivioDi("scadenzario");
          FabbricaDiProva carta;
          while (true) {
            const std::int64_t numero = duedates::ProssimoNumeroScadenza(*cassa->ambiente);
            std::vector<Coppia> campi = {
                {"Numero", numero}, {"CFP", "C"},           {"Conto", "0001"}, {"Tipo", "03"},
                {"Stato", "00"},    {"Dt", G(31, 3, 2024)}, {"NFat", numero},  {"Anno", 2024}};
            for (const Coppia& campo : duedates::CampiImporto(I("10"))) campi.push_back(campo);
            scadenze.Inserisci("Scadenze", campi);
            duedates::Riba riba(*cassa->ambiente);
            riba.ImpostaBanca("X1");
            riba.Imposta(Impostazioni());
            riba.Cambia(numero);
            cassa->dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
            cassa->dialoghi.Rispondera("DISTINTA", Risposta::Si);
            const int quale = static_cast<int>(riba.Numero());
            if (!riba.Conferma(carta) || write(tubo, &quale, sizeof quale) != sizeof quale) break;
          }
        });
    ASSERT_GT(annunciata, 0) << "kill " << volta << ": the process stopped of itself";
    ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024).Riuscito());
    const std::int64_t ultima = UltimaDistinta();
    distinte = ultima - 11;
    EXPECT_GE(ultima, annunciata);
    EXPECT_LE(ultima, annunciata + 1);
    EXPECT_EQ(Scadenzario().Singolo("select Count(*) from Scadenze where Stato='30'").Intero(),
              distinte);
    EXPECT_EQ(Tessarc().Singolo("select Count(*) from Articoli").Intero(), distinte);
    EXPECT_EQ(Tessarc().Singolo("select Count(*) from Movimenti").Intero(), distinte * 2);
    for (std::int64_t n = 12; n <= ultima; ++n)
      EXPECT_EQ(Letto(std::to_string(n) + ".rib").totale, I("10"));
    ASSERT_FALSE(HasFailure()) << "kill " << volta;
  }
  EXPECT_GT(distinte, 5);
  // Some of the kills fell between a due date and its batch.
  EXPECT_GT(Scadenzario().Singolo("select Count(*) from Scadenze where Stato='00'").Intero(), 0);
}

}  // namespace
}  // namespace fenalto::prova
