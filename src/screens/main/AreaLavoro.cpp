#include "screens/main/AreaLavoro.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/common/look/Icone.h"
#include "screens/common/windows/Scorrevole.h"
#include "screens/main/Sfondo.h"

namespace fenalto::screens {
namespace {

constexpr const char* kLibera = "libera";  ///< property of a sub-window's frame

/// A remembered place, brought inside the area that there is now.
QRect Dentro(const QRect& posto, const QRect& area) {
  QRect dentro(posto.topLeft(), posto.size().boundedTo(area.size()));
  dentro.moveLeft(std::clamp(dentro.left(), 0, area.width() - dentro.width()));
  dentro.moveTop(std::clamp(dentro.top(), 0, area.height() - dentro.height()));
  return dentro;
}

FinestraFunzione* FinestraIn(const QMdiSubWindow* cornice) {
  const auto* scorrevole = qobject_cast<Scorrevole*>(cornice->widget());
  return scorrevole != nullptr ? &scorrevole->Finestra() : nullptr;
}

bool EraLibera(const QMdiSubWindow& cornice) {
  return cornice.property(kLibera).toBool();
}

QString Chiave(const FinestraFunzione& finestra) {
  return QStringLiteral("finestre/%1").arg(finestra.Nome());
}

/// Tabs as wide as their titles while there is room for all; then those longer than a title of
/// middle length end with an ellipsis.
class Linguette : public QTabBar {
 public:
  using QTabBar::QTabBar;

 protected:
  [[nodiscard]] QSize tabSizeHint(int indice) const override {
    constexpr int kCaratteri = 34;
    const QSize sua = QTabBar::tabSizeHint(indice);
    const int parte = width() / std::max(1, count());
    const int massima = std::max(parte, fontMetrics().averageCharWidth() * kCaratteri);
    return {std::min(sua.width(), massima), sua.height()};
  }
};

}  // namespace

AreaLavoro::AreaLavoro(QWidget* genitore)
    : QWidget(genitore),
      linguette_(new Linguette),
      libera_(new QToolButton),
      barra_(new QWidget),
      area_(new AreaFinestre) {
  area_->setObjectName(QStringLiteral("Area"));
  area_->setFrameShape(QFrame::NoFrame);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  area_->viewport()->installEventFilter(this);
  CreaLinguette();
  CreaTasti();
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->setSpacing(0);
  colonna->addWidget(barra_);
  colonna->addWidget(area_, 1);
  barra_->hide();
  connect(area_, &QMdiArea::subWindowActivated, this, &AreaLavoro::Attivata);
}

void AreaLavoro::CreaLinguette() {
  linguette_->setObjectName(QStringLiteral("Linguette"));
  linguette_->setAccessibleName(tr("Finestre aperte"));
  linguette_->setDocumentMode(true);
  linguette_->setDrawBase(false);
  linguette_->setExpanding(false);
  linguette_->setMovable(true);
  linguette_->setTabsClosable(true);
  linguette_->setUsesScrollButtons(true);
  linguette_->setElideMode(Qt::ElideRight);
  linguette_->setFocusPolicy(Qt::NoFocus);
  linguette_->setContextMenuPolicy(Qt::CustomContextMenu);
  libera_->setObjectName(QStringLiteral("FinestraLibera"));
  libera_->setText(tr("Libera"));
  MettiIcona(*libera_);
  libera_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  libera_->setAutoRaise(true);
  libera_->setCheckable(true);
  libera_->setFocusPolicy(Qt::NoFocus);
  libera_->setToolTip(
      tr("Stacca la finestra dalla sua linguetta, per vederne due insieme; o la rimette a posto"));
  auto* riga = new QHBoxLayout(barra_);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->setSpacing(0);
  riga->addWidget(linguette_, 1);
  riga->addWidget(libera_);
  connect(linguette_, &QTabBar::currentChanged, this, [this](int indice) {
    if (auto* cornice = Cornice(indice); cornice != nullptr && !seguendo_) {
      PortaAvanti(*FinestraIn(cornice));
    }
  });
  connect(linguette_, &QTabBar::tabCloseRequested, this, [this](int indice) {
    if (auto* cornice = Cornice(indice)) cornice->close();
  });
  connect(linguette_, &QTabBar::customContextMenuRequested, this, &AreaLavoro::MenuLinguetta);
  connect(libera_, &QToolButton::clicked, this, [this](bool libera) {
    if (auto* cornice = Cornice(linguette_->currentIndex())) Libera(*FinestraIn(cornice), libera);
  });
}

void AreaLavoro::CreaTasti() {
  for (const bool avanti : {true, false}) {
    auto* gira = new QAction(this);
    gira->setShortcut(avanti ? QKeySequence(Qt::CTRL | Qt::Key_F6)
                             : QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F6));
    connect(gira, &QAction::triggered, this, [this, avanti] { Gira(avanti); });
    addAction(gira);
  }
}

