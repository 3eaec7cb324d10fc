// A company made as a copy of the open one or from the model: refusals, questions, what it holds.
#include <gmock/gmock.h>

#include "admin/companies/CreazioneDitta.h"
#include "admin/companies/DitteDiProva.h"
#include "core/archives/Riferimenti.h"
#include "core/session/CambioDitta.h"
#include "core/session/Cestino.h"
#include "core/session/FileIni.h"
#include "core/store/DiscoFinto.h"
#include "core/values/Testo.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;
using admin::CreazioneDitta;
using archives::SceltaDati;
using archives::Sorte;
using ::testing::HasSubstr;

class CreazioneDittaTest : public DitteTest {
 protected:
  CreazioneDittaTest() { Apri(); }
  ~CreazioneDittaTest() override {
    SuPassoDitta({});
    DiscoFinto::Spazio(-1);
  }

  bool Crea(CreazioneDitta& caso, const std::string& nome, std::int64_t anno = 2026) {
    caso.Dati().Scrivi("Ditta", nome);
    caso.Dati().Scrivi("Anno", anno);
    return caso.Conferma();
  }
};

TEST_F(CreazioneDittaTest, RifiutiNellOrdine) {
  CreaDittaProva(Opzioni(), "Bianchi");
  fs::create_directory(Cartella("Occupata"));
  const std::string lungo(200, 'x');
  const struct {
    std::string nome;
    std::int64_t anno;
    const char* campo;
    const char* messaggio;
  } casi[] = {
      {"", 0, "Ditta", "mancano dati oppure la ditta esiste già"},
      {"Neri", 0, "Anno", "mancano dati oppure la ditta esiste già"},
      {"rossi", 2026, "Ditta", "mancano dati oppure la ditta esiste già"},
      {"BIANCHI", 26, "Ditta", "la ditta BIANCHI esiste già\n(file di inizializzazione "},
      {"a.b", 26, "Ditta", "digitare un semplice nome ditta senza simboli .,/"},
      {"../x", 2026, "Ditta", "digitare un semplice nome ditta senza simboli .,/"},
      {"dell'orto", 2026, "Ditta", "digitare un semplice nome ditta senza simboli .,/"},
      {"a\\b", 2026, "Ditta", "digitare un semplice nome ditta senza simboli .,/"},
      {"-Neri", 2026, "Ditta", "digitare un semplice nome ditta senza simboli .,/"},
      {"a\xC2\x85z", 2026, "Ditta", "digitare un semplice nome ditta senza simboli .,/"},
      {lungo, 2026, "Ditta", "troppo lungo"},
      {"com1", 2026, "Ditta", "nome riservato"},
      {"NUL", 2026, "Ditta", "nome riservato"},
      {"ini", 2026, "Ditta", "nome riservato"},
      {"cestino", 2026, "Ditta", "nome riservato"},
      {"Neri", 26, "Anno", "non è un anno contabile"},
  };
  const auto prima = NomiSotto(cartella_.Percorso());
  for (const auto& caso : casi) {
    CreazioneDitta creazione(ambiente_);
    EXPECT_FALSE(Crea(creazione, caso.nome, caso.anno));
    EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr(caso.messaggio)) << caso.nome;
    EXPECT_EQ(creazione.CampoRifiutato(), caso.campo) << caso.nome;
  }
  EXPECT_TRUE(dialoghi_.domande.empty());
  CreazioneDitta creazione(ambiente_);
  EXPECT_EQ(creazione.NomeDigitato("Caffè Perù 2"), "Caffè Perù 2");
  EXPECT_EQ(creazione.NomeDigitato("Ne.ri/"), "Neri");
  dialoghi_.Rispondera("CONFERMA CREAZIONE NUOVA DITTA Neri", Risposta::No);
  EXPECT_FALSE(Crea(creazione, " Neri "));
  EXPECT_EQ(NomiSotto(cartella_.Percorso()), prima);
}

