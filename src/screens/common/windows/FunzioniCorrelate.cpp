#include "screens/common/windows/FunzioniCorrelate.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <algorithm>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {

void ASinistra(QPushButton* pulsante) {
  pulsante->setStyleSheet(QStringLiteral("text-align: left; padding: 4px 8px"));
}

QPushButton* PulsanteFunzione(Finestre& finestre, const FunzioneCorrelata& funzione,
                              QList<QAbstractButton*>& pulsanti) {
  const QString finestra = QString::fromLatin1(funzione.finestra);
  auto* pulsante = Pulsante(QString::fromLatin1(funzione.nome), QString::fromUtf8(funzione.testo));
  ASinistra(pulsante);
  const bool disponibile = finestre.FunzioneDisponibile(finestra);
  pulsante->setEnabled(disponibile);
  if (disponibile) {
    pulsanti << pulsante;
  } else {
    pulsante->hide();
  }
  QObject::connect(
      pulsante, &QPushButton::clicked, pulsante,
      [&finestre, rinvio = Rinvio{.funzione = funzione.finestra, .scheda = funzione.scheda}] {
        finestre.Segui(rinvio);
      });
  return pulsante;
}

QGroupBox* RiquadroCorrelate(Finestre& finestre, std::span<const FunzioneCorrelata> funzioni,
                             int perRiga, QList<QAbstractButton*>& pulsanti) {
  auto* riquadro = new QGroupBox(QObject::tr("funzioni correlate"));
  riquadro->setObjectName(QStringLiteral("FrameFunzCorr"));
  auto* griglia = new QGridLayout(riquadro);
  griglia->setVerticalSpacing(Misura(Passo::Filo));
  QList<QPushButton*> mostrati;
  for (const auto& funzione : funzioni) {
    auto* pulsante = PulsanteFunzione(finestre, funzione, pulsanti);
    if (pulsante->isEnabled()) {
      mostrati << pulsante;
    } else {
      pulsante->setParent(riquadro);
    }
  }
  int posto = 0;
  for (auto* pulsante : mostrati) {
    const int colonna = posto % perRiga;
    const bool ultimo = pulsante == mostrati.constLast();
    // The last one may have a long caption.
    const int larga = ultimo ? std::min(2, perRiga - colonna) : 1;
    griglia->addWidget(pulsante, posto / perRiga, colonna, 1, larga);
    ++posto;
  }
  if (mostrati.isEmpty()) riquadro->hide();
  return riquadro;
}

}  // namespace fenalto::screens
