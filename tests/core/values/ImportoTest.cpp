#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "core/values/Generatori.h"
#include "core/values/Importo.h"
#include "core/values/Razionale.h"

namespace fenalto {
namespace {

using prova::Esatto;
using prova::InImporto;
using prova::OFuoriCampo;
using prova::Razionale;

constexpr auto kMassimo = std::numeric_limits<std::int64_t>::max();
constexpr auto kMinimo = std::numeric_limits<std::int64_t>::min();

Importo D(std::int64_t n) {
  return Importo::DaDecimillesimi(n);
}

TEST(Importo, TestoEsatto) {
  struct Caso {
    const char* testo;
    std::int64_t decimillesimi;
  };
  const Caso casi[] = {{"0", 0},
                       {"1234.5", 12'345'000},
                       {"-3.33", -33'300},
                       {"0.0001", 1},
                       {"-0.0001", -1},
                       {"10", 100'000},
                       {"0.05", 500},
                       {"922337203685477.5807", kMassimo},
                       {"-922337203685477.5808", kMinimo}};
  for (const Caso& caso : casi) {
    EXPECT_EQ(D(caso.decimillesimi).Testo(), caso.testo);
    EXPECT_EQ(Importo::DaTesto(caso.testo), D(caso.decimillesimi)) << caso.testo;
  }
  EXPECT_EQ(Importo::DaTesto("007.50"), D(75'000));
  EXPECT_EQ(Importo::DaTesto("-0"), D(0));
  EXPECT_EQ(Importo::DaTesto(std::string(300, '0') + "1"), D(10'000));
}

TEST(Importo, TestoRifiutato) {
  for (const char* testo : {"",
                            "-",
                            "+1",
                            "--1",
                            ".5",
                            "5.",
                            "1.",
                            "1,5",
                            "1.23456",
                            "1.00000",
                            " 1",
                            "1 ",
                            "1e3",
                            "0x1",
                            "1.2.3",
                            "1-",
                            "922337203685477.5808",
                            "-922337203685477.5809",
                            "99999999999999999999999",
                            "18446744073709551616",
                            "340282366920938463463374607431768211456"})
    EXPECT_EQ(Importo::DaTesto(testo), std::nullopt) << testo;
  EXPECT_EQ(Importo::DaTesto(std::string(5'000, '9')), std::nullopt);
  EXPECT_EQ(Importo::DaTesto(std::string_view("1\0", 2)), std::nullopt);
}

TEST(Importo, FuoriDalCampo) {
  EXPECT_THROW(-D(kMinimo), FuoriCampo);
  EXPECT_THROW(static_cast<void>(D(kMinimo).Assoluto()), FuoriCampo);
  EXPECT_EQ(-D(kMassimo), D(-kMassimo));
  EXPECT_THROW(D(kMassimo) + D(1), FuoriCampo);
  EXPECT_THROW(D(kMinimo) - D(1), FuoriCampo);
  EXPECT_THROW(static_cast<void>(Importo::DaUnita(kMassimo / 10'000 + 1)), FuoriCampo);
  EXPECT_THROW(static_cast<void>(D(kMinimo).Diviso(D(-10'000))), FuoriCampo);
  EXPECT_THROW(static_cast<void>(D(1).Diviso(D(0))), std::domain_error);
  // A sum that fails leaves the amount as it was.
  Importo importo = D(kMassimo);
  EXPECT_THROW(importo += D(1), FuoriCampo);
  EXPECT_EQ(importo, D(kMassimo));
}

TEST(Importo, MetaAlPari) {
  EXPECT_EQ(D(5).Per(D(1'000)), D(0));   // 0.5 ten-thousandths
  EXPECT_EQ(D(15).Per(D(1'000)), D(2));  // 1.5
  EXPECT_EQ(D(-15).Per(D(1'000)), D(-2));
  EXPECT_EQ(D(25).Per(D(1'000)), D(2));       // 2.5
  EXPECT_EQ(D(1).Diviso(D(20'000)), D(0));    // 0.5
  EXPECT_EQ(D(-3).Diviso(D(20'000)), D(-2));  // -1.5
  EXPECT_EQ(D(3).Diviso(D(-20'000)), D(-2));
  EXPECT_EQ(D(50).Percento(D(10'000)), D(0));
  EXPECT_EQ(D(150).Percento(D(10'000)), D(2));
}

TEST(Importo, ParteIntera) {
  EXPECT_EQ(D(19'999).ParteIntera(), 1);
  EXPECT_EQ(D(-1).ParteIntera(), -1);
  EXPECT_EQ(D(-10'000).ParteIntera(), -1);
  EXPECT_EQ(D(-10'001).ParteIntera(), -2);
  EXPECT_EQ(D(kMinimo).ParteIntera(), -922'337'203'685'478);
}

RC_GTEST_PROP(ImportoProprieta, QuattroOperazioni, (Importo a, Importo b)) {
  RC_ASSERT(OFuoriCampo([&] { return a + b; }) == InImporto(Esatto(a) + Esatto(b)));
  RC_ASSERT(OFuoriCampo([&] { return a - b; }) == InImporto(Esatto(a) - Esatto(b)));
  RC_ASSERT(OFuoriCampo([&] { return a.Per(b); }) == InImporto(Esatto(a) * Esatto(b)));
  RC_ASSERT(OFuoriCampo([&] { return a.Percento(b); }) == InImporto(Esatto(a) * Esatto(b) / 100));
  if (!b.Zero())
    RC_ASSERT(OFuoriCampo([&] { return a.Diviso(b); }) == InImporto(Esatto(a) / Esatto(b)));
  RC_ASSERT(prova::Grande(a.ParteIntera()) == prova::Int(Esatto(a)));
  RC_ASSERT((a < b) == (Esatto(a) < Esatto(b)));
}

RC_GTEST_PROP(ImportoProprieta, TestoAndataERitorno, (Importo importo)) {
  const std::string testo = importo.Testo();
  RC_ASSERT(Importo::DaTesto(testo) == importo);
  RC_ASSERT(testo.find('.') == std::string::npos || testo.back() != '0');
}

}  // namespace
}  // namespace fenalto
