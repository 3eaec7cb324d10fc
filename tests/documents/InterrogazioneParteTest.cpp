// The enquiry of a party: its branches, what is counted behind them, their leaves a page at a time,
// what each leaf shows.
#include "core/session/Utenti.h"
#include "core/store/BasiDati.h"
#include "documents/parties/InterrogazioneParte.h"
#include "duedates/schedules/Scadenza.h"
#include "ledger/DittaDiProva.h"

namespace fenalto::prova {
namespace {

using ::testing::Pair;

class InterrogazioneParteTest : public DittaDiProva {
 protected:
  /// The types of document are those that a test makes.
  InterrogazioneParteTest() { Tessarc().Esegui("DELETE * FROM TipiFattureCli"); }
  void Scadenza(const char* conto, Data dt, const char* importo, const char* pagato,
                const char* stato, int articolo = 0) {
    Archivio& scadenzario = ambiente.ArchivioDi("scadenzario");
    Metti(scadenzario, "Scadenze", "Numero", duedates::ProssimoNumeroScadenza(ambiente), "CFP", "C",
          "Conto", conto, "Dt", dt, "Stato", stato, "Anno", 2024, "Articolo", articolo, "NFat", 7,
          "DtFat", G(31, 1, 2024), "ImportoE", I(importo), "ImportoPagatoE", I(pagato));
  }
  void Documento(const char* tipo, int anno, int numero, const char* conto, const char* cfp = "C") {
    Metti(Tessarc(), "FattureCli", "TipoDoc", tipo, "Anno", anno, "NumDoc", numero, "Dt",
          G(5, 3, anno), "CFP", cfp, "CliFor", conto);
  }
  void Riga(int numero, int posi, const char* codIva, const char* importo) {
    Metti(Tessarc(), "FattureCli_r", "TipoDoc", "FT", "Anno", 2024, "NumDoc", numero, "Posi", posi,
          "CodiceRiga", "P" + std::to_string(posi), "Descrizione", "merce", "Quantita", I("2"),
          "Prezzo", I("5.5"), "Sc1", I("10"), "Sc2", I("2.5"), "CodIva", codIva, "Conto", "580.010",
          "Importo", I(importo));
  }
  void Tipo(const char* cod, const char* descrizione, const char* cfp, bool ivati = false) {
    Metti(Tessarc(), "TipiFattureCli", "Cod", cod, "Descrizione", descrizione, "CFP", cfp,
          "PrezziIvati", ivati);
  }
  /// "xMOVANNO 2: MOVIMENTI CONTABILI ANNO 2024   (SALDO 30,00)"
  std::vector<std::string> Rami(documents::InterrogazioneParte& parte) {
    std::vector<std::string> testi;
    for (const documents::RamoParte& ramo : parte.Rami()) {
      const documents::ConteggioRamo conteggio = parte.Conta(ramo);
      testi.push_back(ramo.chiave + " " + std::to_string(conteggio.quanti) + ": " +
                      parte.Didascalia(ramo, conteggio));
    }
    return testi;
  }
  static documents::RamoParte Ramo(documents::InterrogazioneParte& parte, const std::string& chiave,
                                   const std::string& argomento = "") {
    for (const documents::RamoParte& ramo : parte.Rami())
      if (ramo.chiave == chiave && (argomento.empty() || ramo.argomento == argomento)) return ramo;
    ADD_FAILURE() << "no branch " << chiave << " " << argomento;
    return {};
  }
  /// "SCAD 31/03/2024 ...: 10"
  static std::vector<std::string> Foglie(documents::InterrogazioneParte& parte,
                                         const documents::RamoParte& ramo) {
    std::vector<std::string> testi;
    for (const documents::FogliaParte& foglia : parte.Foglie(ramo, nullptr, 100)) {
      testi.push_back(foglia.chiave + " " + foglia.testo +
                      (foglia.importo ? ": " + foglia.importo->Testo() : ""));
    }
    return testi;
  }
};

TEST_F(InterrogazioneParteTest, IRamiEQuantoCELDietro) {
  Registra({{"0001", I("100"), "C", "001", "fattura 7"}, {"580.010", I("-100")}});
  Registra({{"100.010", I("70")}, {"0001", I("-70"), "C", "001", "incasso"}}, G(16, 3, 2024));
  Registra({{"0002", I("9"), "C"}, {"580.010", I("-9")}});
  Scadenza("0001", G(31, 3, 2024), "100", "70", "10");
  Scadenza("0001", G(30, 4, 2024), "50", "50", "30");
  Scadenza("0002", G(31, 3, 2024), "9", "0", "00");
  Tipo("FT", "FATTURA", "C");
  Tipo("CA", "CARICO", "F");
  Tipo("RE", "RESO DA FORNITORE", "F");
  Documento("FT", 2024, 1, "0001");
  Documento("FT", 2023, 4, "0001");
  Documento("FT", 2024, 2, "0002");
  Documento("FT", 2024, 3, "0001", "F");
  Documento("RE", 2024, 1, "0001");
  Documento("XX", 2024, 1, "0001");  // of a type that is gone
  documents::InterrogazioneParte parte(ambiente, "C", "0001");
  EXPECT_THAT(Rami(parte),
              ElementsAre("xSCAD 1: SITUAZIONE SCADENZE PAGAMENTO",
                          "xMOVANNO 2: MOVIMENTI CONTABILI ANNO 2024   (SALDO 30,00)",
                          "xMOVPREC 0: MOVIMENTI CONTABILI ANNO 2023   (SALDO 0,00)",
                          "xMOVPREC 0: MOVIMENTI CONTABILI ANNO 2000   (SALDO 0)",
                          "xDOC 2: FT FATTURA", "xDOC 1: RE RESO DA FORNITORE", "xDOC 1: xx"));
  EXPECT_THAT(Foglie(parte, Ramo(parte, "xSCAD")),
              ElementsAre("SCAD 31/03/2024  ft. 7 del 31/01/2024: 30"));
  EXPECT_THAT(Foglie(parte, Ramo(parte, "xMOVANNO")),
              ElementsAre("MOVANNO 15/03/2024  n. 1  fattura 7: 100",
                          "MOVANNO 16/03/2024  n. 2  incasso: -70"));
  EXPECT_THAT(Foglie(parte, Ramo(parte, "xDOC", "FT")),
              ElementsAre("DOC n.4 del 05/03/2023", "DOC n.1 del 05/03/2024"));
  EXPECT_THAT(Foglie(parte, Ramo(parte, "xMOVPREC", "2023")), IsEmpty());
}

// From another year the same movements are of an earlier one; those of later years aren't shown.
TEST_F(InterrogazioneParteTest, LAnnoScelto) {
  Registra({{"0001", I("100"), "C"}, {"580.010", I("-100")}});
  documents::InterrogazioneParte parte(ambiente, "C", "0001");
  ASSERT_TRUE(ambiente.ScegliAnno(2025));
  EXPECT_EQ(Rami(parte).at(1), "xMOVANNO 0: MOVIMENTI CONTABILI ANNO 2025   (SALDO 0,00)");
  EXPECT_EQ(Rami(parte).at(2), "xMOVPREC 1: MOVIMENTI CONTABILI ANNO 2024   (SALDO 100,00)");
  EXPECT_THAT(Foglie(parte, Ramo(parte, "xMOVPREC", "2024")),
              ElementsAre("MOVPREC 15/03/2024  n. 1  prova: 100"));
  ASSERT_TRUE(ambiente.ScegliAnno(2023));
  EXPECT_EQ(Rami(parte).at(1), "xMOVANNO 0: MOVIMENTI CONTABILI ANNO 2023   (SALDO 0,00)");
}

// Whatever the size of the pages, each leaf comes once and in order.
TEST_F(InterrogazioneParteTest, LePagineDanOgniFogliaUnaVolta) {
  for (const int giorno : {3, 1, 2, 2, 2, 1}) {
    Registra({{"0001", I("1"), "C", "001", "a"},
              {"0001", I("2"), "C", "001", "b"},
              {"580.010", I("-3")}},
             G(giorno, 3, 2024));
    Scadenza("0001", G(giorno, 4, 2024), "5", "0", "00");
    Documento("FT", 2023 + giorno % 2,
              10 - static_cast<int>(NumeroRighe(1)) + giorno * 7 +
                  static_cast<int>(duedates::ProssimoNumeroScadenza(ambiente)),
              "0001");
  }
  Scadenza("0001", {}, "5", "0", "00");
  documents::InterrogazioneParte parte(ambiente, "C", "0001");
  for (const auto& [chiave, attese] :
       {std::pair("xSCAD", 7U), std::pair("xMOVANNO", 12U), std::pair("xDOC", 6U)}) {
    const documents::RamoParte ramo = Ramo(parte, chiave);
    const auto tutte = Foglie(parte, ramo);
    EXPECT_EQ(tutte.size(), attese);
    EXPECT_EQ(parte.Conta(ramo).quanti, attese);
    for (const std::size_t quante : {1U, 2U, 5U}) {
      std::vector<std::string> lette;
      std::optional<documents::FogliaParte> ultima;
      while (true) {
        const auto pagina = parte.Foglie(ramo, ultima ? &*ultima : nullptr, quante);
        ASSERT_LE(pagina.size(), quante);
        if (pagina.empty()) break;
        for (const documents::FogliaParte& f : pagina)
          lette.push_back(f.chiave + " " + f.testo + (f.importo ? ": " + f.importo->Testo() : ""));
        ultima = pagina.back();
      }
      EXPECT_EQ(lette, tutte) << chiave << " by " << quante;
    }
  }
}

TEST_F(InterrogazioneParteTest, OgnunoVedeQuelCheGliSpetta) {
  Tipo("FT", "FATTURA", "C");
  Utenti::HashEconomico(true);
  for (const int livello : {99, 50, 30}) {
    const std::string cod = "u" + std::to_string(livello);
    ASSERT_TRUE(Utenti(ambiente).Salva("", {cod, "utente", livello}, "segreta"));
  }
  ASSERT_TRUE(ambiente.ApriDitta("Prova", 2024));
  const auto chiavi = [this](int livello) {
    EXPECT_TRUE(ambiente.Accedi("u" + std::to_string(livello), "segreta"));
    std::vector<std::string> quali;
    for (const auto& ramo : documents::InterrogazioneParte(ambiente, "C", "0001").Rami())
      quali.push_back(ramo.chiave);
    return quali;
  };
  EXPECT_THAT(chiavi(99), ElementsAre("xSCAD", "xMOVANNO", "xMOVPREC", "xMOVPREC", "xDOC"));
  EXPECT_THAT(chiavi(50), ElementsAre("xDOC"));
  EXPECT_THAT(chiavi(30), IsEmpty());
  Utenti::HashEconomico(false);
}

TEST_F(InterrogazioneParteTest, IlDocumento) {
  Tipo("FT", "FATTURA", "C");
  Documento("FT", 2024, 1, "0001");
  Documento("FT", 2024, 2, "0001");
  const std::string cod = Tessarc().Singolo("select Cod from CodiciIva where Perc=22").Testo();
  Riga(1, 200, cod.c_str(), "10.05");
  Riga(1, 100, cod.c_str(), "20");
  Riga(1, 300, "", "0");  // a line of text
  Riga(2, 100, cod.c_str(), "500");
  documents::InterrogazioneParte parte(ambiente, "C", "0001");
  const documents::FogliaParte foglia = parte.Foglie(Ramo(parte, "xDOC"), nullptr, 1).at(0);
  EXPECT_EQ(foglia.rinvio, (Rinvio{.funzione = "FattureCli",
                                   .codice = std::to_string(foglia.numero),
                                   .anno = foglia.anno,
                                   .classe = foglia.tipoDoc}));
  const documents::DocumentoParte documento = parte.Documento(foglia);
  EXPECT_EQ(documento.titolo, "FT FATTURA  n.1 del 05/03/2024");
  ASSERT_EQ(documento.righe.size(), 3U);
  EXPECT_EQ(documento.righe[0].codice, "P100");
  EXPECT_EQ(documento.righe[0].sconti, "10+2,5");
  EXPECT_EQ(documento.righe[0].descrConto,
            Tessarc().Singolo("select Descrizione from Conti where Cod='580.010'").Testo());
  ASSERT_EQ(documento.totali.size(), 1U) << "a line of text has no VAT";
  EXPECT_EQ(documento.totali[0].imponibile, I("30.05"));
  EXPECT_EQ(documento.totali[0].iva, I("6.61"));
  // prices with VAT inside
  Tessarc().Esegui("update TipiFattureCli set PrezziIvati=True");
  EXPECT_EQ(parte.Documento(foglia).totali.at(0).imponibile, I("24.63"));
  EXPECT_EQ(parte.Documento(foglia).totali.at(0).iva, I("5.42"));
  Tessarc().Esegui("delete from FattureCli");
  EXPECT_EQ(parte.Documento(foglia).titolo, "");
}

TEST_F(InterrogazioneParteTest, LaScadenzaELaRegistrazione) {
  Registra({{"0001", I("100"), "C", "001", "fattura 7"}, {"580.010", I("-100")}});
  Scadenza("0001", G(31, 3, 2024), "100", "70", "10", 1);
  Scadenza("0001", G(30, 4, 2024), "100", "0", "00");
  documents::InterrogazioneParte parte(ambiente, "C", "0001");
  const auto scadenze = parte.Foglie(Ramo(parte, "xSCAD"), nullptr, 9);
  ASSERT_EQ(scadenze.size(), 2U);
  EXPECT_EQ(parte.RinvioRegistrazione(scadenze[0]), AllaRegistrazione(2024, 1));
  EXPECT_TRUE(parte.RinvioRegistrazione(scadenze[1]).Vuoto());
  EXPECT_THAT(
      parte.Scadenza(scadenze[0].numero),
      ElementsAre(Pair("scadenza n.", "1"), Pair("data scadenza", "31/03/2024"),
                  Pair("stato", "10 pagata in parte"), Pair("importo", "100,00"),
                  Pair("pagato", "70,00"), Pair("residuo", "30,00"),
                  Pair("fattura", "7 del 31/01/2024"), Pair("registrazione", "1 anno 2024")));
  EXPECT_THAT(parte.Scadenza(99), IsEmpty());
  const auto righe = parte.Registrazione(2024, 1);
  ASSERT_EQ(righe.size(), 2U);
  EXPECT_EQ(righe[0].conto, "0001");
  EXPECT_EQ(righe[0].descrConto, duedates::NomeParte(ambiente, "C", "0001"));
  EXPECT_EQ(righe[0].dare, I("100"));
  EXPECT_EQ(righe[1].avere, I("100"));
  EXPECT_NE(righe[1].descrConto, "");
}

TEST_F(InterrogazioneParteTest, LaTesta) {
  Tessarc().Esegui(
      "update Clienti set ragsoc2='di Rossi', cap='23900', localita='Lecco', Prov='LC', "
      "indirizzo='via Roma 1', telefono1='0341', piva='12345678903', Fido=5000 where Cod='0001'");
  const documents::TestaParte testa = documents::InterrogazioneParte(ambiente, "C", "0001").Testa();
  EXPECT_TRUE(testa.esiste);
  EXPECT_EQ(testa.indirizzo, "via Roma 1 - 23900 Lecco LC");
  EXPECT_EQ(testa.contatti, "tel. 0341");
  EXPECT_EQ(testa.fiscali, "p.iva 12345678903");
  EXPECT_EQ(testa.fido, I("5000"));
  EXPECT_TRUE(documents::InterrogazioneParte(ambiente, "F", "0001").Testa().esiste);
  EXPECT_FALSE(documents::InterrogazioneParte(ambiente, "C", "X9").Testa().esiste);
}

}  // namespace
}  // namespace fenalto::prova
