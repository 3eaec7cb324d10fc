#include "screens/documents/entry/PannelloIncolla.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/Griglia.h"
#include "screens/common/look/Misure.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {
namespace {

constexpr int kQuantita = 3;
constexpr int kPrezzo = 4;

QString Sconti(const documents::ValoriRiga& valori) {
  QStringList sconti;
  for (const auto& uno : {valori.sc1, valori.sc2, valori.sc3}) {
    if (uno && !uno->Zero()) sconti << Qs(uno->Testo()).replace(QLatin1Char('.'), QLatin1Char(','));
  }
  return sconti.join(QLatin1Char('+'));
}

}  // namespace

PannelloIncolla::PannelloIncolla(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      finestre_(finestre),
      stato_(new QLabel),
      griglia_(
          new Griglia(QStringLiteral("GrigliaIncolla"), QStringLiteral("FattureCli"),
                      {{tr("Riga"), Tipo::Intero, 45},
                       {tr("Prodotto"), Tipo::Testo, 110, 2, QStringLiteral("CodiceRiga")},
                       {tr("Descrizione"), Tipo::Testo, 200},
                       {tr("Quantità"), Tipo::Importo, 80, 2, QStringLiteral("Quantita")},
                       {tr("Prezzo"), Tipo::Importo, 80},
                       {tr("Sconti"), Tipo::Testo, 70},
                       {tr("Che cosa non va"), Tipo::Testo, 260, 2, QStringLiteral("Errore")}})),
      inserisci_(Pulsante(QStringLiteral("InserisciIncollate"), tr("Inserisci le righe"))),
      rinuncia_(Pulsante(QStringLiteral("RinunciaIncolla"), tr("Lascia stare"), tr("Esc"))) {
  stato_->setObjectName(QStringLiteral("StatoIncolla"));
  stato_->setTextFormat(Qt::PlainText);
  InGrassetto(*stato_);
  griglia_->Modello().Decimali(kQuantita, warehouse::DecimaliQuantita(finestre.Sessione()));
  griglia_->Modello().Decimali(kPrezzo, warehouse::DecimaliPrezzo(finestre.Sessione()));
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addWidget(stato_);
  colonna->addWidget(griglia_, 1);
  auto* sotto = new QHBoxLayout;
  sotto->addStretch(1);
  sotto->addWidget(inserisci_);
  sotto->addWidget(rinuncia_);
  colonna->addLayout(sotto);
  connect(inserisci_, &QPushButton::clicked, this, &PannelloIncolla::Accetta);
  connect(rinuncia_, &QPushButton::clicked, this, &PannelloIncolla::Rinunciato);
}

QList<QAbstractButton*> PannelloIncolla::Pulsanti() const {
  return {inserisci_, rinuncia_};
}

bool PannelloIncolla::Leggi() {
  const std::string testo = QApplication::clipboard()->text().toStdString();
  auto lette = documents::LeggiIncollate(finestre_.Sessione(), testo);
  if (!lette) {
    finestre_.Sessione().Dialogo().Messaggio(lette.Errore().messaggio, Icona::Avviso);
    return false;
  }
  righe_ = std::move(lette).Valore();
  Mostra();
  return true;
}

void PannelloIncolla::Mostra() {
  std::vector<std::vector<Valore>> celle;
  int errate = 0;
  for (const auto& riga : righe_) {
    if (!riga.errore.empty()) ++errate;
    const std::string nota =
        riga.errore.empty() && riga.fuoriUso ? std::string("prodotto fuori uso") : riga.errore;
    celle.push_back({static_cast<std::int64_t>(riga.linea), riga.valori.codiceRiga,
                     riga.descrizione, riga.valori.quantita.value_or(Importo()),
                     riga.valori.prezzo.value_or(Importo()), Sconti(riga.valori).toStdString(),
                     nota});
  }
  const int tutte = static_cast<int>(righe_.size());
  const int buone = tutte - errate;
  griglia_->Modello().Righe(std::move(celle));
  stato_->setText(errate == 0 ? tr("Righe copiate: %1, tutte da inserire").arg(tutte)
                              : tr("Righe copiate: %1, da inserire %2, con errori %3")
                                    .arg(tutte)
                                    .arg(buone)
                                    .arg(errate));
  inserisci_->setEnabled(buone > 0);
}

void PannelloIncolla::Foco() {
  FocoInVista(inserisci_->isEnabled() ? inserisci_ : rinuncia_);
}

void PannelloIncolla::Accetta() {
  const auto buone = documents::Accettate(righe_);
  const auto errate = righe_.size() - buone.size();
  if (errate > 0 && !finestre_.Sessione().Dialogo().Conferma(
                        "Righe con errori, che restano fuori: " + std::to_string(errate) +
                        "\nSi inseriscono le altre " + std::to_string(buone.size()) + " ?")) {
    return;
  }
  emit Accettate(buone);
}

}  // namespace fenalto::screens
