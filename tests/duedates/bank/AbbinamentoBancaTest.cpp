// Lines of a bank statement: how they are read, what is proposed for them, and that an accepted one
// is written once.
#include "duedates/bank/AbbinamentoBanca.h"
#include "duedates/bank/EstrattoBanca.h"
#include "duedates/payments/ScadenzeDiProva.h"
#include "ledger/GuastiDiProva.h"

namespace fenalto::prova {
namespace {

using ::testing::SizeIs;

class AbbinamentoBancaTest : public ScadenzeDiProva {
 protected:
  void Nome(const char* cfp, const char* conto, const char* nome) {
    Tessarc().Esegui("update ContiClientiFornitori set Descrizione=" + sql::LetteraleSql(nome) +
                     ", Descrizione2='' where " + sql::Criterio("CFP", "=", cfp) + " and " +
                     sql::Criterio("Cod", "=", conto));
  }
  static duedates::LineaEstratto Linea(const char* importo, const char* descrizione,
                                       Data data = G(14, 3, 2024)) {
    return {2, data, I(importo), descrizione, std::string(importo) + descrizione};
  }
  /// "0001: 1 2 (tutte le scadenze aperte)" a proposal, the surest first.
  std::vector<std::string> Proposte(const duedates::LineaEstratto& linea) {
    duedates::AbbinamentoBanca abbinamento(ambiente);
    EXPECT_TRUE(abbinamento.Prepara());
    std::vector<std::string> testi;
    for (const duedates::PropostaBanca& p : abbinamento.Proponi(linea)) {
      std::string testo = p.conto + ":";
      for (const duedates::Scadenza& s : p.scadenze) testo += " " + std::to_string(s.numero);
      if (!p.arrotondamento.Zero()) testo += " arr " + p.arrotondamento.Testo();
      testi.push_back(testo + " (" + p.motivo + ")");
    }
    return testi;
  }
  static duedates::OpzioniAbbinamento Opzioni() { return {"002", "100.010", "580.010"}; }
};

TEST_F(AbbinamentoBancaTest, Lettura) {
  duedates::EstrattoBanca estratto(ambiente);
  EXPECT_FALSE(estratto.ApriTesto(""));
  ASSERT_TRUE(estratto.ApriTesto("Descrizione;Saldo\nx;1\n"));
  EXPECT_THAT(estratto.Leggi().Errore().messaggio, HasSubstr("manca la colonna della data"));
  struct Caso {
    const char *cosa, *testo;
    std::vector<std::string> linee, scartate;
  };
  const Caso casi[] = {
      {"importo con segno",
       "Data;Descrizione;Importo\n15/03/2024;BONIFICO \tROSSI  SRL;1.234,56\n2024-03-16;;-2,5\n",
       {"2 15/03/2024 1234.56 BONIFICO ROSSI SRL", "3 16/03/2024 -2.5 "},
       {}},
      {"addebiti e accrediti, con e senza il meno",
       "Data,Dare,Avere,Causale\n15/3/2024,12.50,,a\n16/3/2024,-12.50,,b\n17/3/2024,,100.00,c\n",
       {"2 15/03/2024 -12.5 a", "3 16/03/2024 -12.5 b", "4 17/03/2024 100 c"},
       {}},
      {"quel che non si legge per certo resta da parte",
       "Data;Importo\n31/02/2024;1,00\n;5,00\n15/03/2024;0,00\n15/03/2024;abc\n"
       "15/03/2024;99999999999999,00\n16/03/2024;7,00\n17/03/2024;1.234\n",
       {"7 16/03/2024 7 ", "8 17/03/2024 1234 "},
       {"2", "3", "4", "5", "6"}},
      {"caratteri che non si scrivono",
       "Data;Importo;Descrizione\n15/03/2024;5,00;suona\x07\n16/03/2024;6,00;x\n",
       {"3 16/03/2024 6 x"},
       {"2"}},
      {"niente dice se il punto è delle migliaia", "Data;Importo\n15/03/2024;1.234\n", {}, {"2"}},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.cosa);
    ASSERT_TRUE(estratto.ApriTesto(caso.testo));
    ASSERT_TRUE(estratto.Leggi());
    std::vector<std::string> linee;
    for (const duedates::LineaEstratto& l : estratto.Linee()) {
      linee.push_back(std::to_string(l.linea) + " " + l.data.Testo() + " " + l.importo.Testo() +
                      " " + l.descrizione);
    }
    std::vector<std::string> scartate;
    for (const duedates::LineaScartata& s : estratto.Scartate()) {
      scartate.push_back(std::to_string(s.linea));
      EXPECT_FALSE(s.motivo.empty());
    }
    EXPECT_EQ(linee, caso.linee);
    EXPECT_EQ(scartate, caso.scartate);
  }
}

// Two equal lines of one day are two payments; the same line in a later download is the same.
TEST_F(AbbinamentoBancaTest, UnaLineaSiRiconosce) {
  const auto chiavi = [this](const char* testo) {
    duedates::EstrattoBanca estratto(ambiente);
    EXPECT_TRUE(estratto.ApriTesto(testo));
    EXPECT_TRUE(estratto.Leggi());
    std::vector<std::string> lette;
    for (const duedates::LineaEstratto& l : estratto.Linee()) lette.push_back(l.chiave);
    return lette;
  };
  const auto prime = chiavi("Data;Descrizione;Importo\n15/03/2024;x;5,00\n15/03/2024;x;5,00\n");
  const auto dopo =
      chiavi("Importo,Causale,Data\n7.00,y,14/03/2024\n5.00,X,15/03/2024\n5.00, x ,15/03/2024\n");
  ASSERT_THAT(prime, SizeIs(2));
  EXPECT_NE(prime[0], prime[1]);
  EXPECT_THAT(dopo, ElementsAre(::testing::_, prime[0], prime[1]));
}

TEST_F(AbbinamentoBancaTest, Proposte) {
  Nome("C", "0001", "Ferramenta Bianchi Srl");
  Nome("C", "0002", "Trattoria Al Lago");
  Nome("F", "0001", "Bianchi Trasporti");
  const auto primo = Nuova("C", "0001", "100", 12);
  const auto secondo = Nuova("C", "0001", "150", 15);
  const auto terzo = Nuova("C", "0001", "80", 18, "30");
  const auto altro = Nuova("C", "0002", "100", 40);
  const auto fornitore = Nuova("F", "0001", "100", 9);
  const auto sezionale = Nuova("F", "0001", "77", 0);
  Scadenzario().Esegui("update Scadenze set NFat='2024/40-B' where " +
                       sql::Criterio("Numero", "=", sezionale));
  const auto n = [](std::int64_t numero) { return std::to_string(numero); };
  struct Caso {
    duedates::LineaEstratto linea;
    std::vector<std::string> proposte;
  };
  const Caso casi[] = {
      {Linea("100", "bonifico TRATTORIA"),
       {"0002: " + n(altro) + " (importo esatto, nome nella descrizione)",
        "0001: " + n(primo) + " (importo esatto)"}},
      {Linea("100", "saldo fattura 40"),
       {"0002: " + n(altro) + " (importo esatto, fattura 40)",
        "0001: " + n(primo) + " (importo esatto)"}},
      {Linea("50", "a saldo"), {"0001: " + n(terzo) + " (importo esatto)"}},
      {Linea("250", "a saldo"),
       {"0001: " + n(primo) + " " + n(secondo) + " (somma delle prime 2 scadenze)"}},
      {Linea("300", "a saldo"),
       {"0001: " + n(primo) + " " + n(secondo) + " " + n(terzo) + " (tutte le scadenze aperte)"}},
      {Linea("-100", "pagato Bianchi"),
       {"0001: " + n(fornitore) + " (importo esatto, nome nella descrizione)"}},
      {Linea("-77", "ft 2024 / 40 - b"),
       {"0001: " + n(sezionale) + " (importo esatto, fattura 2024/40-B)"}},
      {Linea("-77", "ft 40/2024 b"), {"0001: " + n(sezionale) + " (importo esatto)"}},
      // A few cents less are taken only when name and invoice speak for it.
      {Linea("149", "Ferramenta BIANCHI ft 15"),
       {"0001: " + n(secondo) + " arr 1 (importo vicino, nome nella descrizione, fattura 15)"}},
      {Linea("148", "Ferramenta BIANCHI ft 15"),
       {"0001: " + n(secondo) + " arr 2 (importo vicino, nome nella descrizione, fattura 15)"}},
      {Linea("149", "a saldo"), {}},
      {Linea("147", "Ferramenta BIANCHI ft 15"), {}},
      {Linea("33", "Ferramenta BIANCHI"), {}},
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.linea.importo.Testo() + " " + caso.linea.descrizione);
    EXPECT_EQ(Proposte(caso.linea), caso.proposte);
  }
}