/// Rows whose field names something of a kind that stayed behind.
std::string Orfane(Ambiente& nuova, const std::set<std::string>& rimasti) {
  std::string orfane;
  for (const auto& r : archives::TavolaRiferimenti()) {
    if (!rimasti.contains(r.archivio)) continue;
    const std::string sql = std::string("select count(*) from ") + r.tabella + " where " + r.campo +
                            "<>''" +
                            (*r.condizione == '\0' ? "" : std::string(" and ") + r.condizione);
    if (nuova.ArchivioDi(r.chiave).Singolo(sql).Intero() != 0) {
      orfane.append(r.tabella).append(".").append(r.campo).append(" ");
    }
  }
  return orfane;
}

/// A row in every table of goods, orders and jobs that a copy may take along.
void MettiMerce(Archivio& tessarc) {
  tessarc.Inserisci("CodiciRiga", {{"Cod", "X1"}, {"CodIva", "22"}, {"Conto", "700.001"}});
  for (const char* tabella : {"prodottiFor_r", "Db_r"}) {
    tessarc.Inserisci(tabella, {{"Cod", "X1"}, {"Posi", 100}});
  }
  tessarc.Inserisci("Listini_r", {{"Cod", "XL"}, {"Posi", 100}, {"CodiceRiga", "X1"}});
  for (const std::string ordini : {"OrdiniCli", "OrdiniFor"}) {
    const std::string parte = ordini == "OrdiniCli" ? "Cliente" : "Fornitore";
    tessarc.Inserisci(ordini, {{"TipoDoc", "O"}, {"NumDoc", 1}, {parte, "0001"}});
    tessarc.Inserisci(ordini + "_r", {{"TipoDoc", "O"}, {"NumDoc", 1}, {"CodiceRiga", "X1"}});
  }
  tessarc.Inserisci("Commesse", {{"NumDoc", 1}, {"Cliente", "0001"}});
  tessarc.Inserisci("Commesse_r", {{"NumDoc", 1}, {"CodiceRiga", "X1"}});
}

/// A row of that table falls with something that stayed behind.
bool Cade(const char* tabella, const std::set<std::string>& rimasti) {
  return std::ranges::any_of(archives::TavolaRiferimenti(), [&](const auto& r) {
    return r.cade && UgualeTesto(r.tabella, tabella) && rimasti.contains(r.archivio);
  });
}

