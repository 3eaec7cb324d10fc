#include "assets/Cespiti.h"

#include <algorithm>
#include <utility>

#include "assets/CespitiInterno.h"
#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::assets {

namespace {

constexpr const char* kDismesso = "Attenzione alle variazioni: si tratta di un CESPITE DISMESSO";
constexpr const char* kCompletato =
    "Attenzione alle variazioni: si tratta di un cespite con ammortamento COMPLETATO";
constexpr const char* kCompletatoDismesso =
    "Attenzione alle variazioni: si tratta di un cespite con ammortamento COMPLETATO oppure "
    "DISMESSO";

/// The reference as it is typed: nothing for none.
std::string TestoNumero(std::int64_t numero) {
  return numero == 0 ? std::string() : std::to_string(numero);
}

std::optional<Cespite> LeggiCespite(Ambiente& ambiente, std::int64_t nCesp) {
  const Rs rs = ambiente.ArchivioDi("tessarc").Recordset("select * from Cespiti where " +
                                                         sql::Criterio("NCesp", "=", nCesp));
  if (rs.Eof()) return std::nullopt;
  return records::LeggiRiga(rs, CampiCespite());
}

}  // namespace

Esito<Blocco, Detentore> BloccaCespite(Ambiente& ambiente, std::int64_t nCesp) {
  return ambiente.Basi().Blocchi().Record("CESPITI", std::to_string(nCesp));
}

// --- State ---------------------------------------------------------------------------------------

Cespiti::Interno::Interno(Ambiente& ambienteUsato)
    : ambiente(ambienteUsato), documento(ambienteUsato) {
  for (const auto& campo : CampiCespite()) {
    testa.Aggiungi(campo.nome, UgualeTesto(campo.nome, "CespCorr") ? Tipo::Testo : campo.tipo);
  }
}

void Cespiti::Interno::Chiudi() noexcept {
  documento.Chiudi();
  righe.Carica({});
  righeLette.clear();
  letto = {};
  dalConCosto = {};
  daFattura = false;
}

bool Cespiti::Interno::Ferma() {
  return !documento.Aperto() || documento.RifiutaRiga(righe.InRiga()) ||
         documento.RifiutaSolaLettura();
}

int Cespiti::Interno::AnnoDal() const {
  const Data dal = testa.Leggi("Dal").Data();
  return dal.Nulla() ? 0 : dal.Anno();
}

SchedaCespite Cespiti::Interno::AggiornaStato() {
  const SchedaCespite scheda = CalcolaScheda(righe.Tutte());
  if (scheda.conCosto && !scheda.Dismesso()) {
    if (scheda.Residuo() < Importo()) {
      Avviso("Attenzione: il residuo da ammortizzare è minore di zero");
    }
    if (scheda.Completato()) ambiente.Dialogo().Annuncia("l'ammortamento è stato completato");
  }
  testa.Scrivi("AmmCompl", scheda.Completato());
  testa.Scrivi("Dismesso", scheda.Dismesso());
  return scheda;
}

Cespiti::Cespiti(Ambiente& ambiente) : interno_(std::make_unique<Interno>(ambiente)) {}

Cespiti::~Cespiti() = default;

Cespiti::Stato Cespiti::StatoCorrente() const {
  return interno_->documento.StatoCorrente(interno_->righe.InRiga());
}

bool Cespiti::Nuova() const {
  return interno_->documento.Nuovo();
}

bool Cespiti::SolaLettura() const {
  return interno_->documento.SolaLettura();
}

bool Cespiti::Modificata() const {
  const Interno& io = *interno_;
  return io.documento.Modificabile() &&
         (io.righe.Modificate() || io.testa.Modificata() || io.righe.Digitando());
}

std::string Cespiti::Titolo() const {
  if (StatoCorrente() == Stato::Inattiva) return {};
  return Nuova() ? "nuovo cespite" : "cespite n. " + std::to_string(Numero());
}

// --- Head ----------------------------------------------------------------------------------------

void Cespiti::Interno::Inizia() {
  Chiudi();
  testa.Svuota();
  testa.Scrivi("NCesp", ambiente.Max("NCesp", kTabella, {}, Tessarc()).Intero() + 1);
  documento.Inizia();
}

void Cespiti::Nuovo() {
  interno_->Inizia();
}

