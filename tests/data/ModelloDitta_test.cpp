// The model company is loaded into the real schema and asked whether it is whole: every code that a
// row names exists, and a new company can post, collect and settle with it from the first day.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/CartellaProva.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

int Confronta(void*, int n1, const void* p1, int n2, const void* p2) {
  const auto testo = [](int n, const void* p) {
    return std::string_view(static_cast<const char*>(p), static_cast<std::size_t>(n));
  };
  return ConfrontaTesto(testo(n1, p1), testo(n2, p2));
}

/// One database of a company just made from the model, asked in the engine's own language.
class Base {
 public:
  explicit Base(const fs::path& file) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    db_.reset(db);
    sqlite3_create_collation(db, "FENALTO", SQLITE_UTF8, nullptr, Confronta);
  }

  /// First column of every row of a query.
  std::vector<std::string> Colonna(const std::string& sql) {
    sqlite3_stmt* istruzione = nullptr;
    if (sqlite3_prepare_v2(db_.get(), sql.c_str(), -1, &istruzione, nullptr) != SQLITE_OK)
      throw std::runtime_error(sqlite3_errmsg(db_.get()));
    std::vector<std::string> celle;
    int esito = SQLITE_ROW;
    while ((esito = sqlite3_step(istruzione)) == SQLITE_ROW) {
      const void* testo = sqlite3_column_text(istruzione, 0);
      celle.emplace_back(testo == nullptr ? "" : static_cast<const char*>(testo));
    }
    sqlite3_finalize(istruzione);
    if (esito != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db_.get()));
    return celle;
  }

 private:
  struct Chiudi {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
  };
  std::unique_ptr<sqlite3, Chiudi> db_;
};

class ModelloDitta : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    cartella_ = std::make_unique<CartellaProva>();
    CreaDittaProva(OpzioniProva(cartella_->Percorso()), "Prova");
    base_ = std::make_unique<Base>(*cartella_ / "Prova/Cont32.mdb");
  }
  static void TearDownTestSuite() {
    base_.reset();
    cartella_.reset();
  }

  static void Nessuno(const std::string& difetto, const std::string& sql) {
    EXPECT_THAT(base_->Colonna(sql), testing::IsEmpty()) << difetto;
  }

  static std::unique_ptr<CartellaProva> cartella_;
  static std::unique_ptr<Base> base_;
};

std::unique_ptr<CartellaProva> ModelloDitta::cartella_;
std::unique_ptr<Base> ModelloDitta::base_;

TEST_F(ModelloDitta, IlPianoDeiContiSiTiene) {
  Nessuno("conto senza mastro, o patrimoniale/economico diverso dal mastro",
          "SELECT c.Cod FROM Conti c WHERE NOT EXISTS (SELECT 1 FROM Mastri m WHERE m.PatrEcon = "
          "c.PatrEcon AND m.Cod || '.' = substr(c.Cod, 1, instr(c.Cod, '.')))");
  Nessuno("mastro senza conti",
          "SELECT m.Cod FROM Mastri m WHERE NOT EXISTS (SELECT 1 FROM Conti c WHERE "
          "substr(c.Cod, 1, length(m.Cod) + 1) = m.Cod || '.')");
  Nessuno("lettere non previste",
          "SELECT Cod FROM Conti WHERE PatrEcon NOT IN ('P','E') OR CFP NOT IN ('C','F','P')");
  Nessuno("riepilogativo o cespite economico",
          "SELECT Cod FROM Conti WHERE PatrEcon = 'E' AND (CFP <> 'P' OR Cespite)");
  Nessuno("elenco dei conti diverso dai conti di classe P",
          "SELECT Cod || Descrizione FROM Conti WHERE CFP = 'P' EXCEPT SELECT Cod || Descrizione "
          "FROM ContiClientiFornitori WHERE CFP = 'P'");
  Nessuno("elenco dei conti con righe di troppo",
          "SELECT Cod FROM ContiClientiFornitori WHERE CFP <> 'P' OR Descrizione2 <> '' OR Cod NOT "
          "IN (SELECT Cod FROM Conti WHERE CFP = 'P')");
  for (const std::string classe : {"C", "F"})
    EXPECT_FALSE(base_->Colonna("SELECT Cod FROM Conti WHERE CFP='" + classe + "'").empty());
}

