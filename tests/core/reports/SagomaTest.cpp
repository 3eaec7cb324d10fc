// Line pictures: what is printed in each kind of field, and that no field ever moves its
// neighbours.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "core/reports/Sagoma.h"
#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Generatori.h"
#include "core/values/ImportoDiProva.h"
#include "core/values/Testo.h"

namespace fenalto::reports {
namespace {

using prova::I;

std::string Riempita(std::string_view sagoma, const std::vector<Valore>& campi) {
  return Sagoma(sagoma).Riempi(campi);
}

TEST(Sagoma, Campi) {
  const Data natale = Data::DaGma(25, 12, 2026).value();
  struct Caso {
    const char* sagoma;
    std::vector<Valore> campi;
    const char* attesa;
  };
  const Caso casi[] = {
      // Texts.
      {"", {"ignorato"}, ""},
      {"| dare = avere - |", {"ignorato"}, "| dare = avere - |"},
      {"|$$$$$|", {"Rossi"}, "|Rossi|"},
      {"|$$$$$|", {"Ro"}, "|Ro   |"},
      {"|$$$$$|", {"Bianchi & C."}, "|Bianc|"},
      {"|$$$$|", {"caffè è"}, "|caff|"},
      {"|$$$$$$|", {"è già"}, "|è già |"},
      {"|§§§§§|$$|", {"perché", "sì"}, "|perch|sì|"},
      {"$$§§", {"abc", "def"}, "abde"},
      {"|$$$$$|", {"a\tb\nc\r"}, "|a b c|"},
      {"|$$$$|", {"a\xFF z"}, "|a\uFFFD z|"},
      {"|$$$|$$|", {Valore(), "x"}, "|   |x |"},
      {"|$$$|$$|", {"a"}, "|a  |  |"},
      {"§ç$", {"a", "b"}, "açb"},
      // Dates.
      {"$$$$$$$$", {natale}, "25/12/26"},
      {"$$$$$$$$$", {natale}, "25/12/26 "},
      {"$$$$$$$$$$", {natale}, "25/12/2026"},
      {"|$$$$$$$$|", {Data()}, "|        |"},
      // Numbers in a text's place lose no digit.
      {"Anno/pag. $$$$/$$$$$$", {2026, 41}, "Anno/pag. 2026/41    "},
      {"|$$$|", {12345}, "|***|"},
      {"|$$$$$$$$|", {I("-1234.5")}, "|-1234,5 |"},
      {"|$$$|$$|", {true, false}, "|Sì |No|"},
      // Numbers.
      {"#.###.###,###", {I("1234.5")}, "    1.234,500"},
      {"#.###.###,###", {I("1234567.8915")}, "1.234.567,892"},
      {"#.###.###,###", {I("12345678")}, "*************"},
      {"#.###.###,###", {I("-1234567")}, "*************"},
      {"##.###.###,###", {I("-1234567")}, "-1.234.567,000"},
      {"|###,##|", {I("-0.5")}, "| -0,50|"},
      {"|###,##|", {I("-0.004")}, "|  0,00|"},
      {"|###,##|", {I("-0.005")}, "| -0,01|"},
      {"|###,##|", {I("999.995")}, "|******|"},
      {"|###,##|", {0}, "|  0,00|"},
      {"|###,##|", {Valore()}, "|      |"},
      {"|###,##|", {" "}, "|      |"},
      {"|###,##|", {"12.5"}, "| 12,50|"},
      {"|###,##|", {"n.d."}, "|  n.d.|"},
      {"|###,##|", {"sconosciuto"}, "|******|"},
      {"|###,##|", {12.345}, "| 12,35|"},
      {"|###,##|", {1e300}, "|******|"},
      {"|##########|", {natale}, "|25/12/2026|"},
      {"###,####", {I("1.2345")}, "  1,2345"},
      {"###.###.###,#####", {I("1234.5678")}, "      1.234,56780"},
      {"|#####,| art.", {12}, "|    12| art."},
      {"Anno ####, pag. ##", {2026, 7}, "Anno  2026 pag.  7"},
      {"##.###.###,", {I("1234567.5")}, "  1.234.568"},
      {"|######,|", {123456}, "| 123456|"},
      {"|###|", {1234}, "|***|"},
      {"|####################|",
       {std::numeric_limits<std::int64_t>::min()},
       "|-9223372036854775808|"},
      {"|#########.###.###.###.###|",
       {std::numeric_limits<std::int64_t>::max()},
       "|9.223.372.036.854.775.807|"},
      // Marks at the ends of a picture.
      {"n.###, del", {5}, "n.   5 del"},
      {"sono ##.", {5}, "sono  5."},
      {"##,##,", {I("1.5")}, " 1,50,"},
      {"##/##", {1, 2}, " 1/ 2"},
      {"|.###,###|", {I("12.5")}, "|  12,500|"},
      {"|.###,###|", {I("1234.5")}, "|********|"},
      {"|,###|", {I("0.25")}, "|,250|"},
      {"|,###|", {I("1.25")}, "|****|"},
      {"$$.###", {"ab", 7}, "ab.  7"},
      {"tot. ., . ,", {1}, "tot. ., . ,"},
  };
  for (const Caso& caso : casi) {
    const Sagoma sagoma(caso.sagoma);
    EXPECT_EQ(sagoma.Riempi(caso.campi), caso.attesa) << "in \"" << caso.sagoma << "\"";
    EXPECT_EQ(LunghezzaTesto(caso.attesa), sagoma.Larghezza()) << caso.sagoma;
  }
}

TEST(Sagoma, ContaISegnaposti) {
  EXPECT_EQ(Sagoma("").Campi(), 0U);
  EXPECT_EQ(Sagoma("| - = | LIBRO GIORNALE").Campi(), 0U);
  EXPECT_EQ(Sagoma("$$$$$$$$ §§§§ ##,## | ####, $$").Campi(), 5U);
  EXPECT_EQ(Sagoma("$$  ######, $$$$$$$$ ##########, ####,").Campi(), 5U);
}

TEST(PictureDiSagoma, Tabella) {
  const auto segni = [](std::size_t n) {
    std::string testo;
    while (n-- > 0) testo += "ç";
    return testo;
  };
  struct Caso {
    std::size_t n;
    const char *euro, *lire;
  };
  const Caso casi[] = {
      {1, "#", ","},
      {4, ",###", "###,"},
      {12, ".###.###,###", "###.###.###,"},
      {13, "#.###.###,###", ".###.###.###,"},
      {14, "##.###.###,###", "#.###.###.###,"},
      {15, "###.###.###,###", "##.###.###.###,"},
      {16, " ###.###.###,###", "###.###.###.###,"},
      {20, "     ###.###.###,###", "    ###.###.###.###,"},
  };
  for (const Caso& caso : casi) {
    EXPECT_EQ(PictureImporto(segni(caso.n), true), caso.euro);
    EXPECT_EQ(PictureImporto(segni(caso.n), false), caso.lire) << caso.n;
  }
  EXPECT_EQ(PictureImporto("|" + segni(14) + "|" + segni(4) + "| però $$", true),
            "|##.###.###,###|,###| però $$");
  EXPECT_EQ(PictureImporto("", true), "");
}

/// A template out of pieces of every kind.
std::string SagomaACaso() {
  const auto pezzi = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
      "$", "$$$$$$$$", "§§§", "#", "###", "#.###,##", "##,", ".###", ",#", ".", ",", " ", "|",
      "Anno ", "perché ", "\t", "\xC3", "-", "=", "###.###.###,#####"));
  std::string sagoma;
  for (const std::string& pezzo : pezzi) sagoma += pezzo;
  return sagoma;
}

