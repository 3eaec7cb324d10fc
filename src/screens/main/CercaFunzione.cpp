#include "screens/main/CercaFunzione.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/Testo.h"

namespace fenalto::screens {
namespace {

constexpr QSize kMisura(560, 360);

/// Whether every word typed stands in the entry or its path.
bool Contiene(const CercaFunzione::Funzione& funzione, const QString& testo) {
  const auto dove =
      PerRicerca((funzione.voce + QLatin1Char(' ') + funzione.percorso).toStdString());
  const auto parole = testo.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  return std::all_of(parole.begin(), parole.end(), [&](const QString& parola) {
    return dove.find(PerRicerca(parola.toStdString())) != std::string::npos;
  });
}

}  // namespace

void CercaFunzione::Apri(QWidget* finestra, std::vector<Funzione> funzioni, Seguito segui) {
  auto* riquadro = new CercaFunzione(finestra, std::move(funzioni), std::move(segui));
  riquadro->show();
  riquadro->raise();
  riquadro->testo_->setFocus();
}

CercaFunzione::CercaFunzione(QWidget* finestra, std::vector<Funzione> funzioni, Seguito segui)
    : QFrame(finestra),
      funzioni_(std::move(funzioni)),
      segui_(std::move(segui)),
      testo_(new QLineEdit(this)),
      elenco_(new QListWidget(this)) {
  setObjectName(QStringLiteral("CercaFunzione"));
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  testo_->setObjectName(QStringLiteral("CercaTesto"));
  testo_->setPlaceholderText(tr("funzione, archivio o stampa"));
  testo_->installEventFilter(this);
  elenco_->setObjectName(QStringLiteral("CercaElenco"));
  elenco_->setFocusPolicy(Qt::NoFocus);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(testo_);
  colonna->addWidget(elenco_);
  setGeometry(QRect(QPoint((finestra->width() - kMisura.width()) / 2, 90), kMisura));
  connect(testo_, &QLineEdit::textChanged, this, &CercaFunzione::Filtra);
  connect(elenco_, &QListWidget::itemClicked, this, [this] { Scegli(); });
  Filtra(QString());
}

void CercaFunzione::Filtra(const QString& testo) {
  elenco_->clear();
  for (std::size_t i = 0; i < funzioni_.size(); ++i) {
    if (!Contiene(funzioni_[i], testo)) continue;
    auto* riga =
        new QListWidgetItem(funzioni_[i].voce + QStringLiteral("   —   ") + funzioni_[i].percorso);
    riga->setData(Qt::UserRole, static_cast<int>(i));
    elenco_->addItem(riga);
  }
  elenco_->setCurrentRow(0);
}

void CercaFunzione::Scegli() {
  auto* riga = elenco_->currentItem();
  if (riga == nullptr) return;
  hide();
  deleteLater();
  segui_(funzioni_[static_cast<std::size_t>(riga->data(Qt::UserRole).toInt())].rinvio);
}

bool CercaFunzione::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::FocusOut) {
    deleteLater();
    hide();
    return false;
  }
  if (evento->type() != QEvent::KeyPress) return QFrame::eventFilter(oggetto, evento);
  const auto* tasto = static_cast<QKeyEvent*>(evento);
  switch (tasto->key()) {
    case Qt::Key_Escape:
      hide();
      deleteLater();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Scegli();
      return true;
    case Qt::Key_Down:
    case Qt::Key_Up: {
      const int passo = tasto->key() == Qt::Key_Down ? 1 : -1;
      elenco_->setCurrentRow(
          std::clamp(elenco_->currentRow() + passo, 0, std::max(0, elenco_->count() - 1)));
      return true;
    }
    default:
      return QFrame::eventFilter(oggetto, evento);
  }
}

}  // namespace fenalto::screens
