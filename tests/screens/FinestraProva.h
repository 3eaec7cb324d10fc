// A function window in the real main window, on a company of its own, used by keys and clicks.
#pragma once

#include <QTest>
#include <QWidget>

#include "ledger/DittaDiProva.h"
#include "screens/common/windows/FinestraFunzione.h"
#include "screens/main/FinestraPrincipale.h"

namespace fenalto::prova {

/// Nothing where the control isn't there: `Campo` names it and fails.
class FinestraProva : public DittaDiProva {
 protected:
  FinestraProva();
  ~FinestraProva() override;

  /// A main window of that session, shown and active, of that size where one is given.
  static std::unique_ptr<screens::FinestraPrincipale> Principale(Ambiente& ambiente,
                                                                 QSize misura = {1366, 768});
  void Apri(const QString& finestra);

  template <typename Controllo = QWidget>
  Controllo* Campo(const char* nome) {
    auto* controllo = finestra->findChild<Controllo*>(QString::fromLatin1(nome));
    if (controllo == nullptr) {
      ADD_FAILURE() << "manca il controllo " << nome;
    }
    return controllo;
  }
  /// Focuses a field, replaces its text by typing and leaves it with Tab.
  void Scrivi(const char* nome, const char* testo);
  /// Types in place of the text and stays in the field.
  void Digita(const char* nome, const char* testo);
  /// A key to whatever has the focus.
  void Tasto(Qt::Key tasto, Qt::KeyboardModifiers modificatori = Qt::NoModifier);
  void Clic(const char* nome);
  void DoppioClic(const char* griglia, int riga);
  QString Testo(const char* nome);
  QString Cella(const char* griglia, int riga, const char* colonna);
  int Righe(const char* griglia);
  int Pagina();
  /// Object name of what has the focus.
  QString Foco();

  std::unique_ptr<screens::FinestraPrincipale> principale;
  screens::FinestraFunzione* finestra = nullptr;
};

}  // namespace fenalto::prova
