// Dialogs of a program that works without anybody before it.
#pragma once

#include "core/session/Porte.h"

namespace fenalto::demo {

/// Nobody to ask: every question takes its default, and the last message is kept.
class DialoghiMuti final : public Dialoghi {
 public:
  void Messaggio(const std::string& testo, Icona /*icona*/) override { ultimo = testo; }
  Risposta Domanda(const std::string& /*testo*/, Bottoni /*bottoni*/, Risposta predefinita,
                   const std::string& /*titolo*/, Icona /*icona*/) override {
    return predefinita;
  }
  std::optional<std::string> Chiedi(const std::string& /*testo*/,
                                    const std::string& /*iniziale*/) override {
    return std::nullopt;
  }
  std::optional<SceltaUscita> ScegliUscita(const std::string& /*rapporto*/,
                                           bool /*esporta*/) override {
    return std::nullopt;
  }
  std::optional<std::filesystem::path> ScegliFile(const std::string& /*titolo*/, ModoFile /*modo*/,
                                                  const std::string& /*filtro*/) override {
    return std::nullopt;
  }
  std::optional<SceltaDitta> ScegliDitta(
      const std::vector<DittaTrovata>& /*ditte*/,
      const std::function<std::vector<int>(const std::string&, std::string&)>& /*anniDi*/)
      override {
    return std::nullopt;
  }
  std::optional<Credenziali> ChiediAccesso(const std::string& /*avviso*/) override {
    return std::nullopt;
  }
  std::unique_ptr<Avanzamento> Avvia(const std::string& /*testo*/,
                                     std::int64_t /*totale*/) override {
    return std::make_unique<AvanzamentoMuto>();
  }
  bool ApriEsterno(const std::string& /*fileOIndirizzo*/) override { return false; }

  std::string ultimo;

 private:
  class AvanzamentoMuto final : public Avanzamento {
   public:
    bool Avanza(std::int64_t /*fatto*/) override { return true; }
  };
};

}  // namespace fenalto::demo
