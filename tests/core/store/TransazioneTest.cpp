#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "core/store/BasiDiProva.h"
#include "core/store/DiscoFinto.h"

namespace fenalto {
namespace {

using Causa = ErroreArchivio::Causa;
using prova::CausaDi;
using prova::DiscoFinto;

class TransazioneTest : public prova::BasiDiProva {
 protected:
  void SetUp() override {
    BasiDiProva::SetUp();
    Crea();
    opzioni.vfs = DiscoFinto::Nome();
    basi = Apri();
    ASSERT_NE(basi, nullptr);
  }
  void TearDown() override {
    DiscoFinto::Spazio(-1);
    basi.reset();
    BasiDiProva::TearDown();
  }

  /// Writes in both databases, as a confirmation does.
  void Conferma(int numero) {
    Transazione transazione(*basi);
    Archivio& a = basi->Tessarc();
    a.Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", numero}});
    a.Esegui("insert into Movimenti (Anno, NumDoc, Conto) values (2024, " + std::to_string(numero) +
             ", '01.1')");
    Rs rs = a.Recordset("select * from Articoli where NumDoc=" + std::to_string(numero));
    EXPECT_TRUE(rs.Edit());
    rs.Imposta("Descrizione", std::string(20'000, 'd'));
    rs.Update();
    basi->Scadenzario().Inserisci("Scadenze", {{"Numero", numero}});
    transazione.Conferma();
  }
  /// Rows in the three tables, as another connection sees them.
  std::string Righe() {
    OpzioniApertura altre = opzioni;
    altre.vfs.clear();
    auto seconda = BasiDati::Apri(percorsi, altre);
    if (!seconda) return seconda.Errore().messaggio;
    Archivio& a = seconda.Valore()->Tessarc();
    return a.Singolo("select Count(*) from Articoli").Testo() + "/" +
           a.Singolo("select Count(*) from Movimenti").Testo() + "/" +
           seconda.Valore()->Scadenzario().Singolo("select Count(*) from Scadenze").Testo();
  }

  std::unique_ptr<BasiDati> basi;
};

TEST_F(TransazioneTest, CommitsBothDatabasesOrNone) {
  Conferma(1);
  EXPECT_EQ(Righe(), "1/1/1");
  {
    Transazione transazione(*basi);
    EXPECT_TRUE(basi->InTransazione());
    EXPECT_THROW(Transazione{*basi}, std::logic_error);
    basi->Tessarc().Inserisci("Articoli", {{"NumDoc", 2}});
    basi->Scadenzario().Inserisci("Scadenze", {{"Numero", 2}});
    EXPECT_EQ(Righe(), "1/1/1") << "not seen before it is confirmed";
  }
  EXPECT_FALSE(basi->InTransazione());
  EXPECT_EQ(Righe(), "1/1/1");
}

TEST_F(TransazioneTest, EveryStatementThatFailsUndoesAll) {
  basi->ImpostaGuasto(0, Guasto::Nessuno);
  Conferma(1);
  const int istruzioni = basi->IstruzioniEseguite();
  EXPECT_GE(istruzioni, 7);
  for (const Guasto guasto : {Guasto::Errore, Guasto::Memoria}) {
    for (int n = 1; n <= istruzioni; ++n) {
      basi->ImpostaGuasto(n, guasto);
      EXPECT_EQ(CausaDi([&] { Conferma(2); }),
                guasto == Guasto::Errore ? Causa::Altro : Causa::Memoria)
          << n;
      basi->ImpostaGuasto(0, Guasto::Nessuno);
      EXPECT_FALSE(basi->InTransazione()) << n;
      EXPECT_EQ(Righe(), "1/1/1") << n;
      EXPECT_FALSE(basi->Blocchi().ChiTiene("Articoli", "2024|2").has_value()) << n;
    }
  }
  Conferma(2);
  EXPECT_EQ(Righe(), "2/2/2");
}

TEST_F(TransazioneTest, FullDiskUndoesAllAndSaysSo) {
  Conferma(1);
  int falliti = 0;
  for (std::int64_t spazio = 0; falliti >= 0 && spazio < 400'000; spazio += 3000) {
    DiscoFinto::Spazio(spazio);
    std::string messaggio;
    try {
      Conferma(2);
      DiscoFinto::Spazio(-1);
      EXPECT_EQ(Righe(), "2/2/2");
      EXPECT_GT(falliti, 10);
      falliti = -1;
    } catch (const ErroreArchivio& errore) {
      DiscoFinto::Spazio(-1);
      EXPECT_EQ(errore.PerQuale(), Causa::DiscoPieno) << errore.what();
      EXPECT_THAT(errore.what(), ::testing::HasSubstr("disco pieno"));
      EXPECT_FALSE(basi->InTransazione());
      ASSERT_EQ(Righe(), "1/1/1") << spazio;
      ++falliti;
    }
  }
  EXPECT_EQ(falliti, -1) << "with room enough it goes through";
}

TEST_F(TransazioneTest, TwoProcessesConfirmAtOnceAndNeitherLosesAnything) {
  basi.reset();
  constexpr int kOgnuno = 12;
  std::array<pid_t, 2> figli{};
  for (std::size_t chi = 0; chi < figli.size(); ++chi) {
    figli[chi] = fork();
    if (figli[chi] != 0) continue;
    opzioni.attesa = std::chrono::seconds(30);
    basi = Apri();
    try {
      for (int i = 0; i < kOgnuno; ++i) {
        Transazione transazione(*basi);
        // Read and write in one transaction, so that no number is taken twice.
        const auto numero =
            basi->Tessarc().Singolo("select Max(NumDoc) from Articoli").Intero() + 1;
        basi->Tessarc().Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", numero}});
        basi->Scadenzario().Inserisci("Scadenze", {{"Numero", numero}});
        transazione.Conferma();
      }
    } catch (const std::exception&) {
      _exit(1);
    }
    _exit(0);
  }
  for (const pid_t figlio : figli) {
    int esito = -1;
    waitpid(figlio, &esito, 0);
    EXPECT_EQ(esito, 0);
  }
  EXPECT_EQ(Righe(), "24/0/24");
}

TEST_F(TransazioneTest, NothingIsWrittenAfterTheEngineGaveUp) {
  Transazione transazione(*basi);
  DiscoFinto::Spazio(0);
  // More than the cache holds, so that it must be written before the commit.
  EXPECT_EQ(CausaDi([&] {
              for (int i = 0; i < 400; ++i)
                basi->Tessarc().Inserisci("SenzaChiave", {{"Testo", std::string(200'000, 'x')}});
            }),
            Causa::DiscoPieno);
  DiscoFinto::Spazio(-1);
  EXPECT_EQ(CausaDi([&] { basi->Scadenzario().Inserisci("Scadenze", {{"Numero", 9}}); }),
            Causa::Altro);
  EXPECT_EQ(CausaDi([&] { transazione.Conferma(); }), Causa::Altro);
  EXPECT_EQ(Righe(), "0/0/0");
}

TEST_F(TransazioneTest, StatementOfItsOwnIsWholeOrNotDone) {
  basi->Tessarc().Inserisci("Articoli", {{"Anno", 1}, {"NumDoc", 1}});
  basi->Tessarc().Inserisci("Articoli", {{"Anno", 1}, {"NumDoc", 2}});
  EXPECT_EQ(CausaDi([&] { basi->Tessarc().Esegui("update Articoli set NumDoc=5"); }),
            Causa::Vincolo);
  EXPECT_EQ(basi->Tessarc().Singolo("select Max(NumDoc) from Articoli").Intero(), 2);
}

TEST_F(TransazioneTest, OwnLongReadDoesNotStopWriting) {
  {
    Transazione transazione(*basi);
    for (int i = 0; i < 600; ++i) basi->Tessarc().Inserisci("Movimenti", {{"Conto", "1"}});
    transazione.Conferma();
  }
  Rs rs = basi->Tessarc().Recordset("select * from Movimenti order by Num");
  Conferma(1);
  rs.MoveNext();
  EXPECT_EQ(rs.RecordCount(), 600);
  EXPECT_EQ(Righe(), "1/601/1");
}

}  // namespace
}  // namespace fenalto
