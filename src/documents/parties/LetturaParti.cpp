#include "documents/parties/LetturaParti.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "core/reports/TestoStampato.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "documents/parties/PartiInterno.h"
#include "ledger/accounts/PannelloSaldo.h"

namespace fenalto::documents {
namespace {

/// Parties between two signs of life.
constexpr std::int64_t kOgni = 100;
/// Right that the figures of an account ask.

constexpr CampoParte Breve(const char* nome, const char* titolo) {
  return {.nome = nome, .titolo = titolo, .sintetico = true};
}
constexpr CampoParte CampoCodice(const char* nome, const char* titolo, const char* tabella,
                                 const char* titoloDescrizione, bool soloClienti = false) {
  return {.nome = nome,
          .titolo = titolo,
          .tabella = tabella,
          .titoloDescrizione = titoloDescrizione,
          .soloClienti = soloClienti};
}
constexpr CampoParte Cifra(const char* nome, const char* titolo) {
  return {.nome = nome, .titolo = titolo, .soloClienti = true, .tipo = Tipo::Importo};
}

constexpr std::array kCampi = std::to_array<CampoParte>(
    {Breve("Cod", "Codice"),
     Breve("ragsoc1", "Ragione sociale"),
     Breve("ragsoc2", "(seconda riga)"),
     {"Pseudonimo", "Pseudonimo"},
     {"indirizzo", "Indirizzo"},
     {"cap", "CAP"},
     Breve("localita", "Località"),
     Breve("Prov", "Prov."),
     {"Nazione", "Nazione"},
     Breve("telefono1", "Telefono"),
     Breve("telefono2", "Altro telefono"),
     {"Fax", "Fax"},
     {"EMail", "E-mail"},
     {"Internet", "Sito internet"},
     {"Contatto1", "Contatto 1"},
     {"TelContatto1", "Tel. contatto 1"},
     {"EmailContatto1", "E-mail contatto 1"},
     {"Contatto2", "Contatto 2"},
     {"TelContatto2", "Tel. contatto 2"},
     {"EmailContatto2", "E-mail contatto 2"},
     Breve("piva", "Partita IVA"),
     {"CodFisc", "Codice fiscale"},
     CampoCodice("Conto", "Conto riepilogativo", "Conti", "Descrizione conto"),
     CampoCodice("ContropFatture", "Contropartita fatture", "Conti", "Descrizione contropartita"),
     CampoCodice("CodIva", "Codice IVA", "CodiciIva", "Descrizione IVA"),
     CampoCodice("EsenzioneIva", "Esenzione IVA", "CodiciIva", "Descrizione esenzione", true),
     CampoCodice("Ritenuta", "Ritenuta", "Ritenute", "Descrizione ritenuta", true),
     CampoCodice("Categoria", "Categoria", "Categorie", "Descrizione categoria"),
     Cifra("Fido", "Fido"),
     CampoCodice("Pagamento", "Pagamento", "Pagamento", "Descrizione pagamento"),
     Cifra("ScCassa", "Sconto cassa %"),
     CampoCodice("Agente", "Agente", "Agenti", "Nome agente", true),
     CampoCodice("Vettore", "Vettore", "Vettori", "Nome vettore", true),
     {"Banca", "Banca"},
     {"Agenzia", "Agenzia"},
     {"CinInt", "Stato/cin int"},
     {"Cin", "Cin"},
     {"Abi", "Abi"},
     {"CAB", "Cab"},
     {"ContoBanca", "Conto corrente"},
     {"Bic", "Bic (swift code)"}});

std::string NomePlurale(const SceltaParti& scelta) {
  return scelta.Clienti() ? "clienti" : "fornitori";
}

/// Texts that aren't empty, with `tra` between.
std::string Unisci(std::initializer_list<std::string> testi, const char* tra = " ") {
  std::string unione;
  for (const std::string& testo : testi) {
    if (testo.empty()) continue;
    if (!unione.empty()) unione += tra;
    unione += testo;
  }
  return unione;
}

std::string Condizione(const SceltaParti& s) {
  std::string testo;
  const auto aggiungi = [&testo](const char* campo, const char* operatore,
                                 const std::string& codice) {
    if (codice.empty()) return;
    testo += (testo.empty() ? " WHERE " : " AND ") + sql::Criterio(campo, operatore, codice);
  };
  aggiungi("Cod", ">=", s.daCod);
  aggiungi("Cod", "<=", s.aCod);
  aggiungi("Categoria", "=", s.categoria);
  if (s.Clienti()) aggiungi("Agente", "=", s.agente);
  return testo;
}

/// The two columns of the detailed layout, each filled on its own.
class Colonna {
 public:
  Colonna(const ParteElencata& parte, std::size_t larghezza)
      : parte_(parte), larghezza_(larghezza) {}

