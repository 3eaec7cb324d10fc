#include "ledger/registrations/Primanota.h"

#include <limits>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/registrations/ControlliData.h"
#include "ledger/registrations/PrimanotaInterno.h"

namespace fenalto::ledger {

namespace {

/// Article numbers are long integers.
constexpr std::int64_t kMassimoNumero = std::numeric_limits<std::int32_t>::max();

TotaliPrimanota TotaliLeggibili(const std::vector<RigaPrimanota>& righe, Ambiente& ambiente,
                                bool& leggibili) {
  leggibili = true;
  try {
    return SommaRighe(righe);
  } catch (const FuoriCampo& e) {
    leggibili = false;
    ambiente.Dialogo().Messaggio(
        std::string("totali della registrazione: ") + e.what() + ". La registrazione non si apre",
        Icona::Errore);
    return {};
  }
}

}  // namespace

// --- State -----------------------------------------------------------------------------------

Primanota::Interno::Interno(Ambiente& ambienteUsato)
    : ambiente(ambienteUsato),
      tessarc(ambienteUsato.ArchivioDi("tessarc")),
      percorsoTemp(ambienteUsato.CartellaTemp("Movimenti", 1)),
      dataRicordata(ambienteUsato.Ora().Oggi()),
      allegati(ambienteUsato, "PrimaNota", "Registrazione primanota") {
  if (!tessarc.CreaCopiaTemp(percorsoTemp, "num", kTabellaRighe)) {
    throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                         "non si può creare l'archivio di lavoro «" + percorsoTemp.string() +
                             "»: controllare lo spazio nella cartella dei file temporanei");
  }
  temp = ambiente.Basi().ApriTemp(percorsoTemp);
  temp->CollegaTabella(ambiente.PercorsoDb("tessarc"), "CAUSALI");
  temp->CollegaTabella(ambiente.PercorsoDb("tessarc"), "CONTICLIENTIFORNITORI");
  testa = Scheda(*tessarc.Catalogo().Tabella("Articoli"));
  testa.Aggiungi("ProbabileNumDoc", Tipo::Testo);
  riga = Scheda(*temp->Catalogo().Tabella(kTabellaRighe));
}

Primanota::Interno::~Interno() {
  temp->Chiudi();
  std::error_code errore;
  std::filesystem::remove(percorsoTemp, errore);
}

void Primanota::Interno::ChiudiRecord() noexcept {
  stato = Stato::Inattiva;
  nuova = solaLettura = righeModificate = false;
  numeroRecord = idRecord = 0;
  blocco.Rilascia();
  allegati.Scollega();
  testa.Svuota();
  righe.clear();
  totali = {};
  ChiudiRiga();
  try {
    temp->Esegui("delete * from Movimenti");
  } catch (const ErroreArchivio&) {
    // Opening a registration empties the scratch again before it is used.
  }
}

bool Primanota::Interno::RigaInCorso() {
  if (stato != Stato::RigaAperta) return false;
  Avviso("confermare o annullare prima la riga");
  return true;
}

bool Primanota::Interno::RifiutaSolaLettura() {
  if (!solaLettura) return false;
  Avviso("la registrazione è in modifica da un'altra stazione: si può solo consultare");
  return true;
}

Primanota::Primanota(Ambiente& ambiente) : interno_(std::make_unique<Interno>(ambiente)) {}

Primanota::~Primanota() = default;

Primanota::Stato Primanota::StatoCorrente() const {
  return interno_->stato;
}

bool Primanota::Nuova() const {
  return interno_->nuova;
}

bool Primanota::SolaLettura() const {
  return interno_->solaLettura;
}

bool Primanota::Modificata() const {
  const Interno& io = *interno_;
  if (io.stato == Stato::Inattiva || io.solaLettura) return false;
  return io.righeModificate || io.testa.Modificata() || io.allegati.InAttesa() ||
         (io.stato == Stato::RigaAperta && io.riga.Modificata());
}

// --- Head ------------------------------------------------------------------------------------

Rs Primanota::Interno::TrovaTestata(std::int64_t numero, int annoCercato) {
  return tessarc.Recordset("select * from ZArticoliNonIva where " +
                           sql::Criterio("NumDoc", "=", numero) + " and " +
                           sql::Criterio("Anno", "=", annoCercato));
}

void Primanota::Nuovo() {
  Interno& io = *interno_;
  Abbandona();
  io.temp->Esegui("delete * from Movimenti");
  const int anno = io.ambiente.Anno();
  const std::int64_t ultimo =
      io.ambiente.Max("NumDoc", "Articoli", {{"Anno", anno}}, io.tessarc).Intero();

  io.anno = anno;
  io.nuova = true;
  io.testa.Svuota();
  io.testa.Scrivi("NumDoc", 0);
  io.testa.Scrivi("Dt", io.dataRicordata);
  io.testa.Scrivi("Anno", anno);
  io.testa.Scrivi("ProbabileNumDoc", std::to_string(ultimo + 1));
  io.testa.Consolida();
  io.allegati.Collega(0);
  io.contropAutomatiche = true;
  io.stato = Stato::Aperta;
}

