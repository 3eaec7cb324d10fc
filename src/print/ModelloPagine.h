// The list of a report's pages, which grows while they are composed.
#pragma once

#include <QAbstractListModel>

namespace fenalto::print {

class ModelloPagine : public QAbstractListModel {
  Q_OBJECT

 public:
  using QAbstractListModel::QAbstractListModel;
  void Pagine(int quante) {
    if (quante <= pagine_) return;
    beginInsertRows({}, pagine_, quante - 1);
    pagine_ = quante;
    endInsertRows();
  }
  [[nodiscard]] int rowCount(const QModelIndex& genitore = {}) const override {
    return genitore.isValid() ? 0 : pagine_;
  }
  [[nodiscard]] QVariant data(const QModelIndex& indice, int ruolo) const override {
    if (ruolo != Qt::DisplayRole || !indice.isValid()) return {};
    return tr("Pagina %1").arg(indice.row() + 1);
  }

 private:
  int pagine_ = 0;
};

}  // namespace fenalto::print
