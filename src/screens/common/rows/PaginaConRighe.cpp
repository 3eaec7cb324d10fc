#include "screens/common/rows/PaginaConRighe.h"

#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/look/Misure.h"
#include "screens/common/rows/RiquadroDiRiga.h"
#include "screens/common/windows/Finestre.h"
#include "screens/common/windows/Tastiera.h"

namespace fenalto::screens {

PaginaConRighe::PaginaConRighe(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore), finestre_(finestre), solaLettura_(new QLabel) {
  legatura_ =
      new Legatura([this]() -> Scheda& { return Testa(); }, finestre_.Sessione().Dialogo(), this);
  solaLettura_->setObjectName(QStringLiteral("AvvisoSolaLettura"));
  solaLettura_->setTextFormat(Qt::PlainText);
  InGrassetto(*solaLettura_);
  nuovaRiga_ = Pulsante(QStringLiteral("PNuovaRiga"), tr("Nuova riga"), tr("Ins"));
  conferma_ = Pulsante(QStringLiteral("Conferma"), tr("Conferma"), tr("Ctrl+Invio"));
  elimina_ = Pulsante(QStringLiteral("Elimina"), tr("Elimina"), tr("Ctrl+Canc"));
  annulla_ = Pulsante(QStringLiteral("Annulla"), tr("Annulla"), tr("Esc"));
  connect(legatura_, &Legatura::Lasciato, this, &PaginaConRighe::CampoLasciato);
  connect(nuovaRiga_, &QPushButton::clicked, this, &PaginaConRighe::NuovaRiga);
  connect(conferma_, &QPushButton::clicked, this, &PaginaConRighe::Conferma);
  connect(elimina_, &QPushButton::clicked, this, [this] {
    if (EliminaRegistrazione()) emit Eliminata();
  });
  connect(annulla_, &QPushButton::clicked, this, &PaginaConRighe::AbbandonoChiesto);
}

CampiForma* PaginaConRighe::Compila(records::DescrizioneForma forma, QVBoxLayout& dove) {
  auto* campi = new CampiForma(finestre_.Sessione(), std::move(forma), {legatura_}, dove);
  campi->setParent(this);
  return campi;
}

void PaginaConRighe::Usa(Griglia* righe, int righeMinime, RiquadroDiRiga* riga) {
  righe_ = righe;
  riga_ = riga;
  righe_->Modello().Decimali(finestre_.Sessione().Euro() ? 2 : 0);
  righe_->setToolTip(tr("clic o Invio su una riga la apre; Ins: nuova riga"));
  righe_->QuandoVuota(tr("nessuna riga: Ins, o Nuova riga, per la prima"));
  constexpr int kTestataEBordi = 2;
  righe_->setMinimumHeight(righe_->fontMetrics().height() * (righeMinime + kTestataEBordi));
  connect(righe_, &Griglia::RigaScelta, this, &PaginaConRighe::ApriRiga);
  // The first click has opened the row, the second has taken the focus to the grid.
  connect(righe_, &Griglia::RigaDoppioClic, this, [this](int indice) {
    ApriRiga(indice);
    if (riga_->isVisible()) riga_->PrendiFoco();
  });
  connect(riga_, &RiquadroDiRiga::Confermata, this, &PaginaConRighe::DopoRiga);
  connect(riga_, &RiquadroDiRiga::Eliminata, this, &PaginaConRighe::DopoRiga);
  connect(riga_, &RiquadroDiRiga::Annullata, this, &PaginaConRighe::DopoRinuncia);
}

void PaginaConRighe::CampoLasciato(const QString& campo, bool cambiato, Qt::FocusReason motivo) {
  if (!Aperta()) return;
  // The date is checked each time that it is typed, and once when the user passes through it.
  const bool diData = campo == QLatin1String("Dt");
  const Data valore = diData ? Testa().Leggi("Dt").Data() : Data();
  const bool passata = diData && valore != dataVista_ &&
                       (motivo == Qt::TabFocusReason || motivo == Qt::BacktabFocusReason);
  if (!cambiato && !passata) return;
  if (diData) dataVista_ = valore;
  TestaLasciata(campo.toStdString());
  Mostra();
}

bool PaginaConRighe::Raccogli() {
  return legatura_->Raccogli() && riga_->Raccogli();
}

bool PaginaConRighe::Pendente() const {
  return legatura_->Pendente() || riga_->Pendente();
}

void PaginaConRighe::Entra() {
  dataVista_ = Data();
  Mostra();
  if (Nuova()) {
    FocoData();
  } else {
    righe_->setFocus();
    righe_->VaiARiga(0);
  }
}

void PaginaConRighe::MostraRighe(std::vector<std::vector<Valore>> righe) {
  const int corrente = righe_->RigaCorrente();
  const auto posi = corrente >= 0 ? righe_->Modello().Riga(corrente).front().Intero() : 0;
  righe_->Modello().Righe(std::move(righe));
  VaiAPosizione(posi);
}

void PaginaConRighe::MostraRiquadro() {
  const bool aperta = RigaAperta();
  if (aperta) riga_->Mostra();
  riga_->setVisible(aperta);
}

void PaginaConRighe::VaiAPosizione(std::int64_t posi) {
  for (int i = 0; i < righe_->Modello().rowCount(); ++i) {
    if (righe_->Modello().Riga(i).front().Intero() == posi) righe_->VaiARiga(i);
  }
}

void PaginaConRighe::DopoRiga(qint64 posi) {
  Mostra();
  VaiAPosizione(posi);
  if (nuovaRiga_->isEnabled()) {
    FocoInVista(nuovaRiga_);
  } else {
    righe_->setFocus();
  }
}

bool PaginaConRighe::Invio(QWidget& campo) {
  for (const auto& gruppo : OrdineTesta()) {
    if (!gruppo.contains(&campo)) continue;
    if (auto* dopo = DopoInvio(gruppo, campo)) {
      dopo->setFocus(Qt::TabFocusReason);
    } else {
      VaiAlleRighe();
    }
    return true;
  }
  return false;
}

void PaginaConRighe::VaiAlleRighe() {
  if (RigaAperta()) {
    riga_->DaiFoco();
  } else if (Nuova()) {
    PremiPassando(*nuovaRiga_);
  } else if (righe_->Modello().rowCount() == 0 && nuovaRiga_->isEnabled()) {
    nuovaRiga_->setFocus(Qt::TabFocusReason);
  } else {
    righe_->setFocus(Qt::TabFocusReason);
    righe_->VaiARiga(std::max(0, righe_->RigaCorrente()));
  }
}

bool PaginaConRighe::AnnullaRiga() {
  if (!RigaAperta()) return false;
  if (riga_->Digitata() && !finestre_.Sessione().Dialogo().Conferma(kLasciareRiga)) return true;
  RinunciaRiga();
  DopoRinuncia();
  return true;
}

void PaginaConRighe::VaiA(const std::string& campo) {
  if (campo.empty()) return;
  auto* controllo = findChild<QWidget*>(QString::fromStdString(campo));
  if (controllo == nullptr || !controllo->isVisible() || !controllo->isEnabled()) return;
  if (controllo == nuovaRiga_) {
    FocoInVista(controllo);
  } else {
    controllo->setFocus(Qt::OtherFocusReason);
  }
}

void PaginaConRighe::Conferma() {
  if (!Raccogli()) return;
  if (const auto numero = ConfermaRegistrazione()) emit Confermata(*numero);
}

}  // namespace fenalto::screens
