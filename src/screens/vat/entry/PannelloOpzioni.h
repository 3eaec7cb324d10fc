// What is registered together with the document: reverse charge, customs bill, withholdings.
#pragma once

#include <QWidget>
#include <memory>

#include "screens/common/windows/Finestre.h"
#include "vat/entry/RegistrazioneIva.h"

class QCheckBox;
class QGroupBox;

namespace fenalto::screens {

class CampoCodice;
class CampoImporto;
class Legatura;

class PannelloOpzioni : public QWidget {
  Q_OBJECT

 public:
  /// Binds its controls to the head through `legatura`.
  PannelloOpzioni(vat::RegistrazioneIva& fatture, Finestre& finestre, Legatura& legatura,
                  QWidget* genitore = nullptr);
  /// Shows the frames of the register's type, and what can be typed in them.
  void Mostra();
  /// The controls in the order in which the focus goes through them.
  [[nodiscard]] QList<QWidget*> Controlli() const;

 private:
  struct Ritenuta {
    CampoCodice* causale;
    CampoCodice* conto;
    CampoImporto* importo;
  };
  CampoCodice* Codice(const char* nome, const char* fonte);
  void CreaCampi();
  QGroupBox* CreaIntra();
  QGroupBox* CreaBolla();
  QGroupBox* CreaRitenute();

  vat::RegistrazioneIva& fatture_;
  Finestre& finestre_;
  Legatura& legatura_;
  QGroupBox* intra_;
  CampoCodice* rivaIntra_;
  QCheckBox* senzaGiro_;
  CampoCodice* causaleIntra_;
  CampoCodice* fornitoreIntra_;
  CampoCodice* contoCosti_;
  CampoCodice* pagamentoIntra_;
  QGroupBox* bolla_;
  QCheckBox* conBolla_;
  CampoCodice* fornitoreBolla_;
  CampoCodice* causaleBolla_;
  CampoCodice* pagamentoBolla_;
  QGroupBox* ritenute_;
  QCheckBox* conRitenute_;
  Ritenuta ritenuta_[2];
};

}  // namespace fenalto::screens
