// The rows of a registration: the row frame, its rules, the automatic contra-entries.
#include <algorithm>
#include <array>
#include <utility>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/registrations/Primanota.h"
#include "ledger/registrations/PrimanotaInterno.h"

namespace fenalto::ledger {

namespace {

/// Step between the positions of two rows, so that one can be put between.
constexpr std::int64_t kPassoPosi = 100;
constexpr int kMesiSaldo = 12 * 50;

RigaPrimanota LeggiRiga(const Rs& rs) {
  RigaPrimanota r;
  r.num = rs.Fields("Num").Intero();
  r.posi = rs.Fields("Posi").Intero();
  r.causale = rs.Fields("Causale").Testo();
  r.descrCausale = rs.Fields("DescrCausale").Testo();
  r.descrizione = rs.Fields("Descrizione").Testo();
  r.cfp = rs.Fields("CFP").Testo();
  r.conto = rs.Fields("Conto").Testo();
  r.descrConto = rs.Fields("DescrConto").Testo();
  r.impoDare = rs.Fields("ImpoDare").Importo();
  r.impoAvere = rs.Fields("ImpoAvere").Importo();
  r.cfpControp = rs.Fields("CFPControp").Testo();
  r.contoControp = rs.Fields("ContoControp").Testo();
  r.diversiControp = rs.Fields("DiversiControp").Booleano();
  return r;
}

bool PrimaDi(const RigaPrimanota& a, const RigaPrimanota& b) {
  return std::pair(a.posi, a.num) < std::pair(b.posi, b.num);
}

void TogliRiga(std::vector<RigaPrimanota>& righe, std::int64_t num) {
  std::erase_if(righe, [num](const RigaPrimanota& r) { return r.num == num; });
}

/// "a=1,b='x'": the fields of an update.
std::string Assegnazioni(const std::vector<Coppia>& campi) {
  std::string testo;
  for (const auto& [campo, valore] : campi) {
    if (!testo.empty()) testo += ",";
    testo += campo + "=" + sql::LetteraleSql(valore);
  }
  return testo;
}

struct Contropartita {
  std::string cfp;
  std::string conto;
  bool diversi = false;
};

/// One side of a registration: its greatest row and how many rows it has.
struct LatoMaggiore {
  const RigaPrimanota* maggiore = nullptr;
  Importo importo;
  int righe = 0;

