// What must hold of any VAT document that the form accepts, on random ones: all registers, both
// signs, both ways of writing credit notes, in euro and in lire.
#include <rapidcheck.h>

#include <map>

#include "core/sql/Criterio.h"
#include "core/values/Generatori.h"
#include "vat/FatturaDiProva.h"

namespace fenalto::prova {
namespace {

struct RigaCasuale {
  std::string codIva;
  Importo imponibile;
  std::optional<Importo> iva;  ///< typed by hand in place of the one worked out
};

struct Casuale {
  std::string riva;
  bool inverte = false;
  std::string pagamento;
  std::vector<RigaCasuale> righe;
};

void showValue(const Casuale& caso, std::ostream& uscita) {
  uscita << "registro " << caso.riva << (caso.inverte ? " inverte " : " ") << caso.pagamento;
  for (const auto& riga : caso.righe) {
    uscita << "\n  " << riga.codIva << " " << riga.imponibile.Testo();
    if (riga.iva) uscita << " iva " << riga.iva->Testo();
  }
}

rc::Gen<Importo> Importi(bool euro) {
  const auto scala = [](std::int64_t volte, std::int64_t limite) {
    return rc::gen::map(rc::gen::inRange<std::int64_t>(-limite, limite),
                        [=](std::int64_t n) { return Importo::DaDecimillesimi(n * volte); });
  };
  if (!euro) return scala(Importo::kScala, 1'000'000'000);
  return rc::gen::weightedOneOf<Importo>(
      {{5, scala(100, 1'000'000)}, {1, scala(100, 1'000'000'000'000)}, {1, scala(1, 1'000'000)}});
}

rc::Gen<RigaCasuale> RigheCasuali(const std::string& riva, bool euro) {
  const auto codici = riva == "7" ? rc::gen::just(std::string("ZCOR"))
                                  : rc::gen::element<std::string>("22", "10", "04", "22I", "22I50",
                                                                  "22D40", "E10", "PIENA", "TERZO");
  const auto iva = rc::gen::weightedOneOf<std::optional<Importo>>(
      {{4, rc::gen::just(std::optional<Importo>())},
       {1, rc::gen::map(Importi(euro), [](Importo i) { return std::optional(i); })}});
  return rc::gen::build<RigaCasuale>(rc::gen::set(&RigaCasuale::codIva, codici),
                                     rc::gen::set(&RigaCasuale::imponibile, Importi(euro)),
                                     rc::gen::set(&RigaCasuale::iva, iva));
}

rc::Gen<Casuale> Documenti(bool euro) {
  const auto registri = rc::gen::element<std::string>("1", "3", "4", "5", "6", "11", "2", "7", "9");
  return rc::gen::mapcat(registri, [euro](const std::string& riva) {
    return rc::gen::build<Casuale>(
        rc::gen::set(&Casuale::riva, rc::gen::just(riva)), rc::gen::set(&Casuale::inverte),
        rc::gen::set(&Casuale::pagamento, rc::gen::element<std::string>("", "DUE", "TRE")),
        rc::gen::set(
            &Casuale::righe,
            rc::gen::nonEmpty(rc::gen::resize(
                5, rc::gen::container<std::vector<RigaCasuale>>(RigheCasuali(riva, euro))))));
  });
}

class FattureProprietaTest : public FatturaDiProva, public ::testing::WithParamInterface<int> {
 protected:
  FattureProprietaTest() {
    EXPECT_TRUE(ambiente.ScegliAnno(GetParam()).Riuscito());
    Transazione transazione(ambiente.Basi());
    Tessarc().Inserisci("CodiciIva", {{"Cod", "ZCOR"}, {"Descrizione", "VENTILZ.CORRISP."}});
    Tessarc().Inserisci("CodiciIva", {{"Cod", "PIENA"}, {"Perc", I("100")}, {"PercInd", I("100")}});
    Tessarc().Inserisci("CodiciIva",
                        {{"Cod", "TERZO"}, {"Perc", I("33.33")}, {"PercInd", I("33.33")}});
    Tessarc().Inserisci("Pagamento",
                        {{"Cod", "TRE"}, {"NuovaCodifica", true}, {"AggiornaScad", true}});
    for (const int rata : {1, 2, 3}) {
      Tessarc().Inserisci("Pagamento_r", {{"Cod", "TRE"},
                                          {"Rata", "0" + std::to_string(rata)},
                                          {"PercImporto", I("33.3333")},
                                          {"DopoMesi", rata},
                                          {"DataFattura", true},
                                          {"Tipo", "02"}});
    }
    transazione.Conferma();
    Config("RegAutoIntraCee", "No");
  }

  void Digita(vat::RegistrazioneIva& f, const Casuale& caso) {
    Config("InvertoDAinNoteCredito", caso.inverte ? "1" : "0");
    const bool cassa = caso.riva == "2" || caso.riva == "7" || caso.riva == "9";
    RC_ASSERT(FatturaDiProva::Digita(f, {.riva = caso.riva,
                                         .parte = cassa ? "" : "0001",
                                         .pagamento = caso.pagamento,
                                         .dt = G(15, 3, GetParam())}));
    for (const auto& riga : caso.righe) {
      RC_ASSERT(f.PNuovaRiga());
      f.Riga().Scrivi("Conto", "500.001");
      f.Riga().Scrivi("CodIva", riga.codIva);
      f.Riga().Scrivi("Imponibile", riga.imponibile);
      f.RigaLasciata("Imponibile");
      const bool errata = riga.iva && *riga.iva != f.Riga().Leggi("Iva").Importo();
      if (riga.iva && caso.riva != "7") f.Riga().Scrivi("Iva", *riga.iva);
      const bool controllata = caso.riva != "2" && caso.riva != "7";
      if (errata && controllata) dialoghi.Rispondera("importo IVA errato", Risposta::Si);
      RC_ASSERT(f.ConfermaRiga());
    }
  }

  struct Scritte {
    Importo dare, avere, imponibili, ive, ivaScritta, parte;
    bool rigaIva = false;
    std::vector<std::string> importi;
    friend bool operator==(const Scritte&, const Scritte&) = default;
  };
  Scritte Leggi(std::int64_t numDoc) {
    Scritte s;
    for (Rs r = Tessarc().Recordset("select * from Movimenti where " +
                                    sql::Criterio("Anno", "=", GetParam()) + " and " +
                                    sql::Criterio("NumDoc", "=", numDoc) + " order by Posi, Num");
         !r.Eof(); r.MoveNext()) {
      const auto i = [&](const char* campo) { return r.Fields(campo).Importo(); };
      const Importo saldo = i("ImpoDare") - i("ImpoAvere");
      s.dare += i("ImpoDare");
      s.avere += i("ImpoAvere");
      const auto tipo = r.Fields("TIPORIGA").Intero();
      if (tipo == 3) {
        s.imponibili += i("Imponibile") + i("IvaInd");
        s.ive += i("Iva");
      } else {
        (tipo == 4 ? s.ivaScritta : s.parte) += saldo;
        s.rigaIva = s.rigaIva || tipo == 4;
      }
      s.importi.push_back(i("ImpoDare").Testo() + "/" + i("ImpoAvere").Testo() + " " +
                          i("Imponibile").Testo() + "+" + i("Iva").Testo() + "+" +
                          i("IvaInd").Testo());
    }
    return s;
  }
  Importo SommaRate(std::int64_t numDoc) {
    return Scadenzario()
        .Singolo("select Sum(ImportoE) from Scadenze where " +
                 sql::Criterio("Articolo", "=", numDoc))
        .Importo();
  }
  void Prova(const Casuale& caso) {
    const std::string prima = Conti();
    vat::RegistrazioneIva f(ambiente);
    Digita(f, caso);
    const Importo totale = f.TotFat();
    RC_ASSERT(f.Conferma());
    const auto numDoc = f.NumeroConfermato();
    const Scritte scritte = Leggi(numDoc);
    RC_ASSERT(scritte.dare == scritte.avere);
    RC_ASSERT(totale == scritte.imponibili + scritte.ive);
    // A purchase's party stands in credit, every other in debit.
    const bool acquisto = caso.riva == "3" || caso.riva == "5";
    RC_ASSERT(scritte.parte == (acquisto ? -totale : totale));
    RC_ASSERT(scritte.ivaScritta == (acquisto ? scritte.ive : -scritte.ive));
    RC_ASSERT(scritte.rigaIva || (scritte.ive.Zero() && (caso.riva == "2" || caso.riva == "7")));
    const bool rate =
        (caso.riva == "1" || caso.riva == "3" || caso.riva == "6" || caso.riva == "11") &&
        !caso.pagamento.empty() && ambiente.Euro();
    RC_ASSERT(SommaRate(numDoc) == (rate ? totale : Importo()));

    RC_ASSERT(f.Apri(numDoc));
    RC_ASSERT(!f.Modificata());
    RC_ASSERT(f.TotFat() == totale);
    RC_ASSERT(f.Conferma());
    RC_ASSERT(Leggi(numDoc) == scritte);
    RC_ASSERT(SommaRate(numDoc) == (rate ? totale : Importo()));

    RC_ASSERT(f.Apri(numDoc));
    dialoghi.Rispondera("Conferma eliminazione", Risposta::Si);
    RC_ASSERT(f.Elimina());
    RC_ASSERT(Conti() == prima);
    dialoghi.messaggi.clear();
  }
};

TEST_P(FattureProprietaTest, QuadraSempre) {
  EXPECT_TRUE(rc::check("any document accepted", [this] { Prova(*Documenti(ambiente.Euro())); }));
}

INSTANTIATE_TEST_SUITE_P(EuroELire, FattureProprietaTest, ::testing::Values(2024, 2000));

}  // namespace
}  // namespace fenalto::prova
