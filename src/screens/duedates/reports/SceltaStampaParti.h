// The choice that the printed reports of due dates have in common: class, range of parties, range
// of dates, the paid ones too.
#pragma once

#include <QGroupBox>

#include "duedates/reports/LetturaScadenze.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/windows/Finestre.h"

class QComboBox;
class QGridLayout;

namespace fenalto::screens {

class CampoCodice;
class CampoData;

class SceltaStampaParti : public QGroupBox {
  Q_OBJECT

 public:
  /// Without the due dates only class and range of parties are chosen.
  enum class Cosa { Scadenze, Parti };
  /// Adds the fields `DaCliFor`, `ACliFor`, `DaData`, `AData` and `AnchePagate` to the record and
  /// binds their controls. `CFPx` is the class.
  SceltaStampaParti(Finestre& finestre, Scheda& scheda, Legatura& legatura,
                    Cosa cosa = Cosa::Scadenze);
  [[nodiscard]] duedates::SceltaScadenze Scelta() const;
  /// A date bound to the record's field of that name.
  static CampoData* Data(const char* nome, Finestre& finestre, Scheda& scheda, Legatura& legatura);

 private:
  CampoCodice* Codice(const char* nome);
  void CreaScadenze(QGridLayout& griglia, int linea);
  void CambiaClasse();

  Finestre& finestre_;
  Scheda& scheda_;
  Legatura& legatura_;
  Cosa cosa_;
  QComboBox* classe_;
  CampoCodice* da_;
  CampoCodice* a_;
};

}  // namespace fenalto::screens
