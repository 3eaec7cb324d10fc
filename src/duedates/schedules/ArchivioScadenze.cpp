#include "duedates/schedules/ArchivioScadenze.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "core/archives/CodiciNoti.h"
#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kAnticipoColMeno =
    "se si tratta di un anticipo su fattura da emettere o ricevere bisogna impostare il segno meno "
    "sull'importo";
constexpr const char* kAutomatica =
    "Attenzione : se sono state effettuate variazioni su una scadenza creata automaticamente "
    "potrebbero esserci discordanze con la contabilità";
constexpr const char* kEliminare =
    "Attenzione : se sono state effettuate variazioni sulla scadenza potrebbero crearsi "
    "discordanze con altri archivi (per esempio con movimenti contabili e fatture)";
constexpr const char* kGiaPagata =
    "Si tratta di una scadenza già pagata. Si puo ripristinarla come 'non pagata', ma attenzione:";
constexpr const char* kNulla =
    "\nNon è stato scritto nulla: per vedere la scadenza com'è adesso, abbandonarla e riaprirla.";

struct Rifiuto {
  std::string testo;
  std::string campo;
};

}  // namespace

struct ArchivioScadenze::Interno {
  Interno(Ambiente& ambienteUsato, Uso usoScelto)
      : ambiente(ambienteUsato),
        uso(usoScelto),
        record(*ambiente.ArchivioDi("scadenzario").Catalogo().Tabella("Scadenze")) {}

  Archivio& Dati() const { return ambiente.ArchivioDi("scadenzario"); }
  Rs Trova(std::int64_t quale) const {
    return Dati().Recordset("SELECT * FROM Scadenze WHERE " + sql::Criterio("Numero", "=", quale));
  }
  std::string T(const char* campo) const { return std::string(Rifila(record.Testo(campo))); }
  std::string Titolo() const {
    return nuova ? "nuova scadenza " : "scadenza n. " + std::to_string(numero);
  }
  void Avviso(const std::string& testo) const {
    ambiente.Dialogo().Messaggio(testo, Icona::Avviso);
  }
  /// `scrivi` returns why not; `azione` is what is told not to have succeeded.
  bool Esegui(const std::string& azione, std::function<std::string()> scrivi) const {
    return records::Esegui(ambiente, {.nonRiuscita = azione + " della scadenza non riuscita: ",
                                      .dopoRifiuto = "",
                                      .scrivi = std::move(scrivi)});
  }
  /// What may not be done to an open record that is in edit elsewhere.
  bool Ferma() const {
    if (!aperta) return true;
    if (solaLettura) Avviso(Titolo() + ": in modifica da un'altra postazione, si può consultare");
    return solaLettura;
  }

  void Chiudi() {
    aperta = nuova = solaLettura = false;
    riga = Rs();
    record.Svuota();
  }
  void Leggi(const Rs& letta) {
    record.Svuota();
    record.Carica(letta);
    vista = ScadenzaDi(letta);
    letti = record.Campi();
  }
  /// The row was written with these columns: they count as seen, and what was typed beside them is
  /// still to be confirmed.
  void RiprendiDaAperta(const std::vector<Coppia>& scritti, const std::vector<Coppia>& digitati);
  [[nodiscard]] bool Cambiato(const std::string& campo) const {
    const auto prima = std::ranges::find_if(
        letti, [&](const Coppia& coppia) { return UgualeTesto(coppia.first, campo); });
    return prima == letti.end() || !(prima->second == record.Leggi(campo));
  }

  [[nodiscard]] std::optional<Rifiuto> Mancanza() const;
  [[nodiscard]] std::optional<Rifiuto> Errata() const;
  void Avverti() const;
  /// Asks what is rarely meant; true when the user gives up, and then the field to go to.
  [[nodiscard]] bool Rinuncia(std::string& campo) const;
  void Completa();
  std::string Scrivi();
  /// Writes columns of the open row, if it still is as the user saw it; why not otherwise.
  std::string Aggiorna(const std::vector<Coppia>& campi) const;
  [[nodiscard]] bool Riba() const;
  [[nodiscard]] std::vector<Coppia> CampiRipristinati() const;

  Ambiente& ambiente;
  Uso uso;
  Scheda record;
  bool aperta = false;
  bool nuova = false;
  bool solaLettura = false;
  std::int64_t numero = 0;
  Scadenza vista;             ///< as it was when the user last saw it
  std::vector<Coppia> letti;  ///< all its columns then
  Rs riga;                    ///< the record in edit, which holds its lock
};

// --- Checks -------------------------------------------------------------------------------------

