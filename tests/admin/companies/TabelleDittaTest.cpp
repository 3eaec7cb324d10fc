// The table of what becomes of each table, held against the schema.
#include "admin/companies/DitteDiProva.h"
#include "core/archives/TabelleDitta.h"
#include "core/values/Testo.h"

namespace fenalto::prova {
namespace {

using archives::Sorte;
using archives::TabellaDitta;

class TabelleDittaTest : public DitteTest {};

std::vector<TabellaDitta> RigheDi(const std::string& base, const std::string& tabella) {
  std::vector<TabellaDitta> righe;
  for (const TabellaDitta& riga : archives::TavolaTabelle()) {
    const std::string sua = UgualeTesto(riga.chiave, "tessarc") ? "Cont32.mdb" : "Scad32.mdb";
    if (sua == base && UgualeTesto(riga.tabella, tabella)) righe.push_back(riga);
  }
  return righe;
}

TEST_F(TabelleDittaTest, OgniTabellaHaLaSuaSorteEIlSuoAnno) {
  // Due dates outlive the year of their invoice; the years of an asset are one history.
  const std::set<std::string> oltreAnno = {"Scadenze", "MovCesp_r"};
  for (const auto& [base, tabelle] : SchemaDi(Cartella("Rossi"))) {
    for (const auto& [tabella, colonne] : tabelle) {
      const auto righe = RigheDi(base, tabella);
      ASSERT_FALSE(righe.empty()) << tabella << " non è in core/archives/TabelleDitta.cpp";
      std::set<std::string> condizioni;
      for (const TabellaDitta& riga : righe) {
        EXPECT_EQ(riga.sorte, righe.front().sorte) << tabella;
        EXPECT_EQ(riga.sorte == Sorte::Scelta, riga.scelta != archives::SceltaDati::Nessuna);
        EXPECT_TRUE(condizioni.insert(riga.condizione == nullptr ? "" : riga.condizione).second)
            << tabella;
        bool conAnno = false;
        for (const ColonnaProva& colonna : colonne) conAnno |= UgualeTesto(colonna.nome, "Anno");
        EXPECT_EQ(riga.anno != nullptr, conAnno && !oltreAnno.contains(tabella)) << tabella;
      }
    }
  }
}

}  // namespace
}  // namespace fenalto::prova
