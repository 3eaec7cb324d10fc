// What copies a company has, what they tell of themselves, and whole ones that start elsewhere.
#include <sys/resource.h>

#include <csignal>

#include "admin/repairs/CopieDiProva.h"
#include "core/session/CopiaIntera.h"
#include "core/session/RipristinoDitta.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

class CopieDittaTest : public DittaConCopie {
 protected:
  /// "date hour reason verified" of each copy.
  [[nodiscard]] std::vector<std::string> Elenco() const {
    std::vector<std::string> righe;
    for (const CopiaDitta& c : ElencoCopie(ambiente)) {
      righe.push_back(c.data.Iso() + " " + c.ora + " " + c.motivo + ": " + c.TestoVerifica());
    }
    return righe;
  }
  [[nodiscard]] fs::path Copie() const { return CartellaCopie(ambiente); }
};

TEST_F(CopieDittaTest, FuoriDalleDieciConOraEMotivo) {
  const CopiaDitta prima = Copia("eliminazione 2023/24: tutto");
  EXPECT_EQ(prima.cartella.filename(), "2024-03-15 10.00 prima di eliminazione 2023-24- tutto");
  EXPECT_EQ(Copia("eliminazione 2023/24: tutto").cartella.filename(),
            prima.cartella.filename().string() + " (2)");
  for (int giorno = 1; giorno <= 12; ++giorno) {
    ASSERT_TRUE(EseguiCopia(ambiente.Basi().Percorsi(), Copie(), G(giorno, 2, 2024)));
  }
  // What a step of the schema has left, what is none, and one without its own description.
  fs::create_directories(Copie() / "prima-del-passo-5");
  fs::copy_file(prima.archivi.tessarc, Copie() / "prima-del-passo-5" / "Cont32.mdb");
  fs::copy_file(prima.archivi.scadenzario, Copie() / "prima-del-passo-5" / "Scad32.mdb");
  fs::create_directories(Copie() / "appunti");
  fs::create_directories(Copie() / ".2024-01-01-9.tmp");
  fs::remove(prima.cartella / "Copia.txt");
  const auto elenco = Elenco();
  ASSERT_EQ(elenco.size(), 13U) << ::testing::PrintToString(elenco);
  EXPECT_THAT(elenco.front(), HasSubstr("prima dell'aggiornamento degli archivi, passo 5: mai"));
  EXPECT_EQ(elenco[1],
            "2024-03-15 10:00 prima di eliminazione 2023/24: tutto: buona, 15/03/2024 10:00");
  EXPECT_EQ(elenco[2],
            "2024-03-15 10:00 prima di eliminazione 2023-24- tutto: buona, 15/03/2024 10:00");
  EXPECT_EQ(elenco[3], "2024-02-12  giornaliera: buona, 12/02/2024");
  EXPECT_EQ(elenco.back(), "2024-02-03  giornaliera: buona, 03/02/2024");

  dialoghi.Rispondera("Elimino la copia del 15/03/2024 delle 10:00", Risposta::No);
  EXPECT_FALSE(EliminaCopia(ambiente, ElencoCopie(ambiente)[1]));
  dialoghi.Rispondera("Elimino la copia", Risposta::Si);
  EXPECT_TRUE(EliminaCopia(ambiente, ElencoCopie(ambiente)[1]));
  EXPECT_EQ(Elenco().size(), 12U);
}

TEST_F(CopieDittaTest, QuellaDelGiornoDiceLOra) {
  OpzioniAmbiente opzioni = OpzioniProva(cartella / "programma");
  opzioni.copie = true;
  Ambiente altra(opzioni, dialoghi, stazione->orologio, stazione->caso);
  ASSERT_TRUE(altra.ApriDitta("Prova"));
  altra.AvviaCopia();
  altra.AttendiCopia();
  EXPECT_EQ(altra.EsitoCopia(), "");
  EXPECT_THAT(Elenco(), ElementsAre("2024-03-15 10:00 giornaliera: buona, 15/03/2024 10:00"));
}

TEST_F(CopieDittaTest, UnaCopiaDanneggiataSiScopreESiRicorda) {
  CopiaDitta copia = Copia();
  EXPECT_TRUE(VerificaDella(ambiente, copia));
  Rovina(copia.archivi.tessarc);
  const auto esito = VerificaDella(ambiente, copia);
  ASSERT_FALSE(esito);
  EXPECT_THAT(esito.Errore().messaggio,
              AllOf(HasSubstr("è danneggiata e non si può usare"), HasSubstr("Cont32.mdb"),
                    HasSubstr("Scegliere un'altra copia")));
  EXPECT_THAT(Elenco().front(), HasSubstr("DANNEGGIATA, 15/03/2024 10:00"));
}

