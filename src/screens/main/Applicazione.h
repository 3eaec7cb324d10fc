// The program as a whole: the session, the main window and the start-up order.
#pragma once

#include <memory>

#include "core/session/Ambiente.h"
#include "screens/main/FinestraPrincipale.h"

namespace fenalto::screens {

class Applicazione {
 public:
  /// The ports must outlive it. Needs a QApplication.
  Applicazione(OpzioniAmbiente opzioni, Dialoghi& dialoghi, Orologio& orologio, Caso& caso);
  ~Applicazione();

  /// Once per process, before any window: style, fonts (the report face "Arial Narrow" among them),
  /// translation of the toolkit's own texts, name for the settings store.
  static void Prepara(const std::filesystem::path& cartellaDati);

  /// Start-up: second instance asked about, session opened with the choice of company and year (and
  /// the log-in where the company has users), main window filled. `ditta` not empty is opened on
  /// its last year without the choice. False: the program ends.
  bool Avvia(const std::string& ditta = "");
  /// The same on a company and year given beforehand; `utente` empty means no log-in is tried.
  Esito<bool> AvviaSu(const std::string& ditta, int anno, const std::string& utente = "",
                      const std::string& password = "");
  /// Shows the main window and starts the work that waits until it is usable (daily backup).
  void Mostra();

  [[nodiscard]] Ambiente& Sessione() { return *ambiente_; }
  [[nodiscard]] FinestraPrincipale& Principale() { return *principale_; }

  /// A function has asked that the program end (company created or deleted, year opened).
  void ChiediFine();
  [[nodiscard]] bool FineChiesta() const { return fineChiesta_; }

  /// The windows built so far, by the name of their function.
  static FinestraPrincipale::Costruttori Costruttori();

 private:
  bool SecondaIstanza();
  Dialoghi& dialoghi_;
  std::unique_ptr<Ambiente> ambiente_;
  std::unique_ptr<FinestraPrincipale> principale_;
  struct Istanza;
  std::unique_ptr<Istanza> istanza_;
  bool fineChiesta_ = false;
};

}  // namespace fenalto::screens
