#include "screens/documents/parties/ModelloParte.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Tavolozza.h"

namespace fenalto::screens {
namespace {

constexpr std::size_t kPagina = 200;
constexpr int kCentesimi = 2;
constexpr int kLato = 16;

/// A folder, filled when there is something in it.
QIcon Cartella(bool piena) {
  QPixmap immagine(kLato, kLato);
  immagine.fill(Qt::transparent);
  QPainter pittore(&immagine);
  pittore.setRenderHint(QPainter::Antialiasing);
  const QColor tratto = QApplication::palette().color(piena ? QPalette::Active : QPalette::Disabled,
                                                      QPalette::WindowText);
  pittore.setPen(tratto);
  if (piena) pittore.setBrush(Colore(Segno::InScadenza, QApplication::palette()));
  pittore.drawPolygon(
      QPolygonF({{1.5, 3.5}, {6.5, 3.5}, {8, 5.5}, {14.5, 5.5}, {14.5, 13.5}, {1.5, 13.5}}));
  return immagine;
}

QStandardItem* Voce(const QString& testo) {
  auto* voce = new QStandardItem(testo);
  voce->setEditable(false);
  return voce;
}

QStandardItem* VoceImporto(const QString& testo) {
  auto* voce = Voce(testo);
  voce->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return voce;
}

}  // namespace

ModelloParte::ModelloParte(QObject* genitore) : QStandardItemModel(genitore) {
  setColumnCount(2);
}

void ModelloParte::Mostra(documents::InterrogazioneParte* parte) {
  clear();
  rami_.clear();
  parte_ = parte;
  setHorizontalHeaderLabels({tr("Voce"), tr("Importo")});
  if (parte == nullptr) return;
  const QIcon piena = Cartella(true);
  const QIcon vuota = Cartella(false);
  for (documents::RamoParte& ramo : parte->Rami()) {
    const documents::ConteggioRamo conteggio = parte->Conta(ramo);
    auto* voce = Voce(Qs(parte->Didascalia(ramo, conteggio)));
    const bool qualcosa = conteggio.quanti != 0;
    voce->setIcon(qualcosa ? piena : vuota);
    voce->setToolTip(qualcosa ? QString::number(conteggio.quanti) : tr("vuota"));
    voce->setAccessibleDescription(qualcosa ? tr("piena") : tr("vuota"));
    const bool scadenze = qualcosa && ramo.chiave == "xSCAD";
    auto* importo =
        VoceImporto(scadenze ? Qs(ScriviImporto(conteggio.importo, kCentesimi)) : QString());
    rami_.push_back({std::move(ramo), conteggio.quanti, {}});
    appendRow({voce, importo});
  }
}

const ModelloParte::Ramo* ModelloParte::RamoDi(const QModelIndex& indice) const {
  if (!indice.isValid() || indice.parent().isValid()) return nullptr;
  return &rami_.at(static_cast<std::size_t>(indice.row()));
}

const documents::FogliaParte* ModelloParte::Foglia(const QModelIndex& indice) const {
  const Ramo* ramo = RamoDi(indice.parent());
  const auto posto = static_cast<std::size_t>(indice.row());
  return ramo == nullptr || posto >= ramo->foglie.size() ? nullptr : ramo->foglie[posto].get();
}

bool ModelloParte::EAltri(const QModelIndex& indice) const {
  return RamoDi(indice.parent()) != nullptr && Foglia(indice) == nullptr;
}

QString ModelloParte::Nome(const QModelIndex& ramo) const {
  const Ramo* quale = RamoDi(ramo);
  return quale == nullptr ? QString() : Qs(quale->ramo.chiave + "|" + quale->ramo.argomento);
}

bool ModelloParte::hasChildren(const QModelIndex& genitore) const {
  if (!genitore.isValid()) return !rami_.empty();
  const Ramo* ramo = RamoDi(genitore);
  return ramo != nullptr && genitore.column() == 0 && ramo->quanti != 0;
}

bool ModelloParte::canFetchMore(const QModelIndex& genitore) const {
  const Ramo* ramo = RamoDi(genitore);
  return ramo != nullptr && ramo->quanti != 0 && ramo->foglie.empty();
}

void ModelloParte::fetchMore(const QModelIndex& genitore) {
  if (canFetchMore(genitore)) CaricaPagina(genitore);
}

void ModelloParte::CaricaAltri(const QModelIndex& indice) {
  const QModelIndex ramo = indice.parent();
  if (!EAltri(indice)) return;
  removeRow(indice.row(), ramo);
  CaricaPagina(ramo);
}

void ModelloParte::CaricaPagina(const QModelIndex& indice) {
  Ramo& ramo = rami_.at(static_cast<std::size_t>(indice.row()));
  const documents::FogliaParte* ultima = ramo.foglie.empty() ? nullptr : ramo.foglie.back().get();
  // One more than are shown tells whether there are others.
  auto pagina = parte_->Foglie(ramo.ramo, ultima, kPagina + 1);
  const bool altri = pagina.size() > kPagina;
  if (altri) pagina.pop_back();
  // All gone meanwhile.
  if (pagina.empty() && ramo.foglie.empty()) ramo.quanti = 0;
  auto* voce = itemFromIndex(indice);
  for (documents::FogliaParte& foglia : pagina) {
    const int decimali = foglia.genere == documents::GenereFoglia::Movimento
                             ? parte_->DecimaliDi(foglia.anno)
                             : kCentesimi;
    voce->appendRow(
        {Voce(Qs(foglia.testo)),
         VoceImporto(foglia.importo ? Qs(ScriviImporto(*foglia.importo, decimali)) : QString())});
    ramo.foglie.push_back(std::make_unique<documents::FogliaParte>(std::move(foglia)));
  }
  if (!altri) return;
  auto* successive = Voce(tr("altri..."));
  successive->setToolTip(tr("%1 di %2").arg(ramo.foglie.size()).arg(ramo.quanti));
  voce->appendRow({successive, VoceImporto(QString())});
}

}  // namespace fenalto::screens
