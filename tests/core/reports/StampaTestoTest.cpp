// Text mode: where pages break, what stands on each, and what happens when the output gives up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "core/reports/AmbienteProva.h"
#include "core/reports/PaginaTesto.h"

namespace fenalto::reports {
namespace {

using testing::ElementsAre;

constexpr int kRigheVerticale = 96;
constexpr int kRigheOrizzontale = 66;

/// Heading of two lines with the page's number.
void ConIntestazione(Stampa& stampa) {
  stampa.Intestazione([&stampa] {
    stampa.Campo(1, stampa.NumeroPagina());
    stampa.Riga("LIBRO GIORNALE pag. ##");
    stampa.Riga("======================");
  });
}

TEST(PaginaTesto, QuantoTieneUnFoglio) {
  const FormatoPagina verticale;
  const FormatoPagina orizzontale{29'700, 21'000, 500};
  EXPECT_EQ(ColonnePagina(verticale, 17), 133U);
  EXPECT_EQ(ColonnePagina(orizzontale, 17), 192U);
  EXPECT_EQ(RighePagina(verticale, 17), kRigheVerticale);
  EXPECT_EQ(RighePagina(orizzontale, 17), kRigheOrizzontale);
  EXPECT_EQ(RighePagina(verticale, 12), 67);  // 6 lines an inch
  // The last line stands inside the margin.
  const int ultima = AltezzaRigaTesto(verticale, 17, kRigheVerticale - 1);
  EXPECT_LE(ultima + 2'540 * 2 / 17, verticale.altezza - verticale.margine);
}

TEST(PaginaTesto, SiGiraPerLaRigaPiuLarga) {
  EXPECT_FALSE(DisponiTesto(133, 17).formato.Orizzontale());
  EXPECT_TRUE(DisponiTesto(134, 17).formato.Orizzontale());
  EXPECT_EQ(DisponiTesto(192, 17).passo, 17);
  // Wider than the sheet: smaller characters rather than lost ones.
  const DisposizioneTesto larga = DisponiTesto(230, 17);
  EXPECT_GT(larga.passo, 17);
  EXPECT_GE(ColonnePagina(larga.formato, larga.passo), 230U);
}

TEST(StampaTesto, LaPaginaPienaChiamaLIntestazione) {
  AmbienteProva p;
  p.Inizia(true);
  p.stampa.Titolo("Giornale");
  p.stampa.CarattereTesto(17);
  ConIntestazione(p.stampa);
  const int corpo = kRigheVerticale - 2;
  for (int i = 0; i < corpo; ++i) {
    p.stampa.Campo(1, i);
    p.stampa.Riga("######, dare");
  }
  EXPECT_EQ(p.stampa.RigheLibere(), 0);
  EXPECT_TRUE(p.visto.pagine.empty()) << "una pagina piena si chiude con la riga seguente";
  // The heading of the new page sets fields of its own: this line keeps its value.
  p.stampa.Campo(1, corpo);
  p.stampa.Riga("######, dare");
  ASSERT_EQ(p.visto.pagine.size(), 1U) << "consegnata subito";
  EXPECT_EQ(p.stampa.RigheLibere(), corpo - 1);
  EXPECT_TRUE(p.stampa.Fine());

  ASSERT_EQ(p.visto.pagine.size(), 2U);
  EXPECT_EQ(p.visto.titolo, "Giornale");
  EXPECT_EQ(p.visto.pagine[0].numero, 1);
  EXPECT_EQ(Righe(p.visto.pagine[0]).size(), static_cast<std::size_t>(kRigheVerticale));
  EXPECT_THAT(Righe(p.visto.pagine[1]),
              ElementsAre("LIBRO GIORNALE pag.  2", "======================", "     94 dare"));
}

TEST(StampaTesto, NessunaPaginaVuotaInFondo) {
  AmbienteProva p;
  p.Inizia(true);
  ConIntestazione(p.stampa);
  for (int i = 0; i < kRigheVerticale - 2; ++i) p.stampa.Riga("x");
  p.stampa.NuovaPagina();
  p.stampa.NuovaPagina();
  EXPECT_TRUE(p.stampa.Fine());
  EXPECT_EQ(p.visto.pagine.size(), 1U);
  EXPECT_EQ(p.visto.fini, 1);
  EXPECT_EQ(p.visto.annulli, 0);
}

TEST(StampaTesto, SenzaRigheRestaLaSolaIntestazione) {
  AmbienteProva p;
  p.Inizia(true);
  ConIntestazione(p.stampa);
  EXPECT_TRUE(p.stampa.Fine());
  ASSERT_EQ(p.visto.pagine.size(), 1U);
  EXPECT_EQ(Righe(p.visto.pagine[0]).size(), 2U);
}

TEST(StampaTesto, ICampiValgonoPerUnaRigaSola) {
  AmbienteProva p;
  p.Inizia(true);
  p.stampa.Campo(2, "b");
  p.stampa.Riga("[$] [$]");
  p.stampa.Riga("[$] [$]");
  p.stampa.Campo(1, "a");
  p.stampa.Riga("");
  p.stampa.Campo(1, Importo::DaUnita(1234));
  EXPECT_EQ(p.stampa.Formato(PictureImporto("ççççççççççççççç", true)), "      1.234,000");
  p.stampa.Riga("[$]");
  EXPECT_THROW(p.stampa.Campo(0, 1), std::logic_error);
  p.stampa.Fine();
  EXPECT_THAT(Righe(p.visto.pagine.at(0)), ElementsAre("[ ] [b]", "[ ] [ ]", "", "[ ]"));
}

TEST(StampaTesto, RiservaTieneInsiemeTitoloERighe) {
  AmbienteProva p;
  p.Inizia(true);
  ConIntestazione(p.stampa);
  p.stampa.Riserva(50);  // a page just begun is as good as any
  p.stampa.Riserva(500);
  for (int i = 0; i < kRigheVerticale - 4; ++i) p.stampa.Riga("x");
  p.stampa.Riserva(2);  // exactly what is left
  EXPECT_EQ(p.stampa.RigheLibere(), 2);
  EXPECT_EQ(p.stampa.NumeroPagina(), 1);
  p.stampa.Campo(1, "mastro");
  p.stampa.Riserva(3);  // the heading of the new page leaves the field alone
  p.stampa.Riga("$$$$$$");
  p.stampa.Riga("conto");
  p.stampa.Fine();
  ASSERT_EQ(p.visto.pagine.size(), 2U);
  EXPECT_EQ(Righe(p.visto.pagine[0]).size(), static_cast<std::size_t>(kRigheVerticale - 2));
  EXPECT_THAT(Righe(p.visto.pagine[1]),
              ElementsAre("LIBRO GIORNALE pag.  2", "======================", "mastro", "conto"));
}

TEST(StampaTesto, LaPaginaSiGiraQuandoServe) {
  const std::string larga(150, '=');
  {  // Told beforehand.
    AmbienteProva p;
    p.Inizia(true);
    p.stampa.Larghezza(150);
    p.stampa.Riga("a");
    EXPECT_EQ(p.stampa.RigheLibere(), kRigheOrizzontale - 1);
    p.stampa.Fine();
    EXPECT_TRUE(p.visto.pagine.at(0).formato.Orizzontale());
  }
  {  // Found out on the page, which turns under the lines that still fit.
    AmbienteProva p;
    p.Inizia(true);
    for (int i = 0; i < kRigheOrizzontale - 1; ++i) p.stampa.Riga("a");
    p.stampa.Riga(larga);
    p.stampa.Riga("b");
    p.stampa.Fine();
    ASSERT_EQ(p.visto.pagine.size(), 2U);
    EXPECT_TRUE(p.visto.pagine[0].formato.Orizzontale());
    EXPECT_TRUE(p.visto.pagine[1].formato.Orizzontale());
  }
  {  // Too late for this page: the next one turns.
    AmbienteProva p;
    p.Inizia(true);
    for (int i = 0; i < kRigheOrizzontale; ++i) p.stampa.Riga("a");
    p.stampa.Riga(larga);
    p.stampa.Fine();
    ASSERT_EQ(p.visto.pagine.size(), 2U);
    EXPECT_FALSE(p.visto.pagine[0].formato.Orizzontale());
    EXPECT_TRUE(p.visto.pagine[1].formato.Orizzontale());
  }
}

TEST(StampaTesto, LeRigheNonSiSovrappongonoQuandoIlPassoSiStringe) {
  AmbienteProva p;
  p.Inizia(true);
  p.stampa.Intestazione([&] {
    p.stampa.Riga("stretta");
    p.stampa.Riga(std::string(220, '='));
  });
  p.stampa.Riga("corpo");
  p.stampa.Fine();
  int sotto = 0;
  for (const Elemento& elemento : p.visto.pagine.at(0).elementi) {
    const auto& riga = std::get<RigaFissa>(elemento);
    EXPECT_GE(riga.y, sotto);
    EXPECT_GE(ColonnePagina(p.visto.pagine[0].formato, riga.passo), 220U);
    sotto = riga.y + 2 * 2'540 / riga.passo;
  }
}

TEST(StampaTesto, UnIntestazioneAltaComeLaPaginaEUnErroreDiChiLaScrive) {
  AmbienteProva p;
  p.Inizia(true);
  p.stampa.Intestazione([&] {
    for (int i = 0; i < kRigheVerticale; ++i) p.stampa.Riga("titolo");
  });
  EXPECT_THROW(p.stampa.Riga("x"), std::logic_error);
}

TEST(StampaTesto, RinunciaAllUscita) {
  AmbienteProva p;
  p.dialoghi.ScegliaUscita(std::nullopt);
  EXPECT_FALSE(p.stampa.Inizio("Giornale"));
  EXPECT_TRUE(p.stampa.Interrotta());
  bool chiamata = false;
  p.stampa.Intestazione([&] { chiamata = true; });
  p.stampa.Riga("x");
  EXPECT_EQ(p.stampa.RigheLibere(), 0);
  EXPECT_FALSE(p.stampa.Fine());
  EXPECT_FALSE(chiamata);
  EXPECT_TRUE(p.dialoghi.messaggi.empty());

  // An output that this build can't make.
  p.dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Pdf, "x.pdf"});
  EXPECT_FALSE(p.stampa.Inizio("Giornale"));
  EXPECT_TRUE(p.dialoghi.HaDetto("non è disponibile"));

