#include "screens/common/rows/RiquadroDiRiga.h"

#include <QPushButton>

#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {

RiquadroDiRiga::RiquadroDiRiga(Finestre& finestre, QWidget* genitore)
    : QGroupBox(tr("Riga"), genitore), finestre_(finestre), quale_(new QLabel) {
  setObjectName(QStringLiteral("FrameRiga"));
  legatura_ =
      new Legatura([this]() -> Scheda& { return Riga(); }, finestre_.Sessione().Dialogo(), this);
  quale_->setObjectName(QStringLiteral("L_nuova_vecchiariga"));
  QFont grassetto = quale_->font();
  grassetto.setBold(true);
  quale_->setFont(grassetto);
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

void RiquadroDiRiga::Ordina(std::initializer_list<QWidget*> campi) {
  QWidget* prima = nullptr;
  for (auto* campo : campi) {
    if (prima != nullptr) setTabOrder(prima, campo);
    prima = campo;
  }
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

void RiquadroDiRiga::Conferma() {
  if (!legatura_->Raccogli()) return;
  const auto posi = Riga().Leggi("Posi").Intero();
  if (ConfermaRiga()) emit Confermata(posi);
}

void RiquadroDiRiga::Elimina() {
  const auto posi = Riga().Leggi("Posi").Intero();
  if (EliminaRiga()) emit Eliminata(posi);
}

}  // namespace fenalto::screens
