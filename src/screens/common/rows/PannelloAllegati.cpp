#include "screens/common/rows/PannelloAllegati.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {

PannelloAllegati::PannelloAllegati(AllegatiDelRecord allegati, Finestre& finestre,
                                   QWidget* genitore)
    : QGroupBox(tr("Allegati"), genitore),
      allegati_(std::move(allegati)),
      finestre_(finestre),
      elenco_(new QListWidget),
      aggiungi_(Pulsante(QStringLiteral("AggiungiAllegato"), tr("Aggiungi..."))),
      apri_(Pulsante(QStringLiteral("ApriAllegato"), tr("Vedi"))),
      togli_(Pulsante(QStringLiteral("TogliAllegato"), tr("Togli"))) {
  elenco_->setObjectName(QStringLiteral("ElencoAllegati"));
  elenco_->setTextElideMode(Qt::ElideMiddle);
  elenco_->setUniformItemSizes(true);
  // Two lines, as high as the head beside it.
  elenco_->setFixedHeight(2 * elenco_->fontMetrics().height() + 4 * elenco_->frameWidth());
  auto* riga = new QHBoxLayout(this);
  riga->addWidget(elenco_, 1);
  for (auto* pulsante : {aggiungi_, apri_, togli_}) riga->addWidget(pulsante, 0, Qt::AlignTop);
  connect(aggiungi_, &QPushButton::clicked, this, &PannelloAllegati::Aggiungi);
  connect(apri_, &QPushButton::clicked, this, &PannelloAllegati::Apri);
  connect(togli_, &QPushButton::clicked, this, &PannelloAllegati::Togli);
  connect(elenco_, &QListWidget::itemActivated, this, &PannelloAllegati::Apri);
  connect(elenco_, &QListWidget::currentRowChanged, this, &PannelloAllegati::Abilita);
}

QList<QAbstractButton*> PannelloAllegati::Pulsanti() const {
  return {aggiungi_, apri_, togli_};
}

void PannelloAllegati::Mostra() {
  const int corrente = elenco_->currentRow();
  elenco_->clear();
  for (const auto& allegato : allegati_.elenco()) {
    const auto file = QString::fromStdString(allegato.file.filename().string());
    auto* voce = new QListWidgetItem(allegato.num == 0 ? tr("%1 (da confermare)").arg(file) : file);
    voce->setToolTip(QString::fromStdString(allegato.descrizione));
    elenco_->addItem(voce);
  }
  if (elenco_->count() > 0) elenco_->setCurrentRow(std::clamp(corrente, 0, elenco_->count() - 1));
  Abilita();
}

void PannelloAllegati::Abilita() {
  const bool scelto = elenco_->currentRow() >= 0;
  aggiungi_->setEnabled(!allegati_.solaLettura());
  apri_->setEnabled(scelto);
  togli_->setEnabled(scelto && !allegati_.solaLettura());
}

void PannelloAllegati::Aggiungi() {
  auto& dialogo = finestre_.Sessione().Dialogo();
  const auto file = dialogo.ScegliFile("Documento da allegare", ModoFile::Apri, "Tutti i file (*)");
  if (!file) return;
  if (auto esito = allegati_.aggiungi(*file); !esito) {
    dialogo.Messaggio(esito.Errore().messaggio, Icona::Avviso);
  }
  Mostra();
}

void PannelloAllegati::Apri() {
  const auto allegati = allegati_.elenco();
  const auto indice = static_cast<std::size_t>(elenco_->currentRow());
  if (indice >= allegati.size()) return;
  const std::string file = allegati[indice].file.string();
  auto& dialogo = finestre_.Sessione().Dialogo();
  if (!dialogo.ApriEsterno(file)) {
    dialogo.Messaggio("il documento " + file +
                          " non si apre: controllare che il file ci sia e che "
                          "un programma lo sappia aprire",
                      Icona::Avviso);
  }
}

void PannelloAllegati::Togli() {
  const auto indice = static_cast<std::size_t>(elenco_->currentRow());
  const auto* voce = elenco_->currentItem();
  auto& dialogo = finestre_.Sessione().Dialogo();
  if (voce == nullptr ||
      !dialogo.Conferma("Conferma eliminazione ALLEGATO " + voce->text().toStdString() + " ?")) {
    return;
  }
  if (auto esito = allegati_.togli(indice); !esito) {
    dialogo.Messaggio(esito.Errore().messaggio, Icona::Avviso);
  }
  Mostra();
}

}  // namespace fenalto::screens