TEST_F(CopieDittaTest, InteraRiparteSuUnAltraMacchina) {
  const fs::path chiavetta = cartella / "chiavetta";
  fs::create_directories(chiavetta);
  // Folders that lie elsewhere come along, and the settings don't name them any more.
  fs::create_directories(cartella / "scansioni");
  ScriviFile(cartella / "scansioni" / "bolla.pdf", "bolla");
  ambiente.ScriviImpostazione({}, "config", "DirectoryDoc", (cartella / "scansioni").string());
  ambiente.ScriviImpostazione({}, "config", "ragsoc1 ", "ROSSI SNC");
  dialoghi.ScegliaFile(chiavetta);
  ASSERT_TRUE(CopiaAdesso(ambiente));
  EXPECT_THAT(dialoghi.UltimoMessaggio(),
              AllOf(HasSubstr("fatta e verificata"), HasSubstr("stesso disco")));
  const fs::path fatta = chiavetta / "Prova 2024-03-15 10.00";

  CartellaProva nuova;
  CreaDittaProva(OpzioniProva(nuova.Percorso()), "Demo");
  DialoghiFinti dialoghiLa;
  Ambiente la(OpzioniProva(nuova.Percorso()), dialoghiLa, stazione->orologio, stazione->caso);
  ASSERT_TRUE(la.ApriDitta("Demo"));
  const auto copia = LeggiCopia(la, fatta);
  ASSERT_TRUE(copia) << copia.Errore().messaggio;
  EXPECT_TRUE(copia.Valore().Intera());
  EXPECT_EQ(copia.Valore().Descrizione(), "del 15/03/2024 delle 10:00 (copia intera)");
  dialoghiLa.Scrivera("Prova");
  ASSERT_TRUE(RipristinaInNuova(la, copia.Valore())) << dialoghiLa.UltimoMessaggio();
  EXPECT_THAT(dialoghiLa.UltimoMessaggio(),
              AllOf(HasSubstr("ultima registrazione: n. 1 del 2024, in data 10/03/2024"),
                    HasSubstr("ultimo documento: FT n. 7 del 2024, in data 09/03/2024")));
  const std::string qui = Tutto();
  ASSERT_TRUE(la.ApriDitta("Prova"));
  EXPECT_EQ(la.Config("ragsoc1 "), "ROSSI SNC");
  EXPECT_EQ(LeggiFile(la.CartellaDocumenti() / "bolla.pdf"), "bolla");
  EXPECT_EQ(LeggiFile(la.CartellaImmagini() / "sotto" / "logo.png"), "logo");
  // The same rows in every table, read with the same eyes.
  ASSERT_TRUE(ambiente.ApriDitta("Prova"));
  fs::copy_file(la.PercorsoDb("tessarc"), ambiente.PercorsoDb("tessarc"),
                fs::copy_options::overwrite_existing);
  fs::copy_file(la.PercorsoDb("scadenzario"), ambiente.PercorsoDb("scadenzario"),
                fs::copy_options::overwrite_existing);
  EXPECT_EQ(Tutto(), qui);
}

TEST_F(CopieDittaTest, InteraRifiutataOAMezzoNonLasciaNulla) {
  const fs::path fuori = cartella / "fuori";
  fs::create_directories(fuori);
  ScriviFile(cartella / "un file", "");
  ScriviFile(ambiente.CartellaDocumenti() / "grande.pdf", std::string(400'000, 'g'));
  const auto errore = [&](const fs::path& dove) {
    const auto fatta = CopiaIntera(ambiente, dove);
    return fatta ? "fatta" : fatta.Errore().messaggio;
  };
  EXPECT_THAT(errore(ambiente.CartellaDitta() / "Documenti"),
              HasSubstr("dentro quella da copiare"));
  EXPECT_THAT(errore(ambiente.CartellaDitta() / "Documenti" / ".." / "Immagini"),
              HasSubstr("dentro quella da copiare"));
  EXPECT_THAT(errore(cartella / "un file"), HasSubstr("non è una cartella"));
  EXPECT_THAT(errore(cartella / "manca"), HasSubstr("non è una cartella"));

  std::signal(SIGXFSZ, SIG_IGN);
  rlimit prima{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &prima), 0);
  for (const rlim_t limite : {rlim_t{30'000}, rlim_t{399'000}}) {
    const rlimit stretto{limite, prima.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &stretto), 0);
    const std::string guasto = errore(fuori);
    setrlimit(RLIMIT_FSIZE, &prima);
    EXPECT_THAT(guasto, HasSubstr("non ne resta nulla"));
    EXPECT_TRUE(fs::is_empty(fuori)) << limite;
  }
  std::signal(SIGXFSZ, SIG_DFL);
  dialoghi.annullaDopo = 2;
  EXPECT_EQ(errore(fuori), "") << "l'utente ci ha ripensato";
  EXPECT_TRUE(fs::is_empty(fuori));
}

TEST_F(CopieDittaTest, CartelleCheNonSonoCopie) {
  const fs::path vuota = cartella / "vuota";
  fs::create_directories(vuota);
  const auto errore = [&](const fs::path& dove) {
    const auto letta = LeggiCopia(ambiente, dove);
    return letta ? "letta" : letta.Errore().messaggio;
  };
  EXPECT_THAT(errore(vuota), HasSubstr("non ci sono tutti e due gli archivi"));
  EXPECT_THAT(errore(cartella / "manca"), HasSubstr("non è la cartella di una copia"));
  EXPECT_THAT(errore(ambiente.CartellaDitta()), HasSubstr("in cui lavora la ditta Prova"));
  fs::copy_file(ambiente.PercorsoDb("tessarc"), vuota / "CONT32.MDB");
  EXPECT_THAT(errore(vuota), HasSubstr("non ci sono tutti e due gli archivi"));
  fs::copy_file(ambiente.PercorsoDb("scadenzario"), vuota / "SCAD32.MDB");
  EXPECT_EQ(errore(vuota), "letta") << "le maiuscole non contano";
}

}  // namespace
}  // namespace fenalto::prova
