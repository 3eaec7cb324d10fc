// Every statement of a confirmation fails once, for what has no room of its own to be tried in:
// users, data of the company, the definitive journal, deposits taken off a due date.
#include "core/session/Utenti.h"
#include "core/session/VariazioneDitta.h"
#include "duedates/payments/ScadenzeDiProva.h"
#include "duedates/schedules/DeduzioneAnticipi.h"
#include "ledger/GuastiDiProva.h"
#include "ledger/Stampati.h"
#include "ledger/journal/Giornale.h"

namespace fenalto::prova {
namespace {

class OgniConfermaTest : public ScadenzeDiProva, public ::testing::WithParamInterface<Guasto> {
 protected:
  OgniConfermaTest() { Utenti::HashEconomico(true); }
  ~OgniConfermaTest() override { Utenti::HashEconomico(false); }

  /// How many statements failed before `azione` went through; neither database has changed before.
  int ProvaTutti(const std::function<bool()>& azione) {
    return FallisceOgniIstruzione(ambiente.Basi(), GetParam(), [this] { return Tutto(); }, azione);
  }
  std::int64_t Quanti(const char* tabella) {
    return Tessarc().Singolo(std::string("select Count(*) from ") + tabella).Intero();
  }
};

TEST_P(OgniConfermaTest, Utente) {
  Utenti utenti(ambiente);
  const std::int64_t prima = Quanti("Ut");
  EXPECT_GE(ProvaTutti([&] {
              return static_cast<bool>(utenti.Salva("", {"ANNA", "Anna", 99}, "segreta"));
            }),
            3);
  EXPECT_GE(ProvaTutti([&] {
              return static_cast<bool>(utenti.Salva("ANNA", {"ANNA2", "Anna B.", 99}, ""));
            }),
            3);
  EXPECT_EQ(Quanti("Ut"), prima + 1);
  EXPECT_GE(ProvaTutti([&] { return static_cast<bool>(utenti.Elimina("ANNA2")); }), 3);
  EXPECT_EQ(Quanti("Ut"), prima);
}

TEST_P(OgniConfermaTest, DatiDellaDitta) {
  VariazioneDitta variazione(ambiente);
  variazione.Dati().Scrivi("ragsoc1", "ROSSI & C.");
  EXPECT_GE(ProvaTutti([&] {
              dialoghi.Rispondera("CONFERMA VARIAZIONE", Risposta::Si);
              return variazione.Conferma();
            }),
            3);
  EXPECT_FALSE(variazione.Modificata());
}

TEST_P(OgniConfermaTest, DeduzioneDegliAnticipi) {
  const std::int64_t scadenza = Nuova("C", "0001", "100", 5);
  const std::int64_t anticipo = Nuova("C", "0001", "-30", 0);
  EXPECT_GE(ProvaTutti([&] {
              return duedates::DeduciAnticipi(ambiente, S(scadenza), {{S(anticipo), I("30")}});
            }),
            5);
  EXPECT_EQ(S(scadenza).Residuo(), I("70"));
}

INSTANTIATE_TEST_SUITE_P(Guasti, OgniConfermaTest,
                         ::testing::Values(Guasto::Errore, Guasto::Memoria));

/// Prints to text, says yes to every question, and from then on lets the `n`-th statement fail.
class SiPoiGuasto : public DialoghiFinti {
 public:
  std::optional<SceltaUscita> ScegliUscita(const std::string& /*rapporto*/,
                                           bool /*esporta*/) override {
    SceltaUscita scelta;
    scelta.destinazione = Destinazione::Testo;
    return scelta;
  }
  Risposta Domanda(const std::string& /*testo*/, Bottoni /*bottoni*/, Risposta /*predefinita*/,
                   const std::string& /*titolo*/, Icona /*icona*/) override {
    basi->ImpostaGuasto(n, guasto);
    return Risposta::Si;
  }
  BasiDati* basi = nullptr;
  int n = 0;
  Guasto guasto = Guasto::Nessuno;
};

class GiornaleGuastiTest : public DittaDaStampare, public ::testing::WithParamInterface<Guasto> {};

// The journal is on paper by then: what fails is the mark that it was.
TEST_P(GiornaleGuastiTest, SegnoDellaStampaDefinitiva) {
  Articolo(2024, 1, G(10, 2, 2024), {{"P", "100.010", I("9")}, {"P", "700.010", I("-9")}});
  SiPoiGuasto rispondeSi;
  Ambiente altra(OpzioniProva(cartella / "programma"), rispondeSi, stazione->orologio,
                 stazione->caso);
  ASSERT_TRUE(altra.ApriDitta("Prova", 2024));
  rispondeSi.basi = &altra.Basi();
  rispondeSi.guasto = GetParam();
  ledger::Giornale giornale(altra, uscite);
  ledger::SceltaGiornale scelta;
  scelta.daDt = G(1, 1, 2024);
  scelta.aaDt = G(31, 12, 2024);
  const int guasti = FallisceOgniVolta(
      altra.Basi(), [this] { return Contenuto(); },
      [&](int n) {
        rispondeSi.n = n;
        return giornale.Stampa(scelta);
      });
  EXPECT_GE(guasti, 3);
  EXPECT_EQ(Tessarc().Singolo("SELECT Max(dt) FROM UltimaDataLibro").Data(), G(31, 12, 2024));
}

INSTANTIATE_TEST_SUITE_P(Guasti, GiornaleGuastiTest,
                         ::testing::Values(Guasto::Errore, Guasto::Memoria));

}  // namespace
}  // namespace fenalto::prova
