// Another name for the open company, and the bin: questions, refusals, and rows that stay the same.
#include <gmock/gmock.h>

#include "admin/companies/DitteDiProva.h"
#include "admin/companies/NomeDitta.h"
#include "core/session/CambioDitta.h"
#include "core/session/Cestino.h"
#include "core/session/FileIni.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class NomeDittaTest : public DitteTest {
 protected:
  NomeDittaTest() { Apri(); }
  ~NomeDittaTest() override { SuPassoDitta({}); }

  bool Rinomina(const std::string& nuovo, const std::string& vecchio = "Rossi") {
    dialoghi_.Rispondera(
        "Vuoi modificare il nome della ditta?\n(verrà modificato anche il "
        "percorso degli archivi: ",
        Risposta::Si);
    dialoghi_.Scrivera(vecchio);
    return admin::ModificaNome(ambiente_, nuovo);
  }
  bool Elimina(const std::string& nome = "rossi") {
    dialoghi_.Rispondera("CONFERMA ELIMINAZIONE DITTA Rossi\nATTENZIONE: GLI ARCHIVI",
                         Risposta::Si);
    dialoghi_.Scrivera(nome);
    return admin::EliminaDitta(ambiente_);
  }
};

TEST_F(NomeDittaTest, RifiutiDelNome) {
  CreaDittaProva(Opzioni(), "Bianchi");
  fs::create_directory(Cartella("Occupata"));
  const auto prima = NomiSotto(cartella_.Percorso());
  const std::pair<const char*, const char*> nomi[] = {{"a/b", "digitare un semplice nome"},
                                                      {"prn", "nome riservato"},
                                                      {"Rossi", "si chiama già"},
                                                      {"bianchi", "la ditta bianchi esiste già"}};
  for (const auto& [nome, messaggio] : nomi) {
    EXPECT_FALSE(admin::ModificaNome(ambiente_, nome));
    EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr(messaggio)) << nome;
  }
  EXPECT_TRUE(dialoghi_.domande.empty());

  EXPECT_FALSE(Rinomina("Neri", "Bianchi"));
  EXPECT_THAT(dialoghi_.messaggi.at(dialoghi_.messaggi.size() - 2),
              HasSubstr("ATTENZIONE: verificare che non sia aperta un'altra sessione"));
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr("non è quello della ditta"));
  EXPECT_FALSE(Rinomina("Occupata"));
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr("impossibile rinominare ditta: errore 3\n"));

  Ambiente cassa(Opzioni("CASSA"), dialoghi_, orologio_, caso_);
  ASSERT_TRUE(cassa.ApriDitta("Rossi"));
  EXPECT_FALSE(Rinomina("Neri"));
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr("aperta dalla stazione CASSA"));
  EXPECT_FALSE(Elimina());
  EXPECT_THAT(dialoghi_.UltimoMessaggio(), HasSubstr("aperta dalla stazione CASSA"));
  cassa.ChiudiDitta();
  EXPECT_FALSE(Elimina("Verdi"));
  EXPECT_EQ(NomiSotto(cartella_.Percorso()), prima);
  EXPECT_EQ(ambiente_.Ditta(), "Rossi");

  fs::rename(Cartella("Rossi/Scad32.mdb"), Cartella("via"));
  EXPECT_FALSE(Rinomina("Neri"));
  EXPECT_EQ(dialoghi_.UltimoMessaggio(),
            "impossibile rinominare ditta:\nil file Scad32.mdb\nnon si trova nella cartella " +
                Cartella("Rossi").string());
}

