#include "screens/duedates/reports/SceltaStampaParti.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>

#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/CampoGiorno.h"
#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreCodice = 12;
constexpr int kLarghezzaMinima = 560;

}  // namespace

SceltaStampaParti::SceltaStampaParti(Finestre& finestre, Scheda& scheda, Legatura& legatura,
                                     Cosa cosa)
    : QGroupBox(cosa == Cosa::Scadenze ? tr("Scadenze") : tr("Clienti o fornitori")),
      finestre_(finestre),
      scheda_(scheda),
      legatura_(legatura),
      cosa_(cosa),
      classe_(new QComboBox),
      da_(Codice("DaCliFor")),
      a_(Codice("ACliFor")) {
  classe_->setObjectName(QStringLiteral("CFPx"));
  classe_->addItem(QStringLiteral("C"), QStringLiteral("C"));
  classe_->addItem(QStringLiteral("F"), QStringLiteral("F"));
  classe_->setToolTip(tr("C clienti, F fornitori"));
  da_->setPlaceholderText(tr("dal primo"));
  a_->setPlaceholderText(tr("all'ultimo"));

  auto* griglia = new QGridLayout(this);
  griglia->addWidget(Didascalia(tr("stampo"), classe_), 0, 0);
  griglia->addWidget(classe_, 0, 1, Qt::AlignLeft);
  griglia->addWidget(Didascalia(tr("dal codice"), da_), 1, 0);
  griglia->addWidget(ConDescrizione(da_, kCifreCodice), 1, 1);
  griglia->addWidget(Didascalia(tr("al codice"), a_), 2, 0);
  griglia->addWidget(ConDescrizione(a_, kCifreCodice), 2, 1);
  if (cosa == Cosa::Scadenze) CreaScadenze(*griglia, 3);
  griglia->setColumnStretch(1, 1);
  setMinimumWidth(kLarghezzaMinima);
  connect(classe_, &QComboBox::currentIndexChanged, this, &SceltaStampaParti::CambiaClasse);
}

void SceltaStampaParti::CreaScadenze(QGridLayout& griglia, int linea) {
  auto* daData = Data("DaData", finestre_, scheda_, legatura_);
  auto* aData = Data("AData", finestre_, scheda_, legatura_);
  scheda_.Aggiungi("AnchePagate", Tipo::Booleano);
  auto* pagate = new QCheckBox(tr("anche le scadenze pagate"));
  pagate->setObjectName(QStringLiteral("AnchePagate"));
  legatura_.Lega(pagate);
  auto* date = new QHBoxLayout;
  date->addWidget(daData);
  date->addSpacing(8);
  date->addWidget(Didascalia(tr("al"), aData));
  date->addWidget(aData);
  date->addSpacing(16);
  date->addWidget(pagate);
  date->addStretch(1);
  griglia.addWidget(Didascalia(tr("scadenza dal"), daData), linea, 0);
  griglia.addLayout(date, linea, 1);
}

CampoCodice* SceltaStampaParti::Codice(const char* nome) {
  auto* campo =
      new CampoCodice(QString::fromLatin1(nome), archives::FonteConti(finestre_.Sessione(), "C"));
  scheda_.Aggiungi(nome, Tipo::Testo);
  legatura_.Lega(campo);
  return campo;
}

CampoData* SceltaStampaParti::Data(const char* nome, Finestre& finestre, Scheda& scheda,
                                   Legatura& legatura) {
  auto* campo = CampoGiorno(nome, finestre.Sessione());
  scheda.Aggiungi(nome, Tipo::Data);
  legatura.Lega(campo);
  return campo;
}

void SceltaStampaParti::CambiaClasse() {
  const std::string classe = classe_->currentData().toString().toStdString();
  for (CampoCodice* campo : {da_, a_}) {
    campo->Fonte(archives::FonteConti(finestre_.Sessione(), classe));
    scheda_.Scrivi(campo->objectName().toStdString(), Valore(std::string()));
    campo->Mostra(Valore(std::string()));
  }
}

duedates::SceltaScadenze SceltaStampaParti::Scelta() const {
  duedates::SceltaScadenze s;
  s.cfp = classe_->currentData().toString().toStdString();
  s.daCliFor = scheda_.Leggi("DaCliFor").Testo();
  s.aCliFor = scheda_.Leggi("ACliFor").Testo();
  if (cosa_ == Cosa::Parti) return s;
  s.daData = scheda_.Leggi("DaData").Data();
  s.aData = scheda_.Leggi("AData").Data();
  s.anchePagate = scheda_.Leggi("AnchePagate").Booleano();
  return s;
}

}  // namespace fenalto::screens
