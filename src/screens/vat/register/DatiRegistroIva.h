// What the pages of the VAT register's window share: the run, the record of its choices and their
// controls.
#pragma once

#include <QString>

#include "core/session/Scheda.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampiForma.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/windows/Finestre.h"
#include "vat/register/RegistroIvaUnico.h"

namespace fenalto::screens {

/// Characters of a code in these windows.
inline constexpr int kCifreCodiceIva = 8;

/// The choices of a run as a record of fields, and their controls. Fields that are settings of the
/// company are written as soon as they are left.
class DatiRegistroIva : public QObject {
  Q_OBJECT

 public:
  DatiRegistroIva(Finestre& finestreUsate, QObject* genitore);

  Finestre& finestre;
  vat::RegistroIvaUnico registro;
  Scheda scheda;
  Legatura legatura;

  [[nodiscard]] Ambiente& Sessione() { return finestre.Sessione(); }
  [[nodiscard]] int Decimali() { return Sessione().Euro() ? 2 : 0; }
  /// Whether the period shown is the one that the run is on.
  bool confermato = false;

  CampoImporto* ImportoDi(const char* nome, int decimali);
  CampoTesto* Testo(const char* nome, int lunghezza);
  /// The period's field of a form, which then knows the periods that the year offers.
  CampoCodice& DaiPeriodi(const CampiForma& forma);

  /// Shows what the run proposes.
  void MostraOpzioni();
  /// Gives the run what the fields hold.
  void PrendiOpzioni();

 signals:
  /// A field was left with a new value, which the run has.
  void Cambiato(const QString& campo);

 private:
  void AggiungiCampi();
  void LeggiImpostazioni();
  void Lasciato(const QString& campo, bool cambiato);
};

}  // namespace fenalto::screens
