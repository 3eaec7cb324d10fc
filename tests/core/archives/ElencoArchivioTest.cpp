#include <algorithm>

#include "core/archives/DittaArchivi.h"
#include "core/archives/ElencoArchivio.h"
#include "core/reports/Stampati.h"
#include "core/values/Testo.h"

namespace fenalto::prova {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class ElencoArchivioTest : public DittaArchivi {
 protected:
  using Righe = std::vector<std::vector<Valore>>;

  ElencoArchivioTest() {
    descrizione.finestra = "CodiciIva";
    descrizione.titolo = "Archivio Codici IVA";
    descrizione.tabella = "CodiciIva";
    descrizione.campiExtra = {{"Calcolato", Tipo::Testo}};
    descrizione.campi = {{.nome = "Perc", .didascalia = "aliquota", .elenco = true},
                         {.nome = "Calcolato", .didascalia = "no", .elenco = true},
                         {.nome = "Note", .didascalia = "note"},
                         {.nome = "Scorporo", .didascalia = "scorporo", .elenco = true}};
    Tessarc().Esegui("delete * from CodiciIva");
    const char* descrizioni[] = {"Imponibile",         "ESENTE perché all'estero", "Università",
                                 "L'aliquota ridotta", "100% [*] detratta",        "Überschuß"};
    Transazione transazione(ambiente.Basi());
    for (int i = 0; i < 60; ++i) {
      std::string cod = i % 3 == 0 ? "E" : i % 3 == 1 ? "è" : "x";
      cod += std::to_string((i * 37) % 60);
      Tessarc().Inserisci("CodiciIva",
                          {{"Cod", cod},
                           {"Descrizione", descrizioni[i % 6]},
                           {"Perc", Importo::DaTesto(i % 4 == 0 ? "1204.5" : "22").value()},
                           {"Scorporo", i % 5 == 0}});
    }
    transazione.Conferma();
  }

  /// What the list must hold, computed the slow way.
  std::vector<std::string> Attesi(const archives::FiltroElenco& filtro) {
    const auto tiene = [](const std::string& testo, const std::string& cercato) {
      return PerRicerca(testo).find(PerRicerca(cercato)) != std::string::npos;
    };
    std::vector<std::string> codici;
    Rs rs = Tessarc().Recordset("select Cod, Descrizione, Perc, Scorporo from CodiciIva");
    for (; !rs.Eof(); rs.MoveNext()) {
      const std::vector<std::string> mostrate = {rs.Fields(0).Testo(), rs.Fields(1).Testo(),
                                                 rs.Fields(2).Intero() == 22 ? "22,00" : "1.204,50",
                                                 rs.Fields(3).Booleano() ? "sì" : "no"};
      bool passa = filtro.testo.empty() || tiene(mostrate[0], filtro.testo) ||
                   tiene(mostrate[1], filtro.testo);
      for (std::size_t c = 0; c < filtro.colonne.size(); ++c)
        passa = passa && tiene(mostrate[c], filtro.colonne[c]);
      if (passa) codici.push_back(mostrate[0]);
    }
    std::sort(codici.begin(), codici.end(),
              [](const auto& a, const auto& b) { return ConfrontaTesto(a, b) < 0; });
    return codici;
  }

