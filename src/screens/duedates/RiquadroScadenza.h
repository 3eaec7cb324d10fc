// The open due date: its fields, named as its columns, and what can be done with it.
#pragma once

#include <QWidget>

#include "screens/common/windows/Finestre.h"

class QPushButton;

namespace fenalto::duedates {
class ArchivioScadenze;
}

namespace fenalto::screens {

class CampiForma;
class Legatura;

class RiquadroScadenza : public QWidget {
  Q_OBJECT

 public:
  /// `parteData`: the party is that of a document and can't be changed.
  RiquadroScadenza(duedates::ArchivioScadenze& caso, Finestre& finestre, bool parteData,
                   QWidget* genitore = nullptr);

  void Mostra();
  /// Puts the focus into a field, or where typing begins when it is empty.
  void DaiFoco(const std::string& campo = {});
  /// Takes what is typed; false when it can't be read (told).
  bool Raccogli();
  [[nodiscard]] bool Pendente() const;

 signals:
  /// The due date was written or erased: nothing is open any more.
  void Conclusa();
  /// It was restored, and is still open.
  void Ripristinata();
  void AbbandonoChiesto();
  void RegistrazioneChiesta();

 private:
  QWidget* CreaPiede();
  void Collega();
  void MostraStato();
  void Conferma();

  duedates::ArchivioScadenze& caso_;
  Finestre& finestre_;
  bool parteData_;
  Legatura* legatura_;
  CampiForma* campi_;
  QPushButton* conferma_;
  QPushButton* elimina_;
  QPushButton* ripristina_;
  QPushButton* vedi_;
  QPushButton* annulla_;
};

}  // namespace fenalto::screens
