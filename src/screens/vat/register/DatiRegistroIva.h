// What the pages of the VAT register's window share: the run, the record of its choices and their
// controls.
#pragma once

#include <QCheckBox>
#include <QString>
#include <memory>
#include <utility>

#include "core/session/Scheda.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Legatura.h"
#include "screens/common/windows/Finestre.h"
#include "vat/register/RegistroIvaUnico.h"

namespace fenalto::screens {

/// Codes and texts of the periods that the year offers.
std::shared_ptr<archives::FonteCodici> FontePeriodi(std::vector<vat::PeriodoIva> periodi);

/// Width of a code field of these windows.
inline constexpr int kCaratteriCodice = 9;

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

  QCheckBox* Casella(const char* nome, const QString& testo);
  CampoNumero* Numero(const char* nome);
  CampoImporto* ImportoDi(const char* nome, int decimali);
  CampoTesto* Testo(const char* nome, int lunghezza);
  CampoData* DataDi(const char* nome);
  /// A code with its jump to the archive `tabella`.
  CampoCodice* Codice(const char* nome, std::shared_ptr<archives::FonteCodici> fonte);

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
