// Companies with rows in every table, and what they hold, read past the program.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"

namespace fenalto::prova {

struct ColonnaProva {
  std::string nome;
  std::string tipo;
};
/// Tables of the program's own schema, by database ("Cont32.mdb") and name.
using Schema = std::map<std::string, std::map<std::string, std::vector<ColonnaProva>>>;
Schema SchemaDi(const std::filesystem::path& cartellaDitta);

/// Every row of every table as text, by "Cont32.mdb/Conti".
using Contenuti = std::map<std::string, std::multiset<std::string>>;
Contenuti ContenutiDi(const std::filesystem::path& cartellaDitta);

/// Everything below a folder, by relative path, but for locks.
std::set<std::string> NomiSotto(const std::filesystem::path& cartella);

class DitteTest : public ::testing::Test {
 protected:
  /// The company `Rossi` has a row more than the model in every table, whose texts name codes that
  /// there are.
  static void SetUpTestSuite();
  static void TearDownTestSuite() { modello_.reset(); }
  DitteTest();

  [[nodiscard]] OpzioniAmbiente Opzioni(const std::string& stazione = "UFFICIO") const;
  [[nodiscard]] std::filesystem::path Cartella(const std::string& nome) const {
    return cartella_ / nome;
  }
  void Apri() {
    const auto aperta = ambiente_.ApriDitta("Rossi");
    ASSERT_TRUE(aperta) << aperta.Errore().messaggio;
  }

  static std::unique_ptr<CartellaProva> modello_;
  CartellaProva cartella_;
  DialoghiFinti dialoghi_;
  OrologioFinto orologio_;
  CasoFinto caso_;
  Ambiente ambiente_{Opzioni(), dialoghi_, orologio_, caso_};
};

}  // namespace fenalto::prova
