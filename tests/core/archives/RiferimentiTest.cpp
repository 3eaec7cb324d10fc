#include <set>

#include "core/archives/DittaArchivi.h"
#include "core/archives/Riferimenti.h"

namespace fenalto::prova {

using ::testing::Optional;

class RiferimentiTest : public DittaArchivi {};

// A line that names a table or a field that isn't there would stop every deletion of its archive.
TEST_F(RiferimentiTest, OgniRigaVede) {
  std::set<std::string> gia;
  for (const archives::Riferimento& r : archives::TavolaRiferimenti()) {
    const std::string riga =
        std::string(r.archivio) + " <- " + r.tabella + "." + r.campo + " " + r.condizione;
    SCOPED_TRACE(riga);
    EXPECT_TRUE(gia.insert(riga).second);
    Archivio& archivio = ambiente.ArchivioDi(r.chiave);
    ASSERT_NE(archivio.Catalogo().Tabella(r.tabella), nullptr);
    const std::string usato = "CODICE DI PROVA";
    EXPECT_EQ(archives::CodiceUsato(ambiente, r.archivio, usato), std::nullopt);
    Transazione transazione(ambiente.Basi());
    std::vector<Coppia> campi = {{r.campo, usato}};
    if (const std::string condizione = r.condizione; !condizione.empty()) {
      const std::size_t uguale = condizione.find("='");
      ASSERT_NE(uguale, std::string::npos);
      campi.emplace_back(condizione.substr(0, uguale), condizione.substr(uguale + 2, 1));
    }
    archivio.Inserisci(r.tabella, campi);
    EXPECT_THAT(archives::CodiceUsato(ambiente, r.archivio, "codice di prova"),
                Optional(r.messaggio));
  }
}

TEST_F(RiferimentiTest, ContiNelLoroOrdine) {
  EXPECT_EQ(archives::CodiceUsato(ambiente, "conti", ""), std::nullopt);
  const std::string inizio = "non si può variare o eliminare il codice in quanto ci sono ";
  // A customer's own code may be that of an account.
  Tessarc().Inserisci("Movimenti", {{"CFP", "C"}, {"Conto", "900.1"}});
  EXPECT_EQ(archives::CodiceUsato(ambiente, "Conti", "900.1"), std::nullopt);
  const std::vector<std::tuple<const char*, const char*, const char*>> ultimiPrima = {
      {"Pagamento", "Conto", "codici pagamento collegati a questo conto"},
      {"RegistriIva", "ContoCassa", "regisstri iva collegati a questo conto"},
      {"Fornitori", "Conto", "fornitori che appartengono a questo conto"},
      {"Clienti", "Conto", "clienti che appartengono a questo conto"}};
  for (const auto& [tabella, campo, fine] : ultimiPrima) {
    Tessarc().Inserisci(tabella, {{"Cod", "zz"}, {campo, "900.1"}});
    EXPECT_THAT(archives::CodiceUsato(ambiente, "Conti", "900.1"), Optional(inizio + fine));
  }
}

TEST_F(RiferimentiTest, CodiceCheNominaSeStesso) {
  Tessarc().Inserisci("Pagamento", {{"Cod", "q1"}, {"CodPagIva", "Q1"}});
  EXPECT_EQ(archives::CodiceUsato(ambiente, "Pagamento", "Q1"), std::nullopt);
  Tessarc().Inserisci("Pagamento", {{"Cod", "q2"}, {"CodPagIva", "q1"}});
  EXPECT_NE(archives::CodiceUsato(ambiente, "Pagamento", "Q1"), std::nullopt);
}

}  // namespace fenalto::prova
