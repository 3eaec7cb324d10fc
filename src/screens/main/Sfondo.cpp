#include "screens/main/Sfondo.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace fenalto::screens {
namespace {

constexpr int kBande = 256;

}  // namespace

Sfondo::Sfondo(QWidget* genitore) : QWidget(genitore) {
  setObjectName(QStringLiteral("Sfondo"));
  setGeometry(genitore->rect());
  genitore->installEventFilter(this);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(48, 40, 48, 40);
  auto* titolo = new QLabel(QStringLiteral("Fenalto"), this);
  QFont carattere = titolo->font();
  carattere.setPointSizeF(carattere.pointSizeF() * 2.6);
  carattere.setBold(true);
  titolo->setFont(carattere);
  colonna->addWidget(titolo);
  colonna->addWidget(new QLabel(tr("Ctrl+K cerca una funzione con poche lettere"), this));
  colonna->addSpacing(16);
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
    auto* pulsante = new QPushButton(collegamento.testo, this);
    pulsante->setObjectName(QString::fromLatin1(collegamento.nome));
    pulsante->setFlat(true);
    pulsante->setCursor(Qt::PointingHandCursor);
    QFont sottolineato = pulsante->font();
    sottolineato.setUnderline(true);
    pulsante->setFont(sottolineato);
    pulsante->setStyleSheet(QStringLiteral("text-align: left; padding: 2px 0;"));
    connect(pulsante, &QPushButton::clicked, this, collegamento.segnale);
    colonna->addWidget(pulsante, 0, Qt::AlignLeft);
  }
  colonna->addStretch(1);
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
