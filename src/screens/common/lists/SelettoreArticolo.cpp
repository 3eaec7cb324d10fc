#include "screens/common/lists/SelettoreArticolo.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/lists/ElencoCercato.h"
#include "screens/common/look/EtichettaElisa.h"

namespace fenalto::screens {

SelettoreArticolo::SelettoreArticolo(std::function<QString(std::int64_t)> descrizione,
                                     QObject* genitore)
    : QObject(genitore),
      descrizione_(std::move(descrizione)),
      numero_(new CampoNumero(QStringLiteral("Rt1"))),
      apri_(Pulsante(QStringLiteral("Apri"), tr("Apri"), tr("Invio nel numero"))),
      descritto_(new EtichettaElisa) {
  constexpr int kCifre = 10;
  LargoCaratteri(numero_, kCifre);
  descritto_->setObjectName(QStringLiteral("Rt1Descrizione"));
  descritto_->setTextFormat(Qt::PlainText);
  connect(numero_, &QLineEdit::textChanged, this, &SelettoreArticolo::Descrivi);
  connect(apri_, &QPushButton::clicked, this, &SelettoreArticolo::Apri);
}

void SelettoreArticolo::Disponi(QHBoxLayout& riga, int peso, const QString& didascalia) {
  riga.addWidget(Didascalia(didascalia, numero_));
  riga.addWidget(numero_);
  riga.addWidget(apri_);
  riga.addWidget(descritto_, peso);
}

void SelettoreArticolo::Segui(const ElencoCercato& elenco) {
  connect(&elenco, &ElencoCercato::Indicato, this,
          [this](const QString& numero) { Seleziona(numero.toLongLong()); });
  connect(&elenco, &ElencoCercato::Scelto, this, [this](const QString& numero) {
    Seleziona(numero.toLongLong());
    Apri();
  });
}

void SelettoreArticolo::Seleziona(std::int64_t numero) {
  numero_->Mostra(Valore(numero));
}

void SelettoreArticolo::Foco() {
  numero_->setFocus();
}

void SelettoreArticolo::Descrivi() {
  const auto letto = numero_->Letto();
  if (!letto) {
    descritto_->setText(QString::fromStdString(letto.Errore().messaggio));
    return;
  }
  const auto numero = letto.Valore().Intero();
  descritto_->setText(numero == 0 ? QString() : descrizione_(numero));
  descritto_->setToolTip(descritto_->text());
}

void SelettoreArticolo::Apri() {
  Descrivi();
  const auto letto = numero_->Letto();
  const std::int64_t numero = letto ? letto.Valore().Intero() : 0;
  if (numero > 0) {
    emit ApriChiesto(numero);
  } else {
    numero_->setFocus();
  }
}

}  // namespace fenalto::screens
