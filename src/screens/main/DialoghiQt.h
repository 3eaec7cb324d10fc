// The port Dialoghi as real dialogs over the main window.
#pragma once

#include <QPointer>
#include <QWidget>

#include "core/session/Porte.h"

namespace fenalto::screens {

class DialoghiQt : public Dialoghi {
 public:
  /// Window that dialogs stand over; null while there is none.
  void Sopra(QWidget* finestra) { sopra_ = finestra; }

  void Messaggio(const std::string& testo, Icona icona) override;
  /// In a bar of the function window in front; a box while there is none.
  void Annuncia(const std::string& testo) override;
  Risposta Domanda(const std::string& testo, Bottoni bottoni, Risposta predefinita,
                   const std::string& titolo, Icona icona) override;
  std::optional<std::string> Chiedi(const std::string& testo, const std::string& iniziale) override;
  std::optional<SceltaUscita> ScegliUscita(const std::string& rapporto, bool esporta) override;
  std::optional<std::filesystem::path> ScegliFile(const std::string& titolo, ModoFile modo,
                                                  const std::string& filtro) override;
  std::optional<SceltaDitta> ScegliDitta(
      const std::vector<DittaTrovata>& ditte,
      const std::function<std::vector<int>(const std::string&, std::string&)>& anniDi) override;
  std::optional<Credenziali> ChiediAccesso(const std::string& avviso) override;
  std::unique_ptr<Avanzamento> Avvia(const std::string& testo, std::int64_t totale) override;
  bool ApriEsterno(const std::string& fileOIndirizzo) override;

 private:
  QPointer<QWidget> sopra_;
};

}  // namespace fenalto::screens
