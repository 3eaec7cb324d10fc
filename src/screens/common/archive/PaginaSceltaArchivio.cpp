#include "screens/common/archive/PaginaSceltaArchivio.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "core/values/Testo.h"
#include "screens/common/archive/RigaFiltri.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
namespace {

constexpr int kPagina = 200;
constexpr int kRilette = 5'000;  // rows read again at most to come back to a place

Tipo TipoColonna(Ambiente& ambiente, const archives::DescrizioneArchivio& descrizione,
                 const std::string& campo) {
  const auto* tabella =
      ambiente.ArchivioDi(descrizione.chiave).Catalogo().Tabella(descrizione.tabella);
  const auto* colonna = tabella != nullptr ? tabella->Colonna(campo) : nullptr;
  return colonna != nullptr ? colonna->tipo : Tipo::Testo;
}

std::vector<ColonnaGriglia> ColonneGriglia(Ambiente& ambiente,
                                           const archives::DescrizioneArchivio& descrizione) {
  constexpr int kCarattere = 8;
  constexpr int kMinima = 70;
  constexpr int kMassima = 160;
  constexpr int kDescrizione = 240;  // the page's width beside a code and a short column
  std::vector<ColonnaGriglia> colonne;
  for (const auto& campo : archives::ColonneElenco(descrizione)) {
    QString titolo = Qs(campo.didascalia);
    titolo.replace(0, 1, titolo.left(1).toUpper());
    const int caratteri = std::max(campo.caratteri + 2, static_cast<int>(titolo.size()) + 2);
    const int larga = UgualeTesto(campo.nome, descrizione.campoDescrizione)
                          ? kDescrizione
                          : std::clamp(caratteri * kCarattere, kMinima, kMassima);
    colonne.push_back(
        {titolo, TipoColonna(ambiente, descrizione, campo.nome), larga, campo.decimali});
  }
  return colonne;
}

}  // namespace

PaginaSceltaArchivio::PaginaSceltaArchivio(Ambiente& ambiente,
                                           const archives::DescrizioneArchivio& descrizione)
    : ambiente_(ambiente), elenco_(ambiente, descrizione), ripresa_(new QTimer(this)) {
  CreaSelettore(descrizione);
  CreaElenco(descrizione);
  Disponi();
  Collega();
  Leggi();
}

void PaginaSceltaArchivio::CreaSelettore(const archives::DescrizioneArchivio& descrizione) {
  constexpr int kMinimi = 8;
  constexpr int kMassimi = 20;
  auto fonte = std::make_shared<FonteTabella>(
      [this, chiave = descrizione.chiave]() -> Archivio& { return ambiente_.ArchivioDi(chiave); },
      descrizione.tabella, "Cod",
      descrizione.campoDescrizione.empty() ? "Cod" : descrizione.campoDescrizione,
      [filtro = descrizione.filtro] { return filtro; });
  selettore_ = new CampoCodice(QStringLiteral("Rt1"), QString(), std::move(fonte));
  LargoCaratteri(selettore_, std::clamp(descrizione.caratteriCodice + 2, kMinimi, kMassimi));
  apri_ = Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio nel codice"));
  nuovo_ = Pulsante(QStringLiteral("Nuovo"), tr("Nuovo"), tr("Ins"));
  stampa_ = Pulsante(QStringLiteral("Stampa"), tr("Stampa"));
  esporta_ = Pulsante(QStringLiteral("XlsEsp"), tr("Esporto in Excel"));
  pulsanti_ = {apri_, nuovo_, stampa_, esporta_};
}

void PaginaSceltaArchivio::CreaElenco(const archives::DescrizioneArchivio& descrizione) {
  cerca_ = new QLineEdit;
  cerca_->setObjectName(QStringLiteral("Cerca"));
  cerca_->setPlaceholderText(tr("codice o parte del testo"));
  cerca_->setClearButtonEnabled(true);
  griglia_ = new screens::Griglia(QStringLiteral("GrigliaArchivio"), Qs(descrizione.finestra),
                                  ColonneGriglia(ambiente_, descrizione));
  // The order is the source's: rows come in pages.
  griglia_->horizontalHeader()->setSectionsClickable(false);
  std::vector<std::string> nomi;
  for (const auto& campo : archives::ColonneElenco(descrizione)) nomi.push_back(campo.nome);
  filtri_ = new RigaFiltri(*griglia_, nomi);
  stato_ = new QLabel;
  stato_->setObjectName(QStringLiteral("StatoElenco"));
}

