// The text output: what stands in the file, and that a failure leaves none.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/reports/AmbienteProva.h"
#include "core/reports/DiscoPieno.h"

namespace fenalto::reports {
namespace {

namespace fs = std::filesystem;

Pagina PaginaDi(const std::vector<std::string>& righe) {
  Pagina pagina;
  for (const std::string& testo : righe) {
    RigaFissa riga;
    riga.testo = testo;
    pagina.elementi.emplace_back(riga);
  }
  return pagina;
}

std::size_t FileIn(const fs::path& cartella) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(cartella), fs::directory_iterator()));
}

TEST(UscitaTesto, PagineEUtf8) {
  const CartellaProva cartella;
  const fs::path file = cartella / "Giornale.txt";
  UscitaTesto uscita(file);
  EXPECT_TRUE(uscita.Aggiungi(PaginaDi({"perché  ", "", "€ 5"})));
  EXPECT_TRUE(uscita.Aggiungi(PaginaDi({"pag. 2 di " + std::string(kSegnoPagineTotali)})));
  EXPECT_FALSE(fs::exists(file)) << "il nome viene alla fine";
  const auto esito = uscita.Fine();
  ASSERT_TRUE(esito) << esito.Errore().messaggio;
  EXPECT_EQ(LeggiFile(file), "perché  \n\n€ 5\n\fpag. 2 di \n");
  EXPECT_EQ(FileIn(cartella.Percorso()), 1U);
}

TEST(UscitaTesto, SostituisceTenendoIPermessiEIlCollegamento) {
  const CartellaProva cartella;
  ScriviFile(cartella / "vero.txt", "vecchio");
  fs::permissions(cartella / "vero.txt", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("vero.txt", cartella / "file.txt");
  UscitaTesto uscita(cartella / "file.txt");
  uscita.Aggiungi(PaginaDi({"nuovo"}));
  EXPECT_EQ(LeggiFile(cartella / "vero.txt"), "vecchio");
  ASSERT_TRUE(uscita.Fine());
  EXPECT_TRUE(fs::is_symlink(cartella / "file.txt"));
  EXPECT_EQ(LeggiFile(cartella / "vero.txt"), "nuovo\n");
  struct stat stato{};
  ASSERT_EQ(::stat((cartella / "vero.txt").c_str(), &stato), 0);
  EXPECT_EQ(stato.st_mode & 07777U, 0600U);
}

TEST(UscitaTesto, ChiRinunciaNonLasciaNulla) {
  const CartellaProva cartella;
  {
    UscitaTesto annullata(cartella / "a.txt");
    annullata.Aggiungi(PaginaDi({"x"}));
    annullata.Annulla();
    EXPECT_EQ(FileIn(cartella.Percorso()), 0U);
    EXPECT_FALSE(annullata.Fine()) << "dopo la rinuncia non nasce un file vuoto";
    UscitaTesto abbandonata(cartella / "b.txt");
    abbandonata.Aggiungi(PaginaDi({"x"}));
  }
  EXPECT_EQ(FileIn(cartella.Percorso()), 0U);
}

TEST(UscitaTesto, Guasti) {
  const CartellaProva cartella;
  fs::create_directory(cartella / "cartella");
  ScriviFile(cartella / "protetto.txt", "x");
  fs::permissions(cartella / "protetto.txt", fs::perms::owner_read);
  struct Caso {
    fs::path file;
    const char* detto;
  };
  const Caso casi[] = {
      {cartella / "manca" / "a.txt", "la cartella non esiste"},
      {cartella / "protetto.txt" / "a.txt", "la cartella non esiste"},
      {cartella / "cartella", "è una cartella"},
      {cartella / "protetto.txt", "permesso negato"},
  };
  for (const Caso& caso : casi) {
    UscitaTesto uscita(caso.file);
    EXPECT_FALSE(uscita.Aggiungi(PaginaDi({"x"}))) << caso.file;
    const auto esito = uscita.Fine();
    ASSERT_FALSE(esito) << caso.file;
    EXPECT_NE(esito.Errore().messaggio.find(caso.file.string()), std::string::npos);
    EXPECT_NE(esito.Errore().messaggio.find(caso.detto), std::string::npos)
        << esito.Errore().messaggio;
  }
  EXPECT_EQ(LeggiFile(cartella / "protetto.txt"), "x");
}

TEST(UscitaTesto, DiscoPienoAMetaRapporto) {
  AmbienteProva p;
  const fs::path file = p.cartella / "grande.txt";
  ScriviFile(file, "di prima");
  p.stampa.Inizio(std::make_unique<UscitaTesto>(file));
  int righe = 0;
  {
    const DiscoPieno pieno(200'000);
    for (; righe < 100'000 && !p.stampa.Interrotta(); ++righe) p.stampa.Riga(std::string(100, 'x'));
    EXPECT_FALSE(p.stampa.Fine());
  }
  EXPECT_LT(righe, 10'000) << "ci si ferma quando il disco è pieno, non alla fine";
  EXPECT_TRUE(p.dialoghi.HaDetto("disco pieno"));
  EXPECT_EQ(LeggiFile(file), "di prima");
  EXPECT_EQ(FileIn(p.cartella.Percorso()), 1U);
}

}  // namespace
}  // namespace fenalto::reports
