// What a settlement leaves in the store and in the ledger, and how it is printed.
#include <functional>
#include <map>

#include "core/sql/Criterio.h"
#include "ledger/Stampati.h"
#include "vat/LiquidazioneDiProva.h"

namespace fenalto::prova {
namespace {

using ::testing::IsSupersetOf;

class LiquidazioneMemoriaTest : public DittaDaStampare {
 protected:
  LiquidazioneMemoriaTest() {
    const std::vector<std::pair<const char*, const char*>> impostazioni = {
        {"ContoIvaErario", "170.010"},
        {"ContoInteressiErario", "590.004"},
        {"CausaleErario", "027"},
        {"RegistrazioneContabileErario", "1"},
        {"ChiusIva", "1"},
        {"RegistrazioneContabileGiro", "1"}};
    for (const auto& [chiave, valore] : impostazioni)
      ambiente.ScriviImpostazione({}, "config", chiave, valore);
  }

  /// A definitive run with the giros of the settings, dated the last day of the period.
  vat::Liquidazione Memorizza(const std::string& cod,
                              const std::vector<vat::TotaleRegistro>& registri,
                              const vat::DatiLiquidazione& dati = {}, int anno = 2024) {
    const vat::PeriodoIva periodo = Periodo(cod, anno);
    vat::DatiGiri giri = vat::LeggiDatiGiri(ambiente);
    giri.dt = periodo.UltimoGiorno();
    EXPECT_EQ(vat::MancanoDatiGiri(ambiente, giri, registri, dati.interessi), "");
    const vat::Liquidazione l = vat::CalcolaLiquidazione(periodo, registri, dati);
    log = {};
    Transazione transazione(ambiente.Basi());
    vat::MemorizzaLiquidazione(ambiente, l, registri, giri, 12, log);
    transazione.Conferma();
    return l;
  }

  std::string Chiusura(const std::string& cod, int anno = 2024) {
    Rs r =
        Tessarc().Recordset("select * from ChiusureIva where " + sql::Criterio("Anno", "=", anno) +
                            " and " + sql::Criterio("MESETRIMESTRE", "=", cod));
    if (r.Eof()) return "";
    EXPECT_EQ(r.RecordCount(), 1);
    return r.Fields("CreditoPrec").Importo().Testo() + " " +
           r.Fields("Importo1").Importo().Testo() + " " +
           r.Fields("ImportoInteressi").Importo().Testo() + " " +
           r.Fields("Importo").Importo().Testo();
  }
  std::string Credito() {
    return Tessarc().Singolo("select CreditoIva from CreditoIva where Cod='01'").Importo().Testo();
  }
  std::string Proposta(const std::string& cod, int anno = 2024) {
    const vat::DatiLiquidazione d = vat::ProponiLiquidazione(ambiente, Periodo(cod, anno));
    return d.creditoPrec.Testo() + " " + d.piu[0].descrizione + " " + d.piu[0].importo.Testo();
  }

  /// Debit minus credit of each account.
  std::map<std::string, Importo> Saldi() {
    std::map<std::string, Importo> saldi;
    for (Rs r = Tessarc().Recordset("select * from Movimenti"); !r.Eof(); r.MoveNext()) {
      saldi[r.Fields("Conto").Testo()] +=
          r.Fields("ImpoDare").Importo() - r.Fields("ImpoAvere").Importo();
    }
    return saldi;
  }

