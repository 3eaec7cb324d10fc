#include "print/FinestraAnteprima.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QSpinBox>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include "print/Avanzamenti.h"
#include "print/ModelloPagine.h"
#include "print/TestoPagina.h"
#include "print/UscitaPdf.h"
#include "print/UscitaStampante.h"
#include "print/VistaPagina.h"

namespace fenalto::print {
namespace {

constexpr int kRespiro = 50;       // ms between looks at the program's events
constexpr int kPrimaPagina = 400;  // ms given to the window to show the first page
const auto kPosto = QLatin1String("finestre/Anteprima");

/// Input that mustn't reach the windows of the functions while a report is composed.
bool Ingresso(QEvent::Type tipo) {
  switch (tipo) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::Drop:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

template <typename Pulsante>
Pulsante* Nuovo(const char* nome, const QString& testo, const QString& aiuto) {
  auto* pulsante = new Pulsante;
  pulsante->setObjectName(QString::fromLatin1(nome));
  pulsante->setText(testo);
  pulsante->setToolTip(aiuto);
  return pulsante;
}

}  // namespace

FinestraAnteprima::FinestraAnteprima(const QString& titolo, Dialoghi& dialoghi, QWidget* sopra)
    : QWidget(sopra, Qt::Window), titolo_(titolo), dialoghi_(dialoghi), sopra_(sopra) {
  setObjectName(QStringLiteral("Anteprima"));
  setWindowTitle(tr("Anteprima: %1").arg(titolo_));
  Costruisci();
  Collega();
  Scorciatoie();
  // A window of its own: where a link leads, in the main window, must not stay hidden behind this.
  winId();
  windowHandle()->setTransientParent(nullptr);
  qApp->installEventFilter(this);
  respiro_.start();
}

FinestraAnteprima::~FinestraAnteprima() {
  qApp->removeEventFilter(this);
}

// --- The window's parts

QWidget* FinestraAnteprima::BarraComandi() {
  auto* barra = new QWidget(this);
  auto* riga = new QHBoxLayout(barra);
  riga->setContentsMargins(8, 6, 8, 6);
  riga->setSpacing(6);
  auto* indietro = Nuovo<QToolButton>("Precedente", tr("◀"), tr("Pagina precedente (PagSu)"));
  auto* avanti = Nuovo<QToolButton>("Successiva", tr("▶"), tr("Pagina successiva (PagGiù)"));
  connect(indietro, &QToolButton::clicked, this, [this] { VaiAPagina(corrente_ - 1); });
  connect(avanti, &QToolButton::clicked, this, [this] { VaiAPagina(corrente_ + 1); });
  numero_ = new QSpinBox(barra);
  numero_->setObjectName(QStringLiteral("NumeroPagina"));
  numero_->setRange(1, 1);
  numero_->setKeyboardTracking(false);
  totale_ = new QLabel(barra);
  totale_->setObjectName(QStringLiteral("PagineTotali"));
  auto* meno = Nuovo<QToolButton>("Riduci", QStringLiteral("−"), tr("Riduce (Ctrl+-)"));
  auto* piu = Nuovo<QToolButton>("Ingrandisci", QStringLiteral("+"), tr("Ingrandisce (Ctrl++)"));
  connect(meno, &QToolButton::clicked, this,
          [this] { vista_->Ingrandisci(vista_->Zoom() / kPassoZoom); });
  connect(piu, &QToolButton::clicked, this,
          [this] { vista_->Ingrandisci(vista_->Zoom() * kPassoZoom); });
  zoom_ = new QLabel(barra);
  zoom_->setObjectName(QStringLiteral("Zoom"));
  zoom_->setMinimumWidth(zoom_->fontMetrics().horizontalAdvance(QStringLiteral("800%")));
  larghezza_ = Nuovo<QToolButton>("Larghezza", tr("Larghezza"),
                                  tr("Adatta la pagina alla larghezza della finestra (Ctrl+0)"));
  larghezza_->setCheckable(true);
  cerca_ = new QLineEdit(barra);
  cerca_->setObjectName(QStringLiteral("Cerca"));
  cerca_->setPlaceholderText(tr("Cerca nel testo (Ctrl+F)"));
  cerca_->setClearButtonEnabled(true);
  auto* prima =
      Nuovo<QToolButton>("CercaPrecedente", tr("▲"), tr("Trova il precedente (Maiusc+F3)"));
  auto* dopo = Nuovo<QToolButton>("CercaSuccessivo", tr("▼"), tr("Trova il successivo (F3)"));
  connect(prima, &QToolButton::clicked, this, [this] { Cerca(cerca_->text(), -1); });
  connect(dopo, &QToolButton::clicked, this, [this] { Cerca(cerca_->text(), 1); });
  auto* copia = Nuovo<QPushButton>(
      "Copia", tr("&Copia"), tr("Copia il testo scelto trascinando, o la pagina intera (Ctrl+C)"));
  auto* pdf = Nuovo<QPushButton>("SalvaPdf", tr("Salva &PDF..."), tr("Salva come PDF (Ctrl+S)"));
  auto* stampa =
      Nuovo<QPushButton>("Stampa", tr("&Stampa..."), tr("Manda alla stampante (Ctrl+P)"));
  connect(copia, &QPushButton::clicked, this, &FinestraAnteprima::Copia);
  connect(pdf, &QPushButton::clicked, this, &FinestraAnteprima::ChiediPdf);
  connect(stampa, &QPushButton::clicked, this,
          [this] { Stampa([this] { return ScegliStampante(this, Pagine()); }); });
  soloComposta_ = {pdf, stampa};
  for (auto* uno : soloComposta_) uno->setEnabled(false);
  for (QWidget* parte : std::initializer_list<QWidget*>{indietro, numero_, totale_, avanti, meno,
                                                        zoom_, piu, larghezza_}) {
    riga->addWidget(parte);
  }
  riga->addWidget(cerca_, 1);
  for (QWidget* parte : std::initializer_list<QWidget*>{prima, dopo, copia, pdf, stampa}) {
    riga->addWidget(parte);
  }
  return barra;
}

void FinestraAnteprima::Costruisci() {
  vista_ = new VistaPagina(pittore_);
  modello_ = new ModelloPagine(this);
  elenco_ = new QListView;
  elenco_->setObjectName(QStringLiteral("ElencoPagine"));
  elenco_->setModel(modello_);
  elenco_->setUniformItemSizes(true);
  elenco_->setMaximumWidth(180);
  auto* parti = new QSplitter(this);
  parti->addWidget(elenco_);
  parti->addWidget(vista_);
  parti->setStretchFactor(1, 1);
  parti->setSizes({120, 900});
  stato_ = new QLabel(this);
  stato_->setObjectName(QStringLiteral("Stato"));
  barra_ = new QProgressBar(this);
  barra_->setMaximumWidth(240);
  barra_->setTextVisible(false);
  annulla_ = Nuovo<QPushButton>("Annulla", tr("&Annulla"), tr("Interrompe"));
  auto* piede = new QHBoxLayout;
  piede->setContentsMargins(8, 4, 8, 4);
  piede->addWidget(stato_, 1);
  piede->addWidget(barra_);
  piede->addWidget(annulla_);
  auto* pila = new QVBoxLayout(this);
  pila->setContentsMargins(0, 0, 0, 0);
  pila->setSpacing(0);
  pila->addWidget(BarraComandi());
  pila->addWidget(parti, 1);
  pila->addLayout(piede);
  if (!restoreGeometry(QSettings().value(kPosto).toByteArray())) resize(1080, 700);
  Occupa(tr("Composizione delle pagine"));
}

void FinestraAnteprima::Collega() {
  connect(annulla_, &QPushButton::clicked, this,
          [this] { (composta_ || occupata_ ? fermata_ : annullata_) = true; });
  connect(numero_, &QSpinBox::valueChanged, this, [this](int numero) { VaiAPagina(numero - 1); });
  connect(elenco_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& indice) { VaiAPagina(indice.row()); });
  connect(larghezza_, &QToolButton::clicked, this, [this](bool si) {
    si ? vista_->AdattaLarghezza() : vista_->Ingrandisci(vista_->Zoom());
  });
  connect(vista_, &VistaPagina::ZoomCambiato, this, [this] {
    zoom_->setText(QStringLiteral("%1%").arg(qRound(vista_->Zoom() * 100)));
    larghezza_->setChecked(vista_->Adattata());
  });
  connect(vista_, &VistaPagina::PaginaOltre, this, [this](int verso) {
    if (corrente_ + verso < 0 || corrente_ + verso >= Pagine()) return;
    VaiAPagina(corrente_ + verso);
    vista_->MostraInizio(verso > 0);
  });
  connect(vista_, &VistaPagina::RinvioScelto, this, [this](const Rinvio& rinvio) {
    // The report is inside an action of a function: nothing else may begin.
    if (composta_ && !occupata_) emit RinvioScelto(rinvio);
  });
  connect(cerca_, &QLineEdit::returnPressed, this, [this] { Cerca(cerca_->text(), 1); });
}

void FinestraAnteprima::Scorciatoie() {
  const auto tasto = [this](const QKeySequence& tasti, auto azione) {
    connect(new QShortcut(tasti, this), &QShortcut::activated, this, azione);
  };
  tasto(Qt::CTRL | Qt::Key_F, [this] {
    cerca_->setFocus();
    cerca_->selectAll();
  });
  tasto(Qt::Key_F3, [this] { Cerca(cerca_->text(), 1); });
  tasto(Qt::SHIFT | Qt::Key_F3, [this] { Cerca(cerca_->text(), -1); });
  tasto(Qt::CTRL | Qt::Key_C, [this] { Copia(); });
  tasto(Qt::CTRL | Qt::Key_S, [this] { ChiediPdf(); });
  tasto(Qt::CTRL | Qt::Key_P, [this] {
    if (composta_) Stampa([this] { return ScegliStampante(this, Pagine()); });
  });
  tasto(Qt::CTRL | Qt::Key_Plus, [this] { vista_->Ingrandisci(vista_->Zoom() * kPassoZoom); });
  tasto(Qt::CTRL | Qt::Key_Minus, [this] { vista_->Ingrandisci(vista_->Zoom() / kPassoZoom); });
  tasto(Qt::CTRL | Qt::Key_0, [this] { vista_->AdattaLarghezza(); });
  tasto(Qt::CTRL | Qt::Key_Home, [this] { VaiAPagina(0); });
  tasto(Qt::CTRL | Qt::Key_End, [this] { VaiAPagina(Pagine() - 1); });
  tasto(Qt::Key_Escape, [this] { close(); });
}

// --- Composing

bool FinestraAnteprima::Aggiungi(const reports::Pagina& pagina) {
  if (annullata_ || guasto_) return false;
  if (auto tenuta = deposito_.Aggiungi(pagina); !tenuta) {
    guasto_ = tenuta.Errore();
    return false;
  }
  if (Pagine() == 1) {
    MostraAvanzamento();
    VaiAPagina(0);
    show();
    raise();
    activateWindow();
    vista_->setFocus();
    // The first page is there to be read before the second is composed.
    QElapsedTimer attesa;
    attesa.start();
    while (!vista_->Dipinta() && isVisible() && attesa.elapsed() < kPrimaPagina) {
      QApplication::processEvents(QEventLoop::AllEvents, kRespiro);
    }
    respiro_.restart();
  } else if (respiro_.elapsed() >= kRespiro) {
    MostraAvanzamento();
    QApplication::processEvents();
    respiro_.restart();
  }
  return !annullata_;
}

void FinestraAnteprima::MostraAvanzamento() {
  modello_->Pagine(Pagine());
  numero_->setMaximum(std::max(1, Pagine()));
  totale_->setText(composta_ ? tr("di %1").arg(Pagine()) : tr("di %1...").arg(Pagine()));
}

void FinestraAnteprima::Completa() {
  composta_ = true;
  qApp->removeEventFilter(this);
  setAttribute(Qt::WA_DeleteOnClose);
  for (auto* uno : soloComposta_) uno->setEnabled(true);
  Libera();
  MostraAvanzamento();
  stato_->setText(Pagine() == 1 ? tr("Una pagina") : tr("%1 pagine").arg(Pagine()));
  // Once more, with the number of pages in its place.
  const int quale = corrente_;
  corrente_ = -1;
  VaiAPagina(quale);
  if (!isVisible()) show();
}

void FinestraAnteprima::Occupa(const QString& testo) {
  fermata_ = false;
  stato_->setText(testo);
  barra_->setRange(0, 0);
  barra_->show();
  annulla_->show();
}

void FinestraAnteprima::Libera() {
  occupata_ = false;
  if (!composta_) return;
  barra_->hide();
  annulla_->hide();
  stato_->clear();
  if (chiusuraChiesta_) QTimer::singleShot(0, this, &QWidget::close);
}

bool FinestraAnteprima::eventFilter(QObject* oggetto, QEvent* evento) {
  if (composta_ || sopra_ == nullptr || !Ingresso(evento->type())) return false;
  QObject* uno = oggetto;
  while (uno != nullptr && !uno->isWidgetType() && !uno->isWindowType()) uno = uno->parent();
  const bool sotto = uno != nullptr &&
                     (uno->isWidgetType() ? static_cast<QWidget*>(uno)->window() == sopra_->window()
                                          : uno == sopra_->window()->windowHandle());
  if (!sotto) return false;
  evento->ignore();
  return true;
}

void FinestraAnteprima::closeEvent(QCloseEvent* evento) {
  QSettings().setValue(kPosto, saveGeometry());
  if (occupata_) {
    fermata_ = chiusuraChiesta_ = true;
    if (composta_) {
      evento->ignore();
      return;
    }
  }
  if (!composta_) annullata_ = true;
  evento->accept();
}

// --- Reading

void FinestraAnteprima::VaiAPagina(int indice) {
  if (indice == corrente_ || indice < 0 || indice >= Pagine()) return;
  corrente_ = indice;
  auto pagina = deposito_.Leggi(indice);
  auto segni = Trova(pittore_, pagina, Totale(), cercato_);
  vista_->Mostra(std::move(pagina), Totale());
  if (!segni.empty()) vista_->Segna(std::move(segni), -1);
  modello_->Pagine(Pagine());
  numero_->setMaximum(Pagine());
  numero_->setValue(indice + 1);
  elenco_->setCurrentIndex(modello_->index(indice, 0));
}

bool FinestraAnteprima::Respira(int fatte) {
  if (respiro_.elapsed() < kRespiro) return true;
  barra_->setRange(0, Pagine());
  barra_->setValue(fatte);
  QApplication::processEvents();
  respiro_.restart();
  return !fermata_ && !annullata_;
}

bool FinestraAnteprima::Cerca(const QString& testo, int verso) {
  if (occupata_ || Pagine() == 0) return false;
  const QString cercato = PerConfronto(testo);
  const bool nuovo = cercato != cercato_;
  cercato_ = cercato;
  if (nuovo) {
    vista_->Segna(Trova(pittore_, vista_->PaginaMostrata(), Totale(), cercato), -1);
  }
  if (cercato.isEmpty()) return false;
  auto segni = vista_->Segni();
  const int quanti = static_cast<int>(segni.size());
  const int da = vista_->SegnoCorrente();
  const int quale = da < 0 && verso < 0 ? (nuovo ? quanti - 1 : -1) : da + verso;
  if (quale >= 0 && quale < quanti) {
    vista_->Segna(std::move(segni), quale);
    return true;
  }
  const int pagine = Pagine();
  Occupa(tr("Ricerca di \"%1\"").arg(testo));
  occupata_ = true;
  respiro_.restart();
  int trovata = -1;
  for (int passo = 1; passo <= pagine && trovata < 0 && Respira(passo); ++passo) {
    const int indice = ((corrente_ + verso * passo) % pagine + pagine) % pagine;
    segni = Trova(pittore_, deposito_.Leggi(indice), Totale(), cercato);
    if (!segni.empty()) trovata = indice;
  }
  const bool interrotta = fermata_;
  Libera();
  if (!composta_) stato_->setText(tr("Composizione delle pagine"));
  if (trovata < 0) {
    stato_->setText(interrotta ? tr("Ricerca interrotta") : tr("\"%1\" non si trova").arg(testo));
    return false;
  }
  VaiAPagina(trovata);
  const int primo = verso > 0 ? 0 : static_cast<int>(segni.size()) - 1;
  vista_->Segna(std::move(segni), primo);
  return true;
}

void FinestraAnteprima::Copia() {
  QApplication::clipboard()->setText(vista_->TestoScelto());
}

// --- To other outputs

bool FinestraAnteprima::Versa(UscitaDipinta& uscita) {
  uscita.Titolo(titolo_.toStdString());
  uscita.Totale(Pagine());
  occupata_ = true;
  for (int i = 0; i < Pagine(); ++i) {
    if (!uscita.Aggiungi(deposito_.Leggi(i))) break;
  }
  const auto esito = uscita.Fine();
  Libera();
  if (!esito) dialoghi_.Messaggio(esito.Errore().messaggio, Icona::Errore);
  return esito && esito.Valore();
}

bool FinestraAnteprima::SalvaPdf(const std::filesystem::path& file) {
  if (!composta_ || occupata_) return false;
  UscitaPdf uscita(file, AvanzaCon(dialoghi_));
  if (!Versa(uscita)) return false;
  stato_->setText(tr("Salvato in %1").arg(QString::fromStdString(file.string())));
  return true;
}

bool FinestraAnteprima::Stampa(const std::function<std::unique_ptr<QPrinter>()>& stampante) {
  if (!composta_ || occupata_) return false;
  auto scelta = stampante();
  if (!scelta) return false;
  UscitaStampante uscita([&scelta] { return std::move(scelta); }, AvanzaCon(dialoghi_));
  if (!Versa(uscita)) return false;
  stato_->setText(tr("Mandato alla stampante"));
  return true;
}

void FinestraAnteprima::ChiediPdf() {
  if (!composta_ || occupata_) return;
  auto file = dialoghi_.ScegliFile("Salva come PDF", ModoFile::Salva, "PDF (*.pdf)");
  if (!file) return;
  if (!file->has_extension()) *file += ".pdf";
  SalvaPdf(*file);
}

}  // namespace fenalto::print
