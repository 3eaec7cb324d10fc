// Document types: what is refused, in which order, and what is asked and told on the way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <tuple>

#include "core/archives/ArchivioCodici.h"
#include "documents/types/ImpostazioniDocumenti.h"
#include "documents/types/TipiDocumento.h"
#include "documents/types/TipoDocumento.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::documents {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Campi = std::vector<std::pair<const char*, Valore>>;

class TipiDocumentoTest : public prova::DittaDiProva {
 protected:
  TipiDocumentoTest() : archivio(ambiente, ArchivioTipiDocumento()) {
    Tessarc().Inserisci("Clienti", {{"Cod", "9001"}, {"ragsoc1", "Rossi"}});
  }
  void Scrivi(const Campi& campi) {
    for (const auto& [campo, valore] : campi) archivio.Record().Scrivi(campo, valore);
  }
  /// A new type that nothing is wrong with.
  void Buono(const Campi& campi = {}) {
    archivio.Abbandona();
    archivio.Inizia();
    Scrivi({{"Cod", "X1"}, {"TipoStampa", kBolla}, {"CFP", "C"}, {"Copie", 1}});
    Scrivi(campi);
  }
  void Apri(const std::string& codice, const Campi& campi = {}) {
    archivio.Abbandona();
    ASSERT_TRUE(archivio.Apri(codice));
    Scrivi(campi);
  }
  /// A document of a type.
  void Documento(const char* tipo) {
    Tessarc().Inserisci("FattureCli", {{"TipoDoc", tipo}, {"Anno", 2024}, {"NumDoc", 1}});
  }
  Valore Salvato(const char* codice, const char* campo) {
    return ambiente.Cerca("tessarc", "TipiFattureCli", {{"Cod", codice}}, campo);
  }
  void Rifiutato(const std::string& messaggio, const std::string& campo) {
    Rifiuto rifiuto;
    EXPECT_FALSE(archivio.Conferma(&rifiuto));
    EXPECT_EQ(rifiuto.campo, campo);
    const auto detti = Messaggi();
    EXPECT_EQ(detti.empty() ? std::string() : detti.back(), messaggio);
  }

  archives::ArchivioCodici archivio;
};

constexpr const char* kAvvisoFattura =
    "si tratta di fattura con scarico magazzino: se si utilizza questo tipo documento per la "
    "fatturazione differita sul tipo ddt non deve essere impostata la causale movimentazione";
constexpr const char* kNonContabile =
    "Non è stato impostato 'registro iva': significa che non si desidera contabilizzare le fatture";
constexpr const char* kAllineato =
    "allineamento x e y : se diverso da 0 verificare la stampa di un documento (se supera l'area "
    "stampabile non verrà eseguita correttamente)";
constexpr const char* kSoloC =
    "con tipostampa='fattura','fattacc','scontrino' inserire cliente/fornitore='C'";
constexpr const char* kSoloScarico =
    "la causale di movimentazione magazzino deve essere di SCARICO";
constexpr const char* kTrasferimento =
    "Trasferimento: tipo documento di carico nell'altro magazzino\n";
constexpr const char* kScaricoDb = "Scarico distinta base automatico: tipo documento'\n";

