// Two stations register at once: each number is given once, none is left out, and none waits past
// the limit of the numbering lock.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>

#include "core/store/ErroreArchivio.h"
#include "faults/Registrazioni.h"

namespace fenalto::prova {
namespace {

/// What a station tells when it has finished.
struct Resoconto {
  std::int32_t fatte = 0;
  std::int32_t errori = 0;
};

Resoconto Stazione(const PercorsiArchivi& percorsi, const std::string& nome, int quante) {
  Resoconto resoconto;
  const auto aperte = BasiDati::Apri(percorsi, OpzioniDiProva(nome));
  if (!aperte) return resoconto;
  for (int i = 0; i < quante; ++i) {
    try {
      const auto numero = RegistraProssimo(*aperte.Valore(), std::chrono::seconds(10));
      ++(numero ? resoconto.fatte : resoconto.errori);
    } catch (const ErroreArchivio& errore) {
      std::fprintf(stderr, "%s: %s\n", nome.c_str(), errore.what());
      ++resoconto.errori;
    }
  }
  return resoconto;
}

TEST(DueProcessiTest, NoNumberTwiceNoGap) {
  const int quante = Lungo() ? 2'000 : 150;
  const CartellaDiProva cartella;
  const PercorsiArchivi percorsi = CreaDitta(cartella.Percorso());
  std::array<int, 2> tubo{};
  ASSERT_EQ(pipe(tubo.data()), 0);
  const std::array<const char*, 2> stazioni = {"UFFICIO", "CASSA"};
  for (const char* nome : stazioni) {
    if (fork() != 0) continue;
    const Resoconto resoconto = Stazione(percorsi, nome, quante);
    (void)!write(tubo[1], &resoconto, sizeof resoconto);
    _exit(0);
  }
  close(tubo[1]);
  for (std::size_t i = 0; i < stazioni.size(); ++i) {
    Resoconto resoconto;
    ASSERT_EQ(read(tubo[0], &resoconto, sizeof resoconto), static_cast<ssize_t>(sizeof resoconto));
    EXPECT_EQ(resoconto.fatte, quante);
    EXPECT_EQ(resoconto.errori, 0);
  }
  while (waitpid(-1, nullptr, 0) > 0) {
  }
  close(tubo[0]);

  const auto aperte = BasiDati::Apri(percorsi, OpzioniDiProva());
  ASSERT_TRUE(aperte) << aperte.Errore().messaggio;
  std::string guasti;
  const Registrate trovate = Leggi(*aperte.Valore(), guasti);
  ControllaFile(percorsi, "", guasti);
  EXPECT_EQ(guasti, "");
  EXPECT_EQ(trovate.size(), static_cast<std::size_t>(2 * quante));
  EXPECT_EQ(trovate.begin()->first, 1);
  EXPECT_EQ(trovate.rbegin()->first, 2 * quante);
}

}  // namespace
}  // namespace fenalto::prova
