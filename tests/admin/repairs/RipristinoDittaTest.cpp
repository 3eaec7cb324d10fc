// Going back to a copy, and compacting: what is there before and after, and what stops it.
#include <sqlite3.h>

#include "admin/repairs/CopieDiProva.h"
#include "core/session/CambioDitta.h"
#include "core/session/CompattaDitta.h"
#include "core/session/RipristinoDitta.h"
#include "core/session/Utenti.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

class RipristinoDittaTest : public DittaConCopie {
 protected:
  bool Ripristina(const CopiaDitta& copia, Risposta risposta = Risposta::Si) {
    dialoghi.Rispondera("RIPRISTINO della ditta Prova dalla copia del 15/03/2024", risposta);
    return RipristinaNellaDitta(ambiente, copia);
  }
  std::vector<CopiaDitta> Copie() { return ElencoCopie(ambiente); }
};

TEST_F(RipristinoDittaTest, TornaTuttoEDiPrimaRestaUnaCopia) {
  const std::string allora = Tutto();
  const CopiaDitta copia = Copia();
  UnAltroArticolo(2);
  const std::string adesso = Tutto();
  EXPECT_FALSE(Ripristina(copia, Risposta::No));
  EXPECT_EQ(Tutto(), adesso);

  ASSERT_TRUE(ambiente.ScegliAnno(2023));
  ASSERT_TRUE(Ripristina(copia)) << dialoghi.UltimoMessaggio();
  EXPECT_EQ(Tutto(), allora);
  EXPECT_EQ(ambiente.Anno(), 2023);
  ASSERT_EQ(Copie().size(), 2U);
  const CopiaDitta diPrima = Copie().front();
  EXPECT_EQ(diPrima.motivo, "prima di ripristino");
  EXPECT_THAT(dialoghi.UltimoMessaggio(),
              AllOf(HasSubstr("La ditta Prova è tornata alla copia del 15/03/2024"),
                    HasSubstr("ultima registrazione: n. 1 del 2024, in data 10/03/2024"),
                    HasSubstr(diPrima.cartella.string())));
  EXPECT_FALSE(fs::exists(ambiente.PercorsoDb("tessarc").string() + ".prima"));
  UnAltroArticolo(3);  // it is worked on as before

  ASSERT_TRUE(Ripristina(diPrima)) << "anche il ripristino si disfa";
  EXPECT_EQ(Tutto(), adesso);
}

TEST_F(RipristinoDittaTest, RifiutatoLasciaLaDittaComEra) {
  struct Caso {
    const char* nome;
    std::function<void(const CopiaDitta&)> guasta;
    const char* messaggio;
  };
  const auto passo = [](const fs::path& file, int numero) {
    sqlite3* db = nullptr;
    sqlite3_open(file.c_str(), &db);
    sqlite3_exec(db, ("PRAGMA user_version=" + std::to_string(numero)).c_str(), nullptr, nullptr,
                 nullptr);
    sqlite3_close(db);
  };
  const Caso casi[] = {
      {"a byte is another", [](const CopiaDitta& c) { Rovina(c.archivi.scadenzario); },
       "Scad32.mdb non è più com'era"},
      {"half of a file",
       [](const CopiaDitta& c) {
         fs::remove(c.cartella / "Copia.txt");
         fs::resize_file(c.archivi.tessarc, fs::file_size(c.archivi.tessarc) / 2);
       },
       "è danneggiata e non si può usare"},
      {"a file is missing", [](const CopiaDitta& c) { fs::remove(c.archivi.scadenzario); },
       "Scad32.mdb"},
      {"something else under that name",
       [](const CopiaDitta& c) {
         fs::remove(c.cartella / "Copia.txt");
         ScriviFile(c.archivi.tessarc, "non è un archivio");
       },
       "Cont32.mdb"},
      {"of a later program",
       [&](const CopiaDitta& c) {
         fs::remove(c.cartella / "Copia.txt");
         passo(c.archivi.tessarc, 99);
       },
       "versione più recente del programma"},
  };
  const std::string adesso = Tutto();
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.nome);
    const CopiaDitta copia = Copia();
    caso.guasta(copia);
    EXPECT_FALSE(Ripristina(copia));
    EXPECT_THAT(dialoghi.UltimoMessaggio(),
                AllOf(HasSubstr("ripristino non riuscito, la ditta è com'era prima"),
                      HasSubstr(caso.messaggio)));
    EXPECT_EQ(Tutto(), adesso);
    EXPECT_FALSE(fs::exists(ambiente.CartellaDitta() / ".cambio"));
    fs::remove_all(copia.cartella);
    EXPECT_THAT(Copie(), IsEmpty()) << "nessuna copia per nulla";
  }
}