QWidget* AreaLavoro::viewport() const {
  return area_->viewport();
}

// --- Windows ------------------------------------------------------------------------------------

QList<FinestraFunzione*> AreaLavoro::Aperte() const {
  QList<FinestraFunzione*> finestre;
  for (auto* cornice : area_->subWindowList(QMdiArea::ActivationHistoryOrder)) {
    if (auto* finestra = FinestraIn(cornice)) finestre << finestra;
  }
  return finestre;
}

QList<FinestraFunzione*> AreaLavoro::InOrdine() const {
  QList<FinestraFunzione*> finestre;
  for (int i = 0; i < linguette_->count(); ++i) {
    if (const auto* cornice = Cornice(i)) finestre << FinestraIn(cornice);
  }
  return finestre;
}

void AreaLavoro::Metti(FinestraFunzione& finestra) {
  auto* cornice = area_->addSubWindow(new Scorrevole(finestra));
  cornice->setObjectName(QStringLiteral("Cornice") + finestra.Nome());
  cornice->setAttribute(Qt::WA_DeleteOnClose);
  cornice->setWindowIcon(windowIcon());
  cornice->installEventFilter(this);
  seguendo_ = true;
  const int indice = linguette_->addTab(QString());
  linguette_->setTabData(indice, QVariant::fromValue<QObject*>(cornice));
  seguendo_ = false;
  MostraTitolo(*cornice);
  connect(cornice, &QWidget::windowTitleChanged, this, [this, cornice] { MostraTitolo(*cornice); });
  connect(cornice, &QMdiSubWindow::windowStateChanged, this, [this, cornice] {
    // Its frame's button for the full size puts it back into the tab.
    if (!cornice->isMaximized()) return;
    QMetaObject::invokeMethod(
        cornice,
        [this, cornice] {
          cornice->showNormal();
          if (auto* sua = FinestraIn(cornice)) Libera(*sua, false);
        },
        Qt::QueuedConnection);
  });
  barra_->show();
  Sistema(*cornice, QSettings().value(Chiave(finestra) + QStringLiteral("/libera")).toBool());
  cornice->show();
  PortaAvanti(finestra);
  // Its fields may have taken the focus, and so activated it, before it had a tab.
  Attivata(cornice);
}

void AreaLavoro::Togli(FinestraFunzione& finestra) {
  auto* cornice = finestra.Cornice();
  area_->removeSubWindow(cornice);
  Riallinea();
  delete cornice;
}

void AreaLavoro::PortaAvanti(FinestraFunzione& finestra) {
  auto* cornice = finestra.Cornice();
  area_->setActiveSubWindow(cornice);
  cornice->raise();
}

bool AreaLavoro::Libera(const FinestraFunzione& finestra) const {
  return EraLibera(*finestra.Cornice());
}

void AreaLavoro::Libera(FinestraFunzione& finestra, bool libera) {
  auto* cornice = finestra.Cornice();
  if (EraLibera(*cornice) != libera) {
    Ricorda(finestra);
    Sistema(*cornice, libera);
    QSettings().setValue(Chiave(finestra) + QStringLiteral("/libera"), libera);
  }
  PortaAvanti(finestra);
  Attivata(cornice);
}

void AreaLavoro::Ricorda(const FinestraFunzione& finestra) const {
  const auto* cornice = finestra.Cornice();
  if (cornice == nullptr || !EraLibera(*cornice)) return;
  QSettings().setValue(Chiave(finestra), cornice->geometry());
}

QRect AreaLavoro::PostoLibero(const FinestraFunzione& finestra) const {
  const QRect area = viewport()->rect();
  const QRect posto = QSettings().value(Chiave(finestra)).toRect();
  if (posto.isValid()) return Dentro(posto, area);
  // One beside the other there is no room for: each a little below and right of the one before.
  const auto cornici = area_->subWindowList();
  const int libere = static_cast<int>(
      std::count_if(cornici.begin(), cornici.end(), [&](const QMdiSubWindow* cornice) {
        return EraLibera(*cornice) && FinestraIn(cornice) != &finestra;
      }));
  const auto* cornice = finestra.Cornice();
  const int scalino = cornice->fontMetrics().height() * 2;
  // A little more than it asks for, but never the whole workspace: it is free to be moved.
  constexpr int kDecimi = 9;
  const QSize piena = area.size() * kDecimi / 10;
  return Dentro({QPoint(scalino, scalino) * libere, cornice->sizeHint().boundedTo(piena)}, area);
}

