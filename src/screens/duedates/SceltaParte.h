// The choice of a customer or supplier: class (`CFPx`, "C" or "F") and code (`CliFor`), whose
// search follows the class. Where both classes may be meant at once the class may be empty.
#pragma once

#include <QWidget>
#include <string>

#include "screens/common/windows/Finestre.h"

class QComboBox;

namespace fenalto::screens {

class CampoCodice;

class SceltaParte : public QWidget {
  Q_OBJECT

 public:
  /// Whether the class may be left empty, which it then is at first.
  enum class Classe { Data, Facoltativa };
  /// `vuota` is what no code means ("tutti"), shown as hint; empty where a party is needed.
  explicit SceltaParte(Finestre& finestre, const QString& vuota = {}, QWidget* genitore = nullptr,
                       Classe classe = Classe::Data);

  /// "C" or "F"; empty for both, where it may be.
  [[nodiscard]] std::string Cfp() const;
  /// The code typed, in the archive's spelling; empty when none is.
  [[nodiscard]] std::string Codice() const;
  /// Whether the code typed exists.
  [[nodiscard]] bool Esiste() const;
  void Imposta(const std::string& cfp, const std::string& codice);
  /// The class or the code can't be changed while a registration is open.
  void Bloccata(bool classe, bool codice);
  [[nodiscard]] CampoCodice& Campo() { return *codice_; }

 signals:
  void ClasseCambiata();
  /// Another party was chosen, or the code was emptied.
  void ParteCambiata();

 private:
  void CambiaClasse();
  void Lasciata();

  Finestre& finestre_;
  QComboBox* classe_;
  CampoCodice* codice_;
  std::string detta_;
};

}  // namespace fenalto::screens