TEST_F(RipristinoDittaTest, ChiLaTieneApertaFermaRipristinoECompattamento) {
  const CopiaDitta copia = Copia();
  const auto cassa = NuovaStazione("CASSA");
  const std::string adesso = Tutto();
  EXPECT_FALSE(Ripristina(copia));
  EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr("dalla stazione CASSA"));
  dialoghi.Rispondera("CONFERMA COMPATTAMENTO DATABASE DITTA Prova", Risposta::Si);
  EXPECT_FALSE(CompattaDitta(ambiente));
  EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr("dalla stazione CASSA"));
  EXPECT_EQ(Tutto(), adesso);
}

TEST_F(RipristinoDittaTest, AnnoEUtentiDellaCopia) {
  const CopiaDitta senza = Copia();
  Metti(Tessarc(), "Ut", "Cod", "MARIA", "Livello", 99, "Password", Utenti::Hash("segreta"));
  Metti(Tessarc(), "Anni", "Anno", 2026, "Euro", true);
  ASSERT_TRUE(ambiente.ApriDitta("Prova", 2026));
  ASSERT_TRUE(ambiente.Accedi("MARIA", "segreta"));
  const CopiaDitta con = Copia();
  ASSERT_TRUE(Ripristina(con));
  EXPECT_EQ(ambiente.UtenteCorrente().cod, "MARIA");
  EXPECT_EQ(ambiente.Anno(), 2026);
  ASSERT_TRUE(Ripristina(senza));
  EXPECT_EQ(ambiente.Anno(), 2025) << "l'anno aperto non c'è nella copia: l'ultimo";
  EXPECT_FALSE(ambiente.ServeAccesso());
  // Back to one with users, by who isn't any of them.
  ASSERT_TRUE(Ripristina(con));
  EXPECT_FALSE(ambiente.HaDiritto(30));
  EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr("entrare di nuovo con «Selezione Archivi»"));
}

TEST_F(RipristinoDittaTest, IDatiDiAdessoNonSiPossonoCopiare) {
  const std::string allora = Tutto();
  const CopiaDitta copia = Copia();
  const fs::path file = ambiente.PercorsoDb("scadenzario");
  {
    std::fstream aperto(file, std::ios::in | std::ios::out | std::ios::binary);
    aperto.seekp(4'096);
    aperto << std::string(20'000, '\x5a');
  }
  dialoghi.Rispondera("RIPRISTINO", Risposta::Si);
  dialoghi.Rispondera("i dati di adesso non si possono copiare", Risposta::No);
  EXPECT_FALSE(RipristinaNellaDitta(ambiente, copia));
  dialoghi.Rispondera("RIPRISTINO", Risposta::Si);
  dialoghi.Rispondera("i dati di adesso non si possono copiare", Risposta::Si);
  ASSERT_TRUE(RipristinaNellaDitta(ambiente, copia)) << dialoghi.UltimoMessaggio();
  EXPECT_EQ(Tutto(), allora);
  EXPECT_TRUE(fs::exists(file.string() + ".prima"));
  EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr(".prima"));
}

TEST_F(RipristinoDittaTest, InUnaDittaNuovaAccanto) {
  const std::string allora = Tutto();
  const CopiaDitta copia = Copia();
  UnAltroArticolo(2);
  const std::string adesso = Tutto();
  struct Caso {
    const char* nome;
    const char* messaggio;
  };
  fs::create_directories(ambiente.CartellaDitta("Occupata"));
  for (const Caso& caso :
       {Caso{"prova", "la ditta prova esiste già"}, Caso{"a/b", "digitare un semplice nome ditta"},
        Caso{"", "digitare un semplice nome ditta"},
        Caso{"Occupata", "esiste già: scegliere un altro nome"}}) {
    dialoghi.Scrivera(caso.nome);
    EXPECT_FALSE(RipristinaInNuova(ambiente, copia));
    EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr(caso.messaggio));
  }
  dialoghi.Scrivera("Prova di marzo");
  ASSERT_TRUE(RipristinaInNuova(ambiente, copia)) << dialoghi.UltimoMessaggio();
  EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr("la copia ha solo gli archivi"));
  EXPECT_EQ(Tutto(), adesso);
  ASSERT_TRUE(ambiente.ApriDitta("Prova di marzo"));
  EXPECT_EQ(Tutto(), allora);
  EXPECT_EQ(ambiente.CartellaDocumenti(), ambiente.CartellaDitta() / "Documenti");

  // A damaged one makes none.
  ASSERT_TRUE(ambiente.ApriDitta("Prova"));
  Rovina(copia.archivi.tessarc);
  dialoghi.Scrivera("Altra");
  EXPECT_FALSE(RipristinaInNuova(ambiente, copia));
  EXPECT_FALSE(fs::exists(ambiente.CartellaDitta("Altra")));
  EXPECT_EQ(ambiente.DitteTrovate().size(), 2U);
}

