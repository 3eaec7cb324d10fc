// The tree of all that is known of a party, for a view: branches with how much is behind them,
// leaves read a page at a time, the next page behind a node of its own.
#pragma once

#include <QStandardItemModel>
#include <memory>
#include <vector>

#include "documents/parties/InterrogazioneParte.h"

namespace fenalto::screens {

class ModelloParte : public QStandardItemModel {
  Q_OBJECT

 public:
  explicit ModelloParte(QObject* genitore = nullptr);

  /// Shows a party; null shows nothing.
  void Mostra(documents::InterrogazioneParte* parte);
  /// The leaf at a place; null for a branch and for the node of the next page.
  [[nodiscard]] const documents::FogliaParte* Foglia(const QModelIndex& indice) const;
  /// Whether the place is the node of the next page ("altri...").
  [[nodiscard]] bool EAltri(const QModelIndex& indice) const;
  /// Puts the next page in the place of that node.
  void CaricaAltri(const QModelIndex& indice);
  /// What tells a branch from the others, whatever it holds.
  [[nodiscard]] QString Nome(const QModelIndex& ramo) const;

  [[nodiscard]] bool hasChildren(const QModelIndex& genitore = {}) const override;
  [[nodiscard]] bool canFetchMore(const QModelIndex& genitore) const override;
  void fetchMore(const QModelIndex& genitore) override;

 private:
  struct Ramo {
    documents::RamoParte ramo;
    std::int64_t quanti = 0;
    std::vector<std::unique_ptr<documents::FogliaParte>> foglie;
  };
  [[nodiscard]] const Ramo* RamoDi(const QModelIndex& indice) const;
  void CaricaPagina(const QModelIndex& indice);

  documents::InterrogazioneParte* parte_ = nullptr;
  std::vector<Ramo> rami_;
};

}  // namespace fenalto::screens
