// Customers and suppliers through the one use case: what stops, what is only told, the list that
// movements search.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "documents/parties/ArchiviParti.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::documents {
namespace {

using Campi = std::vector<std::pair<const char*, Valore>>;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ArchiviPartiTest : public prova::DittaDiProva {
 protected:
  archives::ArchivioCodici Archivio(const std::string& finestra) {
    const auto tutti = ArchiviParti();
    return {ambiente,
            *std::ranges::find(tutti, finestra, &archives::DescrizioneArchivio::finestra)};
  }

  /// As typed: each field is left after its value.
  static void Scrivi(archives::ArchivioCodici& archivio, const Campi& campi) {
    for (const auto& [campo, valore] : campi) {
      archivio.Record().Scrivi(campo, valore);
      archivio.Lasciato(campo);
    }
  }

  /// The row of the list: "Descrizione|Descrizione2", "-" for none.
  std::string Voce(const std::string& cod, const std::string& cfp) {
    Rs rs = Tessarc().Recordset(
        "select Descrizione, Descrizione2 from ContiClientiFornitori where Cod='" + cod +
        "' and CFP='" + cfp + "'");
    return rs.Eof() ? "-" : rs.Fields(0).Testo() + "|" + rs.Fields(1).Testo();
  }
};

TEST_F(ArchiviPartiTest, LElencoSegueLaParte) {
  for (const auto& [tabella, cfp, conto] :
       {std::tuple{"Clienti", "C", "120.001"}, std::tuple{"Fornitori", "F", "400.001"}}) {
    SCOPED_TRACE(tabella);
    const std::string altra = *cfp == 'C' ? "F" : "C";
    archives::ArchivioCodici archivio = Archivio(tabella);
    archivio.Inizia();
    EXPECT_EQ(archivio.Record().Testo("Conto"), conto) << "the first of the class is proposed";
    Scrivi(archivio, {{"Cod", "9000"}, {"ragsoc1", "Rossi d'Adda"}, {"ragsoc2", "di Rossi Ugo"}});
    ASSERT_TRUE(archivio.Conferma());
    EXPECT_EQ(Voce("9000", cfp), "Rossi d'Adda|di Rossi Ugo");
    EXPECT_EQ(Voce("9000", altra), "-");

    ASSERT_TRUE(archivio.Apri("9000"));
    Scrivi(archivio, {{"ragsoc2", ""}});
    ASSERT_TRUE(archivio.Conferma());
    EXPECT_EQ(Voce("9000", cfp), "Rossi d'Adda|");

    ASSERT_TRUE(archivio.Apri("9000"));
    Scrivi(archivio, {{"Cod", "9001"}});
    ASSERT_TRUE(archivio.Conferma());
    EXPECT_EQ(Voce("9000", cfp), "-");
    EXPECT_EQ(Voce("9001", cfp), "Rossi d'Adda|");

    // A row that somebody took away is told, and the record is written all the same.
    Tessarc().Esegui("delete from ContiClientiFornitori where Cod='9001'");
    ASSERT_TRUE(archivio.Apri("9001"));
    Scrivi(archivio, {{"localita", "Lecco"}});
    ASSERT_TRUE(archivio.Conferma());
    EXPECT_THAT(SoloMessaggio(), HasSubstr("Cod 9001 non trovato"));
    EXPECT_EQ(ambiente.Cerca("tessarc", tabella, {{"Cod", "9001"}}, "localita"), Valore("Lecco"));

    ASSERT_TRUE(archivio.Apri("0002"));
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
    ASSERT_TRUE(archivio.Elimina());
    EXPECT_EQ(Voce("0002", cfp), "-");
    EXPECT_NE(Voce("0002", altra), *cfp == 'C' ? "-" : "");
  }
}

TEST_F(ArchiviPartiTest, ChiHaMovimentiNonCambiaCodice) {
  struct Caso {
    const char* archivio;  ///< of the statement
    const char* prepara;
    const char* parte;  ///< archive whose code 0001 is then in use
    const char *libera, *uso;
  };
  const std::vector<Caso> casi = {
      {"tessarc", "insert into Movimenti (Anno, CFP, Conto) values (2024, 'C', '0001')", "Clienti",
       "Fornitori", "movimenti contabili"},
      {"tessarc", "insert into Movimenti (CFPControp, ContoControp) values ('F', '0001')",
       "Fornitori", "Clienti", "movimenti contabili"},
      {"tessarc", "insert into Articoli (Anno, NumDoc, CFP, Conto) values (2024, 1, 'F', '0001')",
       "Fornitori", "Clienti", "registrazioni"},
      {"scadenzario", "insert into Scadenze (CFP, Conto) values ('C', '0001')", "Clienti",
       "Fornitori", "scadenze"},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.prepara);
    ambiente.ArchivioDi(caso.archivio).Esegui(caso.prepara);
    archives::ArchivioCodici archivio = Archivio(caso.parte);
    ASSERT_TRUE(archivio.Apri("0001"));
    Scrivi(archivio, {{"Cod", "9000"}});
    Rifiuto rifiuto;
    EXPECT_FALSE(archivio.Conferma(&rifiuto));
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.uso));
    EXPECT_EQ(rifiuto.campo, "Cod");
    dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
    EXPECT_FALSE(archivio.Elimina());
    EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.uso));
    // The summary account of a party in use may be another, not none.
    Scrivi(archivio, {{"Cod", "0001"}, {"Conto", ""}});
    EXPECT_FALSE(archivio.Conferma());
    EXPECT_EQ(SoloMessaggio(),
              "il conto riepilogativo non si può cancellare esistono registrazioni");
    EXPECT_FALSE(archivio.Record().Testo("Conto").empty()) << "the stored account comes back";
    // The same code of the other class is another party.
    archives::ArchivioCodici altro = Archivio(caso.libera);
    ASSERT_TRUE(altro.Apri("0001"));
    Scrivi(altro, {{"Cod", "9000"}});
    EXPECT_TRUE(altro.Conferma());
    ASSERT_TRUE(altro.Apri("9000"));
    Scrivi(altro, {{"Cod", "0001"}});
    EXPECT_TRUE(altro.Conferma());
    for (const char* tabella : {"Movimenti", "Articoli"})
      Tessarc().Esegui(std::string("delete from ") + tabella);
  }
}

