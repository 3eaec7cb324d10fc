#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "runner/Sorveglianza.h"

namespace fenalto::copione {
namespace {

struct Esito {
  int stato;
  std::string detto;
};

Esito Lancia(const std::function<int(Segnalibro&)>& lavoro) {
  testing::internal::CaptureStdout();
  const int stato = LanciaSorvegliato(lavoro);
  return {stato, testing::internal::GetCapturedStdout()};
}

TEST(Sorveglianza, RiportaLoStato) {
  EXPECT_EQ(Lancia([](Segnalibro&) { return 0; }).stato, 0);
  const auto fallito = Lancia([](Segnalibro&) { return 1; });
  EXPECT_EQ(fallito.stato, 1);
  EXPECT_EQ(fallito.detto, "");
}

TEST(Sorveglianza, NominaLaRigaDiChiCade) {
  const auto caduto = Lancia([](Segnalibro& segno) {
    segno.Comincia("a.cop:7", "clic", AdessoMs() + 60'000);
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
    return 0;
  });
  EXPECT_EQ(caduto.stato, 1);
  EXPECT_EQ(caduto.detto, "a.cop:7: clic: the program crashed with signal 6\n");
}

TEST(Sorveglianza, FermaChiNonFinisce) {
  const auto appeso = Lancia([](Segnalibro& segno) {
    segno.Comincia("a.cop:8", "esegui", AdessoMs() - 10'000);
    std::this_thread::sleep_for(std::chrono::seconds(30));
    return 0;
  });
  EXPECT_EQ(appeso.stato, 1);
  EXPECT_EQ(appeso.detto, "a.cop:8: esegui: the program hangs\n");
}

}  // namespace
}  // namespace fenalto::copione
