// Opening a document: types, what a head takes from its type and party, numbers, who may.
#include "documents/entry/DocumentoDiProva.h"
#include "documents/totals/TotaliDocumento.h"

namespace fenalto::prova {
namespace {

using documents::FattureCli;

class FattureCliTest : public DocumentoDiProva {};

TEST_F(FattureCliTest, TipiEImpedimento) {
  const FattureCli d(ambiente);
  EXPECT_EQ(d.Tipo().cod, "01");
  EXPECT_EQ(FattureCli::Impedimento(ambiente), "");
  EXPECT_EQ(d.StatoCorrente(), FattureCli::Stato::Inattiva);
  Tessarc().Esegui("delete * from TipiFattureCli");
  EXPECT_EQ(FattureCli::Impedimento(ambiente),
            "è necessario impostare almeno un tipo di documento (dal menu 'fatture/ddt' -> 'tipi "
            "documento')");
}

TEST_F(FattureCliTest, TipiCheNonSiIniziano) {
  struct Caso {
    const char* tipo;
    int livello;
    const char* conto;
    std::string atteso;
  };
  const Caso casi[] = {
      {"XF", 30, "360.001", "non si hanno diritti per questo tipo documento"},
      {"XI", 49, "360.001", "non si hanno diritti per questo tipo documento"},
      {"XR", 99, "",
       "per emettere le fatture che vengono contabilizzate è necessario inserire il conto iva da : "
       "menu->archivi->contabilità>registri iva"},
      {"XR", 99, "360.001",
       "i documenti di tipo XR si contabilizzano sul registro iva 1: non si possono ancora "
       "emettere"},
      {"XN", 30, "360.001", ""},
      {"XF", 50, "360.001", ""}};
  for (const Caso& caso : casi) {
    SCOPED_TRACE(caso.tipo + std::to_string(caso.livello));
    Tessarc().Esegui("update RegistriIva set Conto='" + std::string(caso.conto) +
                     "' where Cod='1'");
    ASSERT_TRUE(ambiente.RiapriDitta("Prova", 2024, {"U", "utente", caso.livello}).Riuscito());
    FattureCli d(ambiente);
    Messaggi();
    ASSERT_TRUE(d.ScegliTipo(caso.tipo));
    EXPECT_EQ(d.Nuovo(), caso.atteso.empty());
    EXPECT_EQ(Messaggi(), caso.atteso.empty() ? std::vector<std::string>()
                                              : std::vector<std::string>{caso.atteso});
    d.Abbandona();
  }
}

TEST_F(FattureCliTest, SottoIlLivelloLeFattureNonSiAprono) {
  ASSERT_EQ(Inserisci({.tipo = "XF", .parte = "9002", .righe = {{"P1", I("1"), I("9")}}}), 1);
  ASSERT_TRUE(ambiente.RiapriDitta("Prova", 2024, {"U", "utente", 30}).Riuscito());
  FattureCli d(ambiente);
  EXPECT_FALSE(d.Apri("XF", 1));
  EXPECT_EQ(SoloMessaggio(), "non si hanno diritti per questo tipo documento");
  ASSERT_TRUE(d.ScegliTipo("XN"));
  EXPECT_FALSE(d.Sdoppia({"XF", 2024, 1}));
  EXPECT_EQ(SoloMessaggio(), "non si hanno diritti per questo tipo documento");
  ASSERT_TRUE(Digita(d, {.tipo = "XN", .righe = {{"P1", I("1")}}}));
  EXPECT_EQ(d.Margine(), std::nullopt);
  EXPECT_FALSE(d.StatoRiga("Costo").visibile);
}

TEST_F(FattureCliTest, TestaDalTipoEDallaParte) {
  Tessarc().Esegui("update Clienti set Fido=1500, EsenzioneIva='E10' where Cod='9001'");
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Nuovo());
  EXPECT_THAT(Messaggi(), IsEmpty());
  EXPECT_EQ(d.Titolo(), "Nuovo documento 01 DDT da fatturare");
  for (const auto& [campo, atteso] :
       std::vector<std::pair<const char*, const char*>>{{"CFP", "C"},
                                                        {"CausaleMag", "SV"},
                                                        {"CS", "S"},
                                                        {"Mag", "01"},
                                                        {"Fatturo", "True"},
                                                        {"Trasporto", "M"},
                                                        {"Porto", "FR"},
                                                        {"Aspetto", "A VISTA"},
                                                        {"Dt", "2024-03-15"},
                                                        {"DataOra", "15/03/2024 10:00"}}) {
    EXPECT_EQ(d.Testa().Leggi(campo).Neutro(), atteso) << campo;
  }
  EXPECT_FALSE(d.Modificata());
  Campi(d, {{"CliFor", "9001"}});
  EXPECT_EQ(SoloMessaggio(), "attenzione: sul cliente è indicato un fido di 1.500,00");
  EXPECT_EQ(d.NotaEsenzione(), "sul cliente è impostato il cod.esenz.IVA E10");
  for (const auto& [campo, atteso] :
       std::vector<std::pair<const char*, const char*>>{{"RagSoc1Dest", "Alfa deposito"},
                                                        {"provdest", "MI"},
                                                        {"Varie1", "ddt uno"},
                                                        {"Pagamento", "RD"},
                                                        {"ScontoCassa", "2"},
                                                        {"Agente", "99"},
                                                        {"CodiceVettore", "V1"},
                                                        {"Vettore1", "Corriere spa"},
                                                        {"Vettore4", "Albo 12"},
                                                        {"Ep", "False"}}) {
    EXPECT_EQ(d.Testa().Leggi(campo).Neutro(), atteso) << campo;
  }
  ASSERT_EQ(d.Destinazioni().size(), 1U);
  Campi(d, {{"Destinazione", 7}});
  EXPECT_EQ(d.Testa().Testo("RagSoc1Dest"), "Cantiere");
  EXPECT_EQ(d.Testa().Testo("localitadest"), "Como");
  Campi(d, {{"Destinazione", 0}, {"CodiceVettore", ""}});
  EXPECT_EQ(d.Testa().Testo("RagSoc1Dest"), "Alfa deposito");
  EXPECT_EQ(d.Testa().Testo("Vettore1"), "");
  EXPECT_EQ(d.DatiParte(), std::vector<std::string>{"Alfa srl"});
}

TEST_F(FattureCliTest, ParteDelTipoEFattura) {
  Tessarc().Esegui("update TipiFattureCli set CliFor='9001' where Cod='XF'");
  Tessarc().Esegui("update Clienti set Ep=true, Ritenuta='R1' where Cod='9001'");
  Metti(Tessarc(), "Ritenute", "Cod", "R1", "Descrizione", "Ritenuta 4");
  FattureCli d(ambiente);
  ASSERT_TRUE(d.ScegliTipo("XF"));
  ASSERT_TRUE(d.Nuovo());
  EXPECT_EQ(SoloMessaggio(), "Cliente soggetto a ritenuta R1");
  EXPECT_EQ(d.Testa().Testo("Varie1"), "fat uno");
  EXPECT_EQ(d.Testa().Testo("RaDescrizione"), "Ritenuta 4");
  EXPECT_TRUE(d.Testa().Leggi("Ep").Booleano());
  EXPECT_FALSE(d.Modificata());
}

TEST_F(FattureCliTest, ScontoCassaConPrezziIvati) {
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "XI"}));
  EXPECT_FALSE(d.StatoTesta("ScontoCassa").attivo);
  EXPECT_TRUE(d.Testa().Leggi("ScontoCassa").Importo().Zero());
}

