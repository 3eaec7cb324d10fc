// Documents confirmed, changed and deleted at random: heads and rows agree in what they share, each
// amount is that of exact fractions, both sides of a transfer move the same goods, and stock is
// what the documents that stand say.
#include <rapidcheck.h>

#include <map>

#include "core/store/TransazioneComune.h"
#include "core/values/Razionale.h"
#include "documents/entry/DocumentoDiProva.h"

namespace fenalto::prova {
namespace {

using documents::FattureCli;
using documents::IdentitaDocumento;
using documents::RigaDocumento;

struct Modo {
  int anno;
  const char* arrotonda;
};

class FattureCliProprietaTest : public DocumentoDiProva,
                                public ::testing::WithParamInterface<Modo> {
 protected:
  FattureCliProprietaTest() {
    EXPECT_TRUE(ambiente.ScegliAnno(GetParam().anno).Riuscito());
    Config("ArrotImporto", GetParam().arrotonda);
  }

  static Importo Fra(std::int64_t da, std::int64_t a, std::int64_t passo = 1) {
    return Importo::DaDecimillesimi(*rc::gen::inRange(da, a) * passo);
  }
  static RigaDaDigitare RigaCasuale() {
    const auto sconto = [] { return *rc::gen::element(Importo(), Fra(0, 10'001, 100)); };
    return {*rc::gen::element<std::string>("P1", "P2", "SP"),
            Fra(-200'000, 2'000'000),
            Fra(0, 5'000'000),
            {{"Sc1", sconto()}, {"Sc2", sconto()}, {"Sc3", sconto()}}};
  }
  static bool DigitaRigaCasuale(FattureCli& d) {
    RigaDaDigitare riga = RigaCasuale();
    if (riga.quantita.Zero()) riga.prezzo = Importo();
    return DigitaRiga(d, riga);
  }

  /// As the rule has it, in fractions: each step held at four decimals.
  static Importo Atteso(const RigaDocumento& r) {
    Razionale p = Esatto(r.prezzo);
    for (const Importo& sconto : {r.sc1, r.sc2, r.sc3}) {
      p -= Tenuto(p * Esatto(sconto) / 100);
    }
    const Razionale v = Tenuto(p * Esatto(r.quantita));
    if (GetParam().anno == 2000) return InImporto(Razionale(Int(v))).value();
    if (std::string(GetParam().arrotonda) == "0") {
      return InImporto(Razionale(Int(v * 100)) / 100).value();
    }
    const Razionale cento = Razionale(Int(Grandezza(v) * 100 + Razionale(1, 2))) / 100;
    return InImporto(v < 0 ? Razionale(-cento) : cento).value();
  }

  using Documenti = std::map<std::int64_t, IdentitaDocumento>;  ///< by their identity
  Documenti Leggi() {
    Documenti tutti;
    for (Rs rs = Tessarc().Recordset("select ID, TipoDoc, Anno, NumDoc from FattureCli"); !rs.Eof();
         rs.MoveNext()) {
      tutti[rs.Fields(0).Intero()] = {rs.Fields(1).Testo(), static_cast<int>(rs.Fields(2).Intero()),
                                      rs.Fields(3).Intero()};
    }
    return tutti;
  }

  void Verifica() {
    RC_ASSERT(Discordi() == 0);
    std::map<std::string, Importo> quantita;
    for (const auto& [id, documento] : Leggi()) {
      const bool carico = DellaTesta(documento.tipoDoc, documento.numDoc, "CS").Testo() == "C";
      for (const RigaDocumento& r : documents::LeggiRighe(ambiente, documento)) {
        RC_ASSERT(r.importo == Atteso(r));
        quantita[r.codiceRiga] += carico ? r.quantita : -r.quantita;
      }
    }
    for (const auto& [prodotto, resta] : quantita) {
      RC_ASSERT(Esistenza(prodotto.c_str()) == resta.Testo());
    }
    // Both sides together move nothing.
    RC_ASSERT(DaVista("select Sum(Quantita) from FattureCli_r where TipoDoc='20'") ==
              DaVista("select Sum(Quantita) from FattureCli_r where TipoDoc='21'"));
  }

  void Rispondi(int quante) {
    for (int i = 0; i < quante; ++i) dialoghi.Rispondera("", Risposta::Si);
  }
  void Nuovo(FattureCli& d) {
    RC_ASSERT(Digita(d, {.tipo = *rc::gen::element<std::string>("10", "20", "XN", "12"),
                         .altri = {{"Dt", G(*rc::gen::inRange(1, 29), 5, GetParam().anno)},
                                   {"Mag", *rc::gen::element("", "01")}}}));
    const int righe = *rc::gen::inRange(1, 5);
    for (int i = 0; i < righe; ++i) RC_ASSERT(DigitaRigaCasuale(d));
    RC_ASSERT(d.Conferma());
  }
  void Cambia(FattureCli& d, const IdentitaDocumento& quale, bool legato) {
    RC_ASSERT(d.Apri(quale));
    RC_ASSERT(DigitaRigaCasuale(d));
    RC_ASSERT(d.ApriRiga(0));
    d.Riga().Scrivi("Quantita", Fra(1, 1'000'000));
    d.RigaLasciata("Quantita");
    RC_ASSERT(d.ConfermaRiga());
    Campi(d, {{"Dt", G(*rc::gen::inRange(1, 29), 6, GetParam().anno)}, {"NumDocCarico", "x"}});
    if (legato) Rispondi(1);
    RC_ASSERT(d.Conferma());
  }
  void Elimina(FattureCli& d, const IdentitaDocumento& quale, bool legato) {
    RC_ASSERT(d.Apri(quale));
    Rispondi(legato ? 2 : 1);
    RC_ASSERT(d.Elimina());
  }
};

TEST_P(FattureCliProprietaTest, OgniOperazioneLasciaTuttoConcorde) {
  EXPECT_TRUE(rc::check("any sequence of documents", [this] {
    // Given up at the end: what is tried here is what is written, not that it reaches the disk.
    const TransazioneComune transazione(ambiente.Basi(), Transazione::Ambito::Tutto);
    FattureCli d(ambiente);
    const int passi = *rc::gen::inRange(1, 8);
    for (int passo = 0; passo < passi; ++passo) {
      const Documenti tutti = Leggi();
      const int sorte = *rc::gen::inRange(0, 4);
      if (tutti.empty() || sorte < 2) {
        Nuovo(d);
      } else {
        const auto scelto =
            std::next(tutti.begin(), *rc::gen::inRange<std::ptrdiff_t>(0, std::ssize(tutti)));
        const bool legato = scelto->second.tipoDoc == "20" || scelto->second.tipoDoc == "21";
        if (sorte == 2) {
          Cambia(d, scelto->second, legato);
        } else {
          Elimina(d, scelto->second, legato);
        }
      }
      Verifica();
    }
    Messaggi();
  }));
}

INSTANTIATE_TEST_SUITE_P(Modi, FattureCliProprietaTest,
                         ::testing::Values(Modo{2024, "0"}, Modo{2024, "1"}, Modo{2000, "0"}));

}  // namespace
}  // namespace fenalto::prova
