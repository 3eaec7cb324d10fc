// The page of the company's choices for documents and stock.
#pragma once

#include <QWidget>

#include "documents/types/ImpostazioniDocumenti.h"
#include "screens/common/windows/Finestre.h"

class QPushButton;

namespace fenalto::screens {

class CampiForma;
class Legatura;

class PaginaImpostazioniDocumenti : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaImpostazioniDocumenti(Finestre& finestre);

  /// Something is typed that isn't saved.
  [[nodiscard]] bool InModifica() const;
  /// Reads them again, unless something is typed.
  void Aggiorna();
  /// Gives up what is typed.
  void Abbandona();
  void Fuoco();

 private:
  void Lasciato(const QString& campo);
  void Salva();

  documents::ImpostazioniDocumenti impostazioni_;
  Legatura* legatura_;
  CampiForma* campi_ = nullptr;
};

}  // namespace fenalto::screens
