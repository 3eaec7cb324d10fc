#include "screens/common/rows/RiquadroDiRiga.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {

RiquadroDiRiga::RiquadroDiRiga(Finestre& finestre, QWidget* genitore)
    : QGroupBox(tr("Riga"), genitore), finestre_(finestre), quale_(new QLabel) {
  setObjectName(QStringLiteral("FrameRiga"));
  legatura_ =
      new Legatura([this]() -> Scheda& { return Riga(); }, finestre_.Sessione().Dialogo(), this);
  quale_->setObjectName(QStringLiteral("L_nuova_vecchiariga"));
  InGrassetto(*quale_);
  conferma_ = Pulsante(QStringLiteral("ConfermaRiga"), tr("Conferma riga"), tr("Ctrl+Invio"));
  elimina_ = Pulsante(QStringLiteral("EliminaRiga"), tr("Elimina riga"), tr("Ctrl+Canc"));
  annulla_ = Pulsante(QStringLiteral("AnnullaRiga"), tr("Abbandona riga"), tr("Esc"));
  connect(legatura_, &Legatura::Lasciato, this, &RiquadroDiRiga::CampoLasciato);
  connect(conferma_, &QPushButton::clicked, this, &RiquadroDiRiga::Conferma);
  connect(elimina_, &QPushButton::clicked, this, &RiquadroDiRiga::Elimina);
  connect(annulla_, &QPushButton::clicked, this, [this] {
    AnnullaRiga();
    emit Annullata();
  });
  hide();
}

QList<QAbstractButton*> RiquadroDiRiga::Pulsanti() const {
  return {conferma_, elimina_, annulla_};
}

QVBoxLayout& RiquadroDiRiga::Compila(records::DescrizioneForma forma) {
  auto* colonna = new QVBoxLayout(this);
  colonna->setSpacing(Misura(Passo::Filo));
  campi_ = new CampiForma(finestre_.Sessione(), std::move(forma), {legatura_}, *colonna);
  campi_->setParent(this);
  return *colonna;
}

void RiquadroDiRiga::MostraCampi() {
  campi_->Applica([this](const std::string& nome) { return Stato(nome); }, SolaLettura());
  legatura_->Mostra();
}

void RiquadroDiRiga::Mostra() {
  conferma_->setEnabled(!SolaLettura());
  elimina_->setEnabled(!SolaLettura());
  quale_->setText(RigaNuova() ? tr("nuova riga") : tr("riga esistente"));
  MostraCampi();
}

void RiquadroDiRiga::Entra() {
  Mostra();
  show();
  DaiFoco();
}

bool RiquadroDiRiga::Digitata() const {
  return RigaAperta() && !SolaLettura() && (Riga().Modificata() || legatura_->Pendente());
}

void RiquadroDiRiga::DaiFoco() {
  const std::string primo = SolaLettura() ? std::string() : PrimoCampo();
  if (primo.empty()) {
    PrendiFoco();
  } else {
    campi_->Controllo(primo).setFocus();
  }
}

void RiquadroDiRiga::CampoLasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo) {
  if (!RigaAperta() || !campi_->Conta(campo, cambiato)) return;
  if (!cambiato && !ContaPassando(motivo)) return;
  RigaLasciata(campo.toStdString());
  MostraCampi();
}

void RiquadroDiRiga::PrendiFoco() {
  FocoInVista(conferma_->isEnabled() ? conferma_ : annulla_);
}

bool RiquadroDiRiga::Pendente() const {
  return RigaAperta() && legatura_->Pendente();
}

bool RiquadroDiRiga::Raccogli() {
  return !RigaAperta() || legatura_->Raccogli();
}

std::int64_t RiquadroDiRiga::Posizione() const {
  return Riga().Ha("Posi") ? Riga().Leggi("Posi").Intero() : 0;
}

bool RiquadroDiRiga::Conferma() {
  if (!legatura_->Raccogli()) return false;
  const auto posi = Posizione();
  std::string campo;
  if (ConfermaRiga(campo)) {
    emit Confermata(posi);
    return true;
  }
  Mostra();
  if (!campo.empty()) campi_->DaiFoco(QString::fromStdString(campo));
  return false;
}

void RiquadroDiRiga::Elimina() {
  const auto posi = Posizione();
  if (EliminaRiga()) emit Eliminata(posi);
}

}  // namespace fenalto::screens
