#include "screens/common/rows/RigheDelRecord.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <utility>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"

namespace fenalto::screens {

QWidget* InFila(std::initializer_list<QWidget*> controlli) {
  auto* insieme = new QWidget;
  auto* fila = new QHBoxLayout(insieme);
  fila->setContentsMargins(0, 0, 0, 0);
  for (auto* controllo : controlli) fila->addWidget(controllo);
  fila->addStretch(1);
  return insieme;
}

RigheDelRecord::RigheDelRecord(Nomi nomi, std::vector<ColonnaGriglia> colonne, Finestre& finestre,
                               QWidget* genitore)
    : QWidget(genitore),
      finestre_(finestre),
      legatura_(new Legatura([this]() -> Scheda& { return Riga(); }, finestre.Sessione().Dialogo(),
                             this)),
      griglia_(new Griglia(QStringLiteral("GrigliaRighe"), nomi.memoria, std::move(colonne))),
      riquadro_(new QGroupBox(nomi.riga)),
      nuova_(Pulsante(QStringLiteral("PNuovaRiga"), nomi.nuova, tr("Ins"))),
      conferma_(Pulsante(QStringLiteral("ConfermaRiga"), tr("Conferma riga"), tr("Ctrl+Invio"))),
      elimina_(Pulsante(QStringLiteral("EliminaRiga"), tr("Elimina riga"), tr("Ctrl+Canc"))),
      annulla_(Pulsante(QStringLiteral("AnnullaRiga"), tr("Abbandona riga"), tr("Esc"))),
      nomi_(std::move(nomi)) {
  riquadro_->setObjectName(QStringLiteral("FrameRiga"));
  riquadro_->hide();
  // The open row can be given up from a field whose text can't be read.
  annulla_->setFocusPolicy(Qt::TabFocus);
  AssegnaMnemoniche({nuova_, conferma_, elimina_, annulla_});
  Collega();
}

void RigheDelRecord::Collega() {
  connect(griglia_, &Griglia::RigaScelta, this, &RigheDelRecord::Apri);
  connect(nuova_, &QPushButton::clicked, this, &RigheDelRecord::Nuova);
  connect(conferma_, &QPushButton::clicked, this, [this] {
    if (Conferma()) nuova_->setFocus();
  });
  connect(elimina_, &QPushButton::clicked, this, [this] {
    if (EliminaRiga()) MostraCambiata();
  });
  connect(annulla_, &QPushButton::clicked, this, &RigheDelRecord::Annulla);
}

void RigheDelRecord::Mostra() {
  griglia_->Modello().Righe(Elenco());
  legatura_->Mostra();
  riquadro_->setVisible(InRiga());
  nuova_->setEnabled(!InRiga() && !solaLettura_);
  griglia_->setEnabled(!InRiga());
}

void RigheDelRecord::MostraCambiata() {
  RigaCambiata();
  Mostra();
}

void RigheDelRecord::SolaLettura(bool attiva) {
  solaLettura_ = attiva;
}

void RigheDelRecord::Apri(int indice) {
  if (solaLettura_ || indice < 0 || !ApriRiga(griglia_->Modello().Riga(indice).front())) return;
  MostraCambiata();
  FocoInVista(conferma_);
}

void RigheDelRecord::Nuova() {
  if (!NuovaRiga()) return;
  MostraCambiata();
  FocoInVista(riquadro_->findChild<QWidget*>(nomi_.primoCampo));
}

bool RigheDelRecord::Conferma() {
  if (!legatura_->Raccogli()) return false;
  QString nome;
  if (ConfermaRiga(nome)) {
    MostraCambiata();
    return true;
  }
  auto* campo = nome.isEmpty() ? nullptr : riquadro_->findChild<QWidget*>(nome);
  if (campo != nullptr) campo->setFocus();
  return false;
}

bool RigheDelRecord::Annulla() {
  if (!InRiga()) return false;
  AnnullaRiga();
  MostraCambiata();
  nuova_->setFocus();
  return true;
}

bool RigheDelRecord::Modificata() const {
  return InRiga() && (Riga().Modificata() || legatura_->Pendente());
}

bool RigheDelRecord::ConfermaAperta() {
  if (!InRiga()) return true;
  if (Modificata()) return Conferma();
  if (!RigaNuova()) return Annulla();
  finestre_.Sessione().Dialogo().Messaggio(nomi_.aperta, Icona::Avviso);
  return false;
}

}  // namespace fenalto::screens
