#include "vat/entry/RegistrazioneIva.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/records/Conferma.h"
#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/codes/DescrizioneCodice.h"
#include "ledger/registrations/TestataArticolo.h"
#include "vat/entry/RegistrazioneIvaInterno.h"
#include "vat/postings/DatiIva.h"

namespace fenalto::vat {
namespace {

constexpr std::string_view kOpzioni = "impostazioni";

using CampoTesta = std::pair<const char*, Tipo>;
constexpr CampoTesta kCampiTesta[] = {{"Riva", Tipo::Testo},
                                      {"NProt", Tipo::Testo},
                                      {"NumDoc", Tipo::Intero},
                                      {"Dt", Tipo::Data},
                                      {"Contox", Tipo::Testo},
                                      {"CFPx", Tipo::Testo},
                                      {"Descrizionex", Tipo::Testo},
                                      {"DtFat", Tipo::Data},
                                      {"NFat", Tipo::Testo},
                                      {"Pagamento", Tipo::Testo},
                                      {"Ep", Tipo::Booleano},
                                      {"DtIncasso", Tipo::Data},
                                      {"NVarAnPrec", Tipo::Booleano},
                                      {"TotaleXVerifica", Tipo::Importo},
                                      {"BollaDog", Tipo::Booleano},
                                      {"RitAcc", Tipo::Booleano},
                                      {"RivaIntra", Tipo::Testo},
                                      {"FornitoreIntra", Tipo::Testo},
                                      {"CausaleIntra", Tipo::Testo},
                                      {"ContoCostiIntra", Tipo::Testo},
                                      {"PagamentoIntra", Tipo::Testo},
                                      {"NoIntraCosto_a_Forn", Tipo::Booleano},
                                      {"FornitoreBollaDog", Tipo::Testo},
                                      {"CausaleBollaDog", Tipo::Testo},
                                      {"PagamentoBollaDog", Tipo::Testo},
                                      {"CausaleRitAcc1", Tipo::Testo},
                                      {"ContoRitAcc1", Tipo::Testo},
                                      {"ImportoRitAcc1", Tipo::Importo},
                                      {"CausaleRitAcc2", Tipo::Testo},
                                      {"ContoRitAcc2", Tipo::Testo},
                                      {"ImportoRitAcc2", Tipo::Importo},
                                      {"ProbabileNumDoc", Tipo::Testo},
                                      {"ProbabileNProt", Tipo::Testo}};

constexpr records::CampoRiga<RigaIva> kCampiRiga[] = {
    records::Campo<&RigaIva::posi>("Posi"),
    records::Campo<&RigaIva::conto>("Conto"),
    records::Campo<&RigaIva::codIva>("CodIva"),
    records::Campo<&RigaIva::descrizione>("Descrizione"),
    records::Campo<&RigaIva::categoria>("Categoria"),
    records::Campo<&RigaIva::commessa>("Commessa"),
    records::Campo<&RigaIva::imponibile>("Imponibile"),
    records::Campo<&RigaIva::iva>("Iva"),
    records::Campo<&RigaIva::ivaInd>("IvaInd")};

}  // namespace

RegistrazioneIva::Interno::Interno(Ambiente& ambienteUsato)
    : ambiente(ambienteUsato),
      tessarc(ambienteUsato.ArchivioDi("tessarc")),
      documento(ambienteUsato),
      righe(kCampiRiga),
      bozza(ambienteUsato, "Fatture", kCampiRiga, {"ProbabileNumDoc", "ProbabileNProt"}) {
  for (const auto& [nome, genere] : kCampiTesta) testa.Aggiungi(nome, genere);
  riga.Aggiungi("Totale", Tipo::Importo);
}

void RegistrazioneIva::Interno::ChiudiRecord() noexcept {
  documento.Chiudi();
  bozza.Fine();
  numeroRecord = nProtRecord = idRecord = 0;
  pagamentoRecord.clear();
  parteRecord = {};
  ritenuteRecord = {};
  doganaRecord.reset();
  fatturaRecord.clear();
  scadenzeRecord.clear();
  seguito.clear();
  bloccati.clear();
  pagamentoProposto.clear();
  dtFatProposta = {};
  dtIncassoRecord = {};
  descrizioneProposta.clear();
  righe.Carica({});
  proposte.clear();
  totali = {};
}

bool RegistrazioneIva::Interno::Ferma() {
  return !Aperta() || documento.RifiutaRiga(righe.InRiga()) || documento.RifiutaSolaLettura();
}

bool RegistrazioneIva::Interno::Tipo(std::initializer_list<std::string_view> tipi) const {
  return std::any_of(tipi.begin(), tipi.end(),
                     [this](std::string_view t) { return UgualeTesto(t, registro.tipo); });
}

Valore RegistrazioneIva::Interno::DellaParte(std::string_view campo) const {
  const std::string classe = T("CFPx");
  if (classe != "C" && classe != "F") return {};
  return ambiente.Cerca("tessarc", classe == "C" ? "Clienti" : "Fornitori", {{"Cod", T("Contox")}},
                        campo);
}

bool RegistrazioneIva::Interno::AutomaticoIntra() const {
  return ImpostazioneAttiva(ambiente, "RegAutoIntraCee");
}

RegistrazioneIva::RegistrazioneIva(Ambiente& ambiente)
    : interno_(std::make_unique<Interno>(ambiente)) {}
RegistrazioneIva::~RegistrazioneIva() = default;

RegistrazioneIva::Stato RegistrazioneIva::StatoCorrente() const {
  const Interno& io = *interno_;
  if (io.Aperta()) return io.righe.InRiga() ? Stato::RigaAperta : Stato::Aperta;
  return io.registro.cod.empty() ? Stato::SenzaRegistro : Stato::ConRegistro;
}

bool RegistrazioneIva::Nuova() const {
  return interno_->documento.Nuovo();
}

bool RegistrazioneIva::SolaLettura() const {
  return interno_->documento.SolaLettura();
}

std::string RegistrazioneIva::MotivoSolaLettura() const {
  return interno_->documento.Motivo();
}

bool RegistrazioneIva::Modificata() const {
  const Interno& io = *interno_;
  return io.documento.Modificabile() &&
         (io.righe.Modificate() || io.testa.Modificata() || io.righe.Digitando());
}

std::string RegistrazioneIva::Impedimento(Ambiente& ambiente) {
  if (ambiente.Esiste("tessarc", "RegistriIva", {{"Tipo", "03"}})) return {};
  return "Riavviare il programma ed creare almeno un registro IVA";
}

Scheda& RegistrazioneIva::Testa() {
  return interno_->testa;
}

// --- Register ------------------------------------------------------------------------------------

bool RegistrazioneIva::Interno::LeggiRegistro(const std::string& riva) {
  Rs letto =
      tessarc.Recordset("SELECT * FROM RegistriIva WHERE " + sql::Criterio("Cod", "=", riva));
  if (letto.Eof()) return false;
  registro.cod = letto.Fields("Cod").Testo();
  registro.tipo = letto.Fields("Tipo").Testo();
  registro.descrizione = letto.Fields("Descrizione").Testo();
  registro.conto = letto.Fields("Conto").Testo();
  registro.contoCassa = letto.Fields("ContoCassa").Testo();
  registro.contoRicavi = letto.Fields("ContoRicaviCorrisp").Testo();
  registro.codIva = letto.Fields("CodIva").Testo();
  registro.mensile = letto.Fields("RegMensileCorrisp").Booleano();
  tipo = TrovaTipoRegistro(registro.tipo);
  return true;
}

void RegistrazioneIva::Interno::AvvisaTipo() {
  if (tipo == nullptr || tipo->cfp.empty()) {
    Avviso("non su può registrare su un registro di tipo " + registro.tipo + "!\r\n" +
           registro.descrizione +
           " viene aggiornato automaticamente inserendo la data incasso sulle fatture in "
           "sospensione iva");
  } else if (Tipo({"05"})) {
    Avviso(
        "Attenzione: le registrazioni di fatture con con sistema del reverse charge (intra e "
        "altro) si effettuano sul registro di tipo 04 ed il programma provvede ad inserirle anche "
        "su quello di tipo 05");
  }
}

bool RegistrazioneIva::ScegliRegistro(const std::string& riva) {
  Interno& io = *interno_;
  const std::string cod(Rifila(riva));
  if (cod.empty()) {
    io.Avviso("inserire codice registro iva");
    return false;
  }
  Abbandona();
  if (!io.LeggiRegistro(cod)) {
    io.Avviso("registro iva " + cod +
              " non trovato: i registri sono in Archivi, Contabilità, "
              "Registri Iva");
    return false;
  }
  if (io.registro.conto.empty()) {
    io.Avviso("Sul registro iva " + io.registro.cod + " " + io.registro.descrizione +
              "\r\nbisogna inserire il conto iva per poter effettuare le registrazioni");
  }
  io.AvvisaTipo();
  return true;
}

const RegistroScelto& RegistrazioneIva::Registro() const {
  return interno_->registro;
}

std::string RegistrazioneIva::TitoloNuova() const {
  return std::string(DidascaliaRegistrazione(interno_->registro.tipo, interno_->registro.mensile));
}

std::string RegistrazioneIva::ClasseParte() const {
  return interno_->tipo == nullptr ? std::string() : std::string(interno_->tipo->cfp);
}

std::string RegistrazioneIva::EtichettaParte() const {
  const std::string classe = ClasseParte();
  return classe == "C" ? "Cliente" : classe == "F" ? "Fornitore" : "Conto cassa";
}

std::string RegistrazioneIva::TestoRiprotocollo() const {
  if (interno_->Tipo({"03"})) {
    return "Riprotocollo automatico fatture acquisto per data registrazione";
  }
  if (interno_->Tipo({"02", "07", "09"})) {
    return "Riprotocollo automatico corrispettivi per data registrazione";
  }
  return {};
}

std::int64_t RegistrazioneIva::ProbabileNumDoc() {
  return ledger::ProssimoNumDoc(interno_->ambiente, interno_->ambiente.Anno());
}

std::int64_t RegistrazioneIva::ProbabileNProt() {
  return ProssimoNProt(interno_->ambiente, interno_->ambiente.Anno(), interno_->registro.cod);
}

// --- Opening -------------------------------------------------------------------------------------

void RegistrazioneIva::Interno::AssicuraCodiceVentilazione() {
  if (ambiente.Esiste("tessarc", "CodiciIva", {{"Cod", std::string(kCodiceVentilazione)}})) return;
  ambiente.Dialogo().Annuncia(
      "Verrà creato un codice iva 'ZCOR' che servirà al programma al momento della chiusura "
      "periodica iva");
  tessarc.Inserisci("CodiciIva", {{"Cod", std::string(kCodiceVentilazione)},
                                  {"Descrizione", "VENTILZ.CORRISP."}});
}

void RegistrazioneIva::Interno::PreparaOpzioni() {
  testa.Scrivi("CausaleIntra", ambiente.Config("CausaleIntraCosto_a_Forn"));
  testa.Scrivi("NoIntraCosto_a_Forn", ImpostazioneAttiva(ambiente, "NoIntraCosto_a_Forn"));
  Rs acquisti = tessarc.Recordset("SELECT Cod FROM RegistriIva WHERE Tipo='05' ORDER BY Cod");
  if (!acquisti.Eof()) testa.Scrivi("RivaIntra", acquisti.Fields(0));
  for (const auto& [campo, valore] : ricordati) testa.Scrivi(campo, valore);
}

void RegistrazioneIva::Interno::PreparaNuova() {
  testa.Svuota();
  anno = ambiente.Anno();
  dataAvvisata = {};
  const std::int64_t nProt = ProssimoNProt(ambiente, anno, registro.cod);
  testa.Scrivi("Riva", registro.cod);
  testa.Scrivi("CFPx", std::string(tipo->cfp));
  const auto ultima = ultimi.find("Dt");
  testa.Scrivi("Dt", ultima == ultimi.end() ? Valore(ambiente.Ora().Oggi()) : ultima->second);
  testa.Scrivi("ProbabileNumDoc", std::to_string(ledger::ProssimoNumDoc(ambiente, anno)));
  testa.Scrivi("ProbabileNProt", std::to_string(nProt));
  if (tipo->corrispettivi) {
    testa.Scrivi("Contox", registro.contoCassa);
    testa.Scrivi("DtFat", D("Dt"));
  }
  ProponiDataFattura();
  if (tipo->corrispettivi || Tipo({"01"})) testa.Scrivi("NFat", std::to_string(nProt));
  PreparaOpzioni();
  LeggiCausali();
  descrizioneProposta = DescrizioneProposta();
  testa.Scrivi("Descrizionex", descrizioneProposta);
  documento.Inizia();
  IniziaBozza();
}

bool RegistrazioneIva::Nuovo() {
  Interno& io = *interno_;
  Abbandona();
  if (io.registro.cod.empty() || !io.LeggiRegistro(io.registro.cod)) {
    io.Avviso("inserire codice registro iva");
    return false;
  }
  if (io.registro.conto.empty()) {
    io.Avviso("per effettuare registrazioni sul registro iva " + io.registro.cod +
              " è necessario inserire il conto iva da : menu->archivi->registri iva");
    return false;
  }
  if (io.tipo == nullptr || io.tipo->cfp.empty()) {
    io.AvvisaTipo();
    return false;
  }
  if (MostraIntra() && !io.ambiente.Esiste("tessarc", "RegistriIva", {{"Tipo", "05"}})) {
    io.Avviso(
        "Riavviare il programma ed creare almeno un registro IVA di tipo 05=intra su acquisti");
    return false;
  }
  return records::Tenta(io.ambiente,
                        {"nuova registrazione non riuscita: ", records::kAncoraSulloSchermo}, [&] {
                          if (io.Tipo({"07"})) io.AssicuraCodiceVentilazione();
                          io.PreparaNuova();
                          return true;
                        });
}

Rs RegistrazioneIva::Interno::TrovaTestata(std::int64_t numDoc) const {
  return tessarc.Recordset("SELECT * FROM ZarticoliFatture WHERE " +
                           sql::Criterio("NumDoc", "=", numDoc) + " and " +
                           sql::Criterio("Anno", "=", ambiente.Anno()));
}

void RegistrazioneIva::Interno::LeggiGirate() {
  ritenuteRecord = {};
  doganaRecord.reset();
  for (const RegistrazioneSeguita& r : TrovaSeguito(ambiente, {anno, numeroRecord})) {
    // Off a customer's account it stands in credit.
    if (r.genere == GenereSeguito::GiroRitenuta) {
      ritenuteRecord += UgualeTesto(T("CFPx"), "C") ? -r.dallaParte : r.dallaParte;
    }
    if (r.genere == GenereSeguito::GiroDogana) doganaRecord = r.dallaParte;
  }
}

void RegistrazioneIva::Interno::CaricaTesta(const Rs& record) {
  testa.Svuota();
  for (const char* campo :
       {"Riva", "NumDoc", "Dt", "DtFat", "NFat", "Pagamento", "Ep", "DtIncasso", "NVarAnPrec"}) {
    testa.Scrivi(campo, record.Fields(campo));
  }
  testa.Scrivi("NProt", std::to_string(record.Fields("NProt").Intero()));
  testa.Scrivi("Contox", record.Fields("Conto"));
  testa.Scrivi("CFPx", record.Fields("CFP"));
  anno = ambiente.Anno();
  numeroRecord = record.Fields("NumDoc").Intero();
  nProtRecord = record.Fields("NProt").Intero();
  idRecord = record.Fields("ID").Intero();
  pagamentoRecord = pagamentoProposto = record.Fields("Pagamento").Testo();
  parteRecord = {record.Fields("CFP").Testo(), record.Fields("Conto").Testo()};
  dtIncassoRecord = record.Fields("DtIncasso").Data();
  fatturaRecord = EstremiFattura();
  LeggiCausali();
  std::vector<RigaIva> lette = LeggiRigheIva(tessarc, anno, numeroRecord);
  for (const RigaIva& letta : lette) {
    if (letta.tipoRiga == TipoRigaIva::Parte) testa.Scrivi("Descrizionex", letta.descrizione);
  }
  std::erase_if(lette, [](const RigaIva& r) { return r.tipoRiga != TipoRigaIva::Imponibile; });
  righe.Carica(std::move(lette));
  const auto origine = static_cast<ledger::Origine>(record.Fields("CREATOINAUTOMATICO").Intero());
  if (origine == ledger::Origine::RitenutaAcconto || origine == ledger::Origine::BollaDoganale) {
    LeggiGirate();
  }
}

bool RegistrazioneIva::Apri(std::int64_t numDoc) {
  Interno& io = *interno_;
  if (io.TrovaTestata(numDoc).Eof()) return false;
  Abbandona();
  auto preso = ledger::BloccaArticolo(io.ambiente, io.ambiente.Anno(), numDoc);
  // Read under the lock: until now another station could still change it.
  Rs record = io.TrovaTestata(numDoc);
  if (record.Eof() || !io.LeggiRegistro(record.Fields("Riva").Testo())) return false;
  const auto origine = record.Fields("CREATOINAUTOMATICO").Intero();
  if (origine >= static_cast<int>(ledger::Origine::ReverseCharge) &&
      origine <= static_cast<int>(ledger::Origine::RitenutaAcconto)) {
    io.Avviso(
        "ATTENZIONE : si tratta di una registrazione che ha creato automaticamente altre "
        "operazioni contabili (ritenuta acconto, fattura intra, bolla doganale)");
  } else if (origine != 0) {
    io.Avviso(
        "ATTENZIONE : si tratta di una registrazione creata automaticamente. (p.es. 'emissione "
        "fatture', 'fatture intracee', ...) ");
  }
  io.CaricaTesta(record);
  const auto stampato = io.ambiente
                            .Max("UltProtSt", "UltProtStRegIva",
                                 {{"Anno", io.anno}, {"Riva", io.registro.cod}}, io.tessarc)
                            .Intero();
  const Data giornale = io.ambiente.Max("dt", "UltimaDataLibro", {}, io.tessarc).Data();
  std::string motivo;
  if (!preso) {
    motivo = "la registrazione n. " + std::to_string(numDoc) + " è in modifica " +
             preso.Errore().Descrizione();
  } else if (io.nProtRecord <= stampato) {
    motivo = "documento già stampato su registro iva";
  } else if (!giornale.Nulla() && io.D("Dt") <= giornale) {
    motivo =
        "data registrazione contabile antecedente all'ultima data già stampata su libro giornale";
  }
  if (!motivo.empty()) io.Avviso(motivo);
  io.CalcolaTotali();
  io.scadenzeRecord = io.BaseScadenze();
  io.testa.Scrivi("TotaleXVerifica", io.totali.Totale());
  io.documento.Mostra(std::move(preso), std::move(motivo));
  if (io.documento.Modificabile()) io.IniziaBozza();
  io.ambiente.Ricorda(AlNumero("Fatture", numDoc, io.anno));
  return true;
}

void RegistrazioneIva::Abbandona() {
  interno_->ChiudiRecord();
}

// --- Options -------------------------------------------------------------------------------------

bool RegistrazioneIva::MostraIntra() const {
  return interno_->Tipo({"04"}) && interno_->AutomaticoIntra();
}

bool RegistrazioneIva::MostraBollaDoganale() const {
  return interno_->Tipo({"03"}) && ImpostazioneAttiva(interno_->ambiente, "RegAutoBolleDoganali");
}

bool RegistrazioneIva::MostraRitenute() const {
  return interno_->Tipo({"01", "03", "06", "11"}) &&
         ImpostazioneAttiva(interno_->ambiente, "RITENUTAACCONTO");
}

bool RegistrazioneIva::MostraDtIncasso() const {
  return interno_->Tipo({"06"}) || interno_->B("Ep");
}

std::string RegistrazioneIva::NotaPagamento() const {
  const auto codice = duedates::LeggiCodicePagamento(interno_->ambiente, interno_->T("Pagamento"));
  return codice ? duedates::InformazioneCodice(*codice) : std::string();
}

std::optional<Valore> RegistrazioneIva::Precedente(std::string_view campo) const {
  const auto trovato =
      std::find_if(interno_->ultimi.begin(), interno_->ultimi.end(),
                   [&](const auto& voce) { return UgualeTesto(voce.first, campo); });
  if (trovato == interno_->ultimi.end()) return std::nullopt;
  return trovato->second;
}

bool RegistrazioneIva::Interno::OpzioneStazione(std::string_view chiave) const {
  return UgualeTesto(ambiente.LeggiImpostazione(ambiente.FileStazione(), kOpzioni, chiave), "SI");
}

void RegistrazioneIva::Interno::ScriviOpzione(std::string_view chiave, bool attiva) {
  ambiente.ScriviImpostazione(ambiente.FileStazione(), kOpzioni, chiave, attiva ? "Si" : "No");
}

bool RegistrazioneIva::VerificaTotale() const {
  return interno_->OpzioneStazione(kVerificaTotale);
}

void RegistrazioneIva::VerificaTotale(bool attiva) {
  interno_->ScriviOpzione(kVerificaTotale, attiva);
}

bool RegistrazioneIva::VerificaFatForn() const {
  return interno_->OpzioneStazione(kVerificaFornitore);
}

void RegistrazioneIva::VerificaFatForn(bool attiva) {
  interno_->ScriviOpzione(kVerificaFornitore, attiva);
}

}  // namespace fenalto::vat