  void Voce(const char* didascalia, const std::string& valore) {
    if (valore.empty()) return;
    std::string primo = didascalia;
    for (std::string& riga : reports::InRighe(valore, larghezza_)) {
      voci.push_back({std::exchange(primo, {}), std::move(riga)});
    }
  }
  void Testo(const char* didascalia, const char* campo) { Voce(didascalia, parte_.Testo(campo)); }
  void CampoCodice(const char* didascalia, const char* campo) {
    Voce(didascalia, Unisci({parte_.Testo(campo), parte_.Descrizione(campo)}));
  }
  void Cifra(const char* didascalia, const char* campo) {
    constexpr int kDecimali = 2;
    const Valore valore = parte_.Campo(campo);
    if (valore.Nullo() || valore.Importo().Zero()) return;
    Voce(didascalia, ScriviImporto(valore.Importo(), kDecimali));
  }

  std::vector<VoceParte> voci;

 private:
  const ParteElencata& parte_;
  std::size_t larghezza_;
};

std::string Coordinate(const ParteElencata& p) {
  const std::string bic = p.Testo("Bic");
  return Unisci({p.Testo("CinInt"), p.Testo("Cin"), p.Testo("Abi"), p.Testo("CAB"),
                 p.Testo("ContoBanca"), bic.empty() ? "" : "bic " + bic});
}

std::string Localita(const ParteElencata& p) {
  const std::string provincia = p.Testo("Prov");
  return Unisci({p.Testo("cap"), p.Testo("localita"),
                 provincia.empty() ? "" : "(" + provincia + ")", p.Testo("Nazione")});
}

std::string Contatto(const ParteElencata& p, const std::string& numero) {
  return Unisci({p.Testo("Contatto" + numero), p.Testo("TelContatto" + numero),
                 p.Testo("EmailContatto" + numero)});
}

}  // namespace

bool SceltaParti::Clienti() const {
  return UgualeTesto(cfp, "C");
}

// --- A party -------------------------------------------------------------------------------------

Valore ParteElencata::Campo(std::string_view nome) const {
  const auto campo = campi_.find(nome);
  return campo == campi_.end() ? Valore() : campo->second;
}

std::string ParteElencata::Testo(std::string_view nome) const {
  return std::string(Rifila(NzStr(Campo(nome))));
}

std::string ParteElencata::Descrizione(std::string_view nome) const {
  const auto descrizione = descrizioni_.find(nome);
  return descrizione == descrizioni_.end() ? std::string() : descrizione->second;
}

std::vector<RigaParte> RigheDettaglio(const ParteElencata& parte, std::size_t larghezza) {
  Colonna sinistra(parte, larghezza);
  sinistra.Testo("indirizzo", "indirizzo");
  sinistra.Voce("località", Localita(parte));
  sinistra.Testo("partita IVA", "piva");
  sinistra.Testo("cod. fiscale", "CodFisc");
  sinistra.CampoCodice("conto riepil.", "Conto");
  sinistra.CampoCodice("contropartita", "ContropFatture");
  sinistra.CampoCodice("codice IVA", "CodIva");
  sinistra.CampoCodice("esenzione IVA", "EsenzioneIva");
  sinistra.CampoCodice("ritenuta", "Ritenuta");
  sinistra.CampoCodice("categoria", "Categoria");
  sinistra.Cifra("fido", "Fido");
  Colonna destra(parte, larghezza);
  destra.Voce("telefono", Unisci({parte.Testo("telefono1"), parte.Testo("telefono2")}, " - "));
  destra.Testo("fax", "Fax");
  destra.Testo("e-mail", "EMail");
  destra.Testo("sito", "Internet");
  destra.Voce("contatti", Contatto(parte, "1"));
  destra.Voce(Contatto(parte, "1").empty() ? "contatti" : "", Contatto(parte, "2"));
  destra.CampoCodice("pagamento", "Pagamento");
  destra.Cifra("sconto cassa %", "ScCassa");
  destra.CampoCodice("agente", "Agente");
  destra.CampoCodice("vettore", "Vettore");
  destra.Voce("banca", Unisci({parte.Testo("Banca"), parte.Testo("Agenzia")}, ", "));
  destra.Voce("coordinate", Coordinate(parte));

  std::vector<RigaParte> righe(std::max(sinistra.voci.size(), destra.voci.size()));
  for (std::size_t i = 0; i < righe.size(); ++i) {
    if (i < sinistra.voci.size()) righe[i].sinistra = std::move(sinistra.voci[i]);
    if (i < destra.voci.size()) righe[i].destra = std::move(destra.voci[i]);
  }
  return righe;
}

// --- The choice ----------------------------------------------------------------------------------

std::optional<Rifiuto> DifettoScelta(const SceltaParti& s) {
  if (s.daCod.empty() || s.aCod.empty() || ConfrontaTesto(s.daCod, s.aCod) <= 0) {
    return std::nullopt;
  }
  return Rifiuto{"il codice iniziale " + s.daCod + " viene dopo quello finale " + s.aCod, "DaCod"};
}

std::string ScrittaScelta(Ambiente& ambiente, const SceltaParti& s) {
  const auto voce = [&ambiente](const char* nome, const char* tabella, const std::string& codice) {
    if (codice.empty()) return std::string();
    return Unisci({nome, codice,
                   NzStr(ambiente.Cerca("tessarc", tabella, {{"Cod", codice}}, "Descrizione"))});
  };
  const std::string intervallo =
      Unisci({s.daCod.empty() ? "" : "da " + s.daCod, s.aCod.empty() ? "" : "a " + s.aCod});
  return Unisci(
      {intervallo.empty() ? "tutti i codici" : "codici " + intervallo,
       voce("categoria", "Categorie", s.categoria),
       s.Clienti() ? voce("agente", "Agenti", s.agente) : "", s.perNome ? "in ordine di nome" : ""},
      ", ");
}

// --- Reading -------------------------------------------------------------------------------------

bool LetturaParti::SenzaCaso::operator()(std::string_view a, std::string_view b) const {
  return ConfrontaTesto(a, b) < 0;
}

LetturaParti::LetturaParti(Ambiente& ambiente, const SceltaParti& scelta)
    : ambiente_(ambiente),
      scelta_(scelta),
      conSaldi_(scelta.dettagliato && ambiente.HaDiritto(kLivelloContabile)),
      saldi_(ambiente.ArchivioDi("tessarc")),
      richiesta_(ledger::RichiestaSaldo(ambiente, scelta.cfp)) {
  richiesta_.mantieniAperto = true;
}

std::vector<CampoParte> LetturaParti::Campi() const {
  std::vector<CampoParte> campi;
  std::copy_if(kCampi.begin(), kCampi.end(), std::back_inserter(campi),
               [this](const CampoParte& campo) {
                 return (scelta_.dettagliato || campo.sintetico) &&
                        (scelta_.Clienti() || !campo.soloClienti);
               });
  return campi;
}

std::string LetturaParti::Fonte() const {
  return std::string(" FROM ") + (scelta_.Clienti() ? "Clienti" : "Fornitori") +
         Condizione(scelta_);
}

std::int64_t LetturaParti::Conta() {
  return ambiente_.ArchivioDi("tessarc").Singolo("SELECT Count(*)" + Fonte()).Intero();
}

void LetturaParti::LeggiDescrizioni() {
  for (const CampoParte& campo : Campi()) {
    if (campo.tabella == nullptr || descrizioni_.contains(campo.tabella)) continue;
    auto& tavola = descrizioni_[campo.tabella];
    Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(std::string("SELECT Cod, Descrizione FROM ") +
                                                      campo.tabella);
    for (; !rs.Eof(); rs.MoveNext()) tavola[rs.Fields(0).Testo()] = NzStr(rs.Fields(1));
  }
}

ParteElencata LetturaParti::Leggi(const Rs& rs, std::span<const CampoParte> campi) {
  ParteElencata parte;
  for (std::size_t i = 0; i < campi.size(); ++i) {
    const CampoParte& campo = campi[i];
    Valore valore = rs.Fields(i);
    if (campo.tabella != nullptr) {
      const auto& tavola = descrizioni_[campo.tabella];
      const auto voce = tavola.find(Rifila(NzStr(valore)));
      if (voce != tavola.end()) parte.descrizioni_[campo.nome] = voce->second;
    }
    parte.campi_[campo.nome] = std::move(valore);
  }
  if (conSaldi_) {
    richiesta_.conto = NzStr(rs.Fields(0));
    parte.saldo = saldi_.Calcola(richiesta_);
  }
  return parte;
}

bool LetturaParti::Scorri(std::int64_t quante,
                          const std::function<bool(const ParteElencata&)>& parte) {
  const auto avanzamento = ambiente_.Dialogo().Avvia("Stampa " + NomePlurale(scelta_), quante);
  LeggiDescrizioni();
  const std::vector<CampoParte> campi = Campi();
  std::string colonne;
  for (const CampoParte& campo : campi)
    colonne += (colonne.empty() ? "" : ", ") + std::string(campo.nome);
  Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
      "SELECT " + colonne + Fonte() +
      (scelta_.perNome ? " ORDER BY ragsoc1, Cod" : " ORDER BY Cod"));
  std::int64_t fatte = 0;
  for (; !rs.Eof(); rs.MoveNext()) {
    if (++fatte % kOgni == 0 && !avanzamento->Avanza(fatte)) return false;
    if (!parte(Leggi(rs, campi))) return false;
  }
  return true;
}

}  // namespace fenalto::documents
