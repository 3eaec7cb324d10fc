// Years made and erased, and registrations erased by choice.

#include <fstream>

#include "core/archives/TabelleDitta.h"
#include "ledger/ChiusureDiProva.h"
#include "ledger/closing/EliminazioneAnno.h"
#include "ledger/closing/EliminazioneSelettiva.h"
#include "ledger/closing/NuovoEsercizio.h"
#include "ledger/closing/SituazioneAnno.h"

namespace fenalto::prova {
namespace {

class AnniTest : public ChiusureDiProva {
 protected:
  std::size_t Copie() const {
    std::size_t quante = 0;
    std::error_code errore;
    for (const auto& voce :
         std::filesystem::directory_iterator(ambiente.CartellaDitta() / "Copie", errore)) {
      if (voce.is_directory()) ++quante;
    }
    return quante;
  }
};

TEST_F(AnniTest, NuovoAnno) {
  Tessarc().Esegui("update Anni set IvaTrimestrale=True, VER='007' where Anno=2025");
  Tessarc().Esegui("update RegistriIva set UltProtSt=12, Importochiusura=3.5");
  const auto registri =
      Leggi("select Cod, UltProtSt, Importochiusura from RegistriIva order by Cod");
  ASSERT_FALSE(registri.empty());
  ledger::NuovoEsercizio nuovo(ambiente);
  EXPECT_EQ(nuovo.Dati().Leggi("AnnoNuovo").Intero(), 2026);
  nuovo.Dati().Scrivi("AnnoNuovo", 2024);
  EXPECT_FALSE(nuovo.ConfermaNuovoAnno());
  EXPECT_EQ(SoloMessaggio(), "Anno già esistente");
  nuovo.Dati().Scrivi("AnnoNuovo", 26);
  EXPECT_FALSE(nuovo.ConfermaNuovoAnno());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("l'anno va da"));
  nuovo.Dati().Scrivi("AnnoNuovo", 2026);
  dialoghi.Rispondera("CONFERMA CREAZIONE NUOVO ANNO 2026", Risposta::Si);
  ASSERT_TRUE(nuovo.ConfermaNuovoAnno());
  EXPECT_EQ(SoloMessaggio(),
            "Ora il programma verrà chiuso. Riavviandolo si potranno iniziare le registrazioni sul "
            "2026");
  EXPECT_THAT(Leggi("select Euro, VER, IvaTrimestrale from Anni where Anno=2026"),
              ElementsAre("True|007|True"));
  EXPECT_THAT(Leggi("select distinct UltProtSt, Importochiusura from RegistriIva"),
              ElementsAre("0|0"));
  // Taken back, while nothing is in it.
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  const auto operazione = ledger::LeggiSituazioneAnno(ambiente).operazioni.at(0);
  Articolo(2026, 1, G(1, 1, 2026), {{"P", "100.010", I("1")}, {"P", "110.001", I("-1")}});
  EXPECT_FALSE(ledger::AnnullaOperazione(ambiente, operazione.id));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("ci sono già registrazioni o documenti"));
  Tessarc().Esegui("delete * from Articoli");
  Tessarc().Esegui("delete * from Movimenti");
  dialoghi.Rispondera("L'anno 2026 verrà tolto", Risposta::Si);
  EXPECT_TRUE(ledger::AnnullaOperazione(ambiente, operazione.id));
  EXPECT_EQ(Leggi("select Cod, UltProtSt, Importochiusura from RegistriIva order by Cod"),
            registri);
  EXPECT_THAT(Leggi("select Anno from Anni where Anno>2024"), ElementsAre("2025"));
}

TEST_F(AnniTest, NuovoAnnoInAltraValutaConIlMagazzino) {
  Metti(Tessarc(), "FattureCli_r", "TipoDoc", "EI", "Anno", 2024, "CausaleMag", "EI");
  ledger::NuovoEsercizio nuovo(ambiente);
  nuovo.Dati().Scrivi("xEuro", false);
  dialoghi.Rispondera("CONFERMA CREAZIONE NUOVO ANNO 2026", Risposta::Si);
  ASSERT_TRUE(nuovo.ConfermaNuovoAnno());
  EXPECT_THAT(Messaggi(),
              ElementsAre(HasSubstr("(se si utilizza lo scadenzario è necessario effettuare la "
                                    "conversione delle scadenze da Lire a Euro"),
                          HasSubstr("TRASPORTO ESISTENZE")));
}

