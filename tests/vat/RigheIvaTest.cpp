#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "core/values/ImportoDiProva.h"
#include "vat/codes/TipiRegistro.h"
#include "vat/postings/ImpostaImportoRiga.h"
#include "vat/postings/RigheIva.h"

namespace fenalto::vat {
namespace {

using prova::I;

RigaIva Digitata(std::int64_t posi, const char* conto, const char* imponibile, const char* iva,
                 const char* ivaInd = "0", const char* commessa = "") {
  RigaIva riga;
  riga.posi = posi;
  riga.conto = conto;
  riga.codIva = "22";
  riga.imponibile = I(imponibile);
  riga.iva = I(iva);
  riga.ivaInd = I(ivaInd);
  riga.commessa = commessa;
  return riga;
}

DocumentoIva Documento(std::string tipo, bool inverte = false) {
  DocumentoIva d;
  d.anno = 2024;
  d.numDoc = 7;
  d.riva = "R" + tipo;
  d.tipo = std::move(tipo);
  d.descrRiva = "registro";
  d.contoIva = "170.001";
  d.conto = "0001";
  d.descrizione = "FATT.1 Del 15/03/2024";
  d.inverteNoteCredito = inverte;
  return d;
}

std::string Mostra(const RigaIva& r) {
  std::string testo = std::to_string(r.posi) + " " + r.causale + " " + r.cfp + ":" + r.conto + " ";
  testo += r.impoDare.Testo() + "/" + r.impoAvere.Testo();
  return testo + " " + r.cfpControp + ":" + r.contoControp + " t" +
         std::to_string(static_cast<int>(r.tipoRiga));
}

std::vector<std::string> Mostra(const std::vector<RigaIva>& righe) {
  std::vector<std::string> testi;
  for (const RigaIva& riga : righe) testi.push_back(Mostra(riga));
  return testi;
}

struct Caso {
  const char* tipo;
  bool inverte;
  std::vector<RigaIva> righe;
  std::vector<std::string> attese;
};

TEST(CreaRigheIvaCli, Registrazioni) {
  const auto una = [](const char* imponibile, const char* iva, const char* ind = "0") {
    return std::vector{Digitata(1, "700.001", imponibile, iva, ind)};
  };
  const std::vector<Caso> casi = {
      Caso("01", false, una("100", "22"),
           {"1 R011 P:700.001 0/100 C:0001 t3", "9998 R012 P:170.001 0/22 C:0001 t4",
            "9999 R013 C:0001 122/0 P:700.001 t5"}),
      // Non-deductible VAT stays in the cost.
      Caso("03", false, una("100", "13.2", "8.8"),
           {"1 R031 P:700.001 108.8/0 F:0001 t3", "9998 R032 P:170.001 13.2/0 F:0001 t4",
            "9999 R033 F:0001 0/122 P:700.001 t5"}),
      // A credit note: negative where it stands, or on the other side without its sign.
      Caso("03", false, una("-100", "-22"),
           {"1 R031 P:700.001 -100/0 F:0001 t3", "9998 R032 P:170.001 -22/0 F:0001 t4",
            "9999 R033 F:0001 0/-122 P:700.001 t5"}),
      Caso("03", true, una("-100", "-22"),
           {"1 R031 P:700.001 0/100 F:0001 t3", "9998 R032 P:170.001 0/22 F:0001 t4",
            "9999 R033 F:0001 122/0 P:700.001 t5"}),
      // The two halves of a reverse charge: a supplier on both, sides across.
      Caso("04", false, una("100", "22"),
           {"1 R041 P:700.001 0/100 F:0001 t3", "9998 R042 P:170.001 0/22 F:0001 t4",
            "9999 R043 F:0001 122/0 P:700.001 t5"}),
      Caso("05", false, una("100", "22"),
           {"1 R051 P:700.001 100/0 F:0001 t3", "9998 R052 P:170.001 22/0 F:0001 t4",
            "9999 R053 F:0001 0/122 P:700.001 t5"}),
      // Receipts without VAT have no VAT row; an exempt invoice has.
      Caso("07", false, una("50", "0"),
           {"1 R071 P:700.001 0/50 P:0001 t3", "9999 R073 P:0001 50/0 P:700.001 t5"}),
      Caso("02", false, una("50", "11"),
           {"1 R021 P:700.001 0/50 P:0001 t3", "9998 R022 P:170.001 0/11 P:0001 t4",
            "9999 R023 P:0001 61/0 P:700.001 t5"}),
      Caso("06", false, una("50", "0"),
           {"1 R061 P:700.001 0/50 C:0001 t3", "9998 R062 P:170.001 0/0 C:0001 t4",
            "9999 R063 C:0001 50/0 P:700.001 t5"}),
      // Several rows, one of them negative: the first one's account faces the party.
      Caso("11", true, {Digitata(3, "600.001", "100", "22"), Digitata(0, "600.002", "-30", "-6.6")},
           {"3 R111 P:600.001 0/100 F:0001 t3", "4 R111 P:600.002 30/0 F:0001 t3",
            "9998 R112 P:170.001 0/15.4 F:0001 t4", "9999 R113 F:0001 85.4/0 P:600.001 t5"}),
  };
  for (const Caso& caso : casi) {
    SCOPED_TRACE(std::string(caso.tipo) + (caso.inverte ? " inverte" : ""));
    const auto complete = CreaRigheIvaCli(Documento(caso.tipo, caso.inverte), caso.righe);
    ASSERT_TRUE(complete.Riuscito());
    EXPECT_THAT(Mostra(complete.Valore().righe), ::testing::ElementsAreArray(caso.attese));
    EXPECT_EQ(complete.Valore().avviso, "");
  }
}

TEST(CreaRigheIvaCli, RifaLeRigheCheGiaCiSono) {
  const DocumentoIva documento = Documento("01");
  const std::vector<RigaIva> digitate = {Digitata(1, "700.001", "100", "22"),
                                         Digitata(2, "700.002", "10", "2.2")};
  const auto prima = CreaRigheIvaCli(documento, digitate);
  ASSERT_TRUE(prima.Riuscito());
  const auto seconda = CreaRigheIvaCli(documento, prima.Valore().righe);
  ASSERT_TRUE(seconda.Riuscito());
  EXPECT_EQ(prima.Valore().righe, seconda.Valore().righe);
  const RigaIva& iva = prima.Valore().righe[2];
  EXPECT_EQ(iva.descrizione, "registro");
  EXPECT_EQ(iva.codIva, "");
  EXPECT_TRUE(iva.iva.Zero());
  EXPECT_EQ(prima.Valore().righe[3].descrizione, "FATT.1 Del 15/03/2024");
}

TEST(CreaRigheIvaCli, Commesse) {
  struct CasoCommesse {
    std::vector<const char*> commesse;
    bool vecchio;
    const char* attesa;
    bool avvisa;
  };
  for (const CasoCommesse& caso : std::vector<CasoCommesse>{{{"", ""}, false, "", false},
                                                            {{"5", "0", "5"}, false, "5", false},
                                                            {{"5", "8", ""}, false, "8", true},
                                                            {{"5", "8", "5"}, false, "5", true},
                                                            {{"5", "8"}, true, "", false}}) {
    std::vector<RigaIva> righe;
    for (const char* commessa : caso.commesse)
      righe.push_back(Digitata(0, "700.001", "1", "0", "0", commessa));
    DocumentoIva documento = Documento("01");
    documento.commesseVecchioSistema = caso.vecchio;
    const auto complete = CreaRigheIvaCli(documento, righe);
    ASSERT_TRUE(complete.Riuscito());
    EXPECT_EQ(complete.Valore().righe.back().commessa, caso.attesa);
    EXPECT_EQ(!complete.Valore().avviso.empty(), caso.avvisa);
    EXPECT_EQ(complete.Valore().righe.front().commessa, caso.commesse.front());
  }
}

TEST(CreaRigheIvaCli, TipiSuCuiNonSiRegistra) {
  for (const char* tipo : {"08", "08A", "10", ""}) {
    const auto complete = CreaRigheIvaCli(Documento(tipo), {Digitata(1, "700.001", "1", "0")});
    ASSERT_FALSE(complete.Riuscito());
    EXPECT_EQ(complete.Errore().messaggio,
              std::string("tipo registro iva ") + tipo + " non previsto su CreaRigheIvaCli");
    Importo dare = I("3");
    Importo avere = I("4");
    ImpostaImportoRiga(GenereRigaIva::Imp, I("9"), tipo, true, dare, avere);
    EXPECT_EQ(dare, I("3"));
    EXPECT_EQ(avere, I("4"));
  }
}

Importo Sbilancio(const std::vector<RigaIva>& righe) {
  Importo sbilancio;
  for (const RigaIva& riga : righe) sbilancio += riga.impoDare - riga.impoAvere;
  return sbilancio;
}

RC_GTEST_PROP(CreaRigheIvaCli, PareggiaSempre, ()) {
  const auto tipi = TipiRegistro();
  const std::size_t quale = *rc::gen::inRange<std::size_t>(0, tipi.size());
  RC_PRE(!tipi[quale].cfp.empty());
  const auto importo =
      rc::gen::map(rc::gen::inRange<std::int64_t>(-1'000'000'000'000, 1'000'000'000'000),
                   &Importo::DaDecimillesimi);
  const auto riga = rc::gen::map(rc::gen::tuple(importo, importo, importo), [](const auto& valori) {
    RigaIva r;
    std::tie(r.imponibile, r.iva, r.ivaInd) = valori;
    return r;
  });
  const auto righe = *rc::gen::container<std::vector<RigaIva>>(riga);
  const bool inverte = *rc::gen::arbitrary<bool>();
  const auto complete = CreaRigheIvaCli(Documento(std::string(tipi[quale].tipo), inverte), righe);
  RC_ASSERT(complete.Riuscito());
  const RigheComplete& c = complete.Valore();
  RC_ASSERT(Sbilancio(c.righe).Zero());
  for (const RigaIva& r : c.righe) {
    RC_ASSERT(r.impoDare.Zero() || r.impoAvere.Zero());
    if (inverte) {
      RC_ASSERT(!r.impoDare.Negativo() && !r.impoAvere.Negativo());
    }
  }
  // The party owes, or is owed, the whole document.
  const RigaIva& parte = c.righe.back();
  const Importo sulConto = parte.impoDare - parte.impoAvere;
  const bool vendita = tipi[quale].latoImposta == LatoImporto::Avere;
  RC_ASSERT(sulConto == (vendita ? c.Totale() : -c.Totale()));
}

}  // namespace
}  // namespace fenalto::vat
