#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "core/sql/Criterio.h"
#include "ledger/DittaDiProva.h"
#include "vat/codes/ArchiviIva.h"
#include "vat/codes/CodiciIva.h"
#include "vat/codes/RegistriIva.h"
#include "vat/codes/TipiRegistro.h"

namespace fenalto::vat {
namespace {

using Campi = std::vector<std::pair<const char*, Valore>>;

class ArchiviIvaTest : public prova::DittaDiProva {
 protected:
  static void Scrivi(archives::ArchivioCodici& archivio, const Campi& campi) {
    for (const auto& [campo, valore] : campi) archivio.Record().Scrivi(campo, valore);
  }

  /// A new register confirmed; where the focus goes when it is refused.
  std::string Registra(const Campi& campi) {
    archives::ArchivioCodici archivio(ambiente, RegistriIva());
    archivio.Inizia();
    Scrivi(archivio, campi);
    Rifiuto rifiuto;
    confermato = archivio.Conferma(&rifiuto);
    return rifiuto.campo;
  }

  std::string Causale(const std::string& codice) {
    return NzStr(ambiente.Cerca("tessarc", "Causali", {{"Cod", codice}}, "Descrizione"));
  }

  std::string Causali(const std::string& registro) {
    return Causale(registro + "1") + "|" + Causale(registro + "2") + "|" + Causale(registro + "3");
  }

  void Elimina(const char* codice) {
    archives::ArchivioCodici archivio(ambiente, RegistriIva());
    ASSERT_TRUE(archivio.Apri(codice));
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
    confermato = archivio.Elimina();
  }

  /// A registration on that register.
  void Registrazione(const char* riva, const std::string& causale) {
    Tessarc().Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", 50}, {"Riva", riva}});
    Tessarc().Inserisci("Movimenti", {{"Anno", 2024}, {"NumDoc", 50}, {"Causale", causale}});
  }