  /// The first row wins a tie.
  void Vedi(const RigaPrimanota& riga, Importo importoRiga) {
    if (importoRiga.Zero()) return;
    ++righe;
    if (maggiore != nullptr && importoRiga <= importo) return;
    maggiore = &riga;
    importo = importoRiga;
  }
  [[nodiscard]] Contropartita ComeContropartita() const {
    if (maggiore == nullptr) return {};
    return {maggiore->cfp, maggiore->conto, righe > 1};
  }
};

/// Sides a row can stand on, as conditions of the scratch and on the row.
enum Lato { kDare, kAvere, kNessuno, kLati };
constexpr std::array<std::string_view, kLati> kCondizioneLato = {
    "ImpoDare<>0 and ImpoAvere=0", "ImpoAvere<>0", "ImpoDare=0 and ImpoAvere=0"};

Lato LatoDi(const RigaPrimanota& r) {
  if (!r.impoAvere.Zero()) return kAvere;
  return r.impoDare.Zero() ? kNessuno : kDare;
}

}  // namespace

TotaliPrimanota SommaRighe(const std::vector<RigaPrimanota>& righe) {
  TotaliPrimanota totali;
  for (const RigaPrimanota& r : righe) {
    totali.dare += r.impoDare;
    totali.avere += r.impoAvere;
  }
  totali.sbilancio = totali.dare - totali.avere;
  return totali;
}

std::vector<RigaPrimanota> Primanota::Interno::LeggiRighe() {
  std::vector<RigaPrimanota> lette;
  Rs rs = temp->Vista("Zmovimentinoniva");
  for (; !rs.Eof(); rs.MoveNext()) lette.push_back(LeggiRiga(rs));
  std::sort(lette.begin(), lette.end(), PrimaDi);
  return lette;
}

const std::vector<RigaPrimanota>& Primanota::Righe() const {
  return interno_->righe;
}

Importo Primanota::TotDare() const {
  return interno_->totali.dare;
}

Importo Primanota::TotAvere() const {
  return interno_->totali.avere;
}

Importo Primanota::Sbilancio() const {
  return interno_->totali.sbilancio;
}

// --- The row frame ---------------------------------------------------------------------------

void Primanota::Interno::MostraRiga(bool nuovaRiga, std::int64_t num) {
  riga.Consolida();
  rigaNuova = nuovaRiga;
  numRiga = num;
  // The causal proposed for a new row counts as found the first time that it is left.
  causaleVista = nuovaRiga ? std::string() : riga.Testo("Causale");
  cfpVista = riga.Testo("CFP");
  cfpContropVista = riga.Testo("CFPControp");
  stato = Stato::RigaAperta;
}

void Primanota::Interno::ChiudiRiga() {
  riga.Svuota();
  rigaNuova = false;
  numRiga = 0;
  if (stato == Stato::RigaAperta) stato = Stato::Aperta;
}

bool Primanota::PNuovaRiga() {
  Interno& io = *interno_;
  if (io.stato != Stato::Aperta || io.RifiutaSolaLettura()) return false;
  io.riga.Svuota();
  io.riga.Scrivi("Posi", (io.righe.empty() ? 0 : io.righe.back().posi) + kPassoPosi);
  io.riga.Scrivi("CFP", "P");
  io.riga.Scrivi("CFPControp", "P");
  io.riga.Scrivi("Causale", io.righe.empty() ? std::string() : io.righe.back().causale);
  io.MostraRiga(true, 0);
  return true;
}

bool Primanota::ApriRiga(std::int64_t num) {
  Interno& io = *interno_;
  if (io.stato != Stato::Aperta) return false;
  Rs rs = io.temp->Recordset("select * from Movimenti where " + sql::Criterio("Num", "=", num));
  if (rs.Eof()) return false;
  io.riga.Svuota();
  io.riga.Carica(rs);
  io.MostraRiga(false, num);
  return true;
}

bool Primanota::RigaNuova() const {
  return interno_->rigaNuova;
}

Scheda& Primanota::Riga() {
  return interno_->riga;
}

void Primanota::AnnullaRiga() {
  if (interno_->stato == Stato::RigaAperta) interno_->ChiudiRiga();
}

std::optional<VoceConto> Primanota::Interno::TrovaConto(std::string_view cfp,
                                                        std::string_view cod) {
  if (cod.empty()) return std::nullopt;
  const std::string codice = sql::Criterio("Cod", "=", std::string(cod));
  if (UgualeTesto(cfp, "P")) {
    Rs rs = tessarc.Recordset("SELECT * FROM zConti WHERE CFP='P' and " + codice);
    if (rs.Eof()) return std::nullopt;
    return VoceConto{rs.Fields("Cod").Testo(), rs.Fields("Descrizione").Testo(), ""};
  }
  const bool cliente = UgualeTesto(cfp, "C");
  if (!cliente && !UgualeTesto(cfp, "F")) return std::nullopt;
  Rs rs = tessarc.Recordset(std::string("SELECT * FROM ") + (cliente ? "ZCLIENTI" : "ZFORNITORI") +
                            " WHERE " + codice);
  if (rs.Eof()) return std::nullopt;
  return VoceConto{rs.Fields("Cod").Testo(), rs.Fields("ragsoc1").Testo(),
                   rs.Fields("Conto").Testo()};
}

std::optional<std::string> Primanota::DescrizioneCodice(std::string_view campo) const {
  Interno& io = *interno_;
  if (UgualeTesto(campo, "Conto") || UgualeTesto(campo, "ContoControp")) {
    const std::string_view classe = UgualeTesto(campo, "Conto") ? "CFP" : "CFPControp";
    const auto voce = io.TrovaConto(io.riga.Testo(classe), io.riga.Testo(campo));
    if (!voce) return std::nullopt;
    return voce->descrizione;
  }
  if (!UgualeTesto(campo, "Causale") && !UgualeTesto(campo, "Categoria")) return std::nullopt;
  const std::string codice = io.riga.Testo(campo);
  const Valore descrizione =
      codice.empty()
          ? Valore()
          : io.ambiente.Cerca("tessarc", UgualeTesto(campo, "Causale") ? "CAUSALI" : "Categorie",
                              {{"Cod", codice}}, "Descrizione");
  if (descrizione.Nullo()) return std::nullopt;
  return descrizione.Testo();
}

// --- What follows a field ----------------------------------------------------------------------

void Primanota::Interno::CausaleScelta() {
  const std::string causale = riga.Testo("Causale");
  if (!rigaNuova || UgualeTesto(causale, causaleVista)) return;
  causaleVista = causale;
  // Null, which reads as False, when there is no such causal.
  if (!ambiente.Cerca("tessarc", "CAUSALI", {{"Cod", causale}}, "Ripete").Booleano()) return;
  if (!totali.sbilancio.Zero()) {
    const bool avere = !totali.sbilancio.Negativo();
    riga.Scrivi(avere ? "ImpoAvere" : "ImpoDare", totali.sbilancio.Assoluto());
    riga.Scrivi(avere ? "ImpoDare" : "ImpoAvere", Importo());
  }
  if (!righe.empty()) riga.Scrivi("Descrizione", righe.front().descrizione);
}

void Primanota::Interno::ClasseScelta(std::string_view campoClasse, std::string_view campoConto,
                                      std::string& classeVista) {
  std::string classe = Maiuscolo(riga.Testo(campoClasse));
  if (classe != "P" && classe != "C" && classe != "F") classe = "P";
  riga.Scrivi(campoClasse, classe);
  if (!UgualeTesto(classe, classeVista)) riga.Scrivi(campoConto, "");
  classeVista = classe;
}

void Primanota::RigaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (io.stato != Stato::RigaAperta || io.solaLettura) return;
  if (UgualeTesto(campo, "Causale")) io.CausaleScelta();
  if (UgualeTesto(campo, "CFP")) io.ClasseScelta("CFP", "Conto", io.cfpVista);
  if (UgualeTesto(campo, "CFPControp")) {
    io.ClasseScelta("CFPControp", "ContoControp", io.cfpContropVista);
  }
  for (const auto& [lasciato, altro] :
       {std::pair{"ImpoDare", "ImpoAvere"}, {"ImpoAvere", "ImpoDare"}}) {
    if (UgualeTesto(campo, lasciato) && !io.riga.Leggi(lasciato).Importo().Zero()) {
      io.riga.Scrivi(altro, Importo());
    }
  }
}

