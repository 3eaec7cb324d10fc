// Locks, transaction and messages of a confirmation, on a company.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "core/records/Conferma.h"
#include "core/records/DocumentoAperto.h"
#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"

namespace fenalto::records {
namespace {

struct Stazione {
  Stazione(const std::filesystem::path& programma, const std::string& nome) {
    OpzioniAmbiente opzioni = OpzioniProva(programma);
    opzioni.stazione = nome;
    ambiente = std::make_unique<Ambiente>(opzioni, dialoghi, orologio, caso);
    const auto aperta = ambiente->ApriDitta("Rossi", 2026);
    if (!aperta) throw std::runtime_error(aperta.Errore().messaggio);
  }
  DialoghiFinti dialoghi;
  OrologioFinto orologio;
  CasoFinto caso;
  std::unique_ptr<Ambiente> ambiente;
};

class ConfermaTest : public ::testing::Test {
 protected:
  ConfermaTest() {
    CreaDittaProva(OpzioniProva(cartella_.Percorso()), "Rossi", {{2026, true, true}}, true);
    qui = std::make_unique<Stazione>(cartella_.Percorso(), "QUI");
  }
  Ambiente& A() { return *qui->ambiente; }
  void Scrivi(const char* cod) { A().ArchivioDi("tessarc").Inserisci("Categorie", {{"Cod", cod}}); }
  bool Scritta(const char* cod) { return A().Esiste("tessarc", "Categorie", {{"Cod", cod}}); }

  CartellaProva cartella_;
  std::unique_ptr<Stazione> qui;
};

TEST_F(ConfermaTest, ScriveSottoIBlocchiEDiceIlRifiutoOIlGuasto) {
  int annullate = 0;
  std::string rifiuto;
  bool guasto = false;
  const auto conferma = [&](const char* cod) {
    return Esegui(A(), {.nonRiuscita = "prova non riuscita: ",
                        .numerazioni = {"FATTURECLI", "ARTICOLI"},
                        .scrivi =
                            [&, cod] {
                              Scrivi(cod);
                              if (guasto) throw std::runtime_error("guasto");
                              return rifiuto;
                            },
                        .annulla = [&] { ++annullate; }});
  };
  EXPECT_TRUE(conferma("A"));
  EXPECT_TRUE(Scritta("A"));
  EXPECT_TRUE(qui->dialoghi.messaggi.empty());
  EXPECT_EQ(annullate, 0);

  rifiuto = "cambiata";
  EXPECT_FALSE(conferma("B"));
  EXPECT_FALSE(Scritta("B"));
  guasto = true;
  EXPECT_FALSE(conferma("B"));
  EXPECT_FALSE(Scritta("B"));
  EXPECT_EQ(annullate, 2);
  EXPECT_THAT(qui->dialoghi.messaggi,
              ::testing::ElementsAre("cambiata\nNon è stato scritto nulla.",
                                     "prova non riuscita: guasto\nNon è stato scritto nulla, si "
                                     "può riprovare."));
}

TEST_F(ConfermaTest, SiFermaPrimaDiScrivere) {
  std::vector<std::string> passi;
  bool prima = false;
  bool sotto = false;
  const auto conferma = [&] {
    return Esegui(A(), {.nonRiuscita = "",
                        .numerazioni = {"ARTICOLI"},
                        .prima = [&] { return passi.emplace_back("prima"), prima; },
                        .sottoBlocco = [&] { return passi.emplace_back("sotto"), sotto; },
                        .scrivi = [&] { return passi.emplace_back("scrive"), std::string(); }});
  };
  EXPECT_FALSE(conferma());
  prima = true;
  EXPECT_FALSE(conferma());
  sotto = true;
  EXPECT_TRUE(conferma());
  EXPECT_THAT(passi, ::testing::ElementsAre("prima", "prima", "sotto", "prima", "sotto", "scrive"));
  EXPECT_TRUE(qui->dialoghi.messaggi.empty());
}

TEST_F(ConfermaTest, EParteDellaTransazioneDiChiNeScriveMolte) {
  {
    Transazione fuori(A().Basi());
    EXPECT_TRUE(Esegui(A(), {.nonRiuscita = "", .scrivi = [&] {
                               Scrivi("A");
                               return std::string();
                             }}));
  }
  EXPECT_FALSE(Scritta("A"));
}

TEST_F(ConfermaTest, LeNumerazioniHannoUnSoloOrdine) {
  {
    const Numerazioni tenute(A(), {"FATTURECLI", "ARTICOLI"});
    EXPECT_TRUE(tenute.Tenute());
    EXPECT_FALSE(A().BloccaTabella("ARTICOLI", false).Tenuto());
    EXPECT_FALSE(A().BloccaTabella("FATTURECLI", false).Tenuto());
  }
  EXPECT_TRUE(A().BloccaTabella("ARTICOLI", false).Tenuto());
#ifndef NDEBUG
  EXPECT_THROW(Numerazioni(A(), {"ARTICOLI", "FATTURECLI"}), std::logic_error);
  EXPECT_THROW(Numerazioni(A(), {"ARTICOLI", "ARTICOLI"}), std::logic_error);
  EXPECT_THROW(Numerazioni(A(), {"CLIENTI"}), std::logic_error);
#endif
}

TEST_F(ConfermaTest, UnDocumentoApertoDiceCheCosaNonSiPuo) {
  DocumentoAperto documento(A());
  documento.Testa().Aggiungi("Dt", Tipo::Data);
  EXPECT_EQ(documento.StatoCorrente(false), Stato::Inattiva);
  EXPECT_FALSE(documento.Modificabile());
  auto blocco = A().Basi().Blocchi().Record("ARTICOLI", "2026|1");
  documento.Mostra(std::move(blocco));
  EXPECT_TRUE(documento.Modificabile());
  EXPECT_FALSE(A().Basi().Blocchi().Record("ARTICOLI", "2026|1").Riuscito());
  EXPECT_EQ(documento.StatoCorrente(true), Stato::RigaAperta);
  EXPECT_FALSE(documento.RifiutaSolaLettura());
  EXPECT_TRUE(documento.RifiutaRiga(true));
  documento.Chiudi();
  auto libero = A().Basi().Blocchi().Record("ARTICOLI", "2026|1");
  EXPECT_TRUE(libero.Riuscito());
  documento.Mostra(std::move(libero), "il documento è stampato");
  EXPECT_TRUE(A().Basi().Blocchi().Record("ARTICOLI", "2026|1").Riuscito()) << "no lock to look";
  EXPECT_TRUE(documento.RifiutaSolaLettura());
  EXPECT_THAT(qui->dialoghi.messaggi,
              ::testing::ElementsAre("confermare o annullare prima la riga",
                                     "il documento è stampato: si può solo consultare"));
  documento.Chiudi();
  documento.Inizia();
  EXPECT_TRUE(documento.Nuovo());
  EXPECT_FALSE(documento.SolaLettura());
}

}  // namespace
}  // namespace fenalto::records
