#include "screens/vat/entry/PaginaRegistro.h"

#include <QCheckBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/ElencoCercato.h"
#include "screens/common/lists/EsportaGriglia.h"
#include "screens/common/lists/SelettoreArticolo.h"
#include "screens/common/windows/FunzioniCorrelate.h"

namespace fenalto::screens {
namespace {

constexpr int kCorrelatePerRiga = 5;
constexpr int kCifre = 10;

constexpr FunzioneCorrelata kCorrelate[] = {
    {"FunzCor01", "primanota", "Movimenti"},
    {"FunzCor02", "registro iva unico", "STRegistroIvaUnico"},
    {"FunzCor03", "elenchi fatture", "StElenchiFatture"},
    {"FunzCor04", "elenco articoli contabili", "STArticoli"},
    {"FunzCor05", "movimenti per conto", "STMovimentiPerConto"},
    {"FunzCor06", "archivio scadenze", "Scadenze"},
    {"FunzCor07", "clienti", "Clienti"},
    {"FunzCor08", "fornitori", "Fornitori"},
    {"FunzCor09", "codici iva", "CodiciIva"},
    {"FunzCor10", "codici pagamento", "CodiciPagamento"},
    {"FunzCor11", "registri iva", "RegistriIva"},
};

}  // namespace

PaginaRegistro::PaginaRegistro(vat::RegistrazioneIva& fatture, Finestre& finestre,
                               QWidget* genitore)
    : QWidget(genitore), fatture_(fatture), finestre_(finestre), lettore_(finestre.Sessione()) {
  auto* griglia = new QGridLayout(this);
  griglia->addWidget(CreaSopra(), 0, 0, 1, 2);
  riquadroElenco_ = CreaElenco();
  griglia->addWidget(riquadroElenco_, 1, 0);
  auto* destra = new QVBoxLayout;
  destra->addWidget(CreaNuova());
  destra->addWidget(CreaOpzioni());
  riprotocollo_ = CreaRiprotocollo();
  destra->addWidget(riprotocollo_);
  destra->addStretch(1);
  griglia->addLayout(destra, 1, 1);
  pulsanti_ << esporta_;
  griglia->addWidget(RiquadroCorrelate(finestre_, kCorrelate, kCorrelatePerRiga, pulsanti_), 2, 0,
                     1, 2);
  griglia->setColumnStretch(0, 1);
  griglia->setRowStretch(1, 1);
  AssegnaMnemoniche(pulsanti_);
  Mostra();
}

QWidget* PaginaRegistro::CreaSopra() {
  constexpr int kCaratteriRegistro = 8;
  registro_ = new CampoCodice(QStringLiteral("RivaX"),
                              archives::Fonte(finestre_.Sessione(), "registri"), false);
  registro_->installEventFilter(this);
  connect(registro_, &CampoCodice::Scelto, this, &PaginaRegistro::ScegliRegistro);
  selettore_ = new SelettoreArticolo(
      [this](std::int64_t numero) {
        const QString testo = Qs(lettore_.Testo(numero));
        return testo.isEmpty() ? tr("nel %1 non c'è una registrazione iva con questo numero")
                                     .arg(finestre_.Sessione().Anno())
                               : testo;
      },
      this);
  selettore_->Descrizione().setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  connect(selettore_, &SelettoreArticolo::ApriChiesto, this, &PaginaRegistro::ApriChiesto);
  auto* riga = new QWidget;
  auto* disposizione = new QHBoxLayout(riga);
  disposizione->setContentsMargins(0, 0, 0, 0);
  disposizione->addWidget(Didascalia(tr("Registro iva"), registro_));
  disposizione->addWidget(ConDescrizione(registro_, kCaratteriRegistro), 2);
  constexpr int kPesoDescrizione = 3;
  selettore_->Disponi(*disposizione, kPesoDescrizione);
  pulsanti_ << selettore_->PulsanteApri();
  return riga;
}

QGroupBox* PaginaRegistro::CreaElenco() {
  auto* riquadro = new QGroupBox;
  auto* colonna = new QVBoxLayout(riquadro);
  FormaElenco forma{.finestra = QStringLiteral("Fatture"),
                    .griglia = QStringLiteral("ElencoFatture"),
                    .cerca = QStringLiteral("CercaFatture"),
                    .stato = QStringLiteral("StatoRicerca"),
                    .segnaposto = tr("numero, data, cliente o fornitore"),
                    .colonne = {{tr("Protocollo"), Tipo::Intero, 75},
                                {tr("Articolo"), Tipo::Intero, 65},
                                {tr("Data"), Tipo::Data, 80},
                                {tr("Codice"), Tipo::Testo, 70},
                                {tr("Cliente/fornitore"), Tipo::Testo, 160},
                                {tr("N. fattura"), Tipo::Testo, 80},
                                {tr("Data fattura"), Tipo::Data, 85},
                                {tr("Totale"), Tipo::Importo, 90}},
                    .testo = {},
                    .chiave = 1,
                    .ordinabile = true};
  forma.testo = [this](const FormaElenco::Letti& letti) {
    const bool vuoto = letti.righe == 0 && !fatture_.Registro().cod.empty();
    return vuoto ? tr("nessuna registrazione") : QString();
  };
  elenco_ = new ElencoCercato(std::move(forma), lettore_);
  elenco_->Griglia().Modello().Decimali(finestre_.Sessione().Euro() ? 2 : 0);
  elenco_->Cerca().setToolTip(
      tr("protocollo, articolo, numero della fattura, data, oppure codice o parte del nome"));
  esporta_ = Pulsante(QStringLiteral("XlsEsp"), tr("Esporta..."));
  elenco_->Aggiungi(esporta_);
  colonna->addWidget(elenco_);
  connect(esporta_, &QPushButton::clicked, this, &PaginaRegistro::Esporta);
  connect(elenco_, &ElencoCercato::Letto, esporta_,
          [this](int righe) { esporta_->setEnabled(righe > 0); });
  selettore_->Segui(*elenco_);
  return riquadro;
}

QGroupBox* PaginaRegistro::CreaNuova() {
  auto* riquadro = new QGroupBox(tr("Nuova registrazione"));
  titoloNuova_ = new QLabel;
  titoloNuova_->setObjectName(QStringLiteral("TitoloNuova"));
  titoloNuova_->setWordWrap(true);
  nuovo_ = Pulsante(QStringLiteral("Nuovo"), tr("Nuova registrazione"), tr("Ins"));
  pulsanti_ << nuovo_;
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(titoloNuova_);
  colonna->addWidget(nuovo_);
  connect(nuovo_, &QPushButton::clicked, this, &PaginaRegistro::NuovoChiesto);
  return riquadro;
}

QGroupBox* PaginaRegistro::CreaOpzioni() {
  auto* riquadro = new QGroupBox(tr("Controlli di questa stazione"));
  verificaTotale_ = new QCheckBox(tr("confronta le righe con il totale di controllo"));
  verificaTotale_->setObjectName(QStringLiteral("OptTotaleXVerifica"));
  verificaFatForn_ = new QCheckBox(tr("avvisa se la fattura del fornitore c'è già"));
  verificaFatForn_->setObjectName(QStringLiteral("OptVerifFatForn"));
  verificaTotale_->setChecked(fatture_.VerificaTotale());
  verificaFatForn_->setChecked(fatture_.VerificaFatForn());
  connect(verificaTotale_, &QCheckBox::clicked, this,
          [this](bool attiva) { fatture_.VerificaTotale(attiva); });
  connect(verificaFatForn_, &QCheckBox::clicked, this,
          [this](bool attiva) { fatture_.VerificaFatForn(attiva); });
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addWidget(verificaTotale_);
  colonna->addWidget(verificaFatForn_);
  return riquadro;
}

QGroupBox* PaginaRegistro::CreaRiprotocollo() {
  auto* riquadro = new QGroupBox(tr("Riprotocollo"));
  riquadro->setObjectName(QStringLiteral("FrameRiprotocollo"));
  daNProt_ = new CampoNumero(QStringLiteral("DaNProtX"));
  aNProt_ = new CampoNumero(QStringLiteral("AaNprotX"));
  riprotocolla_ = Pulsante(QStringLiteral("Riprotocollo"), QString());
  auto* riga = new QHBoxLayout;
  for (auto* campo : {daNProt_, aNProt_}) {
    LargoCaratteri(campo, kCifre);
    Affianca(*riga, campo == daNProt_ ? tr("Da n. protocollo") : tr("a"), campo);
  }
  riga->addStretch(1);
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->addLayout(riga);
  colonna->addWidget(riprotocolla_);
  connect(riprotocolla_, &QPushButton::clicked, this, &PaginaRegistro::Riprotocolla);
  return riquadro;
}

bool PaginaRegistro::eventFilter(QObject* oggetto, QEvent* evento) {
  if (oggetto != registro_ || evento->type() != QEvent::FocusOut) {
    return QWidget::eventFilter(oggetto, evento);
  }
  const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
  if (motivo == Qt::PopupFocusReason || motivo == Qt::ActiveWindowFocusReason ||
      !registro_->isVisible() || scegliendo_) {
    return false;
  }
  // The field first resolves its code.
  scegliendo_ = true;
  const bool digitato = registro_->isModified();
  const QString prima = registro_->text();
  registro_->removeEventFilter(this);
  oggetto->event(evento);
  registro_->installEventFilter(this);
  scegliendo_ = false;
  if (digitato || registro_->text() != prima) {
    ScegliRegistro();
  } else {
    // A code that was refused gives way to the register that is still chosen.
    registro_->Mostra(Valore(fatture_.Registro().cod));
  }
  return true;
}

void PaginaRegistro::ScegliRegistro() {
  if (scegliendo_) return;
  scegliendo_ = true;
  const bool scelto = fatture_.ScegliRegistro(registro_->text().toStdString());
  registro_->setModified(false);
  if (scelto) {
    Seleziona(0);
    Mostra();
    emit RegistroCambiato();
  } else {
    registro_->setFocus();
  }
  scegliendo_ = false;
}

void PaginaRegistro::Mostra() {
  MostraRegistro();
  if (lettore_.Registro(fatture_.Registro().cod, fatture_.ClasseParte())) elenco_->Svuota();
  elenco_->Ricarica();
  selettore_->Descrivi();
}

void PaginaRegistro::MostraRegistro() {
  const auto& scelto = fatture_.Registro();
  const bool nessuno = scelto.cod.empty();
  if (!nessuno) registro_->Mostra(Valore(scelto.cod));
  riquadroElenco_->setTitle(nessuno ? tr("Registrazioni: scegliere il registro iva")
                                    : tr("Registro iva %1 %2: registrazioni del %3")
                                          .arg(Qs(scelto.cod), Qs(scelto.descrizione))
                                          .arg(finestre_.Sessione().Anno()));
  titoloNuova_->setText(nessuno ? tr("scegliere il registro iva") : Qs(fatture_.TitoloNuova()));
  const QString testo = Qs(fatture_.TestoRiprotocollo());
  riprotocollo_->setVisible(!testo.isEmpty());
  riprotocolla_->setText(testo);
}

void PaginaRegistro::Seleziona(std::int64_t numero) {
  selettore_->Seleziona(numero);
}

void PaginaRegistro::FocoRegistro() {
  registro_->setFocus();
}

void PaginaRegistro::FocoSelettore() {
  selettore_->Foco();
}

void PaginaRegistro::FocoNuovo() {
  FocoInVista(nuovo_);
}

void PaginaRegistro::Esporta() {
  const auto& scelto = fatture_.Registro();
  EsportaGriglia(elenco_->Griglia(), finestre_.Sessione(),
                 "Registro iva " + scelto.cod + " " + scelto.descrizione);
}

void PaginaRegistro::Riprotocolla() {
  const auto da = daNProt_->Letto();
  const auto a = aNProt_->Letto();
  if (!da || !a) {
    const auto& errore = da ? a.Errore() : da.Errore();
    finestre_.Sessione().Dialogo().Messaggio(errore.messaggio, Icona::Avviso);
    (da ? aNProt_ : daNProt_)->setFocus();
    return;
  }
  if (fatture_.Riprotocolla(da.Valore().Intero(), a.Valore().Intero())) {
    daNProt_->clear();
    aNProt_->clear();
    Mostra();
  } else {
    daNProt_->setFocus();
  }
}

}  // namespace fenalto::screens