/// A type that offends every check, mended one at a time.
TEST_F(TipiDocumentoTest, IControlliNelLoroOrdine) {
  archivio.Inizia();
  Scrivi({{"xTar", "9.5"},
          {"mfTipo", "1"},
          {"Mag", "01"},
          {"Riva", "1"},
          {"PrezziIvati", true},
          {"TipoDocScaricoDB", "10"},
          {"TipoDocTrasferimento", "41"},
          {"Logo", std::string(251, 'l')},
          {"Fatturo", true},
          {"CodIva", "X9"}});
  Rifiutato("inserire un codice nel campo 'tipo documento' (p.es. 01,02,03...)", "Cod");
  Scrivi({{"Cod", "01"}});
  Rifiutato("allineamento x e y : valore max ammesso 9 mm", "xTar");
  Scrivi({{"xTar", "9"}});
  Rifiutato("inserire 'Tipo Stampa' (BOLLA,FATTURA,FATTACC,MOVIMENTO,SCONTRINOSCARICO)",
            "TipoStampa");
  Scrivi({{"TipoStampa", kBolla}});
  Rifiutato("è necessario inserire clienti/fornitori", "CFP");
  Scrivi({{"CFP", "F"}});
  Rifiutato("con tipostampa='BOLLA' e la spunta su 'FATTURO' inserire cliente/fornitore='C'",
            "CFP");
  Scrivi({{"TipoStampa", kScontrino}, {"Fatturo", false}});
  Rifiutato(kSoloC, "CFP");
  Scrivi({{"TipoStampa", kMovimento}});
  Rifiutato(
      "il tipo misuratore fiscale si può impostare solo sui tipi documento 'scontrino scarico",
      "mfTipo");
  Scrivi({{"mfTipo", ""}});
  Rifiutato(
      "Se si imposta il magazzino da movimentare bosogna anche impostare la causale movimentazione",
      "CausaleMag");
  Scrivi({{"CausaleMag", "SV"}});
  Rifiutato("è stato impostato 'registro iva' con un tipo stampa che non è 'fattura' o 'fattacc'",
            "Riva");
  Scrivi({{"Riva", ""}});
  Rifiutato("impostando 'fattura con prezzi ivati' bisogna inserire C=clienti", "CFP");
  Scrivi({{"CFP", "C"}});
  Rifiutato(
      "è stato impostato 'fattura con prezzi ivati' con un tipo stampa che non è 'fattura', "
      "'fattacc' o 'bolla'",
      "PrezziIvati");
  Scrivi({{"PrezziIvati", false}});
  Rifiutato(std::string("La casella '") + kScaricoDb +
                "dovrebbe essere in bianco essendo uno scarico di magazzino",
            "TipoDocScaricoDB");
  Scrivi({{"CausaleMag", "CP"}});
  Rifiutato(std::string("Nella casella '") + kScaricoDb +
                "si deve impostare un tipo documento di scarico'",
            "TipoDocScaricoDB");
  Scrivi({{"TipoDocScaricoDB", "31"}});
  const std::string copie = "non è stato inserito il n.copie dastampare\nproseguo ugualmente";
  dialoghi.Rispondera(copie, Risposta::No);
  Rifiutato(kAllineato, "Copie");
  dialoghi.Rispondera(copie, Risposta::Si);
  Rifiutato("è stato inserito un codice nel 'tipo documento' già esistente", "Cod");
  Scrivi({{"Cod", "X1"}, {"Copie", 2}});
  Rifiutato(std::string(kTrasferimento) + "si imposta solo su un tipo documento di scarico",
            "TipoDocTrasferimento");
  Scrivi({{"CausaleMag", "TS"}, {"TipoDocScaricoDB", ""}});
  Rifiutato(std::string(kTrasferimento) + "il tipo 41 non carica il magazzino",
            "TipoDocTrasferimento");
  Scrivi({{"TipoDocTrasferimento", "21"}});
  Rifiutato(std::string(kTrasferimento) + "il tipo 21 ha un'altra lettera in cliente/fornitore",
            "TipoDocTrasferimento");
  Scrivi({{"CFP", "F"}});
  Rifiutato("il percorso è più lungo di 250 caratteri", "Logo");
  Scrivi({{"Logo", ""}});
  Rifiutato("Codice iva: il codice X9 non esiste, sceglierne uno dall'elenco (F2)", "CodIva");
  Scrivi({{"CodIva", "22"}});
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_THAT(Messaggi(), ElementsAre(kAllineato));
  EXPECT_EQ(Salvato("X1", "TipoDocTrasferimento").Testo(), "21");
}

TEST_F(TipiDocumentoTest, AmmessiConIlLoroAvviso) {
  struct Caso {
    Campi campi;
    std::vector<std::string> avvisi;
    const char* titolo;
  };
  const std::vector<Caso> casi = {
      {{}, {}, "Documento di trasporto D.D.T."},
      {{{"TipoStampa", "bolla"}, {"CFP", "f"}}, {}, "Documento di trasporto D.D.T."},
      {{{"Tipo", "Bolla interna"}}, {}, "Bolla interna"},
      {{{"TipoStampa", kMovimento}}, {}, ""},
      {{{"TipoStampa", kScontrino}, {"CausaleMag", "SV"}, {"mfTipo", "1"}}, {}, "Scontr.scarico"},
      {{{"TipoStampa", kFattura}}, {kNonContabile}, "Fattura"},
      {{{"TipoStampa", kFattAcc}, {"Riva", "1"}, {"CausaleMag", "SV"}}, {}, "Fattura"},
      {{{"TipoStampa", kFattura}, {"Riva", "1"}, {"CausaleMag", "SV"}},
       {kAvvisoFattura},
       "Fattura"},
      {{{"PrezziIvati", true}, {"Fatturo", true}}, {}, "Documento di trasporto D.D.T."},
      {{{"TracciatoPersonal", true}, {"xTar", "12"}, {"Modulo", "mio"}},
       {},
       "Documento di trasporto D.D.T."},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.titolo);
    Tessarc().Esegui("delete from TipiFattureCli where Cod='X1'");
    Messaggi();
    Buono(caso.campi);
    EXPECT_TRUE(archivio.Conferma());
    EXPECT_EQ(Messaggi(), caso.avvisi);
    EXPECT_EQ(Salvato("X1", "Tipo").Testo(), caso.titolo);
  }
  EXPECT_EQ(Salvato("X1", "Modulo").Testo(), "mio");
  Apri("X1", {{"TracciatoPersonal", false}, {"xTar", "0"}});
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_EQ(Salvato("X1", "Modulo").Testo(), "") << "the standard layout has no model";
}

