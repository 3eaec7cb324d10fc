// Every text of the corpus is translated, prepared and run on the tables of its catalogue.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/sql/CatalogoProva.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;

const fs::path& Cartella() {
  static const fs::path kCartella = fs::path(FENALTO_SHARED_TESTS) / "core/sql/corpus";
  return kCartella;
}

std::string Contenuto(const fs::path& percorso) {
  std::ifstream file(percorso);
  std::ostringstream contenuto;
  contenuto << file.rdbuf();
  return contenuto.str();
}

struct Testo {
  std::string testo;
  int riga = 0;
};

/// Texts parted by blank lines; lines that begin with `#` are comments.
std::vector<Testo> TestiDi(const fs::path& percorso) {
  std::vector<Testo> testi;
  Testo corrente;
  std::istringstream file(Contenuto(percorso));
  std::string riga;
  for (int numero = 1; std::getline(file, riga); ++numero) {
    if (riga.starts_with('#')) continue;
    if (riga.find_first_not_of(" \r") == std::string::npos) {
      if (!corrente.testo.empty()) testi.push_back(std::move(corrente));
      corrente = {};
      continue;
    }
    if (corrente.testo.empty()) corrente.riga = numero;
    corrente.testo += corrente.testo.empty() ? riga : "\n" + riga;
  }
  if (!corrente.testo.empty()) testi.push_back(std::move(corrente));
  return testi;
}

/// `dubbi.txt` holds the texts whose meaning isn't settled: they aren't run.
bool EDaProvare(const fs::path& percorso) {
  const std::string nome = percorso.filename().string();
  return percorso.extension() == ".txt" && nome != "catalogo.txt" && nome != "dubbi.txt";
}

TEST(Corpus, OgniTestoSiEsegue) {
  const BancoProva banco(Contenuto(Cartella() / "catalogo.txt"));
  std::size_t provati = 0;
  for (const auto& voce : fs::directory_iterator(Cartella())) {
    if (!EDaProvare(voce.path())) continue;
    for (const Testo& t : TestiDi(voce.path())) {
      ++provati;
      const Risposta risposta = banco.Esegui(t.testo);
      EXPECT_EQ(risposta.errore, "")
          << voce.path().filename().string() << ":" << t.riga << " alla posizione "
          << risposta.posizione << " di\n  " << t.testo;
    }
  }
  EXPECT_GT(provati, 100U);
}

// The views of the catalogue open one by one: an error says which.
TEST(Corpus, OgniVistaSiApre) {
  const BancoProva banco(Contenuto(Cartella() / "catalogo.txt"));
  ASSERT_FALSE(banco.Catalogo().Viste().empty());
  for (const sql::VistaCatalogo& vista : banco.Catalogo().Viste())
    EXPECT_EQ(banco.Esegui("[" + vista.nome + "]").errore, "") << vista.testo;
}

}  // namespace
}  // namespace fenalto::prova
