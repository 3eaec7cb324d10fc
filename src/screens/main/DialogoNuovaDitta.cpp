#include "screens/main/DialogoNuovaDitta.h"

#include <QCheckBox>
#include <QDate>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <algorithm>

#include "core/session/Ditte.h"
#include "core/values/Testo.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {

DialogoNuovaDitta::DialogoNuovaDitta(const std::vector<DittaTrovata>& ditte, QWidget* genitore)
    : QDialog(genitore),
      ditte_(ditte),
      nome_(new QLineEdit(this)),
      anno_(new QSpinBox(this)),
      trimestrale_(new QCheckBox(tr("IVA &trimestrale"), this)),
      avviso_(new QLabel(this)) {
  constexpr int kPrimo = 1900;
  constexpr int kUltimo = 2999;
  constexpr int kCaratteri = 32;
  setObjectName(QStringLiteral("NuovaDitta"));
  setWindowTitle(tr("Nuova ditta"));
  nome_->setObjectName(QStringLiteral("Ditta"));
  anno_->setObjectName(QStringLiteral("Anno"));
  trimestrale_->setObjectName(QStringLiteral("IvaTrimestrale"));
  avviso_->setObjectName(QStringLiteral("Avviso"));
  LargoCaratteri(nome_, kCaratteri);
  anno_->setRange(kPrimo, kUltimo);
  anno_->setValue(QDate::currentDate().year());
  avviso_->setWordWrap(true);
  QPalette rossa = palette();
  rossa.setColor(QPalette::WindowText, Colore(Segno::Scaduto, rossa));
  avviso_->setPalette(rossa);
  auto* spiega = new QLabel(tr("Parte dal modello: piano dei conti, causali, codici e registri IVA "
                               "sono già pronti."),
                            this);
  spiega->setWordWrap(true);
  auto* bottoni = new QDialogButtonBox(this);
  bottoni->addButton(tr("&Crea e apri"), QDialogButtonBox::AcceptRole)->setDefault(true);
  bottoni->addButton(tr("A&nnulla"), QDialogButtonBox::RejectRole);
  auto* griglia = new QGridLayout(this);
  griglia->addWidget(Didascalia(tr("Nome"), nome_), 0, 0);
  griglia->addWidget(nome_, 0, 1);
  griglia->addWidget(Didascalia(tr("Primo anno"), anno_), 1, 0);
  griglia->addWidget(anno_, 1, 1, Qt::AlignLeft);
  griglia->addWidget(trimestrale_, 2, 1);
  griglia->addWidget(spiega, 3, 0, 1, 2);
  griglia->addWidget(avviso_, 4, 0, 1, 2);
  griglia->addWidget(bottoni, 5, 0, 1, 2);
  connect(bottoni, &QDialogButtonBox::accepted, this, &DialogoNuovaDitta::accept);
  connect(bottoni, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(nome_, &QLineEdit::textEdited, avviso_, &QLabel::clear);
  nome_->setFocus();
}

SceltaDitta DialogoNuovaDitta::Scelta() const {
  return {.ditta = nome_->text().trimmed().toStdString(),
          .anno = anno_->value(),
          .nuova = true,
          .ivaTrimestrale = trimestrale_->isChecked()};
}

void DialogoNuovaDitta::accept() {
  const std::string nome = Scelta().ditta;
  const bool presa = std::any_of(ditte_.begin(), ditte_.end(), [&nome](const DittaTrovata& ditta) {
    return UgualeTesto(ditta.nome, nome);
  });
  const auto buono = VerificaNomeDitta(nome);
  if (buono && !presa) return QDialog::accept();
  avviso_->setText(presa ? tr("La ditta %1 esiste già.").arg(Qs(nome))
                         : Qs(buono.Errore().messaggio));
  nome_->setFocus();
  nome_->selectAll();
}

}  // namespace fenalto::screens
