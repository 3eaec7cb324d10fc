#include "screens/vat/entry/PannelloContabile.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

QLabel* Cifra(const char* nome) {
  auto* cifra = new QLabel;
  cifra->setObjectName(QString::fromLatin1(nome));
  cifra->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  cifra->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return cifra;
}

void Rosso(QLabel* etichetta, bool rosso) {
  QPalette tavolozza;
  if (rosso) {
    tavolozza.setColor(QPalette::WindowText, Colore(Segno::Scaduto, etichetta->palette()));
  }
  etichetta->setPalette(tavolozza);
}

}  // namespace

PannelloContabile::PannelloContabile(vat::RegistrazioneIva& fatture, Finestre& finestre,
                                     Legatura& legatura, QWidget* genitore)
    : QWidget(genitore),
      fatture_(fatture),
      decimali_(finestre.Sessione().Euro() ? 2 : 0),
      totImponibile_(Cifra("TotImponibile")),
      totIva_(Cifra("TotIva")),
      totIvaInd_(Cifra("TotIvaInd")),
      totFat_(Cifra("TotFat")),
      digitato_(new CampoImporto(QStringLiteral("TotaleXVerifica"), nullptr, decimali_)),
      differenza_(Cifra("DifferenzaVerifica")),
      descrizioni_(finestre.Sessione()) {
  legatura.Lega(digitato_);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(CreaTotali());
  colonna->addWidget(CreaScrittura(), 1);
  connect(digitato_, &QLineEdit::textEdited, this, &PannelloContabile::Digitato);
}

QGroupBox* PannelloContabile::CreaTotali() {
  auto* riquadro = new QGroupBox(tr("Totali"));
  auto* griglia = new QGridLayout(riquadro);
  griglia->setHorizontalSpacing(Misura(Passo::Gruppo));
  griglia->setVerticalSpacing(Misura(Passo::Filo));
  const struct {
    QString testo;
    QLabel* cifra;
  } totali[] = {{tr("Imponibile"), totImponibile_},
                {tr("Iva"), totIva_},
                {tr("Iva indetraibile"), totIvaInd_},
                {tr("Totale fattura"), totFat_}};
  int colonna = 0;
  for (const auto& totale : totali) {
    griglia->addWidget(new QLabel(totale.testo), 0, colonna, Qt::AlignRight);
    griglia->addWidget(totale.cifra, 1, colonna);
    griglia->setColumnStretch(colonna, 1);
    ++colonna;
  }
  InGrassetto(*totFat_);
  constexpr int kCifre = 12;
  LargoCaratteri(digitato_, kCifre);
  digitato_->setToolTip(tr("il totale scritto sul documento: si confronta con le righe"));
  griglia->addWidget(Didascalia(tr("Tot. di controllo"), digitato_), 2, 0, Qt::AlignRight);
  griglia->addWidget(digitato_, 2, 1);
  griglia->addWidget(new QLabel(tr("Differenza")), 2, 2, Qt::AlignRight);
  griglia->addWidget(differenza_, 2, 3);
  return riquadro;
}

QGroupBox* PannelloContabile::CreaScrittura() {
  auto* riquadro = new QGroupBox(tr("Scrittura contabile"));
  scrittura_ = new Griglia(QStringLiteral("GrigliaContabile"), QStringLiteral("Fatture"),
                           {{tr("Conto"), Tipo::Testo, 72},
                            {tr("Descrizione"), Tipo::Testo, 150},
                            {tr("Dare"), Tipo::Importo, 88},
                            {tr("Avere"), Tipo::Importo, 88}});
  scrittura_->QuandoVuota(
      QObject::tr("la scrittura contabile si forma mentre si digitano le righe"));
  scrittura_->Modello().Decimali(decimali_);
  scrittura_->setFocusPolicy(Qt::ClickFocus);
  quadratura_ = Cifra("Quadratura");
  auto* colonna = new QVBoxLayout(riquadro);
  colonna->setSpacing(Misura(Passo::Filo));
  colonna->addWidget(scrittura_, 1);
  colonna->addWidget(quadratura_);
  return riquadro;
}

void PannelloContabile::Digitato() {
  const auto letto = digitato_->Letto();
  if (!letto || fatture_.StatoCorrente() < vat::RegistrazioneIva::Stato::Aperta) return;
  fatture_.Testa().Scrivi("TotaleXVerifica", letto.Valore());
  MostraTotali();
}

void PannelloContabile::MostraTotali() {
  const auto testo = [this](Importo importo) {
    return QString::fromStdString(ScriviImporto(importo, decimali_));
  };
  totImponibile_->setText(testo(fatture_.TotImponibile()));
  totIva_->setText(testo(fatture_.TotIva()));
  totIvaInd_->setText(testo(fatture_.TotIvaInd()));
  totFat_->setText(testo(fatture_.TotFat()));
  const auto differenza = fatture_.DifferenzaVerifica();
  const bool diverso = differenza && !differenza->Zero();
  differenza_->setText(differenza ? testo(*differenza) : QString());
  Rosso(differenza_, diverso);
}

void PannelloContabile::MostraScrittura() {
  std::vector<std::vector<Valore>> righe;
  Importo dare;
  Importo avere;
  for (const auto& riga : fatture_.RigheContabili()) {
    righe.push_back(
        {riga.conto, descrizioni_.Di(riga.cfp, riga.conto), riga.impoDare, riga.impoAvere});
    dare += riga.impoDare;
    avere += riga.impoAvere;
  }
  const bool vuota = righe.empty();
  scrittura_->Modello().Righe(std::move(righe));
  const auto testo = [this](Importo importo) {
    return QString::fromStdString(ScriviImporto(importo, decimali_));
  };
  quadratura_->setText(vuota ? tr("si forma con le righe")
                             : tr("dare %1   avere %2").arg(testo(dare), testo(avere)));
}

void PannelloContabile::Mostra() {
  MostraTotali();
  MostraScrittura();
}

}  // namespace fenalto::screens
