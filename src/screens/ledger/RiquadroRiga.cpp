#include "screens/ledger/RiquadroRiga.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreImporto = 15;
constexpr int kCaratteriConto = 14;

/// A class of account: typed or picked, always a capital.
QComboBox* CampoClasse(const QString& nome) {
  auto* campo = new QComboBox;
  campo->setObjectName(nome);
  campo->setEditable(true);
  campo->setInsertPolicy(QComboBox::NoInsert);
  campo->setCompleter(nullptr);
  campo->addItems({QStringLiteral("P"), QStringLiteral("C"), QStringLiteral("F")});
  campo->lineEdit()->setMaxLength(1);
  campo->setToolTip(QObject::tr("P conto, C cliente, F fornitore"));
  constexpr int kLarghezza = 5;
  LargoCaratteri(campo, kLarghezza);
  QObject::connect(campo->lineEdit(), &QLineEdit::textEdited, campo, [campo](const QString& testo) {
    campo->lineEdit()->setText(testo.toUpper());
    campo->lineEdit()->setModified(true);
  });
  return campo;
}

}  // namespace

RiquadroRiga::RiquadroRiga(ledger::Primanota& primanota, Finestre& finestre, QWidget* genitore)
    : RiquadroSul(primanota, finestre, genitore) {
  CreaCampi();
  Disponi();
  OrdineTab();
  connect(visSaldo_, &QPushButton::clicked, this, &RiquadroRiga::VisSaldo);
}

void RiquadroRiga::CreaCampi() {
  auto& sessione = finestre_.Sessione();
  const int decimali = sessione.Euro() ? 2 : 0;
  posi_ = new CampoNumero(QStringLiteral("Posi"));
  causale_ = new CampoCodice(QStringLiteral("Causale"), archives::Fonte(sessione, "causali"));
  descrizione_ = new CampoTesto(QStringLiteral("Descrizione"));
  cfp_ = CampoClasse(QStringLiteral("CFP"));
  conto_ = new CampoCodice(QStringLiteral("Conto"), archives::FonteConti(sessione, "P"));
  dare_ = new CampoImporto(QStringLiteral("ImpoDare"), nullptr, decimali);
  avere_ = new CampoImporto(QStringLiteral("ImpoAvere"), nullptr, decimali);
  cfpControp_ = CampoClasse(QStringLiteral("CFPControp"));
  contoControp_ =
      new CampoCodice(QStringLiteral("ContoControp"), archives::FonteContropartite(sessione, "P"));
  diversi_ = new QCheckBox(tr("+diversi"));
  diversi_->setObjectName(QStringLiteral("DiversiControp"));
  categoria_ = new CampoCodice(QStringLiteral("Categoria"), archives::Fonte(sessione, "categorie"));
  commessa_ = new CampoTesto(QStringLiteral("Commessa"));
  visSaldo_ = Pulsante(QStringLiteral("VisSaldo"), tr("visualizza saldo"));
  for (QWidget* campo : std::initializer_list<QWidget*>{posi_, causale_, descrizione_, cfp_, conto_,
                                                        dare_, avere_, cfpControp_, contoControp_,
                                                        diversi_, categoria_, commessa_}) {
    legatura_->Lega(campo);
  }
}

void RiquadroRiga::Disponi() {
  auto* colonna = new QVBoxLayout(this);
  colonna->setSpacing(4);
  colonna->addLayout(DisponiCampi());
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addWidget(quale_);
  pulsanti->addWidget(CreaSaldo());
  pulsanti->addStretch(1);
  for (auto* pulsante : {visSaldo_, conferma_, elimina_, annulla_}) pulsanti->addWidget(pulsante);
  colonna->addLayout(pulsanti);
}

QGridLayout* RiquadroRiga::DisponiCampi() {
  constexpr int kCifrePosi = 8;
  constexpr int kCaratteriCategoria = 8;
  LargoCaratteri(posi_, kCifrePosi);
  for (auto* importo : {dare_, avere_}) LargoCaratteri(importo, kCifreImporto);
  auto* griglia = new QGridLayout;
  griglia->setHorizontalSpacing(8);
  griglia->setVerticalSpacing(4);
  griglia->addWidget(Didascalia(tr("Posizione"), posi_), 0, 0);
  griglia->addWidget(posi_, 0, 1);
  griglia->addWidget(Didascalia(tr("Causale"), causale_), 0, 2);
  griglia->addWidget(ConDescrizione(causale_, kCaratteriConto), 0, 3);
  griglia->addWidget(Didascalia(tr("Descrizione"), descrizione_), 0, 4);
  griglia->addWidget(descrizione_, 0, 5, 1, 3);
  griglia->addWidget(Didascalia(tr("C/F/P"), cfp_), 1, 0);
  griglia->addWidget(cfp_, 1, 1);
  griglia->addWidget(Didascalia(tr("Conto"), conto_), 1, 2);
  griglia->addWidget(ConDescrizione(conto_, kCaratteriConto), 1, 3);
  griglia->addWidget(Didascalia(tr("Dare"), dare_), 1, 4);
  griglia->addWidget(dare_, 1, 5);
  griglia->addWidget(Didascalia(tr("Avere"), avere_), 1, 6);
  griglia->addWidget(avere_, 1, 7, Qt::AlignLeft);
  griglia->addWidget(CreaContropartita(), 2, 0, 2, 4);
  griglia->addWidget(Didascalia(tr("Categoria"), categoria_), 2, 4);
  griglia->addWidget(ConDescrizione(categoria_, kCaratteriCategoria), 2, 5, 1, 3);
  griglia->addWidget(Didascalia(tr("Commessa"), commessa_), 3, 4);
  griglia->addWidget(commessa_, 3, 5);
  griglia->setColumnStretch(3, 3);
  griglia->setColumnStretch(7, 2);
  return griglia;
}

