#include "screens/ledger/closing/PaginaControlli.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/windows/Attesa.h"

namespace fenalto::screens {
namespace {

/// After the columns shown: the finding's place.
constexpr std::size_t kPostoRilievo = 4;

}  // namespace

PaginaControlli::PaginaControlli(Finestre& finestre)
    : finestre_(finestre),
      griglia_(new Griglia(QStringLiteral("GrigliaControlli"), QStringLiteral("ChiusureAperture"),
                           {{tr("Controllo"), Tipo::Testo, 190},
                            {tr("Che cosa"), Tipo::Testo, 230, 2, QStringLiteral("Che")},
                            {tr("Dettaglio"), Tipo::Testo, 330},
                            {tr("Grave"), Tipo::Testo, 60}})),
      esito_(new QLabel) {
  griglia_->Elastica(2);
  griglia_->QuandoVuota(tr("nessun rilievo: l'anno si può chiudere"));
  griglia_->setToolTip(tr("doppio clic o Invio: dove si corregge"));
  esito_->setObjectName(QStringLiteral("EsitoControlli"));
  esito_->setWordWrap(true);
  InGrassetto(*esito_);
  auto* apri = Pulsante(QStringLiteral("ApriRilievo"), tr("Vado a vedere"));
  auto* controlla = Pulsante(QStringLiteral("Controlla"), tr("Controllo di nuovo"), tr("F5"));
  auto* piede = new QHBoxLayout;
  piede->addStretch(1);
  piede->addWidget(apri);
  piede->addWidget(controlla);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(esito_);
  colonna->addWidget(griglia_, 1);
  colonna->addLayout(piede);
  AssegnaMnemoniche({apri, controlla});
  connect(apri, &QPushButton::clicked, this, [this] { Vai(griglia_->RigaCorrente()); });
  connect(controlla, &QPushButton::clicked, this, [this] { Leggi(); });
  connect(griglia_, &Griglia::RigaDoppioClic, this, [this](int riga) { Vai(riga); });
  connect(griglia_, &Griglia::RigaInvio, this, [this](int riga) { Vai(riga); });
}

void PaginaControlli::Leggi() {
  const Attesa attesa;
  rilievi_ = ledger::ControllaPrimaDiChiudere(finestre_.Sessione());
  std::vector<std::vector<Valore>> righe;
  for (const ledger::RilievoChiusura& r : rilievi_) {
    righe.push_back({r.controllo, r.che, r.dettaglio, r.grave ? "sì" : "",
                     static_cast<std::int64_t>(righe.size())});
  }
  const auto gravi = std::ranges::count_if(rilievi_, &ledger::RilievoChiusura::grave);
  if (rilievi_.empty()) {
    esito_->setText(tr("Nessun rilievo: l'anno si può chiudere"));
  } else if (gravi == 0) {
    esito_->setText(tr("%1 cose da guardare, nessuna impedisce la chiusura").arg(righe.size()));
  } else {
    esito_->setText(tr("%1 rilievi gravi: la chiusura lascerebbe qualcosa indietro").arg(gravi));
  }
  griglia_->Modello().Righe(std::move(righe));
}

void PaginaControlli::Vai(int riga) {
  if (riga < 0) return;
  const auto posto =
      static_cast<std::size_t>(griglia_->Modello().Riga(riga)[kPostoRilievo].Intero());
  const Rinvio rinvio = rilievi_.at(posto).rinvio;
  if (!rinvio.Vuoto()) finestre_.Segui(rinvio);
}

}  // namespace fenalto::screens
