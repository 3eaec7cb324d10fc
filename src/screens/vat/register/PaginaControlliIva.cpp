#include "screens/vat/register/PaginaControlliIva.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kArticolo = 3;

}  // namespace

PaginaControlliIva::PaginaControlliIva(DatiRegistroIva& dati, const QString& finestra,
                                       QWidget* genitore)
    : QWidget(genitore),
      dati_(dati),
      griglia_(new Griglia(QStringLiteral("GrigliaControlli"), finestra,
                           {{tr("Esito"), Tipo::Testo, 80},
                            {tr("Registro"), Tipo::Testo, 70},
                            {tr("Protocollo"), Tipo::Intero, 90},
                            {tr("Articolo"), Tipo::Intero, 90},
                            {tr("Che cosa"), Tipo::Testo, 600}})),
      esito_(new QLabel),
      vedi_(Pulsante(QStringLiteral("VediRegistrazione"), tr("Vedi la registrazione"),
                     tr("Invio o doppio clic sulla riga"))) {
  esito_->setObjectName(QStringLiteral("EsitoControlli"));
  esito_->setWordWrap(true);
  auto* riga = new QHBoxLayout;
  riga->addWidget(esito_, 1);
  riga->addWidget(vedi_);
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(riga);
  colonna->addWidget(griglia_, 1);
  connect(vedi_, &QPushButton::clicked, this, &PaginaControlliIva::Vedi);
  connect(griglia_, &Griglia::RigaDoppioClic, this, &PaginaControlliIva::Vedi);
  connect(griglia_, &Griglia::RigaInvio, this, &PaginaControlliIva::Vedi);
  Svuota();
}

void PaginaControlliIva::Svuota() {
  griglia_->Modello().Righe({});
  esito_->setText(dati_.confermato ? QString() : tr("Scegliere il periodo e confermarlo"));
  vedi_->setEnabled(false);
}

void PaginaControlliIva::Controlla() {
  if (!dati_.confermato) return Svuota();
  const auto problemi = dati_.registro.Controlla();
  std::vector<std::vector<Valore>> righe;
  for (const auto& problema : problemi) {
    righe.push_back({Valore(problema.ferma ? "ferma" : "avvisa"), Valore(problema.riva),
                     Valore(problema.nProt), Valore(problema.numDoc), Valore(problema.testo)});
  }
  const auto fermano =
      std::count_if(problemi.begin(), problemi.end(),
                    [](const vat::ProblemaRegistro& problema) { return problema.ferma; });
  if (problemi.empty()) {
    esito_->setText(tr("Nessun problema: il registro può essere stampato"));
  } else if (fermano == 0) {
    esito_->setText(tr("La stampa chiederà conferma di quanto segue"));
  } else {
    esito_->setText(tr("La stampa non parte finché restano le righe segnate «ferma»"));
  }
  griglia_->Modello().Righe(std::move(righe));
  griglia_->VaiARiga(0);
  vedi_->setEnabled(!problemi.empty());
}

void PaginaControlliIva::Vedi() {
  const int riga = griglia_->RigaCorrente();
  if (riga < 0) return;
  const std::int64_t numero = griglia_->Modello().Riga(riga)[kArticolo].Intero();
  if (numero > 0) dati_.finestre.Segui(AllaRegistrazione(dati_.Sessione().Anno(), numero));
}

}  // namespace fenalto::screens