QWidget* RiquadroRiga::CreaContropartita() {
  controp_ = new QGroupBox(tr("Contropartita"));
  controp_->setObjectName(QStringLiteral("FrameControp"));
  auto* riga = new QHBoxLayout(controp_);
  riga->addWidget(Didascalia(tr("C/F/P"), cfpControp_));
  riga->addWidget(cfpControp_);
  riga->addWidget(Didascalia(tr("Conto"), contoControp_));
  riga->addWidget(ConDescrizione(contoControp_, kCaratteriConto), 1);
  riga->addWidget(diversi_);
  return controp_;
}

QFrame* RiquadroRiga::CreaSaldo() {
  saldo_ = new QFrame;
  saldo_->setObjectName(QStringLiteral("FrameSaldo"));
  auto* riga = new QHBoxLayout(saldo_);
  riga->setContentsMargins(0, 0, 0, 0);
  const struct {
    const char* nome;
    QString testo;
  } valori[] = {{"SaldoIniz", tr("s.do iniz.")},
                {"SaldoDare", tr("dare")},
                {"SaldoAvere", tr("avere")},
                {"Saldo", tr("saldo")}};
  for (std::size_t i = 0; i < std::size(valori); ++i) {
    auto* valore = new QLabel;
    valore->setObjectName(QString::fromLatin1(valori[i].nome));
    valore->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    valore->setTextInteractionFlags(Qt::TextSelectableByMouse);
    valoriSaldo_[i] = valore;
    auto* didascalia = new QLabel(valori[i].testo);
    riga->addWidget(didascalia);
    riga->addWidget(valore);
  }
  saldo_->hide();
  return saldo_;
}

void RiquadroRiga::OrdineTab() {
  Ordina({posi_, causale_, descrizione_, cfp_, conto_, dare_, avere_, cfpControp_, contoControp_,
          diversi_, categoria_, commessa_, conferma_, elimina_, annulla_, visSaldo_});
}

QList<QAbstractButton*> RiquadroRiga::Pulsanti() const {
  return RiquadroDiRiga::Pulsanti() << visSaldo_;
}

void RiquadroRiga::CampoLasciato(const QString& campo, bool cambiato) {
  if (!RigaAperta()) return;
  // A causal proposed by the program counts too when it is just passed through.
  if (!cambiato && campo != QLatin1String("Causale")) return;
  caso_.RigaLasciata(campo.toStdString());
  if (campo == QLatin1String("Conto") || campo == QLatin1String("CFP")) saldo_->hide();
  ScegliFonti();
  legatura_->Mostra();
}

void RiquadroRiga::ScegliFonti() {
  auto& sessione = finestre_.Sessione();
  const std::string classe = caso_.Riga().Testo("CFP");
  if (classe != classe_) conto_->Fonte(archives::FonteConti(sessione, classe));
  const std::string controp = caso_.Riga().Testo("CFPControp");
  if (controp != classeControp_) {
    contoControp_->Fonte(archives::FonteContropartite(sessione, controp));
  }
  classe_ = classe;
  classeControp_ = controp;
}

void RiquadroRiga::Mostra() {
  const bool scrivibile = !caso_.SolaLettura();
  for (QWidget* campo :
       std::initializer_list<QWidget*>{posi_, causale_, descrizione_, cfp_, conto_, dare_, avere_,
                                       categoria_, commessa_, conferma_, elimina_}) {
    campo->setEnabled(scrivibile);
  }
  controp_->setEnabled(scrivibile && !caso_.ContropAutomatiche());
  controp_->setToolTip(caso_.ContropAutomatiche()
                           ? tr("la calcola il programma: togliere \"contropartite automatiche\" "
                                "per scriverla a mano")
                           : QString());
  quale_->setText(caso_.RigaNuova() ? tr("nuova riga") : tr("riga esistente"));
  ScegliFonti();
  legatura_->Mostra();
}

void RiquadroRiga::Entra() {
  saldo_->hide();
  Mostra();
  show();
  if (caso_.RigaNuova()) {
    causale_->setFocus();
  } else {
    PrendiFoco();
  }
}

bool RiquadroRiga::ConfermaRiga() {
  if (caso_.ConfermaRiga()) return true;
  Mostra();
  if (!causale_->Esiste()) {
    causale_->setFocus();
  } else if (!conto_->Esiste()) {
    conto_->setFocus();
  }
  return false;
}

void RiquadroRiga::VisSaldo() {
  if (!legatura_->Raccogli()) return;
  const auto saldo = caso_.VisSaldo();
  saldo_->setVisible(saldo.has_value());
  if (!saldo) {
    conto_->setFocus();
    return;
  }
  constexpr int kPicture = 15;
  const bool euro = finestre_.Sessione().Euro();
  const Importo valori[] = {saldo->saldoIniziale, saldo->totaleDare, saldo->totaleAvere,
                            saldo->Finale()};
  for (std::size_t i = 0; i < std::size(valori); ++i) {
    valoriSaldo_[i]->setText(
        QString::fromStdString(PictureImporto(valori[i], kPicture, euro)).trimmed());
  }
}

}  // namespace fenalto::screens
