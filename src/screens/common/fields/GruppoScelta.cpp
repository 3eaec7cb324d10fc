#include "screens/common/fields/GruppoScelta.h"

#include <QBoxLayout>
#include <QRadioButton>
#include <utility>

namespace fenalto::screens {

GruppoScelta::GruppoScelta(const QString& nome, std::vector<Scelta> scelte, QWidget* genitore)
    : QWidget(genitore), scelte_(std::move(scelte)) {
  constexpr int kCaratteriInRiga = 60;
  setObjectName(nome);
  qsizetype caratteri = 0;
  for (const auto& scelta : scelte_) caratteri += scelta.testo.size();
  auto* disposizione = new QBoxLayout(
      caratteri <= kCaratteriInRiga ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, this);
  disposizione->setContentsMargins(0, 0, 0, 0);
  for (const auto& scelta : scelte_) {
    auto* pulsante = new QRadioButton(scelta.testo);
    pulsante->setObjectName(scelta.nome);
    pulsanti_.push_back(pulsante);
    disposizione->addWidget(pulsante);
    connect(pulsante, &QRadioButton::clicked, this, &GruppoScelta::Scelto);
  }
  if (!pulsanti_.empty()) setFocusProxy(pulsanti_.front());
}

void GruppoScelta::Mostra(const Valore& valore) {
  const QString mostrato = QString::fromStdString(valore.Testo());
  for (std::size_t i = 0; i < scelte_.size(); ++i) {
    const bool suo = scelte_[i].valore.compare(mostrato, Qt::CaseInsensitive) == 0;
    // Those of one parent exclude each other, and would keep the last one on.
    pulsanti_[i]->setAutoExclusive(false);
    pulsanti_[i]->setChecked(suo);
    pulsanti_[i]->setAutoExclusive(true);
    if (suo) setFocusProxy(pulsanti_[i]);
  }
}

Esito<Valore> GruppoScelta::Letto() const {
  for (std::size_t i = 0; i < scelte_.size(); ++i) {
    if (pulsanti_[i]->isChecked()) return Valore(scelte_[i].valore.toStdString());
  }
  return Valore(std::string());
}

}  // namespace fenalto::screens
