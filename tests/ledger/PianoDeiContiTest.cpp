#include <random>
#include <set>
#include <string>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "ledger/Stampati.h"
#include "ledger/accounts/CodiceConto.h"
#include "ledger/accounts/PianoDeiConti.h"

namespace fenalto::prova {

namespace {

constexpr const char* kInUso = "non si può variare o eliminare il codice in quanto ci sono ";
constexpr const char* kMastroUsato =
    "non si può variare o annullare : ci sono conti relativi a questo mastro";

class PianoDeiContiTest : public DittaDaStampare {
 protected:
  PianoDeiContiTest()
      : mastri(ambiente, ledger::ArchiviPianoDeiConti()[0]),
        conti(ambiente, ledger::ArchiviPianoDeiConti()[1]) {}

  /// A field typed and left.
  static void Scrivi(archives::ArchivioCodici& archivio, const char* campo,
                     const std::string& valore) {
    archivio.Record().Scrivi(campo, valore);
    archivio.Lasciato(campo);
  }
  void NuovoMastro(const std::string& cod, const std::string& lettera) {
    mastri.Inizia();
    Scrivi(mastri, "Cod", cod);
    Scrivi(mastri, "Descrizione", "mastro di prova");
    Scrivi(mastri, "PatrEcon", lettera);
    EXPECT_TRUE(mastri.Conferma());
  }
  bool NuovoConto(const std::string& mastro, const std::string& contox, const std::string& cfp,
                  const std::string& descrizione = "conto di prova") {
    conti.Inizia();
    Scrivi(conti, "Mastro", mastro);
    Scrivi(conti, "Contox", contox);
    Scrivi(conti, "CFP", cfp);
    Scrivi(conti, "Descrizione", descrizione);
    return conti.Conferma();
  }
  /// Code, class and texts of the list, or of what it must hold.
  std::multiset<std::string> Voci(const std::string& sql) {
    std::multiset<std::string> voci;
    for (Rs rs = Tessarc().Recordset(sql); !rs.Eof(); rs.MoveNext())
      voci.insert(rs.Fields(0).Testo() + "|" + rs.Fields(1).Testo() + "|" + rs.Fields(2).Testo());
    return voci;
  }
  void AttesaListaVera() {
    EXPECT_EQ(Voci("SELECT Cod, CFP, Descrizione FROM ContiClientiFornitori WHERE CFP='P'"),
              Voci("SELECT Cod, CFP, Descrizione FROM Conti WHERE CFP='P'"));
  }
  std::vector<std::string> Premi(archives::ArchivioCodici& archivio, const std::string& nome) {
    for (const archives::PulsanteArchivio& pulsante : archivio.Descrizione().pulsanti)
      if (pulsante.nome == nome) return pulsante.azione(archivio.Contesto());
    ADD_FAILURE() << "manca il pulsante " << nome;
    return {};
  }

