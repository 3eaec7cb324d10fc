#include "duedates/payments/RegistraPagamento.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "core/archives/CodiciNoti.h"
#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kDiversi = "DIVERSI";
/// Step between the positions of two rows, so that one can be put between by hand.

/// Parties of a payment, each once.
std::set<std::string> Parti(const Pagamento& pagamento) {
  std::set<std::string> parti;
  for (const RigaPagamento& riga : pagamento.righe) parti.insert(riga.vista.conto);
  return parti;
}

bool ContoEsiste(Ambiente& ambiente, const std::string& conto) {
  return !ambiente.ArchivioDi("tessarc")
              .Recordset("select Cod from zConti where CFP='P' and " +
                         sql::Criterio("Cod", "=", conto))
              .Eof();
}

/// `rifiuto` when `conto` is empty, and with its code when the chart of accounts lacks it.
std::string RifiutoConto(Ambiente& ambiente, const std::string& conto, const std::string& rifiuto) {
  if (conto.empty()) return rifiuto;
  if (ContoEsiste(ambiente, conto)) return {};
  return rifiuto + ": " + conto + " non è nel piano dei conti";
}

std::string SenzaRiepilogo(const Pagamento& pagamento, const std::string& conto) {
  if (pagamento.origine == ledger::Origine::PagamentoSingolo) {
    return "sull'anagrafica del cliente/fornitore " + conto +
           " non è inserito il conto riepilogativo";
  }
  return (pagamento.cfp == "C" ? "sul cliente " : "sul fornitore ") + conto +
         " manca conto riepilogativo";
}

/// The first party without a summary account, empty when each has one: hundreds of them in one
/// look.
std::string PrimaSenzaRiepilogo(Ambiente& ambiente, const Pagamento& pagamento) {
  const auto parti = Parti(pagamento);
  std::string elenco;
  for (const std::string& conto : parti) {
    elenco += (elenco.empty() ? "" : ",") + sql::LetteraleSql(Valore(conto));
  }
  const auto minore = [](const std::string& a, const std::string& b) {
    return ConfrontaTesto(a, b) < 0;
  };
  std::set<std::string, decltype(minore)> conRiepilogo;
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      std::string("select Cod from ") + (pagamento.cfp == "C" ? "Clienti" : "Fornitori") +
      " where Conto<>'' and Cod in (" + elenco + ")");
  for (; !rs.Eof(); rs.MoveNext()) conRiepilogo.insert(rs.Fields("Cod").Testo());
  const auto manca = std::ranges::find_if(
      parti, [&](const std::string& conto) { return !conRiepilogo.contains(conto); });
  return manca == parti.end() ? std::string() : *manca;
}

/// What stands against writing the registration.
std::string RifiutoContabile(Ambiente& ambiente, const Pagamento& pagamento) {
  if (!ambiente.Euro()) {
    return "lo scadenzario non funziona in lire: selezionare un anno in euro";
  }
  if (pagamento.origine == ledger::Origine::PagamentoSingolo && pagamento.descrizione.empty()) {
    return "Mancano le descrizioni contabili";
  }
  if (std::string r = RifiutoConto(ambiente, pagamento.contropartita, "manca contropartita");
      !r.empty()) {
    return r;
  }
  const bool arrotondata = std::ranges::any_of(
      pagamento.righe, [](const RigaPagamento& riga) { return !riga.arrotondamento.Zero(); });
  if (arrotondata) {
    std::string r =
        RifiutoConto(ambiente, pagamento.contoArrotondamenti, "manca conto arrotondamenti");
    if (!r.empty()) return r;
  }
  const std::string conto = PrimaSenzaRiepilogo(ambiente, pagamento);
  return conto.empty() ? std::string() : SenzaRiepilogo(pagamento, conto);
}

std::string DescrizioneRiga(const Pagamento& pagamento, const Scadenza& scadenza) {
  const std::string& testo =
      pagamento.descrizioneParte.empty() ? pagamento.descrizione : pagamento.descrizioneParte;
  if (scadenza.nFat.empty()) return testo;
  return testo + (testo.empty() ? "FT. " : " FT. ") + scadenza.nFat;
}