TEST_F(NomeDittaTest, UnPassoFallitoLasciaIlNomeDiPrima) {
  ASSERT_TRUE(FileIni::Scrivi(Cartella("Rossi.ini"), "config", "DirectoryImm",
                              Cartella("Rossi/Immagini").string()));
  ASSERT_TRUE(FileIni::Scrivi(Cartella("Rossi.ini"), "Archivi", "Tessarc", "Rossi\\Cont32.mdb"));
  ASSERT_TRUE(ambiente_.ApriDitta("Rossi", 2001));
  const auto prima = NomiSotto(cartella_.Percorso());
  const std::string ini = LeggiFile(Cartella("Rossi.ini"));
  const Contenuti righe = ContenutiDi(Cartella("Rossi"));
  std::string numeri;
  for (int fallito = 1; fallito < 100; ++fallito) {
    int passo = 0;
    SuPassoDitta([&passo, fallito] {
      if (++passo == fallito) throw std::runtime_error("il disco non risponde");
    });
    if (Rinomina("Neri e figli")) break;
    numeri += dialoghi_.UltimoMessaggio().substr(0, 38).back();
    EXPECT_EQ(NomiSotto(cartella_.Percorso()), prima) << fallito;
    EXPECT_EQ(FileIni::DaTesto(LeggiFile(Cartella("Rossi.ini"))).Valore("config", "DirectoryImm"),
              Cartella("Rossi/Immagini").string());
    EXPECT_EQ(ambiente_.Ditta(), "Rossi") << fallito;
  }
  SuPassoDitta({});
  EXPECT_EQ(numeri, "3455") << "cartella, ini, percorsi, ditta predefinita";
  EXPECT_TRUE(dialoghi_.HaDetto("nome ditta MODIFICATO"));
  EXPECT_EQ(ambiente_.Ditta(), "Neri e figli");
  EXPECT_EQ(ambiente_.Anno(), 2001);
  EXPECT_EQ(ambiente_.DittaPredefinita(), "Neri e figli");
  EXPECT_EQ(ambiente_.PercorsoDb("tessarc"), Cartella("Neri e figli/Cont32.mdb"));
  EXPECT_EQ(ambiente_.LeggiImpostazione({}, "Archivi", "Tessarc"), "Neri e figli/Cont32.mdb");
  EXPECT_EQ(ambiente_.LeggiImpostazione({}, "Archivi", "Scadenzario"), "Scad32.mdb");
  EXPECT_EQ(ambiente_.Config("DirectoryImm"), Cartella("Neri e figli/Immagini").string());
  EXPECT_EQ(ContenutiDi(Cartella("Neri e figli")), righe);
  EXPECT_FALSE(fs::exists(Cartella("Rossi.ini")));

  // The same letters in another case are the same company.
  dialoghi_.Rispondera("Vuoi modificare il nome", Risposta::Si);
  dialoghi_.Scrivera("neri e figli");
  dialoghi_.Scrivera("NERI E FIGLI");
  EXPECT_TRUE(admin::ModificaNome(ambiente_, "")) << "il nome si chiede per ultimo";
  EXPECT_EQ(ambiente_.Ditta(), "NERI E FIGLI");
  EXPECT_EQ(ContenutiDi(Cartella("NERI E FIGLI")), righe);
}

TEST_F(NomeDittaTest, EliminataRestaNelCestinoUnMese) {
  CreaDittaProva(Opzioni(), "Bianchi", {{2026, true, false}}, false);
  const Contenuti righe = ContenutiDi(Cartella("Rossi"));
  const std::string ini = LeggiFile(Cartella("Rossi.ini"));
  const auto prima = NomiSotto(cartella_.Percorso());
  for (int fallito = 1; fallito < 100; ++fallito) {
    int passo = 0;
    SuPassoDitta([&passo, fallito] {
      if (++passo == fallito) throw std::runtime_error("il disco non risponde");
    });
    if (Elimina()) break;
    EXPECT_EQ(dialoghi_.UltimoMessaggio(), "errore su eliminazione file :\nil disco non risponde");
    EXPECT_EQ(NomiSotto(cartella_.Percorso()), prima) << fallito;
    EXPECT_EQ(ambiente_.Ditta(), "Rossi") << fallito;
    ASSERT_LT(fallito, 20);
  }
  SuPassoDitta({});
  EXPECT_FALSE(ambiente_.DittaAperta());
  EXPECT_TRUE(
      dialoghi_.HaDetto("ELIMINAZIONE DITTA Rossi EFFETTUATA\n ora il programma verra chiuso"));
  ASSERT_EQ(ambiente_.DitteTrovate().size(), 1U);
  EXPECT_EQ(ambiente_.DittaPredefinita(), "Bianchi");
  const fs::path voce = Cartella("Cestino") / "2026-11-24 10.00 Rossi";
  EXPECT_EQ(ContenutiDi(voce / "Rossi"), righe);
  EXPECT_EQ(LeggiFile(voce / "Rossi.ini"), ini);
  EXPECT_EQ(LeggiFile(voce / "Rossi/Documenti/contratto.txt"), "carta");

  orologio_.oggi = Data::DaGma(23, 12, 2026).value();
  ambiente_.RiprendiLavori();
  EXPECT_TRUE(fs::exists(voce)) << "29 giorni";
  fs::create_directories(Cartella("Cestino/roba mia"));
  orologio_.oggi = Data::DaGma(24, 12, 2026).value();
  ambiente_.RiprendiLavori();
  EXPECT_FALSE(fs::exists(voce)) << "30 giorni";
  EXPECT_TRUE(fs::exists(Cartella("Cestino/roba mia")));

  ASSERT_TRUE(ambiente_.ApriDitta("Bianchi"));
  admin::SvuotaIlCestino(ambiente_);
  EXPECT_EQ(dialoghi_.UltimoMessaggio(), "il cestino è vuoto");
  fs::create_directories(Cartella("Cestino") / "2026-12-20 10.00 Verdi");
  dialoghi_.Rispondera("Verdi, dal 20/12/2026", Risposta::Si);
  admin::SvuotaIlCestino(ambiente_);
  EXPECT_EQ(dialoghi_.UltimoMessaggio(), "cestino svuotato");
  EXPECT_TRUE(VociCestino(Ditte(cartella_.Percorso())).empty());
}

}  // namespace
}  // namespace fenalto::prova