std::optional<Rifiuto> ArchivioScadenze::Interno::Mancanza() const {
  const bool documento = uso == Uso::Documento;
  const char* testo = documento ? "manca tipo o stato" : "manca cliente/fornitore, tipo, stato";
  if (!documento && T("CFP").empty()) return Rifiuto{testo, "CFP"};
  if (!documento && T("Conto").empty()) return Rifiuto{testo, "Conto"};
  if (T("Tipo").empty()) return Rifiuto{testo, "Tipo"};
  if (T("Stato").empty()) return Rifiuto{testo, "Stato"};
  return std::nullopt;
}

/// Only what was typed: a due date written long ago may hold what isn't in an archive any more.
std::optional<Rifiuto> ArchivioScadenze::Interno::Errata() const {
  if ((Cambiato("CFP") || Cambiato("Conto")) && NomeParte(ambiente, T("CFP"), T("Conto")).empty()) {
    return Rifiuto{"il " + std::string(UgualeTesto(T("CFP"), "F") ? "fornitore " : "cliente ") +
                       T("Conto") + " non è in archivio",
                   "Conto"};
  }
  if (Cambiato("Tipo") && !ambiente.Esiste("tessarc", "tipipagamento", {{"Cod", T("Tipo")}})) {
    return Rifiuto{"il tipo " + T("Tipo") + " non è fra i tipi di pagamento", "Tipo"};
  }
  if (Cambiato("Stato") && !StatoValido(T("Stato"))) {
    return Rifiuto{kStatoDiDueCifre, "Stato"};
  }
  if (record.Leggi("Dt").Data().Nulla()) return Rifiuto{"manca la data della scadenza", "Dt"};
  for (const char* campo : {"ImportoE", "ImportoPagatoE"}) {
    if (!Cambiato(campo) || !ambiente.Euro()) continue;
    if (std::string no = RifiutoDecimali(ambiente, record.Leggi(campo).Importo()); !no.empty()) {
      return Rifiuto{std::move(no), campo};
    }
  }
  for (const archives::CampoDiCodice& campo :
       {archives::CampoDiCodice{"Pagamento", "Pagamento", "pagamenti"},
        archives::CampoDiCodice{"BancaPresentaz", "Banca", "banche"},
        archives::CampoDiCodice{"Riva", "Registro iva", "registri"}}) {
    if (!Cambiato(campo.campo)) continue;
    const auto ignoto = archives::CodiceIgnoto(ambiente, campo, T(campo.campo.c_str()));
    if (ignoto) return Rifiuto{ignoto->messaggio, ignoto->campo};
  }
  return std::nullopt;
}

bool ArchivioScadenze::Interno::Rinuncia(std::string& campo) const {
  const Importo importo = record.Leggi("ImportoE").Importo();
  const Importo pagato = record.Leggi("ImportoPagatoE").Importo();
  if ((Cambiato("ImportoE") || Cambiato("ImportoPagatoE")) && SegniContrari(importo, pagato)) {
    campo = "ImportoPagatoE";
    if (!ambiente.Dialogo().Conferma(
            "l'importo pagato " + ScriviImporto(pagato, kDecimaliScadenza) +
            " ha il segno contrario all'importo della scadenza, " +
            ScriviImporto(importo, kDecimaliScadenza) + "\nproseguo ugualmente")) {
      return true;
    }
  }
  const bool riaperta = !nuova && !vista.Aperta() && ConfrontaTesto(T("Stato"), kStatoPagata) < 0;
  if (!riaperta) return false;
  campo = "Stato";
  const std::string testo = std::string(kGiaPagata) + "\nbisogna anche eliminare la registrazione ";
  if (Riba()) {
    // What the question of a batch says to do.
    Avviso(testo + "contabile RIBA a CLIENTI");
    return false;
  }
  return !ambiente.Dialogo().Conferma(
      testo +
      "contabile del pagamento\nquello che risulta pagato resta scritto: per toglierlo usare "
      "'Ripristina come non pagata'\n\nimposto questa scadenza come NON ANCORA PAGATA");
}

void ArchivioScadenze::Interno::Avverti() const {
  if (record.Leggi("ImportoE").Importo().Negativo() || record.Leggi("anticipo").Booleano()) {
    ambiente.Dialogo().Messaggio(kAnticipoColMeno);
  }
  const std::string programma = T("Programma");
  if (!nuova && !programma.empty() && !UgualeTesto(programma, kProgrammaManuale)) {
    Avviso(kAutomatica);
  }
}

// --- Writing ------------------------------------------------------------------------------------

void ArchivioScadenze::Interno::Completa() {
  for (const char* campo : {"CFP", "Conto", "Tipo", "Stato"}) record.Scrivi(campo, T(campo));
  const auto accanto = [this](const std::vector<Coppia>& coppie) {
    for (const auto& [campo, valore] : coppie) record.Scrivi(campo, valore);
  };
  if (Cambiato("ImportoE")) accanto(CampiImporto(record.Leggi("ImportoE").Importo()));
  if (Cambiato("ImportoPagatoE")) accanto(CampiPagato(record.Leggi("ImportoPagatoE").Importo()));
  if (nuova || record.Modificata()) record.Scrivi("Modificata", true);
  if (nuova) record.Scrivi("Programma", kProgrammaManuale);
}

