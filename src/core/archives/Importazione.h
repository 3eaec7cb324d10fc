// The import of an archive from a file: read, map, check every line, write all in one transaction.
//
// A line that is wrong stops the import unless the user leaves the wrong lines out; a cancelled one
// leaves nothing. A column that is mapped is written as it stands, blanks included; fields without
// a column keep what an existing record has.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/archives/Corrispondenze.h"
#include "core/archives/DescrizioneArchivio.h"
#include "core/archives/GenereImporta.h"
#include "core/archives/LettoreValori.h"
#include "core/session/Csv.h"

namespace fenalto::archives {

struct ErroreImporta {
  std::size_t linea = 0;  ///< of the file, from 1; 0 for the whole file
  std::string colonna;    ///< as the file calls it; empty for the whole line
  std::string valore;
  std::string motivo;
};

struct OpzioniImporta {
  bool aggiornaEsistenti = false;  ///< otherwise existing codes are left as they are
  bool escludiErrate = false;
};

struct EsitoImporta {
  std::size_t lette = 0;
  std::size_t nuove = 0;
  std::size_t aggiornate = 0;
  std::size_t saltate = 0;  ///< codes that exist already
  std::size_t errate = 0;
  std::size_t seguiti = 0;  ///< further lines of a code, that add to what stands beside its record
  /// At most kMassimoErrori.
  std::vector<ErroreImporta> errori = {};
  bool annullata = false;
  bool scritta = false;
};

class Importazione {
 public:
  static constexpr std::size_t kMassimoErrori = 5'000;

  Importazione(Ambiente& ambiente, GenereImporta genere);
  Importazione(const Importazione&) = delete;
  Importazione& operator=(const Importazione&) = delete;

  [[nodiscard]] const GenereImporta& Genere() const { return genere_; }
  /// Fields that this company's data have.
  [[nodiscard]] const std::vector<CampoImporta>& Campi() const { return campi_; }

  /// Reads the file and proposes the mapping. On error what was open stays open.
  Esito<bool> Apri(const std::filesystem::path& file);
  Esito<bool> ApriTesto(std::string_view byte);
  [[nodiscard]] bool Aperta() const { return corrispondenze_ != nullptr; }
  [[nodiscard]] const TabellaCsv& Tabella() const { return tabella_; }
  /// Only while open.
  [[nodiscard]] Corrispondenze& Abbinamenti() { return *corrispondenze_; }

  /// The first lines as they would be stored, in the order of CampiAbbinati, as people read them;
  /// what can't be read stands as it is behind a question mark.
  [[nodiscard]] std::vector<std::vector<std::string>> Anteprima(std::size_t righe) const;
  /// Fields that a column gives, in the order of the kind.
  [[nodiscard]] std::vector<CampoImporta> CampiAbbinati() const;
  [[nodiscard]] Tipo TipoDi(const CampoImporta& campo) const;

  /// Checks every line; writes nothing. Progress can be cancelled.
  EsitoImporta Controlla(const OpzioniImporta& opzioni);
  /// Checks again and writes, in one transaction, unless a line is wrong and wrong lines aren't
  /// left out. `scritta` tells. Keeps the mapping for the next time. The error is a record that
  /// another station has in edit; nothing was written then.
  Esito<EsitoImporta> Importa(const OpzioniImporta& opzioni);

 private:
  struct Controllo;
  void Prendi(TabellaCsv tabella);
  /// What parts the decimals in each column.
  [[nodiscard]] std::vector<Decimali> Stili() const;
  /// Whether the columns give what every line needs; what is missing is an error of the file.
  bool Completo(Controllo& controllo) const;
  void ControllaRighe(Controllo& controllo) const;
  void ControllaRiga(Controllo& controllo, const TabellaCsv::Riga& dati,
                     const std::string& tabella) const;
  bool LeggiCodice(Controllo& controllo, const TabellaCsv::Riga& dati, RigaImporta& riga) const;
  std::size_t LeggiCampi(Controllo& controllo, const TabellaCsv::Riga& dati,
                         RigaImporta& riga) const;
  /// One field of a line, where the file gives it; false when it is wrong (told).
  bool LeggiCampo(Controllo& controllo, const TabellaCsv::Riga& dati, const CampoImporta& campo,
                  RigaImporta& riga) const;
  /// Whether a line whose code came before may go on with what stands beside the record.
  bool Seguito(Controllo& controllo, const TabellaCsv::Riga& dati, std::size_t prima,
               RigaImporta& riga) const;
  Esito<bool> ScriviRiga(const RigaImporta& riga);

  Ambiente& ambiente_;
  GenereImporta genere_;
  std::vector<CampoImporta> campi_;
  TabellaCsv tabella_;
  std::unique_ptr<Corrispondenze> corrispondenze_;
};

/// The button of an archive's choice page that opens the import of that kind.
PulsanteArchivio PulsanteImporta(const std::string& genere);

}  // namespace fenalto::archives