std::optional<Saldo> Primanota::VisSaldo() {
  Interno& io = *interno_;
  SaldoConto::Richiesta richiesta;
  richiesta.conto = io.riga.Testo("Conto");
  richiesta.cfp = io.riga.Testo("CFP");
  if (richiesta.conto.empty()) return std::nullopt;
  richiesta.anno = io.anno;
  richiesta.daData = Ambiente::DataMinima();
  richiesta.aData = richiesta.daData.PiuMesi(kMesiSaldo);
  return SaldoConto(io.tessarc).Calcola(richiesta);
}

// --- Saving and deleting a row -----------------------------------------------------------------

bool Primanota::Interno::RigaConfermabile() {
  const std::int64_t posi = riga.Leggi("Posi").Intero();
  if (std::any_of(righe.begin(), righe.end(),
                  [&](const RigaPrimanota& r) { return r.posi == posi && r.num != numRiga; })) {
    Avviso("posizione già esistente");
    return false;
  }
  const std::string causale = riga.Testo("Causale");
  const Valore codCausale =
      causale.empty() ? Valore() : ambiente.Cerca("tessarc", "CAUSALI", {{"Cod", causale}}, "Cod");
  const std::string cfp = Maiuscolo(riga.Testo("CFP"));
  const auto conto = TrovaConto(cfp, riga.Testo("Conto"));
  if (codCausale.Nullo() || !conto) {
    Avviso("manca causale o conto");
    return false;
  }
  if (cfp != "P" && conto->contoRiepilogo.empty()) {
    Avviso("sull'anagrafica del cliente/fornitore " + conto->cod +
           " non è inserito il conto riepilogativo");
    return false;
  }
  if (!riga.Leggi("ImpoDare").Importo().Zero() && !riga.Leggi("ImpoAvere").Importo().Zero()) {
    Avviso("sulla stessa riga ci sono dare e avere: azzerare uno dei due importi");
    return false;
  }
  riga.Scrivi("Causale", codCausale);
  riga.Scrivi("CFP", cfp);
  riga.Scrivi("Conto", conto->cod);
  return true;
}

