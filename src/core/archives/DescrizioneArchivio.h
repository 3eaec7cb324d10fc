// What makes one archive of codes different from the others: its table, fields, texts and checks.
//
// An archive is a value of this type; ArchivioCodici is the one use case and FinestraArchivio the
// one window that work on it. Functions are given only for what the rule of the trade asks; a
// record is reached through Contesto, never through the window.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

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
  std::string codicePrima;
  /// Where prints go; null outside a window.
  reports::FabbricaUscite* uscite = nullptr;
  /// Goes where a reference leads; null outside a window.
  std::function<void(const Rinvio&)> apri = {};
  /// Set by a rule of a field that was left: the control that takes the focus (back).
  std::string foco = {};

  [[nodiscard]] std::string Codice() const { return scheda.Testo("Cod"); }
  /// The code is new or differs from the stored one in more than case.
  [[nodiscard]] bool CodiceCambiato() const;
};

enum class GenereCampo {
  Auto,      ///< from the column's type: text, whole number, amount, date, check box
  Codice,    ///< code of another archive, with search and jump
  Note,      ///< a text of several lines
  Opzioni,   ///< radio buttons, one a value
  Etichetta  ///< shown, not typed
};

/// One value of a field of radio buttons, or one line of the legend beside a typed one.
struct VoceScelta {
  std::string valore;
  std::string testo;
  std::string nome = {};  ///< object name of the radio button
};

struct CampoArchivio {
  std::string nome;  ///< column (or extra field), and object name of the control
  std::string didascalia;
  int caratteri = 0;  ///< width shown; for texts also the greatest length. 0: from the type
  GenereCampo genere = GenereCampo::Auto;
  std::string fonte = {};  ///< of a code: a name of `Fonti` (core/archives/FonteCodici.h)
  std::vector<VoceScelta> scelte = {};  ///< radio buttons, or legend of a typed field
  std::string nota = {};                ///< a short text beside the field
  bool elenco = false;                  ///< a column of the list
  bool maiuscole = false;               ///< typed letters become capitals
  int decimali = 2;                     ///< least decimals of an amount
  std::string riquadro = {};            ///< object name of the frame it stands in, empty for none
  bool accanto = false;                 ///< on the line of the field before it
  int mostrati = 0;                     ///< width shown, when it isn't `caratteri`
};

/// A frame of a record page. Its fields name it.
struct RiquadroArchivio {
  std::string nome;
  std::string titolo;
  std::string pagina = {};  ///< page it stands on, empty for the first
  bool largo = false;       ///< has a line of its own
};

/// A page of the record after the first, which has the record's title. Frames name it.
struct PaginaArchivio {
  std::string nome;  ///< object name
  std::string titolo;
};

/// How a field, a frame or a button of the record is shown for the record as it is now.
struct StatoCampo {
  bool visibile = true;
  bool attivo = true;
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

struct DescrizioneArchivio {
  using Controllo = std::function<std::optional<Rifiuto>(ContestoArchivio&)>;
  using Azione = std::function<void(ContestoArchivio&)>;

  std::string finestra;  ///< function's name in the menu map, and help topic
  std::string titolo;    ///< of the window
  std::string chiave = "tessarc";
  std::string tabella;
  std::string campoDescrizione = "Descrizione";
  std::string titoloNuovo;      ///< "nuovo agente"
  std::string titoloRecord;     ///< what stands before the code of an existing one: "agente "
  std::string filtro = {};      ///< fixed condition of selector and list
  int caratteriCodice = 10;     ///< greatest length of `Cod`
  bool codiceComposto = false;  ///< `Cod` isn't typed: `compone` makes it of other fields
  /// A changed code is carried to the fields that refer to it, instead of refused where in use.
  bool portaCodice = false;
  std::vector<std::pair<std::string, Tipo>> campiExtra = {};  ///< fields that aren't columns
  std::vector<CampoArchivio> campi = {};                      ///< without `Cod` and description,
                                                              ///< unless they need more than usual
  std::vector<RiquadroArchivio> riquadri = {};
  std::vector<PaginaArchivio> pagine = {};
  std::vector<PulsanteArchivio> pulsanti = {};
  /// Going to the next or previous record confirms the open one first, instead of asking.
  bool confermaPassando = false;
  /// True while records are neither added nor deleted here and keep their codes. Empty for never.
  std::function<bool(Ambiente&)> soloEsistenti = {};

  /// Fills extra fields after a record was read or a new one begun.
  Azione aperto = {};
  /// A field was left with a new value: proposals and warnings that follow.
  std::function<void(ContestoArchivio&, const std::string& campo)> lasciato = {};
  std::function<StatoCampo(const ContestoArchivio&, const std::string& nome)> stato = {};
  /// Fills `Cod` and what else follows from extra fields, before the checks.
  Azione compone = {};
  /// The archive's own checks at a confirmation, in order; each stops at its refusal.
  std::vector<Controllo> controlli = {};
  /// The archive's own checks that come after those of a changed code.
  std::vector<Controllo> controlliDopoCodice = {};
  /// On changing the code of an existing record and on deleting one, before the check of
  /// references.
  std::vector<Controllo> guardieCodice = {};
  /// On deleting only, after the question and before the guards of the code.
  std::vector<Controllo> guardieElimina = {};
  /// What else is written (erased) with the record, in its transaction.
  Azione conScrittura = {};
  Azione conEliminazione = {};
  /// What is told after the record was written.
  Azione dopoConferma = {};
  /// What is told after it was erased; the record is still that one.
  Azione dopoEliminazione = {};
  /// The archive's own print instead of the plain list; empty for that.
  std::function<void(ContestoArchivio&)> stampa = {};
};

}  // namespace fenalto::archives