bool Primanota::Apri(std::int64_t numero) {
  Interno& io = *interno_;
  const int anno = io.ambiente.Anno();
  if (io.TrovaTestata(numero, anno).Eof()) return false;
  Abbandona();

  auto preso = io.ambiente.Basi().Blocchi().Record(
      "ARTICOLI", std::to_string(anno) + "|" + std::to_string(numero));
  // Read under the lock: until now another station could still change it.
  Rs record = io.TrovaTestata(numero, anno);
  if (record.Eof()) return false;
  const std::int64_t id = record.Fields("ID").Intero();
  if (record.Fields("CREATOINAUTOMATICO").Intero() > 0) {
    io.Avviso("ATTENZIONE : si tratta di una registrazione creata automaticamente");
  }
  if (!preso.Riuscito()) {
    io.Avviso("la registrazione n. " + std::to_string(numero) + " è in modifica " +
              preso.Errore().Descrizione() + ":\nsi può consultare, senza cambiarla");
  }
  io.allegati.Collega(id, "Articolo n.: " + std::to_string(numero));
  ControlloDataGiornale(io.ambiente, record.Fields("Dt").Data());

  io.temp->Esegui("delete * from Movimenti");
  io.tessarc.CopiaRighe(io.percorsoTemp, kTabellaRighe, {{"anno", anno}, {"NumDoc", numero}});
  std::vector<RigaPrimanota> righe = io.LeggiRighe();
  bool leggibili = false;
  const TotaliPrimanota totali = TotaliLeggibili(righe, io.ambiente, leggibili);
  if (!leggibili) return false;

  io.testa.Svuota();
  io.testa.Carica(record);
  io.testa.Consolida();
  io.anno = anno;
  io.numeroRecord = numero;
  io.idRecord = id;
  io.solaLettura = !preso.Riuscito();
  if (preso.Riuscito()) io.blocco = std::move(preso).Valore();
  io.righe = std::move(righe);
  io.totali = totali;
  io.contropAutomatiche = false;
  io.stato = Stato::Aperta;
  return true;
}

Scheda& Primanota::Testa() {
  return interno_->testa;
}

void Primanota::Interno::NormalizzaNumero() {
  const std::int64_t numero = testa.Leggi("NumDoc").Intero();
  if (numero <= 0 || numero > kMassimoNumero) testa.Scrivi("NumDoc", numeroRecord);
}

void Primanota::TestaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (io.stato == Stato::Inattiva || io.solaLettura) return;
  if (UgualeTesto(campo, "NumDoc")) io.NormalizzaNumero();
  if (UgualeTesto(campo, "Dt")) {
    const Data data = io.testa.Leggi("Dt").Data();
    ControlloAnno(io.ambiente, data, false, io.anno);
    ControlloDataGiornale(io.ambiente, data);
  }
}

// --- Models ----------------------------------------------------------------------------------

std::vector<ModelloPrimanota> Primanota::Modelli() {
  std::vector<ModelloPrimanota> modelli;
  Rs rs = interno_->tessarc.Vista("zArticoliNonIvaDupl");
  for (; !rs.Eof(); rs.MoveNext()) {
    modelli.push_back({rs.Fields("Articolo").Intero(), static_cast<int>(rs.Fields("Anno").Intero()),
                       rs.Fields("Dt").Data(), rs.Fields("DescrArtDupl").Testo(),
                       rs.Fields("Conto").Testo(), rs.Fields("ContoA").Testo()});
  }
  return modelli;
}

void Primanota::Duplica(std::int64_t articolo, int anno) {
  Interno& io = *interno_;
  if (io.RigaInCorso()) return;
  if (io.stato == Stato::Inattiva) Nuovo();
  if (!io.nuova) return;

  TransazionePrimanota transazione(io.ambiente.Basi(), Transazione::Ambito::SoloLavoro);
  const std::int64_t ultimaPosi = io.righe.empty() ? 0 : io.righe.back().posi;
  // Rows typed before stay, and the model's come after them.
  if (ultimaPosi != 0) io.temp->Esegui("update Movimenti set NumDoc=-1");
  io.tessarc.CopiaRighe(io.percorsoTemp, kTabellaRighe, {{"anno", anno}, {"NumDoc", articolo}});
  if (ultimaPosi != 0) {
    io.temp->Esegui("update Movimenti set Posi=Posi+" + std::to_string(ultimaPosi) +
                    " where NumDoc<>-1");
  }
  std::vector<RigaPrimanota> righe = io.LeggiRighe();
  bool leggibili = false;
  const TotaliPrimanota totali = TotaliLeggibili(righe, io.ambiente, leggibili);
  if (!leggibili) return;
  transazione.Conferma();

  io.righe = std::move(righe);
  io.totali = totali;
  io.righeModificate = true;
  io.contropAutomatiche = false;
}

// --- Attachments -----------------------------------------------------------------------------

std::vector<AllegatoPrimanota> Primanota::Allegati() {
  std::vector<AllegatoPrimanota> elenco;
  for (const Allegato& a : interno_->allegati.Elenco()) {
    elenco.push_back({a.num, a.descrizione, a.file});
  }
  return elenco;
}

Esito<bool> Primanota::AggiungiAllegato(const std::filesystem::path& file) {
  Interno& io = *interno_;
  if (io.stato == Stato::Inattiva) return Errore{"aprire prima una registrazione"};
  if (io.solaLettura) return Errore{"la registrazione si può solo consultare"};
  return io.allegati.Aggiungi(file);
}

Esito<bool> Primanota::TogliAllegato(std::size_t indice) {
  Interno& io = *interno_;
  if (io.stato == Stato::Inattiva) return Errore{"aprire prima una registrazione"};
  if (io.solaLettura) return Errore{"la registrazione si può solo consultare"};
  return io.allegati.Togli(indice);
}

}  // namespace fenalto::ledger
