// The choice of company offers to make one: typed, refused in the dialog, chosen.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

#include "screens/FinestraProva.h"
#include "screens/main/DialogoDitta.h"
#include "screens/main/DialogoNuovaDitta.h"

namespace fenalto::prova {

class NuovaDittaTest : public FinestraProva {};

TEST_F(NuovaDittaTest, SiCreaDallaSceltaDellaDitta) {
  const std::vector<DittaTrovata> ditte = {{"Demo", true}};
  screens::DialogoDitta scelta(
      ditte, [](const std::string&, std::string&) { return std::vector<int>{2025}; }, nullptr);
  QStringList avvisi;
  QTimer::singleShot(0, [&] {
    auto* nuova = scelta.findChild<screens::DialogoNuovaDitta*>();
    ASSERT_NE(nuova, nullptr);
    for (const auto* nome : {"", "demo", "a/b", "con", "Impianti Rossi"}) {
      nuova->findChild<QLineEdit*>(QStringLiteral("Ditta"))->setText(QString::fromUtf8(nome));
      nuova->findChild<QSpinBox*>(QStringLiteral("Anno"))->setValue(2024);
      nuova->findChild<QCheckBox*>(QStringLiteral("IvaTrimestrale"))->setChecked(true);
      nuova->accept();
      avvisi << nuova->findChild<QLabel*>(QStringLiteral("Avviso"))->text();
    }
  });
  scelta.findChild<QPushButton*>(QStringLiteral("NuovaDitta"))->click();
  ASSERT_EQ(avvisi.size(), 5);
  EXPECT_TRUE(avvisi[0].contains(QStringLiteral("semplice nome ditta")));
  EXPECT_EQ(avvisi[1], QStringLiteral("La ditta demo esiste già."));
  EXPECT_TRUE(avvisi[2].contains(QStringLiteral("semplice nome ditta")));
  EXPECT_TRUE(avvisi[3].contains(QStringLiteral("riservato")));
  EXPECT_EQ(scelta.result(), QDialog::Accepted);
  EXPECT_TRUE(scelta.Scelta().nuova);
  EXPECT_EQ(scelta.Scelta().ditta, "Impianti Rossi");
  EXPECT_EQ(scelta.Scelta().anno, 2024);
  EXPECT_TRUE(scelta.Scelta().ivaTrimestrale);
}

}  // namespace fenalto::prova
