#include "screens/documents/types/PaginaImpostazioniDocumenti.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/fields/Qs.h"

namespace fenalto::screens {

PaginaImpostazioniDocumenti::PaginaImpostazioniDocumenti(Finestre& finestre)
    : impostazioni_(finestre.Sessione()),
      legatura_(new Legatura([this]() -> Scheda& { return impostazioni_.Dati(); },
                             finestre.Sessione().Dialogo(), this)) {
  auto* colonna = new QVBoxLayout(this);
  auto* riquadri = new QVBoxLayout;
  colonna->addLayout(riquadri);
  campi_ = new CampiForma(finestre.Sessione(), documents::FormaImpostazioniDocumenti(), {legatura_},
                          *riquadri);
  campi_->setParent(this);
  colonna->addStretch(1);
  auto* salva = Pulsante(QStringLiteral("SalvaModifiche"), tr("Salva modifiche"), tr("Ctrl+Invio"));
  auto* annulla = Pulsante(QStringLiteral("AnnullaModifiche"), tr("Annulla modifiche"));
  auto* pulsanti = new QHBoxLayout;
  pulsanti->addStretch(1);
  pulsanti->addWidget(salva);
  pulsanti->addWidget(annulla);
  colonna->addLayout(pulsanti);
  legatura_->Rinuncia(annulla);
  campi_->OrdinaFoco();
  connect(legatura_, &Legatura::Lasciato, this, [this](const QString& campo, bool cambiato) {
    if (cambiato) Lasciato(campo);
  });
  connect(salva, &QPushButton::clicked, this, [this] { Salva(); });
  connect(annulla, &QPushButton::clicked, this, [this] { Abbandona(); });
  legatura_->Mostra();
}

void PaginaImpostazioniDocumenti::Lasciato(const QString& campo) {
  const bool accettato = impostazioni_.CampoLasciato(campo.toStdString());
  legatura_->Mostra();
  if (!accettato) campi_->DaiFoco(campo);
}

void PaginaImpostazioniDocumenti::Salva() {
  if (!legatura_->Raccogli()) return;
  const bool salvate = impostazioni_.Salva();
  legatura_->Mostra();
  if (!salvate) campi_->DaiFoco(Qs(impostazioni_.CampoRifiutato()));
}

bool PaginaImpostazioniDocumenti::InModifica() const {
  return impostazioni_.Dati().Modificata() || legatura_->Pendente();
}

void PaginaImpostazioniDocumenti::Aggiorna() {
  if (!InModifica()) Abbandona();
}

void PaginaImpostazioniDocumenti::Abbandona() {
  impostazioni_.Rileggi();
  legatura_->Mostra();
}

void PaginaImpostazioniDocumenti::Fuoco() {
  campi_->DaiFoco(QString());
}

}  // namespace fenalto::screens
