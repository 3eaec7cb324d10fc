#include "screens/common/fields/OpzioniGrafiche.h"

#include <QHBoxLayout>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {
namespace {

constexpr int kMassimo = 9;  // mm
constexpr const char* kSi = "1";
constexpr const char* kNo = "0";

/// What was remembered, 0 when it can't be read or is beyond the limit.
Importo Allineamento(const std::string& testo) {
  const auto letto = LeggiImporto(testo);
  if (!letto || letto.Valore().Assoluto() > Importo::DaUnita(kMassimo)) return {};
  return letto.Valore();
}

}  // namespace

OpzioniGrafiche::OpzioniGrafiche(const QString& finestra, Ambiente& ambiente, Scheda& scheda,
                                 Legatura& legatura, bool soloGrafico)
    : QObject(&legatura),
      chiave_(finestra.toStdString()),
      ambiente_(ambiente),
      scheda_(scheda),
      legatura_(legatura),
      allineamento_(new CampoImporto(QStringLiteral("XTar"), nullptr, 0)) {
  allineamento_->setToolTip(
      tr("millimetri di cui spostare la stampa a destra (a sinistra se negativi), al massimo %1")
          .arg(kMassimo));
  constexpr int kCifre = 5;
  LargoCaratteri(allineamento_, kCifre);
  scheda_.Aggiungi("StGrafico", Tipo::Booleano);
  scheda_.Aggiungi("XTar", Tipo::Importo);
  scheda_.Scrivi("StGrafico", ambiente_.Config(chiave_) != kNo);
  scheda_.Scrivi("XTar", Allineamento(ambiente_.Config(chiave_ + "_XTar")));
  if (!soloGrafico) {
    // What is in force stands in the file, so that whoever looks there finds it.
    if (ambiente_.Config(chiave_).empty()) {
      ambiente_.ScriviImpostazione({}, "config", chiave_, kSi);
    }
    grafico_ = new QCheckBox(tr("Stampa in formato grafico"));
    grafico_->setObjectName(QStringLiteral("StGrafico"));
    grafico_->setToolTip(tr("caratteri proporzionali e riquadri, secondo il modello del tabulato"));
    legatura_.Lega(grafico_);
  }
  legatura_.Lega(allineamento_);
  connect(&legatura_, &Legatura::Lasciato, this, &OpzioniGrafiche::Lasciato);
}

QHBoxLayout* OpzioniGrafiche::Riga() {
  auto* riga = new QHBoxLayout;
  if (grafico_ != nullptr) {
    riga->addWidget(grafico_);
    riga->addSpacing(Misura(Passo::Stacco));
  }
  Affianca(*riga, tr("allineamento mm"), allineamento_);
  riga->addStretch(1);
  return riga;
}

double OpzioniGrafiche::XTar() const {
  return static_cast<double>(scheda_.Leggi("XTar").Importo().Decimillesimi()) /
         static_cast<double>(Importo::kScala);
}

void OpzioniGrafiche::Lasciato(const QString& campo, bool cambiato) {
  if (!cambiato) return;
  if (campo == QLatin1String("StGrafico")) {
    ambiente_.ScriviImpostazione({}, "config", chiave_, StGrafico() ? kSi : kNo);
  } else if (campo == QLatin1String("XTar")) {
    const std::string chiave = chiave_ + "_XTar";
    const Importo digitato = scheda_.Leggi("XTar").Importo();
    if (digitato.Assoluto() > Importo::DaUnita(kMassimo)) {
      scheda_.Scrivi("XTar", Allineamento(ambiente_.Config(chiave)));
      allineamento_->Mostra(scheda_.Leggi("XTar"));
      ambiente_.Dialogo().Messaggio("allineamento : valore max ammesso 9 mm", Icona::Avviso);
      return;
    }
    ambiente_.ScriviImpostazione({}, "config", chiave, ScriviImporto(digitato, 0));
  }
}

}  // namespace fenalto::screens
