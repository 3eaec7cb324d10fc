// A new company from the program's real model.
#include <gtest/gtest.h>

#include <set>

#include "core/session/CartellaProva.h"
#include "core/session/CreaDitta.h"
#include "core/session/Csv.h"
#include "core/session/DialoghiFinti.h"
#include "core/session/FileIni.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

/// Everything below a folder, by relative path.
std::set<std::string> Contenuto(const fs::path& cartella) {
  std::set<std::string> nomi;
  for (const auto& voce : fs::recursive_directory_iterator(cartella))
    nomi.insert(voce.path().lexically_relative(cartella).string());
  return nomi;
}

TEST(CreaDitta, DalModello) {
  const CartellaProva cartella;
  const OpzioniAmbiente opzioni = OpzioniProva(cartella / "TESSARC32/programma");
  const auto creata =
      CreaDittaDaModello(opzioni, "Caffè Perù", {{2026, true, true}, {2001, false, false}}, true);
  ASSERT_TRUE(creata) << creata.Errore().messaggio;

  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  EXPECT_EQ(ambiente.DittaPredefinita(), "Caffè Perù");
  ASSERT_TRUE(ambiente.ApriDitta("Caffè Perù"));
  EXPECT_EQ(ambiente.CartellaDitta(), cartella / "Caffè Perù");
  EXPECT_TRUE(fs::is_directory(cartella / "Caffè Perù/Immagini"));
  EXPECT_TRUE(fs::is_directory(cartella / "Caffè Perù/Documenti"));
  EXPECT_EQ(ambiente.Anni(), (std::vector<int>{2001, 2026}));
  EXPECT_EQ(ambiente.Cerca("tessarc", "Anni", {{"Anno", 2026}}, "IvaTrimestrale"), Valore(true));
  EXPECT_EQ(ambiente.Config("ragsoc1 "), "Caffè Perù");
  EXPECT_EQ(ambiente.Config("RegAutoIntraCee"), "Si");
  const FileIni ini = FileIni::Leggi(ambiente.FileImpostazioni()).Valore();
  for (const char* chiave :
       {"CausalePagScad1C", "RegistrazioneContabilePagScad4F", "ContoIvaErario"}) {
    EXPECT_NE(ini.Testo().find(std::string("\n") + chiave + "=\n"), std::string::npos) << chiave;
  }

  // Every row of every table of the model, and a value of each type as the file has it.
  for (const char* chiave : {"tessarc", "scadenzario"}) {
    for (const auto& voce : fs::directory_iterator(fs::path(FENALTO_DATA) / "modello" / chiave)) {
      const auto csv = LeggiCsv(LeggiFile(voce.path()));
      ASSERT_TRUE(csv) << voce.path();
      const std::string tabella = voce.path().stem().string();
      // The opening stock's causal comes with the schema alone.
      const std::string sql =
          "select count(*) from " + tabella + (tabella == "CausaliMag" ? " where Cod<>'EI'" : "");
      EXPECT_EQ(ambiente.ArchivioDi(chiave).Singolo(sql).Intero(),
                static_cast<std::int64_t>(csv.Valore().righe.size()))
          << tabella;
    }
  }
  EXPECT_EQ(ambiente.Cerca("tessarc", "Causali", {{"Cod", "001"}}, "Ripete"), Valore(true));
  EXPECT_EQ(ambiente.Cerca("tessarc", "Ritenute", {{"Cod", "A11"}}, "Perc"),
            Valore(*Importo::DaTesto("11.5")));
}