void PaginaSceltaArchivio::Disponi() {
  auto* scelta = new QHBoxLayout;
  scelta->addWidget(Didascalia(tr("Codice"), selettore_));
  scelta->addWidget(selettore_);
  scelta->addWidget(apri_);
  scelta->addWidget(nuovo_);
  scelta->addStretch(1);
  auto* ricerca = new QHBoxLayout;
  ricerca->addWidget(Didascalia(tr("Cerca"), cerca_));
  ricerca->addWidget(cerca_, 1);
  auto* righe = new QVBoxLayout;
  righe->setSpacing(2);
  righe->addWidget(filtri_);
  righe->addWidget(griglia_, 1);
  fila_ = new QGridLayout;
  fila_->addWidget(stampa_, 0, 0);
  fila_->addWidget(esporta_, 0, 1);
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(scelta);
  // Below the code, since a description is as long as it likes and the page is narrow.
  colonna->addWidget(selettore_->Etichetta());
  selettore_->Etichetta()->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  colonna->addLayout(ricerca);
  colonna->addLayout(righe, 1);
  colonna->addWidget(stato_);
  colonna->addLayout(fila_);
}

void PaginaSceltaArchivio::MostraNuovo(bool visibile) {
  nuovo_->setVisible(visibile);
}

void PaginaSceltaArchivio::AggiungiPulsante(QPushButton* pulsante) {
  const auto posto = fila_->count();
  fila_->addWidget(pulsante, posto / 2, posto % 2);
  pulsanti_ << pulsante;
}

void PaginaSceltaArchivio::Collega() {
  ripresa_->setSingleShot(true);
  cerca_->installEventFilter(this);
  for (auto* campo : filtri_->Campi()) campo->installEventFilter(this);
  connect(ripresa_, &QTimer::timeout, this, &PaginaSceltaArchivio::Leggi);
  connect(cerca_, &QLineEdit::textChanged, ripresa_, [this] { ripresa_->start(0); });
  connect(filtri_, &RigaFiltri::Cambiata, ripresa_, [this] { ripresa_->start(0); });
  connect(&griglia_->Modello(), &QAbstractItemModel::rowsInserted, this,
          &PaginaSceltaArchivio::DiQuanti);
  const auto daRiga = [this](int riga) { emit Scelto(CodiceDi(riga)); };
  connect(griglia_, &Griglia::RigaDoppioClic, this, daRiga);
  connect(griglia_, &Griglia::RigaInvio, this, daRiga);
  connect(griglia_, &Griglia::clicked, this,
          [this](const QModelIndex& riga) { MostraCodice(CodiceDi(riga.row())); });
  connect(apri_, &QPushButton::clicked, this, [this] { emit Scelto(Codice()); });
  connect(nuovo_, &QPushButton::clicked, this, &PaginaSceltaArchivio::Nuovo);
  connect(stampa_, &QPushButton::clicked, this, &PaginaSceltaArchivio::Stampa);
  connect(esporta_, &QPushButton::clicked, this, &PaginaSceltaArchivio::Esporta);
}

QString PaginaSceltaArchivio::CodiceDi(int riga) const {
  return Qs(griglia_->Modello().Riga(riga).front().Testo());
}

archives::FiltroElenco PaginaSceltaArchivio::Filtro() const {
  return {cerca_->text().trimmed().toStdString(), filtri_->Testi()};
}

void PaginaSceltaArchivio::Leggi() {
  ripresa_->stop();
  griglia_->Modello().Pagine([this, filtro = Filtro()](int da) {
    if (da == 0) {
      ultimo_.clear();
      finito_ = false;
    }
    if (finito_) return std::vector<std::vector<Valore>>();
    auto righe = elenco_.Pagina(filtro, ultimo_, kPagina);
    finito_ = righe.size() < static_cast<std::size_t>(kPagina);
    if (!righe.empty()) ultimo_ = righe.back().front().Testo();
    return righe;
  });
  DiQuanti();
}

