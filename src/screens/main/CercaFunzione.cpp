#include "screens/main/CercaFunzione.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/common/fields/Qs.h"

namespace fenalto::screens {
namespace {

constexpr QSize kMisura(640, 420);
constexpr std::size_t kPerGenere = 8;
constexpr int kGenere = Qt::UserRole;       // the kind, on the first row of it
constexpr int kNome = Qt::UserRole + 1;     // what is read first
constexpr int kAccanto = Qt::UserRole + 2;  // what stands quietly beside it
constexpr int kColonnaGenere = 92;
constexpr int kRespiro = 6;

/// The kind, once a group, the name, and what stands beside it.
class DisegnoColpo : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* pittore, const QStyleOptionViewItem& stile,
             const QModelIndex& indice) const override {
    const bool scelta = stile.state.testFlag(QStyle::State_Selected);
    const QPalette& colori = stile.palette;
    if (scelta) pittore->fillRect(stile.rect, colori.color(QPalette::Highlight));
    const QColor testo = colori.color(scelta ? QPalette::HighlightedText : QPalette::Text);
    QColor tenue = testo;
    tenue.setAlphaF(scelta ? 0.85F : 0.62F);
    QRect posto = stile.rect.adjusted(kRespiro, 0, -kRespiro, 0);
    const auto scrivi = [&](const QString& cosa, const QColor& colore, const QFont& carattere) {
      const QFontMetrics misure(carattere);
      pittore->setFont(carattere);
      pittore->setPen(colore);
      pittore->drawText(posto, Qt::AlignVCenter | Qt::TextSingleLine,
                        misure.elidedText(cosa, Qt::ElideRight, posto.width()));
      return misure.horizontalAdvance(cosa);
    };
    scrivi(indice.data(kGenere).toString(), tenue, stile.font);
    posto.setLeft(posto.left() + kColonnaGenere);
    const int nome = scrivi(indice.data(kNome).toString(), testo, stile.font);
    posto.setLeft(std::min(posto.right(), posto.left() + nome + 2 * kRespiro));
    scrivi(indice.data(kAccanto).toString(), tenue, stile.font);
  }

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& stile,
                               const QModelIndex& /*indice*/) const override {
    return {0, stile.fontMetrics.height() + kRespiro};
  }
};

}  // namespace

CercaFunzione* CercaFunzione::Apri(QWidget* finestra, Indice indice, Seguito segui) {
  auto* riquadro = new CercaFunzione(finestra, std::move(indice), std::move(segui));
  riquadro->show();
  riquadro->raise();
  riquadro->testo_->setFocus();
  return riquadro;
}

CercaFunzione::CercaFunzione(QWidget* finestra, Indice indice, Seguito segui)
    : QFrame(finestra),
      indice_(std::move(indice)),
      segui_(std::move(segui)),
      testo_(new QLineEdit(this)),
      elenco_(new QListWidget(this)),
      piede_(new QLabel(this)) {
  setObjectName(QStringLiteral("CercaFunzione"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  testo_->setObjectName(QStringLiteral("CercaTesto"));
  testo_->setPlaceholderText(
      tr("funzione, conto, cliente, fornitore o parola: anche solo le iniziali"));
  testo_->installEventFilter(this);
  elenco_->setObjectName(QStringLiteral("CercaElenco"));
  elenco_->setFocusPolicy(Qt::NoFocus);
  elenco_->setItemDelegate(new DisegnoColpo(elenco_));
  elenco_->setUniformItemSizes(true);
  elenco_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  piede_->setObjectName(QStringLiteral("CercaEsito"));
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(testo_);
  colonna->addWidget(elenco_);
  colonna->addWidget(piede_);
  setGeometry(QRect(QPoint(std::max(0, (finestra->width() - kMisura.width()) / 2), 90), kMisura));
  connect(testo_, &QLineEdit::textChanged, this, &CercaFunzione::Filtra);
  connect(elenco_, &QListWidget::itemClicked, this, [this] { Scegli(false); });
  Filtra();
}

void CercaFunzione::Filtra() {
  elenco_->clear();
  righe_.clear();
  const overview::Voce* prima = nullptr;
  bool conArchivio = false;
  for (const auto& colpo : indice_->Cerca(testo_->text().toStdString(), kPerGenere)) {
    const overview::Voce& voce = *colpo.voce;
    QStringList accanto{Qs(voce.codice), Qs(voce.percorso)};
    accanto.removeAll(QString());
    const QString quieto = accanto.join(QStringLiteral("  ·  "));
    auto* riga = new QListWidgetItem(Qs(voce.nome) + QStringLiteral("   —   ") + quieto);
    if (prima == nullptr || prima->genere != voce.genere) {
      riga->setData(kGenere, QString::fromLatin1(overview::NomeGenere(voce.genere)));
    }
    riga->setData(kNome, Qs(voce.nome));
    riga->setData(kAccanto, quieto);
    riga->setToolTip(riga->text());
    elenco_->addItem(riga);
    righe_.push_back({voce.rinvio, voce.archivio});
    conArchivio = conArchivio || !voce.archivio.Vuoto();
    prima = &voce;
  }
  elenco_->setCurrentRow(0);
  piede_->setText(righe_.empty() ? tr("nessun risultato")
                  : conArchivio ? tr("Invio apre   ·   Ctrl+Invio apre l'archivio   ·   Esc chiude")
                                : tr("Invio apre   ·   Esc chiude"));
}

void CercaFunzione::Sparisci() {
  hide();
  deleteLater();
}

void CercaFunzione::Scegli(bool archivio) {
  const int scelta = elenco_->currentRow();
  if (scelta < 0) return;
  const Riga riga = righe_.at(static_cast<std::size_t>(scelta));
  Sparisci();
  segui_(archivio && !riga.archivio.Vuoto() ? riga.archivio : riga.rinvio);
}

bool CercaFunzione::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::FocusOut) {
    // While a menu of the field's own is open, the box stays.
    const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
    if (motivo != Qt::PopupFocusReason) Sparisci();
    return false;
  }
  if (evento->type() != QEvent::KeyPress) return QFrame::eventFilter(oggetto, evento);
  const auto* tasto = static_cast<QKeyEvent*>(evento);
  const int ultima = std::max(0, elenco_->count() - 1);
  constexpr int kPagina = 10;
  const auto sposta = [&](int passo) {
    elenco_->setCurrentRow(std::clamp(elenco_->currentRow() + passo, 0, ultima));
    return true;
  };
  switch (tasto->key()) {
    case Qt::Key_Escape:
      Sparisci();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Scegli(tasto->modifiers().testFlag(Qt::ControlModifier));
      return true;
    case Qt::Key_Down:
      return sposta(1);
    case Qt::Key_Up:
      return sposta(-1);
    case Qt::Key_PageDown:
      return sposta(kPagina);
    case Qt::Key_PageUp:
      return sposta(-kPagina);
    default:
      return QFrame::eventFilter(oggetto, evento);
  }
}

}  // namespace fenalto::screens