TEST_F(RipristinoDittaTest, UnDiscoCheCedeNonLasciaMezzaDitta) {
  const CopiaDitta copia = Copia();
  int passo = 1;
  for (;; ++passo) {
    SuPassoDitta([mancano = passo]() mutable {
      if (--mancano == 0) throw std::runtime_error("il disco ha ceduto");
    });
    dialoghi.Scrivera("Nuova");
    const bool fatta = RipristinaInNuova(ambiente, copia);
    SuPassoDitta({});
    if (fatta) break;
    EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr("il disco ha ceduto")) << passo;
    EXPECT_EQ(ambiente.DitteTrovate().size(), 1U) << passo;
    EXPECT_FALSE(fs::exists(ambiente.CartellaDitta("Nuova"))) << passo;
    ASSERT_LT(passo, 50);
  }
  EXPECT_GT(passo, 3);
  EXPECT_EQ(ambiente.DitteTrovate().size(), 2U);
}

TEST_F(RipristinoDittaTest, GliAllegatiMancantiTornano) {
  const fs::path fuori = cartella / "fuori";
  fs::create_directories(fuori / "Prova" / "Documenti");
  const CopiaDitta copia = Copia();
  fs::copy(copia.cartella, fuori / "Prova", fs::copy_options::recursive);
  ScriviFile(fuori / "Prova.ini", "[Archivi]\nTessarc=Cont32.mdb\nScadenzario=Scad32.mdb\n");
  ScriviFile(fuori / "Prova" / "Documenti" / "contratto.pdf", "quello vecchio");
  ScriviFile(fuori / "Prova" / "Documenti" / "perso.pdf", "perso");
  const auto letta = LeggiCopia(ambiente, fuori);
  ASSERT_TRUE(letta) << letta.Errore().messaggio;
  CopiaDitta diAltri = letta.Valore();
  diAltri.ditta = "Bianchi";
  dialoghi.Rispondera("ATTENZIONE: la copia è della ditta Bianchi, non della ditta Prova",
                      Risposta::No);
  EXPECT_FALSE(RipristinaNellaDitta(ambiente, diAltri));
  dialoghi.Rispondera("RIPRISTINO", Risposta::Si);
  ASSERT_TRUE(RipristinaNellaDitta(ambiente, letta.Valore()));
  EXPECT_EQ(LeggiFile(ambiente.CartellaDocumenti() / "perso.pdf"), "perso");
  EXPECT_EQ(LeggiFile(ambiente.CartellaDocumenti() / "contratto.pdf"), "contratto");
}

TEST_F(RipristinoDittaTest, Compattamento) {
  for (int n = 2; n < 300; ++n) UnAltroArticolo(n);
  Tessarc().Esegui("delete * from Articoli where NumDoc>50");
  Tessarc().Esegui("delete * from Movimenti where NumDoc>50");
  const std::string adesso = Tutto();
  const auto grande = fs::file_size(ambiente.PercorsoDb("tessarc"));
  dialoghi.Rispondera("CONFERMA COMPATTAMENTO DATABASE DITTA Prova", Risposta::No);
  EXPECT_FALSE(CompattaDitta(ambiente));
  dialoghi.Rispondera("CONFERMA COMPATTAMENTO DATABASE DITTA Prova", Risposta::Si);
  ASSERT_TRUE(CompattaDitta(ambiente)) << dialoghi.UltimoMessaggio();
  EXPECT_TRUE(dialoghi.HaDetto("è consigliabile effettuare una copia dei seguenti files"));
  EXPECT_THAT(dialoghi.UltimoMessaggio(),
              AllOf(HasSubstr("FINE LAVORO DITTA Prova"), HasSubstr("prima di compattamento")));
  EXPECT_EQ(Tutto(), adesso);
  EXPECT_LT(fs::file_size(ambiente.PercorsoDb("tessarc")), grande);
  EXPECT_FALSE(fs::exists(ambiente.PercorsoDb("tessarc").string() + ".prima"));
}

}  // namespace
}  // namespace fenalto::prova
