#include "duedates/payments/PagamentiScadenzario.h"

#include <algorithm>
#include <numeric>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/payments/ScadenzaConRegistrazione.h"
#include "ledger/registrations/ControlliData.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kTabella = "Pagamenti_R";
/// Step between the positions of two rows.

bool Manca(Ambiente& ambiente, const char* tabella, const std::string& codice) {
  return codice.empty() || ambiente.Cerca("tessarc", tabella, {{"Cod", codice}}, "Cod").Nullo();
}

}  // namespace

PagamentiScadenzario::PagamentiScadenzario(Ambiente& ambiente, Modo modo)
    : ambiente_(ambiente),
      modo_(modo),
      percorsoTemp_(ambiente.CartellaTemp(kTabella, static_cast<int>(Finestra()))),
      impostazioni_(Finestra()) {
  if (!ambiente.ArchivioDi("scadenzario").CreaCopiaTemp(percorsoTemp_, "NUM", kTabella)) {
    throw ErroreArchivio(ErroreArchivio::Causa::Altro,
                         "non si può creare l'archivio di lavoro «" + percorsoTemp_.string() +
                             "»: controllare lo spazio nella cartella dei file temporanei");
  }
  temp_ = ambiente.Basi().ApriTemp(percorsoTemp_);
  riga_ = Scheda(*temp_->Catalogo().Tabella(kTabella));
  testa_.Aggiungi("Dt", Tipo::Data);
  testa_.Aggiungi("Descrizione", Tipo::Testo);
  testa_.Aggiungi("DescrizioneParte", Tipo::Testo);
  testa_.Scrivi("Dt", DataRegistrazioneProposta(ambiente));
  impostazioni_.Leggi(ambiente, cfp_);
}

PagamentiScadenzario::~PagamentiScadenzario() {
  temp_->Chiudi();
  std::error_code errore;
  std::filesystem::remove(percorsoTemp_, errore);
}

bool PagamentiScadenzario::Avviso(const std::string& testo) const {
  ambiente_.Dialogo().Messaggio(testo, Icona::Avviso);
  return false;
}