TEST_F(ModelloDitta, OgniCodiceNominatoEsiste) {
  struct Legame {
    const char *tabella, *campo, *verso;
  };
  const Legame legami[] = {
      {"RegistriIva", "Tipo", "TIPIregistriiva"},
      {"RegistriIva", "Conto", "Conti"},
      {"RegistriIva", "ContoCassa", "Conti"},
      {"RegistriIva", "ContoRicaviCorrisp", "Conti"},
      {"RegistriIva", "CauGiroCorrisp", "Causali"},
      {"RegistriIva", "CodIva", "CodiciIva"},
      {"Pagamento", "Conto", "Conti"},
      {"Pagamento", "Causale", "Causali"},
      {"Pagamento", "Tipo", "tipipagamento"},
      {"Pagamento", "CodPagIva", "Pagamento"},
      {"Pagamento_r", "Cod", "Pagamento"},
      {"Pagamento_r", "Tipo", "tipipagamento"},
      {"Ritenute", "Conto", "Conti"},
      {"Ritenute", "Causale", "Causali"},
      {"TipiFattureCli", "CausaleMag", "CausaliMag"},
      {"TipiFattureCli", "Mag", "Magazzini"},
      {"TipiFattureCli", "Riva", "RegistriIva"},
      {"TipiFattureCli", "CodIva", "CodiciIva"},
      {"TipiFattureCli", "Conto", "Conti"},
      {"TipiFattureCli", "Porto", "CodiciPorto"},
      {"TipiFattureCli", "CodAspetto", "CodiciAspetto"},
      {"TipiFattureCli", "CodiceCausaleTrasporto", "CodiciCausaliTrasporto"},
      {"TipiFattureCli", "TipoDocScaricoDB", "TipiFattureCli"},
      {"TipiFattureCli", "TipoDocTrasferimento", "TipiFattureCli"},
      {"CategorieCespiti", "ContoAmm", "Conti"},
      {"CategorieCespiti", "ContoFondo", "Conti"},
  };
  for (const auto& l : legami) {
    const std::string campo = l.campo;
    Nessuno(std::string(l.tabella) + "." + campo, "SELECT " + campo + " FROM " + l.tabella +
                                                      " WHERE " + campo + " <> '' AND " + campo +
                                                      " NOT IN (SELECT Cod FROM " + l.verso + ")");
  }
  // Rows written by the program go on plain accounts of the balance sheet or of revenue.
  Nessuno("conto di registro, pagamento o ritenuta non di classe P",
          "SELECT Conto FROM (SELECT Conto FROM RegistriIva UNION ALL SELECT ContoCassa FROM "
          "RegistriIva UNION ALL SELECT ContoRicaviCorrisp FROM RegistriIva UNION ALL SELECT Conto "
          "FROM Pagamento UNION ALL SELECT Conto FROM Ritenute) WHERE Conto <> '' AND Conto NOT IN "
          "(SELECT Cod FROM ContiClientiFornitori)");
}

