// The documents attached to the open record.
#pragma once

#include <QGroupBox>
#include <functional>

#include "core/session/Allegati.h"
#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QListWidget;
class QPushButton;

namespace fenalto::screens {

/// What the panel asks of the record's use case.
struct AllegatiDelRecord {
  std::function<std::vector<Allegato>()> elenco;
  std::function<Esito<bool>(const std::filesystem::path& file)> aggiungi;
  std::function<Esito<bool>(std::size_t indice)> togli;
  std::function<bool()> solaLettura;
};

/// Of a use case that names them as all do.
template <class Caso>
AllegatiDelRecord AllegatiDi(Caso& caso) {
  return {.elenco =
              [&caso] {
                std::vector<Allegato> allegati;
                for (const auto& uno : caso.Allegati()) {
                  allegati.push_back({uno.num, uno.descrizione, uno.file});
                }
                return allegati;
              },
          .aggiungi = [&caso](const auto& file) { return caso.AggiungiAllegato(file); },
          .togli = [&caso](std::size_t indice) { return caso.TogliAllegato(indice); },
          .solaLettura = [&caso] { return caso.SolaLettura(); }};
}

class PannelloAllegati : public QGroupBox {
  Q_OBJECT

 public:
  PannelloAllegati(AllegatiDelRecord allegati, Finestre& finestre, QWidget* genitore = nullptr);
  void Mostra();
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 private:
  void Aggiungi();
  void Apri();
  void Togli();
  void Abilita();

  AllegatiDelRecord allegati_;
  Finestre& finestre_;
  QListWidget* elenco_;
  QPushButton* aggiungi_;
  QPushButton* apri_;
  QPushButton* togli_;
};

}  // namespace fenalto::screens