  archives::DescrizioneArchivio descrizione;
};

TEST_F(ElencoArchivioTest, Colonne) {
  std::vector<std::string> nomi;
  for (const records::CampoForma& c : archives::ColonneElenco(descrizione))
    nomi.push_back(c.nome + ":" + c.didascalia);
  EXPECT_THAT(nomi, ElementsAre("Cod:codice", "Descrizione:descrizione", "Perc:aliquota",
                                "Scorporo:scorporo"));
  EXPECT_TRUE((archives::FiltroElenco{"", {"", ""}}.Vuoto()));
  EXPECT_FALSE((archives::FiltroElenco{"", {"", "x"}}.Vuoto()));
}

TEST_F(ElencoArchivioTest, PagineComeIlModello) {
  archives::ElencoArchivio elenco(ambiente, descrizione);
  const std::vector<archives::FiltroElenco> filtri = {{},
                                                      {"e1", {}},
                                                      {"È", {}},
                                                      {"PERCHE", {}},
                                                      {"l'ali", {}},
                                                      {"[*]", {}},
                                                      {"uberss", {}},
                                                      {"niente", {}},
                                                      {"", {"1", "", "204,5"}},
                                                      {"", {"", "UNIVERSITA", "", "no"}},
                                                      {"x", {"", "", "22,00", "Si"}}};
  for (const archives::FiltroElenco& filtro : filtri) {
    SCOPED_TRACE(filtro.testo + "|" + (filtro.colonne.empty() ? "" : filtro.colonne.back()));
    const auto attesi = Attesi(filtro);
    for (const int massimo : {1, 7, 1000}) {
      std::vector<std::string> letti;
      for (std::string dopo;;) {
        const Righe pagina = elenco.Pagina(filtro, dopo, massimo);
        for (const auto& riga : pagina) letti.push_back(riga[0].Testo());
        if (std::ssize(pagina) < massimo) break;
        dopo = letti.back();
      }
      EXPECT_EQ(letti, attesi);
    }
    for (std::size_t i = 0; i < attesi.size(); ++i) {
      EXPECT_EQ(elenco.Successivo(filtro, attesi[i]), i + 1 < attesi.size() ? attesi[i + 1] : "");
      EXPECT_EQ(elenco.Precedente(filtro, attesi[i]), i > 0 ? attesi[i - 1] : "");
    }
  }
  EXPECT_TRUE(elenco.Pagina({}, "", 0).empty());
  EXPECT_EQ(elenco.Pagina({}, "", 1)[0].size(), 4U);
}

TEST_F(ElencoArchivioTest, FiltroFisso) {
  descrizione.filtro = "Cod<'f' or Cod='X2'";
  archives::ElencoArchivio elenco(ambiente, descrizione);
  EXPECT_EQ(elenco.Pagina({}, "", 1000).size(), 21U);
  EXPECT_EQ(elenco.Pagina({"x", {}}, "", 1000).size(), 1U);
}

TEST_F(ElencoArchivioTest, Stampa) {
  Tessarc().Esegui("update CodiciIva set Descrizione='" + std::string(150, 'W') +
                   "' where Cod='x2'");
  Tessarc().Esegui(
      "update CodiciIva set Descrizione='due' & chr(13) & chr(10) & 'righe' where "
      "Cod='x5'");
  const auto stampa = [&](const archives::FiltroElenco& filtro) {
    FabbricaDiProva fabbrica;
    dialoghi.ScegliaUscita(SceltaUscita{Destinazione::Testo, {}});
    archives::StampaElencoArchivio(ambiente, fabbrica, descrizione, filtro);
    return fabbrica;
  };
  const FabbricaDiProva filtrata = stampa({"x", {"", "", "22"}});
  ASSERT_EQ(filtrata.fini, 1);
  ASSERT_EQ(filtrata.Righe().size(), 1U);
  std::string testo;
  std::size_t righe = 0;
  const auto pagina = filtrata.Righe()[0];
  for (const std::string& riga : pagina) {
    testo += riga + "\n";
    if (riga.starts_with("x")) {
      ++righe;
      // Columns stand one under the other whatever the text beside them.
      EXPECT_EQ(LunghezzaTesto(riga.substr(0, riga.find("22,00"))), 71U) << riga;
    }
  }
  EXPECT_EQ(righe, Attesi({"x", {"", "", "22"}}).size());
  EXPECT_THAT(testo, HasSubstr("Archivio Codici IVA"));
  EXPECT_THAT(testo, HasSubstr("filtro: «x»; aliquota con «22»"));
  EXPECT_THAT(testo, HasSubstr("codice descrizione"));
  EXPECT_THAT(testo, HasSubstr(std::string(60, 'W') + " "));
  EXPECT_THAT(testo, Not(HasSubstr(std::string(61, 'W'))));
  EXPECT_THAT(testo, HasSubstr("data stampa  24/11/2026"));
  EXPECT_THAT(testo, HasSubstr("numero record: " + std::to_string(righe)));

  const FabbricaDiProva vuota = stampa({"niente", {}});
  ASSERT_EQ(vuota.pagine.size(), 1U);
  EXPECT_THAT(vuota.Righe()[0].back(), HasSubstr("numero record: 0"));

  Transazione transazione(ambiente.Basi());
  for (int i = 0; i < 200; ++i)
    Tessarc().Inserisci("CodiciIva", {{"Cod", "z" + std::to_string(i)}});
  transazione.Conferma();
  EXPECT_EQ(stampa({}).pagine.size(), 3U);
  for (const std::int64_t passo : {50, 300}) {
    dialoghi.annullaDopo = passo;
    const FabbricaDiProva annullata = stampa({});
    EXPECT_FALSE(annullata.fini && passo == 50);
    if (passo == 50) {
      EXPECT_TRUE(annullata.pagine.empty());
    }
  }
}

}  // namespace fenalto::prova
