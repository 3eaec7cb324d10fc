// Dialogs for runs without a person: defaults are answered, messages go nowhere.
#pragma once

#include "core/session/Porte.h"

namespace fenalto::banco {

/// Progress that nobody looks at.
class AvanzamentoMuto : public Avanzamento {
 public:
  bool Avanza(std::int64_t) override { return true; }
};

/// Dialogs that a run without a person must not need.
class DialoghiMuti : public Dialoghi {
 public:
  void Messaggio(const std::string&, Icona) override {}
  Risposta Domanda(const std::string&, Bottoni, Risposta predefinita, const std::string&,
                   Icona) override {
    return predefinita;
  }
  std::optional<std::string> Chiedi(const std::string&, const std::string&) override { return {}; }
  std::optional<SceltaUscita> ScegliUscita(const std::string&, bool) override { return uscita; }
  std::optional<std::filesystem::path> ScegliFile(const std::string&, ModoFile,
                                                  const std::string&) override {
    return {};
  }
  std::optional<SceltaDitta> ScegliDitta(
      const std::vector<DittaTrovata>&,
      const std::function<std::vector<int>(const std::string&, std::string&)>&) override {
    return {};
  }
  std::optional<Credenziali> ChiediAccesso(const std::string&) override { return {}; }
  std::unique_ptr<Avanzamento> Avvia(const std::string&, std::int64_t) override {
    return std::make_unique<AvanzamentoMuto>();
  }
  bool ApriEsterno(const std::string&) override { return false; }

  /// Chosen for every report; nothing gives the report up.
  std::optional<SceltaUscita> uscita;
};

}  // namespace fenalto::banco