  archives::ArchivioCodici mastri;
  archives::ArchivioCodici conti;
};

TEST_F(PianoDeiContiTest, MastroConContiNonCambia) {
  NuovoMastro("17", "P");
  // 170 has accounts and 17 has none, though their codes begin with 17.
  ASSERT_TRUE(mastri.Apri("17"));
  EXPECT_EQ(mastri.Titolo(), "mastro 17");
  Scrivi(mastri, "PatrEcon", "E");
  Scrivi(mastri, "Cod", "X17");
  EXPECT_TRUE(mastri.Conferma());
  EXPECT_TRUE(Messaggi().empty());

  NuovoMastro("X[*", "P");
  NuovoMastro("Xz", "P");
  ASSERT_TRUE(NuovoConto("Xz", "001", "P"));
  const std::pair<const char*, const char*> campi[] = {
      {"Descrizione", "altra"}, {"PatrEcon", "E"}, {"Cod", "Xw"}};
  for (const auto& [campo, valore] : campi) {
    ASSERT_TRUE(mastri.Apri("Xz"));
    Scrivi(mastri, campo, valore);
    EXPECT_FALSE(mastri.Conferma());
    EXPECT_EQ(SoloMessaggio(), kMastroUsato) << campo;
    EXPECT_TRUE(mastri.Modificato());
  }
  ASSERT_TRUE(mastri.Apri("Xz"));
  EXPECT_TRUE(mastri.Conferma());
  ASSERT_TRUE(mastri.Apri("Xz"));
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  EXPECT_FALSE(mastri.Elimina());
  EXPECT_EQ(SoloMessaggio(), kMastroUsato);
  // Signs of a pattern in a code are letters of it.
  ASSERT_TRUE(mastri.Apri("X[*"));
  dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
  EXPECT_TRUE(mastri.Elimina());
}

TEST_F(PianoDeiContiTest, ControlliInOrdine) {
  NuovoMastro("X1", "E");
  conti.Inizia();
  EXPECT_EQ(conti.Titolo(), "nuovo conto");
  const auto rifiutato = [&](const char* messaggio, const char* campo) {
    Rifiuto rifiuto;
    EXPECT_FALSE(conti.Conferma(&rifiuto));
    EXPECT_EQ(SoloMessaggio(), messaggio);
    EXPECT_EQ(rifiuto.campo, campo);
  };
  rifiutato("manca mastro o conto", "Mastro");
  Scrivi(conti, "Mastro", "X9");
  rifiutato("manca mastro o conto", "Contox");
  Scrivi(conti, "Contox", "  ");
  rifiutato("manca mastro o conto", "Contox");
  Scrivi(conti, "Contox", "001");
  rifiutato("manca C F P", "CFP");
  Scrivi(conti, "CFP", "p");
  rifiutato("il mastro X9 non esiste: inserirlo prima nell'archivio Mastri", "Mastro");
  Scrivi(conti, "Mastro", "x1");
  EXPECT_EQ(conti.Record().Testo("PatrEcon"), "E");
  Scrivi(conti, "PatrEcon", "P");
  rifiutato("Patrimoniale/Economico : su mastro diverso da conto", "PatrEcon");
  Scrivi(conti, "Mastro", "X1");
  Scrivi(conti, "Contox", "12345678");
  rifiutato("il codice X1.12345678 supera i 10 caratteri (punto compreso): accorciare il conto",
            "Contox");
  Scrivi(conti, "Contox", "001");
  EXPECT_TRUE(conti.Conferma());
  EXPECT_TRUE(Messaggi().empty());
  EXPECT_FALSE(NuovoConto("x1", "001", "P"));
  EXPECT_TRUE(dialoghi.HaDetto("conto"));
  EXPECT_EQ(Tessarc().Singolo("SELECT Count(*) FROM Conti WHERE Cod='X1.001'").Intero(), 1);
}

TEST_F(PianoDeiContiTest, GuardieDelCodice) {
  struct Guardia {
    const char* tabella;
    std::vector<Coppia> campi;
    std::string messaggio;
  };
  // From the last to the first told: each new use hides the one before.
  const std::vector<Guardia> guardie = {
      {"Pagamento", {{"Cod", "X1"}, {"Conto", "X1.001"}}, "codici pagamento collegati"},
      {"RegistriIva", {{"Cod", "X1"}, {"Conto", "X1.001"}}, "regisstri iva collegati"},
      {"Fornitori", {{"Cod", "9001"}, {"Conto", "X1.001"}}, "fornitori che appartengono"},
      {"Clienti", {{"Cod", "9001"}, {"Conto", "X1.001"}}, "clienti che appartengono"}};
  NuovoMastro("X1", "P");
  ASSERT_TRUE(NuovoConto("X1", "001", "P"));
  for (const Guardia& guardia : guardie) {
    Tessarc().Inserisci(guardia.tabella, guardia.campi);
    const std::string messaggio = kInUso + guardia.messaggio + " a questo conto";
    ASSERT_TRUE(conti.Apri("X1.001"));
    EXPECT_EQ(conti.Record().Testo("Mastro"), "X1");
    EXPECT_EQ(conti.Record().Testo("Contox"), "001");
    Scrivi(conti, "Contox", "002");
    EXPECT_FALSE(conti.Conferma());
    EXPECT_EQ(SoloMessaggio(), messaggio);
    ASSERT_TRUE(conti.Apri("X1.001"));
    dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
    EXPECT_FALSE(conti.Elimina());
    EXPECT_EQ(SoloMessaggio(), messaggio);
    // Everything but the code may change.
    ASSERT_TRUE(conti.Apri("X1.001"));
    Scrivi(conti, "Descrizione", messaggio);
    EXPECT_TRUE(conti.Conferma());
    AttesaListaVera();
  }
  EXPECT_TRUE(Messaggi().empty());
  ASSERT_TRUE(conti.Apri("100.010"));
  Scrivi(conti, "CFP", "C");
  EXPECT_EQ(SoloMessaggio(),
            "ATTENZIONE: se esistono già registrazioni contabili non variare questo dato");
  Scrivi(conti, "CFP", "p");
  EXPECT_TRUE(Messaggi().empty());
}

TEST_F(PianoDeiContiTest, ListaVeraDopoOperazioniACaso) {
  NuovoMastro("X1", "P");
  NuovoMastro("X2", "P");
  AttesaListaVera();
  std::mt19937 caso(20'240'315);
  const auto uno = [&](std::size_t n) { return caso() % n; };
  const char* classi[] = {"P", "P", "C", "F"};
  int riusciti = 0;
  for (int i = 0; i < 150; ++i) {
    const std::string mastro = uno(2) == 0 ? "X1" : "x2";
    const std::string contox = "00" + std::to_string(uno(5));
    const std::string testo = "l'\"insegna\" n. " + std::to_string(i);
    if (uno(3) == 0) {
      riusciti += NuovoConto(mastro, contox, classi[uno(4)], testo) ? 1 : 0;
    } else if (conti.Apri(mastro + "." + contox)) {
      if (uno(4) == 0) {
        dialoghi.Rispondera("Conferma eliminazione DOCUMENTO ?", Risposta::Si);
        riusciti += conti.Elimina() ? 1 : 0;
      } else {
        // Its text, its class, its code: any of the three at once.
        if (uno(2) == 0) Scrivi(conti, "Descrizione", testo);
        if (uno(2) == 0) Scrivi(conti, "CFP", classi[uno(4)]);
        if (uno(2) == 0) Scrivi(conti, "Contox", "00" + std::to_string(uno(5)));
        if (uno(3) == 0) Scrivi(conti, "Mastro", uno(2) == 0 ? "x1" : "X2");
        riusciti += conti.Conferma() ? 1 : 0;
      }
    }
    AttesaListaVera();
    if (HasFailure()) FAIL() << "operazione " << i;
  }
  EXPECT_GT(riusciti, 60);
  EXPECT_FALSE(dialoghi.HaDetto("AggiornaContiClientiFornitori"));
}

TEST_F(PianoDeiContiTest, VoceMancanteDettaEContoScritto) {
  const std::string persa = "funz.AggiornaContiClientiFornitori : Cod 100.010 non trovato";
  Tessarc().Esegui("DELETE FROM ContiClientiFornitori WHERE Cod='100.010' AND CFP='P'");
  ASSERT_TRUE(conti.Apri("100.010"));
  Scrivi(conti, "Descrizione", "altro testo");
  EXPECT_TRUE(conti.Conferma());
  EXPECT_EQ(SoloMessaggio(), persa);
  EXPECT_EQ(ambiente.Cerca("tessarc", "Conti", {{"Cod", "100.010"}}, "Descrizione").Testo(),
            "altro testo");

  EXPECT_FALSE(ledger::AggiornaContiClientiFornitori(ambiente, false, false, "100.010", "P", "x"));
  EXPECT_EQ(SoloMessaggio(), persa);
  EXPECT_FALSE(ledger::AggiornaContiClientiFornitori(ambiente, true, false, "100.010", "P", ""));
  EXPECT_EQ(SoloMessaggio(), persa);
  EXPECT_TRUE(
      ledger::AggiornaContiClientiFornitori(ambiente, false, true, "100.010", "C", "uno", "due"));
  // A customer and an account may bear one code.
  EXPECT_TRUE(
      ledger::AggiornaContiClientiFornitori(ambiente, false, true, "100.010", "P", "altro testo"));
  AttesaListaVera();
  EXPECT_TRUE(
      ledger::AggiornaContiClientiFornitori(ambiente, false, false, "100.010", "C", "tre", "due"));
  EXPECT_EQ(Voci("SELECT Descrizione, Descrizione2, CFP FROM ContiClientiFornitori WHERE "
                 "Cod='100.010' AND CFP='C'"),
            std::multiset<std::string>{"tre|due|C"});
  EXPECT_TRUE(ledger::AggiornaContiClientiFornitori(ambiente, true, false, "100.010", "C", ""));
  AttesaListaVera();
}

TEST_F(PianoDeiContiTest, PrimoContoLibero) {
  struct Caso {
    std::vector<const char*> conti;
    const char* libero;
  };
  const Caso casi[] = {{{}, "001"},
                       {{"X1.001", "X1.003"}, "004"},
                       {{"X1.010", "X1.030"}, "040"},
                       {{"X1.01", "X1.09"}, "10"},
                       {{"X1.99", "X1.1"}, "01"},
                       {{"X1.7", "X1.abc", "X1.7b"}, "8"},
                       {{"X1.001", "X10.005"}, "002"}};
  NuovoMastro("X1", "P");
  for (const Caso& caso : casi) {
    for (const char* cod : caso.conti) Tessarc().Inserisci("Conti", {{"Cod", cod}});
    conti.Inizia();
    Scrivi(conti, "Mastro", "x1");
    EXPECT_EQ(conti.Record().Testo("ContoxLibero"), caso.libero);
    EXPECT_EQ(conti.Record().Testo("Contox"), "");
    Tessarc().Esegui("DELETE FROM Conti WHERE Cod LIKE 'X1*'");
  }
  for (int i = 1; i < 10; ++i) Tessarc().Inserisci("Conti", {{"Cod", "X1." + std::to_string(i)}});
  EXPECT_EQ(ledger::ProssimoContox(ambiente, "X1"), "");

  // A point may stand in a master's code.
  NuovoMastro("X3.1", "P");
  EXPECT_EQ(ledger::DividiCodiceConto(ambiente, "X3.1.002").mastro, "X3.1");
  EXPECT_EQ(ledger::DividiCodiceConto(ambiente, "X1.1.002").contox, "1.002");
  EXPECT_EQ(ledger::DividiCodiceConto(ambiente, "X8.1.002").mastro, "X8");
}

TEST_F(PianoDeiContiTest, Stampe) {
  ambiente.ScriviImpostazione("", "config", "ragsoc1 ", "EMPORIO BELLOSGUARDO");
  NuovoMastro("X1", "E");
  ASSERT_TRUE(NuovoConto("X1", "001", "C", "crediti"));
  ASSERT_TRUE(NuovoConto("X1", "002", "F", "debiti"));
  Tessarc().Inserisci("Conti", {{"Cod", "X7.001"}, {"Descrizione", "orfano"}, {"CFP", "P"}});
  Tessarc().Esegui("UPDATE Conti SET ImportoSitAziendale=-1234.5 WHERE Cod='X1.002'");
  conti.Contesto().uscite = &uscite;

  Verso(Destinazione::Testo);
  Premi(conti, "StampaPdc");
  std::string testo = uscite.Testo();
  EXPECT_TRUE(
      testo.starts_with("                      EMPORIO BELLOSGUARDO           15/03/24\n"
                        "PIANO DEI CONTI\n"
                        "Codice     Descrizione                 P=patrimoniale E=economico\n"))
      << testo.substr(0, 300);
  EXPECT_NE(
      testo.find("X1         mastro di prova                        E\n"
                 "X1.001     crediti                                E  riepilogativo Clienti\n"
                 "X1.002     debiti                                 E  riepilogativo "
                 "Fornitori\n"),
      std::string::npos);
  EXPECT_TRUE(testo.ends_with("           CONTI SENZA MASTRO\nX7.001     orfano\n"));

  ambiente.ScriviImpostazione("", "config", "ragsoc2", "DI ANNA E PAOLO VERDI S.N.C.");
  Verso(Destinazione::Testo);
  Premi(conti, "StampaRettifiche");
  EXPECT_TRUE(
      uscite.Testo().starts_with("                      EMPORIO BELLOSGUARDO DI ANNA E 15/03/24\n"
                                 "                      PAOLO VERDI S.N.C.\n"))
      << uscite.Testo().substr(0, 200);
  testo = uscite.Testo();
  EXPECT_NE(testo.find("| CONTI CON RETTIFICHE DI BILANCIO                                |\n"),
            std::string::npos);
  EXPECT_NE(testo.find("| codice     descrizione                        |         importo |\n"),
            std::string::npos);
  EXPECT_NE(testo.find("| X1.002     debiti                             |      -1.234,500|\n"),
            std::string::npos)
      << testo;
  EXPECT_EQ(testo.find("X1.001"), std::string::npos);
}

}  // namespace

}  // namespace fenalto::prova
