// Ledger and open due dates go together, whatever is done: they differ by what was warned of, by
// nothing else, and the comparison of the two finds just that.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "duedates/random/DittaCasuale.h"

namespace fenalto::prova {
namespace {

bool Lungo() {
  const char* lungo = std::getenv("FENALTO_LUNGO");
  return lungo != nullptr && std::string_view(lungo) == "1";
}

/// Runs and their length for the whole of the program: before its first property.
void Misura() {
  std::string parametri = Lungo() ? "max_success=2000 max_size=100" : "max_success=60 max_size=40";
  if (const char* seme = std::getenv("FENALTO_SEME")) parametri += std::string(" seed=") + seme;
  setenv("RC_PARAMS", parametri.c_str(), 0);
}

class SaldiScadenzeTest : public DittaCasuale {
 protected:
  SaldiScadenzeTest() { Misura(); }

  /// No more runs are begun when they have taken their time, unless one is being made smaller.
  bool Tempo() {
    constexpr std::chrono::seconds kBreve(6);
    constexpr std::chrono::seconds kLungo(600);
    return fallita_ || std::chrono::steady_clock::now() - inizio_ < (Lungo() ? kLungo : kBreve);
  }
  void Prova(const std::vector<Mossa>& mosse) {
    if (!Tempo()) return;
    fallita_ = true;
    Ricomincia();
    for (const Mossa& mossa : mosse) Fai(mossa);
    fallita_ = false;
    ++prove_;
  }

  bool fallita_ = false;
  int prove_ = 0;
  std::chrono::steady_clock::time_point inizio_ = std::chrono::steady_clock::now();
};

TEST_F(SaldiScadenzeTest, SiScostanoSoloDoveAvvisati) {
  EXPECT_TRUE(rc::check("ledger and due dates differ only where it was told", [this] {
    Prova(*rc::gen::container<std::vector<Mossa>>(UnaMossa()));
    RC_CLASSIFY(!Attese().empty(), "with differences");
  }));
  std::printf("%d runs\n", prove_);
}

}  // namespace
}  // namespace fenalto::prova
