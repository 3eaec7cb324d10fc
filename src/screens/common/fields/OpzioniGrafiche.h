// The two choices of print that every report window remembers: graphic form and alignment.
#pragma once

#include <QCheckBox>
#include <QString>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"
#include "screens/common/fields/Legatura.h"

class QHBoxLayout;

namespace fenalto::screens {

class CampoImporto;

/// The fields `StGrafico` and `XTar` of a report window, kept in the company's settings under the
/// window's name and its name followed by "_XTar". Leaving either writes its key at once. Until the
/// user chooses otherwise the form is graphic.
class OpzioniGrafiche : public QObject {
  Q_OBJECT

 public:
  /// Adds the two fields to the record with what was remembered, and binds their controls. A report
  /// that is always in graphic form has `XTar` alone.
  OpzioniGrafiche(const QString& finestra, Ambiente& ambiente, Scheda& scheda, Legatura& legatura,
                  bool soloGrafico = false);
  /// The controls in one line.
  [[nodiscard]] QHBoxLayout* Riga();
  [[nodiscard]] bool StGrafico() const { return scheda_.Leggi("StGrafico").Booleano(); }
  /// Millimetres, to the right when positive.
  [[nodiscard]] double XTar() const;
  /// Writes both into the choice of a report.
  template <class Scelta>
  void Prendi(Scelta& scelta) const {
    scelta.stGrafico = StGrafico();
    scelta.xTar = XTar();
  }

 private:
  void Lasciato(const QString& campo, bool cambiato);

  std::string chiave_;
  Ambiente& ambiente_;
  Scheda& scheda_;
  Legatura& legatura_;
  QCheckBox* grafico_ = nullptr;
  CampoImporto* allineamento_;
};

}  // namespace fenalto::screens