TEST_F(CreazioneDittaTest, LaCopiaTieneCioCheSiSceglieENienteDiRegistrato) {
  MettiMerce(ambiente_.ArchivioDi("tessarc"));
  const Contenuti origine = ContenutiDi(Cartella("Rossi"));
  const struct {
    const char* nome;
    std::set<std::string> tolte;
    std::set<std::string> rimasti;
  } casi[] = {
      {"Tutto", {}, {}},
      {"Senza parti", {"TieniClienti", "TieniFornitori"}, {"Clienti", "Fornitori"}},
      {"Senza conti", {"TieniConti", "TieniFornitori"}, {"Conti", "Fornitori"}},
      {"Senza merce", {"TieniProdotti", "TieniOrdiniFor"}, {"CodiciRiga", "OrdiniFor"}},
      {"Senza ordini", {"TieniOrdiniCli", "TieniDistinte", "TieniCommesse"}, {}},
      {"Nuda", {"TieniConti", "TieniClienti", "TieniFornitori"}, {"Conti", "Clienti", "Fornitori"}},
  };
  for (const auto& caso : casi) {
    CreazioneDitta creazione(ambiente_);
    std::set<SceltaDati> tenute;
    for (const auto& opzione : creazione.Opzioni()) {
      const bool tenuta = !caso.tolte.contains(opzione.campo);
      creazione.Dati().Scrivi(opzione.campo, tenuta);
      if (tenuta) tenute.insert(opzione.scelta);
    }
    EXPECT_EQ(creazione.Opzioni().size(), tenute.size() + caso.tolte.size()) << "all are offered";
    dialoghi_.Rispondera("CONFERMA CREAZIONE NUOVA DITTA", Risposta::Si);
    ASSERT_TRUE(Crea(creazione, caso.nome, 2001)) << dialoghi_.UltimoMessaggio();
    const Contenuti copia = ContenutiDi(Cartella(caso.nome));
    for (const auto& tabella : archives::TavolaTabelle()) {
      const std::string base =
          UgualeTesto(tabella.chiave, "tessarc") ? "Cont32.mdb/" : "Scad32.mdb/";
      if (!origine.contains(base + tabella.tabella)) continue;
      const auto& righe = copia.at(base + tabella.tabella);
      if (std::string_view(tabella.tabella) == "Anni") {
        EXPECT_EQ(righe, std::multiset<std::string>{"2001|0|000|0|"});
      } else if (tabella.sorte == Sorte::Vuota) {
        EXPECT_TRUE(righe.empty()) << caso.nome << ": " << tabella.tabella;
      } else if (tabella.condizione == nullptr) {
        const bool tenuta = (tabella.sorte == Sorte::Tenuta || tenute.contains(tabella.scelta)) &&
                            !Cade(tabella.tabella, caso.rimasti);
        EXPECT_EQ(righe.size(), tenuta ? origine.at(base + tabella.tabella).size() : 0)
            << caso.nome << ": " << tabella.tabella;
      }
    }
    DialoghiFinti muti;
    Ambiente nuova(Opzioni(), muti, orologio_, caso_);
    ASSERT_TRUE(nuova.ApriDitta(caso.nome));
    EXPECT_EQ(Orfane(nuova, caso.rimasti), "") << caso.nome;
    EXPECT_EQ(nuova.ArchivioDi("tessarc").Singolo("select sum(UltProtSt) from RegistriIva"),
              Valore(0));
    const bool conti = tenute.contains(SceltaDati::Conti);
    EXPECT_EQ(nuova.Cerca("tessarc", "RegistriIva", {{"Cod", "2"}}, "ContoCassa").Testo(),
              conti ? "100.010" : "");
    EXPECT_EQ(nuova.Cerca("tessarc", "RegistriIva", {{"Cod", "8A"}}, "Tipo").Testo(), "08A");
    EXPECT_EQ(nuova.Config("ragsoc1 "), caso.nome);
  }
  EXPECT_EQ(ContenutiDi(Cartella("Rossi")), origine);
  EXPECT_EQ(ambiente_.DittaPredefinita(), "Nuda");
  EXPECT_TRUE(dialoghi_.HaDetto("Creata nuova ditta Tutto\nOra il programma verrà chiuso. "));
  EXPECT_TRUE(dialoghi_.HaDetto("periodicamente la cartella " + Cartella("Tutto").string()));
}

TEST_F(CreazioneDittaTest, DalModelloENonDallaDemo) {
  CreaDittaProva(Opzioni(), "Demo");
  EXPECT_TRUE(CreazioneDitta(ambiente_).Dati().Leggi("CopiaDitta").Booleano());
  ASSERT_TRUE(ambiente_.ApriDitta("Demo"));
  CreazioneDitta creazione(ambiente_);
  EXPECT_FALSE(creazione.Dati().Leggi("CopiaDitta").Booleano());
  creazione.Dati().Scrivi("IvaTrimestrale", true);
  dialoghi_.Rispondera("CONFERMA CREAZIONE", Risposta::Si);
  ASSERT_TRUE(Crea(creazione, "Mia"));
  Contenuti mia = ContenutiDi(Cartella("Mia"));
  EXPECT_EQ(mia["Cont32.mdb/Anni"], std::multiset<std::string>{"2026|1|000|1|"});
  Contenuti demo = ContenutiDi(Cartella("Demo"));
  demo.erase("Cont32.mdb/Anni");
  mia.erase("Cont32.mdb/Anni");
  EXPECT_EQ(mia, demo);
}

