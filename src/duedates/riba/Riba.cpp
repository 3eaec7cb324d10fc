#include "duedates/riba/Riba.h"

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <set>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/riba/FileDistinta.h"
#include "duedates/schedules/RicercaScadenze.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kPresentabili =
    "SELECT SCADENZE.Numero, SCADENZE.Conto AS Cliente, Clienti.RagSoc1, SCADENZE.Dt AS DataScad, "
    "SCADENZE.ImportoE AS Importo,MID(scadenze.descrizione,1,30) as [Descrizione-Riferimenti], "
    "Clienti.ABI AS ABI__, Clienti.CAB as CAB__, SCADENZE.NFat AS NFatt,"
    "SCADENZE.DtFat AS [Data Fatt], SCADENZE.Pagamento as pag "
    "FROM SCADENZE INNER JOIN Clienti ON SCADENZE.Conto = Clienti.Cod "
    "WHERE (((SCADENZE.CFP)='C') AND ((SCADENZE.Tipo)='03') AND ((SCADENZE.Stato)<'20')) "
    // For the index of the open ones.
    "AND SCADENZE.Stato<'30' ORDER BY SCADENZE.NFat";

/// Columns of the statement, in its order.
enum Colonna : std::size_t {
  kNumero,
  kCliente,
  kRagSoc1,
  kDataScad,
  kImporto,
  kDescrizione,
  kAbi,
  kCab,
  kNFat,
  kDtFat,
  kPagamento
};

constexpr std::size_t kCaratteriDescrizione = 30;
constexpr const char* kPiena = "troppe scadenze (max 99): la distinta sarà parziale";

RigaRiba RigaDi(const Rs& rs) {
  RigaRiba r;
  r.numero = rs.Fields(kNumero).Intero();
  r.cliente = rs.Fields(kCliente).Testo();
  r.ragSoc1 = rs.Fields(kRagSoc1).Testo();
  r.dataScad = rs.Fields(kDataScad).Data();
  r.importo = rs.Fields(kImporto).Importo();
  r.descrizione = rs.Fields(kDescrizione).Testo();
  r.abi = rs.Fields(kAbi).Testo();
  r.cab = rs.Fields(kCab).Testo();
  r.nFat = rs.Fields(kNFat).Testo();
  r.dtFat = rs.Fields(kDtFat).Data();
  r.pagamento = rs.Fields(kPagamento).Testo();
  return r;
}

/// The row with what the due date says now.
RigaRiba Aggiornata(RigaRiba riga, const Scadenza& s) {
  riga.cliente = s.conto;
  riga.dataScad = s.dt;
  riga.importo = s.importoE;
  riga.descrizione = Mid(s.descrizione, 1, kCaratteriDescrizione);
  riga.nFat = s.nFat;
  riga.dtFat = s.dtFat;
  riga.pagamento = s.pagamento;
  return riga;
}

bool Presentabile(const Scadenza& s) {
  return UgualeTesto(s.cfp, "C") && UgualeTesto(s.tipo, kTipoRiba) &&
         ConfrontaTesto(s.stato, kStatoPresentabile) < 0;
}

}  // namespace

std::optional<BancaPresentazione> LeggiBanca(Ambiente& ambiente, const std::string& cod) {
  Rs rs = ambiente.ArchivioDi("scadenzario")
              .Recordset("SELECT * FROM Banche WHERE " + sql::Criterio("Cod", "=", cod));
  if (cod.empty() || rs.Eof()) return std::nullopt;
  const auto testo = [&rs](const char* campo) { return rs.Fields(campo).Testo(); };
  return BancaPresentazione{testo("Cod"),
                            testo("Nome"),
                            testo("Agenzia"),
                            {testo("CodSia"), testo("Abi"), testo("CAB"), testo("ContoCorrente")},
                            rs.Fields("NUltDistinta").Intero(),
                            testo("paese") + testo("CinInt") + testo("Cin") + testo("Abi") +
                                testo("CAB") + testo("ContoCorrente")};
}

Riba::Riba(Ambiente& ambiente) : ambiente_(ambiente), data_(ambiente.Ora().Oggi()) {
  impostazioni_.directory = ambiente.Config("DirectoryRiba");
  impostazioni_.causale = ambiente.Config("CausaleRiba");
  impostazioni_.contropartita = ambiente.Config("ContropartitaRiba");
  impostazioni_.registrazione = ImpostazioneAttiva(ambiente, "RegistrazioneContabileRiba");
  Rileggi();
}