void PaginaSceltaArchivio::DiQuanti() {
  const int quante = griglia_->Modello().rowCount();
  stato_->setText(!finito_      ? tr("i primi %1 codici").arg(quante)
                  : quante == 0 ? (Filtro().Vuoto() ? tr("nessun codice: Ins per il primo")
                                                    : tr("nessun codice con questo testo"))
                  : quante == 1 ? tr("1 codice")
                                : tr("%1 codici").arg(quante));
}

void PaginaSceltaArchivio::Ricarica() {
  auto& modello = griglia_->Modello();
  const int corrente = griglia_->RigaCorrente();
  const QString codice = corrente >= 0 ? CodiceDi(corrente) : QString();
  const int lette = std::min(modello.rowCount(), kRilette);
  const int posto = griglia_->verticalScrollBar()->value();
  Leggi();
  while (modello.rowCount() < lette && !finito_) modello.fetchMore({});
  // The bar's range follows the rows only at the next layout.
  griglia_->doItemsLayout();
  griglia_->verticalScrollBar()->setValue(posto);
  Indica(codice);
}

void PaginaSceltaArchivio::Indica(const QString& codice) {
  if (codice.isEmpty()) return;
  for (int riga = 0; riga < griglia_->Modello().rowCount(); ++riga) {
    if (CodiceDi(riga).compare(codice, Qt::CaseInsensitive) != 0) continue;
    griglia_->VaiARiga(riga);
    return;
  }
}

void PaginaSceltaArchivio::Pronta() {
  MostraCodice({});
  selettore_->setFocus(Qt::OtherFocusReason);
}

bool PaginaSceltaArchivio::Esiste(const QString& codice) {
  MostraCodice(codice);
  return selettore_->Esiste();
}

void PaginaSceltaArchivio::MostraCodice(const QString& codice) {
  selettore_->Mostra(Valore(codice.toStdString()));
}

QString PaginaSceltaArchivio::Codice() const {
  return selettore_->text().trimmed();
}

bool PaginaSceltaArchivio::InRicerca(const QObject* controllo) const {
  if (controllo == cerca_) return true;
  const auto& campi = filtri_->Campi();
  return std::find(campi.begin(), campi.end(), controllo) != campi.end();
}

bool PaginaSceltaArchivio::SvuotaRicerca() {
  if (!InRicerca(QApplication::focusWidget()) || Filtro().Vuoto()) return false;
  cerca_->clear();
  filtri_->Svuota();
  return true;
}

bool PaginaSceltaArchivio::InvioInRicerca(const QObject* controllo) {
  if (!InRicerca(controllo)) return false;
  if (ripresa_->isActive()) Leggi();
  if (griglia_->Modello().rowCount() == 0) return true;
  if (griglia_->Modello().rowCount() == 1) {
    emit Scelto(CodiceDi(0));
    return true;
  }
  griglia_->setFocus();
  griglia_->VaiARiga(std::max(0, griglia_->RigaCorrente()));
  return true;
}

bool PaginaSceltaArchivio::eventFilter(QObject* oggetto, QEvent* evento) {
  // From the search straight into what it has found.
  if (evento->type() == QEvent::KeyPress && InRicerca(oggetto) &&
      static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Down) {
    if (ripresa_->isActive()) Leggi();
    if (griglia_->Modello().rowCount() > 0) {
      griglia_->setFocus();
      griglia_->VaiARiga(std::max(0, griglia_->RigaCorrente()));
    }
    return true;
  }
  return QWidget::eventFilter(oggetto, evento);
}

void PaginaSceltaArchivio::OrdinaFoco() {
  std::vector<QWidget*> inOrdine{selettore_, apri_, nuovo_, cerca_};
  for (auto* campo : filtri_->Campi()) inOrdine.push_back(campo);
  inOrdine.push_back(griglia_);
  for (auto* pulsante : pulsanti_) {
    if (pulsante != apri_ && pulsante != nuovo_) inOrdine.push_back(pulsante);
  }
  for (std::size_t i = 1; i < inOrdine.size(); ++i) {
    QWidget::setTabOrder(inOrdine[i - 1], inOrdine[i]);
  }
}

}  // namespace fenalto::screens
