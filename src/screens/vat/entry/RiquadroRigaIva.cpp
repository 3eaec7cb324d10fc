#include "screens/vat/entry/RiquadroRigaIva.h"

#include <QGridLayout>
#include <QPushButton>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {
namespace {

QHBoxLayout* RigaCampi() {
  constexpr int kSpazio = 6;
  auto* riga = new QHBoxLayout;
  riga->setSpacing(kSpazio);
  return riga;
}

}  // namespace

RiquadroRigaIva::RiquadroRigaIva(vat::RegistrazioneIva& fatture, Finestre& finestre,
                                 QWidget* genitore)
    : RiquadroSul(fatture, finestre, genitore) {
  CreaCampi();
  setLayout(DisponiCampi());
  OrdineTab();
  connect(scorpora_, &QPushButton::clicked, this, &RiquadroRigaIva::Scorpora);
}

void RiquadroRigaIva::CreaCampi() {
  auto& sessione = finestre_.Sessione();
  const int decimali = sessione.Euro() ? 2 : 0;
  posi_ = new CampoNumero(QStringLiteral("Posi"));
  conto_ = new CampoCodice(QStringLiteral("Conto"), archives::FonteConti(sessione, "P"));
  codIva_ = new CampoCodice(QStringLiteral("CodIva"), archives::Fonte(sessione, "codiciIva"));
  descrizione_ = new CampoTesto(QStringLiteral("Descrizione"));
  categoria_ = new CampoCodice(QStringLiteral("Categoria"), archives::Fonte(sessione, "categorie"));
  commessa_ = new CampoTesto(QStringLiteral("Commessa"));
  imponibile_ = new CampoImporto(QStringLiteral("Imponibile"), nullptr, decimali);
  iva_ = new CampoImporto(QStringLiteral("Iva"), nullptr, decimali);
  ivaInd_ = new CampoImporto(QStringLiteral("IvaInd"), nullptr, decimali);
  totale_ = new CampoImporto(QStringLiteral("Totale"), nullptr, decimali);
  totale_->setToolTip(tr("importo iva compresa, da scorporare"));
  scorpora_ = Pulsante(QStringLiteral("PulisciImporti"), tr("Scorpora il lordo"));
  for (QWidget* campo :
       std::initializer_list<QWidget*>{posi_, conto_, codIva_, descrizione_, categoria_, commessa_,
                                       imponibile_, iva_, ivaInd_, totale_}) {
    legatura_->Lega(campo);
  }
  legatura_->Rinuncia(annulla_);
}

QGridLayout* RiquadroRigaIva::DisponiCampi() {
  constexpr int kCifreImporto = 14;
  constexpr int kCifrePosi = 6;
  constexpr int kCaratteriConto = 12;
  constexpr int kCaratteriCodice = 7;
  for (auto* importo : {imponibile_, iva_, ivaInd_, totale_}) {
    LargoCaratteri(importo, kCifreImporto);
  }
  LargoCaratteri(posi_, kCifrePosi);
  auto* conto = RigaCampi();
  conto->addWidget(ConDescrizione(conto_, kCaratteriConto), 3);
  conto->addWidget(Didascalia(tr("Codice iva"), codIva_));
  conto->addWidget(ConDescrizione(codIva_, kCaratteriCodice), 2);
  conto->addWidget(Didascalia(tr("Posizione"), posi_));
  conto->addWidget(posi_);
  auto* importi = RigaCampi();
  importi->addWidget(imponibile_);
  importi->addWidget(Didascalia(tr("Iva"), iva_));
  importi->addWidget(iva_);
  importi->addWidget(Didascalia(tr("Iva indetraibile"), ivaInd_));
  importi->addWidget(ivaInd_);
  importi->addStretch(1);
  importi->addWidget(quale_);
  auto* testi = RigaCampi();
  testi->addWidget(descrizione_, 3);
  testi->addWidget(Didascalia(tr("Categoria"), categoria_));
  testi->addWidget(ConDescrizione(categoria_, kCaratteriCodice), 1);
  testi->addWidget(Didascalia(tr("Commessa"), commessa_));
  testi->addWidget(commessa_, 1);
  auto* griglia = new QGridLayout;
  griglia->setHorizontalSpacing(8);
  griglia->setVerticalSpacing(4);
  griglia->addWidget(Didascalia(tr("Conto"), conto_), 0, 0);
  griglia->addLayout(conto, 0, 1);
  griglia->addWidget(Didascalia(tr("Imponibile"), imponibile_), 1, 0);
  griglia->addLayout(importi, 1, 1);
  griglia->addWidget(Didascalia(tr("Descrizione"), descrizione_), 2, 0);
  griglia->addLayout(testi, 2, 1);
  griglia->addWidget(Didascalia(tr("Lordo"), totale_), 3, 0);
  griglia->addLayout(DisponiPulsanti(), 3, 1);
  griglia->setColumnStretch(1, 1);
  return griglia;
}

