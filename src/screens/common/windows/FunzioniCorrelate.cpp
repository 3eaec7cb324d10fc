#include "screens/common/windows/FunzioniCorrelate.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>

#include "screens/common/fields/Disposizione.h"

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
  if (disponibile) pulsanti << pulsante;
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
  griglia->setVerticalSpacing(2);
  int posto = 0;
  for (const auto& funzione : funzioni) {
    const int colonna = posto % perRiga;
    const bool ultima = &funzione == &funzioni.back();
    griglia->addWidget(PulsanteFunzione(finestre, funzione, pulsanti), posto / perRiga, colonna, 1,
                       ultima ? perRiga - colonna : 1);
    ++posto;
  }
  return riquadro;
}

}  // namespace fenalto::screens
