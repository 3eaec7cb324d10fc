// What stands under the names of a product's files: the files of the two folders to choose from,
// the image as it looks, and the documents attached to the product.
#pragma once

#include <QWidget>

#include "core/archives/ArchivioCodici.h"
#include "screens/common/windows/Finestre.h"
#include "warehouse/products/ArchivioProdotti.h"

class QAbstractButton;
class QCheckBox;
class QListWidget;
class QPushButton;

namespace fenalto::screens {

class Anteprima;
class PannelloAllegati;

class RiquadroFile : public QWidget {
  Q_OBJECT

 public:
  RiquadroFile(archives::ArchivioCodici& prodotti, warehouse::ParteProdotto& parte,
               Finestre& finestre, QWidget* genitore = nullptr);

  void Mostra();
  /// The associated image, for the first page of the record: shown while the setting says so.
  [[nodiscard]] QWidget* ImmagineAssociata() const;
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 signals:
  /// A file was chosen: the record has its name.
  void Scelto();

 protected:
  void showEvent(QShowEvent* evento) override;

 private:
  QWidget* CreaElenchi();
  void Elenca();
  void Scegli(const char* campo, const QListWidget& elenco);
  void ApriDocumento();
  void MostraImmagine();

  archives::ArchivioCodici& prodotti_;
  Finestre& finestre_;
  QListWidget* immagini_;
  QListWidget* documenti_;
  Anteprima* anteprima_;
  Anteprima* associata_;
  QCheckBox* mostraSempre_;
  QPushButton* apri_;
  PannelloAllegati* allegati_;
  bool elencati_ = false;
};

}  // namespace fenalto::screens
