#include "screens/vat/register/FinestraRegistroIva.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/OpzioniGrafiche.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/Attesa.h"
#include "screens/common/windows/InCorso.h"
#include "screens/vat/register/DatiRegistroIva.h"
#include "screens/vat/register/PaginaControlliIva.h"
#include "screens/vat/register/PaginaElenchiIva.h"
#include "screens/vat/register/PaginaLiquidazioneIva.h"
#include "screens/vat/register/PaginaPeriodoIva.h"

namespace fenalto::screens {
namespace {

enum Pagina { kPeriodo, kControlli, kLiquidazione, kElenchi };

constexpr int kRipresa = 200;  // ms

}  // namespace

struct FinestraRegistroIva::Interno {
  Interno(FinestraRegistroIva& finestraUsata, Finestre& gestoreUsato);
  void Collega();
  /// Reads what the page in sight shows, as soon as the window is idle.
  void ChiediLettura() { attesa->start(0); }
  void Leggi();
  void PeriodoCambiato();
  void Stampa();

  FinestraRegistroIva& finestra;
  DatiRegistroIva dati;
  OpzioniGrafiche opzioni;
  QTabWidget* schede;
  PaginaPeriodoIva* periodo;
  PaginaControlliIva* controlli;
  PaginaLiquidazioneIva* liquidazione;
  PaginaElenchiIva* elenchi;
  QPushButton* stampa;
  QTimer* attesa;
  bool leggendo = false;  ///< a reading or a print is under way
};

FinestraRegistroIva::Interno::Interno(FinestraRegistroIva& finestraUsata, Finestre& gestoreUsato)
    : finestra(finestraUsata),
      dati(gestoreUsato, nullptr),
      opzioni(finestraUsata.Nome(), gestoreUsato.Sessione(), dati.scheda, dati.legatura, true),
      schede(new QTabWidget),
      periodo(new PaginaPeriodoIva(dati, finestraUsata.Nome())),
      controlli(new PaginaControlliIva(dati, finestraUsata.Nome())),
      liquidazione(new PaginaLiquidazioneIva(dati, finestraUsata.Nome())),
      elenchi(new PaginaElenchiIva(dati, finestraUsata.Nome())),
      stampa(Pulsante(QStringLiteral("Stampa"), FinestraRegistroIva::tr("Stampa"))),
      attesa(new QTimer(&finestraUsata)) {
  PreparaSchede(*schede, QStringLiteral("SSTab1"));
  schede->addTab(periodo, tr("Periodo e registri"));
  schede->addTab(controlli, tr("Controlli"));
  schede->addTab(liquidazione, tr("Liquidazione"));
  schede->addTab(elenchi, tr("Elenchi"));
  auto* sotto = opzioni.Riga();
  sotto->addWidget(stampa);
  auto* colonna = new QVBoxLayout(&finestra);
  const int margine = Misura(Passo::Filo);
  colonna->setContentsMargins(margine, margine, margine, margine);
  colonna->addWidget(schede, 1);
  colonna->addLayout(sotto);
  QList<QAbstractButton*> pulsanti{stampa, periodo->Conferma(), controlli->PulsanteVedi()};
  AssegnaMnemoniche(pulsanti + elenchi->Pulsanti());
  stampa->setEnabled(false);
  dati.MostraOpzioni();
  Collega();
}

void FinestraRegistroIva::Interno::Collega() {
  auto* f = &finestra;
  attesa->setSingleShot(true);
  connect(attesa, &QTimer::timeout, f, [this] { Leggi(); });
  connect(schede, &QTabWidget::currentChanged, f, [this] { ChiediLettura(); });
  connect(stampa, &QPushButton::clicked, f, [this] { Stampa(); });
  connect(periodo, &PaginaPeriodoIva::PeriodoCambiato, f, [this] { PeriodoCambiato(); });
  connect(periodo, &PaginaPeriodoIva::IntervalliCambiati, f, [this] {
    controlli->Svuota();
    liquidazione->Svuota();
  });
  connect(&dati, &DatiRegistroIva::Cambiato, f, [this](const QString& campo) {
    if (!liquidazione->Ha(campo)) return;
    if (leggendo) return ChiediLettura();
    liquidazione->Calcola();
  });
}

void FinestraRegistroIva::Interno::PeriodoCambiato() {
  stampa->setEnabled(dati.confermato);
  controlli->Svuota();
  liquidazione->Svuota();
}

void FinestraRegistroIva::Interno::Leggi() {
  // A long reading lets events through: another one comes after it.
  if (leggendo) return attesa->start(kRipresa);
  const InCorso lettura(leggendo);
  const Attesa attesaLettura;
  switch (schede->currentIndex()) {
    case kControlli:
      controlli->Controlla();
      break;
    case kLiquidazione:
      liquidazione->Leggi();
      break;
    case kElenchi:
      elenchi->MostraChiusure();
      break;
    default:
      break;
  }
}

void FinestraRegistroIva::Interno::Stampa() {
  if (leggendo || !periodo->Raccogli()) return;
  dati.registro.Opzioni().xTar = opzioni.XTar();
  const InCorso lettura(leggendo);
  if (dati.registro.Stampa(dati.finestre.Uscite())) ChiediLettura();
}

FinestraRegistroIva::FinestraRegistroIva(Finestre& finestre)
    : FinestraFunzione(QStringLiteral("STRegistroIvaUnico"), tr("Stampa Registro Iva Unico"),
                       finestre) {
  interno_ = std::make_unique<Interno>(*this, finestre);
  interno_->periodo->FocoPeriodo();
}

FinestraRegistroIva::~FinestraRegistroIva() {
  hide();  // nothing is read from its fields any more
}

void FinestraRegistroIva::Aggiorna() {
  interno_->ChiediLettura();
}

}  // namespace fenalto::screens
