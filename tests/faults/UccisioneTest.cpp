// A process is killed at any moment while it registers: what it told as confirmed is there, whole
// and balanced, nothing is half there and no lock stays behind.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <random>

#include "faults/Registrazioni.h"
#include "faults/Uccisione.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

/// Registers without end, telling each number to `tubo` once it is confirmed. Never returns.
[[noreturn]] void RegistraSenzaFine(const PercorsiArchivi& percorsi, int tubo) {
  const auto aperte = BasiDati::Apri(percorsi, OpzioniDiProva());
  if (!aperte) _exit(2);
  BasiDati& basi = *aperte.Valore();
  // What the window does around its confirmation: its record in edit, then the number.
  while (true) {
    const auto scheda = basi.Blocchi().Record("Articoli", "nuova");
    const auto numero = RegistraProssimo(basi, std::chrono::seconds(5));
    if (!scheda || !numero) _exit(3);
    if (write(tubo, &*numero, sizeof *numero) != sizeof *numero) _exit(4);
  }
}

class UccisioneTest : public ::testing::Test {
 protected:
  void SetUp() override { percorsi = CreaDitta(cartella.Percorso()); }

  int UccidiUno(std::chrono::microseconds dopo) const {
    return UccidiAlLavoro(dopo, [this](int tubo) { RegistraSenzaFine(percorsi, tubo); });
  }

  CartellaDiProva cartella;
  PercorsiArchivi percorsi;
};

TEST_F(UccisioneTest, AKilledProcessLosesNothingConfirmedAndLeavesNoLock) {
  const int volte = Lungo() ? 200 : 25;
  const long seme = Seme();
  std::mt19937 caso(static_cast<unsigned>(seme));
  int inMezzo = 0;
  int primaDi = 0;
  for (int volta = 0; volta < volte; ++volta) {
    const std::chrono::microseconds dopo(caso() % 40'000);
    const int annunciato = UccidiUno(dopo);
    ASSERT_GT(annunciato, primaDi) << "kill " << volta << ": the process stopped of itself";
    // A journal that isn't empty was left by a transaction under way.
    std::error_code errore;
    if (fs::file_size(percorsi.tessarc.string() + "-journal", errore) > 0 && !errore) ++inMezzo;

    const auto aperte = BasiDati::Apri(percorsi, OpzioniDiProva("CASSA"));
    ASSERT_TRUE(aperte) << aperte.Errore().messaggio;
    BasiDati& basi = *aperte.Valore();
    std::string guasti;
    const Registrate trovate = Leggi(basi, guasti);
    ControllaFile(percorsi, "", guasti);
    ASSERT_EQ(guasti, "") << "kill " << volta;
    // The one under way may have been confirmed without having been told.
    const int ultima = trovate.rbegin()->first;
    ASSERT_GE(ultima, annunciato) << "kill " << volta;
    ASSERT_LE(ultima, annunciato + 1) << "kill " << volta;
    ASSERT_EQ(trovate.size(), static_cast<std::size_t>(ultima)) << "a number is missing";
    EXPECT_FALSE(basi.Blocchi().ChiTiene("Articoli", "nuova").has_value());
    EXPECT_TRUE(basi.Blocchi().Record("Articoli", "nuova"));
    EXPECT_TRUE(basi.Blocchi().Tabella("ARTICOLI", std::chrono::milliseconds(0)));
    primaDi = ultima;
  }
  // Otherwise the kills would all have fallen between two registrations.
  EXPECT_GT(inMezzo, 0);
  std::printf("%d kills, %d in the middle of a registration, %d registrations\n", volte, inMezzo,
              primaDi);
}

}  // namespace
}  // namespace fenalto::prova