TEST_F(AnniTest, EliminaAnno) {
  AnnoPiccolo();
  Articolo(2023, 1, G(1, 3, 2023), {{"P", "100.010", I("7")}, {"P", "110.001", I("-7")}});
  const std::string altri = Libri();
  for (const auto& tabella : archives::TavolaTabelle()) {
    const std::string nome = tabella.tabella;
    if (tabella.anno == nullptr || nome == "Articoli" || nome == "Movimenti" || nome == "Anni") {
      continue;
    }
    ambiente.ArchivioDi(tabella.chiave).Esegui("insert into " + nome + " (Anno) values (2023)");
  }
  std::filesystem::create_directories(ambiente.CartellaDocumenti());
  std::ofstream(ambiente.CartellaDocumenti() / "scontrino.txt") << "x";
  const auto id = Tessarc().Singolo("select ID from Articoli where Anno=2023").Intero();
  Metti(Tessarc(), "Allegati", "Tipo", "PrimaNota", "IdRecord", id, "NomeFile", "scontrino.txt");
  Metti(ambiente.ArchivioDi("scadenzario"), "Scadenze", "Numero", 1, "Anno", 2023, "Articolo", 1);
  // Refused at the question, at the box, and with another year typed.
  const std::string prima = Contenuto();
  dialoghi.Rispondera("Conferma eliminazione Anno 2023 e TUTTE le registrazioni", Risposta::No);
  EXPECT_FALSE(ledger::EliminaAnno(ambiente, 2023));
  for (const auto& testo : {std::optional<std::string>(), std::optional<std::string>("2024")}) {
    dialoghi.Rispondera("Conferma eliminazione Anno 2023", Risposta::Si);
    dialoghi.Scrivera(testo);
    EXPECT_FALSE(ledger::EliminaAnno(ambiente, 2023));
  }
  EXPECT_EQ(UltimaDomanda(),
            "SE SEI SICURO DI ELIMINARE L'ANNO 2023 DELLA DITTA Prova IMPOSTA QUI L'ANNO E PREMI "
            "OK");
  EXPECT_EQ(Contenuto(), prima);
  EXPECT_EQ(Copie(), 0U);
  Messaggi();
  dialoghi.Rispondera("Conferma eliminazione Anno 2023", Risposta::Si);
  dialoghi.Scrivera("2023");
  ASSERT_TRUE(ledger::EliminaAnno(ambiente, 2023));
  EXPECT_THAT(SoloMessaggio(),
              AllOf(HasSubstr("ELIMINAZIONE ANNO EFFETTUATA"), HasSubstr("restano 1 scadenze"),
                    HasSubstr("copia di sicurezza fatta prima: «")));
  EXPECT_EQ(Copie(), 1U);
  for (const auto& tabella : archives::TavolaTabelle()) {
    if (tabella.anno == nullptr) continue;
    EXPECT_EQ(
        ambiente.ArchivioDi(tabella.chiave)
            .Singolo(std::string("select count(*) from ") + tabella.tabella + " where Anno=2023")
            .Intero(),
        0)
        << tabella.tabella;
  }
  EXPECT_FALSE(std::filesystem::exists(ambiente.CartellaDocumenti() / "scontrino.txt"));
  EXPECT_THAT(Leggi("select * from Allegati"), IsEmpty());
  EXPECT_EQ(Leggi("select NumDoc from Articoli where Anno=2024").size(), 3U);
  // The selected one too: the session goes on with the last.
  dialoghi.Rispondera("Conferma eliminazione Anno 2024", Risposta::Si);
  dialoghi.Scrivera("2024");
  ASSERT_TRUE(ledger::EliminaAnno(ambiente, 2024));
  ASSERT_TRUE(ambiente.RileggiAnni());
  EXPECT_EQ(ambiente.Anno(), 2025);
  EXPECT_THAT(ambiente.Anni(), ElementsAre(2000, 2025));
  Tessarc().Esegui("delete * from Anni where Anno=2000");
  Messaggi();
  EXPECT_FALSE(ledger::EliminaAnno(ambiente, 2025));
  EXPECT_EQ(SoloMessaggio(), "non si può eliminare in quanto l'anno 2025 è l'unico esistente");
}

