// Every statement of a confirmation and of a deletion is made to fail once: nothing may have
// changed, and the work can go on as if it had not happened.
#include <functional>

#include "core/archives/DittaArchivi.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ArchivioGuastiTest : public DittaArchivi, public ::testing::WithParamInterface<Guasto> {
 protected:
  /// Also writes a row of the other database in the same transaction.
  archives::DescrizioneArchivio ConBanca() {
    archives::DescrizioneArchivio d = Categorie();
    d.conScrittura = [](archives::ContestoArchivio& c) {
      c.ambiente.ArchivioDi("scadenzario")
          .Inserisci("Banche", {{"Cod", c.Codice()}, {"Nome", "di prova"}});
    };
    d.conEliminazione = [](archives::ContestoArchivio& c) {
      c.ambiente.ArchivioDi("scadenzario")
          .Esegui("delete * from Banche where " + sql::Criterio("Cod", "=", c.codicePrima));
    };
    return d;
  }
  std::int64_t Banche() {
    return ambiente.ArchivioDi("scadenzario").Singolo("select count(*) from Banche").Intero();
  }
  int ProvaTutti(archives::ArchivioCodici& archivio, const std::function<bool()>& azione) {
    const auto fotografia = [&] {
      std::string testo = archivio.Titolo() + "|" + archivio.Record().Testo("Descrizione") + "|" +
                          std::to_string(Banche());
      for (const std::string& riga : Righe()) testo += "\n" + riga;
      return testo;
    };
    return FallisceOgniIstruzione(ambiente.Basi(), GetParam(), fotografia, [&] {
      if (azione()) return true;
      EXPECT_THAT(Messaggi(), ElementsAre(HasSubstr("niente è stato scritto")));
      EXPECT_EQ(ambiente.Basi().Blocchi().ChiTiene("Categorie", "A").has_value(),
                !archivio.Nuovo());
      return false;
    });
  }
};

TEST_P(ArchivioGuastiTest, NuovoVariatoEliminato) {
  archives::ArchivioCodici archivio(ambiente, ConBanca());
  archivio.Inizia();
  archivio.Record().Scrivi("Cod", "N");
  archivio.Record().Scrivi("Descrizione", "nuova");
  EXPECT_GE(ProvaTutti(archivio, [&] { return archivio.Conferma(); }), 5);
  EXPECT_EQ(Banche(), 1);

  ASSERT_TRUE(archivio.Apri("A"));
  archivio.Record().Scrivi("Cod", "AA");
  archivio.Record().Scrivi("Descrizione", "variata");
  EXPECT_GE(ProvaTutti(archivio, [&] { return archivio.Conferma(); }), 7);
  EXPECT_THAT(Righe(), ElementsAre("AA=variata", "B=voce B", "C=voce C", "N=nuova"));

  Tessarc().Inserisci("Categorie", {{"Cod", "A"}});
  ASSERT_TRUE(archivio.Apri("A"));
  EXPECT_GE(ProvaTutti(archivio,
                       [&] {
                         dialoghi.Rispondera("DOCUMENTO", Risposta::Si);
                         return archivio.Elimina();
                       }),
            5);
  EXPECT_THAT(Righe(), ElementsAre("AA=variata", "B=voce B", "C=voce C", "N=nuova"));
}

INSTANTIATE_TEST_SUITE_P(Guasti, ArchivioGuastiTest,
                         ::testing::Values(Guasto::Errore, Guasto::Memoria));

}  // namespace fenalto::prova