bool Cespiti::NuovoDaFattura(int anno, std::int64_t numDoc) {
  Interno& io = *interno_;
  const std::string chiave =
      sql::Criterio("Anno", "=", anno) + " AND " + sql::Criterio("NumDoc", "=", numDoc);
  const Rs fattura = io.Tessarc().Recordset("SELECT * FROM Articoli WHERE " + chiave);
  if (fattura.Eof()) return false;
  MovimentoCespite costo{.posi = 1, .anno = 0, .cau = std::string(kCosto)};
  Importo indetraibile;
  std::string descrizione;
  Rs rs = io.Tessarc().Recordset(
      "SELECT Movimenti.Descrizione, Imponibile, IvaInd FROM Movimenti INNER JOIN Conti ON "
      "Movimenti.Conto = Conti.Cod WHERE Conti.Cespite=True AND Movimenti.CFP='P' AND "
      "TIPORIGA=3 AND Movimenti." +
      chiave.substr(0, chiave.find(" AND ")) + " AND Movimenti." +
      chiave.substr(chiave.find("NumDoc")) + " ORDER BY Movimenti.Posi");
  if (rs.Eof()) return false;
  for (; !rs.Eof(); rs.MoveNext()) {
    if (descrizione.empty()) descrizione = NzStr(rs.Fields(0));
    costo.importo += rs.Fields(1).Importo();
    indetraibile += rs.Fields(2).Importo();
  }
  const Data dal = fattura.Fields("Dt").Data();
  const std::string fornitore = NzStr(io.ambiente.Cerca(
      "tessarc", "Fornitori", {{"Cod", fattura.Fields("Conto").Testo()}}, "ragsoc1"));
  costo.anno = dal.Anno();
  costo.estremi = "ft. " + fattura.Fields("NFat").Testo() + " del " +
                  fattura.Fields("DtFat").Data().Testo() + " " + fornitore;
  // Part of the cost for whoever keeps it so: the user decides, and reads here how much it is.
  if (!indetraibile.Zero()) costo.note = "iva indetraibile " + indetraibile.Testo();
  io.Inizia();
  io.testa.Scrivi("Descrizione", descrizione.empty() ? fornitore : descrizione);
  io.testa.Scrivi("Dal", dal);
  io.righe.Sostituisci({costo});
  io.dalConCosto = dal;
  io.daFattura = true;
  return true;
}

bool Cespiti::Apri(std::int64_t nCesp) {
  Interno& io = *interno_;
  if (!LeggiCespite(io.ambiente, nCesp)) return false;
  Abbandona();
  auto preso = BloccaCespite(io.ambiente, nCesp);
  // Read under the lock: until now another station could still change it.
  const auto letto = LeggiCespite(io.ambiente, nCesp);
  if (!letto) return false;
  io.letto = *letto;
  io.righeLette = LeggiMovimenti(io.ambiente, nCesp);
  records::MostraCampi(io.testa, CampiCespite(), io.letto);
  io.testa.Scrivi("CespCorr", TestoNumero(io.letto.cespCorr));
  io.righe.Carica(io.righeLette);
  io.dalConCosto = io.letto.dal;
  std::string motivo;
  if (!preso) {
    motivo =
        "il cespite n. " + std::to_string(nCesp) + " è in modifica " + preso.Errore().Descrizione();
    io.Avviso(motivo + ":\nsi può consultare, senza cambiarlo");
  }
  io.documento.Mostra(std::move(preso), std::move(motivo));
  if (io.letto.ammCompl || io.letto.dismesso) {
    io.ambiente.Dialogo().Annuncia(io.letto.ammCompl && io.letto.dismesso ? kCompletatoDismesso
                                   : io.letto.dismesso                    ? kDismesso
                                                                          : kCompletato);
  }
  return true;
}

Scheda& Cespiti::Testa() {
  return interno_->testa;
}

std::int64_t Cespiti::Numero() const {
  return interno_->testa.Leggi("NCesp").Intero();
}

void Cespiti::Interno::DalLasciata() {
  const auto& tutte = righe.Tutte();
  const bool conCosto =
      std::ranges::any_of(tutte, [](const MovimentoCespite& riga) { return riga.cau == kCosto; });
  if (!conCosto || testa.Leggi("Dal").Data() == dalConCosto) return;
  // The cost that came from an invoice waits for its date.
  if (daFattura && tutte.size() == 1 && !righe.InRiga() && AnnoDal() != 0) {
    righe.Ritocca([this](std::vector<MovimentoCespite>& una) {
      una.front().anno = AnnoDal();
      return true;
    });
    dalConCosto = testa.Leggi("Dal").Data();
    return;
  }
  Avviso(
      "la registrazione del costo originario è gia inserita: non si può variare la data entrata "
      "infunzione");
  testa.Scrivi("Dal", dalConCosto);
}

void Cespiti::TestaLasciata(std::string_view campo) {
  Interno& io = *interno_;
  if (!io.documento.Modificabile()) return;
  if (UgualeTesto(campo, "Dal")) io.DalLasciata();
  if (UgualeTesto(campo, "CespCorr")) {
    if (const auto rifiuto = io.RifiutoRiferimento()) {
      io.Avviso(rifiuto->messaggio);
      io.testa.Scrivi("CespCorr", TestoNumero(io.letto.cespCorr));
    }
  }
}

std::vector<CespiteCorrelato> Cespiti::Correlati() const {
  const Interno& io = *interno_;
  std::vector<CespiteCorrelato> correlati;
  if (!io.documento.Aperto() || io.documento.Nuovo()) return correlati;
  Rs rs =
      io.Tessarc().Recordset("Select Ncesp,codice,Descrizione,Cat,DescrCat from ZCESPITI WHERE " +
                             sql::Criterio("CESPCORR", "=", io.letto.nCesp));
  for (; !rs.Eof(); rs.MoveNext()) {
    correlati.push_back({rs.Fields(0).Intero(), NzStr(rs.Fields(1)), NzStr(rs.Fields(2)),
                         NzStr(rs.Fields(3)), NzStr(rs.Fields(4))});
  }
  return correlati;
}

const std::vector<MovimentoCespite>& Cespiti::Righe() const {
  return interno_->righe.Tutte();
}

SchedaCespite Cespiti::Calcolata() const {
  return CalcolaScheda(interno_->righe.Tutte());
}

void Cespiti::Abbandona() {
  interno_->Chiudi();
}

}  // namespace fenalto::assets