bool Primanota::Interno::AggiornaContropartite(std::vector<RigaPrimanota>& correnti) {
  LatoMaggiore dare;
  LatoMaggiore avere;
  for (const RigaPrimanota& r : correnti) {
    dare.Vedi(r, r.impoDare);
    avere.Vedi(r, r.impoAvere);
  }
  const std::array<Contropartita, kLati> perLato = {avere.ComeContropartita(),
                                                    dare.ComeContropartita(), Contropartita()};
  std::array<bool, kLati> cambiate{};
  for (RigaPrimanota& r : correnti) {
    const Lato lato = LatoDi(r);
    const Contropartita& nuovaControp = perLato[lato];
    if (r.cfpControp == nuovaControp.cfp && r.contoControp == nuovaControp.conto &&
        r.diversiControp == nuovaControp.diversi) {
      continue;
    }
    cambiate[lato] = true;
    r.cfpControp = nuovaControp.cfp;
    r.contoControp = nuovaControp.conto;
    r.diversiControp = nuovaControp.diversi;
  }
  // All rows of a side have one contra-entry: a statement a side is enough, however many they are.
  bool cambiata = false;
  for (std::size_t lato = 0; lato < kLati; ++lato) {
    if (!cambiate[lato]) continue;
    cambiata = true;
    const Contropartita& c = perLato[lato];
    temp->Esegui(
        "update Movimenti set " +
        Assegnazioni(
            {{"CFPControp", c.cfp}, {"ContoControp", c.conto}, {"DiversiControp", c.diversi}}) +
        " where " + std::string(kCondizioneLato[lato]));
  }
  return cambiata;
}

void Primanota::Interno::SalvaRiga() {
  std::vector<RigaPrimanota> nuove = righe;
  TransazionePrimanota transazione(ambiente.Basi(), Transazione::Ambito::SoloLavoro);
  std::int64_t num = numRiga;
  if (rigaNuova) {
    num = temp->Inserisci(kTabellaRighe, riga.Campi());
  } else {
    temp->Esegui("update Movimenti set " + Assegnazioni(riga.Campi()) + " where " +
                 sql::Criterio("Num", "=", num));
    TogliRiga(nuove, num);
  }
  {
    const Rs rs =
        temp->Recordset("select * from Zmovimentinoniva where " + sql::Criterio("Num", "=", num));
    const RigaPrimanota letta = LeggiRiga(rs);
    nuove.insert(std::upper_bound(nuove.begin(), nuove.end(), letta, PrimaDi), letta);
  }
  ConcludiRighe(std::move(nuove), transazione);
}

void Primanota::Interno::ConcludiRighe(std::vector<RigaPrimanota> nuove,
                                       TransazionePrimanota& transazione) {
  if (contropAutomatiche) AggiornaContropartite(nuove);
  const TotaliPrimanota nuoviTotali = SommaRighe(nuove);
  transazione.Conferma();

  righe = std::move(nuove);
  totali = nuoviTotali;
  righeModificate = true;
  ChiudiRiga();
}

void Primanota::Interno::CancellaRiga() {
  std::vector<RigaPrimanota> nuove = righe;
  TogliRiga(nuove, numRiga);
  TransazionePrimanota transazione(ambiente.Basi(), Transazione::Ambito::SoloLavoro);
  temp->Esegui("delete * from Movimenti where " + sql::Criterio("Num", "=", numRiga));
  ConcludiRighe(std::move(nuove), transazione);
}

bool Primanota::ConfermaRiga() {
  Interno& io = *interno_;
  if (io.stato != Stato::RigaAperta || io.RifiutaSolaLettura()) return false;
  if (!io.RigaConfermabile()) return false;
  try {
    io.SalvaRiga();
  } catch (const FuoriCampo& e) {
    io.Avviso(std::string("totali della registrazione: ") + e.what() +
              ". Correggere l'importo della riga");
    return false;
  }
  return true;
}

bool Primanota::EliminaRiga() {
  Interno& io = *interno_;
  if (io.stato != Stato::RigaAperta || io.RifiutaSolaLettura()) return false;
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
  if (io.rigaNuova) {
    io.ChiudiRiga();
    return true;
  }
  try {
    io.CancellaRiga();
  } catch (const FuoriCampo& e) {
    io.Avviso(std::string("totali della registrazione: ") + e.what() + ". La riga è ancora lì");
    return false;
  }
  return true;
}

// --- Contra-entries ----------------------------------------------------------------------------

bool Primanota::ContropAutomatiche() const {
  return interno_->contropAutomatiche;
}

void Primanota::ContropAutomatiche(bool attive) {
  Interno& io = *interno_;
  if (attive && io.stato != Stato::Inattiva && !io.solaLettura) {
    std::vector<RigaPrimanota> nuove = io.righe;
    TransazionePrimanota transazione(io.ambiente.Basi(), Transazione::Ambito::SoloLavoro);
    if (io.AggiornaContropartite(nuove)) io.righeModificate = true;
    transazione.Conferma();
    io.righe = std::move(nuove);
  }
  io.contropAutomatiche = attive;
}

}  // namespace fenalto::ledger
