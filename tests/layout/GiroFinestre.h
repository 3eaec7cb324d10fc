// A walk through every window of the program, on the company Demo: each empty and with a record,
// on all of its pages.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "screens/main/FinestraPrincipale.h"

namespace fenalto::prova {

/// Answers every question with its default and gives every choice up.
class DialoghiCheAccettano : public DialoghiFinti {
 public:
  Risposta Domanda(const std::string& testo, Bottoni bottoni, Risposta predefinita,
                   const std::string& titolo, Icona icona) override;
  std::optional<std::string> Chiedi(const std::string& testo, const std::string& iniziale) override;
  std::optional<SceltaUscita> ScegliUscita(const std::string& rapporto, bool esporta) override;
  std::optional<std::filesystem::path> ScegliFile(const std::string& titolo, ModoFile modo,
                                                  const std::string& filtro) override;

  /// Where reports are printed as PDF; given up while empty.
  std::filesystem::path stampe;
  std::string finestra;  ///< that is printing
};

class GiroFinestre {
 public:
  /// What is looked at: the window, and how far the walk is in it ("Fatture, aperta, SSTab1 2").
  using Guarda = std::function<void(QWidget& finestra, const QString& dove)>;

  /// The program on the company Demo, made anew.
  GiroFinestre();
  ~GiroFinestre();

  /// Goes through all windows at a size of the main window.
  void Fai(const QSize& misura, const Guarda& guarda);
  /// Presses `Stampa` on every page of every window that has it.
  void Stampa(const std::filesystem::path& cartella);
  [[nodiscard]] screens::FinestraPrincipale& Principale() const { return *principale_; }

 private:
  /// What isn't a function's window: the start page, the guide, the box of the search.
  void FuoriDalleFunzioni(const Guarda& guarda);
  /// What is told at the foot of a window.
  void ScelteDiDitta(const Guarda& guarda);
  void Annuncio(const Guarda& guarda);
  screens::FinestraFunzione* Apri(const QString& nome);
  void Pagine(screens::FinestraFunzione& finestra, const QString& dove, const Guarda& guarda);
  /// Opens a record in it; false when it shows none.
  bool ApriUnRecord(screens::FinestraFunzione& finestra);
  [[nodiscard]] std::string UnCodice(const std::string& statement) const;

  CartellaProva cartella_;
  DialoghiCheAccettano dialoghi_;
  OrologioFinto orologio_;
  CasoFinto caso_;
  std::unique_ptr<Ambiente> ambiente_;
  std::unique_ptr<screens::FinestraPrincipale> principale_;
};

}  // namespace fenalto::prova