  // And one that it can.
  p.dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, "x.txt"});
  p.fabbrica.prossima = std::make_unique<UscitaSpia>(true, p.visto);
  EXPECT_TRUE(p.stampa.Inizio("Giornale"));
  p.stampa.Riga("x");
  EXPECT_TRUE(p.stampa.Fine());
  EXPECT_EQ(p.visto.pagine.size(), 1U);
}

TEST(StampaTesto, UscitaCheCedeAMeta) {
  AmbienteProva p;
  p.visto.massimo = 1;
  p.Inizia(true);
  int intestazioni = 0;
  p.stampa.Intestazione([&] {
    ++intestazioni;
    p.stampa.Riga("=");
  });
  for (int i = 0; i < 5 * kRigheVerticale && !p.stampa.Interrotta(); ++i) p.stampa.Riga("x");
  EXPECT_TRUE(p.stampa.Interrotta());
  EXPECT_EQ(intestazioni, 2);
  p.stampa.Riga("dopo");
  p.stampa.NuovaPagina();
  EXPECT_FALSE(p.stampa.Fine());
  EXPECT_TRUE(p.dialoghi.HaDetto("la stampante è spenta"));
  EXPECT_EQ(p.visto.annulli, 1);
}

TEST(StampaTesto, UnRapportoInterrottoDaUnGuastoNonLasciaNulla) {
  UscitaSpia::Visto visto;
  {
    AmbienteProva p;
    p.stampa.Inizio(std::make_unique<UscitaSpia>(true, visto));
    p.stampa.Riga("x");
  }
  EXPECT_EQ(visto.fini, 0);
  EXPECT_EQ(visto.annulli, 1);
}