TEST_F(AbbinamentoBancaTest, AccettataUnaVoltaSola) {
  Nome("C", "0001", "Ferramenta Bianchi Srl");
  const auto prima = Nuova("C", "0001", "100", 12);
  const auto seconda = Nuova("C", "0001", "50", 13);
  duedates::AbbinamentoBanca qui(ambiente);
  ASSERT_TRUE(qui.Prepara());
  const duedates::LineaEstratto linea = Linea("149.5", "bonifico Ferramenta Bianchi");
  const duedates::LineaEstratto esatta = Linea("150", "bonifico Ferramenta Bianchi");
  EXPECT_THAT(qui.Proponi(linea), IsEmpty());
  const auto proposte = qui.Proponi(esatta);
  ASSERT_THAT(proposte, SizeIs(1));

  const std::string intatto = Tutto();
  duedates::OpzioniAbbinamento senza = Opzioni();
  senza.causale = "";
  EXPECT_FALSE(qui.Accetta(esatta, proposte[0], senza));
  EXPECT_EQ(SoloMessaggio(), "Manca causale o conti");
  senza.causale = "QQQ";
  EXPECT_FALSE(qui.Accetta(esatta, proposte[0], senza));
  EXPECT_EQ(SoloMessaggio(), "Causale: il codice QQQ non esiste, sceglierne uno dall'elenco (F2)");
  const duedates::LineaEstratto annoPrima =
      Linea("150", "bonifico Ferramenta Bianchi", G(29, 12, 2023));
  EXPECT_FALSE(qui.Accetta(annoPrima, proposte[0], Opzioni()));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("selezionare l'anno 2023"));
  EXPECT_EQ(Tutto(), intatto);

  // Another station reads the same statement and is first.
  const auto stazione2 = NuovaStazione("MAGAZZINO");
  duedates::AbbinamentoBanca la(*stazione2->ambiente);
  ASSERT_TRUE(la.Prepara());
  ASSERT_TRUE(la.Accetta(esatta, la.Proponi(esatta).at(0), Opzioni()));
  const std::string dopo = Tutto();
  EXPECT_FALSE(qui.Accetta(esatta, proposte[0], Opzioni()));
  EXPECT_EQ(SoloMessaggio(), "il movimento del 14/03/2024 è già stato registrato");
  EXPECT_EQ(Tutto(), dopo);

  EXPECT_EQ(Pagata(prima), "30 100 14/03/2024");
  EXPECT_EQ(Pagata(seconda), "30 50 14/03/2024");
  EXPECT_THAT(RigheDi(1),
              ElementsAre(HasSubstr("C:0001 0/100 P:100.010"), HasSubstr("C:0001 0/50 P:100.010"),
                          HasSubstr("P:100.010 150/0 C:0001")));
  ASSERT_TRUE(qui.Prepara());
  EXPECT_TRUE(qui.GiaAbbinata(esatta));
  EXPECT_THAT(qui.Proponi(esatta), IsEmpty());
}