void AreaLavoro::Sistema(QMdiSubWindow& cornice, bool libera) {
  cornice.setProperty(kLibera, libera);
  if (libera) {
    cornice.setWindowFlags(Qt::SubWindow | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                           Qt::WindowCloseButtonHint);
    cornice.setGeometry(PostoLibero(*FinestraIn(&cornice)));
  } else {
    cornice.setWindowFlags(Qt::SubWindow | Qt::FramelessWindowHint);
    cornice.setGeometry(viewport()->rect());
  }
}

// --- Tabs ---------------------------------------------------------------------------------------

QMdiSubWindow* AreaLavoro::Cornice(int linguetta) const {
  return qobject_cast<QMdiSubWindow*>(linguette_->tabData(linguetta).value<QObject*>());
}

int AreaLavoro::Linguetta(const QMdiSubWindow* cornice) const {
  for (int i = 0; i < linguette_->count(); ++i) {
    if (linguette_->tabData(i).value<QObject*>() == cornice) return i;
  }
  return -1;
}

void AreaLavoro::Attivata(QMdiSubWindow* cornice) {
  const int indice = Linguetta(cornice);
  if (indice < 0) return;
  seguendo_ = true;
  linguette_->setCurrentIndex(indice);
  seguendo_ = false;
  libera_->setChecked(EraLibera(*cornice));
}

void AreaLavoro::MostraTitolo(const QMdiSubWindow& cornice) {
  const int indice = Linguetta(&cornice);
  if (indice < 0) return;
  const QString titolo = cornice.windowTitle();
  linguette_->setTabText(indice, QString(titolo).replace(QLatin1Char('&'), QStringLiteral("&&")));
  linguette_->setTabToolTip(indice, titolo);
}

void AreaLavoro::Riallinea() {
  const auto cornici = area_->subWindowList();
  seguendo_ = true;
  for (int i = linguette_->count() - 1; i >= 0; --i) {
    auto* oggetto = linguette_->tabData(i).value<QObject*>();
    const bool resta = std::any_of(cornici.begin(), cornici.end(),
                                   [&](const QMdiSubWindow* una) { return una == oggetto; });
    if (!resta) linguette_->removeTab(i);
  }
  seguendo_ = false;
  barra_->setVisible(linguette_->count() > 0);
  if (auto* davanti = area_->activeSubWindow()) Attivata(davanti);
}

void AreaLavoro::Gira(bool avanti) {
  const int quante = linguette_->count();
  if (quante < 2) return;
  const int indice = (linguette_->currentIndex() + (avanti ? 1 : quante - 1)) % quante;
  PortaAvanti(*FinestraIn(Cornice(indice)));
}

void AreaLavoro::MenuLinguetta(const QPoint& punto) {
  auto* cornice = Cornice(linguette_->tabAt(punto));
  if (cornice == nullptr) return;
  const bool libera = EraLibera(*cornice);
  QMenu menu(this);
  menu.addAction(libera ? tr("&Rimetti a tutta area") : tr("&Libera la finestra"), this,
                 [this, cornice, libera] { Libera(*FinestraIn(cornice), !libera); });
  menu.addSeparator();
  menu.addAction(tr("&Chiudi"), cornice, [cornice] { cornice->close(); });
  auto* altre =
      menu.addAction(tr("Chiudi le &altre"), this, [this, cornice] { ChiudiAltre(cornice); });
  altre->setEnabled(linguette_->count() > 1);
  menu.exec(linguette_->mapToGlobal(punto));
}

void AreaLavoro::ChiudiAltre(const QMdiSubWindow* cornice) {
  for (auto* altra : area_->subWindowList()) {
    // The first that is kept open by its question keeps the rest open too.
    if (altra != cornice && !altra->close()) return;
  }
}

bool AreaLavoro::eventFilter(QObject* oggetto, QEvent* evento) {
  if (oggetto == area_->viewport()) {
    if (evento->type() == QEvent::Resize) {
      for (auto* cornice : area_->subWindowList()) {
        if (!EraLibera(*cornice)) cornice->setGeometry(area_->viewport()->rect());
      }
    }
  } else if (evento->type() == QEvent::Hide) {
    Riallinea();
  }
  return QWidget::eventFilter(oggetto, evento);
}

}  // namespace fenalto::screens