TEST_F(ModelloDitta, ICodiciRispettanoLeRiserve) {
  for (const auto& voce : fs::directory_iterator(fs::path(FENALTO_DATA) / "modello/tessarc")) {
    const std::string tabella = voce.path().stem().string();
    Nessuno(tabella, "SELECT Cod FROM " + tabella + " WHERE Cod = '' OR Cod LIKE 'X%'");
  }
  Nessuno("mastri da lasciare liberi", "SELECT Cod FROM Mastri WHERE Cod >= '990'");
  Nessuno("codici lasciati a clienti e fornitori",
          "SELECT Cod FROM ContiClientiFornitori WHERE Cod GLOB '9[0-9][0-9][0-9]'");
  Nessuno("causale che comincia da 1 a 9 ma non è di un registro",
          "SELECT Cod FROM Causali WHERE Cod >= '1' AND Cod <= '9zz' AND NOT EXISTS (SELECT 1 FROM "
          "RegistriIva r WHERE Causali.Cod IN (r.Cod || '1', r.Cod || '2', r.Cod || '3'))");
  Nessuno("codice iva creato solo dal programma", "SELECT Cod FROM CodiciIva WHERE Cod = 'ZCOR'");
}

TEST_F(ModelloDitta, IRegistriIvaSonoPronti) {
  Nessuno("registro senza le tre causali, uguali fra loro",
          "SELECT r.Cod FROM RegistriIva r WHERE r.Tipo NOT IN ('08','08A') AND (SELECT count(*) "
          "FROM Causali c WHERE c.Ripete AND c.Descrizione <> '' AND c.Cod IN (r.Cod || '1', "
          "r.Cod || '2', r.Cod || '3')) <> 3");
  Nessuno("registro che la maschera rifiuterebbe",
          "SELECT Cod FROM RegistriIva WHERE Conto = '' OR (Tipo IN ('02','07','09') AND "
          "(ContoCassa = '' OR ContoRicaviCorrisp = '' OR CauGiroCorrisp = ''))");
  Nessuno("registro acquisti che nella liquidazione non si sottrae, o viceversa",
          "SELECT cod FROM TIPIregistriiva WHERE PIUMENO <> CASE WHEN cod IN ('03','05','08A') "
          "THEN -1 WHEN cod = '06' THEN 0 ELSE 1 END");
  EXPECT_THAT(base_->Colonna("SELECT Cod FROM RegistriIva ORDER BY Cod"),
              testing::UnorderedElementsAre("1", "1V", "2", "3", "3V", "4", "5", "7", "8", "8A"));
}

TEST_F(ModelloDitta, ICodiciIvaHannoAliquoteVigenti) {
  Nessuno("aliquota che non esiste",
          "SELECT Cod FROM CodiciIva WHERE Perc NOT IN (0, 40000, 50000, 100000, 220000)");
  Nessuno("indetraibilità fuori misura, o senza imposta",
          "SELECT Cod FROM CodiciIva WHERE PercInd < 0 OR PercInd > 1000000 OR (PercInd <> 0 AND "
          "Perc = 0)");
  Nessuno("colonna degli elenchi non prevista, o imponibile fuori dagli elenchi",
          "SELECT Cod FROM CodiciIva WHERE CampoElenco NOT BETWEEN 0 AND 5 OR (CampoElenco = 1) <> "
          "(Perc <> 0)");
}

TEST_F(ModelloDitta, ICodiciPagamentoSonoCompleti) {
  Nessuno("rate che non fanno 100",
          "SELECT Cod FROM Pagamento_r GROUP BY Cod HAVING sum(PercImporto) <> 1000000");
  Nessuno("rate non numerate da 01, o più di dieci",
          "SELECT Cod FROM Pagamento_r GROUP BY Cod HAVING count(*) > 10 OR min(Rata) <> '01' OR "
          "CAST(max(Rata) AS INTEGER) <> count(*)");
  Nessuno("rata che non dice come si sposta la data",
          "SELECT Cod FROM Pagamento_r WHERE FineMese + DataFattura + GiornoFisso <> 1 OR "
          "GiornoFisso <> (GGFisso <> 0)");
  Nessuno(
      "codice che non paga subito e non ha scadenze, o fa tutte e due le cose",
      "SELECT Cod FROM Pagamento p WHERE NOT NuovaCodifica OR AggiornaScad <> (Cod IN (SELECT "
      "Cod FROM Pagamento_r)) OR AggiornaScad <> (Conto = '') OR (Conto = '') <> (Causale = '')");
}

