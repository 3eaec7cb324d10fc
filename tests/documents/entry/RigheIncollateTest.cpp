// Rows pasted from a spreadsheet: what each line is taken for, and what is told of those that are
// wrong.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "core/values/ImportoDiProva.h"
#include "core/values/Testo.h"
#include "documents/entry/RigheIncollate.h"

namespace fenalto::prova {
namespace {

using documents::ProdottoIncollato;
using documents::RigaIncollata;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::optional<ProdottoIncollato> Cerca(const std::string& letto) {
  static const std::vector<ProdottoIncollato> prodotti{
      {"X1", "Mattoni"}, {"X 2", "Calce", true}, {"80\"", "Tubo"}, {"quantità", "Così si chiama"}};
  if (letto == "8001234567890") return prodotti[0];
  for (const auto& uno : prodotti) {
    if (UgualeTesto(uno.codice, letto)) return uno;
  }
  return std::nullopt;
}

std::string Numero(const std::optional<Importo>& importo) {
  return importo ? importo->Testo() : "";
}

/// "2: X1 10 a 0.85 sconti 10/5/", and what is wrong behind an exclamation mark.
std::vector<std::string> Lette(const std::string& testo) {
  const auto esito = documents::LeggiIncollate(testo, Cerca);
  if (!esito) return {"! " + esito.Errore().messaggio};
  std::vector<std::string> lette;
  for (const RigaIncollata& riga : esito.Valore()) {
    const auto& v = riga.valori;
    std::string una = std::to_string(riga.linea) + ": " + v.codiceRiga + " " + Numero(v.quantita) +
                      " a " + Numero(v.prezzo) + " sconti " + Numero(v.sc1) + "/" + Numero(v.sc2) +
                      "/" + Numero(v.sc3);
    if (!riga.errore.empty()) una += " ! " + riga.errore;
    lette.push_back(una);
  }
  return lette;
}

TEST(RigheIncollateTest, CheCosaDiventaOgniRiga) {
  struct Caso {
    const char *testo, *letta;
  };
  for (const Caso& caso : std::initializer_list<Caso>{
           {"X1\t10\t0,85\t10", "1: X1 10 a 0.85 sconti 10//"},
           {"X1;10;0,85;10", "1: X1 10 a 0.85 sconti 10//"},
           {"x1\t10", "1: X1 10 a  sconti //"},
           {"X1", "1: X1 1 a  sconti //"},
           {"8001234567890\t2", "1: X1 2 a  sconti //"},
           {" X 2 \t 3 ", "1: X 2 3 a  sconti //"},
           {"\"80\"\"\";4", "1: 80\" 4 a  sconti //"},
           {"X1\t1.234,50\t€ 1.234,5678\t12,5%", "1: X1 1234.5 a 1234.5678 sconti 12.5//"},
           {"X1\t-2\t1.5", "1: X1 -2 a 1.5 sconti //"},
           {"X1\t1\t1\t10+5+2,5%", "1: X1 1 a 1 sconti 10/5/2.5"},
           {"X1\t1\t\t10", "1: X1 1 a  sconti 10//"},
           {"X1;1;;;;", "1: X1 1 a  sconti //"},
           {"Codice\tQ.tà\nX1\t2", "2: X1 2 a  sconti //"},
           {"quantità\tpezzi", "1: quantità  a  sconti // ! quantità: "},
           {"\xEF\xBB\xBFX1\t2", "1: X1 2 a  sconti //"},
           {"\r\n\t\t\r\nX1\t2\r\n", "3: X1 2 a  sconti //"},
           {"X9\t1", "1: X9 1 a  sconti // ! non c'è un prodotto con codice o barcode X9"},
           {"\t5", "1:  5 a  sconti // ! manca il codice"},
           {"X1\tdue\t1", "1: X1  a 1 sconti // ! quantità: "},
           {"X1\t1\t1,23456", "1: X1 1 a  sconti // ! prezzo: "},
           {"X1\t1\t1\t5+x", "1: X1 1 a 1 sconti 5// ! sconto: "},
           {"X1\t1\t1\t5+4+3+2", "1: X1 1 a 1 sconti 5/4/3 ! sconto: sono ammessi al più tre"},
           {"X1\t1\t1\t5\tnota", "1: X1 1 a 1 sconti 5// ! colonne in più"}}) {
    SCOPED_TRACE(caso.testo);
    const std::string testo = caso.testo;
    const auto lette = Lette(testo.starts_with("X1\tdue") ? "X1\t1\n" + testo : testo);
    ASSERT_FALSE(lette.empty());
    std::string attesa = caso.letta;
    if (testo.starts_with("X1\tdue")) attesa.front() = '2';
    EXPECT_THAT(lette.back(), HasSubstr(attesa));
    EXPECT_EQ(lette.back().find('!') != std::string::npos, attesa.find('!') != std::string::npos);
  }
}

TEST(RigheIncollateTest, SoloLeRigheGiusteVannoSulDocumento) {
  const auto esito = documents::LeggiIncollate("X1;1\nX9;2\nX 2;3\n;4\nX1;5", Cerca);
  ASSERT_TRUE(esito);
  std::vector<std::string> quantita;
  for (const auto& valori : documents::Accettate(esito.Valore())) {
    quantita.push_back(Numero(valori.quantita));
  }
  EXPECT_THAT(quantita, ElementsAre("1", "3", "5"));
  EXPECT_TRUE(esito.Valore()[2].fuoriUso);
}

TEST(RigheIncollateTest, UnTestoCheNonHaRighe) {
  for (const char* testo : {"", " \n\t\n", "Codice;Quantità"}) {
    EXPECT_THAT(Lette(testo), ElementsAre(HasSubstr("negli appunti non ci sono righe")));
  }
  std::string troppe;
  for (std::size_t i = 0; i <= documents::kIncollateMassime + 1; ++i) troppe += "X1;1\n";
  EXPECT_THAT(Lette(troppe), ElementsAre(HasSubstr("! ")));
}

}  // namespace
}  // namespace fenalto::prova
