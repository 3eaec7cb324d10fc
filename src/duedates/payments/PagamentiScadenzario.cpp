#include "duedates/payments/PagamentiScadenzario.h"

#include <algorithm>
#include <numeric>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "duedates/payments/ScadenzaConRegistrazione.h"
#include "ledger/registrations/ControlliData.h"

namespace fenalto::duedates {
namespace {

constexpr records::CampoRiga<RigaScelta> kCampi[] = {
    records::Campo<&RigaScelta::importo>("Importo"),
    records::Campo<&RigaScelta::importoPagato>("ImportoPagato"),
    records::Campo<&RigaScelta::arrotondamento>("Arrotondamento"),
    records::Campo<&RigaScelta::saldata>("Saldata")};
/// Step between the positions of two rows.

bool Manca(Ambiente& ambiente, const char* tabella, const std::string& codice) {
  return codice.empty() || ambiente.Cerca("tessarc", tabella, {{"Cod", codice}}, "Cod").Nullo();
}

/// What a row that doesn't add up is put right in.
std::string CampoDiRiga(const RigaScelta& riga) {
  if (riga.saldata) return "ImportoPagato";
  if (!riga.arrotondamento.Zero()) return "Arrotondamento";
  return riga.importoPagato == riga.importo ? "Saldata" : "ImportoPagato";
}

}  // namespace

PagamentiScadenzario::PagamentiScadenzario(Ambiente& ambiente, Modo modo)
    : ambiente_(ambiente), modo_(modo), impostazioni_(Finestra()), righe_(kCampi) {
  testa_.Aggiungi("Dt", Tipo::Data);
  testa_.Aggiungi("Descrizione", Tipo::Testo);
  testa_.Aggiungi("DescrizioneParte", Tipo::Testo);
  testa_.Scrivi("Dt", DataRegistrazioneProposta(ambiente));
  impostazioni_.Leggi(ambiente, cfp_);
}

bool PagamentiScadenzario::Avviso(const std::string& testo, std::string campo) {
  campoRifiutato_ = std::move(campo);
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

bool PagamentiScadenzario::Modificata() const {
  return aperto_ && !Righe().empty();
}

// --- Party, settings ---------------------------------------------------------------------------

FinestraPagamento PagamentiScadenzario::Finestra() const {
  return modo_ == Modo::PiuParti ? FinestraPagamento::Scadenzario : FinestraPagamento::SingolaParte;
}

void PagamentiScadenzario::ImpostazioneLasciata() {
  impostazioni_.Scrivi(ambiente_, cfp_);
}

bool PagamentiScadenzario::ScegliParte(const std::string& cfp, const std::string& conto) {
  const bool altraClasse = cfp != cfp_;
  if (aperto_) {
    if (altraClasse) return false;
    if (modo_ == Modo::SingolaParte && !UgualeTesto(conto, conto_)) return false;
  }
  cfp_ = cfp;
  conto_ = conto;
  if (altraClasse) impostazioni_.Leggi(ambiente_, cfp_);
  return true;
}

// --- Payment -----------------------------------------------------------------------------------

std::string PagamentiScadenzario::RifiutoNuovo() const {
  if (modo_ == Modo::SingolaParte && NomeParte(ambiente_, cfp_, conto_).empty() &&
      ContoRiepilogativo(ambiente_, cfp_, conto_).empty()) {
    return "impostare un codice cliente o fornitore";
  }
  const ImpostazioniPagamento scritte = impostazioni_.Valori();
  if (!scritte.conRegistrazione) return {};
  const std::string& arrotondamenti = scritte.contoArrotondamenti;
  if (Manca(ambiente_, "Causali", scritte.causale) ||
      Manca(ambiente_, "zConti", scritte.contropartita) ||
      (!arrotondamenti.empty() && Manca(ambiente_, "zConti", arrotondamenti))) {
    return "Manca causale o conti";
  }
  if (testa_.Testo("Descrizione").empty()) return "Manca descrizione contabile";
  if (!ambiente_.Euro()) return "lo scadenzario non funziona in lire: selezionare un anno in euro";
  return {};
}

std::string PagamentiScadenzario::CampoMancante() const {
  if (modo_ == Modo::SingolaParte && NomeParte(ambiente_, cfp_, conto_).empty() &&
      ContoRiepilogativo(ambiente_, cfp_, conto_).empty()) {
    return "CliFor";
  }
  const ImpostazioniPagamento scritte = impostazioni_.Valori();
  const std::string numero = modo_ == Modo::PiuParti ? "1" : "2";
  const std::string& arrotondamenti = scritte.contoArrotondamenti;
  if (Manca(ambiente_, "Causali", scritte.causale)) return "CausalePagScad" + numero;
  if (Manca(ambiente_, "zConti", scritte.contropartita)) return "ContropartitaPagScad" + numero;
  if (!arrotondamenti.empty() && Manca(ambiente_, "zConti", arrotondamenti)) {
    return "ContoArrotondamentiPagScad" + numero;
  }
  return testa_.Testo("Descrizione").empty() ? "Descrizione" : "";
}

bool PagamentiScadenzario::Nuovo() {
  if (const std::string rifiuto = RifiutoNuovo(); !rifiuto.empty()) {
    return Avviso(rifiuto, CampoMancante());
  }
  Abbandona();
  aperto_ = true;
  return true;
}

void PagamentiScadenzario::Abbandona() {
  aperto_ = false;
  righe_.Carica({});
}

RicercaScadenze PagamentiScadenzario::Ricerca(const std::string& nFat, Data dtFat) const {
  RicercaScadenze ricerca;
  ricerca.cfp = cfp_;
  ricerca.conto = conto_;
  ricerca.nFat = nFat;
  ricerca.dtFat = dtFat;
  if (modo_ == Modo::SingolaParte) ricerca.ordine = "NFAT ASC,DATASCAD ASC,SCADENZE.NUMERO";
  return ricerca;
}

std::string PagamentiScadenzario::RifiutoScelta(std::int64_t numero) const {
  if (Scelta(numero)) return "il pagamento e' gia stato selezionato";
  if (!aperto_) return "iniziare prima una registrazione con 'Nuova Registrazione'";
  const auto scadenza = LeggiScadenza(ambiente_, numero);
  if (!scadenza) return "Manca scadenza";
  if (!scadenza->Aperta()) {
    return NomeScadenza(ambiente_, *scadenza) +
           "\nè già stata pagata o presentata: cercare di nuovo";
  }
  const bool suo = UgualeTesto(scadenza->cfp, cfp_) &&
                   (modo_ == Modo::PiuParti || UgualeTesto(scadenza->conto, conto_));
  return suo ? ""
             : NomeScadenza(ambiente_, *scadenza) + "\nnon è del cliente/fornitore del pagamento";
}

bool PagamentiScadenzario::Scelta(std::int64_t numero) const {
  return std::ranges::any_of(Righe(),
                             [&](const RigaScelta& riga) { return riga.vista.numero == numero; });
}

bool PagamentiScadenzario::Scegli(std::int64_t numero, bool veloce) {
  if (const std::string rifiuto = RifiutoScelta(numero); !rifiuto.empty()) return Avviso(rifiuto);
  if (righe_.InRiga() && !ConfermaRiga()) return false;
  const auto scadenza = LeggiScadenza(ambiente_, numero);
  if (!scadenza) return Avviso("Manca scadenza");
  RigaScelta riga;
  riga.posi = righe_.ProssimaPosi(kPassoPosi);
  riga.vista = *scadenza;
  riga.nome = NomeParte(ambiente_, scadenza->cfp, scadenza->conto);
  riga.importo = riga.importoPagato = scadenza->Residuo();
  std::vector<RigaScelta> righe = Righe();
  righe.push_back(std::move(riga));
  righe_.Sostituisci(std::move(righe));
  appenaScelta_ = !veloce && ApriRiga(Righe().back().num);
  return true;
}

Importo PagamentiScadenzario::TotPagato() const {
  return ComePagamento().TotPagato();
}

Importo PagamentiScadenzario::TotArrotondamento() const {
  return ComePagamento().TotArrotondamento();
}

Pagamento PagamentiScadenzario::ComePagamento() const {
  const ImpostazioniPagamento scritte = impostazioni_.Valori();
  Pagamento pagamento;
  pagamento.cfp = cfp_;
  pagamento.dt = testa_.Leggi("Dt").Data();
  pagamento.causale = scritte.causale;
  pagamento.descrizione = testa_.Testo("Descrizione");
  pagamento.descrizioneParte = testa_.Testo("DescrizioneParte");
  pagamento.contropartita = scritte.contropartita;
  pagamento.contoArrotondamenti = scritte.contoArrotondamenti;
  pagamento.origine = modo_ == Modo::PiuParti ? ledger::Origine::PagamentoScadenze
                                              : ledger::Origine::PagamentoSingolo;
  pagamento.conRegistrazione = scritte.conRegistrazione;
  for (const RigaScelta& riga : Righe()) {
    pagamento.righe.push_back({riga.vista, riga.importoPagato, riga.arrotondamento, riga.saldata});
  }
  return pagamento;
}

bool PagamentiScadenzario::Conferma() {
  if (righe_.InRiga() && !ConfermaRiga()) return false;
  const Pagamento pagamento = ComePagamento();
  if (const std::string rifiuto = RifiutoPagamento(ambiente_, pagamento); !rifiuto.empty()) {
    return Avviso(rifiuto, Righe().empty() ? "GrigliaScadenze" : CampoMancante());
  }
  if (pagamento.dt.Nulla()) return Avviso("manca la data di registrazione", "Dt");
  campoRifiutato_ = "Dt";
  if (ledger::ControlloAnno(ambiente_, pagamento.dt, true)) return false;
  campoRifiutato_.clear();
  if (const std::string rifiuto = RifiutoCodici(ambiente_, pagamento); !rifiuto.empty()) {
    return Avviso(rifiuto, CampoMancante());
  }
  if (pagamento.conRegistrazione) ledger::ControlloDataGiornale(ambiente_, pagamento.dt);
  const PagamentoScritto scritto = RegistraPagamento(ambiente_, pagamento);
  if (!scritto.scritto) {
    if (pagamento.conRegistrazione) campoRifiutato_ = CampoMancante();
    return false;
  }
  numeroConfermato_ = scritto.numDoc;
  Abbandona();
  ambiente_.Dialogo().Annuncia(TestoPagamentoScritto(scritto));
  return true;
}

// --- The open row ------------------------------------------------------------------------------

bool PagamentiScadenzario::ApriRiga(std::int64_t num) {
  if (StatoCorrente() != Stato::Aperta || !righe_.Apri(&RigaScelta::num, num)) return false;
  appenaScelta_ = false;
  return true;
}

void PagamentiScadenzario::ArrotondaDifferenza() {
  if (!righe_.InRiga()) return;
  Riga().Scrivi("Arrotondamento",
                Riga().Leggi("Importo").Importo() - Riga().Leggi("ImportoPagato").Importo());
  Riga().Scrivi("Saldata", true);
}

bool PagamentiScadenzario::Ammette(const RigaPagamento& riga, const std::string& campo) {
  std::string rifiuto = RifiutoRigaPagamento(riga);
  if (rifiuto.empty()) rifiuto = RifiutoDecimaliRiga(ambiente_, riga);
  if (!rifiuto.empty()) return Avviso(rifiuto, campo);
  if (!SegniContrari(riga.importoPagato, riga.vista.Residuo())) return true;
  return ambiente_.Dialogo().Conferma(
      "l'importo pagato " + ScriviImporto(riga.importoPagato, kDecimaliScadenza) +
      " ha il segno contrario all'importo da saldare, " +
      ScriviImporto(riga.vista.Residuo(), kDecimaliScadenza) + "\nproseguo ugualmente");
}

bool PagamentiScadenzario::ConfermaRiga() {
  if (!righe_.InRiga()) return false;
  RigaScelta digitata = righe_.Digitata();
  digitata.importo = righe_.Aperta()->importo;
  try {
    const RigaPagamento riga{digitata.vista, digitata.importoPagato, digitata.arrotondamento,
                             digitata.saldata};
    if (!Ammette(riga, CampoDiRiga(digitata))) return false;
  } catch (const FuoriCampo& errore) {
    return Avviso(std::string("importo pagato: ") + errore.what() + ". Correggere l'importo",
                  "ImportoPagato");
  }
  righe_.Sostituisci(righe_.Con(std::move(digitata)));
  return true;
}

bool PagamentiScadenzario::EliminaRiga() {
  if (!righe_.InRiga() || !ambiente_.Dialogo().Conferma("Conferma eliminazione RIGA ?")) {
    return false;
  }
  righe_.Sostituisci(righe_.Senza());
  return true;
}

void PagamentiScadenzario::AnnullaRiga() {
  if (righe_.InRiga() && appenaScelta_) {
    righe_.Sostituisci(righe_.Senza());
  } else {
    righe_.Annulla();
  }
}

}  // namespace fenalto::duedates