std::string ArchivioScadenze::Interno::Aggiorna(const std::vector<Coppia>& campi) const {
  if (const auto cambiata = ScadenzaCambiata(ambiente, vista)) return *cambiata + kNulla;
  AggiornaScadenza(ambiente, numero, campi);
  return {};
}

std::string ArchivioScadenze::Interno::Scrivi() {
  if (nuova) {
    record.Scrivi("Numero", ProssimoNumeroScadenza(ambiente));
    Dati().Inserisci("Scadenze", record.Campi());
    return {};
  }
  // The columns that weren't touched keep what other stations may have written in them.
  std::vector<Coppia> cambiati = record.Campi();
  std::erase_if(cambiati, [this](const Coppia& coppia) { return !Cambiato(coppia.first); });
  return Aggiorna(cambiati);
}

bool ArchivioScadenze::Interno::Riba() const {
  // A payment leaves no rest; what had been paid of a receipt before its presentation leaves one.
  return vista.tipo == kTipoRiba &&
         (record.Leggi("DtPag").Data().Nulla() || !vista.Residuo().Zero());
}

std::vector<Coppia> ArchivioScadenze::Interno::CampiRipristinati() const {
  std::vector<Coppia> campi = {{"Stato", kStatoAperta}, {"Modificata", true}};
  if (Riba()) {
    campi.emplace_back("BancaPresentaz", "");
    campi.emplace_back("Ndistinta", 0);
    campi.emplace_back("DtPres", Data());
    return campi;
  }
  campi.emplace_back("DtPag", Data());
  for (const auto& coppia : CampiPagato(Importo())) campi.push_back(coppia);
  return campi;
}

void ArchivioScadenze::Interno::RiprendiDaAperta(const std::vector<Coppia>& scritti,
                                                 const std::vector<Coppia>& digitati) {
  const auto scrivi = [this](const std::vector<Coppia>& campi) {
    for (const auto& [campo, valore] : campi) record.Scrivi(campo, valore);
  };
  scrivi(letti);
  scrivi(scritti);
  record.Consolida();
  letti = record.Campi();
  vista.stato = record.Testo("Stato");
  vista.importoPagatoE = record.Leggi("ImportoPagatoE").Importo();
  scrivi(digitati);
  scrivi(scritti);
}

// --- The use case -------------------------------------------------------------------------------

ArchivioScadenze::ArchivioScadenze(Ambiente& ambiente, Uso uso)
    : interno_(std::make_unique<Interno>(ambiente, uso)) {}

ArchivioScadenze::~ArchivioScadenze() = default;

bool ArchivioScadenze::Aperta() const {
  return interno_->aperta;
}

bool ArchivioScadenze::Nuova() const {
  return interno_->nuova;
}

bool ArchivioScadenze::SolaLettura() const {
  return interno_->solaLettura;
}

bool ArchivioScadenze::Modificata() const {
  return interno_->aperta && !interno_->solaLettura && interno_->record.Modificata();
}

std::string ArchivioScadenze::Titolo() const {
  return interno_->aperta ? interno_->Titolo() : std::string();
}

Scheda& ArchivioScadenze::Record() {
  return interno_->record;
}

std::int64_t ArchivioScadenze::Numero() const {
  return interno_->numero;
}

bool ArchivioScadenze::Apri(std::int64_t numero) {
  Interno& io = *interno_;
  Rs trovata = io.Trova(numero);
  if (trovata.Eof()) return false;
  // Before the lock is asked for: it may be this very record that is open.
  Abbandona();
  auto preso = trovata.Edit();
  if (!preso && preso.Errore().stazione.empty()) return false;
  io.Leggi(trovata);
  io.numero = numero;
  io.solaLettura = !preso;
  io.aperta = true;
  io.riga = std::move(trovata);
  if (io.solaLettura) {
    io.Avviso(io.Titolo() + ": in modifica " + preso.Errore().Descrizione() +
              "\nsi può consultare, senza cambiarne i dati");
  }
  return true;
}

void ArchivioScadenze::Inizia(const std::vector<Coppia>& valori) {
  Interno& io = *interno_;
  Abbandona();
  io.letti.clear();
  io.record.Scrivi("CFP", "C");
  io.record.Scrivi("Dt", io.ambiente.Ora().Oggi());
  io.record.Scrivi("Anno", io.ambiente.Anno());
  for (const auto& [campo, valore] : valori) io.record.Scrivi(campo, valore);
  io.record.Consolida();
  io.aperta = io.nuova = true;
}

