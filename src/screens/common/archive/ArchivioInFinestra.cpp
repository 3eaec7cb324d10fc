#include "screens/common/archive/ArchivioInFinestra.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "core/values/Testo.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/Scorrevole.h"

namespace fenalto::screens {
namespace {

/// The archive's record with nothing in it.
Scheda SchedaVuota(Ambiente& ambiente, const archives::DescrizioneArchivio& descrizione) {
  Scheda scheda(*ambiente.ArchivioDi(descrizione.chiave).Catalogo().Tabella(descrizione.tabella));
  for (const auto& [nome, tipo] : descrizione.campiExtra) scheda.Aggiungi(nome, tipo);
  return scheda;
}

/// The archive's form with code and description, which come first whether the archive tells
/// something of them or not.
records::DescrizioneForma FormaDi(const archives::DescrizioneArchivio& descrizione) {
  constexpr int kCaratteriDescrizione = 50;
  records::DescrizioneForma forma = descrizione;
  auto& campi = forma.campi;
  const auto descritto = [&](const std::string& nome) {
    return std::any_of(campi.begin(), campi.end(),
                       [&](const auto& campo) { return UgualeTesto(campo.nome, nome); });
  };
  const bool conCodice = descritto("Cod");
  if (!descrizione.campoDescrizione.empty() && !descritto(descrizione.campoDescrizione)) {
    campi.insert(campi.begin(), {.nome = descrizione.campoDescrizione,
                                 .didascalia = "Descrizione",
                                 .caratteri = kCaratteriDescrizione});
  }
  if (conCodice) {
    std::stable_partition(campi.begin(), campi.end(),
                          [](const auto& campo) { return UgualeTesto(campo.nome, "Cod"); });
  } else if (!descrizione.codiceComposto) {
    campi.insert(campi.begin(),
                 {.nome = "Cod", .didascalia = "Codice", .caratteri = descrizione.caratteriCodice});
  }
  return forma;
}

}  // namespace

FinestraArchivio::Interno::Interno(FinestraArchivio& finestraUsata, Finestre& gestoreUsato,
                                   archives::DescrizioneArchivio descrizione)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      archivio(gestoreUsato.Sessione(), std::move(descrizione)),
      vuota(SchedaVuota(gestoreUsato.Sessione(), archivio.Descrizione())),
      legami(std::make_unique<Legatura>(
          [this]() -> Scheda& { return archivio.Aperto() ? archivio.Record() : vuota; },
          gestoreUsato.Sessione().Dialogo(), nullptr)) {
  archivio.Contesto().uscite = &gestore.Uscite();
  archivio.Contesto().apri = [this](const Rinvio& rinvio) { gestore.Segui(rinvio); };
}

void FinestraArchivio::Interno::Disponi() {
  divisione = new QSplitter(&finestra);
  divisione->setChildrenCollapsible(false);
  divisione->addWidget(CreaScelta());
  divisione->addWidget(CreaRecord());
  divisione->setStretchFactor(0, 1);
  divisione->setStretchFactor(1, 2);
  auto* colonna = new QVBoxLayout(&finestra);
  const int margine = Misura(Passo::Filo);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->addWidget(divisione);
  Divisione();
}

void FinestraArchivio::Interno::Divisione() {
  constexpr int kScelta = 420;
  constexpr int kRecord = 760;
  const QString chiave = QStringLiteral("finestre/%1/divisione").arg(finestra.Nome());
  divisione->setSizes({Cresciuta(kScelta), Cresciuta(kRecord)});
  if (const auto prima = QSettings().value(chiave).toByteArray(); !prima.isEmpty()) {
    divisione->restoreState(prima);
  }
  connect(divisione, &QSplitter::splitterMoved, divisione,
          [this, chiave] { QSettings().setValue(chiave, divisione->saveState()); });
}

QWidget* FinestraArchivio::Interno::CreaScelta() {
  scelta = new QTabWidget;
  PreparaSchede(*scelta, QStringLiteral("SSTab1"));
  pagina = new PaginaSceltaArchivio(gestore.Sessione(), archivio.Descrizione());
  scelta->addTab(pagina, tr("Apri"));
  if (const auto& testo = archivio.Descrizione().sdoppiaDaScelta; !testo.empty()) {
    sdoppiaDa = Pulsante(QStringLiteral("Sdoppia"), Qs(testo));
    sdoppiaDa->setToolTip(tr("un codice nuovo con i dati di quello indicato sopra"));
    pagina->AggiungiPulsante(sdoppiaDa);
    connect(sdoppiaDa, &QPushButton::clicked, &finestra, [this] { SdoppiaDaScelta(); });
  }
  return scelta;
}

QWidget* FinestraArchivio::Interno::CreaRecord() {
  lato = new QWidget;
  schede = new QTabWidget;
  PreparaSchede(*schede, QStringLiteral("SSTab2"));
  schede->addTab(CreaPagina(paginaRecord), QString());
  for (const auto& descritta : archivio.Descrizione().pagine) {
    auto* altra = CreaPagina(altrePagine[descritta.nome]);
    altra->setObjectName(Qs(descritta.nome));
    schede->addTab(altra, Qs(descritta.titolo));
  }
  campi = std::make_unique<CampiForma>(
      gestore.Sessione(), FormaDi(archivio.Descrizione()), QList<Legatura*>{legami.get()},
      [this](const std::string& nome) -> QVBoxLayout& {
        return nome.empty() ? *paginaRecord : *altrePagine.at(nome);
      });

  avviso = new QLabel;
  avviso->setObjectName(QStringLiteral("AvvisoRecord"));
  avviso->setWordWrap(true);
  riquadro = new QPlainTextEdit;
  riquadro->setObjectName(QStringLiteral("Riquadro"));
  riquadro->setReadOnly(true);
  riquadro->setLineWrapMode(QPlainTextEdit::NoWrap);
  riquadro->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  auto* alto = new QSplitter(Qt::Vertical);
  alto->setChildrenCollapsible(false);
  alto->addWidget(schede);
  alto->addWidget(riquadro);
  alto->setStretchFactor(0, 2);
  alto->setStretchFactor(1, 1);
  // The buttons stand on the line of those of the choice.
  const int margine = pagina->layout()->contentsMargins().bottom();
  auto* insieme = new QVBoxLayout(lato);
  insieme->setContentsMargins(0, 0, margine, margine);
  insieme->addWidget(alto, 1);
  insieme->addWidget(avviso);
  insieme->addWidget(CreaBarra());
  return lato;
}

QWidget* FinestraArchivio::Interno::CreaPagina(QVBoxLayout*& colonna) {
  auto* contenuto = new PianoScorrevole;
  auto* intera = new QVBoxLayout(contenuto);
  colonna = new QVBoxLayout;
  intera->addLayout(colonna);
  intera->addStretch(1);
  auto* scorri = new QScrollArea;
  scorri->setWidgetResizable(true);
  scorri->setFrameShape(QFrame::NoFrame);
  scorri->setFocusPolicy(Qt::NoFocus);
  scorri->setWidget(contenuto);
  return scorri;
}

QWidget* FinestraArchivio::Interno::CreaBarra() {
  precedente = Pulsante(QStringLiteral("Precedente"), tr("Precedente"), tr("Ctrl+Pag su"));
  successivo = Pulsante(QStringLiteral("Successivo"), tr("Successivo"), tr("Ctrl+Pag giù"));
  sdoppia = Pulsante(QStringLiteral("Sdoppia"), tr("Sdoppia"));
  sdoppia->setToolTip(tr("un codice nuovo con i dati di questo"));
  if (archivio.Descrizione().confermaPassando) {
    precedente->setToolTip(tr("Conferma e passa all'elemento precedente (Ctrl+Pag su)"));
    successivo->setToolTip(tr("Conferma e passa all'elemento successivo (Ctrl+Pag giù)"));
  }
  elimina = Pulsante(QStringLiteral("Elimina"), tr("Elimina"), tr("Ctrl+Canc"));
  annulla = Pulsante(QStringLiteral("Annulla"), tr("Annulla"), tr("Esc"));
  conferma = Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"));
  // A record can be given up from a field whose text can't be read.
  legami->Rinuncia(annulla);
  barra = new QWidget;
  auto* colonna = new QVBoxLayout(barra);
  colonna->setContentsMargins(0, 0, 0, 0);
  CreaPropri();
  if (!propri.isEmpty()) {
    auto* sopra = new QHBoxLayout;
    for (auto* pulsante : propri) sopra->addWidget(pulsante);
    sopra->addStretch(1);
    sopra->addWidget(sdoppia);
    colonna->addLayout(sopra);
  }
  auto* riga = new QHBoxLayout;
  riga->addWidget(precedente);
  riga->addWidget(successivo);
  if (propri.isEmpty()) riga->addWidget(sdoppia);
  riga->addStretch(1);
  for (auto* pulsante : {conferma, elimina, annulla}) riga->addWidget(pulsante);
  colonna->addLayout(riga);
  return barra;
}

void FinestraArchivio::Interno::CreaPropri() {
  for (const auto& descritto : archivio.Descrizione().pulsanti) {
    auto* pulsante = Pulsante(Qs(descritto.nome), Qs(descritto.testo));
    connect(pulsante, &QPushButton::clicked, &finestra, [this, &descritto] { Esegui(descritto); });
    const bool disponibile =
        descritto.finestra.empty() || gestore.FunzioneDisponibile(Qs(descritto.finestra));
    pulsante->setEnabled(disponibile);
    if (!disponibile) pulsante->hide();
    if (descritto.conRecord) {
      propri << pulsante;
      if (disponibile) disponibili << pulsante;
    } else {
      pagina->AggiungiPulsante(pulsante);
    }
  }
}

void FinestraArchivio::Interno::Collega() {
  auto* f = &finestra;
  CollegaScelta();
  connect(conferma, &QPushButton::clicked, f, [this] { Conferma(); });
  connect(elimina, &QPushButton::clicked, f, [this] { Elimina(); });
  connect(sdoppia, &QPushButton::clicked, f, [this] { Sdoppia(); });
  connect(annulla, &QPushButton::clicked, f, [this] { Lascia(); });
  connect(precedente, &QPushButton::clicked, f, [this] { Vicino(false); });
  connect(successivo, &QPushButton::clicked, f, [this] { Vicino(true); });
  for (auto [tasti, pulsante] : {std::pair{Qt::CTRL | Qt::Key_PageUp, precedente},
                                 std::pair{Qt::CTRL | Qt::Key_PageDown, successivo}}) {
    auto* scorciatoia = new QShortcut(QKeySequence(tasti), lato);
    scorciatoia->setContext(Qt::WidgetWithChildrenShortcut);
    connect(scorciatoia, &QShortcut::activated, pulsante, &QPushButton::click);
  }
  connect(legami.get(), &Legatura::Lasciato, f,
          [this](const QString& campo, bool cambiato) { CampoLasciato(campo, cambiato); });
  QList<QAbstractButton*> record{conferma, elimina, annulla, sdoppia, precedente, successivo};
  record += pagina->Pulsanti();
  std::copy_if(propri.begin(), propri.end(), std::back_inserter(record),
               [](const QAbstractButton* pulsante) {
                 return pulsante->isEnabledTo(pulsante->parentWidget());
               });
  AssegnaMnemoniche(record);
}

void FinestraArchivio::Interno::CollegaScelta() {
  auto* f = &finestra;
  connect(pagina, &PaginaSceltaArchivio::Scelto, f,
          [this](const QString& codice) { Scegli(codice); });
  connect(pagina, &PaginaSceltaArchivio::Nuovo, f, [this] { Comincia(); });
  connect(pagina, &PaginaSceltaArchivio::Stampa, f, [this] { Stampa(); });
  connect(pagina, &PaginaSceltaArchivio::Esporta, f,
          [this] { finestra.Esporta(pagina->Griglia()); });
}

void FinestraArchivio::Interno::OrdinaFoco() {
  pagina->OrdinaFoco();
  campi->OrdinaFoco();
}

}  // namespace fenalto::screens