TEST_F(AnniTest, EliminazioneSelettiva) {
  AnnoPiccolo();
  Articolo(2024, 4, G(1, 3, 2024), {{"P", "100.010", I("7")}, {"P", "110.001", I("-7")}}, "1", 1);
  Articolo(2025, 1, G(1, 3, 2024), {{"P", "100.010", I("7")}, {"P", "110.001", I("-7")}});
  Metti(Tessarc(), "FattureCli", "TipoDoc", "01", "Anno", 2024, "NumDoc", 1, "Dt", G(1, 3, 2024));
  Metti(Tessarc(), "FattureCli_r", "TipoDoc", "01", "Anno", 2024, "NumDoc", 1, "Ordine", 5);
  Metti(Tessarc(), "FattureCli", "TipoDoc", "01", "Anno", 2024, "NumDoc", 2, "Dt", G(1, 6, 2024));
  Metti(Tessarc(), "FattureCli_r", "TipoDoc", "01", "Anno", 2024, "NumDoc", 2, "Ordine", 6);
  Metti(ambiente.ArchivioDi("scadenzario"), "Scadenze", "Numero", 1);
  ledger::EliminazioneSelettiva elimina(ambiente);
  EXPECT_FALSE(elimina.EliminaArticoli());
  EXPECT_EQ(SoloMessaggio(), "scegliere che cosa eliminare");
  elimina.Dati().Scrivi("ElimPrimanota", true);
  elimina.Dati().Scrivi("ElimDocumenti", true);
  elimina.Dati().Scrivi("ElimAaDt", G(31, 3, 2024));
  elimina.Dati().Scrivi("ElimDaDt", G(2, 1, 2025));
  EXPECT_FALSE(elimina.EliminaArticoli());
  EXPECT_EQ(elimina.CampoRifiutato(), "ElimAaDt");
  Messaggi();
  elimina.Dati().Scrivi("ElimDaDt", G(2, 1, 2024));
  dialoghi.Rispondera("Conferma eliminazione registrazioni\n(2 tra", Risposta::Si);
  ASSERT_TRUE(elimina.EliminaArticoli());
  EXPECT_THAT(Messaggi(),
              ElementsAre(HasSubstr("verranno eliminate tutte le operazioni selezionate "
                                    " senza effettuare alcun controllo"),
                          HasSubstr("ELIMINAZIONE EFFETTUATA\ncopia di sicurezza")));
  EXPECT_THAT(Leggi("select Anno, NumDoc from Articoli order by Anno, NumDoc"),
              ElementsAre("2024|1", "2024|3", "2024|4", "2025|1"));
  EXPECT_EQ(Leggi("select * from Movimenti").size(), 8U);
  EXPECT_THAT(Leggi("select NumDoc, Ordine from FattureCli_r"), ElementsAre("2|6"));
  elimina.Dati().Scrivi("ElimScadenze", true);
  dialoghi.Rispondera("Conferma eliminazione registrazioni", Risposta::Si);
  ASSERT_TRUE(elimina.EliminaScadenze());
  EXPECT_EQ(ambiente.ArchivioDi("scadenzario").Singolo("select count(*) from Scadenze").Intero(),
            0);
  EXPECT_EQ(Copie(), 2U);
  EXPECT_THAT(Leggi("select NumDoc, Ordine from FattureCli_r"), ElementsAre("2|6"))
      << "its order stands";
  for (const char* ordini : {"OrdiniCli", "OrdiniFor"}) {
    EXPECT_TRUE(elimina.Disponibile(std::string("Elim") + ordini));
    Metti(Tessarc(), ordini, "TipoDoc", "O", "NumDoc", 6);
    Metti(Tessarc(), (std::string(ordini) + "_r").c_str(), "TipoDoc", "O", "NumDoc", 6, "Posi", 1);
  }
  elimina.Dati().Scrivi("ElimScadenze", false);
  elimina.Dati().Scrivi("ElimOrdiniCli", true);
  dialoghi.Rispondera("Conferma eliminazione registrazioni\n(2 tra", Risposta::Si);
  ASSERT_TRUE(elimina.EliminaScadenze());
  EXPECT_THAT(Leggi("select 1 from OrdiniCli"), IsEmpty());
  EXPECT_THAT(Leggi("select 1 from OrdiniCli_r"), IsEmpty());
  EXPECT_EQ(Leggi("select 1 from OrdiniFor_r").size(), 1U);
  EXPECT_THAT(Leggi("select NumDoc, Ordine from FattureCli_r"), ElementsAre("2|0"));
}

}  // namespace
}  // namespace fenalto::prova