/// The registration of a payment. Parties stand on one side, counter-account and roundings on the
/// other; an amount below zero goes over to the opposite side, so that none in the books is
/// negative and the sides stay even.
class RegistrazionePagamento {
 public:
  RegistrazionePagamento(const Pagamento& pagamento, int anno)
      : pagamento_(pagamento), cliente_(pagamento.cfp == "C") {
    const auto parti = Parti(pagamento);
    const bool sola = parti.size() == 1;
    parte_ = sola ? *parti.begin() : kDiversi;
    testa_.anno = anno;
    testa_.dt = pagamento.dt;
    testa_.origine = pagamento.origine;
    // The class of several accounts is empty.
    Lato(true, sola ? pagamento.cfp : "", parte_);
    Lato(false, "P", pagamento.contropartita);
    // Several parties are told by the first account of the head, on whichever side they stand.
    if (!sola) {
      testa_.cfp.clear();
      testa_.conto = kDiversi;
    }
    Righe();
  }

  /// Its number; 0 when no amount moves and there is nothing to register.
  [[nodiscard]] std::int64_t Scrivi(Ambiente& ambiente) const {
    return righe_.empty() ? 0 : ledger::ScriviRegistrazione(ambiente, testa_, righe_);
  }

 private:
  void Lato(bool delleParti, const std::string& cfp, const std::string& conto) {
    const bool dare = delleParti != cliente_;
    (dare ? testa_.cfp : testa_.cfpA) = cfp;
    (dare ? testa_.conto : testa_.contoA) = conto;
  }

  void Righe() {
    for (const RigaPagamento& riga : pagamento_.righe) {
      Aggiungi(true, pagamento_.cfp, riga.vista.conto, riga.importoPagato + riga.arrotondamento,
               DescrizioneRiga(pagamento_, riga.vista));
    }
    Aggiungi(false, "P", pagamento_.contropartita, pagamento_.TotPagato(), pagamento_.descrizione);
    Aggiungi(false, "P", pagamento_.contoArrotondamenti, pagamento_.TotArrotondamento(),
             pagamento_.descrizione);
  }

  void Aggiungi(bool delleParti, const std::string& cfp, const std::string& conto, Importo importo,
                const std::string& descrizione) {
    if (importo.Zero()) return;
    ledger::RigaRegistrazione riga;
    riga.posi = kPassoPosi * (static_cast<std::int64_t>(righe_.size()) + 1);
    riga.causale = pagamento_.causale;
    riga.descrizione = descrizione;
    riga.cfp = cfp;
    riga.conto = conto;
    const bool dare = (delleParti != cliente_) != importo.Negativo();
    (dare ? riga.dare : riga.avere) = importo.Assoluto();
    riga.cfpControp = delleParti ? "P" : pagamento_.cfp;
    riga.contoControp = delleParti ? pagamento_.contropartita : parte_;
    righe_.push_back(riga);
  }

  const Pagamento& pagamento_;
  bool cliente_;
  std::string parte_;  ///< the only party's code, or "DIVERSI"
  ledger::TestaRegistrazione testa_;
  std::vector<ledger::RigaRegistrazione> righe_;
};

void Salda(Ambiente& ambiente, const RigaPagamento& riga, Data dt) {
  std::vector<Coppia> campi =
      CampiPagato(riga.vista.importoPagatoE + riga.importoPagato + riga.arrotondamento);
  campi.emplace_back("Stato", riga.saldata ? kStatoPagata : kStatoParziale);
  campi.emplace_back("DtPag", dt);
  AggiornaScadenza(ambiente, riga.vista.numero, campi);
}

/// Under the numbering lock. The refusal, or empty and `scritto` told.
std::string Scrivi(Ambiente& ambiente, const Pagamento& pagamento,
                   const std::function<void(std::int64_t)>& altro, PagamentoScritto& scritto) {
  // Another station may have erased a code since the first look.
  std::string rifiuto = RifiutoPagamento(ambiente, pagamento);
  if (rifiuto.empty()) rifiuto = RifiutoCodici(ambiente, pagamento);
  if (!rifiuto.empty()) return rifiuto;
  // One by one, so that a due date that is there twice is found changed at its second row.
  for (const RigaPagamento& riga : pagamento.righe) {
    if (auto cambiata = ScadenzaCambiata(ambiente, riga.vista)) return *cambiata;
    Salda(ambiente, riga, pagamento.dt);
  }
  std::int64_t numDoc = 0;
  if (pagamento.conRegistrazione) {
    numDoc = RegistrazionePagamento(pagamento, ambiente.Anno()).Scrivi(ambiente);
  }
  if (altro) altro(numDoc);
  scritto = {true, numDoc};
  return {};
}