bool Riba::Avviso(const std::string& testo, std::string campo) const {
  campoRifiutato_ = std::move(campo);
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

void Riba::Rileggi() {
  righe_.clear();
  std::set<std::int64_t> presenti;
  for (Rs rs = ScadenzarioCon(ambiente_, "Clienti").Recordset(kPresentabili); !rs.Eof();
       rs.MoveNext()) {
    righe_.push_back(RigaDi(rs));
    presenti.insert(righe_.back().numero);
  }
  std::string tolte;
  for (auto scelta = scelte_.begin(); scelta != scelte_.end();) {
    const auto ora = presenti.contains(scelta->first) ? LeggiScadenza(ambiente_, scelta->first)
                                                      : std::optional<Scadenza>();
    if (ora) {
      scelta->second = *ora;
      ++scelta;
    } else {
      tolte += "\n" + NomeScadenza(ambiente_, scelta->second);
      scelta = scelte_.erase(scelta);
    }
  }
  if (!tolte.empty())
    Avviso("non sono più da presentare, e sono state tolte dalla scelta:" + tolte);
}

RigaRiba* Riba::Trova(std::int64_t numero) {
  const auto riga = std::ranges::find(righe_, numero, &RigaRiba::numero);
  return riga == righe_.end() ? nullptr : &*riga;
}

Riba::Presa Riba::Prendi(std::int64_t numero) {
  RigaRiba* riga = Trova(numero);
  if (riga == nullptr) return Presa::Negata;
  const auto ora = LeggiScadenza(ambiente_, numero);
  if (!ora || !Presentabile(*ora)) {
    Avviso("la scadenza n. " + std::to_string(numero) + " di " + riga->ragSoc1 +
           " non è più da presentare: è stata pagata, presentata o eliminata altrove");
    return Presa::Negata;
  }
  if (scelte_.size() >= kMassimoRicevute) {
    Avviso(kPiena);
    return Presa::Piena;
  }
  // What is on the screen must be what goes to the bank.
  if (RigaRiba nuova = Aggiornata(*riga, *ora); nuova != *riga) {
    *riga = std::move(nuova);
    Avviso(NomeScadenza(ambiente_, *ora) +
           "\nè stata modificata da un'altra postazione: la riga è stata aggiornata");
  }
  scelte_.emplace(numero, *ora);
  return Presa::Presa;
}

bool Riba::Cambia(std::int64_t numero) {
  if (scelte_.erase(numero) > 0) return true;
  return Prendi(numero) == Presa::Presa;
}

void Riba::Scegli(std::span<const std::int64_t> numeri) {
  for (const std::int64_t numero : numeri) {
    if (!Scelta(numero) && Prendi(numero) == Presa::Piena) return;
  }
}

Importo Riba::Totale() const {
  return std::accumulate(
      scelte_.begin(), scelte_.end(), Importo(),
      [](Importo somma, const auto& scelta) { return somma + scelta.second.importoE; });
}

std::vector<Scadenza> Riba::Ordinate() const {
  std::vector<Scadenza> ordinate;
  ordinate.reserve(scelte_.size());
  for (const RigaRiba& riga : righe_) {
    const auto scelta = scelte_.find(riga.numero);
    if (scelta != scelte_.end()) ordinate.push_back(scelta->second);
  }
  return ordinate;
}

bool Riba::ImpostaBanca(const std::string& cod) {
  banca_ = LeggiBanca(ambiente_, cod);
  nomeFile_.clear();
  return banca_.has_value();
}

void Riba::RileggiBanca() {
  if (!banca_) return;
  const std::int64_t numero = Numero();
  const std::string nome = nomeFile_;
  if (ImpostaBanca(std::string(banca_->cod)) && Numero() == numero) nomeFile_ = nome;
}

std::int64_t Riba::Numero() const {
  return banca_ ? banca_->nUltDistinta + 1 : 0;
}

std::string Riba::Descrizione() const {
  if (!banca_) return {};
  return "DISTINTA " + std::to_string(Numero()) + " DEL " + data_.Testo();
}

std::string Riba::NomeFile() const {
  if (!nomeFile_.empty()) return nomeFile_;
  if (!banca_) return {};
  return (std::filesystem::path(impostazioni_.directory) / (std::to_string(Numero()) + ".rib"))
      .lexically_normal()
      .string();
}

void Riba::ImpostaNomeFile(const std::string& nome) {
  nomeFile_.clear();
  const std::string rifilato(Rifila(nome));
  if (rifilato.empty() || rifilato == NomeFile()) return;
  std::filesystem::path file(rifilato);
  if (!file.has_extension()) file += ".rib";
  if (!file.has_parent_path()) file = std::filesystem::path(impostazioni_.directory) / file;
  nomeFile_ = file.lexically_normal().string();
}

std::string Riba::FileConservato() const {
  return NomeConservato(NomeFile()).string();
}

void Riba::Imposta(const ImpostazioniRiba& nuove) {
  const auto scrivi = [this](const char* chiave, const std::string& valore) {
    ambiente_.ScriviImpostazione({}, "config", chiave, valore);
  };
  if (nuove.directory != impostazioni_.directory) {
    nomeFile_.clear();
    scrivi("DirectoryRiba", nuove.directory);
  }
  if (nuove.causale != impostazioni_.causale) scrivi("CausaleRiba", nuove.causale);
  if (nuove.contropartita != impostazioni_.contropartita) {
    scrivi("ContropartitaRiba", nuove.contropartita);
  }
  if (nuove.registrazione != impostazioni_.registrazione) {
    scrivi("RegistrazioneContabileRiba", nuove.registrazione ? "1" : "0");
  }
  impostazioni_ = nuove;
}

void Riba::AvvisaCausale() {
  const std::string& causale = impostazioni_.causale;
  if (causale.empty() || causale.front() < '1' || causale.front() > '9') return;
  Avviso(
      "ATTENZIONE : le causali con codifica che inzia con 1,2,3,4,5,6,7,8,9 sono risrvate alle "
      "registrazioni iva ");
}

RibaSegno Riba::Segno() const {
  return RibaSegnoDaChiave(ambiente_.Config("RibaSegno"));
}

std::string Riba::TestoSegno() const {
  return Segno() == RibaSegno::SempreMeno
             ? "segno dopo ogni importo: «-» fisso, come il tracciato delle banche (RibaSegno)"
             : "segno dopo ogni importo: «+», «-» se negativo";
}

}  // namespace fenalto::duedates
