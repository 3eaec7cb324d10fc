// What the parts of Primanota share: the state of the open registration and of its open row.
#pragma once

#include <optional>
#include <vector>

#include "core/records/Bozza.h"
#include "core/records/Righe.h"
#include "core/session/Allegati.h"
#include "core/session/Rifiuto.h"
#include "ledger/registrations/Primanota.h"

namespace fenalto::ledger {

/// Table of the rows.
inline constexpr std::string_view kTabellaRighe = "Movimenti";
inline constexpr std::string_view kDiversi = "DIVERSI";

/// Fields of a row, as its frame and the table name them.
inline constexpr records::CampoRiga<RigaPrimanota> kCampiRiga[] = {
    records::Campo<&RigaPrimanota::posi>("Posi"),
    records::Campo<&RigaPrimanota::causale>("Causale"),
    records::Campo<&RigaPrimanota::descrizione>("Descrizione"),
    records::Campo<&RigaPrimanota::cfp>("CFP"),
    records::Campo<&RigaPrimanota::conto>("Conto"),
    records::Campo<&RigaPrimanota::impoDare>("ImpoDare"),
    records::Campo<&RigaPrimanota::impoAvere>("ImpoAvere"),
    records::Campo<&RigaPrimanota::cfpControp>("CFPControp"),
    records::Campo<&RigaPrimanota::contoControp>("ContoControp"),
    records::Campo<&RigaPrimanota::diversiControp>("DiversiControp"),
    records::Campo<&RigaPrimanota::categoria>("Categoria"),
    records::Campo<&RigaPrimanota::commessa>("Commessa")};

struct TotaliPrimanota {
  Importo dare;
  Importo avere;
  Importo sbilancio;
};

/// Sums of the rows; throws FuoriCampo.
TotaliPrimanota SommaRighe(const std::vector<RigaPrimanota>& righe);

/// The first code of a row that is in no archive; `conControp` looks at its contra-entry too.
std::optional<Rifiuto> CodiceIgnotoDi(Ambiente& ambiente, const RigaPrimanota& riga,
                                      bool conControp);

/// Two rows name the same codes.
bool StessiCodici(const RigaPrimanota& una, const RigaPrimanota& altra);

/// An account that a row may name.
struct VoceConto {
  std::string cod;
  std::string descrizione;
  std::string contoRiepilogo;  ///< of a customer or supplier
};

struct Primanota::Interno {
  explicit Interno(Ambiente& ambienteUsato);

  // --- State ---------------------------------------------------------------------------------

  /// No record any more.
  void ChiudiRecord() noexcept;
  /// Stops what can't be done to the registration as a whole, telling why where there is one.
  bool Ferma();
  [[nodiscard]] Stato StatoCorrente() const { return documento.StatoCorrente(righe.InRiga()); }
  void Avviso(const std::string& testo) const { documento.Avviso(testo); }

  /// Keeps what was typed, so that a killed program doesn't lose it.
  void Segna();
  void IniziaBozza();

  // --- Head ----------------------------------------------------------------------------------

  /// The registration that isn't a VAT one, of the selected year.
  Rs TrovaTestata(std::int64_t numero, int annoCercato);
  /// A typed number that can't be one goes back to the record's.
  void NormalizzaNumero();
  /// A changed number that another registration has; tells so.
  bool NumeroOccupato();

  // --- Rows ----------------------------------------------------------------------------------

  /// Rows of a stored registration, in the order in which they were written.
  std::vector<RigaPrimanota> LeggiRighe(std::int64_t numero, int annoCercato);
  /// Notes the fields that count as found when the row frame opens.
  void VediRiga();
  /// The rows as they are to be after one was saved or deleted, with what follows, all or nothing;
  /// throws FuoriCampo.
  void ConcludiRighe(std::vector<RigaPrimanota> nuove);
  void CausaleScelta();
  void ClasseScelta(std::string_view campoClasse, std::string_view campoConto,
                    std::string& classeVista);
  std::optional<VoceConto> TrovaConto(std::string_view cfp, std::string_view cod);
  /// Checks of ConfermaRiga, in order; takes codes as their archives write them.
  std::optional<Rifiuto> RifiutoRiga();
  /// Gives a row the texts of its codes.
  void Descrivi(RigaPrimanota& una);
  /// The open row as typed, with its texts.
  RigaPrimanota RigaDigitata();

  // --- Confirmation --------------------------------------------------------------------------

  /// Checks of Conferma, in order.
  std::optional<Rifiuto> Controlla();
  /// A row added or changed that names a code of no archive.
  std::optional<Rifiuto> RigaConCodiceIgnoto();
  /// In a transaction; returns the number. Throws.
  std::int64_t ScriviRegistrazione();
  std::int64_t ScriviTestata(std::int64_t numero);

  Ambiente& ambiente;
  Archivio& tessarc;
  records::DocumentoAperto documento;
  Scheda& testa = documento.Testa();
  records::Righe<RigaPrimanota> righe{kCampiRiga};
  std::vector<RigaPrimanota> righeLette;  ///< as stored
  Scheda& riga = righe.Riga();
  TotaliPrimanota totali;

  records::Bozza<RigaPrimanota> bozza{ambiente, "Movimenti", kCampiRiga, {"ProbabileNumDoc"}};
  bool contropAutomatiche = true;
  Origine origine = Origine::Manuale;  ///< of a new registration
  int anno = 0;
  std::int64_t numeroRecord = 0;  ///< as stored; 0 of a new registration
  std::int64_t idRecord = 0;
  std::int64_t numeroConfermato = 0;
  Data dataRicordata;
  fenalto::Allegati allegati;

  std::string causaleVista;  ///< fields as they were when they were last left
  std::string cfpVista;
  std::string cfpContropVista;
};

}  // namespace fenalto::ledger