Valore ValoreACaso() {
  switch (*rc::gen::inRange(0, 7)) {
    case 0:
      return {};
    case 1:
      return *rc::gen::arbitrary<Importo>();
    case 2:
      return *rc::gen::arbitrary<std::int64_t>();
    case 3:
      return *rc::gen::arbitrary<Data>();
    case 4:
      return *rc::gen::arbitrary<double>();
    case 5:
      return *rc::gen::arbitrary<bool>();
    default:
      return *rc::gen::string<std::string>();
  }
}

RC_GTEST_PROP(SagomaProprieta, LaRigaHaSempreLaSuaLarghezza, ()) {
  const Sagoma sagoma(SagomaACaso());
  std::vector<Valore> campi(*rc::gen::inRange<std::size_t>(0, sagoma.Campi() + 2));
  for (Valore& campo : campi) campo = ValoreACaso();
  const std::string riga = sagoma.Riempi(campi);
  RC_ASSERT(Utf8Valido(riga));
  RC_ASSERT(LunghezzaTesto(riga) == sagoma.Larghezza());
  RC_ASSERT(riga.find_first_of("\t\n\r\f\v") == std::string::npos);
}

RC_GTEST_PROP(SagomaProprieta, UnNumeroSiRileggeOEDiAsterischi, (Importo importo)) {
  const int intere = *rc::gen::inRange(1, 18);
  const int decimali = *rc::gen::inRange(0, 7);
  const bool migliaia = *rc::gen::arbitrary<bool>();
  std::string picture;
  for (int i = intere; i > 0; --i) {
    picture += '#';
    if (migliaia && i > 1 && i % 3 == 1) picture += '.';
  }
  if (decimali > 0) picture += ',' + std::string(static_cast<std::size_t>(decimali), '#');
  const std::string riga = Riempita(picture, {importo});
  const std::string asterischi(picture.size(), '*');
  // What a reader must find there.
  std::string atteso;
  try {
    const Importo tondo = Arrotonda(importo, std::min(decimali, 4), ModoArrotonda::Vicino);
    atteso = ScriviImportoFisso(tondo, decimali, picture.find('.') != std::string::npos);
  } catch (const FuoriCampo&) {
    RC_DISCARD("arrotondato esce dal campo");
  }
  if (riga == asterischi) {
    RC_ASSERT(atteso.size() > picture.size());
    return;
  }
  RC_ASSERT(Rifila(riga) == atteso);
  RC_ASSERT(riga.ends_with(atteso));
}

RC_GTEST_PROP(SagomaProprieta, SullaCartaESulloSchermoLoStessoImporto,
              (Importo importo, bool euro)) {
  const int n = *rc::gen::inRange(euro ? 1 : 2, 30);
  std::string segni;
  for (int i = 0; i < n; ++i) segni += "ç";
  RC_ASSERT(Riempita(PictureImporto(segni, euro), {importo}) == PictureImporto(importo, n, euro));
}

}  // namespace
}  // namespace fenalto::reports