TEST_F(TipiDocumentoTest, LaCausaleDiUnaFatturaNonCarica) {
  for (const char* genere : {kFattura, kFattAcc, kScontrino}) {
    SCOPED_TRACE(genere);
    Buono({{"TipoStampa", genere}, {"CausaleMag", "CA"}});
    Rifiutato(kSoloScarico, "CausaleMag");
  }
}

TEST_F(TipiDocumentoTest, ConDocumentiRestaComeEra) {
  struct Caso {
    const char* tipo;
    Campi campi;
    const char* messaggio;
  };
  const std::vector<Caso> casi = {
      {"02",
       {{"TipoStampa", kMovimento}},
       "non si può variare 'tipostampa' in quanto ci sono già dei documenti di questo tipo"},
      {"04",
       {{"Riva", "1V"}},
       "non si può variare 'registro iva' in quanto ci sono già dei documenti di questo tipo"},
      {"01",
       {{"PrezziIvati", true}},
       "non si può variare la casella 'fattura con prezzi ivati e scorporo' in quanto ci sono già "
       "dei documenti di questo tipo"},
      {"12",
       {{"CFP", "F"}},
       "cliente/fornitore magazzino non si può variare perchè esistono già documenti di questo "
       "tipo"},
      {"02",
       {{"CausaleMag", "SV"}},
       "la causale movimentazione magazzino non si può variare perchè esistono già movimenti "
       "magazzino di questo tipo"}};
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.messaggio);
    Tessarc().Esegui("delete from FattureCli");
    const char* campo = caso.campi.front().first;
    const std::string prima = Salvato(caso.tipo, campo).Neutro();
    Documento(caso.tipo);
    Apri(caso.tipo, caso.campi);
    Rifiutato(caso.messaggio, campo);
    EXPECT_EQ(archivio.Record().Leggi(campo).Neutro(), prima) << "set back";
    EXPECT_TRUE(archivio.Conferma());
    Tessarc().Esegui("delete from FattureCli");
    Apri(caso.tipo, caso.campi);
    EXPECT_TRUE(archivio.Conferma()) << "without documents it may change";
    EXPECT_NE(Salvato(caso.tipo, campo).Neutro(), prima);
    Messaggi();
  }
}

TEST_F(TipiDocumentoTest, CodiceVariatoEdEliminazione) {
  constexpr const char* kPredefinito =
      "EI è un tipo documento predefinito (per inserire l'esistenza iniziale di magazzino) e non "
      "si può eliminare";
  const std::string usato = "non si può variare o eliminare il codice in quanto ci sono ";
  Apri("31", {{"Cod", "X31"}});
  Rifiutato(
      "Non si può variare il codice del tipo documento perchè esiste un altro tipo che lo "
      "utilizza nella casella 'tipo per scarico db'",
      "Cod");
  Documento("02");
  Apri("02", {{"Cod", "X2"}, {"CFP", "F"}});
  Rifiutato(
      "cliente/fornitore magazzino non si può variare perchè esistono già documenti di "
      "questo tipo",
      "CFP");
  Rifiutato(usato + "documenti che lo usano", "Cod");
  Apri("EI", {{"Cod", "X2"}});
  Rifiutato(kPredefinito, "Cod");
  Apri("EI", {{"CausaleMag", "SV"}});
  Rifiutato(
      "EI è un tipo documento predefinito (per inserire l'esistenza iniziale di magazzino): "
      "la causale movimentazione deve essere di CARICO",
      "CausaleMag");
  Apri("07", {{"Cod", "X7"}});
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_EQ(Salvato("X7", "TipoStampa").Testo(), kScontrino);

  Apri("EI");
  EXPECT_FALSE(archivio.Elimina()) << "and nothing is asked";
  EXPECT_THAT(Messaggi(), ElementsAre(kPredefinito));
  for (const auto& [tipo, va] :
       {std::pair{"02", false}, {"31", false}, {"21", false}, {"X7", true}}) {
    SCOPED_TRACE(tipo);
    Apri(tipo);
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
    EXPECT_EQ(archivio.Elimina(), va);
    EXPECT_EQ(Salvato(tipo, "Cod").Nullo(), va);
  }
}

