#include "screens/vat/entry/TestaFattura.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreNumero = 9;
constexpr int kCifreData = 11;
constexpr int kCaratteriCodice = 12;

QLabel* Etichetta(const char* nome) {
  auto* etichetta = new QLabel;
  etichetta->setObjectName(QString::fromLatin1(nome));
  etichetta->setTextFormat(Qt::PlainText);
  return etichetta;
}

/// A small line under or beside a field, quieter than it.
QLabel* Nota(const char* nome) {
  auto* nota = Etichetta(nome);
  nota->setForegroundRole(QPalette::PlaceholderText);
  return nota;
}

QHBoxLayout* Riga() {
  auto* riga = new QHBoxLayout;
  riga->setSpacing(6);
  return riga;
}

}  // namespace

TestaFattura::TestaFattura(vat::RegistrazioneIva& fatture, Finestre& finestre, Legatura& legatura,
                           QWidget* genitore)
    : QWidget(genitore), fatture_(fatture), finestre_(finestre) {
  CreaCampi(legatura);
  setLayout(Disponi());
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TestaFattura::CreaCampi(Legatura& legatura) {
  auto& sessione = finestre_.Sessione();
  const auto annoEOggi = [&sessione] { return std::pair(sessione.Anno(), sessione.Ora().Oggi()); };
  riva_ = Etichetta("Riva");
  rivaDescrizione_ = Etichetta("RivaDescrizione");
  QFont grassetto = riva_->font();
  grassetto.setBold(true);
  riva_->setFont(grassetto);
  rivaDescrizione_->setFont(grassetto);
  nProt_ = new CampoTesto(QStringLiteral("NProt"));
  nProt_->setToolTip(tr("vuoto: lo assegna il programma alla conferma"));
  probabileNProt_ = Nota("ProbabileNProt");
  numDoc_ = new CampoNumero(QStringLiteral("NumDoc"));
  numDoc_->setToolTip(nProt_->toolTip());
  probabileNumDoc_ = Nota("ProbabileNumDoc");
  data_ = new CampoData(QStringLiteral("Dt"), annoEOggi);
  data_->setToolTip(tr("15, 1503, 150324 o 15/3: il resto si completa da solo"));
  parte_ = new CampoCodice(QStringLiteral("Contox"), archives::Fonte(sessione, "conti"), false);
  nFat_ = new CampoTesto(QStringLiteral("NFat"));
  dtFat_ = new CampoData(QStringLiteral("DtFat"), annoEOggi);
  dtIncasso_ = new CampoData(QStringLiteral("DtIncasso"), annoEOggi);
  pagamento_ = new CampoCodice(QStringLiteral("Pagamento"), archives::Fonte(sessione, "pagamenti"));
  nota_ = Nota("NotaPagamento");
  nota_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  descrizione_ = new CampoTesto(QStringLiteral("Descrizionex"));
  ep_ = Casella("Ep", tr("iva in sospensione"));
  variazione_ = Casella("NVarAnPrec", tr("nota di variazione anni precedenti"));
  for (QWidget* campo : std::initializer_list<QWidget*>{
           riva_, nProt_, probabileNProt_, numDoc_, probabileNumDoc_, data_, parte_, nFat_, dtFat_,
           dtIncasso_, pagamento_, descrizione_, ep_, variazione_}) {
    legatura.Lega(campo);
  }
}

QHBoxLayout* TestaFattura::DisponiNumeri() {
  LargoCaratteri(nProt_, kCifreNumero);
  LargoCaratteri(numDoc_, kCifreNumero);
  auto* riga = Riga();
  riga->addWidget(data_);
  riga->addSpacing(12);
  riga->addWidget(Didascalia(tr("Protocollo"), nProt_));
  riga->addWidget(nProt_);
  riga->addWidget(probabileNProt_);
  riga->addSpacing(12);
  riga->addWidget(Didascalia(tr("Articolo n."), numDoc_));
  riga->addWidget(numDoc_);
  riga->addWidget(probabileNumDoc_);
  riga->addStretch(1);
  return riga;
}

QHBoxLayout* TestaFattura::DisponiDocumento() {
  constexpr int kCaratteriFattura = 16;
  LargoCaratteri(nFat_, kCaratteriFattura);
  didascaliaDtFat_ = Didascalia(tr("del"), dtFat_);
  didascaliaDtFat_->setObjectName(QStringLiteral("EtichettaDtFat"));
  didascaliaIncasso_ = Didascalia(tr("Data incasso"), dtIncasso_);
  auto* riga = Riga();
  riga->addWidget(nFat_);
  riga->addWidget(didascaliaDtFat_);
  riga->addWidget(dtFat_);
  riga->addSpacing(12);
  riga->addWidget(didascaliaIncasso_);
  riga->addWidget(dtIncasso_);
  riga->addWidget(ep_);
  riga->addStretch(1);
  return riga;
}

QGridLayout* TestaFattura::Disponi() {
  for (auto* campo : {data_, dtFat_, dtIncasso_}) LargoCaratteri(campo, kCifreData);
  auto* griglia = new QGridLayout;
  griglia->setContentsMargins(0, 0, 0, 0);
  griglia->setHorizontalSpacing(8);
  griglia->setVerticalSpacing(4);
  auto* registro = Riga();
  registro->addWidget(riva_);
  registro->addWidget(rivaDescrizione_, 1);
  griglia->addWidget(new QLabel(tr("Registro iva")), 0, 0);
  griglia->addLayout(registro, 0, 1);
  griglia->addWidget(Didascalia(tr("Data"), data_), 1, 0);
  griglia->addLayout(DisponiNumeri(), 1, 1);
  didascaliaParte_ = Didascalia(tr("Fornitore"), parte_);
  didascaliaParte_->setObjectName(QStringLiteral("EtichettaParte"));
  griglia->addWidget(didascaliaParte_, 2, 0);
  griglia->addWidget(ConDescrizione(parte_, kCaratteriCodice), 2, 1);
  griglia->addWidget(Didascalia(tr("N. fattura"), nFat_), 3, 0);
  griglia->addLayout(DisponiDocumento(), 3, 1);
  griglia->addWidget(Didascalia(tr("Pagamento"), pagamento_), 4, 0);
  griglia->addWidget(ConDescrizione(pagamento_, kCaratteriCodice), 4, 1);
  griglia->addWidget(nota_, 5, 1);
  griglia->addWidget(Didascalia(tr("Descrizione"), descrizione_), 6, 0);
  auto* ultima = Riga();
  ultima->addWidget(descrizione_, 1);
  ultima->addWidget(variazione_);
  griglia->addLayout(ultima, 6, 1);
  griglia->setColumnStretch(1, 1);
  return griglia;
}

QList<QWidget*> TestaFattura::Ordine() const {
  return {data_, parte_, nFat_, dtFat_, dtIncasso_, pagamento_, descrizione_};
}

QList<QWidget*> TestaFattura::Rari() const {
  return {ep_, variazione_, nProt_, numDoc_};
}

void TestaFattura::ScegliParte() {
  const std::string classe = fatture_.ClasseParte();
  const QString etichetta = QString::fromStdString(fatture_.EtichettaParte());
  didascaliaParte_->setText(etichetta);
  parte_->setAccessibleName(etichetta);
  if (classe == classe_) return;
  parte_->Fonte(archives::FonteConti(finestre_.Sessione(), classe));
  classe_ = classe;
}

void TestaFattura::Mostra() {
  ScegliParte();
  const bool scrivibile = !fatture_.SolaLettura();
  for (auto* campo : Ordine() + Rari()) campo->setEnabled(scrivibile);
  rivaDescrizione_->setText(QString::fromStdString(fatture_.Registro().descrizione));
  const bool incassi = fatture_.MostraDtIncasso();
  didascaliaIncasso_->setVisible(incassi);
  dtIncasso_->setVisible(incassi);
  didascaliaDtFat_->setText(fatture_.ClasseParte() == "P" ? tr("data corrispettivi") : tr("del"));
  nota_->setText(QString::fromStdString(fatture_.NotaPagamento()).simplified());
  nota_->setToolTip(nota_->text());
  nota_->setVisible(!nota_->text().isEmpty());
}

void TestaFattura::FocoData() {
  data_->setFocus();
}

}  // namespace fenalto::screens
