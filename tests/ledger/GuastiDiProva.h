// Every statement of an action is made to fail once.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "core/store/BasiDati.h"

namespace fenalto::prova {

/// Does `azione` again and again until it goes through, and tells how often it failed: the `n`-th
/// time it has the `n`-th statement fail, from where it likes. After each failure what `fotografia`
/// shows must be what it was, and no transaction is left open.
inline int FallisceOgniVolta(BasiDati& basi, const std::function<std::string()>& fotografia,
                             const std::function<bool(int n)>& azione) {
  constexpr int kMassimo = 1'000;
  const std::string prima = fotografia();
  for (int n = 1; n < kMassimo; ++n) {
    bool riuscita = false;
    try {
      riuscita = azione(n);
    } catch (const ErroreArchivio&) {
      // Caught by the window.
    }
    basi.ImpostaGuasto(0, Guasto::Nessuno);
    if (riuscita) return n - 1;
    EXPECT_EQ(fotografia(), prima) << "istruzione " << n;
    EXPECT_FALSE(basi.InTransazione()) << "istruzione " << n;
    if (::testing::Test::HasFailure()) return n;
  }
  ADD_FAILURE() << "non riesce mai";
  return 0;
}

/// The same from the first statement on.
inline int FallisceOgniIstruzione(BasiDati& basi, Guasto guasto,
                                  const std::function<std::string()>& fotografia,
                                  const std::function<bool()>& azione) {
  return FallisceOgniVolta(basi, fotografia, [&](int n) {
    basi.ImpostaGuasto(n, guasto);
    return azione();
  });
}

}  // namespace fenalto::prova
