#include <random>

#include "ledger/DittaDiProva.h"
#include "ledger/accounts/SaldoConto.h"

namespace fenalto::prova {

namespace {

struct Movimento {
  int anno;
  Data dt;
  std::string causale, cfp, conto;
  Importo dare, avere;
};

/// The routine's rule, told again with a loop.
ledger::Saldo SommaSemplice(const std::vector<Movimento>& movimenti,
                            const ledger::SaldoConto::Richiesta& r) {
  ledger::Saldo saldo;
  for (const Movimento& m : movimenti) {
    if (m.cfp != r.cfp || m.conto != r.conto || m.dt < r.daData || m.dt > r.aData) continue;
    if (r.anno != 0 && m.anno != r.anno) continue;
    if (m.causale == "APE" || m.causale == "APEX") {
      saldo.saldoIniziale += m.dare - m.avere;
    } else if (r.causaleEsclusa.empty() || m.causale != r.causaleEsclusa) {
      saldo.totaleDare += m.dare;
      saldo.totaleAvere += m.avere;
    }
  }
  return saldo;
}

std::string Testo(const ledger::Saldo& s) {
  return s.saldoIniziale.Testo() + " " + s.totaleDare.Testo() + " " + s.totaleAvere.Testo();
}

}  // namespace

class SaldoContoTest : public DittaDiProva {
 protected:
  std::vector<Movimento> ScriviCasuali(std::uint32_t seme) {
    std::mt19937 caso(seme);
    const auto uno = [&](int n) { return static_cast<int>(caso() % static_cast<unsigned>(n)); };
    const std::vector<std::string> causali = {"001", "APE", "062", "apex", "005"};
    // A customer, a supplier and an account may bear one code.
    const std::vector<std::string> conti = {"100.010", "0001", "l'altro"};
    const std::vector<std::string> classi = {"P", "C", "F"};
    std::vector<Movimento> scritti;
    Transazione transazione(ambiente.Basi());
    for (int numero = 1; numero <= 60; ++numero) {
      const int anno = 2023 + uno(3);
      const Data dt = G(1 + uno(28), 1 + uno(12), 2023 + uno(3));
      Tessarc().Inserisci("Articoli", {{"Anno", anno}, {"NumDoc", numero}, {"Dt", dt}});
      for (int riga = uno(5); riga >= 0; --riga) {
        Movimento m{anno,
                    dt,
                    causali[static_cast<std::size_t>(uno(5))],
                    classi[static_cast<std::size_t>(uno(3))],
                    conti[static_cast<std::size_t>(uno(3))],
                    {},
                    {}};
        (uno(2) == 0 ? m.dare : m.avere) = Importo::DaDecimillesimi(uno(2'000'000) - 200'000);
        Metti(Tessarc(), "Movimenti", "Anno", anno, "NumDoc", numero, "Causale", m.causale, "CFP",
              m.cfp, "Conto", m.conto, "ImpoDare", m.dare, "ImpoAvere", m.avere);
        if (m.causale == "apex") m.causale = "APEX";
        scritti.push_back(m);
      }
    }
    transazione.Conferma();
    return scritti;
  }
};

TEST_F(SaldoContoTest, UgualeAllaSommaDeiMovimenti) {
  const std::vector<Movimento> movimenti = ScriviCasuali(7);
  std::mt19937 caso(11);
  for (int anno : {0, 2023, 2024}) {
    for (const char* esclusa : {"", "062", "APE"}) {
      ledger::SaldoConto::Richiesta r;
      r.anno = anno;
      r.causaleEsclusa = esclusa;
      r.daData = G(1, 1, 2023).PiuGiorni(static_cast<int>(caso() % 300));
      r.aData = r.daData.PiuGiorni(static_cast<int>(caso() % 700));
      ledger::SaldoConto tenuto(Tessarc());
      ledger::SaldoConto singolo(Tessarc());
      for (const char* cfp : {"P", "C", "F"}) {
        for (const char* conto : {"100.010", "0001", "l'altro", "manca"}) {
          r.cfp = cfp;
          r.conto = conto;
          const std::string atteso = Testo(SommaSemplice(movimenti, r));
          r.mantieniAperto = true;
          EXPECT_EQ(Testo(tenuto.Calcola(r)), atteso) << cfp << conto << anno << esclusa;
          r.mantieniAperto = false;
          EXPECT_EQ(Testo(singolo.Calcola(r)), atteso) << cfp << conto << anno << esclusa;
        }
      }
    }
  }
}

TEST_F(SaldoContoTest, GliInsiemiTenutiValgonoFinoAllaChiusura) {
  ledger::SaldoConto::Richiesta r;
  r.conto = "100.010";
  r.anno = 2024;
  r.daData = Ambiente::DataMinima();
  r.aData = G(31, 12, 2040);
  r.mantieniAperto = true;
  ledger::SaldoConto saldo(Tessarc());
  EXPECT_EQ(Testo(saldo.Calcola(r)), "0 0 0");
  Registra({{"100.010", I("10"), "P", "APE"}, {"300.001", I("-10"), "P", "APE"}});
  Registra({{"100.010", I("3")}, {"110.001", I("-3")}});
  EXPECT_EQ(Testo(saldo.Calcola(r)), "0 0 0");
  r.chiudiAlTermine = true;
  EXPECT_EQ(Testo(saldo.Calcola(r)), "0 0 0");
  EXPECT_EQ(Testo(saldo.Calcola(r)), "10 3 0");
  r.conto = "300.001";
  EXPECT_EQ(Testo(saldo.Calcola(r)), "-10 0 0");
}

}  // namespace fenalto::prova
