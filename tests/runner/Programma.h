// The program under test: started, ended and started again on one folder.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "runner/DialoghiCopione.h"
#include "screens/main/Applicazione.h"

namespace fenalto::copione {

class Programma {
 public:
  Programma(OpzioniAmbiente opzioni, std::string ditta, int anno);
  ~Programma();
  Programma(const Programma&) = delete;
  Programma& operator=(const Programma&) = delete;

  DialoghiCopione dialoghi;
  OrologioCopione orologio;
  CasoCopione caso;

  /// Starts on the company, year and user remembered. When the company asks for a log-in that
  /// nobody gave, the program stays shut until Accedi.
  void Avvia();
  /// Ends the program: records in edit are given up, windows close without questions.
  void Ferma();
  void Riavvia();
  /// Ends the program without giving anything up, as a killed one does, and starts it again.
  void Interrompi();
  /// Starts again with that user logged in.
  void Accedi(const std::string& utente, const std::string& password);
  /// Opens a company (its last year when 0) as the selection dialog does.
  void ApriDitta(const std::string& ditta, int anno);
  /// Checks that the program has asked to end, and ends it.
  void Termina();

  /// The running program; started when it was ended. Fails when a log-in is missing, or when the
  /// program asked to end and nobody checked that.
  screens::Applicazione& App();
  [[nodiscard]] bool InCorso() const { return app_ != nullptr; }
  [[nodiscard]] bool HaChiestoFine() const;
  /// How often the program has been started.
  [[nodiscard]] int Avvii() const { return avvii_; }
  /// A job or a transaction is under way.
  [[nodiscard]] bool Occupato();

 private:
  void Ricorda();
  void Crea();
  void Mostra();
  /// The company to start on: the one remembered, or the default when it is gone.
  void AccertaDitta();

  OpzioniAmbiente opzioni_;
  std::string ditta_;
  int anno_ = 0;
  std::optional<Dialoghi::Credenziali> accesso_;
  std::unique_ptr<screens::Applicazione> app_;
  int avvii_ = 0;
};

}  // namespace fenalto::copione
