// A company from the model with years in lire and in euro, and the shortest way to write its books.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/CartellaProva.h"
#include "core/session/DialoghiFinti.h"
#include "core/values/ImportoDiProva.h"
#include "ledger/registrations/Primanota.h"

namespace fenalto::prova {

// What nearly every test of a company asks.
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

inline Data G(int giorno, int mese, int anno) {
  return Data::DaGma(giorno, mese, anno).value();
}

/// Adds a row to a table: names of fields and their values by turns. Its counter.
template <typename... Resto>
std::int64_t Metti(Archivio& archivio, const char* tabella, const Resto&... campiEValori) {
  static_assert(sizeof...(Resto) % 2 == 0, "a field lacks its value");
  const std::array<Valore, sizeof...(Resto)> dati{Valore(campiEValori)...};
  std::vector<Coppia> campi;
  for (std::size_t i = 0; i < dati.size(); i += 2) campi.emplace_back(dati[i].Testo(), dati[i + 1]);
  return archivio.Inserisci(tabella, campi);
}

/// A row to type: debit above zero, credit below.
struct RigaDaScrivere {
  const char* conto;
  Importo importo;
  const char* cfp = "P";
  const char* causale = "001";
  std::string descrizione = "prova";
};

/// The program folder with the company "Prova", years 2000 in lire, 2023, 2024 and 2025 in euro.
/// Today is 15/03/2024 and the selected year 2024.
class DittaDiProva : public ::testing::Test {
 protected:
  DittaDiProva();
  ~DittaDiProva() override;

  /// A further station on the same company.
  struct Stazione {
    Stazione(const std::filesystem::path& programma, const std::string& nome, Data oggi);
    DialoghiFinti dialoghi;
    OrologioFinto orologio;
    CasoFinto caso;
    std::unique_ptr<Ambiente> ambiente;
  };
  std::unique_ptr<Stazione> NuovaStazione(const std::string& nome) const;

  Archivio& Tessarc() { return ambiente.ArchivioDi("tessarc"); }
  /// Everything that is in one of the two databases, row by row, as text.
  [[nodiscard]] std::string Contenuto(const std::string& archivio = "tessarc") const;
  /// Messages since the last call.
  std::vector<std::string> Messaggi();
  /// The one message since the last call.
  std::string SoloMessaggio();
  [[nodiscard]] std::string UltimaDomanda() const;

  /// Types one row and confirms it.
  static bool Scrivi(ledger::Primanota& pn, const RigaDaScrivere& riga);
  /// A whole new registration; its number, 0 when it was stopped.
  static std::int64_t Registra(ledger::Primanota& pn, const std::vector<RigaDaScrivere>& righe,
                               Data data = G(15, 3, 2024));
  /// The same through a Primanota of its own.
  std::int64_t Registra(const std::vector<RigaDaScrivere>& righe, Data data = G(15, 3, 2024));
  Valore CampoTestata(std::int64_t numero, const char* campo);
  std::int64_t NumeroRighe(std::int64_t numero);

  CartellaProva cartella;
  std::unique_ptr<Stazione> stazione;
  Ambiente& ambiente;
  DialoghiFinti& dialoghi;
};

}  // namespace fenalto::prova
