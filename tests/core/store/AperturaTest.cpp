#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "core/store/BasiDiProva.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class AperturaTest : public prova::BasiDiProva {};

void Scrivi(const fs::path& file, const std::string& contenuto) {
  std::ofstream(file, std::ios::binary | std::ios::trunc) << contenuto;
}

TEST_F(AperturaTest, CreatesAndOpensAndRefusesToCreateAgain) {
  Crea();
  auto basi = Apri();
  ASSERT_NE(basi, nullptr);
  EXPECT_EQ(basi->PerChiave("TESSARC").Percorso(), percorsi.tessarc);
  EXPECT_EQ(basi->PerChiave("Scadenzario").Percorso(), percorsi.scadenzario);
  EXPECT_EQ(prova::CausaDi([&] { static_cast<void>(basi->PerChiave("altro")); }),
            ErroreArchivio::Causa::Mancante);
  const auto esito = BasiDati::Crea(percorsi, opzioni);
  ASSERT_FALSE(esito);
  EXPECT_THAT(esito.Errore().messaggio, HasSubstr("Cont32.mdb"));
  EXPECT_NE(Apri(), nullptr) << "what exists is not touched";
}

TEST_F(AperturaTest, FailedCreationLeavesNothing) {
  Schema("scadenzario/002_rotto.sql", "CREATE TABLE Nuova (A INTEGER); CREATE TABL Rotta (A);");
  const auto esito = BasiDati::Crea(percorsi, opzioni);
  ASSERT_FALSE(esito);
  EXPECT_THAT(esito.Errore().messaggio, HasSubstr("002_rotto"));
  EXPECT_FALSE(fs::exists(percorsi.tessarc));
  EXPECT_FALSE(fs::exists(percorsi.scadenzario));
}