TEST_F(TipiDocumentoTest, SdoppiareEUnSoloPredefinito) {
  Apri("01");
  archivio.Duplica();
  EXPECT_EQ(archivio.Titolo(), "nuovo da sdoppiamento ");
  EXPECT_EQ(archivio.Record().Testo("Cod"), "");
  EXPECT_EQ(archivio.Record().Testo("CausaleMag"), "SV");
  Scrivi({{"Cod", "X1"}});
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_TRUE(Salvato("01", "TipoDefault").Booleano());
  EXPECT_FALSE(Salvato("X1", "TipoDefault").Booleano());

  Apri("X1", {{"TipoDefault", true}});
  archivio.Lasciato("TipoDefault");
  EXPECT_TRUE(archivio.Conferma());
  EXPECT_FALSE(Salvato("01", "TipoDefault").Booleano());
  EXPECT_TRUE(Salvato("X1", "TipoDefault").Booleano());
}

TEST_F(TipiDocumentoTest, LeggereUnTipo) {
  Tessarc().Esegui("update TipiFattureCli set TipoStampa='bolla', CFP='c' where Cod='02'");
  const auto tipo = LeggiTipo(ambiente, "02");
  ASSERT_TRUE(tipo);
  EXPECT_EQ(tipo->tipoStampa + tipo->cfp + tipo->cs + tipo->mag, "BOLLACS01");
  EXPECT_TRUE(tipo->Bolla() && !tipo->Fatturazione());
  EXPECT_EQ(LeggiTipo(ambiente, "ei")->cs, "C");
  EXPECT_FALSE(LeggiTipo(ambiente, "zz"));
  EXPECT_FALSE(LeggiTipo(ambiente, ""));
  const auto tipi = LeggiTipi(ambiente);
  EXPECT_TRUE(std::ranges::is_sorted(tipi, {}, &TipoDocumento::cod));
  EXPECT_EQ(tipi.back().cod, "EI");
}

TEST_F(TipiDocumentoTest, ModelliEPercorsi) {
  const fs::path ini = ambiente.CartellaProgramma() / "Ini";
  fs::create_directories(ini);
  for (const char* nome : {"Zeta.Mod", "alfa.MOD", "beta.mod", "altro.txt", "modello"}) {
    std::ofstream(ini / nome) << "x";
  }
  EXPECT_THAT(ModelliPersonali(ambiente), ElementsAre("alfa", "beta", "Zeta"));
  const fs::path dentro = ambiente.CartellaDitta() / "Immagini" / "logo.jpg";
  EXPECT_EQ(PercorsoTenuto(ambiente, dentro), "Immagini/logo.jpg");
  EXPECT_EQ(PercorsoVero(ambiente, "Immagini/logo.jpg"), dentro);
  EXPECT_EQ(PercorsoVero(ambiente, PercorsoTenuto(ambiente, "/altrove/logo.jpg")),
            "/altrove/logo.jpg");
  EXPECT_EQ(PercorsoTenuto(ambiente, "/" + std::string(250, 'l')), "");
  EXPECT_EQ(SoloMessaggio(), "il percorso è più lungo di 250 caratteri");
}

TEST_F(TipiDocumentoTest, ImpostazioniDellaDitta) {
  for (const auto& [chiave, valori, messaggio] :
       {std::tuple{"DecP", std::vector{"1", "5", "x", "", "2,5"},
                   "decimali prezzi: inserire valore da 2 a 4"},
        std::tuple{"DecQ", std::vector{"-1", "5", "44", ""},
                   "decimali quantità: inserire valore da 0 a 4"}}) {
    for (const char* valore : valori) {
      SCOPED_TRACE(std::string(chiave) + " " + valore);
      ImpostazioniDocumenti impostazioni(ambiente);
      impostazioni.Dati().Scrivi(chiave, valore);
      EXPECT_FALSE(impostazioni.Salva());
      EXPECT_EQ(impostazioni.CampoRifiutato(), chiave);
      EXPECT_EQ(SoloMessaggio(), messaggio);
      EXPECT_EQ(impostazioni.Dati().Testo(chiave), "2") << "as it was";
    }
  }
  ImpostazioniDocumenti impostazioni(ambiente);
  impostazioni.Dati().Scrivi("DecQ", "0");
  impostazioni.Dati().Scrivi("DecP", "4");
  impostazioni.Dati().Scrivi("CommesseVecchioSistema", true);
  EXPECT_TRUE(impostazioni.Salva());
  EXPECT_EQ(SoloMessaggio(), "Impostazioni salvate");
  EXPECT_FALSE(impostazioni.Dati().Modificata());
  EXPECT_EQ(ambiente.Config("DecQ") + ambiente.Config("DecP") +
                ambiente.Config("CommesseVecchioSistema") + ambiente.Config("DbCostoMedio"),
            "0410");
}

}  // namespace
}  // namespace fenalto::documents
