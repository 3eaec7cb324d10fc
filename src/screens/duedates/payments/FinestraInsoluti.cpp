#include "screens/duedates/payments/FinestraInsoluti.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/payments/InsolutoRiba.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/lists/Griglia.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/duedates/SceltaParte.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kMassimoRicevute = 200;
constexpr std::size_t kColonnaNumero = 9;  ///< after the columns shown
constexpr int kAltezzaRicevute = 130;
constexpr int kTutto = 100;

}  // namespace

FinestraInsoluti::FinestraInsoluti(Finestre& finestre)
    : FinestraScadenzaDigitata(QStringLiteral("InsolutiRiba"), tr("Registrazione insoluti RiBa"),
                               static_cast<int>(duedates::FinestraPagamento::Insoluti),
                               std::make_unique<duedates::InsolutoRiba>(finestre.Sessione()),
                               finestre) {
  Disponi();
}

duedates::InsolutoRiba& FinestraInsoluti::Insoluto() const {
  return static_cast<duedates::InsolutoRiba&>(Caso());
}

void FinestraInsoluti::AltriRiquadri(QVBoxLayout& colonna) {
  // The grid takes the room that is left.
  colonna.addWidget(CreaRicevute(), kTutto);
  colonna.addWidget(CreaDatiRiba());
}

QWidget* FinestraInsoluti::CreaRicevute() {
  auto* riquadro = new QGroupBox(tr("Ricevute presentate: doppio clic su quella insoluta"));
  auto* colonna = new QVBoxLayout(riquadro);
  ricevute_ = new Griglia(QStringLiteral("GrigliaRicevute"), Nome(),
                          {{tr("DataScad"), Tipo::Data, 90},
                           {tr("ImportoE"), Tipo::Importo, 100},
                           {tr("NFat"), Tipo::Intero, 70},
                           {tr("DtFat"), Tipo::Data, 90},
                           {tr("Banca"), Tipo::Testo, 70},
                           {tr("Ndistinta"), Tipo::Intero, 80},
                           {tr("DtPres"), Tipo::Data, 90},
                           {tr("Insoluto n."), Tipo::Intero, 80},
                           {tr("Descrizione"), Tipo::Testo, 220}});
  ricevute_->setMinimumHeight(kAltezzaRicevute);
  colonna->addWidget(ricevute_);
  const auto scegli = [this](int riga) {
    if (riga < 0 || (Insoluto().Aperto() && Gestore().ControlloUscita(*this))) return;
    if (Insoluto().Aperto()) Insoluto().Abbandona();
    Insoluto().Riprendi(ricevute_->Modello().Riga(riga)[kColonnaNumero].Intero());
    Mostra();
  };
  connect(ricevute_, &Griglia::RigaDoppioClic, this, scegli);
  connect(ricevute_, &Griglia::RigaInvio, this, scegli);
  return riquadro;
}

QWidget* FinestraInsoluti::CreaDatiRiba() {
  auto* insieme = new QWidget;
  auto* fila = new QHBoxLayout(insieme);
  fila->setContentsMargins(0, 0, 0, 0);
  auto* riba = new QGroupBox(tr("Dati riba"));
  auto* linea = new QHBoxLayout(riba);
  constexpr int kCifreBanca = 5;
  const auto aggiungi = [&](QWidget* campo, const QString& testo, QBoxLayout& dove) {
    Dati().Lega(campo);
    dove.addWidget(Didascalia(testo, campo));
    dove.addWidget(campo);
  };
  auto* banca = CampoBanca("BancaPresentaz", Gestore());
  LargoCaratteri(banca, kCifreBanca);
  aggiungi(banca, tr("Banca"), *linea);
  banca->Etichetta()->setObjectName(QStringLiteral("Banca"));
  linea->addWidget(banca->Etichetta(), 1);
  auto* distinta = new CampoNumero(QStringLiteral("Ndistinta"));
  LargoCaratteri(distinta, kCifreNumero);
  aggiungi(distinta, tr("Distinta n."), *linea);
  aggiungi(CampoGiorno("DtPres", Gestore().Sessione()), tr("del"), *linea);
  auto* pagamento =
      new QGroupBox(tr("Estremi pagamento (dalla registrazione pagamenti da scadenzario)"));
  auto* estremi = new QHBoxLayout(pagamento);
  auto* pagato = new CampoImporto(QStringLiteral("ImportoPagatoE"));
  LargoCaratteri(pagato, kCifreImporto);
  pagato->setReadOnly(true);
  aggiungi(pagato, tr("Importo pagato"), *estremi);
  effettuata_ = new QLabel;
  effettuata_->setObjectName(QStringLiteral("RegContEffettuata"));
  estremi->addWidget(effettuata_);
  estremi->addStretch(1);
  fila->addWidget(riba, 1);
  fila->addWidget(pagamento);
  return insieme;
}

void FinestraInsoluti::AltroPiede(QHBoxLayout& piede) {
  selettore_ = new CampoNumero(QStringLiteral("Rt1"));
  LargoCaratteri(selettore_, kCifreNumero);
  auto* apri = Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio"));
  piede.addWidget(Didascalia(tr("Insoluto già registrato n."), selettore_));
  piede.addWidget(selettore_);
  piede.addWidget(apri);
  connect(apri, &QPushButton::clicked, this, &FinestraInsoluti::Apri);
  connect(selettore_, &QLineEdit::returnPressed, this, &FinestraInsoluti::Apri);
}

void FinestraInsoluti::ParteCambiata() {
  std::vector<std::vector<Valore>> righe;
  if (!Insoluto().Conto().empty()) {
    for (const duedates::RicevutaPresentata& r : Insoluto().Presentate(kMassimoRicevute)) {
      righe.push_back({r.dt, r.importoE, r.nFat, r.dtFat, r.banca, r.nDistinta, r.dtPres,
                       r.insoluto == 0 ? Valore() : Valore(r.insoluto), r.descrizione, r.numero});
    }
  }
  ricevute_->Modello().Righe(std::move(righe));
}

void FinestraInsoluti::Mostra() {
  FinestraScadenzaDigitata::Mostra();
  QString titolo = tr("Registrazione insoluti RiBa");
  if (Insoluto().Aperto()) titolo += tr(" - scadenza n. %1").arg(Insoluto().Numero());
  setWindowTitle(titolo);
  Parte().Bloccata(Insoluto().Aperto(), Insoluto().Aperto());
  effettuata_->setText(Insoluto().RegContEffettuata() ? tr("registrazione contabile effettuata")
                                                      : tr("registrazione da effettuare"));
}

void FinestraInsoluti::Apri() {
  const auto letto = selettore_->Letto();
  if (!letto || Gestore().ControlloUscita(*this)) return;
  const std::int64_t numero = letto.Valore().Intero();
  if (!Insoluto().Apri(numero)) return;
  const std::string cfp = Insoluto().Cfp();
  const std::string conto = Insoluto().Conto();
  Parte().Imposta(cfp, conto);
  Mostra();
}

void FinestraInsoluti::ApriRecord(const Rinvio& rinvio) {
  selettore_->setText(QString::fromStdString(rinvio.codice));
  Apri();
}

}  // namespace fenalto::screens
