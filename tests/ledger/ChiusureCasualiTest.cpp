// On random books: every account of a closed year is at zero, what was opened is what was closed,
// and taking everything back leaves the books as they were.
#include <algorithm>
#include <random>

#include "ledger/ChiusureDiProva.h"
#include "ledger/closing/SituazioneAnno.h"
#include "ledger/statements/VisitaConti.h"

namespace fenalto::prova {
namespace {

class ChiusureCasualiTest : public ChiusureDiProva, public ::testing::WithParamInterface<unsigned> {
 protected:
  ChiusureCasualiTest() : sorte(GetParam()) {
    // A party behind each kind of summary account, and a supplier behind one of customers.
    Tessarc().Esegui("update Clienti set Conto='120.002' where Cod='0002'");
    Tessarc().Esegui("update Fornitori set Conto='400.003' where Cod='0002'");
    Tessarc().Esegui("update Fornitori set Conto='120.001' where Cod='0003'");
    for (Rs rs =
             Tessarc().Recordset("select Cod from Conti where CFP='P' and Cod<'960' order by Cod");
         !rs.Eof(); rs.MoveNext()) {
      conti.push_back({"P", rs.Fields(std::size_t{0}).Testo()});
    }
    std::shuffle(conti.begin(), conti.end(), sorte);
    conti.resize(25);
    // Parties that share codes, and what was booked on summary accounts themselves.
    for (const char* cod : {"0001", "0002"}) {
      conti.push_back({"C", cod});
      conti.push_back({"F", cod});
    }
    conti.push_back({"F", "0003"});
    conti.push_back({"P", "120.001"});
    conti.push_back({"F", "400.001"});
  }
  int Fino(int massimo) { return std::uniform_int_distribution<int>(0, massimo - 1)(sorte); }

  void AnnoCasuale(int registrazioni) {
    Transazione transazione(ambiente.Basi());
    const Data giorni[] = {G(1, 1, 2024), G(15, 7, 2024), G(31, 12, 2024), G(3, 2, 2025), Data()};
    const char* causali[] = {"001", "001", "037", "APE", "APEX"};
    for (int n = 1; n <= registrazioni; ++n) {
      const char* causale = causali[Fino(5)];
      Importo somma;
      std::vector<Riga> righe;
      for (int r = 1 + Fino(3); r > 0; --r) {
        const auto& conto = conti[static_cast<std::size_t>(Fino(static_cast<int>(conti.size())))];
        const Importo importo = Importo::DaDecimillesimi((Fino(2'000'000) - 1'000'000) * 100LL);
        righe.push_back({conto.first, conto.second.c_str(), importo, causale});
        somma += importo;
      }
      const auto& ultimo = conti[static_cast<std::size_t>(Fino(static_cast<int>(conti.size())))];
      righe.push_back({ultimo.first, ultimo.second.c_str(), -somma, causale});
      Articolo(2024, n, giorni[Fino(5)], righe);
    }
    transazione.Conferma();
  }

  /// Accounts moved by a kind of registration, debit above zero.
  std::map<std::string, Importo> Mossi(int anno, int origine, bool contrario) {
    std::map<std::string, Importo> mossi;
    for (Rs rs = Tessarc().Recordset(
             "select m.CFP, m.Conto, m.ImpoDare, m.ImpoAvere from Movimenti as m inner join "
             "Articoli "
             "as a on (m.Anno=a.Anno) and (m.NumDoc=a.NumDoc) where m.Posi=100 and a.Anno=" +
             std::to_string(anno) + " and a.CREATOINAUTOMATICO=" + std::to_string(origine));
         !rs.Eof(); rs.MoveNext()) {
      const Importo saldo = rs.Fields(2).Importo() - rs.Fields(3).Importo();
      const auto [posto, nuovo] =
          mossi.emplace(rs.Fields(std::size_t{0}).Testo() + " " + rs.Fields(1).Testo(),
                        contrario ? -saldo : saldo);
      EXPECT_TRUE(nuovo) << posto->first << " mosso due volte";
    }
    return mossi;
  }
  std::mt19937 sorte;
  std::vector<std::pair<const char*, std::string>> conti;
};

TEST_P(ChiusureCasualiTest, ChiusoApertoEAnnullato) {
  AnnoCasuale(60);
  const std::string libri = Libri();
  // The result as the statement has it.
  Importo risultato;
  ledger::RichiestaVisita economici;
  economici.patrEcon = "E";
  economici.periodi = {{2024, G(1, 1, 1), G(31, 12, 9999)}};
  ledger::VisitaConti(ambiente, economici).Visita("", [&](const ledger::MastroVisitato& mastro) {
    for (const auto& conto : mastro.conti) risultato += conto.saldi[0].Finale();
  });
  ASSERT_TRUE(Trasporta(false));
  ASSERT_TRUE(GiroEconomici());
  EXPECT_EQ(Saldi(2024)["P " + std::string(kProfittiPerdite)], risultato);
  ASSERT_TRUE(GiroUtile());
  if (!risultato.Zero()) {
    EXPECT_EQ(Mossi(2024, 92, true)["P " + std::string(kProfittiPerdite)], risultato);
  }
  ASSERT_TRUE(Trasporta(true));
  ASSERT_TRUE(Chiude());
  EXPECT_THAT(Saldi(2024), IsEmpty());
  EXPECT_EQ(Mossi(2025, 93, false), Mossi(2024, 91, true));
  for (const auto& passo : ledger::LeggiSituazioneAnno(ambiente).passi) {
    EXPECT_TRUE(passo.fatta) << passo.nome << ": " << passo.resta;
  }
  const auto operazioni = ledger::LeggiSituazioneAnno(ambiente).operazioni;
  EXPECT_GE(operazioni.size(), 3U);
  for (const auto& operazione : operazioni) {
    EXPECT_FALSE(operazione.Toccata()) << operazione.Nome();
    dialoghi.Rispondera("Annullare l'operazione", Risposta::Si);
    EXPECT_TRUE(ledger::AnnullaOperazione(ambiente, operazione.id));
  }
  EXPECT_EQ(Libri(), libri);
  EXPECT_THAT(Leggi("select * from OperazioniAnno"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Semi, ChiusureCasualiTest, ::testing::Range(1U, 13U));

}  // namespace
}  // namespace fenalto::prova
