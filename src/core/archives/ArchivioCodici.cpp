#include "core/archives/ArchivioCodici.h"

#include <utility>
#include <vector>

#include "core/archives/ArchivioInterno.h"
#include "core/archives/ConfrontoRecord.h"
#include "core/values/Testo.h"

namespace fenalto::archives {

bool ContestoArchivio::CodiceCambiato() const {
  return nuovo || !UgualeTesto(Codice(), codicePrima);
}

ArchivioCodici::ArchivioCodici(Ambiente& ambiente, DescrizioneArchivio descrizione)
    : interno_(std::make_unique<Interno>(ambiente, std::move(descrizione))) {}

ArchivioCodici::~ArchivioCodici() = default;

ArchivioCodici::Interno::Interno(Ambiente& ambienteUsato, DescrizioneArchivio descr)
    : ambiente(ambienteUsato), descrizione(std::move(descr)), contesto{ambiente, record} {
  const sql::TabellaCatalogo* tabella = Dati().Catalogo().Tabella(descrizione.tabella);
  if (tabella == nullptr) {
    throw ErroreArchivio(ErroreArchivio::Causa::Mancante,
                         "negli archivi della ditta manca la tabella «" + descrizione.tabella +
                             "» della finestra " + descrizione.finestra);
  }
  record = Scheda(*tabella);
  for (const auto& [nome, tipo] : descrizione.campiExtra) record.Aggiungi(nome, tipo);
  contesto.prima = record;
}

Archivio& ArchivioCodici::Interno::Dati() {
  return ambiente.ArchivioDi(descrizione.chiave);
}

Rs ArchivioCodici::Interno::Trova(const std::string& codice, bool conFiltro) {
  std::string sql =
      "select * from " + descrizione.tabella + " where " + sql::Criterio("Cod", "=", codice);
  if (conFiltro && !descrizione.filtro.empty()) sql += " and (" + descrizione.filtro + ")";
  return Dati().Recordset(sql);
}

std::string ArchivioCodici::Interno::Nome() const {
  if (contesto.nuovo && contesto.copia && !descrizione.titoloCopia.empty()) {
    return descrizione.titoloCopia;
  }
  if (contesto.nuovo) return descrizione.titoloNuovo;
  return descrizione.titoloRecord + contesto.codicePrima;
}

void ArchivioCodici::Interno::Avviso(const std::string& testo, Icona icona) {
  ambiente.Dialogo().Messaggio(testo, icona);
}

bool ArchivioCodici::Interno::RifiutaSolaLettura() {
  if (!solaLettura) return false;
  Avviso(Nome() + ": in modifica da un'altra stazione, si può solo consultare");
  return true;
}

bool ArchivioCodici::Interno::SoloEsistenti() const {
  return descrizione.soloEsistenti && descrizione.soloEsistenti(ambiente);
}

bool ArchivioCodici::Interno::Iniziabile() {
  if (SoloEsistenti()) return false;
  const auto impedimento =
      descrizione.impedimentoNuovo ? descrizione.impedimentoNuovo(ambiente) : std::nullopt;
  if (impedimento) Avviso(*impedimento);
  return !impedimento;
}

void ArchivioCodici::Interno::Chiudi() {
  aperto = solaLettura = daScrivere = false;
  riga = Rs();
  letti.clear();
}

void ArchivioCodici::Interno::Dimentica() {
  contesto.nuovo = false;
  contesto.copia = false;
  contesto.origine.clear();
  contesto.codicePrima.clear();
  contesto.memoria.clear();
  contesto.daDire.clear();
  record.Svuota();
  contesto.prima = record;
}

void ArchivioCodici::Interno::Ricorda() {
  if (!descrizione.ricordato) return;
  ambiente.Ricorda(AllArchivio(Maiuscolo(descrizione.tabella), contesto.Codice()));
}

void ArchivioCodici::Interno::Riempi() {
  if (descrizione.aperto) descrizione.aperto(contesto);
  record.Consolida();
}

void ArchivioCodici::Interno::Racconta() {
  if (!contesto.daDire.empty()) Avviso(contesto.daDire);
}

const DescrizioneArchivio& ArchivioCodici::Descrizione() const {
  return interno_->descrizione;
}

bool ArchivioCodici::Aperto() const {
  return interno_->aperto;
}

bool ArchivioCodici::Nuovo() const {
  return interno_->aperto && interno_->contesto.nuovo;
}

bool ArchivioCodici::SolaLettura() const {
  return interno_->solaLettura;
}

bool ArchivioCodici::Modificato() const {
  const Interno& io = *interno_;
  return io.aperto && !io.solaLettura && (io.daScrivere || io.record.Modificata());
}

bool ArchivioCodici::SoloEsistenti() const {
  return interno_->SoloEsistenti();
}

std::string ArchivioCodici::Titolo() const {
  return interno_->aperto ? interno_->Nome() : std::string();
}

Scheda& ArchivioCodici::Record() {
  return interno_->record;
}

ContestoArchivio& ArchivioCodici::Contesto() {
  return interno_->contesto;
}

bool ArchivioCodici::Apri(const std::string& codice) {
  Interno& io = *interno_;
  Rs trovato = io.Trova(codice, true);
  if (trovato.Eof()) {
    const std::string rifilato(Rifila(codice));
    if (rifilato == codice) return false;
    trovato = io.Trova(rifilato, true);
    if (trovato.Eof()) return false;
  }
  // Before the lock is asked for: it may be this very record that is open.
  Abbandona();

  // Edit reads the row again under the lock: until now another station could still change it.
  auto preso = trovato.Edit();
  if (!preso && preso.Errore().stazione.empty()) return false;
  io.contesto.nuovo = false;
  io.contesto.codicePrima = trovato.Fields("Cod").Testo();
  io.letti = ValoriDi(trovato);
  io.record.Svuota();
  io.record.Carica(trovato);
  io.contesto.prima = io.record;
  io.solaLettura = !preso;
  io.aperto = true;
  io.riga = std::move(trovato);
  io.Riempi();
  io.Ricorda();
  if (io.solaLettura) {
    io.Avviso(io.Nome() + ": in modifica " + preso.Errore().Descrizione() +
              "\nsi può consultare, senza cambiarne i dati");
  }
  return true;
}

bool ArchivioCodici::Inizia() {
  Interno& io = *interno_;
  if (!io.Iniziabile()) return false;
  Abbandona();
  io.contesto.nuovo = true;
  io.aperto = true;
  io.Riempi();
  return true;
}

bool ArchivioCodici::Duplica() {
  Interno& io = *interno_;
  if (!io.aperto || !io.Iniziabile()) return false;
  const std::vector<Coppia> valori = io.record.Campi();
  std::string origine = io.contesto.codicePrima;
  io.Chiudi();
  io.Dimentica();
  io.contesto.origine = std::move(origine);
  io.contesto.nuovo = true;
  io.contesto.copia = true;
  const auto copia = [&] {
    for (const auto& [campo, valore] : valori) {
      if (!UgualeTesto(campo, "Cod")) io.record.Scrivi(campo, valore);
    }
  };
  // Extra fields follow from the copied ones, whose values win over the proposals of a new record.
  copia();
  io.aperto = true;
  io.Riempi();
  copia();
  if (io.descrizione.copiato) io.descrizione.copiato(io.contesto);
  io.daScrivere = true;
  return true;
}

void ArchivioCodici::Lasciato(const std::string& campo) {
  Interno& io = *interno_;
  if (io.aperto && !io.solaLettura && io.descrizione.lasciato) {
    io.descrizione.lasciato(io.contesto, campo);
  }
}

records::StatoCampo ArchivioCodici::Stato(const std::string& nome) const {
  const Interno& io = *interno_;
  records::StatoCampo stato;
  if (io.descrizione.stato) stato = io.descrizione.stato(io.contesto, nome);
  if (io.solaLettura || (UgualeTesto(nome, "Cod") && io.SoloEsistenti())) stato.attivo = false;
  return stato;
}

void ArchivioCodici::Abbandona() {
  interno_->Chiudi();
  interno_->Dimentica();
}

}  // namespace fenalto::archives
