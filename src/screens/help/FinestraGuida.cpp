#include "screens/help/FinestraGuida.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "screens/common/fields/Qs.h"
#include "screens/help/PaginaGuida.h"

namespace fenalto::screens {
namespace {

constexpr QSize kMisuraGuida(1000, 680);
constexpr int kLato = 260;
constexpr const char* kPosto = "finestre/Guida";

QListWidget* Elenco(const char* nome, QWidget* genitore) {
  auto* elenco = new QListWidget(genitore);
  elenco->setObjectName(QString::fromLatin1(nome));
  elenco->setFrameShape(QFrame::NoFrame);
  elenco->setWordWrap(true);
  elenco->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return elenco;
}

}  // namespace

FinestraGuida::FinestraGuida(const std::filesystem::path& cartella)
    : cartella_(Qs(cartella.string())),
      guida_(help::Guida::Leggi(cartella)),
      cerca_(new QLineEdit(this)),
      esito_(new QLabel(this)),
      elenchi_(new QStackedWidget(this)),
      capitoli_(Elenco("GuidaCapitoli", this)),
      elencoTrovati_(Elenco("GuidaTrovati", this)),
      pagina_(new PaginaGuida(this)) {
  setObjectName(QStringLiteral("Guida"));
  setWindowTitle(tr("Guida"));
  setAttribute(Qt::WA_QuitOnClose, false);
  for (const auto& capitolo : guida_.Capitoli()) capitoli_->addItem(Qs(capitolo.titolo));
  auto* diviso = new QSplitter(Qt::Horizontal, this);
  diviso->addWidget(CreaLato());
  diviso->addWidget(pagina_);
  diviso->setStretchFactor(1, 1);
  diviso->setSizes({kLato, kMisuraGuida.width() - kLato});
  diviso->setChildrenCollapsible(false);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(diviso);
  connect(pagina_, &PaginaGuida::Richiesto, this,
          [this](const QString& file, const QString& ancora) {
            Vai({file.toStdString(), ancora.toStdString()});
          });
  connect(pagina_, &PaginaGuida::Fuori, this, &FinestraGuida::Fuori);
  resize(kMisuraGuida);
  restoreGeometry(QSettings().value(QLatin1String(kPosto)).toByteArray());
}

FinestraGuida::~FinestraGuida() = default;

QWidget* FinestraGuida::CreaBarra() {
  auto* barra = new QWidget(this);
  auto* riga = new QHBoxLayout(barra);
  riga->setContentsMargins(0, 0, 0, 0);
  const auto pulsante = [&](const char* nome, Qt::ArrowType freccia, const QString& aiuto,
                            int passo) {
    auto* uno = new QToolButton(barra);
    uno->setObjectName(QString::fromLatin1(nome));
    uno->setArrowType(freccia);
    uno->setAutoRaise(true);
    uno->setToolTip(aiuto);
    uno->setAccessibleName(aiuto);
    connect(uno, &QToolButton::clicked, this, [this, passo] { Storia(passo); });
    riga->addWidget(uno);
    return uno;
  };
  indietro_ = pulsante("GuidaIndietro", Qt::LeftArrow, tr("Indietro (Alt+Sinistra)"), -1);
  avanti_ = pulsante("GuidaAvanti", Qt::RightArrow, tr("Avanti (Alt+Destra)"), 1);
  cerca_->setObjectName(QStringLiteral("GuidaCerca"));
  cerca_->setPlaceholderText(tr("cerca in tutta la guida"));
  cerca_->setToolTip(tr("Cerca in tutta la guida (Ctrl+F)"));
  cerca_->setClearButtonEnabled(true);
  cerca_->installEventFilter(this);
  connect(cerca_, &QLineEdit::textChanged, this, &FinestraGuida::Cerca);
  riga->addWidget(cerca_, 1);
  return barra;
}

QWidget* FinestraGuida::CreaLato() {
  auto* lato = new QWidget(this);
  auto* colonna = new QVBoxLayout(lato);
  colonna->addWidget(CreaBarra());
  esito_->setObjectName(QStringLiteral("GuidaEsito"));
  esito_->hide();
  colonna->addWidget(esito_);
  elenchi_->addWidget(capitoli_);
  elenchi_->addWidget(elencoTrovati_);
  colonna->addWidget(elenchi_, 1);
  const auto capitolo = [this](int riga) {
    if (riga >= 0) Vai({guida_.Capitoli().at(static_cast<std::size_t>(riga)).file, {}});
  };
  connect(capitoli_, &QListWidget::itemClicked, this,
          [this, capitolo] { capitolo(capitoli_->currentRow()); });
  connect(capitoli_, &QListWidget::itemActivated, this,
          [this, capitolo] { capitolo(capitoli_->currentRow()); });
  connect(elencoTrovati_, &QListWidget::currentRowChanged, this, &FinestraGuida::ScegliTrovato);
  lato->setMinimumWidth(kLato / 2);
  return lato;
}

QString FinestraGuida::Capitolo() const {
  return pagina_->File();
}

void FinestraGuida::Apri(const help::Posto& posto, const QString& campo) {
  cerca_->clear();
  const std::string didascalia = campo.toStdString();
  if (const auto* sezione = guida_.DelCampo(posto.file, didascalia)) {
    Vai({posto.file, sezione->ancora}, {Qs(help::DidascaliaPulita(didascalia))});
  } else {
    Vai(posto);
  }
  show();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
  pagina_->setFocus();
}

void FinestraGuida::Vai(const help::Posto& posto, const QStringList& parole, bool cercando) {
  if (!storia_.empty()) storia_.resize(ora_ + 1);
  const bool stesso =
      !storia_.empty() && (storia_.back().posto == posto || (cercando && storia_.back().cercando));
  if (!stesso) storia_.emplace_back();
  storia_.back() = {posto, parole, cercando};
  ora_ = storia_.size() - 1;
  Mostra(posto, parole);
}

void FinestraGuida::Storia(int passo) {
  const auto nuovo = static_cast<std::ptrdiff_t>(ora_) + passo;
  if (nuovo < 0 || nuovo >= static_cast<std::ptrdiff_t>(storia_.size())) return;
  ora_ = static_cast<std::size_t>(nuovo);
  const Visto visto = storia_[ora_];
  Mostra(visto.posto, visto.parole);
}

void FinestraGuida::Mostra(const help::Posto& posto, const QStringList& parole) {
  pagina_->MostraCapitolo(cartella_, Qs(posto.file), Qs(posto.ancora), parole);
  indietro_->setEnabled(ora_ > 0);
  avanti_->setEnabled(ora_ + 1 < storia_.size());
  const auto& capitoli = guida_.Capitoli();
  int riga = -1;
  for (std::size_t i = 0; i < capitoli.size(); ++i) {
    if (capitoli[i].file == posto.file) riga = static_cast<int>(i);
  }
  capitoli_->setCurrentRow(riga);
  const QString titolo = riga < 0 ? QString() : capitoli_->item(riga)->text();
  setWindowTitle(titolo.isEmpty() ? tr("Guida") : tr("Guida — %1").arg(titolo));
}

QStringList FinestraGuida::Parole() const {
  return cerca_->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

void FinestraGuida::Cerca() {
  // One letter is everywhere.
  const bool cerca = cerca_->text().trimmed().size() > 1;
  elenchi_->setCurrentWidget(cerca ? elencoTrovati_ : capitoli_);
  esito_->setVisible(cerca);
  const QSignalBlocker zitto(elencoTrovati_);
  elencoTrovati_->clear();
  trovati_.clear();
  if (!cerca) {
    // What this search came to stays to go back to, whatever is looked for next.
    if (!storia_.empty()) storia_[ora_].cercando = false;
    return;
  }
  trovati_ = guida_.Cerca(cerca_->text().toStdString());
  esito_->setText(trovati_.empty()       ? tr("nessun risultato")
                  : trovati_.size() == 1 ? tr("1 punto della guida")
                                         : tr("%1 punti della guida").arg(trovati_.size()));
  for (const auto& trovato : trovati_) {
    const QString dove = trovato.sezione.empty()
                             ? Qs(trovato.capitolo)
                             : Qs(trovato.capitolo) + QStringLiteral(" › ") + Qs(trovato.sezione);
    elencoTrovati_->addItem(dove + QLatin1Char('\n') + Qs(trovato.brano));
  }
  if (!trovati_.empty()) {
    elencoTrovati_->setCurrentRow(0);
    ScegliTrovato(0);
  }
}

void FinestraGuida::ScegliTrovato(int riga) {
  if (riga < 0 || riga >= static_cast<int>(trovati_.size())) return;
  Vai(trovati_[static_cast<std::size_t>(riga)].posto, Parole(), true);
}

bool FinestraGuida::eventFilter(QObject* oggetto, QEvent* evento) {
  if (oggetto != cerca_ || evento->type() != QEvent::KeyPress) return false;
  const auto* tasto = static_cast<QKeyEvent*>(evento);
  auto* elenco = qobject_cast<QListWidget*>(elenchi_->currentWidget());
  switch (tasto->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up: {
      const int passo = tasto->key() == Qt::Key_Down ? 1 : -1;
      elenco->setCurrentRow(
          std::clamp(elenco->currentRow() + passo, 0, std::max(0, elenco->count() - 1)));
      return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (elenco == capitoli_) emit capitoli_->itemActivated(capitoli_->currentItem());
      pagina_->setFocus();
      return true;
    default:
      return false;
  }
}

void FinestraGuida::keyPressEvent(QKeyEvent* evento) {
  const bool alt = evento->modifiers().testFlag(Qt::AltModifier);
  if (evento->key() == Qt::Key_Escape) {
    if (cerca_->text().isEmpty()) {
      close();
    } else {
      cerca_->clear();
    }
  } else if (evento->key() == Qt::Key_F && evento->modifiers().testFlag(Qt::ControlModifier)) {
    cerca_->setFocus();
    cerca_->selectAll();
  } else if (alt && evento->key() == Qt::Key_Left) {
    Storia(-1);
  } else if (alt && evento->key() == Qt::Key_Right) {
    Storia(1);
  } else {
    QWidget::keyPressEvent(evento);
  }
}

void FinestraGuida::closeEvent(QCloseEvent* evento) {
  QSettings().setValue(QLatin1String(kPosto), saveGeometry());
  QWidget::closeEvent(evento);
}

}  // namespace fenalto::screens
