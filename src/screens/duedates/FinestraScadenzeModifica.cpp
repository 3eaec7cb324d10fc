#include "screens/duedates/FinestraScadenzeModifica.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/EtichettaElisa.h"
#include "screens/common/look/Misure.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/duedates/GrigliaScadenze.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreSelettore = 12;
constexpr int kAltezzaAnticipi = 110;

}  // namespace

FinestraScadenzeModifica::FinestraScadenzeModifica(Finestre& finestre)
    : FinestraConScadenza(QStringLiteral("ScadenzeModifica"), tr("Scadenze del documento"),
                          duedates::ArchivioScadenze::Uso::Documento, finestre),
      documento_(finestre.Sessione()),
      selettore_(new CampoTesto(QStringLiteral("Rt1"))),
      descrizione_(new EtichettaElisa),
      griglia_(new GrigliaScadenze(Nome())),
      totale_(new QLabel),
      anticipi_(new GrigliaScadenze(Nome(), nullptr, QStringLiteral("GrigliaAnticipi"))),
      memorizza_(Pulsante(QStringLiteral("MemorizzaStampa"), tr("Memorizza sulla fattura"))),
      apri_(Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio"))),
      nuovo_(Pulsante(QStringLiteral("Nuovo"), tr("Nuova scadenza"), tr("Ins"))) {
  descrizione_->setObjectName(QStringLiteral("DescrizioneDocumento"));
  totale_->setObjectName(QStringLiteral("Trovate"));
  auto* pagina = new QWidget;
  auto* colonna = new QVBoxLayout(pagina);
  colonna->addWidget(CreaTesta());
  colonna->addWidget(griglia_, 1);
  colonna->addWidget(CreaAnticipi());
  colonna->addWidget(CreaStampa());
  auto* piede = new QHBoxLayout;
  piede->addWidget(totale_, 1);
  piede->addWidget(nuovo_);
  colonna->addLayout(piede);
  AssegnaMnemoniche({apri_, memorizza_, nuovo_});
  Collega();
  Disponi(pagina, tr("Documento"));
  Mostra();
  selettore_->setFocus();
}

FinestraScadenzeModifica::~FinestraScadenzeModifica() {
  TogliPagine();
}

QWidget* FinestraScadenzeModifica::CreaTesta() {
  auto* testa = new QWidget;
  auto* fila = new QHBoxLayout(testa);
  fila->setContentsMargins(0, 0, 0, 0);
  LargoCaratteri(selettore_, kCifreSelettore);
  selettore_->setToolTip(tr("numero della registrazione, o anno|numero"));
  descrizione_->setTextFormat(Qt::PlainText);
  Affianca(*fila, tr("Registrazione n."), selettore_);
  fila->addWidget(apri_);
  fila->addSpacing(Misura(Passo::Gruppo));
  fila->addWidget(descrizione_, 1);
  return testa;
}

QWidget* FinestraScadenzeModifica::CreaAnticipi() {
  riquadroAnticipi_ = new QGroupBox(tr("Anticipi del cliente/fornitore"));
  auto* colonna = new QVBoxLayout(riquadroAnticipi_);
  colonna->addWidget(
      new QLabel(tr("per scalare gli anticipi dall'importo della scaenza è necessario fare doppio "
                    "click sulla scadenza:")));
  anticipi_->setMaximumHeight(Cresciuta(kAltezzaAnticipi));
  colonna->addWidget(anticipi_);
  return riquadroAnticipi_;
}

QWidget* FinestraScadenzeModifica::CreaStampa() {
  stampa_ = new QGroupBox(tr("stampa scadenze sulla fattura"));
  stampa_->setObjectName(QStringLiteral("FrameStampa"));
  auto* griglia = new QGridLayout(stampa_);
  const struct {
    const char* lettera;
    QString testo;
  } kScelte[] = {{"A", tr("A  scadenze evidenziate in fattura:")},
                 {"B", tr("B  in base al codice pagamento risulta:")},
                 {"C", tr("C  in base allo scadenzario risulta:")}};
  int riga = 0;
  for (const auto& scelta : kScelte) {
    auto* pulsante = new QRadioButton(scelta.testo);
    pulsante->setObjectName(QString::fromLatin1(scelta.lettera));
    auto* testo = new QLabel;
    testo->setObjectName(QStringLiteral("Testo") + QString::fromLatin1(scelta.lettera));
    testo->setTextFormat(Qt::PlainText);
    testo->setTextInteractionFlags(Qt::TextSelectableByMouse);
    griglia->addWidget(pulsante, riga, 0);
    griglia->addWidget(testo, riga, 1);
    testi_.push_back({pulsante, testo});
    ++riga;
  }
  griglia->addWidget(memorizza_, 0, 2, riga, 1, Qt::AlignBottom);
  griglia->setColumnStretch(1, 1);
  return stampa_;
}

void FinestraScadenzeModifica::Collega() {
  connect(apri_, &QPushButton::clicked, this,
          [this] { ApriDigitata(selettore_->text().toStdString()); });
  connect(griglia_, &GrigliaScadenze::Scelta, this, &FinestraScadenzeModifica::Scegli);
  connect(anticipi_, &GrigliaScadenze::Scelta, this, &FinestraScadenzeModifica::ApriScadenza);
  connect(nuovo_, &QPushButton::clicked, this, [this] { NuovaScadenza(documento_.Nuova()); });
  connect(memorizza_, &QPushButton::clicked, this, &FinestraScadenzeModifica::MemorizzaStampa);
}

void FinestraScadenzeModifica::Scegli(std::int64_t numero) {
  if (!Lascia()) return;
  documento_.DeduciAnticipi(numero);
  RileggiScelta();
  ApriScadenza(numero);
}

void FinestraScadenzeModifica::MemorizzaStampa() {
  std::string lettera;
  for (const auto& [scelta, testo] : testi_) {
    if (scelta->isChecked()) lettera = scelta->objectName().toStdString();
  }
  if (documento_.ScegliStampa(lettera)) Mostra();
}

void FinestraScadenzeModifica::Mostra() {
  const bool aperto = documento_.Aperto();
  descrizione_->setText(aperto ? QString::fromStdString(documento_.Descrizione())
                               : tr("scrivere il numero di una registrazione con scadenze"));
  nuovo_->setEnabled(aperto);
  GrigliaScadenze::Totale totale;
  if (aperto) totale = griglia_->Cerca(Sessione(), documento_.Ricerca());
  const QString importo = QString::fromStdString(ScriviImporto(totale.Residuo(), 2));
  totale_->setText(aperto ? tr("%1 scadenze, da pagare euro %2").arg(totale.righe).arg(importo)
                          : QString());
  riquadroAnticipi_->setVisible(aperto && !documento_.Anticipi().empty());
  if (aperto) anticipi_->Cerca(Sessione(), documento_.RicercaAnticipi());
  stampa_->setVisible(documento_.ConStampa());
  if (!documento_.ConStampa()) return;
  const auto testi = documento_.Testi();
  const std::string mostrati[] = {testi.evidenziate, testi.codice, testi.scadenzario};
  for (std::size_t i = 0; i < testi_.size(); ++i) {
    testi_[i].testo->setText(QString::fromStdString(mostrati[i]));
  }
}

void FinestraScadenzeModifica::RileggiScelta() {
  documento_.Rileggi();
  Mostra();
}

void FinestraScadenzeModifica::FocoScelta() {
  griglia_->setFocus();
}

void FinestraScadenzeModifica::ApriRecord(const Rinvio& rinvio) {
  ApriDigitata((rinvio.anno == 0 ? "" : std::to_string(rinvio.anno) + "|") + rinvio.codice);
}

void FinestraScadenzeModifica::ApriDigitata(const std::string& testo) {
  if (!Lascia()) return;
  const QString codice = QString::fromStdString(testo).trimmed();
  const QStringList parti = codice.split(QLatin1Char('|'));
  bool anno = parti.size() == 1;
  bool numero = false;
  const int quale = anno ? Sessione().Anno() : parti.front().toInt(&anno);
  const qint64 articolo = parti.back().toLongLong(&numero);
  if (!anno || !numero || !documento_.Apri(quale, articolo)) {
    descrizione_->setText(tr("nel %1 non c'è una registrazione con questo numero").arg(quale));
    selettore_->setFocus();
    return;
  }
  selettore_->setText(codice);
  Mostra();
  griglia_->setFocus();
}

}  // namespace fenalto::screens
