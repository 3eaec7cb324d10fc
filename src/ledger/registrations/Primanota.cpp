#include "ledger/registrations/Primanota.h"

#include <limits>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/registrations/ControlliData.h"
#include "ledger/registrations/PrimanotaInterno.h"
#include "ledger/registrations/TestataArticolo.h"

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
      documento(ambienteUsato),
      dataRicordata(ambienteUsato.Ora().Oggi()),
      allegati(ambienteUsato, "PrimaNota", "Registrazione primanota") {
  testa = Scheda(*tessarc.Catalogo().Tabella("Articoli"));
  testa.Aggiungi("ProbabileNumDoc", Tipo::Testo);
}

void Primanota::Interno::ChiudiRecord() noexcept {
  documento.Chiudi();
  bozza.Fine();
  numeroRecord = idRecord = 0;
  allegati.Scollega();
  righe.Carica({});
  righeLette.clear();
  totali = {};
  origine = Origine::Manuale;
}

bool Primanota::Interno::Ferma() {
  return !documento.Aperto() || documento.RifiutaRiga(righe.InRiga()) ||
         documento.RifiutaSolaLettura();
}

Primanota::Primanota(Ambiente& ambiente) : interno_(std::make_unique<Interno>(ambiente)) {}

Primanota::~Primanota() = default;

Primanota::Stato Primanota::StatoCorrente() const {
  return interno_->StatoCorrente();
}

bool Primanota::Nuova() const {
  return interno_->documento.Nuovo();
}

bool Primanota::SolaLettura() const {
  return interno_->documento.SolaLettura();
}

bool Primanota::Modificata() const {
  const Interno& io = *interno_;
  return io.documento.Modificabile() && (io.righe.Modificate() || io.testa.Modificata() ||
                                         io.allegati.InAttesa() || io.righe.Digitando());
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
  const int anno = io.ambiente.Anno();
  const std::int64_t ultimo =
      io.ambiente.Max("NumDoc", "Articoli", {{"Anno", anno}}, io.tessarc).Intero();

  io.anno = anno;
  io.testa.Svuota();
  io.testa.Scrivi("NumDoc", 0);
  io.testa.Scrivi("Dt", io.dataRicordata);
  io.testa.Scrivi("Anno", anno);
  io.testa.Scrivi("ProbabileNumDoc", std::to_string(ultimo + 1));
  io.allegati.Collega(0);
  io.contropAutomatiche = true;
  io.documento.Inizia();
  io.IniziaBozza();
}

bool Primanota::Apri(std::int64_t numero) {
  Interno& io = *interno_;
  const int anno = io.ambiente.Anno();
  if (io.TrovaTestata(numero, anno).Eof()) return false;
  Abbandona();

  auto preso = BloccaArticolo(io.ambiente, anno, numero);
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

  std::vector<RigaPrimanota> righe = io.LeggiRighe(numero, anno);
  bool leggibili = false;
  const TotaliPrimanota totali = TotaliLeggibili(righe, io.ambiente, leggibili);
  if (!leggibili) return false;

  io.testa.Svuota();
  io.testa.Carica(record);
  io.anno = anno;
  io.numeroRecord = numero;
  io.idRecord = id;
  io.righe.Carica(std::move(righe));
  io.righeLette = io.righe.Tutte();
  io.totali = totali;
  io.contropAutomatiche = false;
  std::string motivo =
      preso ? std::string() : "la registrazione è in modifica da un'altra stazione";
  io.documento.Mostra(std::move(preso), std::move(motivo));
  if (io.documento.Modificabile()) io.IniziaBozza();
  io.ambiente.Ricorda(AlNumero("Movimenti", numero, anno));
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
  if (!io.documento.Modificabile()) return;
  if (UgualeTesto(campo, "NumDoc")) io.NormalizzaNumero();
  if (UgualeTesto(campo, "Dt")) {
    const Data data = io.testa.Leggi("Dt").Data();
    ControlloAnno(io.ambiente, data, false, io.anno);
    ControlloDataGiornale(io.ambiente, data);
  }
  io.Segna();
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
  if (io.documento.RifiutaRiga(io.righe.InRiga())) return;
  if (!io.documento.Aperto()) Nuovo();
  if (!io.documento.Nuovo()) return;

  // Rows typed before stay, and the model's come after them.
  const std::int64_t ultimaPosi = io.righe.ProssimaPosi(0);
  std::vector<RigaPrimanota> righe = io.righe.Tutte();
  for (RigaPrimanota& copiata : io.LeggiRighe(articolo, anno)) {
    copiata.posi += ultimaPosi;
    righe.push_back(std::move(copiata));
  }
  bool leggibili = false;
  const TotaliPrimanota totali = TotaliLeggibili(righe, io.ambiente, leggibili);
  if (!leggibili) return;

  io.righe.Sostituisci(std::move(righe));
  io.totali = totali;
  io.contropAutomatiche = false;
  io.Segna();
}

void Primanota::Proponi(const PropostaRegistrazione& proposta) {
  Interno& io = *interno_;
  Nuovo();
  std::vector<RigaPrimanota> righe;
  for (const RigaRegistrazione& r : proposta.righe) {
    RigaPrimanota riga;
    riga.posi = r.posi;
    riga.causale = r.causale;
    riga.descrizione = r.descrizione;
    riga.cfp = r.cfp;
    riga.conto = r.conto;
    riga.impoDare = r.dare;
    riga.impoAvere = r.avere;
    riga.cfpControp = r.cfpControp;
    riga.contoControp = r.contoControp;
    io.Descrivi(riga);
    righe.push_back(std::move(riga));
  }
  bool leggibili = false;
  const TotaliPrimanota totali = TotaliLeggibili(righe, io.ambiente, leggibili);
  if (!leggibili) return;
  io.testa.Scrivi("Dt", proposta.dt);
  io.righe.Sostituisci(std::move(righe));
  io.totali = totali;
  io.contropAutomatiche = false;
  io.origine = proposta.origine;
  io.Segna();
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
  if (!io.documento.Aperto()) return Errore{"aprire prima una registrazione"};
  if (io.documento.SolaLettura()) return Errore{"la registrazione si può solo consultare"};
  return io.allegati.Aggiungi(file);
}

Esito<bool> Primanota::TogliAllegato(std::size_t indice) {
  Interno& io = *interno_;
  if (!io.documento.Aperto()) return Errore{"aprire prima una registrazione"};
  if (io.documento.SolaLettura()) return Errore{"la registrazione si può solo consultare"};
  return io.allegati.Togli(indice);
}

}  // namespace fenalto::ledger