TEST_F(FattureCliTest, AspettoPerTipo) {
  struct Caso {
    const char* tipo;
    bool totali, trasporto, carico, codPrCli, campo1, lotto;
    const char* magazzino;
    const char* pagina;
  };
  for (const Caso& c :
       {Caso{"01", true, true, false, true, false, false, "Magazzino da scaricare", "Dati DDT"},
        Caso{"XN", false, true, false, true, true, false, "Magazzino da scaricare", "Dati DDT"},
        Caso{"XF", true, false, false, true, false, false, "Magazzino da scaricare", "Altri Dati"},
        Caso{"10", false, false, true, false, false, true, "Magazzino da caricare",
             "Altri Dati"}}) {
    SCOPED_TRACE(c.tipo);
    FattureCli d(ambiente);
    ASSERT_TRUE(d.ScegliTipo(c.tipo));
    ASSERT_TRUE(d.Nuovo());
    EXPECT_EQ(d.StatoTesta("RiquadroTotali").visibile, c.totali);
    EXPECT_EQ(d.StatoTesta("RiquadroTrasporto").visibile, c.trasporto);
    EXPECT_EQ(d.StatoTesta("RiquadroCarico").visibile, c.carico);
    EXPECT_EQ(d.StatoRiga("CodPrCli").visibile, c.codPrCli);
    EXPECT_EQ(d.StatoRiga("Campo1").visibile, c.campo1);
    EXPECT_EQ(d.StatoRiga("Lottox").visibile, c.lotto);
    EXPECT_EQ(d.StatoTesta("Mag").didascalia, c.magazzino);
    EXPECT_EQ(d.StatoTesta("PaginaDati").didascalia, c.pagina);
    d.Abbandona();
  }
}

