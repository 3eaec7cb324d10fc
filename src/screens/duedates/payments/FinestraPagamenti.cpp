#include "screens/duedates/payments/FinestraPagamenti.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/PiedeGriglia.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"
#include "screens/common/rows/RiquadroDiRiga.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/duedates/GrigliaScadenze.h"
#include "screens/duedates/SceltaParte.h"

namespace fenalto::screens {
namespace {

using Modo = duedates::PagamentiScadenzario::Modo;
using Stato = duedates::PagamentiScadenzario::Stato;

constexpr int kColonnaPagato = 6;
constexpr int kColonnaNum = 9;  ///< of the rows, after the columns shown
constexpr int kCaratteriParte = 40;

QLabel* Totale(const char* nome) {
  auto* etichetta = new QLabel;
  etichetta->setObjectName(QString::fromLatin1(nome));
  etichetta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  InGrassetto(*etichetta);
  return etichetta;
}

/// Settings of the registration; the registration itself may be left out for one party.
records::DescrizioneForma FormaImpostazioni(bool piuParti) {
  constexpr const char* kRiquadro = "FrameImpostazioni";
  constexpr int kConto = 10;
  const std::string n = piuParti ? "1" : "2";
  const auto codice = [&](const char* nome, const char* didascalia, std::string fonte,
                          int caratteri) {
    return records::DiCodice(nome + n, didascalia, std::move(fonte), caratteri)
        .In(kRiquadro)
        .Accanto()
        .Peso(1);
  };
  records::DescrizioneForma forma{
      .campi = {codice("CausalePagScad", "Causale", "causali", 5),
                codice("ContropartitaPagScad", "Contropartita", "contropartite", kConto),
                codice("ContoArrotondamentiPagScad", "Arrotondamenti", "contropartite", kConto)},
      .riquadri = {{.nome = kRiquadro, .titolo = "Registrazione contabile", .largo = true}}};
  if (piuParti) return forma;
  forma.campi.push_back(
      records::Digitato("RegistrazioneContabilePagScad2", "Creo registrazione contabile")
          .In(kRiquadro)
          .Accanto());
  return forma;
}

records::DescrizioneForma FormaRiga() {
  constexpr int kImporto = kCifreImporto - 1;
  return {.campi = {records::Digitato("Importo", "Da saldare", kImporto).Fermo(),
                    records::Digitato("ImportoPagato", "Importo pagato", kImporto),
                    records::Digitato("Arrotondamento", "Arrotondamento", kImporto),
                    records::Digitato("Saldata", "scadenza saldata")}};
}

}  // namespace

struct FinestraPagamenti::Interno {
  Interno(FinestraPagamenti& finestraUsata, Finestre& gestoreUsato, Modo modoUsato);
  QLayout* CreaTesta();
  CampiForma* Compila(records::DescrizioneForma forma, Legatura* legatura, QVBoxLayout& dove);
  QLayout* CreaRicerca();
  QWidget* CreaGriglie();
  QWidget* CreaRighe();
  QWidget* CreaRiga();
  QLayout* CreaPiede();
  void Collega();
  void CollegaPulsanti();

  void ParteCambiata();
  void Nuovo();
  void Cerca();
  void Scegli(std::int64_t numero);
  void ScegliTutte();
  void ApriRiga(int indice);
  void ConfermaRiga();
  void EliminaRiga();
  bool AnnullaRiga();
  void Conferma();
  void VaiAlRifiutato();
  /// Fields of the head and of the settings as Enter goes through them.
  [[nodiscard]] QList<QWidget*> OrdineTesta() const;
  void ApriArchivio();
  void Mostra();
  void MostraRighe();
  [[nodiscard]] bool Aperto() const { return caso.StatoCorrente() != Stato::Inattiva; }
  /// Takes what is typed anywhere; false when something can't be read (told).
  bool Raccogli() { return impostazioni->Raccogli() && testa->Raccogli() && riga->Raccogli(); }

  FinestraPagamenti& finestra;
  Finestre& gestore;
  Modo modo;
  QString titolo;
  duedates::PagamentiScadenzario caso;
  Scheda ricerca;