TEST_F(ArchiviPartiTest, Rifiuti) {
  struct Caso {
    Campi campi;
    const char *messaggio, *campo;
  };
  const std::vector<Caso> casi = {
      {{{"Cod", " "}}, "inserire un codice", "Cod"},
      {{{"Cod", "12345678901"}}, "il codice può avere al più 10 caratteri", "Cod"},
      {{{"Cod", "9000"}, {"Conto", " "}}, "manca conto riepilogativo", "Conto"},
      {{{"Cod", "9000"}, {"Conto", "400.001"}},
       "il conto 400.001 non è un riepilogativo di classe C",
       "Conto"},
      {{{"Cod", "9000"}, {"Conto", "X"}}, "il conto X non è un riepilogativo di classe C", "Conto"},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.messaggio);
    archives::ArchivioCodici clienti = Archivio("Clienti");
    clienti.Inizia();
    Scrivi(clienti, caso.campi);
    Rifiuto rifiuto;
    EXPECT_FALSE(clienti.Conferma(&rifiuto));
    EXPECT_EQ(SoloMessaggio(), caso.messaggio);
    EXPECT_EQ(rifiuto.campo, caso.campo);
  }
  EXPECT_EQ(Voce("9000", "C"), "-");
}

TEST_F(ArchiviPartiTest, NumeriFiscaliErratiSiDicono) {
  struct Caso {
    Campi campi;
    const char* avviso;       ///< begins so; empty for none
    const char* tenuto = "";  ///< what stays of the VAT number
  };
  const std::vector<Caso> casi = {
      {{{"piva", "12345678903"}}, ""},
      {{{"piva", "12345678903     "}}, "", "12345678903"},
      {{{"piva",
         " 123 456\xC2\xA0"
         "789\t03"}},
       "",
       "12345678903"},
      {{{"piva", "12.345.678.903"}}, "", "12345678903"},
      {{{"piva", "12.345.678.901"}}, "PARTITA IVA ERRATA", "12345678901"},
      {{{"piva", "RSS MRA 80A01 H501U"}}, "", "RSSMRA80A01H501U"},
      {{{"piva", "DE 123 456 789"}}, "PARTITA IVA ERRATA", "DE 123 456 789"},
      {{{"piva", "RSSMRA80A01H501U"}}, ""},
      {{{"piva", ""}}, ""},
      {{{"piva", "IT12345678901"}}, "PARTITA IVA ERRATA", "IT12345678901"},
      {{{"piva", "IT12345678903"}}, "PARTITA IVA ERRATA", "IT12345678903"},
      {{{"piva", "it 012 345 678 97"}}, "", "01234567897"},
      {{{"piva", "I.T. 012.345.678.97"}}, "", "01234567897"},
      {{{"piva", "FR 12 345 678 901 23"}}, "PARTITA IVA ERRATA", "FR1234567890123"},
      {{{"piva", "DE12345"}}, "PARTITA IVA ERRATA"},
      {{{"piva", "12345678901"}},
       "PARTITA IVA ERRATA\n(oppure potrebbe trattarsi di codice fiscale o p.iva estera)"},
      {{{"piva", "1234"}}, "PARTITA IVA ERRATA"},
      {{{"CodFisc", "rssmra80a01h501u"}}, ""},
      {{{"CodFisc", "12345678903"}}, ""},
      {{{"CodFisc", "RSSMRA80A01H501A"}}, "CODICE FISCALE ERRATO\nlettera di controllo"},
      {{{"CodFisc", "ESX1234567X"}}, ""},
      {{{"piva", "FR12345678901"}, {"CodFisc", "12345"}}, "PARTITA IVA ERRATA"},
      {{{"CodFisc", "12345"}}, "CODICE FISCALE ERRATO"},
  };
  for (std::size_t i = 0; i < casi.size(); ++i) {
    const Caso& caso = casi[i];
    SCOPED_TRACE(i);
    archives::ArchivioCodici fornitori = Archivio("Fornitori");
    fornitori.Inizia();
    Scrivi(fornitori, caso.campi);
    if (*caso.tenuto != '\0') {
      EXPECT_EQ(fornitori.Record().Testo("piva"), caso.tenuto);
    }
    if (*caso.avviso == '\0') {
      EXPECT_THAT(Messaggi(), IsEmpty());
    } else {
      EXPECT_THAT(SoloMessaggio(), HasSubstr(caso.avviso));
    }
    // It stops nothing.
    fornitori.Record().Scrivi("Cod", std::to_string(9000 + i));
    fornitori.Record().Scrivi("piva", "");
    EXPECT_TRUE(fornitori.Conferma());
  }
}

