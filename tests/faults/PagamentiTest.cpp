// Payments under faults: a process killed while it confirms, two stations on the same due dates. Of
// a payment its due dates and its registration are there, or nothing; no euro is paid twice.
#include <array>
#include <cstdio>

#include "duedates/payments/PagamentiScadenzario.h"
#include "duedates/payments/ScadenzeDiProva.h"
#include "faults/Registrazioni.h"
#include "faults/Uccisioni.h"

namespace fenalto::prova {
namespace {

class PagamentiTest : public ScadenzeDiProva {
 protected:
  PagamentiTest() {
    ambiente.ScriviImpostazione({}, "config", "CausalePagScad1C", "002");
    ambiente.ScriviImpostazione({}, "config", "ContropartitaPagScad1C", "100.010");
    // Far from being settled by payments of one euro each.
    for (const char* conto : {"0001", "0001", "0002"}) Nuova("C", conto, "1000000", 5);
  }
  /// One euro of each of the due dates; the number of its registration, 0 when it was refused.
  static std::int64_t PagaUnEuro(Ambiente& stazione) {
    duedates::PagamentiScadenzario p(stazione, duedates::PagamentiScadenzario::Modo::PiuParti);
    p.Testa().Scrivi("Descrizione", "acconto");
    if (!p.Nuovo()) return 0;
    for (const std::int64_t numero : {1, 2, 3}) {
      if (!p.Scegli(numero, false)) return 0;
      p.Riga().Scrivi("ImportoPagato", I("1"));
      p.Riga().Scrivi("Saldata", false);
    }
    return p.Conferma() ? p.NumeroConfermato() : 0;
  }
  void PagaSenzaFine(int tubo) const {
    const auto cassa = NuovaStazione("CASSA");
    while (const int numero = static_cast<int>(PagaUnEuro(*cassa->ambiente))) {
      if (write(tubo, &numero, sizeof numero) != sizeof numero) break;
      cassa->dialoghi.messaggi.clear();
    }
  }
  /// Both databases tell the same number of payments, which is returned.
  std::int64_t Pagamenti() {
    const std::int64_t quanti = Tessarc().Singolo("select Count(*) from Articoli").Intero();
    EXPECT_EQ(Tessarc().Singolo("select Max(NumDoc) from Articoli").Intero(), quanti);
    EXPECT_EQ(Tessarc().Singolo("select Count(*) from Movimenti").Intero(), quanti * 4);
    EXPECT_EQ(Tessarc().Singolo("select Sum(ImpoDare)-Sum(ImpoAvere) from Movimenti").Importo(),
              Importo());
    for (const std::int64_t numero : {1, 2, 3}) {
      EXPECT_EQ(Pagata(numero), "10 " + std::to_string(quanti) + " 15/03/2024");
    }
    return quanti;
  }
};

TEST_F(PagamentiTest, UccisoAMetaInteroONulla) {
  UccidiPiuVolte(
      ambiente, "scadenzario", [this](int tubo) { PagaSenzaFine(tubo); },
      [this] { return Pagamenti(); });
  // The numbering is free, and goes on where it was.
  const std::int64_t pagamenti = Pagamenti();
  EXPECT_EQ(PagaUnEuro(ambiente), pagamenti + 1);
}

TEST_F(PagamentiTest, DueStazioniSulleStesseScadenze) {
  const int tentativi = Lungo() ? 500 : 40;
  ambiente.ChiudiDitta();
  std::array<int, 2> tubo{};
  ASSERT_EQ(pipe(tubo.data()), 0);
  const std::array<const char*, 2> stazioni = {"CASSA", "UFFICIO2"};
  for (const char* nome : stazioni) {
    if (fork() != 0) continue;
    const auto altra = NuovaStazione(nome);
    int riusciti = 0;
    for (int i = 0; i < tentativi; ++i) riusciti += PagaUnEuro(*altra->ambiente) != 0 ? 1 : 0;
    (void)!write(tubo[1], &riusciti, sizeof riusciti);
    _exit(0);
  }
  close(tubo[1]);
  int totale = 0;
  for (std::size_t i = 0; i < stazioni.size(); ++i) {
    int riusciti = 0;
    ASSERT_EQ(read(tubo[0], &riusciti, sizeof riusciti), static_cast<ssize_t>(sizeof riusciti));
    totale += riusciti;
  }
  while (waitpid(-1, nullptr, 0) > 0) {
  }
  close(tubo[0]);
  ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024).Riuscito());
  // Some are refused, since the other station has paid between choice and confirmation; what went
  // through is in both databases, once.
  EXPECT_EQ(Pagamenti(), totale);
  EXPECT_GE(totale, tentativi);
  std::printf("2 stations x %d payments, %d went through\n", tentativi, totale);
}

}  // namespace
}  // namespace fenalto::prova