  Legatura* impostazioni;
  Legatura* testa;
  Legatura* riga;
  Legatura* filtri;
  SceltaParte* parte;
  GrigliaScadenze* scadenze;
  Griglia* righe;
  CampiForma* contabili = nullptr;
  QGroupBox* riquadroRiga = nullptr;
  QLabel* quale = nullptr;
  QLabel* suggerimento;  ///< in the row's place while none is open
  QCheckBox* veloce;
  QLabel* trovate = new EtichettaElisa;
  QLabel* totPagato = Totale("TotPagato");
  QLabel* totArrotondamento = Totale("TotArrotondamento");
  QPushButton* nuovo;
  QPushButton* cerca;
  QPushButton* tutte;
  QPushButton* archivio;
  QPushButton* confermaRiga;
  QPushButton* arrotonda;
  QPushButton* eliminaRiga;
  QPushButton* annullaRiga;
  QPushButton* conferma;
  QPushButton* abbandona;
};

FinestraPagamenti::Interno::Interno(FinestraPagamenti& finestraUsata, Finestre& gestoreUsato,
                                    Modo modoUsato)
    : finestra(finestraUsata),
      gestore(gestoreUsato),
      modo(modoUsato),
      titolo(finestraUsata.windowTitle()),
      caso(gestoreUsato.Sessione(), modoUsato),
      impostazioni(new Legatura([this]() -> Scheda& { return caso.Impostazioni(); },
                                gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      testa(new Legatura([this]() -> Scheda& { return caso.Testa(); },
                         gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      riga(new Legatura([this]() -> Scheda& { return caso.Riga(); },
                        gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      filtri(new Legatura([this]() -> Scheda& { return ricerca; },
                          gestoreUsato.Sessione().Dialogo(), &finestraUsata)),
      parte(new SceltaParte(gestoreUsato, modoUsato == Modo::PiuParti ? tr("tutti") : QString())),
      scadenze(new GrigliaScadenze(finestraUsata.Nome())),
      righe(new Griglia(
          QStringLiteral("GrigliaRighe"), finestraUsata.Nome(),
          {{tr("Conto"), Tipo::Testo, 60},
           {tr("Cliente/fornitore"), Tipo::Testo, 145, 2, QStringLiteral("Ragsoc")},
           {tr("N. fattura"), Tipo::Testo, 70, 2, QStringLiteral("NFat"), true},
           {tr("Data fattura"), Tipo::Data, 90, 2, QStringLiteral("DtFat")},
           {tr("Scadenza"), Tipo::Data, 90, 2, QStringLiteral("DataScad")},
           {tr("Da saldare"), Tipo::Importo, 95, 2, QStringLiteral("Importo")},
           {tr("Importo pagato"), Tipo::Importo, 105, 2, QStringLiteral("ImportoPagato")},
           {tr("Arrotondamento"), Tipo::Importo, 105},
           {tr("Saldata"), Tipo::Booleano, 60}})),
      suggerimento(new QLabel(
          tr("Doppio clic o Invio su una scadenza la mette nel pagamento; un clic su una "
             "riga la riapre.\n\nCon \"Selezione veloce\" la scadenza si salda per intero "
             "e non c'è altro da digitare."))),
      veloce(new QCheckBox(tr("Selezione veloce"))),
      nuovo(Pulsante(QStringLiteral("Nuovo"), tr("Nuova Registrazione"), tr("Ins"))),
      cerca(Pulsante(QStringLiteral("Command1"), tr("Cerca scadenze"), tr("F5"))),
      tutte(Pulsante(QStringLiteral("SelezionaTutte"), tr("Seleziona tutte"))),
      archivio(Pulsante(QStringLiteral("Command2"), tr("Archivio scadenze"))),
      confermaRiga(Pulsante(QStringLiteral("ConfermaRiga"), tr("Conferma riga"), tr("Ctrl+Invio"))),
      arrotonda(
          Pulsante(QStringLiteral("ArrotondaDifferenza"), tr("Differenza ad arrotondamento"))),
      eliminaRiga(Pulsante(QStringLiteral("EliminaRiga"), tr("Elimina riga"), tr("Ctrl+Canc"))),
      annullaRiga(Pulsante(QStringLiteral("AnnullaRiga"), tr("Abbandona riga"), tr("Esc"))),
      conferma(Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"))),
      abbandona(Pulsante(QStringLiteral("Annulla"), tr("Abbandona"), tr("Esc"))) {
  ricerca.Aggiungi("nfat", Tipo::Testo);
  ricerca.Aggiungi("dtfat", Tipo::Data);
  veloce->setObjectName(QStringLiteral("SelezioneVeloce"));
  veloce->setToolTip(tr("le scadenze scelte si saldano per intero, senza aprire la riga"));
  trovate->setObjectName(QStringLiteral("Trovate"));
  suggerimento->setWordWrap(true);
  suggerimento->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  auto* colonna = new QVBoxLayout(&finestra);
  colonna->addLayout(CreaTesta());
  auto* contabile = new QVBoxLayout;
  contabili = Compila(FormaImpostazioni(modo == Modo::PiuParti), impostazioni, *contabile);
  colonna->addLayout(contabile);
  colonna->addLayout(CreaRicerca());
  colonna->addWidget(CreaGriglie(), 1);
  colonna->addLayout(CreaPiede());
  AssegnaMnemoniche({nuovo, cerca, tutte, archivio, confermaRiga, arrotonda, eliminaRiga,
                     annullaRiga, conferma, abbandona});
  Collega();
  CollegaPulsanti();
  for (auto* legatura : {impostazioni, testa, filtri}) legatura->Mostra();
  Mostra();
}

QLayout* FinestraPagamenti::Interno::CreaTesta() {
  auto* griglia = new QGridLayout;
  auto* data = CampoGiorno("Dt", gestore.Sessione());
  auto* descrizione = new CampoTesto(QStringLiteral("Descrizione"));
  auto* diParte = new CampoTesto(QStringLiteral("DescrizioneParte"));
  diParte->setPlaceholderText(tr("come la descrizione"));
  diParte->setToolTip(
      tr("descrizione della riga del cliente o fornitore, seguita dal numero della "
         "fattura"));
  for (QWidget* campo : std::initializer_list<QWidget*>{data, descrizione, diParte}) {
    testa->Lega(campo);
  }
  griglia->addWidget(Didascalia(tr("Cliente/fornitore"), &parte->Campo()), 0, 0);
  griglia->addWidget(parte, 0, 1);
  griglia->addWidget(Didascalia(tr("Data registrazione"), data), 0, 2);
  griglia->addWidget(data, 0, 3);
  griglia->addWidget(Didascalia(tr("Descrizione contabile"), descrizione), 1, 0);
  griglia->addWidget(descrizione, 1, 1);
  griglia->addWidget(Didascalia(tr("sulle righe delle parti"), diParte), 1, 2);
  griglia->addWidget(diParte, 1, 3, 1, 2);
  griglia->addWidget(nuovo, 0, 4);
  LargoCaratteri(diParte, kCaratteriParte);
  griglia->setColumnStretch(1, 1);
  return griglia;
}

CampiForma* FinestraPagamenti::Interno::Compila(records::DescrizioneForma forma, Legatura* legatura,
                                                QVBoxLayout& dove) {
  auto* campi = new CampiForma(gestore.Sessione(), std::move(forma), {legatura}, dove);
  campi->setParent(&finestra);
  return campi;
}

QLayout* FinestraPagamenti::Interno::CreaRicerca() {
  auto* fila = new QHBoxLayout;
  auto* nFat = new CampoTesto(QStringLiteral("nfat"), nullptr, kLunghezzaFattura);
  LargoCaratteri(nFat, kCifreFattura);
  auto* dtFat = CampoGiorno("dtfat", gestore.Sessione());
  filtri->Lega(nFat);
  filtri->Lega(dtFat);
  Affianca(*fila, tr("Fattura n."), nFat);
  Affianca(*fila, tr("del"), dtFat);
  fila->addWidget(cerca);
  fila->addWidget(veloce);
  fila->addWidget(tutte);
  fila->addWidget(trovate, 1);
  fila->addWidget(archivio);
  return fila;
}

QWidget* FinestraPagamenti::Interno::CreaGriglie() {
  auto* griglie = new QSplitter(Qt::Vertical);
  griglie->addWidget(scadenze);
  griglie->addWidget(CreaRighe());
  griglie->setChildrenCollapsible(false);
  griglie->setStretchFactor(0, 2);
  griglie->setStretchFactor(1, 1);
  return griglie;
}

QWidget* FinestraPagamenti::Interno::CreaRighe() {
  auto* insieme = new QWidget;
  auto* fila = new QHBoxLayout(insieme);
  fila->setContentsMargins(0, 0, 0, 0);
  auto* elenco = new QVBoxLayout;
  elenco->addWidget(righe, 1);
  auto* piede = new PiedeGriglia(*righe, tr("Totali"));
  piede->Metti(kColonnaPagato, totPagato);
  piede->Metti(kColonnaPagato + 1, totArrotondamento);
  elenco->addWidget(piede);
  fila->addLayout(elenco, 1);
  auto* lato = new QGridLayout;
  lato->addWidget(CreaRiga(), 0, 0);
  lato->addWidget(suggerimento, 0, 0);
  fila->addLayout(lato);
  return insieme;
}

QWidget* FinestraPagamenti::Interno::CreaRiga() {
  riquadroRiga = new QGroupBox(tr("Riga"));
  riquadroRiga->setObjectName(QStringLiteral("FrameRiga"));
  auto* colonna = new QVBoxLayout(riquadroRiga);
  quale = new QLabel;
  quale->setObjectName(QStringLiteral("L_riga"));
  quale->setWordWrap(true);
  auto* campi = new QVBoxLayout;
  Compila(FormaRiga(), riga, *campi);
  auto* pulsanti = new QHBoxLayout;
  for (auto* pulsante : {confermaRiga, eliminaRiga, annullaRiga}) pulsanti->addWidget(pulsante);
  colonna->addWidget(quale);
  colonna->addLayout(campi);
  colonna->addWidget(arrotonda);
  colonna->addLayout(pulsanti);
  colonna->addStretch(1);
  annullaRiga->setFocusPolicy(Qt::TabFocus);
  // Its place stays free while no row is open, so that the grid doesn't jump at each one.
  QSizePolicy posto = riquadroRiga->sizePolicy();
  posto.setRetainSizeWhenHidden(true);
  riquadroRiga->setSizePolicy(posto);
  return riquadroRiga;
}

QLayout* FinestraPagamenti::Interno::CreaPiede() {
  auto* fila = new QHBoxLayout;
  fila->addStretch(1);
  fila->addWidget(conferma);
  fila->addWidget(abbandona);
  return fila;
}

void FinestraPagamenti::Interno::Collega() {
  auto* f = &finestra;
  connect(parte, &SceltaParte::ParteCambiata, f, [this] { ParteCambiata(); });
  connect(impostazioni, &Legatura::Lasciato, f, [this](const QString&, bool cambiato) {
    if (cambiato) caso.ImpostazioneLasciata();
  });
  connect(scadenze, &GrigliaScadenze::Scelta, f, [this](qint64 numero) { Scegli(numero); });
  scadenze->Segna([this](const std::vector<Valore>& valori) {
    return caso.Scelta(GrigliaScadenze::NumeroDi(valori));
  });
  connect(righe, &Griglia::RigaScelta, f, [this](int indice) { ApriRiga(indice); });
}

void FinestraPagamenti::Interno::CollegaPulsanti() {
  auto* f = &finestra;
  connect(nuovo, &QPushButton::clicked, f, [this] { Nuovo(); });
  connect(cerca, &QPushButton::clicked, f, [this] { Cerca(); });
  connect(tutte, &QPushButton::clicked, f, [this] { ScegliTutte(); });
  connect(archivio, &QPushButton::clicked, f, [this] { ApriArchivio(); });
  connect(confermaRiga, &QPushButton::clicked, f, [this] { ConfermaRiga(); });
  connect(eliminaRiga, &QPushButton::clicked, f, [this] { EliminaRiga(); });
  connect(annullaRiga, &QPushButton::clicked, f, [this] { AnnullaRiga(); });
  connect(arrotonda, &QPushButton::clicked, f, [this] {
    if (!riga->Raccogli()) return;
    caso.ArrotondaDifferenza();
    riga->Mostra();
    FocoInVista(confermaRiga);
  });
  connect(conferma, &QPushButton::clicked, f, [this] { Conferma(); });
  connect(abbandona, &QPushButton::clicked, f, [this] { finestra.Indietro(); });
  archivio->setEnabled(gestore.FunzioneDisponibile(QStringLiteral("Scadenze")));
}

void FinestraPagamenti::Interno::ParteCambiata() {
  caso.ScegliParte(parte->Cfp(), parte->Codice());
  impostazioni->Mostra();
  scadenze->Svuota();
  trovate->clear();
}

void FinestraPagamenti::Interno::Nuovo() {
  if (!Raccogli() || gestore.ControlloUscita(finestra)) return;
  if (!caso.Nuovo()) {
    Mostra();
    return VaiAlRifiutato();
  }
  Cerca();
  Mostra();
  if (scadenze->Modello().rowCount() > 0) scadenze->setFocus();
}

void FinestraPagamenti::Interno::Cerca() {
  if (!filtri->Raccogli()) return;
  const auto totale = scadenze->Cerca(
      gestore.Sessione(), caso.Ricerca(ricerca.Testo("nfat"), ricerca.Leggi("dtfat").Data()));
  trovate->setText(
      (totale.righe == 1 ? tr("%1 aperta, da saldare %2%3") : tr("%1 aperte, da saldare %2%3"))
          .arg(totale.righe)
          .arg(Qs(ScriviImporto(totale.Residuo(), 2)),
               totale.interrotta ? tr(" (ricerca interrotta)") : QString()));
  Mostra();
}

void FinestraPagamenti::Interno::Scegli(std::int64_t numero) {
  if (!Raccogli() || !caso.Scegli(numero, veloce->isChecked())) {
    Mostra();
    return;
  }
  Mostra();
  if (caso.StatoCorrente() == Stato::RigaAperta) {
    riquadroRiga->findChild<QWidget*>(QStringLiteral("ImportoPagato"))->setFocus();
  }
}

void FinestraPagamenti::Interno::ScegliTutte() {
  if (!Raccogli()) return;
  const int quante = scadenze->Modello().rowCount();
  const auto avanzamento = gestore.Sessione().Dialogo().Avvia("Selezione scadenze", quante);
  for (int i = 0; i < quante && avanzamento->Avanza(i); ++i) {
    const std::int64_t numero = scadenze->Numero(i);
    if (!caso.Scelta(numero) && !caso.Scegli(numero, true)) break;
  }
  Mostra();
  FocoInVista(conferma);
}

void FinestraPagamenti::Interno::ApriRiga(int indice) {
  if (indice < 0) return;
  const std::int64_t num = righe->Modello().Riga(indice)[kColonnaNum].Intero();
  const duedates::RigaScelta* aperta = caso.RigaInCorso();
  if (aperta == nullptr || aperta->num != num) {
    if (!Raccogli() || (aperta != nullptr && !caso.ConfermaRiga())) return;
    caso.ApriRiga(num);
    Mostra();
    righe->VaiARiga(indice);
  }
  riquadroRiga->findChild<QWidget*>(QStringLiteral("ImportoPagato"))->setFocus();
}

void FinestraPagamenti::Interno::ConfermaRiga() {
  if (!riga->Raccogli()) return;
  if (!caso.ConfermaRiga()) return VaiAlRifiutato();
  Mostra();
  scadenze->setFocus();
}

void FinestraPagamenti::Interno::EliminaRiga() {
  if (caso.EliminaRiga()) Mostra();
}

bool FinestraPagamenti::Interno::AnnullaRiga() {
  if (caso.StatoCorrente() != Stato::RigaAperta) return false;
  caso.AnnullaRiga();
  Mostra();
  scadenze->setFocus();
  return true;
}

void FinestraPagamenti::Interno::Conferma() {
  if (!Raccogli()) return;
  const bool scritto = caso.Conferma();
  if (scritto) Cerca();
  Mostra();
  if (scritto) {
    FocoInVista(nuovo);
  } else {
    VaiAlRifiutato();
  }
}

void FinestraPagamenti::Interno::VaiAlRifiutato() {
  const QString campo = Qs(caso.CampoRifiutato());
  auto* controllo = campo.isEmpty() ? nullptr : finestra.findChild<QWidget*>(campo);
  if (controllo != nullptr && controllo->isVisible() && controllo->isEnabled()) {
    controllo->setFocus(Qt::OtherFocusReason);
  }
}

QList<QWidget*> FinestraPagamenti::Interno::OrdineTesta() const {
  QList<QWidget*> ordine;
  for (const char* nome : {"CFPx", "CliFor", "Dt", "Descrizione", "DescrizioneParte"}) {
    ordine << finestra.findChild<QWidget*>(QString::fromLatin1(nome));
  }
  return ordine + contabili->Ordine();
}

void FinestraPagamenti::Interno::ApriArchivio() {
  gestore.Sessione().Dialogo().Messaggio(
      "attenzione alle modifiche sull'archivio scadenze mentre è aperto 'registrazione pagamenti'",
      Icona::Avviso);
  gestore.Segui({.funzione = "Scadenze"});
}

void FinestraPagamenti::Interno::MostraRighe() {
  std::vector<std::vector<Valore>> celle;
  celle.reserve(caso.Righe().size());
  for (const duedates::RigaScelta& r : caso.Righe()) {
    celle.push_back({r.vista.conto, r.nome, r.vista.nFat, r.vista.dtFat, r.vista.dt, r.importo,
                     r.importoPagato, r.arrotondamento, r.saldata, r.num});
  }
  righe->Modello().Righe(std::move(celle));
}

void FinestraPagamenti::Interno::Mostra() {
  MostraRighe();
  scadenze->viewport()->update();
  const bool aperto = Aperto();
  const duedates::RigaScelta* inCorso = caso.RigaInCorso();
  riga->Mostra();
  riquadroRiga->setVisible(inCorso != nullptr);
  suggerimento->setVisible(inCorso == nullptr);
  if (inCorso != nullptr) {
    quale->setText(tr("%1\nscadenza del %2").arg(Qs(inCorso->nome), Qs(inCorso->vista.dt.Testo())));
  }
  totPagato->setText(Qs(ScriviImporto(caso.TotPagato(), 2)));
  totArrotondamento->setText(Qs(ScriviImporto(caso.TotArrotondamento(), 2)));
  abbandona->setEnabled(aperto);
  tutte->setEnabled(aperto && scadenze->Modello().rowCount() > 0);
  parte->Bloccata(aperto, aperto && modo == Modo::SingolaParte);
  finestra.setWindowTitle(aperto ? QStringLiteral("registrazione pagamenti ") : titolo);
}

namespace {

QString Titolo(Modo modo) {
  return modo == Modo::PiuParti
             ? QObject::tr(
                   "Registrazione Pagamenti Da Scadenzario e Creazione automatica "
                   "registrazione contabile")
             : QObject::tr("Registrazione Pagamenti Da Scadenzario di un cliente o fornitore");
}

}  // namespace

FinestraPagamenti::FinestraPagamenti(Modo modo, Finestre& finestre)
    : FinestraFunzione(modo == Modo::PiuParti ? QStringLiteral("PagamentiDaScadenzario")
                                              : QStringLiteral("PagamentiDaScadenzario1Cli"),
                       Titolo(modo), finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre, modo);
}

FinestraPagamenti::~FinestraPagamenti() {
  hide();
}

bool FinestraPagamenti::InModifica() const {
  return interno_->caso.Modificata();
}

void FinestraPagamenti::Abbandona() {
  interno_->caso.Abbandona();
  interno_->Mostra();
}

bool FinestraPagamenti::Invio(QWidget& campo) {
  const auto ordine = interno_->OrdineTesta();
  if (!ordine.contains(&campo)) return false;
  if (auto* dopo = DopoInvio(ordine, campo)) {
    dopo->setFocus(Qt::TabFocusReason);
  } else if (interno_->Aperto()) {
    interno_->scadenze->setFocus(Qt::TabFocusReason);
  } else {
    PremiPassando(*interno_->nuovo);
  }
  return true;
}

bool FinestraPagamenti::Indietro() {
  const bool inRiga = interno_->caso.StatoCorrente() == Stato::RigaAperta;
  if (inRiga && (interno_->caso.Digitando() || interno_->riga->Pendente()) &&
      !Dialogo().Conferma(kLasciareRiga)) {
    return true;
  }
  if (interno_->AnnullaRiga()) return true;
  if (!interno_->Aperto()) return false;
  if (!Gestore().ControlloUscita(*this)) Abbandona();
  return true;
}

void FinestraPagamenti::Aggiorna() {
  interno_->Cerca();
}

void FinestraPagamenti::ApriRecord(const Rinvio& rinvio) {
  if (rinvio.classe.empty() || interno_->Aperto()) return;
  interno_->parte->Imposta(rinvio.classe, rinvio.codice);
}

}  // namespace fenalto::screens
