// State of an open archive of codes, shared by its opening and its confirmation.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/archives/ArchivioCodici.h"
#include "core/sql/Criterio.h"

namespace fenalto::archives {

struct ArchivioCodici::Interno {
  Interno(Ambiente& ambienteUsato, DescrizioneArchivio descr);

  [[nodiscard]] Archivio& Dati();
  Rs Trova(const std::string& codice, bool conFiltro);
  /// "agente 12", "nuovo agente"
  [[nodiscard]] std::string Nome() const;
  void Avviso(const std::string& testo, Icona icona = Icona::Avviso);
  bool RifiutaSolaLettura();
  [[nodiscard]] bool SoloEsistenti() const;
  /// Whether a new record can be begun (told).
  bool Iniziabile();
  /// No record is open any more; its values are still there for what is told after.
  void Chiudi();
  void Dimentica();
  void Riempi();
  /// The open record is one that the user has touched.
  void Ricorda();
  /// Tells what was written along.
  void Racconta();

  // --- Confirmation and deletion (ArchivioConferma.cpp) ------------------------------------------

  enum class Confronto { Uguale, Cambiato, Eliminato };

  /// Tells a refusal; the focus goes where it says.
  bool Rifiuta(const std::string& messaggio, const std::string& campo);
  bool Passa(const std::vector<DescrizioneArchivio::Controllo>& controlli);
  bool CodiceLibero();
  bool CodiceInUso();
  void RifilaCodice();
  bool Ammesso();
  /// A code typed into the record that doesn't exist.
  std::optional<Rifiuto> Ignoto();
  /// Takes the lock again when it was lost in a write that failed.
  bool Tiene();
  Confronto Confronta(std::vector<Valore>& ora);
  /// What was changed or deleted elsewhere is told or asked; false when the confirmation stops.
  bool Concorde();
  void DiventaNuovo();
  /// False when the row is no longer as it was when the user last saw it, or a code that it names
  /// is gone: nothing was written.
  bool Scrivi();
  void Riprendi() noexcept;
  /// Does a confirmation's work ("conferma"); what fails is told, and the record goes on.
  bool Tenta(const std::string& azione, const std::function<bool()>& lavoro);
  [[nodiscard]] Transazione::Ambito Ambito(bool conAltro) const;

  Ambiente& ambiente;
  DescrizioneArchivio descrizione;
  Scheda record;
  ContestoArchivio contesto;
  std::string confermato;  ///< code of the record confirmed last
  bool aperto = false;
  bool solaLettura = false;
  /// To be written even if no field was typed: a copy, a record deleted elsewhere.
  bool daScrivere = false;
  Rs riga;                    ///< the record in edit, which holds its lock
  std::vector<Valore> letti;  ///< as the table had it when the user last saw it
  Rifiuto rifiuto;
};

}  // namespace fenalto::archives
