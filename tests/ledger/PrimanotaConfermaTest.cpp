// Confirmation and deletion: checks in order, the head, numbers, several stations.
#include <thread>

#include "core/sql/Criterio.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {

class PrimanotaConfermaTest : public DittaDiProva {
 protected:
  std::string Testata(std::int64_t numero) {
    std::string testo;
    for (const char* campo : {"CFP", "Conto", "CfpA", "ContoA"})
      testo += CampoTestata(numero, campo).Testo() + "|";
    return testo;
  }
  const std::vector<RigaDaScrivere> giroconto = {{"100.010", I("5")}, {"110.001", I("-5")}};
};

TEST_F(PrimanotaConfermaTest, ControlliInOrdine) {
  Registra(giroconto);
  const std::string prima = Contenuto();
  ledger::Primanota pn(ambiente);
  EXPECT_FALSE(pn.Conferma());
  pn.Nuovo();
  pn.Testa().Scrivi("NumDoc", 1);
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("5")}));
  ASSERT_TRUE(pn.PNuovaRiga());
  EXPECT_FALSE(pn.Conferma());
  EXPECT_EQ(SoloMessaggio(), "confermare o annullare prima la riga");
  EXPECT_FALSE(pn.Elimina());
  EXPECT_EQ(SoloMessaggio(), "confermare o annullare prima la riga");
  pn.AnnullaRiga();
  EXPECT_FALSE(pn.Conferma());
  EXPECT_EQ(SoloMessaggio(), "articolo già esistente: 1, 2024");
  pn.Testa().Scrivi("NumDoc", 7);
  pn.Testa().Scrivi("Dt", Data());
  std::string campo;
  EXPECT_FALSE(pn.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio(), "Sbilancio\nin avere manca 5,00: dare 5,00, avere 0,00");
  EXPECT_EQ(campo, "PNuovaRiga");
  EXPECT_EQ(Contenuto(), prima);
  EXPECT_EQ(pn.StatoCorrente(), ledger::Primanota::Stato::Aperta);
  ASSERT_EQ(pn.Righe().size(), 1U);
  // A difference of a ten-thousandth is one.
  ASSERT_TRUE(Scrivi(pn, {"110.001", I("-4.9999")}));
  EXPECT_FALSE(pn.Conferma());
  ASSERT_TRUE(Scrivi(pn, {"110.001", I("-0.0001")}));
  Messaggi();
  EXPECT_FALSE(pn.Conferma(&campo));
  EXPECT_EQ(SoloMessaggio() + campo, "manca la dataDt");
  EXPECT_EQ(Contenuto(), prima);
  pn.Testa().Scrivi("Dt", G(15, 3, 2024));
  ASSERT_TRUE(pn.Conferma());
  EXPECT_EQ(SoloMessaggio(), "ARTICOLO CONTABILE n. 7\nannotare il numero");
  EXPECT_EQ(pn.NumeroConfermato(), 7);
  EXPECT_EQ(pn.StatoCorrente(), ledger::Primanota::Stato::Inattiva);
  EXPECT_TRUE(pn.Righe().empty());
  EXPECT_EQ(NumeroRighe(7), 3);
}

TEST_F(PrimanotaConfermaTest, CodiceEliminatoMentreSiScrive) {
  struct Caso {
    const char *prepara, *elimina;
    RigaDaScrivere riga;
    const char* messaggio;
  };
  const Caso casi[] = {{"INSERT INTO Conti (Cod, CFP) VALUES ('X1.001', 'P')",
                        "DELETE FROM Conti WHERE Cod='X1.001'",
                        {"X1.001", I("-5")},
                        "Conto: il codice X1.001"},
                       {"INSERT INTO Clienti (Cod, Conto) VALUES ('9001', '120.001')",
                        "DELETE FROM Clienti WHERE Cod='9001'",
                        {"9001", I("-5"), "C"},
                        "Conto: il codice 9001"},
                       {"INSERT INTO Causali (Cod) VALUES ('X1')",
                        "DELETE FROM Causali WHERE Cod='X1'",
                        {"110.001", I("-5"), "P", "X1"},
                        "Causale: il codice X1"}};
  for (const Caso& caso : casi) {
    Tessarc().Esegui(caso.prepara);
    ledger::Primanota pn(ambiente);
    pn.Nuovo();
    ASSERT_TRUE(Scrivi(pn, giroconto[0]));
    ASSERT_TRUE(Scrivi(pn, caso.riga));
    Tessarc().Esegui(caso.elimina);
    const std::string prima = Contenuto();
    std::string campo;
    EXPECT_FALSE(pn.Conferma(&campo));
    EXPECT_EQ(SoloMessaggio(), std::string("riga in posizione 200: ") + caso.messaggio +
                                   " non esiste, sceglierne uno dall'elenco (F2)");
    EXPECT_EQ(campo, "GrigliaRighe");
    EXPECT_EQ(Contenuto(), prima);
    EXPECT_EQ(pn.Righe().size(), 2U);
  }
  // What stands in the books stays, and the rest of the registration can be changed.
  const std::int64_t numero = Registra(giroconto);
  Tessarc().Esegui("UPDATE Movimenti SET Conto='X1.001' WHERE Conto='110.001'");
  ledger::Primanota pn(ambiente);
  ASSERT_TRUE(pn.Apri(numero));
  pn.Testa().Scrivi("Dt", G(16, 3, 2024));
  EXPECT_TRUE(pn.Conferma());
}