  bool confermato = false;
};

TEST_F(ArchiviIvaTest, ControlliDelRegistroInOrdine) {
  struct Caso {
    Campi campi;
    const char *messaggio, *campo;
  };
  const std::vector<Caso> casi = {
      Caso({}, "inserire un codice", "Cod"),
      Caso({{"Cod", "X"}, {"Conto", "170.001"}}, "manca tipo registro iva", "Tipo"),
      Caso({{"Cod", "X"}, {"Tipo", "77"}},
           "tipo registro iva 77 inesistente: sceglierlo dall'elenco", "Tipo"),
      Caso({{"Cod", "X"}, {"Tipo", "02"}}, "manca conto iva", "Conto"),
      Caso({{"Cod", "X"}, {"Tipo", "02"}, {"Conto", "170.001"}}, "mancano dati", "ContoCassa"),
      Caso({{"Cod", "X"}, {"Tipo", "07"}, {"Conto", "170.001"}, {"ContoCassa", "100.010"}},
           "mancano dati", "ContoRicaviCorrisp"),
      Caso({{"Cod", "X"},
            {"Tipo", "09"},
            {"Conto", "170.001"},
            {"ContoCassa", "100.010"},
            {"ContoRicaviCorrisp", "700.010"}},
           "mancano dati", "CauGiroCorrisp")};
  const std::string prima = Contenuto();
  for (const Caso& caso : casi) {
    EXPECT_EQ(Registra(caso.campi), caso.campo);
    EXPECT_FALSE(confermato);
    EXPECT_EQ(SoloMessaggio(), caso.messaggio);
  }
  // Codes that don't exist come last, in the order of their fields; those of a hidden frame not.
  const Campi corrispettivi{{"Cod", "X"},
                            {"Tipo", "02"},
                            {"Conto", "999.999"},
                            {"ContoCassa", "999.998"},
                            {"ContoRicaviCorrisp", "700.010"},
                            {"CauGiroCorrisp", "X9"},
                            {"CodIva", "X8"}};
  const std::tuple<const char*, const char*, const char*> ignoti[] = {
      {"Conto", "Conto IVA: il codice 999.999", "170.001"},
      {"ContoCassa", "Conto cassa: il codice 999.998", "100.010"},
      {"CauGiroCorrisp", "Causale del giro: il codice X9", "037"},
      {"CodIva", "Codice IVA proposto: il codice X8", "20"}};
  Campi campi = corrispettivi;
  for (const auto& [campo, messaggio, giusto] : ignoti) {
    EXPECT_EQ(Registra(campi), campo);
    EXPECT_EQ(SoloMessaggio(),
              messaggio + std::string(" non esiste, sceglierne uno dall'elenco (F2)"));
    campi.emplace_back(campo, giusto);
  }
  EXPECT_EQ(Contenuto(), prima);
  // A missing field is told before the code that exists.
  Registra({{"Cod", "1"}, {"Tipo", "01"}});
  EXPECT_EQ(SoloMessaggio(), "manca conto iva");
  EXPECT_EQ(Registra({{"Cod", "1"}, {"Tipo", "01"}, {"Conto", "170.001"}}), "Cod");
  EXPECT_FALSE(confermato);
  EXPECT_EQ(Contenuto(), prima);
}

TEST_F(ArchiviIvaTest, CausaliPerTipo) {
  const std::vector<std::pair<const char*, const char*>> casi = {
      {"01", "Fatture/Note cred. IVA Vendite"},
      {"02", "Incassi corrispettivi"},
      {"03", "Fatture/Note cred.IVA Acquisti"},
      {"04", "Autofatt./rev.charge/Intrac."},
      {"05", "Fatt.passive rev.charge/Intra"},
      {"06", "Fatture in sospensione IVA"},
      {"07", "Corrispettivi(Ventilaz.su Acq)"},
      {"08", ""},
      {"08A", ""},
      {"09", "Incassi corrispettivi"},
      {"11", ""}};
  char lettera = 'A';
  for (const auto& [tipo, causale] : casi) {
    SCOPED_TRACE(tipo);
    const std::string codice = std::string("X") + lettera++;
    Registra({{"Cod", codice},
              {"Tipo", tipo},
              {"Conto", "170.001"},
              {"ContoCassa", "100.010"},
              {"ContoRicaviCorrisp", "700.010"},
              {"CauGiroCorrisp", "037"}});
    ASSERT_TRUE(confermato);
    const std::string uno(causale);
    EXPECT_EQ(Causali(codice), uno + "|" + uno + "|" + uno);
    EXPECT_EQ(
        Nz(ambiente.Cerca("tessarc", "Causali", {{"Cod", codice + "2"}}, "Ripete")).Booleano(),
        !uno.empty());
  }
  EXPECT_TRUE(Messaggi().empty());
}

TEST_F(ArchiviIvaTest, RisalvareRifaLeCausaliEAssicuraLeFisse) {
  Tessarc().Esegui("update Causali set Descrizione='mia',Ripete=False where Cod='1V2'");
  Tessarc().Esegui("update Causali set Descrizione='altra' where Cod='APE'");
  Tessarc().Esegui("delete * from Causali where Cod='APEX' or Cod='1V1'");
  const std::string tante = Tessarc().Singolo("select count(*) from Causali").Testo();
  archives::ArchivioCodici archivio(ambiente, RegistriIva());
  ASSERT_TRUE(archivio.Apri("1V"));
  ASSERT_TRUE(archivio.Conferma());
  const std::string testo = "Fatture/Note cred. IVA Vendite";
  EXPECT_EQ(Causali("1V"), testo + "|" + testo + "|" + testo);
  EXPECT_EQ(Causale("APE"), "Riporto Saldi Apertura");
  EXPECT_EQ(Causale("APEX"), "Saldi Apertura Provvisori");
  EXPECT_EQ(Tessarc().Singolo("select count(*) from Causali").Intero(), Valore(tante).Intero() + 2);
}

TEST_F(ArchiviIvaTest, ReverseChargeVuoleIDueRegistri) {
  Tessarc().Esegui("delete * from RegistriIva where Tipo='04' or Tipo='05'");
  const std::vector<std::pair<const char*, const char*>> attesi = {
      {"04",
       "Attenzione: bisogna anche creare un registro di tipo 05 per le registrazioni "
       "intracomunitarie su acquisti"},
      {"05", ""}};
  for (const auto& [tipo, messaggio] : attesi) {
    Registra({{"Cod", tipo}, {"Tipo", tipo}, {"Conto", "900.220"}});
    EXPECT_TRUE(confermato);
    EXPECT_EQ(dialoghi.UltimoMessaggio(), messaggio);
    dialoghi.messaggi.clear();
  }
  Tessarc().Esegui("delete * from RegistriIva where Tipo='04'");
  Registra({{"Cod", "5B"}, {"Tipo", "05"}, {"Conto", "900.220"}});
  EXPECT_TRUE(confermato);
  EXPECT_EQ(SoloMessaggio(),
            "Attenzione: bisogna anche creare un registro di tipo 04 per le registrazioni "
            "intracomunitarie su vendite");
}

TEST_F(ArchiviIvaTest, LeCausaliSeguonoIlRegistro) {
  // Renamed: the old ones go.
  archives::ArchivioCodici archivio(ambiente, RegistriIva());
  ASSERT_TRUE(archivio.Apri("1V"));
  archivio.Record().Scrivi("Cod", "XV");
  ASSERT_TRUE(archivio.Conferma());
  EXPECT_EQ(Causali("1V"), "||");
  EXPECT_NE(Causali("XV"), "||");
  // Deleted: those in use stay.
  Tessarc().Inserisci("Movimenti", {{"Anno", 2024}, {"NumDoc", 9}, {"Causale", "XV2"}});
  Elimina("XV");
  EXPECT_TRUE(confermato);
  EXPECT_EQ(Causali("XV"), "|Fatture/Note cred. IVA Vendite|");
  // In use by a registration: neither deleted nor renamed.
  Registrazione("3V", "3V1");
  Elimina("3V");
  EXPECT_FALSE(confermato);
  EXPECT_NE(Causali("3V"), "||");
}

TEST_F(ArchiviIvaTest, TipoPropostoEScenaDeiCorrispettivi) {
  archives::ArchivioCodici archivio(ambiente, RegistriIva());
  archivio.Inizia();
  const auto scegli = [&](const char* tipo) {
    archivio.Record().Scrivi("Tipo", tipo);
    archivio.Lasciato("Tipo");
  };
  const std::set<std::string> corrispettivi = {"02", "07", "09"};
  const std::set<std::string> conCodice = {"02", "09"};
  for (const TipoRegistro& tipo : TipiRegistro()) {
    const std::string cod(tipo.tipo);
    SCOPED_TRACE(cod);
    scegli(cod.c_str());
    EXPECT_EQ(archivio.Stato("Corrispettivi").visibile, corrispettivi.contains(cod));
    EXPECT_EQ(archivio.Stato("CodIva").attivo, conCodice.contains(cod));
  }
  EXPECT_EQ(archivio.Record().Testo("Descrizione"), "IVA autofatture fornitori");
  archivio.Record().Scrivi("Descrizione", "mia");
  scegli("zz");
  EXPECT_EQ(archivio.Record().Testo("Descrizione"), "mia");
  EXPECT_FALSE(archivio.Stato("Corrispettivi").visibile);
}

TEST_F(ArchiviIvaTest, ContoDiUnRegistroUsato) {
  for (const bool usato : {false, true}) {
    if (usato) Registrazione("1", "11");
    archives::ArchivioCodici archivio(ambiente, RegistriIva());
    ASSERT_TRUE(archivio.Apri("1"));
    archivio.Record().Scrivi("Conto", "170.003");
    archivio.Lasciato("Conto");
    EXPECT_EQ(dialoghi.UltimoMessaggio(), usato ? "ATTENZIONE : non si dovrebbe variare il conto "
                                                  "se ci sono già fatture registrate!!!"
                                                : "");
    EXPECT_TRUE(archivio.Conferma());
  }
}

// The model's settlement signs and the sides on which the program posts must agree.
TEST_F(ArchiviIvaTest, TipiDelModello) {
  const std::set<std::string> inPiu = {"01", "02", "04", "07", "08", "09", "11"};
  const std::set<std::string> inMeno = {"03", "05", "08A"};
  for (const TipoRegistro& tipo : TipiRegistro()) {
    const std::string cod(tipo.tipo);
    const Valore segno = ambiente.Cerca("tessarc", "TIPIregistriiva", {{"cod", cod}}, "PIUMENO");
    ASSERT_FALSE(segno.Nullo()) << cod;
    EXPECT_EQ(segno.Intero(), inPiu.contains(cod) ? 1 : inMeno.contains(cod) ? -1 : 0) << cod;
  }
  EXPECT_EQ(Tessarc().Singolo("select count(*) from TIPIregistriiva").Intero(),
            static_cast<std::int64_t>(TipiRegistro().size()));
  EXPECT_EQ(DidascaliaRegistrazione("09", true), "Corrispettivi (registrazione mensile)");
  EXPECT_EQ(DidascaliaRegistrazione("01", true), "Fattura vendite o nota credito su vendite");
}

TEST_F(ArchiviIvaTest, CodiciIvaRifiutatiEAccettati) {
  struct Caso {
    Campi campi;
    const char* rifiuto;  ///< a piece of what is told
    bool scritto;
  };
  for (const Caso& caso : std::vector<Caso>{
           {{{"Perc", 4}}, "inserire un codice", false},
           {{{"Cod", "zcor"}}, "riservato ai corrispettivi da ventilare", false},
           {{{"Cod", "XA"}, {"CampoElenco", 6}}, "va da 0 a 5", false},
           {{{"Cod", "XA"}, {"CampoElenco", -1}}, "va da 0 a 5", false},
           {{{"Cod", "XB"}, {"Perc", 0}, {"CampoElenco", 5}}, "", true},
           {{{"Cod", "XC"}, {"Perc", 150}}, "l'aliquota è 150%", true},
           {{{"Cod", "XD"}, {"PercInd", -1}}, "la percentuale indetraibile è -1%", true}}) {
    archives::ArchivioCodici archivio(ambiente, CodiciIva());
    archivio.Inizia();
    Scrivi(archivio, caso.campi);
    EXPECT_EQ(archivio.Conferma(), caso.scritto) << caso.rifiuto;
    const std::string detto = dialoghi.UltimoMessaggio();
    dialoghi.messaggi.clear();
    EXPECT_NE(detto.find(caso.rifiuto), std::string::npos) << detto;
    EXPECT_EQ(detto.empty(), *caso.rifiuto == '\0') << detto;
  }
}

TEST_F(ArchiviIvaTest, ZcorNonSiTocca) {
  Tessarc().Inserisci("CodiciIva", {{"Cod", kCodiceVentilazione}});
  for (const char* codice : {"ZCOR", "XZ"}) {
    archives::ArchivioCodici archivio(ambiente, CodiciIva());
    ASSERT_TRUE(archivio.Apri("zcor"));
    Scrivi(archivio, {{"Cod", codice}, {"Perc", 22}});
    EXPECT_FALSE(archivio.Conferma());
    EXPECT_TRUE(dialoghi.HaDetto("non si può modificare"));
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
    EXPECT_FALSE(archivio.Elimina());
    EXPECT_TRUE(dialoghi.HaDetto("non si può eliminare"));
  }
  EXPECT_EQ(ambiente.Cerca("tessarc", "CodiciIva", {{"Cod", "ZCOR"}}, "Perc").Intero(), 0);
}

}  // namespace
}  // namespace fenalto::vat
