#include "screens/common/rows/RigheDelRecord.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/look/Misure.h"
#include "screens/common/rows/RiquadroDiRiga.h"
#include "screens/common/windows/Tastiera.h"

namespace fenalto::screens {

/// The row frame over the described use case.
class RigheDelRecord::Riquadro : public RiquadroDiRiga {
 public:
  Riquadro(const DescrizioneRighe& righe, Finestre& finestre)
      : RiquadroDiRiga(finestre, nullptr), righe_(righe) {
    setTitle(righe.riga);
    auto* pulsanti = new QHBoxLayout;
    for (auto* pulsante : {conferma_, elimina_, annulla_}) pulsanti->addWidget(pulsante);
    pulsanti->addStretch(1);
    for (const PulsanteDiRiga& altro : righe.pulsanti) pulsanti->addWidget(Crea(altro));
    Compila(righe.forma).addLayout(pulsanti);
    quale_->setParent(this);
    quale_->hide();
    // The open row can be given up from a field whose text can't be read.
    annulla_->setFocusPolicy(Qt::TabFocus);
  }

  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const override {
    return RiquadroDiRiga::Pulsanti() + altri_;
  }

 protected:
  [[nodiscard]] bool RigaAperta() const override { return righe_.inRiga(); }
  [[nodiscard]] bool RigaNuova() const override { return righe_.rigaNuova(); }
  [[nodiscard]] bool SolaLettura() const override { return false; }
  [[nodiscard]] Scheda& Riga() const override { return righe_.scheda(); }
  bool ConfermaRiga(std::string& campo) override { return righe_.conferma(campo); }
  bool EliminaRiga() override { return righe_.elimina(); }
  void AnnullaRiga() override { righe_.annulla(); }
  void RigaLasciata(const std::string& campo) override {
    if (righe_.lasciato) righe_.lasciato(campo);
  }
  [[nodiscard]] std::string PrimoCampo() const override {
    return righe_.rigaNuova() ? righe_.primoCampo : std::string();
  }

 private:
  QPushButton* Crea(const PulsanteDiRiga& altro) {
    auto* pulsante = Pulsante(altro.nome, altro.testo);
    pulsante->setToolTip(altro.suggerimento);
    connect(pulsante, &QPushButton::clicked, this, [this, &altro] {
      if (Raccogli()) altro.azione();
    });
    altri_ << pulsante;
    return pulsante;
  }

  const DescrizioneRighe& righe_;
  QList<QAbstractButton*> altri_;
};

RigheDelRecord::RigheDelRecord(DescrizioneRighe righe, Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      descritte_(std::move(righe)),
      finestre_(finestre),
      griglia_(new Griglia(QStringLiteral("GrigliaRighe"), descritte_.memoria, descritte_.colonne)),
      nuova_(Pulsante(QStringLiteral("PNuovaRiga"), descritte_.nuova, tr("Ins"))),
      riquadro_(new Riquadro(descritte_, finestre)) {
  Disponi();
  AssegnaMnemoniche(QList<QAbstractButton*>{nuova_} + riquadro_->Pulsanti());
  Collega();
}

void RigheDelRecord::Disponi() {
  constexpr int kAltezzaGriglia = 130;
  auto* colonna = new QVBoxLayout(this);
  auto* elenco = colonna;
  if (!descritte_.elenco.isEmpty()) {
    auto* intorno = new QGroupBox(descritte_.elenco);
    elenco = new QVBoxLayout(intorno);
    griglia_->setMinimumHeight(Cresciuta(kAltezzaGriglia));
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->addWidget(intorno);
  }
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(nuova_);
  sotto->addStretch(1);
  elenco->addWidget(griglia_, 1);
  elenco->addLayout(sotto);
  colonna->addWidget(riquadro_);
}

void RigheDelRecord::Collega() {
  const QString ins = tr("Ins: %1").arg(descritte_.nuova.toLower());
  griglia_->setToolTip(tr("clic o Invio su una riga la apre; %1").arg(ins));
  griglia_->QuandoVuota(ins);
  connect(griglia_, &Griglia::RigaScelta, this, &RigheDelRecord::Apri);
  connect(nuova_, &QPushButton::clicked, this, &RigheDelRecord::Nuova);
  connect(riquadro_, &RiquadroDiRiga::Confermata, this, &RigheDelRecord::MostraCambiata);
  connect(riquadro_, &RiquadroDiRiga::Eliminata, this, &RigheDelRecord::MostraCambiata);
  connect(riquadro_->Pulsanti().front(), &QAbstractButton::clicked, this, [this] {
    if (!descritte_.inRiga()) nuova_->setFocus();
  });
  connect(riquadro_, &RiquadroDiRiga::Annullata, this, [this] {
    MostraCambiata();
    nuova_->setFocus();
  });
}

void RigheDelRecord::Mostra() {
  const bool aperta = descritte_.inRiga();
  griglia_->Modello().Righe(descritte_.celle());
  riquadro_->Mostra();
  riquadro_->setVisible(aperta);
  nuova_->setEnabled(!aperta && !solaLettura_);
  griglia_->setEnabled(!aperta);
}

void RigheDelRecord::MostraCambiata() {
  if (descritte_.cambiata) descritte_.cambiata();
  Mostra();
}

void RigheDelRecord::Apri(int indice) {
  if (solaLettura_ || indice < 0) return;
  if (!descritte_.apri(griglia_->Modello().Riga(indice).front())) return;
  MostraCambiata();
  riquadro_->Entra();
}

void RigheDelRecord::Nuova() {
  if (!descritte_.inizia()) return;
  MostraCambiata();
  riquadro_->Entra();
}

bool RigheDelRecord::Annulla() {
  if (!descritte_.inRiga()) return false;
  if (!ApertaModificata() || finestre_.Sessione().Dialogo().Conferma(kLasciareRiga)) Lascia();
  return true;
}

void RigheDelRecord::Lascia() {
  descritte_.annulla();
  MostraCambiata();
  nuova_->setFocus();
}

bool RigheDelRecord::Attese() const {
  return descritte_.attese && !solaLettura_ && descritte_.celle().empty();
}

void RigheDelRecord::Comincia() {
  PremiPassando(*nuova_);
}

void RigheDelRecord::Chiudi() {
  descritte_.chiudi();
  Mostra();
}

bool RigheDelRecord::ApertaModificata() const {
  return descritte_.inRiga() && (descritte_.scheda().Modificata() || riquadro_->Pendente());
}

bool RigheDelRecord::Modificate() const {
  return descritte_.modificate() || ApertaModificata();
}

bool RigheDelRecord::ConfermaAperta() {
  if (!descritte_.inRiga()) return true;
  if (ApertaModificata()) return riquadro_->Conferma();
  if (!descritte_.rigaNuova()) {
    Lascia();
    return true;
  }
  finestre_.Sessione().Dialogo().Messaggio(descritte_.aperta, Icona::Avviso);
  return false;
}

}  // namespace fenalto::screens
