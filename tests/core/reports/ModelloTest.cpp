// Page models: what a good one gives, and what is said of each broken one.
#include <gtest/gtest.h>

#include "core/reports/ModelloStampa.h"
#include "core/session/CartellaProva.h"

namespace fenalto::reports {
namespace {

constexpr const char* kCorpo = "[corpo]\ninizio 60\nfine 270\ncampo R_A x 10 larghezza 20\n";

ModelloStampa Letto(const std::string& testo) {
  auto modello = ModelloStampa::DaTesto(testo, "prova.mod");
  if (!modello) throw std::runtime_error(modello.Errore().messaggio);
  return std::move(modello).Valore();
}

TEST(Modello, TuttoQuelCheSiPuoScrivere) {
  const ModelloStampa m = Letto(
      "\xEF\xBB\xBF# commento\r\n"
      "[Pagina]\r\n"
      "formato a4 ORIZZONTALE   # in largo\r\n"
      "margine 7,5\r\n"
      "carattere \"Liberation Serif\" punti 10.5 corsivo\r\n"
      "riquadro x 5 y 5 larghezza 100 altezza 20 grigio 230\r\n"
      "riquadro x 5 y 5 larghezza 100 altezza 20\r\n"
      "immagine \"logo.png\" x 6 y 6 larghezza 10 altezza 10\r\n"
      "\r\n"
      "[testata]\r\n"
      "testo \"Società \"\"Alfa\"\" # 1\" x 10 y 10 larghezza 50 centro grassetto\r\n"
      "linea x1 200 y1 50 x2 10.25 y2 50 spessore 0.5\r\n"
      "campo DITTA y 12 x 10 larghezza 80 carattere \"Arial\" punti 14\r\n"
      "[corpo]\r\n"
      "inizio 60\n fine 190\n riga 5.25\n"
      "campo R_Dare x 100 y 5 larghezza 25 destra formato \"##.###,##\"\n"
      "[piede]\n"
      "campo TOTALE x 100 y 190 larghezza 25\n");
  EXPECT_EQ(m.Formato().larghezza, 29'700);
  EXPECT_EQ(m.Formato().altezza, 21'000);
  EXPECT_EQ(m.Formato().margine, 750);
  EXPECT_EQ(m.InizioCorpo(), 6'000);
  EXPECT_EQ(m.FineCorpo(), 19'000);
  EXPECT_EQ(m.AltezzaRiga(), 525);
  EXPECT_EQ(m.LarghezzaCorpo(), std::make_pair(10'000, 12'500));

  ASSERT_NE(m.Campo("r_DARE"), nullptr);
  const CampoModello& dare = *m.Campo("r_DARE");
  EXPECT_EQ(dare.nome, "R_Dare");
  EXPECT_EQ(dare.x, 10'000);
  EXPECT_EQ(dare.y, 500);
  EXPECT_EQ(dare.larghezza, 2'500);
  EXPECT_EQ(dare.allineamento, Allineamento::Destra);
  EXPECT_EQ(dare.formato, "##.###,##");
  EXPECT_EQ(dare.carattere, (Carattere{"Liberation Serif", 1'050, false, true}));
  EXPECT_EQ(m.Campo("Ditta")->carattere, (Carattere{"Arial", 1'400, false, true}));
  EXPECT_EQ(m.Campo("altro"), nullptr);

  ASSERT_EQ(m.Fissi().size(), 5U);
  const auto& pieno = std::get<Riquadro>(m.Fissi()[0]);
  EXPECT_EQ(pieno.grigio, 230);
  EXPECT_EQ(pieno.spessore, 0);
  const auto& vuoto = std::get<Riquadro>(m.Fissi()[1]);
  EXPECT_EQ(vuoto.grigio, 255);
  EXPECT_GT(vuoto.spessore, 0);
  EXPECT_EQ(std::get<Immagine>(m.Fissi()[2]).file, "logo.png");
  const auto& scritta = std::get<Scritta>(m.Fissi()[3]);
  EXPECT_EQ(scritta.testo, "Società \"Alfa\" # 1");
  EXPECT_EQ(scritta.allineamento, Allineamento::Centro);
  EXPECT_TRUE(scritta.carattere.grassetto);
  const auto& linea = std::get<Tratto>(m.Fissi()[4]);
  EXPECT_EQ(linea.x2, 1'025);
  EXPECT_EQ(linea.spessore, 50);
}

TEST(Modello, FormatoLibero) {
  const ModelloStampa m = Letto("[pagina]\nformato 215.9 x 279,4\n" + std::string(kCorpo));
  EXPECT_EQ(m.Formato().larghezza, 21'590);
  EXPECT_EQ(m.Formato().altezza, 27'940);
}

/// Lines put before a good body, the line of the mistake and a piece of what is said.
TEST(Modello, Rotti) {
  struct Caso {
    const char* testo;
    int riga;
    const char* detto;
    bool conCorpo = true;
  };
  const Caso casi[] = {
      {"", 1, "il file è vuoto", false},
      {"\n# solo commenti\n\n", 3, "il file è vuoto", false},
      {"[pagina]\nformato A4\n", 2, "manca la sezione [corpo]", false},
      {"[corpo]\ninizio 60\nfine 270\n", 3, "nessun campo", false},
      {"[corpo]\nfine 270\ncampo R_A x 1 larghezza 1\n", 1, "«inizio» e «fine»", false},
      {"[corpo]\ninizio 70\nfine 60\ncampo R_A x 1 larghezza 1\n", 1, "prima di cominciare", false},
      {"[corpo]\ninizio 60\nfine 298\ncampo R_A x 1 larghezza 1\n", 1, "alta 297 mm", false},
      {"[corpo]\ninizio 60\nfine 70\nriga 5.01\ncampo R_A x 1 larghezza 1\n", 1, "due righe",
       false},
      {"[corpo]\ninizio 60\nfine 70\nriga 0\ncampo R_A x 1 larghezza 1\n", 1, "due righe", false},
      {"formato A4\n", 1, "prima di «formato» va una sezione"},
      {"[pagina]\n\n[pidee]\n", 3, "sezione sconosciuta «[pidee]»"},
      {"[pagina] formato A4\n", 1, "la riga deve finire"},
      {"[pagina]\ncerchio x 1 y 1\n", 2, "parola sconosciuta «cerchio»"},
      {"[pagina]\n\"testo\" x 1\n", 2, "manca che cosa è"},
      {"[pagina]\nformato B5\n", 2, "A3, A4 o A5"},
      {"[pagina]\nformato A4 storto\n", 2, "«verticale» o «orizzontale»"},
      {"[pagina]\nformato 210 x alto\n", 2, "per l'altezza va un numero, non «alto»"},
      {"[pagina]\nformato 10 x 297\n", 2, "da 20 a 2000"},
      {"[pagina]\nmargine\n", 2, "dopo «margine» va un numero"},
      {"[pagina]\nmargine 110\n", 3, "i margini coprono"},
      {"[pagina]\nriga 5\n", 2, "va nella sezione [corpo]"},
      {"[pagina]\ncampo DITTA x 1 y 1 larghezza 1\n", 2, "[testata], [corpo] o [piede]"},
      {"[testata]\nformato A4\n", 2, "va nella sezione [pagina]"},
      {"[pagina]\ncarattere Arial punti 9\n", 2, "il nome tra virgolette"},
      {"[pagina]\ncarattere \"Arial\" punti 0.5\n", 2, "da 1 a 200"},
      {"[pagina]\ncarattere \"Arial\n", 2, "non sono chiuse"},
      {"[pagina]\ntesto \"a\"x 1 y 1\n", 2, "va uno spazio"},
      {"[testata]\ncampo\n", 2, "dopo «campo» va il nome"},
      {"[testata]\ncampo Più x 1 y 1 larghezza 1\n", 2, "non è un nome di campo"},
      {"[testata]\ncampo A x 1 y 1\n", 2, "manca «larghezza»"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1 acapo\n", 2, "parola sconosciuta «acapo»"},
      {"[testata]\ncampo A x 1 larghezza 1\n", 2, "manca «y»"},
      {"[testata]\ncampo A x 1 y 1 larghezza 0\n", 2, "larghezza del campo è zero"},
      {"[testata]\ncampo A x 1 y 1 larghezza\n", 2, "dopo «larghezza» manca il valore"},
      {"[testata]\ncampo A x dieci y 1 larghezza 1\n", 2, "va un numero, non «dieci»"},
      {"[testata]\ncampo A x -1 y 1 larghezza 1\n", 2, "va un numero, non «-1»"},
      {"[testata]\ncampo A x 1. y 1 larghezza 1\n", 2, "va un numero, non «1.»"},
      {"[testata]\ncampo A x 1.234 y 1 larghezza 1\n", 2, "più di due decimali"},
      {"[testata]\ncampo A x 99999999999 y 1 larghezza 1\n", 2, "troppo grande"},
      {"[testata]\ncampo A x 1 x 2 y 1 larghezza 1\n", 2, "«x» è scritto due volte"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1 destra centro\n", 2, "allineamento"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1 spessore 1\n", 2, "sconosciuta «spessore»"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1 formato ##\n", 2, "dopo «formato» manca"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1 formato 9\n", 2, "tra virgolette"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1 formato \"euro\"\n", 2, "un segnaposto e uno solo"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1 formato \"## ##\"\n", 2, "un segnaposto e uno solo"},
      {"[testata]\ncampo A x 1 y 1 larghezza 1\n\ncampo a x 1 y 1 larghezza 1\n", 4,
       "«a» c'è già alla riga 2"},
      {"[testata]\ncampo R_X x 1 y 1 larghezza 1\n", 2, "fuori posto"},
      {"[corpo]\ncampo DITTA x 1 y 1 larghezza 1\n", 2, "fuori posto"},
      {"[testata]\ncampo A x 200 y 1 larghezza 10.01\n", 2, "larga 210 mm"},
      {"[testata]\ncampo A x 1 y 60 larghezza 1\n", 2, "sotto l'inizio del corpo, a 60 mm"},
      {"[piede]\ncampo A x 1 y 269.99 larghezza 1\n", 2, "sopra la fine del corpo, a 270 mm"},
      {"[piede]\ncampo A x 1 y 297 larghezza 1\n", 2, "alta 297 mm"},
      {"[corpo]\ncampo R_X x 1 y 4.5 larghezza 1\n", 2, "sotto la propria riga, alta 4.50 mm"},
      {"[pagina]\ntesto \"a\" x 1 y 1 destra\n", 2, "ha bisogno di «larghezza»"},
      {"[pagina]\ntesto a x 1 y 1\n", 2, "il testo tra virgolette"},
      {"[pagina]\nlinea x1 1 y1 1 x2 211 y2 1\n", 2, "la linea esce"},
      {"[pagina]\nlinea x1 1 y1 1 x2 1\n", 2, "manca «y2»"},
      {"[pagina]\nriquadro x 1 y 290 larghezza 1 altezza 8\n", 2, "il riquadro esce"},
      {"[pagina]\nriquadro x 1 y 1 larghezza 1 altezza 8 grigio 256\n", 2, "da 0 (nero) a 255"},
      {"[pagina]\nimmagine x 1 y 1 larghezza 1 altezza 8\n", 2, "il nome del file"},
      {"[pagina]\ntesto \"\xE8\" x 1 y 1\n", 2, "UTF-8"},
      {"[corpo]\ninizio 60\n", 4, "«inizio» è scritto due volte"},
  };
  for (const Caso& caso : casi) {
    const auto m = ModelloStampa::DaTesto(std::string(caso.testo) + (caso.conCorpo ? kCorpo : ""),
                                          "prova.mod");
    ASSERT_FALSE(m) << caso.testo;
    const std::string& messaggio = m.Errore().messaggio;
    const std::string inizio =
        "modello di stampa «prova.mod», riga " + std::to_string(caso.riga) + ": ";
    EXPECT_EQ(messaggio.substr(0, inizio.size()), inizio) << messaggio;
    EXPECT_NE(messaggio.find(caso.detto), std::string::npos) << messaggio;
  }
}

TEST(Modello, DaFile) {
  const CartellaProva cartella;
  const auto file = cartella / "TiGio.mod";
  const auto errore = [&] { return ModelloStampa::Leggi(file).Errore().messaggio; };
  EXPECT_NE(errore().find("non esiste"), std::string::npos);
  std::filesystem::create_directory(file);
  EXPECT_NE(errore().find("è una cartella"), std::string::npos);
  std::filesystem::remove(file);
  // A file saved by an old editor.
  ScriviFile(file, std::string("[pagina]\ntesto \"Societ\xE0\" x 1 y 1\n") + kCorpo);
  const auto antico = ModelloStampa::Leggi(file);
  ASSERT_TRUE(antico) << antico.Errore().messaggio;
  EXPECT_EQ(std::get<Scritta>(antico.Valore().Fissi().at(0)).testo, "Società");

  ScriviFile(file, std::string("[pagina]\nimmagine \"logo.png\" x 1 y 1 larghezza 9 altezza 9\n") +
                       kCorpo);
  EXPECT_NE(errore().find("riga 2: l'immagine"), std::string::npos);
  ScriviFile(cartella / "logo.png", "png");
  const auto conLogo = ModelloStampa::Leggi(file);
  ASSERT_TRUE(conLogo) << conLogo.Errore().messaggio;
  EXPECT_EQ(std::get<Immagine>(conLogo.Valore().Fissi().at(0)).file,
            (cartella / "logo.png").string());
  ScriviFile(file, std::string(2'000'000, '#'));
  EXPECT_NE(errore().find("troppo grande"), std::string::npos);
}

// The example of the guide is a model that works.
TEST(Modello, LEsempioDellaGuida) {
  const std::string guida = LeggiFile(std::filesystem::path(FENALTO_DOCS) / "modelli.md");
  const std::string apre = "```mod\n";
  const std::size_t inizio = guida.find(apre);
  ASSERT_NE(inizio, std::string::npos);
  const std::size_t fine = guida.find("```", inizio + apre.size());
  const auto modello = ModelloStampa::DaTesto(
      guida.substr(inizio + apre.size(), fine - inizio - apre.size()), "modelli.md");
  ASSERT_TRUE(modello) << modello.Errore().messaggio;
  EXPECT_NE(modello.Valore().Campo("R_DESCRIZIONE"), nullptr);
}

}  // namespace
}  // namespace fenalto::reports
