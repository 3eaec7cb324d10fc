#include "screens/main/Sfondo.h"

#include <QEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "screens/common/look/Misure.h"
#include "screens/common/windows/Scorrevole.h"
#include "screens/start/PaginaIniziale.h"

namespace fenalto::screens {
namespace {

constexpr int kBande = 256;
/// The page doesn't spread over a large screen: its lines would be too long to be read.
constexpr int kMassimaPagina = 1360;

}  // namespace

Sfondo::Sfondo(Finestre& finestre, QWidget* genitore) : QWidget(genitore) {
  setObjectName(QStringLiteral("Sfondo"));
  setGeometry(genitore->rect());
  genitore->installEventFilter(this);
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  auto* piano = new PianoScorrevole;
  auto* riga = new QHBoxLayout(piano);
  riga->setContentsMargins(0, 0, 0, 0);
  pagina_ = new PaginaIniziale(finestre, piano);
  pagina_->setMaximumWidth(Cresciuta(kMassimaPagina));
  riga->addWidget(pagina_, 1);
  area->setWidget(piano);
  // The bands show through.
  piano->setAutoFillBackground(false);
  area->viewport()->setAutoFillBackground(false);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(area);
  CreaCollegamenti();
  connect(pagina_, &PaginaIniziale::Aiuto, this, &Sfondo::Aiuto);
}

void Sfondo::CreaCollegamenti() {
  const struct {
    const char* nome;
    QString testo;
    void (Sfondo::*segnale)();
  } collegamenti[] = {
      {"SfondoGuidaRapida", tr("guida rapida"), &Sfondo::GuidaRapida},
      {"SfondoManualeContabilita", tr("manuale di contabilità"), &Sfondo::ManualeContabilita},
      {"SfondoVideoCorsi", tr("video corsi"), &Sfondo::VideoCorsi},
  };
  for (const auto& collegamento : collegamenti) {
    auto* pulsante = new QPushButton(collegamento.testo, pagina_);
    pulsante->setObjectName(QString::fromLatin1(collegamento.nome));
    pulsante->setFlat(true);
    pulsante->setAutoDefault(true);
    pulsante->setCursor(Qt::PointingHandCursor);
    QFont sottolineato = pulsante->font();
    sottolineato.setUnderline(true);
    pulsante->setFont(sottolineato);
    pulsante->setStyleSheet(QStringLiteral("text-align: right; padding: 1px 4px;"));
    connect(pulsante, &QPushButton::clicked, this, collegamento.segnale);
    pagina_->Angolo()->addWidget(pulsante, 0, Qt::AlignRight);
    video_ = pulsante;
  }
  pagina_->Angolo()->setSpacing(0);
  pagina_->Angolo()->addStretch(1);
}

void Sfondo::Torna() {
  pagina_->Aggiorna();
  pagina_->PrendiFoco();
}

void Sfondo::MostraVideoCorsi(bool mostra) {
  video_->setVisible(mostra);
}

void DipingiBande(QWidget& dove) {
  QPainter pittore(&dove);
  const QColor alto = dove.palette().color(QPalette::Window);
  const QColor accento = dove.palette().color(QPalette::Highlight);
  for (int banda = 0; banda < kBande; ++banda) {
    const double parte = 0.35 * banda / (kBande - 1);
    const auto misto = [&](int a, int b) { return static_cast<int>(a + (b - a) * parte); };
    const QColor colore(misto(alto.red(), accento.red()), misto(alto.green(), accento.green()),
                        misto(alto.blue(), accento.blue()));
    const int da = dove.height() * banda / kBande;
    pittore.fillRect(0, da, dove.width(), dove.height() * (banda + 1) / kBande - da, colore);
  }
}

void AreaFinestre::paintEvent(QPaintEvent*) {
  DipingiBande(*viewport());
}

void Sfondo::paintEvent(QPaintEvent*) {
  DipingiBande(*this);
}

bool Sfondo::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return QWidget::eventFilter(oggetto, evento);
}

}  // namespace fenalto::screens