TEST_F(FattureCliTest, NumeriForzatiEAutomatici) {
  const auto ddt = [&](std::int64_t forzato) {
    return Inserisci({.tipo = "XN",
                      .parte = "9002",
                      .righe = {{"P1", I("1"), I("1")}},
                      .altri = {{"NumDoc", forzato}}});
  };
  EXPECT_EQ(ddt(0), 1);
  EXPECT_EQ(ddt(10), 10);
  EXPECT_EQ(ddt(5), 5);
  FattureCli d(ambiente);
  ASSERT_TRUE(d.ScegliTipo("XN"));
  EXPECT_EQ(d.ProbabileNumDoc(), 11);
  EXPECT_EQ(ddt(0), 11);
  ASSERT_TRUE(d.Apri("XN", 5));
  EXPECT_EQ(d.Titolo(), "Nota n. 5 del 15/03/2024");
  EXPECT_FALSE(d.StatoTesta("NumDoc").attivo);
  ASSERT_TRUE(ambiente.ScegliAnno(2025).Riuscito());
  FattureCli altro(ambiente);
  ASSERT_TRUE(altro.ScegliTipo("XN"));
  EXPECT_EQ(altro.ProbabileNumDoc(), 1);
}

TEST_F(FattureCliTest, SerieFinita) {
  const std::int64_t ultimo = 2147483647;
  ASSERT_EQ(Inserisci({.tipo = "XN",
                       .parte = "9002",
                       .righe = {{"P1", I("1"), I("1")}},
                       .altri = {{"NumDoc", ultimo}}}),
            ultimo);
  FattureCli d(ambiente);
  ASSERT_TRUE(Digita(d, {.tipo = "XN", .parte = "9002", .righe = {{"P1", I("1"), I("1")}}}));
  EXPECT_FALSE(d.Conferma());
  EXPECT_THAT(SoloMessaggio(), HasSubstr("nella serie del tipo documento XN è già usato il numero "
                                         "2147483647"));
}

