// The main window's menu, toolbar and help links.

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSet>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "screens/common/look/Icone.h"
#include "screens/common/look/Misure.h"
#include "screens/main/FinestraPrincipale.h"

namespace fenalto::screens {
namespace {

/// The caption with a mnemonic that no sibling has.
QString ConMnemonica(const QString& testo, QSet<QChar>& usate) {
  for (int i = 0; i < testo.size(); ++i) {
    const QChar lettera = testo[i].toUpper();
    if (!lettera.isLetter() || lettera.unicode() > 127 || usate.contains(lettera)) continue;
    usate.insert(lettera);
    return QString(testo).insert(i, QLatin1Char('&'));
  }
  return testo;
}

/// Menus by path, made as they are met.
class AlberoMenu {
 public:
  explicit AlberoMenu(QMenuBar* barra) : barra_(barra) {}

  QMenu* Menu(const QString& percorso) {
    if (const auto trovato = menu_.find(percorso); trovato != menu_.end()) return trovato->second;
    const int taglio = static_cast<int>(percorso.lastIndexOf(QLatin1Char('|')));
    const QString padre = taglio < 0 ? QString() : percorso.left(taglio);
    const QString testo = ConMnemonica(percorso.mid(taglio + 1), usate_[padre]);
    auto* menu = taglio < 0 ? barra_->addMenu(testo) : Menu(padre)->addMenu(testo);
    menu_[percorso] = menu;
    return menu;
  }
  /// A menu that has a key of its own for what it is opened for: it leaves its letter to the
  /// windows.
  QMenu* MenuSenzaLettera(const QString& testo) { return menu_[testo] = barra_->addMenu(testo); }
  QString Etichetta(const QString& percorso, const QString& voce) {
    return ConMnemonica(voce, usate_[percorso]);
  }
  /// Menus that hold no entry that can be chosen aren't shown.
  void NascondiVuoti() {
    for (auto& [percorso, menu] : menu_) {
      const bool voci = HaVoci(*menu);
      menu->menuAction()->setEnabled(voci);
      menu->menuAction()->setVisible(voci);
    }
  }

