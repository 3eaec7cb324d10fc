// Pages to PDF, read back with the tools of the trade.

#include <algorithm>
#include <fstream>
#include <sstream>

#include "core/reports/DiscoPieno.h"
#include "core/reports/MisuraTesto.h"
#include "core/session/CartellaProva.h"
#include "print/Campione.h"
#include "print/UscitaPdf.h"

namespace fenalto::print {
namespace {

using namespace prova;

std::vector<std::string> Righe(const std::string& testo) {
  std::vector<std::string> righe;
  std::istringstream flusso(testo);
  for (std::string riga; std::getline(flusso, riga);) righe.push_back(riga);
  return righe;
}

int FileIn(const std::filesystem::path& cartella) {
  int quanti = 0;
  for ([[maybe_unused]] const auto& uno : std::filesystem::directory_iterator(cartella)) ++quanti;
  return quanti;
}

/// Horizontal place of each word, in points, as the file has it.
double PostoParola(const std::filesystem::path& file, const std::string& parola, bool fine) {
  const std::string testo = Comando("pdftotext -bbox '" + file.string() + "' -");
  const auto posto = testo.find(">" + parola + "<");
  if (posto == std::string::npos) return -1;
  const auto chiave = testo.rfind(fine ? "xMax=\"" : "xMin=\"", posto);
  return std::stod(testo.substr(chiave + 6));
}

TEST(UscitaPdf, ColonneEsatteSuOgniFormato) {
  const CartellaProva cartella;
  const auto file = cartella / "bilancio.pdf";
  UscitaPdf uscita(file);
  uscita.Titolo("Bilancio di verifica");
  ASSERT_TRUE(uscita.Aggiungi(PaginaFissa(kA4, 1, 40, 133)));
  ASSERT_TRUE(uscita.Aggiungi(PaginaFissa(kA4Orizzontale, 2, 40, 192)));
  ASSERT_TRUE(uscita.Aggiungi(PaginaFissa(kA4, 3, 2, 133)));
  EXPECT_FALSE(std::filesystem::exists(file)) << "il nome viene solo alla fine";
  ASSERT_TRUE(uscita.Fine());
  EXPECT_EQ(FileIn(cartella.Percorso()), 1);

  const std::string dati = DatiPdf(file);
  EXPECT_NE(dati.find("Title:           Bilancio di verifica"), std::string::npos) << dati;
  EXPECT_NE(dati.find("Pages:           3"), std::string::npos);
  EXPECT_NE(dati.find("Page    1 size:  595"), std::string::npos) << dati;
  EXPECT_NE(dati.find("Page    2 size:  842"), std::string::npos) << dati;
  EXPECT_NE(dati.find("Page    3 size:  595"), std::string::npos) << dati;

  // 133 columns from 5 mm at 17 an inch end at 5 + 133 * 25.4 / 17 mm; within a tenth of a column.
  const double colonna = 72.0 / 17;
  EXPECT_NEAR(PostoParola(file, "1000,00", true), 5 / 25.4 * 72 + 133 * colonna, colonna / 10);
  EXPECT_NEAR(PostoParola(file, "p1", false), 5 / 25.4 * 72, colonna / 10);
  EXPECT_NEAR(PostoParola(file, "1000,00", false), 5 / 25.4 * 72 + 126 * colonna, colonna / 10);
  EXPECT_LT(std::filesystem::file_size(file), 60'000U);
}

TEST(UscitaPdf, TestoRilettoRigaPerRiga) {
  const CartellaProva cartella;
  const auto file = cartella / "testo.pdf";
  reports::Pagina pagina{kA4, 1, {}};
  const std::vector<std::string> righe = {
      "CONTO    DESCRIZIONE                          DARE           AVERE",
      "-----------------------------------------------------------------",
      "100.010  Cassa contanti perché sì          1.234,56               ",
      "100.020  Società Łódź & C. – “l'unità”                     99,00 €",
      "100.030  \xE2\x94\x82 \xE2\x94\x80\xE2\x94\x80 filetti                            12,34",
      "100.040  \xE6\xBC\xA2\xE5\xAD\x97 straniere                            56,78",
  };
  for (std::size_t i = 0; i < righe.size(); ++i) {
    pagina.elementi.emplace_back(
        reports::RigaFissa{500, 500 + static_cast<int>(i) * 400, 17, i == 0, righe[i], {}});
  }
  UscitaPdf uscita(file);
  ASSERT_TRUE(uscita.Aggiungi(pagina));
  ASSERT_TRUE(uscita.Fine());
  const auto lette = Righe(TestoPdf(file));
  ASSERT_GE(lette.size(), righe.size());
  for (std::size_t i = 0; i < 4; ++i) {
    // The margin of 5 mm is three columns and a bit.
    std::string attesa = "   " + righe[i];
    attesa.erase(attesa.find_last_not_of(' ') + 1);
    EXPECT_EQ(lette[i], attesa);
  }
  // A face that lacks a character borrows it: what follows it keeps its column.
  EXPECT_NEAR(PostoParola(file, "56,78", false), 5 / 25.4 * 72 + 49 * 72.0 / 17, 0.5);
}

TEST(UscitaPdf, ScritteTagliateENumeriMai) {
  const CartellaProva cartella;
  const auto file = cartella / "scritte.pdf";
  reports::Pagina pagina{kA4, 1, {}};
  const reports::Carattere carattere{"Arial Narrow", 900, false, false};
  pagina.elementi.emplace_back(reports::Scritta{1000,
                                                1000,
                                                2000,
                                                reports::Allineamento::Sinistra,
                                                carattere,
                                                "DescrizioneMoltoMoltoLungaDiUnConto",
                                                {}});
  pagina.elementi.emplace_back(reports::Scritta{
      5000, 1000, 1000, reports::Allineamento::Destra, carattere, "123.456.789.012,34", {}, true});
  pagina.elementi.emplace_back(reports::Scritta{
      9000, 1000, 3000, reports::Allineamento::Destra, carattere, "12,34", {}, true});
  UscitaPdf uscita(file);
  ASSERT_TRUE(uscita.Aggiungi(pagina));
  ASSERT_TRUE(uscita.Fine());
  const std::string testo = TestoPdf(file);
  EXPECT_NE(testo.find("DescrizioneMo…"), std::string::npos) << testo;
  EXPECT_EQ(testo.find("Conto"), std::string::npos) << testo;
  EXPECT_EQ(testo.find("123"), std::string::npos) << testo;
  EXPECT_NE(testo.find("*****"), std::string::npos) << "un numero tagliato sarebbe un altro numero";
  EXPECT_NEAR(PostoParola(file, "12,34", true), 120 / 25.4 * 72, 0.5);
}

TEST(UscitaPdf, QuelCheVaACapoSiStampaIntero) {
  // Pages are composed without a device: what was measured then must stand on paper.
  const std::vector<std::string> testi = {
      "COSTRUZIONI GENERALI FRATELLI MARTINELLI & ASSOCIATI SOCIETÀ PER AZIONI",
      "saldo fornitura materiali edili, cantiere di via Garibaldi 12 (primo lotto) n. 1.234/2024",
      "Wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiiii"
      "i",
      "L'été à l'Hôtel Österreich, perché così è più bello — 100 € al mq"};
  const CartellaProva cartella;
  const auto file = cartella / "capo.pdf";
  for (const bool grassetto : {false, true}) {
    for (const char* famiglia : {"Arial Narrow", "Arial", "Courier New"}) {
      reports::Pagina pagina{kA4, 1, {}};
      const reports::Carattere carattere{famiglia, 850, grassetto, false};
      std::string atteso;
      int y = 1000;
      for (const std::string& testo : testi) {
        for (const std::string& riga : reports::InLarghezza(testo, 4'000, carattere)) {
          pagina.elementi.emplace_back(reports::Scritta{
              1000, y += 500, 4'000, reports::Allineamento::Sinistra, carattere, riga, {}});
          atteso += riga + "\n";
        }
      }
      UscitaPdf uscita(file);
      ASSERT_TRUE(uscita.Aggiungi(pagina));
      ASSERT_TRUE(uscita.Fine());
      // The tool spreads blanks to keep the places of columns.
      std::string letto;
      for (const std::string& riga : Righe(TestoPdf(file))) {
        std::istringstream parole(riga);
        std::string intera;
        for (std::string parola; parole >> parola;) intera += (intera.empty() ? "" : " ") + parola;
        if (!intera.empty()) letto += intera + "\n";
      }
      EXPECT_EQ(letto, atteso) << famiglia << (grassetto ? " grassetto" : "");
      // Nor is a line broken long before its end.
      if (std::string_view(famiglia) == "Arial Narrow") {
        EXPECT_LE(std::ranges::count(atteso, '\n'), grassetto ? 12 : 11) << atteso;
      }
    }
  }
}

TEST(UscitaPdf, NumeroDelleUltimePagineNelSegno) {
  const CartellaProva cartella;
  const auto file = cartella / "totale.pdf";
  UscitaPdf uscita(file);
  for (int numero = 1; numero <= 12; ++numero) {
    reports::Pagina pagina = PaginaFissa(kA4, numero, 1, 60);
    if (numero > 1) {
      pagina.elementi.emplace_back(
          reports::RigaFissa{500,
                             2000,
                             17,
                             false,
                             "Pag. " + std::to_string(numero) + " di \xEE\x80\x80   | fine",
                             {}});
    }
    ASSERT_TRUE(uscita.Aggiungi(pagina));
  }
  ASSERT_TRUE(uscita.Fine());
  const std::string testo = TestoPdf(file);
  EXPECT_NE(testo.find("Pag. 2 di 12  | fine"), std::string::npos) << testo;
  EXPECT_NE(testo.find("Pag. 12 di 12  | fine"), std::string::npos);
  EXPECT_LT(testo.find("p1 r0"), testo.find("p2 r0"));
  EXPECT_EQ(Righe(Comando("pdfinfo '" + file.string() + "' | grep Pages")).at(0),
            "Pages:           12");
}

TEST(UscitaPdf, AnnullataNonLasciaNiente) {
  const CartellaProva cartella;
  ScriviFile(cartella / "vecchio.pdf", "di prima");
  int chiamate = 0;
  {
    UscitaPdf uscita(cartella / "vecchio.pdf", [&](int, int) { return ++chiamate < 3; });
    EXPECT_TRUE(uscita.Aggiungi(PaginaFissa(kA4, 1, 40, 133)));
    EXPECT_TRUE(uscita.Aggiungi(PaginaFissa(kA4, 2, 40, 133)));
    EXPECT_FALSE(uscita.Aggiungi(PaginaFissa(kA4, 3, 40, 133)));
    const auto esito = uscita.Fine();
    ASSERT_TRUE(esito) << "chi annulla non ha bisogno di un avviso";
    EXPECT_FALSE(esito.Valore());
  }
  {
    UscitaPdf uscita(cartella / "vecchio.pdf");
    EXPECT_TRUE(uscita.Aggiungi(PaginaFissa(kA4, 1, 40, 133)));
    uscita.Annulla();
    EXPECT_FALSE(uscita.Aggiungi(PaginaFissa(kA4, 2, 40, 133)));
  }
  {
    UscitaPdf abbandonata(cartella / "vecchio.pdf");
    EXPECT_TRUE(abbandonata.Aggiungi(PaginaFissa(kA4, 1, 40, 133)));
  }
  EXPECT_EQ(FileIn(cartella.Percorso()), 1);
  EXPECT_EQ(LeggiFile(cartella / "vecchio.pdf"), "di prima");
}

TEST(UscitaPdf, FileCheNonSiPuoScrivere) {
  const CartellaProva cartella;
  std::filesystem::create_directory(cartella / "cartella.pdf");
  for (const auto& file : {cartella.Percorso() / "manca" / "a.pdf", cartella / "cartella.pdf",
                           std::filesystem::path("/dev/full")}) {
    UscitaPdf uscita(file);
    EXPECT_FALSE(uscita.Aggiungi(PaginaFissa(kA4, 1, 4, 60)));
    const auto esito = uscita.Fine();
    ASSERT_FALSE(esito);
    EXPECT_NE(esito.Errore().messaggio.find(file.string()), std::string::npos);
  }
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
  EXPECT_EQ(FileIn(cartella.Percorso()), 1);
}

TEST(UscitaPdf, DiscoPienoNonLasciaUnFileAMeta) {
  for (const bool totale : {false, true}) {
    const CartellaProva cartella;
    Esito<bool> esito = true;
    {
      const reports::DiscoPieno pieno(40'000);
      UscitaPdf uscita(cartella / "grande.pdf");
      for (int numero = 1; numero <= 40; ++numero) {
        reports::Pagina pagina = PaginaFissa(kA4, numero, 60, 133);
        if (totale)
          pagina.elementi.emplace_back(reports::RigaFissa{0, 0, 17, false, "\xEE\x80\x80", {}});
        if (!uscita.Aggiungi(pagina)) break;
      }
      esito = uscita.Fine();
    }
    ASSERT_FALSE(esito);
    EXPECT_NE(esito.Errore().messaggio.find("spazio"), std::string::npos)
        << esito.Errore().messaggio;
    EXPECT_EQ(FileIn(cartella.Percorso()), 0);
  }
}

long MemoriaKb() {
  std::ifstream stato("/proc/self/status");
  for (std::string riga; std::getline(stato, riga);)
    if (riga.starts_with("VmRSS:")) return std::stol(riga.substr(6));
  return 0;
}

TEST(UscitaPdf, MemoriaCheNonCresceConLePagine) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer keeps what is freed";
#endif
  const CartellaProva cartella;
  UscitaPdf uscita(cartella / "lungo.pdf");
  long prima = 0;
  constexpr int kPagine = 600;
  for (int numero = 1; numero <= kPagine; ++numero) {
    reports::Pagina pagina = PaginaFissa(kA4, numero, 80, 133);
    pagina.elementi.emplace_back(reports::RigaFissa{0, 0, 17, false, "\xEE\x80\x80", {}});
    ASSERT_TRUE(uscita.Aggiungi(std::move(pagina)));
    if (numero == 50) prima = MemoriaKb();
  }
  ASSERT_TRUE(uscita.Fine());
  // 600 pages are 6 MB as text; what may grow is the toolkit's own caches and index.
  EXPECT_LT(MemoriaKb() - prima, 6'000);
}

TEST(UscitaPdf, RapportoSenzaPagineEUnFoglioBianco) {
  const CartellaProva cartella;
  UscitaPdf uscita(cartella / "bianco.pdf");
  ASSERT_TRUE(uscita.Fine());
  EXPECT_NE(DatiPdf(cartella / "bianco.pdf").find("Pages:           1"), std::string::npos);
}

}  // namespace
}  // namespace fenalto::print
