// The small archives of all rooms, through the one use case: what each refuses, and that every
// field described is one that the company keeps.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "core/archives/FonteCodici.h"
#include "documents/types/ArchiviDocumenti.h"
#include "duedates/codes/ArchiviScadenze.h"
#include "ledger/DittaDiProva.h"
#include "ledger/accounts/ArchiviContabili.h"
#include "warehouse/products/ArchiviMagazzino.h"

namespace fenalto::warehouse {
namespace {

using Campi = std::vector<std::pair<const char*, Valore>>;

std::vector<archives::DescrizioneArchivio> Tutti() {
  std::vector<archives::DescrizioneArchivio> tutti;
  for (auto&& stanza : {ledger::ArchiviContabili(), documents::ArchiviDocumenti(),
                        ArchiviMagazzino(), duedates::ArchiviScadenze()}) {
    tutti.insert(tutti.end(), stanza.begin(), stanza.end());
  }
  return tutti;
}

archives::DescrizioneArchivio Archivio(const std::string& finestra) {
  const auto tutti = Tutti();
  return *std::ranges::find(tutti, finestra, &archives::DescrizioneArchivio::finestra);
}

class ArchiviPiccoliTest : public prova::DittaDiProva {
 protected:
  static void Scrivi(archives::ArchivioCodici& archivio, const Campi& campi) {
    for (const auto& [campo, valore] : campi) archivio.Record().Scrivi(campo, valore);
  }

  /// Statements parted by ";".
  void Esegui(std::string istruzioni) {
    while (!istruzioni.empty()) {
      const std::size_t fine = std::min(istruzioni.find(';'), istruzioni.size());
      Tessarc().Esegui(istruzioni.substr(0, fine));
      istruzioni.erase(0, fine + 1);
    }
  }

