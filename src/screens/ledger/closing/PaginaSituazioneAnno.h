// The page that tells how far the closing of the year is, lists the runs made so far, and takes
// them back.
#pragma once

#include <QWidget>

#include "ledger/closing/SituazioneAnno.h"
#include "screens/common/windows/Finestre.h"

class QLabel;
class QPushButton;

namespace fenalto::screens {

class Griglia;

class PaginaSituazioneAnno : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaSituazioneAnno(Finestre& finestre);
  void Leggi();

 signals:
  /// A run was taken back.
  void Annullata();

 private:
  void CreaGriglie();
  void CreaPulsanti();
  void Collega();
  void MostraPassi();
  void MostraOperazioni();
  /// Lists the registrations behind a step, or behind a run.
  void VediPasso(int riga);
  void VediOperazione(int riga);
  void VediRegistrazioni(const std::vector<ledger::RegistrazioneAnno>& registrazioni, int anno,
                         const QString& titolo);
  void Annulla();
  [[nodiscard]] const ledger::OperazioneAnno* Operazione(int riga) const;

  Finestre& finestre_;
  ledger::SituazioneAnno situazione_;
  int annoVisto_ = 0;  ///< of the registrations listed
  QLabel* prossimo_;
  Griglia* passi_ = nullptr;
  Griglia* operazioni_ = nullptr;
  Griglia* registrazioni_ = nullptr;
  QLabel* diChe_;
  QPushButton* vedi_ = nullptr;
  QPushButton* annulla_ = nullptr;
};

}  // namespace fenalto::screens