/// Whatever is asked, no page holds more than its format, numbers go up by one, each page begins
/// with its heading and no line is lost.
RC_GTEST_PROP(StampaTestoProprieta, OgniRigaAlSuoPosto, ()) {
  static AmbienteProva p;
  p.visto = {};
  p.Inizia(true);
  p.stampa.CarattereTesto(*rc::gen::inRange(5, 30));
  const int testata = *rc::gen::inRange(0, 5);
  p.stampa.Intestazione([testata] {
    for (int i = 0; i < testata; ++i) p.stampa.Riga("titolo");
  });
  std::vector<std::string> attese;
  const int passi = *rc::gen::inRange(0, 300);
  for (int i = 0; i < passi; ++i) {
    const int quanto = *rc::gen::inRange(0, 40);
    if (quanto == 0) p.stampa.NuovaPagina();
    if (quanto == 1) p.stampa.Riserva(*rc::gen::inRange(0, 200));
    if (quanto < 2) continue;
    attese.push_back(quanto == 2 ? std::string(*rc::gen::inRange<std::size_t>(0, 250), '-')
                                 : "riga " + std::to_string(i));
    p.stampa.Riga(attese.back());
  }
  RC_ASSERT(p.stampa.Fine());
  std::vector<std::string> trovate;
  int numero = 0;
  for (const Pagina& pagina : p.visto.pagine) {
    RC_ASSERT(pagina.numero == ++numero);
    const std::vector<std::string> righe = Righe(pagina);
    RC_ASSERT(righe.size() >= static_cast<std::size_t>(testata));
    for (std::size_t i = 0; i < righe.size(); ++i) {
      const auto& riga = std::get<RigaFissa>(pagina.elementi[i]);
      RC_ASSERT(riga.testo.size() <= ColonnePagina(pagina.formato, riga.passo));
      RC_ASSERT(riga.y + 2 * 2'540 / riga.passo <= pagina.formato.altezza - pagina.formato.margine);
      if (i < static_cast<std::size_t>(testata))
        RC_ASSERT(righe[i] == "titolo");
      else
        trovate.push_back(righe[i]);
    }
  }
  RC_ASSERT(trovate == attese);
}

}  // namespace
}  // namespace fenalto::reports