bool PagamentiScadenzario::Modificata() const {
  return stato_ != Stato::Inattiva && !righe_.empty();
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
  if (stato_ != Stato::Inattiva) {
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

bool PagamentiScadenzario::Nuovo() {
  if (const std::string rifiuto = RifiutoNuovo(); !rifiuto.empty()) return Avviso(rifiuto);
  Abbandona();
  temp_->Esegui("delete * from Pagamenti_R");
  stato_ = Stato::Aperta;
  return true;
}

void PagamentiScadenzario::Abbandona() {
  stato_ = Stato::Inattiva;
  righe_.clear();
  ChiudiRiga();
}

RicercaScadenze PagamentiScadenzario::Ricerca(std::int64_t nFat, Data dtFat) const {
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
  if (stato_ == Stato::Inattiva)
    return "iniziare prima una registrazione con 'Nuova Registrazione'";
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
  return std::ranges::any_of(righe_,
                             [&](const RigaScelta& riga) { return riga.vista.numero == numero; });
}

bool PagamentiScadenzario::Scegli(std::int64_t numero, bool veloce) {
  if (const std::string rifiuto = RifiutoScelta(numero); !rifiuto.empty()) return Avviso(rifiuto);
  if (stato_ == Stato::RigaAperta && !ConfermaRiga()) return false;
  const auto scadenza = LeggiScadenza(ambiente_, numero);
  if (!scadenza) return Avviso("Manca scadenza");
  RigaScelta riga;
  riga.posi = (righe_.empty() ? 0 : righe_.back().posi) + kPassoPosi;
  riga.vista = *scadenza;
  riga.nome = NomeParte(ambiente_, scadenza->cfp, scadenza->conto);
  riga.importo = riga.importoPagato = scadenza->Residuo();
  riga.num = temp_->Inserisci(kTabella, {{"POSI", riga.posi},
                                         {"NumeroScadenza", numero},
                                         {"Importo", riga.importo},
                                         {"ImportoPagato", riga.importoPagato},
                                         {"Saldata", riga.saldata}});
  const std::int64_t num = riga.num;
  righe_.push_back(std::move(riga));
  rigaNuova_ = !veloce && ApriRiga(num);
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
  for (const RigaScelta& riga : righe_) {
    pagamento.righe.push_back({riga.vista, riga.importoPagato, riga.arrotondamento, riga.saldata});
  }
  return pagamento;
}

bool PagamentiScadenzario::Conferma() {
  if (stato_ == Stato::RigaAperta && !ConfermaRiga()) return false;
  const Pagamento pagamento = ComePagamento();
  if (const std::string rifiuto = RifiutoPagamento(ambiente_, pagamento); !rifiuto.empty()) {
    return Avviso(rifiuto);
  }
  if (pagamento.dt.Nulla()) return Avviso("manca la data di registrazione");
  if (ledger::ControlloAnno(ambiente_, pagamento.dt, true)) return false;
  if (pagamento.conRegistrazione) ledger::ControlloDataGiornale(ambiente_, pagamento.dt);
  const PagamentoScritto scritto = RegistraPagamento(ambiente_, pagamento);
  if (!scritto.scritto) return false;
  numeroConfermato_ = scritto.numDoc;
  Abbandona();
  ambiente_.Dialogo().Messaggio(TestoPagamentoScritto(scritto));
  return true;
}

// --- The open row ------------------------------------------------------------------------------

bool PagamentiScadenzario::ApriRiga(std::int64_t num) {
  if (stato_ != Stato::Aperta) return false;
  const Rs rs =
      temp_->Recordset("select * from Pagamenti_R where " + sql::Criterio("NUM", "=", num));
  if (rs.Eof()) return false;
  riga_.Svuota();
  riga_.Carica(rs);
  numRiga_ = num;
  rigaNuova_ = false;
  stato_ = Stato::RigaAperta;
  return true;
}

const RigaScelta* PagamentiScadenzario::RigaInCorso() const {
  if (stato_ != Stato::RigaAperta) return nullptr;
  const auto riga = std::ranges::find(righe_, numRiga_, &RigaScelta::num);
  return riga == righe_.end() ? nullptr : &*riga;
}

void PagamentiScadenzario::ArrotondaDifferenza() {
  if (stato_ != Stato::RigaAperta) return;
  riga_.Scrivi("Arrotondamento",
               riga_.Leggi("Importo").Importo() - riga_.Leggi("ImportoPagato").Importo());
  riga_.Scrivi("Saldata", true);
}

bool PagamentiScadenzario::ConfermaRiga() {
  const auto scelta = std::ranges::find(righe_, numRiga_, &RigaScelta::num);
  if (stato_ != Stato::RigaAperta || scelta == righe_.end()) return false;
  const RigaPagamento digitata{scelta->vista, riga_.Leggi("ImportoPagato").Importo(),
                               riga_.Leggi("Arrotondamento").Importo(),
                               riga_.Leggi("Saldata").Booleano()};
  try {
    if (const std::string rifiuto = RifiutoRigaPagamento(digitata); !rifiuto.empty()) {
      return Avviso(rifiuto);
    }
  } catch (const FuoriCampo& errore) {
    return Avviso(std::string("importo pagato: ") + errore.what() + ". Correggere l'importo");
  }
  temp_->Esegui(
      "update Pagamenti_R set ImportoPagato=" + sql::LetteraleSql(digitata.importoPagato) +
      ",Arrotondamento=" + sql::LetteraleSql(digitata.arrotondamento) + ",Saldata=" +
      sql::LetteraleSql(digitata.saldata) + " where " + sql::Criterio("NUM", "=", numRiga_));
  scelta->importoPagato = digitata.importoPagato;
  scelta->arrotondamento = digitata.arrotondamento;
  scelta->saldata = digitata.saldata;
  ChiudiRiga();
  return true;
}

void PagamentiScadenzario::TogliRiga(std::int64_t num) {
  temp_->Esegui("delete * from Pagamenti_R where " + sql::Criterio("NUM", "=", num));
  std::erase_if(righe_, [&](const RigaScelta& riga) { return riga.num == num; });
  ChiudiRiga();
}

bool PagamentiScadenzario::EliminaRiga() {
  if (RigaInCorso() == nullptr) return false;
  if (!ambiente_.Dialogo().Conferma("Conferma eliminazione RIGA ?")) return false;
  TogliRiga(numRiga_);
  return true;
}

void PagamentiScadenzario::AnnullaRiga() {
  if (stato_ != Stato::RigaAperta) return;
  if (rigaNuova_) {
    TogliRiga(numRiga_);
  } else {
    ChiudiRiga();
  }
}

void PagamentiScadenzario::ChiudiRiga() {
  riga_.Svuota();
  numRiga_ = 0;
  rigaNuova_ = false;
  if (stato_ == Stato::RigaAperta) stato_ = Stato::Aperta;
}

}  // namespace fenalto::duedates