QHBoxLayout* RiquadroRigaIva::DisponiPulsanti() {
  auto* pulsanti = RigaCampi();
  pulsanti->addWidget(totale_);
  pulsanti->addWidget(scorpora_);
  pulsanti->addStretch(1);
  for (auto* pulsante : {conferma_, elimina_, annulla_}) pulsanti->addWidget(pulsante);
  return pulsanti;
}

void RiquadroRigaIva::OrdineTab() {
  Ordina({conto_, codIva_, imponibile_, iva_, ivaInd_, descrizione_, categoria_, commessa_,
          conferma_, elimina_, annulla_, totale_, scorpora_, posi_});
}

QList<QAbstractButton*> RiquadroRigaIva::Pulsanti() const {
  return RiquadroDiRiga::Pulsanti() << scorpora_;
}

void RiquadroRigaIva::CampoLasciato(const QString& campo, bool cambiato) {
  if (!cambiato || !RigaAperta()) return;
  caso_.RigaLasciata(campo.toStdString());
  legatura_->Mostra();
}

void RiquadroRigaIva::Mostra() {
  const bool scrivibile = !caso_.SolaLettura();
  for (QWidget* campo : std::initializer_list<QWidget*>{
           posi_, conto_, codIva_, descrizione_, categoria_, commessa_, imponibile_, iva_, ivaInd_,
           totale_, scorpora_, conferma_, elimina_}) {
    campo->setEnabled(scrivibile);
  }
  quale_->setText(caso_.RigaNuova() ? tr("nuova riga") : tr("riga esistente"));
  legatura_->Mostra();
}

void RiquadroRigaIva::Entra() {
  Mostra();
  show();
  auto* vuoto = conferma_->isEnabled() ? PrimoVuoto() : nullptr;
  if (vuoto != nullptr) {
    vuoto->setFocus();
  } else {
    PrendiFoco();
  }
}

QWidget* RiquadroRigaIva::PrimoVuoto() const {
  const auto& riga = caso_.Riga();
  if (riga.Testo("Conto").empty()) return conto_;
  if (riga.Testo("CodIva").empty()) return codIva_;
  return riga.Leggi("Imponibile").Importo().Zero() ? imponibile_ : nullptr;
}

void RiquadroRigaIva::Scorpora() {
  if (!legatura_->Raccogli()) return;
  caso_.PulisciImporti();
  legatura_->Mostra();
  if (codIva_->text().isEmpty()) {
    codIva_->setFocus();
  } else {
    PrendiFoco();
  }
}

bool RiquadroRigaIva::ConfermaRiga() {
  std::string campo;
  if (caso_.ConfermaRiga(&campo)) return true;
  Mostra();
  if (auto* controllo = findChild<QWidget*>(QString::fromStdString(campo));
      controllo != nullptr && !campo.empty()) {
    controllo->setFocus();
  }
  return false;
}

}  // namespace fenalto::screens
