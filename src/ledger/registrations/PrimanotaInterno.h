// What the parts of Primanota share: the state of the open registration and of its open row.
#pragma once

#include <exception>

#include "core/session/Allegati.h"
#include "core/store/TransazioneComune.h"
#include "ledger/registrations/Primanota.h"

namespace fenalto::ledger {

/// Name of the rows' table, in the books and in the scratch.
inline constexpr std::string_view kTabellaRighe = "Movimenti";
inline constexpr std::string_view kDiversi = "DIVERSI";

struct TotaliPrimanota {
  Importo dare;
  Importo avere;
  Importo sbilancio;
};

/// Sums of the rows; throws FuoriCampo.
TotaliPrimanota SommaRighe(const std::vector<RigaPrimanota>& righe);

using TransazionePrimanota = TransazioneComune;

/// An account that a row may name.
struct VoceConto {
  std::string cod;
  std::string descrizione;
  std::string contoRiepilogo;  ///< of a customer or supplier
};

struct Primanota::Interno {
  explicit Interno(Ambiente& ambienteUsato);
  ~Interno();
  Interno(const Interno&) = delete;
  Interno& operator=(const Interno&) = delete;

  // --- State ---------------------------------------------------------------------------------

  /// No record any more: lock released, scratch emptied.
  void ChiudiRecord() noexcept;
  /// Stops what can't be done with an open row, telling so.
  bool RigaInCorso();
  /// Stops what would change a record that another station holds, telling so.
  bool RifiutaSolaLettura();
  void Avviso(const std::string& testo) { ambiente.Dialogo().Messaggio(testo, Icona::Avviso); }

  // --- Head ----------------------------------------------------------------------------------

  /// The registration that isn't a VAT one, of the selected year.
  Rs TrovaTestata(std::int64_t numero, int annoCercato);
  /// A typed number that can't be one goes back to the record's.
  void NormalizzaNumero();
  /// A changed number that another registration has; tells so.
  bool NumeroOccupato();

  // --- Rows ----------------------------------------------------------------------------------

  std::vector<RigaPrimanota> LeggiRighe();
  /// Opens the row frame on what `riga` holds now.
  void MostraRiga(bool nuovaRiga, std::int64_t num);
  void ChiudiRiga();
  /// Saves or deletes the open row and does what follows, all or nothing; throws.
  void SalvaRiga();
  void CancellaRiga();
  /// What follows a row saved or deleted: contra-entries, commit, and only then what is shown.
  void ConcludiRighe(std::vector<RigaPrimanota> nuove, TransazionePrimanota& transazione);
  /// Contra-entries of all rows, in `correnti` and in the scratch; whether any changed.
  bool AggiornaContropartite(std::vector<RigaPrimanota>& correnti);
  void CausaleScelta();
  void ClasseScelta(std::string_view campoClasse, std::string_view campoConto,
                    std::string& classeVista);
  std::optional<VoceConto> TrovaConto(std::string_view cfp, std::string_view cod);
  /// Checks of ConfermaRiga; tells the one that stopped it.
  bool RigaConfermabile();

  // --- Confirmation --------------------------------------------------------------------------

  /// One transaction; returns the number. Throws, and then nothing was written.
  std::int64_t ScriviRegistrazione();
  std::int64_t ScriviTestata(std::int64_t numero);
  void NonRiuscito(const std::string& azione, const std::exception& errore);

  Ambiente& ambiente;
  Archivio& tessarc;
  std::filesystem::path percorsoTemp;
  std::unique_ptr<Archivio> temp;

  Stato stato = Stato::Inattiva;
  bool nuova = false;
  bool solaLettura = false;
  bool righeModificate = false;
  bool contropAutomatiche = true;
  int anno = 0;
  std::int64_t numeroRecord = 0;  ///< as stored; 0 of a new registration
  std::int64_t idRecord = 0;
  std::int64_t numeroConfermato = 0;
  Blocco blocco;
  Scheda testa;
  Data dataRicordata;
  fenalto::Allegati allegati;

  std::vector<RigaPrimanota> righe;  ///< the scratch, by position
  TotaliPrimanota totali;

  Scheda riga;
  bool rigaNuova = false;
  std::int64_t numRiga = 0;
  std::string causaleVista;  ///< fields as they were when they were last left
  std::string cfpVista;
  std::string cfpContropVista;
};

}  // namespace fenalto::ledger
