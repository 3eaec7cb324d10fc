// The guide: sections, search, chapters of the windows; and the guide itself, that no link of it
// leads nowhere.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "help/CapitoloDi.h"
#include "help/Guida.h"

namespace fenalto::prova {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

constexpr const char* kCapitolo =
    "# Primanota\n\nTesto **in testa**, con `Ins` e [un link](05.md#x).\n\n"
    "| Tasto | Che fa |\n|---|---|\n| `F5` | rilegge |\n\n"
    "![figura](../immagini/a.png)\n\n## Ciò che fa da sé, sempre!\nL'**Importo** si pareggia.\n"
    "```\n# non è un titolo\n```\n";

std::string LeggiTutto(const fs::path& file) {
  std::ostringstream testo;
  testo << std::ifstream(file).rdbuf();
  return testo.str();
}

}  // namespace

TEST(Guida, SezioniETestoSenzaSegni) {
  const auto sezioni = help::LeggiSezioni(kCapitolo);
  ASSERT_EQ(sezioni.size(), 2U);
  EXPECT_EQ(sezioni[0].titolo, "Primanota");
  EXPECT_EQ(sezioni[0].ancora, "");
  EXPECT_EQ(sezioni[0].testo,
            "Testo in testa, con Ins e un link. Tasto   Che fa F5   rilegge figura");
  EXPECT_EQ(sezioni[1].titolo, "Ciò che fa da sé, sempre!");
  EXPECT_EQ(sezioni[1].ancora, "ciò-che-fa-da-sé-sempre");
  EXPECT_EQ(sezioni[1].testo, "L'Importo si pareggia. # non è un titolo");
  EXPECT_EQ(help::DidascaliaPulita(" N. &fattura: "), "N. fattura");
}

TEST(Guida, CercaOvunqueTitoliPrima) {
  const auto guida = help::Guida::Leggi(FENALTO_GUIDA);
  ASSERT_GE(guida.Capitoli().size(), 24U);
  const auto insoluti = guida.Cerca("INSOLUTI");
  ASSERT_FALSE(insoluti.empty());
  EXPECT_EQ(insoluti.front().sezione, "Insoluti");
  EXPECT_EQ(insoluti.front().posto, (help::Posto{"13-pagamenti-e-incassi.md", "insoluti"}));
  // Without accents, all words, and the piece of text around them.
  const auto piu = guida.Cerca("piu stazioni cartella condivisa");
  ASSERT_FALSE(piu.empty());
  EXPECT_EQ(piu.front().capitolo, "Più stazioni");
  EXPECT_NE(guida.Cerca("ventilazione").front().brano.find("entila"), std::string::npos);
  EXPECT_TRUE(guida.Cerca("zzz").empty());
  EXPECT_TRUE(guida.Cerca(" ").empty());
  EXPECT_TRUE(help::Guida::Leggi("/non/ce").Capitoli().empty());
}

TEST(Guida, IlCampoInMano) {
  const auto guida = help::Guida::Leggi(FENALTO_GUIDA);
  const auto* riga = guida.DelCampo("04-primanota.md", "&Causale:");
  ASSERT_NE(riga, nullptr);
  EXPECT_EQ(riga->titolo, "Una registrazione nuova");
  EXPECT_EQ(guida.DelCampo("04-primanota.md", "Nessun campo così"), nullptr);
  EXPECT_EQ(guida.DelCampo("04-primanota.md", ""), nullptr);
  EXPECT_EQ(guida.DelCampo("99.md", "Causale"), nullptr);
}

// Every chapter that a window leads to is there, with its section.
TEST(Guida, LeFinestrePortanoACapitoliCheCiSono) {
  const auto guida = help::Guida::Leggi(FENALTO_GUIDA);
  for (const char* funzione :
       {"", "Sfondo", "CercaFunzione", "movimenti", "FattureSospIva", "AccontiPrimaDiFattura",
        "AbbinaEstratto", "RiBaRaggruppamento", "InsolutiRiba", "Vettori", "Ut", "Importa",
        "Utility:1", "Utility:2", "Utility:3"}) {
    const auto posto = help::CapitoloDi(funzione);
    const auto* capitolo = guida.Di(posto.file);
    ASSERT_NE(capitolo, nullptr) << funzione;
    EXPECT_TRUE(std::ranges::any_of(
        capitolo->sezioni, [&](const auto& sezione) { return sezione.ancora == posto.ancora; }))
        << funzione << " " << posto.ancora;
  }
  EXPECT_EQ(help::CapitoloDi("Fatture").file, "05-fatture.md");
  EXPECT_EQ(help::CapitoloDi("Agenti").file, "07-archivi.md");
}

TEST(Guida, NessunCollegamentoNelVuoto) {
  const auto guida = help::Guida::Leggi(FENALTO_GUIDA);
  const std::regex collegamento(R"(\]\(([^)#]*)(#([^)]*))?\))");
  for (const auto& capitolo : guida.Capitoli()) {
    const fs::path file = fs::path(FENALTO_GUIDA) / capitolo.file;
    const std::string testo = LeggiTutto(file);
    for (std::sregex_iterator uno(testo.begin(), testo.end(), collegamento), fine; uno != fine;
         ++uno) {
      const std::string verso = (*uno)[1].str().empty() ? capitolo.file : (*uno)[1].str();
      if (verso.starts_with("http")) continue;
      EXPECT_TRUE(fs::exists(file.parent_path() / verso)) << capitolo.file << " " << verso;
      const std::string ancora = (*uno)[3];
      const auto* altro = guida.Di(verso);
      if (ancora.empty() || altro == nullptr) continue;
      EXPECT_TRUE(std::ranges::any_of(
          altro->sezioni, [&](const auto& sezione) { return sezione.ancora == ancora; }))
          << capitolo.file << " " << verso << "#" << ancora;
    }
  }
}

}  // namespace fenalto::prova