TEST_F(AbbinamentoBancaTest, Arrotondamento) {
  Nome("F", "0001", "Bianchi Trasporti");
  const auto scadenza = Nuova("F", "0001", "100", 9);
  duedates::AbbinamentoBanca abbinamento(ambiente);
  ASSERT_TRUE(abbinamento.Prepara());
  // A little more was paid than was due.
  const duedates::LineaEstratto linea = Linea("-101.5", "Bianchi trasporti fattura 9");
  const auto proposte = abbinamento.Proponi(linea);
  ASSERT_THAT(proposte, SizeIs(1));
  ASSERT_TRUE(abbinamento.Accetta(linea, proposte[0], Opzioni()));
  EXPECT_EQ(Pagata(scadenza), "30 100 14/03/2024");
  EXPECT_THAT(RigheDi(1), ElementsAre(HasSubstr("F:0001 100/0"), HasSubstr("P:100.010 0/101.5"),
                                      HasSubstr("P:580.010 1.5/0")));
  EXPECT_THAT(abbinamento.Proponi(linea), IsEmpty());
}

TEST_F(AbbinamentoBancaTest, GuastoAMetaNonLasciaNulla) {
  Nome("C", "0001", "Ferramenta Bianchi Srl");
  Nuova("C", "0001", "100", 12);
  duedates::AbbinamentoBanca abbinamento(ambiente);
  ASSERT_TRUE(abbinamento.Prepara());
  const duedates::LineaEstratto linea = Linea("100", "Bianchi 12");
  const auto proposte = abbinamento.Proponi(linea);
  ASSERT_THAT(proposte, SizeIs(1));
  EXPECT_GT(FallisceOgniIstruzione(
                ambiente.Basi(), Guasto::Errore, [this] { return Tutto(); },
                [&] { return abbinamento.Accetta(linea, proposte[0], Opzioni()); }),
            6);
  EXPECT_EQ(Scadenzario().Singolo("select Articolo from MovimentiBanca").Intero(), 1);
}

}  // namespace
}  // namespace fenalto::prova
