// The records touched last, as the rooms tell them.
#include "core/archives/ArchivioCodici.h"
#include "documents/parties/ArchiviParti.h"
#include "overview/UltimiRecord.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {

class UltimiRecordTest : public FatturaDiProva {
 protected:
  std::vector<std::string> Ultimi(std::size_t quanti = 10) {
    std::vector<std::string> testi;
    for (const auto& record : overview::UltimiRecord(ambiente, quanti)) {
      testi.push_back(record.genere + ": " + record.titolo + ", " + record.dettaglio + " > " +
                      record.rinvio.funzione + " " + record.rinvio.codice);
    }
    return testi;
  }
};

TEST_F(UltimiRecordTest, CioCheSiApreESiConferma) {
  EXPECT_THAT(Ultimi(), IsEmpty());
  const auto prima = Registra({{"100.010", I("5"), "P", "001", "affitto"}, {"700.010", I("-5")}});
  const auto fattura =
      Inserisci({.riva = "3", .parte = "0001", .righe = {{"500.001", "22", I("100")}}});
  ASSERT_GT(fattura, prima);
  const std::string nome =
      NzStr(ambiente.Cerca("tessarc", "Fornitori", {{"Cod", "0001"}}, "ragsoc1"));
  const std::string scrittaFattura =
      "fattura: " + nome + ", reg. 3 prot. 1 del 15/03 > Fatture " + std::to_string(fattura);
  const std::string scrittaPrima = "registrazione: affitto, art. " + std::to_string(prima) +
                                   " del 15/03 > Movimenti " + std::to_string(prima);
  EXPECT_THAT(Ultimi(), ElementsAre(scrittaFattura, scrittaPrima));
  // Looking at one brings it to the front; another year's, and what is gone, isn't shown.
  ledger::Primanota primanota(ambiente);
  ASSERT_TRUE(primanota.Apri(prima));
  primanota.Abbandona();
  ambiente.Ricorda(AlNumero("Movimenti", prima, 2023));
  ambiente.Ricorda(AlNumero("Movimenti", 999, 2024));
  ambiente.Ricorda(AllArchivio("CLIENTI", "senza"));
  EXPECT_THAT(Ultimi(), ElementsAre(scrittaPrima, scrittaFattura));
  // A party that was opened.
  archives::ArchivioCodici fornitori(ambiente, documents::ArchivioFornitori());
  ASSERT_TRUE(fornitori.Apri("0001"));
  EXPECT_THAT(Ultimi(2),
              ElementsAre("fornitore: " + nome + ", 0001 > FORNITORI 0001", scrittaPrima));
}

// A document beside a registration of the same number, one without party, one that is gone.
TEST_F(UltimiRecordTest, UnDocumento) {
  const auto prima = Registra({{"100.010", I("5"), "P", "001", "affitto"}, {"700.010", I("-5")}});
  const auto documento = [&](const char* tipo, std::int64_t numero, const char* cliFor) {
    Metti(Tessarc(), "FattureCli", "TipoDoc", tipo, "Anno", 2024, "NumDoc", numero, "Dt",
          G(7, 3, 2024), "CFP", "F", "CliFor", cliFor);
  };
  documento("10", prima, "0001");
  documento("EI", 4, "");
  const auto ricorda = [&](const char* tipo, std::int64_t numero) {
    ambiente.Ricorda(
        {.funzione = "FattureCli", .codice = std::to_string(numero), .anno = 2024, .classe = tipo});
  };
  ricorda("10", 999);
  ricorda("EI", 4);
  ricorda("10", prima);
  const std::string nome =
      NzStr(ambiente.Cerca("tessarc", "Fornitori", {{"Cod", "0001"}}, "ragsoc1"));
  const std::string numero = std::to_string(prima);
  EXPECT_THAT(
      Ultimi(),
      ElementsAre("documento: " + nome + ", 10 n. " + numero + " del 07/03 > FattureCli " + numero,
                  "documento: Esistenza iniziale di magazzino, EI n. 4 del 07/03 > "
                  "FattureCli 4",
                  "registrazione: affitto, art. " + numero + " del 15/03 > Movimenti " + numero));
}

TEST_F(UltimiRecordTest, UnProdotto) {
  Metti(Tessarc(), "CodiciRiga", "Cod", "XA", "Descrizione", "Vite\nzincata");
  ambiente.Ricorda(AllArchivio("CODICIRIGA", "eliminato"));
  ambiente.Ricorda(AllArchivio("CODICIRIGA", "XA"));
  EXPECT_THAT(Ultimi(), ElementsAre("prodotto: Vite, XA > CODICIRIGA XA"));
}

TEST_F(UltimiRecordTest, SenzaMemoriaLeUltimeDellAnno) {
  const auto prima = Registra({{"100.010", I("5")}, {"700.010", I("-5")}});
  const auto seconda = Registra({{"100.010", I("5")}, {"700.010", I("-5")}});
  // As another user, who has touched nothing.
  const auto altra = NuovaStazione("ALTRA");
  std::vector<std::string> codici;
  for (const auto& record : overview::UltimiRecord(*altra->ambiente, 10)) {
    codici.push_back(record.rinvio.codice);
  }
  EXPECT_THAT(codici, ElementsAre(std::to_string(seconda), std::to_string(prima)));
}

}  // namespace fenalto::prova
