#include "screens/company/RiquadroDitta.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "admin/companies/NomeDitta.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {

RiquadroDitta::RiquadroDitta(Finestre& finestre)
    : finestre_(finestre), ditta_(new QLabel), nuovo_(new QLineEdit) {
  constexpr int kNome = 24;
  constexpr int kMassimo = 60;
  ditta_->setObjectName(QStringLiteral("Ditta"));
  ditta_->setTextFormat(Qt::PlainText);
  InGrassetto(*ditta_);
  nuovo_->setObjectName(QStringLiteral("NuovoNome"));
  nuovo_->setMaxLength(kMassimo);
  LargoCaratteri(nuovo_, kNome);
  auto* modifica = Pulsante(QStringLiteral("ModificaNome"), tr("Modifica nome"));
  auto* elimina = Pulsante(QStringLiteral("CommandEliminazioneDitta"), tr("Elimina ditta..."));
  auto* cestino = Pulsante(QStringLiteral("SvuotaCestino"), tr("Svuota cestino..."));
  auto* riga = new QHBoxLayout(this);
  riga->setContentsMargins(0, 0, 0, 0);
  riga->addWidget(new QLabel(tr("Ditta")));
  riga->addWidget(ditta_, 1);
  Affianca(*riga, tr("Nuovo nome"), nuovo_);
  riga->addWidget(modifica);
  riga->addSpacing(Misura(Passo::Stacco));
  riga->addWidget(elimina);
  riga->addWidget(cestino);
  for (QWidget* uno : {static_cast<QWidget*>(nuovo_), static_cast<QWidget*>(modifica),
                       static_cast<QWidget*>(elimina), static_cast<QWidget*>(cestino)}) {
    uno->setFocusPolicy(Qt::ClickFocus);
  }
  connect(modifica, &QPushButton::clicked, this, &RiquadroDitta::ModificaNome);
  connect(elimina, &QPushButton::clicked, this, &RiquadroDitta::Elimina);
  connect(cestino, &QPushButton::clicked, this,
          [this] { admin::SvuotaIlCestino(finestre_.Sessione()); });
  Mostra();
}

void RiquadroDitta::Mostra() {
  ditta_->setText(Qs(finestre_.Sessione().Ditta()));
}

void RiquadroDitta::ModificaNome() {
  if (puoCambiare && !puoCambiare()) return;
  const bool fatto = admin::ModificaNome(finestre_.Sessione(), nuovo_->text().toStdString());
  if (!finestre_.Sessione().DittaAperta()) return finestre_.ChiediFine();
  if (!fatto) return;
  nuovo_->clear();
  Mostra();
  finestre_.SessioneCambiata();
  emit NomeCambiato();
}

void RiquadroDitta::Elimina() {
  const bool fatto = admin::EliminaDitta(finestre_.Sessione());
  if (fatto || !finestre_.Sessione().DittaAperta()) finestre_.ChiediFine();
}

}  // namespace fenalto::screens
