#include "duedates/payments/ScadenzaConRegistrazione.h"

#include "core/archives/CodiciNoti.h"
#include "core/records/Conferma.h"
#include "ledger/registrations/ControlliData.h"
#include "ledger/registrations/RegistrazioneAutomatica.h"

namespace fenalto::duedates {
namespace {

std::int64_t ScriviArticolo(Ambiente& ambiente, const ScadenzaConRegistrazione& cosa) {
  ledger::RegistrazioneDueRighe r;
  r.anno = ambiente.Anno();
  r.dt = cosa.dt;
  r.causale = cosa.causale;
  r.descrizione = cosa.descrizione;
  r.cfp = cosa.cfp;
  r.conto = cosa.conto;
  (cosa.parteInDare ? r.dare : r.avere) = cosa.importo;
  r.cfpA = "P";
  r.contoA = cosa.contropartita;
  r.origine = ledger::Origine::PagamentoSingolo;
  r.testaCfp = cosa.parteInDare ? cosa.cfp : "P";
  r.testaConto = cosa.parteInDare ? cosa.conto : cosa.contropartita;
  r.testaCfpA = cosa.parteInDare ? "P" : cosa.cfp;
  r.testaContoA = cosa.parteInDare ? cosa.contropartita : cosa.conto;
  return ledger::ScriviDueRighe(ambiente, r);
}

std::int64_t ScriviScadenza(Ambiente& ambiente, const ScadenzaConRegistrazione& cosa,
                            std::int64_t numDoc) {
  std::vector<Coppia> campi = cosa.campi;
  campi.emplace_back("CFP", cosa.cfp);
  campi.emplace_back("Conto", cosa.conto);
  if (numDoc != 0) {
    campi.emplace_back("Anno", ambiente.Anno());
    campi.emplace_back("Articolo", numDoc);
  }
  if (!cosa.vista) {
    const std::int64_t numero = ProssimoNumeroScadenza(ambiente);
    campi.emplace_back("Numero", numero);
    ambiente.ArchivioDi("scadenzario").Inserisci("Scadenze", campi);
    return numero;
  }
  AggiornaScadenza(ambiente, cosa.vista->numero, campi);
  return cosa.vista->numero;
}

}  // namespace

std::string RifiutoContabile(Ambiente& ambiente, const ScadenzaConRegistrazione& cosa) {
  if (!cosa.conRegistrazione) return {};
  if (cosa.descrizione.empty()) return "Manca la descrizione contabile";
  if (cosa.contropartita.empty()) return "manca contropartita";
  if (ambiente.Cerca("tessarc", "zConti", {{"CFP", "P"}, {"Cod", cosa.contropartita}}, "Cod")
          .Nullo()) {
    return "manca contropartita: " + cosa.contropartita + " non è nel piano dei conti";
  }
  if (ContoRiepilogativo(ambiente, cosa.cfp, cosa.conto).empty()) {
    return "sull'anagrafica del cliente/fornitore " + cosa.conto +
           " non è inserito il conto riepilogativo";
  }
  return {};
}

bool RinunciaPerData(Ambiente& ambiente, const ScadenzaConRegistrazione& cosa) {
  if (!cosa.conRegistrazione) return false;
  if (ledger::ControlloAnno(ambiente, cosa.dt, true)) return true;
  ledger::ControlloDataGiornale(ambiente, cosa.dt);
  return false;
}

ScadenzaRegistrata ScriviScadenzaConRegistrazione(Ambiente& ambiente,
                                                  const ScadenzaConRegistrazione& cosa,
                                                  const std::string& nome) {
  ScadenzaRegistrata scritta;
  const auto scrivi = [&]() -> std::string {
    if (cosa.vista) {
      if (const auto cambiata = ScadenzaCambiata(ambiente, *cosa.vista)) return *cambiata;
    }
    // Another station may have erased a code since the first look.
    if (std::string rifiuto = RifiutoContabile(ambiente, cosa); !rifiuto.empty()) return rifiuto;
    const std::string causale = cosa.conRegistrazione ? cosa.causale : std::string();
    if (auto no = archives::CodiceIgnoto(ambiente, {"", "Causale", "causali"}, causale)) {
      return no->messaggio;
    }
    if (cosa.conRegistrazione) scritta.numDoc = ScriviArticolo(ambiente, cosa);
    scritta.numero = ScriviScadenza(ambiente, cosa, scritta.numDoc);
    return {};
  };
  scritta.scritta =
      records::Esegui(ambiente, {.nonRiuscita = "registrazione " + nome + " non riuscita: ",
                                 .numerazioni = {"ARTICOLI"},
                                 .scrivi = scrivi});
  return scritta.scritta ? scritta : ScadenzaRegistrata{};
}

std::string ConArticolo(const std::string& testo, const ScadenzaRegistrata& scritta) {
  if (scritta.numDoc == 0) return testo;
  return testo + "\n- Creato articolo contabile " + std::to_string(scritta.numDoc);
}

Data DataRegistrazioneProposta(Ambiente& ambiente) {
  constexpr int kDicembre = 12;
  constexpr int kUltimo = 31;
  const Data oggi = ambiente.Ora().Oggi();
  if (oggi.Anno() == ambiente.Anno()) return oggi;
  return Data::DaGma(kUltimo, kDicembre, ambiente.Anno()).value_or(oggi);
}

}  // namespace fenalto::duedates
