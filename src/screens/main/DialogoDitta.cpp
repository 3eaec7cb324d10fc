#include "screens/main/DialogoDitta.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "screens/main/DialogoNuovaDitta.h"

namespace fenalto::screens {

DialogoDitta::DialogoDitta(const std::vector<DittaTrovata>& ditte,
                           std::function<std::vector<int>(const std::string&, std::string&)> anniDi,
                           QWidget* genitore)
    : QDialog(genitore),
      trovate_(ditte),
      anniDi_(std::move(anniDi)),
      ditte_(new QListWidget(this)),
      anni_(new QListWidget(this)),
      avviso_(new QLabel(this)) {
  setObjectName(QStringLiteral("SelezioneDitta"));
  setWindowTitle(tr("Selezione Archivi"));
  ditte_->setObjectName(QStringLiteral("Ditte"));
  anni_->setObjectName(QStringLiteral("Anni"));
  avviso_->setWordWrap(true);
  auto* griglia = new QGridLayout(this);
  auto* etichettaDitta = new QLabel(tr("&Ditta"), this);
  etichettaDitta->setBuddy(ditte_);
  auto* etichettaAnno = new QLabel(tr("Ann&o"), this);
  etichettaAnno->setBuddy(anni_);
  auto* bottoni = new QDialogButtonBox(this);
  apri_ = bottoni->addButton(tr("&Apri"), QDialogButtonBox::AcceptRole);
  bottoni->addButton(tr("Ann&ulla"), QDialogButtonBox::RejectRole);
  auto* nuova = bottoni->addButton(tr("&Nuova ditta..."), QDialogButtonBox::ActionRole);
  nuova->setObjectName(QStringLiteral("NuovaDitta"));
  nuova->setAutoDefault(false);
  connect(nuova, &QPushButton::clicked, this, &DialogoDitta::Nuova);
  apri_->setDefault(true);
  griglia->addWidget(etichettaDitta, 0, 0);
  griglia->addWidget(etichettaAnno, 0, 1);
  griglia->addWidget(ditte_, 1, 0);
  griglia->addWidget(anni_, 1, 1);
  griglia->addWidget(avviso_, 2, 0, 1, 2);
  griglia->addWidget(bottoni, 3, 0, 1, 2);
  griglia->setColumnStretch(0, 3);
  griglia->setColumnStretch(1, 1);
  resize(480, 340);

  for (const auto& ditta : ditte) {
    auto* riga = new QListWidgetItem(QString::fromStdString(ditta.nome), ditte_);
    QFont carattere = ditte_->font();
    carattere.setBold(ditta.predefinita);
    riga->setFont(carattere);
  }
  connect(ditte_, &QListWidget::currentRowChanged, this, &DialogoDitta::MostraAnni);
  for (auto* elenco : {ditte_, anni_}) {
    connect(elenco, &QListWidget::itemActivated, this, [this] {
      if (apri_->isEnabled()) accept();
    });
  }
  connect(bottoni, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(bottoni, &QDialogButtonBox::rejected, this, &QDialog::reject);
  ditte_->setCurrentRow(0);
  ditte_->setFocus();
}

void DialogoDitta::MostraAnni() {
  anni_->clear();
  avviso_->clear();
  if (auto* riga = ditte_->currentItem(); riga != nullptr) {
    std::string errore;
    for (const int anno : anniDi_(riga->text().toStdString(), errore)) {
      anni_->addItem(QString::number(anno));
    }
    avviso_->setText(QString::fromStdString(errore));
  }
  anni_->setCurrentRow(anni_->count() - 1);
  apri_->setEnabled(anni_->count() > 0);
}

void DialogoDitta::Nuova() {
  DialogoNuovaDitta dialogo(trovate_, this);
  if (dialogo.exec() != QDialog::Accepted) return;
  nuova_ = dialogo.Scelta();
  accept();
}

SceltaDitta DialogoDitta::Scelta() const {
  if (nuova_) return *nuova_;
  return {ditte_->currentItem()->text().toStdString(), anni_->currentItem()->text().toInt()};
}

}  // namespace fenalto::screens