TEST_F(FattureCliTest, DocumentoContabilizzatoSoloDaConsultare) {
  Metti(Tessarc(), "FattureCli", "TipoDoc", "XR", "Anno", 2024, "NumDoc", 3, "Riva", "1", "CFP",
        "C", "CliFor", "9001", "Dt", G(1, 3, 2024));
  Metti(Tessarc(), "UltProtStRegIva", "Anno", 2024, "Riva", "1", "UltProtSt", 3);
  Metti(Tessarc(), "UltimaDataLibro", "Anno", 2024, "dt", G(31, 3, 2024));
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("XR", 3));
  EXPECT_THAT(
      Messaggi(),
      ElementsAre("documento già stampato su registro iva",
                  "data registrazione contabile antecedente all'ultima data già stampata su libro "
                  "giornale",
                  HasSubstr("è contabilizzato sul registro iva 1")));
  EXPECT_TRUE(d.SolaLettura());
  EXPECT_FALSE(d.Elimina());
}

TEST_F(FattureCliTest, AltroAnnoSoloDaConsultare) {
  ASSERT_EQ(Inserisci({.righe = {{"P1", I("1"), I("4")}}}), 1);
  ASSERT_TRUE(ambiente.ScegliAnno(2025).Riuscito());
  FattureCli d(ambiente);
  EXPECT_FALSE(d.Apri("10", 1));
  ASSERT_TRUE(d.Apri({"10", 2024, 1}));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("il documento è dell'anno 2024"));
  EXPECT_FALSE(d.Conferma());
}

TEST_F(FattureCliTest, InModificaAltrove) {
  ASSERT_EQ(Inserisci({.righe = {{"P1", I("1"), I("4")}}}), 1);
  const auto cassa = NuovaStazione("CASSA");
  FattureCli altra(*cassa->ambiente);
  ASSERT_TRUE(altra.Apri("10", 1));
  FattureCli d(ambiente);
  ASSERT_TRUE(d.Apri("10", 1));
  EXPECT_THAT(SoloMessaggio(), AllOf(HasSubstr("in modifica"), HasSubstr("CASSA")));
  EXPECT_TRUE(d.SolaLettura());
  EXPECT_EQ(d.Righe().size(), 1U);
  EXPECT_FALSE(d.PNuovaRiga());
  EXPECT_FALSE(d.Conferma());
  altra.Abbandona();
  Messaggi();
  ASSERT_TRUE(d.Apri("10", 1));
  EXPECT_FALSE(d.SolaLettura());
}

TEST_F(FattureCliTest, Sdoppiato) {
  ASSERT_EQ(Inserisci({.tipo = "01",
                       .righe = {{"P1", I("3"), I("4"), {{"Sc1", I("10")}, {"CodPrCli", "K"}}},
                                 {"P2", I("2"), I("1")}},
                       .altri = {{"Chiave", "CANTIERE"}, {"Varie2", "note"}}}),
            1);
  FattureCli d(ambiente);
  ASSERT_TRUE(d.ScegliTipo("01"));
  dialoghi.Rispondera("Copio anche le righe", Risposta::Si);
  ASSERT_TRUE(d.Sdoppia({"01", 2024, 1}));
  EXPECT_EQ(d.Titolo(), "Nuovo documento da sdoppiamento di altro esistente");
  EXPECT_TRUE(d.Modificata());
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(RigheDi("01", 2), RigheDi("01", 1));
  EXPECT_EQ(DellaTesta("01", 2, "Chiave").Testo(), "CANTIERE");
  EXPECT_EQ(DellaTesta("01", 2, "Varie2").Testo(), "note");
  // As another side's type: party and what is hers stay behind.
  ASSERT_TRUE(d.ScegliTipo("10"));
  dialoghi.Rispondera("Copio anche le righe", Risposta::No);
  ASSERT_TRUE(d.Sdoppia({"01", 2024, 1}));
  EXPECT_EQ(d.Testa().Testo("CliFor"), "");
  EXPECT_TRUE(d.Righe().empty());
  EXPECT_EQ(d.Testa().Testo("CS"), "C");
  Messaggi();
  Tessarc().Esegui("update FattureCli_r set NL3=9 where TipoDoc='01' and NumDoc=1 and Posi=100");
  dialoghi.Rispondera("Copio anche le righe", Risposta::Si);
  EXPECT_FALSE(d.Sdoppia({"01", 2024, 1}));
  EXPECT_EQ(SoloMessaggio(), "non si può sdoppiare una riga gestita a lotti");
  EXPECT_FALSE(d.Sdoppia({"01", 2024, 77}));
  EXPECT_THAT(SoloMessaggio(), HasSubstr("01 n. 77 del 2024 non esiste"));
}

