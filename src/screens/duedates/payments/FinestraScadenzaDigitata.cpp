#include "screens/duedates/payments/FinestraScadenzaDigitata.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "duedates/payments/ScadenzaDigitata.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/look/Misure.h"
#include "screens/duedates/CampiScadenza.h"
#include "screens/duedates/SceltaParte.h"

namespace fenalto::screens {
namespace {

using records::DiCodice;
using records::Digitato;

constexpr const char* kScadenza = "FrameScadenza";
constexpr const char* kRegistrazione = "FrameRegistrazione";

/// `numero` is that of the settings' keys.
records::DescrizioneForma FormaScadenzaDigitata(const std::string& numero) {
  constexpr int kCodice = 5;
  return {
      .campi =
          {Digitato("Dt", "Data scadenza").In(kScadenza),
           Digitato("ImportoE", "Importo", kCifreImporto - 1).In(kScadenza).Colonna(1),
           DiCodice("Tipo", "Tipo", "tipiPagamento", kCodice).In(kScadenza),
           Digitato("Stato", "Stato", 2).Aiuto(kStati).In(kScadenza).Colonna(1),
           Digitato("NFat", "Fattura n.", kLunghezzaFattura).Mostra(kCifreFattura).In(kScadenza),
           Digitato("DtFat", "del").In(kScadenza).Colonna(1),
           Digitato("Descrizione", "Descrizione", 64).In(kScadenza).Colonne(2),
           Digitato("RegistrazioneContabilePagScad" + numero, "Creo registrazione contabile")
               .In(kRegistrazione)
               .AlMargine(),
           Digitato("DtReg", "Data registrazione").In(kRegistrazione).Colonna(1),
           Digitato("DescrizioneContabile", "Descrizione contabile")
               .In(kRegistrazione)
               .Colonne(2)
               .Peso(1),
           DiCodice("CausalePagScad" + numero, "Causale", "causali", kCodice)
               .In(kRegistrazione)
               .Peso(1),
           DiCodice("ContropartitaPagScad" + numero, "Contropartita", "contropartite", 10)
               .In(kRegistrazione)
               .Colonna(1)
               .Peso(1)},
      .riquadri = {{.nome = kScadenza, .titolo = "Scadenza", .largo = true},
                   {.nome = kRegistrazione,
                    .titolo = "Registrazione contabile",
                    .pagina = kRegistrazione,
                    .largo = true}}};
}

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
  colonna->addStrut(Cresciuta(kLarghezzaMinima));
  auto* testa = new QHBoxLayout;
  testa->addWidget(Didascalia(tr("Cliente/fornitore"), &parte_->Campo()));
  testa->addWidget(parte_, 1);
  testa->addWidget(nuovo_);
  colonna->addLayout(testa);
  auto* scadenza = new QVBoxLayout;
  auto* altri = new QVBoxLayout;
  auto* registrazione = new QVBoxLayout;
  records::DescrizioneForma forma = FormaScadenzaDigitata(std::to_string(numero_));
  AltriCampi(forma);
  campi_ = new CampiForma(Gestore().Sessione(), std::move(forma), {dati_, impostazioni_},
                          [&](const std::string& pagina) -> QVBoxLayout& {
                            if (pagina == kRegistrazione) return *registrazione;
                            return pagina.empty() ? *scadenza : *altri;
                          });
  campi_->setParent(this);
  colonna->addLayout(scadenza);
  AltriRiquadri(*colonna);
  colonna->addLayout(altri);
  colonna->addLayout(registrazione);
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