  /// Registrations as "dt autoN causale conto dare/avere contro «descrizione»", head and row 1.
  std::vector<std::string> Giri() {
    std::vector<std::string> righe;
    for (Rs r = Tessarc().Recordset("select * from Articoli order by Anno,NumDoc"); !r.Eof();
         r.MoveNext()) {
      Rs m = Tessarc().Recordset(
          "select * from Movimenti where " + sql::Criterio("Anno", "=", r.Fields("Anno")) +
          " and " + sql::Criterio("NumDoc", "=", r.Fields("NumDoc")) + " order by Posi");
      righe.push_back(
          r.Fields("Dt").Data().Testo() + " auto" + r.Fields("CREATOINAUTOMATICO").Testo() + " " +
          m.Fields("Causale").Testo() + " " + m.Fields("Conto").Testo() + " " +
          m.Fields("ImpoDare").Importo().Testo() + "/" + m.Fields("ImpoAvere").Importo().Testo() +
          " " + m.Fields("ContoControp").Testo() + " «" + m.Fields("Descrizione").Testo() +
          "» testa " + r.Fields("Conto").Testo() + "," + r.Fields("ContoA").Testo());
    }
    return righe;
  }

  vat::LogContabile log;
};

std::vector<vat::TotaleRegistro> RegistriPieni() {
  std::vector<vat::TotaleRegistro> registri = {
      Registro("01", 1, I("1000"), I("100"), "170.001"), Registro("02", 1, I("220"), {}, "170.001"),
      Registro("03", -1, I("400"), I("30"), "170.003"),  Registro("04", 1, I("22"), {}, "900.220"),
      Registro("05", -1, I("22"), {}, "900.220"),        Registro("06", 0, I("77"), {}, "170.002"),
      Registro("08", 1, I("15"), I("15"), "170.002")};
  // The model's own register "2": causal 037, revenues 700.010.
  registri[1].intervallo.riva = "2";
  registri[1].ivaScorporata = I("200");
  return registri;
}

// --- Chain of the periods --------------------------------------------------------------------

TEST_F(LiquidazioneMemoriaTest, CreditoEImportoNonVersatoPassanoAlPeriodoDopo) {
  ambiente.ScriviImpostazione({}, "config", "ProRata", "12,5");
  ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabileErario", "0");
  EXPECT_EQ(vat::ProponiLiquidazione(ambiente, Periodo("01")).proRata, I("12.5"));
  EXPECT_EQ(Tessarc().Singolo("select Count(*) from CreditoIva").Intero(), 1);
  EXPECT_EQ(Proposta("01"), "0  0");

  Memorizza("12", {Registro("01", 1, I("25.81"))}, {}, 2023);
  EXPECT_EQ(Chiusura("12", 2023), "0 25.81 0 25.81");
  EXPECT_EQ(Proposta("01"), "0 importo non versato periodo precedente 25.81");
  // A period that is never settled loses nothing.
  EXPECT_EQ(Proposta("02"), "0 importo non versato periodo precedente 25.81");

  Memorizza("01", {Registro("03", -1, I("300"))});
  EXPECT_EQ(Chiusura("01"), "0 -300 0 0");
  EXPECT_EQ(Credito(), "300");
  EXPECT_EQ(Proposta("02"), "300  0");

  // Printed again it starts from what it started from.
  EXPECT_EQ(Proposta("01"), "0 importo non versato periodo precedente 25.81");
  Memorizza("01", {Registro("03", -1, I("250"))});
  EXPECT_EQ(Proposta("02"), "250  0");
  EXPECT_THAT(log.avvisi, IsEmpty());

  vat::DatiLiquidazione dati = vat::ProponiLiquidazione(ambiente, Periodo("02"));
  dati.interessi = I("1");
  Memorizza("02", {Registro("01", 1, I("350"))}, dati);
  EXPECT_EQ(Chiusura("02"), "250 100 1 101");
  EXPECT_EQ(Credito(), "0");
  EXPECT_EQ(Proposta("03"), "0  0");
  EXPECT_EQ(Tessarc().Singolo("select UltPag from ChiusureIva where MESETRIMESTRE='02'").Intero(),
            12);

  // An earlier period stored again says that the later one stands on its old credit.
  Memorizza("01", {Registro("03", -1, I("240"))});
  EXPECT_EQ(Credito(), "0");
  ASSERT_EQ(log.avvisi.size(), 1U);
  EXPECT_THAT(log.avvisi[0], HasSubstr("02/2024"));
  EXPECT_THAT(log.avvisi[0], HasSubstr("240,00"));
}

TEST_F(LiquidazioneMemoriaTest, TrimestreDopoMese) {
  Tessarc().Esegui("update Anni set IvaTrimestrale=True where Anno=2024");
  Memorizza("12", {Registro("09", 1, I("10"))}, {}, 2023);
  EXPECT_EQ(Proposta("T1"), "0 importo non versato periodo precedente 10");
  Memorizza("T4", {Registro("09", 1, I("11"))});
  // From 2024 on nothing is carried past the end of the year.
  EXPECT_EQ(Proposta("01", 2025), "0  0");
}

TEST_F(LiquidazioneMemoriaTest, PeriodiMaiLiquidati) {
  const std::string resto = " importo non versato periodo precedente ";
  vat::DatiLiquidazione dati;
  dati.creditoPrec = I("70");
  Memorizza("03", {Registro("03", -1, I("300"))}, dati);
  EXPECT_EQ(Proposta("07"), "370  0");
  dati.creditoPrec = I("370");
  Memorizza("07", {Registro("01", 1, I("430"))}, dati);
  EXPECT_EQ(Chiusura("07"), "370 60 0 60");
  EXPECT_EQ(Proposta("12"), "0" + resto + "60");
  EXPECT_EQ(Proposta("01", 2025), "0" + resto + "60");
  // Between two that are settled, and before them all.
  EXPECT_EQ(Proposta("05"), "370  0");
  EXPECT_EQ(Proposta("02"), "70  0");
  Memorizza("12", {}, vat::ProponiLiquidazione(ambiente, Periodo("12")));
  EXPECT_EQ(Chiusura("12"), "0 60 0 60");
  EXPECT_EQ(Proposta("01", 2025), "0  0") << "paid, whatever the amount";
}

TEST_F(LiquidazioneMemoriaTest, DalleLireAllEuro) {
  Tessarc().Esegui("delete * from Anni where Anno<2002");
  Tessarc().Inserisci("Anni", {{"Anno", 2000}, {"Euro", false}});
  Tessarc().Inserisci("Anni", {{"Anno", 2001}, {"Euro", true}});
  ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabileErario", "0");
  const auto memorizza = [&](const char* periodo, Importo importo, int anno = 2000) {
    vat::PeriodoIva p = Periodo(periodo, anno);
    p.euro = anno != 2000;
    const auto l = vat::CalcolaLiquidazione(p, {Registro("01", 1, importo)},
                                            vat::ProponiLiquidazione(ambiente, p));
    vat::MemorizzaLiquidazione(ambiente, l, {}, {}, 0, log);
  };
  const auto lire = [&](const char* periodo) {
    vat::PeriodoIva p = Periodo(periodo, 2000);
    p.euro = false;
    const auto d = vat::ProponiLiquidazione(ambiente, p);
    return d.creditoPrec.Testo() + " " + d.piu[0].importo.Testo();
  };
  const std::string resto = " importo non versato periodo precedente ";
  memorizza("11", I("49000"));
  EXPECT_EQ(lire("12"), "0 49000");
  EXPECT_EQ(Proposta("01", 2001), "0" + resto + "25.31");
  memorizza("12", I("-269000"));
  EXPECT_EQ(Credito(), "220000");
  EXPECT_EQ(Proposta("01", 2001), "113.62  0");
  memorizza("01", I("-100"), 2001);
  EXPECT_EQ(Credito(), "213.62");
  // Erased, the credit is back in what the last period settled counts in.
  EXPECT_EQ(vat::CreditoPrimaDi(ambiente, 2001), I("220000"));
  vat::ScriviCreditoIva(ambiente, vat::CreditoPrimaDi(ambiente, 2001));
  Tessarc().Esegui("delete * from ChiusureIva where Anno=2001");
  EXPECT_EQ(Proposta("01", 2001), "113.62  0");
  // Paid, in its own currency.
  memorizza("12", I("51000"));
  EXPECT_EQ(Proposta("01", 2001).substr(0, 3), "0  ");
  EXPECT_TRUE(vat::LeggiPeriodo(ambiente, 2001, "01").euro);
  EXPECT_FALSE(vat::LeggiPeriodo(ambiente, 2000, "01").euro);
}

TEST_F(LiquidazioneMemoriaTest, CreditoDopoEliminazione) {
  vat::ScriviCreditoIva(ambiente, I("70"));
  EXPECT_EQ(vat::CreditoPrimaDi(ambiente, 2024), I("70")) << "nothing to erase";
  for (const char* periodo : {"02", "03"}) {
    Memorizza(periodo, {Registro("03", -1, I("300"))},
              vat::ProponiLiquidazione(ambiente, Periodo(periodo)));
  }
  EXPECT_EQ(Credito(), "670");
  EXPECT_EQ(vat::CreditoPrimaDi(ambiente, 2024), I("70"));
  // What is on hand belongs to a later year.
  Memorizza("01", {Registro("03", -1, I("5"))}, {}, 2025);
  EXPECT_EQ(vat::CreditoPrimaDi(ambiente, 2024), I("5"));
}

TEST_F(LiquidazioneMemoriaTest, RigheConservateSeSiVuole) {
  Memorizza("12", {Registro("07", 1, I("12.2"))});
  const vat::Liquidazione l = Memorizza("12", {Registro("07", 1, I("10"))});
  EXPECT_EQ(InRighe(vat::LiquidazioneMemorizzata(ambiente, 2024, "12")), InRighe(l));
  EXPECT_EQ(
      Tessarc().Singolo("select ScrittaPeriodo from ChiusIva where MeseTrimestre='12'").Testo(),
      "periodo 12");
  ambiente.ScriviImpostazione({}, "config", "ChiusIva", "0");
  Memorizza("12", {Registro("07", 1, I("10"))});
  EXPECT_THAT(vat::LiquidazioneMemorizzata(ambiente, 2024, "12"), IsEmpty());
}

// --- Giros --------------------------------------------------------------------------------------

TEST_F(LiquidazioneMemoriaTest, Giri) {
  vat::DatiLiquidazione dati;
  dati.interessi = I("1");
  const vat::Liquidazione l = Memorizza("T2", RegistriPieni(), dati);
  EXPECT_THAT(
      Giri(),
      ElementsAre("30/06/2024 auto41 027 170.001 900/0 170.010 «IVA fatture emesse T2/2024» testa "
                  "170.001,170.010",
                  "30/06/2024 auto41 027 170.001 220/0 170.010 «IVA corrispettivi T2/2024» testa "
                  "170.001,170.010",
                  "30/06/2024 auto41 027 170.003 0/370 170.010 «IVA fatture ricevute T2/2024» "
                  "testa 170.010,170.003",
                  "30/06/2024 auto41 027 170.002 15/0 170.010 «IVA differita fatture incassate "
                  "T2/2024» testa 170.002,170.010",
                  "30/06/2024 auto41 027 590.004 7.65/0 170.010 «Interessi IVA» testa "
                  "590.004,170.010",
                  "30/06/2024 auto42 037 700.010 200/0 170.001 «SCORPORO IVA CORRISP.T2/2024» "
                  "testa 700.010,170.001"));
  EXPECT_EQ(log.testo,
            "Registrazione Erario c/Iva : Articoli n. 1, 2, 3, 4, 5 EFFETTUATA\n"
            "Registrazione giro IVA Articolo n. 6 EFFETTUATA");
  // What stands on the tax authority's account is what is to be paid.
  EXPECT_EQ(-Saldi()["170.010"], l.daVersare);
  EXPECT_EQ(Tessarc().Singolo("select Importochiusura from RegistriIva where Cod='2'").Importo(),
            I("220"));
}

TEST_F(LiquidazioneMemoriaTest, RistampaLasciaUnaSerieDiGiri) {
  vat::DatiLiquidazione dati;
  dati.interessi = I("1");
  Registra({{"100.010", I("5")}, {"700.010", I("-5")}});
  Memorizza("T1", {Registro("01", 1, I("500"))}, dati);
  Memorizza("T2", RegistriPieni(), dati);
  const std::size_t prima = Giri().size();
  auto registri = RegistriPieni();
  registri[0].codici[0].iva = I("-1000");
  registri[1].ivaScorporata = I("-3");
  dati.interessi = {};
  Memorizza("T2", registri, dati);
  EXPECT_EQ(Giri().size(), prima - 1);  // no interest any more
  EXPECT_THAT(log.testo,
              HasSubstr("Registrazione Erario c/Iva : Articoli n. 4, 5, 6, 7, 8 della stampa "
                        "precedente ELIMINATI\nRegistrazione Erario c/Iva : Articoli n. "));
  EXPECT_THAT(log.testo,
              HasSubstr("Registrazione giro IVA Articoli n. 9 della stampa precedente ELIMINATI"));
  EXPECT_THAT(log.avvisi, IsEmpty());
  // Below zero the sides are swapped.
  EXPECT_THAT(Giri(),
              IsSupersetOf({"30/06/2024 auto41 027 170.001 0/1100 170.010 «IVA fatture emesse "
                            "T2/2024» testa 170.010,170.001",
                            "30/06/2024 auto42 037 700.010 0/3 170.001 «SCORPORO IVA "
                            "CORRISP.T2/2024» testa 170.001,700.010",
                            "31/03/2024 auto41 027 590.004 5/0 170.010 «Interessi IVA» testa "
                            "590.004,170.010"}));
}

TEST_F(LiquidazioneMemoriaTest, GiroDelProRata) {
  ambiente.ScriviImpostazione({}, "config", "ContoProRata", "590.001");
  vat::DatiLiquidazione dati;
  dati.proRata = I("10");
  const std::vector<vat::TotaleRegistro> registri = {
      Registro("01", 1, I("1000")), Registro("03", -1, I("430"), I("30"), "170.003"),
      Registro("04", 1, I("22"), {}, "900.220"), Registro("05", -1, I("11"), {}, "900.220"),
      Registro("08A", -1, I("4"), {}, "170.003")};
  // 400, 11 and 4 are deducted.
  for (int volta = 0; volta < 2; ++volta) {
    const vat::Liquidazione l = Memorizza("03", registri, dati);
    EXPECT_EQ(l.ProRata(), I("41.5"));
    EXPECT_EQ(-Saldi()["170.010"], l.daVersare) << "what reverse charge can't deduct included";
    EXPECT_EQ(Saldi()["590.001"], I("41.5"));
    EXPECT_EQ(Saldi()["900.220"], I("11")) << "moved, and owed by the registers";
  }
  EXPECT_THAT(log.testo, HasSubstr("Registrazione pro-rata : Articolo n. "));
  // Without the giro to the tax authority it comes off the accounts of the registers.
  Tessarc().Esegui("delete * from Articoli");
  Tessarc().Esegui("delete * from Movimenti");
  ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabileErario", "0");
  Memorizza("04", registri, dati);
  EXPECT_EQ(Saldi()["170.003"], I("-40.4"));
  EXPECT_EQ(Saldi()["900.220"], I("-1.1"));
  dati.proRata = {};
  Memorizza("04", registri, dati);
  EXPECT_THAT(Giri(), IsEmpty());
}

TEST_F(LiquidazioneMemoriaTest, ProRataGiaSulGiornale) {
  ambiente.ScriviImpostazione({}, "config", "ContoProRata", "590.001");
  ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabileErario", "0");
  vat::DatiLiquidazione dati;
  dati.proRata = I("10");
  const std::vector<vat::TotaleRegistro> registri = {
      Registro("01", 1, I("1000"), {}, "170.003"), Registro("03", -1, I("400"), {}, "170.003"),
      Registro("04", 1, I("22"), {}, "900.220"), Registro("05", -1, I("11"), {}, "900.220")};
  Registra({{"170.003", I("-600")}, {"900.220", I("-11")}, {"100.010", I("611")}});
  Memorizza("03", registri, dati);
  Tessarc().Esegui("insert into UltimaDataLibro (Anno, dt) values (2024, #03/31/2024#)");
  ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabileErario", "1");
  const vat::Liquidazione l = Memorizza("03", registri, dati);
  EXPECT_EQ(Saldi()["170.003"], Importo());
  EXPECT_EQ(Saldi()["900.220"], Importo());
  EXPECT_EQ(-Saldi()["170.010"], l.daVersare);
  EXPECT_THAT(log.testo, HasSubstr("dal conto 170.003 il pro-rata già registrato, 40,00"));
}

TEST_F(LiquidazioneMemoriaTest, IlReverseChargeDeveTuttaLIva) {
  auto registri = std::vector{Registro("04", 1, I("110")), Registro("05", -1, I("110"))};
  registri[0].codici[0].ivaInd = registri[1].codici[0].ivaInd = I("110");
  EXPECT_EQ(vat::CalcolaLiquidazione(Periodo("03"), registri, {}).daVersare, I("110"));
}

TEST_F(LiquidazioneMemoriaTest, GiriCambiatiOSulGiornaleNonSiContanoDueVolte) {
  for (const char* guasto :
       {"update Movimenti set Descrizione='mia' where NumDoc=2 and Posi=2",
        "update Movimenti set ImpoDare=1 where NumDoc=2 and ImpoDare<>0",
        "delete * from Movimenti where NumDoc=2 and Posi=2",
        "insert into UltimaDataLibro (Anno, dt) values (2024, #06/30/2024#)"}) {
    SCOPED_TRACE(guasto);
    Tessarc().Esegui("delete * from Articoli");
    Tessarc().Esegui("delete * from Movimenti");
    Memorizza("06", RegistriPieni());
    Tessarc().Esegui(guasto);
    const auto giri = Giri();
    auto registri = RegistriPieni();
    registri[0] = Registro("01", 1, I("7"));
    Memorizza("06", registri);
    EXPECT_EQ(Giri(), giri);
    ASSERT_FALSE(log.avvisi.empty());
    EXPECT_THAT(log.avvisi[0], HasSubstr("2 ("));
    EXPECT_EQ(Chiusura("06"), "0 -128 0 0");
  }
}

TEST_F(LiquidazioneMemoriaTest, MancanoDati) {
  struct Caso {
    const char* nome;
    std::function<void(vat::DatiGiri&, std::vector<vat::TotaleRegistro>&)> rompi;
    const char* messaggio;
  };
  const std::string dati = "mancano dati per registrazione contabile ";
  const std::vector<Caso> casi = {
      {"niente", [](auto&, auto&) {}, ""},
      {"data", [](auto& g, auto&) { g.dt = {}; }, "(data di registrazione)"},
      {"anno", [](auto& g, auto&) { g.dt = G(15, 1, 2026); },
       "(anno 2026 tra gli anni della ditta)"},
      {"causale e conto", [](auto& g, auto&) { g.causaleErario = g.contoErario = "ZZ"; },
       "(causale, conto erario c/IVA)"},
      {"conto interessi", [](auto& g, auto&) { g.contoInteressi = ""; }, "(conto interessi)"},
      {"conto di un registro", [](auto&, auto& r) { r[2].conto = ""; }, "(conto del registro 03)"},
      {"conto che non serve", [](auto&, auto& r) { r[3].conto = r[5].conto = ""; }, ""},
      {"erario non voluto",
       [](auto& g, auto&) {
         g.erario = false;
         g.causaleErario = "";
       },
       ""},
      {"nessun giro",
       [](auto& g, auto&) {
         g.erario = g.corrispettivi = false;
         g.dt = {};
       },
       ""}};
  for (const Caso& caso : casi) {
    vat::DatiGiri giri = vat::LeggiDatiGiri(ambiente);
    giri.dt = G(30, 6, 2024);
    auto registri = RegistriPieni();
    caso.rompi(giri, registri);
    EXPECT_EQ(vat::MancanoDatiGiri(ambiente, giri, registri, I("1")),
              *caso.messaggio == 0 ? "" : dati + caso.messaggio)
        << caso.nome;
  }
  vat::DatiGiri proRata;
  proRata.dt = G(30, 6, 2024);
  proRata.contoProRata = "ZZ";
  EXPECT_EQ(vat::MancanoDatiGiri(ambiente, proRata, RegistriPieni(), {}, I("1")),
            dati + "(causale, conto del pro-rata)");
  EXPECT_EQ(vat::MancanoDatiGiri(ambiente, proRata, RegistriPieni()), "");
  Tessarc().Esegui("update RegistriIva set CauGiroCorrisp='' where Cod='2'");
  vat::DatiGiri giri = vat::LeggiDatiGiri(ambiente);
  giri.dt = G(30, 6, 2024);
  EXPECT_EQ(vat::MancanoDatiGiri(ambiente, giri, RegistriPieni()),
            "mancano causale o conti per registraz. giro Iva corrispettivi (registro 2)");
}

// --- Print --------------------------------------------------------------------------------------

TEST_F(LiquidazioneMemoriaTest, Stampa) {
  vat::DatiLiquidazione dati;
  dati.creditoPrec = I("25");
  const vat::Liquidazione l =
      vat::CalcolaLiquidazione(Periodo("12"), {Registro("07", 1, I("1050.2"))}, dati);
  for (const bool grafico : {false, true}) {
    Verso(grafico ? Destinazione::Pdf : Destinazione::Testo);
    fenalto::reports::Stampa stampa(ambiente, uscite);
    ASSERT_TRUE(stampa.Inizio("prova"));
    if (grafico) {
      ASSERT_TRUE(stampa.Modello(ambiente.CartellaDati() / "ini" / "TiGio.mod"));
      stampa.ModoTesto(false);
      stampa.Intestazione([&] { stampa.CampoModello("AnnoPag", "2024/7"); });
      stampa.CampoModello("R_Descrizione", "registro", stampa.YCorrente());
    } else {
      stampa.Riga("registro");
    }
    vat::StampaLiquidazione(ambiente, stampa, l);
    ASSERT_TRUE(stampa.Fine());
    ASSERT_EQ(uscite.pagine.size(), 2U);
    if (!grafico) {
      EXPECT_THAT(uscite.Testo(), HasSubstr("registro\n\nLIQUIDAZIONE IVA  periodo 12\n\n"
                                            "Registro 07 Prova*"));
      EXPECT_THAT(uscite.Testo(), HasSubstr(" 1.050,20\n"));
      EXPECT_THAT(uscite.Testo(), HasSubstr("\n*corrispettivi ventilati: la somma"));
      continue;
    }
    EXPECT_THAT(
        uscite.Scritte(),
        IsSupersetOf({"LIQUIDAZIONE IVA  periodo 12 2024", "2024/7", "Registro 07 Prova*",
                      "1.050,20", "Credito precedente", "-", "25,00", "IVA DA VERSARE", "1.025,20",
                      "*corrispettivi ventilati: la somma importi iva "
                      "mese/trim può"}));
  }
  EXPECT_EQ(vat::MancaModelloLiquidazione(ambiente), "");
}

}  // namespace
}  // namespace fenalto::prova