 private:
  static bool HaVoci(const QMenu& menu) {
    const auto azioni = menu.actions();
    return std::any_of(azioni.begin(), azioni.end(), [](const QAction* azione) {
      if (azione->isSeparator()) return false;
      return azione->menu() != nullptr ? HaVoci(*azione->menu())
                                       : azione->isEnabled() && azione->isVisible();
    });
  }
  QMenuBar* barra_;
  std::map<QString, QMenu*> menu_;
  std::map<QString, QSet<QChar>> usate_;
};

QToolButton* Collegamento(const QString& nome, const QString& testo, QWidget* genitore) {
  auto* pulsante = new QToolButton(genitore);
  pulsante->setObjectName(nome);
  pulsante->setText(testo);
  pulsante->setAutoRaise(true);
  pulsante->setCursor(Qt::PointingHandCursor);
  pulsante->setFocusPolicy(Qt::NoFocus);
  return pulsante;
}

}  // namespace

void FinestraPrincipale::CreaMenu() {
  AlberoMenu albero(menuBar());
  for (const auto& voce : MappaMenu()) {
    const QString percorso = QString::fromUtf8(voce.percorso);
    auto* menu = albero.Menu(percorso);
    auto* azione = menu->addAction(albero.Etichetta(percorso, QString::fromUtf8(voce.voce)));
    if (voce.nome[0] != '\0') azione->setObjectName(QString::fromLatin1(voce.nome));
    const QString finestra = QString::fromUtf8(voce.finestra);
    const bool disponibile = finestra == QLatin1String("@SelezioneArchivi") ||
                             TrovaCostruttore(finestra, voce.scheda) != nullptr;
    azione->setEnabled(disponibile);
    azione->setVisible(disponibile && !voce.nascosta);
    connect(azione, &QAction::triggered, this, [this, &voce] { Segui(RinvioDi(voce)); });
    azioni_[&voce] = azione;
  }
  CreaMenuFinestre(*albero.MenuSenzaLettera(tr("Finestre")));
  CreaMenuAiuto(*albero.MenuSenzaLettera(tr("Aiuto")));
  albero.NascondiVuoti();
}

void FinestraPrincipale::CreaBarra() {
  barra_ = addToolBar(tr("Barra"));
  barra_->setObjectName(QStringLiteral("Toolbar1"));
  barra_->setMovable(false);
  barra_->setContextMenuPolicy(Qt::PreventContextMenu);
  barra_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const struct {
    const char* nome;
    QString testo;
    QString aiuto;
    std::function<void()> premuto;
  } pulsanti[] = {
      {"Archivi", tr("Ditta..."), tr("Selezione Archivi: sceglie ditta e anno"),
       [this] { SelezioneArchivi(); }},
      {"Primanota", tr("Primanota"), tr("Movimenti Non Iva - Primanota"),
       [this] { Segui({.funzione = "Movimenti"}); }},
      {"Cerca", tr("Cerca"), tr("Cerca una funzione (Ctrl+K)"), [this] { CercaFunzioni(); }},
  };
  for (const auto& pulsante : pulsanti) {
    auto* azione = barra_->addAction(pulsante.testo);
    azione->setObjectName(QStringLiteral("Barra") + QLatin1String(pulsante.nome));
    azione->setToolTip(pulsante.aiuto);
    azione->setIcon(IconaAzione(DisegnoDi(azione->objectName())));
    connect(azione, &QAction::triggered, this, pulsante.premuto);
  }
  auto* cerca = new QAction(this);
  cerca->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
  connect(cerca, &QAction::triggered, this, &FinestraPrincipale::CercaFunzioni);
  addAction(cerca);
  CreaSessione();
  CreaAiuti();
}

void FinestraPrincipale::CreaSessione() {
  auto* sessione = new QWidget(barra_);
  auto* riga = new QHBoxLayout(sessione);
  const int margine = Misura(Passo::Gruppo);
  riga->setContentsMargins(margine, 0, margine, 0);
  ditta_ = new QLabel(sessione);
  ditta_->setObjectName(QStringLiteral("NomeDitta"));
  InGrassetto(*ditta_);
  anni_ = new QComboBox(sessione);
  anni_->setObjectName(QStringLiteral("Anno"));
  anni_->setToolTip(tr("Anno contabile"));
  anni_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  scorrimento_ = new QScrollBar(Qt::Vertical, sessione);
  scorrimento_->setObjectName(QStringLiteral("VScroll1"));
  scorrimento_->setPageStep(1);
  scorrimento_->setFixedHeight(anni_->sizeHint().height());
  scorrimento_->setFocusPolicy(Qt::StrongFocus);
  valuta_ = new QLabel(sessione);
  valuta_->setObjectName(QStringLiteral("Valuta"));
  auto* etichetta = new QLabel(tr("Anno"), sessione);
  for (QWidget* parte :
       std::initializer_list<QWidget*>{ditta_, etichetta, anni_, scorrimento_, valuta_}) {
    riga->addWidget(parte);
  }
  barra_->addWidget(sessione);
  connect(scorrimento_, &QScrollBar::valueChanged, this, &FinestraPrincipale::CambiaAnno);
  connect(anni_, &QComboBox::activated, scorrimento_, &QScrollBar::setValue);
}

void FinestraPrincipale::CreaAiuti() {
  auto* vuoto = new QWidget(barra_);
  vuoto->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  barra_->addWidget(vuoto);
  auto* aiuti = new QFrame(barra_);
  aiuti->setObjectName(QStringLiteral("Frame1"));
  auto* rigaAiuti = new QHBoxLayout(aiuti);
  rigaAiuti->setContentsMargins(0, 0, Misura(Passo::Vicino), 0);
  auto* guida = Collegamento(QStringLiteral("GuidaRapida"), tr("guida rapida"), aiuti);
  auto* manuale =
      Collegamento(QStringLiteral("ManualeContabilita"), tr("manuale di contabilità"), aiuti);
  auto* video = Collegamento(QStringLiteral("VideoCorsi"), tr("video corsi"), aiuti);
  for (auto* collegamento : {guida, manuale, video}) rigaAiuti->addWidget(collegamento);
  collegamentoVideo_ = video;
  barra_->addWidget(aiuti);
  connect(guida, &QToolButton::clicked, this, &FinestraPrincipale::GuidaRapida);
  connect(manuale, &QToolButton::clicked, this, &FinestraPrincipale::ManualeContabilita);
  connect(video, &QToolButton::clicked, this, &FinestraPrincipale::VideoCorsi);
}

}  // namespace fenalto::screens
