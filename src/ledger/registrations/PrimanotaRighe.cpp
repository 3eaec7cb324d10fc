// The rows of a registration: the row frame, its rules, the automatic contra-entries.
#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "core/archives/CodiciNoti.h"
#include "core/archives/FonteCodici.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/registrations/Primanota.h"
#include "ledger/registrations/PrimanotaInterno.h"

namespace fenalto::ledger {

namespace {

/// Step between the positions of two rows, so that one can be put between.
constexpr std::int64_t kPassoPosi = 100;
constexpr int kMesiSaldo = 12 * 50;

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

/// Gives all rows the contra-entry of their side; whether any changed.
bool AggiornaContropartite(std::vector<RigaPrimanota>& righe) {
  LatoMaggiore dare;
  LatoMaggiore avere;
  for (const RigaPrimanota& r : righe) {
    dare.Vedi(r, r.impoDare);
    avere.Vedi(r, r.impoAvere);
  }
  const Contropartita deiDare = avere.ComeContropartita();
  const Contropartita degliAvere = dare.ComeContropartita();
  bool cambiata = false;
  for (RigaPrimanota& r : righe) {
    Contropartita nuova;
    if (!r.impoAvere.Zero()) {
      nuova = degliAvere;
    } else if (!r.impoDare.Zero()) {
      nuova = deiDare;
    }
    cambiata = cambiata || r.cfpControp != nuova.cfp || r.contoControp != nuova.conto ||
               r.diversiControp != nuova.diversi;
    r.cfpControp = std::move(nuova.cfp);
    r.contoControp = std::move(nuova.conto);
    r.diversiControp = nuova.diversi;
  }
  return cambiata;
}

}  // namespace

std::optional<Rifiuto> CodiceIgnotoDi(Ambiente& ambiente, const RigaPrimanota& riga,
                                      bool conControp) {
  using archives::CodiceIgnoto;
  if (auto no = CodiceIgnoto(ambiente, {"Causale", "Causale", "causali"}, riga.causale)) return no;
  if (auto no = CodiceIgnoto(ambiente, {"Conto", "Conto", archives::NomeFonteConti(riga.cfp)},
                             riga.conto)) {
    return no;
  }
  // Payments of several parties stand against all of them.
  if (conControp && !UgualeTesto(riga.contoControp, kDiversi)) {
    if (auto no = CodiceIgnoto(
            ambiente,
            {"ContoControp", "Contropartita", archives::NomeFonteContropartite(riga.cfpControp)},
            riga.contoControp)) {
      return no;
    }
  }
  return CodiceIgnoto(ambiente, {"Categoria", "Categoria", "categorie"}, riga.categoria);
}

bool StessiCodici(const RigaPrimanota& una, const RigaPrimanota& altra) {
  const auto codici = [](const RigaPrimanota& r) {
    return std::tie(r.causale, r.cfp, r.conto, r.cfpControp, r.contoControp, r.categoria);
  };
  return codici(una) == codici(altra);
}

TotaliPrimanota SommaRighe(const std::vector<RigaPrimanota>& righe) {
  TotaliPrimanota totali;
  for (const RigaPrimanota& r : righe) {
    totali.dare += r.impoDare;
    totali.avere += r.impoAvere;
  }
  totali.sbilancio = totali.dare - totali.avere;
  return totali;
}

std::vector<RigaPrimanota> Primanota::Interno::LeggiRighe(std::int64_t numero, int annoCercato) {
  const sql::TabellaCatalogo& tabella = *tessarc.Catalogo().Tabella(kTabellaRighe);
  std::vector<RigaPrimanota> lette;
  Rs rs = tessarc.Recordset("select * from Zmovimentinoniva where " +
                            sql::Criterio("NumDoc", "=", numero) + " and " +
                            sql::Criterio("anno", "=", annoCercato) + " order by Num");
  for (; !rs.Eof(); rs.MoveNext()) {
    RigaPrimanota letta = records::LeggiRiga(rs, righe.Campi());
    letta.descrCausale = rs.Fields("DescrCausale").Testo();
    letta.descrConto = rs.Fields("DescrConto").Testo();
    letta.altre = records::AltreColonne(rs, tabella, righe.Campi(), {"Anno", "NumDoc"});
    lette.push_back(std::move(letta));
  }
  return lette;
}

const std::vector<RigaPrimanota>& Primanota::Righe() const {
  return interno_->righe.Tutte();
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

void Primanota::Interno::VediRiga() {
  // The causal proposed for a new row counts as found the first time that it is left.
  causaleVista = righe.RigaNuova() ? std::string() : riga.Testo("Causale");
  cfpVista = riga.Testo("CFP");
  cfpContropVista = riga.Testo("CFPControp");
}

bool Primanota::PNuovaRiga() {
  Interno& io = *interno_;
  if (StatoCorrente() != Stato::Aperta || io.documento.RifiutaSolaLettura()) return false;
  RigaPrimanota nuova;
  nuova.posi = io.righe.ProssimaPosi(kPassoPosi);
  nuova.cfp = nuova.cfpControp = "P";
  if (!Righe().empty()) nuova.causale = Righe().back().causale;
  io.righe.Nuova(nuova);
  io.VediRiga();
  return true;
}

bool Primanota::ApriRiga(std::int64_t num) {
  Interno& io = *interno_;
  if (StatoCorrente() != Stato::Aperta || !io.righe.Apri(&RigaPrimanota::num, num)) return false;
  io.VediRiga();
  return true;
}

bool Primanota::RigaNuova() const {
  return interno_->righe.RigaNuova();
}

Scheda& Primanota::Riga() {
  return interno_->riga;
}

void Primanota::AnnullaRiga() {
  interno_->righe.Annulla();
  interno_->Segna();
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
  if (!righe.RigaNuova() || UgualeTesto(causale, causaleVista)) return;
  causaleVista = causale;
  // Null, which reads as False, when there is no such causal.
  if (!ambiente.Cerca("tessarc", "CAUSALI", {{"Cod", causale}}, "Ripete").Booleano()) return;
  if (!totali.sbilancio.Zero()) {
    const bool avere = !totali.sbilancio.Negativo();
    riga.Scrivi(avere ? "ImpoAvere" : "ImpoDare", totali.sbilancio.Assoluto());
    riga.Scrivi(avere ? "ImpoDare" : "ImpoAvere", Importo());
  }
  if (!righe.Tutte().empty()) riga.Scrivi("Descrizione", righe.Tutte().front().descrizione);
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
  if (!io.righe.InRiga() || io.documento.SolaLettura()) return;
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
  io.Segna();
}

std::string Primanota::ClasseDiCausale() {
  constexpr std::int64_t kRecenti = 20'000;  // movements looked at, of however many there are
  Interno& io = *interno_;
  const std::string causale = io.riga.Testo("Causale");
  const auto& righe = io.righe.Tutte();
  const auto ultima = std::find_if(righe.rbegin(), righe.rend(), [&](const RigaPrimanota& riga) {
    return UgualeTesto(riga.causale, causale);
  });
  if (ultima != righe.rend()) return ultima->cfp;
  const auto ultimo = io.ambiente.Max("Num", "Movimenti", {}, io.tessarc).Intero();
  Rs rs = io.tessarc.Recordset("SELECT TOP 1 CFP FROM Movimenti WHERE " +
                               sql::Criterio("Num", ">", ultimo - kRecenti) + " AND " +
                               sql::Criterio("Causale", "=", causale) + " ORDER BY Num DESC");
  return rs.Eof() ? std::string() : NzStr(rs.Fields(0));
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

std::optional<Rifiuto> Primanota::Interno::RifiutoRiga() {
  if (righe.PosiOccupata(riga.Leggi("Posi").Intero())) {
    return Rifiuto{"posizione già esistente\nla prima libera in fondo è la " +
                       std::to_string(righe.ProssimaPosi(kPassoPosi)),
                   "Posi"};
  }
  const std::string cfp = Maiuscolo(riga.Testo("CFP"));
  for (const auto& [campo, fonte] :
       {std::pair{"Causale", std::string("causali")}, {"Conto", archives::NomeFonteConti(cfp)}}) {
    const auto ignoto = archives::CodiceIgnoto(ambiente, {campo, campo, fonte}, riga.Testo(campo));
    const std::string manca = "manca causale o conto";
    if (ignoto) return Rifiuto{manca + "\n" + ignoto->messaggio, campo};
    if (riga.Testo(campo).empty()) {
      const bool causale = campo == std::string_view("Causale");
      return Rifiuto{manca + "\nscrivere " + (causale ? "la causale" : "il conto"), campo};
    }
  }
  const auto conto = TrovaConto(cfp, riga.Testo("Conto"));
  if (!conto) return Rifiuto{"manca causale o conto", "CFP"};
  if (cfp != "P" && conto->contoRiepilogo.empty()) {
    return Rifiuto{"sull'anagrafica del cliente/fornitore " + conto->cod +
                       " non è inserito il conto riepilogativo",
                   "Conto"};
  }
  if (!riga.Leggi("ImpoDare").Importo().Zero() && !riga.Leggi("ImpoAvere").Importo().Zero()) {
    return Rifiuto{"sulla stessa riga ci sono dare e avere: azzerare uno dei due importi",
                   "ImpoAvere"};
  }
  riga.Scrivi("Causale",
              ambiente.Cerca("tessarc", "CAUSALI", {{"Cod", riga.Testo("Causale")}}, "Cod"));
  riga.Scrivi("CFP", cfp);
  riga.Scrivi("Conto", conto->cod);
  const RigaPrimanota digitata = righe.Digitata();
  if (!righe.RigaNuova() && StessiCodici(digitata, *righe.Aperta())) return std::nullopt;
  return CodiceIgnotoDi(ambiente, digitata, !contropAutomatiche);
}

void Primanota::Interno::Descrivi(RigaPrimanota& una) {
  una.descrCausale =
      NzStr(ambiente.Cerca("tessarc", "CAUSALI", {{"Cod", una.causale}}, "Descrizione"));
  una.descrConto = NzStr(ambiente.Cerca("tessarc", "CONTICLIENTIFORNITORI",
                                        {{"Cod", una.conto}, {"CFP", una.cfp}}, "Descrizione"));
}

RigaPrimanota Primanota::Interno::RigaDigitata() {
  RigaPrimanota digitata = righe.Digitata();
  Descrivi(digitata);
  return digitata;
}

void Primanota::Interno::ConcludiRighe(std::vector<RigaPrimanota> nuove) {
  if (contropAutomatiche) AggiornaContropartite(nuove);
  totali = SommaRighe(nuove);
  righe.Sostituisci(std::move(nuove));
  Segna();
}

bool Primanota::ConfermaRiga(std::string* campo) {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  if (io.documento.Rifiuta(io.RifiutoRiga(), campo)) return false;
  try {
    io.ConcludiRighe(io.righe.Con(io.RigaDigitata()));
  } catch (const FuoriCampo& e) {
    const bool avere = io.riga.Leggi("ImpoDare").Importo().Zero();
    return !io.documento.Rifiuta(Rifiuto{std::string("totali della registrazione: ") + e.what() +
                                             ". Correggere l'importo della riga",
                                         avere ? "ImpoAvere" : "ImpoDare"},
                                 campo);
  }
  return true;
}

bool Primanota::EliminaRiga() {
  Interno& io = *interno_;
  if (!io.righe.InRiga() || io.documento.RifiutaSolaLettura()) return false;
  if (!io.ambiente.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
  if (io.righe.RigaNuova()) {
    AnnullaRiga();
    return true;
  }
  try {
    io.ConcludiRighe(io.righe.Senza());
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
  if (attive && io.documento.Modificabile() && io.righe.Ritocca(AggiornaContropartite)) {
    io.righe.Modificate(true);
  }
  io.contropAutomatiche = attive;
  io.Segna();
}

}  // namespace fenalto::ledger
