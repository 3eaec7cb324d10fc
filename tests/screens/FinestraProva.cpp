#include "screens/FinestraProva.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTabWidget>

#include "screens/main/Applicazione.h"

namespace fenalto::prova {
namespace {

/// The toolkit, once for the program; what windows remember goes to a folder of the tests.
class Qt6 : public ::testing::Environment {
 public:
  void SetUp() override {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    applicazione_ = std::make_unique<QApplication>(argomenti_, argomento_);
    screens::Applicazione::Prepara(FENALTO_DATA);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       QString::fromStdString(memoria_.Percorso().string()));
  }
  void TearDown() override { applicazione_.reset(); }

 private:
  int argomenti_ = 1;
  char nome_[8] = "fenalto";
  char* argomento_[2] = {nome_, nullptr};
  CartellaProva memoria_;
  std::unique_ptr<QApplication> applicazione_;
};

const auto* const kQt = ::testing::AddGlobalTestEnvironment(new Qt6);

}  // namespace

FinestraProva::FinestraProva() : principale(Principale(ambiente)) {
  static_cast<void>(kQt);
  QSettings().clear();
}

FinestraProva::~FinestraProva() {
  principale.reset();
}

std::unique_ptr<screens::FinestraPrincipale> FinestraProva::Principale(Ambiente& ambiente,
                                                                       QSize misura) {
  auto nuova =
      std::make_unique<screens::FinestraPrincipale>(ambiente, screens::Applicazione::Costruttori());
  nuova->MostraSessione();
  if (misura.isValid()) nuova->resize(misura);
  nuova->show();
  nuova->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(nuova.get()));
  return nuova;
}

void FinestraProva::Apri(const QString& nome) {
  principale->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(principale.get()));
  finestra = principale->ApriFunzione(nome);
  ASSERT_NE(finestra, nullptr);
  QTest::qWait(0);
}

void FinestraProva::Digita(const char* nome, const char* testo) {
  auto* campo = Campo(nome);
  ASSERT_TRUE(campo->isVisible() && campo->isEnabled()) << nome;
  campo->setFocus();
  if (auto* riga = qobject_cast<QLineEdit*>(campo)) riga->selectAll();
  if (auto* elenco = qobject_cast<QComboBox*>(campo)) elenco->lineEdit()->selectAll();
  QTest::keyClicks(campo, QString::fromLatin1(testo));
}

void FinestraProva::Scrivi(const char* nome, const char* testo) {
  Digita(nome, testo);
  Tasto(Qt::Key_Tab);
}

void FinestraProva::Tasto(Qt::Key tasto, Qt::KeyboardModifiers modificatori) {
  ASSERT_NE(QApplication::focusWidget(), nullptr);
  QTest::keyClick(QApplication::focusWidget(), tasto, modificatori);
  QTest::qWait(0);
}

void FinestraProva::Clic(const char* nome) {
  auto* campo = Campo(nome);
  ASSERT_TRUE(campo->isVisible() && campo->isEnabled()) << nome;
  // Within the text, which is where a check box takes a click.
  constexpr int kDentro = 8;
  QTest::mouseClick(campo, Qt::LeftButton, Qt::NoModifier, QPoint(kDentro, campo->height() / 2));
  QTest::qWait(0);
}

void FinestraProva::DoppioClic(const char* griglia, int riga) {
  auto* elenco = Campo<QAbstractItemView>(griglia);
  const auto punto = elenco->visualRect(elenco->model()->index(riga, 0)).center();
  QTest::mouseClick(elenco->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
  QTest::mouseDClick(elenco->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
  QTest::qWait(0);
}

QString FinestraProva::Testo(const char* nome) {
  auto* campo = Campo(nome);
  if (auto* riga = qobject_cast<QLineEdit*>(campo)) return riga->text();
  if (auto* elenco = qobject_cast<QComboBox*>(campo)) return elenco->currentText();
  if (auto* etichetta = qobject_cast<QLabel*>(campo)) return etichetta->text();
  ADD_FAILURE() << nome << " non ha un testo";
  return {};
}

QString FinestraProva::Cella(const char* griglia, int riga, const char* colonna) {
  const auto* modello = Campo<QAbstractItemView>(griglia)->model();
  for (int i = 0; i < modello->columnCount(); ++i)
    for (const int ruolo : {static_cast<int>(Qt::DisplayRole), screens::kRuoloChiave})
      if (modello->headerData(i, Qt::Horizontal, ruolo).toString() == QString::fromLatin1(colonna))
        return modello->index(riga, i).data().toString();
  ADD_FAILURE() << griglia << " non ha la colonna " << colonna;
  return {};
}

int FinestraProva::Righe(const char* griglia) {
  return Campo<QAbstractItemView>(griglia)->model()->rowCount();
}

int FinestraProva::Pagina() {
  return Campo<QTabWidget>("SSTab1")->currentIndex();
}

QString FinestraProva::Foco() {
  auto* foco = QApplication::focusWidget();
  return foco != nullptr ? foco->objectName() : QString();
}

}  // namespace fenalto::prova
