// A code field (`Rt`): shows the description of its code beside it and searches while typing, by
// code and by any part of the description.
//
// F2 opens the list whatever is typed, Ctrl+F2 (or F2 in the list) the window that searches such
// codes where there is one, F3 (or a double click) opens the archive behind the code,
// and the code chosen or made there comes back into the field. Tab and Enter take the chosen entry;
// a text that is no code but fits one entry only becomes its code.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <memory>

#include "core/archives/FonteCodici.h"
#include "core/values/Rinvio.h"
#include "screens/common/fields/Campi.h"

class QListWidget;

namespace fenalto::screens {

class CampoCodice;

/// Who goes where a reference leads: what a code field looks for above itself.
class SeguaceRinvii {
 public:
  virtual ~SeguaceRinvii() = default;
  virtual void Segui(const Rinvio& rinvio) = 0;
  /// The same for a code field, which gets the code that is chosen there and the focus back.
  virtual void SeguiPer(const Rinvio& rinvio, CampoCodice& campo) = 0;
};

class CampoCodice : public QLineEdit, public CampoValore {
  Q_OBJECT

 public:
  /// `conArchivio`: F3 opens the archive behind the source, if there is one.
  CampoCodice(const QString& nome, std::shared_ptr<archives::FonteCodici> fonte,
              bool conArchivio = true);
  ~CampoCodice() override;

  /// The label with the description, to be placed beside the field; owned by the caller's layout.
  [[nodiscard]] QLabel* Etichetta() { return etichetta_; }
  /// Looks up elsewhere from now on, with the archive behind that.
  void Fonte(std::shared_ptr<archives::FonteCodici> fonte);
  void Mostra(const Valore& valore) override;
  [[nodiscard]] Esito<Valore> Letto() const override;
  /// The code that it holds; empty for none, and for a text that can't be one.
  [[nodiscard]] std::string Codice() const;
  /// Whether an entry of the open list is picked, which leaving the field takes.
  [[nodiscard]] bool SceltaInElenco() const;
  /// Whether the code typed exists.
  [[nodiscard]] bool Esiste() const { return esiste_; }
  /// Shows the description of the code typed; raises Trovato when it exists.
  void Risolvi();
  /// Of several classes that a code has, the one that `classe` names is meant.
  void Preferita(std::function<std::string()> classe) { preferita_ = std::move(classe); }
  /// Takes a code that was chosen or changed in its archive: a new one as if it had been picked in
  /// the list, its own with its description as it is now. Nothing with an empty one.
  void Prendi(const QString& codice);

 signals:
  /// The code was resolved.
  void Trovato(const QString& codice);
  /// An entry of the list was chosen.
  void Scelto(const QString& codice);
  /// The code that is taken is of another class: the source of that class is to be given now.
  void AltraClasse(const QString& classe);

 protected:
  void focusInEvent(QFocusEvent* evento) override;
  void focusOutEvent(QFocusEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void mouseDoubleClickEvent(QMouseEvent* evento) override;
  bool event(QEvent* evento) override;
  void hideEvent(QHideEvent* evento) override;

 private:
  /// Opens the archive behind the code, by the window that the field stands in.
  void ApriArchivio();
  /// Opens a window that gives a code back.
  void Chiedi(const Rinvio& rinvio);
  void Elenca(const QString& testo, bool tutto);
  void PrendiScelta();
  /// What is typed is no code: what it stands for, if one thing alone.
  void Interpreta();
  void ChiudiElenco();

  std::shared_ptr<archives::FonteCodici> fonte_;
  std::string archivio_;  ///< table in capitals, empty for none
  std::function<std::string()> preferita_;
  TestoMostrato testo_;
  QLabel* etichetta_;
  QListWidget* elenco_ = nullptr;
  bool esiste_ = false;
  bool mostrando_ = false;
};

/// A code field of that width followed by its description, which takes the room there is.
QWidget* ConDescrizione(CampoCodice* campo, int caratteri);

}  // namespace fenalto::screens
