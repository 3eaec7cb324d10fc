#include "screens/duedates/payments/FinestraScadenzaDigitata.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/payments/ScadenzaDigitata.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/duedates/SceltaParte.h"

namespace fenalto::screens {
namespace {

constexpr int kCifreCodice = 5;
constexpr int kCifreConto = 10;
constexpr int kCaratteriDescrizione = 64;

}  // namespace

FinestraScadenzaDigitata::FinestraScadenzaDigitata(const QString& nome, const QString& titolo,
                                                   int numero,
                                                   std::unique_ptr<duedates::ScadenzaDigitata> caso,
                                                   Finestre& finestre)
    : FinestraFunzione(nome, titolo, finestre),
      numero_(numero),
      caso_(std::move(caso)),
      dati_(new Legatura([this]() -> Scheda& { return caso_->Dati(); },
                         finestre.Sessione().Dialogo(), this)),
      impostazioni_(new Legatura([this]() -> Scheda& { return caso_->Impostazioni(); },
                                 finestre.Sessione().Dialogo(), this)),
      parte_(new SceltaParte(finestre)),
      nuovo_(Pulsante(QStringLiteral("Nuovo"), tr("Nuova Registrazione"), tr("Ins"))),
      conferma_(Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"))) {}

FinestraScadenzaDigitata::~FinestraScadenzaDigitata() {
  hide();
}

void FinestraScadenzaDigitata::Disponi() {
  constexpr int kLarghezzaMinima = 720;
  auto* colonna = new QVBoxLayout(this);
  setMinimumWidth(kLarghezzaMinima);
  auto* testa = new QHBoxLayout;
  testa->addWidget(Didascalia(tr("Cliente/fornitore"), &parte_->Campo()));
  testa->addWidget(parte_, 1);
  testa->addWidget(nuovo_);
  colonna->addLayout(testa);
  colonna->addWidget(CreaScadenza());
  AltriRiquadri(*colonna);
  colonna->addWidget(CreaRegistrazione());
  auto* piede = new QHBoxLayout;
  piede->addWidget(conferma_);
  piede->addStretch(1);
  AltroPiede(*piede);
  colonna->addLayout(piede);
  colonna->addStretch(1);
  AssegnaMnemoniche({nuovo_, conferma_});
  Collega();
  impostazioni_->Mostra();
  Mostra();
}

QWidget* FinestraScadenzaDigitata::CreaScadenza() {
  auto* riquadro = new QGroupBox(tr("Scadenza"));
  auto* griglia = new QGridLayout(riquadro);
  int linea = 0;
  const auto aggiungi = [&](QWidget* campo, const QString& testo, int colonna) {
    dati_->Lega(campo);
    griglia->addWidget(Didascalia(testo, campo), linea, colonna);
    auto* codice = qobject_cast<CampoCodice*>(campo);
    griglia->addWidget(codice != nullptr ? ConDescrizione(codice, kCifreCodice) : campo, linea,
                       colonna + 1);
  };
  auto* importo = new CampoImporto(QStringLiteral("ImportoE"));
  LargoCaratteri(importo, kCifreImporto);
  auto* stato = new CampoTesto(QStringLiteral("Stato"), nullptr, 2);
  LargoCaratteri(stato, 3);
  stato->setToolTip(tr("00 e 01 aperta, 10 pagata in parte, 30 pagata"));
  auto* nFat = new CampoNumero(QStringLiteral("NFat"));
  LargoCaratteri(nFat, kCifreNumero);
  aggiungi(CampoGiorno("Dt", Gestore().Sessione()), tr("Data scadenza"), 0);
  aggiungi(importo, tr("Importo"), 2);
  ++linea;
  aggiungi(CampoTipo("Tipo", Gestore()), tr("Tipo"), 0);
  aggiungi(stato, tr("Stato"), 2);
  ++linea;
  aggiungi(nFat, tr("Fattura n."), 0);
  aggiungi(CampoGiorno("DtFat", Gestore().Sessione()), tr("del"), 2);
  ++linea;
  auto* descrizione = new CampoTesto(QStringLiteral("Descrizione"), nullptr, kCaratteriDescrizione);
  LargoCaratteri(descrizione, kCaratteriDescrizione);
  dati_->Lega(descrizione);
  griglia->addWidget(Didascalia(tr("Descrizione"), descrizione), linea, 0);
  griglia->addWidget(descrizione, linea, 1, 1, 3);
  griglia->setColumnStretch(4, 1);
  return riquadro;
}

QWidget* FinestraScadenzaDigitata::CreaRegistrazione() {
  auto* riquadro = new QGroupBox(tr("Registrazione contabile"));
  auto* griglia = new QGridLayout(riquadro);
  const std::string numero = std::to_string(numero_);
  auto* crea = new QCheckBox(tr("Creo registrazione contabile"));
  crea->setObjectName(QString::fromStdString("RegistrazioneContabilePagScad" + numero));
  impostazioni_->Lega(crea);
  auto* giorno = CampoGiorno("DtReg", Gestore().Sessione());
  auto* descrizione = new CampoTesto(QStringLiteral("DescrizioneContabile"));
  dati_->Lega(giorno);
  dati_->Lega(descrizione);
  auto* causale = CampoCausale(("CausalePagScad" + numero).c_str(), Gestore());
  auto* conto = CampoConto(("ContropartitaPagScad" + numero).c_str(), Gestore());
  impostazioni_->Lega(causale);
  impostazioni_->Lega(conto);
  const auto aggiungi = [&](QWidget* campo, QWidget* disposto, const QString& testo, int linea,
                            int colonna, int colonne) {
    griglia->addWidget(Didascalia(testo, campo), linea, colonna);
    griglia->addWidget(disposto, linea, colonna + 1, 1, colonne);
  };
  griglia->addWidget(crea, 0, 0, 1, 2);
  aggiungi(giorno, giorno, tr("Data registrazione"), 0, 2, 1);
  aggiungi(descrizione, descrizione, tr("Descrizione contabile"), 1, 0, 3);
  aggiungi(causale, ConDescrizione(causale, kCifreCodice), tr("Causale"), 2, 0, 1);
  aggiungi(conto, ConDescrizione(conto, kCifreConto), tr("Contropartita"), 2, 2, 1);
  griglia->setColumnStretch(1, 1);
  griglia->setColumnStretch(3, 1);
  return riquadro;
}

void FinestraScadenzaDigitata::Collega() {
  connect(parte_, &SceltaParte::ParteCambiata, this, [this] {
    const bool altraClasse = caso_->Cfp() != parte_->Cfp();
    caso_->ScegliParte(parte_->Cfp(), parte_->Codice());
    if (altraClasse && !caso_->Modificata()) caso_->Abbandona();
    impostazioni_->Mostra();
    dati_->Mostra();
    ParteCambiata();
  });
  connect(impostazioni_, &Legatura::Lasciato, this, [this](const QString&, bool cambiato) {
    if (cambiato) caso_->ImpostazioneLasciata();
  });
  connect(dati_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (!cambiato) return;
    caso_->DatoLasciato(campo.toStdString());
    dati_->Mostra();
  });
  connect(nuovo_, &QPushButton::clicked, this, &FinestraScadenzaDigitata::Nuovo);
  connect(conferma_, &QPushButton::clicked, this, &FinestraScadenzaDigitata::Conferma);
}

void FinestraScadenzaDigitata::Mostra() {
  dati_->Mostra();
}

void FinestraScadenzaDigitata::VaiA(const std::string& campo) {
  if (campo.empty()) return;
  if (auto* controllo = findChild<QWidget*>(QString::fromStdString(campo))) controllo->setFocus();
}

void FinestraScadenzaDigitata::Nuovo() {
  if (Gestore().ControlloUscita(*this)) return;
  VaiA(caso_->Nuovo() ? "ImportoE" : "CliFor");
  Mostra();
}

void FinestraScadenzaDigitata::Conferma() {
  if (!impostazioni_->Raccogli() || !dati_->Raccogli()) return;
  std::string campo = "CliFor";
  if (caso_->Conferma(&campo)) ParteCambiata();
  Mostra();
  VaiA(campo);
}

bool FinestraScadenzaDigitata::InModifica() const {
  return caso_->Modificata();
}

void FinestraScadenzaDigitata::Abbandona() {
  caso_->Abbandona();
  Mostra();
}

bool FinestraScadenzaDigitata::Indietro() {
  if (!InModifica()) return false;
  if (!Gestore().ControlloUscita(*this)) Abbandona();
  return true;
}

}  // namespace fenalto::screens