TEST_F(CreazioneDittaTest, UnaCartellaCheCEraVaNelCestino) {
  fs::create_directories(Cartella("Neri/Documenti"));
  ScriviFile(Cartella("Neri/Documenti/lettera.txt"), "cara");
  CreazioneDitta creazione(ambiente_);
  ScriviFile(Cartella("Neri/Scad32.mdb"), "vecchio");
  dialoghi_.Rispondera("CONFERMA CREAZIONE", Risposta::Si);
  dialoghi_.Rispondera("Scad32.mdb ESISTE GIA' - SOSTITUISCO ? ", Risposta::No);
  EXPECT_FALSE(Crea(creazione, "Neri"));
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr("DIRECTORY GIA' ESISTENTE"));
  EXPECT_EQ(LeggiFile(Cartella("Neri/Scad32.mdb")), "vecchio");

  dialoghi_.Rispondera("CONFERMA CREAZIONE", Risposta::Si);
  dialoghi_.Rispondera("ESISTE GIA'", Risposta::Si);
  ASSERT_TRUE(Crea(creazione, "Neri")) << dialoghi_.UltimoMessaggio();
  const fs::path voce = Cartella("Cestino") / "2026-11-24 10.00 Neri";
  EXPECT_EQ(LeggiFile(voce / "Scad32.mdb"), "vecchio");
  EXPECT_EQ(LeggiFile(voce / "Documenti/lettera.txt"), "cara");
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr(voce.string()));
  EXPECT_TRUE(ambiente_.ApriDitta("Neri"));

  // A folder that another company's settings name is nobody's to take.
  ScriviFile(Cartella("Verdi.ini"),
             "[Archivi]\nTessarc=Gialli/Cont32.mdb\nScadenzario=Gialli/Scad32.mdb\n");
  fs::create_directory(Cartella("Gialli"));
  dialoghi_.Rispondera("CONFERMA CREAZIONE", Risposta::Si);
  EXPECT_FALSE(Crea(creazione, "Gialli"));
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr("errore su creaz.nuova directory :"));
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr("«Verdi»"));
}

TEST_F(CreazioneDittaTest, DiscoPienoOPassoFallitoNonLascianoNiente) {
  OpzioniAmbiente opzioni = Opzioni();
  opzioni.vfs = DiscoFinto::Nome();
  DialoghiFinti dialoghi;
  Ambiente stretto(opzioni, dialoghi, orologio_, caso_);
  ASSERT_TRUE(stretto.ApriDitta("Rossi"));
  fs::create_directory(Cartella("Neri"));
  ScriviFile(Cartella("Neri/nota.txt"), "mia");
  const std::string predefinita = LeggiFile(Cartella("DittaDefault.txt"));
  const auto prima = NomiSotto(cartella_.Percorso());
  CreazioneDitta creazione(stretto);
  const auto rifiutata = [&](const char* motivo, const std::string& quale) {
    dialoghi.Rispondera("CONFERMA CREAZIONE", Risposta::Si);
    const bool fatta = Crea(creazione, "Neri");
    if (fatta) return false;
    EXPECT_THAT(dialoghi.UltimoMessaggio(), HasSubstr(motivo)) << quale;
    EXPECT_EQ(NomiSotto(cartella_.Percorso()), prima) << quale;
    EXPECT_EQ(LeggiFile(Cartella("DittaDefault.txt")), predefinita) << quale;
    return true;
  };
  for (const std::int64_t spazio : {0, 100'000, 300'000}) {
    DiscoFinto::Spazio(spazio);
    EXPECT_TRUE(rifiutata("errore su copia file ditta su nuova :", std::to_string(spazio)));
    DiscoFinto::Spazio(-1);
  }
  int fallito = 0;
  bool rifiuta = true;
  while (rifiuta) {
    int passo = 0;
    ++fallito;
    SuPassoDitta([&passo, fallito] {
      if (++passo == fallito) throw std::runtime_error("il disco non risponde");
    });
    rifiuta = rifiutata("il disco non risponde", "passo " + std::to_string(fallito));
  }
  EXPECT_GT(fallito, 8);
  EXPECT_EQ(stretto.DittaPredefinita(), "Neri");
}

}  // namespace
}  // namespace fenalto::prova