TEST_F(ModelloDitta, CiSonoICodiciSuCuiIlProgrammaConta) {
  const std::map<std::string, std::vector<std::string>> attesi = {
      {"Conti", {"100.010", "170.001", "170.003", "700.010", "900.220"}},
      {"Causali", {"037", "APE", "APEX"}},
      {"CodiciIva", {"20"}},
      {"tipipagamento", {"01", "02", "03", "05"}},
      {"CausaliMag", {"EI"}},
      {"TipiFattureCli", {"EI"}},
      {"Mesi", {"01", "12", "T1", "T4", "Z"}},
      {"TIPIregistriiva", {"01", "02", "03", "04", "05", "06", "07", "08", "08A", "09", "11"}},
  };
  for (const auto& [tabella, codici] : attesi) {
    EXPECT_THAT(base_->Colonna("SELECT Cod FROM " + tabella), testing::IsSupersetOf(codici))
        << tabella;
  }
  Nessuno("descrizione mancante", "SELECT Cod FROM Causali WHERE Descrizione = ''");
  Nessuno("causale che non carica né scarica",
          "SELECT Cod FROM CausaliMag WHERE CS NOT IN ('C','S')");
}

TEST_F(ModelloDitta, ITipiDocumentoSiTengono) {
  const std::string senso =
      "SELECT t.Cod FROM TipiFattureCli t LEFT JOIN CausaliMag m ON m.Cod = t.CausaleMag ";
  Nessuno("tipo che la maschera rifiuterebbe",
          senso +
              "WHERE t.CFP NOT IN ('C','F') OR t.Copie = 0 OR (t.CFP <> 'C' AND (t.Fatturo OR "
              "t.TipoStampa IN ('FATTURA','FATTACC','SCONTRINOSCARICO'))) OR (t.Mag <> '' AND "
              "t.CausaleMag = '') OR (t.Riva <> '' AND t.TipoStampa NOT IN "
              "('FATTURA','FATTACC'))");
  Nessuno("fattura o scontrino che carica",
          senso + "WHERE m.CS = 'C' AND t.TipoStampa IN ('FATTURA','FATTACC','SCONTRINOSCARICO')");
  const std::string altro = " JOIN TipiFattureCli a ON a.Cod = t.";
  const std::string sensoAltro = " JOIN CausaliMag n ON n.Cod = a.CausaleMag ";
  Nessuno("scarico componenti che non è di un carico, o non scarica",
          senso + altro + "TipoDocScaricoDB" + sensoAltro + "WHERE m.CS <> 'C' OR n.CS <> 'S'");
  Nessuno("trasferimento che non è di uno scarico, o non carica",
          senso + altro + "TipoDocTrasferimento" + sensoAltro +
              "WHERE m.CS <> 'S' OR n.CS <> 'C' OR a.CFP <> t.CFP");
  Nessuno("il prezzo di un reso, di un trasferimento o di una rettifica farebbe costo",
          "SELECT Cod FROM TipiFattureCli WHERE CausaleMag IN ('RC','TC','RIP') AND NOT NoCosti");
  EXPECT_THAT(base_->Colonna("SELECT Cod FROM TipiFattureCli WHERE TipoDefault"),
              testing::ElementsAre("01"));
}

TEST_F(ModelloDitta, NonPortaRegistrazioniNePersone) {
  for (const char* tabella : {"Ut", "Articoli", "Movimenti", "Clienti", "Fornitori", "Agenti",
                              "Vettori", "FattureCli", "FattureCli_r"}) {
    EXPECT_THAT(base_->Colonna(std::string("SELECT 1 FROM ") + tabella), testing::IsEmpty())
        << tabella;
  }
  Base scadenzario(*cartella_ / "Prova/Scad32.mdb");
  EXPECT_THAT(scadenzario.Colonna("SELECT 1 FROM Scadenze"), testing::IsEmpty());
}

}  // namespace
}  // namespace fenalto
