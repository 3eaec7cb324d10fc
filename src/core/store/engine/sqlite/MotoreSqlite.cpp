#include "core/store/engine/sqlite/MotoreSqlite.h"

#include <unistd.h>

#include <algorithm>

#include "core/store/engine/sqlite/BlocchiFile.h"
#include "core/store/engine/sqlite/CambioFile.h"
#include "core/store/engine/sqlite/ConnessioneSqlite.h"
#include "core/store/engine/sqlite/CopiaSqlite.h"
#include "core/store/engine/sqlite/DialettoSqlite.h"

namespace fenalto::engine::sqlite {
namespace {

namespace fs = std::filesystem;

std::string NomeFile(const fs::path& file) {
  return "«" + file.string() + "»";
}

/// Whether the file can be this program's database and be written, as far as can be told without
/// opening it.
Esito<bool> VerificaFile(const fs::path& file) {
  std::error_code errore;
  const std::string ripristino = ": ripristinare una copia dalla cartella Copie";
  if (!fs::exists(file, errore)) {
    return Errore{"manca l'archivio " + NomeFile(file) + ripristino};
  }
  if (!fs::is_regular_file(file, errore)) {
    return Errore{NomeFile(file) +
                  " non è un file: togliere ciò che ha quel nome e ripristinare una "
                  "copia dalla cartella Copie"};
  }
  if (fs::file_size(file, errore) == 0) {
    return Errore{"l'archivio " + NomeFile(file) + " è vuoto" + ripristino};
  }
  if (access(file.c_str(), R_OK | W_OK) != 0) {
    return Errore{
        "l'archivio " + NomeFile(file) +
        " non si può leggere e scrivere: dare il permesso di lettura e scrittura al file"};
  }
  const fs::path cartella = fs::absolute(file).parent_path();
  if (access(cartella.c_str(), W_OK | X_OK) != 0) {
    return Errore{"nella cartella " + NomeFile(cartella) + " dell'archivio " +
                  NomeFile(file.filename()) +
                  " non si può scrivere: dare il permesso di scrittura alla cartella"};
  }
  return true;
}

std::vector<fs::path> FileDi(const std::vector<Base>& basi) {
  std::vector<fs::path> file;
  for (const Base& base : basi) file.push_back(base.luogo);
  return file;
}

class MotoreFile final : public Motore {
 public:
  [[nodiscard]] const sql::Dialetto& Dialetto() const override { return DialettoSqlite(); }
  [[nodiscard]] fs::path CartellaPassi(const fs::path& cartellaSchema,
                                       const std::string& base) const override {
    return cartellaSchema / base;
  }

  [[nodiscard]] Esito<bool> Verifica(const std::vector<Base>& basi) const override {
    std::vector<fs::path> provate;
    for (const Base& base : basi) {
      if (auto buono = VerificaFile(base.luogo); !buono) return buono;
      const fs::path cartella = fs::absolute(base.luogo).parent_path();
      if (std::ranges::find(provate, cartella) != provate.end()) continue;
      provate.push_back(cartella);
      if (!BlocchiAffidabili(cartella)) {
        return Errore{"nella cartella «" + cartella.string() +
                      "» i blocchi fra le stazioni non funzionano e i dati andrebbero persi: "
                      "spostare la ditta su un disco locale o su un'altra condivisione"};
      }
    }
    return true;
  }
  [[nodiscard]] bool Esiste(const Base& base) const override {
    std::error_code errore;
    return fs::exists(base.luogo, errore);
  }
  [[nodiscard]] std::unique_ptr<Connessione> Apri(const std::vector<Base>& basi,
                                                  const Opzioni& opzioni,
                                                  bool crea) const override {
    return std::make_unique<ConnessioneSqlite>(basi, opzioni, crea);
  }
  void Rimuovi(const Base& base) const noexcept override {
    std::error_code errore;
    fs::remove(base.luogo, errore);
    fs::remove(Giornale(base.luogo), errore);
  }
  [[nodiscard]] std::unique_ptr<Blocchi> ApriBlocchi(const Base& base, const std::string& stazione,
                                                     const std::string& utente) const override {
    fs::path file = base.luogo;
    file.replace_extension(".blocchi");
    return std::make_unique<BlocchiFile>(std::move(file), stazione, utente);
  }
  void Copia(const std::vector<Base>& basi, const std::vector<fs::path>& copie) const override {
    CopiaFile(basi, copie);
  }
  void ControllaCopia(const fs::path& copia, bool propria) const override {
    ControllaCopiaFile(copia, propria);
  }
  [[nodiscard]] std::vector<fs::path> Prepara(const std::vector<fs::path>& copie,
                                              const std::vector<Base>& basi) const override {
    return PreparaFile(copie, FileDi(basi));
  }
  [[nodiscard]] std::vector<fs::path> Compatta(const std::vector<Base>& basi) const override {
    return CompattaFile(FileDi(basi));
  }
  void Cambia(const std::vector<Base>& basi) const override { CambiaFile(FileDi(basi)); }
  void FinisciCambio(const std::vector<Base>& basi) const override {
    sqlite::FinisciCambio(FileDi(basi));
  }
  void TornaIndietro(const std::vector<Base>& basi) const override { RimettiPrima(FileDi(basi)); }
  void Scarta(const std::vector<Base>& basi) const noexcept override {
    TogliPreparati(FileDi(basi));
  }
  void TogliPrima(const std::vector<Base>& basi) const noexcept override {
    sqlite::TogliPrima(FileDi(basi));
  }
};

}  // namespace

const Motore& MotoreSqlite() {
  static const MotoreFile kMotore;
  return kMotore;
}

}  // namespace fenalto::engine::sqlite
