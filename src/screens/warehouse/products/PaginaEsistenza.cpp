#include "screens/warehouse/products/PaginaEsistenza.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/Qs.h"
#include "screens/warehouse/products/GraficoEsistenza.h"
#include "warehouse/stock/Decimali.h"
#include "warehouse/stock/PannelloEsistenza.h"

namespace fenalto::screens {
namespace {

/// Lines of fixed width, to be read and copied.
QListWidget* Linee(const char* nome) {
  auto* elenco = new QListWidget;
  elenco->setObjectName(QString::fromLatin1(nome));
  elenco->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  elenco->setUniformItemSizes(true);
  return elenco;
}

void MostraLinee(QListWidget& elenco, const std::vector<std::string>& linee) {
  elenco.clear();
  for (const std::string& linea : linee) elenco.addItem(Qs(linea));
}

}  // namespace

PaginaEsistenza::PaginaEsistenza(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      finestre_(finestre),
      esistenze_(Linee("List2")),
      situazione_(Linee("List3")),
      avviso_(new QLabel),
      grafico_(new GraficoEsistenza),
      aggiorna_(Pulsante(QStringLiteral("RefreshEsistenza"), tr("Aggiorna"), tr("F5"))) {
  esistenze_->setAccessibleName(tr("Esistenza per magazzino"));
  situazione_->setAccessibleName(tr("Ordinato, impegnato, disponibile, costi"));
  avviso_->setObjectName(QStringLiteral("AvvisoTrasporto"));
  avviso_->setWordWrap(true);
  auto* elenchi = new QHBoxLayout;
  elenchi->addWidget(esistenze_, 1);
  elenchi->addWidget(situazione_, 1);
  auto* sotto = new QHBoxLayout;
  sotto->addWidget(avviso_, 1);
  sotto->addWidget(aggiorna_, 0, Qt::AlignTop);
  auto* colonna = new QVBoxLayout(this);
  colonna->addLayout(elenchi, 1);
  colonna->addWidget(grafico_);
  colonna->addLayout(sotto);
  connect(aggiorna_, &QPushButton::clicked, this, [this] { Leggi(prodotto_); });
}

void PaginaEsistenza::Leggi(const std::string& prodotto) {
  prodotto_ = prodotto;
  avviso_->clear();
  if (prodotto.empty()) {
    esistenze_->clear();
    situazione_->clear();
    grafico_->MostraTesto({});
    return;
  }
  Ambiente& ambiente = finestre_.Sessione();
  const auto pannello = warehouse::LeggiPannelloEsistenza(ambiente, prodotto);
  MostraLinee(*esistenze_, pannello.list2);
  MostraLinee(*situazione_, pannello.list3);
  grafico_->Mostra(warehouse::AndamentoEsistenza(ambiente, prodotto),
                   warehouse::DecimaliQuantita(ambiente));
  avviso_->setText(Qs(warehouse::AvvisoTrasporto(ambiente)));
}

}  // namespace fenalto::screens
