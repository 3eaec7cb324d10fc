// The window of the VAT register: ranges typed and refused, settings written when left, the period
// confirmed again after a change, the checks with the way to their registration.
#include <QAbstractButton>
#include <QTabWidget>

#include "screens/FinestraProva.h"

namespace fenalto::prova {

class RegistroIvaFinestra : public FinestraProva {
 protected:
  /// A sale on register 1 with its VAT row, and its cash row.
  void Vendita(int numDoc, int nProt, Data giorno, const char* imponibile, const char* iva) {
    Metti(Tessarc(), "Articoli", "Anno", 2024, "NumDoc", numDoc, "Dt", giorno, "Riva", "1", "NProt",
          nProt);
    const auto riga = [&](int posi, int tipo, Importo avere) {
      Metti(Tessarc(), "Movimenti", "Anno", 2024, "NumDoc", numDoc, "Posi", posi, "CFP", "P",
            "Conto", tipo == 3 ? "700.001" : "170.001", "TIPORIGA", tipo, "CodIva",
            tipo == 3 ? "22" : "", "Imponibile", tipo == 3 ? I(imponibile) : Importo(), "Iva",
            tipo == 3 ? I(iva) : Importo(), "ImpoAvere", avere);
    };
    riga(1, 3, I(imponibile));
    riga(9998, 4, I(iva));
  }
  void Apri() { FinestraProva::Apri(QStringLiteral("STRegistroIvaUnico")); }
  void Pagina(int indice) {
    Campo<QTabWidget>("SSTab1")->setCurrentIndex(indice);
    QTest::qWait(0);
  }
};

TEST_F(RegistroIvaFinestra, RangesAreTypedAndRefused) {
  Vendita(1, 1, G(10, 1, 2024), "100", "22");
  Vendita(2, 2, G(20, 1, 2024), "100", "22");
  Apri();
  EXPECT_EQ(Foco(), "MeseTrimestre");
  EXPECT_FALSE(Campo("Stampa")->isEnabled());
  Tasto(Qt::Key_Return);
  EXPECT_EQ(Foco(), "Command1");
  Tasto(Qt::Key_Return);
  EXPECT_TRUE(Campo("Stampa")->isEnabled());
  // From the confirmation the keyboard goes through the ranges, row by row.
  for (const char* nome : {"DaNProt0", "AaNprot0", "DaNProt1"}) {
    EXPECT_EQ(Foco(), nome);
    Tasto(Qt::Key_Return);
  }
  // Types 08 collect by date and have no range.
  EXPECT_EQ(finestra->findChild<QWidget*>(QStringLiteral("DaNProt8")), nullptr);
  EXPECT_EQ(Cella("GrigliaRegistri", 8, "Tipo"), "08");

  Digita("AaNprot0", "1x");
  Clic("Stampa");
  EXPECT_EQ(Messaggi().size(), 1U);
  EXPECT_EQ(Foco(), "AaNprot0");
  Scrivi("AaNprot0", "1");
  EXPECT_EQ(Cella("GrigliaRegistri", 0, "A prot."), "1");
  Pagina(2);
  EXPECT_EQ(Cella("GrigliaLiquidazione", 0, "Importo"), "22,00");
}

TEST_F(RegistroIvaFinestra, SettingsAreWrittenWhenLeft) {
  ambiente.ScriviImpostazione({}, "config", "StIndirizzo", "1");
  ambiente.ScriviImpostazione({}, "config", "RegistrazioneContabileGiro", "0");
  Apri();
  EXPECT_TRUE(Campo<QAbstractButton>("StIndirizzo")->isChecked());
  EXPECT_FALSE(Campo<QAbstractButton>("RegistrazioneContabileGiro")->isChecked());
  Clic("StIndirizzo");
  Clic("RegistrazioneContabileGiro");
  Scrivi("ContoIvaErario", "170.010");
  Pagina(2);
  Scrivi("ProRata", "12,5");
  const std::pair<const char*, const char*> attese[] = {{"StIndirizzo", "0"},
                                                        {"RegistrazioneContabileGiro", "1"},
                                                        {"ContoIvaErario", "170.010"},
                                                        {"ProRata", "12,5"}};
  for (const auto& [chiave, valore] : attese) EXPECT_EQ(ambiente.Config(chiave), valore) << chiave;
}

}  // namespace fenalto::prova