std::string RifiutoRighe(Ambiente& ambiente, const Pagamento& pagamento) {
  for (const RigaPagamento& riga : pagamento.righe) {
    std::string rifiuto = RifiutoRigaPagamento(riga);
    if (rifiuto.empty()) rifiuto = RifiutoDecimaliRiga(ambiente, riga);
    if (!rifiuto.empty()) return NomeScadenza(ambiente, riga.vista) + ":\n" + rifiuto;
  }
  return {};
}

}  // namespace

Importo Pagamento::TotPagato() const {
  return std::accumulate(
      righe.begin(), righe.end(), Importo(),
      [](Importo somma, const RigaPagamento& riga) { return somma + riga.importoPagato; });
}

Importo Pagamento::TotArrotondamento() const {
  return std::accumulate(
      righe.begin(), righe.end(), Importo(),
      [](Importo somma, const RigaPagamento& riga) { return somma + riga.arrotondamento; });
}

std::string RifiutoRigaPagamento(const RigaPagamento& riga) {
  const Importo daSaldare = riga.vista.Residuo();
  if (riga.saldata) {
    if (riga.importoPagato + riga.arrotondamento == daSaldare) return {};
    return "importo pagato+arrotondamento diverso da importo da saldare";
  }
  if (!riga.arrotondamento.Zero()) {
    return "l'arrotondamento e'valido solo se la scadenza e'saldata";
  }
  if (riga.importoPagato == daSaldare) {
    return "se l'importo pagato è uguale all'importo scadenza inserire spunta su 'scadenza "
           "saldata'";
  }
  // It would be marked as paid in part, on a day on which nothing was paid.
  return riga.importoPagato.Zero() ? "l'importo pagato è zero: indicarlo o eliminare la riga" : "";
}

std::string RifiutoDecimaliRiga(const Ambiente& ambiente, const RigaPagamento& riga) {
  if (!RifiutoDecimali(ambiente, riga.vista.Residuo()).empty()) return {};
  std::string rifiuto = RifiutoDecimali(ambiente, riga.importoPagato);
  return rifiuto.empty() ? RifiutoDecimali(ambiente, riga.arrotondamento) : rifiuto;
}

std::string RifiutoPagamento(Ambiente& ambiente, const Pagamento& pagamento) {
  if (pagamento.righe.empty()) return "non è stata selezionata alcuna scadenza";
  return pagamento.conRegistrazione ? RifiutoContabile(ambiente, pagamento) : std::string();
}

std::string RifiutoCodici(Ambiente& ambiente, const Pagamento& pagamento) {
  if (!pagamento.conRegistrazione) return {};
  if (pagamento.causale.empty()) return "Manca causale o conti";
  const std::pair<archives::CampoDiCodice, const std::string&> codici[] = {
      {{"", "Causale", "causali"}, pagamento.causale},
      {{"", "Contropartita", "conti"}, pagamento.contropartita},
      {{"", "Conto arrotondamenti", "conti"}, pagamento.contoArrotondamenti}};
  for (const auto& [campo, codice] : codici) {
    if (auto ignoto = archives::CodiceIgnoto(ambiente, campo, codice)) return ignoto->messaggio;
  }
  return {};
}

PagamentoScritto RegistraPagamento(Ambiente& ambiente, const Pagamento& pagamento,
                                   const std::function<void(std::int64_t numDoc)>& altro) {
  PagamentoScritto scritto;
  const auto ammesso = [&] {
    std::string rifiuto = RifiutoPagamento(ambiente, pagamento);
    if (rifiuto.empty()) rifiuto = RifiutoRighe(ambiente, pagamento);
    if (rifiuto.empty()) rifiuto = RifiutoCodici(ambiente, pagamento);
    if (!rifiuto.empty()) ambiente.Dialogo().Messaggio(rifiuto, Icona::Avviso);
    return rifiuto.empty();
  };
  const bool riuscito = records::Esegui(
      ambiente, {.nonRiuscita = "registrazione del pagamento non riuscita: ",
                 .numerazioni = {"ARTICOLI"},
                 .prima = ammesso,
                 .scrivi = [&] { return Scrivi(ambiente, pagamento, altro, scritto); }});
  return riuscito ? scritto : PagamentoScritto{};
}

std::string TestoPagamentoScritto(const PagamentoScritto& scritto) {
  std::string testo = "- Scadenzario aggiornato";
  if (scritto.numDoc != 0) {
    testo += "\n- Creato articolo contabile " + std::to_string(scritto.numDoc);
  }
  return testo;
}

}  // namespace fenalto::duedates
