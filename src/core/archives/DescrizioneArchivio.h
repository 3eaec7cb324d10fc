// What makes one archive of codes different from the others: its table, fields, texts and checks.
//
// An archive is a value of this type; ArchivioCodici is the one use case and FinestraArchivio the
// one window that work on it. Functions are given only for what the rule of the trade asks; a
// record is reached through Contesto, never through the window.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/records/DescrizioneForma.h"
#include "core/reports/Uscita.h"
#include "core/session/Ambiente.h"
#include "core/session/Rifiuto.h"
#include "core/session/Scheda.h"
#include "core/values/Rinvio.h"

namespace fenalto::archives {

/// The record that functions of a description work on.
struct ContestoArchivio {
  Ambiente& ambiente;
  Scheda& scheda;
  bool nuovo = false;
  /// Code of the record as stored, empty for a new one.
  std::string codicePrima = {};
  /// The record as it was read, empty for a new one.
  Scheda prima = {};
  /// A new record that began as a copy of another.
  bool copia = false;
  /// Code that the copied record has; empty for a record not stored.
  std::string origine = {};
  /// Where prints go; null outside a window.
  reports::FabbricaUscite* uscite = nullptr;
  /// Goes where a reference leads; null outside a window.
  std::function<void(const Rinvio&)> apri = {};
  /// Set by a rule of a field that was left: the control that takes the focus (back).
  std::string foco = {};
  /// What rules remember while the record is open, by names of their own.
  std::map<std::string, std::string> memoria = {};
  /// Set by what is written along: told once the record was written or erased.
  std::string daDire = {};

  [[nodiscard]] std::string Codice() const { return scheda.Testo("Cod"); }
  /// The code is new or differs from the stored one in more than case.
  [[nodiscard]] bool CodiceCambiato() const;
};

/// A button of an archive's own. What it returns is shown line by line in the panel beside the
/// record, in equal-width letters; nothing when it only acts.
struct PulsanteArchivio {
  std::string nome;
  std::string testo;
  bool conRecord = true;  ///< works on the open record; otherwise it stands on the choice page
  std::function<std::vector<std::string>(ContestoArchivio&)> azione;
  /// Function that the button opens: while there is none, it can't be pressed. Empty for none.
  std::string finestra = {};
};

/// The fields of its form are without `Cod` and description, unless they need more than usual.
struct DescrizioneArchivio : records::DescrizioneForma {
  using Controllo = std::function<std::optional<Rifiuto>(ContestoArchivio&)>;
  using Azione = std::function<void(ContestoArchivio&)>;

  std::string finestra;  ///< function's name in the menu map, and help topic
  std::string titolo;    ///< of the window
  std::string chiave = "tessarc";
  std::string tabella;
  std::string campoDescrizione = "Descrizione";
  std::string titoloNuovo;       ///< "nuovo agente"
  std::string titoloCopia = {};  ///< of a copy; empty for that of a new one
  std::string titoloRecord;      ///< what stands before the code of an existing one: "agente "
  std::string filtro = {};       ///< fixed condition of selector and list
  int caratteriCodice = 10;      ///< greatest length of `Cod`
  std::string codiceVuoto = "inserire un codice";  ///< told when none is typed
  bool codiceComposto = false;  ///< `Cod` isn't typed: `compone` makes it of other fields
  /// A changed code is carried to the fields that refer to it, instead of refused where in use.
  bool portaCodice = false;
  std::vector<std::pair<std::string, Tipo>> campiExtra = {};  ///< fields that aren't columns
  std::vector<PulsanteArchivio> pulsanti = {};
  /// Its records are among those that a user finds again as the last ones touched.
  bool ricordato = false;
  /// Going to the next or previous record confirms the open one first, instead of asking.
  bool confermaPassando = false;
  /// Text of the button beside the selector that begins a new record as a copy of the one whose
  /// code stands there; empty for none.
  std::string sdoppiaDaScelta = {};
  /// Tables of rows that are written and erased with the record: that they name its code is no use
  /// of it.
  std::vector<std::string> tabelleProprie = {};
  /// True while records are neither added nor deleted here and keep their codes. Empty for never.
  std::function<bool(Ambiente&)> soloEsistenti = {};
  /// Why no new record can be begun; nothing when one can. Empty for always.
  std::function<std::optional<std::string>(Ambiente&)> impedimentoNuovo = {};

  /// Fills extra fields after a record was read or a new one begun.
  Azione aperto = {};
  /// Changes what a copy doesn't have in common with its source, after all else was copied.
  Azione copiato = {};
  /// A field was left with a new value: proposals and warnings that follow.
  std::function<void(ContestoArchivio&, const std::string& campo)> lasciato = {};
  std::function<records::StatoCampo(const ContestoArchivio&, const std::string& nome)> stato = {};
  /// Fills `Cod` and what else follows from extra fields, before the checks.
  Azione compone = {};
  /// The archive's own checks at a confirmation, in order; each stops at its refusal.
  std::vector<Controllo> controlli = {};
  /// The archive's own checks that come after those of a changed code.
  std::vector<Controllo> controlliDopoCodice = {};
  /// On changing the code of an existing record and on deleting one, before the check of
  /// references.
  std::vector<Controllo> guardieCodice = {};
  /// On deleting only, before the question.
  std::vector<Controllo> guardieDomanda = {};
  /// On deleting only, after the question and before the guards of the code.
  std::vector<Controllo> guardieElimina = {};
  /// What else is written (erased) with the record, in its transaction.
  Azione conScrittura = {};
  Azione conEliminazione = {};
  /// Puts right what lies outside the databases, when the writing was given up.
  Azione annulla = {};
  /// What is told after the record was written.
  Azione dopoConferma = {};
  /// What is left to do outside the databases, after the record was erased.
  Azione dopoEliminazione = {};
  /// The archive's own print instead of the plain list; empty for that.
  std::function<void(ContestoArchivio&)> stampa = {};
};

}  // namespace fenalto::archives
