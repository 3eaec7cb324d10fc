// Reading back what a program writes: pages, spreadsheets, plain text.
#include <gtest/gtest.h>
#include <xlsxwriter.h>

#include <QPainter>
#include <QPdfWriter>

#include "runner/Banco.h"
#include "runner/FileScritti.h"

namespace fenalto::copione {
namespace {

using FileScritti = Banco;

TEST_F(FileScritti, Pdf) {
  const auto file = cartella->Percorso() / "pagina.pdf";
  {
    QPdfWriter scrittore(Qs(file.string()));
    QPainter pittore(&scrittore);
    pittore.drawText(QPoint(1000, 1000), QStringLiteral("Perché 1.234,50"));
  }
  EXPECT_EQ(Corri("contiene pagina.pdf 1.234,50\ncontiene pagina.pdf Perché\n"
                  "noncontiene pagina.pdf 1.234,51"),
            "");
}

TEST_F(FileScritti, FoglioDiCalcolo) {
  const auto file = cartella->Percorso() / "foglio.xlsx";
  auto* libro = workbook_new(file.c_str());
  auto* primo = workbook_add_worksheet(libro, nullptr);
  worksheet_write_string(primo, 0, 0, "Perché <no> & sì", nullptr);
  worksheet_write_number(primo, 1, 0, 1234.5, nullptr);
  auto* secondo = workbook_add_worksheet(libro, nullptr);
  worksheet_write_string(secondo, 7, 3, "altrove", nullptr);
  worksheet_write_formula_num(secondo, 0, 0, "=2*21", nullptr, 42);
  ASSERT_EQ(workbook_close(libro), LXW_NO_ERROR);
  const auto letto = LeggiTestoDi(file);
  ASSERT_TRUE(letto) << letto.Errore().messaggio;
  // The strings, then the cells sheet by sheet: no index of a string stands for a value.
  EXPECT_EQ(letto.Valore().toStdString(),
            "Perché <no> & sì\naltrove\nPerché <no> & sì\n1234.5\n42\naltrove");
}

}  // namespace
}  // namespace fenalto::copione
