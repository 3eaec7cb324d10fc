// The list from which a record is chosen, over a source of numbers: pages, stretches, sort, keys.
#include "screens/common/lists/ElencoCercato.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include "core/values/Testo.h"

namespace fenalto::screens {
namespace {

/// The numbers from `quanti` down to 1 that hold the text, beside "pari" or "dispari"; with "*" in
/// the text they are gone through by stretches.
class Numeri : public archives::FonteElenco {
 public:
  void Comincia(const archives::FiltroElenco& filtro) override {
    ++letture;
    cercato_ = filtro;
    sotto_ = quanti + 1;
  }
  Righe Avanti() override {
    Righe righe;
    for (int passi = 0; sotto_ > 1 && righe.size() < 200 && (!ATratti() || passi < 100); ++passi) {
      const std::string testo = std::to_string(--sotto_);
      const std::string parita = sotto_ % 2 == 0 ? "pari" : "dispari";
      if (!ATratti() && testo.find(cercato_.testo) == std::string::npos) continue;
      if (cercato_.colonne.size() > 1 && !parita.starts_with(cercato_.colonne[1])) continue;
      righe.push_back({static_cast<std::int64_t>(sotto_), parita});
    }
    return righe;
  }
  [[nodiscard]] bool Finita() const override { return sotto_ <= 1; }
  [[nodiscard]] bool ATratti() const override { return cercato_.testo == "*"; }
  [[nodiscard]] std::int64_t Punto() const override { return sotto_; }

  int quanti = 1'000;
  int letture = 0;

 private:
  archives::FiltroElenco cercato_;
  int sotto_ = 0;
};

class ElencoCercatoTest : public ::testing::Test {
 protected:
  void Crea(bool filtri = false) {
    FormaElenco forma{.finestra = QStringLiteral("Prova"),
                      .griglia = QStringLiteral("Griglia"),
                      .cerca = QStringLiteral("Cerca"),
                      .stato = QStringLiteral("Stato"),
                      .segnaposto = {},
                      .colonne = {{QStringLiteral("Numero"), Tipo::Intero, 80},
                                  {QStringLiteral("Parità"), Tipo::Testo, 80}},
                      .testo = {},
                      .ordinabile = !filtri};
    forma.testo = [](const FormaElenco::Letti& letti) {
      return QStringLiteral("%1%2%3")
          .arg(letti.righe)
          .arg(letti.finito ? QLatin1String("") : QLatin1String("+"),
               letti.troppi ? QLatin1String("!") : QLatin1String(""));
    };
    if (filtri) forma.filtri = {"Numero", "Parita"};
    elenco = std::make_unique<ElencoCercato>(std::move(forma), numeri);
    elenco->show();
    elenco->Ricarica();
  }
  [[nodiscard]] int Righe() const { return elenco->Griglia().Modello().rowCount(); }
  [[nodiscard]] QString Stato() const {
    return elenco->findChild<QLabel*>(QStringLiteral("Stato"))->text();
  }
  [[nodiscard]] std::int64_t Primo() const {
    return elenco->Griglia().Modello().Riga(0)[0].Intero();
  }

  Numeri numeri;
  std::unique_ptr<ElencoCercato> elenco;
};

TEST_F(ElencoCercatoTest, APagineFinoInFondo) {
  Crea();
  EXPECT_EQ(Righe(), 200);
  EXPECT_EQ(Stato(), QStringLiteral("200+"));
  elenco->Griglia().Modello().fetchMore({});
  EXPECT_EQ(Stato(), QStringLiteral("400+"));
  // Sorted, they are all there, and a new search is again in the source's order.
  emit elenco->Griglia().horizontalHeader()->sectionClicked(0);
  EXPECT_EQ(Righe(), 1'000);
  elenco->Ricarica();
  EXPECT_EQ(Righe(), 200);
  EXPECT_EQ(Primo(), 1'000);
}

TEST_F(ElencoCercatoTest, LaRicercaAspettaITastiGiaBattuti) {
  Crea();
  const int prima = numeri.letture;
  elenco->Cerca().setText(QStringLiteral("9"));
  elenco->Cerca().setText(QStringLiteral("99"));
  elenco->Cerca().setText(QStringLiteral("999"));
  EXPECT_EQ(numeri.letture, prima);
  QTRY_COMPARE(Righe(), 1);
  EXPECT_EQ(numeri.letture, prima + 1);
  const QSignalSpy scelto(elenco.get(), &ElencoCercato::Scelto);
  EXPECT_FALSE(elenco->InvioInRicerca(&elenco->Griglia()));
  EXPECT_TRUE(elenco->InvioInRicerca(&elenco->Cerca()));
  ASSERT_EQ(scelto.size(), 1);
  EXPECT_EQ(scelto[0][0].toString(), QStringLiteral("999"));
}

TEST_F(ElencoCercatoTest, ATrattiSiFermaQuandoBasta) {
  numeri.quanti = 5'000;
  Crea();
  elenco->Cerca().setText(QStringLiteral("*"));
  QTRY_COMPARE(Stato(), QStringLiteral("2000+!"));
  EXPECT_EQ(Righe(), 2'000);
}

TEST_F(ElencoCercatoTest, FiltriERitornoSulPosto) {
  Crea(true);
  elenco->findChild<QLineEdit*>(QStringLiteral("FiltroParita"))->setText(QStringLiteral("disp"));
  QTRY_COMPARE(Primo(), 999);
  elenco->Griglia().Modello().fetchMore({});
  elenco->Indica(QStringLiteral("301"));
  elenco->Rileggi();
  EXPECT_GE(Righe(), 400);  // what was read is read again; the view may ask for more
  EXPECT_EQ(elenco->Griglia().Modello().Riga(elenco->Griglia().RigaCorrente())[0].Intero(), 301);
  elenco->Svuota();
  elenco->Ricarica();
  EXPECT_EQ(Primo(), 1'000);
}

}  // namespace
}  // namespace fenalto::screens