// More than the column holds isn't cut: it is told, and stays to be corrected.
TEST_F(ArchiviPartiTest, PartitaIvaTroppoLunga) {
  archives::ArchivioCodici fornitori = Archivio("Fornitori");
  fornitori.Inizia();
  Scrivi(fornitori, {{"Cod", "9000"}, {"piva", "FR 12 345 678 901 234 56"}});
  Messaggi();
  Rifiuto rifiuto;
  EXPECT_FALSE(fornitori.Conferma(&rifiuto));
  EXPECT_EQ(SoloMessaggio(), "partita IVA: FR1234567890123456 ha 18 caratteri, al massimo sono 16");
  EXPECT_EQ(rifiuto.campo, "piva");
  fornitori.Record().Scrivi("piva", "FR12345678901");
  EXPECT_TRUE(fornitori.Conferma());
}

TEST_F(ArchiviPartiTest, LaPartitaIvaDiUnAltro) {
  constexpr const char* kPiva = "12345678903";
  constexpr const char* kDomanda = "partita iva già esistente su cod 0001\nproseguo ugualmente";
  Tessarc().Esegui(std::string("update Clienti set piva='") + kPiva + "' where Cod='0001'");
  Tessarc().Esegui(std::string("update Fornitori set piva='") + kPiva + "' where Cod='0002'");
  archives::ArchivioCodici clienti = Archivio("Clienti");

  clienti.Inizia();
  clienti.Record().Scrivi("Cod", "9000");
  dialoghi.Rispondera(kDomanda, Risposta::No);
  Scrivi(clienti, {{"piva", kPiva}});
  EXPECT_EQ(clienti.Record().Testo("piva"), "");
  dialoghi.Rispondera(kDomanda, Risposta::Si);
  Scrivi(clienti, {{"piva", kPiva}});
  EXPECT_TRUE(clienti.Conferma()) << "not asked twice";

  // Nothing to ask about one's own, stored as it is.
  ASSERT_TRUE(clienti.Apri("0001"));
  Scrivi(clienti, {{"localita", "Como"}});
  EXPECT_TRUE(clienti.Conferma());

  // A copy has typed nothing.
  ASSERT_TRUE(clienti.Apri("0001"));
  clienti.Duplica();
  clienti.Record().Scrivi("Cod", "9001");
  dialoghi.Rispondera(kDomanda, Risposta::No);
  Rifiuto rifiuto;
  EXPECT_FALSE(clienti.Conferma(&rifiuto));
  EXPECT_EQ(rifiuto.campo, "piva");
  dialoghi.Rispondera(kDomanda, Risposta::Si);
  EXPECT_TRUE(clienti.Conferma());
}

}  // namespace
}  // namespace fenalto::documents