TEST_F(AperturaTest, EveryKindOfBadFileIsToldByName) {
  struct Caso {
    const char* nome;
    std::function<void(const fs::path&)> guasta;
    const char* dice;
  };
  const std::string rumore(20'000, '\xA7');
  const Caso casi[] = {
      {"missing", [](const fs::path& f) { fs::remove(f); }, "manca"},
      {"empty", [](const fs::path& f) { Scrivi(f, ""); }, "vuoto"},
      {"garbage", [&](const fs::path& f) { Scrivi(f, rumore); }, "danneggiato"},
      {"short", [](const fs::path& f) { Scrivi(f, "SQLite"); }, "danneggiato"},
      {"truncated", [](const fs::path& f) { fs::resize_file(f, fs::file_size(f) - 4096); },
       "danneggiato"},
      {"folder",
       [](const fs::path& f) {
         fs::remove(f);
         fs::create_directory(f);
       },
       "non è un file"},
      {"another program's",
       [](const fs::path& f) {
         fs::remove(f);
         Motore(f, "CREATE TABLE T (A)");
       },
       "non è un archivio di questo programma"},
      {"newer", [](const fs::path& f) { Motore(f, "PRAGMA user_version = 99"); }, "più recente"},
  };
  for (const bool primo : {true, false}) {
    for (const Caso& caso : casi) {
      fs::remove_all(percorsi.tessarc);
      fs::remove_all(percorsi.scadenzario);
      Crea();
      const fs::path& file = primo ? percorsi.tessarc : percorsi.scadenzario;
      caso.guasta(file);
      const std::string messaggio = ErroreApertura();
      EXPECT_THAT(messaggio, HasSubstr(caso.dice)) << caso.nome;
      EXPECT_THAT(messaggio, HasSubstr(file.filename().string())) << caso.nome;
    }
  }
}

TEST_F(AperturaTest, DamageFoundLaterIsTold) {
  Crea();
  {
    auto basi = Apri();
    Transazione transazione(*basi);
    for (int i = 0; i < 2000; ++i)
      basi->Tessarc().Inserisci("SenzaChiave", {{"Testo", std::string(100, 'x')}});
    transazione.Conferma();
  }
  {
    std::fstream file(percorsi.tessarc, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4096 * 20);
    file << std::string(4096 * 4, '\x5A');
  }
  auto basi = Apri();
  ASSERT_NE(basi, nullptr);
  std::string messaggio;
  EXPECT_EQ(prova::CausaDi(
                [&] {
                  Rs rs = basi->Tessarc().Recordset("SenzaChiave");
                  static_cast<void>(rs.RecordCount());
                },
                &messaggio),
            ErroreArchivio::Causa::Danneggiato);
  EXPECT_THAT(messaggio, HasSubstr("Copie"));
}

/// Runs `azione` in a child and returns what it wrote.
std::string InFiglio(const std::function<std::string()>& azione) {
  int canale[2];
  EXPECT_EQ(pipe(canale), 0);
  const pid_t figlio = fork();
  if (figlio == 0) {
    const std::string testo = azione();
    const auto scritti = write(canale[1], testo.data(), testo.size());
    _exit(scritti < 0 ? 1 : 0);
  }
  close(canale[1]);
  std::string testo;
  char pezzo[512];
  for (ssize_t n = 0; (n = read(canale[0], pezzo, sizeof pezzo)) > 0;)
    testo.append(pezzo, static_cast<std::size_t>(n));
  close(canale[0]);
  waitpid(figlio, nullptr, 0);
  return testo;
}

TEST_F(AperturaTest, ReadOnlyFileOrFolderIsRefused) {
  Crea();
  const auto daUtenteComune = [&] {
    return InFiglio([&]() -> std::string {
      // The administrator may write anything: the check needs a user who may not.
      if (geteuid() == 0 && setuid(65534) != 0) return "setuid";
      return ErroreApertura();
    });
  };
  fs::permissions(cartella, fs::perms(0777));
  fs::permissions(percorsi.tessarc, fs::perms(0666));
  fs::permissions(percorsi.scadenzario, fs::perms(0444));
  std::string messaggio = daUtenteComune();
  EXPECT_THAT(messaggio, HasSubstr("Scad32.mdb"));
  EXPECT_THAT(messaggio, HasSubstr("permesso"));
  fs::permissions(percorsi.scadenzario, fs::perms(0666));
  fs::permissions(cartella, fs::perms(0555));
  messaggio = daUtenteComune();
  EXPECT_THAT(messaggio, HasSubstr("cartella"));
  EXPECT_THAT(messaggio, HasSubstr("Cont32.mdb"));
  fs::permissions(cartella, fs::perms(0777));
  EXPECT_EQ(daUtenteComune(), "");
}

TEST_F(AperturaTest, LockHeldTooLongByAnotherProcessIsToldAndAShortOneIsWaitedFor) {
  Crea();
  int pronto[2];
  ASSERT_EQ(pipe(pronto), 0);
  const auto occupa = [&](int millisecondi) {
    const pid_t figlio = fork();
    if (figlio == 0) {
      auto basi = BasiDati::Apri(percorsi, opzioni);
      if (!basi) _exit(1);
      Transazione transazione(*basi.Valore());
      if (write(pronto[1], "x", 1) != 1) _exit(1);
      usleep(static_cast<useconds_t>(millisecondi) * 1000);
      _exit(0);
    }
    char segnale = 0;
    EXPECT_EQ(read(pronto[0], &segnale, 1), 1);
    return figlio;
  };
  auto basi = Apri();
  pid_t figlio = occupa(200);
  basi->Tessarc().Inserisci("Causali", {{"Cod", "A"}});
  waitpid(figlio, nullptr, 0);
  opzioni.attesa = std::chrono::milliseconds(100);
  basi = Apri();
  figlio = occupa(3000);
  std::string messaggio;
  EXPECT_EQ(
      prova::CausaDi([&] { basi->Tessarc().Inserisci("Causali", {{"Cod", "B"}}); }, &messaggio),
      ErroreArchivio::Causa::Occupato);
  EXPECT_THAT(messaggio, HasSubstr("Cont32.mdb"));
  EXPECT_EQ(prova::CausaDi([&] { Transazione seconda(*basi); }), ErroreArchivio::Causa::Occupato);
  EXPECT_FALSE(basi->InTransazione());
  EXPECT_EQ(basi->Tessarc().Singolo("select Count(*) from Causali").Intero(), 1);
  kill(figlio, SIGKILL);
  waitpid(figlio, nullptr, 0);
  basi->Tessarc().Inserisci("Causali", {{"Cod", "B"}});
  close(pronto[0]);
  close(pronto[1]);
}

TEST_F(AperturaTest, OlderSchemaIsCopiedThenBroughtUpToDate) {
  Crea();
  Apri()->Tessarc().Inserisci("Causali", {{"Cod", "A"}});
  Schema("tessarc/002_nota.sql",
         "ALTER TABLE Causali ADD COLUMN Nota TEXT NOT NULL DEFAULT 'x' COLLATE FENALTO;");
  {
    auto basi = Apri();
    ASSERT_NE(basi, nullptr);
    EXPECT_EQ(basi->Tessarc().Singolo("select Nota from Causali where Cod='a'").Testo(), "x");
  }
  const fs::path copia = cartella / "Copie" / "prima-del-passo-2";
  EXPECT_TRUE(fs::exists(copia / "Cont32.mdb"));
  EXPECT_TRUE(fs::exists(copia / "Scad32.mdb"));
  EXPECT_NE(Apri(), nullptr);
  EXPECT_FALSE(fs::exists(cartella / "Copie" / "prima-del-passo-2-2")) << "one copy a step";
}

TEST_F(AperturaTest, FailedStepLeavesTheDatabaseAsItWas) {
  Crea();
  Schema("tessarc/002_bene.sql", "ALTER TABLE Causali ADD COLUMN Nota TEXT;");
  Schema("tessarc/003_male.sql", "CREATE TABLE Nuova (A INTEGER); INSERT INTO Manca VALUES (1);");
  const std::string messaggio = ErroreApertura();
  EXPECT_THAT(messaggio, HasSubstr("003_male"));
  fs::remove(opzioni.cartellaSchema / "tessarc/002_bene.sql");
  fs::remove(opzioni.cartellaSchema / "tessarc/003_male.sql");
  auto basi = Apri();
  ASSERT_NE(basi, nullptr) << "still at step 1";
  EXPECT_EQ(basi->Tessarc().Catalogo().Tabella("Nuova"), nullptr);
  EXPECT_EQ(basi->Tessarc().Catalogo().Tabella("causali")->Colonna("Nota"), nullptr);
}

TEST_F(AperturaTest, MissingStepsAreTold) {
  Crea();
  Schema("tessarc/003_salto.sql", "SELECT 1;");
  EXPECT_THAT(ErroreApertura(), HasSubstr("numerati"));
  opzioni.cartellaSchema = cartella / "altrove";
  EXPECT_THAT(ErroreApertura(), HasSubstr("altrove"));
}

TEST_F(AperturaTest, CatalogueKnowsTypesKeysMirrorsAndHidesItsOwn) {
  Crea();
  auto basi = Apri();
  const sql::Catalogo& catalogo = basi->Tessarc().Catalogo();
  const sql::TabellaCatalogo* articoli = catalogo.Tabella("ARTICOLI");
  ASSERT_NE(articoli, nullptr);
  EXPECT_THAT(articoli->chiave, ::testing::ElementsAre("Anno", "NumDoc"));
  EXPECT_TRUE(articoli->Colonna("id")->contatore);
  EXPECT_FALSE(articoli->Colonna("Anno")->contatore);
  EXPECT_EQ(articoli->Colonna("dt")->tipo, Tipo::Data);
  EXPECT_TRUE(articoli->Colonna("Cambio")->ammetteNull);
  EXPECT_FALSE(articoli->Colonna("Ep")->ammetteNull);
  EXPECT_THAT(catalogo.Tabella("Causali")->chiave, ::testing::ElementsAre("Cod"));
  EXPECT_THAT(catalogo.Tabella("SenzaChiave")->chiave, ::testing::IsEmpty());
  const sql::TabellaCatalogo* movimenti = catalogo.Tabella("Movimenti");
  EXPECT_THAT(movimenti->chiave, ::testing::ElementsAre("Num"));
  EXPECT_TRUE(movimenti->Colonna("_Dt")->nascosta);
  ASSERT_EQ(movimenti->specchi.size(), 1U);
  EXPECT_THAT(movimenti->specchi[0].chiave, ::testing::ElementsAre("Anno", "NumDoc"));
  EXPECT_EQ(catalogo.Tabella("_specchi"), nullptr);
  EXPECT_EQ(catalogo.Tabella("sqlite_sequence"), nullptr);
  EXPECT_EQ(catalogo.Tabella("Scadenze"), nullptr);
  EXPECT_NE(basi->Scadenzario().Catalogo().Tabella("Scadenze"), nullptr);
}

TEST_F(AperturaTest, ACompanyOfTheFirstStepOpensWithTodaysSchema) {
  const fs::path vera = fs::path(FENALTO_DATA) / "schema";
  opzioni.cartellaSchema = cartella / "prima";
  for (const char* chiave : {"tessarc", "scadenzario"}) {
    fs::create_directories(opzioni.cartellaSchema / chiave);
    fs::copy(vera / chiave / "001_base.sql", opzioni.cartellaSchema / chiave);
  }
  Crea();
  Apri()->Tessarc().Inserisci("Causali", {{"Cod", "A"}, {"Descrizione", "di prima"}});
  for (const int numero : {3, 1, 2}) {
    Apri()->Scadenzario().Inserisci("Scadenze", {{"Numero", numero},
                                                 {"Conto", "A" + std::to_string(numero)},
                                                 {"NFat", numero == 2 ? 0 : 8 + numero}});
  }
  opzioni.cartellaSchema = vera;
  auto basi = Apri();
  ASSERT_NE(basi, nullptr);
  Archivio& tessarc = basi->Tessarc();
  EXPECT_EQ(tessarc.Singolo("select Descrizione from Causali where Cod='A'").Testo(), "di prima");
  // What the program counts on is there in companies that no model filled.
  EXPECT_EQ(tessarc.Singolo("select CS from CausaliMag where Cod='EI'").Testo(), "C");
  EXPECT_EQ(tessarc.Singolo("select CausaleMag from TipiFattureCli where Cod='EI'").Testo(), "EI");
  tessarc.Inserisci("FattureCli_r", {{"TipoDoc", "EI"}, {"Anno", 2024}, {"NumDoc", 1}});
  EXPECT_THROW(
      tessarc.Inserisci("FattureCli_r", {{"TipoDoc", "ei"}, {"Anno", 2024}, {"NumDoc", 1}}),
      ErroreArchivio)
      << "a row's place is its own";
  // Numbers of invoices became texts, in the order they had, beside all else of their rows.
  std::string scadenze;
  for (Rs rs = basi->Scadenzario().Recordset("SELECT * FROM Scadenze ORDER BY NFat"); !rs.Eof();
       rs.MoveNext()) {
    scadenze += rs.Fields("NFat").Testo() + "|" + rs.Fields("Conto").Testo() + " ";
  }
  EXPECT_EQ(scadenze, "|A2 9|A1 11|A3 ");
}

TEST_F(AperturaTest, TheProgramsOwnSchemaMakesACompany) {
  opzioni.cartellaSchema = fs::path(FENALTO_DATA) / "schema";
  Crea();
  auto basi = Apri();
  ASSERT_NE(basi, nullptr);
  for (const auto& [chiave, archivio] :
       {std::pair{"tessarc", &basi->Tessarc()}, {"scadenzario", &basi->Scadenzario()}}) {
    const fs::path viste = opzioni.cartellaSchema / "viste" / chiave;
    if (!fs::exists(viste)) continue;
    for (const auto& voce : fs::directory_iterator(viste))
      EXPECT_NO_THROW(archivio->Vista(voce.path().stem().string())) << voce.path();
  }
}

}  // namespace
}  // namespace fenalto