TEST_F(FattureCliTest, BozzaRipresaDopoUnArresto) {
  {
    // A station that never closes what it has open.
    const auto caduta = NuovaStazione("BANCO");
    FattureCli d(*caduta->ambiente);
    ASSERT_TRUE(Digita(d, {.tipo = "XN",
                           .parte = "9002",
                           .righe = {{"P1", I("2"), I("7")}},
                           .altri = {{"Chiave", "URGENTE"}}}));
    ASSERT_TRUE(d.PNuovaRiga());
    d.Riga().Scrivi("CodiceRiga", "P2");
    d.RigaLasciata("CodiceRiga");
    d.Riga().Scrivi("Quantita", I("5"));
    d.RigaLasciata("Quantita");
  }
  const auto banco = NuovaStazione("BANCO");
  FattureCli d(*banco->ambiente);
  banco->dialoghi.Rispondera("C'è un documento non confermato del 15/03/2024", Risposta::Si);
  ASSERT_TRUE(d.Riprendi());
  EXPECT_EQ(d.Tipo().cod, "XN");
  EXPECT_EQ(d.Testa().Testo("Chiave"), "URGENTE");
  ASSERT_EQ(d.Righe().size(), 1U);
  EXPECT_EQ(d.Righe()[0].importo, I("14"));
  ASSERT_EQ(d.StatoCorrente(), FattureCli::Stato::RigaAperta);
  EXPECT_EQ(d.Riga().Leggi("Quantita").Importo(), I("5"));
  ASSERT_TRUE(d.ConfermaRiga());
  ASSERT_TRUE(d.Conferma());
  EXPECT_EQ(RigheDi("XN", 1), "100 P1 2 a 7 = 14 costo 2 | 200 P2 5 a 0 = 0");
  EXPECT_FALSE(d.Riprendi());
}

TEST(TotaliDocumento, UnaVoltaPerCodice) {
  using documents::CalcolaTotali;
  const std::vector<documents::GruppoIva> gruppi = {
      {"22", I("100.05"), I("22")}, {"10", I("-3.33"), I("10")}, {"E", I("7"), I("0")}};
  const auto senza = CalcolaTotali(gruppi, {});
  EXPECT_EQ(senza.totImponibile, I("103.72"));
  EXPECT_EQ(senza.totIva, I("21.68"));  // 22.01 - 0.33
  EXPECT_EQ(senza.totFat, I("125.40"));
  // 100.05 less 2 per cent is 98.049: cut; -3.33 is -3.2634: cut downwards.
  const auto cassa = CalcolaTotali(gruppi, {.scontoCassa = I("2")});
  EXPECT_EQ(cassa.gruppi[0].imponibile, I("98.04"));
  EXPECT_EQ(cassa.gruppi[0].scontoCassa, I("2.01"));
  EXPECT_EQ(cassa.gruppi[1].imponibile, I("-3.27"));
  const auto ivati = CalcolaTotali(gruppi, {.prezziIvati = true, .scontoCassa = I("2")});
  EXPECT_EQ(ivati.gruppi[0].imponibile, I("82.01"));
  EXPECT_EQ(ivati.totFat, I("103.72"));
  const std::vector<documents::GruppoIva> lire = {{"20", I("1001"), I("20")}};
  EXPECT_EQ(CalcolaTotali(lire, {.euro = false}).totIva, I("201"));
}

}  // namespace
}  // namespace fenalto::prova
