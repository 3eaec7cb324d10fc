// Customers: automatic coding, and the destinations written with them.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "documents/parties/ArchiviParti.h"
#include "documents/parties/CodiceParte.h"
#include "ledger/DittaDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::documents {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(CodiceParte, IlCodiceDopo) {
  struct Caso {
    const char *ultimo, *dopo;
  };
  for (const Caso& caso :
       {Caso{"", "0001"}, Caso{"0001", "0002"}, Caso{"9", "0010"}, Caso{"0999", "1000"},
        Caso{"9999", "10000"}, Caso{"99999", "100000"}, Caso{"100000", ""}, Caso{"ABC1", ""},
        Caso{"12.3", ""}, Caso{"1 2", ""}, Caso{"-12", ""}}) {
    EXPECT_EQ(CodiceDopo(caso.ultimo), caso.dopo) << caso.ultimo;
  }
}

TEST(CodiceParte, DiSerie) {
  for (const char* codice : {"0001", "9999"}) EXPECT_TRUE(CodiceDiSerie(codice)) << codice;
  for (const char* codice : {"", "001", "00001", "12.3", "1,23", "A001", "000 ", "-001"})
    EXPECT_FALSE(CodiceDiSerie(codice)) << codice;
}

class ClientiTest : public prova::DittaDiProva {
 protected:
  ClientiTest()
      : destinazioni(std::make_shared<DestinazioniCliente>()),
        clienti(ambiente, ArchivioClienti(destinazioni)) {
    ambiente.ScriviImpostazione({}, "config", "CodficaCliFor", "1");
  }

  void Aggiungi(const char* nome) {
    ASSERT_TRUE(destinazioni->Nuova(clienti.Contesto()));
    destinazioni->Riga().Scrivi("RagSoc1Dest_R", nome);
    ASSERT_TRUE(destinazioni->Conferma(dialoghi));
  }

  /// "0001 1 Lecco", in order.
  std::vector<std::string> Scritte() {
    std::vector<std::string> righe;
    Rs rs = Tessarc().Recordset(
        "select COD, POSI, RagSoc1Dest_R from Destinazioni_R order by COD, POSI");
    for (; !rs.Eof(); rs.MoveNext()) {
      righe.push_back(rs.Fields(0).Testo() + " " + std::to_string(rs.Fields(1).Intero()) + " " +
                      rs.Fields(2).Testo());
    }
    return righe;
  }

  std::shared_ptr<DestinazioniCliente> destinazioni;
  archives::ArchivioCodici clienti;
};

TEST_F(ClientiTest, LUltimoCodiceVaPerNumero) {
  const auto ultimo = [this](const char* altro) {
    Tessarc().Inserisci("Clienti", {{"Cod", altro}});
    return UltimoCodice(ambiente, "Clienti");
  };
  EXPECT_EQ(UltimoCodice(ambiente, "Clienti"), "0003");
  EXPECT_EQ(ultimo("9999"), "9999");
  EXPECT_EQ(ultimo("10000"), "10000") << "not the highest as a text";
  EXPECT_EQ(ultimo("-5"), "10000");
  EXPECT_EQ(ultimo("ABC1"), "ABC1");
  EXPECT_EQ(UltimoCodice(ambiente, "Fornitori"), "0003");
}

TEST_F(ClientiTest, LaCopiaPrendeCodiceNuovoEDestinazioni) {
  ASSERT_TRUE(clienti.Apri("0001"));
  Aggiungi("Lecco");
  ASSERT_TRUE(clienti.Conferma());
  ASSERT_TRUE(clienti.Apri("0001"));
  clienti.Duplica();
  EXPECT_EQ(clienti.Record().Testo("Cod"), "0004");
  ASSERT_TRUE(clienti.Conferma());
  EXPECT_THAT(Scritte(), ElementsAre("0001 1 Lecco", "0004 1 Lecco"));
}

TEST_F(ClientiTest, DestinazioniNonConfermateNonRestano) {
  ASSERT_TRUE(clienti.Apri("0001"));
  Aggiungi("Lecco");
  clienti.Abbandona();
  ASSERT_TRUE(clienti.Apri("0002"));
  EXPECT_THAT(destinazioni->Righe(), IsEmpty());
  ASSERT_TRUE(clienti.Conferma());
  EXPECT_THAT(Scritte(), IsEmpty());

  // One without any text is refused.
  ASSERT_TRUE(clienti.Apri("0001"));
  ASSERT_TRUE(destinazioni->Nuova(clienti.Contesto()));
  destinazioni->Riga().Scrivi("RagSoc1Dest_R", "  ");
  EXPECT_FALSE(destinazioni->Conferma(dialoghi));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("in bianco"));
  EXPECT_TRUE(destinazioni->InRiga());
}

TEST_F(ClientiTest, QuelCheFallisceNonLasciaNulla) {
  ASSERT_TRUE(clienti.Apri("0001"));
  Aggiungi("Lecco");
  Aggiungi("Como");
  ASSERT_TRUE(clienti.Conferma());
  ASSERT_TRUE(clienti.Apri("0001"));
  clienti.Record().Scrivi("Cod", "0009");
  Aggiungi("Monza");
  const int falliti = prova::FallisceOgniIstruzione(
      ambiente.Basi(), Guasto::Errore, [this] { return Contenuto(); },
      [&] { return clienti.Conferma(); });
  EXPECT_GT(falliti, 4);
  EXPECT_THAT(Scritte(), ElementsAre("0009 1 Lecco", "0009 2 Como", "0009 3 Monza"));
}

}  // namespace
}  // namespace fenalto::documents
