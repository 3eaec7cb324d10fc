// Ports: how logic speaks to the outside. Screens implement them, tests and copioni script them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Data.h"

namespace fenalto {

enum class Icona { Informazione, Domanda, Avviso, Errore };
enum class Bottoni { SiNo, OkAnnulla, SiNoAnnulla };
enum class Risposta { Si, No, Ok, Annulla };

/// Long work that shows how far it is. `Avanza` returns false when the user cancelled.
class Avanzamento {
 public:
  virtual ~Avanzamento() = default;
  virtual bool Avanza(std::int64_t fatto) = 0;
};

/// Where a report goes.
enum class Destinazione { Anteprima, Stampante, Testo, Pdf, Xlsx, Csv };
struct SceltaUscita {
  Destinazione destinazione = Destinazione::Anteprima;
  std::filesystem::path file;  ///< for Testo, Pdf, Xlsx, Csv
};

enum class ModoFile { Apri, Salva, Cartella };

/// A company found by its settings file, with the years it has.
struct DittaTrovata {
  std::string nome;
  bool predefinita = false;
};
struct SceltaDitta {
  std::string ditta;
  int anno = 0;
  /// A company to be made, with that first year.
  bool nuova = false;
  bool ivaTrimestrale = false;
};

class Dialoghi {
 public:
  virtual ~Dialoghi() = default;
  virtual void Messaggio(const std::string& testo, Icona icona = Icona::Informazione) = 0;
  /// Tells what was done or found, where there is nothing to decide: the user needn't close it, and
  /// it goes away with the next action. What refuses or warns is a Messaggio.
  virtual void Annuncia(const std::string& testo) { Messaggio(testo, Icona::Informazione); }
  virtual Risposta Domanda(const std::string& testo, Bottoni bottoni, Risposta predefinita,
                           const std::string& titolo = "", Icona icona = Icona::Domanda) = 0;
  /// Yes or no, the default on no.
  bool Conferma(const std::string& testo, const std::string& titolo = "") {
    return Domanda(testo, Bottoni::SiNo, Risposta::No, titolo) == Risposta::Si;
  }
  /// Input box; nothing when cancelled.
  virtual std::optional<std::string> Chiedi(const std::string& testo,
                                            const std::string& iniziale = "") = 0;
  /// Output dialog of the report of that name, or export dialog of a grid when `esporta`.
  virtual std::optional<SceltaUscita> ScegliUscita(const std::string& rapporto, bool esporta) = 0;
  virtual std::optional<std::filesystem::path> ScegliFile(const std::string& titolo, ModoFile modo,
                                                          const std::string& filtro) = 0;
  /// Company and year; `anniDi` reads the years of a company (an error text instead of years goes
  /// to `errore`). Nothing when the user gives up.
  virtual std::optional<SceltaDitta> ScegliDitta(
      const std::vector<DittaTrovata>& ditte,
      const std::function<std::vector<int>(const std::string& ditta, std::string& errore)>&
          anniDi) = 0;
  /// User and password; nothing when the user gives up.
  struct Credenziali {
    std::string utente;
    std::string password;
  };
  virtual std::optional<Credenziali> ChiediAccesso(const std::string& avviso) = 0;
  /// `totale` steps (0 unknown).
  virtual std::unique_ptr<Avanzamento> Avvia(const std::string& testo, std::int64_t totale) = 0;
  /// Opens a file or address with the system's program; false when it couldn't.
  virtual bool ApriEsterno(const std::string& fileOIndirizzo) = 0;
};

class Orologio {
 public:
  virtual ~Orologio() = default;
  [[nodiscard]] virtual Data Oggi() const = 0;
  /// "HH:MM"
  [[nodiscard]] virtual std::string Ora() const = 0;
};

class Caso {
 public:
  virtual ~Caso() = default;
  virtual std::uint64_t Numero() = 0;
};

/// The system's clock and random numbers.
class OrologioDiSistema : public Orologio {
 public:
  [[nodiscard]] Data Oggi() const override;
  [[nodiscard]] std::string Ora() const override;
};
class CasoDiSistema : public Caso {
 public:
  std::uint64_t Numero() override;
};

}  // namespace fenalto
