// Grids exported: the spreadsheet is read back by a library that isn't ours, the text by its bytes.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "core/reports/DiscoPieno.h"
#include "core/reports/Foglio.h"
#include "core/session/CartellaProva.h"
#include "core/session/Csv.h"
#include "core/values/ImportoDiProva.h"

namespace fenalto::reports {
namespace {

namespace fs = std::filesystem;

using prova::I;

/// What every export is tried on: types, texts that would be formulas, values at the limits.
Foglio Prova() {
  Foglio foglio;
  foglio.premessa = {{"anno ", 2026}, {"ditta ", "Rossi & C. \"srl\""}, {}};
  foglio.colonne = {{"codice", Tipo::Testo},
                    {"numero", Tipo::Intero},
                    {"data", Tipo::Data},
                    {"importo", Tipo::Importo, 2},
                    {"prezzo", Tipo::Importo, 4}};
  const Data natale = Data::DaGma(25, 12, 2026).value();
  foglio.righe = {
      {"0012", 12345, natale, I("1234567.89"), I("0.1234")},
      {"=1+1", -5, Data(), I("-0.1"), I("0")},
      {"@somma", Valore(), Data::DaGma(1, 1, 1900).value(), I("123456789012345.6789"), true},
      {"due\nrighe;", 0, natale, I("0.005"), "n.d."},
      {"+39 02", "-5", Data::DaGma(1, 3, 1900).value(), I("10"), 2.5},
      {"totale", Valore(), Valore(), I("99999999999.9999"), Valore()},
  };
  foglio.totali = {5};
  return foglio;
}

std::string QuelCheStampa(const std::string& comando) {
  FILE* condotto = ::popen(comando.c_str(), "r");
  if (condotto == nullptr) return "";
  std::string testo;
  std::array<char, 4096> pezzo{};
  for (std::size_t n = 0; (n = std::fread(pezzo.data(), 1, pezzo.size(), condotto)) > 0;)
    testo.append(pezzo.data(), n);
  return ::pclose(condotto) == 0 ? testo : "comando fallito: " + testo;
}

/// A line a cell, "A1 type value format" and "bold" where it is so; then the frozen pane and the
/// widths.
std::string LeggiXlsx(const CartellaProva& cartella, const fs::path& file) {
  ScriviFile(cartella / "leggi.py", R"(
import sys, openpyxl
s = openpyxl.load_workbook(sys.argv[1]).active
for riga in s.iter_rows():
    for c in riga:
        if c.value is not None:
            print(c.coordinate, c.data_type, repr(c.value), c.number_format,
                  *(["bold"] if c.font.b else []))
print("fermo", s.freeze_panes)
print("largo", s.column_dimensions["A"].width > 6, s.column_dimensions["D"].width > 15)
)");
  return QuelCheStampa(std::string(FENALTO_PYTHON) + " '" + (cartella / "leggi.py").string() +
                       "' '" + file.string() + "' 2>&1");
}

TEST(FoglioXlsx, SiRileggeConTipiEFormati) {
  const CartellaProva cartella;
  const fs::path file = cartella / "bilancio.xlsx";
  const auto esito = EsportaXlsx(Prova(), file);
  ASSERT_TRUE(esito) << esito.Errore().messaggio;
  EXPECT_EQ(LeggiXlsx(cartella, file), R"(A1 s 'anno ' General
B1 n 2026 0
A2 s 'ditta ' General
B2 s 'Rossi & C. "srl"' General
A4 s 'codice' General bold
B4 s 'numero' General bold
C4 s 'data' General bold
D4 s 'importo' General bold
E4 s 'prezzo' General bold
A5 s '0012' General
B5 n 12345 0
C5 d datetime.datetime(2026, 12, 25, 0, 0) dd/mm/yyyy
D5 n 1234567.89 #,##0.00
E5 n 0.1234 #,##0.0000
A6 s '=1+1' General
B6 n -5 0
D6 n -0.1 #,##0.00
E6 n 0 #,##0.0000
A7 s '@somma' General
C7 s '01/01/1900' General
D7 s '123456789012345,6789' General
E7 s 'Sì' General
A8 s 'due\nrighe;' General
B8 n 0 0
C8 d datetime.datetime(2026, 12, 25, 0, 0) dd/mm/yyyy
D8 n 0.005 #,##0.000
E8 s 'n.d.' General
A9 s '+39 02' General
B9 s '-5' General
C9 d datetime.datetime(1900, 3, 1, 0, 0) dd/mm/yyyy
D9 n 10 #,##0.00
E9 n 2.5 General
A10 s 'totale' General bold
D10 n 99999999999.9999 #,##0.00 bold
fermo A5
largo True True
)");
}

TEST(FoglioXlsx, QuelCheUnFoglioNonTiene) {
  const CartellaProva cartella;
  Foglio foglio;
  foglio.colonne = {{"testo"}};
  foglio.righe = {{std::string(40'000, 'x')}, {std::string("a\x01\0b\xFF", 5)}};
  ASSERT_TRUE(EsportaXlsx(foglio, cartella / "lungo.xlsx"));
  const std::string letto = LeggiXlsx(cartella, cartella / "lungo.xlsx");
  EXPECT_EQ(letto.find("fallito"), std::string::npos) << letto.substr(0, 500);
  EXPECT_NE(letto.find("'a\u2401\u2400b\uFFFD'"), std::string::npos);

  foglio.righe.assign(1'048'576, {});
  const auto troppe = EsportaXlsx(foglio, cartella / "troppe.xlsx");
  ASSERT_FALSE(troppe);
  EXPECT_NE(troppe.Errore().messaggio.find("esportare in CSV"), std::string::npos);
  EXPECT_FALSE(fs::exists(cartella / "troppe.xlsx"));
}

TEST(Foglio, DoveNonSiPuoScrivere) {
  const CartellaProva cartella;
  fs::create_directory(cartella / "occupato");
  for (const fs::path& file : {cartella / "manca" / "x", cartella / "occupato"}) {
    for (const auto esporta : {&EsportaXlsx, &EsportaCsv}) {
      const auto esito = esporta(Prova(), file);
      ASSERT_FALSE(esito);
      EXPECT_NE(esito.Errore().messaggio.find(file.string()), std::string::npos);
    }
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(cartella.Percorso()), fs::directory_iterator()),
            1);
}

// Wherever the disk fills up, in the library's own scratch files or in the result, what stood there
// before stays.
TEST(Foglio, DiscoPieno) {
  const CartellaProva cartella;
  const fs::path file = cartella / "elenco";
  Foglio foglio = Prova();
  for (int i = 0; i < 2'000; ++i)
    foglio.righe.push_back({"riga " + std::to_string(i * 7919 % 2'000), i});
  for (const auto esporta : {&EsportaXlsx, &EsportaCsv}) {
    ASSERT_TRUE(esporta(foglio, file));
    const auto intero = fs::file_size(file);
    for (const std::uintmax_t quota : {0U, 1U, 10U, 50U, 90U, 99U}) {
      ScriviFile(file, "di prima");
      {
        const DiscoPieno pieno(intero * quota / 100);
        const auto esito = esporta(foglio, file);
        EXPECT_FALSE(esito) << quota;
        if (!esito) {
          EXPECT_NE(esito.Errore().messaggio.find("disco pieno"), std::string::npos)
              << esito.Errore().messaggio;
        }
      }
      EXPECT_TRUE(LeggiFile(file) == "di prima") << quota;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(cartella.Percorso()), fs::directory_iterator()),
              1);
  }
}

TEST(FoglioCsv, ByteAMano) {
  const CartellaProva cartella;
  const fs::path file = cartella / "bilancio.csv";
  ASSERT_TRUE(EsportaCsv(Prova(), file));
  const std::string testo = LeggiFile(file);
  EXPECT_EQ(testo,
            "\xEF\xBB\xBF"
            "\"anno \";2026\r\n"
            "\"ditta \";\"Rossi & C. \"\"srl\"\"\"\r\n"
            "\r\n"
            "codice;numero;data;importo;prezzo\r\n"
            "0012;12345;25/12/2026;1234567,89;0,1234\r\n"
            "'=1+1;-5;;-0,10;0,0000\r\n"
            "'@somma;;01/01/1900;123456789012345,6789;Sì\r\n"
            "\"due\nrighe;\";0;25/12/2026;0,005;n.d.\r\n"
            "'+39 02;'-5;01/03/1900;10,00;2,5\r\n"
            "totale;;;99999999999,9999;\r\n");
  // What we write we read.
  const auto letto = LeggiCsv(testo.substr(testo.find("codice")));
  ASSERT_TRUE(letto) << letto.Errore().messaggio;
  EXPECT_EQ(letto.Valore().righe.at(3).campi.at(0), "due\nrighe;");
}

}  // namespace
}  // namespace fenalto::reports
