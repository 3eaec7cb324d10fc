// Every statement of an action is made to fail once.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "core/store/BasiDati.h"

namespace fenalto::prova {

/// Fails statement after statement of `azione` until it goes through, and tells how many failed.
/// After each failure what `fotografia` shows must be what it was, and no transaction is left open.
inline int FallisceOgniIstruzione(BasiDati& basi, Guasto guasto,
                                  const std::function<std::string()>& fotografia,
                                  const std::function<bool()>& azione) {
  constexpr int kMassimo = 1'000;
  const std::string prima = fotografia();
  for (int n = 1; n < kMassimo; ++n) {
    basi.ImpostaGuasto(n, guasto);
    bool riuscita = false;
    try {
      riuscita = azione();
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

}  // namespace fenalto::prova
