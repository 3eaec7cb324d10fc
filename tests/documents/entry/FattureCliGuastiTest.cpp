// Every statement of a confirmation or deletion fails once: nothing has changed, what was typed is
// still there, and the same action then goes through.
#include <fstream>

#include "documents/entry/DocumentoDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

using documents::FattureCli;

class FattureCliGuastiTest : public DocumentoDiProva, public ::testing::WithParamInterface<Guasto> {
 protected:
  std::string Fotografia(FattureCli& d) {
    std::string testo = Contenuto();
    for (const char* campo : {"TipoDoc", "NumDoc", "Dt", "CliFor", "Mag", "MagDest", "ScadPag"}) {
      testo += d.Testa().Testo(campo) + "|";
    }
    for (const documents::RigaDocumento& r : d.Righe()) {
      testo += "\n" + r.codiceRiga + "|" + r.quantita.Testo() + "|" + r.importo.Testo() + "|" +
               std::to_string(r.nl1);
    }
    return testo + d.Totali().totRighe.Testo() +
           std::to_string(static_cast<int>(d.StatoCorrente()));
  }
  /// Does an action until nothing fails any more. What fails before a question leaves its answer
  /// for the next time.
  void Prova(FattureCli& d, const std::vector<std::string>& domande, int alMeno,
             const std::function<bool()>& azione) {
    std::size_t pronte = 0;
    const int guasti = FallisceOgniIstruzione(
        ambiente.Basi(), GetParam(), [&] { return Fotografia(d); },
        [&] {
          for (; pronte < domande.size(); ++pronte) {
            dialoghi.Rispondera("", Risposta::Si);
          }
          const std::size_t chieste = dialoghi.domande.size();
          Messaggi();
          const bool riuscita = azione();
          pronte -= dialoghi.domande.size() - chieste;
          if (!riuscita) {
            EXPECT_THAT(Messaggi(), Contains(HasSubstr("Non è stato ")));
          }
          return riuscita;
        });
    EXPECT_GE(guasti, alMeno);
    EXPECT_EQ(Discordi(), 0);
  }
};

TEST_P(FattureCliGuastiTest, CaricoConLottiEComponenti) {
  Inserisci({.righe = {{"P2", I("100"), I("1.5")}}});
  FattureCli d(ambiente);
  dialoghi.Rispondera("DB ha distinta base", Risposta::Si);
  ASSERT_TRUE(Digita(
      d, {.tipo = "30", .righe = {{"DB", I("3"), {}, {{"Lottox", "A"}}}, {"P1", I("1"), I("2")}}}));
  Prova(d, {}, 25, [&] { return d.Conferma(); });
  EXPECT_EQ(Quanti(), "3 5");
  ASSERT_TRUE(d.Apri("30", 1));
  ASSERT_TRUE(DigitaRiga(d, {"P2", I("1"), I("2"), {{"Lottox", "B"}}}));
  Prova(d, {"rifaccio"}, 25, [&] { return d.Conferma(); });
  EXPECT_EQ(Quanti(), "3 6");
  ASSERT_TRUE(d.Apri("30", 1));
  Prova(d, {"elimino anche", "Conferma"}, 10, [&] { return d.Elimina(); });
  EXPECT_EQ(Quanti(), "1 1");
}

TEST_P(FattureCliGuastiTest, Trasferimento) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "20", .righe = {{"P1", I("3")}, {"P2", I("1"), I("2")}}}));
  Prova(d, {}, 15, [&] { return d.Conferma(); });
  ASSERT_TRUE(d.Apri("21", 1));
  ASSERT_TRUE(DigitaRiga(d, {"P2", I("1"), I("2")}));
  Prova(d, {"sarà corretto"}, 15, [&] { return d.Conferma(); });
  EXPECT_EQ(Quanti(), "2 6");
  ASSERT_TRUE(d.Apri("20", 1));
  Campi(d, {{"Dt", G(18, 3, 2024)}});
  Prova(d, {"sarà corretto"}, 15, [&] { return d.Conferma(); });
  ASSERT_TRUE(d.Apri("20", 1));
  Prova(d, {"sarà eliminato", "Conferma"}, 8, [&] { return d.Elimina(); });
  EXPECT_EQ(Quanti(), "0 0");
}

TEST_P(FattureCliGuastiTest, OrdiniEAllegati) {
  Metti(Tessarc(), "OrdiniCli_r", "TipoDoc", "O", "NumDoc", 5, "Posi", 1, "CodiceRiga", "P1");
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "01", .parte = "9001"}));
  ASSERT_FALSE(d.RigheDa({{.codiceRiga = "P1",
                           .quantita = I("1"),
                           .prezzo = I("4"),
                           .ordine = 5,
                           .posiOrdine = 1,
                           .ordineSaldato = true}}));
  const auto carta = cartella / "carta.txt";
  std::ofstream(carta) << "bolla";
  ASSERT_TRUE(d.AggiungiAllegato(carta).Riuscito());
  Prova(d, {}, 12, [&] { return d.Conferma(); });
  ASSERT_TRUE(d.Apri("01", 1));
  ASSERT_EQ(d.Allegati().size(), 1U);
  EXPECT_THAT(d.Allegati()[0].descrizione, HasSubstr("Tipo documentto: 01 DDT da fatturare"));
  const auto copia = d.Allegati()[0].file;
  EXPECT_TRUE(std::filesystem::exists(copia));
  Prova(d, {"Conferma"}, 5, [&] { return d.Elimina(); });
  EXPECT_FALSE(std::filesystem::exists(copia));
}

INSTANTIATE_TEST_SUITE_P(Guasti, FattureCliGuastiTest,
                         ::testing::Values(Guasto::Errore, Guasto::Memoria));

}  // namespace
}  // namespace fenalto::prova
