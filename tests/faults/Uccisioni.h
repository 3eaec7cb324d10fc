// A station of a company that is killed again and again.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <random>

#include "core/session/Ambiente.h"
#include "faults/Registrazioni.h"
#include "faults/Uccisione.h"

namespace fenalto::prova {

/// Kills `lavoro` again and again, each time at another moment, and opens the company `Prova` of
/// 2024 after it: `interi` looks whether all that is there is whole, and counts the documents, each
/// of which takes `numeri` numbers. What was told as confirmed is there; some kills fell within a
/// transaction of the database `archivio`.
inline void UccidiPiuVolte(Ambiente& ambiente, const char* archivio,
                           const std::function<void(int)>& lavoro,
                           const std::function<std::int64_t()>& interi, int numeri = 1) {
  const int volte = Lungo() ? 100 : 12;
  std::mt19937 caso(static_cast<unsigned>(Seme()));
  const std::filesystem::path giornale = ambiente.PercorsoDb(archivio).string() + "-journal";
  int inMezzo = 0;
  std::int64_t trovati = 0;
  for (int volta = 0; volta < volte; ++volta) {
    ambiente.ChiudiDitta();
    const int annunciato = UccidiAlLavoro(std::chrono::microseconds(caso() % 60'000), lavoro);
    ASSERT_GT(annunciato, 0) << "kill " << volta << ": the process stopped of itself";
    std::error_code errore;
    if (std::filesystem::file_size(giornale, errore) > 0 && !errore) ++inMezzo;

    ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024).Riuscito());
    trovati = interi();
    const std::int64_t detti = (annunciato - 1) / numeri + 1;
    // The one under way may have been confirmed without having been told.
    ASSERT_GE(trovati, detti) << "kill " << volta;
    ASSERT_LE(trovati, detti + 1) << "kill " << volta;
    ASSERT_FALSE(::testing::Test::HasFailure()) << "kill " << volta;
  }
  EXPECT_GT(inMezzo, 0);
  std::printf("%d kills, %d in the middle of a document, %d documents\n", volte, inMezzo,
              static_cast<int>(trovati));
}

}  // namespace fenalto::prova
