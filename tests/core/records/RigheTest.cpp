#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/records/DocumentoAperto.h"
#include "core/records/Righe.h"
#include "core/records/RigheInTabella.h"

namespace fenalto::records {
namespace {

using ::testing::ElementsAre;

struct Riga {
  std::int64_t num = 0;
  std::int64_t posi = 0;
  std::string testo;
  Importo importo;
  bool chiusa = false;
  std::array<std::string, 2> note = {};
  int nascosta = 0;
};

constexpr CampoRiga<Riga> kCampi[] = {
    Campo<&Riga::posi>("Posi"), Campo<&Riga::testo>("Testo"), Campo<&Riga::importo>("Importo"),
    Campo<&Riga::chiusa>("Chiusa"), CampoElemento<&Riga::note, 1>("Nota")};

std::vector<std::string> Testi(const std::vector<Riga>& righe) {
  std::vector<std::string> testi;
  for (const Riga& r : righe) testi.push_back(r.testo);
  return testi;
}

Riga Fatta(std::int64_t posi, const std::string& testo) {
  Riga riga;
  riga.posi = posi;
  riga.testo = testo;
  return riga;
}

TEST(Righe, UnaSiApreSiCambiaESiRimetteInOrdine) {
  Righe<Riga> righe(kCampi);
  EXPECT_EQ(righe.ProssimaPosi(100), 100);
  righe.Carica({Fatta(200, "b"), Fatta(100, "a"), Fatta(300, "c")});
  EXPECT_THAT(Testi(righe.Tutte()), ElementsAre("a", "b", "c"));
  EXPECT_FALSE(righe.Modificate());
  EXPECT_EQ(righe.ProssimaPosi(100), 400);

  const std::int64_t num = righe.Tutte()[1].num;
  ASSERT_TRUE(righe.Apri(&Riga::num, num));
  EXPECT_FALSE(righe.Apri(&Riga::num, std::int64_t{99}));
  righe.Ritocca([](std::vector<Riga>& tutte) { tutte[1].nascosta = 7; });
  EXPECT_EQ(righe.Riga().Testo("testo"), "b");
  EXPECT_FALSE(righe.Digitando());
  righe.Riga().Scrivi("Posi", "350");
  righe.Riga().Scrivi("Importo", "12");
  righe.Riga().Scrivi("Chiusa", true);
  righe.Riga().Scrivi("Nota", "n");
  EXPECT_TRUE(righe.Digitando());
  EXPECT_TRUE(righe.PosiOccupata(300));
  EXPECT_FALSE(righe.PosiOccupata(200)) << "its own";

  const Riga digitata = righe.Digitata();
  EXPECT_EQ(digitata.nascosta, 7) << "what the frame doesn't show stays";
  EXPECT_EQ(digitata.importo, Importo::DaUnita(12));
  EXPECT_TRUE(digitata.chiusa);
  EXPECT_EQ(digitata.note[1], "n");
  EXPECT_THAT(Testi(righe.Con(digitata)), ElementsAre("a", "c", "b"));
  EXPECT_THAT(Testi(righe.Senza()), ElementsAre("a", "c"));
  EXPECT_THAT(Testi(righe.Tutte()), ElementsAre("a", "b", "c")) << "nothing has changed yet";

  righe.Sostituisci(righe.Con(digitata));
  EXPECT_TRUE(righe.Modificate());
  EXPECT_FALSE(righe.InRiga());
  EXPECT_EQ(righe.Tutte()[2].num, num);
}

TEST(Righe, UnaNuovaHaUnNumeroMaiUsato) {
  Righe<Riga> righe(kCampi);
  righe.Carica({Fatta(1, "a"), Fatta(2, "b")});
  ASSERT_TRUE(righe.Apri(1));
  EXPECT_EQ(righe.Aperta()->testo, "b");
  righe.Sostituisci(righe.Senza());
  righe.Nuova(Fatta(righe.ProssimaPosi(1), "proposta"));
  EXPECT_TRUE(righe.RigaNuova());
  EXPECT_EQ(righe.Aperta(), nullptr);
  EXPECT_FALSE(righe.Digitando());
  EXPECT_THAT(Testi(righe.Senza()), ElementsAre("a"));
  righe.Sostituisci(righe.Con(righe.Digitata()));
  EXPECT_THAT(Testi(righe.Tutte()), ElementsAre("a", "proposta"));
  EXPECT_EQ(righe.Tutte()[1].num, 3) << "that of the deleted one isn't given again";
  righe.Carica({Fatta(1, "altra")});
  EXPECT_EQ(righe.Tutte()[0].num, 4);
  EXPECT_FALSE(righe.Apri(1));
}

TEST(Righe, AnnullataNonLasciaNulla) {
  Righe<Riga> righe(kCampi);
  righe.Nuova(Fatta(1, "a"));
  righe.Annulla();
  EXPECT_FALSE(righe.InRiga());
  EXPECT_TRUE(righe.Tutte().empty());
  EXPECT_EQ(righe.Riga().Testo("Testo"), "");
  EXPECT_FALSE(righe.Modificate());
}

}  // namespace
}  // namespace fenalto::records