  /// Every row of the archive's table as text.
  std::string Righe(const archives::DescrizioneArchivio& descrizione) {
    std::string testo;
    Rs rs = ambiente.ArchivioDi(descrizione.chiave)
                .Recordset("select * from " + descrizione.tabella + " order by Cod");
    for (; !rs.Eof(); rs.MoveNext()) {
      for (std::size_t c = 0; c < rs.Colonne().size(); ++c) testo += NzStr(rs.Fields(c)) + "|";
      testo += "\n";
    }
    return testo;
  }
};

enum class Gesto { Conferma, Elimina };

struct Caso {
  const char* archivio;
  const char* prepara;  ///< statements, parted by ";"
  Gesto gesto;
  const char* aperto;  ///< code of the record opened, empty for a new one
  Campi campi;
  const char* messaggio;  ///< empty when it is done
  const char* campo = "";
};

constexpr const char* kFissa = "'APE' e 'APEX' sono predefinite e non si possono modificare";
constexpr const char* kPredefinite = "'APE' e 'APEX' sono predefinite";
constexpr const char* kCausaleIgnota =
    "Causale del giro ritenuta: il codice X9 non esiste, sceglierne uno dall'elenco (F2)";
constexpr const char* kContoIgnoto =
    "Conto del giro ritenuta: il codice 999.999 non esiste, sceglierne uno dall'elenco (F2)";
constexpr const char* kIva =
    "le causali con codice che inizia con un numero (da 1 a 9) sono riservate alle registrazioni "
    "iva";
constexpr const char* kConCausale =
    "perchè esistono già movimenti magazzino con questa causale o sono previsti tipi documento";
constexpr const char* kEsistenza = "EI è una causale predefinita non si può eliminare";
constexpr const char* kX =
    "insert into CausaliMag (Cod, Descrizione, CS) values ('XM', 'prova', 'S')";
constexpr const char* kXUsata =
    "insert into CausaliMag (Cod, Descrizione, CS) values ('XM', 'prova', 'S');"
    "insert into FattureCli_r (TipoDoc, Anno, NumDoc, Posi, CausaleMag) values ('01', 2024, 1, "
    "100, 'xm')";
constexpr const char* kXPrevista =
    "insert into CausaliMag (Cod, Descrizione, CS) values ('XM', 'prova', 'S');"
    "insert into TipiFattureCli (Cod, CausaleMag) values ('X1', 'XM')";
constexpr const char* kFissata =
    "insert into Categorie (Cod, Descrizione, nonmodif) values ('XC', 'fissa', True)";
/// What a case leaves behind.
constexpr const char* kSgombera =
    "delete from CausaliMag where Cod>='X';delete from Causali where Cod>='X' or Cod='0A';"
    "delete from Categorie where Cod>='X';delete from TipiFattureCli where Cod>='X';"
    "delete from FattureCli;delete from FattureCli_r";
constexpr const char* kInUso = "non si può variare o eliminare il codice in quanto ci sono ";

TEST_F(ArchiviPiccoliTest, Rifiuti) {
  const std::string codiceFermo = std::string("il codice non si può variare ") + kConCausale;
  const std::string sensoFermo = std::string("carico/scarico non si può variare ") + kConCausale;
  const std::string nonSiElimina = std::string("non si può eliminare ") + kConCausale;
  const std::string daDocumenti = std::string(kInUso) + "documenti che lo usano";
  const std::string daMovimenti = std::string(kInUso) + "movimenti di magazzino che lo usano";
  using enum Gesto;
  const std::vector<Caso> casi = {
      Caso("Causali", "", Conferma, "APE", {{"Descrizione", "altra"}}, kFissa, "Cod"),
      Caso("Causali", "", Elimina, "apex", {}, kFissa),
      Caso("Causali", "", Conferma, "", {{"Cod", "9A"}}, kIva, "Cod"),
      Caso("Causali", "", Conferma, "001", {{"Cod", "1"}}, kIva, "Cod"),
      Caso("Causali", "delete from Causali where Cod='APE'", Conferma, "", {{"Cod", "ape"}},
           kPredefinite, "Cod"),
      Caso("Causali", "", Conferma, "001", {{"Cod", "APEX"}}, kPredefinite, "Cod"),
      Caso("Causali", "", Conferma, "", {{"Cod", "0A"}, {"Ripete", true}}, ""),
      Caso("Causali", "", Conferma, "", {{"Cod", "XA"}}, ""),

      Caso("Ritenute", "", Conferma, "", {{"Cod", "X1"}, {"Causale", "X9"}}, kCausaleIgnota,
           "Causale"),
      Caso("Ritenute", "", Conferma, "", {{"Cod", "X1"}, {"Causale", "001"}, {"Conto", "999.999"}},
           kContoIgnoto, "Conto"),

      Caso("Categorie", kFissata, Conferma, "XC", {{"Cod", "XD"}}, "categoria XC non modificabile",
           "Cod"),
      Caso("Categorie", kFissata, Elimina, "XC", {}, "categoria XC non modificabile"),

      Caso("CausaliMag", "", Conferma, "", {{"Cod", "XM"}}, "impostare Carico=C oppure Scarico=S",
           "CS"),
      Caso("CausaliMag", "", Conferma, "", {{"Cod", "XM"}, {"CS", "X"}},
           "impostare Carico=C oppure Scarico=S", "CS"),
      Caso("CausaliMag", kX, Conferma, "XM", {{"CS", "C"}}, ""),
      Caso("CausaliMag", kX, Conferma, "XM", {{"Cod", "XN"}}, ""),
      Caso("CausaliMag", kX, Elimina, "XM", {}, ""),
      Caso("CausaliMag", kXUsata, Conferma, "XM", {{"Descrizione", "altra"}}, ""),
      Caso("CausaliMag", kXUsata, Conferma, "XM", {{"CS", "C"}}, sensoFermo.c_str(), "CS"),
      Caso("CausaliMag", kXUsata, Conferma, "XM", {{"Cod", "XN"}}, codiceFermo.c_str(), "Cod"),
      Caso("CausaliMag", kXUsata, Elimina, "XM", {}, nonSiElimina.c_str()),
      Caso("CausaliMag", kXPrevista, Conferma, "XM", {{"CS", "C"}}, sensoFermo.c_str(), "CS"),
      Caso("CausaliMag", kXPrevista, Elimina, "XM", {}, nonSiElimina.c_str()),
      Caso("CausaliMag", "", Conferma, "EI", {{"Cod", "XE"}}, kEsistenza, "Cod"),
      Caso("CausaliMag", "", Elimina, "EI", {}, kEsistenza),

      Caso("Magazzini",
           "insert into FattureCli_r (TipoDoc, Anno, NumDoc, Posi, Mag) values ('01', 2024, 1, 1, "
           "'01')",
           Elimina, "01", {}, daMovimenti.c_str()),
      Caso("Vettori",
           "insert into Vettori (Cod) values ('XV');"
           "insert into FattureCli (TipoDoc, Anno, NumDoc, CodiceVettore) values ('01', 2024, 1, "
           "'XV')",
           Elimina, "XV", {}, daDocumenti.c_str()),
      Caso("Agenti",
           "insert into Agenti (Cod) values ('XA');"
           "insert into FattureCli (TipoDoc, Anno, NumDoc, Agente) values ('01', 2024, 1, 'XA')",
           Conferma, "XA", {{"Cod", "XB"}}, daDocumenti.c_str(), "Cod"),
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(std::string(caso.archivio) + " «" + caso.aperto + "» " + caso.messaggio);
    Esegui(kSgombera);
    Esegui(caso.prepara);
    const archives::DescrizioneArchivio descrizione = Archivio(caso.archivio);
    archives::ArchivioCodici archivio(ambiente, descrizione);
    if (*caso.aperto == '\0')
      archivio.Inizia();
    else {
      ASSERT_TRUE(archivio.Apri(caso.aperto));
    }
    Scrivi(archivio, caso.campi);
    const std::string prima = Righe(descrizione);
    const bool attesa = *caso.messaggio == '\0';
    Rifiuto rifiuto;
    if (caso.gesto == Conferma) {
      EXPECT_EQ(archivio.Conferma(&rifiuto), attesa);
      EXPECT_EQ(rifiuto.campo, caso.campo);
    } else {
      dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
      EXPECT_EQ(archivio.Elimina(), attesa);
    }
    EXPECT_EQ(Righe(descrizione) != prima, attesa);
    EXPECT_EQ(archivio.Aperto(), !attesa);
    if (attesa) {
      EXPECT_EQ(Messaggi(), std::vector<std::string>());
    } else {
      EXPECT_EQ(SoloMessaggio(), caso.messaggio);
    }
  }
}

TEST_F(ArchiviPiccoliTest, LaCausaleIvaNonSiScegli) {
  archives::ArchivioCodici causali(ambiente, Archivio("Causali"));
  EXPECT_FALSE(causali.Apri("11")) << "it is kept with its register";
  EXPECT_TRUE(causali.Apri("037"));
}

TEST_F(ArchiviPiccoliTest, LaCopiaDiUnaCategoriaFissaNonLoE) {
  Tessarc().Esegui(kFissata);
  archives::ArchivioCodici categorie(ambiente, Archivio("Categorie"));
  ASSERT_TRUE(categorie.Apri("XC"));
  EXPECT_FALSE(categorie.Stato("nonmodif").attivo);
  categorie.Duplica();
  categorie.Record().Scrivi("Cod", "XD");
  EXPECT_TRUE(categorie.Conferma());
  EXPECT_FALSE(ambiente.Cerca("tessarc", "Categorie", {{"Cod", "XD"}}, "nonmodif").Booleano());
}

TEST_F(ArchiviPiccoliTest, LaBancaInsolitaSiTieneSeLUtenteVuole) {
  struct Prova {
    Campi campi;
    const char* domanda;  ///< empty when nothing is asked
    const char* campo;
  };
  const std::vector<Prova> casi = {
      {{{"Abi", "03069"}, {"CAB", "09606"}, {"CodSia", "ab12x"}}, "", ""},
      {{}, "", ""},
      {{{"Abi", "3069"}}, "Abi «3069»", "Abi"},
      {{{"CAB", "0960A"}}, "CAB «0960A»", "CAB"},
      {{{"CodSia", "A1"}}, "CodSia «A1»", "CodSia"},
  };
  for (const Prova& caso : casi) {
    SCOPED_TRACE(caso.domanda);
    archives::ArchivioCodici banche(ambiente, Archivio("Banche"));
    banche.Inizia();
    Scrivi(banche, caso.campi);
    banche.Record().Scrivi("Cod", "XB");
    if (*caso.domanda != '\0') {
      dialoghi.Rispondera(caso.domanda, Risposta::No);
      Rifiuto rifiuto;
      EXPECT_FALSE(banche.Conferma(&rifiuto));
      EXPECT_EQ(rifiuto.campo, caso.campo);
      dialoghi.Rispondera(caso.domanda, Risposta::Si);
    }
    EXPECT_TRUE(banche.Conferma());
    ASSERT_TRUE(banche.Apri("XB"));
    dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
    EXPECT_TRUE(banche.Elimina());
  }
}

/// A value unlike the empty one, as wide as the field takes.
Valore Pieno(const Scheda& scheda, const records::CampoForma& campo) {
  switch (scheda.TipoDi(campo.nome)) {
    case Tipo::Booleano:
      return true;
    case Tipo::Intero:
      return 17;
    case Tipo::Importo:
      return prova::I("12.3456");
    default:
      if (!campo.scelte.empty()) return campo.scelte.back().valore;
      return std::string(static_cast<std::size_t>(std::max(campo.caratteri, 5)), '7');
  }
}

TEST_F(ArchiviPiccoliTest, OgniCampoDescrittoSiTieneESiRilegge) {
  std::map<std::string, int> finestre;
  for (const archives::DescrizioneArchivio& descrizione : Tutti()) {
    SCOPED_TRACE(descrizione.finestra);
    ++finestre[descrizione.finestra];
    EXPECT_TRUE(descrizione.titoloNuovo.starts_with("nuov")) << descrizione.titoloNuovo;
    EXPECT_TRUE(descrizione.titolo.starts_with("Archivio ")) << descrizione.titolo;
    archives::ArchivioCodici archivio(ambiente, descrizione);
    archivio.Inizia();
    EXPECT_EQ(archivio.Titolo(), descrizione.titoloNuovo);
    std::map<std::string, Valore> scritti = {{descrizione.campoDescrizione, "prova è"}};
    for (const records::CampoForma& campo : descrizione.campi) {
      if (!archivio.Stato(campo.nome).attivo) continue;
      scritti[campo.nome] = Pieno(archivio.Record(), campo);
      if (campo.genere != records::GenereCampo::Codice) continue;
      const auto codici = archives::Fonte(ambiente, campo.fonte)->Cerca("", 1);
      ASSERT_FALSE(codici.empty()) << campo.fonte;
      scritti[campo.nome] = codici.front().codice;
    }
    for (const auto& [campo, valore] : scritti) archivio.Record().Scrivi(campo, valore);
    archivio.Record().Scrivi("Cod", "X1");
    ASSERT_TRUE(archivio.Conferma()) << dialoghi.UltimoMessaggio();
    ASSERT_TRUE(archivio.Apri("x1"));
    EXPECT_EQ(archivio.Titolo(), descrizione.titoloRecord + "X1");
    for (const auto& [campo, valore] : scritti)
      EXPECT_EQ(archivio.Record().Leggi(campo), valore) << campo;
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::No);
    EXPECT_FALSE(archivio.Elimina());
    EXPECT_TRUE(archivio.Aperto());
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
    EXPECT_TRUE(archivio.Elimina());
    EXPECT_FALSE(archivio.Apri("X1"));
  }
  EXPECT_EQ(finestre.size(), 15U);
  EXPECT_EQ(Messaggi(), std::vector<std::string>());
}

}  // namespace
}  // namespace fenalto::warehouse
