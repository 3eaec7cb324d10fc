#include <gtest/gtest.h>

#include <string>

#include "core/values/ControlloCodiceFiscale.h"
#include "core/values/ControlloPartitaIva.h"

namespace fenalto {
namespace {

TEST(ControlliFiscali, PartitaIva) {
  const std::pair<const char*, const char*> casi[] = {
      {"", ""},
      {" IT ", ""},
      {"01234567897", ""},
      {" 12345678903 ", ""},
      {"it00743110157", ""},
      {"DE123456789", ""},
      {"01234567896", "controllo errata"},
      {"10234567897", "controllo errata"},  // two neighbours changed places
      {"00000000000", "controllo errata"},
      {"0123456789", "11 cifre"},
      {"012345678977", "11 cifre"},
      {"0123456789O", "11 cifre"},
      {"IT 0123", "11 cifre"},
  };
  for (const auto& [numero, errore] : casi) {
    const std::string detto(ControlloPartitaIva(numero));
    EXPECT_NE(detto.find(errore), std::string::npos) << numero << ": " << detto;
    EXPECT_EQ(detto.empty(), *errore == '\0') << numero << ": " << detto;
  }
}

TEST(ControlliFiscali, OgniCifraSbagliataSiVede) {
  const std::string buona = "12345678903";
  for (std::size_t i = 0; i < buona.size(); ++i) {
    for (char cifra = '0'; cifra <= '9'; ++cifra) {
      std::string altra = buona;
      altra[i] = cifra;
      EXPECT_EQ(UndiciCifreValide(altra), altra == buona) << altra;
    }
  }
}

TEST(ControlliFiscali, CodiceFiscale) {
  const std::pair<const char*, const char*> casi[] = {
      {"", ""},
      {"RSSMRA85T10A562S", ""},
      {" rssmra85t10a562s ", ""},
      {"MRTMTT91D08F205J", ""},
      {"01234567897", ""},
      {"01234567896", "cifra di controllo"},
      {"RSSMRA85T10A562T", "controllo errata"},
      {"RSSMRA85T01A562S", "controllo errata"},
      {"RSSMRA85T10A56S", "16 caratteri"},
      {"RSSMRA85T10A562SS", "16 caratteri"},
      {"RSSMRA85Z10A562S", "fuori posto"},
      {"1SSMRA85T10A562S", "fuori posto"},
      {"RSSMRA8AT10A562S", "fuori posto"},
      {"RSSMR\xC3\xA0"
       "5T10A562S",
       "fuori posto"},
  };
  for (const auto& [codice, errore] : casi) {
    const std::string detto(ControlloCodiceFiscale(codice));
    EXPECT_NE(detto.find(errore), std::string::npos) << codice << ": " << detto;
    EXPECT_EQ(detto.empty(), *errore == '\0') << codice << ": " << detto;
  }
}

/// A code whose last digit was made a letter because another person had the same: its check letter
/// is its own.
TEST(ControlliFiscali, CodiceFiscaleConLettereAlPostoDiCifre) {
  int buone = 0;
  for (char lettera = 'A'; lettera <= 'Z'; ++lettera) {
    const std::string codice = std::string("MRTMTT91D08F20R") + lettera;
    buone += ControlloCodiceFiscale(codice).empty() ? 1 : 0;
  }
  EXPECT_EQ(buone, 1);
}

}  // namespace
}  // namespace fenalto
