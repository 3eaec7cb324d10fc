#include <gtest/gtest.h>

#include <stdexcept>

#include "core/session/Scheda.h"

namespace fenalto {
namespace {

sql::TabellaCatalogo Tabella() {
  sql::TabellaCatalogo tabella;
  tabella.nome = "Prova";
  tabella.colonne = {{"Num", Tipo::Intero, false, true, false},
                     {"Descrizione", Tipo::Testo, false, false, false},
                     {"Importo", Tipo::Importo, false, false, false},
                     {"Dt", Tipo::Data, false, false, false},
                     {"Chiuso", Tipo::Booleano, false, false, false},
                     {"Forse", Tipo::Testo, true, false, false},
                     {"_specchio", Tipo::Data, true, false, true}};
  return tabella;
}

TEST(Scheda, CampiTipizzati) {
  Scheda scheda(Tabella());
  scheda.Aggiungi("Saldo", Tipo::Importo);
  EXPECT_TRUE(scheda.Ha("DESCRIZIONE"));
  EXPECT_FALSE(scheda.Ha("_specchio"));
  EXPECT_TRUE(scheda.Leggi("forse").Nullo());
  EXPECT_FALSE(scheda.Leggi("descrizione").Nullo());
  scheda.Scrivi("importo", "12.5");
  EXPECT_EQ(scheda.Leggi("Importo").Tipo(), Tipo::Importo);
  EXPECT_EQ(scheda.Testo("IMPORTO"), "12.5");
  scheda.Scrivi("Dt", "2026-03-15");
  EXPECT_EQ(scheda.Leggi("dt").Data(), Data::DaGma(15, 3, 2026));
  scheda.Scrivi("Importo", Valore());
  EXPECT_FALSE(scheda.Leggi("Importo").Nullo());
  EXPECT_THROW(scheda.Scrivi("Importo", "dodici"), std::domain_error);
  EXPECT_THROW((void)scheda.Leggi("Manca"), std::out_of_range);
  EXPECT_THROW(scheda.Scrivi("Manca", 1), std::out_of_range);
  EXPECT_THROW(scheda.Aggiungi("SALDO", Tipo::Testo), std::invalid_argument);
  std::vector<std::string> nomi;
  for (const auto& [nome, valore] : scheda.Campi()) nomi.push_back(nome);
  EXPECT_EQ(nomi, (std::vector<std::string>{"Descrizione", "Importo", "Dt", "Chiuso", "Forse"}));
}

TEST(Scheda, Modificata) {
  Scheda scheda(Tabella());
  EXPECT_FALSE(scheda.Modificata());
  scheda.Scrivi("Descrizione", "rossi");
  EXPECT_TRUE(scheda.Modificata());
  scheda.Consolida();
  EXPECT_FALSE(scheda.Modificata());
  scheda.Scrivi("Descrizione", "ROSSI");
  EXPECT_TRUE(scheda.Modificata()) << "il maiuscolo è una modifica di chi scrive";
  scheda.Scrivi("Descrizione", "rossi");
  EXPECT_FALSE(scheda.Modificata());
  scheda.Scrivi("Chiuso", true);
  scheda.Svuota();
  EXPECT_FALSE(scheda.Modificata());
  EXPECT_EQ(scheda.Testo("Descrizione"), "");
}

}  // namespace
}  // namespace fenalto
