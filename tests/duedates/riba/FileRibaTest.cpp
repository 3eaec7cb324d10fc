#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>

#include "core/session/CartellaProva.h"
#include "core/values/Testo.h"
#include "duedates/riba/FileRiba.h"
#include "duedates/riba/VerificaFileRiba.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::duedates {
namespace {

using prova::G;
using prova::I;
using ::testing::Contains;
using ::testing::Each;
using ::testing::Field;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::size_t kRiga = kColonneRiba + 2;
constexpr const char* kTruncata = " verrà troncato";

DebitoreRiba Caffe() {
  return {"Caffè Nazionale S.r.l.",
          "già “Da Nino”",
          "Via dell’Università 7",
          "20122",
          "Milano",
          "MI",
          "01234567897",
          "5034",
          "11700",
          "Banco di Prova",
          "Filiale di Milano 3"};
}

/// The batch that Distinta12.rib was made from by hand.
DistintaRiba Distinta12() {
  DistintaRiba distinta;
  distinta.data = G(24, 2, 2026);
  distinta.banca = {"A1B2C", "03069", "09606", "100000012345"};
  distinta.creditore = {"Officine Bianchi & Figli", "", "Via Garibaldi 10", "25100 Brescia BS",
                        "03456789012"};
  const DebitoreRiba lungo = {"Società Cooperativa Agricola dei Produttori di Olive del Sud.",
                              "",
                              "Corso Umberto 1",
                              "80138",
                              "Napoli",
                              "NA",
                              "IT00743110157",
                              "01005",
                              "02200",
                              "Cassa di Prova",
                              ""};
  const DebitoreRiba rossi = {"Rossi & C.", "", "Via Roma 1", "00184", "Roma", "RM",
                              "",           "", "",           "",      "Sede"};
  distinta.ricevute = {
      {G(31, 3, 2026), I("1234.56"), "ft.12 del 31/01/26 – € 1.234,56", Caffe()},
      {G(1, 4, 2026), I("870"), "ft.13", lungo},
      {G(30, 4, 2026), I("-10.5"), "nota di credito 3", rossi},
  };
  return distinta;
}

/// One receipt without anything to remark on.
DistintaRiba UnaSola(Importo importo = I("1234.56")) {
  DistintaRiba distinta = Distinta12();
  distinta.creditore.ragSoc1 = "Officine Bianchi";
  distinta.ricevute.resize(1);
  distinta.ricevute[0].importo = importo;
  distinta.ricevute[0].descrizione = "ft.12";
  distinta.ricevute[0].debitore.ragSoc1 = "Caffe Nazionale";
  distinta.ricevute[0].debitore.ragSoc2.clear();
  distinta.ricevute[0].debitore.indirizzo = "Via Po 7";
  return distinta;
}

std::string Contenuto(const std::filesystem::path& file) {
  std::ifstream flusso(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(flusso), std::istreambuf_iterator<char>()};
}

std::string Linea(const std::string& testo, std::size_t riga) {
  return testo.substr((riga - 1) * kRiga, kColonneRiba);
}

TEST(FileRiba, ByteDellaDistintaFattaAMano) {
  const FileRiba file = ComponiFileRiba(Distinta12());
  const std::string atteso = Contenuto(FENALTO_RIBA);
  ASSERT_EQ(atteso.size(), 23 * kRiga);
  for (std::size_t riga = 1; riga <= 23; ++riga)
    EXPECT_EQ(Linea(file.testo, riga), Linea(atteso, riga)) << "riga " << riga;
  EXPECT_EQ(file.testo, atteso);
}

TEST(FileRiba, NoteDellaDistinta) {
  const FileRiba file = ComponiFileRiba(Distinta12());
  std::vector<std::string> dette;
  for (const NotaRiba& nota : file.note) {
    EXPECT_FALSE(nota.grave) << nota.messaggio;
    dette.push_back(std::to_string(nota.ricevuta) + "x" + std::to_string(nota.volte) + " " +
                    nota.messaggio);
  }
  const std::string cooperativa = Distinta12().ricevute[1].debitore.ragSoc1;
  ASSERT_EQ(LunghezzaTesto(cooperativa), 61U);
  EXPECT_THAT(
      dette,
      ::testing::IsSupersetOf(std::vector<std::string>{
          "0x2 dato : RAGIONE SOCIALE CREDITORE\nOfficine Bianchi & Figli\n più lungo di20 verrà "
          "troncato",
          "0x3 dato : RAG.SOC.DEBITORE\nOfficine Bianchi & Figli\n più lungo di20 verrà troncato",
          "1x1 dato : RAGIONE SOCIALE 1 DEBITORE\nCaffè Nazionale S.r.l.\n contiene lettere che "
          "la banca non accetta: scritto «Caffe Nazionale S.r.l.»",
          "2x1 dato : RAGIONE SOCIALE 1 DEBITORE\n" + cooperativa +
              "\n più lungo di30 verrà troncato",
          "3x1 dato : PARTITA IVA DEBITORE\n mancante ", "3x1 dato : ABI DEBITORE\n mancante "}));
  // The ampersand goes as it is, an optional field may be missing.
  EXPECT_THAT(dette, Not(Contains(HasSubstr("Rossi"))));
  EXPECT_THAT(dette, Not(Contains(HasSubstr("RAGIONE SOCIALE 2 DEBITORE\n mancante"))));
}

TEST(FileRiba, UnaRicevutaNoveRecord) {
  const FileRiba file = ComponiFileRiba(UnaSola());
  EXPECT_THAT(file.note, IsEmpty());
  ASSERT_EQ(file.testo.size(), 9 * kRiga);
  const std::array codici = {" IB", " 14", " 20", " 30", " 40", " 50", " 51", " 70", " EF"};
  for (std::size_t i = 0; i < codici.size(); ++i)
    EXPECT_THAT(Linea(file.testo, i + 1), StartsWith(codici[i]));
  EXPECT_EQ(Linea(file.testo, 2).substr(33, 14), "0000000123456+");
  EXPECT_EQ(Linea(file.testo, 9).substr(45, 44),
            "0000001000000000123456000000000000000"
            "0000009");
  const LetturaRiba letto = VerificaRiba(file.testo, file.segno);
  EXPECT_THAT(letto.segnalazioni, IsEmpty());
}

struct CasoImporto {
  const char* importo;
  RibaSegno segno;
  const char* scritto;
  int note;
  bool grave;
};

TEST(FileRiba, ImportiESegno) {
  const CartellaProva cartella;
  constexpr auto kSuo = RibaSegno::DellImporto;
  constexpr auto kMeno = RibaSegno::SempreMeno;
  const std::array casi = {
      CasoImporto{"0", kSuo, "0000000000000+", 0, false},
      CasoImporto{"0", kMeno, "0000000000000-", 0, false},
      CasoImporto{"1234.56", kMeno, "0000000123456-", 0, false},
      CasoImporto{"-0.004", kSuo, "0000000000000+", 1, false},
      CasoImporto{"-0.005", kSuo, "0000000000001-", 2, false},
      CasoImporto{"10.0049", kSuo, "0000000001000+", 1, false},
      CasoImporto{"10.005", kSuo, "0000000001001+", 1, false},
      CasoImporto{"-10", kMeno, "0000000001000-", 2, true},
      CasoImporto{"99999999999.99", kSuo, "9999999999999+", 0, false},
      CasoImporto{"300000000000.01", kSuo, "0000000000001+", 1, true},
  };
  for (const CasoImporto& caso : casi) {
    SCOPED_TRACE(caso.importo);
    DistintaRiba distinta = UnaSola(I(caso.importo));
    distinta.segno = caso.segno;
    const FileRiba file = ComponiFileRiba(distinta);
    EXPECT_EQ(Linea(file.testo, 2).substr(33, 14), caso.scritto);
    EXPECT_EQ(file.note.size(), static_cast<std::size_t>(caso.note));
    EXPECT_EQ(std::ranges::any_of(file.note, &NotaRiba::grave), caso.grave);
    EXPECT_NE(ScriviFileRiba(cartella / "1.rib", file).Riuscito(), caso.grave);
  }
  EXPECT_EQ(RibaSegnoDaChiave(""), kSuo);
  EXPECT_EQ(RibaSegnoDaChiave("+"), kSuo);
  EXPECT_EQ(RibaSegnoDaChiave(" - "), kMeno);
}

TEST(FileRiba, LettereDellaBanca) {
  const std::array<std::pair<const char*, const char*>, 9> casi = {{
      {"Perché È già Così Ñandú", "Perche E gia Cosi Nandu"},
      {"Perche\u0301", "Perche"},  // accent on its own
      {"Straße Ægir Œuvre", "Strasse AEgir OEuvre"},
      {"Bianchi & Figli", "Bianchi & Figli"},
      {"100 € – n° 3", "100 EUR - no 3"},
      {"“a” ‘b’ «c» d…", "\"a\" 'b' \"c\" d..."},
      {"[x] {y} a|b c\\d ~`^", "(x) (y) a/b c/d -'-"},
      {"a\tb\r\nc\u00A0d", "a b  c d"},
      {"Ω 漢 \x01\xff", "? ? ??"},
  }};
  for (const auto& [testo, scritto] : casi) EXPECT_EQ(LettereRiba(testo), scritto);
}

TEST(FileRiba, CodiciDellaBanca) {
  DistintaRiba distinta = UnaSola();
  distinta.banca = {"", "3069", "", "IT"};
  distinta.ricevute[0].debitore.abi = "5O34";  // a letter
  distinta.ricevute[0].debitore.cab = "1170012";
  distinta.ricevute[0].scadenza = Data();
  const FileRiba file = ComponiFileRiba(distinta);
  EXPECT_EQ(Linea(file.testo, 1).substr(3, 10), "     03069");
  EXPECT_EQ(Linea(file.testo, 2).substr(22, 6), "      ");
  EXPECT_EQ(Linea(file.testo, 2).substr(47, 32), "03069     IT          5O34 11700");
  EXPECT_THAT(file.note, Contains(Field(&NotaRiba::messaggio, "dato : CODICE SIA\n mancante ")));
  EXPECT_THAT(file.note, Contains(Field(&NotaRiba::messaggio, "dato : DATA SCADENZA\n mancante ")));
  EXPECT_THAT(file.note, Contains(Field(&NotaRiba::messaggio, HasSubstr("5O34"))));
  EXPECT_THAT(file.note, Contains(Field(&NotaRiba::messaggio, HasSubstr(kTruncata))));
  EXPECT_THAT(file.note, Each(Field(&NotaRiba::grave, false)));
  // The file can be written all the same: each of them is told, none forbids.
  const LetturaRiba letto = VerificaRiba(file.testo, file.segno);
  EXPECT_TRUE(letto.Buona());
  EXPECT_GE(letto.segnalazioni.size(), 5U);
}

/// The lines of a file, with their ends.
std::vector<std::string> Righe(const std::string& testo) {
  std::vector<std::string> righe;
  for (std::size_t da = 0; da < testo.size(); da += kRiga) righe.push_back(testo.substr(da, kRiga));
  return righe;
}

TEST(VerificaFileRiba, RigheTolteDoppieSpostateSpezzate) {
  const std::string buono = ComponiFileRiba(Distinta12()).testo;
  const auto righe = Righe(buono);
  const std::size_t prima = VerificaRiba(buono, RibaSegno::DellImporto).segnalazioni.size();
  const auto trovata = [&](std::vector<std::string> mutate) {
    std::string testo;
    for (const auto& riga : mutate) testo += riga;
    const LetturaRiba letto = VerificaRiba(testo, RibaSegno::DellImporto);
    return !letto.Buona() && letto.segnalazioni.size() > prima;
  };
  for (std::size_t i = 0; i < righe.size(); ++i) {
    SCOPED_TRACE(i);
    auto mutate = righe;
    mutate.erase(mutate.begin() + static_cast<std::ptrdiff_t>(i));
    EXPECT_TRUE(trovata(mutate));
    mutate = righe;
    mutate.insert(mutate.begin() + static_cast<std::ptrdiff_t>(i), righe[i]);
    EXPECT_TRUE(trovata(mutate));
    if (i > 0) {
      mutate = righe;
      std::swap(mutate[i], mutate[i - 1]);
      EXPECT_TRUE(trovata(mutate));
    }
    for (const char* fine : {"\n", "", "\r", " \r\n", "\n\r"}) {
      mutate = righe;
      mutate[i] = righe[i].substr(0, kColonneRiba) + fine;
      EXPECT_TRUE(trovata(mutate));
    }
    mutate = righe;
    mutate[i].erase(50, 1);
    EXPECT_TRUE(trovata(mutate));
  }
  EXPECT_FALSE(trovata(righe));
}

/// Whether changing one good character of the field for another can't be told from another batch.
bool Libero(const CampoRiba& campo) {
  const bool testo = campo.genere == GenereRiba::Testo || campo.genere == GenereRiba::Cifre;
  const bool unico = campo.dato == DatoRiba::CreditoreRagSoc1 ? false : !DellaDistinta(campo.dato);
  return (testo && unico) || campo.dato == DatoRiba::Scadenza;
}

TEST(VerificaFileRiba, OgniColonnaCambiata) {
  const std::string buono = ComponiFileRiba(Distinta12()).testo;
  const auto prima = VerificaRiba(buono, RibaSegno::DellImporto).segnalazioni.size();
  for (std::size_t riga = 1; riga <= 23; ++riga) {
    const auto record = RecordDiLinea(Linea(buono, riga)).value();
    for (const CampoRiba& campo : CampiRiba(record)) {
      for (int i = 0; i < campo.larghezza; ++i) {
        const std::size_t dove =
            (riga - 1) * kRiga + static_cast<std::size_t>(campo.posizione + i) - 1;
        std::string mutato = buono;
        mutato[dove] = '\xE9';  // what another program would write for an accent
        const LetturaRiba letto = VerificaRiba(mutato, RibaSegno::DellImporto);
        EXPECT_FALSE(letto.Buona()) << riga << ":" << campo.posizione + i;
        if (Libero(campo)) continue;
        mutato[dove] = buono[dove] == '7' ? '8' : '7';
        EXPECT_GT(VerificaRiba(mutato, RibaSegno::DellImporto).segnalazioni.size(), prima)
            << riga << ":" << campo.posizione + i;
      }
    }
  }
}

TEST(VerificaFileRiba, DiceRigaEColonna) {
  const std::string buono = ComponiFileRiba(UnaSola()).testo;
  struct Caso {
    std::size_t riga;
    int colonna;
    const char *nuovo, *detto;
  };
  const std::array casi = {
      Caso{1, 114, "X", "riga 1, colonna 114: deve essere «E», è «X»"},
      Caso{1, 14, "310226", "riga 1, colonna 14: DATA DISTINTA: non è una data ggmmaa: «310226»"},
      Caso{2, 38, "O",
           "riga 2, colonna 38: IMPORTO RICEVUTA: deve avere solo cifre, è "
           "«0000O00123456»"},
      Caso{2, 47, "*", "riga 2, colonna 47: SEGNO: deve essere «+» o «-», è «*»"},
      Caso{2, 48, "01005",
           "riga 2, colonna 48: ABI BANCA PRESENTAZIONE: è «01005», altrove nel "
           "file «03069»"},
      Caso{3, 1, " 21", "riga 3, colonna 1: record sconosciuto « 21»"},
      Caso{5, 4, "0000002", "riga 5, colonna 4: N.RICEVUTA: è 2, deve essere 1"},
      Caso{6, 95, "x", "riga 6, colonna 91: deve essere vuoto, è «    x     »"},
      Caso{7, 20, "4", "riga 7, colonna 11: N.INTERNO: è 4, deve essere 1"},
      Caso{9, 52, "2", "riga 9, colonna 46: N.DISPOSIZIONI: è 2, deve essere 1"},
      Caso{9, 67, "7",
           "riga 9, colonna 53: IMPORTOTOTALE: è 123457, diverso dalla somma delle "
           "ricevute"},
      Caso{9, 89, "8", "riga 9, colonna 83: N.RECORD: è 8, deve essere 9"},
  };
  for (const Caso& caso : casi) {
    std::string mutato = buono;
    const std::string_view nuovo = caso.nuovo;
    mutato.replace((caso.riga - 1) * kRiga + static_cast<std::size_t>(caso.colonna) - 1,
                   nuovo.size(), nuovo);
    std::vector<std::string> detti;
    for (const auto& s : VerificaRiba(mutato, RibaSegno::DellImporto).segnalazioni)
      if (s.grave) detti.push_back(s.Testo());
    EXPECT_THAT(detti, Contains(caso.detto));
  }
  const LetturaRiba meno = VerificaRiba(buono, RibaSegno::SempreMeno);
  ASSERT_EQ(meno.segnalazioni.size(), 1U);
  EXPECT_EQ(meno.segnalazioni[0].Testo(), "riga 2, colonna 47: SEGNO: deve essere «-», è «+»");
  EXPECT_FALSE(VerificaRiba("", RibaSegno::DellImporto).Buona());
}

class FileRibaSuDisco : public ::testing::Test {
 protected:
  CartellaProva cartella_;
};

TEST_F(FileRibaSuDisco, ScrittoORimastoComEra) {
  const auto percorso = cartella_.Percorso() / "12.rib";
  const FileRiba file = ComponiFileRiba(Distinta12());
  ASSERT_TRUE(ScriviFileRiba(percorso, file));
  EXPECT_EQ(Contenuto(percorso), Contenuto(FENALTO_RIBA));
  EXPECT_TRUE(VerificaFileRiba(percorso, file.segno).Valore().Buona());

  DistintaRiba negativa = UnaSola(I("-1"));
  negativa.segno = RibaSegno::SempreMeno;
  const auto rifiuto = ScriviFileRiba(percorso, ComponiFileRiba(negativa));
  ASSERT_FALSE(rifiuto);
  EXPECT_THAT(rifiuto.Errore().messaggio, HasSubstr("RibaSegno"));
  FileRiba guasto = file;
  guasto.testo[5 * kRiga] = 'x';
  ASSERT_FALSE(ScriviFileRiba(percorso, guasto));
  EXPECT_EQ(Contenuto(percorso), file.testo);
  EXPECT_FALSE(ScriviFileRiba(cartella_.Percorso() / "manca" / "12.rib", file));
  DistintaRiba vuota = Distinta12();
  vuota.ricevute.clear();
  EXPECT_FALSE(ScriviFileRiba(cartella_.Percorso() / "13.rib", ComponiFileRiba(vuota)));
  std::size_t rimasti = 0;
  for ([[maybe_unused]] const auto& voce :
       std::filesystem::directory_iterator(cartella_.Percorso()))
    ++rimasti;
  EXPECT_EQ(rimasti, 1U);
  EXPECT_FALSE(VerificaFileRiba(cartella_.Percorso() / "13.rib", file.segno));
}

}  // namespace
}  // namespace fenalto::duedates
