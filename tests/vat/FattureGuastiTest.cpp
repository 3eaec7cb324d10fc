// Every statement of a confirmation fails once: nothing has changed in either database, what was
// typed is still there, and the same confirmation then goes through.
#include "ledger/GuastiDiProva.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

class FattureGuastiTest : public FatturaDiProva, public ::testing::WithParamInterface<Guasto> {
 protected:
  std::string Fotografia(vat::RegistrazioneIva& f) {
    std::string testo = Tutto();
    for (const char* campo :
         {"Riva", "NProt", "NumDoc", "Dt", "Contox", "Descrizionex", "DtFat", "NFat", "Pagamento",
          "RivaIntra", "FornitoreIntra", "CausaleIntra", "ContoCostiIntra", "PagamentoIntra"}) {
      testo += f.Testa().Testo(campo) + "|";
    }
    for (const vat::RigaIva& riga : f.Righe()) {
      testo += "\n" + riga.conto + "|" + riga.codIva + "|" + Stringa(riga.imponibile) + "|" +
               Stringa(riga.iva);
    }
    return testo + "\n" + Stringa(f.TotFat()) + std::to_string(static_cast<int>(f.StatoCorrente()));
  }
  void Conferma(vat::RegistrazioneIva& f, int alMeno) {
    Messaggi();
    const int guasti = FallisceOgniIstruzione(
        ambiente.Basi(), GetParam(), [&] { return Fotografia(f); },
        [&] {
          const bool riuscita = f.Conferma();
          const auto messaggi = Messaggi();
          if (!riuscita) {
            EXPECT_EQ(messaggi.size(), 1U) << ::testing::PrintToString(messaggi);
            if (!messaggi.empty()) {
              EXPECT_THAT(messaggi[0], HasSubstr("Non è stato scritto nulla"));
            }
          }
          return riuscita;
        });
    EXPECT_GE(guasti, alMeno);
  }
};

TEST_P(FattureGuastiTest, AcquistoConRateEPagamento) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, {.riva = "3",
                         .parte = "0001",
                         .righe = {{"500.001", "22", I("100")}, {"500.002", "22I50", I("50")}},
                         .pagamento = "MISTO"}));
  Conferma(f, 15);
  EXPECT_EQ(Conti(), "2 6 2");
}

TEST_P(FattureGuastiTest, ReverseChargeConCoppiaEGiro) {
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(Digita(f, {.riva = "4",
                         .parte = "0001",
                         .righe = {{"900.220", "22R", I("1000")}},
                         .altri = {{"CausaleIntra", "029"},
                                   {"FornitoreIntra", "0002"},
                                   {"ContoCostiIntra", "500.001"},
                                   {"PagamentoIntra", "MISTO"}}}));
  Conferma(f, 25);
  EXPECT_EQ(Conti(), "4 10 2");
}

TEST_P(FattureGuastiTest, VariazioneEdEliminazione) {
  ASSERT_EQ(Inserisci({.riva = "3",
                       .parte = "0001",
                       .righe = {{"500.001", "22", I("100")}},
                       .pagamento = "DUE"}),
            1);
  vat::RegistrazioneIva f(ambiente);
  ASSERT_TRUE(f.Apri(1));
  ASSERT_TRUE(DigitaRiga(f, {"500.002", "10", I("7")}));
  f.Testa().Scrivi("NumDoc", 9);
  Conferma(f, 15);
  EXPECT_EQ(Conti(), "1 4 2");
  ASSERT_TRUE(f.Apri(9));
  const int guasti = FallisceOgniIstruzione(
      ambiente.Basi(), GetParam(), [&] { return Fotografia(f); },
      [&] {
        dialoghi.Rispondera("ARTICOLO CONTABILE", Risposta::Si);
        return f.Elimina();
      });
  EXPECT_GE(guasti, 5);
  EXPECT_EQ(Conti(), "0 0 0");
}

TEST_P(FattureGuastiTest, CorrezioneConSeguito) {
  ASSERT_EQ(Inserisci({.riva = "4",
                       .parte = "0001",
                       .righe = {{"900.220", "22I50", I("1000")}},
                       .altri = {{"CausaleIntra", "029"},
                                 {"FornitoreIntra", "0002"},
                                 {"ContoCostiIntra", "500.001"},
                                 {"PagamentoIntra", "MISTO"}}}),
            1);
  vat::RegistrazioneIva f(ambiente);
  for (const bool elimina : {false, true}) {
    ASSERT_TRUE(f.Apri(1));
    if (!elimina) {
      ASSERT_TRUE(DigitaRiga(f, {"900.220", "22", I("7")}));
    }
    // What fails before a question leaves its answer for the next time.
    std::size_t pronte = 0;
    const int guasti = FallisceOgniIstruzione(
        ambiente.Basi(), GetParam(), [&] { return Fotografia(f); },
        [&] {
          for (; pronte < (elimina ? 2U : 1U); ++pronte) dialoghi.Rispondera("", Risposta::Si);
          const std::size_t chieste = dialoghi.domande.size();
          const bool riuscita = elimina ? f.Elimina() : f.Conferma();
          pronte -= dialoghi.domande.size() - chieste;
          return riuscita;
        });
    EXPECT_GE(guasti, 20);
    EXPECT_EQ(Conti(), elimina ? "0 0 0" : "5 14 2");
  }
}

INSTANTIATE_TEST_SUITE_P(Guasti, FattureGuastiTest,
                         ::testing::Values(Guasto::Errore, Guasto::Memoria));

}  // namespace
}  // namespace fenalto::prova
