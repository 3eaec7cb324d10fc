// What holds in every window: captions that people can read, a letter for every button.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableView>
#include <QTreeView>

#include "screens/FinestraProva.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"
#include "screens/main/Applicazione.h"

namespace fenalto::prova {

class FinestreTest : public FinestraProva {
 protected:
  /// Opens each window of the program in turn and shows its pages one after another, with the frame
  /// of an open row.
  void PerOgniPagina(const std::function<void(const QString& dove)>& guarda) {
    int aperte = 0;
    for (const auto& [nome, costruttore] : screens::Applicazione::Costruttori()) {
      const QString funzione = nome.section(QLatin1Char(':'), 0, 0);
      const int scheda =
          nome.contains(QLatin1Char(':')) ? nome.section(QLatin1Char(':'), 1).toInt() : -1;
      finestra = principale->ApriFunzione(funzione, scheda);
      if (finestra == nullptr) continue;
      ++aperte;
      if (auto* riga = finestra->findChild<QWidget*>(QStringLiteral("FrameRiga"))) riga->show();
      guarda(nome);
      for (auto* schede : finestra->findChildren<QTabWidget*>()) {
        const int prima = schede->currentIndex();
        for (int i = 0; i < schede->count(); ++i) {
          schede->setCurrentIndex(i);
          guarda(QStringLiteral("%1, %2 %3").arg(nome, schede->objectName()).arg(i));
        }
        schede->setCurrentIndex(prima);
      }
      principale->ChiudiTutto();
      dialoghi.messaggi.clear();
    }
    constexpr int kAlmeno = 40;
    EXPECT_GE(aperte, kAlmeno);
  }
};

TEST_F(FinestreTest, OgniColonnaHaUnaDidascaliaPerLePersone) {
  static const QRegularExpression kDaQuery(QStringLiteral("_|[a-zà-ù][A-Z]|^[a-zà-ù]|^\\s*$"));
  PerOgniPagina([&](const QString& dove) {
    for (auto* vista : finestra->findChildren<QAbstractItemView*>()) {
      const QHeaderView* testata = nullptr;
      if (auto* griglia = qobject_cast<QTableView*>(vista)) testata = griglia->horizontalHeader();
      if (auto* albero = qobject_cast<QTreeView*>(vista)) testata = albero->header();
      if (testata == nullptr || testata->isHidden()) continue;
      QStringList didascalie;
      for (int i = 0; i < testata->count(); ++i) {
        const QString didascalia =
            vista->model()->headerData(i, Qt::Horizontal).toString().simplified();
        EXPECT_FALSE(didascalia.contains(kDaQuery))
            << dove.toStdString() << ": " << didascalia.toStdString();
        EXPECT_FALSE(didascalie.contains(didascalia))
            << dove.toStdString() << ": " << didascalia.toStdString();
        didascalie << didascalia;
        if (qobject_cast<screens::Griglia*>(vista) != nullptr) {
          EXPECT_FALSE(vista->model()
                           ->headerData(i, Qt::Horizontal, screens::kRuoloChiave)
                           .toString()
                           .isEmpty())
              << dove.toStdString();
        }
      }
    }
  });
}

TEST_F(FinestreTest, OgniPulsanteHaUnaLetteraSua) {
  QSet<QString> delMenu;
  for (const auto* azione : principale->menuBar()->actions()) {
    delMenu << QKeySequence::mnemonic(azione->text()).toString();
  }
  PerOgniPagina([&](const QString& dove) {
    QHash<QString, QString> diChi;
    const auto prende = [&](const QString& lettera, const QString& chi) {
      if (lettera.isEmpty()) return;
      EXPECT_FALSE(lettera.back().isDigit()) << dove.toStdString() << ": " << chi.toStdString();
      EXPECT_FALSE(delMenu.contains(lettera) || diChi.contains(lettera))
          << dove.toStdString() << ": " << lettera.toStdString() << " di " << chi.toStdString()
          << " e di " << diChi.value(lettera, QStringLiteral("un menu")).toStdString();
      diChi[lettera] = chi;
    };
    for (const auto* pulsante : finestra->findChildren<QAbstractButton*>()) {
      if (!pulsante->isVisible() || pulsante->text().isEmpty()) continue;
      const QString lettera = pulsante->shortcut().toString();
      if (qobject_cast<const QPushButton*>(pulsante) != nullptr && pulsante->isEnabled() &&
          !screens::HaTasto(*pulsante)) {
        EXPECT_FALSE(lettera.isEmpty())
            << dove.toStdString() << ": " << pulsante->objectName().toStdString();
      }
      prende(lettera, pulsante->objectName());
    }
    for (const auto* schede : finestra->findChildren<QTabBar*>()) {
      for (int i = 0; i < schede->count() && schede->isVisible(); ++i) {
        prende(QKeySequence::mnemonic(schede->tabText(i)).toString(), schede->tabText(i));
      }
    }
    for (const auto* etichetta : finestra->findChildren<QLabel*>()) {
      if (!etichetta->isVisible() || etichetta->buddy() == nullptr) continue;
      prende(QKeySequence::mnemonic(etichetta->text()).toString(), etichetta->text());
    }
  });
}

}  // namespace fenalto::prova
