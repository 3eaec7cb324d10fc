// The search: what is found, and in which order.
#include <set>

#include "core/session/Utenti.h"
#include "ledger/DittaDiProva.h"
#include "overview/IndiceVoci.h"
#include "overview/VociDellaDitta.h"

namespace fenalto::prova {
namespace {

using overview::GenereVoce;
using overview::IndiceVoci;

overview::Voce Funzione(const char* nome, const char* percorso, const char* sinonimi = "") {
  return {.genere = GenereVoce::Funzione,
          .nome = nome,
          .codice = {},
          .percorso = percorso,
          .sinonimi = sinonimi,
          .rinvio = {.funzione = nome}};
}

overview::Voce Con(GenereVoce genere, const char* codice, const char* nome,
                   const char* percorso = "") {
  return {.genere = genere,
          .nome = nome,
          .codice = codice,
          .percorso = percorso,
          .sinonimi = {},
          .rinvio = {.funzione = "x", .codice = codice}};
}

std::vector<std::string> Trova(const IndiceVoci& indice, const char* testo,
                               std::size_t perGenere = 8) {
  std::vector<std::string> nomi;
  for (const auto& colpo : indice.Cerca(testo, perGenere)) nomi.push_back(colpo.voce->nome);
  return nomi;
}

}  // namespace

class IndiceVociTest : public ::testing::Test {
 protected:
  IndiceVociTest() {
    indice.Imposta(
        IndiceVoci::Parte::Sessione,
        {Con(GenereVoce::Recente, "", "affitto di marzo", "registrazione art. 3"),
         Funzione("Registri Iva", "Registri IVA e Giornale"),
         Funzione("Giornale", "Registri IVA e Giornale", "libro giornale; stampa giornale"),
         Funzione("Giornale clienti", "Stampe"), Funzione("Elenco del giornale", "Stampe"),
         Funzione("Movimenti", "Registrazioni", "prima nota; cassa e banca"),
         Funzione("Registrazione Pagamenti", "Scadenzario", "incassi; pagamenti")});
    indice.Imposta(IndiceVoci::Parte::Ditta,
                   {Con(GenereVoce::Conto, "100.010", "CASSA CONTANTI"),
                    Con(GenereVoce::Conto, "100.020", "Incassi da versare"),
                    Con(GenereVoce::Cliente, "0002", "Perché no s.r.l.", "Forlì"),
                    Con(GenereVoce::Cliente, "0010", "De Rossi", "Roma"),
                    Con(GenereVoce::Cliente, "0003", "Rossi Mario", "Roma"),
                    Con(GenereVoce::Fornitore, "0003", "Fratelli Carossi")});
  }
  IndiceVoci indice;
};

TEST_F(IndiceVociTest, EsattoPoiInizioPoiParolaPoiDentroPoiPercorso) {
  EXPECT_THAT(Trova(indice, "giornale"),
              ElementsAre("Giornale", "Giornale clienti", "Elenco del giornale", "Registri Iva"));
  // Beginnings of names before what people call a function, letters inside words last.
  EXPECT_THAT(Trova(indice, "regist"), ElementsAre("Registri Iva", "Registrazione Pagamenti",
                                                   "Giornale", "Movimenti", "affitto di marzo"));
  EXPECT_THAT(Trova(indice, "rossi"), ElementsAre("Rossi Mario", "De Rossi", "Fratelli Carossi"));
  EXPECT_THAT(Trova(indice, "nota prima"), ElementsAre("Movimenti"));
  EXPECT_THAT(Trova(indice, "prima nota"), ElementsAre("Movimenti"));
}

TEST_F(IndiceVociTest, IlGenereDelColpoMigliorePrima) {
  // What a function is called counts as its name, the account that begins so comes next.
  EXPECT_THAT(Trova(indice, "incassi"),
              ElementsAre("Registrazione Pagamenti", "Incassi da versare"));
  EXPECT_THAT(Trova(indice, "cassa"), ElementsAre("CASSA CONTANTI", "Movimenti"));
  // By code, without accents or case, two words in any order, blanks around.
  EXPECT_THAT(Trova(indice, "0003"), ElementsAre("Rossi Mario", "Fratelli Carossi"));
  EXPECT_THAT(Trova(indice, "PERCHE forli"), ElementsAre("Perché no s.r.l."));
  EXPECT_THAT(Trova(indice, "  roma ROSSI "), ElementsAre("De Rossi", "Rossi Mario"));
  EXPECT_THAT(Trova(indice, "zzz"), IsEmpty());
}

TEST_F(IndiceVociTest, NienteScrittoEQuante) {
  EXPECT_EQ(Trova(indice, " ").size(), 7U);
  EXPECT_EQ(Trova(indice, "").front(), "affitto di marzo");
  EXPECT_THAT(Trova(indice, "rossi", 1), ElementsAre("Rossi Mario", "Fratelli Carossi"));
  indice.Imposta(IndiceVoci::Parte::Ditta, {});
  EXPECT_THAT(Trova(indice, "rossi"), IsEmpty());
}

class VociDellaDittaTest : public DittaDiProva {};

TEST_F(VociDellaDittaTest, ContiEPartiSecondoIDiritti) {
  Metti(Tessarc(), "Clienti", "Cod", "9001", "ragsoc1", "Bianchi", "piva", "01234567890",
        "localita", "Lodi");
  IndiceVoci indice;
  indice.Imposta(IndiceVoci::Parte::Ditta, overview::LeggiVociDitta(ambiente));
  const auto bianchi = indice.Cerca("01234567890", 5);
  ASSERT_EQ(bianchi.size(), 1U);
  EXPECT_EQ(bianchi[0].voce->rinvio,
            (Rinvio{.funzione = "InterrCliFor", .codice = "9001", .classe = "C"}));
  EXPECT_EQ(bianchi[0].voce->archivio, AllArchivio("CLIENTI", "9001"));
  const auto cassa = indice.Cerca("100.010", 5);
  ASSERT_FALSE(cassa.empty());
  EXPECT_EQ(cassa[0].voce->rinvio, AlConto("P", "100.010"));
  // A product by a word of its first line, by its barcode, and by its code when it is out of use.
  Metti(Tessarc(), "CodiciRiga", "Cod", "XA1", "Descrizione", "Vite svasata\nzincata", "Barcode",
        "8001234", "FuoriUso", true);
  indice.Imposta(IndiceVoci::Parte::Ditta, overview::LeggiVociDitta(ambiente));
  for (const char* testo : {"svasata", "8001234", "xa1"}) {
    const auto vite = indice.Cerca(testo, 5);
    ASSERT_EQ(vite.size(), 1U) << testo;
    EXPECT_EQ(vite[0].voce->nome, "Vite svasata");
    EXPECT_EQ(vite[0].voce->percorso, "fuori uso");
    EXPECT_EQ(vite[0].voce->rinvio, AllArchivio("CODICIRIGA", "XA1"));
  }
  EXPECT_THAT(indice.Cerca("zincata", 5), IsEmpty());
  // Parties and products without accounts for whoever has no right to the books.
  Utenti::HashEconomico(true);
  ASSERT_TRUE(Utenti(ambiente).Salva("", {"capo", "", 99}, "a"));
  ASSERT_TRUE(Utenti(ambiente).Salva("", {"magazzino", "", 30}, "b"));
  const auto altra = NuovaStazione("ALTRA");
  const auto generi = [&] {
    std::set<GenereVoce> trovati;
    for (const auto& voce : overview::LeggiVociDitta(*altra->ambiente)) trovati.insert(voce.genere);
    return trovati;
  };
  EXPECT_THAT(generi(), IsEmpty());
  ASSERT_TRUE(altra->ambiente->Accedi("magazzino", "b"));
  Utenti::HashEconomico(false);
  EXPECT_TRUE(generi().contains(GenereVoce::Cliente));
  EXPECT_TRUE(generi().contains(GenereVoce::Prodotto));
  EXPECT_FALSE(generi().contains(GenereVoce::Conto));
}

}  // namespace fenalto::prova