TEST_F(PrimanotaConfermaTest, TestataDaiConti) {
  struct Caso {
    std::vector<RigaDaScrivere> righe;
    const char* attesa;
  };
  const std::vector<Caso> casi = {
      {giroconto, "P|100.010|P|110.001|"},
      {{{"0001", I("5"), "C"}, {"0002", I("-5"), "F"}}, "C|0001|F|0002|"},
      {{{"100.010", I("2")}, {"100.010", I("3")}, {"110.001", I("-5")}}, "|DIVERSI|P|110.001|"},
      {{{"100.010", I("0")}, {"100.020", I("6")}, {"110.001", I("-5")}, {"0001", I("-1"), "C"}},
       "P|100.020||DIVERSI|"},
      {{}, "||||"},
  };
  for (const Caso& caso : casi) EXPECT_EQ(Testata(Registra(caso.righe)), caso.attesa);
  // The head follows the rows when they change.
  ledger::Primanota pn(ambiente);
  ASSERT_TRUE(pn.Apri(1));
  const auto id = CampoTestata(1, "ID").Intero();
  ASSERT_TRUE(Scrivi(pn, {"100.010", I("5")}));
  ASSERT_TRUE(Scrivi(pn, {"0001", I("-5"), "F"}));
  ASSERT_TRUE(pn.Conferma());
  EXPECT_EQ(Testata(1), "|DIVERSI||DIVERSI|");
  EXPECT_EQ(NumeroRighe(1), 4);
  EXPECT_EQ(CampoTestata(1, "ID").Intero(), id);
}

TEST_F(PrimanotaConfermaTest, Numeri) {
  EXPECT_EQ(Registra(giroconto), 1);
  ledger::Primanota pn(ambiente);
  pn.Nuovo();
  pn.Testa().Scrivi("NumDoc", 10);
  ASSERT_TRUE(pn.Conferma());
  // VAT registrations take their numbers from the same row.
  Tessarc().Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", 11}, {"Riva", "1"}});
  Tessarc().Inserisci("Articoli", {{"Anno", 2025}, {"NumDoc", 40}});
  EXPECT_EQ(Registra(giroconto), 12);

  // A changed number takes the rows along and leaves the old one free.
  ASSERT_TRUE(pn.Apri(1));
  pn.Testa().Scrivi("NumDoc", 11);
  EXPECT_FALSE(pn.Conferma());
  pn.Testa().Scrivi("NumDoc", 5);
  ASSERT_TRUE(pn.Conferma());
  EXPECT_EQ(NumeroRighe(1), 0);
  EXPECT_EQ(NumeroRighe(5), 2);
  EXPECT_TRUE(CampoTestata(1, "ID").Nullo());

  // A deleted number comes back only when it was the greatest.
  const auto elimina = [&](std::int64_t numero) {
    ASSERT_TRUE(pn.Apri(numero));
    dialoghi.Rispondera("ARTICOLO CONTABILE", Risposta::Si);
    ASSERT_TRUE(pn.Elimina());
    EXPECT_EQ(NumeroRighe(numero), 0);
    EXPECT_TRUE(CampoTestata(numero, "ID").Nullo());
    EXPECT_EQ(pn.StatoCorrente(), ledger::Primanota::Stato::Inattiva);
  };
  elimina(5);
  EXPECT_EQ(Registra(giroconto), 13);
  elimina(13);
  EXPECT_EQ(Registra(giroconto), 13);
  ASSERT_TRUE(pn.Apri(13));
  dialoghi.Rispondera("ARTICOLO CONTABILE", Risposta::No);
  EXPECT_FALSE(pn.Elimina());
  EXPECT_EQ(UltimaDomanda(),
            "Conferma eliminazione ARTICOLO CONTABILE ?\n(Attenzione all'annullamento se "
            "l'articolo è stato generato automaticamente da registrazione su scadenzario o dal "
            "pagamento di una fattura)");
  EXPECT_EQ(NumeroRighe(13), 2);
}

TEST_F(PrimanotaConfermaTest, IlBloccoDiNumerazioneEDiUnAltro) {
  const auto altra = NuovaStazione("MAGAZZINO");
  Blocco blocco = altra->ambiente->BloccaTabella("ARTICOLI", false);
  ASSERT_TRUE(blocco.Tenuto());
  ledger::Primanota pn(ambiente);
  pn.Nuovo();
  for (const auto& riga : giroconto) ASSERT_TRUE(Scrivi(pn, riga));
  pn.Testa().Scrivi("NumDoc", 5);
  std::thread libera([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    // Under its lock the other takes the number that was free when it was typed.
    altra->ambiente->ArchivioDi("tessarc").Inserisci("Articoli", {{"Anno", 2024}, {"NumDoc", 5}});
    blocco.Rilascia();
  });
  EXPECT_FALSE(pn.Conferma());
  libera.join();
  EXPECT_EQ(SoloMessaggio(), "articolo già esistente: 5, 2024");
  pn.Testa().Scrivi("NumDoc", 0);
  EXPECT_TRUE(pn.Conferma());
  EXPECT_EQ(pn.NumeroConfermato(), 6);
  // It was given back before the number was announced, and nobody holds it now.
  EXPECT_TRUE(altra->ambiente->BloccaTabella("ARTICOLI", false).Tenuto());
}

}  // namespace fenalto::prova