bool ArchivioScadenze::Conferma(std::string* campo) {
  Interno& io = *interno_;
  if (io.Ferma()) return false;
  auto rifiuto = io.Mancanza();
  if (!rifiuto) rifiuto = io.Errata();
  if (rifiuto) {
    io.Avviso(rifiuto->testo);
    if (campo != nullptr) *campo = rifiuto->campo;
    return false;
  }
  io.Avverti();
  if (std::string quale; io.Rinuncia(quale)) {
    if (campo != nullptr) *campo = quale;
    return false;
  }
  const auto scrivi = [&] {
    io.Completa();
    return io.Scrivi();
  };
  if (!io.Esegui("memorizzazione", scrivi)) return false;
  if (io.nuova) io.numero = io.record.Leggi("Numero").Intero();
  io.Chiudi();
  if (io.uso == Uso::Documento) io.ambiente.Dialogo().Annuncia("Scadenza memorizzata");
  return true;
}

bool ArchivioScadenze::Elimina() {
  Interno& io = *interno_;
  if (io.nuova || io.Ferma()) return false;
  io.Avviso(kEliminare);
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione SCADENZA ?")) return false;
  const auto elimina = [&]() -> std::string {
    if (const auto cambiata = ScadenzaCambiata(io.ambiente, io.vista)) return *cambiata + kNulla;
    io.Dati().Esegui("delete * from Scadenze where " + sql::Criterio("Numero", "=", io.numero));
    return {};
  };
  if (!io.Esegui("eliminazione", elimina)) return false;
  io.Chiudi();
  return true;
}

bool ArchivioScadenze::Ripristinabile() const {
  const Interno& io = *interno_;
  return io.aperta && !io.nuova && !io.solaLettura && !io.vista.Aperta();
}

bool ArchivioScadenze::Ripristina() {
  Interno& io = *interno_;
  if (!Ripristinabile()) return false;
  std::string domanda = std::string(kGiaPagata) + "\nbisogna anche eliminare la registrazione " +
                        (io.Riba() ? "contabile RIBA a CLIENTI" : "contabile del pagamento");
  if (io.vista.anticipo) {
    domanda += "\ne rimettere l'anticipo sulla scadenza della fattura da cui era stato dedotto";
  }
  if (UgualeTesto(io.T("Programma"), kProgrammaRaggruppata)) {
    domanda += "\ne la scadenza in cui questa era stata raggruppata";
  }
  domanda += "\n\nimposto questa scadenza come NON ANCORA PAGATA";
  if (!io.ambiente.Dialogo().Conferma(domanda)) return false;
  const std::vector<Coppia> ripristinati = io.CampiRipristinati();
  std::vector<Coppia> digitati = io.record.Campi();
  std::erase_if(digitati, [&](const Coppia& coppia) { return !io.Cambiato(coppia.first); });
  if (!io.Esegui("ripristino", [&] { return io.Aggiorna(ripristinati); })) return false;
  io.RiprendiDaAperta(ripristinati, digitati);
  return true;
}

std::optional<ArchivioScadenze::Registrazione> ArchivioScadenze::VedereRegCont() {
  const Interno& io = *interno_;
  const std::int64_t articolo = io.record.Leggi("Articolo").Intero();
  const auto anno = static_cast<int>(io.record.Leggi("Anno").Intero());
  if (!io.aperta || articolo == 0) {
    io.Avviso("la scadenza non ha una registrazione contabile");
    return std::nullopt;
  }
  if (!io.ambiente.Dialogo().Conferma("Vedere la fattura  ?")) return std::nullopt;
  if (anno != io.ambiente.Anno()) {
    io.Avviso("selezionare l'anno " + std::to_string(anno));
    return std::nullopt;
  }
  const std::vector<Coppia> chiave = {{"Anno", anno}, {"NumDoc", articolo}};
  const Valore riva = io.ambiente.Cerca("tessarc", "Articoli", chiave, "Riva");
  if (riva.Nullo()) {
    io.Avviso("nel " + std::to_string(anno) + " non c'è più la registrazione n. " +
              std::to_string(articolo));
    return std::nullopt;
  }
  if (!RegistrazioneSua(io.ambiente, io.vista)) {
    io.Avviso(
        "la registrazione n. " + std::to_string(articolo) + " del " + std::to_string(anno) +
        " è di un altro cliente o fornitore: quella della scadenza è stata eliminata, e il suo "
        "numero è stato riusato");
    return std::nullopt;
  }
  return Registrazione{articolo, !riva.Testo().empty()};
}

void ArchivioScadenze::Abbandona() {
  interno_->Chiudi();
}

}  // namespace fenalto::duedates