// The codes that the settings begin with are the model's own.
TEST(CreaDitta, ConICodiciDelModello) {
  const CartellaProva cartella;
  const OpzioniAmbiente opzioni = OpzioniProva(cartella.Percorso());
  ASSERT_TRUE(
      CreaDittaDaModello(opzioni, "Verdi", {{2026, true, false}}, true, Partenza::DelModello));
  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  Ambiente ambiente(opzioni, dialoghi, orologio, caso);
  ASSERT_TRUE(ambiente.ApriDitta("Verdi"));
  const auto csv = LeggiCsv(LeggiFile(fs::path(FENALTO_DATA) / "modello/impostazioni.csv"));
  ASSERT_TRUE(csv);
  for (const auto& riga : csv.Valore().righe) {
    const std::string& chiave = riga.campi[0];
    const std::string& codice = riga.campi[1];
    EXPECT_EQ(ambiente.Config(chiave), codice) << chiave;
    if (codice == "1") continue;
    const char* tabella = codice.find('.') == std::string::npos ? "Causali" : "Conti";
    EXPECT_TRUE(ambiente.Esiste("tessarc", tabella, {{"Cod", codice}})) << chiave;
  }
  const FileIni ini = FileIni::Leggi(ambiente.FileImpostazioni()).Valore();
  EXPECT_EQ(ini.Testo().find("\nCausalePagScad1C=\n"), std::string::npos) << "written once";
}

TEST(CreaDitta, RifiutiSenzaResti) {
  const CartellaProva cartella;
  const OpzioniAmbiente opzioni = OpzioniProva(cartella.Percorso());
  CreaDittaProva(opzioni, "Rossi");
  fs::create_directory(cartella / "Occupata");
  const auto prima = Contenuto(cartella.Percorso());
  const auto rifiutata = [&](const std::string& nome, const std::vector<AnnoDitta>& anni,
                             const char* parte) {
    const auto creata = CreaDittaDaModello(opzioni, nome, anni, true);
    ASSERT_FALSE(creata) << nome;
    EXPECT_NE(creata.Errore().messaggio.find(parte), std::string::npos)
        << creata.Errore().messaggio;
    EXPECT_EQ(Contenuto(cartella.Percorso()), prima) << nome;
  };
  const std::vector<AnnoDitta> anni = {{2026, true, false}};
  for (const char* nome : {"", " ", "a.b", "a,b", "a & b", "../x", "a\\b", "c:x", " Neri", "-neri",
                           "a\nb", "perch\xE9"}) {
    rifiutata(nome, anni, "digitare un semplice nome");
  }
  rifiutata("rossi", anni, "esiste già");
  rifiutata("Occupata", anni, "esiste già");
  rifiutata("Neri", {}, "anno");
  rifiutata("Neri", {{2026, true, false}, {2026, true, false}}, "ripetuto");
  rifiutata("Neri", {{26, true, false}}, "non è un anno");
}

TEST(CreaDitta, ModelloRottoNonLasciaNiente) {
  const CartellaProva cartella;
  const CartellaProva dati;
  fs::copy(FENALTO_DATA, dati.Percorso(), fs::copy_options::recursive);
  OpzioniAmbiente opzioni = OpzioniProva(cartella.Percorso());
  opzioni.cartellaDati = dati.Percorso();
  const std::string buono = LeggiFile(dati / "modello/tessarc/Mesi.csv");
  const std::pair<std::string, const char*> casi[] = {
      {buono + "99\n", "campi invece di 2"},
      {buono + buono.substr(buono.find('\n') + 1), "non è stata creata"},
      {"Cod;Inesistente\n01;x\n", "Inesistente"}};
  for (const auto& [testo, parte] : casi) {
    ScriviFile(dati / "modello/tessarc/Mesi.csv", testo);
    const auto creata = CreaDittaDaModello(opzioni, "Neri", {{2026, true, false}}, true);
    ASSERT_FALSE(creata);
    EXPECT_NE(creata.Errore().messaggio.find(parte), std::string::npos)
        << creata.Errore().messaggio;
    EXPECT_TRUE(Contenuto(cartella.Percorso()).empty());
  }
  ScriviFile(dati / "modello/tessarc/Mesi.csv", buono);
  EXPECT_TRUE(CreaDittaDaModello(opzioni, "Neri", {{2026, true, false}}, true));
}

}  // namespace
}  // namespace fenalto
